/**
 * Short texts on an image context, as the labels of a map come.
 *
 * Reference in the same run: Cairo showing the same texts in the same face from its glyph cache, its arrays of glyphs
 * made beforehand.
 */
#include <benchmark/benchmark.h>
#include <cairo-ft.h>
#include <cairo.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <string>
#include <vector>

#include "exports/pn10platform.h"
#include "platform/gdi.h"

namespace {

constexpr int kWidth = 1600, kHeight = 1200, kTexts = 50000, kSize = 12;

struct Label {
  std::string text;
  int x, y;
};

/** Numbers with units and names, everywhere on the picture. */
const std::vector<Label>& labels() {
  static const std::vector<Label> all = [] {
    std::vector<Label> made;
    uint32_t seed = 7;
    const auto random = [&](int n) {
      seed = seed * 1664525 + 1013904223;
      return static_cast<int>((seed >> 8) % static_cast<uint32_t>(n));
    };
    for (int i = 0; i < kTexts; i++) {
      std::string text = i % 2 ? "N-" + std::to_string(random(100000)) : std::to_string(random(999)) + ".5 psig";
      made.push_back({text, random(kWidth - 80) + 10, random(kHeight - 40) + 20});
    }
    return made;
  }();
  return all;
}

/** An image context with a 12 pixel font. */
struct Sheet {
  HDC dc = PnCreateImageDC(kWidth, kHeight, 96, 0xFFFFFF);
  HFONT font;
  Sheet(BYTE quality, LONG escapement) {
    LOGFONTA f{};
    f.lfHeight = -kSize;
    f.lfWeight = 400;
    f.lfEscapement = escapement;
    f.lfQuality = quality;
    std::memcpy(f.lfFaceName, "Arial", 6);
    font = CreateFontIndirectA(&f);
    SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_BASELINE);
  }
  ~Sheet() {
    PnDeleteDC(dc);
    DeleteObject(font);
  }
};

void showTexts(benchmark::State& run, BYTE quality, LONG escapement) {
  const Sheet sheet(quality, escapement);
  for (auto _ : run) {
    for (const Label& l : labels()) TextOutA(sheet.dc, l.x, l.y, l.text.data(), static_cast<int>(l.text.size()));
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kTexts);
}

void showTextsByCairo(benchmark::State& run, cairo_antialias_t antialias, double degrees) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight);
  cairo_t* cairo = cairo_create(surface);
  cairo_set_source_rgb(cairo, 1, 1, 1);
  cairo_paint(cairo);
  cairo_set_source_rgb(cairo, 0, 0, 0);
  cairo_select_font_face(cairo, "Arial", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_matrix_t matrix;
  cairo_matrix_init_rotate(&matrix, -degrees * std::numbers::pi / 180);
  cairo_matrix_scale(&matrix, kSize, kSize);
  cairo_set_font_matrix(cairo, &matrix);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, antialias);
  cairo_set_font_options(cairo, options);
  cairo_font_options_destroy(options);
  cairo_scaled_font_t* font = cairo_get_scaled_font(cairo);
  std::vector<std::vector<cairo_glyph_t>> runs;
  for (const Label& l : labels()) {
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(font, l.x, l.y, l.text.data(), static_cast<int>(l.text.size()), &glyphs, &count,
                                     nullptr, nullptr, nullptr);
    runs.emplace_back(glyphs, glyphs + count);
    for (cairo_glyph_t& g : runs.back()) { /* whole pixels, as a map paints them */
      g.x = std::round(g.x);
      g.y = std::round(g.y);
    }
    cairo_glyph_free(glyphs);
  }
  for (auto _ : run) {
    for (const auto& glyphs : runs) cairo_show_glyphs(cairo, glyphs.data(), static_cast<int>(glyphs.size()));
    cairo_surface_flush(surface);
  }
  run.SetItemsProcessed(run.iterations() * kTexts);
  cairo_destroy(cairo);
  cairo_surface_destroy(surface);
}

void greyTexts(benchmark::State& run) { showTexts(run, 0, 0); }
void cairoGreyTexts(benchmark::State& run) { showTextsByCairo(run, CAIRO_ANTIALIAS_GRAY, 0); }
void inkTexts(benchmark::State& run) { showTexts(run, NONANTIALIASED_QUALITY, 0); }
void cairoInkTexts(benchmark::State& run) { showTextsByCairo(run, CAIRO_ANTIALIAS_NONE, 0); }
void turnedTexts(benchmark::State& run) { showTexts(run, 0, 300); }
void cairoTurnedTexts(benchmark::State& run) { showTextsByCairo(run, CAIRO_ANTIALIAS_GRAY, 30); }
BENCHMARK(greyTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(cairoGreyTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(inkTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(cairoInkTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(turnedTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(cairoTurnedTexts)->Unit(benchmark::kMillisecond);

}  // namespace
