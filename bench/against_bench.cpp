// Two builds of the library side by side: the same public calls on the same model, interleaved run by run.
// PN10_BENCH_THIS and PN10_BENCH_AGAINST name the two files; without the second there is nothing to compare.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "exports/pn10gdi.h"
#include "exports/pn10platform.h"

namespace {

#define EACH_CALL(call)                                                                                           \
  call(ReallocNdt) call(ReallocNXY) call(ReallocPdt) call(ReallocPXY) call(GetNextNdtCnt) call(GetNextPdtCnt)     \
      call(InitNXY) call(InitPXY) call(UpdateNXY) call(UpdatePXY) call(SetNdtVal) call(SetPdtVal) call(GetPdtVal) \
          call(SavePipe) call(ReadVtx) call(ReadNdt) call(ReadPdt) call(FreeModel) call(FindPipeXY)               \
              call(FindNodeByName) call(SetDrawVars) call(SetPNGDIScale) call(DrawPict) call(PnCreateImageDC)     \
                  call(PnDeleteDC) call(GetPdtAddress)

/** One build, loaded by itself, with a grid of streets as its model. */
class Build {
 public:
  explicit Build(const char* path) : library_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    if (!library_) {
      std::fprintf(stderr, "%s\n", dlerror());
      return;
    }
#define RESOLVE(name) name = reinterpret_cast<decltype(&::name)>(dlsym(library_, #name));
    EACH_CALL(RESOLVE)
#undef RESOLVE
  }
  explicit operator bool() const { return library_ != nullptr; }

  void makeGrid(int32_t side) {
    FreeModel();
    const int32_t nodes = side * side, pipes = 2 * side * (side - 1);
    ReallocNdt(nodes), ReallocNXY(nodes), ReallocPdt(pipes), ReallocPXY(pipes);
    char none[2] = "";
    for (int32_t n = 1; n <= nodes; n++) {
      GetNextNdtCnt();
      InitNXY(n);
      SetNdtVal(n, 301, ("N-" + std::to_string(n)).c_str(), 0);
      SetNdtVal(n, 321, none, (n - 1) % side * 100.0);
      SetNdtVal(n, 322, none, (n - 1) / side * 100.0);
    }
    int32_t p = 0;
    for (int32_t n = 1; n <= nodes; n++) {
      for (int32_t step : {1, side}) {
        if (step == 1 ? n % side == 0 : n + side > nodes) continue;
        GetNextPdtCnt();
        InitPXY(++p);
        SetPdtVal(p, 81, none, n);
        SetPdtVal(p, 82, none, n + step);
      }
    }
    pipes_ = p;
    side_ = side;
  }

  void fields() {
    double sum = 0;
    char text[64];
    for (int32_t p = 1; p <= pipes_; p++) sum += GetPdtVal(p, text, 9);
    benchmark::DoNotOptimize(sum);
  }
  void find() {
    float radius = 20;
    benchmark::DoNotOptimize(FindPipeXY(1234, 2345, &radius, 0, 0, 0, 0));
    benchmark::DoNotOptimize(FindNodeByName("N-NOWHERE", 9, 1, 0));
  }
  void draw() {
    HDC image = PnCreateImageDC(1600, 1200, 96, 0xFFFFFF);
    ViewOpts view{};
    view.LineWidth = 1;
    PlotOpts plot{};
    UnitOpts units{};
    const double size = side_ * 100.0;
    int16_t flags[3] = {0, 0, 0};
    SetDrawVars(0, image, nullptr, 1, &plot, &view, &units, nullptr, 0, 0, 0, 0, 0, 1);
    SetPNGDIScale(0, size, size, 0, 1600, 1200, 1, 100, 0, 0, 0, 0);
    DrawPict(1, pipes_, 0, 0, 0, 0, 0, 0, 0, 0, 0, &flags[0], &flags[1], &flags[2], 1);
    PnDeleteDC(image);
  }

 private:
  void* library_;
  int32_t pipes_ = 0, side_ = 0;
#define MEMBER(name) decltype(&::name) name = nullptr;
  EACH_CALL(MEMBER)
#undef MEMBER
};

using Work = void (Build::*)();

/** Times one build, and runs the other one in between, so that both see the same machine. */
void measure(benchmark::State& state, Build* timed, Build* other, Work work) {
  for (Build* build : {timed, other}) build->makeGrid(static_cast<int32_t>(state.range(0)));
  for (auto _ : state) {
    (timed->*work)();
    state.PauseTiming();
    (other->*work)();
    state.ResumeTiming();
  }
}

const int kRegistered = [] {
  const char* thisPath = std::getenv("PN10_BENCH_THIS");
  const char* otherPath = std::getenv("PN10_BENCH_AGAINST");
  if (!thisPath || !otherPath || !*otherPath) return 0;
  static Build self(thisPath), other(otherPath);
  if (!self || !other) return 0;
  const struct {
    const char* name;
    Work work;
  } works[] = {{"fields", &Build::fields}, {"find", &Build::find}, {"draw", &Build::draw}};
  for (const auto& w : works) {
    for (int side : {70, 220, 700}) {
      const auto add = [&](const std::string& name, Build* timed, Build* between) {
        benchmark::RegisterBenchmark(name.c_str(), measure, timed, between, w.work)
            ->Arg(side)
            ->Unit(benchmark::kMillisecond);
      };
      add(std::string(w.name) + "_this", &self, &other);
      add(std::string(w.name) + "_against", &other, &self);
      if (std::getenv("PN10_BENCH_SMALLEST")) break;
    }
  }
  return 1;
}();

}  // namespace
