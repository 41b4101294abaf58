#!/usr/bin/env python3
"""Works out the operations of devices, fittings, flags and flow arrows from their tables, independent of the library.

Writes tests/golden/draw/{devices,fittings,flags,arrows}.ops. An argument is the folder to write to instead; the test
Goldens compares that with the committed files.

The view: world 0 to 100 on 1000 dots, y upwards, so a world point (x, y) is the dot (trunc(10 x), trunc(1000 - 10 y));
a display unit is two world units; the view height is 100. Points of a shape are (along the pipe, to its left) in units
of the span.
"""
import math, os, sys

OUT = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "golden", "draw")
VIEW, DISPLAY_UNIT = 100.0, 2.0
START = (40.0319, 50.0437)
LENGTH = 25.0
BEARINGS = (0, 30, 120, 200, 300)


def dot(p):
    return math.trunc(p[0] * 10), math.trunc((p[1] - 100) * -10)


def move(p, bearing, distance):
    return p[0] + math.cos(bearing) * distance, p[1] + math.sin(bearing) * distance


class Ops(list):
    def line(self, points):
        self.append("MoveToEx %d %d" % dot(points[0]))
        self.extend("LineTo %d %d" % dot(p) for p in points[1:])

    def polygon(self, points):
        self.append("Polygon %d " % len(points) + " ".join("%d %d" % dot(p) for p in points))

    def write(self, name, comment):
        with open(os.path.join(OUT, name), "w") as f:
            f.write("# %s\n# Worked out by tests/draw/worked_shapes.py.\n" % comment)
            f.write("".join(line + "\n" for line in self))


def shape(origin, bearing, size, points):
    """Each point: along the bearing first, then 90 degrees to its left."""
    return [move(move(origin, bearing, x * size), bearing + math.pi / 2, y * size) for x, y in points]


def span(a, b, size):
    """Origin, bearing and length of a device: end to end with size 0, else centred."""
    bearing = math.atan2(b[1] - a[1], b[0] - a[0])
    if size == 0:
        return a, bearing, math.dist(a, b)
    middle = (a[0] + b[0]) / 2, (a[1] + b[1]) / 2
    return move(middle, bearing, -size / 2), bearing, size


def world_size(option, unit):
    return -option * 0.001 * VIEW if option < 0 else option * 0.1 * unit


BOW_TIE = [(0, .33), (1, -.33), (1, .33), (0, -.33)]
WIRED = [(0, -.33), (0, .33), (1, -.33), (1, .33)]


def pie(ops, origin, bearing, size):
    centre, first, second = shape(origin, bearing, size, [(.5, .495), (.829, .495), (.169, .495)])
    r = .467 * size
    left, top = dot((centre[0] - r, centre[1] + r))
    right, bottom = dot((centre[0] + r, centre[1] - r))
    if right - left > 4 and bottom - top > 4:
        ops.append("Pie %d %d %d %d %d %d %d %d" % ((left, top, right, bottom) + dot(first) + dot(second)))


def device(ops, kind, wired, a, b, option):
    own = span(a, b, world_size(option, 1))
    tie = span(a, b, world_size(option, DISPLAY_UNIT))
    if kind == 1:
        ops.polygon(shape(*tie, BOW_TIE))
        ops.line(shape(*own, [(.5, 0), (.5, .495)]))
        pie(ops, *own)
        ops.line(shape(*own, [(0, -.5), (1, -.5), (.619, -.376)]))
    elif kind == 2:
        ops.polygon(shape(*own, [(0, .5), (1, .25), (1, -.25), (0, -.5)]))
    elif kind == 3:
        ops.line(shape(*own, WIRED)) if wired else ops.polygon(shape(*tie, BOW_TIE))
    elif kind == 4:
        if 90 < math.degrees(own[1]) % 360 <= 180:
            own = span(b, a, world_size(option, 1))
        ops.line(shape(*own, [(0, 0), (.333, 1.5), (.667, 1.5), (1, 0), (.167, .75), (.722, 1.25), (.333, 1.5)]))
        ops.line(shape(*own, [(0, 0), (.833, .75), (.278, 1.25), (.667, 1.5)]))


