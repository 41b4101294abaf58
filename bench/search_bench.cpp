// Searches and the trace on a grid of streets, each against its reference in the same run.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <queue>
#include <vector>

#include "model/tables.h"
#include "support/random_network.h"

using namespace pn10;

namespace {

/** A square grid with about this many pipes, each between neighbours; customers two per pipe when asked. */
void makeGrid(int32_t pipes, bool customers) {
  static int32_t madePipes = 0;
  static bool madeCustomers = false;
  if (madePipes == pipes && madeCustomers == customers) return;
  FreeModel();
  const auto side = static_cast<int32_t>(std::sqrt(pipes / 2.0));
  const int32_t nodes = side * side, lines = 2 * side * (side - 1);
  test::makeEmptyTables(nodes, lines, customers ? lines * 2 : 0, 0);
  for (int32_t n = 1; n <= nodes; n++) {
    Ndt& node = model.ndt[n];
    node.X_COORD = (n - 1) % side * 100.0;
    node.Y_COORD = (n - 1) / side * 100.0;
    std::snprintf(node.NODENAME, sizeof node.NODENAME, "N-%d", n);
  }
  int32_t p = 0;
  for (int32_t n = 1; n <= nodes; n++) {
    for (int32_t step : {1, side}) {
      if (step == 1 ? n % side == 0 : n + side > nodes) continue;
      Pdt& pipe = model.pdt[++p];
      pipe.ID = p;
      pipe.FROM_NODE = n;
      pipe.TO_NODE = n + step;
      pipe.CUST_COUNT = customers ? 2 : 0;
      pipe.FLOW = 1;
      model.pxy[p].Report = model.pxy[p].Active = 1;
    }
  }
  for (int32_t c = 1; c <= model.custCount; c++) model.cdt[c].PIPE_REC = (c - 1) / 2 + 1;
  madePipes = pipes;
  madeCustomers = customers;
}

/** Every pipe's end nodes read and nothing more. */
void bareEndNodes(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  for (auto _ : state) {
    double sum = 0;
    for (int32_t p = 1; p <= model.pipeCount; p++) {
      const Ndt &from = model.ndt[model.pdt[p].FROM_NODE], &to = model.ndt[model.pdt[p].TO_NODE];
      sum += from.X_COORD + from.Y_COORD + to.X_COORD + to.Y_COORD;
    }
    benchmark::DoNotOptimize(sum);
  }
}

void findPipeXY(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  for (auto _ : state) {
    float radius = 20;
    benchmark::DoNotOptimize(FindPipeXY(12345, 23456, &radius, 0, 0, 0, 0));
  }
}

/** The names walked with memcmp, the searched one at the end. */
void bareNames(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  const Ndt& last = model.ndt[model.nodeCount];
  const size_t length = std::strlen(last.NODENAME) + 1;
  for (auto _ : state) {
    int32_t n = 1;
    while (std::memcmp(model.ndt[n].NODENAME, last.NODENAME, length) != 0) n++;
    benchmark::DoNotOptimize(n);
  }
}

void findNodeByName(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  const Ndt& last = model.ndt[model.nodeCount];
  for (auto _ : state) {
    benchmark::DoNotOptimize(FindNodeByName(last.NODENAME, static_cast<int32_t>(std::strlen(last.NODENAME)), 1, 0));
  }
}

/** A plain breadth-first search over compressed rows, the rows built first. */
void bareBreadthFirst(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  for (auto _ : state) {
    const auto nodes = static_cast<size_t>(model.nodeCount);
    std::vector<int32_t> starts(nodes + 2), queue;
    for (int32_t p = 1; p <= model.pipeCount; p++) {
      starts[static_cast<size_t>(model.pdt[p].FROM_NODE) + 1]++;
      starts[static_cast<size_t>(model.pdt[p].TO_NODE) + 1]++;
    }
    for (size_t i = 1; i < starts.size(); i++) starts[i] += starts[i - 1];
    std::vector<int32_t> next(starts.begin(), starts.end()), far(static_cast<size_t>(model.pipeCount) * 2);
    for (int32_t p = 1; p <= model.pipeCount; p++) {
      const auto from = static_cast<size_t>(model.pdt[p].FROM_NODE), to = static_cast<size_t>(model.pdt[p].TO_NODE);
      far[static_cast<size_t>(next[from]++)] = static_cast<int32_t>(to);
      far[static_cast<size_t>(next[to]++)] = static_cast<int32_t>(from);
    }
    std::vector<uint8_t> seen(nodes + 1);
    queue.reserve(nodes);
    queue.push_back(1);
    seen[1] = 1;
    for (size_t i = 0; i < queue.size(); i++) {
      const auto n = static_cast<size_t>(queue[i]);
      for (int32_t e = starts[n]; e < starts[n + 1]; e++) {
        const auto f = static_cast<size_t>(far[static_cast<size_t>(e)]);
        if (!seen[f]) {
          seen[f] = 1;
          queue.push_back(static_cast<int32_t>(f));
        }
      }
    }
    benchmark::DoNotOptimize(queue.size());
  }
}

void writeControl(int customers) {
  const std::string dir = std::filesystem::temp_directory_path().string() + "/";
  SetGlobalGDI(dir.c_str(), "");
  std::ofstream(dir + "traceup.ini") << "2\n255\n0\n" << customers << "\n0\n0\n0\n";
}

void connectedTrace(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), false);
  writeControl(0);
  std::vector<int32_t> list(static_cast<size_t>(model.pipeCount) + 2);
  for (auto _ : state) {
    if (CalcSystemTrace(1, 0, 0, 1, list.data(), 0) != model.pipeCount) state.SkipWithError("not everything reached");
  }
}

void traceWithCustomers(benchmark::State& state) {
  makeGrid(static_cast<int32_t>(state.range(0)), true);
  writeControl(1);
  std::vector<int32_t> list(static_cast<size_t>(model.pipeCount) + 2);
  for (auto _ : state) {
    if (CalcSystemTrace(1, 0, 0, 1, list.data(), 0) != model.pipeCount) state.SkipWithError("not everything reached");
  }
  state.counters["per_record_ns"] =
      benchmark::Counter(static_cast<double>(model.pipeCount + model.custCount),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

constexpr int64_t kSizes[] = {10000, 100000, 1000000};
void sizes(benchmark::internal::Benchmark* b) {
  for (int64_t size : kSizes) {
    if (size == kSizes[0] || !std::getenv("PN10_BENCH_SMALLEST")) b->Arg(size);
  }
  b->Unit(benchmark::kMillisecond);
}

BENCHMARK(bareEndNodes)->Apply(sizes);
BENCHMARK(findPipeXY)->Apply(sizes);
BENCHMARK(bareNames)->Apply(sizes);
BENCHMARK(findNodeByName)->Apply(sizes);
BENCHMARK(bareBreadthFirst)->Apply(sizes);
BENCHMARK(connectedTrace)->Apply(sizes);
BENCHMARK(traceWithCustomers)->Apply(sizes);

}  // namespace
