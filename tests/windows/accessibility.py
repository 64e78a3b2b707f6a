"""The program as the accessibility bus tells it: what a screen reader finds and can do."""

import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from viewer_test import x11  # noqa: E402

Role = Atspi.Role
Value = Atspi.Value
MENUS = {Role.MENU, Role.MENU_ITEM, Role.CHECK_MENU_ITEM, Role.RADIO_MENU_ITEM, Role.SEPARATOR}

# What an item of a program that changes under the reader's hands may answer.
GONE = (GLib.Error, AttributeError)


def application(pid):
    """The process on the bus, or None as long as it is not there."""
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for index in range(desktop.get_child_count()):
        try:
            item = desktop.get_child_at_index(index)
            if item is not None and item.get_process_id() == pid:
                # What this side remembers of a child is not always told when it changes.
                item.set_cache_mask(Atspi.Cache.NONE)
                return item
        except GLib.Error:
            continue  # another program that has just ended
    return None


def children(item):
    return [child for child in (item.get_child_at_index(index)
        for index in range(item.get_child_count())) if child is not None]


def walk(item, depth=0):
    if item is None or depth > 20:
        return
    yield item
    for child in children(item):
        yield from walk(child, depth + 1)


def has_state(item, state):
    return item.get_state_set().contains(state)


def label_of(item):
    """Its name; that of the label beside it when it has one, since a list of choices is named
    after the one it shows."""
    for relation in item.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            item = relation.get_target(0)
    return item.get_name().strip()


def is_marked(item):
    return has_state(item, Atspi.StateType.CHECKED)


def is_enabled(item):
    return has_state(item, Atspi.StateType.ENABLED)


def is_expanded(item):
    return has_state(item, Atspi.StateType.EXPANDED)


def is_showing(item):
    states = item.get_state_set()
    return states.contains(Atspi.StateType.SHOWING) and states.contains(Atspi.StateType.VISIBLE)


def extents(item):
    """Left, top, width and height on the screen."""
    box = Atspi.Component.get_extents(item, Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def middle(item):
    left, top, width, height = extents(item)
    return left + width // 2, top + height // 2


def actions(item):
    with warnings.catch_warnings():
        # Said to be replaced by a function that the binding does not have.
        warnings.simplefilter("ignore", DeprecationWarning)
        return [Atspi.Action.get_action_name(item, index)
            for index in range(Atspi.Action.get_n_actions(item))]


def act(item, *names):
    """Does the first of the actions that the item has."""
    offered = actions(item)
    for name in names:
        if name in offered:
            Atspi.Action.do_action(item, offered.index(name))
            return
    raise AssertionError(f"{item.get_name()!r} offers {offered}, none of {names}")


class Reader:
    """Reads one viewer."""

    def __init__(self, viewer):
        self.pid = viewer.process.pid
        x11.wait_for(lambda: application(self.pid), "the viewer is on the accessibility bus")

    def all(self):
        return walk(application(self.pid))

    def named(self, name, role=None):
        """The first item of that name and role, or None."""
        try:
            for item in self.all():
                if item.get_name() == name and (role is None or item.get_role() == role):
                    return item
        except GONE:
            pass
        return None

    def wait_named(self, name, role=None):
        return x11.wait_for(lambda: self.named(name, role), f"there is {name!r}")

    def wait_scroll_bar(self, across):
        """The one that is seen, from left to right or from top to bottom."""
        def find():
            try:
                return next((item for item in self.all() if item.get_role() == Role.SCROLL_BAR
                    and is_showing(item) and (extents(item)[2] > extents(item)[3]) == across), None)
            except GONE:
                return None

        return x11.wait_for(find, "there is a scroll bar")

    def menu_bar(self):
        def find():
            try:
                return next((item for item in self.all() if item.get_role() == Role.MENU_BAR), None)
            except GONE:
                return None

        return x11.wait_for(find, "there is a menu bar")

    def menu(self, *path):
        """A menu or an item by the names on the way to it."""
        item = self.menu_bar()
        for name in path:
            found = next((entry for entry in entries(item) if entry.get_name() == name), None)
            if found is None:
                raise AssertionError(
                    f"no {name!r} in {[entry.get_name() for entry in entries(item)]}")
            item = found
        return item


def entries(item):
    """What a menu bar or a menu holds, separators included."""
    found = []
    for child in children(item):
        if child.get_role() == Role.POPUP_MENU:  # stands between a title and its items
            found += entries(child)
        elif child.get_role() in MENUS:
            found.append(child)
    return found
