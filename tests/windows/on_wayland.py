"""The program on Wayland: a window of its size, full screen, and back as it was."""

import json
import os
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "tools"))
import png  # noqa: E402

PROGRAM = os.environ["LORIVANE"]
SCREEN = (1280, 1024)
BLACK, RED, BLUE = (0, 0, 0), (220, 30, 40), (20, 60, 230)


def wait_for(condition, what, seconds=20):
    end = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"after {seconds} s, not: {what() if callable(what) else what}")
        time.sleep(0.02)
    return value


def window():
    """What the compositor says of the program's window; None while there is none."""
    tree = subprocess.run(["swaymsg", "-t", "get_tree"], check=True, capture_output=True).stdout
    nodes = [json.loads(tree)]
    while nodes:
        node = nodes.pop()
        if node.get("app_id") == "lorivane":
            return node
        nodes += node["nodes"] + node["floating_nodes"]
    return None


def size():
    rect = window()["rect"]
    return rect["width"], rect["height"]


def shown():
    """The screen's pixels, as a function of x and y."""
    data = subprocess.run(["grim", "-t", "ppm", "-"], check=True, capture_output=True).stdout
    _, extent, _, pixels = data.split(b"\n", 3)
    width = int(extent.split()[0])

    def at(x, y):
        """None beside the screen."""
        if not 0 <= x < width or not 0 <= y < len(pixels) // 3 // width:
            return None
        return tuple(pixels[(y * width + x) * 3:(y * width + x) * 3 + 3])

    return at


def window_on_screen():
    """The window's rectangle, and the screen's pixels while it was there."""
    rect = window()["rect"]
    while True:
        at, before = shown(), rect
        rect = window()["rect"]
        if rect == before:
            return rect, at


def key(name):
    subprocess.run(["wtype", "-k", name], check=True)


class OnWayland(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        for name, color, width, height in (("a.png", RED, 320, 240), ("b.png", BLUE, 500, 400)):
            with open(os.path.join(place.name, name), "wb") as file:
                file.write(png.plain(width, height, color))
        self.settings = os.path.join(place.name, "settings")
        environment = {**os.environ, "HOME": place.name, "QT_QPA_PLATFORM": "wayland",
            "XDG_CONFIG_HOME": self.settings, "LC_ALL": "C.UTF-8"}
        self.program = subprocess.Popen([PROGRAM, place.name], env=environment)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)

        def is_there():
            found = window()  # its name comes after it
            return found and (found["name"] or "").startswith("a.png") and found["focused"]

        wait_for(is_there, "the first picture's window")
        wait_for(lambda: size()[0] == 320, lambda: f"a window as wide as it; it is {size()}")

    def wait_only(self, color):
        def is_shown():
            at = shown()
            edges = [at(SCREEN[0] // 2, y) for y in (0, SCREEN[1] - 1)]
            return at(SCREEN[0] // 2, SCREEN[1] // 2) == color and edges == [BLACK, BLACK]

        wait_for(is_shown, f"the screen shows {color} on black")

    def wait_windowed(self, color, extent):
        wait_for(lambda: not window()["fullscreen_mode"] and size() == extent,
            lambda: f"a window of {extent}; it is {size()}")

        def is_shown():
            rect, at = window_on_screen()
            return at(rect["x"] + extent[0] // 2, rect["y"] + extent[1] // 2) == color and \
                at(2, 2) not in (BLACK, color)

        wait_for(is_shown, f"the window shows {color}")

    @staticmethod
    def has_menu_bar():
        """At its left top corner, which is on the screen however large the window is."""
        rect, at = window_on_screen()
        pixel = at(rect["x"] + 2, rect["y"] + 2)
        return pixel is not None and min(pixel) > 150

    def test_full_screen_and_back(self):
        before = size()
        for _ in range(3):
            key("F5")
            wait_for(lambda: window()["fullscreen_mode"], "full screen")
            self.wait_only(RED)
            key("Escape")
            self.wait_windowed(RED, before)

    def test_the_window_follows_the_pictures_size(self):
        before = size()
        key("space")
        self.wait_windowed(BLUE, (500, before[1] + 160))
        key("F5")
        self.wait_only(BLUE)
        key("BackSpace")
        self.wait_only(RED)
        key("F5")
        self.wait_windowed(RED, before)

    def test_toggled_quickly_it_ends_as_it_began(self):
        before = size()
        for _ in range(20):
            key("F5")
        self.wait_windowed(RED, before)
        key("F5")
        self.wait_only(RED)

    def test_the_pictures_menu(self):
        def is_open():
            rect = window()["rect"]
            # Its left top lies in the middle of the image, which the menu bar moves down a little.
            x, y = rect["x"] + rect["width"] // 2 + 10, rect["y"] + rect["height"] // 2
            at = shown()
            return any(at(x, y + down) != RED for down in range(-10, 30))

        record = os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_Additions.arc")
        self.wait_windowed(RED, size())
        self.assertFalse(is_open())
        for closed_by in ("Escape", "Return"):
            self.assertFalse(os.path.exists(record))
            key("Menu")
            wait_for(is_open, "the menu is open")
            key(closed_by)
            wait_for(lambda: not is_open(), f"it is closed by {closed_by}")
        wait_for(lambda: os.path.exists(record), "the choice is saved")
        # The keyboard is the picture's again.
        key("space")
        wait_for(lambda: window()["name"].startswith("b.png"), "the next picture")

    def test_the_compositor_may_end_it(self):
        key("F5")
        self.wait_only(RED)

        def is_ended():
            # As often as it takes: right after its own request the program would ask for it again.
            subprocess.run(["swaymsg", "fullscreen", "disable"], check=True, capture_output=True)
            return not window()["fullscreen_mode"] and self.has_menu_bar()

        wait_for(is_ended, "a window again, and the program knows it")
        key("F5")
        self.wait_only(RED)
        key("F5")
        wait_for(lambda: not window()["fullscreen_mode"] and size()[0] < SCREEN[0],
            "a window again")


if __name__ == "__main__":
    unittest.main(verbosity=2)
