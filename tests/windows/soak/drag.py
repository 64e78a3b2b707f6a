"""Something dragged from another program onto a window and dropped there, as XDND has it."""

import select
import time
from urllib.parse import quote

from Xlib import X, Xatom, display, protocol


class Source:
    """The program it is dragged from: a connection and a window of its own."""

    def __init__(self):
        self.display = display.Display()
        self.display.set_error_handler(lambda *_: None)
        self.window = self.display.screen().root.create_window(-10, -10, 1, 1, 0,
            X.CopyFromParent)
        self.uris = b""

    def close(self):
        self.display.close()

    def _atom(self, name):
        return self.display.get_atom(name)

    def _tell(self, target, name, *data):
        target.send_event(protocol.event.ClientMessage(window=target,
            client_type=self._atom(name), data=(32, ([self.window.id, *data] + [0] * 5)[:5])))
        self.display.flush()

    def _await(self, name, seconds):
        """That answer's data, while what is asked for is handed out; None when it is too late."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while self.display.pending_events():
                event = self.display.next_event()
                if event.type == X.SelectionRequest:
                    self._hand_out(event)
                elif event.type == X.ClientMessage and event.client_type == self._atom(name):
                    return event.data[1]
            select.select([self.display.fileno()], [], [], 0.05)
        return None

    def _hand_out(self, request):
        place = request.property or request.target
        if request.target == self._atom("TARGETS"):
            request.requestor.change_property(place, Xatom.ATOM, 32, [self._atom("text/uri-list")])
        else:
            request.requestor.change_property(place, request.target, 8, self.uris)
        request.requestor.send_event(protocol.event.SelectionNotify(time=request.time,
            requestor=request.requestor, selection=request.selection, target=request.target,
            property=place))
        self.display.flush()

    def drop(self, window, x, y, paths, seconds):
        """Whether the window has taken them; None when it has not answered in that time."""
        self.uris = b"".join(b"file://" + quote(path).encode() + b"\r\n" for path in paths)
        target = self.display.create_resource_object("window", window.handle.id)
        self.window.set_selection_owner(self._atom("XdndSelection"), X.CurrentTime)
        self._tell(target, "XdndEnter", 5 << 24, self._atom("text/uri-list"))
        self._tell(target, "XdndPosition", 0, int(x) << 16 | int(y), X.CurrentTime,
            self._atom("XdndActionCopy"))
        status = self._await("XdndStatus", seconds)
        if status is None:
            return None
        if not status[1] & 1:
            self._tell(target, "XdndLeave")
            return False
        self._tell(target, "XdndDrop", 0, X.CurrentTime)
        return None if self._await("XdndFinished", seconds) is None else True
