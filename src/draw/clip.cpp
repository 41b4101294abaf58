/** Segments cut to the clip window in world coordinates. */
#include "draw/frame.h"

namespace pn10 {

namespace {

enum Side : unsigned { Inside = 0, Left = 1, Right = 2, Below = 4, Above = 8 };

/** The sides of the clip window that a point lies beyond; what is not a number lies beyond two of them. */
unsigned sidesOf(double x, double y) {
  const DrawState& s = drawState;
  unsigned sides = Inside;
  if (!(x >= s.ClipX0)) sides |= Left;
  if (!(x <= s.ClipX1)) sides |= Right;
  if (!(y >= s.ClipY1)) sides |= Below;
  if (!(y <= s.ClipY0)) sides |= Above;
  return sides;
}

struct Point {
  double x, y;
};

/** Where the line through `a` and `b` meets the border of the lowest side in `sides`. */
Point atBorder(const Point& a, const Point& b, unsigned sides) {
  const DrawState& s = drawState;
  if (sides & (Left | Right)) {
    const double x = sides & Left ? s.ClipX0 : s.ClipX1;
    return {x, a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x)};
  }
  const double y = sides & Below ? s.ClipY1 : s.ClipY0;
  return {a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), y};
}

}  // namespace

int32_t ClipSegment(double* x1, double* y1, double* x2, double* y2) {
  Point a{*x1, *y1}, b{*x2, *y2};
  unsigned sidesA = sidesOf(a.x, a.y), sidesB = sidesOf(b.x, b.y);
  /* each cut clears one side of one end for good, so four suffice; rounding must not make it more */
  for (int cuts = 0; sidesA | sidesB; cuts++) {
    if ((sidesA & sidesB) || cuts == 4) return 1;
    if (sidesA) {
      a = atBorder(a, b, sidesA);
      sidesA = sidesOf(a.x, a.y);
    } else {
      b = atBorder(a, b, sidesB);
      sidesB = sidesOf(b.x, b.y);
    }
  }
  *x1 = a.x;
  *y1 = a.y;
  *x2 = b.x;
  *y2 = b.y;
  return 0;
}

int32_t DrawClipLine(int16_t clip, double x1, double y1, double x2, double y2) {
  const bool cut = clip && (OutOfView(x1, y1) || OutOfView(x2, y2));
  if (cut && ClipSegment(&x1, &y1, &x2, &y2)) return 0;
  const DevPoint a = WorldToDevPair(x1, y1), b = WorldToDevPair(x2, y2);
  MoveToEx(drawState.DC, a.x, a.y, nullptr);
  LineTo(drawState.DC, b.x, b.y);
  return 1;
}

}  // namespace pn10
