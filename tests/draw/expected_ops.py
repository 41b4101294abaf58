#!/usr/bin/env python3
"""Writes tests/golden/draw/{symbol,line,arc,arrow}_*.ops: the operations of symbols, line styles, arcs and arrow heads.

An argument is the folder to write to instead; the test Goldens compares that with the committed files.

Works from its own tables and with its own arithmetic: points are found by distance and angle, as the shapes are
described, where the library turns coordinates. Every number is checked to lie well away from the edge of its
device unit, so that the two ways must agree. The scene (numbers below) is that of symbols_golden_test.cpp and
lines_golden_test.cpp.
"""
import math
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
GOLDEN = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "..", "golden", "draw")


def f32(v):
    return struct.unpack("f", struct.pack("f", v))[0]


# ---- the scene: world 0..200 by 200..0 on 2000 x 2000 device units
X0, Y0, SCALE = 0.0, 200.0, 10.0
TWO_PI = 6.2831854820251465
PI, HALF_PI = 3.1415926535, 1.57079632675
ISO = 0.8660253882408142
DEGREE = 0.017453292
METRE = f32(3.28084)


def dev(p):
    out = []
    for v in ((p[0] - X0) * SCALE, (p[1] - Y0) * -SCALE):
        assert abs(v - round(v)) > 1e-6 or abs(v) > 1e8, "on the edge of a device unit: %r" % (p,)
        out.append(int(v))
    return tuple(out)


def polar(p, bearing, distance):
    if abs(bearing) > TWO_PI:
        rest = f32(math.fmod(bearing, TWO_PI))
        bearing = TWO_PI - rest if bearing < 0 else rest
    return math.cos(bearing) * distance + p[0], math.sin(bearing) * distance + p[1]


def iso(p, z):
    return (p[0] + p[1]) * ISO, (p[1] - p[0]) * 0.5 + z


# ---- symbols --------------------------------------------------------------------------------------
# A shape is a text of steps over points in units of the size. poly: Polygon, path: MoveToEx and LineTo of the rest,
# disc: Ellipse by two corners, pie: box and two radials. "~" before a step: a part that the mark drawer lays on the
# model plane in the isometric view. "?" after a disc: the rest needs it.
BOW = "poly -.5 .33 .5 -.33 .5 .33 -.5 -.33"
REG = ["~" + BOW, "~path 0 0 0 .495", "~pie -.467 .962 .466 .029 .33 .495 -.33 .495"]
SQ = "square 1"
F = ["path -.076 0 .075 0", "path -.076 0 -.076 -.15", "path -.076 0 -.076 .15 .074 .15"]
SHAPES = {
    2: ["disc -.5 .5 .5 -.5"],
    3: [SQ],
    4: ["disc -.25 .25 .25 -.25"] + ["ray %d" % a for a in range(0, 360, 45)],
    5: ["poly .5 -.366 0 .5 -.5 -.366"],
    6: ["star"],
    7: ["poly 0 -.25 .5 0 0 .25 -.5 0"],
    10: ["~" + BOW],
    11: REG,
    12: ["path 0 0 0 .5 -.5 .5", "path 0 0 0 -.5 -.5 -.5"],
    13: ["pie -.467 -.033 .466 -.966 0 -.829 0 -.17"],
    14: ["ring", "~poly .5 0 .179 -.05 .179 .05", "path .077 -.146 -.328 -.146 .077 .147 -.328 .147"],
    15: ["~poly 0 .33 1 -.33 1 .33 0 -.33", "~path .5 0 .5 .495", "~pie .033 .962 .966 .029 .829 .495 .169 .495"],
    16: ["disc -.5 .5 .5 -.5 ?", "path -.5 .5 .5 -.5"],
    101: REG,
    102: [SQ] + F,
    103: ["~poly -.6 .2 0 -.2 0 .2 -.6 -.2", "~path -.3 0 -.3 .298", "~pie -.581 .578 -.02 .017 -.103 .298 -.499 .298",
          "poly 0 -.2 0 .2 .4 .2 .4 -.2", "path .14 0 .26 0", "path .14 -.12 .14 .12", "path .14 .12 .26 .12"],
    104: [SQ, "square .5"] + F,
    105: [SQ, "~poly -.426 .015 .074 -.315 .074 .015 -.426 -.315", "~path -.176 -.15 -.176 .098",
          "~pie -.409 .331 .058 -.135 -.011 .098 -.341 .098", "poly .075 -.316 .075 .017 .408 .017 .408 -.316",
          "path .191 -.15 .291 -.15", "path .191 -.25 .191 -.05", "path .191 -.05 .291 -.05"],
    106: ["path 0 0 1 0", "path .8 .2 .8 -.2", "path 0 0 .5 .3 .5 -.3 0 0"],
    107: ["openbox"],
    108: ["path 0 0 1 0", "oval 1 .5 2 -.5", "path 1.7 -.1 1.7 -.3 1.3 -.3 1.3 -.1",
          "path 1.7 .1 1.3 .1 1.3 .3 1.5 .3 1.5 .1"],
    109: [SQ, "path -.3 0 .3 0", "path .3 .25 .3 -.25"],
    110: ["ring"] + ["spoke .5 %d" % a for a in (45, 135, 225, 315)],
    111: ["ring"] + ["spoke 1 %d" % a for a in (45, 135, 225, 315)],
}
MARK_SHAPES = dict(SHAPES)
MARK_SHAPES[5] = ["apex"]
MARK_SHAPES[13] = ["~pie -.472 .467 .461 -.466 -.006 -.329 -.006 .331"]
QUARTER_CLOCKWISE = {10, 11}  # of the mark drawer
UPRIGHT = {2, 4, 16}
NO_NEGATIVE_MARK = {12, 13}


