"""A window that the desktop holds keeps its frame, whatever pictures are shown in it, and is a fitted
window again when it is let go."""

from viewer_test import (SCREEN, SCROLL_BAR_EXTENT, SCROLL_BAR_THICKNESS, STATUS_BAR_HEIGHT,
    ViewerTest, color_of, main, x11)

WIDE, HIGH = "_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT"
SIZES = [(400, 300), (200, 500), (2000, 150), (300, 300)]
LEFT, TOP = 60, 70
FIT = 1


class Maximised(ViewerTest):
    def open(self, option=FIT):
        for index, (width, height) in enumerate(SIZES):
            self.picture(f"{index}.png", color_of(index), width, height)
        self.display_option(option)
        self.saved_frame(LEFT, TOP, LEFT + 299, TOP + 249)
        viewer = self.start(self.folder)
        viewer.wait_shown("0.png")
        viewer.wait_centre(color_of(0))
        viewer.wait_settled()
        return viewer

    def maximise(self, viewer, on=True, directions=(WIDE, HIGH)):
        """The frame then."""
        viewer.window._ask_manager("_NET_WM_STATE", int(on), *map(self.screen.atom, directions))
        x11.wait_for(lambda: on == all(name in viewer.window.states() for name in directions),
            lambda: f"maximised: {on}; {viewer.window.states()}")
        return viewer.wait_settled()

    def fitted(self, index, left=LEFT, top=TOP):
        width, height = SIZES[index]
        return left, top, width, height + self.menu_height() + STATUS_BAR_HEIGHT

    def step(self, viewer, index, key="space"):
        viewer.key(key)
        viewer.wait_shown(f"{index}.png")
        viewer.wait_centre(color_of(index))

    def expect_shown(self, viewer, index):
        """As much of the picture as there is room for, in the middle of the area."""
        width, height = SIZES[index]
        left, top, area_width, area_height = viewer.image_area()
        if width > area_width:
            area_height -= SCROLL_BAR_EXTENT
        if height > area_height:
            area_width -= SCROLL_BAR_THICKNESS
        x, y = max((area_width - width) // 2, 0), max((area_height - height) // 2, 0)
        seen = min(width, area_width), min(height, area_height)
        expected = color_of(index)

        def is_placed():
            picture = self.screen.picture(left, top, area_width, area_height)
            inside = picture.part(x + 1, y + 1, seen[0] - 2, seen[1] - 2)
            beside = [picture.at(*at) for at in ((x - 2, area_height // 2), (area_width // 2, y - 2),
                (x + width + 1, area_height // 2), (area_width // 2, y + height + 1))
                if 0 <= at[0] < area_width and 0 <= at[1] < area_height]
            return inside.is_uniform() and inside.at(0, 0) == expected and expected not in beside

        x11.wait_for(is_placed, f"picture {index} is in the middle of {viewer.image_area()}")

    def expect_held_through_steps(self, viewer, frame, directions):
        for index in (1, 2, 3):
            self.step(viewer, index)
            self.assertEqual(viewer.wait_settled(), frame)
            self.assertTrue(set(directions) <= viewer.window.states())
            self.expect_shown(viewer, index)
        for index in (2, 1):
            self.step(viewer, index, "BackSpace")
            self.assertEqual(viewer.wait_settled(), frame)
        self.expect_shown(viewer, 1)

    def test_it_stays_while_pictures_are_stepped_through(self):
        viewer = self.open()
        before = viewer.window.frame()
        frame = self.maximise(viewer)
        self.assertEqual(frame[2], SCREEN[0])
        self.expect_held_through_steps(viewer, frame, (WIDE, HIGH))
        self.assertEqual(self.maximise(viewer, False), before)
        self.step(viewer, 0, "BackSpace")
        self.step(viewer, 1)
        viewer.wait_frame(*self.fitted(1))
        self.assertEqual(viewer.wait_settled(), self.fitted(1))
        self.assert_clean(viewer)

    def test_so_it_does_in_one_direction(self):
        for direction in (HIGH, WIDE):
            with self.subTest(direction=direction):
                viewer = self.open()
                before = viewer.window.frame()
                frame = self.maximise(viewer, directions=(direction,))
                self.assertNotEqual(frame, before)
                self.expect_held_through_steps(viewer, frame, (direction,))
                self.assertEqual(self.maximise(viewer, False, (direction,)), before)
                self.step(viewer, 0, "BackSpace")
                viewer.wait_frame(*self.fitted(0))
                self.assertEqual(viewer.wait_settled(), self.fitted(0))
                self.assert_clean(viewer)

    def test_full_screen_comes_back_to_it(self):
        for directions in ((WIDE, HIGH), (HIGH,)):
            for option in (FIT, 3):
                with self.subTest(directions=directions, option=option):
                    viewer = self.open(option)
                    before = viewer.window.frame()
                    frame = self.maximise(viewer, directions=directions)
                    for index in (1, 2):
                        viewer.key("F5")
                        viewer.wait_full_screen()
                        self.step(viewer, index)
                        viewer.key("Escape")
                        viewer.wait_full_screen(False)
                        viewer.wait_frame(*frame)
                        self.assertEqual(viewer.wait_settled(), frame)
                        self.assertTrue(set(directions) <= viewer.window.states())
                        if option == FIT:
                            self.expect_shown(viewer, index)
                    self.assertEqual(self.maximise(viewer, False, directions), before)
                    self.assert_clean(viewer)

    def test_full_screen_by_the_window_manager_stays(self):
        viewer = self.open()
        before = viewer.window.frame()
        viewer.window.ask_state("_NET_WM_STATE_FULLSCREEN", True)
        viewer.wait_full_screen()
        viewer.wait_settled()
        self.step(viewer, 1)
        viewer.wait_idle()
        viewer.wait_full_screen()
        viewer.window.ask_state("_NET_WM_STATE_FULLSCREEN", False)
        viewer.wait_full_screen(False)
        viewer.wait_frame(*before)
        self.assertEqual(viewer.wait_settled(), before)
        self.assert_clean(viewer)

    def test_closed_in_it_the_next_start_has_the_frame_from_before(self):
        for full_screen in (False, True):
            with self.subTest(full_screen=full_screen):
                viewer = self.open()
                before = viewer.window.frame()
                self.maximise(viewer)
                self.step(viewer, 1)
                if full_screen:
                    viewer.key("F5")
                    viewer.wait_full_screen()
                    viewer.wait_settled()
                self.assert_clean(viewer)
                self.display_option(0)
                again = self.start(self.folder)
                again.wait_shown("0.png")
                again.wait_frame(*before)
                self.assertEqual(again.wait_settled(), before)
                self.assert_clean(again)

    def test_another_display_option_keeps_it(self):
        viewer = self.open(0)
        frame = self.maximise(viewer)
        self.step(viewer, 1)
        self.expect_shown(viewer, 1)
        viewer.key("m")
        viewer.wait_idle()
        viewer.window.activate()
        viewer.wait_frame(*frame)
        self.step(viewer, 2)
        self.assertEqual(viewer.wait_settled(), frame)
        self.assertTrue({WIDE, HIGH} <= viewer.window.states())
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
