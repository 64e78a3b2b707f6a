"""Whether the program answers, and what it takes of memory."""

import os
import re
import select
import time

from Xlib import X, display, protocol

import accessibility

# Two formats of the shared preference for letters in labels, and what a menu's label looks like
# under each, in any language.
FORMATS = [("\2(a)", re.compile(r".+\(\w\)")), ("\1a - ", re.compile(r"\w - .+"))]


class Stopped(Exception):
    """The soak ends here: what is wrong, in words."""


class Answers:
    """How long the answers of one kind took."""

    def __init__(self):
        self.count, self.longest, self.total = 0, 0.0, 0.0

    def add(self, seconds):
        self.count += 1
        self.total += seconds
        self.longest = max(self.longest, seconds)

    def __str__(self):
        mean = self.total / self.count if self.count else 0
        return f"{self.count} times, {mean * 1000:.1f} ms in the mean, " \
            f"{self.longest * 1000:.0f} ms at most"


class Pinger:
    """Asks windows whether their program lives, as window managers do: it answers from its main
    thread, between two events."""

    def __init__(self):
        self.display = display.Display()
        self.display.set_error_handler(lambda *_: None)
        self.root = self.display.screen().root
        # The toolkit sends its answers to the root window for those who ask for this.
        self.root.change_attributes(event_mask=X.StructureNotifyMask)
        self.protocols = self.display.get_atom("WM_PROTOCOLS")
        self.ping = self.display.get_atom("_NET_WM_PING")
        self.number = 0

    def close(self):
        self.display.close()

    def ask(self, window, seconds):
        """How long the answer took, or None if there was none in that time."""
        self.number += 1
        start = time.monotonic()
        target = self.display.create_resource_object("window", window.handle.id)
        target.send_event(protocol.event.ClientMessage(window=target, client_type=self.protocols,
            data=(32, [self.ping, self.number, target.id, 0, 0])))
        self.display.flush()
        while (left := start + seconds - time.monotonic()) > 0:
            while self.display.pending_events():
                event = self.display.next_event()
                if event.type == X.ClientMessage and event.client_type == self.protocols \
                        and event.data[1][0] == self.ping and event.data[1][1] == self.number:
                    return time.monotonic() - start
            select.select([self.display.fileno()], [], [], min(left, 0.05))
        return None


class Labels:
    """Asks the main window's own thread: a shared preference is changed by a broadcast, which goes
    through the application's queue and the window's, and comes back as another label of a menu."""

    def __init__(self, sender, reader, window):
        self.sender, self.reader, self.window = sender, reader, window
        self.bar, self.at = None, 0
        self.ask(30)  # whatever it shows, the first answer is a known one
        self.ask(30)

    def first(self):
        """The label of the first menu."""
        try:
            if self.bar is None:
                self.bar = self.reader.menu_bar()
            return accessibility.entries(self.bar)[0].get_name()
        except (IndexError, *accessibility.GONE):
            self.bar = None
            return ""

    def set(self, index):
        self.at = index
        self.sender.change("AccKeyFormat2", FORMATS[index][0])

    def ask(self, seconds):
        """As Pinger.ask()."""
        start = time.monotonic()
        self.set(1 - self.at)
        while time.monotonic() < start + seconds:
            if FORMATS[self.at][1].fullmatch(self.first()):
                return time.monotonic() - start
            time.sleep(0.002)
        return None


class Memory:
    """What one process had at calm moments, all in MiB."""

    def __init__(self, pid):
        self.pid, self.start, self.samples = pid, time.monotonic(), []

    def _number(self, file, name):
        with open(f"/proc/{self.pid}/{file}", encoding="utf-8") as lines:
            return next(int(line.split()[1]) for line in lines if line.startswith(name + ":"))

    def peak(self):
        return self._number("status", "VmHWM") / 1024

    def sample(self):
        self.samples.append((time.monotonic() - self.start, self._number("status", "VmRSS") / 1024,
            self._number("smaps_rollup", "Pss") / 1024, self._number("status", "Threads"),
            len(os.listdir(f"/proc/{self.pid}/fd"))))
        return self.samples[-1]

    def growth(self, warm_up):
        """MiB an hour by the line through what came after the warm-up; None for too little."""
        points = [(at / 3600, rss) for at, rss, *_ in self.samples if at >= warm_up]
        if len(points) < 5:
            return None
        middle = [sum(values) / len(points) for values in zip(*points)]
        across = sum((x - middle[0]) ** 2 for x, _ in points)
        return sum((x - middle[0]) * (y - middle[1]) for x, y in points) / across


def wait_on_the_bus(seconds):
    """The accessibility bus gives up later than the program is given to answer."""
    accessibility.Atspi.set_timeout(int(seconds * 1000), int(seconds * 1000))

