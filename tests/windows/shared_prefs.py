"""Two running applications that share preferences, and the one window that edits them."""

import os
import signal
import subprocess
import tempfile

import accessibility
from accessibility import Role
from viewer_test import PROGRAM, Viewer, ViewerTest, x11

BAR = os.path.join(os.path.dirname(PROGRAM), "examples", "labelled_bar")
TITLE = "ZELKAN Common Preferences"

VIEWER_SIGNATURE = b"application/x-vnd.ZELKAN-Lorivane"
BAR_SIGNATURE = b"application/x-vnd.ZELKAN-LabelledBar"

# The file menu's label in each format, in the order of the list.
SUFFIX, DASH, NONE = "File(F)", "F - File", "File"
FORMATS = [SUFFIX, "F) File", "F・File", DASH, "separator", NONE]
SAVED = {SUFFIX: b"\2(a)\0", DASH: b"\1a - \0", NONE: b"AccKeyFormat2\1\0\0\0\0"}


class Application:
    """A running application and what a screen reader finds in it."""

    def __init__(self, test, process):
        self.test, self.process = test, process
        self.reader = accessibility.Reader(self)

    wait_idle = Viewer.wait_idle

    def common_window(self):
        return next((window for window in self.test.screen.windows(self.process.pid)
            if window.title() == TITLE), None)

    def wait_common(self, shown=True):
        x11.wait_for(lambda: (self.common_window() is not None) == shown,
            f"{self.process.args[0]} shows the common window: {shown}")
        return self.common_window()

    def labels(self):
        """Those of the menu bar."""
        try:
            return [item.get_name() for item in accessibility.entries(self.reader.menu_bar())]
        except accessibility.GONE:
            return []

    def wait_label(self, label):
        x11.wait_for(lambda: label in self.labels(),
            lambda: f"there is a menu {label!r}; there are {self.labels()}")

    def asking(self):
        """What chooses the item that asks for the common window, whatever the hints are."""
        def found():
            try:
                return next((item for menu in accessibility.entries(self.reader.menu_bar())
                    for item in accessibility.entries(menu) if TITLE in item.get_name()), None)
            except accessibility.GONE:
                return None  # it is being made anew

        item = x11.wait_for(found, "the menu has the item")
        return lambda: accessibility.act(item, "Press")

    def ask(self):
        def chosen():
            try:
                self.asking()()
                return True
            except accessibility.GONE:
                return False

        x11.wait_for(chosen, "the item is chosen")

    def front(self):
        window = self.wait_common()
        window.activate()
        x11.wait_for(window.has_keys, "the common window has the keyboard")

    def named(self, part, role):
        """The item of the common window whose name holds that."""
        def find():
            try:
                return next((item for item in self.reader.all() if item.get_role() == role
                    and part in (item.get_name() or "")), None)
            except accessibility.GONE:
                return None

        return x11.wait_for(find, f"there is {part!r}")

    def press(self, label):
        accessibility.act(self.named(label, Role.PUSH_BUTTON), "Press")

    def flat_box(self):
        return self.named("Flat Tool Bar", Role.CHECK_BOX)

    def click_flat(self):
        self.test.screen.click(*accessibility.middle(self.flat_box()))

    def choose(self, label):
        """Another format, by the mouse."""
        self.front()
        # A change moves the list, and Cancel and Defaults make another one.
        self.wait_idle()
        self.named("Accelerator Format", Role.LABEL)
        box = x11.wait_for(lambda: self.named("", Role.COMBO_BOX), "there is a list of formats")

        def wait_open(is_open):
            x11.wait_for(lambda: accessibility.is_expanded(box) == is_open,
                f"the list is open: {is_open}")

        wait_open(False)
        self.test.screen.click(*accessibility.middle(box))
        wait_open(True)
        rows = accessibility.children(accessibility.children(box)[0])
        row = rows[FORMATS.index(label)]
        x11.wait_for(lambda: accessibility.is_showing(row)
            and accessibility.extents(row)[0] > 0, "the list is on the screen")
        self.test.screen.click(*accessibility.middle(row))
        wait_open(False)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def stop(self):
        """It does nothing until it goes on."""
        self.process.send_signal(signal.SIGSTOP)

        def has_stopped():
            with open(f"/proc/{self.process.pid}/stat", encoding="utf-8") as file:
                return file.read().rpartition(")")[2].split()[0] == "T"

        x11.wait_for(has_stopped, "it has stopped")

    def go_on(self):
        self.process.send_signal(signal.SIGCONT)


class SharedPrefs(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def start_viewer(self):
        viewer = self.start(focus=False)
        return Application(self, viewer.process)

    def start_bar(self):
        errors = tempfile.TemporaryFile()
        self.addCleanup(errors.close)
        process = subprocess.Popen([BAR], env=self.environment(), cwd=self.folder,
            stdin=subprocess.DEVNULL, stdout=errors, stderr=errors)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        x11.wait_for(lambda: self.screen.windows(process.pid), "the bar's window appears", 30)
        return Application(self, process)

    def start_both(self):
        viewer, bar = self.start_viewer(), self.start_bar()
        for application in (viewer, bar):
            application.wait_label(SUFFIX)
        return viewer, bar

    def shared_file(self, name):
        path = os.path.join(self.settings, "ZELKAN", "Shared", name + ".arc")
        try:
            with open(path, "rb") as file:
                return file.read()
        except FileNotFoundError:
            return b""

    def wait_format(self, label, *applications):
        for application in applications:
            application.wait_label(label)

    def wait_saved(self, label, signature):
        """Only the application writes it whose component was used."""
        x11.wait_for(lambda: SAVED[label] in self.shared_file("AccKeyFormat2")
                and signature in self.shared_file("AccKeyFormat2"),
            lambda: f"saved as {label!r}: {self.shared_file('AccKeyFormat2')}")

    def saved_flat(self):
        """None for not at all."""
        saved = self.shared_file("FlatToolBar")
        return next((flat for flat in (False, True)
            if b"FlatToolBar" + bytes([flat]) in saved), None)

    def wait_flat(self, owner, flat):
        x11.wait_for(lambda: accessibility.is_marked(owner.flat_box()) == flat,
            f"the box is marked: {flat}")

    def bar_picture(self, bar):
        """Of the buttons of the bar, which nothing covers."""
        window = next(window for window in self.screen.windows(bar.process.pid)
            if window.title() == "Labelled Bar")
        left, top, width, _height = window.frame()
        return b"".join(self.screen.picture(left, top + 22, width, 34).rows())
