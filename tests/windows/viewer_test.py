"""The base of the tests that drive the real program on a real screen.

Run them by ctest (`ctest --preset dev -L windows`), or one by hand:
    tools/virtual_desktop.sh /usr/bin/python3 tests/windows/test_stepping.py
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tools"))
sys.dont_write_bytecode = True

import png  # noqa: E402
import settings_file  # noqa: E402
import x11  # noqa: E402

PROGRAM = os.environ.get("LORIVANE", os.path.join(ROOT, "build", "lorivane"))
SAMPLES = os.path.join(ROOT, "samples")
BACKGROUNDS = "/usr/share/backgrounds/mate/nature"

SCREEN = (1280, 1024)

STATUS_BAR_HEIGHT = 14
SCROLL_BAR_THICKNESS = 14
SCROLL_BAR_EXTENT = 13  # what a horizontal one takes from the height

BLACK = (0, 0, 0)


def color_of(index):
    """A colour of its own for each of the first 512 numbers, never black."""
    return 55 + index % 8 * 25, 55 + index // 8 % 8 * 25, 55 + index // 64 % 8 * 25


def measured(width, height):
    """A PNG picture whose every pixel tells where it is; see place_of."""
    x = range(width)

    def row(y):
        pixels = bytearray(width * 3)
        pixels[0::3] = bytes(c & 0xff for c in x)
        pixels[1::3] = bytes(c >> 8 & 0xf | y >> 4 & 0xf0 for c in x)
        pixels[2::3] = bytes([y & 0xff]) * width
        return bytes(pixels)

    return png.encode(width, height, [row(y) for y in range(height)])


def place_of(color):
    """The column and the row, each modulo 4096, of a pixel of a measured picture."""
    red, green, blue = color
    return red | (green & 0xf) << 8, blue | green >> 4 << 8


def sleeps(process):
    """Whether each of the process's threads waits for something."""
    tasks = f"/proc/{process}/task"
    for task in os.listdir(tasks):
        try:
            with open(f"{tasks}/{task}/stat", encoding="utf-8", errors="replace") as file:
                state = file.read().rpartition(")")[2].split()[0]
        except OSError:
            continue  # it has ended
        if state != "S":
            return False
    return True


