"""The other windows that the program opens, and what it says when it cannot."""

import signal

import accessibility
from accessibility import Role
from menu_test import START, MenuTest
from viewer_test import main, x11

PANEL = "Lorivane: Open"
ABOUT = "About Lorivane"
PREFS = "Preferences"
ALERT = "* Lorivane *"


def information(index):
    return f"p{index:03}.png Information"


class Dialogs(MenuTest):
    def begin(self, *arguments):
        viewer = self.start(*arguments)
        self.reader = accessibility.Reader(viewer)
        x11.wait_for(lambda: len(self.tree()) == 4, "there are four menus")
        return viewer

    def choose(self, menu, label):
        accessibility.act(self.item(menu, label), "Press")


class OpenPanel(Dialogs):
    def test_it_opens_what_is_typed_and_comes_back(self):
        self.pictures(3)
        viewer = self.begin()
        for index in (1, 2):
            viewer.window.activate()
            viewer.key("Control_L", "o")
            self.wait_window(viewer, PANEL)
            field = x11.wait_for(self.name_field, "there is a field for the name")
            accessibility.Atspi.EditableText.set_text_contents(field, self.path(f"p{index:03}.png"))
            viewer.key("Return")
            viewer.wait_shown(f"p{index:03}.png")
            self.wait_windows(viewer, PANEL, 0)
        self.assert_clean(viewer)

    def name_field(self):
        try:
            return next((item for item in self.reader.all() if item.get_role() == Role.TEXT
                and accessibility.is_showing(item)), None)
        except accessibility.GONE:
            return None

    def test_there_is_one_and_escape_closes_it(self):
        viewer = self.open()
        for _ in range(2):
            viewer.window.activate()
            viewer.key("Control_L", "o")
            self.wait_window(viewer, PANEL)
            self.choose("File(F)", "Open(O)...")
            viewer.wait_idle()
            self.wait_windows(viewer, PANEL, 1)
            self.wait_window(viewer, PANEL)
            viewer.key("Escape")
            self.wait_windows(viewer, PANEL, 0)
        self.at(viewer, START)
        self.assert_clean(viewer)


class Information(Dialogs):
    def test_without_an_image_the_user_is_told(self):
        viewer = self.begin()
        viewer.key("Control_L", "i")
        self.wait_window(viewer, ALERT)
        self.wait_text("No image is displayed.")
        viewer.key("Escape")
        self.wait_windows(viewer, ALERT, 0)
        self.assert_clean(viewer)

    def test_each_request_opens_one_more_while_images_come_and_go(self):
        viewer = self.open()
        for index in range(START, START + 3):
            viewer.window.activate()
            self.choose("Tool(T)", "Show Image Information(I)...")
            self.wait_window(viewer, information(index))
            viewer.window.activate()
            viewer.key("space")
            viewer.wait_shown(f"p{min(index + 1, 4):03}.png")
        self.assertEqual(len(self.screen.windows(viewer.process.pid)), 4)
        self.choose("Tool(T)", "Show Image Information(I)...")
        self.wait_windows(viewer, information(4), 2)
        # Each goes by itself, and the others stay.
        self.wait_window(viewer, information(START)).close()
        self.wait_windows(viewer, information(START), 0)
        self.wait_windows(viewer, information(4), 2)
        self.assert_clean(viewer)

    def test_requests_in_the_middle_of_stepping(self):
        viewer = self.open()
        for _ in range(5):
            viewer.key("Home")
            viewer.key("Control_L", "i")
            viewer.key("End")
            viewer.window.activate()
        x11.wait_for(lambda: len(self.screen.windows(viewer.process.pid)) >= 2, "one has come")
        viewer.wait_idle()
        self.assert_clean(viewer)


class AboutBox(Dialogs):
    def test_it_is_shown_once_and_brought_back(self):
        viewer = self.open()
        for way in (lambda: self.choose("Help(H)", "About(A)..."), lambda: viewer.key("a")):
            viewer.window.activate()
            way()
            self.wait_window(viewer, ABOUT)
            self.choose("Help(H)", "About(A)...")
            viewer.wait_idle()
            self.wait_windows(viewer, ABOUT, 1)
            self.assertIsNotNone(self.reader.named("Copyright (C) ZELKAN"))
            self.wait_window(viewer, ABOUT)
            viewer.key("Escape")
            self.wait_windows(viewer, ABOUT, 0)
        self.assert_clean(viewer)


class Preferences(Dialogs):
    def test_there_is_one_and_it_comes_back(self):
        viewer = self.open()
        for _ in range(2):
            viewer.window.activate()
            viewer.key("Control_L", "p")
            self.wait_window(viewer, PREFS)
            self.choose("Tool(T)", "Preferences(P)...")
            viewer.wait_idle()
            self.wait_windows(viewer, PREFS, 1)
            self.wait_window(viewer, PREFS).close()
            self.wait_windows(viewer, PREFS, 0)
        self.assert_clean(viewer)


class Quitting(Dialogs):
    def open_everything(self):
        viewer = self.open()
        for menu, label, title in (("File(F)", "Open(O)...", PANEL),
                ("Tool(T)", "Show Image Information(I)...", information(START)),
                ("Tool(T)", "Preferences(P)...", PREFS), ("Help(H)", "About(A)...", ABOUT)):
            self.choose(menu, label)
            self.wait_window(viewer, title)
        return viewer

    def test_closing_the_main_window_ends_all(self):
        self.assert_clean(self.open_everything())

    def test_a_signal_ends_all(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            viewer = self.open_everything()
            viewer.process.send_signal(number)
            self.assertEqual(viewer.process.wait(20), 0)
            self.assertEqual(viewer.said(), "")

    def test_with_an_alert_of_the_application_open(self):
        for end in (lambda viewer: viewer.window.close(), lambda viewer: viewer.process.terminate()):
            viewer = self.begin()
            viewer.key("Control_L", "i")
            self.wait_window(viewer, ALERT)
            end(viewer)
            self.assertEqual(viewer.process.wait(20), 0)
            self.assertEqual(viewer.said(), "")


if __name__ == "__main__":
    main()
