// The searches of pipes by name, identifier, place and middle against slow forms written straight from their rules.
#include <cctype>
#include <cmath>

#include "model/draw_state.h"
#include "model/tables.h"
#include "support/random_network.h"

using namespace pn10;
using namespace pn10::test;

namespace {

std::string trimmed(std::string text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.pop_back();
  return text;
}
std::string upperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}
Ndt endOf(int32_t node) { return node >= 0 && node <= model.nodeCount ? model.ndt[node] : Ndt{}; }

int32_t slowByID(int32_t id) {
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    if (model.pdt[p].REC_STATUS >= 0 && model.pdt[p].ID == id) return p;
  }
  return 0;
}

int32_t slowByNodeName(const std::string& a, const std::string& b) {
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    if (model.pdt[p].REC_STATUS < 0) continue;
    const std::string from = endOf(model.pdt[p].FROM_NODE).NODENAME, to = endOf(model.pdt[p].TO_NODE).NODENAME;
    if ((from == a && to == b) || (from == b && to == a)) return p;
  }
  return 0;
}

int32_t slowByLinkID(const std::string& text, int32_t start, bool partial) {
  std::vector<int32_t> order;
  for (int32_t p = start; p <= model.pipeCount; p++) order.push_back(p);
  for (int32_t p = 1; start != 1 && p < start && p <= model.pipeCount; p++) order.push_back(p);
  const std::string wanted = trimmed(text);
  for (int32_t p : order) {
    if (model.pdt[p].REC_STATUS < 0) continue;
    const std::string link = trimmed(upperCase(model.pdt[p].LINK_ID));
    if (partial ? link.size() >= wanted.size() && link.find(text) != std::string::npos : link == wanted) return p;
  }
  return 0;
}

struct Place {
  double x, y;
  float z;
};
bool near(const Ndt& n, Place at, float tolerance) {
  return std::sqrt(std::pow(n.X_COORD - at.x, 2.0) + std::pow(n.Y_COORD - at.y, 2.0) +
                   std::pow(double{n.Z_COORD} - double{at.z}, 2.0)) <= double{tolerance};
}

int32_t slowByLocation(Place from, Place to, const std::vector<double>& xs, const std::vector<double>& ys,
                       float tolerance) {
  const auto count = static_cast<int32_t>(xs.size());
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    const Pdt& pipe = model.pdt[p];
    const PXY& screen = model.pxy[p];
    if (pipe.REC_STATUS < 0) continue;
    if (!near(endOf(pipe.FROM_NODE), from, tolerance) || !near(endOf(pipe.TO_NODE), to, tolerance)) continue;
    if (pipe.VTX_MODE <= 2) return p;
    if (pipe.VTX_MODE != 4 || count == 0 || screen.FIRST_VTX == 0) continue;
    if (count != screen.LAST_VTX - screen.FIRST_VTX + 1) continue;
    bool all = true;
    for (int32_t i = 0; i < count; i++) {
      const Vtx& v = model.vtx[screen.FIRST_VTX + i];
      const auto at = static_cast<size_t>(i);
      all = all && std::hypot(v.VTX_X - xs[at], v.VTX_Y - ys[at]) <= double{tolerance};
    }
    if (all) return p;
  }
  return 0;
}

struct Middle {
  int32_t result = 0;
  double x = -1, y = -1;
  float z = -1;
  bool operator==(const Middle& o) const { return result == o.result && x == o.x && y == o.y && z == o.z; }
};

Middle slowCloseMid(double px, double py, float tolerance) {
  Middle m;
  const Pdt& pipe = model.pdt[1];
  if (pipe.HYD_TYPE != 0 || pipe.REC_STATUS < 0 || model.pxy[1].Active == 0) return m;
  const Ndt from = endOf(pipe.FROM_NODE), to = endOf(pipe.TO_NODE);
  const auto within = [&](double x, double y) {
    return std::sqrt(std::pow(px - x, 2.0) + std::pow(py - y, 2.0)) <= double{tolerance};
  };
  const auto write = [&](double x, double y) { m.x = x, m.y = y, m.z = 0; };
  double x = from.X_COORD, y = from.Y_COORD;
  if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
    float z;
    if (CalcArcMidXY(1, &x, &y, &z) == 0 && within(x, y)) write(x, y);
    return m;
  }
  if (pipe.VTX_MODE == 3) return m;
  if (pipe.VTX_MODE == 4 && model.pxy[1].FIRST_VTX) {
    for (int32_t v = model.pxy[1].FIRST_VTX; v <= model.pxy[1].LAST_VTX; v++) {
      const Vtx& next = model.vtx[v];
      if (within((x + next.VTX_X) * 0.5, (y + next.VTX_Y) * 0.5)) {
        m.result = 1;
        break;
      }
      x = next.VTX_X, y = next.VTX_Y;
    }
  }
  const double mx = (x + to.X_COORD) * 0.5, my = (y + to.Y_COORD) * 0.5;
  if (m.result == 1 || within(mx, my)) write(mx, my);
  return m;
}

}  // namespace

