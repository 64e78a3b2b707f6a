"""Settings files as the program reads them: one flattened message each (docs/message-format.md)."""

import os
import struct
import zlib


def _field(kind, name, items, item_size):
    data = b"".join(items if item_size else
        (struct.pack("<I", len(item)) + item for item in items))
    return (kind[::-1] + struct.pack("<III", len(items), item_size, len(name)) + name.encode()
        + data)


def int32(name, value):
    return _field(b"LONG", name, [struct.pack("<i", value)], 4)


def float32(name, value):
    return _field(b"FLOT", name, [struct.pack("<f", value)], 4)


def boolean(name, value):
    return _field(b"BOOL", name, [bytes([value])], 1)


def rect(name, left, top, right, bottom):
    return _field(b"RECT", name, [struct.pack("<4f", left, top, right, bottom)], 16)


def raw(name, data):
    return _field(b"RAWT", name, [data], len(data))


def string(name, text):
    return _field(b"CSTR", name, [text.encode() + b"\0"], 0)


def strings(name, texts):
    """Several in one field."""
    return _field(b"CSTR", name, [text.encode() + b"\0" for text in texts], 0)


def message(*fields):
    """The flattened message of some fields."""
    body = b"".join(fields)
    head = b"LMsg" + struct.pack("<HHI", 1, 0, 32 + len(body))
    rest = struct.pack("<II8x", 0, len(fields)) + body
    return head + struct.pack("<I", zlib.crc32(head + rest)) + rest


def write(settings, folder, name, *fields):
    """Writes a file into a folder of the maker's below the settings directory."""
    place = os.path.join(settings, "ZELKAN", folder)
    os.makedirs(place, exist_ok=True)
    with open(os.path.join(place, name), "wb") as file:
        file.write(message(*fields))
