/**
 * Text on a raster: the opaque cell, the glyphs from the cache, the underline.
 *
 * Text ignores the raster operation of pens; it covers what is below it.
 */
#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include "platform/portable/faces.h"
#include "platform/portable/glyphs.h"

namespace pn10::portable {

namespace {

constexpr double kFar = 1e8; /* nothing beyond is visible on any raster */

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
  /** Mixes the ink in, for a coverage of 0 to 255. */
  void mix(uint32_t& pixel, uint32_t coverage) const {
    const uint32_t a = coverage + (coverage >> 7); /* 0 ... 256 */
    const uint32_t rb = ((color & 0xFF00FF) * a + (pixel & 0xFF00FF) * (256 - a)) >> 8 & 0xFF00FF;
    const uint32_t g = ((color & 0xFF00) * a + (pixel & 0xFF00) * (256 - a)) >> 8 & 0xFF00;
    pixel = rb | g;
  }
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

void paintRuns(const Ink& ink, const Glyph& glyph, int32_t x, int32_t y) {
  const RECT& c = ink.clip;
  const bool inside = x >= c.left && y >= c.top && x + glyph.width <= c.right && y + glyph.height <= c.bottom;
  for (const InkRun *run = glyph.runs, *end = run + glyph.runCount; run < end; run++) {
    if (inside) {
      uint32_t* p = ink.at(x + run->x, y + run->y);
      for (int16_t n = run->count; n; n--) *p++ = ink.color;
    } else {
      ink.span(y + run->y, x + run->x, x + run->x + run->count);
    }
  }
}

void paintCoverage(const Ink& ink, const Glyph& glyph, int32_t x, int32_t y) {
  const int32_t left = std::max(x, ink.clip.left), right = std::min(x + glyph.width, ink.clip.right);
  const int32_t top = std::max(y, ink.clip.top), bottom = std::min(y + glyph.height, ink.clip.bottom);
  for (int32_t row = top; row < bottom; row++) {
    const uint8_t* coverage = glyph.coverage + ptrdiff_t{row - y} * glyph.width + (left - x);
    uint32_t* p = left < right ? ink.at(left, row) : nullptr;
    for (int32_t n = right - left; n > 0; n--, p++, coverage++) {
      if (*coverage == 255) {
        *p = ink.color;
      } else if (*coverage) {
        ink.mix(*p, *coverage);
      }
    }
  }
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
      if (target.mono || s->coverage == 255) {
        *ink.at(x, y) = ink.color;
      } else {
        ink.mix(*ink.at(x, y), s->coverage);
      }
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

void paintGlyphs(const Ink& ink, const TextRun& run) {
  FontData& font = *run.font;
  const double angle = run.escapement * std::numbers::pi / 1800;
  const double stepX = run.escapement ? std::cos(angle) : 1, stepY = run.escapement ? -std::sin(angle) : 0;
  int64_t along = 0;
  for (int32_t i = 0; i < run.count; i++) {
    const double x = run.originX + static_cast<double>(along) * stepX;
    const double y = run.originY + static_cast<double>(along) * stepY;
    along += advanceOf(font, run.text[i]);
    if (std::fabs(x) > kFar || std::fabs(y) > kFar) continue;
    const auto penX = static_cast<int32_t>(std::floor(x + 0.5)), penY = static_cast<int32_t>(std::floor(y + 0.5));
    if (penX - 2 * font.em > ink.clip.right && !run.escapement) break;
    if (font.em > kLargestKeptEm) {
      paintOutline(ink, font, run.text[i], penX, penY);
      continue;
    }
    const Glyph& glyph = glyphOf(font, run.text[i]);
    if (glyph.runs) {
      paintRuns(ink, glyph, penX + glyph.left, penY + glyph.top);
    } else if (glyph.coverage) {
      paintCoverage(ink, glyph, penX + glyph.left, penY + glyph.top);
    }
  }
}

}  // namespace

void underlineCorners(const TextRun& run, double (&x)[4], double (&y)[4]) {
  const double angle = run.escapement * std::numbers::pi / 1800;
  const double cosine = run.escapement ? std::cos(angle) : 1, sine = run.escapement ? std::sin(angle) : 0;
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