TEST(PipeForms, agree_on_random_networks) {
  Fresh fresh;
  int32_t names = 0, links = 0, places = 0, middles = 0;
  for (uint32_t seed = 1; seed <= 250; seed++) {
    makeRandomNetwork(seed, {40, 60, 0});
    std::mt19937 random(seed * 3);
    const auto upTo = [&](int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n + 1)); };
    for (int q = 0; q < 40; q++) {
      const int32_t id = upTo(63) * 7;
      ASSERT_EQ(FindPipeByID(id), slowByID(id));
      const Pdt& some = model.pdt[1 + upTo(59)];
      std::string a = endOf(some.FROM_NODE).NODENAME, b = endOf(q % 5 ? some.TO_NODE : upTo(40)).NODENAME;
      if (q & 1) std::swap(a, b);
      const int32_t named = FindPipeByNodeName(a.c_str(), b.c_str());
      names += named != 0;
      ASSERT_EQ(named, slowByNodeName(a, b)) << seed << " " << q;

      const bool partial = q % 3 == 0;
      std::string link = upperCase(some.LINK_ID);
      if (partial) link = link.substr(static_cast<size_t>(upTo(3)));
      const int32_t start = 1 + upTo(70), linked = FindPipeByLinkID(link.c_str(), start, partial);
      links += linked != 0;
      ASSERT_EQ(linked, slowByLinkID(link, start, partial)) << seed << " " << q << " '" << link << "'";

      const Ndt f = endOf(some.FROM_NODE), t = endOf(some.TO_NODE);
      const auto off = [&] { return upTo(2) * 0.5; };
      const Place from{f.X_COORD + off(), f.Y_COORD, f.Z_COORD}, to{t.X_COORD, t.Y_COORD - off(), t.Z_COORD + 0.5f};
      std::vector<double> xs, ys;
      const PXY& screen = model.pxy[&some - model.pdt];
      for (int32_t v = screen.FIRST_VTX; v && v <= screen.LAST_VTX && q % 4; v++) {
        xs.push_back(model.vtx[v].VTX_X + off());
        ys.push_back(model.vtx[v].VTX_Y);
      }
      const int32_t placed = FindPipeByLocation(from.x, from.y, from.z, to.x, to.y, to.z, xs.data(), ys.data(),
                                                static_cast<int32_t>(xs.size()), 1);
      places += placed != 0;
      ASSERT_EQ(placed, slowByLocation(from, to, xs, ys, 1)) << seed << " " << q;

      const double x = upTo(100), y = upTo(100);
      const auto tolerance = static_cast<float>(upTo(30));
      Middle m;
      m.result = FindPipeCloseMid(x, y, tolerance, &m.x, &m.y, &m.z);
      middles += m.z == 0;
      ASSERT_TRUE(m == slowCloseMid(x, y, tolerance)) << seed << " " << q;
    }
    FreeModel();
  }
  EXPECT_GT(names, 5000);
  EXPECT_GT(links, 5000);
  EXPECT_GT(places, 2000);
  EXPECT_GT(middles, 500) << "the queries must hit often enough to mean something";
}

TEST(PipeForms, all_but_two_searches_show_the_wait_cursor) {
  Fresh fresh;
  makeEmptyTables(2, 1, 0, 0);
  const std::string shown = "SetCursor 32514\nSetCursor 32512\n";
  double x = 0, y = 0;
  float z = 0, radius = 9;
  EXPECT_EQ(recorded([] { FindPipeByID(1); }), shown);
  EXPECT_EQ(recorded([] { FindPipeByNodeName("A", "B"); }), shown);
  EXPECT_EQ(recorded([] { FindPipeByLinkID("A", 1, 0); }), shown);
  EXPECT_EQ(recorded([] { FindPipeClosePno(0, 0, 1); }), shown);
  EXPECT_EQ(recorded([&] { FindPipeCloseMid(0, 0, 1, &x, &y, &z); }), shown);
  EXPECT_EQ(recorded([&] { FindPipeXY(0, 0, &radius, 0, 0, 0, 0); }), "");
  EXPECT_EQ(recorded([] { FindPipeByLocation(0, 0, 0, 0, 0, 0, nullptr, nullptr, 0, 1); }), "");
}

TEST(PipeForms, an_end_without_a_place_leaves_the_other_end_to_hit) {
  Fresh fresh;
  makeEmptyTables(2, 1, 0, 0);
  model.pdt[1].FROM_NODE = 1;
  model.pdt[1].TO_NODE = 2;
  model.ndt[1].X_COORD = std::nan("");
  model.ndt[2].X_COORD = 50;
  float radius = 5;
  EXPECT_EQ(FindPipeXY(51, 0, &radius, 0, 0, 0, 0), 1);
  EXPECT_EQ(radius, 1);
}

TEST(PipeForms, an_arc_that_does_not_face_the_point_loses_its_label_too) {
  // The right half of a circle of radius 50 around (0, 0) is the pipe; its label lies on the left.
  Fresh fresh;
  makeEmptyTables(2, 1, 0, 1);
  Pdt& pipe = model.pdt[1];
  pipe.FROM_NODE = 1;
  pipe.TO_NODE = 2;
  pipe.VTX_MODE = 2;
  pipe.TEXT_X = -80;
  pipe.TEXT_Y = 1;
  model.ndt[1].Y_COORD = -50;
  model.ndt[2].Y_COORD = 50;
  model.pxy[1].FIRST_VTX = model.pxy[1].LAST_VTX = 1;
  model.vtx[1].VTX_X = 50;
  model.vtx[1].VTX_Y = 3.1415926535;
  float radius = 5;
  EXPECT_EQ(FindPipeXY(52, 0, &radius, 0, 0, 1, 0), 1);
  EXPECT_NEAR(radius, 2, 1e-3);
  radius = 5;
  EXPECT_EQ(FindPipeXY(-80, 0, &radius, 0, 0, 1, 0), 0);
  pipe.VTX_MODE = 3;  // no path, but a label
  EXPECT_EQ(FindPipeXY(-80, 0, &radius, 0, 0, 1, 0), 1);
}
