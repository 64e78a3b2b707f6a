"""The screen as its user sees it: windows, titles, pixels, and a pointer and a keyboard.

Nothing here waits a fixed time; `wait_for` polls a condition up to a limit.
"""

import contextlib
import time

from Xlib import X, XK, Xatom, display, error, protocol
from Xlib.ext import xtest


class Timeout(AssertionError):
    """What was waited for did not happen."""


def wait_for(condition, what, seconds=20):
    """The first true value the condition returns. `what` says in words what is waited for; a
    callable is asked when it is too late."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"after {seconds} s, not: {what() if callable(what) else what}")
        time.sleep(0.005)


def of_one_moment(place, picture):
    """The picture of a place that is the same before and after it was taken: what moves is asked
    for once more. Both are functions; the second takes what the first returns."""
    before = place()
    while True:
        found, after = picture(*before), place()
        if after == before:
            return found
        before = after


class Picture:
    """Pixels of the screen."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def at(self, x, y):
        """The R, G, B triple of one pixel."""
        start = (int(y) * self.width + int(x)) * 4
        blue, green, red = self.data[start:start + 3]
        return red, green, blue

    def part(self, left, top, width, height):
        """An area of it that lies within."""
        starts = (((top + row) * self.width + left) * 4 for row in range(height))
        return Picture(width, height,
            b"".join(self.data[start:start + width * 4] for start in starts))

    def is_uniform(self):
        pixels = memoryview(self.data).cast("I")
        return all(pixel == pixels[0] for pixel in pixels[::7])

    def rows(self):
        """Rows of R, G, B bytes."""
        for y in range(self.height):
            row = self.data[y * self.width * 4:(y + 1) * self.width * 4]
            rgb = bytearray(self.width * 3)
            rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
            yield bytes(rgb)


