/** Shapes given as numbers: points in units of a span, x along it and y to its left. */
#ifndef PN10_DRAW_SHAPE_SPAN_H
#define PN10_DRAW_SHAPE_SPAN_H

#include <cmath>

#include "draw/frame.h"

namespace pn10 {

struct ShapePoint {
  double x, y;
};

/** One Polygon, or one MoveToEx with its LineTo. */
struct Stroke {
  bool polygon;
  int8_t count;
  ShapePoint points[8];
};

/** A place, a direction and a unit of length on the world plane. */
class Span {
 public:
  Span(double x, double y, double bearing, double length)
      : x_(x), y_(y), alongX_(std::cos(bearing) * length), alongY_(std::sin(bearing) * length) {}

  ShapePoint world(ShapePoint p) const {
    return {x_ + p.x * alongX_ - p.y * alongY_, y_ + p.x * alongY_ + p.y * alongX_};
  }
  DevPoint device(ShapePoint p) const {
    const ShapePoint w = world(p);
    return WorldToDevPair(w.x, w.y);
  }
  void paint(const Stroke& stroke) const {
    DevPoint points[8];
    for (int i = 0; i < stroke.count; i++) points[i] = device(stroke.points[i]);
    if (stroke.polygon) {
      Polygon(drawState.DC, points, stroke.count);
      return;
    }
    MoveToEx(drawState.DC, points[0].x, points[0].y, nullptr);
    for (int i = 1; i < stroke.count; i++) LineTo(drawState.DC, points[i].x, points[i].y);
  }

 private:
  double x_, y_, alongX_, alongY_;
};

}  // namespace pn10

#endif
