"""The window of the shared preferences when one of the applications ends: at every step of its use,
whichever of them has the window."""

import contextlib
import shutil

from shared_prefs import BAR_SIGNATURE, DASH, NONE, SUFFIX, VIEWER_SIGNATURE, SharedPrefs
from viewer_test import main


def press(button):
    return lambda test, owner, other: owner.press(button)


def key(name):
    def step(test, owner, other):
        owner.front()
        test.screen.key(name)

    return step


# What is under way when one is killed. The window is open, but for the first of them.
STEPS = {
    "asks for the window": lambda test, owner, other: owner.ask(),
    "the other asks for it": lambda test, owner, other: other.ask(),
    "changes": lambda test, owner, other: owner.choose(SUFFIX),
    "Cancel": press("Cancel"),
    "Defaults": press("Defaults"),
    "OK": press("OK"),
    "Escape": key("Escape"),
    "Enter": key("Return"),
    "the close box": lambda test, owner, other: owner.common_window().close(),
}


class Killed(SharedPrefs):
    def start_kind(self, signature):
        application = self.start_viewer() if signature == VIEWER_SIGNATURE else self.start_bar()
        application.signature = signature
        return application

    def start_two(self, owner, other):
        started = [self.start_kind(signature) for signature in (owner, other)]
        for application in started:
            application.wait_label(SUFFIX)
        return started

    @contextlib.contextmanager
    def at(self, step, owner):
        """The first that fails ends the test: no application is left to go on with."""
        try:
            yield
        except AssertionError as error:
            raise AssertionError(f"{step}, the owner {owner.signature}: {error}") from error

    def go_to(self, step, owner, other):
        if step != next(iter(STEPS)):
            owner.ask()
            owner.wait_common()
            owner.choose(DASH)
            self.wait_format(DASH, owner, other)
        STEPS[step](self, owner, other)

    def check_works(self, survivor):
        """Whatever became of the step, it opens the window, changes and saves."""
        survivor.wait_idle()  # else the window may be about to be hidden
        survivor.ask()
        survivor.wait_common()
        survivor.choose(DASH)
        survivor.wait_label(DASH)
        survivor.choose(NONE)
        survivor.wait_label(NONE)
        self.wait_saved(NONE, survivor.signature)
        survivor.press("OK")
        survivor.wait_common(False)

    def kill_owners(self, first, second):
        """Each step with the other of the two: who is left has the window from then on."""
        owner, other = self.start_two(first, second)
        for step in STEPS:
            with self.at(step, owner):
                self.go_to(step, owner, other)
                owner.kill()
                self.check_works(other)
                owner, other = other, self.start_kind(owner.signature)
                other.wait_label(NONE)

    def kill_others(self, first, second):
        owner, other = self.start_two(first, second)
        for step in STEPS:
            with self.at(step, owner):
                self.go_to(step, owner, other)
                other.kill()
                self.check_works(owner)
                other = self.start_kind(second)
                other.wait_label(NONE)

    def test_the_owner_from_the_viewer_on(self):
        self.kill_owners(VIEWER_SIGNATURE, BAR_SIGNATURE)

    def test_the_owner_from_the_bar_on(self):
        self.kill_owners(BAR_SIGNATURE, VIEWER_SIGNATURE)

    def test_the_bar_beside_the_owner(self):
        self.kill_others(VIEWER_SIGNATURE, BAR_SIGNATURE)

    def test_the_viewer_beside_the_owner(self):
        self.kill_others(BAR_SIGNATURE, VIEWER_SIGNATURE)

    def test_the_owner_while_the_other_waits_for_it(self):
        for signatures in ((VIEWER_SIGNATURE, BAR_SIGNATURE), (BAR_SIGNATURE, VIEWER_SIGNATURE)):
            with self.subTest(owner=signatures[0]):
                owner, other = self.start_two(*signatures)
                owner.ask()
                owner.wait_common()
                ask = other.asking()
                owner.stop()
                ask()
                owner.kill()
                # It has been asked; nobody has to ask again.
                other.wait_common()
                self.check_works(other)
                other.kill()
                shutil.rmtree(self.settings)


class Quits(SharedPrefs):
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


if __name__ == "__main__":
    main()
