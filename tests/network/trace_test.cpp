// The system trace: edge cases by hand, then every type, start kind and mode against the literal form.
#include <algorithm>
#include <filesystem>

#include "model/tables.h"
#include "network/trace_literal.h"
#include "network/trace_output.h"
#include "support/random_network.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr const char* kFiles[] = {"trace.pip", "trace.cst", "trace.vlv", "trace.sum", "trace.reg"};

struct Control {
  int type = 0, color = 0xFF, writeFiles = 1, startKind = 0, customers = 0;
  std::vector<int> selectors = {1, 2, 3, 4, 5};

  std::string text() const {
    std::string t = std::to_string(type) + "\n" + std::to_string(color) + "\n" + std::to_string(writeFiles) + "\n0\n" +
                    std::to_string(startKind) + "\n" + std::to_string(customers) + "\n0\n" +
                    std::to_string(selectors.size()) + "\n";
    for (int s : selectors) t += std::to_string(s) + "\n";
    return t;
  }
  std::string listText() const {
    return std::to_string(type) + "\n" + std::to_string(color) + "\n" + std::to_string(startKind) + "\n" +
           std::to_string(customers) + "\n0\n0\n0\n";
  }
};

class SystemTrace : public testing::Test {
 protected:
  SystemTrace() { SetGlobalGDI((dir_.path("")).c_str(), ""); }
  ~SystemTrace() override {
    FreeModel();
    FreeFdt();
  }

  /** Nodes 1 to n in a row, pipe p from p to p + 1, all on, reported, facility 1, flow from left to right. */
  void makeRow(int32_t nodes) {
    makeEmptyTables(nodes, nodes - 1, 4, 0);
    for (int32_t n = 1; n <= nodes; n++) std::snprintf(model.ndt[n].NODENAME, 41, "N%d ", n);
    for (int32_t p = 1; p < nodes; p++) put(p, p, p + 1);
  }
  static void put(int32_t p, int32_t from, int32_t to) {
    Pdt& pipe = model.pdt[p];
    pipe.ID = 100 + p;
    pipe.FROM_NODE = from;
    pipe.TO_NODE = to;
    pipe.FLOW = 10;
    pipe.Q_FACTOR = 1;
    pipe.FACILITY = 1;
    model.pxy[p].Report = 1;
  }
  int32_t trace(const Control& control, int32_t startNode, int32_t startPipe = 0, int32_t stopNode = 0) {
    dir_.write("pntrace.ini", control.text());
    return CalcSystemTrace(startNode, stopNode, startPipe, 0, nullptr, 0);
  }
  int32_t list(const Control& control, int32_t startNode, std::vector<int32_t>* pipes, int32_t startPipe = 0,
               int32_t stopNode = 0) {
    dir_.write("traceup.ini", control.listText());
    pipes->assign(static_cast<size_t>(model.pipeCount) + 2, -7);
    const int32_t result = CalcSystemTrace(startNode, stopNode, startPipe, 1, pipes->data(), 0);
    pipes->resize(static_cast<size_t>((*pipes)[0]) + 1);
    return result;
  }
  std::string file(const char* name) { return dir_.read(name); }

  Fresh fresh_;
  TempDir dir_;
};

}  // namespace

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

TEST_F(SystemTrace, two_colours_blend_on_what_two_traces_share) {
  makeRow(4);
  EXPECT_EQ(trace({.type = 2, .color = 0x0000FF}, 1), 3);
  EXPECT_EQ(model.pxy[2].Color, 0x0000FF);
  EXPECT_EQ(model.pxy[2].TraceColor, 0x000100);
  // From the other end with a start pipe that carries no mark: the shared pipes get the average.
  model.pxy[3].TraceColor = 0;
  EXPECT_EQ(trace({.type = 0, .color = 0xFF0000}, 4), 3);
  EXPECT_EQ(model.pxy[3].Color, 0xFF0000);
  EXPECT_EQ(model.pxy[2].Color, 0x7F007F);
  EXPECT_EQ(model.pxy[2].TraceColor, 0x000100);
}

