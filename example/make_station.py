#!/usr/bin/env python3
"""Writes an example station: a menu with pictures, part programs, and the settings to go with them.

    make_station.py FOLDER

    FOLDER/drives/c, d     the drives of the station
    FOLDER/registry.txt    its registry, below HKEY_LOCAL_MACHINE: key, tab, value name, tab, text, in UTF-8

Files that are there already are replaced. Two runs write the same bytes.
"""

import math
import os
import struct
import sys
import zlib
from collections.abc import Callable
from dataclasses import dataclass, field

CODE_PAGE = "cp1252"
MENU_ROOT = "C:\\Neskroot"
PICTURES = MENU_ROOT + "\\Pictures"
SLIDES = MENU_ROOT + "\\Slides"
HELP = MENU_ROOT + "\\Help"
PARTS = "D:\\Parts"
HISTORY = "D:\\History"


# --- drawing -----------------------------------------------------------------------------------------------------

# The size of the canvas on which every picture is drawn, independent of its size in the file.
WIDTH, HEIGHT = 160, 120

INK = (44, 62, 80)
LIGHT = (202, 213, 223)
METAL = (161, 177, 192)
MIDDLE = (126, 144, 161)
DARK = (88, 105, 122)
BRASS = (222, 180, 92)
BRASS_DARK = (176, 134, 52)
RUBY = (214, 58, 70)
RUBY_LIGHT = (240, 130, 134)


