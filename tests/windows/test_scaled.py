"""Screens with more than one pixel to a unit: at its own size the picture's pixels become blocks,
without seams; a scaled one is sampled at the screen's resolution."""

import settings_file
from viewer_test import STATUS_BAR_HEIGHT, ViewerTest, color_of, main, measured, png, x11

WIDTH, HEIGHT = 301, 211


class Scaled(ViewerTest):
    scale = 1.0

    def environment(self):
        return {**super().environment(), "QT_SCALE_FACTOR": str(self.scale)}

    def open(self, scale, *arguments):
        self.scale = scale
        return self.start(*arguments)

    @staticmethod
    def pattern(width, height):
        """Pixels of which no two that touch are alike, none of them black."""
        def at(x, y):
            return 80 + x * 37 % 171, 60 + y * 53 % 191, 90 + (x + y) % 2 * 120

        rows = [[at(x, y) for x in range(width)] for y in range(height)]
        return rows, png.encode(width, height, [bytes(sum(row, ())) for row in rows])

    @staticmethod
    def blocks(count, scale, start=0):
        """For each pixel of the screen the one of the picture that begins `start` units from the
        window's edge: edges lie at rounded multiples."""
        edges = [int((start + i) * scale + 0.5) for i in range(count + 1)]
        return [i for i in range(count) for _ in range(edges[i], edges[i + 1])]

    SCALES = (1.0, 1.25, 1.5, 1.75, 2.0, 3.0)

    def test_each_pixel_of_the_picture_is_its_block(self):
        rows, data = self.pattern(WIDTH, HEIGHT)
        self.write("a.png", data)
        for scale in self.SCALES:
            with self.subTest(scale=scale):
                # Room on all sides, so that the picture is whole wherever it lies.
                self.display_option(0)
                self.saved_frame(20, 30, 20 + 379, 30 + 309)
                viewer = self.open(scale, self.folder)
                viewer.wait_shown("a.png")
                viewer.wait_settled()
                different = ""

                def is_same():
                    nonlocal different
                    different = self.difference(viewer.window.picture(), rows, scale)
                    return not different

                x11.wait_for(is_same, lambda: different, 10)
                self.assert_clean(viewer)

    def difference(self, shown, rows, scale):
        """The first pixel of the window that is not that of the picture, in words."""
        wide, high = round(shown.width / scale), round(shown.height / scale)
        # The picture lies in the middle of what the menu and the status bar leave, at whole units.
        left = next((x for x in range(wide - WIDTH)
            if shown.at(x * scale + 0.5, shown.height // 2) != (0, 0, 0)), 0)
        column = int((left + WIDTH // 2) * scale)
        top = next((y for y in range(high - HEIGHT)
            if shown.at(column, y * scale + 0.5) == rows[0][self.blocks(WIDTH, scale, left)[
                column - int(left * scale + 0.5)]]
            and shown.at(column, int(y * scale + 0.5) - 1) == (0, 0, 0)), 0)
        columns, lines = (self.blocks(WIDTH, scale, left), self.blocks(HEIGHT, scale, top))
        x0, y0 = int(left * scale + 0.5), int(top * scale + 0.5)
        for line, y in enumerate(lines):
            found = [shown.at(x0 + x, y0 + line) for x in range(len(columns))]
            wanted = [rows[y][x] for x in columns]
            if found != wanted:
                x = next(i for i, (a, b) in enumerate(zip(found, wanted)) if a != b)
                return (f"({x}, {line}) from {x0, y0} is {found[x]}, not {wanted[x]}, "
                    f"of {columns[x], y}")
        # Black touches it on all sides.
        around = [(x0 - 1, y0), (x0 + len(columns), y0), (x0, y0 - 1), (x0, y0 + len(lines))]
        return "" if {shown.at(*place) for place in around} == {(0, 0, 0)} else "no edge"

    def test_a_fitted_window_needs_no_scroll_bars(self):
        for width, height in ((300, 200), (301, 211)):
            self.picture("a.png", color_of(7), width, height)
            for scale in self.SCALES[:-1]:
                with self.subTest(scale=scale, width=width, height=height):
                    viewer = self.open(scale, self.folder)
                    viewer.wait_shown("a.png")
                    x11.wait_for(lambda: abs(viewer.window.frame()[2] - width * scale) <= scale,
                        lambda: f"{width} units of width; {viewer.window.frame()}")
                    viewer.wait_settled()
                    shown = viewer.window.picture()
                    # The picture takes the middle row and, but for menu and status bar, column.
                    row = shown.height // 2
                    self.assertTrue(all(shown.at(x, row) == color_of(7)
                        for x in range(shown.width)), "there is a vertical bar")
                    high = sum(shown.at(shown.width // 2, y) == color_of(7)
                        for y in range(shown.height))
                    self.assertAlmostEqual(high, height * scale, delta=1)
                    self.assert_clean(viewer)

    @staticmethod
    def uniform_blocks(picture, left, top, right, bottom):
        """Which part of the 2x2 blocks in there has one colour, wherever the blocks begin."""
        def part(dx, dy):
            blocks = [(x, y) for y in range(top + dy, bottom - 1, 2)
                for x in range(left + dx, right - 1, 2)]
            uniform = sum(len({picture.at(x + i, y + j) for i in (0, 1) for j in (0, 1)}) == 1
                for x, y in blocks)
            return uniform / len(blocks)

        return max(part(dx, dy) for dx in (0, 1) for dy in (0, 1))

    def fitted_with_comments(self):
        self.preferences(settings_file.int32("DsOp", 2), settings_file.string("CmFE", "txt"))

    def test_a_scaled_picture_has_the_resolution_of_the_screen(self):
        # More pixels than any of these windows has, of which no two are alike.
        self.write("a.png", measured(2600, 1900))
        self.fitted_with_comments()
        self.saved_frame(20, 30, 20 + 499, 30 + 399)
        for comment in (False, True):
            if comment:
                self.write("a.txt", b"A comment")
            for scale in (1.0, 1.5, 2.0):
                with self.subTest(scale=scale, comment=comment):
                    viewer = self.open(scale, self.folder)
                    viewer.wait_shown("a.png")
                    viewer.wait_settled()
                    shown = viewer.window.picture()
                    # Below the menu, above the comment.
                    part = (10, int(60 * scale), shown.width - 10, int(260 * scale))
                    self.assertEqual(self.uniform_blocks(shown, *part), 0)
                    # Its letters are the only white there is.
                    white = sum(min(shown.at(x, y)) > 230 for y in range(part[3], shown.height
                        - int(scale * 20)) for x in range(int(scale * 20), int(scale * 100)))
                    self.assertEqual(white > 5, comment)
                    self.assert_clean(viewer)

    def test_the_comment_has_the_resolution_of_the_screen(self):
        self.picture("a.png", (255, 0, 0), 500, 400)
        self.write("a.txt", b"Sphinx of black quartz, judge my vow")
        self.fitted_with_comments()
        self.saved_frame(20, 30, 20 + 499, 30 + 399)
        viewer = self.open(2.0, self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_settled()
        shown = viewer.window.picture()
        # The band is what the picture's red is darkened in; blocks without letters do not count.
        band = [(x, y) for y in range(2 * 60, shown.height - 2 * 15)
            for x in range(shown.width) if shown.at(x, y) == (128, 0, 0)]
        self.assertTrue(band, "there is a comment")
        left, right = (end(x for x, _ in band) for end in (min, max))
        top, bottom = (end(y for _, y in band) for end in (min, max))

        def letters(dx, dy):
            blocks = [{shown.at(x + i, y + j) for i in (0, 1) for j in (0, 1)}
                for y in range(top + dy, bottom, 2) for x in range(left + dx, right, 2)]
            return [block for block in blocks if block != {(128, 0, 0)}]

        for dx in (0, 1):
            for dy in (0, 1):
                blocks = letters(dx, dy)
                self.assertGreater(len(blocks), 100)
                uniform = sum(len(block) == 1 for block in blocks)
                self.assertLess(uniform / len(blocks), 0.5)
        self.assert_clean(viewer)

    def test_the_whole_area_is_drawn_when_the_window_is_resized(self):
        self.picture("a.png", color_of(7), 300, 200)
        self.display_option(2)
        for scale in (1.5, 2.0):
            with self.subTest(scale=scale):
                viewer = self.open(scale, self.folder)
                viewer.wait_shown("a.png")
                for size in ((702, 504), (642, 480), (804, 600)):
                    viewer.window.move_resize(30, 60, *size)
                    # It may be sized in steps of whole units.
                    x11.wait_for(lambda: all(abs(a - b) <= scale
                            for a, b in zip(viewer.window.frame(), (30, 60, *size))),
                        lambda: f"a size of {size}; it is {viewer.window.frame()}")
                    bars = int(80 * scale)

                    def is_filled():
                        left, top, width, height = viewer.window.frame()
                        picture = self.screen.picture(left, top + bars, width,
                            height - bars - int(STATUS_BAR_HEIGHT * scale + 1))
                        return picture.is_uniform() and picture.at(0, 0) == color_of(7)

                    x11.wait_for(is_filled, f"the picture fills the window of {size}")
                self.assert_clean(viewer)

    def test_keys_and_full_screen_work(self):
        self.pictures(3)
        for scale in (1.5, 2.0):
            with self.subTest(scale=scale):
                viewer = self.open(scale, self.folder)
                viewer.wait_shown("p000.png")
                frame = viewer.wait_settled()
                viewer.key("space")
                viewer.wait_shown("p001.png")
                viewer.key("Return")
                viewer.wait_full_screen()

                def is_alone():
                    screen = self.screen.picture(0, 0, 1280, 1024)
                    colors = {screen.at(x, y) for x in range(0, 1280, 5)
                        for y in (0, 1, 2, 500, 512, 1020, 1022, 1023)}
                    return colors == {(0, 0, 0), color_of(1)}

                x11.wait_for(is_alone, "the picture alone is on the screen")
                viewer.key("Return")
                viewer.wait_full_screen(False)
                # Where a unit is not a whole number of pixels, its size may be a step off.
                x11.wait_for(lambda: all(abs(a - b) <= scale % 1 * 2
                        for a, b in zip(viewer.window.frame(), frame)),
                    lambda: f"back at {frame}; it is {viewer.window.frame()}")
                self.assert_clean(viewer)


if __name__ == "__main__":
    main()
