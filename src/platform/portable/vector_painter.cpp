/** GDI marks as paths: pens with their dashes, shapes, cells of text and pictures. */
#include "platform/portable/vector_painter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/portable/arcs.h"
#include "platform/portable/far_points.h"
#include "platform/portable/glyphs.h"

namespace pn10::portable {

namespace {

constexpr Mixed kInversion{Blend::Difference, 0xFFFFFF};

double held(double value) { return std::clamp(value, -kFarthest, kFarthest); }

/**
 * Which colour a raster operation lays on, and how. Row n - 1 is operation n. Where the pen combines with the inverse
 * of what is below, that is inverted first: exact wherever AND and OR are.
 */
enum class Source : uint8_t { Pen, Inverse, Black, White };
struct RopRow {
  Blend blend;
  Source source;
  bool onInverse = false;
};
constexpr RopRow kRops[16] = {
    {Blend::Normal, Source::Black},          /* R2_BLACK */
    {Blend::Darken, Source::Inverse, true},  /* R2_NOTMERGEPEN */
    {Blend::Darken, Source::Inverse},        /* R2_MASKNOTPEN */
    {Blend::Normal, Source::Inverse},        /* R2_NOTCOPYPEN */
    {Blend::Darken, Source::Pen, true},      /* R2_MASKPENNOT */
    {Blend::Difference, Source::White},      /* R2_NOT */
    {Blend::Difference, Source::Pen},        /* R2_XORPEN */
    {Blend::Lighten, Source::Inverse, true}, /* R2_NOTMASKPEN */
    {Blend::Darken, Source::Pen},            /* R2_MASKPEN */
    {Blend::Difference, Source::Inverse},    /* R2_NOTXORPEN */
    {Blend::None, Source::Pen},              /* R2_NOP */
    {Blend::Lighten, Source::Inverse},       /* R2_MERGENOTPEN */
    {Blend::Normal, Source::Pen},            /* R2_COPYPEN */
    {Blend::Lighten, Source::Pen, true},     /* R2_MERGEPENNOT */
    {Blend::Lighten, Source::Pen},           /* R2_MERGEPEN */
    {Blend::Normal, Source::White},          /* R2_WHITE */
};

/** Dash patterns in pen widths (wide geometric pens) and in units (thin ones, and cosmetic ones). */
struct DashRow {
  int32_t count;
  double wide[6], thin[6], cosmetic[6];
};
constexpr DashRow kDashes[4] = {
    {2, {3, 1}, {3, 1}, {18, 6}},                                    /* PS_DASH */
    {2, {1, 1}, {1, 1}, {3, 3}},                                     /* PS_DOT */
    {4, {3, 1, 1, 1}, {3, 1, 1, 1}, {9, 6, 3, 6}},                   /* PS_DASHDOT */
    {6, {3, 1, 1, 1, 1, 1}, {3, 1, 1, 1, 1, 1}, {9, 3, 3, 3, 3, 3}}, /* PS_DASHDOTDOT */
};
constexpr double kCosmeticUnit = 3, kTraceOfDash = 0.01;

void setDashes(VectorStroke& stroke, const PenData& pen) {
  if (pen.style == PS_USERSTYLE) {
    stroke.dashCount = pen.count;
    const double unit = pen.geometric ? 1 : kCosmeticUnit;
    std::transform(pen.lengths, pen.lengths + pen.count, stroke.dashes, [=](DWORD n) { return held(n * unit); });
    return;
  }
  if (pen.style < PS_DASH || pen.style > PS_DASHDOTDOT) return;
  const DashRow& row = kDashes[pen.style - PS_DASH];
  stroke.dashCount = row.count;
  const bool wide = pen.geometric && pen.width > 1;
  const double* lengths = wide ? row.wide : pen.geometric ? row.thin : row.cosmetic;
  /* A wide pen's caps are taken out of the dashes, so that the visible lengths are those of the table. What is left
     of a dot is a trace, as readers of these files drop dashes of no length. */
  const double unit = wide ? stroke.width : 1, cap = wide && stroke.cap != PS_ENDCAP_FLAT ? stroke.width : 0;
  for (int32_t i = 0; i < row.count; i++) {
    stroke.dashes[i] = std::max(lengths[i] * unit + (i % 2 ? cap : -cap), kTraceOfDash * unit);
  }
}

void appendPoint(PathFigure& figure, double x, double y) {
  PathFigure::Piece piece{};
  piece.x3 = x;
  piece.y3 = y;
  figure.pieces.push_back(piece);
}

void setPoints(Path& path, const POINT* points, int32_t count, bool closed) {
  path.resize(1);
  PathFigure& figure = path[0];
  figure.startX = points[0].x;
  figure.startY = points[0].y;
  figure.closed = closed;
  figure.pieces.clear();
  for (int32_t i = 1; i < count; i++) appendPoint(figure, points[i].x, points[i].y);
}

/** Whether a pen marks a chain of points: one without any length only shows as the dot of a wide pen's round caps. */
bool marks(const PenData& pen, const POINT* points, int32_t count) {
  if (pen.width > 1 && pen.cap == PS_ENDCAP_ROUND) return count > 0;
  return std::any_of(points, points + count, [&](POINT p) { return p.x != points[0].x || p.y != points[0].y; });
}

RECT heldBox(const RECT& box) {
  const auto at = [](LONG v) { return static_cast<LONG>(held(v)); };
  return {at(box.left), at(box.top), at(box.right), at(box.bottom)};
}

Path quad(const double (&x)[4], const double (&y)[4]) {
  Path path(1);
  path[0].startX = held(x[0]);
  path[0].startY = held(y[0]);
  path[0].closed = true;
  for (int i = 1; i < 4; i++) appendPoint(path[0], held(x[i]), held(y[i]));
  return path;
}

/** One axis of a transfer cut to the source's bitmap: where the part inside lands, and where it lies. */
struct AxisPart {
  int64_t from, size; /* in the source */
  double left, right; /* on the page */
  bool mirrored;
};

AxisPart partInside(int32_t at, int32_t extent, int32_t source, int32_t sourceExtent, int32_t available) {
  const bool mirrored = (extent < 0) != (sourceExtent < 0);
  const int64_t places = std::llabs(int64_t{extent}), parts = std::llabs(int64_t{sourceExtent});
  const int64_t low = extent < 0 ? int64_t{at} - places + 1 : at;
  const int64_t first = sourceExtent < 0 ? int64_t{source} - parts + 1 : source;
  const int64_t begin = std::clamp<int64_t>(first, 0, available),
                end = std::clamp<int64_t>(first + parts, 0, available);
  AxisPart part{begin, end - begin, 0, 0, mirrored};
  if (part.size <= 0 || !places) return {begin, 0, 0, 0, mirrored};
  const double scale = double(places) / double(parts);
  const double left = double(begin - first) * scale, right = double(end - first) * scale;
  part.left = double(low) + (mirrored ? double(places) - right : left);
  part.right = double(low) + (mirrored ? double(places) - left : right);
  return part;
}

}  // namespace

Mixed mixedColor(int rop2, COLORREF color) {
  const RopRow row = kRops[(rop2 - 1) & 15];
  const uint32_t pen = paintedColor(color);
  switch (row.source) {
    case Source::Inverse:
      return {row.blend, ~pen & 0xFFFFFF, row.onInverse};
    case Source::Black:
      return {row.blend, 0};
    case Source::White:
      return {row.blend, 0xFFFFFF};
    case Source::Pen:
      break;
  }
  return {row.blend, pen, row.onInverse};
}

VectorStroke vectorStroke(const PaintState& state) {
  const PenData& pen = *state.pen;
  VectorStroke stroke{};
  const int32_t width = std::max(pen.width, 1);
  stroke.ink = mixedColor(state.rop2, pen.color);
  stroke.width = held(width);
  stroke.shift = width % 2 ? 0.5 : 0;
  stroke.cap = pen.cap;
  const bool dashed = pen.style == PS_USERSTYLE || (pen.style >= PS_DASH && pen.style <= PS_DASHDOTDOT);
  /* Caps do nothing for dashes of a thin pen; a thin solid line gets round ones so that a chain closes. */
  if (width == 1) stroke.cap = dashed ? PS_ENDCAP_FLAT : PS_ENDCAP_ROUND;
  setDashes(stroke, pen);
  stroke.gapsPainted = dashed && !pen.geometric && state.bkMode == OPAQUE;
  return stroke;
}

uint32_t hatchLines(int32_t hatch) {
  static constexpr uint32_t kLines[6] = {1, 2, 4, 8, 3, 12};
  return hatch >= 0 && hatch < 6 ? kLines[hatch] : 0;
}

void VectorPainter::layFill(const Path& path, bool winding, Mixed ink) {
  if (ink.onInverse) fillPath(path, winding, kInversion);
  fillPath(path, winding, ink);
}

void VectorPainter::layStroke(const Path& path, const VectorStroke& stroke) {
  if (stroke.ink.onInverse) {
    VectorStroke inversion = stroke;
    inversion.ink = kInversion;
    strokePath(path, inversion);
  }
  strokePath(path, stroke);
}

void VectorPainter::paint(const PaintState& state, const Path& fillShape, const Path& strokeShape, bool stroke,
                          bool fill) {
  setClip(state.clip);
  const BrushData& brush = *state.brush;
  const bool winding = state.fillMode == WINDING;
  if (fill && brush.style != BS_HOLLOW) {
    const Mixed ink = mixedColor(state.rop2, brush.color);
    if (brush.style == BS_HATCHED && hatchLines(brush.hatch)) {
      hatchPath(fillShape, winding, {brush.hatch, ink, state.bkMode == OPAQUE, mixedColor(state.rop2, state.bkColor)});
    } else if (ink.blend != Blend::None) {
      layFill(fillShape, winding, ink);
    }
  }
  if (!stroke || isNullPen(*state.pen)) return;
  VectorStroke pen = vectorStroke(state);
  if (pen.ink.blend == Blend::None) return;
  if (pen.gapsPainted) {
    VectorStroke ground = pen;
    ground.ink = mixedColor(state.rop2, state.bkColor);
    ground.dashCount = 0;
    layStroke(strokeShape, ground);
  }
  layStroke(strokeShape, pen);
}

void VectorPainter::line(const PaintState& state, POINT from, POINT to) {
  const POINT points[] = {from, to};
  polyline(state, points, 2);
}

void VectorPainter::polyline(const PaintState& state, const POINT* points, int32_t count) {
  if (!marks(*state.pen, points, count)) return;
  if (anyFar(points, count)) {
    scratch_ = sidesInside(points, count, false);
  } else {
    setPoints(scratch_, points, count, false);
  }
  paint(state, scratch_, scratch_, true, false);
}

void VectorPainter::polygon(const PaintState& state, const POINT* points, int32_t count) {
  if (!marks(*state.pen, points, count)) return;
  if (anyFar(points, count)) {
    return paint(state, areaInside(points, count), sidesInside(points, count, true), true, true);
  }
  setPoints(scratch_, points, count, true);
  paint(state, scratch_, scratch_, true, true);
}

void VectorPainter::ellipse(const PaintState& state, const RECT& box) {
  const RECT b = heldBox(strokedBox(*state.pen, box));
  const LONG width = b.right - b.left, height = b.bottom - b.top;
  if (width < 1 || height < 1 || (width < 2 && height < 2)) return;
  const Path outline(1, ellipseFigure(b, false));
  /* Without an outline the same area is filled: the box to its very edges. */
  const Path area(1, ellipseFigure({b.left, b.top, b.right + 1, b.bottom + 1}, false));
  paint(state, area, outline, true, true);
}

void VectorPainter::pie(const PaintState& state, const PieShape& pie) {
  if (pie.box.left >= pie.box.right || pie.box.top >= pie.box.bottom) return;
  PieShape inside = pie;
  inside.box = heldBox(strokedBox(*state.pen, pie.box));
  const Path shape(1, pieFigure(inside, false));
  paint(state, shape, shape, true, true);
}

void VectorPainter::path(const PaintState& state, const Path& path, bool stroke, bool fill) {
  paint(state, path, path, stroke, fill);
}

void VectorPainter::text(const PaintState& state, const TextRun& run) {
  setClip(state.clip);
  if (state.bkMode == OPAQUE) {
    fillPath(quad(run.cellX, run.cellY), false, {Blend::Normal, paintedColor(state.bkColor)});
  }
  const uint32_t color = paintedColor(state.textColor);
  if (std::fabs(run.originX) < kFarthest && std::fabs(run.originY) < kFarthest) glyphs(run, color);
  if (!run.font->underline) return;
  double x[4], y[4];
  underlineCorners(run, x, y);
  fillPath(quad(x, y), false, {Blend::Normal, color});
}

void VectorPainter::blit(const PaintState& state, const Blit& blit) {
  const AxisPart h = partInside(blit.x, blit.width, blit.sourceX, blit.sourceWidth, blit.source.width);
  const AxisPart v = partInside(blit.y, blit.height, blit.sourceY, blit.sourceHeight, blit.source.height);
  if (!h.size || !v.size) return;
  setClip(state.clip);
  const RECT box{roundToInt(held(h.left)), roundToInt(held(v.left)), roundToInt(held(h.right)),
                 roundToInt(held(v.right))};
  const Raster inside{blit.source.pixels + v.from * blit.source.stride + h.from, static_cast<int32_t>(h.size),
                      static_cast<int32_t>(v.size), blit.source.stride};
  const Blend blend = blit.rop == SRCAND      ? Blend::Darken
                      : blit.rop == SRCPAINT  ? Blend::Lighten
                      : blit.rop == SRCINVERT ? Blend::Difference
                                              : Blend::Normal;
  if (blit.rop != NOTSRCCOPY && blit.rop != NOTSRCERASE) {
    image(inside, box, h.mirrored, v.mirrored, blend);
    return;
  }
  /* NOT s: the picture turned round by white. NOT (s OR d) is NOT s AND NOT d: both turned, the darker stays. */
  Raster inverse{static_cast<uint32_t*>(std::malloc(static_cast<size_t>(h.size * v.size) * sizeof(uint32_t))),
                 inside.width, inside.height, inside.width};
  if (!inverse.pixels) return;
  for (int32_t y = 0; y < inside.height; y++) {
    std::transform(inside.pixels + y * inside.stride, inside.pixels + y * inside.stride + inside.width,
                   inverse.pixels + y * inverse.stride, [](uint32_t p) { return ~p & 0xFFFFFF; });
  }
  if (blit.rop == NOTSRCERASE) {
    const double x[4] = {double(box.left), double(box.right), double(box.right), double(box.left)};
    const double y[4] = {double(box.top), double(box.top), double(box.bottom), double(box.bottom)};
    fillPath(quad(x, y), false, kInversion);
  }
  image(inverse, box, h.mirrored, v.mirrored, blit.rop == NOTSRCERASE ? Blend::Darken : Blend::Normal);
  std::free(inverse.pixels);
}

}  // namespace pn10::portable