class Canvas:
    """A field of WIDTH x HEIGHT units, filled with flat shapes whose edges are smoothed."""

    SMOOTHING = 3

    def __init__(self, scale, background):
        self.width, self.height = WIDTH * scale, HEIGHT * scale
        self._factor = scale * self.SMOOTHING
        self._columns = WIDTH * self._factor
        self._rows = [bytearray(bytes(background) * self._columns) for _ in range(HEIGHT * self._factor)]

    def polygon(self, color, *outlines):
        """Fills what lies within an odd number of the outlines, so that an outline in another is a hole."""
        edges = []
        for outline in outlines:
            points = [(x * self._factor, y * self._factor) for x, y in outline]
            edges += zip(points, points[1:] + points[:1])
        lowest = min(min(a[1], b[1]) for a, b in edges)
        highest = max(max(a[1], b[1]) for a, b in edges)
        for row in range(max(0, int(lowest)), min(len(self._rows), int(highest) + 1)):
            y = row + 0.5
            crossings = sorted(a[0] + (y - a[1]) * (b[0] - a[0]) / (b[1] - a[1])
                               for a, b in edges if (a[1] <= y) != (b[1] <= y))
            for left, right in zip(crossings[::2], crossings[1::2]):
                first = min(max(0, math.ceil(left - 0.5)), self._columns)
                last = min(max(first, math.ceil(right - 0.5)), self._columns)
                self._rows[row][3 * first:3 * last] = bytes(color) * (last - first)

    def rectangle(self, color, left, top, right, bottom, radius=0):
        self.polygon(color, rounded(left, top, right, bottom, radius))

    def disc(self, color, x, y, radius, *hole_radii):
        self.polygon(color, circle(x, y, radius), *(circle(x, y, hole) for hole in hole_radii))

    def line(self, color, x1, y1, x2, y2, width):
        length = math.hypot(x2 - x1, y2 - y1)
        dx, dy = -(y2 - y1) / length * width / 2, (x2 - x1) / length * width / 2
        self.polygon(color, [(x1 + dx, y1 + dy), (x2 + dx, y2 + dy), (x2 - dx, y2 - dy), (x1 - dx, y1 - dy)])

    def pixels(self):
        """Rows from the top, three bytes a pixel: red, green, blue."""
        step = self.SMOOTHING
        samples = step * step
        average = bytes((total + samples // 2) // samples for total in range(255 * samples + 1))
        result = []
        for top in range(0, len(self._rows), step):
            columns = [sum(values) for values in zip(*self._rows[top:top + step])]
            pixels = bytearray(3 * self.width)
            for channel in range(3):
                neighbours = (columns[channel + 3 * offset::3 * step] for offset in range(step))
                pixels[channel::3] = bytes(average[sum(values)] for values in zip(*neighbours))
            result.append(bytes(pixels))
        return result


def circle(x, y, radius, corners=72):
    return ellipse(x, y, radius, radius, corners)


def ellipse(x, y, radius_x, radius_y, corners=72):
    angles = (2 * math.pi * corner / corners for corner in range(corners))
    return [(x + radius_x * math.cos(angle), y + radius_y * math.sin(angle)) for angle in angles]


def arc(x, y, radius, begin, end, corners=36):
    """Points of a circle between two angles in degrees, clockwise from the right."""
    angles = (math.radians(begin + (end - begin) * corner / corners) for corner in range(corners + 1))
    return [(x + radius * math.cos(angle), y + radius * math.sin(angle)) for angle in angles]


def rounded(left, top, right, bottom, radius):
    if radius == 0:
        return [(left, top), (right, top), (right, bottom), (left, bottom)]
    return (arc(right - radius, top + radius, radius, -90, 0, 9)
            + arc(right - radius, bottom - radius, radius, 0, 90, 9)
            + arc(left + radius, bottom - radius, radius, 90, 180, 9)
            + arc(left + radius, top + radius, radius, 180, 270, 9))


def curve(*points, steps=24):
    """Points of the Bezier curve of the given control points."""
    result = []
    for step in range(steps + 1):
        t = step / steps
        level = list(points)
        while len(level) > 1:
            level = [(a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t) for a, b in zip(level, level[1:])]
        result.append(level[0])
    return result


def mirrored(outline):
    return [(x, HEIGHT - y) for x, y in outline]


# --- parts -------------------------------------------------------------------------------------------------------


def bolt(canvas, x, y, radius=4):
    canvas.disc(DARK, x, y, radius)
    canvas.disc(INK, x, y, radius * 0.55)


def draw_housing(canvas, turn=lambda outline: outline):
    shoulder = curve((34, 50), (34, 34), (48, 30))
    canvas.polygon(METAL, turn([(34, 92)] + shoulder + curve((104, 30), (122, 36), (126, 56)) + [(126, 92)]))
    canvas.polygon(LIGHT, turn([(34, 88)] + shoulder + [(104, 30), (104, 36), (50, 36), (40, 52), (40, 88)]))
    canvas.polygon(MIDDLE, turn(rounded(20, 88, 140, 102, 3)))
    canvas.polygon(DARK, turn(rounded(20, 97, 140, 102, 2)))
    for x, y, radius in ((64, 64, 22), (106, 70, 15)):
        canvas.polygon(DARK, turn(circle(x, y, radius)))
        canvas.polygon(LIGHT, turn(circle(x, y, radius - 3)), turn(circle(x, y, radius - 8)))
        canvas.polygon(INK, turn(circle(x, y, radius - 8)))
    for x in (27, 44, 80, 116, 133):
        canvas.polygon(INK, turn(rounded(x - 2.5, 84, x + 2.5, 89, 1)))


def draw_housing_lower(canvas):
    draw_housing(canvas, mirrored)


def draw_bearing_cap(canvas):
    left, right = [(22, 92), (22, 72), (40, 72)], [(120, 72), (138, 72), (138, 92)]
    canvas.polygon(METAL, left + arc(80, 80, 46, 190, 350) + right + arc(80, 92, 27, 0, -180))
    canvas.polygon(LIGHT, arc(80, 80, 46, 190, 350) + arc(80, 80, 40, 350, 190))
    canvas.polygon(BRASS, arc(80, 92, 27, 180, 360) + arc(80, 92, 22, 360, 180))
    canvas.rectangle(DARK, 22, 88, 53, 92)
    canvas.rectangle(DARK, 107, 88, 138, 92)
    for x in (31, 129):
        canvas.rectangle(INK, x - 5, 64, x + 5, 72, 1)
        canvas.rectangle(MIDDLE, x - 2, 58, x + 2, 64)
    bolt(canvas, 80, 46, 5)


def toothed(x, y, teeth, tip, root):
    """Outline of a gear wheel."""
    outline = []
    for tooth in range(teeth):
        middle = 2 * math.pi * tooth / teeth - math.pi / 2
        pitch = 2 * math.pi / teeth
        for offset, radius in ((-0.30, root), (-0.16, tip), (0.16, tip), (0.30, root)):
            angle = middle + offset * pitch
            outline.append((x + radius * math.cos(angle), y + radius * math.sin(angle)))
    return outline


def draw_gear(canvas, teeth=16, holes=6):
    x, y = 80, 60
    angles = [2 * math.pi * hole / holes for hole in range(holes)]
    spaces = [circle(x + 26 * math.cos(angle), y + 26 * math.sin(angle), 6.5) for angle in angles]
    keyway = [(77, 42), (83, 42), (83, 52), (77, 52)]
    canvas.polygon(DARK, [(a, b + 2) for a, b in toothed(x, y, teeth, 52, 44)], *spaces, circle(x, y, 11))
    canvas.polygon(METAL, toothed(x, y, teeth, 52, 44), *spaces, circle(x, y, 11))
    canvas.disc(LIGHT, x, y, 40, 36)
    canvas.disc(MIDDLE, x, y, 17, 11)
    canvas.polygon(DARK, keyway)


def draw_fine_gear(canvas):
    draw_gear(canvas, 28, 5)


def draw_bevel_gear(canvas):
    canvas.rectangle(MIDDLE, 66, 18, 94, 44, 2)
    canvas.rectangle(LIGHT, 70, 18, 77, 44)
    canvas.polygon(METAL, [(54, 42), (106, 42), (136, 86), (24, 86)])
    count = 11
    for tooth in range(count):
        a, b = tooth / count, (tooth + 0.5) / count
        canvas.polygon(LIGHT if tooth < 4 else MIDDLE,
                       [(54 + 52 * a, 42), (54 + 52 * b, 42), (24 + 112 * b, 86), (24 + 112 * a, 86)])
    canvas.polygon(DARK, [(24, 86), (136, 86), (122, 100), (38, 100)])
    canvas.polygon(INK, [(64, 100), (96, 100), (94, 104), (66, 104)])


def draw_shaft(canvas, pinion=False):
    for left, right, half in ((14, 36, 10), (36, 60, 16), (60, 104, 22), (104, 128, 16), (128, 147, 9)):
        canvas.rectangle(METAL, left, 60 - half, right, 60 + half, 1)
        canvas.rectangle(LIGHT, left, 60 - half * 0.72, right, 60 - half * 0.28)
        canvas.rectangle(MIDDLE, left, 60 + half * 0.35, right, 60 + half)
        canvas.rectangle(DARK, left, 60 + half * 0.8, right, 60 + half)
    if pinion:
        for tooth in range(9):
            y = 60 - 24 + tooth * 48 / 9
            canvas.rectangle(INK if tooth > 5 else DARK, 60, y, 104, y + 2.2)
    else:
        canvas.rectangle(INK, 70, 55, 94, 62, 3.5)
    canvas.rectangle(INK, 16, 58, 30, 62, 2)


def draw_pinion_shaft(canvas):
    draw_shaft(canvas, True)


def draw_bracket(canvas):
    canvas.polygon(METAL, [(36, 18), (58, 18), (58, 78), (130, 78), (130, 100), (36, 100)])
    canvas.polygon(LIGHT, [(36, 18), (58, 18), (58, 22), (41, 22), (41, 100), (36, 100)])
    canvas.polygon(MIDDLE, [(58, 40), (98, 78), (58, 78)], circle(70, 66, 6))
    canvas.rectangle(DARK, 36, 95, 130, 100)
    for x, y in ((48, 34), (48, 60)):
        canvas.disc(INK, x, y, 4.5)
    for x in (92, 116):
        canvas.rectangle(INK, x - 5, 84, x + 5, 91, 3.5)


def draw_sensor_bracket(canvas):
    canvas.polygon(METAL, [(30, 86), (30, 34), (42, 34), (42, 74)] + curve((42, 74), (78, 74), (92, 56))
                   + arc(108, 44, 22, 145, 395) + curve((124, 62), (104, 86), (70, 86)), circle(108, 44, 12))
    canvas.disc(LIGHT, 108, 44, 17, 12)
    canvas.rectangle(MIDDLE, 24, 86, 112, 98, 3)
    canvas.rectangle(DARK, 24, 94, 112, 98, 2)
    bolt(canvas, 36, 46)
    bolt(canvas, 36, 66)
    canvas.rectangle(INK, 56, 82, 62, 87, 1)
    canvas.rectangle(INK, 92, 82, 98, 87, 1)


def draw_plate(canvas):
    holes = [circle(x, y, 6) for x in (38, 122) for y in (38, 82)]
    slot = rounded(62, 52, 98, 68, 8)
    canvas.polygon(DARK, [(x, y + 3) for x, y in rounded(22, 22, 138, 98, 10)], *holes, slot)
    canvas.polygon(METAL, rounded(22, 22, 138, 98, 10), *holes, slot)
    canvas.polygon(LIGHT, rounded(22, 22, 138, 98, 10), rounded(26, 26, 134, 94, 7))
    for x in (38, 122):
        for y in (38, 82):
            canvas.disc(DARK, x, y, 8.5, 6)
    canvas.polygon(DARK, rounded(58, 48, 102, 72, 12), slot)


def draw_blade(canvas, lean=0):
    front = curve((58, 82), (50 - lean, 52), (66 + lean, 34), (62 + lean, 14))
    back = curve((84 + lean, 14), (112 + lean, 40), (100, 58), (98, 82))
    ridge = curve((80, 82), (84, 56), (88 + lean, 38), (74 + lean, 14))
    canvas.polygon(METAL, front + back)
    canvas.polygon(MIDDLE, ridge + back)
    canvas.polygon(LIGHT, front + curve((68 + lean, 14), (74 + lean, 34), (60 - lean, 52), (66, 82)))
    canvas.rectangle(DARK, 46, 80, 112, 87, 2)
    for step, half in ((0, 22), (1, 18), (2, 13)):
        top = 87 + 7 * step
        canvas.polygon(MIDDLE, [(79 - half, top), (79 + half, top), (73 + half, top + 7), (85 - half, top + 7)])


def draw_blade_leaning(canvas):
    draw_blade(canvas, 10)


def draw_guide_vane(canvas):
    canvas.rectangle(DARK, 34, 16, 126, 26, 2)
    canvas.rectangle(DARK, 34, 94, 126, 104, 2)
    for left in (44, 72, 100):
        outer = curve((left, 26), (left - 8, 56), (left + 2, 76), (left + 8, 94))
        inner = curve((left + 12, 94), (left + 16, 70), (left + 10, 46), (left + 14, 26))
        canvas.polygon(METAL, outer + inner)
        canvas.polygon(LIGHT, outer + curve((left + 9, 94), (left + 4, 76), (left - 4, 56), (left + 4, 26)))


def draw_turbine_disc(canvas):
    x, y, blades = 80, 60, 26
    for blade in range(blades):
        angle = 2 * math.pi * blade / blades
        points = ((34, angle - 0.07), (52, angle + 0.02), (52, angle + 0.12), (34, angle + 0.07))
        canvas.polygon(METAL if blade % 2 else MIDDLE,
                       [(x + radius * math.cos(turn), y + radius * math.sin(turn)) for radius, turn in points])
    canvas.disc(DARK, x, y, 37)
    canvas.disc(METAL, x, y, 34)
    canvas.disc(LIGHT, x, y, 30, 27)
    canvas.disc(DARK, x, y, 13)
    canvas.disc(INK, x, y, 9)
    for hole in range(8):
        angle = math.pi * hole / 4
        canvas.disc(INK, x + 20.5 * math.cos(angle), y + 20.5 * math.sin(angle), 2.8)


def draw_valve_body(canvas):
    canvas.rectangle(METAL, 28, 50, 132, 84, 2)
    canvas.rectangle(LIGHT, 28, 53, 132, 59)
    canvas.rectangle(MIDDLE, 28, 76, 132, 84)
    canvas.rectangle(METAL, 62, 26, 98, 60, 2)
    canvas.rectangle(LIGHT, 66, 26, 74, 50)
    canvas.rectangle(DARK, 16, 42, 30, 92, 2)
    canvas.rectangle(DARK, 130, 42, 144, 92, 2)
    canvas.rectangle(DARK, 54, 16, 106, 28, 2)
    canvas.disc(MIDDLE, 80, 68, 25)
    canvas.disc(METAL, 80, 66, 22)
    canvas.disc(INK, 80, 67, 12)
    canvas.disc(BRASS, 80, 67, 15, 12)


def draw_manifold(canvas):
    canvas.polygon(DARK, [(136, 40), (146, 32), (146, 82), (136, 92)])
    canvas.polygon(LIGHT, [(18, 40), (28, 32), (146, 32), (136, 40)])
    canvas.rectangle(METAL, 18, 40, 136, 92)
    for x in (38, 64, 90, 116):
        canvas.disc(DARK, x, 58, 11)
        canvas.disc(BRASS, x, 58, 9)
        canvas.disc(INK, x, 58, 6)
    for x in (30, 51, 77, 103, 124):
        canvas.disc(INK, x, 80, 3.2)


def draw_pump_cover(canvas):
    outline = arc(56, 60, 38, 90, 270) + arc(104, 60, 38, -90, 90)
    canvas.polygon(DARK, [(x, y + 3) for x, y in outline])
    canvas.polygon(METAL, outline)
    canvas.polygon(LIGHT, outline, arc(56, 60, 35, 90, 270) + arc(104, 60, 35, -90, 90))
    canvas.polygon(MIDDLE, arc(60, 60, 24, 90, 270) + arc(100, 60, 24, -90, 90))
    for x in (62, 98):
        canvas.disc(LIGHT, x, 60, 14)
        canvas.disc(INK, x, 60, 9)
    for x, y in ((56, 29), (104, 29), (56, 91), (104, 91), (26, 60), (134, 60)):
        bolt(canvas, x, y, 4.2)


def ball(canvas, x, y, radius):
    canvas.disc(RUBY, x, y, radius)
    canvas.disc(RUBY_LIGHT, x - radius * 0.32, y - radius * 0.32, radius * 0.32)


def draw_ball_bar(canvas):
    canvas.line(DARK, 34, 82, 126, 38, 9)
    canvas.line(LIGHT, 34, 80, 126, 36, 3)
    ball(canvas, 32, 83, 17)
    ball(canvas, 128, 37, 17)


def draw_ball_plate(canvas):
    canvas.rectangle(DARK, 28, 15, 132, 109, 6)
    canvas.rectangle(METAL, 28, 12, 132, 106, 6)
    for x in (50, 80, 110):
        for y in (34, 59, 84):
            canvas.disc(DARK, x, y, 11)
            ball(canvas, x, y, 8.5)


def draw_step_gauge(canvas):
    canvas.rectangle(METAL, 14, 66, 146, 90, 2)
    canvas.rectangle(MIDDLE, 14, 80, 146, 90, 2)
    for x in range(20, 140, 20):
        canvas.rectangle(BRASS, x, 38, x + 11, 66)
        canvas.rectangle(BRASS_DARK, x + 8, 38, x + 11, 66)
    for x in (30, 130):
        canvas.rectangle(INK, x - 9, 90, x + 9, 97, 1)


def draw_ring_gauge(canvas):
    canvas.polygon(DARK, toothed(80, 60, 48, 50, 47.5), circle(80, 60, 28))
    canvas.disc(METAL, 80, 60, 45, 28)
    canvas.disc(LIGHT, 80, 60, 41, 38)
    canvas.disc(BRASS, 80, 60, 31, 28)


# --- picture files -----------------------------------------------------------------------------------------------


def png_bytes(canvas):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", canvas.width, canvas.height, 8, 2, 0, 0, 0)
    image = b"".join(b"\0" + row for row in canvas.pixels())
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(image, 9))
            + chunk(b"IEND", b""))


