"""The preferences shared by two running applications, and the one window that edits them."""

import os
import random
import signal
import struct
import subprocess
import tempfile
import threading
import zlib

import accessibility
from accessibility import Role
from gi.repository import Gio, GLib
from viewer_test import PROGRAM, ViewerTest, main, x11

BAR = os.path.join(os.path.dirname(PROGRAM), "examples", "labelled_bar")
TITLE = "ZELKAN Common Preferences"

VIEWER_SIGNATURE = b"application/x-vnd.ZELKAN-Lorivane"
BAR_SIGNATURE = b"application/x-vnd.ZELKAN-LabelledBar"

# The file menu's label in each format, in the order of the list.
SUFFIX, DASH, NONE = "File(F)", "F - File", "File"
FORMATS = [SUFFIX, "F) File", "F・File", DASH, "separator", NONE]
SAVED = {SUFFIX: b"\2(a)\0", DASH: b"\1a - \0", NONE: b"AccKeyFormat2\1\0\0\0\0"}


FOR_EVER = 2**64 - 1


class Application:
    """A running application and what a screen reader finds in it."""

    def __init__(self, test, process):
        self.test, self.process = test, process
        self.reader = accessibility.Reader(self)

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

    def ask(self):
        """Chooses the item that asks for the common window, whatever the hints are."""
        def chosen():
            try:
                for menu in accessibility.entries(self.reader.menu_bar()):
                    for item in accessibility.entries(menu):
                        if "ZELKAN Common Preferences" in item.get_name():
                            accessibility.act(item, "Press")
                            return True
            except accessibility.GONE:
                pass  # it is being made anew
            return False

        x11.wait_for(chosen, "the menu has the item")

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
        window = self.wait_common()
        window.activate()
        x11.wait_for(window.has_keys, "the common window has the keyboard")
        self.named("Accelerator Format", Role.LABEL)
        box = x11.wait_for(lambda: self.named("", Role.COMBO_BOX), "there is a list of formats")
        self.test.screen.click(*accessibility.middle(box))
        rows = accessibility.children(accessibility.children(box)[0])
        row = rows[FORMATS.index(label)]
        x11.wait_for(lambda: accessibility.is_showing(row)
            and accessibility.extents(row)[0] > 0, "the list is open")
        self.test.screen.click(*accessibility.middle(row))

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()


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

    def wait_flat(self, owner, flat):
        x11.wait_for(lambda: accessibility.is_marked(owner.flat_box()) == flat,
            f"the box is marked: {flat}")

    def bar_picture(self, bar):
        """Of the buttons of the bar, which nothing covers."""
        window = next(window for window in self.screen.windows(bar.process.pid)
            if window.title() == "Labelled Bar")
        left, top, width, _height = window.frame()
        return b"".join(self.screen.picture(left, top + 22, width, 34).rows())


