/**
 * Wide lines: a body per side, round dots or other caps at the ends and round joins between.
 *
 * The body is the rectangle around its side, filled by the rule of polygons; a dot is the filled ellipse of the
 * pen's width. Even widths thus lie half a pixel up and left, and level or upright lines are exact.
 */
#include <cmath>

#include "platform/memory.h"
#include "platform/portable/raster_ellipse.h"
#include "platform/portable/raster_sheet.h"

namespace pn10::portable {

namespace {

struct Vector {
  double x, y;
};

/** Whole rows and columns only need to be right near the raster. */
int64_t whole(double v) { return static_cast<int64_t>(std::clamp(v, -1e15, 1e15)); }

/** Fills a convex figure; a side is computed alike whichever figure it belongs to, so neighbours leave no gap. */
void fillConvex(Sheet& sheet, const Vector* corners, int32_t count) {
  struct Side {
    double top, bottom, x, slope;
  } sides[4];
  int32_t used = 0;
  double top = INFINITY, bottom = -INFINITY;
  for (int32_t i = 0; i < count; i++) {
    Vector a = corners[i], b = corners[(i + 1) % count];
    if (a.y > b.y) std::swap(a, b);
    top = std::min(top, a.y);
    bottom = std::max(bottom, b.y);
    if (a.y < b.y) sides[used++] = {a.y, b.y, a.x, (b.x - a.x) / (b.y - a.y)};
  }
  const int64_t first = std::max<int64_t>(whole(std::ceil(top)), sheet.clip().top);
  const int64_t end = std::min<int64_t>(whole(std::ceil(bottom)), sheet.clip().bottom);
  for (int64_t y = first; y < end; y++) {
    double left = INFINITY, right = -INFINITY;
    const double row = static_cast<double>(y);
    for (int32_t i = 0; i < used; i++) {
      const Side& s = sides[i];
      if (row < s.top || row >= s.bottom) continue;
      const double x = s.x + (row - s.top) * s.slope;
      left = std::min(left, x);
      right = std::max(right, x);
    }
    if (left < right) sheet.span(y, whole(std::ceil(left)), whole(std::ceil(right)));
  }
}

/** One figure under a wide pen. */
class WideLine {
 public:
  WideLine(Sheet& sheet, const Stroke& stroke)
      : sheet_(sheet),
        stroke_(stroke),
        half_(static_cast<double>(stroke.width) / 2),
        reach_(stroke.cap == PS_ENDCAP_SQUARE ? static_cast<double>(stroke.width / 2) : 0) {}

  /** Paints the figure; neighbouring points differ, and so do the last and the first of a closed one. */
  void paint(const StrokePoint* points, size_t count, bool closed) {
    if (count == 1) {
      if (round()) dot(points[0].x, points[0].y);
      return;
    }
    const size_t sides = closed ? count : count - 1;
    Side first{}, previous{};
    for (size_t i = 0; i < sides; i++) {
      const Side side(points[i], points[i + 1 == count ? 0 : i + 1]);
      const bool starts = i == 0 && !closed, ends = i + 1 == sides && !closed;
      if (i && (!dashed() || dashCrosses(done_))) join(previous, side);
      if (dashed()) {
        dashes(side, ends);
      } else {
        body(side, 0, side.length, starts, ends);
      }
      if (!i) first = side;
      previous = side;
      done_ += side.length;
    }
    if (closed && (!dashed() || (dashCrosses(done_) && stroke_.dashes.lengths[0] > 0))) join(previous, first);
  }

 private:
  struct Side {
    StrokePoint from;
    Vector along; /* of length 1 */
    double length;

    Side() = default;
    Side(const StrokePoint& a, const StrokePoint& b) : from(a), length(std::hypot(b.x - a.x, b.y - a.y)) {
      along = {(b.x - a.x) / length, (b.y - a.y) / length};
    }
  };

  bool round() const { return stroke_.cap == PS_ENDCAP_ROUND; }
  bool dashed() const { return stroke_.dashes.count > 0; }

  /** The round cap and join: a filled ellipse at the nearest pixel. */
  void dot(double x, double y) {
    const int64_t width = stroke_.width;
    const int64_t left = whole(std::floor(x + 0.5)) - width / 2, top = whole(std::floor(y + 0.5)) - width / 2;
    const RECT& c = sheet_.clip();
    if (left >= c.right || top >= c.bottom || left + width <= c.left || top + width <= c.top) return;
    ellipseSpans(left, top, width, width, c,
                 [&](int64_t row, int64_t from, int64_t to) { sheet_.span(row, from, to); });
  }

  /** The rectangle around a side from one distance to another, with caps where a line or a dash ends. */
  void body(const Side& side, double from, double to, bool capFrom, bool capTo) {
    const StrokePoint& p = side.from;
    const Vector d = side.along, n{-d.y * half_, d.x * half_};
    if (round()) {
      if (capFrom) dot(p.x + d.x * from, p.y + d.y * from);
      if (capTo) dot(p.x + d.x * to, p.y + d.y * to);
    } else {
      if (capFrom) from -= reach_;
      if (capTo) to += reach_;
    }
    const Vector a{p.x + d.x * from, p.y + d.y * from}, b{p.x + d.x * to, p.y + d.y * to};
    const Vector corners[4] = {
        {a.x + n.x, a.y + n.y}, {b.x + n.x, b.y + n.y}, {b.x - n.x, b.y - n.y}, {a.x - n.x, a.y - n.y}};
    fillConvex(sheet_, corners, 4);
  }