class Symbol:
    def __init__(self, number, size, bearing, x, y, mark=False, mode=0, elev=0.0):
        self.o, self.s, self.b = (x, y), f32(size), 0.0 if number in UPRIGHT else f32(bearing)
        self.turn = math.pi / 2 if mark and number in QUARTER_CLOCKWISE else 0.0
        self.mark, self.iso, self.z = mark, mark and mode == 1, f32(elev)
        self.ops, self.alive = [], True
        for step in (MARK_SHAPES if mark else SHAPES)[number]:
            if self.alive:
                self.step(step)

    def world(self, x, y):
        return polar(self.o, self.b - self.turn + math.atan2(y, x), math.hypot(x, y) * self.s)

    def put(self, w):
        return dev(iso(w, self.z) if self.on_model else w)

    def pts(self, values):
        return [self.put(self.world(x, y)) for x, y in zip(values[::2], values[1::2])]

    def path(self, points):
        self.ops.append("MoveToEx %d %d" % points[0])
        self.ops += ["LineTo %d %d" % p for p in points[1:]]

    def poly(self, points):
        self.ops.append("Polygon %d " % len(points) + " ".join("%d %d" % p for p in points))

    def box(self, v):
        mx, my = self.world((v[0] + v[2]) / 2, (v[1] + v[3]) / 2)
        hx, hy = (v[2] - v[0]) / 2 * self.s, (v[1] - v[3]) / 2 * self.s
        a, b = dev((mx - hx, my + hy)), dev((mx + hx, my - hy))
        return a, b, min(b[0] - a[0], b[1] - a[1])

    def ellipse(self, v):
        a, b, extent = self.box(v)
        if extent > 2:
            self.ops.append("Ellipse %d %d %d %d" % (a + b))
        return extent > 2

    def square_corners(self, side):
        """From the corner at 225 degrees, 0.707 away, by walking the sides."""
        p = polar(self.o, self.b + math.radians(225), 0.707 * side * self.s)
        corners = [p]
        for turn in (90, 0, -90):
            p = polar(p, self.b + math.radians(turn), side * self.s)
            corners.append(p)
        return [dev(c) for c in corners]

    def step(self, text):
        self.on_model = self.iso and text.startswith("~")
        word, *rest = text.lstrip("~").split()
        needed = rest and rest[-1] == "?"
        v = [float(r) for r in rest if r != "?"]
        at = lambda degrees, radius: self.put(polar(self.o, self.b + math.radians(degrees), radius * self.s))
        if word == "path":
            self.path(self.pts(v))
        elif word == "poly":
            self.poly(self.pts(v))
        elif word == "disc":
            painted = not self.iso and self.ellipse(v)
            self.alive = painted or not needed
        elif word == "oval":
            self.ellipse(v)
        elif word == "square":
            self.poly(self.square_corners(v[0]))
        elif word == "openbox":
            corners = self.square_corners(1.0)
            self.path(corners + corners[:1])
        elif word == "ray":
            # straight ones at the radius, diagonal ones 0.707 of it along both axes
            a = int(v[0])
            sign = lambda c: (c > 1e-9) - (c < -1e-9)
            ux, uy = sign(math.cos(math.radians(a))), sign(math.sin(math.radians(a)))
            k = 0.707 if a % 90 else 1.0
            self.path([dev((self.o[0] + ux * k * r * self.s, self.o[1] + uy * k * r * self.s)) for r in (0.25, 0.5)])
        elif word == "star":
            self.poly([at(36 * k, 0.191 if k % 2 else 0.5) for k in range(10)])
        elif word == "apex":
            self.poly([at(a, 0.57735) for a in (0, 120, -120)])
        elif word == "spoke":
            self.path([at(0, 0), at(v[1], v[0])])
        elif word == "ring":
            if self.mark:
                self.ops += arc(self.z, f32(0.5 * self.s), 0.0, TWO_PI, False, self.o[0], self.o[1], False)
            else:
                self.ellipse([-.5, .5, .5, -.5])
        elif word == "pie":
            a, b, extent = self.box(v)
            if extent <= 4:
                return
            if self.on_model:
                mx, my = (v[4] + v[6]) / 2, (v[5] + v[7]) / 2
                r, start = (v[2] - v[0]) / 2, math.atan2(v[5] - my, v[4] - mx)
                half = self.pts([c for k in range(181) for c in
                                 (mx + r * math.cos(start + k * DEGREE), my + r * math.sin(start + k * DEGREE))])
                self.path([half[0], half[-1]])
                self.poly(half)
            else:
                radials = self.pts(v[4:])
                self.ops.append("Pie %d %d %d %d " % (a + b) + "%d %d %d %d" % (radials[0] + radials[1]))


