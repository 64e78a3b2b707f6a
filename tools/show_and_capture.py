#!/usr/bin/python3
"""show_and_capture.py PICTURE PROGRAM [ARGUMENT...]: starts the viewer, saves a picture of its
window once that shows an image, closes the window and returns the viewer's own status. A window
that shows none for a while is saved as it is, and that is said."""

import subprocess
import sys
import time

import png
import x11

SECONDS_TO_OPEN = 30
SECONDS_TO_SHOW = 15
SECONDS_TO_CLOSE = 15
# The title comes before the image, and the image before the size that it gives the window.
SECONDS_AT_REST = 1

# What the menu bar has at most, and the status bar with a scroll bar above it.
TOP = 40
BOTTOM = 28
# Where the first text of the status bar stands: the position in the folder.
STATUS_HEIGHT = 14
STATUS_WIDTH = 40


def main():
    target, command = sys.argv[1], sys.argv[2:]
    screen = x11.Screen()
    program = subprocess.Popen(command)
    try:
        return show(screen, program, target)
    except x11.Timeout as timeout:
        print(timeout, file=sys.stderr)
        return 1
    finally:
        if program.poll() is None:
            program.kill()
        program.wait()


def shows_image(title, picture):
    """Whether there is more than the title: an image may be of one colour, and the status bar,
    which is written only for an image, may be below the screen."""
    image = picture.part(0, TOP, picture.width, picture.height - TOP - BOTTOM)
    status = picture.part(0, picture.height - STATUS_HEIGHT, STATUS_WIDTH, STATUS_HEIGHT)
    return title.endswith(" - Lorivane") and not (image.is_uniform() and status.is_uniform())


class Rest:
    """Watches a window until it has not changed for a while."""

    def __init__(self, window, clock=time.monotonic):
        self.window, self.clock = window, clock
        self.last, self.since = None, clock()

    def picture(self):
        """The picture of the window at rest, or None as long as it is not."""
        frame, picture = self.window.frame(), self.window.picture()
        state = frame, picture.data
        if state != self.last:
            self.last, self.since = state, self.clock()
        return picture if self.clock() - self.since >= SECONDS_AT_REST else None


def show(screen, program, target):
    def opened():
        if program.poll() is not None:
            raise x11.Timeout(f"the viewer ended by itself with status {program.returncode}")
        windows = screen.windows(program.pid)
        return windows[0] if windows else None

    window = x11.wait_for(opened, "the viewer opens its window", SECONDS_TO_OPEN)
    rest = Rest(window)

    def settled():
        opened()
        picture = rest.picture()
        return picture if picture and shows_image(window.title(), picture) else None

    try:
        picture = x11.wait_for(settled, "the window shows a picture", SECONDS_TO_SHOW)
    except x11.Timeout:
        if program.poll() is not None:
            raise
        print("The viewer shows no picture.", file=sys.stderr)
        picture = window.picture()
    with open(target, "wb") as file:
        file.write(png.encode(picture.width, picture.height, list(picture.rows())))
    window.close()
    x11.wait_for(lambda: program.poll() is not None, "the viewer has ended", SECONDS_TO_CLOSE)
    return program.returncode


if __name__ == "__main__":
    sys.exit(main())
