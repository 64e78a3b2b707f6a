"""Each key of the viewer, alone and with each modifier: what it does, and that it does nothing
else."""

from viewer_test import ViewerTest, color_of, main, x11

MODIFIERS = {"none": None, "Shift": "Shift_L", "Ctrl": "Control_L", "Alt": "Alt_L",
    "Super": "Super_L"}

COUNT, START = 9, 4
BACK, FORWARD = START - 1, START + 1

# What a key does: the number of the picture it goes to, by the modifier held.
STEPS = {
    "Home": {"none": 0},
    "End": {"none": COUNT - 1},
    "BackSpace": {"none": BACK},
    "Prior": {"none": BACK, "Ctrl": BACK},
    "Up": {"none": BACK, "Ctrl": BACK},
    "Left": {"none": BACK, "Ctrl": BACK},
    "Next": {"none": FORWARD, "Ctrl": FORWARD},
    "Down": {"none": FORWARD, "Ctrl": FORWARD},
    "Right": {"none": FORWARD, "Ctrl": FORWARD},
    "space": {"none": FORWARD},
    # Shortcuts of the menu.
    "f": {"Ctrl": 0},
    "l": {"Ctrl": COUNT - 1},
}

# What the window manager of the tests keeps for itself.
TAKEN = {("Escape", "Alt"), ("space", "Alt"), ("Up", "Super"), ("Down", "Super"),
    ("Left", "Super"), ("Right", "Super"), ("F4", "Alt")}


class Keys(ViewerTest):
    def open(self):
        self.pictures(COUNT)
        viewer = self.start(self.path(f"p{START:03}.png"))
        self.at(viewer, START)
        viewer.wait_settled()
        return viewer

    def at(self, viewer, index):
        viewer.wait_shown(f"p{index:03}.png")
        viewer.wait_centre(color_of(index))

    def strike(self, viewer, key, modifier):
        names = [name for name in (MODIFIERS[modifier], key) if name]
        viewer.key(*names)

    def expect_nothing(self, viewer, key, modifier):
        """The key is struck and, once all is done, nothing has changed; then the next key
        works, so that the one before did not open or grab something either."""
        before = viewer.title(), viewer.window.frame(), viewer.window.states()
        self.strike(viewer, key, modifier)
        viewer.wait_idle()
        self.assertEqual((viewer.title(), viewer.window.frame(), viewer.window.states()), before)
        self.assertEqual(len(self.screen.windows(viewer.process.pid)), 1)

    def test_steps(self):
        viewer = self.open()
        for key, does in STEPS.items():
            for modifier in MODIFIERS:
                if (key, modifier) in TAKEN or (key == "f" and modifier == "Alt"):
                    continue
                with self.subTest(key=key, modifier=modifier):
                    if modifier not in does:
                        self.expect_nothing(viewer, key, modifier)
                        continue
                    self.strike(viewer, key, modifier)
                    self.at(viewer, does[modifier])
                    # Back to the start, at once or over the neighbours.
                    while viewer.title() != f"p{START:03}.png - Lorivane":
                        at = int(viewer.title()[1:4])
                        viewer.key("space" if at < START else "BackSpace")
                        self.at(viewer, at + (1 if at < START else -1))
        self.assert_clean(viewer)

    def test_full_screen(self):
        viewer = self.open()
        toggling = {("Return", "none"), ("Return", "Alt"), ("F5", "none")}
        for key in ("Return", "F5", "Escape"):
            for modifier in MODIFIERS:
                if (key, modifier) in TAKEN:
                    continue
                with self.subTest(key=key, modifier=modifier):
                    if (key, modifier) in toggling:
                        self.strike(viewer, key, modifier)
                        viewer.wait_full_screen()
                        viewer.wait_idle()
                        self.strike(viewer, key, modifier)
                        viewer.wait_full_screen(False)
                        viewer.wait_idle()
                    else:
                        self.expect_nothing(viewer, key, modifier)
        # Within it, Escape leaves it, and with a modifier nothing does.
        for modifier in ("Shift", "Ctrl", "Super"):
            with self.subTest(key="Escape", modifier=modifier, full_screen=True):
                viewer.key("Return")
                viewer.wait_full_screen()
                viewer.wait_idle()
                self.expect_nothing(viewer, "Escape", modifier)
                viewer.key("Escape")
                viewer.wait_full_screen(False)
                viewer.wait_idle()
        self.at(viewer, START)
        self.assert_clean(viewer)

    def test_h_and_m_minimise_with_any_modifier_that_makes_no_shortcut(self):
        viewer = self.open()
        for key in ("m", "h"):
            for modifier in MODIFIERS:
                if modifier == "Ctrl":
                    # A shortcut that nobody has: the window keeps it from its views.
                    self.expect_nothing(viewer, key, modifier)
                    continue
                with self.subTest(key=key, modifier=modifier):
                    self.strike(viewer, key, modifier)
                    x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" in viewer.window.states(),
                        "the window is minimised")
                    viewer.wait_idle()
                    viewer.window.activate()
                    x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" not in viewer.window.states(),
                        "the window is back")
                    viewer.wait_settled()
        viewer.key("space")
        self.at(viewer, FORWARD)
        self.assert_clean(viewer)

    def test_a_with_any_modifier_asks_for_what_is_said_about_the_program(self):
        viewer = self.open()
        for modifier in MODIFIERS:
            with self.subTest(modifier=modifier):
                self.strike(viewer, "a", modifier)
                viewer.wait_idle()
                viewer.window.activate()
                self.at(viewer, START)
        viewer.key("space")
        self.at(viewer, FORWARD)
        self.assert_clean(viewer)

    def test_other_keys_do_nothing(self):
        viewer = self.open()
        for key in ("b", "x", "1", "minus", "Tab", "Insert", "Delete", "F1", "F6", "F12", "KP_5"):
            for modifier in ("none", "Shift", "Ctrl"):
                with self.subTest(key=key, modifier=modifier):
                    self.expect_nothing(viewer, key, modifier)
        viewer.key("space")
        self.at(viewer, FORWARD)
        self.assert_clean(viewer)

    def test_w_and_q_with_ctrl_close(self):
        for key in ("w", "q"):
            with self.subTest(key=key):
                viewer = self.open()
                for modifier in ("none", "Shift", "Alt"):
                    self.expect_nothing(viewer, key, modifier)
                viewer.key("Control_L", key)
                x11.wait_for(lambda: not viewer.is_running(), "the viewer has ended")
                self.assertEqual(viewer.process.returncode, 0)
                self.assertEqual(viewer.said(), "")


if __name__ == "__main__":
    main()
