"""The base of the tests of the menus, and what is in them."""

import accessibility
from accessibility import Role
from viewer_test import ViewerTest, color_of, x11

LINE = None  # a separator

# Each menu with its items; one that has items of its own is a pair. Of the files opened before
# there is the one that open() opens.
MENUS = [
    ("File(F)", [
        ("Open(O)...", ["p002.png(0)", LINE, "Delete All MRUFs(D)"]),
        LINE,
        "Quit(Q)",
    ]),
    ("View(V)", [
        "First Image(F) [Home]", "Previous Image(P) [Backspace]", "Next Image(N) [Space]",
        "Last Image(L) [End]",
        LINE,
        "Full Screen(U) [Enter]",
        LINE,
        "Don't Fit Anything(D)", "Fit Window to Image(W)", "Fit Image to Window(I)",
        "Scale Image to Window(S)", "Scale Image to Window Width(X)",
        "Scale Image to Window Height(Y)",
        LINE,
        "Enable Comment(C)",
    ]),
    ("Tool(T)", [
        "Show Image Information(I)...",
        LINE,
        "Preferences(P)...", "ZELKAN Common Preferences(S)...",
    ]),
    ("Help(H)", ["Help(H)", "About(A)..."]),
]
OPTIONS = MENUS[1][1][7:13]
COMMENT = "Enable Comment(C)"

COUNT, START = 5, 2


def names(hint):
    """The same menus with another hint for the letters."""
    def changed(label):
        letter = label[label.index("(") + 1]
        return hint(label.replace(f"({letter})", ""), letter)

    def menu(entries):
        return [LINE if entry is LINE else
            (changed(entry[0]), menu(entry[1])) if isinstance(entry, tuple) else changed(entry)
            for entry in entries]

    return menu(MENUS)


class MenuTest(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def open(self):
        self.pictures(COUNT)
        viewer = self.start(self.path(f"p{START:03}.png"))
        self.at(viewer, START)
        viewer.wait_idle()
        self.reader = accessibility.Reader(viewer)
        # The file comes into its menu a little later than on the screen.
        x11.wait_for(lambda: len(self.tree()) == 4 and len(self.recent()) > 2,
            lambda: f"four menus; {self.tree()}")
        return viewer

    def at(self, viewer, index):
        viewer.wait_shown(f"p{index:03}.png")
        viewer.wait_centre(color_of(index))

    def tree(self):
        def read(item):
            found = []
            for entry in accessibility.entries(item):
                below = accessibility.entries(entry)
                if entry.get_role() == Role.SEPARATOR:
                    found.append(LINE)
                else:
                    found.append((entry.get_name(), read(entry)) if below else entry.get_name())
            return found

        return read(self.reader.menu_bar())

    def recent(self):
        """The entries of the menu of the files opened before, its own items included; none while
        the menus are being exchanged."""
        entries = self.tree()
        for _level in range(2):
            if not entries or not isinstance(entries[0], tuple):
                return []
            entries = entries[0][1]
        return entries

    def item(self, *path):
        return self.reader.menu(*path)

    def is_open(self, name):
        """Whether a menu's first item, a separator apart, is on the screen."""
        return any(accessibility.is_showing(entry)
            for entry in accessibility.entries(self.item(name))
            if entry.get_role() != Role.SEPARATOR)

    def wait_open(self, *menus):
        """Until these menus of the bar are open and no others."""
        def found():
            return [name for name, _entries in MENUS if self.is_open(name)]

        x11.wait_for(lambda: found() == list(menus),
            lambda: f"open are {menus}; there are {found()}")

    def click(self, *path):
        """With the mouse, once it is where it stays."""
        def place():
            box = accessibility.extents(self.item(*path))
            return box if box[2] > 1 and box[3] > 1 and box[0] >= 0 and box[1] >= 0 else None

        left, top, width, height = x11.wait_for(place, f"{path} has a place on the screen")
        self.screen.click(left + min(width, 40) // 2, top + height // 2)

    def marked(self):
        return [label for label in OPTIONS + [COMMENT]
            if accessibility.is_marked(self.item("View(V)", label))]

    def wait_marked(self, *labels):
        x11.wait_for(lambda: self.marked() == list(labels),
            lambda: f"marked are {labels}; there are {self.marked()}")

    # Other windows of the program.

    def windows(self, viewer, title):
        return [window for window in self.screen.windows(viewer.process.pid)
            if window.title() == title]

    def wait_window(self, viewer, title):
        """The first window of that title, with the keyboard in it."""
        window = x11.wait_for(lambda: next(iter(self.windows(viewer, title)), None), lambda:
            f"there is {title!r}; {[w.title() for w in self.screen.windows(viewer.process.pid)]}")
        window.activate()
        return window

    def wait_windows(self, viewer, title, count):
        x11.wait_for(lambda: len(self.windows(viewer, title)) == count,
            lambda: f"{count} of {title!r}; {len(self.windows(viewer, title))}")

    def wait_text(self, text):
        """Until some item of the program, such as the text of an alert, says that."""
        def found():
            try:
                return any(text in item.get_name() for item in self.reader.all())
            except accessibility.GONE:
                return False

        x11.wait_for(found, lambda: f"something says {text!r}")
