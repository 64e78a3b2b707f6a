"""What goes on while a picture is decoded, and what is said of one that cannot be shown."""

import os
import pty
import shutil
import signal
import subprocess
import time

import accessibility
from menu_test import MenuTest
from viewer_test import PROGRAM, ViewerTest, color_of, main, x11

SLOW_TRANSLATOR = os.environ.get("LORIVANE_SLOW_TRANSLATOR", os.path.join(
    os.path.dirname(PROGRAM), "tests", "windows", "slow-translator.so"))
SLOW_COLOR = (80, 160, 30)


class Loading(MenuTest):
    """With a copy of the program that has one translator more, which is as slow as the tests like."""

    def setUp(self):
        super().setUp()
        place = os.path.join(self.home, "program")
        shutil.copytree(os.path.join(os.path.dirname(PROGRAM), "add-ons"),
            os.path.join(place, "add-ons"))
        shutil.copy(SLOW_TRANSLATOR, os.path.join(place, "add-ons", "translators"))
        self.program = shutil.copy(PROGRAM, place)

    def exit_states(self):
        return os.path.join(self.settings, "ZELKAN", "Lorivane", "Lorivane_ExitStates.arc")

    def slow(self, name):
        return self.write(name, b"SLOW WAIT")

    def release(self, name, word=b"SLOW SHOW"):
        """In place: the decoder has the file open."""
        with open(self.path(name), "r+b") as file:
            file.write(word)

    def decoders(self, viewer):
        """The names of the files that the viewer decodes now."""
        tasks = f"/proc/{viewer.process.pid}/task"
        names = []
        for task in os.listdir(tasks):
            try:
                with open(f"{tasks}/{task}/comm", encoding="utf-8", errors="replace") as file:
                    names.append(file.read().strip())
            except OSError:
                continue  # it has ended
        return [name for name in names if name.startswith("LoadThread_")]

    def wait_decoding(self, viewer):
        x11.wait_for(lambda: self.decoders(viewer), "a picture is being decoded")

    def end_by(self, way, viewer):
        if way == "key":
            viewer.key("Control_L", "q")
        elif way == "close box":
            viewer.window.close()
        else:
            viewer.process.send_signal(signal.SIGTERM)

    def assert_ends_at_once(self, way, viewer):
        started = time.monotonic()
        self.end_by(way, viewer)
        x11.wait_for(lambda: not viewer.is_running(), "the viewer has ended", 5)
        self.assertLess(self.elapsed(started), 1)
        self.assertEqual(viewer.process.returncode, 0)
        self.assertEqual(viewer.said(), "")
        self.assertGreater(os.path.getsize(self.exit_states()), 20)
        os.remove(self.exit_states())

    def test_it_ends_at_once_while_a_neighbour_is_decoded(self):
        self.picture("a.png", color_of(1))
        self.slow("b")
        for way in ("key", "close box", "signal"):
            with self.subTest(way=way):
                viewer = self.start("a.png")
                viewer.wait_shown("a.png")
                viewer.wait_centre(color_of(1))
                self.wait_decoding(viewer)
                self.assert_ends_at_once(way, viewer)

    def test_it_ends_at_once_while_the_first_picture_is_decoded(self):
        self.slow("a")
        for way in ("key", "close box", "signal"):
            with self.subTest(way=way):
                viewer = self.start("a")
                self.wait_decoding(viewer)
                self.assert_ends_at_once(way, viewer)

    def test_the_window_answers_while_the_first_picture_is_decoded(self):
        self.slow("a")
        self.picture("b.png", color_of(2))
        viewer = self.start("a")
        self.wait_decoding(viewer)
        viewer.wait_title("Lorivane")
        viewer.key("Return")
        viewer.wait_full_screen()
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        # By the menu.
        self.reader = accessibility.Reader(viewer)
        viewer.key("Alt_L", "v")
        self.wait_open("View(V)")
        viewer.key("u")
        viewer.wait_full_screen()
        viewer.key("Escape")
        viewer.wait_full_screen(False)
        # Another file.
        subprocess.run([self.program, self.path("b.png")], env=self.environment(), timeout=30,
            check=True)
        viewer.wait_shown("b.png")
        viewer.wait_centre(color_of(2))
        # What comes of the first does not matter any more.
        self.release("a")
        x11.wait_for(lambda: not self.decoders(viewer), "nothing is decoded any more")
        viewer.wait_idle()
        self.assertEqual(viewer.title(), "b.png - Lorivane")
        self.assert_clean(viewer)

    def test_the_first_picture_is_shown_when_it_is_ready(self):
        self.slow("a")
        viewer = self.start("a")
        self.wait_decoding(viewer)
        self.release("a")
        viewer.wait_shown("a")
        viewer.wait_centre(SLOW_COLOR)
        self.assert_clean(viewer)


