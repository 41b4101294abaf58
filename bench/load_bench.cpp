// Loading the model's files, each against reading the same bytes and copying them once, in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "model/tables.h"
#include "support/model_builder.h"

using namespace pn10;

namespace {

/** A network of `pipes` pipes: nodes 0.9 and customers 2 per pipe; runs of three vertices on every second pipe and
 * service lines of two on every fourth customer. Written once per size; beside it the vertices in random order, and
 * those of service lines alone, which leave every pipe without its own. */
struct Scene {
  int32_t pipes;
  std::string base, shuffledBase, bareBase;
};

class Rows {
 public:
  explicit Rows(const std::string& path, size_t stride) : out_(path, std::ios::binary), stride_(stride) {}
  void add(std::string bytes) {
    bytes.resize(stride_, '\0');
    out_ << bytes;
  }

 private:
  std::ofstream out_;
  size_t stride_;
};

void writeVertices(const std::string& path, int32_t pipes, bool shuffled, int kind) {
  std::vector<int32_t> owners;
  for (int32_t p = 2; p <= pipes; p += 2) owners.push_back(p);
  std::mt19937 random(1);
  if (shuffled) std::shuffle(owners.begin(), owners.end(), random);
  Rows rows(path, 26);
  for (const int32_t owner : owners) {
    for (int i = 0; i < 3; i++) rows.add(test::packed(test::vtxRecord(owner, kind, owner + i, i)));
  }
  for (int32_t c = 4; c <= pipes * 2; c += 4) {
    for (int i = 0; i < 2; i++) rows.add(test::packed(test::vtxRecord(c, 1, c + i, i)));
  }
}

const Scene& scene(int32_t pipes) {
  static Scene made{};
#ifdef __GLIBC__
  mallopt(M_MMAP_THRESHOLD, 1 << 16); /* fresh pages for every table at every size, as in a process that loads once */
#endif
  if (made.pipes == pipes) return made;
  const std::string folder = std::filesystem::temp_directory_path() / "pn10_load_bench";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  made = {pipes, folder + "/net", folder + "/shuffled", folder + "/bare"};
  const int32_t nodes = pipes / 10 * 9;
  {
    Rows ndt(made.base + ".ndt", 220), pdt(made.base + ".pdt", 280), cdt(made.base + ".cdt", 214);
    for (int32_t n = 1; n <= nodes; n++) ndt.add(test::packed(test::nodeRecord(n, test::nodeName(n), n, n % 100)));
    for (int32_t p = 1; p <= pipes; p++) {
      pdt.add(test::packed(test::pipeRecord(p, p % nodes + 1, (p + 1) % nodes + 1, p % 2 ? 0 : 4)));
    }
    for (int32_t c = 1; c <= pipes * 2; c++) {
      Cdt cust = test::custRecord(c, (c + 1) / 2, c, c % 100);
      cust.VTX_MODE = c % 4 ? 0 : 4;
      cdt.add(test::packed(cust));
    }
    writeVertices(made.base + ".vtx", pipes, false, 0);
    writeVertices(made.shuffledBase + ".vtx", pipes, true, 0);
    writeVertices(made.bareBase + ".vtx", pipes, false, 1);
  }
  for (const std::string& other : {made.shuffledBase, made.bareBase}) {
    std::filesystem::create_hard_link(made.base + ".ndt", other + ".ndt");
    std::filesystem::create_hard_link(made.base + ".pdt", other + ".pdt");
  }
  return made;
}

/** Reads a file with one fread and copies each record to one of `size` bytes. */
void readAndCopy(const std::string& path, size_t stride, size_t size) {
  const size_t bytes = std::filesystem::file_size(path);
  const size_t count = (bytes + stride - 1) / stride;
  auto* const image = static_cast<char*>(std::malloc(count * std::max(stride, size)));
  auto* const table = static_cast<char*>(std::malloc(count * size));
  FILE* const file = std::fopen(path.c_str(), "rb");
  if (!image || !table || !file || std::fread(image, 1, bytes, file) != bytes) std::abort();
  std::fclose(file);
  const size_t copied = std::min(stride, size);
  for (size_t i = 0; i < count; i++) std::memcpy(table + i * size, image + i * stride, copied);
  benchmark::DoNotOptimize(table);
  std::free(image);
  std::free(table);
}

int32_t pipesOf(const benchmark::State& state) { return static_cast<int32_t>(state.range(0)); }

/**
 * Runs `f` once before it is measured. A virtual machine asks its host for memory that it has not used of late, which
 * costs ten times the load; without this the largest size would pay for it in its one run, the others once in many.
 */
template <class F>
void measure(benchmark::State& state, F f) {
  f();
  for (auto _ : state) f();
}

void readNdt(benchmark::State& state) {
  const Scene& s = scene(pipesOf(state));
  measure(state, [&] {
    ReadNdt(s.base.c_str(), 0, 10.1f);
    FreeModel();
  });
}

void bareNdt(benchmark::State& state) {
  const Scene& s = scene(pipesOf(state));
  measure(state, [&] { readAndCopy(s.base + ".ndt", 220, sizeof(Ndt)); });
}

void readModel(benchmark::State& state) {
  const Scene& s = scene(pipesOf(state));
  measure(state, [&] {
    ReadVtx(s.base.c_str(), 0);
    ReadNdt(s.base.c_str(), 0, 10.1f);
    ReadPdt(s.base.c_str(), 1, "psig", 0);
    ReadCdt(s.base.c_str(), 0);
    FreeModel();
  });
}

void bareModel(benchmark::State& state) {
  const Scene& s = scene(pipesOf(state));
  measure(state, [&] {
    readAndCopy(s.base + ".vtx", 26, sizeof(Vtx));
    readAndCopy(s.base + ".ndt", 220, sizeof(Ndt));
    readAndCopy(s.base + ".pdt", 280, sizeof(Pdt));
    readAndCopy(s.base + ".cdt", 214, sizeof(Cdt));
  });
}

void readPipes(benchmark::State& state, const std::string& base) {
  ReadVtx(base.c_str(), 0);
  ReadNdt(base.c_str(), 0, 10.1f);
  ReadPdt(base.c_str(), 1, "psig", 0);
  FreeModel();
  for (auto _ : state) {
    state.PauseTiming();
    ReadVtx(base.c_str(), 0);
    ReadNdt(base.c_str(), 0, 10.1f);
    state.ResumeTiming();
    ReadPdt(base.c_str(), 1, "psig", 0);
    state.PauseTiming();
    FreeModel();
    state.ResumeTiming();
  }
}

void readPipesInOrder(benchmark::State& state) { readPipes(state, scene(pipesOf(state)).base); }
void readPipesShuffled(benchmark::State& state) { readPipes(state, scene(pipesOf(state)).shuffledBase); }
void readPipesWithoutRuns(benchmark::State& state) { readPipes(state, scene(pipesOf(state)).bareBase); }

/** A host that adds one node after the other. */
void growByOne(benchmark::State& state) {
  measure(state, [&] {
    for (int32_t n = 1; n <= pipesOf(state); n++) {
      ReallocNdt(n);
      ReallocNXY(n);
      GetNextNdtCnt();
    }
    FreeModel();
  });
}

void growAtOnce(benchmark::State& state) {
  measure(state, [&] {
    ReallocNdt(pipesOf(state));
    ReallocNXY(pipesOf(state));
    for (int32_t n = 1; n <= pipesOf(state); n++) {
      model.ndt[n].ID = n;
      GetNextNdtCnt();
    }
    FreeModel();
  });
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Unit(benchmark::kMillisecond)->Arg(10000);
  if (!std::getenv("PN10_BENCH_SMALLEST")) bench->Arg(100000)->Arg(1000000);
}

}  // namespace

BENCHMARK(bareNdt)->Apply(sizes);
BENCHMARK(readNdt)->Apply(sizes);
BENCHMARK(bareModel)->Apply(sizes);
BENCHMARK(readModel)->Apply(sizes);
BENCHMARK(readPipesInOrder)->Apply(sizes);
BENCHMARK(readPipesShuffled)->Apply(sizes);
BENCHMARK(readPipesWithoutRuns)->Apply(sizes);
BENCHMARK(growAtOnce)->Apply(sizes);
BENCHMARK(growByOne)->Apply(sizes);
