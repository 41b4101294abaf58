/** Arcs, ellipses and pies as figures of curves. */
#include "platform/portable/arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pn10::portable {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/** The whole-number centre that radials start from. */
POINT radialCenter(const RECT& box) {
  return {static_cast<LONG>((int64_t{box.left} + box.right) >> 1),
          static_cast<LONG>((int64_t{box.top} + box.bottom) >> 1)};
}

/** The parameter of the ellipse in the direction of a point; only the direction counts. */
double angleTo(double dx, double dy, double radiusX, double radiusY) {
  return std::atan2(dy * std::max(radiusX, 1e-9), dx * std::max(radiusY, 1e-9));
}

void appendCurve(PathFigure& figure, PathFigure::Piece piece, bool rounded) {
  if (rounded) {
    for (double* v : {&piece.x1, &piece.y1, &piece.x2, &piece.y2, &piece.x3, &piece.y3}) *v = std::floor(*v + 0.5);
  }
  figure.pieces.push_back(piece);
}

double maybeRounded(double value, bool rounded) { return rounded ? std::floor(value + 0.5) : value; }

}  // namespace

double Arc::x(double angle) const { return centerX + radiusX * std::cos(angle); }
double Arc::y(double angle) const { return centerY + radiusY * std::sin(angle); }

int32_t roundToInt(double value) {
  if (std::isnan(value)) return 0;
  const double rounded = std::floor(value + 0.5);
  return static_cast<int32_t>(std::clamp(rounded, -2147483648.0, 2147483647.0));
}

Arc arcOf(const RECT& box, POINT from, POINT to, bool clockwise) {
  Arc arc;
  const double right = std::max(double(box.right) - 1, double(box.left));
  const double bottom = std::max(double(box.bottom) - 1, double(box.top));
  arc.centerX = (box.left + right) / 2;
  arc.centerY = (box.top + bottom) / 2;
  arc.radiusX = (right - box.left) / 2;
  arc.radiusY = (bottom - box.top) / 2;
  const POINT middle = radialCenter(box);
  const auto angle = [&](POINT p) {
    return angleTo(double(p.x) - middle.x, double(p.y) - middle.y, arc.radiusX, arc.radiusY);
  };
  arc.start = angle(from);
  arc.sweep = angle(to) - arc.start;
  if (clockwise) {
    while (arc.sweep <= 0) arc.sweep += kTurn;
  } else {
    while (arc.sweep >= 0) arc.sweep -= kTurn;
  }
  return arc;
}

POINT arcEnd(const RECT& box, POINT to) {
  const double radiusX = (double(box.right) - box.left) / 2, radiusY = (double(box.bottom) - box.top) / 2;
  const double centerX = box.left + radiusX, centerY = box.top + radiusY;
  const double angle = angleTo(to.x - centerX, to.y - centerY, radiusX, radiusY);
  return {roundToInt(centerX + radiusX * std::cos(angle)), roundToInt(centerY + radiusY * std::sin(angle))};
}

void appendCurves(PathFigure& figure, const Arc& arc, bool rounded) {
  const int count = std::clamp(static_cast<int>(std::ceil(std::fabs(arc.sweep) / (kTurn / 4) - 1e-9)), 1, 4);
  const double step = arc.sweep / count;
  const double reach = 4.0 / 3.0 * std::tan(step / 4);
  double angle = arc.start;
  for (int i = 0; i < count; i++) {
    const double next = arc.start + step * (i + 1);
    PathFigure::Piece piece{};
    piece.curve = true;
    piece.x1 = arc.x(angle) - reach * arc.radiusX * std::sin(angle);
    piece.y1 = arc.y(angle) + reach * arc.radiusY * std::cos(angle);
    piece.x2 = arc.x(next) + reach * arc.radiusX * std::sin(next);
    piece.y2 = arc.y(next) - reach * arc.radiusY * std::cos(next);
    piece.x3 = arc.x(next);
    piece.y3 = arc.y(next);
    appendCurve(figure, piece, rounded);
    angle = next;
  }
}

RECT strokedBox(const PenData& pen, const RECT& box) {
  if (pen.style != PS_INSIDEFRAME || pen.width < 2) return box;
  const auto inside = [&](LONG& low, LONG& high) {
    const int64_t from = low + int64_t{pen.width} / 2, to = high - (int64_t{pen.width} - 1) / 2;
    const int64_t middle = (int64_t{low} + high) / 2;
    low = static_cast<LONG>(from < to ? from : middle);
    high = static_cast<LONG>(from < to ? to : middle + 1);
  };
  RECT drawn = box;
  inside(drawn.left, drawn.right);
  inside(drawn.top, drawn.bottom);
  return drawn;
}

PathFigure ellipseFigure(const RECT& box, bool rounded) {
  Arc arc = arcOf(box, {}, {}, false);
  arc.start = 0;
  arc.sweep = -kTurn;
  PathFigure figure{maybeRounded(arc.x(0), rounded), maybeRounded(arc.y(0), rounded), {}, true};
  appendCurves(figure, arc, rounded);
  return figure;
}

PathFigure pieFigure(const PieShape& pie, bool rounded) {
  const Arc arc = arcOf(pie.box, pie.from, pie.to, pie.clockwise);
  PathFigure figure{maybeRounded(arc.centerX, rounded), maybeRounded(arc.centerY, rounded), {}, true};
  PathFigure::Piece line{};
  line.x3 = maybeRounded(arc.x(arc.start), rounded);
  line.y3 = maybeRounded(arc.y(arc.start), rounded);
  figure.pieces.push_back(line);
  appendCurves(figure, arc, rounded);
  return figure;
}

}  // namespace pn10::portable