def bmp_bytes(canvas):
    rows = []
    for row in reversed(canvas.pixels()):
        swapped = bytearray(row)
        swapped[0::3], swapped[2::3] = row[2::3], row[0::3]
        rows.append(bytes(swapped) + b"\0" * (-len(swapped) % 4))
    image = b"".join(rows)
    info = struct.pack("<IiiHHIIiiII", 40, canvas.width, canvas.height, 1, 24, 0, len(image), 3780, 3780, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(image), 0, 0, 14 + len(info)) + info + image


def button_picture(draw, background):
    """A picture for a menu button."""
    canvas = Canvas(1, background)
    draw(canvas)
    return canvas


def slide_picture(draw):
    """A preview picture: the part on drawing paper."""
    paper, grid, heavy = (29, 62, 96), (44, 82, 121), (70, 110, 150)
    canvas = Canvas(2, paper)
    for x in range(10, WIDTH, 10):
        canvas.line(heavy if x % 50 == 0 else grid, x, 0, x, HEIGHT, 0.5)
    for y in range(10, HEIGHT, 10):
        canvas.line(heavy if y % 50 == 0 else grid, 0, y, WIDTH, y, 0.5)
    draw(canvas)
    return canvas


# --- menu --------------------------------------------------------------------------------------------------------


