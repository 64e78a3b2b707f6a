"""The base of the tests of the menu of the files opened before."""

import accessibility
import settings_file
from menu_test import MenuTest
from viewer_test import x11

OPEN = ("File(F)", "Open(O)...")
DELETE_ALL = "Delete All MRUFs(D)"
ALERT = "* Lorivane *"
LIST = "Lorivane_MRUFs.arc"


class Recent(MenuTest):
    def remember(self, *oldest_first):
        settings_file.write(self.settings, "Lorivane", LIST,
            settings_file.strings("MRUF", oldest_first))

    def begin(self, *arguments):
        viewer = self.start(*arguments)
        self.reader = accessibility.Reader(viewer)
        x11.wait_for(lambda: len(self.tree()) == 4, "there are four menus")
        return viewer

    def names(self):
        """The entries, or None while they are being exchanged."""
        try:
            return [name for name in self.recent() if name is not None and name != DELETE_ALL]
        except accessibility.GONE:
            return None

    def wait_names(self, *names):
        x11.wait_for(lambda: self.names() == list(names), lambda: f"the entries are {names}; {self.names()}")

    def wait_first(self, name):
        x11.wait_for(lambda: (self.names() or [])[:1] == [f"{name}(0)"],
            lambda: f"the first is {name}; {self.names()}")

    def name_at(self, index):
        names = x11.wait_for(lambda: self.names(), "there are entries")
        return names[index].partition("(")[0]

    def open_menu(self, viewer):
        viewer.key("Alt_L", "f")
        self.wait_open("File(F)")
        viewer.key("Right")
        x11.wait_for(lambda: accessibility.is_showing(self.item(*OPEN, DELETE_ALL)),
            "the menu of the files opened before is open")

    def remember_pictures(self, count):
        """Writes that many pictures; all are remembered, the first as the newest."""
        self.remember(*(self.path(name) for name in reversed(self.pictures(count))))
