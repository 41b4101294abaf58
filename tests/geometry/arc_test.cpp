/** Circles worked out by hand: radius 5 around (5, 5) or (0, 0), a quarter turn between (5, 0) and (0, 5). */
#include <cmath>

#include "geometry/scene.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr double kHalfPi = 1.5707963267948966, kRoot = 3.5355339059327378; /* 5 / sqrt 2 */

struct Geom {
  int32_t result;
  double cx = -1, cy = -1, radius = -1, included = -1, midX = -1, midY = -1;
  float start = -1, end = -1, midZ = -1;
  Geom(int16_t turn, double x1, double y1, double x2, double y2, int32_t vtx = 1) {
    result =
        CalcArcGeom(vtx, turn, 10, 30, x1, y1, x2, y2, &cx, &cy, &radius, &start, &end, &included, &midX, &midY, &midZ);
  }
};

TEST(CalcArcGeom, turn_1_has_its_centre_left_of_the_way_back) {
  OnePipe m({5, 0}, {0, 5}, 1, {{5, kHalfPi}});
  const Geom g(1, 5, 0, 0, 5);
  EXPECT_EQ(g.result, 0);
  EXPECT_NEAR(g.cx, 5, 1e-5);
  EXPECT_NEAR(g.cy, 5, 1e-5);
  EXPECT_EQ(g.radius, 5.0);
  EXPECT_NEAR(g.start, 2 * kHalfPi, 1e-6);
  EXPECT_NEAR(g.end, 3 * kHalfPi, 1e-6);
  EXPECT_EQ(g.included, kHalfPi);
  EXPECT_NEAR(g.midX, 5 - kRoot, 1e-5);
  EXPECT_NEAR(g.midY, 5 - kRoot, 1e-5);
  EXPECT_EQ(g.midZ, 20.0f);
}

TEST(CalcArcGeom, any_other_turn_runs_from_the_first_end_to_the_second) {
  OnePipe m({5, 0}, {0, 5}, 2, {{5, kHalfPi}});
  for (int16_t turn : {int16_t{2}, int16_t{0}, int16_t{7}}) {
    const Geom g(turn, 5, 0, 0, 5);
    EXPECT_NEAR(g.cx, 0, 1e-5);
    EXPECT_NEAR(g.cy, 0, 1e-5);
    EXPECT_NEAR(g.end, kHalfPi, 1e-6);
    EXPECT_NEAR(g.midX, kRoot, 1e-5);
    EXPECT_NEAR(g.midY, kRoot, 1e-5);
  }
}

TEST(CalcArcGeom, the_middle_of_an_arc_through_east_lies_east) {
  const double a = 0.25, c = 100 * std::cos(a), s = 100 * std::sin(a);
  OnePipe m({c, -s}, {c, s}, 2, {{100, 0.5}});
  const Geom g(2, c, -s, c, s);
  EXPECT_GT(g.start, g.end);
  EXPECT_NEAR(g.midX, 100, 1e-3);
  EXPECT_NEAR(g.midY, 0, 1e-3);
}

TEST(CalcArcGeom, radius_and_angle_are_rounded_but_the_angle_comes_back_whole) {
  OnePipe m({0, 0}, {1, 0}, 1, {{0.1, 0.2}});
  const Geom g(1, 0, 0, 1, 0);
  EXPECT_EQ(g.radius, double{0.1f});
  EXPECT_EQ(g.included, 0.2);
}

TEST(CalcArcGeom, coinciding_ends_are_refused_in_the_isometric_view_only) {
  OnePipe m({0, 0}, {0, 0}, 1, {{5, 1}});
  settings.tolerance = 0.5f;
  EXPECT_EQ(Geom(1, 0, 0, 0.4, -0.4).result, 0);
  drawState.IsoFlag = 1;
  const Geom refused(1, 0, 0, 0.4, -0.4);
  EXPECT_EQ(refused.result, -1);
  EXPECT_EQ(refused.cx, -1);
  EXPECT_EQ(Geom(1, 0, 0, 0.5, 0).result, 0); /* strictly below */
  EXPECT_EQ(Geom(1, 0, 0, 0, 0.5).result, 0);
}

TEST(CalcArcGeom, coinciding_ends_have_the_whole_circle_between_them) {
  OnePipe m({0, 0}, {0, 0}, 2, {{5, kHalfPi}});
  const Geom g(2, 0, 0, 0, 0);
  EXPECT_EQ(g.result, 0);
  EXPECT_EQ(g.start, g.end);
  EXPECT_NEAR(g.cx, kRoot, 1e-5);
  EXPECT_NEAR(g.midX, 2 * kRoot, 1e-5); /* opposite of the ends */
  EXPECT_NEAR(g.midY, 2 * kRoot, 1e-5);
}

