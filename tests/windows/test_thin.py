#!/usr/bin/python3
"""Pictures of a few rows or columns, scaled to millions of pixels: they cost nothing, and are whole to
the last pixel."""

from viewer_test import (SCROLL_BAR_THICKNESS, ViewerTest, main, measured,
    place_of, x11)

WIDTH_OPTION, HEIGHT_OPTION = 4, 5
CASES = ((HEIGHT_OPTION, 3000, 2), (HEIGHT_OPTION, 30000, 10), (WIDTH_OPTION, 10, 30000),
    (WIDTH_OPTION, 2, 3000))


class ThinTest(ViewerTest):
    def open_between_its_like(self, option, width, height):
        for name in ("a.png", "b.png", "c.png"):
            self.write(name, measured(width, height))
        self.display_option(option)
        self.saved_frame(20, 30, 20 + 899, 30 + 799)
        viewer = self.start(self.path("b.png"))
        viewer.wait_shown("b.png")
        viewer.wait_settled()
        return viewer

    @staticmethod
    def most_memory(viewer):
        """In KiB."""
        with open(f"/proc/{viewer.process.pid}/status", encoding="ascii") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("VmHWM"))

    def test_they_and_their_neighbours_take_no_memory(self):
        for option, width, height in CASES:
            with self.subTest(width=width, height=height):
                viewer = self.open_between_its_like(option, width, height)
                for key, name in (("space", "c.png"), ("BackSpace", "b.png"), ("BackSpace", "a.png")):
                    viewer.key(key)
                    viewer.wait_shown(name, 2)
                viewer.wait_settled()
                self.assertLess(self.most_memory(viewer), 150 * 1024)
                self.assert_clean(viewer)

    @staticmethod
    def corners(viewer, across):
        """The places in the picture of the first and the last pixel that the window shows."""
        shown = viewer.area_picture()
        # Scaling leaves a unit or two more for the bar than the bar takes.
        beside = SCROLL_BAR_THICKNESS + 4
        right = shown.width - (1 if across else beside)
        bottom = shown.height - (beside if across else 1)
        return place_of(shown.at(0, 0)), place_of(shown.at(right, bottom))

    def test_they_fill_the_window_and_end_with_their_last_pixel(self):
        for option, width, height in CASES:
            with self.subTest(width=width, height=height):
                viewer = self.open_between_its_like(option, width, height)
                across = option == HEIGHT_OPTION
                first, last = self.corners(viewer, across)
                # All of the short side is seen at once.
                self.assertEqual(first, (0, 0))
                self.assertEqual(last[across], (height if across else width) - 1)
                # Draws the thumb to the far end and beyond.
                left, top, wide, high = viewer.image_area()
                thickness = SCROLL_BAR_THICKNESS // 2
                start = (left + 20, top + high - thickness) if across else (
                    left + wide - thickness, top + 20)
                end = (left + wide + 50, start[1]) if across else (start[0], top + high + 50)
                self.screen.move_pointer(*start)
                self.screen.button(True)
                self.screen.move_pointer(*end)
                self.screen.button(False)
                wanted = (width - 1) % 4096, (height - 1) % 4096
                x11.wait_for(lambda: self.corners(viewer, across)[1] == wanted,
                    lambda: f"the last pixel {wanted}; it is {self.corners(viewer, across)}")
                self.assert_clean(viewer)


if __name__ == "__main__":
    main()