# ---- arcs -----------------------------------------------------------------------------------------
GEO = (0.0, 60.0, 20.0, 40.0, 5)  # geographic window and zoom


def geo_y(lat):
    x1, y1, x2, y2, zoom = GEO
    w, h, g = x2 - x1, y1 - y2, 2.0 ** zoom * 40.743665432689745
    t = math.tan(PI * (y1 + y2) / 2 / 180 / 2 + 0.785398163375)
    b = h * g * w * PI / 180 / w
    top = (PI - math.log(t)) * g - b / 2
    v = math.log(math.tan(lat * PI / 180 / 2 + 0.785398163375))
    return y1 - ((PI - v) * (2.0 ** zoom * 128 / PI) - top) * h / b


def arc(z, radius, start, end, clip, cx, cy, project, mode=0, min_chord=0.0):
    turn = lambda a: (math.fmod(a, TWO_PI) + TWO_PI) % TWO_PI if abs(a) > TWO_PI else a
    start, end = turn(start), turn(end)
    if project and mode == 2:
        cy = geo_y(cy)
    at = lambda a: iso(polar((cx, cy), a, radius), z) if project and mode == 1 else polar((cx, cy), a, radius)
    seen = lambda p: 0 <= p[0] <= 200 and 0 <= p[1] <= 200
    if clip and not seen(at(start)) and not seen(at(end)):
        return []
    sweep = end - start if start <= end else TWO_PI - start + end
    step = f32(min_chord) / radius if radius * DEGREE < f32(min_chord) else DEGREE
    angles = [start + k * step for k in range(1, math.floor(sweep / step))]
    return (["MoveToEx %d %d" % dev(at(start))] + ["LineTo %d %d" % dev(at(a)) for a in angles] +
            ["LineTo %d %d" % dev(at(end))])


