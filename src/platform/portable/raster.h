/** Parts of the raster painter: the visible canvas, inks and spans, and one function per kind of mark. */
#ifndef PN10_PLATFORM_PORTABLE_RASTER_H
#define PN10_PLATFORM_PORTABLE_RASTER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/portable/painter.h"

namespace pn10::portable {

/** The pixels that may be changed: a raster and the half-open rectangle of it that is visible. */
struct Canvas {
  uint32_t* pixels;
  ptrdiff_t stride;
  RECT clip;

  Canvas(const Raster& raster, const RECT& visible)
      : pixels(raster.pixels),
        stride(raster.stride),
        clip{std::max(visible.left, 0), std::max(visible.top, 0), std::min(visible.right, raster.width),
             std::min(visible.bottom, raster.height)} {}
  bool empty() const { return clip.left >= clip.right || clip.top >= clip.bottom; }
  bool contains(POINT p) const { /* an unsigned difference is small only inside */
    const auto inside = [](LONG v, LONG low, LONG high) {
      return static_cast<uint32_t>(v) - static_cast<uint32_t>(low) < static_cast<uint32_t>(high - low);
    };
    return (int{inside(p.x, clip.left, clip.right)} & int{inside(p.y, clip.top, clip.bottom)}) != 0;
  }
  uint32_t* at(int64_t x, int64_t y) const { return pixels + static_cast<ptrdiff_t>(y) * stride + x; }
};

/**
 * A colour under a binary raster operation: pixel = (pixel & keep) ^ flip.
 *
 * Every one of the sixteen operations is of this form once the colour is fixed: each bit of the pixel is kept,
 * inverted, cleared or set. keep == 0 is a plain store.
 */
struct Ink {
  uint32_t keep, flip;

  bool stores() const { return keep == 0; }
  bool nothing() const { return keep == 0xFFFFFF && flip == 0; }
  /** False when painting a pixel twice differs from painting it once. */
  bool repeatable() const { return (keep & flip) == 0; }
  void apply(uint32_t& pixel) const { pixel = (pixel & keep) ^ flip; }
};
Ink combiningInk(int rop2, uint32_t rgb);
inline Ink inkOf(int rop2, uint32_t rgb) { return rop2 == R2_COPYPEN ? Ink{0, rgb} : combiningInk(rop2, rgb); }

/** Paints the columns left <= x < right of a row, as far as visible. */
inline void paintSpan(const Canvas& canvas, const Ink& ink, int64_t y, int64_t left, int64_t right) {
  if (y < canvas.clip.top || y >= canvas.clip.bottom) return;
  left = std::max<int64_t>(left, canvas.clip.left);
  right = std::min<int64_t>(right, canvas.clip.right);
  if (left >= right) return;
  uint32_t* p = canvas.at(left, y);
  uint32_t* const end = p + (right - left);
  if (ink.stores()) {
    for (; p != end; p++) *p = ink.flip;
  } else {
    for (; p != end; p++) ink.apply(*p);
  }
}

/** What a brush does to a span: one ink, or the lines of a hatch and, when the background is opaque, its gaps. */
struct Fill {
  bool visible = false;
  Ink ink{};
  int32_t hatch = -1; /* HS_HORIZONTAL ... HS_DIAGCROSS, -1 solid */
  bool gaps = false;
  Ink gapInk{};
};
Fill fillOf(const PaintState& state);
void fillSpan(const Canvas& canvas, const Fill& fill, int64_t y, int64_t left, int64_t right);

/** On and off lengths that repeat; `count` is even, an empty pattern is a line without gaps. */
struct DashPattern {
  int32_t count = 0;
  int64_t lengths[32];
  int64_t total = 0;
};

/** A pen made ready for a figure. */
struct Stroke {
  enum Kind { kNone, kThin, kWide } kind = kNone;
  Ink ink{};
  int64_t width = 1;
  DWORD cap = PS_ENDCAP_ROUND;
  bool endPixel = false; /* thin geometric pens paint the last pixel of a slope */
  bool paintsGaps = false;
  Ink gapInk{};
  DashPattern dashes;
};
Stroke strokeOf(const PaintState& state);
void setDashes(Stroke& stroke, const PenData& pen);

/* One-pixel lines. */
/** One line without its end pixel, or with it when `endPixel` and the line slopes. */
void thinLine(const Canvas& canvas, const Ink& ink, POINT from, POINT to, bool endPixel);
/** A run of lines that meet; each joint once, a dash pattern runs on through them. */
void thinChain(const Canvas& canvas, const Stroke& stroke, const POINT* points, size_t count, bool closed);

/** A vertex of a wide line; `smooth` inside a flattened curve, where the join is no corner. */
struct StrokePoint {
  double x, y;
  bool smooth;
};
/** Strokes one figure with a wide pen, each pixel once. */
void wideStroke(const Canvas& canvas, const Stroke& stroke, const StrokePoint* points, size_t count, bool closed);
void wideStroke(const Canvas& canvas, const Stroke& stroke, const POINT* points, size_t count, bool closed);

/** Strokes with whatever pen. */
inline void strokePoints(const Canvas& canvas, const Stroke& stroke, const POINT* points, size_t count, bool closed) {
  if (stroke.kind == Stroke::kThin) thinChain(canvas, stroke, points, count, closed);
  if (stroke.kind == Stroke::kWide) wideStroke(canvas, stroke, points, count, closed);
}

/** A set of closed contours filled together; `figureEnds[i]` is the index after the last point of contour i. */
void fillPolygons(const Canvas& canvas, const Fill& fill, int mode, const POINT* points, const size_t* figureEnds,
                  size_t figures);

void paintEllipse(const Canvas& canvas, const PaintState& state, const RECT& box);
void paintPie(const Canvas& canvas, const PaintState& state, const PieShape& pie);
void paintPath(const Canvas& canvas, const PaintState& state, const Path& path, bool stroke, bool fill);
void paintBlit(const Canvas& canvas, const PaintState& state, const Blit& blit);

}  // namespace pn10::portable

#endif
