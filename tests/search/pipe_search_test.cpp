// Pipes by point, name, identifier and location. The slow forms are written straight from the rules of each search.
#include <cmath>

#include "model/draw_state.h"
#include "model/tables.h"
#include "support/random_network.h"

using namespace pn10;
using namespace pn10::test;

namespace {

class PipeSearch : public testing::Test {
 protected:
  Fresh fresh_;
};

/** Nodes 1 to 3 at (0,0), (100,0), (100,100); pipes 1-2 and 2-3, active and drawn. */
void makeCorner() {
  makeEmptyTables(3, 2, 0, 4);
  model.ndt[2].X_COORD = model.ndt[3].X_COORD = model.ndt[3].Y_COORD = 100;
  for (int32_t p = 1; p <= 2; p++) {
    model.pdt[p].FROM_NODE = p;
    model.pdt[p].TO_NODE = p + 1;
    model.pdt[p].ID = p + 10;
    model.pxy[p].Active = 1;
    model.pxy[p].DRAWN = 1;
  }
}

struct P {
  double x, y;
};
constexpr double kFar = 9999999.0, kPi = 3.1415926535, kTwoPi = 6.2831854820251465;
constexpr float kQuarter = 1.5707963705062866f;

double dist(P a, P b) { return std::sqrt(std::pow(a.x - b.x, 2.0) + std::pow(a.y - b.y, 2.0)); }
P slowProject(double x, double y, float z, bool iso) {
  return iso ? P{(x + y) * 0.8660253882408142, (y - x) * 0.5 + static_cast<double>(z)} : P{x, y};
}
P nodeAtPlane(int32_t n, bool iso) {
  if (n < 0 || n > model.nodeCount) return slowProject(0, 0, 0, iso);
  return slowProject(model.ndt[n].X_COORD, model.ndt[n].Y_COORD, model.ndt[n].Z_COORD, iso);
}

double slowSegment(P a, P b, P p) {
  const double d = dist(a, p), length = dist(a, b);
  if (d > length * 1.01) return kFar;
  float angle =
      std::fabs(static_cast<float>(GetBrg(a.x, a.y, p.x, p.y)) - static_cast<float>(GetBrg(a.x, a.y, b.x, b.y)));
  if (angle > kPi) angle = static_cast<float>(kTwoPi) - angle;
  if (angle > kQuarter) {
    if (d / length > 0.01) return kFar;
    angle = kQuarter;
  }
  return std::sin(static_cast<double>(angle)) * d;
}

struct Arc {
  P centre;
  double radius;
  float start, end;
};
bool slowArc(int32_t p, bool withZ, Arc* arc) {
  const Pdt& pipe = model.pdt[p];
  const Ndt zero{};
  const auto node = [&](int32_t n) -> const Ndt& { return n >= 0 && n <= model.nodeCount ? model.ndt[n] : zero; };
  const Ndt &f = node(pipe.FROM_NODE), &t = node(pipe.TO_NODE);
  double angle, mx, my;
  float mz;
  return CalcArcGeom(model.pxy[p].LAST_VTX, pipe.VTX_MODE, withZ ? f.Z_COORD : 0, withZ ? t.Z_COORD : 0, f.X_COORD,
                     f.Y_COORD, t.X_COORD, t.Y_COORD, &arc->centre.x, &arc->centre.y, &arc->radius, &arc->start,
                     &arc->end, &angle, &mx, &my, &mz) == 0;
}

int32_t slowPipeXY(double x, double y, float* radius, bool activeOnly, bool drawnOnly, bool withLabel,
                   int32_t excluded) {
  const bool iso = drawState.IsoFlag != 0;
  double best = *radius;
  int32_t result = 0;
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    const Pdt& pipe = model.pdt[p];
    const PXY& screen = model.pxy[p];
    if (pipe.REC_STATUS < 0) continue;
    if (drawnOnly && screen.DRAWN == 0) continue;
    if (activeOnly && screen.Active == 0) continue;
    if (excluded && (pipe.FROM_NODE == excluded || pipe.TO_NODE == excluded)) continue;
    const P at{x, y}, from = nodeAtPlane(pipe.FROM_NODE, iso), to = nodeAtPlane(pipe.TO_NODE, iso);
    const auto candidate = [&](double d) {
      if (d < best) best = d, result = p;
    };
    candidate(dist(at, from));
    candidate(dist(at, to));
    if (pipe.VTX_MODE == 0) candidate(slowSegment(from, to, at));
    if (pipe.VTX_MODE == 4) {
      P last = from;
      for (int32_t v = screen.FIRST_VTX; v && v <= screen.LAST_VTX; v++) {
        const P next = slowProject(model.vtx[v].VTX_X, model.vtx[v].VTX_Y, model.vtx[v].VTX_Z, iso);
        candidate(slowSegment(last, next, at));
        last = next;
      }
      candidate(slowSegment(last, to, at));
    }
    if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
      Arc arc;
      if (!slowArc(p, false, &arc)) continue;
      arc.centre = slowProject(arc.centre.x, arc.centre.y, 0, iso);
      const float b = static_cast<float>(GetBrg(arc.centre.x, arc.centre.y, x, y));
      if (arc.start <= arc.end && (b < arc.start || b > arc.end)) continue;
      if (arc.start > arc.end && b > arc.end && b < arc.start) continue;
      P c;
      GetXY(arc.centre.x, arc.centre.y, b, arc.radius, &c.x, &c.y);
      candidate(dist(at, c));
    }
    if (withLabel && pipe.TEXT_X != 0 && pipe.TEXT_Y != 0) {
      candidate(dist(at, slowProject(pipe.TEXT_X, pipe.TEXT_Y, GetPipeTextZ(p), iso)));
    }
  }
  *radius = static_cast<float>(best);
  return result;
}

