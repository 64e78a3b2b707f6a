"""PNG files from rows of bytes, with the standard library alone."""

import struct
import zlib


def encode(width, height, rows, alpha=False):
    """The PNG file of an image of 8 bits a channel.

    rows: one bytes object for each row, of width pixels R, G, B (and A when alpha is set).
    """
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
            + struct.pack(">I", zlib.crc32(kind + data)))

    header = struct.pack(">IIBBBBB", width, height, 8, 6 if alpha else 2, 0, 0, 0)
    raw = b"".join(b"\0" + row for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9))
        + chunk(b"IEND", b""))


def plain(width, height, color):
    """The PNG file of an image of one colour, an R, G, B triple."""
    return encode(width, height, [bytes(color) * width] * height)
