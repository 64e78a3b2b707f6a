"""Where the dialogs open: whole on the screen with what is around them, wherever the main window is."""

from collections import Counter

import accessibility
from accessibility import Role
from menu_test import START
from shared_prefs import TITLE as COMMON
from test_dialogs import ABOUT, ALERT, PANEL, PREFS, Dialogs, information
from viewer_test import SCREEN, main, x11

# Each dialog by the item that opens it.
ITEMS = [
    (PANEL, "File(F)", "Open(O)..."),
    (information(START), "Tool(T)", "Show Image Information(I)..."),
    (PREFS, "Tool(T)", "Preferences(P)..."),
    (COMMON, "Tool(T)", "ZELKAN Common Preferences(S)..."),
    (ABOUT, "Help(H)", "About(A)..."),
]
# Of the content, with a little of the window beyond the edges of the screen.
CORNERS = [(-60, -40), (900, -40), (-60, 800), (900, 800), (5, 22)]
SIZE = (400, 300)

# What the window manager has at the ends of a title bar: the icon, and the three buttons.
ICON, BUTTONS = 22, 48


def written(window):
    """How many pixels of its title bar the title is wide, when the window has the keyboard."""
    window.activate()

    def bar():
        left, top, width, _height = window.frame()
        above = window.decorations()[2]
        return left, top - above + 3, width, max(above - 5, 0)

    picture = x11.of_one_moment(bar, window.screen.picture)
    columns = set()
    for y in range(picture.height):
        row = [picture.at(x, y) for x in range(ICON, picture.width - BUTTONS)]
        background = Counter(row).most_common(1)[0][0]
        columns.update(x for x, color in enumerate(row) if color != background)
    return max(columns) - min(columns) + 1 if columns else 0


class Wide(x11.Window):
    """A window with nothing but a title, and all the room that needs."""

    def __init__(self, screen, title):
        super().__init__(screen, screen.root.create_window(100, 500, 900, 20, 0, 24))
        self.handle.change_property(screen.atom("_NET_WM_NAME"), screen.atom("UTF8_STRING"), 8,
            title.encode())
        self.handle.map()
        screen.display.flush()
        self.activate()


class Places(Dialogs):
    def whole_frame(self, window):
        """Left, top, right and bottom on the screen, decorations included."""
        left, top, width, height = window.frame()
        around = window.decorations()
        return left - around[0], top - around[2], left + width + around[1], top + height + around[3]

    def lies_on_screen(self, window):
        left, top, right, bottom = self.whole_frame(window)
        return left >= 0 and top >= 0 and right <= SCREEN[0] and bottom <= SCREEN[1]

    def wait_on_screen(self, viewer, title):
        window = self.wait_window(viewer, title)
        viewer.wait_idle()
        x11.wait_for(lambda: self.lies_on_screen(window), lambda:
            f"{title!r} is on the screen; it is at {self.whole_frame(window)}, the main window "
            f"at {viewer.window.frame()}", 3)
        self.assertGreater(window.decorations()[2], 0)
        return window

    def check_all(self, viewer):
        for title, menu, label in ITEMS:
            with self.subTest(title, main=viewer.window.frame()):
                self.choose(menu, label)
                self.wait_on_screen(viewer, title).close()
                self.wait_windows(viewer, title, 0)

    def test_from_every_corner(self):
        for corner in CORNERS:
            viewer = self.open()
            viewer.window.move_resize(*corner, *SIZE)
            viewer.wait_frame(*corner, *SIZE)
            viewer.wait_idle()
            self.check_all(viewer)
            self.assert_clean(viewer)

    def test_from_full_screen(self):
        viewer = self.open()
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.wait_idle()
        self.check_all(viewer)
        self.assert_clean(viewer)

    def test_an_alert(self):
        for corner in CORNERS:
            viewer = self.begin()
            viewer.window.move_resize(*corner, *SIZE)
            viewer.wait_frame(*corner, *SIZE)
            viewer.key("Control_L", "i")
            self.wait_on_screen(viewer, ALERT)
            viewer.key("Escape")
            self.wait_windows(viewer, ALERT, 0)
            self.assert_clean(viewer)

    def test_no_title_is_too_long_for_its_window(self):
        # The dialogs by the places of their menus and items, whatever those are called.
        items = [(2, 0), (2, 2), (2, 3), (3, 1)]
        for language in "en_US", "de_DE", "ja_JP":
            self.language = language + ".UTF-8"
            viewer = self.open_any()
            for menu, item in items:
                before = self.titles(viewer)
                entry = accessibility.entries(accessibility.entries(self.reader.menu_bar())[menu])
                accessibility.act(entry[item], "Press")
                new = x11.wait_for(lambda: self.titles(viewer) - before, "there is one more")
                title, = new
                window = self.wait_window(viewer, title)
                wide = Wide(self.screen, title)
                x11.wait_for(lambda: 0 < written(wide) == written(window), lambda:
                    f"{title!r} takes {written(wide)} pixels, not {written(window)}", 5)
                wide.handle.destroy()
                window.close()
                self.wait_windows(viewer, title, 0)
            self.assert_clean(viewer)

    language = None

    def environment(self):
        environment = super().environment()
        if self.language is None:
            return environment
        plain = {name: value for name, value in environment.items()
            if not name.startswith("LC_") and name != "LANGUAGE"}
        return {**plain, "LANG": self.language,
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.home}/no-bus"}

    def open_any(self):
        """With menus in any language."""
        self.pictures(1)
        viewer = self.start(self.path("p000.png"))
        viewer.wait_shown("p000.png")
        viewer.wait_idle()
        self.reader = accessibility.Reader(viewer)
        x11.wait_for(lambda: len(self.tree()) == 4, "there are four menus")
        return viewer

    def titles(self, viewer):
        return {window.title() for window in self.screen.windows(viewer.process.pid)}


class CommonKeys(Dialogs):
    """The keyboard in the common preferences."""

    def focused(self):
        try:
            return [accessibility.label_of(item) for item in self.reader.all()
                if accessibility.has_state(item, accessibility.Atspi.StateType.FOCUSED)
                and item.get_role() not in (Role.FILLER, Role.LIST_ITEM, Role.MENU_ITEM)]
        except accessibility.GONE:
            return None

    def wait_focused(self, name):
        x11.wait_for(lambda: self.focused() == [name],
            lambda: f"{name!r} has the keyboard, not {self.focused()}")

    def test_it_starts_at_the_first_component_and_ends_at_the_buttons(self):
        viewer = self.open()
        order = ["Accelerator Format(A):", "Flat Tool Bar(F)", "Defaults(D)", "Cancel", "OK"]
        for _ in range(2):
            viewer.window.activate()
            self.choose("Tool(T)", "ZELKAN Common Preferences(S)...")
            self.wait_window(viewer, COMMON)
            for name in order:
                self.wait_focused(name)
                viewer.key("Tab")
            self.wait_focused(order[0])
            viewer.key("Escape")
            self.wait_windows(viewer, COMMON, 0)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
