"""Dropping files from a file manager onto the window."""

import os
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from viewer_test import ViewerTest, color_of, main, x11

PLACE = (700, 400, 400, 300)


class Drop(ViewerTest):
    def manager(self):
        """A file manager's window on the folder, in the upper left of the screen."""
        process = subprocess.Popen(["pcmanfm", "--no-desktop", self.folder],
            env={**self.environment(), "GTK_MODULES": "gail:atk-bridge", "NO_AT_BRIDGE": "0"},
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

        def end():
            process.kill()
            process.wait()

        self.addCleanup(end)

        def ready():
            for window in self.screen.windows():
                if window.title() == os.path.basename(self.folder):
                    return window
            return None

        window = x11.wait_for(ready, "the file manager's window appears")
        window.move_resize(20, 40, 600, 400)
        x11.wait_for(lambda: window.frame() == (20, 40, 600, 400), "it has its place")
        return window

    @staticmethod
    def places(count):
        """Points on the screen that lie on the file manager's items, in their order: folders
        first, then by name. Its items have no accessible names."""
        def icons(item, depth=0):
            if item is None or depth > 20:
                return
            if item.get_role() == Atspi.Role.ICON:
                box = item.get_extents(Atspi.CoordType.SCREEN)
                if box.x > 0 and box.width > 40:  # not one of a button
                    yield box.y + box.height // 3, box.x + box.width // 2
            for index in range(item.get_child_count()):
                yield from icons(item.get_child_at_index(index), depth + 1)

        def items():
            desktop = Atspi.get_desktop(0)
            for index in range(desktop.get_child_count()):
                application = desktop.get_child_at_index(index)
                if application is not None and application.get_name() == "pcmanfm":
                    found = sorted(icons(application))
                    return [(x, y) for y, x in found] if len(found) == count else None
            return None

        return x11.wait_for(items, f"the file manager shows {count} items")

    def drag(self, source, target):
        """The pointer takes what lies at one place to another, as a hand does."""
        self.screen.move_pointer(*source)
        self.screen.button(True)
        steps = 12
        for step in range(1, steps + 1):
            self.screen.move_pointer(*(a + (b - a) * step / steps for a, b in zip(source, target)))

    def drop_on(self, viewer, source):
        # Over the empty desktop first, where the pointer says that nothing can be dropped.
        nowhere = 640, 960
        self.screen.move_pointer(*nowhere)
        arrow = self.steady_cursor(nowhere)
        self.drag(source, nowhere)
        x11.wait_for(lambda: self.nudge(nowhere) != arrow, "the drag is under way")
        refusing = self.steady_cursor(nowhere)
        left, top, width, height = viewer.wait_settled()
        target = left + width // 2, top + height // 2
        x11.wait_for(lambda: self.nudge(target) != refusing, "the viewer accepts the drag")
        self.steady_cursor(target)
        self.screen.button(False)

    def nudge(self, place):
        """Moves the pointer a little to and fro, so that all see where it is; its look."""
        self.screen.move_pointer(place[0] + 1, place[1])
        self.screen.move_pointer(*place)
        return self.screen.cursor()

    def steady_cursor(self, place):
        """The pointer's look at a place once forty nudges have not changed it: all that it
        passed on its way have had their say."""
        seen = []

        def steady():
            seen.append(self.nudge(place))
            return len(seen) >= 40 and all(cursor == seen[-1] for cursor in seen[-40:])

        x11.wait_for(steady, "the pointer keeps its look")
        return seen[-1]

    def test_a_file_and_a_folder_are_opened(self):
        os.mkdir(self.path("inner"))
        self.picture("inner/first.png", color_of(40))
        self.picture("photo one.png", color_of(41))
        self.picture("photo two.png", color_of(42))
        viewer = self.start(folder=self.home)
        viewer.window.move_resize(*PLACE)
        x11.wait_for(lambda: viewer.window.frame() == PLACE, "the viewer has its place")
        self.manager()
        inner, _one, two = self.places(3)

        self.drop_on(viewer, two)
        viewer.wait_shown("photo two.png")
        viewer.wait_centre(color_of(42))

        self.drop_on(viewer, inner)
        viewer.wait_shown("first.png")
        viewer.wait_centre(color_of(40))

        viewer.window.activate()
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
