/** Tables and their loaders when memory or files fail: codes, what is left, and that nothing leaks. */
#include "faults.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct NoMemory : testing::Test {
  Fresh fresh;
  TempDir dir;
  size_t blocks = 0;

  NoMemory() {
    dir.write("model.ndt", fileOf(std::vector<Ndt>{nodeRecord(1, "1"), nodeRecord(2, "2")}));
    std::vector<Vtx> vtxs;
    std::vector<Pdt> pipes;
    for (int p = 1; p <= 100; p++) {
      vtxs.push_back(vtxRecord(101 - p, 0, 1, 1));
      pipes.push_back(pipeRecord(p, 1, 2, 4));
    }
    dir.write("model.vtx", fileOf(vtxs));
    dir.write("model.pdt", fileOf(pipes));
    blocks = liveBlocks();
  }
  ~NoMemory() override {
    failAllocation(0);
    failOpening(0);
    FreeModel();
    FreeFdt();
    EXPECT_EQ(liveBlocks(), blocks) << "something is left behind";
  }
  int32_t readNdt() { return ReadNdt(dir.base().c_str(), 0, 10.1f); }
  int32_t readPdt() { return ReadPdt(dir.base().c_str(), 1, "psig", 0); }
};

TEST_F(NoMemory, read_ndt_without_one_of_its_three_tables_has_none) {
  for (int n = 1; n <= 3; n++) {
    failAllocation(n);
    EXPECT_EQ(readNdt(), -1) << n;
    EXPECT_EQ(model.nodeCount, 2) << n;
    EXPECT_EQ(model.ndt, nullptr) << n;
    EXPECT_EQ(model.nxy, nullptr) << n;
    EXPECT_EQ(model.rdx, nullptr) << n;
    EXPECT_EQ(nodeTop(), -1) << n;
    EXPECT_EQ(liveBlocks(), blocks) << n;
  }
  failAllocation(4);
  EXPECT_EQ(readNdt(), 2);
}

TEST_F(NoMemory, read_ndt_takes_its_three_tables_and_nothing_else) {
  const size_t before = liveBytes();
  resetPeak();
  readNdt();
  EXPECT_EQ(peakBytes() - before, 3 * sizeof(Ndt) + 3 * sizeof(NXY) + 11 * 339);
}

TEST_F(NoMemory, read_ndt_that_cannot_open_twice_keeps_zeroed_tables) {
  failOpening(1);
  EXPECT_EQ(readNdt(), -2);
  EXPECT_EQ(model.ndt, nullptr);
  EXPECT_EQ(model.rdx, nullptr);
  EXPECT_EQ(model.nodeCount, 0);
  failOpening(2);
  EXPECT_EQ(readNdt(), -2);
  EXPECT_EQ(model.nodeCount, 2);
  EXPECT_STREQ(model.ndt[2].NODENAME, "");
  EXPECT_EQ(model.nxy[2].Drawn, 0);
  EXPECT_NE(model.rdx, nullptr);
}

TEST_F(NoMemory, read_vtx_without_its_table) {
  failAllocation(1);
  EXPECT_EQ(ReadVtx(dir.base().c_str(), 0), -1);
  EXPECT_EQ(model.vtx, nullptr);
  EXPECT_EQ(vtxTop(), -1);
}

TEST_F(NoMemory, read_vtx_that_cannot_open_twice_keeps_a_zeroed_table) {
  failOpening(2);
  EXPECT_EQ(ReadVtx(dir.base().c_str(), 0), -2);
  EXPECT_EQ(model.vtxSlots, 101);
  EXPECT_EQ(model.vtx[100].VTX_OWNER, 0);
  FreeModel();
  failOpening(1);
  EXPECT_EQ(ReadVtx(dir.base().c_str(), 0), 0); /* as if there were none */
}

TEST_F(NoMemory, read_pdt_without_one_of_its_two_tables) {
  readNdt();
  for (int n = 1; n <= 2; n++) {
    failAllocation(n);
    EXPECT_EQ(readPdt(), -1) << n;
    EXPECT_EQ(model.pxy, nullptr) << n;
    releaseTable(model.pdt);
  }
}

TEST_F(NoMemory, read_pdt_that_cannot_open_answers_minus_2) {
  readNdt();
  failOpening(1);
  EXPECT_EQ(readPdt(), -2);
  EXPECT_EQ(model.pdt, nullptr);
  failOpening(2);
  EXPECT_EQ(readPdt(), -2);
  EXPECT_EQ(model.pdtSlots, 101);
  EXPECT_EQ(model.pdt[100].ID, 0);
}

TEST_F(NoMemory, read_cdt_without_one_of_its_two_tables) {
  dir.write("model.cdt", fileOf(std::vector<Cdt>{custRecord(1, 0), custRecord(2, 0)}));
  for (int n = 1; n <= 2; n++) {
    failAllocation(n);
    EXPECT_EQ(ReadCdt(dir.base().c_str(), 0), -1) << n;
    EXPECT_EQ(model.custCount, 2) << n;
    EXPECT_EQ(model.cxy, nullptr) << n;
    releaseTable(model.cdt);
  }
}

