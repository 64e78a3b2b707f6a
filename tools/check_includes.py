#!/usr/bin/env python3
"""Checks that every file includes only what its room may include (docs/architecture.md), that a
source includes its own header before anything else, so that the header is shown to stand alone, and
that a header may be included twice.

    check_includes.py [ROOT]

Prints one line for each fault and exits with 1 when there is one.
"""

import os
import re
import sys

# From the lowest to the highest: each may include those before it.
APPLICATION = ["framework", "iap", "settings", "comment", "viewer", "window", "app"]
KITS = ["app", "interface", "storage", "translation", "support", "locale", "kernel"]
HEADER_ENDINGS = (".h", ".hpp")
SOURCE_ENDINGS = HEADER_ENDINGS + (".cpp", ".cc")

STANDARD_HEADERS = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv
    chrono cinttypes climits clocale cmath codecvt compare complex concepts condition_variable
    coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar
    cwctype deque exception execution filesystem format forward_list fstream functional future
    initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map
    memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio
    regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view syncstream system_error thread tuple type_traits
    typeindex typeinfo unordered_map unordered_set utility valarray variant vector version""".split()
)

INCLUDE = re.compile(r'^\s*#\s*(?:include|include_next|import)\s*([<"])([^>"]*)[>"]')
ONCE = re.compile(r"^#pragma once$", re.M)
# What a file may reach besides #include.
EMBEDDED = re.compile(r"__has_include\s*\(\s*([<\"])([^>\"]*)[>\"]")


class Tree:
    """The files of the project, and where an include leads within it."""

    def __init__(self, root):
        self.root = root
        self.qt_translator = qt_translator_files(self)

    def exists(self, path):
        return os.path.isfile(os.path.join(self.root, path))

    def resolve(self, includer, name):
        """The project's file an include names, relative to the root, or None for a foreign one."""
        beside = os.path.normpath(os.path.join(os.path.dirname(includer), name))
        for candidate in (beside, os.path.normpath(name), os.path.join("kits/include", name)):
            if not candidate.startswith("..") and self.exists(candidate):
                return candidate
        return None

    def sources(self, folder):
        for here, folders, files in os.walk(os.path.join(self.root, folder)):
            folders[:] = sorted(f for f in folders if not f.startswith("."))
            for name in sorted(files):
                if name.endswith(SOURCE_ENDINGS):
                    yield os.path.relpath(os.path.join(here, name), self.root)


def foreign_kind(name):
    """What kind of header a name outside of the project is."""
    if name in STANDARD_HEADERS:
        return "standard"
    if re.match(r"(Q[A-Za-z0-9]*(/|$)|q[a-z]+\.h$|qpa/|private/q)", name):
        return "qt"
    if name.split("/")[0] in ("gtest", "gmock", "benchmark"):
        return "test"
    if re.match(r"(jpeg|jerror|jconfig|turbojpeg|png|pngconf|tiff|gif_lib|lcms2|zlib)\w*\.h$", name) \
            or name.split("/")[0] in ("webp", "libheif", "avif", "jxl"):
        return "codec"
    if name.split("/")[0] == "dbus":
        return "dbus"
    if name.split("/")[0] in KITS and name.endswith(".h"):
        return "missing kit"
    return "system"


def room_of(path):
    """The room a file lies in: its folder of the table, the longest that is named."""
    parts = path.split("/")
    if parts[0] in APPLICATION:
        return "application"
    if parts[0] == "kits" and len(parts) > 2:
        if parts[1] in KITS:
            return "kit"
        if parts[1] in ("include", "desktop", "translators"):
            return parts[1]
    if parts[:3] in (["tests", "kits", "desktop"], ["tests", "kits", "translators"]):
        return "kits tests"
    if parts[:3] == ["tests", "settings", "desktop"]:
        return "desktop tests"
    return parts[0]


# Which of the project's rooms, and which kinds of foreign header, a room may include. A room that
# is not named here may include nothing of the project; a new folder needs a line of its own.
MAY_INCLUDE = {
    "application": ({"application", "include"}, {"standard"}),
    "include": ({"include"}, {"standard"}),
    "kit": ({"kit", "include"}, {"standard", "system", "dbus"}),
    "desktop": ({"desktop", "kit", "include"}, {"standard", "system", "dbus", "qt"}),
    "translators": ({"translators", "kit", "include"}, {"standard", "system", "codec", "qt"}),
    # What runs in builds only.
    "resources": ({"resources", "kit", "include"}, {"standard", "qt"}),
    "tests": ({"tests", "application", "resources", "kit", "include", "fuzz"},
        {"standard", "system", "dbus", "codec", "test"}),
    "kits tests": ({"kits tests", "tests", "translators", "desktop", "kit", "include"},
        {"standard", "system", "dbus", "codec", "qt", "test"}),
    # The application's windows on the real display.
    "desktop tests": ({"desktop tests", "kits tests", "tests", "application", "kit", "include"},
        {"standard", "system", "qt", "test"}),
    "examples": ({"examples", "application", "include"}, {"standard"}),
    "fuzz": ({"fuzz", "tests", "application", "translators", "kit", "include"},
        {"standard", "system"}),
    "bench": ({"bench", "tests", "examples", "application", "desktop", "translators", "kit",
        "include"},
        {"standard", "system", "codec", "qt"}),
}

