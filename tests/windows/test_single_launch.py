"""Starting the viewer while it runs: the one that runs gets the files."""

import os
import subprocess

from viewer_test import PROGRAM, ViewerTest, color_of, main, x11


class SingleLaunch(ViewerTest):
    def start_again(self, *arguments, folder=None, status=0):
        """A second start, which ends with that status: what it wrote."""
        ended = subprocess.run([PROGRAM, *arguments], env=self.environment(),
            cwd=folder or self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, timeout=30, check=False)
        self.assertEqual(ended.returncode, status)
        return ended.stdout.decode()

    def files_of_settings(self):
        return {os.path.join(folder, name): os.stat(os.path.join(folder, name)).st_mtime_ns
            for folder, _folders, names in os.walk(self.settings) for name in names}

    def test_a_file_is_shown_by_the_one_that_runs(self):
        self.pictures(3)
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        viewer.wait_settled()
        before = self.files_of_settings()
        self.assertEqual(self.start_again("p002.png"), "")
        viewer.wait_shown("p002.png")
        viewer.wait_centre(color_of(2))
        self.assertEqual(len(self.screen.windows(viewer.process.pid)), 1)
        # Only the one that runs has written: its list of recent files.
        changed = {path for path, time in self.files_of_settings().items()
            if before.get(path) != time}
        self.assertLessEqual({os.path.basename(path) for path in changed},
            {"Lorivane_MRUFs.arc"})
        self.assert_clean(viewer)

    def test_a_file_is_looked_for_where_it_was_named(self):
        self.pictures(2)
        elsewhere = os.path.join(self.home, "elsewhere")
        os.mkdir(elsewhere)
        os.rename(self.path("p001.png"), os.path.join(elsewhere, "own.png"))
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        self.assertEqual(self.start_again("own.png", folder=elsewhere), "")
        viewer.wait_shown("own.png")
        self.assertEqual(self.start_again("./../elsewhere/../pictures/p000.png",
            folder=elsewhere), "")
        viewer.wait_shown("p000.png")
        self.assert_clean(viewer)

    def test_what_is_not_there_is_reported_by_who_was_asked(self):
        self.pictures(3)
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        for arguments, line in ((["none.png"], "none.png: No such file or directory"),
                (["p001.png", "--fast"], "unknown option: --fast")):
            self.assertEqual(self.start_again(*arguments, status=2), f"lorivane: {line}\n")
        viewer.wait_shown("p000.png")
        self.assertEqual(self.start_again("none.png", "p002.png", "p001.png"),
            "lorivane: only the first of 2 files is opened: p002.png\n"
            "lorivane: none.png: No such file or directory\n")
        viewer.wait_shown("p002.png")
        self.assert_clean(viewer)

    def test_the_window_comes_back_from_its_icon(self):
        self.pictures(2)
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        for arguments, shown in ((["p001.png"], "p001.png"), ([], "p001.png")):
            with self.subTest(arguments=arguments):
                viewer.key("m")
                x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" in viewer.window.states(),
                    "the window is minimised")
                viewer.wait_idle()
                self.assertEqual(self.start_again(*arguments), "")
                x11.wait_for(lambda: "_NET_WM_STATE_HIDDEN" not in viewer.window.states(),
                    "the window is back")
                x11.wait_for(viewer.window.has_keys, "the window has the keyboard")
                viewer.wait_shown(shown)
                # Its toolkit forgets the minimising if it learns of both in one.
                viewer.wait_idle()
        self.assert_clean(viewer)

    def test_two_starts_in_one_instant_open_one_window(self):
        self.pictures(2)
        for _ in range(5):
            started = [subprocess.Popen([PROGRAM, name], env=self.environment(), cwd=self.folder,
                    stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                for name in ("p000.png", "p001.png")]
            try:
                x11.wait_for(lambda: any(process.poll() is not None for process in started),
                    "one of them has ended")
                ended, runs = sorted(started, key=lambda process: process.poll() is None)
                self.assertEqual(ended.returncode, 0)
                window = x11.wait_for(lambda: (self.screen.windows(runs.pid) or [None])[0],
                    "the other shows a window")
                other = "p000.png" if started[0] is ended else "p001.png"
                x11.wait_for(lambda: window.title() == f"{other} - Lorivane",
                    lambda: f"it shows {other}; it shows {window.title()}")
                window.close()
                x11.wait_for(lambda: runs.poll() is not None, "the other has ended, too")
                self.assertEqual([process.stdout.read() for process in started], [b"", b""])
            finally:
                for process in started:
                    process.kill()
                    process.wait()
                    process.stdout.close()

    def test_the_next_start_after_the_last_one_ended_runs(self):
        self.pictures(2)
        for name in ("p000.png", "p001.png"):
            viewer = self.start(name)
            viewer.wait_shown(name)
            self.assert_clean(viewer)
        viewer = self.start("p000.png")
        viewer.wait_shown("p000.png")
        viewer.process.kill()
        viewer.process.wait()
        viewer = self.start("p001.png")
        viewer.wait_shown("p001.png")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
