#!/usr/bin/python3
"""The preferences dialog and the viewer beside it, which shows every change at once."""

import os
import unittest

import accessibility
import preferences_dialog
import settings_file
from accessibility import Role
from preferences_dialog import Dialog
from viewer_test import BLACK, ViewerTest, main, png, x11

RED = (255, 0, 0)
SIZE = (400, 300)
LEFT, TOP = 700, 100

FIELD = "Extension of Comment File(X):"


class PreferencesTest(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def open(self, start=True):
        if start:
            self.saved_frame(LEFT, TOP, LEFT + 399, TOP + 349)
            self.write("a.png", png.encode(*SIZE, [bytes(RED) * SIZE[0]] * SIZE[1]))
            self.write("a.txt", "A comment".encode())
            self.write("a.md", "Another, longer comment".encode())
        self.viewer = self.start(self.path("a.png"))
        self.viewer.wait_shown("a.png")
        self.viewer.wait_frame(None, None, SIZE[0], None)
        self.viewer.wait_settled()
        self.dialog = Dialog(self.viewer)
        return self.dialog

    def shown(self):
        return bytes(self.viewer.area_picture().data)

    def band(self, picture=None):
        """The rectangle of the image area that is not red, as left, top, right, bottom."""
        picture = picture or self.viewer.area_picture()
        places = [(x, y) for y in range(picture.height) for x in range(picture.width)
            if picture.at(x, y) != RED]
        if not places:
            return None
        columns, rows = [x for x, _y in places], [y for _x, y in places]
        return min(columns), min(rows), max(columns), max(rows)

    def wait_band(self, condition, what):
        """The band that is as it is waited for; None where there is to be none."""
        found = None

        def is_met():
            nonlocal found
            found = self.band()
            return condition(found)

        x11.wait_for(is_met, lambda: f"{what}; the band is {found}")
        return found

    def wait_changed(self, before, what):
        x11.wait_for(lambda: self.shown() != before, what)

    def corner(self):
        """The colour of the band where there are no letters."""
        picture = self.viewer.area_picture()
        band = self.band(picture)
        return picture.at(band[0] + 1, band[1] + 1) if band else None


class LiveChanges(PreferencesTest):
    def test_margin_padding_and_size(self):
        dialog = self.open()
        self.assertEqual(dialog.text("Margin(M):"), "20")
        self.wait_band(lambda band: band and band[0] == 20, "the margin is 20")
        dialog.type("Margin(M):", "3")
        self.wait_band(lambda band: band and band[0] == 3, "the margin is 3")
        dialog.screen.key("5")
        band = self.wait_band(lambda band: band and band[0] == 35, "the margin is 35")
        self.assertEqual(dialog.text("Margin(M):"), "35")

        dialog.type("Padding(P):", "15")
        padded = self.wait_band(lambda found: found and found[3] - found[1] == band[3] - band[1] + 20,
            "the padding is 15")
        dialog.type("Size(S):", "24")
        self.wait_band(lambda found: found and found[3] - found[1] > padded[3] - padded[1] + 8,
            "the letters are bigger")
        dialog.type("Margin(M):", "abc")
        self.wait_band(lambda found: found and found[0] == 0, "the margin is 0")
        dialog.type("Margin(M):", "250")
        self.wait_band(lambda found: found and found[0] == 100, "the margin is 100")
        self.assertEqual(dialog.text("Margin(M):"), "250")
        dialog.press("OK")
        dialog.wait_hidden()
        dialog.open()
        x11.wait_for(lambda: dialog.text("Margin(M):") == "100", "the margin shows what it is")
        self.assert_clean(self.viewer)

    def test_position_switch_and_font(self):
        dialog = self.open()
        first = self.shown()
        dialog.tick("Top(T)")
        self.wait_band(lambda band: band and band[1] == 20, "the comment is at the top")
        dialog.tick("Bottom(B)")
        x11.wait_for(lambda: self.shown() == first, "all is as it was")
        dialog.tick("Enable Comment(C)")
        self.wait_band(lambda band: band is None, "the comment is gone")
        x11.wait_for(lambda: not dialog.is_enabled("Margin(M):", Role.TEXT, Role.ENTRY),
            "the margin is disabled")
        dialog.screen.key("Alt_L", "c")
        x11.wait_for(lambda: self.shown() == first, "the comment is back")
        dialog.choose("f", 6)  # another one than the first
        self.wait_changed(first, "the font is another")
        self.assert_clean(self.viewer)

    def test_extensions(self):
        dialog = self.open()
        first = self.wait_band(lambda band: band is not None, "the comment is shown")
        self.assertFalse(dialog.is_enabled("Add >>(A)"))
        self.assertFalse(dialog.is_enabled("<< Remove(R)"))
        dialog.select_row("txt")
        x11.wait_for(lambda: dialog.is_enabled("<< Remove(R)"), "there is something to remove")
        dialog.press("<< Remove(R)")
        self.wait_band(lambda band: band is None, "the comment is gone")
        self.assertEqual(dialog.rows(), ["doc", "hed"])
        dialog.type(FIELD, ".md")
        x11.wait_for(lambda: dialog.is_enabled("Add >>(A)"), "there is something to add")
        dialog.press("Add >>(A)")
        self.wait_band(lambda band: band and band[2] > first[2], "the other comment is shown")
        x11.wait_for(lambda: dialog.rows() == ["doc", "hed", "md"], "the list has it")
        self.assertEqual(dialog.text(FIELD), "")
        self.assert_clean(self.viewer)

    def test_encoding(self):
        text = "日本語の文章です。"
        self.write("a.txt", text.encode("cp932"))
        self.saved_frame(LEFT, TOP, LEFT + 399, TOP + 349)
        self.write("a.png", png.encode(*SIZE, [bytes(RED) * SIZE[0]] * SIZE[1]))
        dialog = self.open(start=False)
        self.wait_band(lambda band: band is not None, "the comment is shown")
        detected = self.shown()
        dialog.choose("e", 0)
        self.wait_changed(detected, "UTF-8 shows something else")
        dialog.choose("e", 1)
        x11.wait_for(lambda: self.shown() == detected, "Shift-JIS shows what was detected")
        self.assert_clean(self.viewer)

    def test_colors_and_display_option(self):
        dialog = self.open()
        self.assertEqual(self.corner(), (128, 0, 0))
        dialog.tab("Etc.")
        dialog.choose("i", 0)
        self.viewer.window.activate()
        left, top, _width, height = self.viewer.wait_settled()
        self.viewer.window.move_resize(left, top, 520, height + 40)
        area = 510, 330
        x11.wait_for(lambda: self.viewer.window.frame()[2] == 520
            and self.viewer.pixel_is(*area, BLACK), "the background shows")

        dialog.window.activate()
        dialog.tab("Colors")
        self.assertFalse(dialog.is_enabled("Opacity", Role.SLIDER))
        dialog.set_value("Green", 200, Role.SPIN_BUTTON)
        x11.wait_for(lambda: self.viewer.pixel_is(*area, (0, 200, 0)), "the background is green")
        dialog.choose("t", 2)
        x11.wait_for(lambda: dialog.is_enabled("Opacity", Role.SLIDER), "the opacity can be set")
        self.assertEqual(dialog.value("Opacity", Role.SLIDER), 127)

        before = self.shown()
        dialog.set_value("Opacity", 255, Role.SLIDER)
        self.wait_changed(before, "the comment's background is opaque")
        before = self.shown()
        dialog.set_value("Blue", 250, Role.SPIN_BUTTON)
        self.wait_changed(before, "the comment's background is blue")
        picture = self.viewer.area_picture()
        blue = sum(picture.at(x, y) == (0, 0, 250)
            for y in range(picture.height) for x in range(0, picture.width, 2))
        self.assertGreater(blue, 100)

        dialog.press("Cancel")
        dialog.wait_hidden()
        self.viewer.wait_frame(None, None, SIZE[0], None)
        x11.wait_for(lambda: self.corner() == (128, 0, 0), "all is as it was")
        self.assert_clean(self.viewer)


class Buttons(PreferencesTest):
    def change(self):
        """Much of it, until the viewer shows it."""
        self.first = self.shown()
        self.dialog.type("Margin(M):", "7")
        self.dialog.tick("Top(T)")
        self.wait_band(lambda band: band and band[:2] == (7, 7), "the comment is elsewhere")
        self.dialog.tab("Etc.")
        self.dialog.tick("Enable Pre-load(P)")
        x11.wait_for(lambda: not self.dialog.is_checked("Enable Pre-load(P)"), "it is off")
        self.dialog.tab("Comment")

    def wait_first(self):
        x11.wait_for(lambda: self.shown() == self.first, "the viewer shows what it did at first")

    def test_cancel_goes_back(self):
        dialog = self.open()
        self.change()
        dialog.press("Cancel")
        dialog.wait_hidden()
        self.wait_first()
        dialog.open()
        self.assertEqual(dialog.text("Margin(M):"), "20")
        dialog.tab("Etc.")
        self.assertTrue(dialog.is_checked("Enable Pre-load(P)"))
        self.assert_clean(self.viewer)

    def test_escape_and_the_close_box_go_back(self):
        dialog = self.open()
        self.change()
        dialog.screen.key("Escape")
        dialog.wait_hidden()
        self.wait_first()
        dialog.open()
        self.change()
        dialog.window.close()
        dialog.wait_hidden()
        self.wait_first()
        self.assert_clean(self.viewer)

    def test_ok_outlasts_a_restart(self):
        dialog = self.open()
        self.change()
        after = self.shown()
        dialog.screen.key("Return")
        dialog.wait_hidden()
        self.assert_clean(self.viewer)
        dialog = self.open(start=False)
        x11.wait_for(lambda: self.shown() == after, "it is as it was left")
        self.assertEqual(dialog.text("Margin(M):"), "7")
        self.assertTrue(dialog.is_checked("Top(T)"))
        dialog.tab("Etc.")
        self.assertFalse(dialog.is_checked("Enable Pre-load(P)"))
        self.assert_clean(self.viewer)

    def test_defaults_and_back_again(self):
        self.preferences(settings_file.float32("CmMg", 7), settings_file.int32("CmAl", 0),
            settings_file.string("CmFF", "DejaVu Sans"), settings_file.string("CmFE", "txt"))
        dialog = self.open()
        own = self.shown()
        self.wait_band(lambda band: band and band[:2] == (7, 7), "it is at the top")
        dialog.press("Defaults(D)")
        self.wait_band(lambda band: band and band[0] == 20 and band[1] > 100, "it is at the bottom")
        x11.wait_for(lambda: dialog.text("Margin(M):") == "20", "the margin is the default")
        dialog.press("Cancel")
        dialog.wait_hidden()
        x11.wait_for(lambda: self.shown() == own, "all is as it was")
        self.assert_clean(self.viewer)

    def test_the_menu_and_the_dialog_follow_each_other(self):
        dialog = self.open()
        self.viewer.window.activate()
        self.viewer.key("Alt_L", "v")
        menu = dialog.reader.menu("View(V)", "Enable Comment(C)")
        x11.wait_for(lambda: accessibility.is_showing(menu), "the menu is open")
        self.viewer.key("c")
        x11.wait_for(lambda: not dialog.is_checked("Enable Comment(C)"), "it is switched off here")
        dialog.window.activate()
        dialog.press("Cancel")
        dialog.wait_hidden()
        self.viewer.wait_idle()
        self.assertIsNone(self.band())
        self.assert_clean(self.viewer)

    def test_absurd_preferences_are_shown(self):
        self.preferences(settings_file.int32("CmEc", 3), settings_file.float32("CmMg", float("nan")),
            settings_file.float32("CmPd", 1e30), settings_file.string("CmFF", "No such font"),
            settings_file.strings("CmFE", [f"ext{index}" for index in range(10_000)] + ["txt"]))
        dialog = self.open()
        # Nothing is asked of the accessibility bus as long as there are so many rows.
        dialog.screen.key("Alt_L", "d")
        self.viewer.wait_idle()
        x11.wait_for(lambda: dialog.rows() == ["doc", "hed", "txt"], "the list is the default")
        dialog.press("OK")
        dialog.wait_hidden()
        self.assert_clean(self.viewer)

    def test_a_disk_that_cannot_be_written(self):
        self.preferences(
            settings_file.float32("CmMg", 11), settings_file.string("CmFE", "txt"))
        path = os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_Prefs.arc")
        with open(path, "rb") as file:
            before = file.read()
        dialog = self.open()
        os.rename(os.path.dirname(path), os.path.dirname(path) + ".old")
        with open(os.path.dirname(path), "wb"):
            pass  # a file where the folder was
        dialog.type("Margin(M):", "7")
        dialog.press("OK")
        dialog.wait_hidden()
        self.wait_band(lambda band: band and band[0] == 7, "the margin is 7 all the same")
        with open(os.path.join(os.path.dirname(path) + ".old", "Lorivane_Prefs.arc"), "rb") as file:
            self.assertEqual(file.read(), before)
        self.assert_clean(self.viewer)


class Keyboard(PreferencesTest):
    ORDER = ("Enable Comment(C)", "Top(T)", "Bottom(B)", "Margin(M):", "Padding(P):", "Font(F):",
        "Size(S):", "Encoding(E):", FIELD, "Extension of Comment File", "Help(F1)", "Defaults(D)",
        "Cancel", "OK")

    def test_tab_goes_through_all_that_can_be_operated(self):
        dialog = self.open()
        for name in ("Comment", *self.ORDER, "Comment"):
            dialog.screen.key("Tab")
            dialog.wait_focused(name)
        dialog.screen.key("Right")
        dialog.find(preferences_dialog.PAGES["Colors"])
        dialog.screen.key("Shift_L", "Tab")
        dialog.wait_focused("OK")
        self.assert_clean(self.viewer)

    def test_the_tabs_change_whatever_has_the_keyboard(self):
        dialog = self.open()
        for key, page in (("Next", "Colors"), ("Tab", "Etc."), ("Prior", "Colors")):
            dialog.screen.key("Control_L", key)
            dialog.find(preferences_dialog.PAGES[page])
        dialog.screen.key("Alt_L", "t")
        dialog.wait_focused("Target(T):")
        dialog.screen.key("Control_L", "Prior")
        dialog.find(preferences_dialog.PAGES["Comment"])
        self.assert_clean(self.viewer)

    def test_quick_keys_are_not_lost(self):
        dialog = self.open()
        for _round in range(3):
            dialog.screen.key("Alt_L", "e")
            dialog.wait_focused("Encoding(E):")
            for key in ("Home", "Down", "Down", "Down", "Up"):
                dialog.screen.key(key)
            x11.wait_for(lambda: dialog.choice("Encoding(E):") == "JIS", "JIS is chosen")
            self.viewer.wait_idle()
            self.assertEqual(dialog.choice("Encoding(E):"), "JIS")
        for _step in range(2):
            dialog.screen.key("Control_L", "Next")
        dialog.find(preferences_dialog.PAGES["Etc."])
        self.viewer.wait_idle()
        dialog.find(preferences_dialog.PAGES["Etc."])
        self.assert_clean(self.viewer)


class Translated(PreferencesTest):
    def environment(self):
        plain = {name: value for name, value in super().environment().items()
            if not name.startswith("LC_") and name not in ("LANG", "LANGUAGE")}
        return {**plain, "LANG": "C.UTF-8",
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.home}/no-bus"}

    def test_the_open_dialog_changes_its_language(self):
        dialog = self.open()
        file = os.path.join(self.settings, "locale.conf")
        with open(file, "w", encoding="utf-8") as conf:
            conf.write("LANG=de_DE.UTF-8\n")
        x11.wait_for(lambda: dialog.window.title() == "Einstellungen", "its title is German")
        dialog.find("Kommentar anzeigen(C)", Role.CHECK_BOX)
        dialog.find("Abbrechen", Role.PUSH_BUTTON)
        with open(file, "w", encoding="utf-8") as conf:
            conf.write("LANG=ja_JP.UTF-8\n")
        dialog.find("キャンセル", Role.PUSH_BUTTON)
        dialog.press("キャンセル")
        x11.wait_for(lambda: len(self.screen.windows(self.viewer.process.pid)) == 1,
            "the dialog is hidden")
        self.assert_clean(self.viewer)


class ByAssistiveTechnology(PreferencesTest):
    """What is done by the accessibility bus has the effect of a click or of keys."""

    def toggle(self, item):
        accessibility.act(item, "Toggle", "Press")

    def choose(self, field, label):
        """In the field's menu, which is not opened for it."""
        def item():
            try:
                box = next(item for item in self.dialog.reader.all()
                    if item.get_role() == Role.COMBO_BOX and accessibility.is_showing(item)
                    and accessibility.label_of(item) == field)
                return next(item for item in accessibility.walk(box) if item.get_name() == label)
            except (StopIteration, *accessibility.GONE):
                return None

        self.toggle(x11.wait_for(item, f"there is {label!r}"))
        x11.wait_for(lambda: self.dialog.choice(field) == label, f"{label!r} is chosen")

    def test_every_control_has_its_effect(self):
        dialog = self.open()
        below = self.wait_band(bool, "there is a comment")
        self.toggle(dialog.find("Enable Comment(C)", Role.CHECK_BOX))
        self.wait_band(lambda band: band is None, "there is no comment")
        self.toggle(dialog.find("Enable Comment(C)", Role.CHECK_BOX))
        self.wait_band(lambda band: band == below, "the comment is back")

        self.toggle(dialog.find("Top(T)", Role.RADIO_BUTTON))
        self.wait_band(lambda band: band is not None and band[3] < below[1], "it is at the top")
        self.assertFalse(dialog.is_checked("Bottom(B)"))
        self.toggle(dialog.find("Bottom(B)", Role.RADIO_BUTTON))
        self.wait_band(lambda band: band == below, "it is at the bottom")

        margin = dialog.find("Margin(M):", *preferences_dialog.ENTRIES)
        accessibility.Atspi.EditableText.set_text_contents(margin, "60")
        self.wait_band(lambda band: band is not None and band[0] == below[0] + 40,
            "it is further inside")

        self.toggle(dialog.find("doc", Role.LIST_ITEM))
        x11.wait_for(lambda: dialog.is_enabled("<< Remove(R)"), "a row is selected")

        accessibility.act(dialog.find("Colors", Role.PAGE_TAB), "Press")
        self.choose("Target(T):", "Comment Backgrounds")
        before = self.shown()
        dialog.set_value("Opacity", 10, Role.SLIDER)
        self.wait_changed(before, "the band is lighter")

        accessibility.act(dialog.find("Etc.", Role.PAGE_TAB), "Press")
        self.choose("Display Option(I):", "Scale Image to Window Width")
        dialog.press("OK")
        dialog.wait_hidden()
        self.assert_clean(self.viewer)
        with open(os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_Prefs.arc"),
                "rb") as file:
            self.assertIn(settings_file.int32("DsOp", 4), file.read())


if __name__ == "__main__":
    main()
