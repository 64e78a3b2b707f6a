"""The window's size and place: fitted to the picture, kept on the screen, usable whatever the
settings say."""

import accessibility
import settings_file
from test_bad_input import png_that_claims
from viewer_test import (
    BLACK, SCREEN, SCROLL_BAR_EXTENT, SCROLL_BAR_THICKNESS, STATUS_BAR_HEIGHT, ViewerTest,
    color_of, main, x11)

# A fitted window's content is at most this large and ends at most at these edges.
LARGEST = SCREEN[0] - 10, SCREEN[1] - 30
LAST = SCREEN[0] - 5, SCREEN[1] - 5

# The least width of a window and the least height of what it has for a picture, in pixels.
LEAST_WIDTH, LEAST_IMAGE_AREA = 71, 70

OPTIONS = ["Don't Fit Anything(D)", "Fit Window to Image(W)", "Fit Image to Window(I)",
    "Scale Image to Window(S)", "Scale Image to Window Width(X)",
    "Scale Image to Window Height(Y)"]


class Fitting(ViewerTest):
    def bars(self):
        """The height of what a window has besides the image area."""
        return self.menu_height() + STATUS_BAR_HEIGHT

    def expect_fitted(self, width, height, color, left=50, top=50):
        """The picture of the folder gets a window of that content, drawn to its edges."""
        self.saved_frame(left, top, left + 300, top + 250)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_frame(None, None, width, height)
        x11.wait_for(lambda: self.count(viewer.area_picture(), color), "the picture is drawn")
        frame = viewer.wait_settled()
        self.assertEqual(frame[2:], (width, height))
        # All of it is on the screen, and where it was if it can be.
        expected = min(left, LAST[0] - width), min(top, LAST[1] - height)
        self.assertEqual(frame[:2], expected)
        return viewer

    def test_a_picture_gets_a_window_of_its_size(self):
        for width, height in ((320, 240), (71, 71), (1000, 100), (100, 900)):
            with self.subTest(width=width, height=height):
                self.picture("a.png", color_of(7), width, height)
                viewer = self.expect_fitted(width, height + self.bars(), color_of(7))
                picture = viewer.area_picture()
                self.assertTrue(picture.is_uniform())
                self.assertEqual(picture.at(0, 0), color_of(7))
                self.assertEqual(picture.at(width - 1, height - 1), color_of(7))
                self.assert_clean(viewer)

    def test_a_tiny_picture_gets_the_least_window(self):
        for width, height in ((1, 1), (20, 10), (1, 300), (300, 1)):
            with self.subTest(width=width, height=height):
                self.picture("a.png", color_of(7), width, height)
                area = max(width, LEAST_WIDTH), max(height, LEAST_IMAGE_AREA)
                viewer = self.expect_fitted(area[0], area[1] + self.bars(), color_of(7))
                found = self.count(viewer.area_picture(), color_of(7))
                self.assertEqual(found, width * height)
                self.assert_clean(viewer)

    @staticmethod
    def count(picture, color):
        red, green, blue = color
        wanted = red << 16 | green << 8 | blue
        return sum(p & 0xffffff == wanted for p in memoryview(picture.data).cast("I"))

    def test_a_picture_larger_than_the_screen(self):
        self.picture("a.png", color_of(7), 3000, 2000)
        viewer = self.expect_fitted(*LARGEST, color_of(7))
        picture = viewer.area_picture()
        self.assertEqual(self.count(picture, color_of(7)),
            (picture.width - SCROLL_BAR_THICKNESS) * (picture.height - SCROLL_BAR_EXTENT))
        self.assert_clean(viewer)

    def test_a_picture_as_wide_as_can_be_but_low(self):
        self.picture("a.png", color_of(7), 30000, 10)
        viewer = self.expect_fitted(LARGEST[0],
            max(10 + SCROLL_BAR_EXTENT, LEAST_IMAGE_AREA) + self.bars(), color_of(7))
        viewer.key("Right")
        viewer.key("Right")
        viewer.wait_idle()
        self.assertEqual(self.count(viewer.area_picture(), color_of(7)), LARGEST[0] * 10)
        self.assert_clean(viewer)

    def test_a_picture_as_high_as_can_be_but_narrow(self):
        self.picture("a.png", color_of(7), 10, 30000)
        viewer = self.expect_fitted(LEAST_WIDTH, LARGEST[1], color_of(7))
        found = self.count(viewer.area_picture(), color_of(7))
        self.assertEqual(found, 10 * (LARGEST[1] - self.bars()))
        self.assert_clean(viewer)

    def test_near_the_edges_the_window_moves_back(self):
        self.picture("a.png", color_of(7), 500, 400)
        for left, top in ((900, 100), (100, 700), (970, 760), (775, 50), (776, 50)):
            with self.subTest(left=left, top=top):
                viewer = self.expect_fitted(500, 400 + self.bars(), color_of(7), left, top)
                self.assert_clean(viewer)

    def test_each_picture_fits_the_window_anew(self):
        sizes = [(400, 300), (200, 500), (900, 120), (1500, 200), (300, 300)]
        for index, (width, height) in enumerate(sizes):
            self.picture(f"{index}.png", color_of(index), width, height)
        viewer = self.start(self.folder)

        def check(index):
            width, height = sizes[index]
            viewer.wait_centre(color_of(index))
            viewer.wait_frame(None, None, min(width, LARGEST[0]),
                height + self.bars() + (SCROLL_BAR_EXTENT if width > LARGEST[0] else 0))

        for index in range(len(sizes)):
            check(index)
            viewer.key("space")
        for index in reversed(range(len(sizes) - 1)):
            viewer.wait_idle()
            viewer.key("BackSpace")
            check(index)
        self.assert_clean(viewer)


