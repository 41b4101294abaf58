/** The isometric plane: points there and back, and bearings on it. */
#include <cmath>

#include "geometry/scene.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr double kFactor = 0.8660253882408142;

TEST(CalcIsoXY, leans_the_plane_and_lifts_by_z) {
  double x, y;
  CalcIsoXY(3, 5, 2, &x, &y);
  EXPECT_EQ(x, 8 * kFactor);
  EXPECT_EQ(y, 3.0);
}

TEST(CalcXYIso, inverts_for_the_same_z) {
  double x, y, backX, backY;
  for (At p : {At{3, 5, 2}, At{-1000.25, 77.5, -12}, At{0, 0, 0}, At{1e6, 1e6, 1}}) {
    CalcIsoXY(p.x, p.y, p.z, &x, &y);
    CalcXYIso(x, y, p.z, &backX, &backY);
    EXPECT_NEAR(backX, p.x, 1e-8);
    EXPECT_NEAR(backY, p.y, 1e-8);
  }
}

TEST(CalcIsoDeg, bends_each_quadrant_and_truncates) {
  const struct {
    float in;
    int16_t out;
  } rows[] = {{0, 3300},    {450, 3600},  {900, 3900},  {901, 301},   {1800, 1499}, {1801, 1500},
              {2700, 2100}, {2701, 2101}, {3600, 3299}, {-300, 3099}, {-900, 2699}};
  /* 1800: 900 * 1.33333333 + 300 = 1499.999997; -300: 3300 - 200.000001 */
  for (auto& r : rows) EXPECT_EQ(CalcIsoDeg(r.in), r.out) << r.in;
}

TEST(CalcIsoRad, bends_each_quadrant_in_single_precision) {
  const double q1 = 1.5707963705062866, q2 = 3.1415926535, q3 = 4.71238899230957;
  const struct {
    float in;
    double out;
  } rows[] = {
      {0, 5.759586532},
      {1, 0.66666667 + 5.759586532},
      {1.57079637f, q1 * 0.66666667 + 5.759586532},
      {2, (2 - q1) * 1.333333333 + 0.523598775},
      {3.1415925f, (double{3.1415925f} - q1) * 1.333333333 + 0.523598775},
      {3.1415927f, (double{3.1415927f} - q2) * 0.66666667 + 2.617993878}, /* the float nearest to pi lies above */
      {3.25f, (3.25 - q2) * 0.66666667 + 2.617993878},
      {4.712389f, (q3 - q2) * 0.66666667 + 2.617993878},
      {4.7123895f, (double{4.7123895f} - q3) * 1.333333333 + 3.665191429},
      {5, (5 - q3) * 1.333333333 + 3.665191429},
      {-1, (-1 - q3) * 1.333333333 + 3.665191429}};
  for (auto& r : rows) EXPECT_EQ(CalcIsoRad(r.in), static_cast<float>(r.out)) << r.in;
}

TEST(CalcIsoRad, what_is_not_a_number_stays_so) {
  EXPECT_TRUE(std::isnan(CalcIsoRad(std::nanf(""))));
  EXPECT_EQ(CalcIsoDeg(std::nanf("")), 0);
}

}  // namespace