TEST_F(SystemTrace, a_first_pipe_with_a_mark_hands_it_on_so_that_a_repeat_recolours) {
  makeRow(4);
  trace({.type = 2, .color = 0x0000FF}, 1);
  trace({.type = 2, .color = 0x00FF00}, 1);
  for (int32_t p = 1; p <= 3; p++) EXPECT_EQ(model.pxy[p].Color, 0x00FF00) << p;
}

TEST_F(SystemTrace, a_flow_trace_without_colour_clears_the_marks) {
  makeRow(3);
  model.pxy[1].Color = 5;
  EXPECT_EQ(trace({.type = 1, .color = -1}, 1), 2);
  EXPECT_EQ(model.pxy[1].Color, -1);
  EXPECT_EQ(model.pxy[1].TraceColor, 0);
  model.pxy[1].Color = 5;
  EXPECT_EQ(trace({.type = 2, .color = -1}, 1), 2);
  EXPECT_EQ(model.pxy[1].Color, 5) << "the other walks look at the colour";
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

TEST_F(SystemTrace, the_write_files_switch_rules_all_selectors) {
  makeRow(2);
  EXPECT_EQ(trace({.type = 2, .writeFiles = 0}, 1), 1);
  for (const char* name : kFiles) EXPECT_FALSE(dir_.exists(name)) << name;
}

TEST_F(SystemTrace, an_unknown_type_traces_nothing_and_creates_the_files) {
  makeRow(3);
  EXPECT_EQ(trace({.type = 99}, 1), 0);
  EXPECT_EQ(trace({.type = 99, .startKind = 9}, 1, 1), 1);
  for (const char* name : kFiles) EXPECT_TRUE(dir_.exists(name)) << name;
  EXPECT_EQ(file("trace.sum"),
            "Pipes Found: 0\nCustomers Found: 0\nControl Devices Found: 0\nTurned 'Off' Elements: 0\n");
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

TEST_F(SystemTrace, control_files_that_end_early) {
  makeRow(2);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), -1);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 1, nullptr, 0), -1);
  const std::string whole = Control{.type = 2, .selectors = {}}.text();
  std::vector<size_t> ends;
  for (size_t at = 0; (at = whole.find('\n', at)) != std::string::npos; at++) ends.push_back(at);
  ASSERT_EQ(ends.size(), 8u);
  for (size_t line = 0; line < 8; line++) {
    dir_.write("pntrace.ini", whole.substr(0, ends[line]));  // the line is there, its end is not
    EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), line == 0 ? -2 : line == 1 ? -3 : -4) << line;
  }
  dir_.write("pntrace.ini", "");
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), -2);
  dir_.write("pntrace.ini", whole);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), 1);
  dir_.write("pntrace.ini", "2\n255\n1\n0\n0\n0\n0\n2000000000\n4");  // selectors missing
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), 1);
  EXPECT_TRUE(dir_.exists("trace.sum"));
}

TEST_F(SystemTrace, list_control_files_that_end_early) {
  makeRow(2);
  const std::string whole = Control{.type = 2}.listText();
  for (size_t lines = 0, at = 0; lines < 7; lines++, at = whole.find('\n', at) + 1) {
    dir_.write("traceup.ini", whole.substr(0, at));
    EXPECT_EQ(CalcSystemTrace(1, 0, 0, 1, nullptr, 0), lines == 0 ? -2 : lines == 1 ? -3 : -4) << lines;
  }
}

TEST_F(SystemTrace, an_output_file_that_cannot_be_created) {
  makeRow(2);
  for (const char* name : kFiles) {
    for (const char* left : kFiles) std::filesystem::remove(dir_.path(left));
    std::filesystem::create_directory(dir_.path(name));
    EXPECT_EQ(trace({.type = 2}, 1), -2) << name;
    std::filesystem::remove(dir_.path(name));
  }
}

TEST_F(SystemTrace, records_out_of_range_are_harmless) {
  makeRow(3);
  for (int32_t bad : {-1, 0, 4, 2000000000}) {
    EXPECT_EQ(trace({.type = 2}, bad), 0);
    EXPECT_EQ(trace({.type = 2, .startKind = 10}, bad, bad), 0);
    EXPECT_EQ(trace({.type = 1}, 1, 0, bad), 2) << bad;
  }
  FreeModel();
  EXPECT_EQ(trace({.type = 2, .startKind = 9}, 1, 1), 0) << "no model at all";
}

