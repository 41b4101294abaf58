/** Curves as short sides; pies and paths. */
#include "platform/portable/raster_curve.h"

#include <cmath>

#include "model/convert.h"
#include "platform/portable/arcs.h"

namespace pn10::portable {

/* How far a curve's control points may lie from its chord before it is halved. A pixel gives the sides that one-pixel
   outlines and fills are made of; wide pens would show the corners and take finer ones. */
static constexpr double kCoarse = 1, kFine = 0.1;
static constexpr int32_t kMostHalvings = 12;
/* Coordinates are held to what whole-number arithmetic on them can bear. */
static constexpr double kFar = 4294967296.0;
/** The nearest whole number, halves up, also where rounding errors leave a half just below itself. */
static double nearest(double v) { return std::floor(v + 0.5 + 1e-9); }

static double held(double v) { return v >= -kFar && v <= kFar ? v : v > 0 ? kFar : v < 0 ? -kFar : 0; }

void FlatPath::begin(double x, double y) {
  points_.add({held(x), held(y), false});
  afterCurve_ = false;
}

void FlatPath::lineTo(double x, double y) { begin(x, y); }

/** Whether both control points lie on the chord or within a tolerance beside it, measured across its longer axis. */
static bool isFlat(const Curve& c, double tolerance) {
  double dx = c.x[3] - c.x[0], dy = c.y[3] - c.y[0];
  const bool tall = std::fabs(dy) > std::fabs(dx);
  if (tall) std::swap(dx, dy);
  const double way = dx < 0 ? -1 : 1, length = std::fabs(dx), slope = length > 0 ? dy / dx : 0;
  for (int32_t i = 1; i <= 2; i++) {
    double along = c.x[i] - c.x[0], across = c.y[i] - c.y[0];
    if (tall) std::swap(along, across);
    if (along * way < -tolerance || along * way > length + tolerance) return false;
    if (std::fabs(across - along * slope) > tolerance) return false;
  }
  return true;
}

void FlatPath::halve(const Curve& c, int32_t halvings) {
  if (!halvings || isFlat(c, tolerance_)) return points_.add({c.x[3], c.y[3], true});
  Curve first, second;
  const auto split = [](const double* p, double* low, double* high) {
    const double middle = (p[1] + p[2]) / 2;
    low[0] = p[0], low[1] = (p[0] + p[1]) / 2, low[2] = (low[1] + middle) / 2;
    high[3] = p[3], high[2] = (p[2] + p[3]) / 2, high[1] = (middle + high[2]) / 2;
    low[3] = high[0] = (low[2] + high[1]) / 2;
  };
  split(c.x, first.x, second.x);
  split(c.y, first.y, second.y);
  halve(first, halvings - 1);
  halve(second, halvings - 1);
}

void FlatPath::curveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
  if (!points_.size()) return;
  StrokePoint& start = points_[points_.size() - 1];
  start.smooth = afterCurve_;
  halve({{start.x, held(x1), held(x2), held(x3)}, {start.y, held(y1), held(y2), held(y3)}}, kMostHalvings);
  if (points_.ok()) points_[points_.size() - 1].smooth = false;
  afterCurve_ = true;
}

/** Where a curve closes on the beginning of a curve, there is no corner. */
void FlatPath::end(bool closed) {
  const size_t first = figures_.size() ? figures_[figures_.size() - 1].end : 0;
  if (closed && beginsWithCurve_ && afterCurve_ && points_.ok() && points_.size() > first) {
    StrokePoint &start = points_[first], &last = points_[points_.size() - 1];
    if (std::hypot(start.x - last.x, start.y - last.y) < 1e-6) {
      last = start;
      start.smooth = last.smooth = true;
    }
  }
  figures_.add({points_.size(), closed});
}

