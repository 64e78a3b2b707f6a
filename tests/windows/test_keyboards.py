"""The shortcuts of the files opened before, on keyboards of other countries."""

import subprocess

from recent_test import Recent
from viewer_test import main, x11


class Keyboards(Recent):
    def test_shift_ctrl_and_a_digit(self):
        # German and Japanese ones have other characters beside the digits, French ones need Shift
        # for a digit, and the last has the digits in an order of its own.
        for layout in ("us", "de", "jp", "fr", "ru", "us -variant dvp"):
            with self.subTest(layout=layout):
                subprocess.run(["setxkbmap", *layout.split()], check=True)
                screen = x11.Screen()  # which learns the layout
                self.addCleanup(screen.close)
                self.remember_pictures(10)
                viewer = self.begin()
                for digit in (9, 9, 3):
                    name = self.name_at(digit)
                    screen.key("Control_L", "Shift_L", str(digit))
                    viewer.wait_shown(name)
                    self.wait_first(name)
                self.assert_clean(viewer)


if __name__ == "__main__":
    main()
