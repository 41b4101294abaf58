/** Bearings and the points they lead to, inverse sines beyond one, rounding down. */
#include <cmath>
#include <limits>

#include "support/support.h"

namespace {

constexpr double kPi = 3.1415926535, kHalf = 1.57079632675, kThreeHalf = 4.71238898025, kTwo = 6.2831854820251465;

TEST(GetBrg, axes_give_the_short_constants) {
  EXPECT_EQ(GetBrg(0, 0, 0, 0), 0);
  EXPECT_EQ(GetBrg(7.5, -3, 7.5, -3), 0);
  EXPECT_EQ(GetBrg(0, 0, 1, 0), 0);
  EXPECT_EQ(GetBrg(0, 0, 0, 1), kHalf);
  EXPECT_EQ(GetBrg(0, 0, -1, 0), kPi);
  EXPECT_EQ(GetBrg(0, 0, 0, -1), kThreeHalf);
}

TEST(GetBrg, quadrants_count_from_the_axes) {
  const double a = std::atan(2.0);
  EXPECT_EQ(GetBrg(10, 20, 11, 22), a);
  EXPECT_EQ(GetBrg(10, 20, 9, 22), kPi - a);
  EXPECT_EQ(GetBrg(10, 20, 9, 18), kPi + a);
  EXPECT_EQ(GetBrg(10, 20, 11, 18), kTwo - a);
  EXPECT_EQ(GetBrg(0, 0, 1, -1), kTwo - std::atan(1.0));
  EXPECT_EQ(GetBrg(0, 0, -1, 0.5), kPi - std::atan(0.5));
  EXPECT_EQ(GetBrg(0, 0, -1, -0.5), kPi + std::atan(0.5));
}

struct Moved {
  double x, y;
  Moved(double bearing, double distance, double fromX = 0, double fromY = 0) {
    EXPECT_EQ(GetXY(fromX, fromY, bearing, distance, &x, &y), -1);
  }
};

TEST(GetXY, a_bearing_within_one_turn_is_not_touched) {
  for (double b : {0.0, 1.0, -1.0, 6.0, -6.0, kTwo, -kTwo}) {
    const Moved m(b, 2.5, 100, -50);
    EXPECT_EQ(m.x, std::cos(b) * 2.5 + 100) << b;
    EXPECT_EQ(m.y, std::sin(b) * 2.5 - 50) << b;
  }
}

TEST(GetXY, a_bearing_beyond_one_turn_loses_turns_in_single_precision) {
  const float rest = static_cast<float>(std::fmod(7.0, kTwo));
  const Moved m(7, 1);
  EXPECT_EQ(m.x, std::cos(double{rest}));
  EXPECT_EQ(m.y, std::sin(double{rest}));
  EXPECT_NEAR(m.y, std::sin(7.0), 1e-6);
}

TEST(GetXY, the_remainder_of_a_turn_is_rounded_to_single) {
  const Moved m(7.1, 1e8);
  EXPECT_NEAR(m.x, 68454677.65198223, 0.01); /* cos of the single nearest to 0.8168145179748532 */
}

TEST(GetXY, a_bearing_below_one_turn_back_is_reflected) {
  const Moved m(-7, 1);
  EXPECT_NEAR(m.x, std::cos(7.0), 1e-6);
  EXPECT_NEAR(m.y, std::sin(7.0), 1e-6);
  EXPECT_EQ(m.y, std::sin(kTwo - static_cast<float>(std::fmod(-7.0, kTwo))));
  EXPECT_GT(std::fabs(m.y - std::sin(-7.0)), 1.0);
}

TEST(GetXY, no_out_argument_is_no_harm) { EXPECT_EQ(GetXY(0, 0, 1, 1, nullptr, nullptr), -1); }

TEST(CalcACos, beyond_one_gives_zero) {
  EXPECT_EQ(CalcACos(0.5), std::acos(0.5));
  EXPECT_EQ(CalcACos(-1), std::acos(-1.0));
  EXPECT_EQ(CalcACos(1.0000000001), 0);
  EXPECT_EQ(CalcACos(-2), 0);
}

TEST(CalcASin, beyond_one_gives_zero) {
  EXPECT_EQ(CalcASin(0.5), std::asin(0.5));
  EXPECT_EQ(CalcASin(1), std::asin(1.0));
  EXPECT_EQ(CalcASin(1.0000000001), 0);
  EXPECT_EQ(CalcASin(-2), 0);
}

TEST(FloorLong, floors_and_holds_at_the_limits_of_32_bits) {
  EXPECT_EQ(FloorLong(2.9), 2);
  EXPECT_EQ(FloorLong(-2.1), -3);
  EXPECT_EQ(FloorLong(1e300), std::numeric_limits<int32_t>::max());
  EXPECT_EQ(FloorLong(-1e300), std::numeric_limits<int32_t>::min());
  EXPECT_EQ(FloorLong(std::nan("")), 0);
  EXPECT_EQ(CalcFloor(-2.1), -3.0);
  EXPECT_EQ(CalcCeil(-2.1), -2.0);
  EXPECT_EQ(CalcCeil(1e300), 1e300);
}

}  // namespace
