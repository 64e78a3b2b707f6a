"""The status bar's texts, by assistive technology and as they are drawn."""

import accessibility
from viewer_test import ViewerTest, color_of, main, png, x11

FIELDS = ["Position in Folder", "Format", "Size", "Scale"]


class Status(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def open(self, option=0, folder=None, frame=(50, 50, 550, 450)):
        self.display_option(option)
        self.saved_frame(*frame)
        viewer = self.start(folder or self.folder)
        self.reader = accessibility.Reader(viewer)
        return viewer

    def fields(self):
        found = {item.get_description(): item for item in self.reader.all()
            if item.get_description() in FIELDS}
        return [found[name] for name in FIELDS] if len(found) == len(FIELDS) else []

    def texts(self):
        try:
            return [field.get_name() for field in self.fields()]
        except accessibility.GONE:
            return []

    def wait_texts(self, *wanted):
        """The kind is the translator's own name for it: only part of it is known here."""
        def reads():
            texts = self.texts()
            return len(texts) == 4 and texts[0::2] == [wanted[0], wanted[2]] \
                and texts[3] == wanted[3] and wanted[1].upper() in texts[1].upper()

        x11.wait_for(reads, lambda: f"the status bar reads {wanted}; it reads {self.texts()}")

    def is_whole(self, field):
        """Whether the text is drawn to its end: neither cut by its field's edge nor ended by
        three dots, which lie low with nothing above them."""
        picture = self.screen.picture(*accessibility.extents(field))
        # The field's own ground is the most frequent colour.
        pixels = [picture.at(x, y) for y in range(picture.height) for x in range(picture.width)]
        ground = max(set(pixels), key=pixels.count)

        def ink(x):
            return [y for y in range(1, picture.height - 1)
                if sum(abs(a - b) for a, b in zip(picture.at(x, y), ground)) > 60]

        columns = [x for x in range(picture.width) if ink(x)]
        if not columns or columns[-1] == picture.width - 1:
            return False
        last = [y for x in range(max(columns[-1] - 5, 0), columns[-1] + 1) for y in ink(x)]
        return max(last) - min(last) >= 4

    def assert_whole(self, viewer):
        viewer.wait_idle()
        for field in self.fields():
            self.assertTrue(self.is_whole(field),
                f"{field.get_description()}: {field.get_name()!r} is cut")

    def test_position_kind_size_and_scale(self):
        self.picture("a.png", color_of(1), 400, 300)
        self.write("b.jpg", self.sample("02-rings.jpg"))
        self.write("c.gif", self.sample("07-numbers.gif"))
        self.write("d.ppm", self.sample("08-stripes.ppm"))
        self.picture("e.png", color_of(1), 3000, 10)
        self.picture("f.png", color_of(1), 1, 1)
        viewer = self.open()
        for name, *texts in (("a.png", "1/6", "PNG", "400 x 300", "100% x 100%"),
                ("b.jpg", "2/6", "JP", "640 x 640", "100% x 100%"),
                ("c.gif", "3/6", "GIF", None, "100% x 100%"),
                ("d.ppm", "4/6", "PPM", None, "100% x 100%"),
                ("e.png", "5/6", "PNG", "3000 x 10", "100% x 100%"),
                ("f.png", "6/6", "PNG", "1 x 1", "100% x 100%")):
            with self.subTest(name=name):
                viewer.wait_shown(name)
                if texts[2] is None:
                    x11.wait_for(lambda: self.texts()[:1] == texts[:1], "the position is told")
                    texts[2] = self.texts()[2]
                    self.assertRegex(texts[2], r"^\d+ x \d+$")
                self.wait_texts(*texts)
                self.assert_whole(viewer)
            viewer.key("space")
        self.assert_clean(viewer)

    def test_the_scale_under_each_option(self):
        self.picture("a.png", color_of(1), 320, 160)
        for option in range(6):
            with self.subTest(option=option):
                viewer = self.open(option)
                viewer.wait_shown("a.png")
                viewer.wait_settled()
                _left, _top, width, height = viewer.image_area()
                across, down = width * 100 // 320, height * 100 // 160
                # The fifth leaves room for the scroll bar that it would otherwise need.
                room = (height - 1 - 14) / 159 * 319 + 1
                scale = {0: (100, 100), 1: (100, 100), 2: (across, down), 3: (across, across),
                    4: (across, across), 5: (int(room * 100 / 320),) * 2}[option]
                self.wait_texts("1/1", "PNG", "320 x 160", "%d%% x %d%%" % scale)
                self.assert_whole(viewer)
                self.assert_clean(viewer)

    def test_the_scale_follows_the_window(self):
        self.picture("a.png", color_of(1), 200, 200)
        viewer = self.open(2)
        viewer.wait_shown("a.png")
        for width, height in ((800, 600), (301, 400), (1000, 210)):
            viewer.window.move_resize(60, 60, width, height)
            viewer.wait_frame(60, 60, width, height)
            high = height - self.menu_height() - 14
            self.wait_texts("1/1", "PNG", "200 x 200", f"{width // 2}% x {high // 2}%")
            self.assert_whole(viewer)
        self.assert_clean(viewer)

    def test_the_longest_texts_that_are_usual(self):
        # Rows of one colour are quickly made and hardly take place.
        self.write("a.png", png.encode(12000, 9000, [bytes(36000)] * 9000))
        for index in range(119):
            self.write(f"b{index:03}.txt", b"an entry")
        viewer = self.open(3)
        viewer.wait_shown("a.png")
        x11.wait_for(lambda: self.texts()[:1] == ["1/120"], "the position is told")
        self.assertEqual(self.texts()[2], "12000 x 9000")
        self.assert_whole(viewer)
        self.assert_clean(viewer)

    def test_all_is_empty_without_a_picture(self):
        viewer = self.open(folder=self.folder)
        x11.wait_for(lambda: self.texts() == [""] * 4, "the status bar is empty")
        self.assert_clean(viewer)

    def test_a_narrow_window_cuts_the_bar_and_nothing_else(self):
        self.picture("a.png", color_of(1), 200, 100)
        viewer = self.open(frame=(50, 50, 120, 250))
        viewer.wait_shown("a.png")
        self.wait_texts("1/1", "PNG", "200 x 100", "100% x 100%")
        left, _top, width, _height = viewer.wait_settled()
        self.assertLess(width, 120)
        # What lies beyond the window is not drawn on.
        outside = self.screen.picture(left + width + 10, 50, 300, 300)
        self.assertTrue(outside.is_uniform())
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