# ---- lines ----------------------------------------------------------------------------------------
DASHES = {7: "2w 2w 1 2w 1 2w 1 2w", 16: "4w 2w", 17: "4w 2w 1 2w", 18: "4w 2w 1 2w 1 2w", 19: "4w 2w 1 2w 1 2w 1 2w",
          20: "4w 2w 1 2w 2w 2w 1 2w", 22: "2w 2w 2w 2w 1 2w"}
NAMED = {1: 0, 2: 1, 3: 2, 4: 3, 5: 4}


def pen(style, width, color):
    n = abs(style)
    if n in DASHES:
        lengths = [str(int(t[:-1]) * width) if t.endswith("w") else t for t in DASHES[n].split()]
        return "ExtCreatePen pen(0x10007,%d,0x%06X,[%s])" % (width, color, ",".join(lengths))
    return "ExtCreatePen pen(0x%X,%d,0x%06X)" % (0x10000 + NAMED.get(n, 0), width, color)


def segment(style, s, x1, y1, x2, y2):
    """One segment with its decoration, in coordinates along (t) and to the left (u) of it."""
    s = f32(s) if s > 0 else 1.0
    length = math.hypot(x2 - x1, y2 - y1)
    bx, by = ((x2 - x1) / length, (y2 - y1) / length) if length else (1.0, 0.0)
    place = lambda t, u: dev((x1 + t * s * bx - u * s * by, y1 + t * s * by + u * s * bx))
    ops = ["MoveToEx %d %d" % dev((x1, y1)), "LineTo %d %d" % dev((x2, y2))]

    def stroke(t1, u1, t2, u2):
        ops.append("MoveToEx %d %d" % place(t1, u1))
        ops.append("LineTo %d %d" % place(t2, u2))

    q = .667
    if style in (11, 13, 21):
        for k in range(math.floor((.5 * s + length) / s)):
            side = {11: -q, 21: q, 13: q if k % 2 else -q}[style]
            stroke(k, side, k + 1, -side)
    elif style == 12:
        for k in range(math.floor((length + .5 * s) / (1.5 * s))):
            stroke(1.5 * k, -q, 1.5 * k + 1, q)
            stroke(1.5 * k, q, 1.5 * k + 1, -q)
    elif style == 14:
        for k in range(math.floor((length + .5 * s) / s)):
            stroke(k + .5, -q, k + .5, q)
    elif style == 15:
        r = .333 * s
        for k in range(math.floor((length + .333 * s - .333 * s) / s)):
            cx, cy = x1 + (k + .667) * s * bx, y1 + (k + .667) * s * by
            a, b = dev((cx - r, cy + r)), dev((cx + r, cy - r))
            if b[0] - a[0] > 2 and b[1] - a[1] > 2:
                ops.append("Ellipse %d %d %d %d" % (a + b))
    return ops


def head(tx, ty, bx, by, size):
    back, length = math.atan2(by - ty, bx - tx), min(math.hypot(bx - tx, by - ty), f32(size))
    points = [dev((tx, ty))] + [dev(polar((tx, ty), back + a, length)) for a in (.15707964, -.15707964)]
    return ["Polygon 3 " + " ".join("%d %d" % p for p in points)]


# ---- files ----------------------------------------------------------------------------------------
def write(name, sections):
    with open(os.path.join(GOLDEN, name), "w") as out:
        out.write("# Worked out by tests/draw/expected_ops.py.\n")
        for title, ops in sections:
            out.write("# %s\n" % title)
            out.writelines(op + "\n" for op in ops)