P slowOnPiece(P a, P b, P p) {
  const double d = dist(a, p), length = dist(a, b), brg = GetBrg(a.x, a.y, b.x, b.y);
  double angle = std::fabs(GetBrg(a.x, a.y, p.x, p.y) - brg);
  if (angle > kPi) angle = kTwoPi - angle;
  if (angle > static_cast<double>(kQuarter)) return a;
  const double along = std::cos(angle) * d;
  if (along > length) return b;
  P c;
  GetXY(a.x, a.y, brg, along, &c.x, &c.y);
  return c;
}

int32_t slowClosePno(double x, double y, float tolerance) {
  double best = kFar;
  int32_t result = 0;
  const P at{x, y};
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    const Pdt& pipe = model.pdt[p];
    if (pipe.HYD_TYPE != 0 || pipe.REC_STATUS < 0 || model.pxy[p].Active == 0) continue;
    const auto candidate = [&](P c) {
      const double d = dist(at, c);
      if (d <= static_cast<double>(tolerance) && d <= best) best = d, result = p;
    };
    const P from = nodeAtPlane(pipe.FROM_NODE, false), to = nodeAtPlane(pipe.TO_NODE, false);
    if (pipe.VTX_MODE == 0) candidate(slowOnPiece(from, to, at));
    if (pipe.VTX_MODE == 4) {
      P last = from;
      const double grown = static_cast<double>(tolerance) * 1.1;
      for (int32_t v = model.pxy[p].FIRST_VTX; v && v <= model.pxy[p].LAST_VTX; v++) {
        const P next{model.vtx[v].VTX_X, model.vtx[v].VTX_Y};
        if (x >= std::min(last.x, next.x) - grown && x <= std::max(last.x, next.x) + grown &&
            y >= std::min(last.y, next.y) - grown && y <= std::max(last.y, next.y) + grown) {
          candidate(slowOnPiece(last, next, at));
        }
        last = next;
      }
      candidate(slowOnPiece(last, to, at));
    }
    if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
      Arc arc;
      if (!slowArc(p, true, &arc)) return result;
      const double b = GetBrg(arc.centre.x, arc.centre.y, x, y);
      P c;
      GetXY(arc.centre.x, arc.centre.y, b, arc.radius, &c.x, &c.y);
      if (arc.start <= arc.end) {
        if (b < arc.start) c = to;
        if (b > arc.end) c = from;
      } else if (b > arc.end && b < arc.start) {
        c = b <= arc.end + (kTwoPi - arc.start + arc.end) * 0.5 ? to : from;
      }
      candidate(c);
    }
  }
  return result;
}

}  // namespace

