#!/usr/bin/env python3
"""Draws the pictures of samples/ again.

Needs ImageMagick's convert for the formats other than PNG and PPM. The result is committed, so
that nobody has to run this to look at pictures.
"""

import math
import os
import random
import struct
import subprocess

import png

SAMPLES = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "samples")


def mix(a, b, t):
    """The colour between two others; t from 0 to 1."""
    t = min(max(t, 0.0), 1.0)
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def gradient(stops, t):
    """The colour at t of a list of (position, colour)."""
    for (start, a), (end, b) in zip(stops, stops[1:]):
        if t <= end:
            return mix(a, b, (t - start) / (end - start))
    return stops[-1][1]


def paint(width, height, pixel):
    """Rows of the colours that pixel(x, y) gives."""
    rows = []
    for y in range(height):
        row = bytearray()
        for x in range(width):
            row += bytes(min(max(round(c), 0), 255) for c in pixel(x, y))
        rows.append(bytes(row))
    return rows


def write(name, data):
    with open(os.path.join(SAMPLES, name), "wb") as file:
        file.write(data)


def write_converted(name, width, height, rows, *options):
    """Lets convert write the format the name ends in."""
    subprocess.run(["convert", "png:-", "-strip", *options, os.path.join(SAMPLES, name)],
        input=png.encode(width, height, rows), check=True)


def sunset():
    width, height, horizon = 1280, 800, 520
    sky = [(0.0, (28, 32, 78)), (0.45, (122, 62, 120)), (0.75, (232, 108, 84)), (1, (255, 206, 120))]
    sun = (820, 430)

    def pixel(x, y):
        if y < horizon:
            color = gradient(sky, y / horizon)
            distance = math.hypot(x - sun[0], y - sun[1])
            if distance < 62:
                return mix((255, 246, 214), color, max(0.0, distance - 60) / 2)
            color = mix((255, 224, 150), color, min(1.0, (distance - 60) / 260))
            ridge = 440 + 26 * math.sin(x / 97) + 11 * math.sin(x / 31 + 1) + x * x / 4000
            return (38, 26, 52) if y > ridge else color
        depth = (y - horizon) / (height - horizon)
        color = mix((236, 150, 110), (24, 26, 60), depth ** 0.6)
        ripple = math.sin(y * y / 900 + math.sin(x / 37 + y / 5) * 1.6)
        glitter = math.exp(-((x - sun[0]) / (40 + 170 * depth)) ** 2)
        return mix(color, (255, 226, 160), glitter * (0.35 + 0.35 * ripple))

    return width, height, paint(width, height, pixel)


def rings():
    size = 640

    def pixel(x, y):
        a = math.hypot(x - 210, y - 250) / 13
        b = math.hypot(x - 430, y - 390) / 17
        wave = (math.sin(a) + math.sin(b)) / 2
        return gradient([(-1, (16, 44, 84)), (0, (64, 160, 172)), (1, (250, 240, 206))], wave)

    return size, size, paint(size, size, pixel)


def tower():
    width, height = 400, 1600
    chance = random.Random(7)
    lit = {(c, r): chance.random() < 0.45 for c in range(8) for r in range(70)}
    stars = {(chance.randrange(width), chance.randrange(900)) for _ in range(260)}

    def pixel(x, y):
        sky = gradient([(0, (8, 10, 34)), (0.7, (38, 44, 98)), (1, (120, 84, 124))], y / height)
        if 190 <= x < 210 and 90 <= y < 240:
            return (196, 60, 60) if y < 104 else (60, 64, 84)
        if not (90 <= x < 310 and y >= 240):
            return (236, 236, 246) if (x, y) in stars else sky
        column, row = (x - 100) // 25, (y - 260) // 19
        inside = (x - 100) % 25 < 17 and (y - 260) % 19 < 11
        if inside and 0 <= column < 8 and 0 <= row < 70:
            return (250, 214, 128) if lit[column, row] else (52, 58, 82)
        return mix((40, 44, 64), (26, 28, 44), (x - 90) / 220)

    return width, height, paint(width, height, pixel)


def waves():
    width, height = 2000, 400
    sands = [(242, 224, 184), (228, 180, 120), (196, 120, 84), (132, 76, 82), (72, 52, 80)]

    def pixel(x, y):
        color = gradient([(0, (136, 190, 220)), (1, (236, 236, 226))], y / 180)
        for layer, sand in enumerate(sands):
            crest = 130 + 55 * layer + 26 * math.sin(x / (150 + 40 * layer) + 2 * layer)
            if y > crest:
                color = mix(sand, mix(sand, (0, 0, 0), 0.25), (y - crest) / 120)
        return color

    return width, height, paint(width, height, pixel)


def leaf():
    """A leaf with soft edges, on nothing."""
    size = 480

    def pixel(x, y):
        u, v = (x - 240) / 200, (y - 240) / 200
        along, across = (u - v) / math.sqrt(2), (u + v) / math.sqrt(2)
        edge = 0.52 * (1 - along * along) ** 1.3 if abs(along) < 1 else 0
        alpha = min(max((edge - abs(across)) * 60, 0), 1)
        vein = min(abs(across) * 40, abs(math.sin((along + abs(across)) * 14)) * 5 + 0.2, 1)
        color = mix((226, 240, 190), mix((60, 140, 66), (30, 96, 66), abs(across) * 2), vein)
        return (*color, 255 * alpha)

    return size, size, paint(size, size, pixel)


# A digit's seven segments, from the top, clockwise, the middle one last.
SEGMENTS = ["abcdef", "bc", "abged", "abgcd", "fgbc", "afgcd", "afgedc", "abc", "abcdefg", "abcfgd"]