PLACE = (50.0312, 60.0717)
SIZES = ((19.37, 0.0), (19.37, 0.7), (0.4131, 2.2), (0.2131, 0.0))  # and bearings; the last two meet the limits


def main():
    os.makedirs(GOLDEN, exist_ok=True)
    for n in SHAPES:
        sections = []
        for s, b in SIZES:
            sections.append(("DrawSymbol, size %g, bearing %g" % (s, b), Symbol(n, s, b, *PLACE).ops))
        for sign in ("", "-"):
            if sign and n in NO_NEGATIVE_MARK:
                continue
            for s, b in SIZES:
                sections.append(("DrawMark %s%d, size %g, bearing %g" % (sign, n, s, b),
                                 Symbol(n, s, b, *PLACE, mark=True).ops))
        for s, b in SIZES[:2]:
            sections.append(("DrawMark, isometric, size %g, bearing %g, elevation 3.3" % (s, b),
                             Symbol(n, s, b, *PLACE, mark=True, mode=1, elev=3.3).ops))
        write("symbol_%d.ops" % n, sections)

    ground = f32(f32(9876543.0) / ((f32(250.0) + METRE * 6371009.0) * 0.01745329238474369))
    write("symbol_ground.ops", [("DrawMark 3, geographic, 9876543 feet on the ground at 250",
                                 Symbol(3, ground, 0.3, *PLACE, mark=True).ops)])

    for n in (1, 2, 3, 4, 5, 7, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22):
        sections = [("pen, width %d" % w, [pen(n, w, 0x30A0F0), "DeleteObject " + pen(n, w, 0x30A0F0)[13:]])
                    for w in (1, 3)]
        sections += [("pen of the negative number", [pen(n, 2, 0x102030), "DeleteObject " + pen(n, 2, 0x102030)[13:]])]
        for s, x1, y1, x2, y2 in ((4, 20, 100.017, 40, 100.017), (3.1, 30.013, 20.029, 61.017, 47.033),
                                  (2.7, 90.01, 90.02, 71.033, 121.049), (0, 10.003, 10.007, 13.011, 10.009),
                                  (5, 60.003, 60.007, 60.003, 60.007)):
            sections.append(("segment, spacing %g" % s, segment(n, s, x1 + .0013, y1, x2 + .0013, y2)))
        write("line_%d.ops" % n, sections)

    full = (0.0, TWO_PI)
    east = (f32(350 * DEGREE), f32(10 * DEGREE))
    write("arc_poly.ops", [
        ("full circle", arc(0, f32(20.013), *full, False, 100.0031, 100.0017, False)),
        ("from 350 to 10 degrees", arc(0, f32(20.013), *east, False, 100.0031, 100.0017, False)),
        ("angles beyond one turn", arc(0, f32(20.013), f32(7.1), f32(-8.2), False, 100.0031, 100.0017, False)),
        ("few sides", arc(0, f32(3.013), *full, False, 100.0031, 100.0017, False, 0, 1.7)),
        ("clipped, both ends out", arc(0, f32(150.0), 0.5, 1.0, True, 100.0031, 100.0017, False)),
        ("clipped, one end in", arc(0, f32(90.0), 0.5, 3.0, True, 150.0031, 100.0017, False)),
        ("on the ground, isometric", arc(f32(4.4), f32(20.013), f32(0.3), f32(2.3), False, 60.0031, 80.0017, True, 1)),
        ("on the plane, isometric", arc(f32(4.4), f32(20.013), f32(0.3), f32(2.3), False, 60.0031, 80.0017, False, 1)),
        ("on the ground, geographic", arc(0, f32(2.513), f32(0.3), f32(2.3), False, 11.0031, 46.0017, True, 2)),
    ])
    write("arrow_head.ops", [
        ("capped by the arrow size", head(100.0013, 100.0017, 60.0031, 90.0037, 12.5)),
        ("capped by the segment", head(100.0013, 100.0017, 103.0031, 98.0037, 12.5)),
    ])


if __name__ == "__main__":
    main()