TEST(CalcArcGeom, a_vertex_outside_the_table_is_refused) {
  OnePipe m({5, 0}, {0, 5}, 1, {{5, 1}});
  for (int32_t vtx : {-1, 2, 2000000000}) EXPECT_EQ(Geom(1, 5, 0, 0, 5, vtx).result, -1);
  EXPECT_EQ(Geom(1, 5, 0, 0, 5, 0).result, 0);
}

TEST(CalcArcCxy, coinciding_ends_are_refused_outside_the_isometric_view_only) {
  OnePipe m({0, 0}, {0, 0});
  settings.tolerance = 0.5f;
  double x = -1, y = -1;
  float start = -1, end = -1;
  EXPECT_EQ(CalcArcCxy(1, 5, 1, 0, 0, 9, 0.4, -0.4, 9, &x, &y, &start, &end), -1);
  EXPECT_EQ(x, -1);
  drawState.IsoFlag = 1;
  EXPECT_EQ(CalcArcCxy(1, 5, 1, 0, 0, 9, 0.4, -0.4, 9, &x, &y, &start, &end), 0);
}

TEST(CalcArcCxy, gives_the_circle_of_a_radius_and_an_angle) {
  OnePipe m({0, 0}, {0, 0});
  double x, y;
  float start, end;
  EXPECT_EQ(CalcArcCxy(1, 5, static_cast<float>(kHalfPi), 5, 0, 0, 0, 5, 0, &x, &y, &start, &end), 0);
  EXPECT_NEAR(x, 5, 1e-5);
  EXPECT_NEAR(y, 5, 1e-5);
  EXPECT_NEAR(start, 2 * kHalfPi, 1e-6);
  EXPECT_NEAR(end, 3 * kHalfPi, 1e-6);
}

TEST(CalcArcMidXY, is_for_arcs_and_leaves_its_outputs_else) {
  for (int mode : {0, 3, 4}) {
    OnePipe m({5, 0}, {0, 5}, mode, {{5, kHalfPi}});
    double x = -7, y = -7;
    float z = -7;
    EXPECT_EQ(CalcArcMidXY(1, &x, &y, &z), -1);
    EXPECT_EQ(x, -7);
    EXPECT_EQ(y, -7);
    EXPECT_EQ(z, -7);
    EXPECT_EQ(CalcArcMidXY(99, &x, &y, &z), -1);
  }
}

TEST(CalcArcMidXY, gives_the_middle_with_the_mean_height) {
  OnePipe m({5, 0, 1}, {0, 5, 4}, 2, {{5, kHalfPi}});
  double x, y;
  float z;
  EXPECT_EQ(CalcArcMidXY(1, &x, &y, &z), 0);
  EXPECT_NEAR(x, kRoot, 1e-5);
  EXPECT_NEAR(y, kRoot, 1e-5);
  EXPECT_EQ(z, 2.5f);
}

TEST(CalcArcMidXY, answers_0_and_writes_nothing_when_the_circle_is_refused) {
  OnePipe m({5, 5}, {5, 5}, 1, {{5, 1}});
  settings.tolerance = 0.1f;
  drawState.IsoFlag = 1;
  double x = -7, y = -7;
  float z = -7;
  EXPECT_EQ(CalcArcMidXY(1, &x, &y, &z), 0);
  EXPECT_EQ(x, -7);
  EXPECT_EQ(z, -7);
}

TEST(GetArc, gives_the_vertex_the_circle_and_whole_degrees) {
  OnePipe m({5, 0}, {0, 5}, 1, {{9, 9}, {5, 1.0, 3.5f}});
  int32_t vtx, degrees;
  double x, y;
  float z, start, end, radius, included;
  EXPECT_EQ(GetArc(1, &vtx, &x, &y, &z, &start, &end, &radius, &included, &degrees), -1);
  EXPECT_EQ(vtx, 2);
  EXPECT_EQ(z, 3.5f);
  EXPECT_EQ(radius, 5.0f);
  EXPECT_EQ(included, 1.0f);
  EXPECT_EQ(degrees, 57); /* 1 rad = 57.29 degrees */
}

TEST(GetArc, whole_degrees_of_a_negative_angle_are_the_next_below) {
  OnePipe m({5, 0}, {0, 5}, 1, {{5, -0.5}});
  int32_t degrees = 0;
  GetArc(1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &degrees);
  EXPECT_EQ(degrees, -29); /* -28.65 */
}

TEST(GetArc, a_pipe_without_a_record_reads_as_zeros) {
  OnePipe m({5, 0}, {0, 5}, 1, {{5, 1}});
  int32_t vtx = 9, degrees = 9;
  EXPECT_EQ(GetArc(-5, &vtx, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &degrees), -1);
  EXPECT_EQ(vtx, 0);
  EXPECT_EQ(degrees, 0);
}

}  // namespace