class Window:
    """A top-level window of a client."""

    def __init__(self, screen, handle):
        self.screen, self.handle = screen, handle

    def _property(self, name, kind):
        try:
            found = self.handle.get_full_property(self.screen.atom(name), kind)
        except error.XError:
            return None
        return found.value if found else None

    def title(self):
        value = self._property("_NET_WM_NAME", X.AnyPropertyType)
        if value is None:
            value = self._property("WM_NAME", X.AnyPropertyType) or b""
        return value.decode("utf-8", "replace") if isinstance(value, bytes) else value

    def pid(self):
        value = self._property("_NET_WM_PID", Xatom.CARDINAL)
        return value[0] if value else None

    def states(self):
        """The names of the states the window manager gives it."""
        value = self._property("_NET_WM_STATE", Xatom.ATOM) or []
        return {self.screen.display.get_atom_name(atom) for atom in value}

    def frame(self):
        """Left, top, width and height of the content, in pixels of the screen."""
        size = self.handle.get_geometry()
        at = self.handle.translate_coords(self.screen.root, 0, 0)
        return -at.x, -at.y, size.width, size.height

    def decorations(self):
        """What the window manager has put around it: left, right, top and bottom."""
        value = self._property("_NET_FRAME_EXTENTS", Xatom.CARDINAL)
        return tuple(value) if value is not None else (0, 0, 0, 0)

    def picture(self):
        """What the screen shows where the window is."""
        return of_one_moment(self.frame, self.screen.picture)

    def _ask_manager(self, message, *data):
        event = protocol.event.ClientMessage(window=self.handle,
            client_type=self.screen.atom(message),
            data=(32, [item & 0xffffffff for item in (list(data) + [0] * 5)[:5]]))
        self.screen.root.send_event(event,
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.screen.display.flush()

    def ask(self, message, *data):
        """Asks the window manager for something that has no name here."""
        self._ask_manager(message, *data)

    def close(self):
        """As the close box does."""
        self._ask_manager("_NET_CLOSE_WINDOW", X.CurrentTime, 2)

    def ask_front(self):
        """Asks the window manager to show it before others, with the keyboard in it."""
        self._ask_manager("_NET_ACTIVE_WINDOW", 2, X.CurrentTime)

    def activate(self):
        self.ask_front()
        wait_for(self.has_keys, "the window has the keyboard")

    def ask_state(self, name, on):
        """Asks the window manager for a state such as _NET_WM_STATE_FULLSCREEN, or to end it."""
        self._ask_manager("_NET_WM_STATE", int(on), self.screen.atom(name))

    def has_keys(self):
        """Whether what is typed goes to the window, or to one within it."""
        focus = self.screen.display.get_input_focus().focus
        while not isinstance(focus, int) and focus.id != self.screen.root.id:
            if focus.id == self.handle.id:
                return True
            focus = focus.query_tree().parent
        return False

    def move_resize(self, left, top, width, height):
        """Asks the window manager for a place of the content; it may refuse."""
        gravity_and_fields = 10 | 0xf << 8 | 2 << 12  # static gravity: the content, not the border
        self._ask_manager("_NET_MOVERESIZE_WINDOW", gravity_and_fields, left, top, width, height)


class Screen:
    """The X screen of $DISPLAY."""

    def __init__(self):
        self.display = display.Display()
        # A window may close between two requests about it; the requests' own errors are enough.
        self.display.set_error_handler(lambda *_: None)
        self.root = self.display.screen().root

    def close(self):
        self.display.close()

    def atom(self, name):
        return self.display.get_atom(name)

    def windows(self, pid=None):
        """The windows on the screen, in the order they came, of one process or of all."""
        value = self.root.get_full_property(self.atom("_NET_CLIENT_LIST"), X.AnyPropertyType)
        found = [Window(self, self.display.create_resource_object("window", handle))
            for handle in (value.value if value else [])]
        return [window for window in found if pid is None or window.pid() == pid]

    def picture(self, left, top, width, height):
        """Pixels of an area; what lies off the screen is black."""
        frame = self.root.get_geometry()
        x, y = max(left, 0), max(top, 0)
        w, h = min(left + width, frame.width) - x, min(top + height, frame.height) - y
        if w <= 0 or h <= 0:
            return Picture(width, height, bytes(width * height * 4))
        image = self.root.get_image(x, y, w, h, X.ZPixmap, 0xffffffff)
        data = image.data.encode("latin-1") if isinstance(image.data, str) else bytes(image.data)
        if (w, h) == (width, height):
            return Picture(width, height, data)
        whole = bytearray(width * height * 4)
        for row in range(h):
            start = ((y - top + row) * width + x - left) * 4
            whole[start:start + w * 4] = data[row * w * 4:(row + 1) * w * 4]
        return Picture(width, height, bytes(whole))

    # The user's hands.

    def _fake(self, kind, detail=0, x=0, y=0):
        xtest.fake_input(self.display, kind, detail, x=x, y=y)
        self.display.flush()

    def _code(self, name):
        return self.display.keysym_to_keycode(XK.string_to_keysym(name))

    def press(self, name):
        self._fake(X.KeyPress, self._code(name))

    def release(self, name):
        self._fake(X.KeyRelease, self._code(name))

    def key(self, *names):
        """Strokes a key, the last, with the others held."""
        for name in names:
            self.press(name)
        for name in reversed(names):
            self.release(name)
        self.display.sync()

    @contextlib.contextmanager
    def held(self, name):
        """A key, for example a modifier, is down for as long as the block runs."""
        self.press(name)
        try:
            yield
        finally:
            self.release(name)

    def move_pointer(self, x, y):
        self._fake(X.MotionNotify, 0, int(x), int(y))
        self.display.sync()

    def button(self, down, which=1):
        self._fake(X.ButtonPress if down else X.ButtonRelease, which)
        self.display.sync()

    def click(self, x, y, which=1):
        self.move_pointer(x, y)
        self.button(True, which)
        self.button(False, which)

    def cursor(self):
        """What the pointer looks like now."""
        self.display.xfixes_query_version()
        image = self.display.xfixes_get_cursor_image(self.root)
        return image.width, image.height, bytes(str(image.cursor_image), "ascii")

    def selection_owner(self, name):
        """The window that owns a selection, or None."""
        owner = self.display.get_selection_owner(self.atom(name))
        return owner if owner != X.NONE else None
