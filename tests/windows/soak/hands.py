"""What a restless user does to the program."""

import os
import subprocess
import time

from Xlib import error

import accessibility
import settings_file
from accessibility import Role, Value
from broadcast import message
from viewer_test import PROGRAM, x11
from watchdog import Stopped

STEPS = ["space", "BackSpace", "Home", "End", "Prior", "Next", "Up", "Down", "Left", "Right"]
OTHERS = ["b", "x", "1", "minus", "Tab", "Insert", "F1", "F6", "KP_5", "a"]

# By letters: those of the menu "View" and of the menu "Tool". Nothing here quits.
VIEW, TOOL = "fpnldwisxycu", "ips"

# In dialogs. No Delete: the open panel would ask whether to delete a file.
DIALOG_KEYS = ["Tab", "Tab", "Tab", "space", "Up", "Down", "Left", "Right", "Home", "End", "Prior",
    "Next", "1", "7", "b"]

ALERT, PANEL = "* Lorivane *", "Lorivane: Open"
DIALOGS = {"Preferences": ("Control_L", "p"), PANEL: ("Control_L", "o"),
    "About Lorivane": ("a",), "Information": ("Control_L", "i"),
    "ZELKAN Common Preferences": ("Alt_L", "t", "s")}

LANGUAGES = ["en_US", "de_DE", "ja_JP"]


