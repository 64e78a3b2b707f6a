"""The preferences dialog of a running viewer, used as its user does."""

import accessibility
from accessibility import Role, Value
from viewer_test import x11

TITLE = "Preferences"
# Each tab with something of its page.
PAGES = {"Comment": "Enable Comment(C)", "Colors": "Opacity", "Etc.": "Enable Pre-load(P)"}
KEYS = {".": "period", " ": "space", "-": "minus"}
ENTRIES = {Role.TEXT, Role.ENTRY}


class Dialog:
    """Opened from the viewer, and moved to where it covers nothing of it."""

    def __init__(self, viewer, title=TITLE):
        self.viewer, self.screen, self.title = viewer, viewer.screen, title
        self.reader = accessibility.Reader(viewer)
        self.window = None
        self.open()

    def open(self):
        self.viewer.window.activate()
        self.viewer.key("Control_L", "p")
        self.window = x11.wait_for(self._find, lambda: f"there is {self.title!r}")
        self.window.activate()
        _left, _top, width, height = self.window.frame()
        self.window.move_resize(5, 30, width, height)
        x11.wait_for(lambda: self.window.frame()[0] < 20, "the dialog has moved")
        self.viewer.wait_idle()

    def _find(self):
        return next((window for window in self.screen.windows(self.viewer.process.pid)
            if window.title() == self.title), None)

    def wait_hidden(self):
        x11.wait_for(lambda: self._find() is None, "the dialog is hidden")

    def find(self, name, *roles):
        """What of the dialog has the name, its label without blanks at the ends."""
        def found():
            try:
                return next((item for item in self.reader.all()
                    if item.get_name().strip() == name and accessibility.is_showing(item)
                    and (not roles or item.get_role() in roles)
                    and accessibility.extents(item)[2] > 1), None)
            except accessibility.GONE:
                return None

        return x11.wait_for(found, lambda: f"there is {name!r} in the dialog")

    def wait_focused(self, name):
        """Until what has that name has the keyboard, alone of all but the tabs."""
        def focused():
            try:
                return [accessibility.label_of(item) for item in self.reader.all()
                    if accessibility.has_state(item, accessibility.Atspi.StateType.FOCUSED)
                    and item.get_role() not in (Role.PAGE_TAB, Role.FILLER, Role.LIST_ITEM)]
            except accessibility.GONE:
                return None

        x11.wait_for(lambda: focused() == [name],
            lambda: f"{name!r} has the keyboard, not {focused()}")

    def choice(self, name):
        """What a menu field shows."""
        try:
            return next((item.get_name() for item in self.reader.all()
                if item.get_role() == Role.COMBO_BOX and accessibility.label_of(item) == name), None)
        except accessibility.GONE:
            return None

    def is_enabled(self, name, *roles):
        return accessibility.is_enabled(self.find(name, *roles))

    def is_checked(self, name):
        return accessibility.is_marked(self.find(name, Role.CHECK_BOX, Role.RADIO_BUTTON))

    def text(self, name):
        entry = self.find(name, *ENTRIES)
        return accessibility.Atspi.Text.get_text(entry, 0, -1)

    def click(self, name, *roles):
        self.screen.click(*self._place(name, *roles))

    def _place(self, name, *roles):
        """Once it stays where it is."""
        place = None

        def settled():
            nonlocal place
            before, place = place, accessibility.middle(self.find(name, *roles))
            return before == place

        x11.wait_for(settled, f"{name!r} has a place")
        return place

    def tab(self, name):
        self.click(name, Role.PAGE_TAB)
        self.find(PAGES[name])

    def press(self, name):
        self.click(name, Role.PUSH_BUTTON)

    def tick(self, name):
        left, top, _width, height = accessibility.extents(
            self.find(name, Role.CHECK_BOX, Role.RADIO_BUTTON))
        self.screen.click(left + 8, top + height // 2)

    def type(self, name, text):
        """In place of what is there."""
        self.click(name, *ENTRIES)
        # The window manager holds a click back to look at it, but not what is typed behind it.
        x11.wait_for(lambda: accessibility.has_state(self.find(name, *ENTRIES),
            accessibility.Atspi.StateType.FOCUSED), f"{name!r} has the keyboard")
        self.screen.key("Control_L", "a")
        self.screen.key("Delete")
        for character in text:
            self.screen.key(KEYS.get(character, character))

    def choose(self, letter, index):
        """By the keyboard: the item of that index, separators not counted."""
        self.screen.key("Alt_L", letter)
        self.viewer.wait_idle()
        self.screen.key("Home")
        for _step in range(index):
            self.screen.key("Down")

    def select_row(self, name):
        self.click(name, Role.LIST_ITEM)

    def rows(self):
        """What the list of extensions shows."""
        try:
            found = next(item for item in self.reader.all()
                if item.get_name() == "Extension of Comment File" and item.get_role() == Role.LIST)
            return [row.get_name() for row in accessibility.children(found)]
        except (StopIteration, *accessibility.GONE):
            return None

    def set_value(self, name, value, *roles):
        """Of a slider or a field for numbers."""
        Value.set_current_value(self.find(name, *roles), value)

    def value(self, name, *roles):
        return Value.get_current_value(self.find(name, *roles))
