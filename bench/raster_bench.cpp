/**
 * One-pixel lines of 20 pixels on a raster of 1600 x 1200, as a map of pipes paints them.
 *
 * References in the same run: a bare Bresenham loop into the same pixels, and Cairo stroking the lines one by one
 * without antialiasing. Small ellipses and polygons stand beside them for the symbols of nodes and fittings.
 */
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

#include "exports/pn10platform.h"
#include "platform/portable/painter.h"

namespace {

using namespace pn10::portable;

constexpr int kWidth = 1600, kHeight = 1200;
const int kLines = std::getenv("PN10_BENCH_SMALLEST") ? 10000 : 1000000;

struct Line {
  POINT from, to;
};

/** Lines of 20 pixels in all directions, everywhere on the raster. */
const std::vector<Line>& lines() {
  static const std::vector<Line> all = [] {
    std::vector<Line> made;
    uint32_t seed = 12345;
    const auto random = [&](int32_t n) {
      seed = seed * 1664525 + 1013904223;
      return static_cast<int32_t>((seed >> 8) % static_cast<uint32_t>(n));
    };
    for (int i = 0; i < kLines; i++) {
      const POINT from{20 + random(kWidth - 40), 20 + random(kHeight - 40)};
      const int32_t minor = random(41) - 20, major = random(2) ? 20 : -20;
      const POINT by = random(2) ? POINT{major, minor} : POINT{minor, major};
      made.push_back({from, {from.x + by.x, from.y + by.y}});
    }
    return made;
  }();
  return all;
}

struct Paper {
  std::vector<uint32_t> pixels = std::vector<uint32_t>(static_cast<size_t>(kWidth) * kHeight, 0xFFFFFF);
  PenData pen;
  BrushData brush;
  PaintState state{&pen, &brush, R2_COPYPEN, OPAQUE, 0xFFFFFF, 0, ALTERNATE, COLORONCOLOR, {0, 0, kWidth, kHeight}};
  std::unique_ptr<Painter> painter{newRasterPainter({pixels.data(), kWidth, kHeight, kWidth})};
};

/** The textbook loop: error term, one store per pixel, no clip. */
void bareLine(uint32_t* pixels, POINT a, POINT b, uint32_t color) {
  const int dx = std::abs(b.x - a.x), dy = -std::abs(b.y - a.y), sx = a.x < b.x ? 1 : -1, sy = a.y < b.y ? 1 : -1;
  for (int error = dx + dy; a.x != b.x || a.y != b.y;) {
    pixels[a.y * kWidth + a.x] = color;
    const int twice = 2 * error;
    if (twice >= dy) error += dy, a.x += sx;
    if (twice <= dx) error += dx, a.y += sy;
  }
}

void bareLines(benchmark::State& run) {
  Paper paper;
  for (auto _ : run) {
    for (const Line& l : lines()) bareLine(paper.pixels.data(), l.from, l.to, 0);
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kLines);
}
BENCHMARK(bareLines)->Unit(benchmark::kMillisecond);

void painterLines(benchmark::State& run) {
  Paper paper;
  for (auto _ : run) {
    for (const Line& l : lines()) paper.painter->line(paper.state, l.from, l.to);
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kLines);
}
BENCHMARK(painterLines)->Unit(benchmark::kMillisecond);

void gdiLines(benchmark::State& run) {
  const HDC dc = PnCreateImageDC(kWidth, kHeight, 96, 0xFFFFFF);
  for (auto _ : run) {
    for (const Line& l : lines()) {
      MoveToEx(dc, l.from.x, l.from.y, nullptr);
      LineTo(dc, l.to.x, l.to.y);
    }
  }
  run.SetItemsProcessed(run.iterations() * kLines);
  PnDeleteDC(dc);
}
BENCHMARK(gdiLines)->Unit(benchmark::kMillisecond);

BENCHMARK(gdiLines)->Name("gdiLinesAgainstCairo")->Unit(benchmark::kMillisecond);

void cairoLines(benchmark::State& run) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight);
  cairo_t* cr = cairo_create(surface);
  cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
  cairo_set_line_width(cr, 1);
  for (auto _ : run) {
    for (const Line& l : lines()) {
      cairo_move_to(cr, l.from.x + 0.5, l.from.y + 0.5);
      cairo_line_to(cr, l.to.x + 0.5, l.to.y + 0.5);
      cairo_stroke(cr);
    }
    cairo_surface_flush(surface);
  }
  run.SetItemsProcessed(run.iterations() * kLines);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}
BENCHMARK(cairoLines)->Unit(benchmark::kMillisecond);

void smallEllipses(benchmark::State& run) {
  Paper paper;
  const int size = static_cast<int>(run.range(0));
  for (auto _ : run) {
    for (const Line& l : lines()) {
      paper.painter->ellipse(paper.state, {l.from.x, l.from.y, l.from.x + size, l.from.y + size});
    }
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kLines);
}
BENCHMARK(smallEllipses)->Arg(5)->Arg(9)->Unit(benchmark::kMillisecond);

void smallPolygons(benchmark::State& run) {
  Paper paper;
  for (auto _ : run) {
    for (const Line& l : lines()) {
      const POINT diamond[] = {
          {l.from.x, l.from.y - 6}, {l.from.x + 6, l.from.y}, {l.from.x, l.from.y + 6}, {l.from.x - 6, l.from.y}};
      paper.painter->polygon(paper.state, diamond, 4);
    }
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kLines);
}
BENCHMARK(smallPolygons)->Unit(benchmark::kMillisecond);

void wideLines(benchmark::State& run) {
  Paper paper;
  paper.pen.width = static_cast<int32_t>(run.range(0));
  for (auto _ : run) {
    for (const Line& l : lines()) paper.painter->line(paper.state, l.from, l.to);
    benchmark::ClobberMemory();
  }
  run.SetItemsProcessed(run.iterations() * kLines);
}
BENCHMARK(wideLines)->Arg(2)->Arg(5)->Unit(benchmark::kMillisecond);

}  // namespace
