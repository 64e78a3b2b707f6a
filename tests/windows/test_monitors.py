"""Several monitors: the window's own is the one that counts."""

import subprocess

from viewer_test import BLACK, SCREEN, ViewerTest, color_of, main, x11

HALF = SCREEN[0] // 2


def monitors(*places):
    """Makes the screen's monitors those of left, top, width and height; the first is the main one."""
    listed = subprocess.run(["xrandr", "--listmonitors"], check=True, capture_output=True, text=True)
    for line in listed.stdout.splitlines()[1:]:
        name = line.split()[1].lstrip("+*")
        subprocess.run(["xrandr", "--delmonitor", name], check=False, capture_output=True)
    for index, (left, top, width, height) in enumerate(places):
        geometry = f"{width}/{width // 4}x{height}/{height // 4}+{left}+{top}"
        output = "screen" if index == 0 else "none"
        subprocess.run(["xrandr", "--setmonitor", f"{'*' if index == 0 else ''}M{index}", geometry,
            output], check=True, capture_output=True)


class Monitors(ViewerTest):
    def setUp(self):
        super().setUp()
        self.addCleanup(monitors)

    def open(self, left, top):
        self.picture("a.png", color_of(1), 200, 150)
        self.display_option(3)
        self.saved_frame(left, top, left + 299, top + 249)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_settled()
        return viewer

    def wait_covers(self, viewer, *place):
        viewer.wait_frame(*place)
        left, top, width, height = place
        inside = self.screen.picture

        def shown():
            middle = inside(left + width // 2, top + height // 2, 1, 1).at(0, 0)
            edges = [inside(left + width // 2, y, 1, 1).at(0, 0) for y in (top, top + height - 1)]
            return middle == color_of(1) and all(c in (BLACK, color_of(1)) for c in edges)

        x11.wait_for(shown, f"only the picture at {place}")

    def test_full_screen_is_the_windows_own_monitor(self):
        monitors((HALF, 0, HALF, SCREEN[1]), (0, 0, HALF, SCREEN[1]))
        for left in (60, HALF + 60):
            with self.subTest(left=left):
                viewer = self.open(left, 100)
                frame = viewer.window.frame()
                self.assertEqual(frame[:2], (left, 100))
                for _ in range(3):
                    viewer.key("F5")
                    self.wait_covers(viewer, left - 60, 0, HALF, SCREEN[1])
                    viewer.key("Escape")
                    viewer.wait_frame(*frame)
                viewer.wait_settled()
                self.assert_clean(viewer)

    def test_a_monitor_that_changes_takes_the_picture_along(self):
        monitors((0, 0, HALF, SCREEN[1]), (HALF, 0, HALF, SCREEN[1]))
        viewer = self.open(HALF + 60, 100)
        viewer.key("F5")
        self.wait_covers(viewer, HALF, 0, HALF, SCREEN[1])
        monitors((0, 0, *SCREEN))
        self.wait_covers(viewer, 0, 0, *SCREEN)
        monitors((0, 0, HALF, SCREEN[1]), (HALF, 0, HALF, SCREEN[1]))
        x11.wait_for(lambda: viewer.window.frame()[2:] == (HALF, SCREEN[1]), "one of the halves")
        self.wait_covers(viewer, *viewer.window.frame())
        viewer.key("Escape")
        viewer.wait_settled()
        self.assert_clean(viewer)

    def test_a_window_of_a_monitor_that_went_is_brought_back(self):
        monitors((0, 0, HALF, SCREEN[1]), (HALF, 0, HALF, SCREEN[1]))
        viewer = self.open(HALF + 60, 100)
        monitors((0, 0, HALF, SCREEN[1]))
        x11.wait_for(lambda: viewer.window.frame()[0] + 300 <= HALF,
            lambda: f"the window is on the monitor there is; it is at {viewer.window.frame()}")
        viewer.key("F5")
        self.wait_covers(viewer, 0, 0, HALF, SCREEN[1])
        viewer.key("Escape")
        viewer.wait_settled()
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
