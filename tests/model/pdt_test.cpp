/** ReadPdt: counts, counters, node references, bindings of single cases, lengths and flags, result codes. */
#include "model/staging.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct ReadPdtFile : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::vector<Ndt> nodes = {nodeRecord(1, "A", 0, 0), nodeRecord(2, "B", 30, 40)};
  std::vector<Vtx> vtxs;

  int32_t read(std::string_view pipes) {
    FreeModel();
    dir.write("model.ndt", fileOf(nodes));
    dir.write("model.vtx", fileOf(vtxs));
    dir.write("model.pdt", pipes);
    EXPECT_GE(ReadVtx(dir.base().c_str(), 0), 0);
    EXPECT_GE(ReadNdt(dir.base().c_str(), 0, 10.1f), 0);
    return ReadPdt(dir.base().c_str(), 3, "psig", 0);
  }
  int32_t read(const std::vector<Pdt>& pipes) { return read(fileOf(pipes)); }
};

TEST_F(ReadPdtFile, every_column_arrives) {
  Pdt pipe = everyPipeField(1);
  pipe.FROM_NODE = 1;
  pipe.TO_NODE = 2;
  pipe.VTX_MODE = 0;
  EXPECT_EQ(read({pipe}), pipe.ID);
  EXPECT_EQ(std::memcmp(&staging.pipe, &pipe, sizeof pipe), 0);
  pipe.FACILITY = 0; /* there is no such facility */
  EXPECT_EQ(std::memcmp(&model.pdt[1], &pipe, sizeof pipe), 0);
}

TEST_F(ReadPdtFile, sizes_round_up_to_records) {
  const std::string one = packed(pipeRecord(1, 1, 2));
  struct {
    size_t size;
    int32_t count;
  } rows[] = {{0, 0}, {1, 1}, {270, 1}, {280, 1}, {281, 2}, {561, 3}};
  for (const auto& row : rows) {
    std::string bytes = one;
    bytes.resize(row.size);
    read(bytes);
    EXPECT_EQ(model.pipeCount, row.count) << row.size;
    EXPECT_EQ(model.pdtSlots, row.count + 1) << row.size;
    EXPECT_EQ(model.pxySlots, row.count + 1) << row.size;
  }
}

TEST_F(ReadPdtFile, ids_below_two_thousand_million_and_groups_raise_their_counters) {
  Pdt a = pipeRecord(1999999999, 1, 2), b = pipeRecord(2000000000, 1, 2), c = pipeRecord(5, 1, 2);
  a.GROUP_ID = 12;
  b.GROUP_ID = 2100000000;
  c.GROUP_ID = -3;
  EXPECT_EQ(read({a, c}), 1999999999);
  EXPECT_EQ(model.lastGroupId, 12);
  EXPECT_EQ(read({b, c}), 5);
  EXPECT_EQ(model.lastGroupId, 2100000000);
}

TEST_F(ReadPdtFile, node_references_run_from_0_to_the_node_count) {
  struct {
    int32_t from, to, result;
  } rows[] = {{1, 2, 7}, {2, 2, 7}, {0, 0, 7}, {1, 3, -100}, {3, 1, -100}, {-1, 1, -100}, {1, INT32_MIN, -100}};
  for (const auto& row : rows) EXPECT_EQ(read({pipeRecord(7, row.from, row.to)}), row.result) << row.from << row.to;
}

TEST_F(ReadPdtFile, a_bad_reference_ends_the_load_with_the_table_as_it_stands) {
  EXPECT_EQ(read({pipeRecord(4, 1, 2), pipeRecord(9, 1, 3), pipeRecord(20, 1, 2)}), -100);
  EXPECT_EQ(model.pipeCount, 3);
  EXPECT_EQ(model.pxy[1].LENGTH, 50.0f);
  EXPECT_EQ(model.pdt[2].TO_NODE, 3);
  EXPECT_EQ(model.pdt[3].ID, 0);
  EXPECT_EQ(model.lastPipeId, 9);
}

TEST_F(ReadPdtFile, slot_0_stays_zero) {
  read({pipeRecord(4, 1, 2)});
  EXPECT_EQ(model.pdt[0].FROM_NODE + model.pdt[0].TO_NODE, 0);
}

