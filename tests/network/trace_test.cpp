/** The system trace by hand: what each type crosses, where it stops, what it lists. */
#include "network/traced.h"

namespace pn10::test {
namespace {

TEST_F(SystemTrace, follows_the_flow_and_writes_what_it_found) {
  makeRow(4);
  model.pdt[2].HYD_TYPE = 3;
  model.pdt[2].CUST_COUNT = 2;
  model.cdt[1].PIPE_REC = model.cdt[3].PIPE_REC = 2;
  EXPECT_EQ(trace({.type = 1}, 1), 3);
  EXPECT_EQ(file("trace.pip"), "1\n2\n3\n");
  EXPECT_EQ(file("trace.cst"), "1\n3\n0\n");
  EXPECT_EQ(file("trace.vlv"), "Valve - ID: 102   From: N2   To: N3\n");
  EXPECT_EQ(file("trace.sum"),
            "Pipes Found: 3\nCustomers Found: 2\nControl Devices Found: 1\nTurned 'Off' Elements: 0\n");
  EXPECT_EQ(file("trace.reg"), "");
  EXPECT_STREQ(model.ndt[2].NODENAME, "N2") << "trimmed in the table";
  EXPECT_STREQ(model.ndt[1].NODENAME, "N1 ");
}

TEST_F(SystemTrace, customers_of_another_negative_status_are_listed) {
  makeRow(2);
  model.pdt[1].CUST_COUNT = 2;
  model.cdt[1].PIPE_REC = model.cdt[2].PIPE_REC = model.cdt[3].PIPE_REC = 1;
  model.cdt[1].REC_STATUS = -1;
  model.cdt[2].REC_STATUS = -2;
  trace({.type = 1}, 1);
  EXPECT_EQ(file("trace.cst"), "2\n3\n0\n");
}

TEST_F(SystemTrace, finds_nothing_where_all_flows_arrive) {
  makeRow(3);
  EXPECT_EQ(trace({.type = 1}, 3), 0);
  EXPECT_EQ(trace({.type = 0}, 3), 2);
}

TEST_F(SystemTrace, a_pipe_without_flow_is_crossed_by_the_connected_trace_alone) {
  makeRow(3);
  model.pdt[2].FLOW = 0;
  for (int type : {0, 1, 4, 6, 7, 8}) EXPECT_EQ(trace({.type = type}, 2), type == 1 || type == 6 ? 0 : 1) << type;
  EXPECT_EQ(trace({.type = 2}, 2), 2);
}

TEST_F(SystemTrace, a_node_keeps_six_pipes_and_the_seventh_is_found_from_its_far_end) {
  makeEmptyTables(9, 8, 0, 0);
  for (int32_t p = 1; p <= 7; p++) put(p, 1, p + 1);
  EXPECT_EQ(trace({.type = 2}, 1), 6);
  EXPECT_EQ(file("trace.pip"), "1\n2\n3\n4\n5\n6\n");
  EXPECT_EQ(trace({.type = 2}, 8), 7) << "started at the far end of pipe 7";
}

TEST_F(SystemTrace, a_start_pipe_is_counted_but_listed_only_when_the_walk_reaches_it) {
  makeRow(3);
  EXPECT_EQ(trace({.type = 1, .startKind = 9}, 2, 1), 2);
  EXPECT_EQ(file("trace.pip"), "2\n");
  EXPECT_EQ(trace({.type = 1, .startKind = 10}, 2, 1), 3) << "an element start counts from 1. Kept";
}

TEST_F(SystemTrace, an_element_start_writes_its_line) {
  makeRow(3);
  model.pdt[1].HYD_TYPE = 1;
  trace({.type = 1, .startKind = 10}, 2, 1);
  EXPECT_EQ(file("trace.vlv"), "Regulator - ID: 101   From: N1   To: N2\n");
}

TEST_F(SystemTrace, isolation_goes_through_the_first_of_two_valve_nodes) {
  makeRow(6);
  model.ndt[2].HYD_TYPE = 1;
  model.ndt[3].HYD_TYPE = 2;
  model.ndt[5].HYD_TYPE = 1;
  EXPECT_EQ(trace({.type = 3, .startKind = 9}, 2, 2), 3);  // the start pipe, then pipes 1 and 2 from node 2
  EXPECT_EQ(file("trace.pip"), "1\n2\n");
  EXPECT_EQ(file("trace.vlv"),
            "Valve Node - Node Number: 2   Valve Number: N2 \nValve Node - Node Number: 3   Valve Number: N3 \n")
      << "the name as it stands, its blank too";
}

TEST_F(SystemTrace, isolation_records_the_closing_element_and_stops_there) {
  makeRow(4);
  model.pdt[2].HYD_TYPE = 3;
  EXPECT_EQ(trace({.type = 3}, 1), 1);
  EXPECT_EQ(file("trace.pip"), "1\n2\n");
  model.pdt[2].HYD_TYPE = 0;
  model.pdt[2].STATUS = 1;
  EXPECT_EQ(trace({.type = 3}, 1), 1);
  EXPECT_EQ(file("trace.vlv"), "Turned Off Element - ID: 102   From: N2   To: N3\n");
}

TEST_F(SystemTrace, valve_nodes_of_kind_1_do_not_stop_type_5) {
  makeRow(4);
  model.ndt[2].HYD_TYPE = 1;
  EXPECT_EQ(trace({.type = 3}, 1), 1);
  EXPECT_EQ(trace({.type = 5}, 1), 3);
  model.ndt[3].HYD_TYPE = 2;
  EXPECT_EQ(trace({.type = 5}, 1), 2);
}

TEST_F(SystemTrace, type_5_between_two_valves_runs_along_the_start_pipe_only) {
  makeRow(5);
  model.ndt[2].HYD_TYPE = model.ndt[3].HYD_TYPE = 2;
  EXPECT_EQ(trace({.type = 5, .startKind = 9}, 2, 2), 2);
  EXPECT_EQ(file("trace.pip"), "2\n");
}

TEST_F(SystemTrace, lists_the_regulators_around_a_node_without_passing_them) {
  makeRow(4);
  model.pdt[1].HYD_TYPE = model.pdt[3].HYD_TYPE = 1;
  model.pdt[1].LENGTH = 1.5f;
  std::strcpy(model.pdt[1].L_UNITS, "bar ");
  EXPECT_EQ(trace({.type = 20}, 2), 1);
  EXPECT_EQ(file("trace.pip"), "1\n2\n3\n");
  // Regulator 1 ends at the node being expanded; regulator 3 begins there.
  EXPECT_EQ(file("trace.reg"), "Regulator - ID: 101   From: N1   To: N2   Set P = 1.500000 bar\n");
}

TEST_F(SystemTrace, another_facility_ends_the_work_at_a_node) {
  makeEmptyTables(5, 4, 0, 0);
  put(1, 1, 2);
  put(2, 2, 3);
  put(3, 2, 4);
  put(4, 2, 5);
  model.pdt[3].FACILITY = 9;
  EXPECT_EQ(trace({.type = 21, .startKind = 9}, 1, 1), 3);  // the start pipe, then 1 and 2; 4 is not looked at
  EXPECT_EQ(file("trace.pip"), "1\n2\n");
}

TEST_F(SystemTrace, type_8_ends_at_the_first_regulator_crossed) {
  makeRow(4);
  model.pdt[2].HYD_TYPE = 1;
  EXPECT_EQ(trace({.type = 8}, 4), 2);
  EXPECT_EQ(file("trace.pip"), "3\n2\n");
  EXPECT_EQ(trace({.type = 7}, 4), 3);
}

TEST_F(SystemTrace, largest_only_takes_the_largest_flow_by_its_factor) {
  makeEmptyTables(4, 3, 0, 0);
  put(1, 1, 2);
  put(2, 1, 3);
  put(3, 1, 4);
  model.pdt[2].FLOW = 4;
  model.pdt[2].Q_FACTOR = 3;  // 12 against 10
  EXPECT_EQ(trace({.type = 6}, 1), 1);
  EXPECT_EQ(file("trace.pip"), "2\n");
}

TEST_F(SystemTrace, an_off_node_is_reached_but_not_left) {
  makeRow(4);
  model.ndt[3].HYD_STATUS = 1;
  EXPECT_EQ(trace({.type = 2}, 1), 2);
}

TEST_F(SystemTrace, customers_of_a_pipe_with_a_stale_count) {
  makeRow(2);
  model.cdt[2].PIPE_REC = model.cdt[4].PIPE_REC = 1;
  trace({.type = 2, .customers = 1}, 1);
  EXPECT_EQ(file("trace.cst"), "2\n4\n") << "count 0: all of them, and no closing line";
  EXPECT_EQ(model.cxy[4].Color, 0xFF);
  model.pdt[1].CUST_COUNT = 1;
  model.cxy[4].Color = 9;
  trace({.type = 2, .customers = 1}, 1);
  EXPECT_EQ(file("trace.cst"), "2\n0\n");
  EXPECT_EQ(model.cxy[4].Color, 9);
}

TEST_F(SystemTrace, a_pipe_from_a_node_to_itself_is_two_candidates_and_one_element) {
  makeRow(3);
  put(2, 2, 2);
  EXPECT_EQ(trace({.type = 1}, 1), 3) << "pipe 1 once, pipe 2 at both of its ends";
  EXPECT_EQ(file("trace.pip"), "1\n2\n");
  EXPECT_EQ(trace({.type = 6}, 1), 2) << "the first of the two is the largest";
  EXPECT_EQ(trace({.type = 2}, 1), 2);
}

TEST_F(SystemTrace, the_route_back_from_the_stop_node_is_listed) {
  // 1 -> 2 -> 4 carries 10, 1 -> 3 -> 4 carries 4; the main way back from 4 is over 2.
  makeEmptyTables(4, 4, 0, 0);
  put(1, 1, 2);
  put(2, 1, 3);
  put(3, 2, 4);
  put(4, 3, 4);
  model.pdt[2].FLOW = model.pdt[4].FLOW = 4;
  std::vector<int32_t> pipes;
  dir_.write("traceup.ini", Control{.type = 1}.listText());
  pipes.assign(8, -7);
  EXPECT_EQ(CalcSystemTrace(1, 4, 0, 1, pipes.data(), 0), 4);
  // Four pipes crossed; of the route 3, 1 only one entry fits the list that the caller must give (all pipes and two).
  EXPECT_EQ(std::vector<int32_t>(pipes.begin(), pipes.begin() + 6), (std::vector<int32_t>{5, 1, 2, 3, 4, 3}));
  EXPECT_EQ(pipes[6], -7) << "nothing is written behind the last pipe and one more";
}

}  // namespace
}  // namespace pn10::test
