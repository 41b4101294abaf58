// Facility flags: merged into nodes while a model is read, refreshed after edits, read back.
#include <gtest/gtest.h>

#include <random>

#include "facility/network.h"

namespace pn10::test {
namespace {

using Flags = std::vector<int>;

class FacilityFlags : public testing::Test {
 protected:
  Fresh fresh;
};

TEST_F(FacilityFlags, a_pipe_without_a_facility_row_stays_visible) {
  makeNetwork(2, {{1, 2}});
  model.pdt[1].FACILITY = 9;
  model.pdt[1].EQUATION = -1;
  model.nxy[1].Drawn = 5;
  SetPipeFacFlags(1, 3);
  EXPECT_EQ(model.pdt[1].FACILITY, 0);
  EXPECT_EQ(flagsOf(model.pxy[1]), (Flags{1, 1, 1, 1}));
  EXPECT_EQ(model.pdt[1].EQUATION, 3);
  EXPECT_EQ(model.nxy[1].Drawn, 5);
}

TEST_F(FacilityFlags, a_pipe_takes_the_flags_of_its_row_and_its_nodes_are_to_be_drawn_anew) {
  Fac* rows = makeFacilities({7});
  rows[1].Display = 0x1ff;
  rows[1].Report = -3;
  rows[1].Aux = 4;
  rows[1].Active = 0;
  makeNetwork(2, {{1, 2}});
  model.pdt[1].FACILITY = 7;
  model.nxy[1].Drawn = model.nxy[2].Drawn = 5;
  SetPipeFacFlags(1, 3);
  EXPECT_EQ(flagsOf(model.pxy[1]), (Flags{255, -3, 4, 0}));
  EXPECT_EQ(model.nxy[1].Drawn, 0);
  EXPECT_EQ(model.nxy[2].Drawn, 0);
}

TEST_F(FacilityFlags, the_equation_keeps_its_negative_sign_when_a_row_gives_it) {
  struct {
    int number, rowEquation, stored, expected;
  } cases[] = {{7, 5, -1, -5}, {7, -1, -1, -3}, {7, 0, -1, 0}, {7, 5, 2, 2},
               {7, 5, 0, 0},   {8, 5, -1, 3},   {8, 5, 2, 2},  {8, 5, 0, 0}};
  for (const auto& c : cases) {
    makeFacilities({7})[1].Equation = static_cast<int16_t>(c.rowEquation);
    makeNetwork(2, {{1, 2}});
    model.pdt[1].FACILITY = static_cast<int16_t>(c.number);
    model.pdt[1].EQUATION = static_cast<int16_t>(c.stored);
    SetPipeFacFlags(1, 3);
    EXPECT_EQ(model.pdt[1].EQUATION, c.expected) << c.number << " " << c.rowEquation << " " << c.stored;
    FreeModel();
  }
}

TEST_F(FacilityFlags, nodes_end_with_the_union_of_their_pipes) {
  makeNetwork(3, {{1, 2}, {2, 3}});
  setFlags(model.pxy[1], 1, 0, 3, 0);
  setFlags(model.pxy[2], 0, 2, 4, 5);
  SetNodeFacFlags(1, 1, 2, "Psi");
  SetNodeFacFlags(2, 2, 3, "Psi");
  EXPECT_EQ(flagsOf(model.nxy[1]), (Flags{1, 0, 3, 0}));
  EXPECT_EQ(flagsOf(model.nxy[2]), (Flags{1, 2, 4, 5})) << "a zero changes nothing, the later value stands";
  EXPECT_EQ(flagsOf(model.nxy[3]), (Flags{0, 2, 4, 5}));
}

TEST_F(FacilityFlags, nodes_without_a_pressure_take_the_units_of_the_facility) {
  struct {
    const char* units;
    float pressure;
    const char* expected;
  } cases[] = {
      {"kPa", -1, "kPa"}, {"Default", -1, "Psi"}, {"Default for all", -1, "Psi"},     {"default", -1, "default"},
      {"kPa", 0, "old"},  {"kPa", 5, "old"},      {"0123456789abc", -1, "0123456789"}};
  for (const auto& c : cases) {
    makeFacilities({7});
    SetFacVal(1, 11, c.units, 0);
    makeNetwork(2, {{1, 2}});
    model.pdt[1].FACILITY = 7;
    for (int n : {1, 2}) {
      model.ndt[n].PRESSURE = c.pressure;
      std::strcpy(model.ndt[n].P_UNITS, "old");
    }
    SetNodeFacFlags(1, 1, 2, "Psi");
    EXPECT_STREQ(model.ndt[1].P_UNITS, c.expected) << c.units;
    EXPECT_STREQ(model.ndt[2].P_UNITS, c.expected) << c.units;
    FreeModel();
  }
}

TEST_F(FacilityFlags, without_a_row_the_units_stay) {
  makeNetwork(2, {{1, 2}});
  model.ndt[1].PRESSURE = -1;
  std::strcpy(model.ndt[1].P_UNITS, "old");
  SetNodeFacFlags(1, 1, 2, "Psi");
  EXPECT_STREQ(model.ndt[1].P_UNITS, "old");
}

TEST_F(FacilityFlags, a_flag_is_asked_by_number) {
  Fac* rows = makeFacilities({7});
  rows[1].Display = 4;
  rows[1].Active = -2;
  EXPECT_EQ(GetFacFlag(7, 3), 4);
  EXPECT_EQ(GetFacFlag(7, 6), -2);
  for (int16_t field : {int16_t{0}, int16_t{4}, int16_t{5}, int16_t{7}, int16_t{-1}})
    EXPECT_EQ(GetFacFlag(7, field), 1);
  EXPECT_EQ(GetFacFlag(8, 3), 1);
  EXPECT_EQ(GetFacFlag(8, 6), 1);
}

TEST_F(FacilityFlags, getters_read_pipes_nodes_and_customers) {
  makeEmptyTables(1, 2, 3);
  setFlags(model.pxy[2], 2, -3, 0, 4);
  model.nxy[1] = {};
  model.nxy[1].Report = 5;
  model.nxy[1].Active = 6;
  model.nxy[1].Display = -7;
  model.cdt[1].PIPE_REC = 2;
  model.cdt[2].PIPE_REC = 0;
  model.cdt[3].PIPE_REC = 99;
  EXPECT_EQ(GetFacDisplayPipe(2), 2);
  EXPECT_EQ(GetFacReportPipe(2), -3);
  EXPECT_EQ(GetFacActivePipe(2), 4);
  EXPECT_EQ(GetFacReportNode(1), 5);
  EXPECT_EQ(GetFacActiveNode(1), 6);
  EXPECT_EQ(GetFacDisplayNode(1), -7);
  EXPECT_EQ(GetFacReportCust(1), -3);
  EXPECT_EQ(GetFacActiveCust(1), 4);
  EXPECT_EQ(GetFacDisplayCust(1), 2);
  EXPECT_EQ(GetFacReportCust(2), 1) << "an untapped customer";
  EXPECT_EQ(GetFacActiveCust(2), 1);
  EXPECT_EQ(GetFacDisplayCust(2), 0) << "reads the empty pipe row";
  EXPECT_EQ(GetFacActiveCust(3), 0) << "a pipe that is not there";
}

TEST_F(FacilityFlags, copies_between_pipes_and_nodes) {
  makeNetwork(2, {{1, 2}, {1, 2}});
  setFlags(model.pxy[1], 9, 2, 3, 4);
  CopyFacPipe(1, 2);
  EXPECT_EQ(flagsOf(model.pxy[2]), (Flags{9, 2, 3, 4}));
  SetFacNodePipe(2, 1);
  EXPECT_EQ(flagsOf(model.nxy[1]), (Flags{9, 2, 3, 4}));
  SetFacNodeDflt(1);
  EXPECT_EQ(flagsOf(model.nxy[1]), (Flags{9, 1, 1, 1}));
}

TEST_F(FacilityFlags, one_setting_reaches_every_pipe_of_the_class) {
  makeNetwork(2, {{1, 2}, {1, 2}, {1, 2}});
  model.pdt[1].FACILITY = model.pdt[3].FACILITY = 7;
  model.pdt[3].REC_STATUS = -1;
  for (int16_t flag = 0; flag <= 4; flag++) EXPECT_EQ(SetPipeFacSettings(7, flag, static_cast<int16_t>(256 + flag)), 0);
  EXPECT_EQ(flagsOf(model.pxy[1]), (Flags{0, 257, 258, 259})) << "Display keeps the low byte";
  EXPECT_EQ(flagsOf(model.pxy[2]), (Flags{0, 0, 0, 0}));
  EXPECT_EQ(flagsOf(model.pxy[3]), (Flags{0, 257, 258, 259}));
}

TEST_F(FacilityFlags, resetting_without_recompute_gives_nodes_the_flags_of_the_last_pipe) {
  Fac* rows = makeFacilities({1, 2});
  rows[1].Display = rows[1].Report = 1;
  rows[2].Aux = rows[2].Active = 3;
  makeNetwork(3, {{1, 2}, {2, 3}});
  model.pdt[1].FACILITY = 1;
  model.pdt[2].FACILITY = 2;
  EXPECT_EQ(ResetPipeFacSettings(-1, 99, 1, "Psi", 0), 0);  // the range that is there
  EXPECT_EQ(flagsOf(model.nxy[1]), (Flags{1, 1, 0, 0}));
  EXPECT_EQ(flagsOf(model.nxy[2]), (Flags{0, 0, 3, 3}));
  EXPECT_EQ(flagsOf(model.nxy[3]), (Flags{0, 0, 3, 3}));
}

TEST_F(FacilityFlags, a_node_sees_its_first_six_pipes_only) {
  makeNetwork(8, {{1, 2}, {1, 3}, {1, 4}, {1, 5}, {1, 6}, {1, 7}, {8, 1}});
  model.pxy[7].Active = 1;
  RecalcNodeFacFlags(1, "Psi");
  EXPECT_EQ(model.nxy[1].Active, 0);
  RecalcNodeFacFlags(7, "Psi");
  EXPECT_EQ(model.nxy[1].Active, 0);
  EXPECT_EQ(model.nxy[8].Active, 1);
  model.pdt[3].REC_STATUS = -1;
  RecalcNodeFacFlags(1, "Psi");
  EXPECT_EQ(model.nxy[1].Active, 1) << "a deleted pipe leaves its place to the seventh";
}

TEST_F(FacilityFlags, a_pipe_of_another_negative_status_is_seen) {
  makeNetwork(2, {{1, 2}});
  model.pdt[1].REC_STATUS = -2;
  model.pxy[1].Report = 1;
  RecalcNodeFacFlags(1, "Psi");
  EXPECT_EQ(model.nxy[1].Report, 1) << "only -1 leaves a pipe out";
}

TEST_F(FacilityFlags, a_loop_takes_two_of_the_six_places) {
  makeNetwork(2, {{1, 1}, {1, 1}, {1, 1}, {1, 2}});
  model.pxy[4].Report = 7;
  RecalcNodeFacFlags(4, "Psi");
  EXPECT_EQ(model.nxy[1].Report, 0);
  EXPECT_EQ(model.nxy[2].Report, 1);
}

TEST_F(FacilityFlags, a_node_without_a_live_pipe_ends_with_no_flag) {
  makeNetwork(2, {{1, 2}});
  model.pdt[1].REC_STATUS = -1;
  setFlags(model.pxy[1], 1, 1, 1, 1);
  model.nxy[1].Display = model.nxy[1].Report = model.nxy[1].Aux = model.nxy[1].Active = 1;
  RecalcNodeFacFlags(1, "Psi");
  EXPECT_EQ(flagsOf(model.nxy[1]), (Flags{0, 0, 0, 0}));
}

/** The rule pipe by pipe, as it is described. */
struct LiteralRecalc {
  static void nodeFlags(int32_t pipe) {
    const int32_t ends[] = {model.pdt[pipe].FROM_NODE, model.pdt[pipe].TO_NODE};
    std::vector<int32_t> lists[2];
    for (int32_t p = 1; p <= model.pipeCount; p++) {
      if (model.pdt[p].REC_STATUS == -1) continue;
      for (int i : {0, 1}) {
        for (int32_t end : {model.pdt[p].FROM_NODE, model.pdt[p].TO_NODE}) {
          if (end == ends[i] && lists[i].size() < 6) lists[i].push_back(p);
        }
      }
    }
    for (int i : {0, 1}) {
      NXY& node = model.nxy[ends[i]];
      node.Report = node.Active = node.Display = node.Aux = 0;
      for (int32_t p : lists[i]) {
        if (model.pxy[p].Report) node.Report = 1;
        if (model.pxy[p].Active) node.Active = 1;
        if (model.pxy[p].Display) node.Display = 1;
        if (model.pxy[p].Aux) node.Aux = 1;
      }
    }
    for (int32_t end : ends) {
      const int32_t row = FindFacRnoIdx(model.pdt[pipe].FACILITY);
      if (model.ndt[end].PRESSURE >= 0 || row == 0) continue;
      const char* units = facilities.rows[row].PressUnits;
      std::strcpy(model.ndt[end].P_UNITS, std::strncmp(units, "Default", 7) ? units : "Psi");
    }
  }
  static void reset(int32_t first, int32_t last) {
    for (int32_t p = first; p <= last; p++) {
      SetPipeFacFlags(p, 1);
      nodeFlags(p);
    }
  }
};

TEST_F(FacilityFlags, recomputing_a_range_equals_the_rule_pipe_by_pipe) {
  std::mt19937 random(7);
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  for (int round = 0; round < 200; round++) {
    Fac* rows = makeFacilities({1, 2, 3});
    for (int r = 1; r <= 3; r++) {
      rows[r].Display = static_cast<int16_t>(below(2));
      rows[r].Report = static_cast<int16_t>(below(2));
      rows[r].Aux = static_cast<int16_t>(below(2));
      rows[r].Active = static_cast<int16_t>(below(2));
      std::strcpy(rows[r].PressUnits, r == 1 ? "Default" : r == 2 ? "kPa" : "Bar");
    }
    const int nodes = 1 + below(6), pipes = 1 + below(20);
    const auto build = [&](unsigned seed) {
      std::mt19937 same(seed);
      makeEmptyTables(nodes, pipes);
      for (int p = 1; p <= pipes; p++) {
        model.pdt[p].FROM_NODE = 1 + static_cast<int>(same() % static_cast<unsigned>(nodes));
        model.pdt[p].TO_NODE = 1 + static_cast<int>(same() % static_cast<unsigned>(nodes));
        model.pdt[p].FACILITY = static_cast<int16_t>(same() % 5);
        model.pdt[p].REC_STATUS = same() % 5 ? int16_t{0} : int16_t{-1};
        setFlags(model.pxy[p], same() % 4 == 0, same() % 4 == 0, same() % 4 == 0, same() % 4 == 0);
      }
      for (int n = 1; n <= nodes; n++) {
        model.ndt[n].PRESSURE = same() % 2 ? -1.0f : 1.0f;
        model.nxy[n].Report = 9;
      }
    };
    const int first = 1 + below(static_cast<unsigned>(pipes)),
              last = first + below(static_cast<unsigned>(pipes - first + 1));
    const unsigned seed = static_cast<unsigned>(random());
    build(seed);
    LiteralRecalc::reset(first, last);
    std::vector<Flags> flags;
    std::vector<std::string> units;
    for (int n = 0; n <= nodes; n++) {
      flags.push_back(flagsOf(model.nxy[n]));
      units.push_back(model.ndt[n].P_UNITS);
    }
    FreeModel();
    build(seed);
    ResetPipeFacSettings(first, last, 1, "Psi", 1);
    for (int n = 0; n <= nodes; n++) {
      ASSERT_EQ(flagsOf(model.nxy[n]), flags[static_cast<size_t>(n)]) << "round " << round << " node " << n;
      ASSERT_EQ(model.ndt[n].P_UNITS, units[static_cast<size_t>(n)]) << "round " << round << " node " << n;
    }
    FreeModel();
  }
}

TEST_F(FacilityFlags, recomputing_half_a_million_pipes_is_one_pass) {
  const int32_t pipes = 500000;
  makeFacilities({1})[1].Display = 1;
  makeEmptyTables(pipes + 1, pipes);
  for (int32_t p = 1; p <= pipes; p++) {
    model.pdt[p].FROM_NODE = p;
    model.pdt[p].TO_NODE = p + 1;
    model.pdt[p].FACILITY = 1;
  }
  ResetPipeFacSettings(1, pipes, 1, "Psi", 1);  // pipe by pipe this would be 250 milliard visits
  EXPECT_EQ(flagsOf(model.nxy[pipes]), (Flags{1, 0, 0, 0}));
}

TEST_F(FacilityFlags, text_and_graphics_are_refreshed_from_the_table) {
  Fac* rows = makeFacilities({7, 30003});
  rows[1].Display = 0;
  rows[1].Active = 5;
  rows[2].Display = 0;
  rows[2].Active = 0;
  model.gtx = newTable<Gtx>(3);
  model.ugd = newTable<Ugd>(3);
  model.textCount = model.textCapacity = model.ugdCount = model.ugdCapacity = 3;
  const int16_t facility[] = {0, 7, 30003, 9};
  for (int i = 1; i <= 3; i++) {
    model.gtx[i].Facility = model.ugd[i].Facility = facility[i];
    model.gtx[i].Display = model.ugd[i].Display = 8;
  }
  EXPECT_EQ(ResetFacSettings(), 0);
  const std::pair<int, int> texts[] = {{0, 5}, {1, 1}, {1, 1}}, graphics[] = {{0, 5}, {0, 0}, {1, 1}};
  for (int i = 1; i <= 3; i++) {
    EXPECT_EQ((std::pair<int, int>(model.gtx[i].Display, model.gtx[i].Active)), texts[i - 1]) << i;
    EXPECT_EQ((std::pair<int, int>(model.ugd[i].Display, model.ugd[i].Active)), graphics[i - 1]) << i;
  }
}

TEST_F(FacilityFlags, records_that_are_not_there_do_nothing) {
  for (bool tables : {false, true}) {
    if (tables) makeEmptyTables(2, 2, 2);
    for (int32_t bad : {-1, 0, 3, INT32_MIN, INT32_MAX}) {
      SetPipeFacFlags(bad, 1);
      SetNodeFacFlags(bad, bad, bad, nullptr);
      RecalcNodeFacFlags(bad, nullptr);
      SetFacNodeDflt(bad);
      SetFacNodePipe(bad, 1);
      SetFacNodePipe(1, bad);
      CopyFacPipe(bad, 1);
      CopyFacPipe(1, bad);
      EXPECT_EQ(GetFacActivePipe(bad), 0);
      EXPECT_EQ(GetFacDisplayNode(bad), 0);
      EXPECT_EQ(GetFacReportNode(bad), 0);
      EXPECT_EQ(GetFacActiveNode(bad), 0);
      EXPECT_EQ(GetFacDisplayCust(bad), 0);
      EXPECT_EQ(GetFacActiveCust(bad), bad == 0 ? 1 : 0);
    }
    EXPECT_EQ(ResetPipeFacSettings(INT32_MIN, INT32_MAX, 1, nullptr, 1), 0);
    EXPECT_EQ(ResetPipeFacSettings(5, 1, 1, nullptr, 0), 0);
    EXPECT_EQ(SetPipeFacSettings(0, 0, 1), 0);
    EXPECT_EQ(ResetFacSettings(), 0);
  }
  EXPECT_EQ(flagsOf(model.pxy[0]), (Flags{0, 0, 0, 0})) << "slot 0 stays empty";
  EXPECT_EQ(flagsOf(model.nxy[0]), (Flags{0, 0, 0, 0}));
}

TEST_F(FacilityFlags, nodes_that_are_not_there_do_nothing) {
  Fac& row = makeFacilities({0})[1];
  row.Display = row.Report = row.Aux = row.Active = 1;
  makeNetwork(2, {{-5, 77}, {0, 1}});
  model.ndt[0].PRESSURE = -1;
  for (int32_t pipe : {1, 2}) {
    SetPipeFacFlags(pipe, 1);
    SetNodeFacFlags(pipe, model.pdt[pipe].FROM_NODE, model.pdt[pipe].TO_NODE, "Psi");
    RecalcNodeFacFlags(pipe, "Psi");
  }
  ResetPipeFacSettings(1, 2, 1, "Psi", 1);
  ResetPipeFacSettings(1, 2, 1, "Psi", 0);
  EXPECT_EQ(flagsOf(model.nxy[0]), (Flags{0, 0, 0, 0}));
  EXPECT_STREQ(model.ndt[0].P_UNITS, "");
}

}  // namespace
}  // namespace pn10::test
