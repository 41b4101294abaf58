/** World window 0..100 by 100..0 on 1000 x 1000: 10 device units per world unit, Y down. */
#include "draw/frame.h"
#include "support/support.h"

using namespace pn10;
using namespace pn10::test;

namespace {

struct View : Fresh {
  explicit View(int16_t mapMode) {
    drawState.MapMode = mapMode;
    drawState.X0 = 0;
    drawState.Y0 = 100;
    drawState.ScaleX = 10;
    drawState.ScaleY = -10;
    drawState.GeoX1 = 0;
    drawState.GeoY1 = 60;
    drawState.GeoX2 = 20;
    drawState.GeoY2 = 40;
    drawState.Zoom = 5;
  }
};

void expectPair(DevPair p, int32_t x, int32_t y) {
  EXPECT_EQ(p.x, x);
  EXPECT_EQ(p.y, y);
}

TEST(GetDevXY, maps_the_polar_point_in_every_mode) {
  for (int16_t mode : {int16_t{0}, int16_t{1}, int16_t{2}}) {
    View v(mode);
    int32_t x, y;
    GetDevXY(20, 50, 0, 10.25f, &x, &y);
    EXPECT_EQ(x, 302); /* 302.5 truncated */
    EXPECT_EQ(y, 500);
    expectPair(GetDevXYPair(20, 50, 0, 10.25f), 302, 500);
  }
}

TEST(GetDevXY, truncates_toward_zero) {
  View v(0);
  expectPair(GetDevXYPair(-0.55, 100.55, 0, 0), -5, -5);
}

TEST(GetIsoDevXY, projects_in_the_isometric_mode_only) {
  int32_t x, y;
  {
    View v(0);
    GetIsoDevXY(20, 50, 0, 10, 5, &x, &y);
    EXPECT_EQ(x, 300);
    EXPECT_EQ(y, 500);
  }
  View v(1);
  GetIsoDevXY(20, 50, 0, 10, 5, &x, &y); /* (30, 50): X' 80 * 0.8660254 = 69.28, Y' 10 + 5 */
  EXPECT_EQ(x, 692);
  EXPECT_EQ(y, 850);
}

TEST(GetViewDevXY, projects_or_stretches_by_mode_and_flag) {
  {
    View v(1);
    expectPair(GetViewDevXY(20, 50, 0, 10, 5, 0), 692, 850);
  }
  View v(2);
  expectPair(GetViewDevXY(20, 45, 0, 10, 5, 0), 300, 550);
  const int32_t stretched = static_cast<int32_t>((CalcGeoY(45, 0, 60, 20, 40, 5) - 100) * -10);
  expectPair(GetViewDevXY(20, 45, 0, 10, 5, 1), 300, stretched);
  EXPECT_NE(stretched, 550);
}

TEST(GetPolarXY, truncates_the_point_itself) {
  View v(1);
  expectPair(GetPolarXY(-20.5, 50.75, 0, 10), -10, 50);
}

TEST(GetPolarXY, a_bearing_beyond_one_turn_back_is_reflected) {
  View v(0);
  expectPair(GetPolarXY(0, 0, -7, 1000), 753, 656); /* cos 7 = 0.7539, sin 7 = 0.6569 */
}

TEST(GetPolarXY, far_points_are_held_at_the_limits) {
  View v(0);
  expectPair(GetPolarXY(1e300, -1e300, 0, 1), 2147483647, -2147483647 - 1);
}

}  // namespace
