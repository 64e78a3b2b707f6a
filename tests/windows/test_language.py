"""The language of a running viewer is that of the desktop, and changes with it.

    test_language.py --service ADDRESS

is the system's locale service for the tests, on that bus: it takes lines such as
"LANG=de_DE.UTF-8" and tells that this is now the setting; after the word "quietly" it tells only
that the setting has changed, so that it has to be asked for.
"""

import os
import socket
import subprocess
import sys
import threading

import accessibility
from gi.repository import Gio, GLib
from viewer_test import ViewerTest, color_of, main, x11

ENGLISH = ["File(F)", "View(V)", "Tool(T)", "Help(H)"]
GERMAN = ["Datei(F)", "Ansicht(V)", "Werkzeuge(T)", "Hilfe(H)"]
JAPANESE = ["ファイル(F)", "表示(V)", "ツール(T)", "ヘルプ(H)"]

NAME = INTERFACE = "org.freedesktop.locale1"
PATH = "/org/freedesktop/locale1"
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
    <property name="Locale" type="as" access="read"/></interface></node>"""


def serve(address):
    bus = Gio.DBusConnection.new_for_address_sync(address,
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    locale = ["LANG=C.UTF-8"]
    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0], None,
        lambda *_call: GLib.Variant("as", locale), None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE,
        lambda *_: print("ready", flush=True), None)
    loop = GLib.MainLoop()

    def change(line):
        words = line.split()
        quietly = words[0] == "quietly"
        locale[:] = words[quietly:]
        bus.emit_signal(None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
            GLib.Variant("(sa{sv}as)", (INTERFACE,
                {} if quietly else {"Locale": GLib.Variant("as", locale)},
                ["Locale"] if quietly else [])))

    def read():
        for line in sys.stdin:
            GLib.idle_add(change, line)
        GLib.idle_add(loop.quit)

    threading.Thread(target=read, daemon=True).start()
    loop.run()


class LanguageTest(ViewerTest):
    def setUp(self):
        super().setUp()
        self.variables = {"LC_ALL": "C.UTF-8",
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.home}/no-bus"}
        self.picture("a.png", color_of(1))

    def environment(self):
        plain = {name: value for name, value in super().environment().items()
            if not name.startswith("LC_") and name not in ("LANG", "LANGUAGE")}
        return {**plain, **self.variables, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def start_reader(self):
        viewer = self.start(self.folder)
        viewer.wait_shown("a.png")
        reader = accessibility.Reader(viewer)

        def menus():
            try:
                return [item.get_name() for item in accessibility.entries(reader.menu_bar())]
            except accessibility.GONE:
                return None

        viewer.menus = menus
        return viewer

    def wait_menus(self, viewer, wanted, again=lambda: None):
        """Until the menus have these names; what causes it is done again and again."""
        def found():
            again()
            return viewer.menus() == wanted

        x11.wait_for(found, lambda: f"the menus are {wanted}; they are {viewer.menus()}")

    @property
    def file(self):
        return os.path.join(self.settings, "locale.conf")

    def write_file(self, content):
        os.makedirs(self.settings, exist_ok=True)
        with open(self.file, "w", encoding="utf-8") as file:
            file.write(content)

    def replace_file(self, content):
        with open(self.file + ".new", "w", encoding="utf-8") as file:
            file.write(content)
        os.rename(self.file + ".new", self.file)


class Start(LanguageTest):
    def test_without_a_wish_it_is_english(self):
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        self.assert_clean(viewer)

    def test_the_environment_decides(self):
        for variables, wanted in [
                ({"LANG": "de_AT.UTF-8"}, GERMAN),
                ({"LANG": "de_DE.UTF-8", "LC_MESSAGES": "ja_JP.UTF-8"}, JAPANESE),
                ({"LANG": "en_US.UTF-8", "LANGUAGE": "tlh:ja:de"}, JAPANESE),
                ({"LANG": "C.UTF-8", "LANGUAGE": "de"}, ENGLISH)]:
            self.variables = {**variables,
                "DBUS_SYSTEM_BUS_ADDRESS": self.variables["DBUS_SYSTEM_BUS_ADDRESS"]}
            viewer = self.start_reader()
            self.wait_menus(viewer, wanted)
            self.assertEqual(viewer.close(), 0)

    def test_the_users_file_decides_before_the_environment(self):
        self.write_file("# mine\nLANG='de_DE.UTF-8'\n")
        viewer = self.start_reader()
        self.wait_menus(viewer, GERMAN)
        self.assert_clean(viewer)


class UsersFile(LanguageTest):
    def test_it_may_come_change_and_go(self):
        os.makedirs(self.settings)
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        self.write_file("LANG=de_DE.UTF-8\n")
        self.wait_menus(viewer, GERMAN)
        self.write_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        self.replace_file("LANG=de_DE.UTF-8\n")
        self.wait_menus(viewer, GERMAN)
        self.replace_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        # The file that took the other's place is watched, too.
        self.write_file("LANG=de_DE.UTF-8\n")
        self.wait_menus(viewer, GERMAN)
        os.remove(self.file)
        self.wait_menus(viewer, ENGLISH)
        self.write_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        self.assert_clean(viewer)

    def test_its_folder_may_come_later(self):
        self.settings = os.path.join(self.home, "not", "yet")
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        self.write_file("LANG=de_DE.UTF-8\n")
        self.wait_menus(viewer, GERMAN)
        self.replace_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        self.assert_clean(viewer)


class SystemSetting(LanguageTest):
    def setUp(self):
        super().setUp()
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile",
            "--print-address", f"--address=unix:path={self.home}/bus"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(self.end, self.bus)
        address = self.bus.stdout.readline().strip()
        self.variables["DBUS_SYSTEM_BUS_ADDRESS"] = address
        self.service = None

    def start_service(self):
        self.service = subprocess.Popen([sys.executable, __file__, "--service",
            self.variables["DBUS_SYSTEM_BUS_ADDRESS"]], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, self.service)
        self.assertEqual(self.service.stdout.readline(), "ready\n")

    @staticmethod
    def end(process):
        process.kill()
        process.wait()
        for stream in (process.stdin, process.stdout):
            if stream:
                stream.close()

    def change(self, line):
        self.service.stdin.write(line + "\n")
        self.service.stdin.flush()

    def test_its_changes_are_followed(self):
        self.start_service()
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        # When the viewer begins to listen is its own affair.
        self.wait_menus(viewer, GERMAN, lambda: self.change("LANG=de_DE.UTF-8"))
        self.change("LANG=de_DE.UTF-8 LC_MESSAGES=ja_JP.UTF-8")
        self.wait_menus(viewer, JAPANESE)
        self.change("quietly LANG=de_DE.UTF-8")
        self.wait_menus(viewer, GERMAN)
        self.change("LANG=C.UTF-8")
        self.wait_menus(viewer, ENGLISH)
        viewer.wait_shown("a.png")
        self.assert_clean(viewer)

    def test_the_service_may_start_later(self):
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        self.start_service()
        self.wait_menus(viewer, GERMAN, lambda: self.change("LANG=de_DE.UTF-8"))
        self.assert_clean(viewer)

    def test_the_users_file_wins(self):
        self.start_service()
        self.write_file("LANG=ja_JP.UTF-8\n")
        viewer = self.start_reader()
        self.wait_menus(viewer, JAPANESE)
        os.remove(self.file)
        self.wait_menus(viewer, ENGLISH)
        self.wait_menus(viewer, GERMAN, lambda: self.change("LANG=de_DE.UTF-8"))
        self.write_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        self.change("LANG=C.UTF-8")
        self.write_file("# LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, ENGLISH)
        self.assert_clean(viewer)

    def test_nobody_else_can_change_it(self):
        self.start_service()
        viewer = self.start_reader()
        self.wait_menus(viewer, GERMAN, lambda: self.change("LANG=de_DE.UTF-8"))
        stranger = Gio.DBusConnection.new_for_address_sync(
            self.variables["DBUS_SYSTEM_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        stranger.emit_signal(None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
            GLib.Variant("(sa{sv}as)", (INTERFACE,
                {"Locale": GLib.Variant("as", ["LANG=ja_JP.UTF-8"])}, [])))
        stranger.flush_sync(None)
        # A Japanese menu would appear before the English one.
        seen = []
        self.change("LANG=C.UTF-8")
        self.wait_menus(viewer, ENGLISH, lambda: seen.append(viewer.menus()))
        self.assertNotIn(JAPANESE, seen)
        stranger.close_sync(None)
        self.assert_clean(viewer)

    def test_a_silent_bus_is_not_waited_for(self):
        silent = socket.socket(socket.AF_UNIX)
        self.addCleanup(silent.close)
        silent.bind(f"{self.home}/silent")
        silent.listen()
        self.variables["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.home}/silent"
        os.makedirs(self.settings)
        viewer = self.start_reader()
        self.wait_menus(viewer, ENGLISH)
        silent.settimeout(20)
        connection, _address = silent.accept()
        self.addCleanup(connection.close)
        self.write_file("LANG=de_DE.UTF-8\n")
        self.wait_menus(viewer, GERMAN)
        self.assert_clean(viewer)

    def test_the_bus_may_end(self):
        self.start_service()
        viewer = self.start_reader()
        self.wait_menus(viewer, GERMAN, lambda: self.change("LANG=de_DE.UTF-8"))
        self.bus.terminate()
        self.bus.wait()
        self.write_file("LANG=ja_JP.UTF-8\n")
        self.wait_menus(viewer, JAPANESE)
        self.assert_clean(viewer)


if __name__ == "__main__":
    if sys.argv[1:2] == ["--service"]:
        serve(sys.argv[2])
    else:
        main()
