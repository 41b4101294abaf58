/** Every loader and every other call that allocates, with each of its allocations failing in turn. */
#include <functional>

#include "facility/facility.h"
#include "faults.h"
#include "lookup/packed.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct EveryAllocation : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();

  EveryAllocation() {
    std::vector<Vtx> vtxs;
    std::vector<Pdt> pipes;
    std::vector<Cdt> custs;
    for (int p = 1; p <= 100; p++) {
      vtxs.push_back(vtxRecord(101 - p, p % 2, 1, 1)); /* out of order, so that an index is made */
      pipes.push_back(pipeRecord(p, 1, 2, 4));
      custs.push_back(custRecord(p, 1));
      custs.back().VTX_MODE = 4;
    }
    dir.write("model.ndt", fileOf(std::vector<Ndt>{nodeRecord(1, "1"), nodeRecord(2, "2")}));
    dir.write("model.vtx", fileOf(vtxs));
    dir.write("model.pdt", fileOf(pipes));
    dir.write("model.cdt", fileOf(custs));
    dir.write("model.fdt", fileOf(std::vector<Fdt>{ftgRecord(1, "tee"), ftgRecord(2, "tee")}));
    dir.write("model.rdx", std::string(3 * 336, 'r'));
    dir.write("header", "M\n");
    dir.write("fac", "title\n0\n");
    dir.write("lut", std::string(5 * 436, 'l'));
    dir.write("pntrace.ini", "2\n255\n1\n0\n0\n1\n0\n5\n1\n2\n3\n4\n5\n");
    dir.write("traceup.ini", "2\n255\n0\n1\n0\n0\n0\n");
  }
  ~EveryAllocation() override { failAllocation(0); }

  /** Accesses that a host may make after a failure; what they answer is not the point. */
  static void useAll() {
    char text[300];
    for (int32_t n : {0, 1, 2, 100, 101}) {
      GetNdtVal(n, text, NDT_NODENAME);
      GetPdtVal(n, text, PDT_LOOKUP_ROW);
      GetCdtVal(n, text, 401);
      GetVtxVal(n, 801);
      GetFdtVal(n, text, 901);
      CalcPipeLength(n, 1);
      FindFacRnoIdx(n);
    }
    FindRdx(3, "r", text, text);
    FindPLutRno("l", 0);
    FindFLutRno("l", 0);
    FindNodeByName("1", 1, 0, 0);
    GetHdrVal(200, text);
  }
  /**
   * Runs `call` with its first allocation failing, then its second and so on until it needs none: the result is
   * `failure`, or `success` where the allocation only saves time, and nothing stays allocated. Returns how often the
   * result was `failure`.
   */
  int every(const char* what, int32_t failure, int32_t success, const std::function<void()>& before,
            const std::function<int32_t()>& call) {
    int failures = 0;
    const size_t blocks = liveBlocks();
    for (int n = 1;; n++) {
      before();
      failAllocation(n);
      const int32_t result = call();
      const bool waits = failureWaits();
      failAllocation(0);
      useAll();
      freeAll();
      EXPECT_EQ(liveBlocks(), blocks) << what << " leaves something behind, allocation " << n;
      if (waits) {
        EXPECT_EQ(result, success) << what;
        return failures;
      }
      EXPECT_TRUE(result == failure || result == success) << what << " gives " << result << ", allocation " << n;
      failures += result == failure;
    }
  }
  int every(const char* what, int32_t failure, int32_t success, const std::function<int32_t()>& call) {
    return every(
        what, failure, success, [] {}, call);
  }
  void readNodesAndVertices() {
    ReadVtx(base.c_str(), 0);
    ReadNdt(base.c_str(), 0, 10.1f);
  }
  void readModel() {
    readNodesAndVertices();
    ReadPdt(base.c_str(), 1, "psig", 0);
    ReadCdt(base.c_str(), 0);
    ReadFtg(base.c_str(), 0, 0, "10.0");
    releaseTable(model.rdx); /* ReadRdx forgets the table of ReadNdt */
    ReadRdx(3, base.c_str());
  }
};