@dataclass
class Submenu:
    """A submenu; `picture` is what it shows, on a ground of `color`."""

    caption: str
    draw: Callable
    color: tuple
    entries: list


@dataclass
class Part:
    """A part program. `folder` below the part programs makes it a reference, `program` a plain identifier."""

    caption: str
    draw: Callable
    folder: str = ""
    name: str = ""
    program: str = ""
    history: str = ""
    help_topic: int = 0
    slide: bool = False


BLUE, GREEN, ORANGE = (58, 110, 165), (74, 140, 104), (201, 122, 58)
VIOLET, TEAL, RED = (112, 92, 158), (58, 138, 148), (164, 74, 84)
PALE = (250, 251, 252)

MENU = [
    Submenu("Gear Unit GU 40", draw_housing, BLUE, [
        Submenu("Gehäuse", draw_housing, BLUE, [
            Part("Housing, upper half", draw_housing, "Housings\\UpperHalf", "Housing GU 40, upper half",
                 history="UpperHalf", help_topic=110, slide=True),
            Part("Housing, lower half", draw_housing_lower, "Housings\\LowerHalf", "Housing GU 40, lower half",
                 history="LowerHalf", help_topic=111, slide=True),
            Part("Bearing cap, drive side", draw_bearing_cap, "Housings\\BearingCapA", "Bearing cap A 72 H7",
                 help_topic=112, slide=True),
            Part("Bearing cap, free side", draw_bearing_cap, "Housings\\BearingCapB", "Bearing cap B 52 H7",
                 help_topic=112),
        ]),
        Submenu("Gear Wheels", draw_gear, BLUE, [
            Submenu("Spur Gears", draw_gear, BLUE, [
                Part("Spur gear m4 z16", draw_gear, "Gears\\Spur_m4_z16", "Spur gear m4 z16", history="Spur_m4_z16",
                     help_topic=120, slide=True),
                Part("Spur gear m2 z28", draw_fine_gear, "Gears\\Spur_m2_z28", "Spur gear m2 z28",
                     history="Spur_m2_z28", help_topic=120, slide=True),
                Part("Planet gear m2.5 z21", draw_fine_gear, "Gears\\Planet_m25_z21", "Planet gear m2.5 z21",
                     help_topic=120),
            ]),
            Submenu("Bevel Gears", draw_bevel_gear, BLUE, [
                Part("Bevel gear 1:2", draw_bevel_gear, "Gears\\Bevel_1_2", "Bevel gear 1:2", help_topic=121,
                     slide=True),
                Part("Bevel gear 1:3", draw_bevel_gear, program="BEVEL-13-REV-C"),
            ]),
        ]),
        Submenu("Shafts", draw_shaft, BLUE, [
            Part("Input shaft", draw_pinion_shaft, "Shafts\\Input", "Input shaft with pinion", history="InputShaft",
                 help_topic=130, slide=True),
            Part("Output shaft", draw_shaft, "Shafts\\Output", "Output shaft", history="OutputShaft",
                 help_topic=130, slide=True),
            Part("Intermediate shaft", draw_shaft, program="SHAFT-I-40"),
        ]),
    ]),
    Submenu("Brackets and Plates", draw_bracket, GREEN, [
        Part("Motor bracket", draw_bracket, "Brackets\\Motor", "Motor bracket 1042", history="MotorBracket",
             help_topic=210, slide=True),
        Part("Angle bracket 90°", draw_bracket, program="BRK-1077"),
        Part("Sensor bracket", draw_sensor_bracket, "Brackets\\Sensor", "Sensor bracket 1090", help_topic=211,
             slide=True),
        Part("Mounting plate", draw_plate, "Brackets\\MountingPlate", "Mounting plate 240 x 160", slide=True),
    ]),
    Submenu("Turbine", draw_turbine_disc, ORANGE, [
        Submenu("Blades", draw_blade, ORANGE, [
            Part("Turbine blade, stage 1", draw_blade, "Turbine\\BladeStage1", "Turbine blade, stage 1",
                 history="BladeStage1", help_topic=310, slide=True),
            Part("Turbine blade, stage 2", draw_blade_leaning, "Turbine\\BladeStage2", "Turbine blade, stage 2",
                 history="BladeStage2", help_topic=310, slide=True),
            Part("Guide vane segment", draw_guide_vane, "Turbine\\GuideVane", "Guide vane segment, 3 vanes",
                 help_topic=311, slide=True),
        ]),
        Part("Turbine disc", draw_turbine_disc, "Turbine\\Disc", "Turbine disc, 26 slots", history="TurbineDisc",
             help_topic=312, slide=True),
    ]),
    Submenu("Hydraulics", draw_valve_body, VIOLET, [
        Part("Valve body DN 25", draw_valve_body, "Hydraulics\\ValveBody25", "Valve body DN 25",
             history="ValveBody25", help_topic=410, slide=True),
        Part("Manifold block, 4 ports", draw_manifold, "Hydraulics\\Manifold4", "Manifold block, 4 ports",
             help_topic=411, slide=True),
        Part("Pump cover", draw_pump_cover, program="PUMP-COVER-2"),
    ]),
    Submenu("Prüfkörper", draw_step_gauge, TEAL, [
        Part("Ball bar 300 mm", draw_ball_bar, "Gauges\\BallBar300", "Ball bar 300 mm", history="BallBar300",
             help_topic=510),
        Part("Kugelplatte für Abnahme", draw_ball_plate, "Gauges\\BallPlate", "Kugelplatte für Abnahme",
             help_topic=511),
        Part("Step gauge 610 mm", draw_step_gauge, "Gauges\\StepGauge610", "Step gauge 610 mm", help_topic=512),
        Part("Ring gauge Ø 50", draw_ring_gauge, program="RING-50"),
    ]),
    Part("Daily check of the machine", draw_ball_bar, "Gauges\\DailyCheck", "Daily check", history="DailyCheck",
         help_topic=500),
]

