// A whole picture of a million pipes against a bare loop over the same lines, and a zoomed one against a bare scan.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "draw/frame.h"
#include "draw/lines.h"
#include "exports/pn10platform.h"
#include "model/tables.h"
#include "support/scene.h"

using namespace pn10;

/** Counts what the C library hands out, so that the runs can show what a picture allocates. */
static int64_t allocations = 0;
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* malloc(size_t size) { return allocations++, __libc_malloc(size); }
void* calloc(size_t count, size_t size) { return allocations++, __libc_calloc(count, size); }
}

namespace {

constexpr int32_t kWidth = 1600, kHeight = 1200;
constexpr double kSide = 100000;

/** The street grid of the tests, three pipes in ten with two vertices, and a host's options. */
struct Scene {
  int32_t pipes;
  ViewOpts view{};
  PlotOpts plot{};
  UnitOpts unit{};
  HDC dc = nullptr;

  explicit Scene(int32_t count) : pipes(count) {
    test::makeStreetGrid({.pipes = count, .side = kSide});
    view.NodeOn = 1;
    view.NodeSize = 1; /* a fifth of a display unit, too small to see at full extent */
    view.NodeSymbol = 2;
    view.LineWidth = 1;
    view.BackColor = 0xFFFFFF;
    plot.ClipOn = 1;
    plot.PollPercent = 10;
    dc = PnCreateImageDC(kWidth, kHeight, 96, 0xFFFFFF);
  }
  ~Scene() {
    PnDeleteDC(dc);
    FreeModel();
  }

  /** The whole network, or the middle of it with one part in `share` of each side. */
  void look(double share) {
    const double middle = kSide / 2, half = middle / share;
    SetDrawVars(0, dc, nullptr, 1, &plot, &view, &unit, nullptr, 0, 0, 0, 0, 0, 1000);
    SetPNGDIScale(middle - half, middle + half, middle + half, middle - half, kWidth, kHeight, 0, 1200, 0, 0, 0, 0);
  }

  void draw() {
    int16_t recolour[3] = {};
    DrawPict(1, pipes, 1, model.nodeCount, 0, 0, 0, 0, 0, 0, 0, &recolour[0], &recolour[1], &recolour[2], 0);
  }
};

Scene& sceneOf(const benchmark::State& state) {
  static Scene* scene = nullptr;
  const auto count = static_cast<int32_t>(state.range(0));
  if (!scene || scene->pipes != count) {
    delete scene;
    scene = new Scene(count);
  }
  return *scene;
}

struct Segment {
  double x1, y1, x2, y2;
};

std::vector<Segment> segmentsOf(const Scene& scene) {
  std::vector<Segment> all;
  for (int32_t p = 1; p <= scene.pipes; p++) {
    const Ndt &a = model.ndt[model.pdt[p].FROM_NODE], &b = model.ndt[model.pdt[p].TO_NODE];
    double x = a.X_COORD, y = a.Y_COORD;
    for (int32_t v = model.pxy[p].FIRST_VTX; v && v <= model.pxy[p].LAST_VTX; v++) {
      all.push_back({x, y, model.vtx[v].VTX_X, model.vtx[v].VTX_Y});
      x = model.vtx[v].VTX_X;
      y = model.vtx[v].VTX_Y;
    }
    all.push_back({x, y, b.X_COORD, b.Y_COORD});
  }
  return all;
}

/** The same segments from an array, mapped and drawn: no records, no clipping, no caches. */
void bareSegments(benchmark::State& state) {
  Scene& scene = sceneOf(state);
  scene.look(1);
  const std::vector<Segment> segments = segmentsOf(scene);
  HPEN pen = MakeStylePen(1, 1, 0x800000);
  HGDIOBJ old = SelectObject(scene.dc, pen);
  const double x0 = drawState.X0, y0 = drawState.Y0, scaleX = drawState.ScaleX, scaleY = drawState.ScaleY;
  for (auto _ : state) {
    for (const Segment& s : segments) {
      MoveToEx(scene.dc, static_cast<int>((s.x1 - x0) * scaleX), static_cast<int>((s.y1 - y0) * scaleY), nullptr);
      LineTo(scene.dc, static_cast<int>((s.x2 - x0) * scaleX), static_cast<int>((s.y2 - y0) * scaleY));
    }
  }
  SelectObject(scene.dc, old);
  DeleteObject(pen);
}

void picture(benchmark::State& state, double share) {
  Scene& scene = sceneOf(state);
  scene.look(share);
  scene.draw();
  const int64_t before = allocations;
  for (auto _ : state) scene.draw();
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

void wholePicture(benchmark::State& state) { picture(state, 1); }
void zoomedPicture(benchmark::State& state) { picture(state, 10); }

/** Every pipe's end nodes compared with the window. */
void bareEndNodes(benchmark::State& state) {
  Scene& scene = sceneOf(state);
  scene.look(10);
  const DrawState& s = drawState;
  for (auto _ : state) {
    int32_t seen = 0;
    for (int32_t p = 1; p <= scene.pipes; p++) {
      const Ndt &a = model.ndt[model.pdt[p].FROM_NODE], &b = model.ndt[model.pdt[p].TO_NODE];
      seen += !OutOfView(a.X_COORD, a.Y_COORD) || !OutOfView(b.X_COORD, b.Y_COORD);
    }
    benchmark::DoNotOptimize(seen);
    benchmark::DoNotOptimize(s);
  }
}

void sizes(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond)->Arg(10000);
  if (!std::getenv("PN10_BENCH_SMALLEST")) b->Arg(1000000);
}
BENCHMARK(bareSegments)->Apply(sizes);
BENCHMARK(wholePicture)->Apply(sizes);
BENCHMARK(bareEndNodes)->Apply(sizes);
BENCHMARK(zoomedPicture)->Apply(sizes);

}  // namespace
