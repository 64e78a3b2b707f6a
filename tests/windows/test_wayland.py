"""The program under a Wayland compositor: no positions, no foreign windows, and the same
behaviour."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

import accessibility
from viewer_test import BLACK, PROGRAM, ROOT, SAMPLES, color_of, png, settings_file, x11

DESKTOP = os.path.join(ROOT, "tools", "virtual_wayland.sh")
NEEDED = ("sway", "swaymsg", "grim", "wtype")
SKIPPED = 77  # as ctest is told
INSIDE = "LORIVANE_INSIDE_WAYLAND"


def tree():
    """The compositor's windows."""
    return json.loads(subprocess.run(["swaymsg", "-t", "get_tree"], check=True,
        capture_output=True).stdout)


def nodes(node):
    yield node
    for below in node["nodes"] + node["floating_nodes"]:
        yield from nodes(below)


def picture():
    """Width, height and R, G, B bytes of the screen."""
    data = subprocess.run(["grim", "-t", "ppm", "-"], check=True, capture_output=True).stdout
    kind, size, depth, pixels = data.split(b"\n", 3)
    assert (kind, depth) == (b"P6", b"255"), data[:20]
    width, height = map(int, size.split())
    return width, height, pixels


class Wayland(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="lorivane-test-")
        self.addCleanup(shutil.rmtree, self.home, ignore_errors=True)
        self.folder = os.path.join(self.home, "pictures")
        os.mkdir(self.folder)
        self.settings = os.path.join(self.home, "settings")

        # A seat without a keyboard has no focus, and each wtype brings and takes its own: the
        # first key would be lost. This one stays.
        keyboard = subprocess.Popen(["wtype", "-s", "3600000"])
        self.addCleanup(keyboard.wait)
        self.addCleanup(keyboard.kill)

    def pictures(self, count, width=320, height=240):
        for index in range(count):
            with open(os.path.join(self.folder, f"p{index:03}.png"), "wb") as file:
                file.write(png.plain(width, height, color_of(index)))

    def start(self, *arguments):
        self.errors = tempfile.TemporaryFile()
        self.addCleanup(self.errors.close)
        environment = {**os.environ, "HOME": self.home, "XDG_CONFIG_HOME": self.settings,
            "QT_QPA_PLATFORM": "wayland", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "LC_ALL": "C.UTF-8"}
        environment.pop("DISPLAY", None)
        self.process = subprocess.Popen([PROGRAM, *arguments], env=environment,
            stdin=subprocess.DEVNULL, stdout=self.errors, stderr=self.errors)
        self.addCleanup(self.end)
        x11.wait_for(self.window, lambda: f"the viewer's window appears; {self.said()}", 30)

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def said(self):
        self.errors.seek(0)
        return self.errors.read().decode("utf-8", "replace")

    def window(self):
        return next((node for node in nodes(tree()) if node.get("pid") == self.process.pid), None)

    def wait_shown(self, name):
        title = f"{name} - Lorivane" if name else "Lorivane"
        x11.wait_for(lambda: (self.window() or {}).get("name") == title,
            lambda: f"the title is {title!r}; the window is {self.window()}; {self.said()}")

    def wait_full_screen(self, on=True):
        x11.wait_for(lambda: self.window()["fullscreen_mode"] == int(on),
            lambda: f"full screen: {on}; the window is {self.window()}")

    def key(self, *arguments):
        subprocess.run(["wtype", *arguments], check=True)

    def pixel(self, x, y):
        width, _height, pixels = picture()
        start = (int(y) * width + int(x)) * 3
        return tuple(pixels[start:start + 3])

    def centre(self):
        rect = self.window()["rect"]
        return self.pixel(rect["x"] + rect["width"] // 2, rect["y"] + rect["height"] // 2)

    def wait_centre(self, color):
        x11.wait_for(lambda: self.centre() == color,
            lambda: f"the middle is {color}; it is {self.centre()}")

    def close(self):
        subprocess.run(["swaymsg", f"[pid={self.process.pid}]", "kill"], check=True,
            capture_output=True)
        x11.wait_for(lambda: self.process.poll() is not None, "the viewer has ended")
        self.assertEqual(self.process.returncode, 0)
        self.assertEqual(self.said(), "")

    def test_pictures_are_shown_and_stepped_through(self):
        self.pictures(4)
        self.start(self.folder)
        for index in range(4):
            self.wait_shown(f"p{index:03}.png")
            self.wait_centre(color_of(index))
            self.key("-k", "space")
        self.key("-k", "Home")
        self.wait_shown("p000.png")
        # A key struck before the picture is on the screen does not count.
        self.wait_centre(color_of(0))
        self.key("-M", "ctrl", "-k", "Right", "-m", "ctrl")
        self.wait_shown("p001.png")
        self.wait_centre(color_of(1))
        self.close()

    def test_full_screen_shows_nothing_but_the_picture(self):
        self.pictures(2)
        settings_file.write(self.settings, "Lorivane", "Lorivane_Prefs.arc",
            settings_file.int32("DsOp", 2))
        self.start(self.folder)
        self.wait_shown("p000.png")
        self.wait_centre(color_of(0))
        for key, index in (("Return", 0), ("F5", 1)):
            self.key("-k", key)
            self.wait_full_screen()

            def is_filled(color=color_of(index)):
                width, height, pixels = picture()
                return pixels == bytes(color) * (width * height)

            x11.wait_for(is_filled, "the picture fills the screen", 10)
            self.key("-k", "space")
            self.wait_shown("p001.png")
            self.key("-k", "Escape")
            self.wait_full_screen(False)
            self.wait_centre(color_of(1))
        self.close()

    def test_without_a_picture_the_window_is_black(self):
        self.start()
        self.wait_shown("")
        self.wait_centre(BLACK)
        self.key("-k", "F5")
        self.wait_full_screen()
        self.wait_centre(BLACK)
        self.key("-k", "F5")
        self.wait_full_screen(False)
        self.close()

    def test_a_menu_opens_and_is_chosen_from(self):
        self.pictures(3)
        self.start(self.folder)
        self.wait_shown("p000.png")
        self.wait_centre(color_of(0))
        reader = accessibility.Reader(self)
        first = ("View(V)", "First Image(F) [Home]")
        for closing in ("Escape", "l"):
            before = picture()
            self.key("-M", "alt", "-k", "v", "-m", "alt")
            x11.wait_for(lambda: accessibility.is_showing(reader.menu(*first)),
                "the menu is open")
            x11.wait_for(lambda: picture() != before, "it is on the screen")
            self.key("-k", closing)
            x11.wait_for(lambda: not accessibility.is_showing(reader.menu(*first)),
                "the menu is closed")
        self.wait_shown("p002.png")
        self.wait_centre(color_of(2))
        self.close()

    def test_every_sample_is_shown(self):
        self.start(SAMPLES)
        self.wait_shown("01-sunset.jpg")
        x11.wait_for(lambda: self.centre() != BLACK, "the picture is on the screen")
        self.key("-k", "End")
        self.wait_shown("桜.jpg")
        self.close()


def main():
    missing = [name for name in NEEDED if shutil.which(name) is None]
    if missing:
        print("skipped: there is no Wayland compositor here; missing:", *missing)
        sys.exit(SKIPPED)
    if INSIDE not in os.environ:
        os.environ[INSIDE] = "1"
        os.execv(DESKTOP, [DESKTOP, sys.executable, *sys.argv])
    unittest.main(verbosity=2)


if __name__ == "__main__":
    main()
