"""The help documents tell of every key, menu entry and preference there is, in their language.

    test_help.py BUILD

where BUILD is the folder of the built program, which finds the documents beside itself.
"""

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
PREFERENCES = [
    "Enable Comment", "Position", "Top", "Bottom", "Margin: ", "Padding: ", "Font: ", "Size: ",
    "Extension of Comment File: ", "Encoding: ", "Shift-JIS", "JIS", "Auto Detect", "Colors",
    "Target: ", "Backgrounds", "Opacity", "Etc.", "Display Option: ", "Enable Pre-load", "OK",
    "Cancel", "Defaults", "ZELKAN Common Preferences", "Accelerator Format: ", "(None)",
    "Flat Tool Bar",
]


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
    table = re.search(r"LKK_MITEM_DO[^{]*\{(.*?)\};", read("viewer", "DisplayOption.cpp"), re.S)
    return keys + re.findall(r'"([^"]+)"', table.group(1))


def menu_shortcuts():
    source = read("window", "LorivaneWindowMenu.cpp")
    return set(re.findall(r"make_item\([^;]*, '(\w)'\)", source)
        + re.findall(r"SetShortcut\('(\w)'", source))


def view_keys():
    return set(re.findall(r"\bKeyActions kF5\{(B_\w+)|^    \{(B_\w+), &", read(
        "viewer", "LorivaneViewKeys.cpp"), re.M))


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

    def assertTells(self, language, words):
        text = squeezed(self.texts[language], language)
        words = squeezed(words, language)
        # Letters of other words do not count, where words have ends.
        pattern = re.escape(words) if language == "ja" else rf"(?<!\w){re.escape(words)}(?!\w)"
        self.assertRegex(text, pattern, f"{self.names[language]} does not tell of it")

    def test_every_language_has_its_own(self):
        self.assertEqual(set(self.names), {"de", "en", "ja"})
        self.assertEqual(len(set(self.names.values())), len(self.names))

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
        for language in self.texts:
            for key in keys:
                self.assertTells(language, KEYS[key][language])
            for letter in re.findall(r"case '(\w)'", read("viewer", "LorivaneViewKeys.cpp")):
                self.assertTells(language, letter.upper())

    def test_tell_of_every_shortcut(self):
        shortcuts = menu_shortcuts()
        self.assertTrue({"F", "L", "I", "P", "O"} <= shortcuts)
        for language in self.texts:
            for letter in shortcuts | SHORTCUTS_OF_WINDOWS:
                self.assertTells(language, f"{COMMAND[language]}+{letter}")

    def test_tell_of_every_menu_entry(self):
        keys = menu_keys()
        self.assertGreater(len(keys), 20)
        for language, texts in self.catalogues.items():
            for key in keys:
                self.assertTells(language, plain(texts.get(key, key)))

    def test_tell_of_every_preference(self):
        for language, texts in self.catalogues.items():
            for key in PREFERENCES:
                if language != "en":
                    self.assertIn(key, texts, "no such text any more")
                self.assertIn(squeezed(plain(texts.get(key, key)), language),
                    squeezed(self.texts[language], language), self.names[language])

    def test_tell_of_every_file_that_is_written(self):
        files = set()
        for folder in ("app", "window", "settings", "iap"):
            for path in glob.glob(os.path.join(ROOT, folder, "*.cpp")):
                files.update(re.findall(r'"(\w+\.arc)"', read(path)))
        self.assertGreaterEqual(len(files), 3)
        for language, text in self.texts.items():
            for name in files:
                self.assertIn(name, text, self.names[language])

    def test_tell_of_every_option(self):
        options = set(re.findall(r"^  (--\w+)", read("app", "Usage.cpp"), re.M))
        self.assertIn("--help", options)
        for language, text in self.texts.items():
            for option in options:
                self.assertIn(option, text, self.names[language])

    def test_lie_beside_the_program(self):
        for language, name in self.names.items():
            with open(os.path.join(self.build, name), encoding="utf-8") as file:
                self.assertEqual(file.read(), self.texts[language])


if __name__ == "__main__":
    HelpDocuments.build = sys.argv.pop(1)
    unittest.main()
