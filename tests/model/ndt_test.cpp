/** ReadNdt: counts, derived counters, versions, short and hostile files, result codes. */
#include <cmath>
#include "model/staging.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct ReadNdtFile : testing::Test {
  Fresh fresh;
  TempDir dir;
  int32_t read(std::string_view bytes, float version = 10.1f) {
    FreeModel();
    dir.write("model.ndt", bytes);
    return ReadNdt(dir.base().c_str(), 0, version);
  }
  int32_t readNames(std::initializer_list<const char*> names) {
    std::vector<Ndt> nodes;
    for (const char* name : names) nodes.push_back(nodeRecord(1, name));
    return read(fileOf(nodes));
  }
};

bool same(const Ndt& a, const Ndt& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST_F(ReadNdtFile, every_column_arrives) {
  EXPECT_EQ(read(fileOf(std::vector<Ndt>{everyNodeField(1), everyNodeField(2), everyNodeField(3)})), 0);
  ASSERT_EQ(model.nodeCount, 3);
  for (int n = 1; n <= 3; n++) EXPECT_TRUE(same(model.ndt[n], everyNodeField(n))) << n;
  EXPECT_TRUE(same(model.ndt[0], Ndt{}));
  EXPECT_TRUE(same(staging.node, everyNodeField(3)));
}

TEST_F(ReadNdtFile, sizes_round_up_to_records) {
  const std::string one = packed(nodeRecord(1, "A"));
  struct {
    size_t size;
    int32_t count;
  } rows[] = {{0, 0}, {1, 1}, {218, 1}, {219, 1}, {220, 1}, {221, 2}, {440, 2}, {441, 3}};
  for (const auto& row : rows) {
    std::string bytes = one;
    bytes.resize(row.size);
    EXPECT_EQ(read(bytes), 0);
    EXPECT_EQ(model.nodeCount, row.count) << row.size;
    EXPECT_EQ(model.ndtSlots, row.count + 1) << row.size;
    EXPECT_EQ(model.nxySlots, row.count + 1) << row.size;
  }
}

TEST_F(ReadNdtFile, an_empty_file_gives_one_zeroed_slot_each_and_the_references) {
  EXPECT_EQ(read(""), 0);
  EXPECT_EQ(model.nodeCount, 0);
  EXPECT_TRUE(same(model.ndt[0], Ndt{}));
  EXPECT_EQ(model.nxy[0].Color, 0);
  ASSERT_NE(model.rdx, nullptr);
  EXPECT_EQ(model.rdxRows, 11);
  EXPECT_STREQ(model.rdx[10].SHORT_TEXT, "");
  EXPECT_EQ(GetLastNdt(), 0);
}

TEST_F(ReadNdtFile, one_byte_past_a_record_is_a_node_that_repeats_the_one_before) {
  Ndt want = everyNodeField(1);
  EXPECT_EQ(read(Bytes().add(packed(want)).padTo(221).str()), 0);
  EXPECT_EQ(model.nodeCount, 2);
  EXPECT_TRUE(same(model.ndt[2], want)); /* one byte is no ID, so not even that is new */
}

TEST_F(ReadNdtFile, a_first_record_cut_short_keeps_the_last_one_of_the_load_before) {
  read(packed(everyNodeField(1)));
  read(packed(everyNodeField(2)).substr(0, 48));
  Ndt want = everyNodeField(1);
  const Ndt now = everyNodeField(2);
  want.ID = now.ID;
  std::memcpy(want.NODENAME, now.NODENAME, sizeof want.NODENAME);
  want.PRESSURE = now.PRESSURE;
  EXPECT_TRUE(same(model.ndt[1], want));
}

TEST_F(ReadNdtFile, numeric_names_below_two_thousand_million_raise_the_name_counter) {
  struct {
    const char* name;
    int32_t number;
  } rows[] = {{"1999999999", 1999999999}, {"2000000000", 0}, {"99999999999999", 0}, {"-5", 0}, {"N12", 0},
              {"  12 main", 12},          {"+7", 7},         {"12.9", 12},          {"", 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(readNames({row.name}), row.number) << row.name;
    EXPECT_EQ(model.lastNodeName, row.number) << row.name;
  }
  EXPECT_EQ(readNames({"5", "2000000001", "17", "abc", "3"}), 17);
}

TEST_F(ReadNdtFile, the_highest_id_is_kept_without_a_limit) {
  read(fileOf(std::vector<Ndt>{nodeRecord(-4, "a"), nodeRecord(2100000000, "b"), nodeRecord(7, "c")}));
  EXPECT_EQ(model.lastNodeId, 2100000000);
  read(fileOf(std::vector<Ndt>{nodeRecord(-4, "a")}));
  EXPECT_EQ(model.lastNodeId, 0);
}

TEST_F(ReadNdtFile, nodes_wait_for_painting_without_a_colour) {
  read(packed(everyNodeField(1)));
  const NXY& screen = model.nxy[1];
  EXPECT_EQ(screen.Drawn, -1);
  EXPECT_EQ(screen.Color, 0);
  EXPECT_EQ(screen.HILITE + screen.HILITE_DRAWN + screen.Report + screen.Aux + screen.Active + screen.Display, 0);
}

TEST_F(ReadNdtFile, version_10_0_has_no_comparison_fields) {
  const Ndt want = everyNodeField(1);
  const std::string bytes = fileOf(std::vector<Ndt>{want, want});
  read(bytes, 10.0f);
  EXPECT_EQ(model.ndt[1].CMP_VALUE, 0);
  EXPECT_EQ(model.ndt[2].CMP_MODE, 0);
  EXPECT_EQ(staging.node.CMP_VALUE, want.CMP_VALUE); /* only the table is cleared */
  for (const float version : {10.1f, 9.9f, 0.0f, std::nextafter(10.0f, 11.0f)}) {
    read(bytes, version);
    EXPECT_EQ(model.ndt[1].CMP_VALUE, want.CMP_VALUE) << version;
    EXPECT_EQ(model.ndt[2].CMP_MODE, want.CMP_MODE) << version;
  }
}

TEST_F(ReadNdtFile, the_two_diversity_flags_narrow_differently) {
  std::string bytes = packed(nodeRecord(1, "A"));
  bytes.replace(70, 2, Bytes().i16(256).str()); /* QB_DF */
  bytes.replace(92, 2, Bytes().i16(256).str()); /* QX_DF */
  read(bytes);
  EXPECT_EQ(model.ndt[1].QB_DF, 0);
  EXPECT_EQ(model.ndt[1].QX_DF, 1);
}

TEST_F(ReadNdtFile, a_line_feed_in_a_name_shifts_its_record_only) {
  Bytes bytes;
  bytes.i32(1).add("ab\n").f32(2.5f).padTo(220).add(packed(everyNodeField(2)));
  read(bytes.str());
  EXPECT_STREQ(model.ndt[1].NODENAME, "ab\n");
  EXPECT_EQ(model.ndt[1].PRESSURE, 2.5f);
  EXPECT_TRUE(same(model.ndt[2], everyNodeField(2)));
}

TEST_F(ReadNdtFile, without_a_file_the_table_is_empty_whatever_count_was_set) {
  model.nodeCount = 5;
  EXPECT_EQ(ReadNdt((dir.base() + "none").c_str(), 1, 10.1f), 0);
  EXPECT_EQ(model.nodeCount, 0);
  EXPECT_NE(model.ndt, nullptr);
  EXPECT_NE(model.rdx, nullptr);
}

TEST_F(ReadNdtFile, a_missing_file_leaves_no_tables) {
  for (const char* base : {"/no/such/folder/model", "", static_cast<const char*>(nullptr)}) {
    model.nodeCount = model.lastNodeId = model.lastNodeName = 9;
    EXPECT_EQ(ReadNdt(base, 0, 10.1f), -2);
    EXPECT_EQ(model.ndt, nullptr);
    EXPECT_EQ(model.nxy, nullptr);
    EXPECT_EQ(model.rdx, nullptr);
    EXPECT_EQ(model.nodeCount + model.lastNodeId + model.lastNodeName, 0);
  }
}

TEST_F(ReadNdtFile, the_old_tables_are_forgotten_not_released) {
  read(packed(nodeRecord(1, "A")));
  Ndt* const oldNodes = model.ndt;
  NXY* const oldScreen = model.nxy;
  Rdx* const oldRdx = model.rdx;
  EXPECT_EQ(ReadNdt(dir.base().c_str(), 0, 10.1f), 0);
  EXPECT_STREQ(oldNodes[1].NODENAME, "A"); /* still the host's to read */
  freeRecords(oldNodes), freeRecords(oldScreen), freeRecords(oldRdx);
}

TEST_F(ReadNdtFile, a_file_beyond_all_memory_answers_minus_1_with_its_count) {
  if (!dir.writeHole("model.ndt", 220ull * 3000000000ull)) GTEST_SKIP() << "the file system takes no file of that size";
  EXPECT_EQ(ReadNdt(dir.base().c_str(), 0, 10.1f), -1);
  EXPECT_EQ(model.nodeCount, INT32_MAX);
  EXPECT_EQ(model.ndt, nullptr);
  EXPECT_EQ(model.nxy, nullptr);
  EXPECT_EQ(nodeTop(), -1);
}

TEST_F(ReadNdtFile, garbage_of_any_length_gives_consistent_tables) {
  uint32_t state = 99;
  for (int round = 0; round < 300; round++) {
    std::string bytes;
    for (size_t i = 0; i < static_cast<size_t>(round) * 7; i++) {
      state = state * 1664525u + 1013904223u;
      bytes += static_cast<char>(state >> 24);
    }
    EXPECT_GE(read(bytes), 0);
    ASSERT_EQ(model.nodeCount, static_cast<int32_t>((bytes.size() + 219) / 220));
    for (int n = 1; n <= model.nodeCount; n++) {
      ASSERT_EQ(model.ndt[n].NODENAME[40], 0);
      ASSERT_LE(model.ndt[n].QX_DF, 1);
      ASSERT_LE(model.lastNodeName, 1999999999);
    }
  }
}

}  // namespace
}  // namespace pn10::test