  /** Corners are round; between the sides of a curve only a thin wedge is open. */
  void join(const Side& before, const Side& after) {
    const StrokePoint& p = after.from;
    const Vector a = before.along, b = after.along;
    if (!p.smooth || a.x * b.x + a.y * b.y < 0.9) return dot(p.x, p.y);
    for (const double half : {half_, -half_}) {
      const Vector wedge[3] = {{p.x, p.y}, {p.x - a.y * half, p.y + a.x * half}, {p.x - b.y * half, p.y + b.x * half}};
      fillConvex(sheet_, wedge, 3);
    }
  }

  /** The pattern's last start at or before a distance. */
  double roundStart(double distance) const {
    const double total = static_cast<double>(stroke_.dashes.total);
    return std::floor(distance / total) * total;
  }
  /** Whether a dash began before a distance and goes on after it. */
  bool dashCrosses(double distance) const {
    const DashPattern& d = stroke_.dashes;
    double start = roundStart(distance);
    for (int32_t entry = 0; entry < d.count; start += static_cast<double>(d.lengths[entry++])) {
      const double end = start + static_cast<double>(d.lengths[entry]);
      if (entry % 2 == 0 && start < distance && distance < end) return true;
    }
    return false;
  }

  /** The dashes of one side. One that runs on over a corner has caps only at its own two ends. */
  void dashes(const Side& side, bool lineEnds) {
    const DashPattern& d = stroke_.dashes;
    double low, high;
    seen(side, low, high);
    if (low > high) return;
    double from = roundStart(done_ + low) - done_;
    for (int32_t entry = 0; from <= high; entry = entry + 1 == d.count ? 0 : entry + 1) {
      const double to = from + static_cast<double>(d.lengths[entry]);
      const bool begins = from >= 0 && (from < side.length || lineEnds), goesOn = from < 0 && to > 0;
      if (entry % 2 == 0 && to >= low && (begins || goesOn)) {
        body(side, std::max(from, 0.0), std::min(to, side.length), begins, to <= side.length || lineEnds);
      }
      from = to;
    }
  }

  /** The part of a side, in distances from its start, that can touch the visible rectangle. */
  void seen(const Side& side, double& low, double& high) const {
    const RECT& c = sheet_.clip();
    const double margin = (round() ? half_ : reach_) + 1;
    low = INFINITY;
    high = -INFINITY;
    for (const LONG x : {c.left, c.right}) {
      for (const LONG y : {c.top, c.bottom}) {
        const double t = (x - side.from.x) * side.along.x + (y - side.from.y) * side.along.y;
        low = std::min(low, t);
        high = std::max(high, t);
      }
    }
    low = std::max(low - margin, 0.0);
    high = std::min(high + margin, side.length);
  }

  Sheet& sheet_;
  const Stroke& stroke_;
  const double half_, reach_;
  double done_ = 0; /* length of the sides before this one, for the pattern */
};

constexpr size_t kSmall = 64; /* figures up to here need no memory of their own */

bool same(const StrokePoint& a, const StrokePoint& b) { return a.x == b.x && a.y == b.y; }

/** Strokes points given by at(i), leaving out sides without length. */
template <class PointAt>
void strokeWide(const Canvas& canvas, const Stroke& stroke, size_t count, bool closed, PointAt at) {
  if (!count || canvas.empty()) return;
  StrokePoint few[kSmall];
  Buffer<StrokePoint> many;
  if (count > kSmall && !many.resize(count)) return;
  StrokePoint* const points = count > kSmall ? many.data() : few;
  size_t kept = 0;
  for (size_t i = 0; i < count; i++) {
    const StrokePoint p = at(i);
    if (kept && same(points[kept - 1], p)) {
      points[kept - 1].smooth = points[kept - 1].smooth && p.smooth;
    } else {
      points[kept++] = p;
    }
  }
  while (closed && kept > 1 && same(points[kept - 1], points[0])) kept--;
  Sheet sheet(canvas, stroke.ink);
  WideLine(sheet, stroke).paint(points, kept, closed);
}

}  // namespace

void wideStroke(const Canvas& canvas, const Stroke& stroke, const POINT* points, size_t count, bool closed) {
  strokeWide(canvas, stroke, count, closed, [points](size_t i) {
    return StrokePoint{static_cast<double>(points[i].x), static_cast<double>(points[i].y), false};
  });
}

void wideStroke(const Canvas& canvas, const Stroke& stroke, const StrokePoint* points, size_t count, bool closed) {
  strokeWide(canvas, stroke, count, closed, [points](size_t i) { return points[i]; });
}

}  // namespace pn10::portable
