// Nodes by point and by name. The slow forms below are written straight from the rules of each search.
#include <cctype>
#include <cmath>

#include "model/draw_state.h"
#include "model/tables.h"
#include "support/random_network.h"

using namespace pn10;
using namespace pn10::test;

namespace {

struct View {
  ViewOpts opts{};
  View(int32_t nodeSize, double unitsPerDisplay, double top, double bottom) {
    opts.NodeSize = nodeSize;
    drawState.View = &opts;
    drawState.UnitsPerDisplay = unitsPerDisplay;
    drawState.Y0 = top;
    drawState.Y1 = bottom;
  }
};

void putNode(int32_t n, double x, double y, float z = 0) {
  model.ndt[n].X_COORD = x;
  model.ndt[n].Y_COORD = y;
  model.ndt[n].Z_COORD = z;
}

class NodeSearch : public testing::Test {
 protected:
  Fresh fresh_;
};

float slowDistance(const Ndt& n, double x, double y, double dz) {
  return static_cast<float>(std::sqrt(std::pow(n.X_COORD - x, 2.0) + std::pow(n.Y_COORD - y, 2.0) + std::pow(dz, 2.0)));
}
bool slowExists(int32_t n) { return model.ndt[n].REC_STATUS >= 0 && model.nxy[n].Drawn != -2; }
bool slowSquare(const Ndt& n, double x, double y, double h) {
  return n.X_COORD >= x - h && n.X_COORD <= x + h && n.Y_COORD >= y - h && n.Y_COORD <= y + h;
}

int32_t slowClose(double x, double y, float z) {
  const int32_t size = drawState.View->NodeSize;
  const double exact =
      size > 0 ? size * 0.10000000149011612 * drawState.UnitsPerDisplay : (drawState.Y1 - drawState.Y0) * size * 0.0005;
  const float r = static_cast<float>(exact), h = static_cast<float>(drawState.Y0 - drawState.Y1);
  int32_t last = 0;
  for (int32_t n = 1; n <= model.nodeCount; n++) {
    const Ndt& node = model.ndt[n];
    if (!slowExists(n) || !slowSquare(node, x, y, r)) continue;
    float s = r;
    if (node.SYM_SIZE > 0) s = node.SYM_SIZE;
    if (node.SYM_SIZE < 0) s = static_cast<float>(-static_cast<double>(node.SYM_SIZE) * h * 0.009999999776482582);
    if (slowDistance(node, x, y, static_cast<double>(node.Z_COORD) - z) <= s) last = n;
  }
  return last;
}

int32_t slowFuzzy(double x, double y, float tolerance, int32_t first, int32_t step, int32_t except) {
  for (int32_t n = first; n >= 1 && n <= model.nodeCount; n += step) {
    const Ndt& node = model.ndt[n];
    if (n != except && slowExists(n) && slowSquare(node, x, y, tolerance) && slowDistance(node, x, y, 0) <= tolerance)
      return n;
  }
  return 0;
}

int32_t slowSnap(double x, double y, float z, float tolerance, bool threeD, bool iso) {
  for (int32_t n = 1; n <= model.nodeCount; n++) {
    Ndt node = model.ndt[n];
    if (!slowExists(n)) continue;
    if (iso) {
      const double px = (node.X_COORD + node.Y_COORD) * 0.8660253882408142;
      const double py = (node.Y_COORD - node.X_COORD) * 0.5 + static_cast<double>(node.Z_COORD);
      node.X_COORD = px;
      node.Y_COORD = py;
    }
    if (slowDistance(node, x, y, threeD ? static_cast<double>(node.Z_COORD) - z : 0) <= tolerance) return n;
  }
  return 0;
}

std::string slowName(const char* field) {
  std::string name(field);
  while (!name.empty() && std::isspace(static_cast<unsigned char>(name.back()))) name.pop_back();
  for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return name;
}

int32_t slowByName(const std::string& text, int32_t start, bool partial) {
  std::vector<int32_t> order;
  for (int32_t n = start; n <= model.nodeCount; n++) order.push_back(n);
  if (start != 1) {
    for (int32_t n = 1; n < start; n++) order.push_back(n);
  }
  for (int32_t n : order) {
    if (model.ndt[n].REC_STATUS < 0) continue;
    const std::string name = slowName(model.ndt[n].NODENAME);
    if (partial ? name.find(text) != std::string::npos : name == text) return n;
  }
  return 0;
}

}  // namespace

