"""Minimised, full-screen and both, as quickly as a window manager allows; and the wheel everywhere."""

from viewer_test import SCREEN, ViewerTest, color_of, main, x11

ICONIC = 3


class WindowStates(ViewerTest):
    def open(self):
        self.picture("a.png", color_of(1), 400, 320)
        self.display_option(3)
        self.saved_frame(100, 80, 650, 520)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_settled()
        return viewer

    def wait_minimised(self, viewer, minimised=True):
        def is_minimised():
            state = viewer.window._property("WM_STATE", x11.X.AnyPropertyType)
            return (state is not None and state[0] == ICONIC) == minimised

        x11.wait_for(is_minimised, f"minimised: {minimised}")

    def test_minimised_and_restored_again_and_again(self):
        viewer = self.open()
        frame = viewer.window.frame()
        for _ in range(10):
            viewer.key("m")
            self.wait_minimised(viewer)
            viewer.wait_idle()
            viewer.window.activate()
            self.wait_minimised(viewer, False)
            viewer.wait_settled()
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_minimised_in_full_screen_it_comes_back_to_that(self):
        viewer = self.open()
        frame = viewer.window.frame()
        viewer.key("F5")
        viewer.wait_full_screen()
        for _ in range(10):
            viewer.key("h")
            self.wait_minimised(viewer)
            viewer.wait_idle()
            viewer.window.activate()
            viewer.wait_full_screen()
            viewer.wait_centre(color_of(1))
            viewer.wait_settled()
        viewer.key("F5")
        viewer.wait_full_screen(False)
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_full_screen_there_and_back_again_and_again(self):
        viewer = self.open()
        frame = viewer.window.frame()
        for _ in range(10):
            viewer.key("Return")
            viewer.wait_full_screen()
            viewer.wait_settled()
            viewer.key("Return")
            viewer.wait_full_screen(False)
            viewer.wait_frame(*frame)
            viewer.wait_settled()
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.wait_centre(color_of(1))
        self.assert_clean(viewer)

    def test_the_wheel_turns_over_the_controls_too(self):
        self.pictures(8)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        left, top, width, height = viewer.wait_settled()
        places = [(left + 20, top + height - 7), (left + 100, top + height - 7),
            (left + 60, top + 5), (left + width - 5, top + 5), (left + width // 2, top + height // 2)]
        for index, place in enumerate(places):
            self.screen.click(*place, which=5)
            viewer.wait_shown(f"p{index + 1:03}.png")
        self.assert_clean(viewer)

    def test_zooming_is_not_full_screen(self):
        viewer = self.open()
        viewer.window._ask_manager("_NET_WM_STATE", 1,
            self.screen.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
            self.screen.atom("_NET_WM_STATE_MAXIMIZED_HORZ"))
        x11.wait_for(lambda: viewer.window.frame()[2] == SCREEN[0], "as wide as the screen")
        viewer.wait_settled()
        left, top, _, height = viewer.window.frame()
        # Its status bar is there.
        self.assertGreater(len(set(self.screen.picture(left, top + height - 14, 100, 14).rows())), 1)
        self.assertFalse(viewer.is_full_screen())
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
