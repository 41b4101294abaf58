/**
 * Block transfers with stretching, mirroring and the raster operations of source and destination.
 *
 * Per axis, destination place i takes the source place under its middle when growing (ties to the smaller) and the
 * last source place that falls on it when shrinking; the stretch modes 1 and 2 combine all that fall on it instead.
 */
#include <cstring>

#include "platform/memory.h"
#include "platform/portable/raster.h"

namespace pn10::portable {

namespace {

/** One axis of a transfer. A negative extent runs from its origin the other way. */
struct Axis {
  int64_t to, from;       /* origins */
  uint64_t places, parts; /* destination and source extents */
  bool toBack, fromBack;
  int64_t first, end; /* visible places */

  Axis(int32_t target, int32_t extent, int32_t source, int32_t sourceExtent, int32_t low, int32_t high)
      : to(target),
        from(source),
        places(magnitude(extent)),
        parts(magnitude(sourceExtent)),
        toBack(extent < 0),
        fromBack(sourceExtent < 0) {
    first = std::max<int64_t>(toBack ? to - (high - 1) : low - to, 0);
    end = std::min<int64_t>(toBack ? to - low + 1 : high - to, static_cast<int64_t>(places));
  }
  static uint64_t magnitude(int64_t v) { return static_cast<uint64_t>(v < 0 ? -v : v); }
  bool shrinks() const { return places < parts; }
  bool plain() const { return places == parts && toBack == fromBack; }
  int64_t target(int64_t i) const { return toBack ? to - i : to + i; }
  int64_t source(int64_t part) const { return fromBack ? from - part : from + part; }
  /** The source part of place i. */
  int64_t part(int64_t i) const {
    const uint64_t n = static_cast<uint64_t>(i), twice = 2 * places;
    if (shrinks()) return static_cast<int64_t>((2 * (n + 1) * parts - places) / twice);
    return static_cast<int64_t>(((2 * n + 1) * parts + twice - 1) / twice) - 1;
  }
  /** All source parts that fall on place i. */
  int64_t firstPart(int64_t i) const { return shrinks() && i ? part(i - 1) + 1 : shrinks() ? 0 : part(i); }
};

/** A raster operation of source and destination: the sum of the four products that its code names. */
class Combine {
 public:
  Combine(DWORD rop, uint32_t pattern) {
    const uint32_t code = rop >> 16 & 0xFF;
    for (uint32_t i = 0; i < 4; i++) {
      parts_[i] = (code >> (i + 4) & 1 ? pattern : 0) | (code >> i & 1 ? ~pattern : 0);
    }
    copies_ = code == (SRCCOPY >> 16);
  }
  bool copies() const { return copies_; }
  void apply(uint32_t& d, uint32_t s) const {
    d = ((parts_[0] & ~s & ~d) | (parts_[1] & ~s & d) | (parts_[2] & s & ~d) | (parts_[3] & s & d)) & 0xFFFFFF;
  }