class Viewer:
    """A running viewer and its main window."""

    def __init__(self, test, arguments, environment, folder):
        self.test, self.screen = test, test.screen
        self.errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen([test.program, *arguments], env=environment, cwd=folder,
            stdin=subprocess.DEVNULL, stdout=self.errors, stderr=self.errors)
        self.window = x11.wait_for(self._first_window, "the viewer's window appears", 30)

    def _first_window(self):
        if self.process.poll() is not None:
            raise x11.Timeout(f"the viewer ended with {self.process.returncode}: {self.said()}")
        windows = self.screen.windows(self.process.pid)
        return windows[0] if windows else None

    def said(self):
        """All it wrote on its standard output and error so far."""
        self.errors.seek(0)
        return self.errors.read().decode("utf-8", "replace")

    def is_running(self):
        return self.process.poll() is None

    def title(self):
        return self.window.title()

    def wait_title(self, title, seconds=20):
        x11.wait_for(lambda: self.title() == title,
            lambda: f"the title is {title!r}; it is {self.title()!r}; it said {self.said()!r}",
            seconds)

    def wait_shown(self, name, seconds=20):
        self.wait_title(f"{name} - Lorivane", seconds)

    def is_full_screen(self):
        return "_NET_WM_STATE_FULLSCREEN" in self.window.states()

    def wait_full_screen(self, on=True):
        x11.wait_for(lambda: self.is_full_screen() == on
            and (not on or self.window.frame() == (0, 0, *SCREEN)),
            lambda: f"full screen: {on}; {self.window.states()} at {self.window.frame()}")

    def wait_frame(self, *frame):
        """Until the content is at that left, top, width and height; None is any."""
        x11.wait_for(lambda: all(wanted in (None, found)
                for wanted, found in zip(frame, self.window.frame())),
            lambda: f"the window is at {frame}; it is at {self.window.frame()}")

    def wait_settled(self):
        """Until nothing happens any more and the frame stays; the frame."""
        while True:
            before = self.window.frame()
            self.wait_idle()
            if self.window.frame() == before:
                return before

    def image_area(self):
        """Left, top, width and height on the screen of what the menu and the status bar leave,
        scroll bars included."""
        left, top, width, height = self.window.frame()
        if self.is_full_screen():
            return left, top, width, height
        menu = self.test.menu_height()
        return left, top + menu, width, height - menu - STATUS_BAR_HEIGHT

    def area_picture(self):
        return x11.of_one_moment(self.image_area, self.screen.picture)

    def centre(self):
        """The colour in the middle of the image area."""
        def picture(left, top, width, height):
            return self.screen.picture(left + width // 2, top + height // 2, 1, 1)

        return x11.of_one_moment(self.image_area, picture).at(0, 0)

    def wheel(self, down=True):
        """One notch with the pointer over the image."""
        left, top, width, height = self.image_area()
        self.screen.click(left + width // 3, top + height // 3, which=5 if down else 4)

    def wait_centre(self, color, seconds=20):
        x11.wait_for(lambda: self.centre() == tuple(color),
            lambda: f"the middle is {color}; it is {self.centre()}", seconds)

    def key(self, *names):
        self.screen.key(*names)

    def pixel_is(self, x, y, color):
        """Whether a pixel of the image area has that colour."""
        left, top, _width, _height = self.image_area()
        return self.screen.picture(left + x, top + y, 1, 1).at(0, 0) == tuple(color)

    def wait_idle(self):
        """Until none of its threads has had anything to do for a while, nor the screen's server,
        nor the window manager."""
        processes = [self.process.pid, *os.environ.get("VIRTUAL_DESKTOP_PROCESSES", "").split()]
        quiet = 0

        def idle():
            nonlocal quiet
            quiet = quiet + 1 if all(map(sleeps, processes)) else 0
            return quiet >= 20

        x11.wait_for(idle, "the viewer has nothing left to do")

    def close(self, seconds=15):
        """Closes the window; the program's status."""
        self.window.close()
        x11.wait_for(lambda: not self.is_running(), "the viewer has ended", seconds)
        return self.process.returncode

    def end(self):
        if self.is_running():
            self.process.kill()
        self.process.wait()
        self.errors.close()


class ViewerTest(unittest.TestCase):
    """Gives every test a folder for pictures, settings of its own and a screen."""

    program = PROGRAM

    def setUp(self):
        self.screen = x11.Screen()
        self.addCleanup(self.screen.close)
        self.home = tempfile.mkdtemp(prefix="lorivane-test-")
        self.addCleanup(shutil.rmtree, self.home, ignore_errors=True)
        self.folder = os.path.join(self.home, "pictures")
        os.mkdir(self.folder)
        self.settings = os.path.join(self.home, "settings")
        # The pointer rests where it disturbs nobody.
        self.screen.move_pointer(1279, 1023)

    # The height of the menu bar, the same in all windows of a program.
    _menu_height = None

    def menu_height(self):
        """What the window has above the image."""
        if ViewerTest._menu_height is None:
            folder = tempfile.mkdtemp(prefix="lorivane-test-")
            self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
            with open(os.path.join(folder, "fitted.png"), "wb") as file:
                file.write(png.plain(400, 300, (1, 2, 3)))
            # Beside the viewer that is tested: without a bus it does not hand its files to that.
            environment = {**self.environment(), "XDG_CONFIG_HOME": os.path.join(folder, "new"),
                "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}
            probe = Viewer(self, [folder], environment, folder)
            try:
                probe.wait_shown("fitted.png")
                probe.wait_frame(None, None, 400, None)
                height = probe.wait_settled()[3]
            finally:
                probe.end()
            ViewerTest._menu_height = height - 300 - STATUS_BAR_HEIGHT
        return ViewerTest._menu_height

    def preferences(self, *fields):
        """Settings for the next start; `settings_file` has their kinds."""
        settings_file.write(self.settings, "Lorivane", "Lorivane_Prefs.arc", *fields)

    def display_option(self, option):
        self.preferences(settings_file.int32("DsOp", option))

    def saved_frame(self, left, top, right, bottom):
        """The frame the last run is to have had: the content's edges, all inclusive."""
        settings_file.write(self.settings, "Lorivane", "Lorivane_ExitStates.arc",
            settings_file.string("_Ver", "1.0"),
            settings_file.rect("_WFr", left, top, right, bottom))

    def environment(self):
        return {**os.environ, "HOME": self.home, "XDG_CONFIG_HOME": self.settings,
            "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8"}

    def start(self, *arguments, folder=None, focus=True):
        """A new viewer with its window on the screen and the keyboard in it."""
        viewer = Viewer(self, arguments, self.environment(), folder or self.folder)
        self.addCleanup(viewer.end)
        if focus:
            viewer.window.activate()
        return viewer

    def path(self, name):
        if isinstance(name, bytes):
            return os.path.join(os.fsencode(self.folder), name)
        return os.path.join(self.folder, name)

    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)
        return self.path(name)

    def picture(self, name, color, width=320, height=240):
        """Writes a PNG picture of one colour."""
        return self.write(name, png.plain(width, height, color))

    def measured_picture(self, name, width, height):
        """Writes a PNG picture whose pixels tell their places."""
        return self.write(name, measured(width, height))

    def pictures(self, count):
        """Writes pictures p000.png and so on, each in its color_of."""
        names = [f"p{index:03}.png" for index in range(count)]
        for index, name in enumerate(names):
            self.picture(name, color_of(index))
        return names

    def assert_clean(self, viewer):
        """It still serves its window, closes well, and had nothing to say."""
        self.assertEqual(viewer.close(), 0)
        self.assertEqual(viewer.said(), "")

    @staticmethod
    def sample(name):
        with open(os.path.join(SAMPLES, name), "rb") as file:
            return file.read()

    @staticmethod
    def elapsed(since):
        return time.monotonic() - since


def main():
    unittest.main(verbosity=2)