# Programs in the repository that no button starts yet.
SPARE_PROGRAMS = [
    ("Turbine\\BladeStage3", "Turbine blade, stage 3"),
    ("Trials\\Prototype7", "Gehäuse, Prototyp 7"),
]

HELP_FILE = HELP + "\\Fixtures.txt"
HELP_TEXT = """Fixtures

110, 111  Clamp the housing on the three machined feet. Clean the joint face first.
112       Bearing caps stand on the joint face, bore to the front.
120, 121  Gear wheels go on the expanding mandrel. Tighten by hand only.
130       Shafts lie in the two prisms, shoulder against the stop.
210, 211  Brackets: magnet plate, long side along X.
310 - 312 Blades: root adapter of the stage; discs: rotary table.
410, 411  Hydraulic parts: blow out the bores before measuring.
500 - 512 Gauges: let them take the temperature of the room for four hours.
"""


def picture_name(draw):
    return draw.__name__.removeprefix("draw_")


def mixed(color, other, share):
    return tuple(round(a + (b - a) * share) for a, b in zip(color, other))


@dataclass
class Station:
    """What is written: Windows paths of files with their bytes, and folders that may stay empty."""

    files: dict = field(default_factory=dict)
    folders: set = field(default_factory=set)

    def add_picture(self, name, make):
        """Adds a button picture unless it is there; every other one is a PNG. Returns its path."""
        for path in (f"{PICTURES}\\{name}.bmp", f"{PICTURES}\\{name}.png"):
            if path in self.files:
                return path
        count = sum(path.startswith(PICTURES) for path in self.files)
        kind, encode = (("bmp", bmp_bytes), ("png", png_bytes))[count % 2]
        path = f"{PICTURES}\\{name}.{kind}"
        self.files[path] = encode(make())
        return path

    def add_slide(self, draw):
        path = f"{SLIDES}\\{picture_name(draw)}.png"
        if path not in self.files:
            self.files[path] = png_bytes(slide_picture(draw))
        return path

    def add_program(self, folder, name):
        path = f"{PARTS}\\{folder}\\partinfo.ini"
        self.files[path] = f"[Part]\r\nName={name}\r\n".encode(CODE_PAGE)
        return path


