/** Decorated lines: ticks, crosses, zig-zags, bars and circles repeated along a segment. */
#include <algorithm>
#include <cmath>

#include "draw/frame.h"
#include "draw/lines.h"
#include "geometry/angles.h"
#include "geometry/direction.h"

namespace pn10 {

namespace {

/** A stroke of one repeat: each end so far along the repeat, and to which side (1 left, -1 right of the line). */
struct Stroke {
  double alongFrom;
  int sideFrom;
  double alongTo;
  int sideTo;
};

/**
 * One decoration, lengths in units of the spacing s.
 * Repeats: floor((L + add s - less s) / (period s)). The running point starts at `start`, and after each repeat
 * goes on by s and then by `gap`.
 */
struct Decoration {
  int16_t style;
  double add, less, period;
  double start, gap;
  int strokes; /* 0: a circle */
  Stroke stroke[2];
  bool alternates; /* the sides change with every repeat */
};

constexpr double kReach = 0.667;  /* how far a stroke reaches to a side */
constexpr double kRadius = 0.333; /* of a circle */

constexpr Decoration kDecorations[] = {
    {11, 0.5, 0, 1, 0, 0, 1, {{0, -1, 1, 1}}, false},
    {12, 0.5, 0, 1.5, 0, 0.5, 2, {{0, -1, 1, 1}, {0, 1, 1, -1}}, false},
    {13, 0.5, 0, 1, 0, 0, 1, {{0, -1, 1, 1}}, true},
    {14, 0.5, 0, 1, 0.5, 0, 1, {{0, -1, 0, 1}}, false},
    {15, 0.333, 0.333, 1, 0.667, 0, 0, {}, false},
    {21, 0.5, 0, 1, 0, 0, 1, {{0, 1, 1, -1}}, false},
};

/** A spacing of nothing on a long line must not hold up the paint: far more repeats than a device has units. */
constexpr int32_t kMostRepeats = 1 << 20;

const Decoration* decorationOf(int16_t style) {
  for (const Decoration& d : kDecorations) {
    if (d.style == style) return &d;
  }
  return nullptr;
}

int32_t repeats(const Decoration& d, double length, double spacing) {
  const double n = std::floor((length + d.add * spacing - d.less * spacing) / (d.period * spacing));
  return std::min(toInt32(n), kMostRepeats);
}

/** The segment as a frame of its own: along it, and to its left and right. */
struct Axes {
  Direction along, left, right;
  double spacing;

  DevPoint dev(const WorldPoint& p, double distance, int side) const {
    const WorldPoint at = moved(moved(p, along, distance * spacing), side < 0 ? right : left, kReach * spacing);
    return WorldToDevPair(at.x, at.y);
  }
};

void drawCircle(const WorldPoint& p, double radius) {
  const DevPoint a = WorldToDevPair(p.x - radius, p.y + radius), b = WorldToDevPair(p.x + radius, p.y - radius);
  if (BoxExceeds(a, b, kSmallestEllipse)) Ellipse(drawState.DC, a.x, a.y, b.x, b.y);
}

void decorate(const Decoration& d, const Axes& axes, const WorldPoint& start, double length) {
  const double s = axes.spacing;
  const int32_t n = repeats(d, length, s);
  WorldPoint p = moved(start, axes.along, d.start * s);
  for (int32_t i = 0; i < n; i++) {
    const int flip = d.alternates && i % 2 ? -1 : 1;
    for (int k = 0; k < d.strokes; k++) {
      const Stroke& stroke = d.stroke[k];
      const DevPoint from = axes.dev(p, stroke.alongFrom, stroke.sideFrom * flip);
      const DevPoint to = axes.dev(p, stroke.alongTo, stroke.sideTo * flip);
      MoveToEx(drawState.DC, from.x, from.y, nullptr);
      LineTo(drawState.DC, to.x, to.y);
    }
    if (!d.strokes) drawCircle(p, kRadius * s);
    p = moved(moved(p, axes.along, s), axes.along, d.gap * s);
  }
}

}  // namespace

int32_t DrawStyledSegment(int16_t style, float spacing, double x1, double y1, double x2, double y2) {
  const DevPoint a = WorldToDevPair(x1, y1), b = WorldToDevPair(x2, y2);
  MoveToEx(drawState.DC, a.x, a.y, nullptr);
  LineTo(drawState.DC, b.x, b.y);
  const Decoration* row = decorationOf(style);
  if (!row) return 1;
  const double bearing = GetBrg(x1, y1, x2, y2), length = std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
  const Axes axes{directionOf(bearing), directionOf(bearing + HALF_PI), directionOf(bearing - HALF_PI),
                  spacing > 0 ? spacing : 1.0};
  decorate(*row, axes, {x1, y1}, length);
  return 1;
}

}  // namespace pn10
