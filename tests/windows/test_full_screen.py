"""Full screen: nothing but the picture on the whole screen, and back as it was."""

import accessibility
from viewer_test import BLACK, SCREEN, ViewerTest, color_of, main, x11

WIDTH, HEIGHT = 400, 320  # the shape of the screen
FRAME = (100, 80, 650, 520)
OPTIONS = range(6)


def box_of(picture, color):
    """Left, top, right and bottom of what has that colour, inclusive; None if nothing has."""
    red, green, blue = color
    pixels = memoryview(picture.data).cast("I")
    wanted = red << 16 | green << 8 | blue
    rows = [y for y in range(picture.height)
        if wanted in {p & 0xffffff for p in pixels[y * picture.width:(y + 1) * picture.width]}]
    if not rows:
        return None
    middle = (rows[0] + rows[-1]) // 2 * picture.width
    row = [p & 0xffffff for p in pixels[middle:middle + picture.width]]
    return row.index(wanted), rows[0], picture.width - 1 - row[::-1].index(wanted), rows[-1]


def colors(picture):
    return {((p >> 16) & 255, (p >> 8) & 255, p & 255)
        for p in set(memoryview(picture.data).cast("I"))}


class FullScreen(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def shapes(self, count):
        for index in range(count):
            self.picture(f"p{index:03}.png", color_of(index), WIDTH, HEIGHT)

    def open(self, option):
        self.display_option(option)
        self.saved_frame(*FRAME)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        viewer.wait_centre(color_of(0))
        return viewer, viewer.wait_settled()

    @staticmethod
    def expected_box(option):
        """Where a picture lies on the screen under an option, its edges give or take a pixel."""
        if option in (0, 1):
            left, top = (SCREEN[0] - WIDTH) // 2, (SCREEN[1] - HEIGHT) // 2
            return left, top, left + WIDTH - 1, top + HEIGHT - 1
        if option == 5:
            # Its height would make it too wide by less than a pixel, so that room is left for a
            # scroll bar.
            height = SCREEN[1] - 1 - 14
            width = (WIDTH - 1) * height / (HEIGHT - 1)
            left, top = (SCREEN[0] - 1 - width) / 2, 7
            return left, top, left + width, top + height
        return 0, 0, SCREEN[0] - 1, SCREEN[1] - 1

    def wait_only_picture(self, option, index):
        """Until the screen shows the picture where it belongs, and black, and nothing else."""
        box, shown = None, set()

        def is_shown():
            nonlocal box, shown
            screen = self.screen.picture(0, 0, *SCREEN)
            shown, box = colors(screen), box_of(screen, color_of(index))
            return shown <= {BLACK, color_of(index)} and box and all(
                abs(a - b) <= 1 for a, b in zip(box, self.expected_box(option)))

        x11.wait_for(is_shown, lambda: f"only picture {index} at {self.expected_box(option)}; "
            f"it is at {box} and there are {len(shown)} colours")

    def test_there_and_back_under_each_display_option(self):
        self.shapes(3)
        for option in OPTIONS:
            with self.subTest(option=option):
                viewer, frame = self.open(option)
                viewer.key("Return")
                viewer.wait_full_screen()
                self.wait_only_picture(option, 0)
                viewer.key("space")
                viewer.wait_shown("p001.png")
                self.wait_only_picture(option, 1)
                viewer.key("Escape")
                viewer.wait_full_screen(False)
                viewer.wait_frame(*frame)
                viewer.wait_centre(color_of(1))
                self.assertEqual(viewer.wait_settled(), frame)
                self.assert_clean(viewer)

    def test_by_each_of_its_keys(self):
        self.shapes(1)
        viewer, frame = self.open(3)
        for keys in (("Return",), ("F5",), ("Alt_L", "Return")):
            with self.subTest(keys=keys):
                viewer.key(*keys)
                viewer.wait_full_screen()
                self.wait_only_picture(3, 0)
                viewer.key(*keys)
                viewer.wait_full_screen(False)
                viewer.wait_frame(*frame)
                viewer.wait_settled()
        self.assert_clean(viewer)

    def test_by_the_menu(self):
        self.shapes(1)
        viewer, frame = self.open(3)
        reader = accessibility.Reader(viewer)
        for on in (True, False):
            item = reader.menu("View(V)", "Full Screen(U) [Enter]")
            accessibility.act(item, "Press", "Toggle")
            viewer.wait_full_screen(on)
            viewer.wait_settled()
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_leaving_fits_the_window_to_another_picture(self):
        self.picture("a.png", color_of(1), 300, 200)
        self.picture("b.png", color_of(2), 500, 400)
        viewer = self.start(self.folder)
        viewer.wait_centre(color_of(1))
        left, top, width, height = viewer.wait_settled()
        viewer.key("F5")
        viewer.wait_full_screen()
        viewer.key("space")
        viewer.wait_shown("b.png")
        viewer.wait_centre(color_of(2))
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        viewer.wait_frame(left, top, width + 200, height + 200)
        viewer.wait_centre(color_of(2))
        self.assertEqual(viewer.wait_settled(), (left, top, width + 200, height + 200))
        self.assert_clean(viewer)

    def test_a_picture_larger_than_the_screen_has_its_bars_and_no_more(self):
        self.picture("a.png", color_of(3), 2000, 1500)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        frame = viewer.wait_settled()
        viewer.key("Return")
        viewer.wait_full_screen()

        def is_shown():
            screen = self.screen.picture(0, 0, *SCREEN)
            box = box_of(screen, color_of(3))
            return box and box[:2] == (0, 0) and all(
                abs(a - b) <= 1 for a, b in zip(box[2:], (SCREEN[0] - 15, SCREEN[1] - 14)))

        x11.wait_for(is_shown, "the picture fills the screen up to the bars")
        viewer.key("Return")
        viewer.wait_full_screen(False)
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_without_a_picture(self):
        viewer = self.start()
        frame = viewer.wait_settled()
        viewer.key("Return")
        viewer.wait_full_screen()
        x11.wait_for(lambda: colors(self.screen.picture(0, 0, *SCREEN)) == {BLACK},
            "the screen is black")
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_toggled_quickly_it_ends_as_it_began(self):
        self.shapes(2)
        for option in (1, 3):
            with self.subTest(option=option):
                viewer, frame = self.open(option)
                for _ in range(10):
                    viewer.key("Return")
                viewer.wait_settled()
                viewer.wait_full_screen(False)
                viewer.wait_frame(*frame)
                viewer.wait_centre(color_of(0))
                for _ in range(11):
                    viewer.key("F5")
                viewer.wait_settled()
                viewer.wait_full_screen()
                self.wait_only_picture(option, 0)
                viewer.key("Escape")
                viewer.wait_full_screen(False)
                viewer.wait_frame(*frame)
                self.assert_clean(viewer)

    def test_the_window_manager_may_end_it(self):
        self.shapes(1)
        viewer, frame = self.open(3)
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.wait_settled()
        viewer.window.ask_state("_NET_WM_STATE_FULLSCREEN", False)
        viewer.wait_full_screen(False)
        # Wherever it is now, it is usable and full screen can be had again.
        viewer.wait_settled()
        viewer.wait_centre(color_of(0))
        if viewer.window.frame() != frame:
            self.assertLess(viewer.window.frame()[3], SCREEN[1] + 60)
        viewer.key("Escape")
        viewer.wait_settled()
        viewer.key("Return")
        viewer.wait_full_screen()
        self.wait_only_picture(3, 0)
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        viewer.wait_settled()
        self.assert_clean(viewer)

    def test_a_display_option_chosen_in_it_takes_effect_at_once(self):
        self.shapes(1)
        viewer, frame = self.open(0)
        reader = accessibility.Reader(viewer)
        viewer.key("Return")
        viewer.wait_full_screen()
        self.wait_only_picture(0, 0)
        for option, label in ((2, "Fit Image to Window(I)"), (5, "Scale Image to Window Height(Y)"),
                (0, "Don't Fit Anything(D)")):
            accessibility.act(reader.menu("View(V)", label), "Press", "Toggle")
            self.wait_only_picture(option, 0)
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_closed_in_it_the_next_start_is_a_window_as_before(self):
        self.shapes(1)
        viewer, frame = self.open(3)
        viewer.key("Return")
        viewer.wait_full_screen()
        self.wait_only_picture(3, 0)
        self.assertEqual(viewer.close(), 0)
        again = self.start(self.folder)
        again.wait_shown("p000.png")
        again.wait_frame(*frame)
        self.assertFalse(again.is_full_screen())
        self.assertEqual(again.wait_settled(), frame)
        self.assert_clean(again)


if __name__ == "__main__":
    main()
