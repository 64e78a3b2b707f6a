"""Closing the window, and what the next start remembers of it."""

import os
import signal

from viewer_test import SAMPLES, STATUS_BAR_HEIGHT, ViewerTest, color_of, main, x11

PLACE = (300, 200, 520, 410)


class Closing(ViewerTest):
    def exit_states(self):
        return os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_ExitStates.arc")

    def move(self, viewer, place=PLACE):
        viewer.window.move_resize(*place)
        x11.wait_for(lambda: viewer.window.frame() == place,
            lambda: f"the window is at {place}; it is at {viewer.window.frame()}")

    def test_the_close_box_ends_the_program(self):
        viewer = self.start()
        self.assertEqual(viewer.close(), 0)
        self.assertEqual(viewer.said(), "")

    def test_the_next_start_opens_where_the_last_one_closed(self):
        viewer = self.start()
        self.move(viewer)
        self.assert_clean(viewer)
        self.assertGreater(os.path.getsize(self.exit_states()), 0)
        files = [os.path.join(folder, name)
            for folder, _folders, names in os.walk(self.settings) for name in names]
        history = os.path.join(os.path.dirname(self.exit_states()), "Lorivane_MRUFs.arc")
        self.assertEqual(sorted(files), [self.exit_states(), history])
        again = self.start()
        x11.wait_for(lambda: again.window.frame() == PLACE,
            lambda: f"the window is at {PLACE}; it is at {again.window.frame()}")
        self.assert_clean(again)
        # Nothing moved: the third start is no different, so the place does not creep.
        third = self.start()
        x11.wait_for(lambda: third.window.frame() == PLACE,
            lambda: f"the window is at {PLACE}; it is at {third.window.frame()}")
        self.assert_clean(third)

    def test_broken_settings_are_as_none(self):
        os.makedirs(os.path.dirname(self.exit_states()))
        for content in (b"", b"no message", os.urandom(4096)):
            with self.subTest(content=content[:10]):
                with open(self.exit_states(), "wb") as file:
                    file.write(content)
                viewer = self.start()
                viewer.wait_frame(50, 50, 301, 251)
                self.assert_clean(viewer)
                self.assertGreater(os.path.getsize(self.exit_states()), 20)

    def test_half_a_settings_file_is_as_none(self):
        viewer = self.start()
        self.move(viewer)
        self.assert_clean(viewer)
        with open(self.exit_states(), "rb") as file:
            whole = file.read()
        with open(self.exit_states(), "wb") as file:
            file.write(whole[:len(whole) // 2])
        again = self.start()
        again.wait_frame(50, 50, 301, 251)
        self.assert_clean(again)

    def test_settings_that_cannot_be_written_do_not_matter(self):
        with open(self.settings, "wb"):
            pass  # a file where the folder should be
        viewer = self.start()
        self.assertEqual(viewer.close(), 0)

    def test_closing_while_pictures_are_still_loading(self):
        for _ in range(8):
            viewer = self.start(os.path.join(SAMPLES, "03-tower.jpg"), focus=False)
            self.assertEqual(viewer.close(), 0)
            self.assertEqual(viewer.said(), "")

    def test_closing_while_a_key_is_held(self):
        self.pictures(30)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        self.screen.press("Right")
        try:
            viewer.wait_shown("p003.png")
            self.assertEqual(viewer.close(), 0)
        finally:
            self.screen.release("Right")
        self.assertEqual(viewer.said(), "")

    def test_being_told_to_end_loses_no_settings(self):
        for told in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=told):
                viewer = self.start()
                viewer.process.send_signal(told)
                x11.wait_for(lambda: not viewer.is_running(), "the viewer has ended")
                self.assertEqual(viewer.process.returncode, 0)
                self.assertGreater(os.path.getsize(self.exit_states()), 20)
                os.remove(self.exit_states())


class Sizes(ViewerTest):
    def test_a_resized_window_keeps_the_picture_in_its_middle(self):
        self.picture("a.png", color_of(9), 300, 200)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_centre(color_of(9))
        # The window is fitted: what is higher than the picture is the menu and the status bar.
        menu = viewer.wait_settled()[3] - 200 - STATUS_BAR_HEIGHT
        place = (200, 150, 600, 500)
        viewer.window.move_resize(*place)
        x11.wait_for(lambda: viewer.window.frame() == place, "the window has its new size")

        def drawn():
            # The picture's corners and the black around them, from the image area's middle.
            shown = viewer.window.picture()
            x, y = 150, menu + (shown.height - menu - STATUS_BAR_HEIGHT - 200) // 2
            inside = [shown.at(x + dx, y + dy) for dx in (3, 296) for dy in (3, 196)]
            outside = [shown.at(x + dx, y + 100) for dx in (-4, 304)]
            outside += [shown.at(x + 150, y + dy) for dy in (-4, 204)]
            return set(inside) == {color_of(9)} and set(outside) == {(0, 0, 0)}

        x11.wait_for(drawn, "the picture lies in the middle, black around it")
        self.assert_clean(viewer)

    def test_h_and_m_minimise_the_window(self):
        self.pictures(3)
        viewer = self.start(self.folder)
        viewer.wait_centre(color_of(0))
        for index, key in enumerate(("m", "h")):
            with self.subTest(key=key):
                viewer.key(key)
                x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" in viewer.window.states(),
                    "the window is minimised")
                # Its toolkit forgets the restoring if it learns of both in one.
                viewer.wait_idle()
                viewer.window.activate()
                x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" not in viewer.window.states(),
                    "the window is back")
                viewer.key("space")
                viewer.wait_centre(color_of(index + 1))
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
