"""Opening files and folders by the command line."""

import os

from viewer_test import (
    BACKGROUNDS, SAMPLES, STATUS_BAR_HEIGHT, ViewerTest, color_of, main, x11)


class Opening(ViewerTest):
    def test_without_a_file_the_window_is_empty_at_its_first_place(self):
        viewer = self.start()
        viewer.wait_title("Lorivane")
        viewer.wait_frame(50, 50, 301, 251)
        viewer.wait_centre((0, 0, 0))
        self.assert_clean(viewer)

    def test_a_file_is_shown_in_its_colour_and_names_the_window(self):
        self.pictures(3)
        viewer = self.start(self.path("p001.png"))
        viewer.wait_shown("p001.png")
        viewer.wait_centre(color_of(1))
        self.assert_clean(viewer)

    def test_the_window_fits_itself_to_the_picture(self):
        self.picture("a.png", color_of(1), 500, 333)
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_centre(color_of(1))
        x11.wait_for(lambda: viewer.window.frame()[2] == 500, "the window is as wide")

        def is_filled():
            shown = viewer.window.picture()
            last_row = shown.height - STATUS_BAR_HEIGHT - 1
            return {shown.at(x, y) for x in (0, 499) for y in (last_row - 332, last_row)} == {
                color_of(1)}

        x11.wait_for(is_filled, "the picture fills the window to its corners")
        self.assert_clean(viewer)

    def test_a_folder_shows_its_first_picture_in_byte_order(self):
        self.picture("b.png", color_of(1))
        self.picture("B.png", color_of(2))
        self.picture("a10.png", color_of(3))
        self.picture("a9.png", color_of(4))
        viewer = self.start(self.folder)
        for name, number in (("B.png", 2), ("a10.png", 3), ("a9.png", 4), ("b.png", 1)):
            viewer.wait_shown(name)
            viewer.wait_centre(color_of(number))
            viewer.key("space")
        self.assert_clean(viewer)

    def test_what_is_no_picture_is_stepped_over(self):
        os.mkdir(self.path("0 folder"))
        self.write("1 text.png", b"just words\n")
        self.picture("2 without an extension", color_of(1))
        self.write("3 empty.jpg", b"")
        self.picture("4.png", color_of(2))
        viewer = self.start(self.folder)
        viewer.wait_shown("2 without an extension")
        viewer.wait_centre(color_of(1))
        viewer.key("space")
        viewer.wait_shown("4.png")
        viewer.wait_centre(color_of(2))
        viewer.key("BackSpace")
        viewer.wait_shown("2 without an extension")
        viewer.wait_centre(color_of(1))
        self.assert_clean(viewer)

    def test_a_relative_name_belongs_to_the_callers_folder(self):
        os.mkdir(self.path("deep"))
        self.picture("deep/x.png", color_of(5))
        viewer = self.start("deep/x.png")
        viewer.wait_shown("x.png")
        viewer.wait_centre(color_of(5))
        self.assert_clean(viewer)

    def test_of_several_files_the_first_is_opened_and_the_terminal_is_told(self):
        self.pictures(3)
        viewer = self.start("p001.png", "p000.png", "p002.png")
        viewer.wait_shown("p001.png")
        self.assertEqual(viewer.close(), 0)
        self.assertEqual(viewer.said(),
            "lorivane: only the first of 3 files is opened: p001.png\n")

    def test_the_address_of_a_file(self):
        self.picture("b ä.png", color_of(4))
        self.picture("a.png", color_of(5))
        viewer = self.start("file://localhost" + self.path("b%20%C3%A4.png"))
        viewer.wait_shown("b ä.png")
        viewer.wait_idle()
        viewer.key("BackSpace")
        viewer.wait_shown("a.png")
        self.assert_clean(viewer)

    def test_a_link_to_a_folder_opens_the_folder(self):
        os.mkdir(self.path("real"))
        self.picture("real/x.png", color_of(5))
        self.picture("beside.png", color_of(6))
        os.symlink("real", self.path("link"))
        for name in ("link", "link/"):
            viewer = self.start(name)
            viewer.wait_shown("x.png")
            viewer.wait_centre(color_of(5))
            self.assert_clean(viewer)

    def test_what_a_codec_remarks_stays_off_the_terminal(self):
        self.write("odd.svg", b'<svg xmlns="http://www.w3.org/2000/svg" width="300" height="300">'
            b'<rect width="300" height="300" fill="#c86432"/><image width="4" height="4"/></svg>')
        viewer = self.start("odd.svg")
        viewer.wait_shown("odd.svg")
        viewer.wait_centre((200, 100, 50))
        self.assert_clean(viewer)

    def test_every_sample_is_shown(self):
        viewer = self.start(SAMPLES)
        for name in ("01-sunset.jpg", "02-rings.jpg", "03-tower.jpg", "04-waves.jpg",
                "05-leaf.png", "06-turned.jpg", "07-numbers.gif", "08-stripes.ppm", "09-tiny.png",
                "桜.jpg"):
            viewer.wait_shown(name)
            # A key struck before the picture is on the screen does not count.
            viewer.wait_idle()
            viewer.key("space")
        self.assert_clean(viewer)

    def test_the_camera_s_orientation_is_applied(self):
        self.write("turned.jpg", self.sample("06-turned.jpg"))
        viewer = self.start(self.folder)
        viewer.wait_shown("turned.jpg")
        # Upright, the picture is 400 by 600, with a red arrow from row 100 to row 500.
        red = [(200, 130), (110, 228), (290, 228), (200, 480)]
        other = [(200, 60), (110, 130), (110, 480), (290, 480), (200, 560)]
        x11.wait_for(lambda: viewer.window.frame()[2] == 400, "the window is as wide")

        def is_upright():
            shown = viewer.window.picture()
            first_row = shown.height - STATUS_BAR_HEIGHT - 600

            def is_red(x, y):
                red, green, blue = shown.at(x, first_row + y)
                return red > 140 and green < 90 and blue < 110

            return all(is_red(*p) for p in red) and not any(is_red(*p) for p in other)

        x11.wait_for(is_upright, "the arrow points up")
        self.assert_clean(viewer)

    def test_a_folder_of_large_photographs(self):
        names = sorted(os.listdir(BACKGROUNDS), key=os.fsencode)
        viewer = self.start(BACKGROUNDS)
        viewer.wait_shown(names[0], 30)
        x11.wait_for(lambda: not viewer.window.picture().is_uniform(), "the photograph is drawn")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