TEST_F(ReadPdtFile, a_straight_pipe_is_measured_and_shown) {
  read({pipeRecord(4, 1, 2)});
  const PXY& screen = model.pxy[1];
  EXPECT_EQ(screen.LENGTH, 50.0f); /* a triangle of 30, 40, 50 */
  EXPECT_EQ(screen.FIRST_VTX + screen.LAST_VTX + screen.LineWidth + screen.LineType + screen.Color, 0);
  EXPECT_EQ(screen.DRAWN + screen.HILITE + screen.HILITE_DRAWN + screen.TraceColor, 0);
  EXPECT_EQ(screen.Display + screen.Report + screen.Aux + screen.Active, 4);
  EXPECT_EQ(model.nxy[1].Display + model.nxy[2].Display, 2);
}

TEST_F(ReadPdtFile, a_pipe_is_measured_in_space) {
  nodes[0].Z_COORD = 100;
  nodes[1].Z_COORD = 220;
  read({pipeRecord(4, 1, 2)});
  EXPECT_EQ(model.pxy[1].LENGTH, 130.0f); /* 30, 40 and 120 */
}

TEST_F(ReadPdtFile, an_equation_from_the_facility_falls_back_to_the_default) {
  Pdt pipe = pipeRecord(4, 1, 2);
  pipe.EQUATION = -1;
  pipe.FACILITY = 77;
  read({pipe});
  EXPECT_EQ(model.pdt[1].EQUATION, 3);
  EXPECT_EQ(model.pdt[1].FACILITY, 0);
}

TEST_F(ReadPdtFile, a_run_is_bound_and_measured) {
  vtxs = {vtxRecord(4, 0, 30, 0), vtxRecord(4, 2, 30, 20)};
  Pdt pipe = pipeRecord(4, 1, 2, 4);
  read({pipe});
  EXPECT_EQ(model.pxy[1].FIRST_VTX, 1);
  EXPECT_EQ(model.pxy[1].LAST_VTX, 2);
  EXPECT_EQ(model.pxy[1].LENGTH, 70.0f); /* 30 + 20 + 20 */
}

TEST_F(ReadPdtFile, vertices_before_the_range_are_found_in_the_second_pass) {
  /* pipe 10 takes records 3 and 4, so the range starts at 5; pipe 11 lies before it, pipe 12 behind pipe 11 */
  vtxs = {vtxRecord(11, 0, 1, 1), vtxRecord(12, 0, 2, 2), vtxRecord(10, 0, 3, 3), vtxRecord(10, 0, 4, 4),
          vtxRecord(13, 0, 5, 5)};
  read({pipeRecord(10, 1, 2, 4), pipeRecord(11, 1, 2, 4), pipeRecord(12, 1, 2, 4), pipeRecord(13, 1, 2, 4)});
  const int32_t runs[4][2] = {{3, 4}, {1, 1}, {2, 2}, {5, 5}};
  for (int p = 0; p < 4; p++) {
    EXPECT_EQ(model.pxy[p + 1].FIRST_VTX, runs[p][0]) << p;
    EXPECT_EQ(model.pxy[p + 1].LAST_VTX, runs[p][1]) << p;
    EXPECT_EQ(model.pdt[p + 1].VTX_MODE, 4) << p;
  }
}

TEST_F(ReadPdtFile, vertices_of_customers_and_killed_ones_neither_match_nor_end_a_run) {
  vtxs = {vtxRecord(4, 1, 9, 9), vtxRecord(4, 0, 1, 1), vtxRecord(7, 3, 9, 9), vtxRecord(0, 0, 9, 9),
          vtxRecord(4, 2, 2, 2), vtxRecord(4, 8, 9, 9), vtxRecord(5, 0, 3, 3)};
  read({pipeRecord(4, 1, 2, 4), pipeRecord(5, 1, 2, 4)});
  EXPECT_EQ(model.pxy[1].FIRST_VTX, 2);
  EXPECT_EQ(model.pxy[1].LAST_VTX, 5);
  EXPECT_EQ(model.pxy[2].FIRST_VTX, 7);
}

TEST_F(ReadPdtFile, missing_vertices_make_a_pipe_straight) {
  vtxs = {vtxRecord(99, 0, 1, 1)};
  read({pipeRecord(4, 1, 2, 4), pipeRecord(5, 1, 2, 1), pipeRecord(6, 1, 2, 2)});
  for (int p = 1; p <= 3; p++) {
    EXPECT_EQ(model.pdt[p].VTX_MODE, 0) << p;
    EXPECT_EQ(model.pxy[p].FIRST_VTX + model.pxy[p].LAST_VTX, 0) << p;
  }
}