TEST_F(PipeSearch, every_search_answers_0_on_an_empty_table) {
  float radius = 5;
  double mx = 1, my = 2;
  float mz = 3;
  EXPECT_EQ(FindPipeByID(1), 0);
  EXPECT_EQ(FindPipeByNodeName("A", "B"), 0);
  EXPECT_EQ(FindPipeByLinkID("A", 1, 0), 0);
  EXPECT_EQ(FindPipeXY(0, 0, &radius, 0, 0, 1, 0), 0);
  EXPECT_EQ(radius, 5);
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 0, 0, 0, nullptr, nullptr, 0, 1), 0);
  EXPECT_EQ(FindPipeClosePno(0, 0, 1), 0);
  EXPECT_EQ(FindPipeCloseMid(0, 0, 1, &mx, &my, &mz), 0);
  EXPECT_EQ(mx, 1) << "the out arguments stay";
  EXPECT_EQ(PnGetCursor(), 32512);
  EXPECT_EQ(FindPipeXY(0, 0, nullptr, 0, 0, 1, 0), 0);
}

TEST_F(PipeSearch, a_radius_of_0_finds_nothing_and_stays_0) {
  makeCorner();
  float radius = 0;
  EXPECT_EQ(FindPipeXY(50, 0, &radius, 0, 0, 0, 0), 0);
  EXPECT_EQ(radius, 0);
}

TEST_F(PipeSearch, a_shared_node_belongs_to_the_lowest_row) {
  makeCorner();
  float radius = 10;
  EXPECT_EQ(FindPipeXY(100, 0, &radius, 0, 0, 0, 0), 1);
  EXPECT_EQ(radius, 0);
  radius = 10;
  EXPECT_EQ(FindPipeXY(100, 0, &radius, 0, 0, 0, 1), 2) << "pipe 1 ends at the excluded node";
}

TEST_F(PipeSearch, the_hit_distance_is_given_back) {
  makeCorner();
  float radius = 10;
  EXPECT_EQ(FindPipeXY(50, 4, &radius, 0, 0, 0, 0), 1);
  EXPECT_NEAR(radius, 4, 1e-4);
}

TEST_F(PipeSearch, undrawn_inactive_and_deleted_pipes_are_skipped_as_asked) {
  makeCorner();
  const auto find = [](int16_t active, int16_t drawn) {
    float radius = 10;
    return FindPipeXY(50, 1, &radius, active, drawn, 0, 0);
  };
  model.pxy[1].Active = 0;
  EXPECT_EQ(find(1, 0), 0);
  EXPECT_EQ(find(0, 0), 1);
  model.pxy[1].DRAWN = 0;
  EXPECT_EQ(find(0, 1), 0);
  model.pdt[1].REC_STATUS = -1;
  EXPECT_EQ(find(0, 0), 0);
}

TEST_F(PipeSearch, a_label_is_one_more_place_to_hit) {
  makeCorner();
  model.pdt[2].TEXT_X = 300;
  model.pdt[2].TEXT_Y = 300;
  float radius = 10;
  EXPECT_EQ(FindPipeXY(301, 300, &radius, 0, 0, 0, 0), 0);
  EXPECT_EQ(FindPipeXY(301, 300, &radius, 0, 0, 1, 0), 2);
  EXPECT_EQ(radius, 1);
}

TEST_F(PipeSearch, a_segment_reaches_one_percent_beyond_its_ends) {
  // 100 long: half a percent behind A counts with its own distance, two percent do not; beyond B up to one percent.
  EXPECT_NEAR(CalcSegDist(0, 0, 100, 0, -0.5, 0), 0.5, 1e-6);
  EXPECT_EQ(CalcSegDist(0, 0, 100, 0, -2, 0), 9999999.0);
  EXPECT_NEAR(CalcSegDist(0, 0, 100, 0, 100.9, 0), 0, 1e-4);
  EXPECT_EQ(CalcSegDist(0, 0, 100, 0, 101.1, 0), 9999999.0);
  EXPECT_NEAR(CalcSegDist(0, 0, 100, 0, 50, 7), 7, 1e-4);
  EXPECT_EQ(CalcSegDist(5, 5, 5, 5, 5, 5), 0);
}