class Changes(ViewerTest):
    """Files that come, go and change while their folder is looked through."""

    def test_a_picture_kept_from_before_keeps_its_own_name(self):
        for number in range(12):
            self.picture(f"p{number:02}.png", color_of(number))
        viewer = self.start("p05.png")
        viewer.wait_shown("p05.png")
        viewer.wait_centre(color_of(5))
        for key, number in (("space", 6), ("BackSpace", 5)):
            viewer.wait_idle()
            viewer.key(key)
            viewer.wait_shown(f"p{number:02}.png")
            viewer.wait_centre(color_of(number))
        viewer.wait_idle()
        self.picture("p01b.png", color_of(20))
        subprocess.run([PROGRAM, self.path("p06.png")], env=self.environment(), timeout=30,
            check=True)
        viewer.wait_shown("p06.png")
        viewer.wait_centre(color_of(6))
        for number in (5, 4):
            viewer.wait_idle()
            viewer.key("BackSpace")
            viewer.wait_shown(f"p{number:02}.png")
            viewer.wait_centre(color_of(number))
        self.assert_clean(viewer)

    def test_a_neighbour_that_was_edited_is_shown_as_it_is_now(self):
        self.pictures(2)
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        viewer.wait_centre(color_of(0))
        viewer.wait_idle()
        self.picture("p001.png", color_of(7))
        viewer.key("space")
        viewer.wait_shown("p001.png")
        viewer.wait_centre(color_of(7))
        self.assert_clean(viewer)


class Problems(ViewerTest):
    """The pictures' colours are dark: the band is as bright as its text."""

    def has_band(self, viewer):
        return any(max(row) > 150 for row in viewer.area_picture().rows())

    def wait_band(self, viewer, on=True):
        x11.wait_for(lambda: self.has_band(viewer) == on, f"a message is seen: {on}")

    def broken(self, name):
        with open(self.picture(name, (10, 20, 30)), "rb") as file:
            whole = file.read()
        return self.write(name, whole[:len(whole) // 2])

    def test_a_damaged_file_is_named_in_the_empty_window(self):
        self.broken("a.png")
        viewer = self.start("a.png")
        self.wait_band(viewer)
        self.assertEqual(viewer.title(), "Lorivane")
        viewer.key("space")
        self.wait_band(viewer, False)
        self.assertEqual(viewer.said(), "")
        self.assert_clean(viewer)

    def test_the_message_moves_with_the_edge_of_the_window(self):
        self.broken("a.png")
        viewer = self.start("a.png")
        self.wait_band(viewer)
        for place in ((300, 200, 520, 410), (300, 200, 610, 300)):
            viewer.window.move_resize(*place)
            x11.wait_for(lambda: viewer.window.frame() == place, "the window has its new size")

            def rows_of_text():
                return [number for number, row in enumerate(viewer.area_picture().rows())
                    if max(row) > 150]

            # One line of text, near the lower edge.
            x11.wait_for(lambda: rows_of_text() and rows_of_text()[-1] - rows_of_text()[0] < 16
                and viewer.image_area()[3] - rows_of_text()[-1] < 50, "the message stands below")
        self.assert_clean(viewer)

    def test_a_broken_neighbour_is_named_over_the_picture(self):
        self.picture("a.png", (10, 20, 30))
        self.broken("b.png")
        viewer = self.start("a.png")
        viewer.wait_shown("a.png")
        viewer.wait_centre((10, 20, 30))
        viewer.wait_settled()
        self.wait_band(viewer, False)
        viewer.key("space")
        self.wait_band(viewer)
        viewer.key("BackSpace")
        self.wait_band(viewer, False)
        self.assert_clean(viewer)

    def test_a_folder_without_pictures_says_so(self):
        viewer = self.start(self.folder)
        self.wait_band(viewer)
        self.assert_clean(viewer)

    def test_a_terminal_is_told_in_one_line(self):
        path = self.broken("a.png")
        ours, its = pty.openpty()
        process = subprocess.Popen([PROGRAM, path], env=self.environment(), stderr=its)
        self.addCleanup(process.kill)
        os.close(its)
        said = os.read(ours, 4096).decode()
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(20), 0)
        try:
            while more := os.read(ours, 4096):
                said += more.decode()
        except OSError:
            pass  # nobody is at the other end any more
        os.close(ours)
        self.assertEqual(said, f"lorivane: {path}: the file ends before the picture does\r\n")


if __name__ == "__main__":
    main()
