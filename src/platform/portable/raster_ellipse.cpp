/** Ellipses: the one-pixel outline, the fill up to and including it, and the ring of a wide pen. */
#include "platform/portable/raster_ellipse.h"

#include <cmath>

#include "platform/portable/arcs.h"
#include "platform/portable/raster_curve.h"
#include "platform/portable/raster_sheet.h"

namespace pn10::portable {

EllipseWalk::EllipseWalk(int64_t width, int64_t height)
    : width_(width), height_(height), last_(-1), end_(height), byEquation_(width > kExact || height > kExact) {
  const int64_t a = width - 1, b = height - 1, odd = b & 1;
  left_ = 0;
  right_ = a;
  row_ = (b + 1) / 2;
  if (width <= 0 || height <= 0 || byEquation_) {
    dx_ = dy_ = error_ = stepX_ = stepY_ = 0;
    if (width <= 0 || height <= 0) last_ = height;
    return;
  }
  dx_ = 4 * (1 - a) * b * b;
  dy_ = 4 * (odd + 1) * a * a;
  error_ = dx_ + dy_ + odd * a * a;
  stepX_ = 8 * b * b;
  stepY_ = 8 * a * a;
}

void EllipseWalk::onlyRows(int64_t low, int64_t high) {
  if (!byEquation_ || last_ >= height_) return;
  const int64_t up = height_ - 1 - row_; /* the upper row of the first pair; each pair lies one further out */
  row_ += std::max({int64_t{0}, low - row_, up - high + 1});
  end_ = std::min(height_, std::max(high, height_ - low));
}

/**
 * The outermost column of the outline in a row below the middle, by the equation: the nearest column where the curve
 * is steep, the first column whose nearest row this is where it is flat.
 */
int64_t EllipseWalk::farColumn(int64_t row) const {
  const double radiusX = static_cast<double>(width_ - 1) / 2, radiusY = static_cast<double>(height_ - 1) / 2;
  const auto column = [&](double y) {
    const double part = radiusY > 0 ? (y - radiusY) / radiusY : 0;
    return radiusX - (part * part < 1 ? radiusX * std::sqrt(1 - part * part) : 0);
  };
  const double y = static_cast<double>(row), at = column(y), before = y - 0.5 > radiusY ? column(y - 0.5) : 0;
  const double nearest = at - before > 0.5 ? std::ceil(before) : std::ceil(at - 0.5);
  return std::min(static_cast<int64_t>(nearest), (width_ - 1) / 2);
}

bool EllipseWalk::next() {
  if (last_ >= height_ - 1) return false;
  if (byEquation_) {
    if (row_ >= end_) return false;
    outer = farColumn(row_);
    inner = row_ + 1 < height_ ? std::max(outer, farColumn(row_ + 1) - 1) : (width_ - 1) / 2;
    last_ = row_++;
  } else if (left_ <= right_) {
    last_ = row_;
    outer = left_;
    for (bool up = false; !up && left_ <= right_;) {
      inner = left_;
      const int64_t twice = 2 * error_;
      up = twice <= dy_;
      if (twice >= dx_) left_++, right_--, dx_ += stepX_, error_ += dx_;
      if (up) row_++, dy_ += stepY_, error_ += dy_;
    }
  } else { /* a slender figure whose sides met early: its tips reach the edge of the box all the same */
    last_++;
    outer = inner = (width_ - 1) / 2;
  }
  lower = last_;
  upper = height_ - 1 - last_;
  return true;
}

namespace {

/** The outline of a one-pixel pen. */
void paintOutline(const Canvas& canvas, const Ink& ink, int64_t left, int64_t top, int64_t width, int64_t height) {
  EllipseWalk walk(width, height);
  walk.onlyRows(canvas.clip.top - top, canvas.clip.bottom - top);
  const auto row = [&](int64_t y) {
    const int64_t right = left + width - walk.outer, innerRight = left + width - 1 - walk.inner;
    if (innerRight <= left + walk.inner + 1) return paintSpan(canvas, ink, y, left + walk.outer, right);
    paintSpan(canvas, ink, y, left + walk.outer, left + walk.inner + 1);
    paintSpan(canvas, ink, y, innerRight, right);
  };
  while (walk.next()) {
    row(top + walk.upper);
    if (walk.lower != walk.upper) row(top + walk.lower);
  }
}

/**
 * The ring of a wide pen centred on the outline of a circle: what lies in the outer circle and not in the hole.
 * Both have the same middle, so their rows pair up from there outward.
 */
void paintRing(const Canvas& canvas, const Stroke& stroke, int64_t left, int64_t top, int64_t size) {
  const int64_t reach = stroke.width / 2, wide = size - 1 + stroke.width, hole = size - 1 - stroke.width;
  left -= reach;
  top -= reach;
  EllipseWalk outside(wide, wide), inside(hole, hole);
  outside.onlyRows(canvas.clip.top - top, canvas.clip.bottom - top);
  inside.onlyRows(canvas.clip.top - top - stroke.width, canvas.clip.bottom - top - stroke.width);
  bool open = hole > 0 && inside.next();
  const auto row = [&](int64_t y, bool ring) {
    const int64_t from = left + outside.outer, to = left + wide - outside.outer;
    if (!ring) return paintSpan(canvas, stroke.ink, y, from, to);
    paintSpan(canvas, stroke.ink, y, from, left + stroke.width + inside.outer);
    paintSpan(canvas, stroke.ink, y, left + stroke.width + hole - inside.outer, to);
  };
  while (outside.next()) {
    while (open && inside.lower + stroke.width < outside.lower) open = inside.next();
    const bool ring = open && inside.lower + stroke.width == outside.lower;
    row(top + outside.upper, ring);
    if (outside.lower != outside.upper) row(top + outside.lower, ring);
  }
}

constexpr int64_t kStamped = 256; /* pens up to this width are stamped along outlines that are no circles */

/** A wide pen's dot on every pixel of the outline, whole runs of them at once. */
void stampOutline(const Canvas& canvas, const Stroke& stroke, int64_t left, int64_t top, int64_t width,
                  int64_t height) {
  const int64_t pen = stroke.width, reach = pen / 2;
  int64_t dot[kStamped]; /* how far each row of the dot is drawn in */
  EllipseWalk round(pen, pen);
  while (round.next()) dot[round.upper] = dot[round.lower] = round.outer;
  Sheet sheet(canvas, stroke.ink);
  EllipseWalk walk(width, height);
  walk.onlyRows(canvas.clip.top - top - pen, canvas.clip.bottom - top + pen);
  while (walk.next()) {
    const int64_t first = left - reach + walk.outer, last = left - reach + walk.inner;
    const int64_t mirroredFirst = left - reach + width - 1 - walk.inner,
                  mirroredLast = left - reach + width - 1 - walk.outer;
    for (int64_t y : {walk.upper, walk.lower}) {
      for (int64_t j = 0; j < pen; j++) {
        sheet.span(top - reach + y + j, first + dot[j], last + pen - dot[j]);
        sheet.span(top - reach + y + j, mirroredFirst + dot[j], mirroredLast + pen - dot[j]);
      }
    }
  }
}

}  // namespace

void paintEllipse(const Canvas& canvas, const PaintState& state, const RECT& box) {
  if (canvas.empty()) return;
  const Stroke stroke = strokeOf(state);
  const RECT figure = strokedBox(*state.pen, box);
  const int64_t left = figure.left, top = figure.top;
  int64_t width = int64_t{figure.right} - left, height = int64_t{figure.bottom} - top;
  if (width <= 0 || height <= 0 || (width == 1 && height == 1)) return;
  if (isNullPen(*state.pen) && width == 2 && height == 2) width = height = 1; /* kept: one pixel without a pen */
  const Fill fill = fillOf(state);
  if (fill.visible) {
    ellipseSpans(left, top, width, height, canvas.clip,
                 [&](int64_t y, int64_t from, int64_t to) { fillSpan(canvas, fill, y, from, to); });
  }
  if (stroke.kind == Stroke::kNone) return;
  const bool dashed = stroke.dashes.count > 0;
  if (stroke.kind == Stroke::kThin && !dashed) return paintOutline(canvas, stroke.ink, left, top, width, height);
  if (width == height && !dashed) return paintRing(canvas, stroke, left, top, width);
  if (stroke.width <= kStamped && !dashed) return stampOutline(canvas, stroke, left, top, width, height);
  strokeEllipse(canvas, stroke, figure);
}

}  // namespace pn10::portable
