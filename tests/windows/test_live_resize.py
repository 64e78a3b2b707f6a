"""A window while its edge is dragged: every moment on the screen is one whole layout, old or new, and
the background beside it."""

import threading

import settings_file
from viewer_test import STATUS_BAR_HEIGHT, ViewerTest, color_of, main, x11

BACKGROUND = (10, 120, 40)
# To the right of the status bar's last separator.
BEYOND_TEXTS = 330


class Dragging(threading.Thread):
    """Another client that gives a window one size after the other, back and forth."""

    def __init__(self, window_id, at, sizes):
        super().__init__(daemon=True)
        self.window_id, self.at, self.sizes = window_id, at, sizes
        self.ends = threading.Event()

    def run(self):
        screen = x11.Screen()
        window = x11.Window(screen, screen.display.create_resource_object("window", self.window_id))
        step = 0
        while not self.ends.wait(0.012):
            window.move_resize(*self.at, *self.sizes[step % len(self.sizes)])
            step += 1
        screen.close()

    def end(self):
        self.ends.set()
        self.join()


def rgb(pixel):
    return pixel >> 16 & 0xff, pixel >> 8 & 0xff, pixel & 0xff


class Layout:
    """What a picture of the window shows, read from its pixels. `wrong` is in words, or empty."""

    def __init__(self, picture, menu_height, colors, panel):
        self.width, self.height = picture.width, picture.height
        self.pixels = memoryview(picture.data).cast("I")
        self.menu_height = menu_height
        self.picture, self.color = None, None
        self.wrong = self.read(colors, panel)

    def at(self, x, y):
        return rgb(self.pixels[y * self.width + x])

    def row(self, y, left=0, right=None):
        start = y * self.width
        return self.pixels[start + left:start + (self.width if right is None else right)]

    @staticmethod
    def all_are(pixels, color):
        red, green, blue = color
        wanted = red << 16 | green << 8 | blue
        return all(pixel & 0xffffff == wanted for pixel in pixels)

    def read(self, colors, panel):
        top = self.menu_height
        color = self.at(0, top)
        if color not in colors:
            return f"{color} is at the picture's corner"
        self.color = color
        row = self.row(top)
        wide = next((x for x in range(self.width) if rgb(row[x]) != color), self.width)
        high = next((y for y in range(top, self.height) if self.at(0, y) != color), self.height)
        self.picture = wide, high - top
        for y in range(top, high):
            if not self.all_are(self.row(y, 0, wide), color):
                return f"something lies over the picture in row {y}"
            if not self.all_are(self.row(y, wide), BACKGROUND):
                return f"no background beside the picture in row {y}"
        end = min(high + STATUS_BAR_HEIGHT, self.height)
        for y in range(high, end):
            if not self.all_are(self.row(y, BEYOND_TEXTS, wide), panel):
                return f"no status bar in row {y}"
        if end - high == STATUS_BAR_HEIGHT:
            texts = {pixel for y in range(high, end) for pixel in self.row(y, 4, 40)}
            if len(texts) < 4:
                return "the status bar has no text"
        for y in range(end, self.height):
            if not self.all_are(self.row(y), BACKGROUND):
                return f"no background below the status bar in row {y}"
        return ""


class LiveResize(ViewerTest):
    FRAMES = 300

    def open(self, option=2):
        self.preferences(settings_file.int32("DsOp", option),
            settings_file.raw("ClBG", bytes((*BACKGROUND, 255))))
        self.saved_frame(60, 60, 60 + 499, 60 + 399)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        viewer.wait_centre(color_of(0))
        left, top, _width, height = viewer.wait_settled()
        self.panel = self.screen.picture(left + BEYOND_TEXTS, top + height - 5, 1, 1).at(0, 0)
        return viewer

    def seen_frame(self, window):
        """What of the window its ancestors let be seen: the manager's may be a step behind."""
        left, top, width, height = window.frame()
        right, bottom = left + width, top + height
        handle = window.handle.query_tree().parent
        while handle.id != self.screen.root.id:
            x, y, wide, high = x11.Window(self.screen, handle).frame()
            right, bottom = min(right, x + wide), min(bottom, y + high)
            handle = handle.query_tree().parent
        return left, top, right - left, bottom - top

    def moment(self, viewer):
        """The window's picture at one moment: nobody else draws while it is taken."""
        self.screen.display.grab_server()
        try:
            return self.screen.picture(*self.seen_frame(viewer.window))
        finally:
            self.screen.display.ungrab_server()
            self.screen.display.flush()

    def watch(self, viewer, colors, frames, each=lambda number: None):
        """The layouts that were seen, and of the wrong ones what was wrong with them."""
        seen, wrong = [], []
        for number in range(frames):
            picture = self.moment(viewer)
            layout = Layout(picture, self.menu_height(), colors, self.panel)
            seen.append((layout.picture, layout.color))
            if layout.wrong:
                wrong.append(f"{picture.width} x {picture.height}: {layout.wrong}")
                self.keep(picture, len(wrong))
            each(number)
        return seen, wrong

    @staticmethod
    def keep(picture, number):
        """For who looks at them: set the folder to look into."""
        import os

        import png
        if folder := os.environ.get("KEEP_WRONG_FRAMES"):
            with open(os.path.join(folder, f"wrong-{number:03}.png"), "wb") as file:
                file.write(png.encode(picture.width, picture.height, picture.rows()))

    def test_no_moment_shows_half_a_layout(self):
        self.pictures(1)
        viewer = self.open()
        self.menu_height()
        sizes = [(400 + 23 * step, 300 + 17 * step) for step in range(16)]
        dragging = Dragging(viewer.window.handle.id, (60, 60), sizes + sizes[::-1])
        dragging.start()
        try:
            seen, wrong = self.watch(viewer, {color_of(0)}, self.FRAMES)
        finally:
            dragging.end()
        self.assertGreater(len(set(seen)), 5, "too few sizes were seen")
        self.assertEqual(wrong, [], f"{len(wrong)} of {len(seen)} moments")
        viewer.wait_settled()
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
