/** Curves as short sides; pies and paths. */
#include "platform/portable/raster_curve.h"

#include <cmath>

#include "model/convert.h"
#include "platform/portable/arcs.h"

namespace pn10::portable {

/* Largest distance of a curve from its sides, in pixels; below half a pixel of the wide pens' edges too. */
static constexpr double kFlatness = 0.1;
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

void FlatPath::curveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
  if (!points_.size()) return;
  StrokePoint& start = points_[points_.size() - 1];
  start.smooth = afterCurve_;
  const double x0 = start.x, y0 = start.y;
  x1 = held(x1), y1 = held(y1), x2 = held(x2), y2 = held(y2), x3 = held(x3), y3 = held(y3);
  const double bend =
      std::max(std::hypot(x0 - 2 * x1 + x2, y0 - 2 * y1 + y2), std::hypot(x1 - 2 * x2 + x3, y1 - 2 * y2 + y3));
  const int32_t sides = std::clamp(toInt32(std::ceil(std::sqrt(0.75 * bend / kFlatness))), 1, 1 << 16);
  for (int32_t i = 1; i < sides; i++) {
    const double t = static_cast<double>(i) / sides, u = 1 - t;
    const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
    points_.add({a * x0 + b * x1 + c * x2 + d * x3, a * y0 + b * y1 + c * y2 + d * y3, true});
  }
  points_.add({x3, y3, false});
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

RECT strokedBox(const PaintState& state, const Stroke& stroke, const RECT& box) {
  if (state.pen->style != PS_INSIDEFRAME || stroke.kind != Stroke::kWide) return box;
  const auto inside = [&](LONG& low, LONG& high) {
    const int64_t from = low + stroke.width / 2, to = high - (stroke.width - 1) / 2;
    const int64_t middle = (int64_t{low} + high) / 2;
    low = static_cast<LONG>(from < to ? from : middle);
    high = static_cast<LONG>(from < to ? to : middle + 1);
  };
  RECT drawn = box;
  inside(drawn.left, drawn.right);
  inside(drawn.top, drawn.bottom);
  return drawn;
}

void paintPie(const Canvas& canvas, const PaintState& state, const PieShape& pie) {
  if (canvas.empty() || pie.box.left >= pie.box.right || pie.box.top >= pie.box.bottom) return;
  const Stroke stroke = strokeOf(state);
  PieShape drawn = pie;
  drawn.box = strokedBox(state, stroke, pie.box);
  PathFigure figure = pieFigure(drawn, false);
  const auto snap = [](double& x, double& y) { x = nearest(x), y = nearest(y); };
  snap(figure.startX, figure.startY); /* the corners are whole pixels, so that level radials stay level */
  snap(figure.pieces.front().x3, figure.pieces.front().y3);
  snap(figure.pieces.back().x3, figure.pieces.back().y3);
  FlatPath flat;
  flat.add(figure, true);
  flat.fill(canvas, fillOf(state), state.fillMode);
  flat.stroke(canvas, stroke);
}

void paintPath(const Canvas& canvas, const PaintState& state, const Path& path, bool stroke, bool fill) {
  if (canvas.empty()) return;
  FlatPath flat;
  for (const PathFigure& figure : path) flat.add(figure, figure.closed || (stroke && fill));
  if (fill) flat.fill(canvas, fillOf(state), state.fillMode);
  if (stroke) flat.stroke(canvas, strokeOf(state));
}

}  // namespace pn10::portable