class EitherOpens(SharedPrefs):
    def check_one_window(self, owner, other, signature):
        owner.ask()
        owner.wait_common()
        owner.flat_box()  # the first to contribute a component is who saves its changes
        other.ask()
        x11.wait_for(lambda: owner.common_window() and owner.common_window().has_keys(),
            "the other's request brings the window to the front")
        self.assertIsNone(other.common_window())
        owner.choose(DASH)
        self.wait_format(DASH, owner, other)
        self.wait_saved(DASH, signature)
        owner.press("Cancel")
        self.wait_format(SUFFIX, owner, other)
        self.wait_saved(SUFFIX, signature)
        owner.wait_common(False)

        # Hidden, it is still the one window.
        other.ask()
        owner.wait_common()
        self.assertIsNone(other.common_window())
        owner.choose(NONE)
        self.wait_format(NONE, owner, other)
        owner.press("OK")
        owner.wait_common(False)
        self.wait_format(NONE, owner, other)

        owner.ask()
        owner.wait_common()
        owner.press("Defaults")
        self.wait_format(SUFFIX, owner, other)
        self.assertIsNotNone(owner.common_window())
        # Back to the last OK.
        owner.press("Cancel")
        self.wait_format(NONE, owner, other)

    def test_the_viewer_first(self):
        viewer, bar = self.start_both()
        self.check_one_window(viewer, bar, VIEWER_SIGNATURE)

    def test_the_bar_first(self):
        viewer, bar = self.start_both()
        self.check_one_window(bar, viewer, BAR_SIGNATURE)

    def test_both_at_once(self):
        viewer, bar = self.start_both()
        threads = [threading.Thread(target=application.ask) for application in (viewer, bar)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()

        def shown():
            return [one for one in (viewer, bar) if one.common_window() is not None]

        x11.wait_for(lambda: len(shown()) == 1, "there is one window")
        owner = shown()[0]
        owner.choose(DASH)
        self.wait_format(DASH, viewer, bar)
        self.assertEqual(shown(), [owner])


class Changes(SharedPrefs):
    def test_the_tool_bar(self):
        viewer, bar = self.start_both()
        viewer.ask()
        window = viewer.wait_common()
        width, height = window.frame()[2:]
        window.move_resize(700, 600, width, height)
        x11.wait_for(lambda: window.frame()[:2] != (200, 220), "it has moved")
        flat = self.bar_picture(bar)
        viewer.click_flat()
        x11.wait_for(lambda: self.bar_picture(bar) != flat, "the bar has edges")
        x11.wait_for(lambda: b"FlatToolBar\0" in self.shared_file("FlatToolBar"), "it is saved")
        viewer.press("Defaults")
        self.wait_flat(viewer, True)
        x11.wait_for(lambda: self.bar_picture(bar) == flat, "the bar is flat")

    def test_keys_and_the_close_box(self):
        viewer, bar = self.start_both()
        ends = [lambda window: self.screen.key("Escape"), lambda window: window.close()]
        for end in ends:
            bar.ask()
            window = bar.wait_common()
            bar.choose(DASH)
            self.wait_format(DASH, viewer, bar)
            end(window)
            bar.wait_common(False)
            self.wait_format(SUFFIX, viewer, bar)
        bar.ask()
        bar.wait_common()
        bar.choose(DASH)
        self.wait_format(DASH, viewer, bar)
        self.screen.key("Return")
        bar.wait_common(False)
        self.wait_format(DASH, viewer, bar)
        # The letters are those the labels show.
        bar.ask()
        bar.wait_common().activate()
        self.screen.key("Alt_L", "f")
        self.wait_flat(bar, False)
        self.screen.key("Alt_L", "d")
        self.wait_flat(bar, True)
        self.wait_format(SUFFIX, viewer, bar)

    def test_who_starts_later_has_the_same(self):
        viewer = self.start_viewer()
        viewer.wait_label(SUFFIX)
        viewer.ask()
        viewer.wait_common()
        viewer.choose(DASH)
        viewer.wait_label(DASH)
        self.wait_saved(DASH, VIEWER_SIGNATURE)
        bar = self.start_bar()
        bar.wait_label(DASH)


class Strangers(SharedPrefs):
    """Another program writes what it likes to the window's port."""

    @staticmethod
    def message(what, fields=b"", count=0):
        head = b"LMsg" + struct.pack("<HHI", 1, 0, 32 + len(fields))
        rest = what[::-1] + struct.pack("<I8x", count) + fields
        return head + struct.pack("<I", zlib.crc32(head + rest)) + rest

    def write_all(self, messages):
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        names = bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", "ListNames", None, None, Gio.DBusCallFlags.NONE, -1).unpack()[0]
        owner = next(name for name in names if name.endswith("ZELKANIAPPort"))

        def call(method, arguments):
            return bus.call_sync(owner, "/org/lorivane/Ports", "org.lorivane.Ports", method,
                arguments, None, Gio.DBusCallFlags.NONE, -1).unpack()[0]

        port = call("Open", GLib.Variant("(s)", ("ZELKANIAPPort",)))
        for serial, data in enumerate(messages):
            # Not byte by byte, as from a Python object.
            body = GLib.Variant.new_from_bytes(
                GLib.VariantType("ay"), GLib.Bytes(data), True)
            call("Write", GLib.Variant.new_tuple(GLib.Variant("i", port),
                GLib.Variant("u", serial), GLib.Variant("i", 0), GLib.Variant("t", FOR_EVER),
                GLib.Variant("t", FOR_EVER), GLib.Variant.new_variant(body)))

    @staticmethod
    def memory(application):
        """In kilobytes."""
        with open(f"/proc/{application.process.pid}/status", encoding="utf-8") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("VmRSS"))

    def test_garbage_and_commands_do_nothing(self):
        viewer, bar = self.start_both()
        viewer.ask()
        viewer.wait_common()
        viewer.choose(DASH)
        self.wait_format(DASH, viewer, bar)
        before = self.memory(viewer)
        commands = [self.message(what) for what in
            (b"\0_ok", b"_cnc", b"_dfl", b"ictc", b"_Sic", b"_BLC")]
        chance = random.Random(1)
        garbage = [chance.randbytes(chance.randrange(2000)) for _ in range(500)]
        # The last whole message counts again when bytes are none, so commands come after.
        self.write_all(garbage + commands * 50 + garbage)
        self.write_all([self.message(b"iacr") + b"x" * 100000] * 500)
        self.assertLess(self.memory(viewer) - before, 60000)
        # Had one of them worked, it would be hidden or its format another.
        self.wait_format(DASH, viewer, bar)
        self.assertIsNotNone(viewer.common_window())
        viewer.choose(NONE)
        self.wait_format(NONE, viewer, bar)
        viewer.press("Cancel")
        self.wait_format(SUFFIX, viewer, bar)


