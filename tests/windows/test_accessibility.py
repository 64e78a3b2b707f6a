"""What a screen reader finds in the window."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from viewer_test import ViewerTest, color_of, main, x11

FIELDS = ["StrViewIdx", "StrViewKind", "StrViewSize", "StrViewScale"]


def walk(item, depth=0):
    if item is None or depth > 20:
        return
    yield item
    for index in range(item.get_child_count()):
        yield from walk(item.get_child_at_index(index), depth + 1)


class Accessibility(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    @staticmethod
    def application(viewer):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            item = desktop.get_child_at_index(index)
            if item is not None and item.get_process_id() == viewer.process.pid:
                return item
        return None

    def status(self, viewer):
        """The texts of the status bar's fields by their names, those that are there."""
        texts = {}
        for item in walk(self.application(viewer)):
            if item.get_name() in FIELDS:
                texts[item.get_name()] = item.get_description()
        return texts

    def wait_status(self, viewer, *wanted):
        expected = dict(zip(FIELDS, wanted))
        x11.wait_for(lambda: self.status(viewer) == expected,
            lambda: f"the status bar reads {expected}; it reads {self.status(viewer)}")

    def test_the_status_bar_can_be_read(self):
        self.picture("a.png", color_of(1), 400, 300)
        self.write("b.jpg", self.sample("02-rings.jpg"))
        self.write("c.txt", b"not a picture, but an entry")
        viewer = self.start()
        x11.wait_for(lambda: self.application(viewer), "the viewer is on the accessibility bus")
        self.wait_status(viewer, "", "", "", "")
        self.assert_clean(viewer)

        viewer = self.start(self.folder)
        x11.wait_for(lambda: self.application(viewer), "the viewer is on the accessibility bus")
        viewer.wait_shown("a.png")
        kind = x11.wait_for(lambda: self.status(viewer).get("StrViewKind"), "the format is named")
        self.assertIn("PNG", kind.upper())
        self.wait_status(viewer, "1/3", kind, "400 x 300", "100% x 100%")
        viewer.key("space")
        viewer.wait_shown("b.jpg")
        x11.wait_for(lambda: self.status(viewer).get("StrViewKind") != kind, "another format")
        kind = self.status(viewer)["StrViewKind"]
        self.assertIn("JP", kind.upper())
        self.wait_status(viewer, "2/3", kind, "640 x 640", "100% x 100%")
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
