/** ReadVtx: counts, columns, missing and cut files. */
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct ReadVtxFile : testing::Test {
  Fresh fresh;
  TempDir dir;
  int32_t read(std::string_view bytes) {
    FreeModel();
    dir.write("model.vtx", bytes);
    return ReadVtx(dir.base().c_str(), 0);
  }
};

TEST_F(ReadVtxFile, every_column_arrives_and_hilites_are_off) {
  std::vector<Vtx> vtxs;
  for (int v = 1; v <= 6000; v++) vtxs.push_back(vtxRecord(v, v % 9, v + 0.5, -v - 0.25, static_cast<float>(v) / 4));
  EXPECT_EQ(read(fileOf(vtxs)), 6000);
  for (int v = 1; v <= 6000; v++) {
    ASSERT_EQ(packed(model.vtx[v]), packed(vtxs[static_cast<size_t>(v) - 1])) << v;
    ASSERT_EQ(model.vtx[v].VTX_HILITE + model.vtx[v].VTX_DRAWN, 0) << v;
  }
  EXPECT_EQ(packed(model.vtx[0]), packed(Vtx{}));
}

TEST_F(ReadVtxFile, sizes_round_up_and_what_is_cut_off_reads_as_zero) {
  const std::string two = fileOf(std::vector<Vtx>{vtxRecord(1, 2, 3, 4, 5), vtxRecord(6, 2, 7, 8, 9)});
  for (size_t size = 0; size <= two.size(); size++) {
    ASSERT_EQ(read(two.substr(0, size)), static_cast<int32_t>((size + 25) / 26)) << size;
    ASSERT_EQ(model.vtxSlots, model.vtxCount + 1);
  }
  read(two.substr(0, 26 + 13)); /* owner and kind whole, X in part */
  EXPECT_EQ(model.vtx[2].VTX_OWNER, 6);
  EXPECT_EQ(model.vtx[2].VTX_KIND, 2);
  EXPECT_EQ(model.vtx[2].VTX_X, 0);
}

TEST_F(ReadVtxFile, a_model_without_a_vertex_file_is_no_error) {
  for (const char* base : {"/no/such/folder/model", static_cast<const char*>(nullptr)}) {
    FreeModel();
    model.vtxCount = 7;
    EXPECT_EQ(ReadVtx(base, 0), 0);
    EXPECT_NE(model.vtx, nullptr);
    EXPECT_EQ(model.vtxSlots, 1);
    EXPECT_EQ(model.vtxCount, 0);
  }
}

TEST_F(ReadVtxFile, without_a_file_the_table_is_empty) {
  dir.write("model.vtx", packed(vtxRecord(1, 0)));
  EXPECT_EQ(ReadVtx(dir.base().c_str(), 1), 0);
  EXPECT_EQ(model.vtxSlots, 1);
}

TEST_F(ReadVtxFile, a_file_beyond_all_memory_answers_minus_1) {
  if (!dir.writeHole("model.vtx", 26ull * 3000000000ull)) GTEST_SKIP() << "the file system takes no file of that size";
  EXPECT_EQ(ReadVtx(dir.base().c_str(), 0), -1);
  EXPECT_EQ(model.vtx, nullptr);
  EXPECT_EQ(vtxTop(), -1);
}

}  // namespace
}  // namespace pn10::test
