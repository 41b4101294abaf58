/**
 * Text on a raster: the opaque cell, the glyphs from the cache, the underline.
 *
 * Text ignores the raster operation of pens; it covers what is below it.
 */
#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include "platform/portable/faces.h"
#include "platform/portable/glyphs.h"

namespace pn10::portable {

namespace {

constexpr double kFar = 1e8; /* nothing beyond is visible on any raster */
constexpr int64_t kFarthestAlong = 400000000;

/** The visible part of a raster and the ink. */
struct Ink {
  uint32_t* pixels;
  ptrdiff_t stride;
  RECT clip;
  uint32_t color;

  uint32_t* at(int32_t x, int32_t y) const { return pixels + y * stride + x; }
  void span(int32_t y, int64_t left, int64_t right) const {
    if (y < clip.top || y >= clip.bottom) return;
    const auto from = static_cast<int32_t>(std::max<int64_t>(left, clip.left));
    const auto to = static_cast<int32_t>(std::min<int64_t>(right, clip.right));
    if (from < to) std::fill(at(from, y), at(to, y), color);
  }
  /** Mixes 0 to 256 parts of ink into a pixel: the three channels side by side in one multiplication. */
  void mix(uint32_t& pixel, uint32_t parts) const {
    const uint64_t mixed = (spread(color) * parts + spread(pixel) * (256 - parts)) >> 8;
    pixel = static_cast<uint32_t>(mixed & 0xFF00FF) | static_cast<uint32_t>(mixed >> 24 & 0xFF00);
  }
  static uint64_t spread(uint32_t c) { return (c & 0xFF00FF) | uint64_t{c & 0xFF00} << 24; }
};

/** Fills a turned rectangle: the points of whole coordinates inside, left and top edges in, others out. */
void fillTurned(const Ink& ink, const double (&x)[4], const double (&y)[4]) {
  const double lowest = *std::max_element(y, y + 4), highest = *std::min_element(y, y + 4);
  if (!(lowest > ink.clip.top) || !(highest < ink.clip.bottom)) return;
  const auto first = static_cast<int32_t>(std::max(std::ceil(highest), double(ink.clip.top)));
  const auto end = static_cast<int32_t>(std::min(std::ceil(lowest), double(ink.clip.bottom)));
  for (int32_t row = first; row < end; row++) {
    double left = kFar, right = -kFar;
    for (int i = 0; i < 4; i++) {
      const int j = (i + 1) & 3;
      if ((y[i] <= row) == (y[j] <= row)) continue;
      const double cross = x[i] + (x[j] - x[i]) * (row - y[i]) / (y[j] - y[i]);
      left = std::min(left, cross);
      right = std::max(right, cross);
    }
    if (left >= right) continue;
    const double from = std::clamp(std::ceil(left), double(ink.clip.left), double(ink.clip.right));
    const double to = std::clamp(std::ceil(right), double(ink.clip.left), double(ink.clip.right));
    ink.span(row, static_cast<int64_t>(from), static_cast<int64_t>(to));
  }
}

void paintRuns(const Ink& ink, const Glyph& glyph, int32_t x, int32_t y, bool inside) {
  for (const InkRun *run = glyph.runs, *end = run + glyph.count; run < end; run++) {
    if (inside) {
      uint32_t* p = ink.at(x + run->x, y + run->y);
      for (int16_t n = run->count; n; n--) *p++ = ink.color;
    } else {
      ink.span(y + run->y, x + run->x, x + run->x + run->count);
    }
  }
}

void paintGrey(const Ink& ink, const Glyph& glyph, int32_t x, int32_t y, bool inside) {
  const RECT& c = ink.clip;
  for (const GreyPixel *pixel = glyph.pixels, *end = pixel + glyph.count; pixel < end; pixel++) {
    const int32_t column = x + pixel->x, row = y + pixel->y;
    if (inside || (column >= c.left && column < c.right && row >= c.top && row < c.bottom)) {
      ink.mix(*ink.at(column, row), pixel->ink);
    }
  }
}

void paintGlyph(const Ink& ink, const Glyph& glyph, int32_t x, int32_t y) {
  const RECT& c = ink.clip;
  const int32_t right = x + glyph.width, bottom = y + glyph.height;
  if (x >= c.right || y >= c.bottom || right <= c.left || bottom <= c.top) return;
  const bool inside = x >= c.left && y >= c.top && right <= c.right && bottom <= c.bottom;
  if (glyph.runs) paintRuns(ink, glyph, x, y, inside);
  if (glyph.pixels) paintGrey(ink, glyph, x, y, inside);
}

/** Where the spans of a large outline go. */
struct OutlineTarget {
  const Ink* ink;
  int32_t x, y;
  bool mono;
};

void paintSpans(int row, int count, const FT_Span* spans, void* user) {
  const auto& target = *static_cast<const OutlineTarget*>(user);
  const Ink& ink = *target.ink;
  const int32_t y = target.y - 1 - row;
  if (y < ink.clip.top || y >= ink.clip.bottom) return;
  for (const FT_Span* s = spans; s < spans + count; s++) {
    const int32_t from = std::max(target.x + s->x, ink.clip.left);
    const int32_t to = std::min(target.x + s->x + s->len, ink.clip.right);
    if (target.mono && s->coverage < 128) continue;
    for (int32_t x = from; x < to; x++) {
      ink.mix(*ink.at(x, y), target.mono ? 256 : s->coverage + uint32_t{s->coverage} / 128);
    }
  }
}

/** Paints a glyph too large to be kept: only its visible part is ever computed. */
void paintOutline(const Ink& ink, FontData& font, unsigned char character, int32_t x, int32_t y) {
  if (!loadOutline(font, character)) return;
  OutlineTarget target{&ink, x, y, font.mono};
  FT_Raster_Params params{};
  params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
  params.gray_spans = paintSpans;
  params.user = &target;
  params.clip_box = {ink.clip.left - x, y - ink.clip.bottom, ink.clip.right - x, y - ink.clip.top};
  FT_Outline_Render(fontLibrary(), &font.face->ft->glyph->outline, &params);
}

/** True when nothing of the run can be seen: its cell, an em wider all round, misses the clip. */
bool unseen(const TextRun& run, const RECT& clip) {
  const double margin = run.font->em + 2.0;
  const auto [left, right] = std::minmax_element(run.cellX, run.cellX + 4);
  const auto [top, bottom] = std::minmax_element(run.cellY, run.cellY + 4);
  return *right + margin < clip.left || *left - margin > clip.right || *bottom + margin < clip.top ||
         *top - margin > clip.bottom;
}

/** Calls `use` with each character of a run and its pen position in whole pixels. */
template <class Use>
void forEachPen(const TextRun& run, Use use) {
  FontData& font = *run.font;
  if (std::fabs(run.originX) > kFar || std::fabs(run.originY) > kFar) return;
  /* Positions in 2^20ths of a pixel, rounded half up. */
  constexpr int kShift = 20;
  constexpr double kOne = 1 << kShift;
  const auto startX = static_cast<int64_t>((run.originX + 0.5) * kOne);
  const auto startY = static_cast<int64_t>((run.originY + 0.5) * kOne);
  const auto stepX = static_cast<int64_t>(font.cosine * kOne), stepY = static_cast<int64_t>(-font.sine * kOne);
  int64_t along = 0;
  for (int32_t i = 0; i < run.count && along < kFarthestAlong; i++) {
    use(run.text[i], static_cast<int32_t>((startX + along * stepX) >> kShift),
        static_cast<int32_t>((startY + along * stepY) >> kShift));
    along += advanceOf(font, run.text[i]);
  }
}

/** Asks for the memory of all grey glyphs of a run at once: mixing reads it, row by row, far apart. */
void fetchAhead(const Ink& ink, const TextRun& run) {
  forEachPen(run, [&](unsigned char character, int32_t x, int32_t y) {
    const Glyph& glyph = glyphOf(*run.font, character);
    const int32_t left = std::clamp(x + glyph.left, ink.clip.left, ink.clip.right - 1);
    const int32_t bottom = std::min(y + glyph.top + glyph.height, ink.clip.bottom);
    for (int32_t row = std::max(y + glyph.top, ink.clip.top); row < bottom; row++) {
      __builtin_prefetch(ink.at(left, row), 1);
    }
  });
}

void paintGlyphs(const Ink& ink, const TextRun& run) {
  FontData& font = *run.font;
  const bool kept = font.em <= kLargestKeptEm;
  if (kept && !font.mono) fetchAhead(ink, run);
  forEachPen(run, [&](unsigned char character, int32_t x, int32_t y) {
    if (!kept) return paintOutline(ink, font, character, x, y);
    const Glyph& glyph = glyphOf(font, character);
    if (glyph.count) paintGlyph(ink, glyph, x + glyph.left, y + glyph.top);
  });
}

}  // namespace

void underlineCorners(const TextRun& run, double (&x)[4], double (&y)[4]) {
  const double cosine = run.font->cosine, sine = run.font->sine;
  const FaceMetrics& m = run.font->metrics;
  const double top = m.underlineTop, bottom = top + m.underlineThickness, right = run.width;
  const double corners[4][2] = {{0, top}, {right, top}, {right, bottom}, {0, bottom}};
  for (int i = 0; i < 4; i++) {
    x[i] = run.originX + corners[i][0] * cosine + corners[i][1] * sine;
    y[i] = run.originY - corners[i][0] * sine + corners[i][1] * cosine;
  }
}

void paintRasterText(const Raster& raster, const PaintState& state, const TextRun& run) {
  const RECT& c = state.clip;
  const RECT clip{std::max(c.left, 0), std::max(c.top, 0), std::min(c.right, raster.width),
                  std::min(c.bottom, raster.height)};
  if (clip.left >= clip.right || clip.top >= clip.bottom || unseen(run, clip)) return;
  if (state.bkMode == OPAQUE) {
    fillTurned({raster.pixels, raster.stride, clip, paintedColor(state.bkColor)}, run.cellX, run.cellY);
  }
  const Ink ink{raster.pixels, raster.stride, clip, paintedColor(state.textColor)};
  paintGlyphs(ink, run);
  if (!run.font->underline) return;
  double x[4], y[4];
  underlineCorners(run, x, y);
  fillTurned(ink, x, y);
}

}  // namespace pn10::portable