# Single headers beyond the table, each with its reason.
EXCEPTIONS = {
    # The platform's own SupportDefs.h brings ssize_t, off_t and mode_t with it.
    ("kits/include/support/SupportDefs.h", "sys/types.h"),
    # And its Statable.h the struct that GetStat() fills.
    ("kits/include/storage/Statable.h", "sys/stat.h"),
}


def qt_translator_files(tree):
    """The names, without endings, of the translator sources that are built only with Qt, by the
    build's own list."""
    path = os.path.join(tree.root, "kits/translators/CMakeLists.txt")
    if not os.path.isfile(path):
        return set()
    with open(path, encoding="utf-8") as file:
        text = file.read()
    with_qt, without = set(), set()
    for sources, libraries in re.findall(
            r"add_translator\(\s*\S+\s+SOURCES([^)]*?)LIBRARIES([^)]*)\)", text):
        stems = {os.path.splitext(name)[0] for name in sources.split()}
        (with_qt if "Qt6::" in libraries else without).update(stems)
    return with_qt - without


def includes(text):
    """The line number, the bracket and the name of every include that is not in a comment."""
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group().count("\n"), text, flags=re.S)
    for number, line in enumerate(text.split("\n"), 1):
        line = re.sub(r"^([^\"<]*?)//.*", r"\1", line)
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1), match.group(2)
        for match in EMBEDDED.finditer(line):
            yield number, match.group(1), match.group(2)


def fault(tree, path, bracket, name):
    """What is wrong with this include, or None."""
    room = room_of(path)
    rooms, kinds = MAY_INCLUDE.get(room, (set(), {"standard"}))
    target = tree.resolve(path, name)
    # A file named as a standard header is found only with quotes.
    if bracket == "<" and name in STANDARD_HEADERS:
        target = None
    if target is None:
        kind = foreign_kind(name)
        if bracket == '"' and kind in ("standard", "system"):
            return "no such file in this project"
        if (path, name) in EXCEPTIONS:
            return None
        if kind == "qt" and room == "translators" and os.path.splitext(
                os.path.basename(path))[0] not in tree.qt_translator:
            return "Qt belongs into kits/desktop and the Qt translator"
        if kind == "missing kit":
            return "no such header in kits/include"
        if kind not in kinds:
            return f"a {kind} header has no place in this room ({room})"
        return None
    other = room_of(target)
    if other == "include" and bracket == '"':
        return "the kits' public headers are included with <>"
    if other not in rooms and (path, name) not in EXCEPTIONS:
        return f"{target} lies in a room ({other}) that this one ({room}) may not include"
    if other == room == "application":
        folder, own = target.split("/")[0], path.split("/")[0]
        if APPLICATION.index(folder) > APPLICATION.index(own):
            return f"{folder} is built on {own}, not the other way"
    return None


def own_header(tree, path):
    """How a source has to include its own header, or None when it has none."""
    stem, ending = os.path.splitext(path)
    if ending != ".cpp":
        return None
    if tree.exists(stem + ".h"):
        return f'"{stem}.h"'
    parts = stem.split("/")
    if len(parts) == 3 and room_of(path) == "kit" \
            and tree.exists(f"kits/include/{parts[1]}/{parts[2]}.h"):
        return f"<{parts[1]}/{parts[2]}.h>"
    return None


def order_fault(tree, path, found):
    """The line number and what is wrong with how the file begins, or None. found: its includes."""
    own = own_header(tree, path)
    if own is None:
        return None
    number, bracket, name = found[0] if found else (1, "", "")
    if bracket + name == own[:-1]:
        return None
    return number, f"the first include is not the file's own header, {own}"


def check(root):
    """The faults of the project below root, as lines of text."""
    tree = Tree(root)
    faults = []
    for folder in APPLICATION + ["kits", "resources", "tests", "fuzz", "bench", "examples"]:
        for path in tree.sources(folder):
            with open(os.path.join(root, path), encoding="utf-8", errors="replace") as file:
                text = file.read()
            if path.endswith(HEADER_ENDINGS) and not ONCE.search(text):
                faults.append(f"{path}:1: no #pragma once")
            found = list(includes(text))
            for number, bracket, name in found:
                reason = fault(tree, path, bracket, name)
                if reason:
                    faults.append(f"{path}:{number}: {name}: {reason}")
            order = order_fault(tree, path, found)
            if order:
                faults.append(f"{path}:{order[0]}: {order[1]}")
    return faults


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(
        os.path.abspath(__file__)))
    faults = check(root)
    for line in faults:
        print(line)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