TEST_F(ReadPdtFile, other_modes_bind_nothing_and_stay) {
  vtxs = {vtxRecord(4, 0, 1, 1)};
  for (const int mode : {0, 3, 5, 255}) {
    read({pipeRecord(4, 1, 2, mode)});
    EXPECT_EQ(model.pdt[1].VTX_MODE, mode);
    EXPECT_EQ(model.pxy[1].LAST_VTX, 0);
  }
}

TEST_F(ReadPdtFile, a_single_vertex_becomes_the_last_one_of_kind_8) {
  for (const int mode : {1, 2}) {
    for (const int kind : {0, 2, 8}) {
      vtxs = {vtxRecord(3, 0, 9, 9), vtxRecord(4, kind, 0, 1.5)};
      read({pipeRecord(4, 1, 2, mode)});
      EXPECT_EQ(model.pxy[1].FIRST_VTX, 0);
      EXPECT_EQ(model.pxy[1].LAST_VTX, 2);
      EXPECT_EQ(model.vtx[2].VTX_KIND, 8);
      EXPECT_EQ(model.pdt[1].VTX_MODE, mode);
    }
  }
}

TEST_F(ReadPdtFile, a_single_vertex_at_0_0_is_found_but_not_bound) {
  vtxs = {vtxRecord(4, 2, 0, 0)};
  read({pipeRecord(4, 1, 2, 1)});
  EXPECT_EQ(model.pxy[1].FIRST_VTX + model.pxy[1].LAST_VTX, 0);
  EXPECT_EQ(model.vtx[1].VTX_KIND, 2);
  EXPECT_EQ(model.pdt[1].VTX_MODE, 1);
}

TEST_F(ReadPdtFile, a_pipe_without_an_id_takes_no_killed_vertices) {
  vtxs = {vtxRecord(0, 0, 1, 1)};
  read({pipeRecord(0, 1, 2, 4)});
  EXPECT_EQ(model.pdt[1].VTX_MODE, 0);
}

TEST_F(ReadPdtFile, without_a_file_the_table_is_empty_whatever_count_was_set) {
  model.pipeCount = 5;
  EXPECT_EQ(ReadPdt("/no/such/folder/model", 3, "psig", 1), 0);
  EXPECT_EQ(model.pipeCount, 0);
  EXPECT_EQ(model.pdtSlots + model.pxySlots, 2);
}

TEST_F(ReadPdtFile, a_missing_file_leaves_no_tables) {
  for (const char* base : {"/no/such/folder/model", static_cast<const char*>(nullptr)}) {
    model.pipeCount = model.lastPipeId = model.lastGroupId = 4;
    EXPECT_EQ(ReadPdt(base, 3, nullptr, 0), -2);
    EXPECT_EQ(model.pdt, nullptr);
    EXPECT_EQ(model.pxy, nullptr);
    EXPECT_EQ(model.pipeCount + model.lastPipeId + model.lastGroupId, 0);
  }
}

TEST_F(ReadPdtFile, a_null_unit_text_is_an_empty_one) {
  read({pipeRecord(4, 1, 2)});
  freeRecords(model.pdt), freeRecords(model.pxy);
  EXPECT_EQ(ReadPdt(dir.base().c_str(), 3, nullptr, 0), 4);
}

TEST_F(ReadPdtFile, a_file_beyond_all_memory_answers_minus_1) {
  if (!dir.writeHole("model.pdt", 280ull * 3000000000ull)) GTEST_SKIP() << "the file system takes no file of that size";
  EXPECT_EQ(ReadPdt(dir.base().c_str(), 3, "psig", 0), -1);
  EXPECT_EQ(pipeTop(), -1);
}

TEST_F(ReadPdtFile, cut_anywhere_the_load_ends_well) {
  vtxs = {vtxRecord(4, 0, 1, 1), vtxRecord(5, 2, 2, 2)};
  const std::string bytes = fileOf(std::vector<Pdt>{pipeRecord(4, 1, 2, 4), pipeRecord(5, 2, 1, 1)});
  for (size_t size = 0; size <= bytes.size(); size++) {
    EXPECT_GE(read(bytes.substr(0, size)), -100);
    ASSERT_EQ(model.pipeCount, static_cast<int32_t>((size + 279) / 280)) << size;
  }
}

}  // namespace
}  // namespace pn10::test