TEST_F(NodeSearch, every_search_answers_0_on_an_empty_table_and_restores_the_cursor) {
  int32_t a = -1, b = -1;
  EXPECT_EQ(FindNodeClose(0, 0, 0), 0);
  EXPECT_EQ(FindNodeSnap(0, 0, 0, 1, 1), 0);
  EXPECT_EQ(FindNodeSnapPix(0, 0, 1), 0);
  EXPECT_EQ(FindNodeFuzzyRno(1, 1), 0);
  EXPECT_EQ(FindNodeFuzzy(0, 0, 1), 0);
  EXPECT_EQ(FindNodeByName("A", 1, 1, 0), 0);
  EXPECT_EQ(FindNodeByID(1), 0);
  EXPECT_EQ(PnGetCursor(), 32512);
  EXPECT_EQ(FindNodeFuzzy2x(0, 0, 1, 1, 1, &a, &b), 0);
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 0);
}

TEST_F(NodeSearch, a_search_shows_the_wait_cursor_and_the_old_one_again) {
  makeEmptyTables(1, 0, 0, 0);
  EXPECT_EQ(recorded([] { FindNodeFuzzy(0, 0, 1); }), "SetCursor 32514\nSetCursor 32512\n");
  int32_t a, b;
  EXPECT_EQ(recorded([&] { FindNodeFuzzy2x(0, 0, 1, 1, 1, &a, &b); }), "");
}

TEST_F(NodeSearch, the_last_of_two_symbols_under_the_point_wins) {
  const View view(100, 1.0, 1000, 0);  // radius 100 * 0.1 * 1 = 10
  makeEmptyTables(3, 0, 0, 0);
  putNode(1, 50, 50);
  putNode(2, 55, 50);
  putNode(3, 500, 500);
  EXPECT_EQ(FindNodeClose(50, 50, 0), 2);
}

TEST_F(NodeSearch, a_large_symbol_is_found_inside_the_default_square_only) {
  const View view(50, 1.0, 1000, 0);  // radius 5
  makeEmptyTables(1, 0, 0, 0);
  putNode(1, 0, 0);
  model.ndt[1].SYM_SIZE = 100;
  EXPECT_EQ(FindNodeClose(20, 0, 0), 0);
  EXPECT_EQ(FindNodeClose(5, 5, 0), 1);
}

TEST_F(NodeSearch, a_percent_symbol_is_measured_by_the_view_height) {
  const View view(300, 1.0, 1000, 0);  // default radius 30
  makeEmptyTables(1, 0, 0, 0);
  putNode(1, 0, 0);
  model.ndt[1].SYM_SIZE = -2;  // 2 percent of 1000
  EXPECT_EQ(FindNodeClose(20, 0, 0), 1);
  EXPECT_EQ(FindNodeClose(20.01, 0, 0), 0);
}

TEST_F(NodeSearch, a_negative_default_size_is_half_of_its_percentage) {
  const View view(-20, 1.0, 1000, 0);  // (0 - 1000) * -20 * 0.0005 = 10
  makeEmptyTables(1, 0, 0, 0);
  EXPECT_EQ(FindNodeClose(10, 0, 0), 1);
  EXPECT_EQ(FindNodeClose(10.01, 0, 0), 0);
}

