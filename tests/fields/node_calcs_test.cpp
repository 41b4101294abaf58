/** Computed values of nodes, the pipes at a node, and the names of nodes. */
#include <cmath>
#include <limits>

#include "fields/field_rows.h"
#include "model/draw_state.h"

namespace {

using namespace pn10;
using namespace pn10::test;

struct NodeCalcs : testing::Test {
  Fresh fresh;
  char text[64] = "";
  int32_t pipes[7] = {};
  double xs[7] = {}, ys[7] = {};
  float zs[7] = {};
  void SetUp() override { makeEmptyTables(4, 8, 0, 4); }
  Ndt& node(int32_t n = 1) { return model.ndt[n]; }
  double field(int16_t number, int32_t n = 1) { return GetNdtVal(n, text, number); }
};

TEST_F(NodeCalcs, base_values_are_the_products_with_their_factors) {
  node().PRESSURE = -3.0f;
  node().P_FACTOR = 0.5f;
  node().QB_LOAD = -4.0f;
  node().Q_FACTOR = 1000.0f;
  EXPECT_EQ(field(364), 1.5);
  EXPECT_EQ(field(365), -4000.0);
}

TEST_F(NodeCalcs, absolute_temperature_follows_the_first_letter_of_the_units) {
  const double f18 = 1.8f, f49167 = 491.67f, f45967 = 459.67f;
  const auto single = [](double v) { return static_cast<double>(static_cast<float>(v)); };
  struct {
    const char* units;
    float t;
    double rankine;
  } rows[] = {{"Celsius", 0.0f, static_cast<double>(491.67f)},
              {"C", 100.0f, single(100.0 * f18 + f49167)},
              {"Fahrenheit", 60.0f, single(60.0 + f45967)},
              {"K", 100.0f, 180.0},
              {"Rankine", 520.0f, 520.0},
              {"celsius", 5.0f, 5.0},
              {"", 7.0f, 7.0}};
  for (const auto& row : rows) {
    copyText(settings.tempUnits, row.units);
    node().T = row.t;
    EXPECT_EQ(field(366), row.rankine) << row.units;
  }
}

TEST_F(NodeCalcs, comparison_is_with_pressure_or_base_load) {
  node().PRESSURE = 60.0f;
  node().PATM = 15.0f;
  node().QB_LOAD = 200.0f;
  node().CMP_VALUE = 45.0f;
  struct {
    uint8_t mode;
    double difference, percentage;
  } rows[] = {{0, 0, 0}, {1, 15, 20}, {2, 155, 77.5}, {3, 0, 0}, {255, 0, 0}};
  for (const auto& row : rows) {
    node().CMP_MODE = row.mode;
    EXPECT_DOUBLE_EQ(field(382), row.difference) << int{row.mode};
    EXPECT_DOUBLE_EQ(field(383), row.percentage) << int{row.mode};
  }
  node().PATM = -60.0f;
  node().QB_LOAD = 0.0f;
  for (uint8_t mode : {uint8_t{1}, uint8_t{2}}) {
    node().CMP_MODE = mode;
    EXPECT_EQ(field(383), 0.0);
  }
}

TEST_F(NodeCalcs, base_load_counts_the_diversity_factor_of_a_known_load) {
  node().QB_LOAD = 100.0f;
  drawState.LoadFactor = 0.5f;
  struct {
    uint8_t off;
    int16_t known, df;
    double load;
  } rows[] = {{0, 0, 0, 100}, {0, 0, 1, 50}, {0, 1, 1, 100}, {1, 0, 1, 0}, {2, 0, 0, 0}};
  for (const auto& row : rows) {
    node().HYD_STATUS = row.off;
    node().QB_KNOWN = row.known;
    node().QB_DF = row.df;
    EXPECT_EQ(CalcNodeQBase(1), row.load);
  }
}

TEST_F(NodeCalcs, base_load_that_is_no_number_becomes_zero_in_the_record) {
  node().HYD_STATUS = 1;
  node().QB_LOAD = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(CalcNodeQBase(1), 0.0);
  EXPECT_EQ(node().QB_LOAD, 0.0f);
}

TEST_F(NodeCalcs, external_load_adds_the_fixed_part_and_divides_by_the_factor) {
  node().QX_LOAD = 100.0f;
  node().QX_FIXED = 20.0f;
  node().Q_FACTOR = 10.0f;
  drawState.LoadFactor = 0.5f;
  EXPECT_EQ(CalcNodeQExt(1), 12.0);
  node().QX_DF = 1;
  EXPECT_EQ(CalcNodeQExt(1), 7.0);
  node().Q_FACTOR = 0.0f;
  EXPECT_EQ(CalcNodeQExt(1), std::numeric_limits<double>::infinity());
  node().QX_STATUS = 1;
  EXPECT_TRUE(std::isnan(CalcNodeQExt(1)));
  node().Q_FACTOR = 10.0f;
  EXPECT_EQ(CalcNodeQExt(1), 0.0);
}

TEST_F(NodeCalcs, loads_of_records_that_are_not_there_are_zero) {
  for (int32_t n : {-1, 5, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(CalcNodeQBase(n), 0.0);
    EXPECT_EQ(CalcNodeQExt(n), 0.0);
  }
}

TEST_F(NodeCalcs, touching_pipes_are_live_ones_counted_once_up_to_six) {
  connect(1, 1, 2);
  connect(2, 3, 1);
  connect(3, 1, 1);
  connect(4, 2, 3);
  connect(5, 1, 2);
  model.pdt[5].REC_STATUS = -1;
  EXPECT_EQ(field(350), 3.0);
  for (int32_t p = 1; p <= 8; p++) {
    connect(p, 1, 2);
    model.pdt[p].REC_STATUS = 0;
  }
  EXPECT_EQ(field(350), 6.0);
  EXPECT_EQ(field(350, 4), 0.0);
}

TEST_F(NodeCalcs, pipes_of_any_negative_status_are_no_pipes_of_a_node) {
  connect(1, 1, 2);
  model.pdt[1].REC_STATUS = -2;
  EXPECT_EQ(field(350), 0.0);
  EXPECT_EQ(GetPipeCount(1), 0);
  PipeConnects(1, pipes, xs, ys, zs);
  EXPECT_EQ(pipes[0], 0);
}

TEST_F(NodeCalcs, percentage_of_a_negative_load_is_of_that_load) {
  node().CMP_MODE = 2;
  node().QB_LOAD = -10;
  node().CMP_VALUE = -8;
  EXPECT_EQ(field(383), 20.0); /* -2 / -10 */
}

TEST_F(NodeCalcs, balance_is_flows_and_loads_in_the_units_of_the_node) {
  node().Q_FACTOR = 10.0f;
  node().QB_LOAD = 5.0f;
  node().QX_LOAD = 20.0f;
  connect(1, 2, 1);  // brings 100 x 2
  model.pdt[1].FLOW = 100.0f;
  model.pdt[1].Q_FACTOR = 2.0f;
  connect(2, 1, 3);  // takes 50 x 1
  model.pdt[2].FLOW = 50.0f;
  model.pdt[2].Q_FACTOR = 1.0f;
  EXPECT_EQ(field(375), 22.0);  // 5 + (200 - 50) / 10 + 20 / 10
  model.pdt[1].FLOW = -100.0f;
  EXPECT_EQ(field(375), 18.0);  // |5 + (-200 - 50) / 10 + 2|
}

TEST_F(NodeCalcs, balance_without_pipes_is_zero_and_with_a_load_off_minus_one) {
  node().Q_FACTOR = 1.0f;
  node().QB_LOAD = 5.0f;
  EXPECT_EQ(field(375), 0.0);
  node().QB_STATUS = 1;
  EXPECT_EQ(field(375), -1.0);
  node().QB_STATUS = 0;
  node().QX_STATUS = 1;
  EXPECT_EQ(field(375), -1.0);
}

TEST_F(NodeCalcs, balance_takes_both_ends_of_a_loop_as_outflow) {
  node().Q_FACTOR = 1.0f;
  connect(1, 1, 1);
  model.pdt[1].FLOW = 10.0f;
  model.pdt[1].Q_FACTOR = 1.0f;
  EXPECT_EQ(field(375), 20.0);
}

TEST_F(NodeCalcs, pipe_count_takes_every_live_end) {
  connect(1, 1, 1);
  connect(2, 1, 2);
  connect(3, 2, 1);
  model.pdt[3].REC_STATUS = -1;
  EXPECT_EQ(GetPipeCount(1), 3);
  EXPECT_EQ(GetPipeCount(2), 1);
  EXPECT_EQ(GetPipeCount(4), 0);
  EXPECT_EQ(GetPipeCount(-5), 0);
}

TEST_F(NodeCalcs, the_last_pipe_is_scanned_and_what_stands_behind_the_count_is_not) {
  connect(7, 1, 2);
  connect(8, 3, 1);
  for (int32_t last : {7, 8}) {
    model.pipeCount = last;
    EXPECT_EQ(GetPipeCount(1), last - 6);
    EXPECT_EQ(field(350), last - 6);
    PipeConnects(1, pipes, xs, ys, zs);
    EXPECT_EQ(pipes[0], last - 6);
    EXPECT_EQ(pipes[last - 6], last);
  }
}

TEST_F(NodeCalcs, pipe_scans_show_the_wait_cursor_and_put_the_old_one_back) {
  const int32_t before = PnGetCursor();
  GetPipeCount(1);
  PipeConnects(1, pipes, xs, ys, zs);
  EXPECT_EQ(PnGetCursor(), before);
  EXPECT_NE(only(recorded([&] { GetPipeCount(1); }), {"SetCursor"}), "");
}

TEST_F(NodeCalcs, connections_are_the_first_six_ends_in_record_order) {
  for (int32_t p = 1; p <= 8; p++) connect(p, p % 2 ? 1 : 2, p % 2 ? 2 : 1);
  model.pdt[2].REC_STATUS = -1;
  PipeConnects(1, pipes, xs, ys, zs);
  const int32_t expected[] = {6, 1, 3, 4, 5, 6, 7};
  for (int i = 0; i < 7; i++) EXPECT_EQ(pipes[i], expected[i]) << i;
}

TEST_F(NodeCalcs, connections_stop_in_the_middle_of_a_loop) {
  for (int32_t p = 1; p <= 5; p++) connect(p, 1, 2);
  connect(6, 1, 1);
  PipeConnects(1, pipes, xs, ys, zs);
  EXPECT_EQ(pipes[0], 6);
  EXPECT_EQ(pipes[6], 6);
}

TEST_F(NodeCalcs, connections_point_at_the_vertex_beside_the_end_or_at_the_far_node) {
  node(2).X_COORD = 20;
  node(2).Y_COORD = 21;
  node(2).Z_COORD = 22;
  model.vtx[2] = {1, 0, 1.5, 2.5, 3.5f, 0, 0};
  model.vtx[3] = {1, 0, 4.5, 5.5, 6.5f, 0, 0};
  for (int32_t p : {1, 2}) {
    model.pdt[p].VTX_MODE = 4;
    model.pxy[p].FIRST_VTX = 2;
    model.pxy[p].LAST_VTX = 3;
  }
  connect(1, 1, 2);  // polyline from the node
  connect(2, 2, 1);  // polyline to the node
  connect(3, 2, 1);  // straight
  connect(4, 1, 2);
  model.pdt[4].VTX_MODE = 1;  // arc: the far node
  PipeConnects(1, pipes, xs, ys, zs);
  const double expected[][3] = {{1.5, 2.5, 3.5}, {4.5, 5.5, 6.5}, {20, 21, 22}, {20, 21, 22}};
  ASSERT_EQ(pipes[0], 4);
  for (int i = 0; i < 4; i++) {
    EXPECT_EQ(pipes[i + 1], i + 1);
    EXPECT_EQ(xs[i + 1], expected[i][0]) << i;
    EXPECT_EQ(ys[i + 1], expected[i][1]) << i;
    EXPECT_EQ(static_cast<double>(zs[i + 1]), expected[i][2]) << i;
  }
}

TEST_F(NodeCalcs, connections_bear_references_outside_the_tables_and_missing_lists) {
  connect(1, 1, 1000000);
  connect(2, 1, -7);
  connect(3, 1, 2);
  model.pdt[3].VTX_MODE = 4;
  model.pxy[3].FIRST_VTX = 99;
  xs[1] = xs[2] = xs[3] = 5;
  PipeConnects(1, pipes, xs, ys, zs);
  EXPECT_EQ(pipes[0], 3);
  EXPECT_EQ(xs[1] + xs[2] + xs[3], 0.0);
  PipeConnects(1, nullptr, nullptr, nullptr, nullptr);
}

TEST_F(NodeCalcs, names_are_taken_by_other_records_also_by_deleted_ones) {
  copyText(node(1).NODENAME, "A1");
  copyText(node(2).NODENAME, "A12");
  copyText(node(3).NODENAME, "A12");
  node(2).REC_STATUS = -1;
  EXPECT_EQ(CkNodeName(0, "A12"), 2);
  EXPECT_EQ(CkNodeName(2, "A12"), 3);
  EXPECT_EQ(CkNodeName(1, "A1"), 0);
  EXPECT_EQ(CkNodeName(0, "a12"), 0);
  EXPECT_EQ(CkNodeName(0, "A"), 0);
  EXPECT_EQ(CkNodeName(0, "A123"), 0);
  EXPECT_EQ(CkNodeName(0, ""), 4);
  EXPECT_EQ(CkNodeName(0, nullptr), 0);
}

TEST_F(NodeCalcs, names_count_their_length_in_sixteen_bits) {
  copyText(node(3).NODENAME, "xxx");
  EXPECT_EQ(CkNodeName(0, std::string(65536 + 3, 'x').c_str()), 3);
  EXPECT_EQ(CkNodeName(0, std::string(70000, 'x').c_str()), 0);
}

TEST_F(NodeCalcs, a_full_name_of_forty_characters_is_found) {
  copyText(node(2).NODENAME, std::string(40, 'n').c_str());
  EXPECT_EQ(CkNodeName(0, std::string(40, 'n').c_str()), 2);
  EXPECT_EQ(CkNodeName(0, std::string(41, 'n').c_str()), 0);
}

TEST(NodeCalcsBeforeALoad, queries_find_nothing) {
  Fresh fresh;
  EXPECT_EQ(GetPipeCount(0), 0);
  EXPECT_EQ(CkNodeName(0, "x"), 0);
  int32_t pipes[7] = {9};
  double d[7];
  float z[7];
  PipeConnects(0, pipes, d, d, z);
  EXPECT_EQ(pipes[0], 0);
}

}  // namespace
