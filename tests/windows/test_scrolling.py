"""Moving over pictures that are larger than the window: keys held and struck, the wheel, the
bars."""

import time

import accessibility
from accessibility import Value
from viewer_test import (
    BLACK, SCROLL_BAR_EXTENT, SCROLL_BAR_THICKNESS, ViewerTest, color_of, main, place_of, x11)

FRAME = (50, 50, 450, 449)  # saved edges: content of 401 by 400 pixels

# What tells a new press from a run, in seconds.
NEW_PRESS = 0.4


class Scrolling(ViewerTest):
    def environment(self):
        return {**super().environment(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def open(self, name, option=0):
        """A viewer with a window of a known size that keeps it."""
        self.display_option(option)
        self.saved_frame(*FRAME)
        viewer = self.start(self.path(name))
        viewer.wait_shown(name)
        viewer.wait_frame(None, None, 401, 400)
        # A key struck before the picture is on the screen does not count.
        viewer.wait_idle()
        return viewer

    def visible_height(self, horizontal=False):
        return (400 - self.menu_height() - 14 - (SCROLL_BAR_EXTENT if horizontal else 0))

    @staticmethod
    def offset(viewer):
        """The place in the picture of what is shown at the area's left and at its top; 0 where
        that is the black beside a smaller picture."""
        shown = viewer.area_picture()
        return (place_of(shown.at(0, (shown.height - SCROLL_BAR_EXTENT) // 2))[0],
            place_of(shown.at((shown.width - SCROLL_BAR_THICKNESS) // 2, 0))[1])

    def wait_offset(self, viewer, x, y):
        x11.wait_for(lambda: self.offset(viewer) == (x, y),
            lambda: f"the picture is moved to {(x, y)}; it is at {self.offset(viewer)}")

    def await_new_press(self):
        """The rule that is tested is one of time."""
        time.sleep(NEW_PRESS + 0.02)

    def held(self, name, viewer, count):
        """A key that repeats thirty times a second."""
        for _ in range(count):
            viewer.key(name)
            time.sleep(0.03)

    def hold_to_the_edge(self, key, viewer, edge):
        """Holds the key until that row is on top, and then for many repeats more."""
        self.screen.press(key)
        try:
            x11.wait_for(lambda: self.offset(viewer)[1] == edge,
                lambda: f"row {edge} is on top; it is {self.offset(viewer)}", 10)
            # The first repeat comes 0.66 seconds after the press, the others 25 times a second.
            time.sleep(1.2)
        finally:
            self.screen.release(key)
        viewer.wait_idle()
        self.assertEqual(self.offset(viewer)[1], edge)

    def test_down_scrolls_by_half_of_what_is_visible_to_the_end_and_then_goes_on(self):
        self.measured_picture("a.png", 300, 1500)
        self.picture("b.png", color_of(9))
        viewer = self.open("a.png")
        visible = self.visible_height()
        step, last = (visible - 1) // 2, 1500 - visible
        self.assertEqual(self.offset(viewer)[1], 0)
        at = 0
        while at < last:
            at = min(at + step, last)
            viewer.key("Down")
            x11.wait_for(lambda: abs(self.offset(viewer)[1] - at) <= at // step + 1,
                lambda: f"about row {at} is on top; it is {self.offset(viewer)}")
        self.assertEqual(self.offset(viewer)[1], last)
        # The last row of the picture is the last of the area.
        picture = viewer.area_picture()
        x = (picture.width - SCROLL_BAR_THICKNESS) // 2
        self.assertEqual(place_of(picture.at(x, picture.height - 1))[1], 1499)
        self.await_new_press()
        viewer.key("Down")
        viewer.wait_shown("b.png")
        self.assert_clean(viewer)

    def test_down_held_stops_at_the_end_until_it_is_pressed_anew(self):
        self.measured_picture("a.png", 300, 1500)
        self.picture("b.png", color_of(9))
        viewer = self.open("a.png")
        self.hold_to_the_edge("Down", viewer, 1500 - self.visible_height())
        self.assertEqual(viewer.title(), "a.png - Lorivane")
        self.await_new_press()
        viewer.key("Down")
        viewer.wait_shown("b.png")
        self.assert_clean(viewer)

    def test_up_held_pages_back_through_fresh_pictures(self):
        for name in ("a.png", "b.png", "c.png", "d.png"):
            self.measured_picture(name, 300, 1500)
        viewer = self.open("d.png")

        def at_the_first():
            self.held("Up", viewer, 1)
            return viewer.title() == "a.png - Lorivane"

        x11.wait_for(at_the_first, lambda: f"the first is reached; at {viewer.title()!r}", 5)
        self.assert_clean(viewer)

    def test_up_held_stops_at_the_top_of_a_picture_that_was_scrolled(self):
        self.measured_picture("a.png", 300, 1500)
        self.measured_picture("b.png", 300, 1500)

        viewer = self.open("b.png")
        # One step back reaches the top, long before the key begins to repeat.
        viewer.key("Down")
        x11.wait_for(lambda: self.offset(viewer)[1] > 0, "the picture is scrolled")
        self.hold_to_the_edge("Up", viewer, 0)
        self.assertEqual(viewer.title(), "b.png - Lorivane")
        self.await_new_press()
        viewer.key("Up")
        viewer.wait_shown("a.png")
        self.assert_clean(viewer)

    def test_down_held_runs_through_pictures_that_fit(self):
        self.pictures(12)
        viewer = self.open("p000.png")
        self.screen.press("Down")
        try:
            viewer.wait_shown("p011.png")
        finally:
            self.screen.release("Down")
        viewer.wait_centre(color_of(11))
        self.assert_clean(viewer)

    def test_right_and_left_move_over_a_wide_picture(self):
        self.picture("a.png", color_of(1))
        self.measured_picture("b.png", 1200, 200)
        self.picture("c.png", color_of(2))
        viewer = self.open("b.png")
        last = 1200 - 401
        for key, start, other in (("Right", 0, last), ("Left", last, 0)):
            viewer.key(key)
            moved = abs(other - start) and x11.wait_for(
                lambda: abs(self.offset(viewer)[0] - start), "the picture is moved")
            self.assertAlmostEqual(moved, 200, delta=1)
            while self.offset(viewer)[0] != other:
                before = self.offset(viewer)[0]
                viewer.key(key)
                x11.wait_for(lambda: self.offset(viewer)[0] != before, "the picture is moved")
        self.await_new_press()
        viewer.key("Left")
        viewer.wait_shown("a.png")
        self.assert_clean(viewer)

    def test_the_wheel_scrolls_and_steps(self):
        self.picture("a.png", color_of(1))
        self.measured_picture("b.png", 300, 900)
        self.picture("c.png", color_of(2))
        viewer = self.open("a.png")
        viewer.wheel()
        viewer.wait_shown("b.png")
        last = 900 - self.visible_height()
        while self.offset(viewer)[1] < last:
            before = self.offset(viewer)[1]
            viewer.wheel()
            x11.wait_for(lambda: self.offset(viewer)[1] > before, "the picture is moved")
        self.await_new_press()
        viewer.wheel()
        viewer.wait_shown("c.png")
        viewer.wait_idle()
        viewer.wheel(down=False)
        viewer.wait_shown("b.png")
        viewer.wait_idle()
        self.await_new_press()
        viewer.wheel(down=False)
        viewer.wait_shown("a.png")
        self.assert_clean(viewer)

    def test_the_wheel_goes_sideways_when_only_that_is_possible(self):
        self.measured_picture("a.png", 1200, 200)
        viewer = self.open("a.png")
        viewer.wheel()
        x11.wait_for(lambda: abs(self.offset(viewer)[0] - 200) <= 1,
            lambda: f"half of the visible width; at {self.offset(viewer)}")
        viewer.wheel(down=False)
        x11.wait_for(lambda: self.offset(viewer)[0] == 0, "back at the start")
        self.assert_clean(viewer)

    def test_the_wheel_goes_down_when_both_are_possible(self):
        self.measured_picture("a.png", 1200, 1200)
        viewer = self.open("a.png")
        half = self.visible_height(horizontal=True) // 2
        viewer.wheel()
        x11.wait_for(lambda: abs(self.offset(viewer)[1] - half) <= 1,
            lambda: f"half of the visible height; at {self.offset(viewer)}")
        self.assertEqual(self.offset(viewer)[0], 0)
        self.assert_clean(viewer)

    def test_the_bars_by_the_mouse(self):
        self.measured_picture("a.png", 1200, 1500)
        viewer = self.open("a.png")
        reader = accessibility.Reader(viewer)
        across = accessibility.extents(reader.wait_scroll_bar(across=True))
        down = accessibility.extents(reader.wait_scroll_bar(across=False))
        left, top, width, height = viewer.image_area()
        # They overlap by a row and a column where they meet.
        self.assertEqual(down, (left + width - 14, top, 14, height - SCROLL_BAR_EXTENT + 1))
        self.assertEqual(across, (left, top + height - 13, width - 14 + 1, 14))

        # A thumb drawn to the far end shows the picture's end.
        def draw(bar, x, y):
            start = (bar[0] + 40, bar[1] + 7) if x else (bar[0] + 7, bar[1] + 40)
            self.screen.move_pointer(*start)
            self.screen.button(True)
            for step in range(1, 9):
                self.screen.move_pointer(start[0] + x * step // 8, start[1] + y * step // 8)
            self.screen.button(False)

        draw(down, 0, down[3])
        bottom = 1500 - self.visible_height(horizontal=True)
        x11.wait_for(lambda: abs(self.offset(viewer)[1] - bottom) <= 1,
            lambda: f"the last rows are shown; at {self.offset(viewer)}")
        draw(across, across[2], 0)
        right = 1200 - (401 - SCROLL_BAR_THICKNESS)
        x11.wait_for(lambda: abs(self.offset(viewer)[0] - right) <= 1,
            lambda: f"the last columns are shown; at {self.offset(viewer)}")
        # A click beside the thumb goes back by half of what is visible.
        before = self.offset(viewer)[1]
        self.screen.click(down[0] + 7, down[1] + 30)
        half = self.visible_height(horizontal=True) // 2
        x11.wait_for(lambda: abs(before - self.offset(viewer)[1] - half) <= 2,
            lambda: f"{half} rows less than {before}; at {self.offset(viewer)}")
        # The keys still go to the picture.
        before = self.offset(viewer)[1]
        viewer.key("Up")
        x11.wait_for(lambda: self.offset(viewer)[1] < before, "the picture is moved by the key")
        self.assert_clean(viewer)

    def test_the_bars_by_assistive_technology(self):
        self.measured_picture("a.png", 1200, 1500)
        viewer = self.open("a.png")
        reader = accessibility.Reader(viewer)
        for across, axis, last in ((False, 1, 1500 - self.visible_height(horizontal=True)),
                (True, 0, 1200 - (401 - SCROLL_BAR_THICKNESS))):
            bar = reader.wait_scroll_bar(across)
            self.assertEqual(Value.get_minimum_value(bar), 0)
            self.assertEqual(Value.get_maximum_value(bar), last)
            Value.set_current_value(bar, 123)
            x11.wait_for(lambda: self.offset(viewer)[axis] == 123,
                lambda: f"the picture is moved to 123; it is at {self.offset(viewer)}")
            self.assertEqual(Value.get_current_value(bar), 123)
        self.assert_clean(viewer)

    def test_the_corner_between_the_bars_is_neither_picture_nor_background(self):
        self.measured_picture("a.png", 1200, 1500)
        viewer = self.open("a.png")
        viewer.wait_idle()
        picture = viewer.area_picture()
        corner = {picture.at(picture.width - x, picture.height - y)
            for x in range(1, 13) for y in range(1, 12)}
        self.assertEqual(len(corner), 1, corner)
        self.assertNotIn(BLACK, corner)
        self.assert_clean(viewer)


if __name__ == "__main__":
    main()