TEST_F(NoMemory, read_cdt_that_cannot_open_answers_minus_2) {
  dir.write("model.cdt", fileOf(std::vector<Cdt>{custRecord(1, 0), custRecord(2, 0)}));
  failOpening(1);
  EXPECT_EQ(ReadCdt(dir.base().c_str(), 0), -2);
  EXPECT_EQ(model.cdt, nullptr);
  EXPECT_EQ(model.custCount, 0);
  failOpening(2);
  EXPECT_EQ(ReadCdt(dir.base().c_str(), 0), -2);
  EXPECT_EQ(model.custCount, 2);
  EXPECT_EQ(model.cdt[2].ID, 0);
  EXPECT_EQ(model.cxy[2].DRAW, 0);
}

TEST_F(NoMemory, read_ftg_keeps_the_count_as_sized_and_the_records_it_had) {
  dir.write("model.fdt", fileOf({ftgRecord(1, "tee"), ftgRecord(2, "cap")}));
  failAllocation(1);
  EXPECT_EQ(ReadFtg(dir.base().c_str(), 0, 0, "10.0"), -1);
  EXPECT_EQ(model.ftgCount, 2);
  EXPECT_EQ(model.fdt, nullptr);
  EXPECT_EQ(ftgTop(), -1);
  EXPECT_EQ(ReadFtg(dir.base().c_str(), 0, 0, "10.0"), 2);
  failAllocation(1);
  EXPECT_EQ(ReadFtg(dir.base().c_str(), 1, 0, "10.0"), -1);
  EXPECT_EQ(model.ftgCount, 4);
  EXPECT_EQ(ftgTop(), 2);
  EXPECT_STREQ(model.fdt[2].FTG_NAME, "cap");
}

TEST_F(NoMemory, a_load_in_file_order_takes_its_tables_and_nothing_else) {
  std::vector<Vtx> vtxs;
  std::vector<Pdt> pipes;
  std::vector<Cdt> custs;
  for (int p = 1; p <= 100; p++) {
    pipes.push_back(pipeRecord(p, 1, 2, 4));
    custs.push_back(custRecord(p, p));
    custs.back().VTX_MODE = 4;
    for (int i = 0; i < 2; i++) vtxs.push_back(vtxRecord(p, 0, 1, 1));
  }
  for (int c = 1; c <= 100; c++) vtxs.push_back(vtxRecord(c, 1, 1, 1));
  dir.write("model.vtx", fileOf(vtxs));
  dir.write("model.pdt", fileOf(pipes));
  dir.write("model.cdt", fileOf(custs));
  readNdt();
  const size_t before = liveBytes();
  resetPeak();
  ReadVtx(dir.base().c_str(), 0);
  EXPECT_EQ(readPdt(), 100);
  EXPECT_EQ(ReadCdt(dir.base().c_str(), 0), 100);
  EXPECT_EQ(peakBytes() - before, 301 * sizeof(Vtx) + 101 * (sizeof(Pdt) + sizeof(PXY) + sizeof(Cdt) + sizeof(CXY)));
  EXPECT_EQ(model.cxy[100].FIRST_VTX, 300);
}

TEST_F(NoMemory, vertices_out_of_order_are_bound_also_without_room_for_an_index) {
  readNdt();
  ReadVtx(dir.base().c_str(), 0);
  failAllocation(3);
  EXPECT_EQ(readPdt(), 100);
  for (int p = 1; p <= 100; p++) EXPECT_EQ(model.pxy[p].FIRST_VTX, 101 - p) << p;
}

TEST_F(NoMemory, a_table_that_cannot_grow_is_gone_and_released) {
  struct {
    int32_t (*grow)(int32_t);
    int32_t failure;
  } rows[] = {{ReallocNdt, 0}, {ReallocNXY, 0}, {ReallocPdt, 0}, {ReallocPXY, 0}, {ReallocCdt, 0},
              {ReallocCXY, 0}, {ReallocVtx, 0}, {ReallocFdt, 0}, {ReallocTXY, -1}};
  for (const int32_t size : {6, 1000}) { /* a little more, and far more */
    for (const auto& row : rows) {
      EXPECT_EQ(row.grow(5), 1);
      failAllocation(1);
      EXPECT_EQ(row.grow(size), row.failure);
      EXPECT_EQ(liveBlocks(), blocks);
    }
    EXPECT_EQ(model.ftgCount, 5);
    EXPECT_EQ(model.textCapacity, 0);
  }
}

TEST_F(NoMemory, texts_go_with_their_table) {
  addText("one"), addText("two");
  failAllocation(1);
  EXPECT_EQ(ReallocTXY(3), -1);
  EXPECT_EQ(model.gtx, nullptr);
  EXPECT_EQ(liveBlocks(), blocks);
  EXPECT_EQ(DelTXY(1), 1); /* still below the count, and harmless */
}

TEST_F(NoMemory, a_pipe_is_copied_without_fittings_when_their_table_cannot_grow) {
  addPipe(pipeRecord(7, 0, 0)), addPipe(pipeRecord(8, 0, 0));
  addFtg(ftgRecord(7, "tee"));
  model.pdt[1].FTG_COUNT = 1;
  failAllocation(1);
  EXPECT_EQ(CopyPdt(1, 2, 1, 20), -1);
  EXPECT_EQ(model.pdt[2].ID, 20);
  EXPECT_EQ(model.fdt, nullptr);
}

}  // namespace
}  // namespace pn10::test