def entry_lines(station, entry, color, level):
    """Lines of a submenu or part and of all below it."""
    values = dict.fromkeys(("CAPTION", "GRAPHIC", "PREVIEW", "HELPFILE", "HELPTOPIC", "MENUTYPE", "PROGRAMID",
                            "HISTORY_DIR", "HISTORY_TITLE"), "")
    values["CAPTION"] = entry.caption
    values["HELPTOPIC"] = "0"
    name = picture_name(entry.draw)
    below = []
    if isinstance(entry, Submenu):
        color = entry.color
        values["MENUTYPE"] = "Menu"
        values["GRAPHIC"] = station.add_picture("menu_" + name, lambda: button_picture(entry.draw, color))
        below = entry.entries
    else:
        values["MENUTYPE"] = "Part Program"
        values["GRAPHIC"] = station.add_picture(name, lambda: button_picture(entry.draw, mixed(color, PALE, 0.9)))
        if entry.slide:
            values["PREVIEW"] = station.add_slide(entry.draw)
        if entry.help_topic:
            values["HELPFILE"] = HELP_FILE
            values["HELPTOPIC"] = str(entry.help_topic)
        values["PROGRAMID"] = entry.program or f"@{station.add_program(entry.folder, entry.name)}@"
        if entry.history:
            values["HISTORY_DIR"] = f"{HISTORY}\\{entry.history}"
            values["HISTORY_TITLE"] = entry.caption
            station.folders.add(values["HISTORY_DIR"])

    indent = "\t" * level
    lines = [indent + "BLOCK SUBMENU"]
    lines += [f"{indent}\t{key}={value}" for key, value in values.items()]
    for child in below:
        lines += entry_lines(station, child, color, level + 1)
    lines.append(indent + "END")
    return lines


