"""Where the dialogs open: whole on the screen with what is around them, wherever the main window is."""

import accessibility
from accessibility import Role
from shared_prefs import TITLE as COMMON
from test_dialogs import ABOUT, ALERT, PANEL, PREFS, Dialogs, information
from menu_test import START
from viewer_test import SCREEN, main, x11

# Each dialog by the item that opens it.
ITEMS = [
    (PANEL, "File(F)", "Open(O)..."),
    (information(START), "Tool(T)", "Show Image Information(I)..."),
    (PREFS, "Tool(T)", "Preferences(P)..."),
    (COMMON, "Tool(T)", "ZELKAN Common Preferences(S)..."),
    (ABOUT, "Help(H)", "About(A)..."),
]
# Of the content, with a little of the window beyond the edges of the screen.
CORNERS = [(-60, -40), (900, -40), (-60, 800), (900, 800), (5, 22)]
SIZE = (400, 300)


class Places(Dialogs):
    def whole_frame(self, window):
        """Left, top, right and bottom on the screen, decorations included."""
        left, top, width, height = window.frame()
        around = window.decorations()
        return left - around[0], top - around[2], left + width + around[1], top + height + around[3]

    def lies_on_screen(self, window):
        left, top, right, bottom = self.whole_frame(window)
        return left >= 0 and top >= 0 and right <= SCREEN[0] and bottom <= SCREEN[1]

    def wait_on_screen(self, viewer, title):
        window = self.wait_window(viewer, title)
        viewer.wait_idle()
        x11.wait_for(lambda: self.lies_on_screen(window), lambda:
            f"{title!r} is on the screen; it is at {self.whole_frame(window)}, the main window "
            f"at {viewer.window.frame()}", 3)
        self.assertGreater(window.decorations()[2], 0)
        return window

    def check_all(self, viewer):
        for title, menu, label in ITEMS:
            with self.subTest(title, main=viewer.window.frame()):
                self.choose(menu, label)
                self.wait_on_screen(viewer, title).close()
                self.wait_windows(viewer, title, 0)

    def test_from_every_corner(self):
        for corner in CORNERS:
            viewer = self.open()
            viewer.window.move_resize(*corner, *SIZE)
            viewer.wait_frame(*corner, *SIZE)
            viewer.wait_idle()
            self.check_all(viewer)
            self.assert_clean(viewer)

    def test_from_full_screen(self):
        viewer = self.open()
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.wait_idle()
        self.check_all(viewer)
        self.assert_clean(viewer)

    def test_an_alert(self):
        for corner in CORNERS:
            viewer = self.begin()
            viewer.window.move_resize(*corner, *SIZE)
            viewer.wait_frame(*corner, *SIZE)
            viewer.key("Control_L", "i")
            self.wait_on_screen(viewer, ALERT)
            viewer.key("Escape")
            self.wait_windows(viewer, ALERT, 0)
            self.assert_clean(viewer)


if __name__ == "__main__":
    main()
