"""The catalogues hold every text that the application shows, and lose nothing of it."""

import collections
import glob
import importlib.util
import os
import re
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FOLDERS = ["app", "viewer", "comment", "window", "settings", "iap", "framework"]
SOURCE_LANGUAGE = "en"
LANGUAGES = ["de", "en", "ja"]
CONTEXT = "Lorivane"

# What takes a key: the first text within the parentheses is one.
CALLS = re.compile(r"\b(?:be_locale->GetString|labels|make_item|add_menu|local_text_with"
    r"|local_text_with_app|local_name|local_caption)\(")
# Tables of keys, and the row that stands for a separator.
TABLES = re.compile(r"\bLKK_\w+[^=;(){}]*=\s*(?=\{)")
SEPARATOR = "-"
# Names that are shown: keys wherever they are written down.
NAMES = {"Lorivane", "ZELKAN"}
PLACEHOLDER = re.compile(r"%[A-Z][A-Za-z]*%")
# A text that reads like one for the user, wherever it stands.
READS_LIKE_A_TEXT = re.compile(r"@.*@|[A-Z].* \S.*|.*\w\.\.\.|.*\w: ", re.S)
# Texts that only programmers see.
NOT_SHOWN = {"Swis721 BT"}

# Keys that dialogs of other folders, or archived layouts, bring.
BROUGHT = {
    "Just a moment...",
}

TOKEN = re.compile(r"""
      (?P<comment>//[^\n]*|/\*.*?\*/)
    | (?P<raw>R"(?P<end>[^(\s]*)\(.*?\)(?P=end)")
    | (?P<text>"(?:\\.|[^"\\\n])*")
    | (?P<character>'(?:\\.|[^'\\\n])*')
    | (?P<directive>^[ ]*\#[^\n]*)
    | (?P<blank>\s+)
    | (?P<other>.)
    """, re.S | re.M | re.X)


def unescaped(text):
    simple = {"n": "\n", "t": "\t", '"': '"', "'": "'", "\\": "\\"}

    def byte(match):
        if match.group(1).startswith("x"):
            return chr(int(match.group(1)[1:], 16))
        return simple.get(match.group(1), match.group(1))

    plain = re.sub(r"\\(x[0-9a-fA-F]{2}|.)", byte, text)
    try:
        return plain.encode("latin-1").decode("utf-8")  # bytes written in hexadecimal
    except (UnicodeEncodeError, UnicodeDecodeError):
        return plain


def split_source(source):
    """The code with a mark in place of each literal, and the literals, neighbours joined. Raw
    strings are no texts of the user interface; they are left out."""
    code, literals = [], []
    joins = False
    for match in TOKEN.finditer(source):
        kind = match.lastgroup if match.lastgroup != "end" else "raw"
        if kind == "text" and joins:
            literals[-1] += unescaped(match.group()[1:-1])
        elif kind == "text":
            code.append(f"\0{len(literals)}\0")
            literals.append(unescaped(match.group()[1:-1]))
        elif kind in ("other", "character"):
            code.append(match.group() if kind == "other" else "0")
        elif kind == "blank":
            code.append(" ")
        joins = kind == "text" or joins and kind in ("blank", "comment")
    return "".join(code), literals


def matching_end(code, start):
    """Behind the bracket that closes the one before start."""
    depth = 1
    for place in range(start, len(code)):
        depth += (code[place] in "([{") - (code[place] in ")]}")
        if depth == 0:
            return place
    return len(code)


def keys_of(source):
    """The keys that a source file uses, and what else in it reads like a text for the user."""
    code, literals = split_source(source)

    def between(start, end):
        return [literals[int(number)] for number in re.findall("\0(\\d+)\0", code[start:end])]

    keys = set()
    for match in CALLS.finditer(code):
        keys.update(between(match.end(), matching_end(code, match.end()))[:1])
    for match in TABLES.finditer(code):
        keys.update(between(match.end(), matching_end(code, match.end() + 1)))
    keys.update(NAMES.intersection(literals))
    keys.discard(SEPARATOR)
    keys = {key for key in keys if PLACEHOLDER.sub("", key)}
    loose = {text for text in literals if READS_LIKE_A_TEXT.fullmatch(text)} - keys - NOT_SHOWN
    return keys, loose


def collect(root):
    keys, loose = set(), {}
    for folder in FOLDERS:
        for path in sorted(glob.glob(os.path.join(root, folder, "*.cpp"))
                + glob.glob(os.path.join(root, folder, "*.h"))):
            with open(path, encoding="utf-8") as file:
                found, left = keys_of(file.read())
            keys |= found
            for text in left:
                loose.setdefault(text, os.path.relpath(path, root))
    return keys, loose


def decoration(text):
    """What must stay at the ends of a text, since labels are taken apart by it."""
    ends = []
    if re.search(r"\.\.\.$", text):
        ends.append("...")
    if re.search(r" \[[^\]]+\]$", text):
        ends.append("[ ]")
    if re.search(r"(?:: |\uff1a)$", text):
        ends.append(":")
    for mark in ("<< ", " >>", "* ", " *"):
        if text.startswith(mark) if mark.endswith(" ") else text.endswith(mark):
            ends.append(mark)
    return ends


