"""The menu of the files opened before."""

import os
import subprocess

import accessibility
from recent_test import ALERT, DELETE_ALL, LIST, OPEN, Recent
from viewer_test import PROGRAM, main, x11


class Listing(Recent):
    def test_files_and_folders_that_were_opened_and_not_those_stepped_to(self):
        self.pictures(3)
        viewer = self.begin(self.path("p000.png"))
        viewer.wait_shown("p000.png")
        self.wait_names("p000.png(0)")
        viewer.key("space")
        viewer.wait_shown("p001.png")
        viewer.wait_idle()
        self.wait_names("p000.png(0)")
        self.assert_clean(viewer)

        viewer = self.begin(self.path("p002.png"))
        self.wait_names("p002.png(0)", "p000.png(1)")
        self.assert_clean(viewer)
        viewer = self.begin(self.folder)
        self.wait_names("pictures(0)", "p002.png(1)", "p000.png(2)")
        self.assert_clean(viewer)
        # As they were, after a start that opens nothing.
        viewer = self.begin()
        self.wait_names("pictures(0)", "p002.png(1)", "p000.png(2)")
        self.assert_clean(viewer)

    def test_a_list_that_is_too_long_or_broken_does_no_harm(self):
        self.remember(*(f"/nowhere/{i}" for i in range(100000)))
        viewer = self.begin()
        self.wait_names(*(f"{99999 - i}({i})" for i in range(10)))
        self.assert_clean(viewer)
        self.remember("", "no path", "/", "/nowhere/line\nbreak & more")
        viewer = self.begin()
        self.wait_names("line break & more(0)", "/(1)", "no path(2)")
        self.assert_clean(viewer)
        with open(os.path.join(self.settings, "ZELKAN", "Lorivane", LIST), "wb") as file:
            file.write(b"LMsg no more")
        viewer = self.begin()
        self.wait_names()
        self.assertFalse(accessibility.is_enabled(self.item(*OPEN, DELETE_ALL)))
        self.assert_clean(viewer)


class Choosing(Recent):
    def test_by_the_mouse_and_by_letters(self):
        self.remember_pictures(10)
        viewer = self.begin()
        self.click("File(F)")
        self.wait_open("File(F)")
        self.screen.move_pointer(*accessibility.middle(self.item(*OPEN)))
        x11.wait_for(lambda: accessibility.is_showing(self.item(*OPEN, "p003.png(3)")),
            "the menu of the files opened before is open")
        self.click(*OPEN, "p003.png(3)")
        self.at(viewer, 3)
        self.wait_first("p003.png")
        self.open_menu(viewer)
        viewer.key("9")
        self.at(viewer, 9)
        self.assert_clean(viewer)

    def test_by_shift_ctrl_and_a_digit(self):
        self.remember_pictures(10)
        viewer = self.begin()
        # The oldest comes to the front each time.
        for index in reversed(range(10)):
            viewer.key("Control_L", "Shift_L", "9")
            self.at(viewer, index)
            self.wait_first(f"p{index:03}.png")
        for digit in range(10):
            name = self.name_at(digit)
            viewer.key("Control_L", "Shift_L", str(digit))
            viewer.wait_shown(name)
            self.wait_first(name)
        self.assert_clean(viewer)

    def test_in_a_menu_that_is_open_while_a_file_is_added(self):
        self.remember_pictures(3)
        new = self.picture("new.png", (9, 9, 9))
        viewer = self.begin()
        self.open_menu(viewer)
        # A second start hands its file to the first.
        subprocess.run([PROGRAM, new], env=self.environment(), check=True, timeout=30)
        viewer.wait_shown("new.png")
        self.wait_names("new.png(0)", "p000.png(1)", "p001.png(2)", "p002.png(3)")
        if not accessibility.is_showing(self.item(*OPEN, DELETE_ALL)):
            viewer.window.activate()  # what comes to the front may have closed it
            self.open_menu(viewer)
        viewer.key("3")
        self.at(viewer, 2)
        self.assert_clean(viewer)

    def test_a_file_that_is_gone_shows_nothing_else(self):
        self.pictures(2)
        self.remember(self.path("p001.png"), self.path("gone.png"), "/nowhere/at/all.png")
        viewer = self.begin()
        viewer.key("Control_L", "Shift_L", "0")
        viewer.wait_idle()
        self.wait_names("all.png(0)", "gone.png(1)", "p001.png(2)")
        viewer.key("Control_L", "Shift_L", "2")
        self.at(viewer, 1)
        self.assert_clean(viewer)


class Deleting(Recent):
    def setUp(self):
        super().setUp()
        self.pictures(2)
        self.remember(self.path("p000.png"), self.path("p001.png"))

    def choose(self, viewer, name):
        """By its letter."""
        self.open_menu(viewer)
        viewer.key(name[name.index("(") + 1].lower())

    def choose_with_alt(self, viewer, name):
        """The key is released at once; it counts all the same."""
        self.open_menu(viewer)
        viewer.key("Alt_L", name[name.index("(") + 1])
        self.wait_window(viewer, ALERT)

    def test_all_of_them_or_none(self):
        viewer = self.begin()
        self.choose(viewer, DELETE_ALL)
        self.wait_window(viewer, ALERT)
        self.wait_text("Remove all entries from the list of recently used files?")
        viewer.key("Escape")
        self.wait_windows(viewer, ALERT, 0)
        viewer.window.activate()
        self.wait_names("p001.png(0)", "p000.png(1)")
        self.choose(viewer, DELETE_ALL)
        self.wait_window(viewer, ALERT)
        viewer.key("a")
        self.wait_windows(viewer, ALERT, 0)
        self.wait_names()
        self.assertFalse(accessibility.is_enabled(self.item(*OPEN, DELETE_ALL)))
        self.assert_clean(viewer)
        viewer = self.begin()
        self.wait_names()
        self.assert_clean(viewer)

    def test_one_that_is_chosen_with_alt(self):
        viewer = self.begin()
        self.choose_with_alt(viewer, "p001.png(0)")
        self.wait_text('Remove "p001.png" from the list')
        viewer.key("Escape")
        self.wait_windows(viewer, ALERT, 0)
        viewer.window.activate()
        self.wait_names("p001.png(0)", "p000.png(1)")
        self.choose_with_alt(viewer, "p001.png(0)")
        viewer.key("y")
        self.wait_names("p000.png(0)")
        viewer.window.activate()
        # Neither answer has opened it.
        self.assertEqual(viewer.title(), "Lorivane")
        self.assertTrue(os.path.exists(self.path("p001.png")))
        self.assert_clean(viewer)

    def test_one_that_is_clicked_with_alt(self):
        viewer = self.begin()
        self.open_menu(viewer)
        with self.screen.held("Alt_L"):
            self.click(*OPEN, "p000.png(1)")
        self.wait_window(viewer, ALERT)
        viewer.key("y")
        self.wait_names("p001.png(0)")
        self.assert_clean(viewer)

    def test_quitting_while_it_asks(self):
        viewer = self.begin()
        self.choose(viewer, DELETE_ALL)
        self.wait_window(viewer, ALERT)
        viewer.process.terminate()
        self.assertEqual(viewer.process.wait(20), 0)
        self.assertEqual(viewer.said(), "")
        viewer = self.begin()
        self.wait_names("p001.png(0)", "p000.png(1)")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