FITTINGS = {
    1000: [(0, -.1), (1, -.766), (1, -.1), (0, -.766)],
    1001: [(0, -.1), (1, -.1), (1, -.433), (.667, -.433), (.667, -.766), (.333, -.766), (.333, -.433), (0, -.433)],
    1002: [(.5, -.1), (.833, -.1), (.833, -1.1), (.5, -1.1), (.5, -.766), (.167, -.766), (.167, -.433), (.5, -.433)],
    1004: [(0, -.1), (.333, -.1), (.667, -.266), (1, -.266), (1, -.6), (.667, -.6), (.333, -.766), (0, -.766)],
}


def fitting(ops, code, a, b, option):
    own = span(a, b, world_size(option, 1))
    if code in FITTINGS:
        ops.polygon(shape(*own, FITTINGS[code]))
    elif code == 1005:
        ops.line(shape(*span(a, b, 0), WIRED))
    elif code == 1003:
        centre, top, right, inner, inner_top = shape(*own, [(0, -1.1), (0, -.1), (1, -1.1), (.5, -1.1), (0, -.6)])

        def arc(r, p, q):
            box = dot((centre[0] - r, centre[1] + r)) + dot((centre[0] + r, centre[1] - r))
            ops.append("ArcTo %d %d %d %d %d %d %d %d" % (box + dot(p) + dot(q)))

        ops += ["BeginPath", "SetArcDirection 2", "MoveToEx %d %d" % dot(top)]
        arc(own[2], top, right)
        ops += ["LineTo %d %d" % dot(inner), "SetArcDirection 1"]
        arc(own[2] / 2, inner, inner_top)
        ops += ["LineTo %d %d" % dot(top), "EndPath", "StrokeAndFillPath", "SetArcDirection 1"]


def flags():
    """At (30.03, 20.04) with the size 0: a tenth of the view, 10."""
    ops, at, s = Ops(), (30.03, 20.04), 10.0
    hoist, top, fly, tail = [(at[0] + x * s, at[1] + y * s)
                             for x, y in ((.104, .662), (.156, .988), (.656, .988), (.604, .662))]
    ops.append("# flag")
    ops.line([at, hoist])
    ops.polygon([hoist, top, fly, tail])
    ops.append("# post")
    ops.line([at, hoist, top, fly, tail, hoist, fly])
    ops.line([top, tail])
    ops.append("# load flag: a square (symbol 3) of 1.65")
    size = .33 * s * .5
    mast = move(at, math.radians(81), s - size)
    centre = mast[0] + .25 * s, mast[1]
    ops.polygon([move(centre, math.radians(d), .707 * size) for d in (225, 135, 45, 315)])
    ops.write("flags.ops", "Flags of size 0 at (30.03, 20.04).")


def arrows():
    ops, a = Ops(), START
    for degrees in BEARINGS:
        b = move(a, math.radians(degrees), LENGTH)
        for flow in (5, -5):
            back = math.radians(degrees) + (math.pi if flow > 0 else 0)
            middle = (a[0] + b[0]) / 2, (a[1] + b[1]) / 2
            ops.append("# bearing %d, flow %d: open, then feathered; arrow size 3" % (degrees, flow))
            for turn in (.5237035, -.5237035):
                ops.line([middle, move(middle, back + turn, 3.0)])
            tip = b if flow > 0 else a
            barb1, barb2 = (move(tip, back + t, 3.0) for t in (.15707964, -.15707964))
            ops.line([tip, barb1])
            ops.line([tip, barb2])
            ops.line([barb1, move(tip, back, 2.7), barb2])
    ops.write("arrows.ops", "Flow arrows on a segment of 25 from (40.0319, 50.0437).")


def main():
    devices, fittings = Ops(), Ops()
    for option in (0, 80, -200):
        for degrees in BEARINGS:
            b = move(START, math.radians(degrees), LENGTH)
            for kind, wired in ((1, 0), (2, 0), (3, 0), (3, 1), (4, 0)):
                devices.append("# size %d, bearing %d, type %d%s" % (option, degrees, kind, " wired" * wired))
                device(devices, kind, wired, START, b, option)
            for code in range(1000, 1006):
                fittings.append("# size %d, bearing %d, code %d" % (option, degrees, code))
                fitting(fittings, code, START, b, option)
    devices.write("devices.ops", "Device symbols over a pipe of 25 from (40.0319, 50.0437).")
    fittings.write("fittings.ops", "Fitting symbols over a pipe of 25 from (40.0319, 50.0437).")
    flags()
    arrows()


main()
