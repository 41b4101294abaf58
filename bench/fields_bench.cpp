// Numbered fields over whole tables, each against its reference in the same run.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "model/tables.h"
#include "support/random_network.h"
#include "support/support.h"

using namespace pn10;

namespace {

constexpr int32_t kSizesInLookup = 500;

std::string sizeName(int32_t i) { return std::to_string(i % 48 + 1) + " STEEL " + std::to_string(i); }

/** A lookup of 500 sizes, read from a file made byte by byte. */
void loadSizes() {
  test::Bytes file;
  file.padTo(432);
  for (int32_t i = 0; i < kSizesInLookup; i++) {
    file.text(sizeName(i), 40).f32(0.25f).f32(6.625f).f32(6.125f).f32(0.0007f).f32(95).f32(0).f32(35000);
    file.i16(0).f32(1.0f).text("Inches", 10).padTo(static_cast<size_t>(i + 2) * 432);
  }
  const test::TempDir dir;
  dir.write("sizes", file.str());
  if (ReadPLut(dir.path("sizes").c_str()) != kSizesInLookup) std::abort();
}

/** So many pipes, their sizes spread over the lookup, and as many nodes. */
void makeTables(int32_t count) {
  static int32_t made = 0;
  if (made == count) return;
  FreeModel();
  loadSizes();
  test::makeEmptyTables(count, count, 0, 0);
  for (int32_t i = 1; i <= count; i++) {
    Pdt& pipe = model.pdt[i];
    const auto size = static_cast<int32_t>(static_cast<uint32_t>(i) * 2654435761u >> 8) % kSizesInLookup;
    copyText(pipe.SIZE_TYPE, sizeName(size).c_str());
    pipe.D_FACTOR = 1.0f;
    pipe.FLOW = static_cast<float>(i);
    model.ndt[i].PRESSURE = static_cast<float>(i);
  }
  made = count;
}

/** What a hand would write for the plain node fields: the same guard, one switch, one load. */
[[gnu::noinline]] double switchOfNodes(int32_t node, char* text, int16_t field) {
  if (node < 0 || node > model.nodeCount || node >= model.ndtSlots) return -1.0;
  const Ndt& n = model.ndt[node];
  switch (field) {
    case 301:
      std::strcpy(text, n.NODENAME);
      return 1.0;
    case 302:
      return static_cast<double>(n.PRESSURE);
    case 303:
      return n.P_KNOWN;
    case 304:
      std::strcpy(text, n.P_UNITS);
      return 1.0;
    case 305:
      return static_cast<double>(n.QB_LOAD);
    case 306:
      return n.QB_KNOWN;
    case 307:
      return n.QB_DF;
    case 308:
      return n.QB_STATUS;
    case 309:
      std::strcpy(text, n.Q_UNITS);
      return 1.0;
    case 310:
      return static_cast<double>(n.QX_LOAD);
    case 311:
      return n.QX_DF;
    case 312:
      return n.QX_STATUS;
    case 313:
      return static_cast<double>(n.Z_COORD);
    case 314:
      return static_cast<double>(n.T);
    case 315:
      return n.T_KNOWN;
    case 316:
      return static_cast<double>(n.PATM);
    case 317:
      return static_cast<double>(n.VISCOSITY);
    case 318:
      return static_cast<double>(n.SG);
    case 319:
      return static_cast<double>(n.SH_RATIO);
    case 320:
      return static_cast<double>(n.HV);
    case 321:
      return n.X_COORD;
    case 322:
      return n.Y_COORD;
    case 323:
      return n.TEXT_X;
    case 324:
      return n.TEXT_Y;
    case 328:
      return n.COLOR;
    case 330:
      return n.SYMBOL;
    case 332:
      return n.REC_STATUS;
    case 368:
      return model.nodeCount;
    case 376:
      return model.nxy[node].HILITE_DRAWN;
    case 377:
      return n.ID;
    default:
      return -1.0;
  }
}

/** The same for pipes. */
[[gnu::noinline]] double switchOfPipes(int32_t pipe, char* text, int16_t field) {
  if (pipe < 0 || pipe > model.pipeCount || pipe >= model.pdtSlots) return -1.0;
  const Pdt& p = model.pdt[pipe];
  switch (field) {
    case 1:
      return p.ID;
    case 4:
      return p.HYD_TYPE;
    case 5:
      return p.EQUATION;
    case 6:
      return p.STATUS;
    case 7:
      std::strcpy(text, p.SIZE_TYPE);
      return 1.0;
    case 8:
      return p.SIZE_FLAG;
    case 9:
      return static_cast<double>(p.LENGTH);
    case 10:
      std::strcpy(text, p.L_UNITS);
      return 1.0;
    case 11:
      return static_cast<double>(p.EFFICIENCY);
    case 12:
      return static_cast<double>(p.FLOW);
    case 13:
      std::strcpy(text, p.Q_UNITS);
      return 1.0;
    case 14:
      return static_cast<double>(p.DP);
    case 16:
      return static_cast<double>(p.Z_FACTOR);
    case 17:
      return p.FACILITY;
    case 18:
      return p.FTG_COUNT;
    case 23:
      return p.TEXT_X;
    case 24:
      return p.TEXT_Y;
    case 27:
      return p.COLOR;
    case 32:
      return p.REC_STATUS;
    case 81:
      return p.FROM_NODE;
    case 82:
      return p.TO_NODE;
    case 100:
      return model.pipeCount;
    case 106:
      return model.pxy[pipe].FIRST_VTX;
    default:
      return -1.0;
  }
}

using Get = double (*)(int32_t, char*, int16_t);

/** One field of every record, as a table on the host's screen asks for it. */
void walk(benchmark::State& state, Get get, int16_t field) {
  makeTables(static_cast<int32_t>(state.range(0)));
  char text[64];
  for (auto _ : state) {
    double sum = 0;
    for (int32_t i = 1; i <= model.nodeCount; i++) sum += get(i, text, field);
    benchmark::DoNotOptimize(sum);
  }
}

/** Eight fields of every record in turn, as an export asks for them. */
template <size_t N>
void walkFields(benchmark::State& state, Get get, const int16_t (&fields)[N]) {
  makeTables(static_cast<int32_t>(state.range(0)));
  char text[64];
  for (auto _ : state) {
    double sum = 0;
    for (int32_t i = 1; i <= model.nodeCount; i++)
      for (const int16_t field : fields) sum += get(i, text, field);
    benchmark::DoNotOptimize(sum);
  }
}

constexpr int16_t kNodeFields[] = {302, 305, 306, 312, 321, 322, 328, 377};
constexpr int16_t kPipeFields[] = {1, 4, 9, 12, 14, 27, 81, 82};

void switchNodeField(benchmark::State& state) { walk(state, switchOfNodes, 302); }
void getNodeField(benchmark::State& state) { walk(state, GetNdtVal, 302); }
void switchNodeFields(benchmark::State& state) { walkFields(state, switchOfNodes, kNodeFields); }
void getNodeFields(benchmark::State& state) { walkFields(state, GetNdtVal, kNodeFields); }
void switchPipeField(benchmark::State& state) { walk(state, switchOfPipes, 12); }
void getPipeField(benchmark::State& state) { walk(state, GetPdtVal, 12); }
void switchPipeFields(benchmark::State& state) { walkFields(state, switchOfPipes, kPipeFields); }
void getPipeFields(benchmark::State& state) { walkFields(state, GetPdtVal, kPipeFields); }
void getInsideDiameter(benchmark::State& state) { walk(state, GetPdtVal, 35); }

constexpr int64_t kSizes[] = {10000, 100000, 1000000};
void sizes(benchmark::internal::Benchmark* b) {
  for (int64_t size : kSizes) {
    if (size == kSizes[0] || !std::getenv("PN10_BENCH_SMALLEST")) b->Arg(size);
  }
  b->Unit(benchmark::kMillisecond);
}

/** The bound is about tables that no cache holds: small ones compare a search with three nanoseconds. */
void largest(benchmark::internal::Benchmark* b) { b->Arg(1000000)->Unit(benchmark::kMillisecond); }

BENCHMARK(switchNodeField)->Apply(sizes);
BENCHMARK(getNodeField)->Apply(sizes);
BENCHMARK(switchNodeFields)->Apply(sizes);
BENCHMARK(getNodeFields)->Apply(sizes);
BENCHMARK(switchPipeField)->Apply(sizes);
BENCHMARK(getPipeField)->Apply(sizes);
BENCHMARK(switchPipeFields)->Apply(sizes);
BENCHMARK(getPipeFields)->Apply(sizes);
BENCHMARK(getInsideDiameter)->Apply(largest);

}  // namespace