TEST_F(EveryAllocation, of_the_model_files) {
  const char* b = base.c_str();
  const auto before = [this] { readNodesAndVertices(); };
  EXPECT_EQ(every("ReadVtx", -1, 100, [=] { return ReadVtx(b, 0); }), 1);
  EXPECT_EQ(every("ReadNdt", -1, 2, [=] { return ReadNdt(b, 0, 10.1f); }), 3);
  EXPECT_EQ(every("ReadPdt", -1, 100, before, [=] { return ReadPdt(b, 1, "psig", 0); }), 2);
  EXPECT_EQ(every("ReadCdt", -1, 100, before, [=] { return ReadCdt(b, 0); }), 2);
  EXPECT_EQ(every("ReadFtg", -1, 2, [=] { return ReadFtg(b, 0, 0, "10.0"); }), 1);
  EXPECT_EQ(every("ReadRdx", -1, 0, [=] { return ReadRdx(3, b); }), 1);
}

TEST_F(EveryAllocation, of_an_appended_fitting_file) {
  const auto read = [this] { return ReadFtg(base.c_str(), 1, 0, "10.0"); };
  EXPECT_EQ(every("ReadFtg", -1, 4, read, read), 1);
}

TEST_F(EveryAllocation, of_the_header) {
  const std::string path = dir.path("header");
  EXPECT_EQ(every("HdrIo", -4, 200, [&] { return HdrIo(path.c_str(), "M", 1); }), 1);
}

TEST_F(EveryAllocation, of_the_lookups_and_facilities) {
  const std::string lut = dir.path("lut"), fac = dir.path("fac");
  const struct {
    const char* name;
    int32_t (*read)(const char*);
    int32_t failure, failures;
    size_t stride;
  } loaders[] = {{"ReadPLut", ReadPLut, -4, 2, kPLutStride}, {"ReadFLut", ReadFLut, -3, 1, kFLutStride},
                 {"ReadRLut", ReadRLut, -3, 1, kRLutStride}, {"ReadVLut", ReadVLut, -3, 1, kVLutStride},
                 {"ReadWLut", ReadWLut, -3, 1, kWLutStride}, {"ReadCLut", ReadCLut, -3, 1, kCLutStride}};
  for (const auto& l : loaders) {
    dir.write("lut", std::string(3 * l.stride, 'l'));
    const int32_t success = l.read(lut.c_str());
    freeAll();
    EXPECT_GT(success, 0);
    EXPECT_EQ(every(l.name, l.failure, success, [&] { return l.read(lut.c_str()); }), l.failures) << l.name;
  }
  const int32_t success = ReadFac(fac.c_str());
  freeAll();
  EXPECT_GE(every("ReadFac", -1, success, [&] { return ReadFac(fac.c_str()); }), 2);
  EXPECT_GE(every("DefaultFac", -1, success, [] { return DefaultFac(); }), 1);
}

TEST_F(EveryAllocation, of_a_save_which_then_touches_nothing) {
  const TempDir out;
  const std::string target = out.base();
  const auto before = [this] { readModel(); };
  EXPECT_GE(every("SavePipe", -5, 100, before, [&] { return SavePipe(3, target.c_str()); }), 4);
  dir.write("model.pdt.bak", "older");
  readModel();
  failAllocation(1);
  EXPECT_EQ(SavePipe(3, base.c_str()), -5);
  EXPECT_EQ(dir.read("model.pdt.bak"), "older");
  freeAll();
}

TEST_F(EveryAllocation, of_a_trace) {
  SetGlobalGDI(dir.path("").c_str(), "");
  const auto before = [this] {
    readModel();
    for (int32_t p = 1; p <= pipeTop(); p++) model.pxy[p].Report = 1;
  };
  std::vector<int32_t> pipes(200);
  /* A trace looks at six pipes of a node. The first table has a code of its own. */
  const auto trace = [&](int16_t mode) {
    const int32_t result = CalcSystemTrace(1, 0, 0, mode, pipes.data(), 0);
    return result == -1 ? -6 : result;
  };
  EXPECT_GE(every("trace to files", -6, 6, before, [&] { return trace(0); }), 2);
  EXPECT_GE(every("trace to a list", -6, 6, before, [&] { return trace(1); }), 2);
  before();
  failAllocation(1);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 1, pipes.data(), 0), -1);
  freeAll();
}

}  // namespace
}  // namespace pn10::test
