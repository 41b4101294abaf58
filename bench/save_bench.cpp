// Saving a whole model, against writing the same bytes to files of the same names.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "model/tables.h"
#include "support/support.h"

namespace {

constexpr const char* kFiles[] = {"model.ndt", "model.pdt", "model.vtx", "model.cdt", "model.fdt"};

/** A model of `pipes` pipes, 0.9 nodes and 2 customers each, three of ten with two vertices; kept between benchmarks.
 */
void makeModel(int32_t pipes) {
  using namespace pn10;
  static int32_t made = 0;
  if (made == pipes) return;
  made = pipes;
  FreeModel();
  const int32_t nodes = pipes / 10 * 9, customers = pipes * 2;
  ReallocNdt(nodes), ReallocNXY(nodes), ReallocPdt(pipes), ReallocPXY(pipes), ReallocCdt(customers),
      ReallocCXY(customers);
  ReallocVtx(pipes);
  model.nodeCount = nodes;
  model.pipeCount = pipes;
  model.custCount = customers;
  for (int32_t n = 1; n <= nodes; n++) {
    model.ndt[n].ID = n;
    model.ndt[n].X_COORD = n;
    std::snprintf(model.ndt[n].NODENAME, sizeof model.ndt[n].NODENAME, "N-%d", n);
  }
  for (int32_t p = 1; p <= pipes; p++) {
    model.pdt[p].ID = p;
    model.pdt[p].FROM_NODE = p % nodes + 1;
    model.pdt[p].TO_NODE = (p + 1) % nodes + 1;
    InitPXY(p);
    if (p % 10 >= 3 || model.vtxCount + 2 > pipes) continue;
    model.pdt[p].VTX_MODE = 4;
    model.pxy[p].FIRST_VTX = model.vtxCount + 1;
    model.vtxCount += 2;
    model.pxy[p].LAST_VTX = model.vtxCount;
    model.vtx[model.vtxCount - 1].VTX_OWNER = model.vtx[model.vtxCount].VTX_OWNER = p;
  }
  for (int32_t c = 1; c <= customers; c++) {
    model.cdt[c].ID = c;
    model.cdt[c].PIPE_REC = (c + 1) / 2;
  }
}

void savePipe(benchmark::State& state) {
  const pn10::test::TempDir dir;
  makeModel(static_cast<int32_t>(state.range(0)));
  for (auto _ : state) {
    if (SavePipe(0, dir.base().c_str()) != state.range(0)) state.SkipWithError("not every pipe was saved");
  }
}

/** The same bytes written with fwrite, file by file, each over a file that was renamed away first. */
void bareWrites(benchmark::State& state) {
  const pn10::test::TempDir dir;
  makeModel(static_cast<int32_t>(state.range(0)));
  SavePipe(0, dir.base().c_str());
  std::vector<std::string> bytes;
  for (const char* name : kFiles) bytes.push_back(dir.read(name));
  for (auto _ : state) {
    for (size_t i = 0; i < bytes.size(); i++) {
      const std::string path = dir.path(kFiles[i]);
      std::filesystem::rename(path, path + ".bak");
      FILE* file = std::fopen(path.c_str(), "wb");
      if (!file || std::fwrite(bytes[i].data(), 1, bytes[i].size(), file) != bytes[i].size())
        state.SkipWithError("disk");
      if (file) std::fclose(file);
    }
  }
}

void sizes(benchmark::internal::Benchmark* b) {
  for (const int64_t pipes : {10000, 100000, 1000000}) {
    if (pipes == 10000 || !std::getenv("PN10_BENCH_SMALLEST")) b->Arg(pipes);
  }
  b->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(bareWrites)->Apply(sizes);
BENCHMARK(savePipe)->Apply(sizes);

}  // namespace
