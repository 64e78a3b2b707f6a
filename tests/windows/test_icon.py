"""The program's icon, as a task bar gets it."""

from Xlib import Xatom

from viewer_test import ViewerTest, main, x11

BLUE_FRAME = 0x24395a  # of the pictures in the drawing


class Icon(ViewerTest):
    def icons(self, window):
        """The pixels of the window's icons, 0xAARRGGBB in rows, by their width."""
        data = list(window._property("_NET_WM_ICON", Xatom.CARDINAL) or [])
        found = {}
        while data:
            width, height = data[0], data[1]
            self.assertEqual(width, height)
            found[width] = data[2:2 + width * height]
            del data[:2 + width * height]
        return found

    def test_every_size_shows_the_drawing(self):
        viewer = self.start()
        icons = x11.wait_for(lambda: self.icons(viewer.window), "the window has icons")
        self.assertEqual(set(icons), {16, 32, 48, 128})
        for size, pixels in icons.items():
            self.assertEqual(len(pixels), size * size)
            # Nothing in its left top corner, a frame somewhere, and a picture in that.
            self.assertEqual(pixels[0] >> 24, 0)
            self.assertIn(0xff000000 | BLUE_FRAME, pixels, size)
            self.assertGreater(len({pixel & 0xffffff for pixel in pixels if pixel >> 24 == 255}), 4)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