TEST_F(PipeSearch, location_wants_the_ends_in_their_order) {
  makeCorner();
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, nullptr, nullptr, 0, 0.1f), 1);
  EXPECT_EQ(FindPipeByLocation(100, 0, 0, 0, 0, 0, nullptr, nullptr, 0, 0.1f), 0);
  EXPECT_EQ(FindPipeByLocation(0, 3, 4, 100, 0, 0, nullptr, nullptr, 0, 5), 1) << "3-D and inclusive";
  EXPECT_EQ(FindPipeByLocation(0, 3, 4, 100, 0, 0, nullptr, nullptr, 0, 4.99f), 0);
  model.pdt[1].VTX_MODE = 3;
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, nullptr, nullptr, 0, 0.1f), 0);
}

TEST_F(PipeSearch, location_of_a_polyline_compares_its_vertices) {
  makeCorner();
  model.pdt[1].VTX_MODE = 4;
  model.pxy[1].FIRST_VTX = 1;
  model.pxy[1].LAST_VTX = 2;
  model.vtx[1].VTX_X = 30;
  model.vtx[2].VTX_X = 60;
  const double xs[] = {30, 60}, ys[] = {0, 0.5}, swapped[] = {60, 30};
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, xs, ys, 2, 0.5f), 1);
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, xs, ys, 1, 0.5f), 0);
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, xs, ys, 0, 0.5f), 0);
  EXPECT_EQ(FindPipeByLocation(0, 0, 0, 100, 0, 0, swapped, ys, 2, 0.5f), 0);
}

TEST_F(PipeSearch, elements_are_never_tapped) {
  makeCorner();
  EXPECT_EQ(FindPipeClosePno(50, 3, 5), 1);
  model.pdt[1].HYD_TYPE = 3;
  EXPECT_EQ(FindPipeClosePno(50, 3, 5), 0);
}

TEST_F(PipeSearch, a_tie_of_projections_goes_to_the_later_pipe) {
  makeCorner();
  EXPECT_EQ(FindPipeClosePno(103, 0, 5), 2) << "both have the shared node as nearest point";
  EXPECT_EQ(FindPipeClosePno(50, 5, 5), 1) << "a tolerance is inclusive";
}

TEST_F(PipeSearch, the_middle_of_record_1_alone_is_tested) {
  makeCorner();
  double x = 0, y = 0;
  float z = 7;
  EXPECT_EQ(FindPipeCloseMid(50, 1, 2, &x, &y, &z), 0);
  EXPECT_EQ(x, 50);
  EXPECT_EQ(y, 0);
  EXPECT_EQ(z, 0);
  x = y = -1;
  EXPECT_EQ(FindPipeCloseMid(100, 50, 2, &x, &y, &z), 0) << "the middle of pipe 2";
  EXPECT_EQ(x, -1);
  model.pdt[1].REC_STATUS = -1;
  EXPECT_EQ(FindPipeCloseMid(50, 0, 2, &x, &y, &z), 0);
  EXPECT_EQ(x, -1);
}

TEST_F(PipeSearch, the_middle_of_a_polyline_ends_the_walk_at_the_first_near_piece) {
  makeCorner();
  model.pdt[1].VTX_MODE = 4;
  model.pxy[1].FIRST_VTX = 1;
  model.pxy[1].LAST_VTX = 2;
  model.vtx[1].VTX_X = 20;
  model.vtx[2].VTX_X = 60;
  double x = 0, y = 0;
  float z = 0;
  EXPECT_EQ(FindPipeCloseMid(40, 0, 2, &x, &y, &z), 1);  // the piece from 20 to 60
  EXPECT_EQ(x, 60);                                      // between its start and the To node: (20 + 100) / 2
  EXPECT_EQ(FindPipeCloseMid(80, 0, 2, &x, &y, &z), 0);  // the last piece, 60 to 100
  EXPECT_EQ(x, 80);
}