def add_menu(station):
    lines = ["BLOCK MENU", "\tCAPTION=Main Menu", "\tGRAPHIC="]
    for entry in MENU:
        lines += entry_lines(station, entry, TEAL, 1)
    lines.append("END")
    station.files[MENU_ROOT + "\\menu.cfg"] = "".join(line + "\r\n" for line in lines).encode(CODE_PAGE)


SETTINGS = {
    "Neskworks": {
        "NeskMachine": "Machines\\M1",
        "NeskUser": "Users\\U1",
        "HistoryDirectory": HISTORY,
        "HistoryTitle": "Measurement history",
        "DefaultSlideDirectory": SLIDES,
        "ExitKey": "2580",
        "NeskRoot": MENU_ROOT,
        "DefaultBitmapDirectory": PICTURES,
        "SampleSize": "5",
        "HistoryMaxParts": "20",
        "PrinterDevice": "Measuring Room",
        "PrinterDriver": "winspool",
        "PrinterOrientation": "1",
        "PrinterPaperSize": "9",
        "PrinterPaperBin": "7",
        "PrinterQuality": "600",
        "PrinterZoom": "100",
    },
    "Neskworks\\Historys": {"NumberOfHistorys": "0"},
    "Orvane\\Settings": {"DefaultLanguage": "1033", "InstallDirectory": "C:\\Orvane"},
    "Machines\\M1": {"Name": "Bridge machine, hall 2"},
    "Machines\\M2": {"Name": "Horizontal arm machine, hall 4"},
    "Machines\\M3": {"Name": "Portalmessgerät Süd"},
    "Users\\U1": {"Name": "Gear shop", "RepositoryRoot": PARTS},
    "Users\\U2": {"Name": "Turbine shop", "RepositoryRoot": PARTS + "\\Turbine"},
    "Users\\U3": {"Name": "Prüfraum", "RepositoryRoot": PARTS + "\\Gauges"},
    "Common": {"RepositoryRoot": PARTS},
}


