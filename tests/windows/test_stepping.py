"""Stepping through a folder with the keyboard and the wheel."""

import os

from viewer_test import BACKGROUNDS, ViewerTest, color_of, main, x11

COUNT = 60


class Stepping(ViewerTest):
    def at(self, viewer, index):
        viewer.wait_shown(f"p{index:03}.png")
        viewer.wait_centre(color_of(index))

    def test_to_both_ends_and_back(self):
        self.pictures(4)
        viewer = self.start(self.folder)
        self.at(viewer, 0)
        for index in (1, 2, 3):
            viewer.key("space")
            self.at(viewer, index)
        # Past the last there is nothing: the next step back starts at the last.
        viewer.key("space")
        viewer.key("BackSpace")
        self.at(viewer, 2)
        for index in (1, 0):
            viewer.key("BackSpace")
            self.at(viewer, index)
        viewer.key("BackSpace")
        viewer.key("space")
        self.at(viewer, 1)
        self.assert_clean(viewer)

    def test_every_key_that_steps(self):
        self.pictures(9)
        viewer = self.start(self.path("p004.png"))
        self.at(viewer, 4)
        table = [
            ("space", 5), ("BackSpace", 4), ("Next", 5), ("Prior", 4), ("Down", 5), ("Up", 4),
            ("Right", 5), ("Left", 4), ("Home", 0), ("End", 8),
        ]
        for key, index in table:
            with self.subTest(key=key):
                viewer.key(key)
                self.at(viewer, index)
        self.assert_clean(viewer)

    def test_every_key_that_steps_with_ctrl(self):
        self.pictures(9)
        viewer = self.start(self.path("p004.png"))
        self.at(viewer, 4)
        table = [("Next", 5), ("Prior", 4), ("Down", 5), ("Up", 4), ("Right", 5), ("Left", 4)]
        with self.screen.held("Control_L"):
            for key, index in table:
                with self.subTest(key=key):
                    viewer.key(key)
                    self.at(viewer, index)
        self.assert_clean(viewer)

    def test_a_stepping_key_with_another_modifier_does_nothing(self):
        self.pictures(9)
        for modifier, keys in (("Shift_L", ("Next", "space", "BackSpace", "Left", "End")),
                ("Control_L", ("space", "Home", "End", "BackSpace"))):
            with self.subTest(modifier=modifier):
                viewer = self.start(self.path("p004.png"))
                self.at(viewer, 4)
                left, top, width, height = viewer.wait_settled()
                with self.screen.held(modifier):
                    for key in keys:
                        viewer.key(key)
                    # The wheel does not ask for modifiers, and comes after the keys.
                    self.screen.click(left + width // 2, top + height // 2, which=5)
                    self.at(viewer, 5)
                self.assert_clean(viewer)

    def test_the_wheel_steps(self):
        self.pictures(4)
        viewer = self.start(self.folder)
        self.at(viewer, 0)
        left, top, width, height = viewer.wait_settled()
        middle = left + width // 2, top + height // 2
        for index in (1, 2):
            self.screen.click(*middle, which=5)
            self.at(viewer, index)
        for index in (1, 0):
            self.screen.click(*middle, which=4)
            self.at(viewer, index)
        self.assert_clean(viewer)

    def test_each_of_sixty_pictures_is_the_one_its_title_names(self):
        self.pictures(COUNT)
        viewer = self.start(self.folder)
        self.at(viewer, 0)
        for index in range(1, COUNT):
            viewer.key("space")
            self.at(viewer, index)
        for index in reversed(range(COUNT - 1)):
            viewer.key("BackSpace")
            self.at(viewer, index)
        self.assert_clean(viewer)

    def test_keys_faster_than_pictures_end_at_the_last(self):
        self.pictures(COUNT)
        viewer = self.start(self.folder)
        self.at(viewer, 0)
        last = f"p{COUNT - 1:03}.png - Lorivane"

        def burst():
            for _ in range(10):
                viewer.key("space")
            return viewer.title() == last

        x11.wait_for(burst, lambda: f"the last picture is reached; at {viewer.title()!r}", 30)
        self.at(viewer, COUNT - 1)
        viewer.key("Home")
        self.at(viewer, 0)
        self.assert_clean(viewer)

    def test_back_and_forth_without_waiting_ends_consistent(self):
        self.pictures(8)
        viewer = self.start(self.path("p004.png"))
        self.at(viewer, 4)
        for _ in range(40):
            viewer.key("space")
            viewer.key("BackSpace")
            viewer.key("Right")
        viewer.key("End")
        self.at(viewer, 7)
        self.assert_clean(viewer)

    def test_a_held_key_runs_to_the_last_and_stops(self):
        self.pictures(COUNT)
        viewer = self.start(self.folder)
        self.at(viewer, 0)
        known = {color_of(index) for index in range(COUNT)}
        seen = []
        self.screen.press("Right")
        try:
            def at_the_last():
                color = viewer.centre()
                self.assertIn(color, known)
                if color not in seen:
                    seen.append(color)
                return color == color_of(COUNT - 1)

            x11.wait_for(at_the_last, lambda: f"the last picture; at {viewer.title()!r}", 40)
        finally:
            self.screen.release("Right")
        self.at(viewer, COUNT - 1)
        self.assertEqual(seen, sorted(seen, key=[color_of(i) for i in range(COUNT)].index))
        self.assertGreater(len(seen), COUNT // 3)
        viewer.key("Left")
        self.at(viewer, COUNT - 2)
        self.assert_clean(viewer)

    def test_large_photographs_to_both_ends(self):
        names = sorted(os.listdir(BACKGROUNDS), key=os.fsencode)
        viewer = self.start(BACKGROUNDS)
        shown = None  # the viewer may have drawn the first one by now

        def show(key, name):
            """A key counts once the picture before it is on the screen."""
            nonlocal shown
            before = shown
            if key:
                viewer.key(key)
            viewer.wait_shown(name, 30)

            def is_drawn():
                nonlocal shown
                shown = viewer.window.picture()
                return (before is None or shown.data != before.data) and not shown.is_uniform()

            x11.wait_for(is_drawn, f"{name} is drawn")
            # One that was decoded for this key alone is laid out anew when the window has its size;
            # keys struck before count as stale.
            if key != "space":
                viewer.wait_idle()

        show(None, names[0])
        for name in names[1:]:
            show("space", name)
        show("Home", names[0])
        show("End", names[-1])
        show("BackSpace", names[-2])
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
