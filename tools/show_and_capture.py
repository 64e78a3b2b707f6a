#!/usr/bin/python3
"""show_and_capture.py PICTURE PROGRAM [ARGUMENT...]: starts the viewer, saves a picture of its
window once that shows an image, closes the window and returns the viewer's own status. A window
that shows none for a while is saved as it is, and that is said."""

import subprocess
import sys

import png
import x11

SECONDS_TO_OPEN = 30
SECONDS_TO_SHOW = 15
SECONDS_TO_CLOSE = 15


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


def show(screen, program, target):
    def opened():
        if program.poll() is not None:
            raise x11.Timeout(f"the viewer ended by itself with status {program.returncode}")
        windows = screen.windows(program.pid)
        return windows[0] if windows else None

    def shown():
        opened()
        return window.title().endswith(" - Lorivane") and not window.picture().is_uniform()

    def settled():
        # Twice the same: the window manager and the viewer have come to rest.
        before = window.picture()
        after = window.picture()
        return after if before.data == after.data else None

    window = x11.wait_for(opened, "the viewer opens its window", SECONDS_TO_OPEN)
    try:
        x11.wait_for(shown, "the window shows a picture", SECONDS_TO_SHOW)
    except x11.Timeout:
        if program.poll() is not None:
            raise
        print("The viewer shows no picture.", file=sys.stderr)
    picture = x11.wait_for(settled, "the window has come to rest", SECONDS_TO_SHOW)
    with open(target, "wb") as file:
        file.write(png.encode(picture.width, picture.height, list(picture.rows())))
    window.close()
    x11.wait_for(lambda: program.poll() is not None, "the viewer has ended", SECONDS_TO_CLOSE)
    return program.returncode


if __name__ == "__main__":
    sys.exit(main())
