"""The help documents tell of every key, menu entry and preference there is, in their language.

    test_help.py BUILD

where BUILD is the folder of the built program, which finds the documents beside itself.
"""

import collections
import glob
import os
import re
import sys
import unicodedata
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DOCUMENT_KEY = "ReadMe_Eng.txt"

# What the documents call the keys of the key table.
KEYS = {
    "B_SPACE": {"en": "Space", "de": "Leertaste", "ja": "スペース"},
    "B_BACKSPACE": {"en": "Backspace", "de": "Rücktaste", "ja": "Backspace"},
    "B_HOME": {"en": "Home", "de": "Pos1", "ja": "Home"},
    "B_END": {"en": "End", "de": "Ende", "ja": "End"},
    "B_PAGE_UP": {"en": "Page Up", "de": "Bild auf", "ja": "Page Up"},
    "B_PAGE_DOWN": {"en": "Page Down", "de": "Bild ab", "ja": "Page Down"},
    "B_UP_ARROW": {"en": "Up", "de": "Auf", "ja": "↑"},
    "B_DOWN_ARROW": {"en": "Down", "de": "Ab", "ja": "↓"},
    "B_LEFT_ARROW": {"en": "Left", "de": "Links", "ja": "←"},
    "B_RIGHT_ARROW": {"en": "Right", "de": "Rechts", "ja": "→"},
    "B_ENTER": {"en": "Enter", "de": "Eingabe", "ja": "Enter"},
    "B_ESCAPE": {"en": "Escape", "de": "Esc", "ja": "Esc"},
    "B_FUNCTION_KEY": {"en": "F5", "de": "F5", "ja": "F5"},
}
COMMAND = {"en": "Ctrl", "de": "Strg", "ja": "Ctrl"}
# Shortcuts that every window of the kits has.
SHORTCUTS_OF_WINDOWS = {"W", "Q"}
SHIFT = {"en": "Shift", "de": "Umschalt", "ja": "Shift"}
# What no table of the sources has: the wheel, and the keys of the first menu and of the picture's.
WHEEL = {"en": "Mouse wheel", "de": "Mausrad", "ja": "マウスホイール"}
FIRST_MENU = "F10"
MENU_KEY = {"en": "Menu", "de": "Menü", "ja": "Menu"}
# The buttons of the preferences do not have a line each.
BUTTONS = {"Add >>", "<< Remove", "Help", "Defaults", "Cancel", "OK"}
# What else the part about preferences has to name.
CHOICES = ["Top", "Bottom", "Shift-JIS", "JIS", "Auto Detect", "Backgrounds", "(None)", "OK",
    "Cancel", "Defaults"]
SHARED_PREFERENCES = ["Accelerator Format: ", "Flat Tool Bar"]

# The parts of a document, which are the same in every language.
TITLE, OPENING, KEYS_PART, MENUS, COMMENTS, HISTORY, PREFERENCES, FILES, LANGUAGE, LIMITS = range(10)


def read(*path):
    with open(os.path.join(ROOT, *path), encoding="utf-8") as file:
        return file.read()


def catalogues():
    """The texts of every language by their keys."""
    found = {}
    for path in glob.glob(os.path.join(ROOT, "resources/catalogues/lorivane_*.ts")):
        language = re.search(r"_(\w+)\.ts$", path).group(1)
        messages = ElementTree.parse(path).iter("message")
        found[language] = {m.findtext("source"): m.findtext("translation") for m in messages}
    return found


def menu_keys():
    source = read("window", "LorivaneWindowMenu.cpp")
    keys = re.findall(r'(?:make_item\(labels|add_menu\(\w+, labels), "([^"]+)"', source)
    keys += re.findall(r'\blabels\("([^"]+)"', source)
    for path in glob.glob(os.path.join(ROOT, "viewer", "*.cpp")):
        if "::AddItems(" in (addition := read(path)):
            keys += re.findall(r'\blabels\("([^"]+)"', addition)
    table = re.search(r"LKK_MITEM_DO[^{]*\{(.*?)\};", read("settings", "DisplayOption.cpp"), re.S)
    return keys + re.findall(r'"([^"]+)"', table.group(1))


def menu_shortcuts():
    source = read("window", "LorivaneWindowMenu.cpp")
    return set(re.findall(r"make_item\([^;]*, '(\w)'\)", source)
        + re.findall(r"SetShortcut\('(\w)'", source))


def view_keys():
    return set(re.findall(r"\bKeyActions kF5\{(B_\w+)|^    \{(B_\w+), &", read(
        "viewer", "LorivaneViewKeys.cpp"), re.M))


def preference_labels():
    labels = re.findall(r'SetLabel\((?:labels|be_locale->GetString)\("([^"]+)"',
        read("settings", "PrefViewLabels.cpp"))
    return [label for label in labels if label not in BUTTONS] + SHARED_PREFERENCES


def parts_of(text):
    """The parts of a document, without their headings."""
    return re.split(r"^\S.*\n(?:=+|-+)\n", text, flags=re.M)[1:]


def entries_of(part):
    """What the lines of a part are about: what stands at the beginning of a line, or indented by
    two blanks and before two more."""
    entries = collections.Counter()
    for line in part.splitlines():
        found = re.match(r"(?:  )?(\S.*?)(?:  |$)", line)
        if found and not line.startswith("   "):
            entries.update(name.split(" / ")[-1] for name in re.split(", |、", found.group(1)))
    return entries