TEST_F(PipeSearch, the_middle_of_an_arc_is_its_midpoint) {
  makeCorner();
  model.pdt[1].VTX_MODE = 2;
  model.pxy[1].FIRST_VTX = model.pxy[1].LAST_VTX = 1;
  model.vtx[1].VTX_X = 50;             // radius: a half circle over the chord of 100
  model.vtx[1].VTX_Y = 3.14159265358;  // included angle
  double cx, cy, radius, angle, mx, my;
  float start, end, mz;
  ASSERT_EQ(CalcArcGeom(1, 2, 0, 0, 0, 0, 100, 0, &cx, &cy, &radius, &start, &end, &angle, &mx, &my, &mz), 0);
  double x = 0, y = 0;
  float z = 5;
  EXPECT_EQ(FindPipeCloseMid(mx, my, 1, &x, &y, &z), 0);
  EXPECT_EQ(x, mx);
  EXPECT_EQ(y, my);
  EXPECT_EQ(z, 0);
}

TEST_F(PipeSearch, names_of_the_end_nodes_in_either_order) {
  makeCorner();
  std::strcpy(model.ndt[1].NODENAME, "A");
  std::strcpy(model.ndt[2].NODENAME, "B");
  EXPECT_EQ(FindPipeByNodeName("A", "B"), 1);
  EXPECT_EQ(FindPipeByNodeName("B", "A"), 1);
  EXPECT_EQ(FindPipeByNodeName("a", "B"), 0);
  EXPECT_EQ(FindPipeByNodeName("A", "A"), 0);
  EXPECT_EQ(FindPipeByID(12), 2);
  model.pdt[1].REC_STATUS = -1;
  EXPECT_EQ(FindPipeByNodeName("A", "B"), 0);
  EXPECT_EQ(FindPipeByID(11), 0);
}

TEST_F(PipeSearch, link_identifiers_wrap_and_match_in_part) {
  makeCorner();
  std::strcpy(model.pdt[1].LINK_ID, "gis-100 ");
  std::strcpy(model.pdt[2].LINK_ID, "GIS-1001");
  EXPECT_EQ(FindPipeByLinkID("GIS-100", 1, 0), 1);
  EXPECT_EQ(FindPipeByLinkID("GIS-100  ", 1, 0), 1) << "the text counts without the blanks at its end";
  EXPECT_EQ(FindPipeByLinkID("GIS-100", 2, 0), 1) << "wraps";
  EXPECT_EQ(FindPipeByLinkID("GIS-100", 2, 1), 2);
  EXPECT_EQ(FindPipeByLinkID("1001", 1, 1), 2);
  EXPECT_EQ(FindPipeByLinkID("GIS-10012", 1, 1), 0);
  EXPECT_EQ(FindPipeByLinkID(nullptr, 1, 0), 0);
}

TEST_F(PipeSearch, agrees_with_the_rules_written_out_on_random_networks) {
  int32_t hits = 0, taps = 0;
  for (uint32_t seed = 1; seed <= 100; seed++) {
    makeRandomNetwork(seed, {40, 60, 0});
    drawState.IsoFlag = static_cast<int16_t>(seed % 4 == 0);
    settings.tolerance = 0.01f;
    std::mt19937 random(seed);
    for (int q = 0; q < 100; q++) {
      const double x = static_cast<int>(random() % 400) * 0.25, y = static_cast<int>(random() % 400) * 0.25;
      const float tolerance = static_cast<float>(random() % 30) * 0.5f;
      float fast = tolerance, slow = tolerance;
      const bool active = q & 1, drawn = q & 2, label = q & 4;
      const auto excluded = static_cast<int32_t>(q % 5 == 0 ? random() % 40 + 1 : 0);
      const int32_t hit = FindPipeXY(x, y, &fast, active, drawn, label, excluded);
      hits += hit != 0;
      ASSERT_EQ(hit, slowPipeXY(x, y, &slow, active, drawn, label, excluded)) << seed << " " << q;
      ASSERT_EQ(fast, slow);
      const int32_t tap = FindPipeClosePno(x, y, tolerance);
      taps += tap != 0;
      ASSERT_EQ(tap, slowClosePno(x, y, tolerance)) << seed << " " << q;
    }
    FreeModel();
  }
  EXPECT_GT(hits, 3000);
  EXPECT_GT(taps, 2000);
}
