"""What is not a picture, and what only looks like one."""

import os
import random
import struct
import subprocess
import zlib

from viewer_test import PROGRAM, SAMPLES, ViewerTest, color_of, main, x11


def png_that_claims(width, height):
    """A small file that says it is a huge picture."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
        + chunk(b"IDAT", zlib.compress(bytes(1000))) + chunk(b"IEND", b""))


def drawing(color, *names):
    """An SVG of one colour that shows the files of these names over it."""
    images = "".join(f'<image width="320" height="240" xlink:href="{name}"/>' for name in names)
    return ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
        'width="320" height="240"><rect width="320" height="240" '
        f'fill="rgb{color}"/>{images}</svg>').encode()


class BadInput(ViewerTest):
    def start_and_expect_nothing(self, argument):
        """The window is there, empty, alive, and closes well. What the viewer said."""
        viewer = self.start(argument)
        viewer.wait_title("Lorivane")
        # Time for what must not happen is given by a round of work that must: a key is handled.
        viewer.key("space")
        viewer.wait_centre((0, 0, 0))
        self.assertEqual(viewer.title(), "Lorivane")
        self.assertEqual(viewer.close(), 0)
        return viewer

    def expect_nothing_and_silence(self, argument):
        self.assertEqual(self.start_and_expect_nothing(argument).said(), "")

    def complaint_about(self, *arguments):
        """What the viewer wrote before it ended, as it has to, with the status of a mistake."""
        ended = subprocess.run([PROGRAM, *arguments], env=self.environment(), cwd=self.folder,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            timeout=30, check=False)
        self.assertEqual(ended.returncode, 2)
        return ended.stdout.decode()

    def test_a_missing_path_is_one_line_of_complaint(self):
        self.assertEqual(self.complaint_about("no such picture.png"),
            "lorivane: no such picture.png: No such file or directory\n")

    def test_a_missing_path_among_others_does_not_hinder_them(self):
        self.picture("a.png", color_of(3))
        viewer = self.start("missing.png", self.path("a.png"))
        viewer.wait_shown("a.png")
        self.assertEqual(viewer.close(), 0)
        self.assertEqual(viewer.said(), "lorivane: missing.png: No such file or directory\n")

    def test_a_fifo(self):
        os.mkfifo(self.path("pipe.png"))
        self.expect_nothing_and_silence(self.path("pipe.png"))

    def test_a_device(self):
        os.symlink("/dev/zero", self.path("zero.png"))
        self.expect_nothing_and_silence(self.path("zero.png"))

    def test_an_empty_folder(self):
        self.expect_nothing_and_silence(self.folder)

    def test_a_folder_without_pictures(self):
        os.mkdir(self.path("inner"))
        self.write("a.txt", b"text")
        self.write("b.jpg", b"text too")
        self.expect_nothing_and_silence(self.folder)

    def test_a_folder_that_cannot_be_read(self):
        os.chmod(self.folder, 0)
        try:
            self.start_and_expect_nothing(self.folder)
        finally:
            os.chmod(self.folder, 0o700)

    def test_a_dangling_link(self):
        os.symlink("nowhere.png", self.path("link.png"))
        self.assertEqual(self.complaint_about("link.png"),
            "lorivane: link.png: No such file or directory\n")

    def test_text_called_a_picture(self):
        self.write("text.jpg", b"These are words.\n" * 50)
        self.expect_nothing_and_silence(self.path("text.jpg"))

    def test_noise(self):
        noise = random.Random(4)
        for index in range(5):
            name = f"noise{index}.jpg"
            self.write(name, noise.randbytes(10000))
        self.expect_nothing_and_silence(self.path("noise0.jpg"))

    def test_an_empty_file(self):
        self.write("empty.png", b"")
        self.expect_nothing_and_silence(self.path("empty.png"))

    def test_a_truncated_photograph_shows_nothing(self):
        whole = self.sample("02-rings.jpg")
        self.write("half.jpg", whole[:len(whole) // 2])
        self.expect_nothing_and_silence(self.path("half.jpg"))

    def test_a_file_that_claims_to_be_huge(self):
        self.write("huge.png", png_that_claims(0x7fffffff, 0x7fffffff))
        self.expect_nothing_and_silence(self.path("huge.png"))
        self.write("large.png", png_that_claims(200000, 200000))
        self.expect_nothing_and_silence(self.path("large.png"))

    def test_bad_entries_do_not_stop_the_way_through_a_folder(self):
        self.picture("a.png", color_of(1))
        whole = self.sample("02-rings.jpg")
        self.write("b truncated.jpg", whole[:len(whole) // 2])
        os.mkfifo(self.path("c pipe.png"))
        os.symlink("/dev/zero", self.path("d zero.png"))
        os.symlink("nowhere.png", self.path("e link.png"))
        self.write("f text.jpg", b"words")
        self.write("g huge.png", png_that_claims(200000, 200000))
        self.write("h noise.jpg", random.Random(5).randbytes(3000))
        os.symlink("a.png", self.path("i link to a picture"))
        self.picture("z.png", color_of(2))
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")

        def step_until(key, name):
            def there():
                viewer.key(key)
                return viewer.title() == name + " - Lorivane"
            x11.wait_for(there, lambda: f"{name} is reached; at {viewer.title()!r}")

        step_until("space", "z.png")
        viewer.wait_centre(color_of(2))
        step_until("BackSpace", "a.png")
        viewer.wait_centre(color_of(1))
        self.assert_clean(viewer)

    def test_drawings_that_name_files_are_shown_without_them(self):
        # Each is a neighbour first, which is decoded ahead, and then the one that is shown.
        self.picture("a.png", color_of(1))
        os.mkfifo(self.path("pipe"))
        names = {
            "b.svg": [self.path("b.svg")],
            "c.svg": ["c.svg"],
            "d.svg": ["e.svg"],
            "e.svg": [self.path("d.svg")],
            "f.svg": [f"/proc/self/fd/{number}" for number in range(117)],
            "g.svg": [self.path("pipe")],
            "h.svg": ["pipe"],
            "i.svg": ["/dev/stdin", "file:///dev/zero"],
            "j.svg": [self.path("a.png"), "a.png"],
        }
        for index, (name, images) in enumerate(names.items()):
            self.write(name, drawing(color_of(index + 2), *images))
        self.picture("z.png", color_of(1))
        viewer = self.start("a.png")
        viewer.wait_shown("a.png")
        for index, name in enumerate(names):
            viewer.key("space")
            viewer.wait_shown(name)
            viewer.wait_centre(color_of(index + 2))
        viewer.key("space")
        viewer.wait_shown("z.png")
        viewer.wait_centre(color_of(1))
        self.assert_clean(viewer)

    def test_a_link_to_a_picture_is_a_picture(self):
        self.picture("a.png", color_of(6))
        os.mkdir(self.path("links"))
        os.symlink("../a.png", self.path("links/mine.png"))
        viewer = self.start(self.path("links/mine.png"))
        viewer.wait_shown("mine.png")
        viewer.wait_centre(color_of(6))
        self.assert_clean(viewer)

    def test_a_picture_that_goes_away(self):
        self.pictures(6)
        viewer = self.start(self.folder)
        viewer.wait_shown("p000.png")
        for index in (2, 3, 4):
            os.remove(self.path(f"p{index:03}.png"))
        def at_the_last():
            viewer.key("space")
            return viewer.title() == "p005.png - Lorivane"
        x11.wait_for(at_the_last, lambda: f"the last is reached; at {viewer.title()!r}")
        viewer.wait_centre(color_of(5))
        self.assert_clean(viewer)


class OddNames(ViewerTest):
    def test_a_name_that_is_not_utf8(self):
        self.picture(b"caf\xe9.png", color_of(10))
        self.picture(b"b\xff\xfe.png", color_of(11))
        viewer = self.start(self.path(b"caf\xe9.png"))
        viewer.wait_centre(color_of(10))
        self.assertTrue(viewer.title().startswith("caf"), viewer.title())
        self.assertTrue(viewer.title().endswith(".png - Lorivane"), viewer.title())
        viewer.key("BackSpace")
        viewer.wait_centre(color_of(11))
        self.assert_clean(viewer)

    def test_a_name_with_a_line_break(self):
        self.picture("two\nlines.png", color_of(12))
        viewer = self.start(self.path("two\nlines.png"))
        viewer.wait_centre(color_of(12))
        self.assertTrue(viewer.title().startswith("two"), viewer.title())
        self.assert_clean(viewer)

    def test_names_that_look_like_options_or_patterns(self):
        for index, name in enumerate(("-x.png", "--help", "%s%n.png", "&amp;.png", "*.png", " ")):
            with self.subTest(name=name):
                self.picture(name, color_of(20 + index))
                viewer = self.start(self.path(name))
                viewer.wait_shown(name)
                viewer.wait_centre(color_of(20 + index))
                self.assert_clean(viewer)

    def test_a_very_long_name(self):
        name = "長" * 83 + ".png"  # 253 bytes, as long as a name can be
        self.picture(name, color_of(30))
        viewer = self.start(self.path(name))
        viewer.wait_shown(name)
        self.assert_clean(viewer)

    def test_a_name_in_another_script(self):
        viewer = self.start(os.path.join(SAMPLES, "桜.jpg"))
        viewer.wait_shown("桜.jpg")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