def text_faults(key, text):
    if not text.strip():
        return [f"{key!r} has no text"]
    faults = []
    if collections.Counter(PLACEHOLDER.findall(key)).keys() != \
            collections.Counter(PLACEHOLDER.findall(text)).keys():
        faults.append(f"{key!r} has other placeholders in {text!r}")
    if not key.startswith("@") and decoration(key) != decoration(text):
        faults.append(f"{key!r} ends otherwise in {text!r}")
    # Either would be read as the hint of a shortcut.
    if re.search(r"\([ -~]\)|^[ -~][) \u30fb]", text):
        faults.append(f"{key!r} seems to have a shortcut in {text!r}")
    if "@" in text or "&" in text:
        faults.append(f"{key!r} has a stray sign in {text!r}")
    return faults


def read(path):
    """The texts of a catalogue by key, and its faults."""
    texts, faults = {}, []
    root = ElementTree.parse(path).getroot()
    contexts = [context.findtext("name") for context in root.findall("context")]
    if contexts != [CONTEXT]:
        faults.append(f"its contexts are {contexts}")
    for message in root.iter("message"):
        key, translation = message.findtext("source"), message.find("translation")
        if key in texts:
            faults.append(f"{key!r} is there twice")
        if translation is None or translation.get("type"):
            faults.append(f"{key!r} is not finished")
        texts[key] = "" if translation is None else translation.text or ""
        # An asterisk surrounds the title of an alert.
        if not (key.startswith("* ") and texts[key] == key):
            faults += text_faults(key, texts[key])
    return texts, faults


def check(root, brought=frozenset()):
    """All faults of the project below root, as lines of text."""
    keys, loose = collect(root)
    faults = []
    catalogues = {}
    for language in LANGUAGES:
        path = os.path.join(root, f"resources/catalogues/lorivane_{language}.ts")
        catalogues[language], own = read(path)
        faults += [f"{language}: {fault}" for fault in own]
    known = set().union(*catalogues.values())

    # The name of a relabelled control is its shortcut's letter and its label's key.
    named = {text[1:] for text in loose if text[1:] in known}
    loose = {text: path for text, path in loose.items() if text[1:] not in known}
    # A key that reaches the locale service by a variable.
    indirect = {text for text in loose if text in known}
    faults += [f"{path}: {text!r} reads like a text to show, and is no key"
        for text, path in loose.items() if text not in known]

    wanted = keys | named | indirect | brought
    for language, texts in catalogues.items():
        needed = wanted if language != SOURCE_LANGUAGE else {key for key in wanted if key[0] == "@"}
        faults += [f"{language}: {key!r} is missing" for key in sorted(needed - texts.keys())]
        faults += [f"{language}: {key!r} is not used" for key in sorted(texts.keys() - wanted)]
    return faults


class Catalogues(unittest.TestCase):
    def test_the_project(self):
        self.assertEqual(check(ROOT, BROUGHT), [])

    def test_keys_are_found(self):
        keys, _loose = collect(ROOT)
        self.assertGreaterEqual(keys,
            {"Lorivane", "Open...", "Next Image [Space]", "Scale Image to Window Height", "Quit"})


