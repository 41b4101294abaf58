/** Long numbers from mpmath with 40 digits, by the stated steps and constants. */
#include <cmath>

#include "geometry/scene.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr double kFeet = 3.2808399200439453125; /* the single-precision 3.28084 */
constexpr double kRad = 0.01745329238474369;

TEST(CalcGreatCircleDist, of_equal_points_is_0) { EXPECT_EQ(CalcGreatCircleDist(7, 51, 7, 51, 5, 5), 0); }

TEST(CalcGreatCircleDist, one_degree_of_latitude_is_the_radius_times_a_degree) {
  EXPECT_NEAR(CalcGreatCircleDist(10, 50, 10, 51, 0, 0), 6371009.0 * kRad * kFeet, 1e-4);
  EXPECT_NEAR(CalcGreatCircleDist(10, 50, 10, 51, 0, 0), 364813.266768978572, 1e-4);
}

TEST(CalcGreatCircleDist, between_two_cities) {
  EXPECT_NEAR(CalcGreatCircleDist(-0.1276, 51.5072, 2.3522, 48.8566, 0, 0), 1127068.082290355263, 1e-5);
}

TEST(CalcGreatCircleDist, heights_are_metres_of_radius) {
  const double flat = CalcGreatCircleDist(10, 50, 10, 51, 0, 0), high = CalcGreatCircleDist(10, 50, 10, 51, 100, 100);
  EXPECT_NEAR(high - flat, 100 * kRad * kFeet, 1e-6);
  EXPECT_NEAR(CalcGreatCircleDist(10, 50, 10, 51, 200, 0), high, 1e-9);
  EXPECT_NEAR(CalcGreatCircleDist(-0.1276, 51.5072, 2.3522, 48.8566, 100, 100), 1127085.772864678581, 1e-5);
}

TEST(CalcDistLatLon, turns_degrees_to_feet_and_back) {
  EXPECT_NEAR(CalcDistLatLon(1, 0), 364813.266768978572, 1e-6);
  for (float z : {0.0f, 100.0f, -50.0f}) {
    EXPECT_NEAR(CalcLatLonDist(CalcDistLatLon(0.25, z), z), 0.25, 1e-15);
  }
}

TEST(CalcDistLatLon, its_height_counts_in_feet) {
  EXPECT_NEAR(CalcDistLatLon(1, 1000) - CalcDistLatLon(1, 0), 1000 * kRad, 1e-6);
}

TEST(CalcGeoY, follows_the_tile_projection) {
  const struct {
    double latitude, y;
  } rows[] = {{51.9, 52.1453968214395951}, {51.0, 50.7011698954147726}, {60, 66.6772056660961370}};
  for (auto& r : rows) EXPECT_NEAR(CalcGeoY(r.latitude, 7, 52, 8, 51, 12), r.y, 1e-9);
}

TEST(CalcGeoY, keeps_the_middle_of_the_window) {
  EXPECT_NEAR(CalcGeoY(51.5, 7, 52, 8, 51, 12), 51.5, 1e-9);
  EXPECT_NEAR(CalcGeoY(-33.25, 150, -33, 152, -33.5, 9), -33.25, 1e-9);
}

TEST(CalcGeoY, follows_every_change_of_the_window) {
  const struct { double y1, y2; } windows[] = {{52, 51}, {53, 51}, {53, 49}, {52, 49}};
  for (auto& w : windows) {
    const double middle = (w.y1 + w.y2) / 2;
    EXPECT_NEAR(CalcGeoY(middle, 7, w.y1, 8, w.y2, 12), middle, 1e-9);
  }
}

TEST(CalcGeoY, a_middle_beyond_the_pole_has_no_picture) {
  EXPECT_EQ(CalcGeoY(51, 7, 100, 8, 99, 12), -99999999.0);
  EXPECT_EQ(CalcLatFromPictY(51, 7, 100, 8, 99, 12), -99999999.0);
}

TEST(CalcGeoY, a_window_without_width_gives_no_number) { EXPECT_FALSE(std::isfinite(CalcGeoY(51, 7, 52, 7, 51, 12))); }

TEST(CalcGeoY_, uses_the_geographic_window_and_the_zoom) {
  Fresh fresh;
  drawState.GeoX1 = 7;
  drawState.GeoY1 = 52;
  drawState.GeoX2 = 8;
  drawState.GeoY2 = 51;
  drawState.Zoom = 12;
  drawState.X0 = 99; /* not this one */
  EXPECT_EQ(CalcGeoY_(51.9), CalcGeoY(51.9, 7, 52, 8, 51, 12));
  EXPECT_EQ(CalcGeoY_(51.2), CalcGeoY(51.2, 7, 52, 8, 51, 12));
  drawState.Zoom = 3;
  drawState.GeoY1 = 53;
  EXPECT_EQ(CalcGeoY_(51.2), CalcGeoY(51.2, 7, 53, 8, 51, 3));
}

TEST(CalcLatFromPictY, is_the_way_back) {
  for (double latitude : {51.0, 51.3, 51.5, 52.0, 60.0, -10.0}) {
    EXPECT_NEAR(CalcLatFromPictY(CalcGeoY(latitude, 7, 52, 8, 51, 12), 7, 52, 8, 51, 12), latitude, 1e-7);
    EXPECT_NEAR(CalcLatFromPictY(CalcGeoY(latitude, 7, -33, 8, -34, 12), 7, -33, 8, -34, 12), latitude, 1e-7);
  }
}

struct Window : Fresh {
  Window(double x0, double y0, double x1, double y1) {
    drawState.X0 = x0;
    drawState.Y0 = y0;
    drawState.X1 = x1;
    drawState.Y1 = y1;
    drawState.Zoom = 12;
    drawState.GeoTop = drawState.GeoScale = -5;
  }
};

TEST(SetGeoYVars, takes_the_world_window) {
  Window w(7, 52, 8, 51);
  EXPECT_EQ(SetGeoYVars(), 1);
  EXPECT_NEAR(drawState.GeoTop, 347256.553857343452, 1e-6);
  EXPECT_NEAR(drawState.GeoScale, 2912.71111111111115, 1e-9);
}

TEST(SetGeoYVars, reports_a_window_without_width_or_height_and_leaves_the_values) {
  for (int i = 0; i < 2; i++) {
    Window w(7, 52, i ? 8 : 7, i ? 52 : 51);
    EXPECT_EQ(SetGeoYVars(), 65535);
    EXPECT_EQ(drawState.GeoTop, -5);
    EXPECT_EQ(drawState.GeoScale, -5);
  }
}

TEST(SetGeoYVars, a_middle_beyond_the_pole_clears_the_values) {
  Window w(7, 100, 8, 99);
  EXPECT_EQ(SetGeoYVars(), 65535);
  EXPECT_EQ(drawState.GeoTop, 0);
  EXPECT_EQ(drawState.GeoScale, 0);
}

}  // namespace