TEST_F(NodeSearch, of_coincident_nodes_fuzzy_takes_the_higher_row_and_the_others_the_lower) {
  makeEmptyTables(4, 0, 0, 0);
  putNode(1, 90, 90);
  EXPECT_EQ(FindNodeFuzzy(0, 0, 1), 4);
  EXPECT_EQ(FindNodeSnap(0, 0, 0, 1, 0), 2);
  EXPECT_EQ(FindNodeFuzzyRno(2, 1), 3);
  EXPECT_EQ(FindNodeFuzzyRno(1, 1), 0) << "never its own argument";
}

TEST_F(NodeSearch, tolerances_are_inclusive) {
  makeEmptyTables(1, 0, 0, 0);
  putNode(1, 3, 4);
  EXPECT_EQ(FindNodeSnap(3, 4, 0, 0, 0), 1);
  EXPECT_EQ(FindNodeFuzzy(0, 0, 5), 1);
  EXPECT_EQ(FindNodeFuzzy(0, 0, 4.999f), 0);
}

TEST_F(NodeSearch, a_node_outside_the_square_is_no_match_though_its_distance_rounds_to_the_tolerance) {
  makeEmptyTables(1, 0, 0, 0);
  putNode(1, 1.00000001, 0);
  EXPECT_EQ(FindNodeSnap(0, 0, 0, 1, 0), 1);
  EXPECT_EQ(FindNodeFuzzy(0, 0, 1), 0);
}

TEST_F(NodeSearch, a_partial_search_wants_names_of_the_given_length_at_least) {
  makeEmptyTables(1, 0, 0, 0);
  std::strcpy(model.ndt[1].NODENAME, "cab");
  EXPECT_EQ(FindNodeByName("AB", 2, 1, 1), 1);
  EXPECT_EQ(FindNodeByName("AB", 3, 1, 1), 1);
  EXPECT_EQ(FindNodeByName("AB", 4, 1, 1), 0);
}

TEST_F(NodeSearch, one_node_may_answer_both_points) {
  makeEmptyTables(2, 0, 0, 0);
  putNode(2, 50, 0);
  int32_t a = 9, b = 9;
  EXPECT_EQ(FindNodeFuzzy2x(0, 0, 1, 0, 2, &a, &b), 0);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 1);
}

TEST_F(NodeSearch, names_wrap_around_from_the_start_row) {
  makeEmptyTables(6, 0, 0, 0);
  std::strcpy(model.ndt[3].NODENAME, "main st  ");
  EXPECT_EQ(FindNodeByName("MAIN ST", 7, 5, 0), 3);
  EXPECT_EQ(FindNodeByName("AIN", 3, 1, 1), 3);
  EXPECT_EQ(FindNodeByName("AIN", 3, 1, 0), 0);
  EXPECT_EQ(FindNodeByName("MAIN STREET", 11, 1, 1), 0);
  std::strcpy(model.ndt[5].NODENAME, "Main St");
  EXPECT_EQ(FindNodeByName("MAIN ST", 7, 4, 0), 5);
  EXPECT_EQ(FindNodeByName("MAIN ST", 7, 1, 0), 3);
}

TEST_F(NodeSearch, bad_arguments_find_nothing) {
  makeEmptyTables(2, 0, 0, 0);
  std::strcpy(model.ndt[1].NODENAME, "A");
  EXPECT_EQ(FindNodeByName(nullptr, 1, 1, 0), 0);
  EXPECT_EQ(FindNodeByName("A", 1, 2000000000, 0), 1) << "wraps to the rows before the start";
  EXPECT_EQ(FindNodeByName("A", 1, -5, 0), 1);
  EXPECT_EQ(FindNodeByName("A", -1, 1, 0), 0);
  EXPECT_EQ(FindNodeFuzzyRno(-1, 1), 0);
  EXPECT_EQ(FindNodeFuzzyRno(77, 1), 0);
  EXPECT_EQ(FindNodeFuzzy(std::nan(""), 0, 1), 0);
}

