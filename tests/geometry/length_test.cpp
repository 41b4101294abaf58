/**
 * Lengths along a path. The long numbers come from mpmath with 40 digits: the haversine rule with
 * c = 0.01745329238474369, the radius 6371009 and the single-precision 3.28084, and square roots of the plane.
 */
#include <cmath>

#include "geometry/scene.h"

using namespace pn10;
using namespace pn10::test;

namespace {

TEST(CalcPipeLength, straight_pipe_in_space_or_flat) {
  OnePipe m({0, 0, 0}, {3, 4, 12});
  EXPECT_EQ(CalcPipeLength(1, 1), 13.0f);
  EXPECT_EQ(CalcPipeLength(1, 0), 5.0f);
}

TEST(CalcPipeLength, a_positive_factor_scales) {
  OnePipe m({0, 0, 0}, {3, 4, 12});
  settings.lengthFactor = 2.5f;
  EXPECT_EQ(CalcPipeLength(1, 1), 32.5f);
}

TEST(CalcPipeLength, polyline_sums_its_segments) {
  OnePipe m({0, 0, 0}, {100.125, 33.3, 1.5f}, 4, {{3, 4, 12}, {10.5, -2.25, 7.5f}});
  EXPECT_NEAR(CalcPipeLength(1, 1), 120.3545709322286645, 1e-5);
}

TEST(CalcPipeLength, without_z_the_vertices_still_have_theirs) {
  OnePipe m({0, 0, 100}, {6, 0, 50}, 4, {{3, 0, 4}});
  EXPECT_EQ(CalcPipeLength(1, 0), 10.0f); /* 3-4-5 up and down again, both ends at 0 */
}

TEST(CalcPipeLength, each_segment_is_rounded_to_single_before_the_sum) {
  OnePipe far({0, 0}, {16777218, 1}, 4, {{16777217, 0}});
  EXPECT_EQ(CalcPipeLength(1, 1), static_cast<float>(16777216.0 + double{static_cast<float>(std::sqrt(2.0))}));
}

TEST(CalcPipeLength, segments_are_added_in_double_precision) {
  OnePipe m({0, 0}, {16777218, 0}, 4, {{16777216, 0}, {16777217, 0}});
  EXPECT_EQ(CalcPipeLength(1, 1), 16777218.0f); /* in single precision 1 would be lost twice */
}

TEST(CalcPipeLength, arc_is_radius_times_angle_whatever_the_ends) {
  OnePipe m({0, 0}, {3, 4}, 1, {{25, 1.2}});
  EXPECT_EQ(CalcPipeLength(1, 1), 30.0f);
  model.pdt[1].VTX_MODE = 2;
  EXPECT_EQ(CalcPipeLength(1, 0), 30.0f);
  settings.lengthFactor = 2;
  EXPECT_EQ(CalcPipeLength(1, 0), 60.0f);
}

TEST(CalcPipeLength, a_refused_arc_keeps_the_radius_and_angle_of_its_vertex) {
  OnePipe m({3, 4}, {3, 4}, 1, {{25, 1.2}});
  settings.tolerance = 1;
  drawState.IsoFlag = 1;
  EXPECT_EQ(CalcPipeLength(1, 1), 30.0f);
}

TEST(CalcPipeLength, degrees_are_measured_on_the_sphere_and_not_scaled) {
  OnePipe m({-0.1276, 51.5072}, {2.3522, 48.8566});
  settings.lengthFactor = -3;
  EXPECT_NEAR(CalcPipeLength(1, 1), 1127068.08229035526, 0.07);
  EXPECT_EQ(CalcPipeLength(1, 1), static_cast<float>(CalcGreatCircleDist(-0.1276, 51.5072, 2.3522, 48.8566, 0, 0)));
}

TEST(CalcPipeLength, polyline_in_degrees) {
  OnePipe m({-0.13, 51.50}, {-0.09, 51.50}, 4, {{-0.12, 51.51}, {-0.11, 51.49}});
  settings.lengthFactor = -1;
  EXPECT_NEAR(CalcPipeLength(1, 1), 17764.7539340743094, 0.002);
}

TEST(CalcPipeLength, the_radius_of_an_arc_in_degrees_is_latitude) {
  OnePipe m({10, 50}, {10.001, 50.001}, 2, {{0.01, 1.2}});
  settings.lengthFactor = -1;
  EXPECT_NEAR(CalcPipeLength(1, 1), 4377.759103377199577, 0.001);
}

TEST(CalcPipeLength, other_modes_and_absent_pipes_have_none) {
  for (int mode : {3, 5, 255}) {
    OnePipe m({0, 0}, {3, 4}, mode, {{1, 1}});
    EXPECT_EQ(CalcPipeLength(1, 1), 0.0f) << mode;
  }
  {
    OnePipe m({0, 0}, {3, 4});
    for (int32_t pipe : {0, -1, 2, 2147483647}) EXPECT_EQ(CalcPipeLength(pipe, 1), 0.0f) << pipe;
  }
  EXPECT_EQ(CalcPipeLength(1, 1), 0.0f); /* no tables */
}

TEST(CalcPipeLength, a_run_beyond_the_table_is_walked_as_far_as_it_goes) {
  OnePipe m({0, 0}, {10, 0}, 4, {{0, 5}});
  model.pxy[1].LAST_VTX = 2000000000;
  EXPECT_EQ(CalcPipeLength(1, 1), static_cast<float>(5 + double{static_cast<float>(std::sqrt(125.0))}));
  model.pxy[1] = PXY{};
  EXPECT_EQ(CalcPipeLength(1, 1), 10.0f);
  model.pdt[1].FROM_NODE = -4; /* reads as a node at the origin */
  model.pdt[1].TO_NODE = 1000;
  EXPECT_EQ(CalcPipeLength(1, 1), 0.0f);
}

TEST(GetPolyMidVtx, is_the_vertex_at_the_far_end_of_the_middle_segment) {
  OnePipe m({0, 0}, {30, 0}, 4, {{10, 0}, {18, 0}, {20, 0}});
  EXPECT_EQ(GetPolyMidVtx(1), 2); /* 10, then 18 of half 15 */
  model.vtx[2].VTX_X = 15;
  EXPECT_EQ(GetPolyMidVtx(1), 2); /* exactly half counts */
  model.vtx[1].VTX_X = 15;
  EXPECT_EQ(GetPolyMidVtx(1), 1);
  model.ndt[2].X_COORD = 100;
  EXPECT_EQ(GetPolyMidVtx(1), 4); /* the last segment: one past the last vertex */
}

TEST(GetPolyMidVtx, measures_in_the_plane_with_z_whatever_the_factor) {
  OnePipe m({0, 0, 0}, {0, 10, 100}, 4, {{0, 5, 0}});
  settings.lengthFactor = -1;
  EXPECT_EQ(GetPolyMidVtx(1), 2);
}

TEST(GetPolyMidVtx, points_that_all_coincide_give_the_first_vertex) {
  OnePipe m({1, 1}, {1, 1}, 4, {{1, 1}, {1, 1}});
  EXPECT_EQ(GetPolyMidVtx(1), 1);
}

TEST(GetPolyMidVtx, stays_within_one_past_the_run_for_coordinates_that_are_not_numbers) {
  OnePipe m({std::nan(""), 1}, {1, 1}, 4, {{1, 1}, {2, 1}});
  EXPECT_EQ(GetPolyMidVtx(1), 3);
  EXPECT_EQ(GetPolyMidVtx(77), 0);
}

TEST(GetPipeTextZ, takes_the_segment_that_holds_the_middle) {
  OnePipe m({0, 0, 10}, {3000, 0, 40}, 4, {{2000, 0, 20}, {2200, 0, 26}});
  EXPECT_EQ(GetPipeTextZ(1), 15.0f); /* from node and first vertex */
  model.vtx[1].VTX_X = 100;
  EXPECT_EQ(GetPipeTextZ(1), 23.0f); /* vertices 1 and 2 */
  model.vtx[2].VTX_X = 200;
  EXPECT_EQ(GetPipeTextZ(1), 33.0f); /* last vertex and to node */
}

TEST(GetPipeTextZ, one_vertex_and_a_long_second_segment) {
  OnePipe m({0, 0, 10}, {100, 0, 40}, 4, {{1, 0, 20}});
  EXPECT_EQ(GetPolyMidVtx(1), 2);
  EXPECT_EQ(GetPipeTextZ(1), 30.0f);
}

TEST(GetPipeTextZ, of_any_other_path_is_the_mean_of_the_ends) {
  for (int mode : {0, 1, 2, 3}) {
    OnePipe m({0, 0, 10}, {100, 0, 40}, mode, {{1, 1, 500}});
    EXPECT_EQ(GetPipeTextZ(1), 25.0f);
  }
}

}  // namespace