def plain(label):
    """A label without what only decorates its end."""
    return re.sub(r"(\.\.\.|\s*\[.*\]|[:：]\s*|\s+)$", "", label)


def squeezed(text, language):
    """Without the line ends, which in Japanese may stand within a word."""
    return re.sub(r"\s+", "" if language == "ja" else " ", text)


def columns(line):
    return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in line)


class HelpDocuments(unittest.TestCase):
    build = None

    def setUp(self):
        self.catalogues = catalogues()
        self.names = {language: texts.get(DOCUMENT_KEY, DOCUMENT_KEY)
            for language, texts in self.catalogues.items()}
        self.texts = {language: read("resources/help", name)
            for language, name in self.names.items()}

    def part(self, language, number):
        return parts_of(self.texts[language])[number]

    def assertHasEntries(self, language, number, names):
        missing = collections.Counter(names) - entries_of(self.part(language, number))
        self.assertFalse(missing, f"{self.names[language]} does not tell of them")

    def test_every_language_has_its_own(self):
        self.assertEqual(set(self.names), {"de", "en", "ja"})
        self.assertEqual(len(set(self.names.values())), len(self.names))

    def test_have_the_same_parts(self):
        for language, text in self.texts.items():
            self.assertEqual(len(parts_of(text)), LIMITS + 1, self.names[language])

    def test_no_document_is_left_over(self):
        there = {os.path.basename(path)
            for path in glob.glob(os.path.join(ROOT, "resources/help/ReadMe_*.txt"))}
        self.assertEqual(there, set(self.names.values()))

    def test_are_plain_text_of_lines_that_a_terminal_shows(self):
        for language, text in self.texts.items():
            self.assertNotRegex(text, "[\t\r\ufeff]", self.names[language])
            self.assertTrue(text.endswith("\n"))
            for line in text.splitlines():
                self.assertLessEqual(columns(line), 80, f"{self.names[language]}: {line}")

    def test_tell_of_every_key(self):
        keys = {a or b for a, b in view_keys()}
        self.assertEqual(keys, set(KEYS), "the table of names here is not that of the viewer")
        letters = re.findall(r"case '(\w)'", read("viewer", "LorivaneViewKeys.cpp"))
        self.assertTrue(letters)
        for language in self.texts:
            names = {KEYS[key][language] for key in keys} | {letter.upper() for letter in letters}
            self.assertHasEntries(language, KEYS_PART, names | {WHEEL[language], FIRST_MENU,
                MENU_KEY[language], f"{SHIFT[language]}+{FIRST_MENU}"})

    def test_tell_of_every_shortcut(self):
        shortcuts = menu_shortcuts()
        self.assertTrue({"F", "L", "I", "P", "O"} <= shortcuts)
        for language in self.texts:
            command = COMMAND[language]
            self.assertHasEntries(language, KEYS_PART,
                [f"{command}+{letter}" for letter in shortcuts | SHORTCUTS_OF_WINDOWS])
            for number in "09":
                self.assertIn(
                    f"{command}+{SHIFT[language]}+{number}", self.part(language, KEYS_PART))

    def test_tell_of_every_menu_entry(self):
        keys = menu_keys()
        self.assertGreater(len(keys), 20)
        for language, texts in self.catalogues.items():
            self.assertHasEntries(
                language, MENUS, [plain(texts.get(key, key)) for key in keys])

    def test_tell_of_every_preference(self):
        labels = preference_labels()
        self.assertGreater(len(labels), 15)
        for language, texts in self.catalogues.items():
            # Of two buttons in a box, the box's entry tells.
            self.assertHasEntries(language, PREFERENCES, [plain(texts.get(label, label))
                for label in labels if label not in CHOICES])
            part = squeezed(self.part(language, PREFERENCES), language)
            for key in CHOICES:
                if language != "en":
                    self.assertIn(key, texts, "no such text any more")
                self.assertIn(squeezed(plain(texts.get(key, key)), language), part,
                    self.names[language])

    def test_tell_of_every_file_that_is_written(self):
        files = {f"Shared/{name}.arc"
            for name in re.findall(r'Item\[\] = "(\w+)"', read("iap", "ItemNames.h"))}
        for folder in ("app", "window", "settings", "iap"):
            for path in glob.glob(os.path.join(ROOT, folder, "*.cpp")):
                names = re.findall(r'"(\w+\.arc)"', read(path))
                files.update(f"Lorivane/{name}" for name in names)
        self.assertEqual(len(files), 6)
        for language in self.texts:
            self.assertHasEntries(language, FILES, files)

    def test_tell_of_every_option(self):
        options = set(re.findall(r"^  (--\w+)", read("app", "Usage.cpp"), re.M))
        self.assertIn("--help", options)
        for language, text in self.texts.items():
            for option in options:
                self.assertIn(option, text, self.names[language])

    def test_tell_of_every_setting_outside_of_the_program(self):
        settings = {"locale.conf"}
        for path in glob.glob(os.path.join(ROOT, "kits", "*", "*.cpp")):
            settings.update(re.findall(r'getenv\("(KITS_\w+)"\)', read(path)))
        self.assertGreater(len(settings), 1)
        for language, text in self.texts.items():
            for name in settings:
                self.assertIn(name, text, self.names[language])

    def test_lie_beside_the_program(self):
        for language, name in self.names.items():
            with open(os.path.join(self.build, name), encoding="utf-8") as file:
                self.assertEqual(file.read(), self.texts[language])


if __name__ == "__main__":
    HelpDocuments.build = sys.argv.pop(1)
    unittest.main()