class CheckItself(unittest.TestCase):
    """Broken samples of a project, each with what is to be said of it."""

    TEXTS = {
        "en": {"@Err_Bad@": "Bad."},
        "de": {"@Err_Bad@": "Schlecht.", "Open...": "Öffnen...", "Size: ": "Größe: ",
            "About %AppName%": "Über %AppName%", "Next [Space]": "Weiter [Leertaste]"},
        "ja": {"@Err_Bad@": "だめ。", "Open...": "開く...", "Size: ": "大きさ：",
            "About %AppName%": "%AppName% について", "Next [Space]": "次 [Space]"},
    }
    CODE = """
        // be_locale->GetString("Commented out ...")
        const char LKK_TABLE[2][32] = {"Open...", "-"};
        text = be_locale->GetString("@Err_Bad@") + labels("Size: ", "S");
        add(make_item(labels, "About "
            "%AppName%", "A", 'x'), new View("NNext [Space]"));
        constexpr char kField[] = "IAP:SrcApp";
        """

    def faults(self, code=None, change=None, brought=frozenset()):
        texts = {language: list(entries.items()) for language, entries in self.TEXTS.items()}
        if change:
            change(texts)
        with tempfile.TemporaryDirectory(prefix="lorivane-test-") as root:
            os.makedirs(os.path.join(root, "resources/catalogues"))
            os.mkdir(os.path.join(root, "app"))
            with open(os.path.join(root, "app/App.cpp"), "w", encoding="utf-8") as file:
                file.write(self.CODE + (code or ""))
            for language, entries in texts.items():
                path = os.path.join(root, f"resources/catalogues/lorivane_{language}.ts")
                tree = ElementTree.Element("TS")
                context = ElementTree.SubElement(tree, "context")
                ElementTree.SubElement(context, "name").text = CONTEXT
                for key, text, *kind in entries:
                    message = ElementTree.SubElement(context, "message")
                    ElementTree.SubElement(message, "source").text = key
                    translation = ElementTree.SubElement(message, "translation")
                    translation.text = text
                    if kind:
                        translation.set("type", kind[0])
                ElementTree.ElementTree(tree).write(path, "utf-8")
            return check(root, brought)

    def german(self, key, text, *kind):
        def change(texts):
            texts["de"] = [(name, old) if name != key else (key, text, *kind)
                for name, old in texts["de"]]
        return self.faults(change=change)

    def test_a_good_project_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_missing_keys(self):
        for code, key in [
                ('be_locale->GetString("New")', "New"),
                ('be_locale->GetString(big ? "New" : small)', "New"),
                ('local_text_with("New", "%FileName%", name)', "New"),
                ('add_menu(bar, labels, "New", "N")', "New"),
                ('const char* const LKK_OTHER[] = {"Open...", "New"};', "New"),
                ('const char* name = "Lorivane";', "Lorivane")]:
            self.assertEqual(self.faults(code), [f"de: {key!r} is missing", f"ja: {key!r} is missing"],
                code)
        self.assertEqual(self.faults('be_locale->GetString("@Ask_It@")'),
            [f"{language}: '@Ask_It@' is missing" for language in LANGUAGES])
        self.assertEqual(self.faults(brought={"Later"}),
            ["de: 'Later' is missing", "ja: 'Later' is missing"])

    def test_texts_that_are_no_keys(self):
        for text in ["Save...", "@Ask_It@", "Width: ", "Two words"]:
            self.assertEqual(self.faults(f'SetText("{text}")'),
                [f"app/App.cpp: {text!r} reads like a text to show, and is no key"])
        self.assertEqual(self.faults('const char* key = "Open...";'), [])
        self.assertEqual(self.faults('R"(Usage: one, two)";'), [])

    def test_unused_keys(self):
        self.assertEqual(self.faults(change=lambda texts: texts["ja"].append(("Old", "x"))),
            ["ja: 'Old' is not used"])

    def test_doubled_and_unfinished_entries(self):
        self.assertEqual(
            self.faults(change=lambda texts: texts["ja"].append(("Size: ", "大きさ: "))),
            ["ja: 'Size: ' is there twice"])
        self.assertEqual(self.german("Size: ", "Größe: ", "unfinished"),
            ["de: 'Size: ' is not finished"])
        self.assertEqual(self.german("Size: ", ""), ["de: 'Size: ' has no text"])
        self.assertEqual(self.german("Size: ", "  "), ["de: 'Size: ' has no text"])

    def test_lost_parts(self):
        for key, text in [("Open...", "Öffnen"), ("Open...", "Öffnen…"), ("Size: ", "Größe"),
                ("Size: ", "Größe:"), ("Next [Space]", "Weiter"), ("Next [Space]", "Weiter...")]:
            self.assertEqual(self.german(key, text), [f"de: {key!r} ends otherwise in {text!r}"])
        for text in ["Über", "Über %FileName%", "Über %AppNam%", "Über %AppName% %FileName%"]:
            self.assertEqual(self.german("About %AppName%", text),
                [f"de: 'About %AppName%' has other placeholders in {text!r}"])
        self.assertEqual(self.german("About %AppName%", "%AppName%: %AppName%"), [])

    def test_what_looks_like_a_shortcut(self):
        for text in ["Auf(A)...", "A ...", "A)..."]:
            self.assertIn(f"de: 'Open...' seems to have a shortcut in {text!r}",
                self.german("Open...", text))
        self.assertEqual(self.german("Open...", "&Auf..."),
            ["de: 'Open...' has a stray sign in '&Auf...'"])


class InTheProgram(unittest.TestCase):
    def setUp(self):
        path = os.path.join(ROOT, "cmake/embed_catalogues.py")
        spec = importlib.util.spec_from_file_location("embed_catalogues", path)
        self.script = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(self.script)

    def test_texts_are_written_as_plain_literals(self):
        for text, written in [("Open...", '"Open..."'), ("ä", r'"\303\244"'),
                ('"a\\b"', r'"\042a\134b\042"'), ("1\n2??/", r'"1\0122\077\077/"')]:
            self.assertEqual(self.script.literal(text), written)

    def test_what_is_not_translated_is_left_out(self):
        messages = [("Done", "Fertig", ""), ("Empty", "", ""),
            ("Begun", "Begon", ' type="unfinished"'), ("Old", "Alt", ' type="vanished"')]
        with tempfile.NamedTemporaryFile("w", suffix=".ts") as file:
            file.write("<TS><context>" + "".join(
                f"<message><source>{key}</source><translation{kind}>{text}</translation></message>"
                for key, text, kind in messages) + "</context></TS>")
            file.flush()
            self.assertEqual(list(self.script.texts(file.name)), [("Done", "Fertig")])


if __name__ == "__main__":
    unittest.main(verbosity=2)