class Ends(SharedPrefs):
    def test_the_owner_is_killed(self):
        viewer, bar = self.start_both()
        viewer.ask()
        viewer.wait_common()
        viewer.choose(DASH)
        self.wait_format(DASH, viewer, bar)
        viewer.kill()
        bar.ask()
        bar.wait_common()
        bar.choose(NONE)
        bar.wait_label(NONE)
        self.wait_saved(NONE, BAR_SIGNATURE)

    def test_the_other_is_killed(self):
        viewer, bar = self.start_both()
        viewer.ask()
        viewer.wait_common()
        bar.ask()
        bar.kill()
        viewer.choose(DASH)
        viewer.wait_label(DASH)
        viewer.press("Cancel")
        viewer.wait_label(SUFFIX)

    def test_the_owner_quits_and_the_other_opens_it_again(self):
        viewer, bar = self.start_both()
        bar.ask()
        bar.wait_common()
        next(window for window in self.screen.windows(bar.process.pid)
            if window.title() == "Labelled Bar").close()
        self.assertEqual(bar.process.wait(20), 0)
        viewer.ask()
        viewer.wait_common()
        viewer.choose(DASH)
        viewer.wait_label(DASH)


class Alone(SharedPrefs):
    def environment(self):
        return {**super().environment(), "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}

    def test_without_a_session_bus(self):
        viewer = self.start(focus=True)
        viewer.wait_title("Lorivane")
        self.screen.key("Alt_L", "t")
        viewer.wait_idle()
        self.screen.key("s")

        def common():
            return next((window for window in self.screen.windows(viewer.process.pid)
                if window.title() == TITLE), None)

        x11.wait_for(common, "the common window appears")
        viewer.wait_idle()
        common().activate()
        self.screen.key("Alt_L", "f")
        x11.wait_for(lambda: self.shared_file("FlatToolBar") != b"", "it is saved")
        self.screen.key("Escape")
        x11.wait_for(lambda: common() is None, "it is hidden")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
