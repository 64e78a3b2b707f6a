"""Folders of pictures that change while they are looked through."""

import os
import shutil

import png
from viewer_test import SAMPLES, color_of, measured

COMMENTS = [
    b"A comment.\n",
    b"\xef\xbb\xbf" + "Sunset over the lake\n".encode() * 12,
    "夕日の湖、\r\n二行目。\r\n".encode("cp932"),
    "夕日の湖\n".encode("iso2022_jp"),
    "Eine lange Zeile über das Bild hinaus, die umgebrochen wird. ".encode() * 400,
    bytes(range(256)) * 20,
    b"",
]

DRAWING = b"""<svg xmlns="http://www.w3.org/2000/svg" width="300" height="200">
<rect width="300" height="200" fill="#246"/><circle cx="150" cy="100" r="80" fill="#fc8"/></svg>"""

SIZES = [(1, 1), (320, 240), (333, 777), (801, 64), (1500, 1200), (3000, 2), (2, 3000),
    (4000, 3000)]


class Album:
    """Two folders that change, and one that does not."""

    NAMES = [f"p{index:02}" for index in range(24)]

    def __init__(self, place, rng):
        self.rng = rng
        self.calm, self.part = os.path.join(place, "calm"), os.path.join(place, "part")
        self.folders = [os.path.join(place, name) for name in ("one", "two 桜 & more")]
        self.stock = []
        for folder in (self.calm, *self.folders):
            os.makedirs(folder)
        for index in range(3):
            self._write(os.path.join(self.calm, f"calm{index}.png"),
                png.plain(320, 240, color_of(index)))
        self._gather()
        for folder in self.folders:
            for name in self.NAMES[::2]:
                self._add(folder, name)

    def _gather(self):
        """Pictures of all kinds, as pairs of an extension and the bytes."""
        for index, size in enumerate(SIZES):
            self.stock.append((".png", png.plain(*size, color_of(index + 5))))
        self.stock.append((".png", measured(900, 700)))
        self.stock.append((".svg", DRAWING))
        for folder, _folders, names in sorted(os.walk(SAMPLES)):
            for name in sorted(names):
                if not name.endswith(".txt"):
                    with open(os.path.join(folder, name), "rb") as file:
                        self.stock.append((os.path.splitext(name)[1], file.read()))

    def _write(self, path, data):
        if os.path.lexists(path) and self._is_special(path):
            self._do_remove(None, path)
        with open(path, "wb") as file:
            file.write(data)

    def _add(self, folder, name):
        extension, data = self.rng.choice(self.stock)
        self._write(os.path.join(folder, name + extension), data)
        if self.rng.random() < 0.4:
            self._comment(folder, name)

    def _comment(self, folder, name):
        self._write(os.path.join(folder, name + ".txt"), self.rng.choice(COMMENTS))

    def _damaged(self):
        data = bytearray(self.rng.choice(self.stock)[1])
        for _ in range(self.rng.randint(1, 20)):
            data[self.rng.randrange(len(data))] = self.rng.randrange(256)
        return bytes(data[:self.rng.randint(1, len(data))] if self.rng.random() < 0.3 else data)

    def entries(self, folder):
        return [os.path.join(folder, name) for name in sorted(os.listdir(folder))]

    def anything(self):
        """Something to open: a picture, a comment, a folder, or what is there no more."""
        folder = self.rng.choice(self.folders)
        found = self.entries(folder)
        if not found or self.rng.random() < 0.15:
            return folder
        return self.rng.choice(found)

    def change(self):
        """Does one thing to one of the folders; what it was."""
        folder = self.rng.choice(self.folders)
        found = self.entries(folder)
        kinds = ["add"] * 5 + ["comment"] * 2
        if found:
            kinds += ["remove"] * 3 + ["rewrite"] * 2 + ["truncate", "grow", "damage", "rename",
                "swap", "touch", "no file"]
        if len(found) > 6 and self.rng.random() < 0.05:
            kinds = ["empty"]
        kind = self.rng.choice(kinds)
        path = self.rng.choice(found) if found else None
        if kind in ("add", "comment"):
            path = os.path.join(folder, self.rng.choice(self.NAMES))
        told = f"{kind} {os.path.basename(path)!r} in {os.path.basename(folder)!r}"
        try:
            getattr(self, "_do_" + kind.replace(" ", "_"))(folder, path)
        except OSError as failed:  # such as a folder where a file is to be
            return f"{told} ({failed.strerror})"
        return told

    def _do_add(self, folder, path):
        self._add(folder, os.path.basename(path))

    def _do_comment(self, folder, path):
        self._comment(folder, os.path.basename(path))

    @staticmethod
    def _do_remove(_folder, path):
        if os.path.isdir(path) and not os.path.islink(path):
            shutil.rmtree(path)
        else:
            os.remove(path)

    def _do_rewrite(self, _folder, path):
        """In place and in two halves, with whoever reads it in between seeing the first."""
        if self._is_special(path):
            return self._do_remove(None, path)
        data = self.rng.choice(self.stock)[1]
        with open(path, "wb", buffering=0) as file:
            file.write(data[:len(data) // 2])
            file.write(data[len(data) // 2:])

    @staticmethod
    def _is_special(path):
        """Opening it might wait for ever."""
        return os.path.islink(path) or not os.path.isfile(path)

    def _do_truncate(self, _folder, path):
        if self._is_special(path):
            return self._do_remove(None, path)
        os.truncate(path, self.rng.randint(0, os.path.getsize(path)))

    def _do_grow(self, _folder, path):
        if self._is_special(path):
            return self._do_remove(None, path)
        with open(path, "ab") as file:
            file.write(self.rng.randbytes(1000))

    def _do_damage(self, _folder, path):
        """Another file takes its name in one step."""
        self._write(self.part, self._damaged())
        os.replace(self.part, path)

    def _do_rename(self, folder, path):
        os.replace(path, os.path.join(folder, self.rng.choice(self.NAMES)
            + os.path.splitext(path)[1]))

    def _do_swap(self, folder, path):
        other = self.rng.choice(self.entries(folder))
        if other == path or self._is_special(path) or self._is_special(other):
            return
        os.replace(path, self.part)
        os.replace(other, path)
        os.replace(self.part, other)

    @staticmethod
    def _do_touch(_folder, path):
        os.utime(path, follow_symlinks=False)

    def _do_no_file(self, _folder, path):
        """What has a picture's name and is none to open."""
        self._do_remove(None, path)
        kind = self.rng.choice(("fifo", "folder", "gone", "itself", "endless"))
        if kind == "fifo":
            os.mkfifo(path)
        elif kind == "folder":
            os.mkdir(path)
        else:
            os.symlink({"gone": "nowhere.png", "itself": os.path.basename(path),
                "endless": "/dev/zero"}[kind], path)

    def _do_empty(self, folder, _path):
        for path in self.entries(folder):
            self._do_remove(None, path)