class Hands:
    """Each action is a method `do_` whose weight tells how often it is done. What it did, in
    words, is its result."""

    WEIGHTS = {"step": 30, "hold": 5, "other_key": 4, "full_screen": 6, "resize": 6, "move": 3,
        "drag_border": 3, "maximise": 2, "minimise": 2, "wheel": 4, "click": 3, "menu": 6,
        "choose": 6, "context_menu": 3, "second_start": 6, "drop": 5, "album": 20, "recent": 3,
        "delete_recent": 1, "shared": 4, "shared_noise": 1, "shared_burst": 1, "dialog": 6,
        "poke": 8, "close_dialog": 4, "language": 1}

    def __init__(self, soak):
        self.soak, self.rng = soak, soak.rng
        self.screen, self.album = soak.screen, soak.album
        self.starts, self.doing = [], ""

    def act(self):
        self.doing = kind = self.rng.choices(list(self.WEIGHTS), self.WEIGHTS.values())[0]
        try:
            told = getattr(self, "do_" + kind)()
        except (error.XError, *accessibility.GONE) as gone:
            told = f"({type(gone).__name__}: what it was for had gone)"
        return kind, f"{kind} {told or ''}".strip()

    # Windows.

    @property
    def viewer(self):
        return self.soak.viewer

    def others(self):
        """The program's windows besides the main one."""
        return [window for window in self.screen.windows(self.viewer.process.pid)
            if window.handle.id != self.viewer.window.handle.id]

    def front(self, window=None):
        """The window gets the keyboard, from its icon if need be."""
        window = window or self.viewer.window
        asked = 0

        def has_keys():
            nonlocal asked
            if window.has_keys():
                return True
            # Once more after a while: it may have been on its way to its icon.
            if time.monotonic() > asked + 1:
                asked = time.monotonic()
                window.ask_front()
            return False

        is_main = window.handle.id == self.viewer.window.handle.id
        self.wait(has_keys, "the main window has the keyboard", forgive=not is_main)

    def mostly_front(self):
        if self.rng.random() < 0.9:
            self.front()

    def wait(self, condition, what, forgive=False):
        """Many times as long as the program may take to answer; once, and None, for what need not
        come."""
        try:
            return x11.wait_for(condition, what, self.soak.limit * (1 if forgive else 10))
        except x11.Timeout as late:
            self.soak.check_alive()
            if forgive:
                return None
            raise Stopped(str(late)) from None

    def settle(self):
        """Answers what asks and closes all but the main window."""
        def closed():
            others = self.others()
            for window in others:
                if window.title() == ALERT:
                    window.activate()
                    self.screen.key("Escape")
                else:
                    window.close()
            return not others

        def tried():
            try:
                return closed()
            except (error.XError, x11.Timeout):
                return False

        self.wait(tried, lambda: f"all dialogs are closed; {[w.title() for w in self.others()]}")

    def let_go_of_alerts(self):
        for window in self.others():
            if window.title() == ALERT:
                self.settle()
                return

    # Keys and the mouse.

    def do_step(self):
        self.mostly_front()
        keys = [self.rng.choice(STEPS) for _ in range(self.rng.choice((1, 1, 1, 2, 5, 15)))]
        for key in keys:
            if self.rng.random() < 0.1:
                self.screen.key("Control_L", key)
            else:
                self.screen.key(key)
        return " ".join(keys)

    def do_hold(self):
        self.front()
        key = self.rng.choice(STEPS)
        self.screen.press(key)
        try:
            self.soak.pause(self.rng.uniform(0.2, 1.5))
        finally:
            self.screen.release(key)
        return key

    def do_other_key(self):
        self.mostly_front()
        key = self.rng.choice(OTHERS)
        self.screen.key(key)
        return key

    def do_full_screen(self):
        self.mostly_front()
        keys = [self.rng.choice(("Return", "F5", "Escape"))
            for _ in range(self.rng.choice((1, 1, 2, 6)))]
        for key in keys:
            self.screen.key(key)
        return " ".join(keys)

    def _inside(self):
        """A point of the picture's area."""
        left, top, width, height = self.viewer.window.frame()
        return (min(max(left + self.rng.randrange(max(width - 20, 1)), 1), 1270),
            min(max(top + 30 + self.rng.randrange(max(height - 50, 1)), 31), 1000))

    def _point(self, x, y):
        """Whether the pointer is over the main window there: what it does beside it would be the
        window manager's, such as its menus and its titles' buttons."""
        self.screen.move_pointer(x, y)
        below = self.screen.root.query_pointer().child
        while not isinstance(below, int):
            if below.id == self.viewer.window.handle.id:
                return True
            below = below.query_pointer().child
        return False

    def do_wheel(self):
        self.front()
        if not self._point(*self._inside()):
            return "(the window has moved)"
        count = self.rng.randint(1, 8)
        which = self.rng.choice((4, 5, 5, 6, 7))
        for _ in range(count):
            self.screen.button(True, which)
            self.screen.button(False, which)
        return f"{which} x{count}"

    def do_click(self):
        self.front()
        start, end = self._inside(), self._inside()
        if not self._point(*start):
            return "(the window has moved)"
        self.screen.button(True)
        if self.rng.random() < 0.5:
            for step in range(1, 6):
                self.screen.move_pointer(*(a + (b - a) * step // 5 for a, b in zip(start, end)))
        self.screen.button(False)
        return f"{start}"

    # The main window's place.

    def do_resize(self):
        sizes = [(self.rng.randint(-300, 900), self.rng.randint(-100, 700),
            self.rng.randint(1, 1400), self.rng.randint(1, 1100))
            for _ in range(self.rng.choice((1, 1, 1, 4, 20)))]
        for size in sizes:
            self.viewer.window.move_resize(*size)
        return f"{sizes[-1]} after {len(sizes) - 1}"

    def do_drag_border(self):
        """Live, as the hand does it."""
        left, top, width, height = self.viewer.window.frame()
        for step in range(1, 25):
            self.viewer.window.move_resize(left, top, max(width + step * self.rng.randint(-9, 9), 1),
                max(height + step * self.rng.randint(-9, 9), 1))
            self.soak.pause(0.01)

    def do_move(self):
        left, top, width, height = self.viewer.window.frame()
        place = left + self.rng.randint(-200, 200), top + self.rng.randint(-200, 200)
        if not (-width < place[0] < 1270 and -10 < place[1] < 1000):
            place = 40, 40
        self.viewer.window.move_resize(*place, width, height)
        return f"{place}"

    def do_maximise(self):
        on = self.rng.random() < 0.5
        self.viewer.window.ask_state("_NET_WM_STATE_MAXIMIZED_VERT", on)
        self.viewer.window.ask_state("_NET_WM_STATE_MAXIMIZED_HORZ", on)
        return f"{on}"

    def do_minimise(self):
        self.front()
        key = self.rng.choice("mh")
        self.screen.key(key)
        self.soak.pause(self.rng.choice((0, 0.05, 0.5)))
        self.front()
        return key

    # Menus.

    def do_menu(self):
        """Walks through menus, and leaves them; Enter might quit."""
        self.front()
        keys = [self.rng.choice(("Left", "Right", "Down", "Down", "Up", "End", "Home"))
            for _ in range(self.rng.randint(0, 12))]
        if self.rng.random() < 0.5:
            self.screen.key("F10")
        else:
            self.screen.key("Alt_L", self.rng.choice("fvt"))
        for key in [*keys, "Escape", "Escape", "Escape"]:
            self.screen.key(key)
        return " ".join(keys)

    def do_choose(self):
        self.front()
        menu, letters = self.rng.choice((("v", VIEW), ("v", VIEW), ("v", VIEW), ("t", TOOL)))
        letter = self.rng.choice(letters)
        self.screen.key("Alt_L", menu)
        self.screen.key(letter)
        return f"{menu} {letter}"

    def do_context_menu(self):
        self.front()
        if self.others():
            return "left out beside others"
        way = self.rng.choice(("mouse", "Menu", "Shift F10"))
        if way == "mouse":
            place = self._inside()
            if not self._point(*place):
                return "(the window has moved)"
            self.screen.click(*place, which=3)
        elif way == "Menu":
            self.screen.key("Menu")
        else:
            self.screen.key("Shift_L", "F10")
        for _ in range(self.rng.randint(0, 3)):
            self.screen.key("Down")
        self.screen.key("Escape")
        self.screen.key("Escape")
        return way

    def do_recent(self):
        self.front()
        digit = str(self.rng.randrange(10))
        self.screen.key("Control_L", "Shift_L", digit)
        return digit

    def do_delete_recent(self):
        """Empties the list, or is asked and says no."""
        self.let_go_of_alerts()
        menu = accessibility.entries(self.soak.reader.menu_bar())[0]
        recent = next((item for item in accessibility.entries(menu)
            if accessibility.entries(item)), None)
        if recent is None:
            return "(it is not there)"
        item = accessibility.entries(recent)[-1]
        if not accessibility.is_enabled(item):
            return "(it is disabled)"
        accessibility.act(item, "Press")
        alert = self.wait(lambda: next((window for window in self.others()
            if window.title() == ALERT), None), "the program asks", forgive=True)
        if alert is None:
            return "(it was not asked)"
        self.front(alert)
        key = self.rng.choice(("Escape", "a"))
        self.screen.key(key)
        self.soak.pause(0.2)
        self.let_go_of_alerts()
        return key

    # Things handed in.

    def reap(self, all_of_them=False):
        """Second starts end by themselves, with nothing to complain of."""
        def look():
            for start in list(self.starts):
                if start.poll() is not None:
                    self.starts.remove(start)
                    if start.returncode not in (0, 2):  # 2: all that was named had gone
                        raise Stopped(f"a second start ended with {start.returncode}")
            return not self.starts

        if all_of_them:
            self.wait(look, "all second starts have ended")
        else:
            look()

    def hand_over(self, *paths):
        self.starts.append(subprocess.Popen([PROGRAM, *paths], env=self.soak.environment,
            cwd=self.soak.place, stdin=subprocess.DEVNULL, stdout=self.soak.chatter,
            stderr=self.soak.chatter))

    def do_second_start(self):
        if len(self.starts) > 3:
            self.reap(True)
        paths = [self.album.anything() for _ in range(self.rng.choice((0, 1, 1, 1, 2)))]
        self.hand_over(*paths)
        return " ".join(map(repr, map(os.path.basename, paths)))

    def do_drop(self):
        paths = [self.album.anything() for _ in range(self.rng.choice((1, 1, 1, 3)))]
        if self.rng.random() < 0.1:
            paths.append(os.path.join(self.soak.place, "not there.png"))
        # The window manager knows nothing of drags, so that the window needs no front.
        taken = self.soak.source.drop(self.viewer.window, *self._inside(), paths,
            20 * self.soak.limit)
        self.soak.check_alive()
        if taken is None:
            raise Stopped("a drop was not answered")
        return f"{list(map(os.path.basename, paths))}: {'taken' if taken else 'refused'}"

    def do_album(self):
        return "; ".join(self.album.change() for _ in range(self.rng.choice((1, 1, 1, 3, 10))))

    # Preferences.

    def do_shared(self):
        flat = self.rng.random() < 0.5
        self.soak.labels.set(self.rng.randrange(2))
        self.soak.sender.change("FlatToolBar", flat)
        return f"{self.soak.labels.at} {flat}"

    def do_shared_noise(self):
        """No message, another one, and changes that nobody can make use of."""
        for body in (self.rng.randbytes(100), message(b"_Sic"),
                message(b"_Sic", settings_file.string("IAP:SrcIAPItem", "AccKeyFormat2")),
                message(b"_Sic", settings_file.string("IAP:SrcIAPItem", "None"),
                    settings_file.string("None", "x" * 5000)),
                message(b"abcd", settings_file.int32("x", 1))):
            self.soak.sender.send(body)

    def do_shared_burst(self):
        count = self.rng.choice((20, 100, 300))
        for index in range(count):
            self.soak.labels.set(index % 2)
        return f"{count}"

    def do_language(self):
        """The user's own setting, which the program watches."""
        language = self.rng.choice(LANGUAGES)
        path = os.path.join(self.soak.settings, "locale.conf")
        with open(path + ".part", "w", encoding="utf-8") as file:
            file.write(f"LANG={language}.UTF-8\n")
        os.replace(path + ".part", path)
        return language

    def do_dialog(self):
        """Opens one, and strikes keys in it; mostly it is left open."""
        self.front()
        title = self.rng.choice(list(DIALOGS))
        *first, last = DIALOGS[title]
        before = {window.handle.id for window in self.others()}
        if len(first) == 2:
            self.screen.key(*first)
            self.screen.key(last)
        else:
            self.screen.key(*first, last)
        window = self.wait(lambda: next((window for window in self.others()
            if window.handle.id not in before or title in window.title()), None),
            f"{title} is open", forgive=True)
        if window is None:
            return f"{title} (it did not come)"
        self.front(window)
        keys = [] if title == PANEL else [self.rng.choice(DIALOG_KEYS)
            for _ in range(self.rng.randint(0, 12))]
        for key in keys:
            if key == "Tab" and self.rng.random() < 0.3:
                self.screen.key("Shift_L", key)
            else:
                self.screen.key(key)
        if title == PANEL and self.rng.random() < 0.7:
            return f"{title} {self._open_by_panel()}"
        end = self.rng.choice((None, None, "Escape", "Return"))
        if end:
            self.screen.key(end)
        return f"{title} {' '.join(keys)} {end or ''}"

    def _open_by_panel(self):
        path = self.album.anything()
        field = next((item for item in self.soak.reader.all() if item.get_role() == Role.TEXT
            and accessibility.is_showing(item)), None)
        if field is not None:
            accessibility.Atspi.EditableText.set_text_contents(field, path)
            self.screen.key("Return")
        return repr(os.path.basename(path))

    def do_close_dialog(self):
        others = self.others()
        if not others:
            return "(there is none)"
        window = self.rng.choice(others)
        title = window.title()
        if title == ALERT or self.rng.random() < 0.5:
            self.front(window)
            self.screen.key("Escape")
        else:
            window.close()
        return title

    TOGGLED = {Role.CHECK_BOX, Role.RADIO_BUTTON, Role.PAGE_TAB}
    TURNED = {Role.SLIDER, Role.SPIN_BUTTON, Role.SCROLL_BAR}

    def do_poke(self):
        """What assistive technology may do to something that is on the screen."""
        found = [item for item in self.soak.reader.all()
            if item.get_role() in self.TOGGLED | self.TURNED and accessibility.is_showing(item)]
        if not found:
            return "(there is nothing)"
        item = self.rng.choice(found)
        name, role = item.get_name(), item.get_role()
        if role in self.TOGGLED:
            # One that is disabled, or has just gone, offers nothing.
            if accessibility.actions(item):
                accessibility.act(item, "Toggle", "Press")
            return repr(name)
        low, high = Value.get_minimum_value(item), Value.get_maximum_value(item)
        for _ in range(self.rng.choice((1, 1, 30))):
            Value.set_current_value(item, int(self.rng.uniform(low, high)))
        return f"{name!r} of {low} to {high}"

    # The end, on purpose.

    QUITTING = ["Ctrl+Q", "the close box", "SIGTERM", "the menu"]

    def quit(self):
        way = self.rng.choice(self.QUITTING)
        self.reap(True)
        if way != "SIGTERM":
            # Keys struck before may still open something that takes the keyboard.
            self.soak.check_window()
            self.settle()
            self.front()
            self.do_step()
            self.front()
        if way == "the menu" and self.viewer.is_full_screen():
            way = "Ctrl+Q"
        if way == "the menu":
            # What is struck before the menu is open goes to the picture.
            self.screen.key("Alt_L", "f")
            self.wait(self.is_menu_open, "the menu is open")
        start = time.monotonic()
        if way == "Ctrl+Q":
            self.screen.key("Control_L", "q")
        elif way == "the close box":
            self.viewer.window.close()
        elif way == "SIGTERM":
            self.viewer.process.terminate()
        else:
            self.screen.key("q")
        return way, start

    def is_menu_open(self):
        try:
            menu = accessibility.entries(self.soak.reader.menu_bar())[0]
            return any(accessibility.is_showing(item) for item in accessibility.entries(menu))
        except (IndexError, *accessibility.GONE):
            return False
