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
import x11  # noqa: E402

PROGRAM = os.environ.get("LORIVANE", os.path.join(ROOT, "build", "lorivane"))
SAMPLES = os.path.join(ROOT, "samples")
BACKGROUNDS = "/usr/share/backgrounds/mate/nature"

# The status bar and what the window needs above the image, in pixels.
STATUS_BAR_HEIGHT = 14


def color_of(index):
    """A colour of its own for each of the first 512 numbers, never black."""
    return 55 + index % 8 * 25, 55 + index // 8 % 8 * 25, 55 + index // 64 % 8 * 25


class Viewer:
    """A running viewer and its main window."""

    def __init__(self, test, arguments, environment, folder):
        self.test, self.screen = test, test.screen
        self.errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen([PROGRAM, *arguments], env=environment, cwd=folder,
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

    def centre(self):
        """The colour in the middle of the image area."""
        left, top, width, height = self.window.frame()
        picture = self.screen.picture(left + width // 2,
            top + (height - STATUS_BAR_HEIGHT) // 2, 1, 1)
        return picture.at(0, 0)

    def wait_centre(self, color, seconds=20):
        x11.wait_for(lambda: self.centre() == tuple(color),
            lambda: f"the middle is {color}; it is {self.centre()}", seconds)

    def key(self, *names):
        self.screen.key(*names)

    def wait_idle(self):
        """Until none of its threads has had anything to do for a while."""
        quiet = 0

        def idle():
            nonlocal quiet
            tasks = f"/proc/{self.process.pid}/task"
            for task in os.listdir(tasks):
                try:
                    with open(f"{tasks}/{task}/stat", encoding="utf-8", errors="replace") as file:
                        state = file.read().rpartition(")")[2].split()[0]
                except OSError:
                    continue  # it has ended
                if state != "S":
                    quiet = 0
                    return False
            quiet += 1
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