def registry_text():
    return "".join(f"SOFTWARE\\Quarndale\\{key}\t{name}\t{text}\n"
                   for key, values in SETTINGS.items() for name, text in values.items())


def host_path(folder, path):
    """Place in the station's folder of a Windows path."""
    drive, *names = path.split("\\")
    return os.path.join(folder, "drives", drive[0].lower(), *names)


def make_station():
    station = Station()
    add_menu(station)
    for folder, name in SPARE_PROGRAMS:
        station.add_program(folder, name)
    station.files[HELP_FILE] = HELP_TEXT.replace("\n", "\r\n").encode(CODE_PAGE)
    station.folders.add("C:\\Orvane\\Bin")
    return station


def main(arguments):
    if len(arguments) != 1:
        print("usage: make_station.py FOLDER", file=sys.stderr)
        return 2
    folder = arguments[0]
    station = make_station()
    try:
        for path in sorted(station.folders):
            os.makedirs(host_path(folder, path), exist_ok=True)
        for path, content in sorted(station.files.items()):
            host = host_path(folder, path)
            os.makedirs(os.path.dirname(host), exist_ok=True)
            with open(host, "wb") as file:
                file.write(content)
        with open(os.path.join(folder, "registry.txt"), "w", encoding="utf-8", newline="\n") as file:
            file.write(registry_text())
    except OSError as error:
        print(f"{error.filename}: {error.strerror}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
