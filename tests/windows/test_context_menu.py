"""The picture's context menu, and smooth scaling, which is chosen there."""

import os
import shutil

import accessibility
from accessibility import Role
from viewer_test import ViewerTest, color_of, main, png, x11

SMOOTH = "Smooth Scaling(S)"
# The stripes of the picture, and what they become in the mean.
DARK, LIGHT, MEAN = (40, 80, 120), (200, 160, 240), (120, 120, 180)
FIT_WHOLE = 3  # the display option that scales to the window


class ContextMenu(ViewerTest):
    scale = "1"

    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_SCALE_FACTOR": self.scale}

    def open(self, *arguments):
        # Found out by a window of its own, which would take a menu's keyboard.
        self.menu_height()
        viewer = self.start(*arguments)
        self.reader = accessibility.Reader(viewer)
        return viewer

    def open_stripes(self):
        """Columns that are dark and light by turns, at half their size."""
        row = b"".join(bytes(DARK if x % 2 == 0 else LIGHT) for x in range(800))
        self.write("stripes.png", png.encode(800, 600, [row] * 600))
        self.display_option(FIT_WHOLE)
        self.saved_frame(100, 100, 100 + 399, 100 + 300 + self.menu_height() + 13)
        viewer = self.open(self.folder)
        viewer.wait_shown("stripes.png")
        viewer.wait_settled()
        return viewer

    def item(self):
        """The item of the menu that is open; None while there is none."""
        try:
            return next((item for item in self.reader.all() if item.get_name() == SMOOTH
                and item.get_role() in accessibility.MENUS and accessibility.is_showing(item)), None)
        except accessibility.GONE:
            return None

    def wait_open(self, is_open=True):
        x11.wait_for(lambda: (self.item() is not None) == is_open, f"the menu is open: {is_open}")

    def right_click(self, viewer, x=60, y=50):
        left, top, _width, _height = viewer.image_area()
        self.screen.click(left + x, top + y, which=3)

    def colors(self, viewer):
        """The colours in the middle of the picture."""
        left, top, width, height = viewer.window.frame()
        part = self.screen.picture(left + width // 2 - 20, top + height // 2 - 10, 40, 20)
        return {part.at(x, y) for x in range(40) for y in range(20)}

    def wait_smooth(self, viewer, on=True):
        if on:
            x11.wait_for(lambda: self.colors(viewer) == {MEAN},
                lambda: f"the stripes become their mean: {self.colors(viewer)}")
        else:
            x11.wait_for(lambda: self.colors(viewer) <= {DARK, LIGHT},
                lambda: f"each pixel is one of the picture's: {self.colors(viewer)}")

    def record(self):
        return os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_Additions.arc")

    def test_opens_by_the_mouse_and_by_keys(self):
        self.pictures(3)
        viewer = self.open(self.path("p000.png"))
        viewer.wait_shown("p000.png")
        viewer.wait_idle()
        for opened in (lambda: self.right_click(viewer), lambda: viewer.key("Menu"),
                lambda: viewer.key("Shift_L", "F10")):
            opened()
            self.wait_open()
            viewer.key("Escape")
            self.wait_open(False)
        # The keyboard is the picture's again.
        viewer.key("space")
        viewer.wait_shown("p001.png")
        self.assertFalse(os.path.exists(self.record()))
        self.assert_clean(viewer)

    def test_opens_when_the_button_goes_down(self):
        self.pictures(1)
        viewer = self.open(self.folder)
        viewer.wait_shown("p000.png")
        viewer.wait_settled()
        left, top, _width, _height = viewer.image_area()
        self.screen.move_pointer(left + 60, top + 50)
        self.screen.button(True, 3)
        self.wait_open()
        self.screen.button(False, 3)
        viewer.wait_idle()
        self.wait_open()
        box = accessibility.extents(self.item())
        self.assertTrue(0 <= box[0] - left - 60 < 20 and 0 <= box[1] - top - 50 < 20, box)
        # A click beside it, whichever, closes it and does nothing else.
        for which in (1, 3):
            self.screen.click(left + 10, top + 10, which=which)
            self.wait_open(False)
            self.right_click(viewer, 20 + which, 30)
            x11.wait_for(lambda: (item := self.item()) is not None
                and abs(accessibility.extents(item)[0] - left - 20) < 20, "it is where the click was")
        viewer.key("Escape")
        self.wait_open(False)
        self.assert_clean(viewer)

    def test_without_a_picture(self):
        viewer = self.open()
        viewer.wait_title("Lorivane")
        viewer.wait_settled()
        self.right_click(viewer)
        self.wait_open()
        self.assertTrue(accessibility.is_enabled(self.item()))
        viewer.key("Escape")
        self.wait_open(False)
        viewer.key("Menu")
        self.wait_open()
        viewer.key("Return")
        x11.wait_for(lambda: os.path.exists(self.record()), "the choice is saved")
        self.assert_clean(viewer)

    def test_smooth_scaling_by_the_mouse_is_seen_and_kept(self):
        viewer = self.open_stripes()
        self.wait_smooth(viewer, False)
        self.right_click(viewer)
        self.wait_open()
        self.assertFalse(accessibility.is_marked(self.item()))
        self.screen.click(*accessibility.middle(self.item()))
        self.wait_smooth(viewer)
        self.right_click(viewer)
        self.wait_open()
        self.assertTrue(accessibility.is_marked(self.item()))
        viewer.key("Escape")
        self.assert_clean(viewer)

        viewer = self.open_stripes()
        self.wait_smooth(viewer)
        self.right_click(viewer)
        self.wait_open()
        self.screen.click(*accessibility.middle(self.item()))
        self.wait_smooth(viewer, False)
        self.assert_clean(viewer)
        viewer = self.open_stripes()
        self.wait_smooth(viewer, False)
        self.assert_clean(viewer)

    def test_smooth_scaling_by_keys(self):
        viewer = self.open_stripes()
        on = False
        for keys in ((("Menu",), ("Return",)), (("Shift_L", "F10"), ("Return",)),
                (("Menu",), ("s",))):
            viewer.key(*keys[0])
            self.wait_open()
            viewer.key(*keys[1])
            on = not on
            self.wait_smooth(viewer, on)
        self.assert_clean(viewer)

    def test_smoothed_at_the_screens_own_pixels(self):
        self.menu_height()  # as long as a unit is a pixel
        for self.scale, is_mixed in (("2", False), ("1.5", True)):
            with self.subTest(scale=self.scale):
                viewer = self.open_stripes()
                self.wait_smooth(viewer, False)
                viewer.key("Menu")
                self.wait_open()
                viewer.key("Return")
                self.wait_open(False)
                x11.wait_for(lambda: os.path.exists(self.record()), "the choice is saved")
                viewer.wait_idle()
                # At two pixels to a unit each pixel of the picture has one of the screen.
                self.assertEqual(self.colors(viewer) <= {DARK, LIGHT}, not is_mixed)
                self.assert_clean(viewer)
                os.remove(self.record())

    def test_neighbours_are_smoothed_as_well(self):
        viewer = self.open_stripes()
        os.rename(self.path("stripes.png"), self.path("a.png"))
        shutil.copy(self.path("a.png"), self.path("b.png"))
        viewer.close()
        viewer = self.open(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_idle()
        viewer.key("space")
        viewer.wait_shown("b.png")
        self.wait_smooth(viewer, False)
        viewer.key("Menu")
        self.wait_open()
        viewer.key("Return")
        self.wait_smooth(viewer)
        viewer.key("BackSpace")
        viewer.wait_shown("a.png")
        self.wait_smooth(viewer)
        self.assert_clean(viewer)

    def test_in_full_screen(self):
        self.pictures(1)
        viewer = self.open(self.folder)
        viewer.wait_shown("p000.png")
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.wait_centre(color_of(0))
        self.screen.click(300, 200, which=3)
        self.wait_open()
        box = accessibility.extents(self.item())
        self.assertTrue(0 <= box[0] - 300 < 20 and 0 <= box[1] - 200 < 20, box)
        viewer.key("Escape")
        self.wait_open(False)
        self.assertTrue(viewer.is_full_screen())
        self.assert_clean(viewer)

    def test_a_window_that_is_closed_takes_it_along(self):
        self.pictures(1)
        viewer = self.open(self.folder)
        viewer.wait_shown("p000.png")
        viewer.wait_settled()
        self.right_click(viewer)
        self.wait_open()
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
