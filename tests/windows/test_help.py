"""Help / Help opens the document of the user's language with the desktop's own application."""

import os

import accessibility
from menu_test import MenuTest
from viewer_test import PROGRAM, main, x11


class Help(MenuTest):
    """With one application on the desktop, which writes down what it is to open."""

    language = "C.UTF-8"

    def environment(self):
        nothing = os.path.join(self.home, "nothing")
        return {**super().environment(), "LC_ALL": self.language,
            "XDG_DATA_HOME": os.path.join(self.home, "data"), "XDG_DATA_DIRS": nothing,
            "XDG_CONFIG_DIRS": nothing}

    def at(self, viewer, index):
        viewer.wait_shown(f"p{index:03}.png")  # its colour tells nothing about help

    def install_reader(self):
        applications = os.path.join(self.home, "data", "applications")
        os.makedirs(applications)
        reader = os.path.join(self.home, "reader")
        with open(reader, "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\necho "$1" > "{self.home}/part"\n'
                f'mv "{self.home}/part" "{self.home}/opened"\n')
        os.chmod(reader, 0o700)
        with open(os.path.join(applications, "reader.desktop"), "w", encoding="utf-8") as file:
            file.write("[Desktop Entry]\nType=Application\nName=Reader\n"
                f"Exec={reader} %f\nMimeType=text/plain;\n")
        with open(os.path.join(applications, "mimeinfo.cache"), "w", encoding="utf-8") as file:
            file.write("[MIME Cache]\ntext/plain=reader.desktop;\n")

    def opened(self):
        try:
            with open(os.path.join(self.home, "opened"), encoding="utf-8") as file:
                return file.read().strip()
        except FileNotFoundError:
            return None

    def assert_opened(self, name):
        path = x11.wait_for(self.opened, "the application was started")
        self.assertEqual(path, os.path.join(os.path.dirname(os.path.realpath(PROGRAM)), name))
        self.assertTrue(os.path.isfile(path))

    def test_the_document_is_opened(self):
        self.install_reader()
        viewer = self.open()
        self.click("Help(H)")
        self.wait_open("Help(H)")
        self.click("Help(H)", "Help(H)")
        self.assert_opened("ReadMe_Eng.txt")
        self.assert_clean(viewer)

    def test_it_is_that_of_the_user_s_language(self):
        self.install_reader()
        for self.language, menu, name in (("de_DE.UTF-8", "Hilfe(H)", "ReadMe_Deu.txt"),
                ("ja_JP.UTF-8", "ヘルプ(H)", "ReadMe_Jpn.txt")):
            viewer = self.open()
            accessibility.act(self.item(menu, menu), "Press")
            self.assert_opened(name)
            os.remove(os.path.join(self.home, "opened"))
            self.assert_clean(viewer)

    def test_without_an_application_the_user_is_told(self):
        viewer = self.open()
        self.click("Help(H)")
        self.wait_open("Help(H)")
        self.click("Help(H)", "Help(H)")
        alert = x11.wait_for(lambda: next((window for window in
                self.screen.windows(viewer.process.pid) if window.title() == "* Lorivane *"), None),
            "an alert appears")
        alert.activate()
        self.screen.key("Escape")
        x11.wait_for(lambda: len(self.screen.windows(viewer.process.pid)) == 1, "it is closed")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