TEST_F(NodeSearch, deleted_nodes_are_found_by_no_search) {
  const View view(1000, 1.0, 1000, 0);
  makeEmptyTables(1, 0, 0, 0);
  model.ndt[1].REC_STATUS = -1;
  model.ndt[1].ID = 5;
  std::strcpy(model.ndt[1].NODENAME, "A");
  int32_t a, b;
  FindNodeFuzzy2x(0, 0, 0, 0, 9, &a, &b);
  EXPECT_EQ(FindNodeClose(0, 0, 0) + FindNodeSnap(0, 0, 0, 9, 0) + FindNodeSnapPix(0, 0, 9) + FindNodeFuzzy(0, 0, 9) +
                FindNodeFuzzyRno(0, 9) + FindNodeByName("A", 1, 1, 0) + FindNodeByID(5) + a + b,
            0);
}

TEST_F(NodeSearch, a_node_kept_out_of_hit_tests_is_found_by_name_and_id_alone) {
  const View view(1000, 1.0, 1000, 0);
  makeEmptyTables(1, 0, 0, 0);
  model.nxy[1].Drawn = -2;
  model.ndt[1].ID = 5;
  std::strcpy(model.ndt[1].NODENAME, "A");
  int32_t a, b;
  FindNodeFuzzy2x(0, 0, 0, 0, 9, &a, &b);
  EXPECT_EQ(FindNodeClose(0, 0, 0) + FindNodeSnap(0, 0, 0, 9, 0) + FindNodeSnapPix(0, 0, 9) + FindNodeFuzzy(0, 0, 9) +
                FindNodeFuzzyRno(0, 9) + a + b,
            0);
  EXPECT_EQ(FindNodeByName("A", 1, 1, 0), 1);
  EXPECT_EQ(FindNodeByID(5), 1);
}

TEST_F(NodeSearch, agrees_with_the_rules_written_out_on_random_networks) {
  int32_t found = 0;
  for (uint32_t seed = 1; seed <= 100; seed++) {
    makeRandomNetwork(seed, {60, 1, 0});
    const View view(seed % 3 ? 40 : -30, 0.9, 100, 0);
    drawState.IsoFlag = static_cast<int16_t>(seed & 1);
    std::mt19937 random(seed);
    for (int q = 0; q < 100; q++) {
      const double x = static_cast<int>(random() % 400) * 0.25, y = static_cast<int>(random() % 400) * 0.25;
      const float z = static_cast<float>(random() % 4), tolerance = static_cast<float>(random() % 20) * 0.5f;
      const auto node = static_cast<int32_t>(random() % 60 + 1);
      found += FindNodeClose(x, y, z) != 0;
      ASSERT_EQ(FindNodeClose(x, y, z), slowClose(x, y, z)) << seed << " " << q;
      ASSERT_EQ(FindNodeSnap(x, y, z, tolerance, q & 1), slowSnap(x, y, z, tolerance, q & 1, false));
      ASSERT_EQ(FindNodeSnapPix(x, y, tolerance), slowSnap(x, y, 0, tolerance, false, drawState.IsoFlag));
      ASSERT_EQ(FindNodeFuzzy(x, y, tolerance), slowFuzzy(x, y, tolerance, 60, -1, 0));
      ASSERT_EQ(FindNodeFuzzyRno(node, tolerance),
                slowFuzzy(model.ndt[node].X_COORD, model.ndt[node].Y_COORD, tolerance, 1, 1, node));
      int32_t a, b;
      FindNodeFuzzy2x(x, y, y, x, tolerance, &a, &b);
      ASSERT_EQ(a, slowFuzzy(x, y, tolerance, 1, 1, 0));
      ASSERT_EQ(b, slowFuzzy(y, x, tolerance, 1, 1, 0));
      const bool partial = q % 3 == 0;
      std::string text = slowName(model.ndt[node].NODENAME);
      if (partial) text = text.substr(1, 3);
      const auto start = static_cast<int32_t>(random() % 60 + 1);
      ASSERT_EQ(FindNodeByName(text.c_str(), static_cast<int32_t>(text.size()), start, partial),
                slowByName(text, start, partial));
    }
    FreeModel();
  }
  EXPECT_GT(found, 500) << "the queries must hit often enough to mean something";
}
