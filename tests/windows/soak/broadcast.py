"""What another program of the family tells all of them over the session bus."""

import struct
import zlib

from gi.repository import Gio, GLib

import settings_file

SIGNATURE = "application/x-vnd.ZELKAN-LabelledBar"


class Sender:
    """Sends broadcasts as docs/between-applications.md describes them."""

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def send(self, body):
        """The bytes of one broadcast, whatever they are."""
        self.bus.emit_signal(None, "/org/lorivane/Roster", "org.lorivane.Roster", "Broadcast",
            GLib.Variant("(v)", (GLib.Variant("ay", body),)))
        self.bus.flush_sync()

    def change(self, item, value):
        """A change of a shared preference, in memory only: nobody saves it."""
        field = settings_file.boolean if isinstance(value, bool) else settings_file.string
        self.send(message(b"_Sic", settings_file.string("IAP:SrcApp", SIGNATURE),
            settings_file.string("IAP:SrcIAPItem", item), field(item, value)))


def message(what, *fields):
    """The flattened message of that code, in place of the 0 that settings have."""
    plain = bytearray(settings_file.message(*fields))
    plain[16:20] = what[::-1]
    plain[12:16] = struct.pack("<I", zlib.crc32(plain[:12] + plain[16:]))
    return bytes(plain)
