"""The preferences shared by two running applications, and the one window that edits them."""

import os
import random
import struct
import subprocess
import threading
import zlib

import accessibility
from accessibility import Role
from gi.repository import Gio, GLib
from shared_prefs import (BAR_SIGNATURE, DASH, NONE, SUFFIX, TITLE, VIEWER_SIGNATURE, SharedPrefs)
from viewer_test import PROGRAM, main, x11

FOR_EVER = 2**64 - 1


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

    def check_who_saves(self, owner, other, own, others):
        """The format: who made the component that was used. The tool bar: everyone."""
        owner.ask()
        owner.wait_common()
        owner.choose(DASH)
        self.wait_format(DASH, owner, other)
        owner.click_flat()
        x11.wait_for(lambda: self.saved_flat() is False, "it is saved")
        owner.front()
        other.stop()
        self.screen.key("Alt_L", "d")
        self.wait_saved(SUFFIX, own)
        x11.wait_for(lambda: self.saved_flat() and own in self.shared_file("FlatToolBar"),
            "the owner saves")
        other.go_on()
        x11.wait_for(lambda: others in self.shared_file("FlatToolBar"), "the other saves, too")
        # Of the format it has heard before.
        self.assertIn(own, self.shared_file("AccKeyFormat2"))

    def test_who_saves_what_the_viewer_changes(self):
        viewer, bar = self.start_both()
        self.check_who_saves(viewer, bar, VIEWER_SIGNATURE, BAR_SIGNATURE)

    def test_who_saves_what_the_bar_changes(self):
        viewer, bar = self.start_both()
        self.check_who_saves(bar, viewer, BAR_SIGNATURE, VIEWER_SIGNATURE)

    def test_a_screen_reader_uses_the_bar(self):
        bar = self.start_bar()
        bar.wait_label(SUFFIX)
        for label in ("Upper Case(U)", "Lower Case(L)", "Capitals(C)"):
            bar.named(label, Role.PUSH_BUTTON)
        bar.press("Upper Case(U)")

        def texts():
            return [accessibility.Atspi.Text.get_text(item, 0, -1) for item in bar.reader.all()
                if item.get_role() == Role.TEXT]

        x11.wait_for(lambda: "THE QUICK BROWN FOX" in texts(), "the text is in upper case")

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
    def message(what, fields=b"", count=0, depth=0):
        head = b"LMsg" + struct.pack("<HHI", 1, depth, 32 + len(fields))
        rest = what[::-1] + struct.pack("<I8x", count) + fields
        return head + struct.pack("<I", zlib.crc32(head + rest)) + rest

    def component(self, name):
        """The request to add one of tests/data/components."""
        path = os.path.join(os.path.dirname(PROGRAM), "components", name + ".arcv")
        with open(path, "rb") as file:
            compiled = file.read()
        (depth,), (count,) = (struct.unpack_from(*place) for place in
            (("<H", compiled, 6), ("<I", compiled, 20)))
        archive = self.message(b"_Sic", compiled[32:], count, depth)
        field = b"GGSM" + struct.pack("<III", 3, 0, len(name)) + name.encode()
        return self.message(b"iacr", field + (struct.pack("<I", len(archive)) + archive) * 3, 1,
            depth + 1)

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


    def test_a_component_of_controls_that_the_program_has_none_of(self):
        bar = self.start_bar()
        bar.ask()
        bar.wait_common()
        self.write_all([self.component("Controls")])
        for name, role in (("Box", Role.PANEL), ("Text", Role.LABEL), ("Slider(S)", Role.SLIDER)):
            bar.named(name, role)


class ByKeys(SharedPrefs):
    """Since a screen reader needs the bus."""

    def common_window(self, viewer):
        return next((window for window in self.screen.windows(viewer.process.pid)
            if window.title() == TITLE), None)

    def ask(self, viewer):
        viewer.window.activate()
        x11.wait_for(viewer.window.has_keys, "the viewer has the keyboard")
        self.screen.key("Alt_L", "t")
        viewer.wait_idle()
        self.screen.key("s")
        window = x11.wait_for(lambda: self.common_window(viewer), "the common window appears")
        viewer.wait_idle()
        window.activate()
        x11.wait_for(window.has_keys, "the common window has the keyboard")

    def change_flat(self, flat):
        self.screen.key("Alt_L", "f")
        x11.wait_for(lambda: self.saved_flat() == flat, f"flat is saved: {flat}")

    def wait_hidden(self, viewer):
        x11.wait_for(lambda: self.common_window(viewer) is None, "the common window is hidden")


class Alone(ByKeys):
    def environment(self):
        return {**super().environment(), "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}

    def test_without_a_session_bus(self):
        viewer = self.start(focus=True)
        viewer.wait_title("Lorivane")
        self.ask(viewer)
        self.change_flat(False)
        self.screen.key("Escape")
        self.wait_hidden(viewer)
        x11.wait_for(self.saved_flat, "it is as it was")
        self.assert_clean(viewer)


class BusEnds(ByKeys):
    """A session bus of its own, which ends while the common window is open."""

    def setUp(self):
        super().setUp()
        self.bus = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(self.bus.stdout.close)
        self.addCleanup(self.end_bus)
        self.address = self.bus.stdout.readline().decode().strip()

    def environment(self):
        return {**super().environment(), "DBUS_SESSION_BUS_ADDRESS": self.address}

    def end_bus(self):
        self.bus.kill()
        self.bus.wait()

    def test_the_window_goes_on_for_its_own_application(self):
        viewer = self.start(focus=True)
        viewer.wait_title("Lorivane")
        self.ask(viewer)
        self.end_bus()
        self.change_flat(False)
        self.screen.key("Return")
        self.wait_hidden(viewer)
        self.ask(viewer)
        self.change_flat(True)
        self.screen.key("Escape")
        self.wait_hidden(viewer)
        x11.wait_for(lambda: self.saved_flat() is False, "it is as it was at the last OK")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