void FlatPath::add(const PathFigure& figure, bool closed) {
  beginsWithCurve_ = !figure.pieces.empty() && figure.pieces.front().curve;
  begin(figure.startX, figure.startY);
  for (const PathFigure::Piece& p : figure.pieces) {
    if (p.curve) {
      curveTo(p.x1, p.y1, p.x2, p.y2, p.x3, p.y3);
    } else {
      lineTo(p.x3, p.y3);
    }
  }
  end(closed);
}

bool FlatPath::snap() {
  if (!points_.ok() || !figures_.ok() || !pixels_.resize(points_.size())) return false;
  for (size_t i = 0; i < points_.size(); i++) {
    pixels_[i] = {toInt32(nearest(points_[i].x)), toInt32(nearest(points_[i].y))};
  }
  return true;
}

void FlatPath::fill(const Canvas& canvas, const Fill& fill, int mode) {
  if (!fill.visible || !snap()) return;
  Buffer<size_t> ends;
  if (!ends.resize(figures_.size())) return;
  for (size_t i = 0; i < figures_.size(); i++) ends[i] = figures_[i].end;
  fillPolygons(canvas, fill, mode, pixels_.data(), ends.data(), ends.size());
}

void FlatPath::stroke(const Canvas& canvas, const Stroke& stroke) {
  if (stroke.kind == Stroke::kNone || !points_.ok() || !figures_.ok()) return;
  const bool wide = stroke.kind == Stroke::kWide;
  if (!wide && !snap()) return;
  size_t first = 0;
  for (size_t i = 0; i < figures_.size(); first = figures_[i++].end) {
    const size_t count = figures_[i].end - first;
    if (wide) {
      wideStroke(canvas, stroke, points_.data() + first, count, figures_[i].closed);
    } else {
      thinChain(canvas, stroke, pixels_.data() + first, count, figures_[i].closed);
    }
  }
}

/** Fills and strokes figures; what is filled is closed for the stroke as well. */
static void paintFigures(const Canvas& canvas, const PaintState& state, const Path& path, const Stroke& stroke,
                         bool filled) {
  const Fill fill = filled ? fillOf(state) : Fill{};
  const auto flattened = [&](FlatPath& flat) -> FlatPath& {
    for (const PathFigure& figure : path) flat.add(figure, figure.closed || filled);
    return flat;
  };
  FlatPath coarse(kCoarse), fine(kFine);
  const bool wide = stroke.kind == Stroke::kWide;
  if (fill.visible || !wide) flattened(coarse).fill(canvas, fill, state.fillMode);
  if (stroke.kind != Stroke::kNone) (wide ? flattened(fine) : coarse).stroke(canvas, stroke);
}

/** An outline that no walk paints: dashed, or very wide. */
void strokeEllipse(const Canvas& canvas, const Stroke& stroke, const RECT& box) {
  FlatPath outline(stroke.kind == Stroke::kWide ? kFine : kCoarse);
  outline.add(ellipseFigure(box, false), true);
  outline.stroke(canvas, stroke);
}

void paintPie(const Canvas& canvas, const PaintState& state, const PieShape& pie) {
  if (canvas.empty() || pie.box.left >= pie.box.right || pie.box.top >= pie.box.bottom) return;
  const Stroke stroke = strokeOf(state);
  PieShape drawn = pie;
  drawn.box = strokedBox(*state.pen, pie.box);
  PathFigure figure = pieFigure(drawn, false);
  const auto snap = [](double& x, double& y) { x = nearest(x), y = nearest(y); };
  snap(figure.startX, figure.startY); /* the corners are whole pixels, so that level radials stay level */
  snap(figure.pieces.front().x3, figure.pieces.front().y3);
  snap(figure.pieces.back().x3, figure.pieces.back().y3);
  paintFigures(canvas, state, {figure}, stroke, true);
}

void paintPath(const Canvas& canvas, const PaintState& state, const Path& path, bool stroke, bool fill) {
  if (canvas.empty()) return;
  paintFigures(canvas, state, path, stroke ? strokeOf(state) : Stroke{}, fill);
}

}  // namespace pn10::portable