def in_digit(digit, x, y):
    """Whether a point lies on a digit of 3 by 5 units with segments half a unit thick."""
    boxes = {"a": (0, 0, 3, .6), "b": (2.4, 0, 3, 2.8), "c": (2.4, 2.2, 3, 5), "d": (0, 4.4, 3, 5),
        "e": (0, 2.2, .6, 5), "f": (0, 0, .6, 2.8), "g": (0, 2.2, 3, 2.8)}
    return any(boxes[s][0] <= x < boxes[s][2] and boxes[s][1] <= y < boxes[s][3]
        for s in SEGMENTS[digit])


def numbers():
    width, height = 350, 200
    colors = [(236, 94, 84), (240, 150, 70), (240, 206, 90), (130, 190, 110), (70, 160, 150),
        (80, 130, 190), (110, 100, 180), (170, 100, 170), (210, 110, 140), (120, 110, 110)]

    def pixel(x, y):
        digit = x // 70 + 5 * (y // 100)
        on = in_digit(digit, (x % 70 - 17) / 12, (y % 100 - 20) / 12)
        return (255, 255, 255) if on else colors[digit]

    return width, height, paint(width, height, pixel)


def turned():
    """An arrow that points up once the picture is turned by its orientation (90 degrees)."""
    width, height = 600, 400

    def pixel(x, y):
        down, side = x, y - height / 2  # seen upright: from the top, from the middle
        shaft = abs(side) < 34 and 220 <= down < 500
        head = 100 <= down < 240 and abs(side) < (down - 100) * 0.85
        ground = gradient([(0, (250, 230, 170)), (1, (96, 150, 200))], down / width)
        return (176, 44, 60) if shaft or head else ground

    return width, height, paint(width, height, pixel)


def with_orientation(jpeg, orientation):
    """The JPEG file with an Exif block that holds nothing but the orientation."""
    tiff = struct.pack("<2sHIHHHIHHI", b"II", 42, 8, 1, 0x0112, 3, 1, orientation, 0, 0)
    body = b"Exif\0\0" + tiff
    return jpeg[:2] + b"\xff\xe1" + struct.pack(">H", len(body) + 2) + body + jpeg[2:]


def blossom():
    width, height = 560, 420
    chance = random.Random(3)
    flowers = [(chance.randrange(width), chance.randrange(height), chance.uniform(18, 42),
        chance.uniform(0, 2)) for _ in range(34)]

    def pixel(x, y):
        color = gradient([(0, (176, 212, 236)), (1, (236, 240, 244))], y / height)
        for cx, cy, radius, turn in flowers:
            dx, dy = x - cx, y - cy
            distance = math.hypot(dx, dy) / radius
            if distance > 1:
                continue
            petal = abs(math.cos(2.5 * (math.atan2(dy, dx) + turn)))
            if distance < 0.16:
                color = (240, 196, 96)
            elif distance < 0.35 + 0.65 * petal ** 0.6:
                color = mix((236, 132, 160), (255, 232, 238), distance)
        return color

    return width, height, paint(width, height, pixel)


def stripes():
    width, height = 96, 64
    colors = [(228, 72, 60), (244, 196, 72), (72, 160, 120), (60, 100, 170)]
    return width, height, paint(width, height, lambda x, y: colors[(x + y) // 12 % 4])


def tiny():
    on, off = (250, 210, 70), (60, 60, 110)
    face = ["..####..", ".######.", "##.##.##", "##.##.##", "########", "##.##.##", ".##..##.",
        "..####.."]
    return 8, 8, paint(8, 8, lambda x, y: on if face[y][x] == "#" else off)


COMMENT_UTF8 = """Sunset over the bay.
The hills on the left are in shadow already; the water keeps the light a little longer.
"""

COMMENT_JAPANESE = """夜の塔。
窓の明かりは、まだ誰かが起きているしるし。
上から下まで、ゆっくりと眺めてください。
"""

NOT_A_PICTURE = """This file is named like a picture and holds text.
A viewer that looks at the content steps over it.
"""


def main():
    os.makedirs(os.path.join(SAMPLES, "more"), exist_ok=True)
    write_converted("01-sunset.jpg", *sunset(), "-quality", "85")
    write("01-sunset.txt", COMMENT_UTF8.encode("utf-8"))
    write_converted("02-rings.jpg", *rings(), "-quality", "80")
    write_converted("03-tower.jpg", *tower(), "-quality", "75")
    write("03-tower.txt", COMMENT_JAPANESE.encode("shift_jis"))
    write_converted("04-waves.jpg", *waves(), "-quality", "80")
    width, height, rows = leaf()
    write("05-leaf.png", png.encode(width, height, rows, alpha=True))
    write_converted("06-turned.jpg", *turned(), "-quality", "85")
    with open(os.path.join(SAMPLES, "06-turned.jpg"), "rb") as file:
        upright = file.read()
    write("06-turned.jpg", with_orientation(upright, 6))
    write_converted("07-numbers.gif", *numbers())
    width, height, rows = stripes()
    write("08-stripes.ppm", b"P6\n%d %d\n255\n" % (width, height) + b"".join(rows))
    width, height, rows = tiny()
    write("09-tiny.png", png.encode(width, height, rows))
    write("not-a-picture.jpg", NOT_A_PICTURE.encode("ascii"))
    width, height, rows = numbers()
    write("more/numbers.png", png.encode(width, height, rows))
    write_converted("桜.jpg", *blossom(), "-quality", "85")


if __name__ == "__main__":
    main()
