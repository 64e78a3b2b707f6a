"""Every way to choose from the menus, and what it does."""

import accessibility
from menu_test import COMMENT, COUNT, OPTIONS, START, MenuTest
from viewer_test import main, x11


class Choosing(MenuTest):
    def test_pictures_by_the_mouse(self):
        viewer = self.open()
        for label, index in (("First Image(F) [Home]", 0), ("Next Image(N) [Space]", 1),
                ("Last Image(L) [End]", COUNT - 1),
                ("Previous Image(P) [Backspace]", COUNT - 2)):
            self.click("View(V)")
            self.wait_open("View(V)")
            self.click("View(V)", label)
            self.at(viewer, index)
            self.wait_open()
        self.assert_clean(viewer)

    def test_pictures_by_their_letters(self):
        viewer = self.open()
        for key, index in (("f", 0), ("n", 1), ("l", COUNT - 1), ("p", COUNT - 2)):
            viewer.key("Alt_L", "v")
            self.wait_open("View(V)")
            viewer.key(key)
            self.at(viewer, index)
            self.wait_open()
        self.assert_clean(viewer)

    def test_pictures_by_arrows_and_enter(self):
        viewer = self.open()
        for downs, index in ((0, 0), (2, 1), (3, COUNT - 1), (1, COUNT - 2)):
            viewer.key("Alt_L", "v")
            self.wait_open("View(V)")
            for _ in range(downs):
                viewer.key("Down")
            viewer.key("Return")
            self.at(viewer, index)
            self.wait_open()
        self.assertFalse(viewer.is_full_screen())
        self.assert_clean(viewer)

    def test_pictures_by_assistive_technology(self):
        viewer = self.open()
        for label, index in (("First Image(F) [Home]", 0), ("Next Image(N) [Space]", 1),
                ("Last Image(L) [End]", COUNT - 1),
                ("Previous Image(P) [Backspace]", COUNT - 2)):
            accessibility.act(self.item("View(V)", label), "Press")
            self.at(viewer, index)
        self.assert_clean(viewer)

    def test_pictures_by_shortcuts(self):
        viewer = self.open()
        viewer.key("Control_L", "f")
        self.at(viewer, 0)
        viewer.key("Control_L", "l")
        self.at(viewer, COUNT - 1)
        self.assert_clean(viewer)

    def test_display_options_by_the_mouse_and_by_letters(self):
        viewer = self.open()
        letters = {"d": 0, "w": 1, "i": 2, "s": 3, "x": 4, "y": 5}
        for key, option in letters.items():
            viewer.key("Alt_L", "v")
            self.wait_open("View(V)")
            viewer.key(key)
            self.wait_marked(OPTIONS[option], COMMENT)
            self.wait_open()
        for option in (3, 3, 1):
            self.click("View(V)")
            self.wait_open("View(V)")
            self.click("View(V)", OPTIONS[option])
            self.wait_marked(OPTIONS[option], COMMENT)
            self.wait_open()
        self.assert_clean(viewer)

    def test_the_comment_s_mark_goes_and_comes_and_is_kept(self):
        viewer = self.open()
        viewer.key("Alt_L", "v")
        self.wait_open("View(V)")
        viewer.key("c")
        self.wait_marked(OPTIONS[1])
        self.assert_clean(viewer)
        viewer = self.open()
        self.wait_marked(OPTIONS[1])
        accessibility.act(self.item("View(V)", COMMENT), "Press", "Toggle")
        self.wait_marked(OPTIONS[1], COMMENT)
        self.assert_clean(viewer)

    def test_full_screen(self):
        viewer = self.open()
        frame = viewer.window.frame()
        self.click("View(V)")
        self.wait_open("View(V)")
        self.click("View(V)", "Full Screen(U) [Enter]")
        viewer.wait_full_screen()
        # The bar is above the screen, and its menus open all the same.
        viewer.key("Alt_L", "v")
        self.wait_open("View(V)")
        left, top, _width, height = accessibility.extents(
            self.item("View(V)", "First Image(F) [Home]"))
        self.assertGreaterEqual(left, 0)
        self.assertGreaterEqual(top, 0)
        self.assertLess(top, 10 * height)
        viewer.key("u")
        viewer.wait_full_screen(False)
        viewer.wait_frame(*frame)
        self.assert_clean(viewer)

    def test_open_is_a_command_itself(self):
        viewer = self.open()

        def panel_comes():
            self.wait_window(viewer, "Lorivane: Open").close()
            self.wait_windows(viewer, "Lorivane: Open", 0)
            viewer.window.activate()
            self.wait_open()
            self.at(viewer, START)

        self.click("File(F)")
        self.wait_open("File(F)")
        self.click("File(F)", "Open(O)...")
        panel_comes()
        viewer.key("Alt_L", "f")
        self.wait_open("File(F)")
        viewer.key("Return")
        panel_comes()
        accessibility.act(self.item("File(F)", "Open(O)..."), "Press")
        panel_comes()
        viewer.key("Control_L", "o")
        panel_comes()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_quit_quits(self):
        def by_mouse(_viewer):
            self.click("File(F)")
            self.wait_open("File(F)")
            self.click("File(F)", "Quit(Q)")

        def by_letter(viewer):
            viewer.key("Alt_L", "f")
            self.wait_open("File(F)")
            viewer.key("q")

        def by_action(_viewer):
            accessibility.act(self.item("File(F)", "Quit(Q)"), "Press")

        def by_shortcut(viewer):
            viewer.key("Control_L", "q")

        for way in (by_mouse, by_letter, by_action, by_shortcut):
            with self.subTest(way=way.__name__):
                viewer = self.open()
                way(viewer)
                x11.wait_for(lambda: not viewer.is_running(), "the viewer has ended")
                self.assertEqual(viewer.process.returncode, 0)
                self.assertEqual(viewer.said(), "")

    def test_a_mark_that_changes_leaves_an_open_menu_as_it_is(self):
        viewer = self.open()
        viewer.key("Alt_L", "v")
        self.wait_open("View(V)")
        accessibility.act(self.item("View(V)", OPTIONS[3]), "Press", "Toggle")
        self.wait_marked(OPTIONS[3], COMMENT)
        viewer.key("Escape")
        viewer.key("Escape")
        self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_keys_in_an_open_menu_do_not_reach_the_picture(self):
        viewer = self.open()
        viewer.key("Alt_L", "v")
        self.wait_open("View(V)")
        for key in ("Home", "End", "BackSpace", "Next", "Prior", "Down", "Up", "F5", "h", "m"):
            viewer.key(key)
        viewer.wait_idle()
        self.assertFalse(viewer.is_full_screen())
        self.assertEqual(viewer.title(), f"p{START:03}.png - Lorivane")
        viewer.key("Escape")
        self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
