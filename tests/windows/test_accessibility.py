"""What a screen reader finds in the windows, and that what it does there has its effect."""

import glob
import os
import re

import accessibility
from accessibility import Atspi, Role
from menu_test import MenuTest
from preferences_dialog import PAGES
from viewer_test import ROOT, main, x11

FIELDS = ["Position in Folder", "Format", "Size", "Scale"]
PREFS = "Preferences"
FOLDERS = ["app", "viewer", "comment", "window", "settings", "iap", "framework", "resources"]
# Of these some stand for a separator.
PARTS = {Role.LIST_ITEM, Role.TABLE_CELL}


def view_names():
    """The names of views in the program: every text there that is written as one word of several."""
    names = set()
    for folder in FOLDERS:
        for suffix in ("cpp", "h", "json"):
            for file in glob.glob(os.path.join(ROOT, folder, "**", f"*.{suffix}"), recursive=True):
                with open(file, encoding="utf-8") as source:
                    names.update(re.findall(r'"([A-Z][A-Za-z]*[a-z][A-Z][A-Za-z]*)"', source.read()))
    return names


class Accessibility(MenuTest):
    def begin(self, *arguments):
        viewer = self.start(*arguments)
        self.reader = accessibility.Reader(viewer)
        return viewer

    def status(self):
        """The texts of the status bar's fields by what they are, those that are there."""
        try:
            return {item.get_description(): item.get_name() for item in self.reader.all()
                if item.get_role() == Role.LABEL and item.get_description() in FIELDS}
        except accessibility.GONE:
            return {}

    def wait_status(self, *wanted):
        expected = dict(zip(FIELDS, wanted))
        x11.wait_for(lambda: self.status() == expected,
            lambda: f"the status bar reads {expected}; it reads {self.status()}")

    def test_the_status_bar_can_be_read(self):
        self.picture("a.png", (255, 0, 0), 400, 300)
        self.write("b.jpg", self.sample("02-rings.jpg"))
        self.write("c.txt", b"not a picture, but an entry")
        viewer = self.begin()
        self.wait_status("", "", "", "")
        self.assert_clean(viewer)

        viewer = self.begin(self.folder)
        viewer.wait_shown("a.png")
        kind = x11.wait_for(lambda: self.status().get("Format"), "the format is named")
        self.assertIn("PNG", kind.upper())
        self.wait_status("1/3", kind, "400 x 300", "100% x 100%")
        viewer.key("space")
        viewer.wait_shown("b.jpg")
        x11.wait_for(lambda: self.status().get("Format") != kind, "another format")
        kind = self.status()["Format"]
        self.assertIn("JP", kind.upper())
        self.wait_status("2/3", kind, "640 x 640", "100% x 100%")

        # Letter by letter, too.
        field = self.reader.wait_named("640 x 640", Role.LABEL)
        self.assertEqual(Atspi.Text.get_text(field, 0, -1), "640 x 640")
        self.assertEqual(Atspi.Text.get_text(field, 4, 5), "x")
        self.assert_clean(viewer)

    def picture_read(self):
        try:
            return next((item for item in self.reader.all() if item.get_role() == Role.IMAGE), None)
        except accessibility.GONE:
            return None

    def test_the_picture_has_its_files_name_and_the_keyboard(self):
        self.picture("a.png", (255, 0, 0), 400, 300)
        self.write("a.txt", b"A comment")
        self.picture("b.png", (0, 255, 0), 300, 200)
        viewer = self.begin(self.folder)
        focused = []
        heard = Atspi.EventListener.new(lambda event: focused.append(event.source.get_name()))
        heard.register("object:state-changed:focused")
        self.addCleanup(heard.deregister, "object:state-changed:focused")

        def reads(name, *parts):
            item = self.picture_read()
            return item is not None and item.get_name() == name \
                and accessibility.has_state(item, Atspi.StateType.FOCUSED) \
                and all(part in item.get_description() for part in parts)

        def hears(name):
            context = accessibility.GLib.MainContext.default()
            while context.iteration(False):
                pass
            return name in focused

        viewer.wait_shown("a.png")
        viewer.window.activate()
        x11.wait_for(lambda: reads("a.png", "PNG", "400 x 300", "A comment"),
            "the picture can be read")
        # It is the view, at whose foot the status bar lies.
        self.assertEqual(
            accessibility.extents(self.picture_read())[:3], viewer.image_area()[:3])
        for key, name, size in (("space", "b.png", "300 x 200"), ("BackSpace", "a.png", "400 x 300")):
            viewer.wait_idle()  # a key struck before the picture is drawn does not count
            focused.clear()
            viewer.key(key)
            viewer.wait_shown(name)
            x11.wait_for(lambda: reads(name, size), f"{name} can be read")
            x11.wait_for(lambda: hears(name), f"{name} is announced")
        self.assert_clean(viewer)

    def check_names(self, what):
        """Of all that is there now."""
        seen = 0
        for item in self.reader.all():
            name, role = item.get_name(), item.get_role()
            self.assertNotIn(name, self.names, f"{what}: a {item.get_role_name()}")
            if not accessibility.is_showing(item):
                continue
            seen += 1
            focusable = accessibility.has_state(item, Atspi.StateType.FOCUSABLE)
            if focusable and role not in PARTS and not accessibility.label_of(item):
                self.fail(f"{what}: a {item.get_role_name()} has no name")
            if role == Role.LABEL:
                self.assertEqual(Atspi.Text.get_text(item, 0, -1).strip(), name.strip(), what)
        self.assertGreater(seen, 10, what)

    def test_no_window_tells_a_name_of_the_program(self):
        self.names = view_names()
        for name in ("StrViewIdx", "TabViewPref", "ScrlBarH", "LViewCommentFileExts"):
            self.assertIn(name, self.names)
        self.picture("a.png", (255, 0, 0), 2000, 1500)
        viewer = self.begin(self.folder)
        viewer.wait_shown("a.png")
        viewer.wait_idle()
        self.check_names("the viewer")
        roles = {item.get_name(): item.get_role()
            for item in accessibility.children(accessibility.application(viewer.process.pid))}
        self.assertEqual(roles, {"a.png - Lorivane": Role.FRAME})

        viewer.key("Control_L", "p")
        dialog = self.wait_window(viewer, PREFS)
        for tab, content in PAGES.items():
            accessibility.act(self.reader.wait_named(tab, Role.PAGE_TAB), "Press")
            x11.wait_for(lambda: any(item.get_name().strip() == content
                and accessibility.is_showing(item) for item in self.reader.all()), content)
            viewer.wait_idle()
            self.check_names(f"the preferences, {tab}")
        viewer.key("Escape")
        self.wait_windows(viewer, PREFS, 0)

        for title, *path in (
                ("a.png Information", "Tool(T)", "Show Image Information(I)..."),
                ("ZELKAN Common Preferences", "Tool(T)", "ZELKAN Common Preferences(S)..."),
                ("About Lorivane", "Help(H)", "About(A)..."),
                ("* Lorivane *", "File(F)", "Open(O)...", "Delete All MRUFs(D)"),
                ("Lorivane: Open", "File(F)", "Open(O)...")):
            viewer.window.activate()
            accessibility.act(self.reader.menu(*path), "Press")
            self.wait_window(viewer, title)
            viewer.wait_idle()
            self.check_names(title)
            viewer.key("Escape")
            self.wait_windows(viewer, title, 0)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