 private:
  uint32_t parts_[4]; /* bit 0 of the index: destination, bit 1: source */
  bool copies_;
};

uint32_t pixelOf(const Raster& r, int64_t x, int64_t y) { return r.pixels[static_cast<ptrdiff_t>(y) * r.stride + x]; }

/** Pixel for pixel, rows and columns in order. */
void transferPlain(const Canvas& canvas, const Raster& source, const Axis& h, const Axis& v, const Combine& combine) {
  const int64_t sourceLeft = h.fromBack ? h.from - static_cast<int64_t>(h.parts) + 1 : h.from;
  const int64_t targetLeft = h.toBack ? h.to - static_cast<int64_t>(h.places) + 1 : h.to;
  const int64_t left = std::max<int64_t>({canvas.clip.left, targetLeft, targetLeft - sourceLeft});
  const int64_t right = std::min<int64_t>(
      {canvas.clip.right, targetLeft + static_cast<int64_t>(h.places), targetLeft - sourceLeft + source.width});
  if (left >= right) return;
  for (int64_t i = v.first; i < v.end; i++) {
    const int64_t row = v.source(v.part(i));
    if (row < 0 || row >= source.height) continue;
    const uint32_t* s = source.pixels + static_cast<ptrdiff_t>(row) * source.stride + (left - targetLeft + sourceLeft);
    uint32_t* d = canvas.at(left, v.target(i));
    for (int64_t n = right - left; n; n--, s++, d++) {
      if (combine.copies()) {
        *d = *s & 0xFFFFFF;
      } else {
        combine.apply(*d, *s);
      }
    }
  }
}

/** Stretched or mirrored, one source pixel each. */
void transferStretched(const Canvas& canvas, const Raster& source, const Axis& h, const Axis& v,
                       const Combine& combine) {
  Buffer<int64_t> columns; /* source column of each visible place */
  if (h.first >= h.end || !columns.resize(static_cast<size_t>(h.end - h.first))) return;
  for (int64_t i = h.first; i < h.end; i++) columns[static_cast<size_t>(i - h.first)] = h.source(h.part(i));
  for (int64_t j = v.first; j < v.end; j++) {
    const int64_t row = v.source(v.part(j));
    if (row < 0 || row >= source.height) continue;
    for (int64_t i = h.first; i < h.end; i++) {
      const int64_t column = columns[static_cast<size_t>(i - h.first)];
      if (column < 0 || column >= source.width) continue;
      combine.apply(*canvas.at(h.target(i), v.target(j)), pixelOf(source, column, row));
    }
  }
}

/** The parts first ... last of an axis, held to those that lie inside a source of `size`. */
void holdParts(const Axis& axis, int64_t size, int64_t& first, int64_t& last) {
  first = std::max(first, axis.fromBack ? axis.from - size + 1 : -axis.from);
  last = std::min(last, axis.fromBack ? axis.from : size - 1 - axis.from);
}

/** Shrunk with all pixels that fall on one place combined: by AND (darkest wins) or by OR. */
void transferCombined(const Canvas& canvas, const Raster& source, const Axis& h, const Axis& v, const Combine& combine,
                      bool byAnd) {
  for (int64_t j = v.first; j < v.end; j++) {
    int64_t rowFirst = v.firstPart(j), rowLast = v.part(j);
    holdParts(v, source.height, rowFirst, rowLast);
    for (int64_t i = h.first; i < h.end; i++) {
      int64_t first = h.firstPart(i), last = h.part(i);
      holdParts(h, source.width, first, last);
      if (first > last || rowFirst > rowLast) continue;
      uint32_t sum = byAnd ? 0xFFFFFF : 0;
      for (int64_t y = rowFirst; y <= rowLast; y++) {
        for (int64_t x = first; x <= last; x++) {
          const uint32_t pixel = pixelOf(source, h.source(x), v.source(y));
          sum = byAnd ? sum & pixel : sum | pixel;
        }
      }
      combine.apply(*canvas.at(h.target(i), v.target(j)), sum);
    }
  }
}

/** A copy of a source that is also the destination, so that nothing is read after it was painted. */
bool copySource(const Raster& source, Buffer<uint32_t>& pixels, Raster& copy) {
  const size_t width = static_cast<size_t>(source.width);
  if (!pixels.resize(width * static_cast<size_t>(source.height))) return false;
  for (int32_t y = 0; y < source.height; y++) {
    std::memcpy(pixels.data() + width * static_cast<size_t>(y), source.pixels + y * source.stride,
                width * sizeof(uint32_t));
  }
  copy = {pixels.data(), source.width, source.height, source.width};
  return true;
}

}  // namespace

void paintBlit(const Canvas& canvas, const PaintState& state, const Blit& blit) {
  if (canvas.empty() || !blit.width || !blit.height || !blit.sourceWidth || !blit.sourceHeight) return;
  const RECT& c = canvas.clip;
  const Axis h(blit.x, blit.width, blit.sourceX, blit.sourceWidth, c.left, c.right);
  const Axis v(blit.y, blit.height, blit.sourceY, blit.sourceHeight, c.top, c.bottom);
  Raster source = blit.source;
  if (!source.pixels || source.width <= 0 || source.height <= 0) return;
  Buffer<uint32_t> copied;
  if (source.pixels == canvas.pixels && !copySource(blit.source, copied, source)) return;
  const Combine combine(blit.rop, paintedColor(state.brush->color));
  const bool combines = state.stretchMode == BLACKONWHITE || state.stretchMode == WHITEONBLACK;
  if (h.plain() && v.places == v.parts) return transferPlain(canvas, source, h, v, combine);
  if (combines && (h.shrinks() || v.shrinks())) {
    return transferCombined(canvas, source, h, v, combine, state.stretchMode == BLACKONWHITE);
  }
  transferStretched(canvas, source, h, v, combine);
}

}  // namespace pn10::portable
