"""The picture of a run without a screen shows an image, and not what comes before it."""

import os
import sys
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tools"))
sys.dont_write_bytecode = True

import show_and_capture  # noqa: E402
import x11  # noqa: E402

WIDTH, HEIGHT = 100, 120
MENU, STATUS, EMPTY = b"\xee\xee\xee\0", b"\xef\xef\xef\0", b"\0\0\0\0"
TITLE = "a.jpg - Lorivane"


def picture(image=EMPTY, position=False):
    """A window with a menu bar, something in it and a status bar, with the position or empty."""
    menu = (MENU * 10 + EMPTY + MENU * (WIDTH - 11)) * 19
    status = (EMPTY + STATUS) * 10 + STATUS * (WIDTH - 20) if position else STATUS * WIDTH
    rows = HEIGHT - 19 - 14
    pixels = (image * WIDTH * rows)[:WIDTH * rows * 4]
    return x11.Picture(WIDTH, HEIGHT, menu + pixels + status * 14)


class Window:
    """One whose content and size are set by the test."""

    def __init__(self):
        self.content, self.size = picture(), (0, 0, WIDTH, HEIGHT)

    def frame(self):
        return self.size

    def picture(self):
        return self.content


class Clock:
    def __init__(self):
        self.now = 0.0

    def __call__(self):
        return self.now


class ShowAndCapture(unittest.TestCase):
    def test_a_menu_and_an_empty_status_bar_are_no_image(self):
        self.assertFalse(show_and_capture.shows_image(TITLE, picture()))

    def test_an_image_of_one_colour_is_told_by_its_position(self):
        self.assertTrue(show_and_capture.shows_image(TITLE, picture(b"\1\2\3\0", True)))

    def test_an_image_is_one_with_its_status_bar_below_the_screen(self):
        self.assertTrue(show_and_capture.shows_image(TITLE, picture(b"\1\2\3\0\4\5\6\0")))

    def test_without_a_title_there_is_none(self):
        self.assertFalse(show_and_capture.shows_image("Lorivane", picture(b"\1\2\3\0", True)))

    def test_a_window_that_changes_is_not_at_rest(self):
        window, clock = Window(), Clock()
        rest = show_and_capture.Rest(window, clock)
        for step in range(10):
            clock.now += show_and_capture.SECONDS_AT_REST * 0.9
            window.content = picture(bytes([step, 0, 0, 0]))
            self.assertIsNone(rest.picture())
        clock.now += show_and_capture.SECONDS_AT_REST * 0.9
        self.assertIsNone(rest.picture())
        clock.now += show_and_capture.SECONDS_AT_REST * 0.2
        self.assertIs(rest.picture(), window.content)

    def test_a_window_that_grows_is_not_at_rest(self):
        window, clock = Window(), Clock()
        rest = show_and_capture.Rest(window, clock)
        self.assertIsNone(rest.picture())
        clock.now += show_and_capture.SECONDS_AT_REST
        window.size = (0, 0, WIDTH + 1, HEIGHT)
        self.assertIsNone(rest.picture())


if __name__ == "__main__":
    unittest.main()
