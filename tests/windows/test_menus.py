"""What is in the menus, and every way to open them."""

import accessibility
import settings_file
from accessibility import Role
from menu_test import COMMENT, MENUS, OPTIONS, START, MenuTest, names
from viewer_test import main, x11


class Contents(MenuTest):
    def test_every_menu_with_its_items_in_their_order(self):
        viewer = self.open()
        self.maxDiff = None
        self.assertEqual(self.tree(), MENUS)
        self.wait_marked(OPTIONS[1], COMMENT)
        for item in accessibility.walk(self.reader.menu_bar()):
            if item.get_role() in accessibility.MENUS - {Role.SEPARATOR} and item.get_name():
                self.assertTrue(accessibility.is_enabled(item), item.get_name())
        self.assert_clean(viewer)

    def test_the_marks_are_those_of_the_settings(self):
        for option in range(6):
            self.preferences(settings_file.int32("DsOp", option),
                settings_file.boolean("ECmt", option % 2))
            viewer = self.open()
            self.wait_marked(OPTIONS[option], *[COMMENT][:option % 2])
            self.assert_clean(viewer)

    def test_every_format_of_the_hints(self):
        formats = {
            "\1a) ": lambda label, letter: f"{letter}) {label}",
            "\1a・": lambda label, letter: f"{letter}・{label}",
            "\1a - ": lambda label, letter: f"{letter} - {label}",
            "": lambda label, letter: label,
        }
        for text, hint in formats.items():
            with self.subTest(format=text):
                settings_file.write(self.settings, "Shared", "AccKeyFormat2.arc",
                    settings_file.string("AccKeyFormat2", text))
                viewer = self.open()
                self.assertEqual(self.tree(), names(hint))
                # The letters are the same, whatever stands around them.
                if text:
                    viewer.key("Alt_L", "v")
                    x11.wait_for(lambda: self.is_open(names(hint)[1][0]), "the menu is open")
                    viewer.key("n")
                    self.at(viewer, START + 1)
                self.assert_clean(viewer)


class Opening(MenuTest):
    def test_by_the_mouse(self):
        viewer = self.open()
        for name, _entries in MENUS:
            self.click(name)
            self.wait_open(name)
            viewer.key("Escape")
            self.wait_open()
        # Along the open ones, the pointer opens each that it comes to.
        self.click(MENUS[0][0])
        for name, _entries in MENUS:
            self.screen.move_pointer(*accessibility.middle(self.item(name)))
            self.wait_open(name)
        left, top, width, height = viewer.image_area()
        self.screen.click(left + width - 3, top + height - 3)
        self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_by_alt_and_the_letter(self):
        viewer = self.open()
        for key, name in (("f", "File(F)"), ("v", "View(V)"), ("t", "Tool(T)")):
            viewer.key("Alt_L", key)
            self.wait_open(name)
            viewer.key("Escape")
            self.wait_open()
        # The keyboard is the picture's again.
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_by_f10_and_along_them_by_the_arrows(self):
        viewer = self.open()
        viewer.key("F10")
        order = [name for name, _entries in MENUS]
        self.wait_open(order[0])
        for name in [order[1], order[2], order[3], order[0]]:
            # The first item of the first menu has a menu of its own, which Right would open.
            if self.is_open(order[0]):
                viewer.key("Down")
            viewer.key("Right")
            self.wait_open(name)
        for name in (order[3], order[2], order[1]):
            viewer.key("Left")
            self.wait_open(name)
        viewer.key("Escape")
        self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_alt_alone_and_f10_with_a_modifier_open_nothing(self):
        viewer = self.open()
        for names in (("Alt_L",), ("Alt_L", "F10"), ("Control_L", "F10"), ("Alt_L", "x")):
            viewer.key(*names)
            viewer.wait_idle()
            self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)

    def test_the_menu_of_the_files_opened_before(self):
        viewer = self.open()
        viewer.key("Alt_L", "f")
        self.wait_open("File(F)")
        viewer.key("Right")
        x11.wait_for(lambda: accessibility.is_showing(
            self.item("File(F)", "Open(O)...", "Delete All MRUFs(D)")), "its own menu is open")
        viewer.key("Left")
        x11.wait_for(lambda: not accessibility.is_showing(
            self.item("File(F)", "Open(O)...", "Delete All MRUFs(D)")), "its own menu is closed")
        self.wait_open("File(F)")
        viewer.key("Escape")
        self.wait_open()
        viewer.key("space")
        self.at(viewer, START + 1)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