TEST(BlendColor, averages_each_part_with_the_fraction_dropped) {
  EXPECT_EQ(BlendColor(0x0000FF, 0xFF0000), 0x7F007F);
  EXPECT_EQ(BlendColor(0x010203, 0x020304), 0x010203);
  EXPECT_EQ(BlendColor(-1, 0x7F000000), 0x7F7F7F);
}

TEST_F(SystemTrace, agrees_with_the_literal_form_on_random_networks) {
  int32_t crossed = 0;
  for (uint32_t seed = 1; seed <= 400; seed++) {
    makeRandomNetwork(seed, {30, 55, 40});
    std::mt19937 random(seed * 77);
    constexpr int kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 20, 21, 33};
    for (int type : kTypes) {
      const auto pick = [&](uint32_t n) { return static_cast<int32_t>(random() % n); };
      Control control{.type = type,
                      .color = pick(5) ? pick(0xFFFFFF) : -1,
                      .writeFiles = pick(8) != 0,
                      .startKind = pick(3) + 8,
                      .customers = pick(2)};
      if (pick(3) == 0) control.selectors = {1, 4};
      const bool fileMode = pick(3) != 0, keep = pick(2) != 0;
      const int32_t startNode = pick(31), stopNode = pick(2) ? pick(31) : 0, startPipe = pick(56);

      LiteralTrace literal;
      literal.type = static_cast<int16_t>(type);
      literal.color = control.color;
      literal.startKind = control.startKind;
      literal.writeFiles = control.writeFiles != 0;
      literal.customers = control.customers != 0;
      literal.fileMode = fileMode;
      literal.keep = keep;
      bool* switches[] = {&literal.pip, &literal.cst, &literal.vlv, &literal.sum, &literal.reg};
      for (int s : control.selectors) *switches[s - 1] = true;
      literal.copyTables();
      const int32_t expected = literal.run(startNode, stopNode, startPipe);

      for (const char* name : kFiles) std::filesystem::remove(dir_.path(name));
      dir_.write("pntrace.ini", control.text());
      dir_.write("traceup.ini", control.listText());
      std::vector<int32_t> list(static_cast<size_t>(model.pipeCount) + 2, 0);
      const int32_t result = CalcSystemTrace(startNode, stopNode, startPipe, fileMode ? 0 : 1, list.data(), keep);
      crossed += result;
      ASSERT_EQ(result, expected) << "seed " << seed << " type " << type;
      for (int32_t p = 1; p <= model.pipeCount; p++) {
        ASSERT_EQ(model.pxy[p].Color, literal.pxy[static_cast<size_t>(p)].Color) << seed << " " << type << " " << p;
        ASSERT_EQ(model.pxy[p].TraceColor, literal.pxy[static_cast<size_t>(p)].TraceColor);
      }
      for (int32_t c = 1; c <= model.custCount; c++) {
        ASSERT_EQ(model.cxy[c].Color, literal.cxy[static_cast<size_t>(c)].Color) << seed << " " << type << " " << c;
        ASSERT_EQ(model.cxy[c].TraceColor, literal.cxy[static_cast<size_t>(c)].TraceColor);
      }
      for (int32_t n = 1; n <= model.nodeCount; n++) {
        ASSERT_STREQ(model.ndt[n].NODENAME, literal.ndt[static_cast<size_t>(n)].NODENAME);
      }
      for (const char* name : kFiles) {
        ASSERT_EQ(dir_.exists(name), literal.files.count(name) == 1) << name << " seed " << seed << " type " << type;
        ASSERT_EQ(file(name), literal.files[name]) << name << " seed " << seed << " type " << type;
      }
      if (!fileMode) {
        const size_t fits = std::min(literal.list.size(), static_cast<size_t>(model.pipeCount) + 2);
        literal.list[0] = static_cast<int32_t>(fits) - 1;
        literal.list.resize(fits);
        list.resize(fits);
        ASSERT_EQ(list, literal.list) << "seed " << seed << " type " << type;
      }
    }
    FreeModel();
  }
  EXPECT_GT(crossed, 20000) << "the traces must reach far enough to mean something";
}