class Options(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    @staticmethod
    def box(viewer, color):
        """Width and height of what has that colour in the area."""
        red, green, blue = color
        wanted = red << 16 | green << 8 | blue
        picture = viewer.area_picture()
        pixels = memoryview(picture.data).cast("I")
        rows = [row for row in (pixels[y * picture.width:(y + 1) * picture.width]
            for y in range(picture.height)) if any(p & 0xffffff == wanted for p in row)]
        return (sum(p & 0xffffff == wanted for p in rows[len(rows) // 2]) if rows else 0,
            len(rows))

    def test_each_option_by_the_menu(self):
        self.picture("a.png", color_of(7), 200, 100)
        self.saved_frame(100, 100, 600, 500)
        self.display_option(0)
        viewer = self.start(self.folder)
        viewer.wait_centre(color_of(7))
        viewer.wait_idle()
        reader = accessibility.Reader(viewer)
        _left, _top, width, height = viewer.image_area()
        self.assertEqual(width, 501)
        # Right minus left is what is scaled.
        low = round((width - 1) * 99 / 199) + 1
        wide = round((height - 1 - SCROLL_BAR_EXTENT - 1) * 199 / 99) + 1
        expected = {0: (200, 100), 2: (width, height), 3: (width, low), 4: (width, low),
            5: (min(wide, width), height - SCROLL_BAR_EXTENT - 1), 1: (200, 100)}
        for option in (3, 0, 2, 5, 4, 2, 0, 1, 3):
            with self.subTest(option=option):
                if option == 3 and viewer.window.frame()[2] != 501:
                    continue
                accessibility.act(reader.menu("View(V)", OPTIONS[option]), "Press", "Toggle")
                x11.wait_for(lambda: all(abs(a - b) <= 1
                        for a, b in zip(self.box(viewer, color_of(7)), expected[option])),
                    lambda: f"{expected[option]} of the picture; {self.box(viewer, color_of(7))}")
                x11.wait_for(lambda: [accessibility.is_marked(reader.menu("View(V)", label))
                        for label in OPTIONS] == [i == option for i in range(6)],
                    "the option is marked and no other")
                if option == 1:
                    viewer.wait_frame(100, 100, 200, 100 + self.menu_height() + 14)
                else:
                    viewer.wait_frame(None, None, 501, 401)
        self.assert_clean(viewer)

    def test_an_option_outlives_the_program(self):
        self.picture("a.png", color_of(7), 200, 100)
        viewer = self.start(self.folder)
        viewer.wait_centre(color_of(7))
        reader = accessibility.Reader(viewer)
        accessibility.act(reader.menu("View(V)", OPTIONS[2]), "Press", "Toggle")
        x11.wait_for(lambda: accessibility.is_marked(reader.menu("View(V)", OPTIONS[2])),
            "the option is marked")
        self.assert_clean(viewer)
        again = self.start(self.folder)
        reader = accessibility.Reader(again)
        x11.wait_for(lambda: accessibility.is_marked(reader.menu("View(V)", OPTIONS[2])),
            "the option is marked in the next run")
        again.window.move_resize(200, 150, 600, 500)
        x11.wait_for(lambda: again.area_picture().is_uniform() and again.pixel_is(
            0, 0, color_of(7)), "the picture fills the window")
        self.assert_clean(again)

    def test_an_option_that_there_is_not(self):
        self.pictures(3)
        for option in (99, -1, 6, 2**31 - 1, -2**31):
            with self.subTest(option=option):
                self.display_option(option)
                viewer = self.start(self.folder)
                viewer.wait_shown("p000.png")
                viewer.wait_idle()
                viewer.key("space")
                viewer.wait_shown("p001.png")
                viewer.wait_idle()
                viewer.key("Return")
                viewer.wait_full_screen()
                viewer.wait_settled()
                viewer.key("Return")
                viewer.wait_full_screen(False)
                viewer.wait_settled()
                reader = accessibility.Reader(viewer)
                accessibility.act(reader.menu("View(V)", OPTIONS[1]), "Press", "Toggle")
                viewer.wait_frame(None, None, 320, None)
                viewer.wait_centre(color_of(1))
                self.assert_clean(viewer)


class Settings(ViewerTest):
    def expect_usable(self, left, top, right, bottom):
        """A window that can be seen, grabbed and used."""
        self.pictures(2)
        self.display_option(0)
        self.saved_frame(left, top, right, bottom)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        x, y, width, height = viewer.wait_settled()
        self.assertGreaterEqual(y, 0)
        self.assertLess(y, SCREEN[1] - 40)
        self.assertGreater(min(x + width, SCREEN[0]) - max(x, 0), 40)
        self.assertGreaterEqual(width, 71)
        self.assertGreaterEqual(height, 84 + self.menu_height())
        self.assertLessEqual(width, SCREEN[0])
        self.assertLessEqual(height, SCREEN[1])
        viewer.key("space")
        viewer.wait_shown("p001.png")
        self.assert_clean(viewer)

    def test_saved_frames_of_all_kinds(self):
        infinite, none = float("inf"), float("nan")
        for frame in ((5000, 5000, 5300, 5250), (-4000, -4000, -3700, -3750), (0, 0, 9999, 9999),
                (10, 10, 10, 10), (10, 10, 12, 11), (1270, 1015, 1600, 1300),
                (-280, 50, 20, 300), (50, -240, 350, 10), (300, 300, 100, 100),
                (none, none, none, none), (-infinite, -infinite, infinite, infinite),
                (1e30, 1e30, 2e30, 2e30), (50, 50, none, 300)):
            with self.subTest(frame=frame):
                self.expect_usable(*frame)

    def test_fields_of_other_kinds(self):
        self.pictures(1)
        settings_file.write(self.settings, "Lorivane", "Lorivane_ExitStates.arc",
            settings_file.string("_WFr", "somewhere"), settings_file.int32("_Ver", 7))
        self.preferences(settings_file.string("DsOp", "2"), settings_file.int32("ECmt", 5),
            settings_file.rect("ClBG", 1, 2, 3, 4))
        viewer = self.start(self.folder)
        viewer.wait_centre(color_of(0))
        viewer.wait_frame(50, 50, 320, 240 + self.menu_height() + STATUS_BAR_HEIGHT)
        self.assert_clean(viewer)


class TooLarge(ViewerTest):
    def test_a_picture_that_memory_cannot_hold_leaves_the_one_shown(self):
        self.picture("a.png", color_of(1))
        self.write("b.png", png_that_claims(60000, 60000))
        self.picture("c.png", color_of(2))
        viewer = self.start(self.path("a.png"))
        viewer.wait_centre(color_of(1))
        frame = viewer.wait_settled()

        def step_until(key, name):
            def there():
                viewer.key(key)
                viewer.wait_idle()
                return viewer.title() == f"{name} - Lorivane"
            x11.wait_for(there, lambda: f"{name} is reached; at {viewer.title()!r}")

        step_until("space", "c.png")
        viewer.wait_centre(color_of(2))
        step_until("BackSpace", "a.png")
        viewer.wait_centre(color_of(1))
        self.assertEqual(viewer.window.frame(), frame)
        self.assert_clean(viewer)

    def test_opened_by_itself_there_is_an_empty_window(self):
        self.write("b.png", png_that_claims(60000, 60000))
        viewer = self.start(self.path("b.png"))
        viewer.wait_settled()
        viewer.wait_centre(BLACK)
        self.assertTrue(viewer.is_running())
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
