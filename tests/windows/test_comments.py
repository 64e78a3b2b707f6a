#!/usr/bin/python3
"""Comments over the image, in real windows."""

import os
import unittest

from viewer_test import ViewerTest, main, png, x11

RED = (255, 0, 0)
MARGIN = 20


class CommentsTest(ViewerTest):
    def picture(self, name, color=RED, size=(400, 300)):
        row = bytes(color) * size[0]
        self.write(name, png.encode(*size, [row] * size[1]))

    def band(self, viewer):
        """The rectangle of the image area that is not red, as left, top, right, bottom."""
        picture = viewer.area_picture()
        found = None
        for y in range(picture.height):
            for x in range(picture.width):
                if picture.at(x, y) != RED:
                    found = found or [x, y, x, y]
                    found = [min(found[0], x), found[1], max(found[2], x), y]
        return found

    def wait_band(self, viewer, condition, what):
        x11.wait_for(lambda: condition(self.band(viewer)),
            lambda: f"{what}; the band is {self.band(viewer)}")

    def toggle(self, viewer):
        viewer.key("Alt_L", "v")
        self.wait_band(viewer, lambda band: band is not None and band[1] < MARGIN,
            "the menu is open")
        viewer.key("c")

    def test_stands_at_the_bottom_in_its_colours(self):
        self.picture("a.png")
        self.write("a.txt", "A comment".encode())
        viewer = self.start(os.path.join(self.folder, "a.png"))
        viewer.wait_shown("a.png")
        self.wait_band(viewer, lambda band: band is not None, "the comment is shown")
        viewer.wait_settled()
        left, top, right, bottom = self.band(viewer)
        _x, _y, _width, height = viewer.image_area()
        self.assertEqual(left, MARGIN)
        # A line of text is a fraction of a pixel higher than a whole number.
        self.assertIn(height - 1 - MARGIN - bottom, (0, 1))
        self.assertLess(right, 200)
        picture = viewer.area_picture()
        # Black of alpha 127 over red.
        self.assertEqual(picture.at(left, top), (128, 0, 0))
        self.assertEqual(picture.at(left - 1, top), RED)
        letters = sum(min(picture.at(x, y)) > 100
            for y in range(top, bottom) for x in range(left, right))
        self.assertGreater(letters, 20)

    def pictures_with(self, *comments):
        """What the image area shows with each of the comments, over pictures that are alike."""
        for index, comment in enumerate(comments):
            self.picture(f"{index}.png")
            self.write(f"{index}.txt", comment)
        viewer = self.start(self.folder)
        pictures = []
        for index in range(len(comments)):
            viewer.wait_shown(f"{index}.png")
            self.wait_band(viewer, lambda band: band is not None, "the comment is shown")
            viewer.wait_settled()  # it may have been the text that stands in for it
            pictures.append(bytes(viewer.area_picture().data))
            viewer.key("space")
        return pictures

    def test_each_encoding_shows_the_same(self):
        text = "日本語の文章です。\n髙橋①"
        pictures = self.pictures_with(text.encode(), text.encode("cp932"),
            b"\x1b$BF|K\\8l$NJ8>O$G$9!#\x1b(B\n\x1b$B|b66-!\x1b(B")
        self.assertEqual(pictures[0], pictures[1])
        self.assertEqual(pictures[0], pictures[2])

    def test_nothing_is_seen_of_a_byte_order_mark(self):
        text = "Sunset over the lake, seen from the old jetty on the last day of the year. " * 4
        marked = "\ufeff" + text.replace("day ", "day \ufeff")
        second = "\n\ufeff" + text
        pictures = self.pictures_with((text + "\n" + text).encode(), (marked + second).encode())
        self.assertEqual(pictures[0], pictures[1])

    def test_menu_turns_them_off_and_on(self):
        self.picture("a.png")
        self.write("a.txt", b"A comment")
        viewer = self.start(os.path.join(self.folder, "a.png"))
        viewer.wait_shown("a.png")
        self.wait_band(viewer, lambda band: band is not None, "the comment is shown")
        self.toggle(viewer)
        self.wait_band(viewer, lambda band: band is None, "the comment is gone")
        self.toggle(viewer)
        self.wait_band(viewer, lambda band: band is not None, "the comment is back")

    def test_what_is_no_text_does_no_harm(self):
        contents = {
            "bytes": bytes(range(256)) * 20,
            "escapes": b"\x1b" * 5000,
            "line": "日本語".encode() * 1_000_000,
            "lines": b"line\n" * 2_000_000,
            "nuls": bytes(10_000),
            "utf16": "\ufeffWide text".encode("utf-16"),
        }
        for name, data in contents.items():
            self.picture(f"{name}.png")
            self.write(f"{name}.txt", data)
        os.mkdir(os.path.join(self.folder, "line.doc"))
        self.picture("pipe.png")
        os.mkfifo(os.path.join(self.folder, "pipe.txt"))
        viewer = self.start(self.folder)
        for name in sorted([*contents, "pipe"]):
            viewer.wait_shown(f"{name}.png")
            # A key struck before the picture is on the screen does not count.
            viewer.wait_idle()
            viewer.key("space")
        self.assertTrue(viewer.is_running())
        self.assertEqual(viewer.close(), 0)


if __name__ == "__main__":
    main()
