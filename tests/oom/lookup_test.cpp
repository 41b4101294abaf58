/** Lookups and facilities without memory: codes, counts, and answers that stay the same. */
#include "lookup/lookup.h"
#include "facility/facility.h"
#include "faults.h"
#include "lookup/packed.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct NoLookupMemory : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string file(const std::string& bytes) {
    dir.write("file", bytes);
    return dir.path("file");
  }
  void TearDown() override { failAllocation(0); }
};

TEST_F(NoLookupMemory, the_five_scanned_lookups_give_minus_three) {
  const struct {
    size_t stride;
    int32_t (*read)(const char*);
    int32_t (*init)();
    int32_t* count;
  } loaders[] = {{kFLutStride, ReadFLut, InitFLut, &lookups.flut.count},
                 {kRLutStride, ReadRLut, InitRLut, &lookups.rlut.count},
                 {kVLutStride, ReadVLut, InitVLut, &lookups.vlut.count},
                 {kWLutStride, ReadWLut, InitWLut, &lookups.wlut.count},
                 {kCLutStride, ReadCLut, InitCLut, &lookups.clut.count}};
  for (const auto& l : loaders) {
    const std::string path = file(std::string(3 * l.stride, '\0'));
    failAllocation(1);
    EXPECT_EQ(l.read(path.c_str()), -3);
    EXPECT_EQ(*l.count, 0);
    failAllocation(1);
    EXPECT_EQ(l.init(), -3);
    EXPECT_EQ(*l.count, 0);
  }
}

TEST_F(NoLookupMemory, pipe_sizes_give_minus_four_for_rows_or_index) {
  const std::string path = file(lutFile(kPLutStride, {pipeSize("A"), pipeSize("B")}));
  for (int nth : {1, 2}) {
    ReadPLut(path.c_str());
    failAllocation(nth);
    EXPECT_EQ(ReadPLut(path.c_str()), -4) << nth;
    EXPECT_EQ(lookups.plut.count, 0);
    EXPECT_EQ(GetPLutAddress(), 0);
    EXPECT_EQ(GetPPTypeAddress(), 0);
    EXPECT_EQ(FindPLutRno("A", 0), 0);
    failAllocation(nth);
    EXPECT_EQ(InitPLut(), -4) << nth;
  }
}

TEST_F(NoLookupMemory, without_memory_for_the_answers_sizes_are_found_by_scan) {
  failAllocation(3);
  ASSERT_EQ(ReadPLut(file(lutFile(kPLutStride, {pipeSize("A"), pipeSize("B"), pipeSize("C")})).c_str()), 3);
  EXPECT_EQ(FindPLutRno("A", 0), 1);
  EXPECT_EQ(FindPLutRno("C", 0), 3);
  EXPECT_EQ(FindPLutRno("D", 1), 0);
}

TEST_F(NoLookupMemory, facility_tables_give_minus_one_and_are_empty_then) {
  const std::string path = file("title\n0\n");
  for (int nth : {1, 2}) {
    DefaultFac();
    failAllocation(nth);
    EXPECT_EQ(ReadFac(path.c_str()), -1) << nth;
    EXPECT_EQ(facilities.count, 0);
    EXPECT_EQ(facilities.rows, nullptr);
  }
  failAllocation(1);
  EXPECT_EQ(DefaultFac(), -1);
  EXPECT_EQ(FindFacRnoIdx(30002), 0);
  failAllocation(1);
  EXPECT_EQ(ReallocFac(3), -1);
}

TEST_F(NoLookupMemory, node_flags_are_rebuilt_pipe_by_pipe_when_there_is_no_room_for_all) {
  addNodes(3);
  addPipe(1, 2);
  addPipe(2, 3);
  failAllocation(1);
  EXPECT_EQ(ResetPipeFacSettings(1, 2, 1, "Psi", 1), 0);
  for (int32_t n : {1, 2, 3}) EXPECT_EQ(model.nxy[n].Active, 1) << n;
}

}  // namespace
}  // namespace pn10::test
