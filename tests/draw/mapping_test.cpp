/** From the model to the device: the mapping, what is in view, what a clip leaves of a line. */
#include <cmath>

#include "draw/frame.h"
#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

TEST(WorldToDev, truncates_toward_zero) {
  Picture p;
  int32_t x, y;
  WorldToDev(20.19, 99.99, &x, &y);
  EXPECT_EQ(x, 201);
  EXPECT_EQ(y, 1000);
  WorldToDev(-0.09, 200.09, &x, &y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
}

TEST(MapModelXY, every_mode) {
  double x, y;
  {
    Picture p;
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 45);
  }
  {
    Picture p(0, 1);
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 48 * 0.8660253882408142);
    EXPECT_EQ(y, 28);
  }
  {
    Picture p(1, 1);
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, CalcGeoY(45, 0, 60, 20, 40, 5));
  }
  Picture p(2, 1);
  MapModelXY(3, 45, 7, &x, &y);
  EXPECT_EQ(y, 45);
}

TEST(MapModelXY, without_a_picture_of_the_poles_everything_is_out_of_view) {
  Picture p(1);
  drawState.GeoY1 = 100;
  drawState.GeoY2 = 99;
  double x, y;
  MapModelXY(3, 45, 7, &x, &y);
  EXPECT_EQ(OutOfView(x, y), 1);
}

TEST(OutOfView, the_border_is_in_view) {
  Picture p;
  for (double at : {0.0, 200.0}) {
    EXPECT_EQ(OutOfView(at, 100), 0);
    EXPECT_EQ(OutOfView(100, at), 0);
  }
  EXPECT_EQ(OutOfView(-0.001, 100), 1);
  EXPECT_EQ(OutOfView(200.001, 100), 1);
  EXPECT_EQ(OutOfView(100, -0.001), 1);
  EXPECT_EQ(OutOfView(100, 200.001), 1);
  EXPECT_EQ(OutOfView(std::nan(""), 100), 1);
  drawState.ClipX0 = 50; /* the clip window decides, not the world window */
  EXPECT_EQ(OutOfView(40, 100), 1);
}

TEST(BoxExceeds, both_ways_whichever_corner_comes_first) {
  const struct {
    DevPoint a, b;
    bool exceeds;
  } rows[] = {{{0, 0}, {3, 3}, true},  {{3, 3}, {0, 0}, true},
              {{0, 3}, {3, 0}, true},  {{0, 0}, {2, 3}, false},
              {{0, 0}, {3, 2}, false}, {{2, 3}, {0, 0}, false},
              {{3, 2}, {0, 0}, false}, {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, true}};
  for (auto& r : rows) EXPECT_EQ(BoxExceeds(r.a, r.b, 2), r.exceeds) << r.a.x << ' ' << r.a.y;
}

struct Cut {
  double x1, y1, x2, y2;
  int32_t result;
  Cut(double a, double b, double c, double d) : x1(a), y1(b), x2(c), y2(d), result(ClipSegment(&x1, &y1, &x2, &y2)) {}
};

void expectCut(const Cut& c, double x1, double y1, double x2, double y2) {
  EXPECT_EQ(c.result, 0);
  EXPECT_NEAR(c.x1, x1, 1e-9);
  EXPECT_NEAR(c.y1, y1, 1e-9);
  EXPECT_NEAR(c.x2, x2, 1e-9);
  EXPECT_NEAR(c.y2, y2, 1e-9);
}

TEST(ClipSegment, cuts_at_every_side) {
  Picture p;
  expectCut({10, 20, 30, 40}, 10, 20, 30, 40);
  expectCut({-100, 100, 100, 100}, 0, 100, 100, 100);
  expectCut({100, 100, 300, 150}, 100, 100, 200, 125);
  expectCut({100, -100, 100, 300}, 100, 0, 100, 200);
  expectCut({-100, -50, 300, 350}, 0, 50, 150, 200); /* y = x + 50 */
  expectCut({-50, 100, 250, 100}, 0, 100, 200, 100);
}

TEST(ClipSegment, keeps_what_touches_the_border) {
  Picture p;
  expectCut({0, 0, 0, 200}, 0, 0, 0, 200);
  expectCut({-50, 50, 50, -50}, 0, 0, 0, 0); /* through the corner */
}

TEST(ClipSegment, rejects_what_passes_by_and_leaves_it) {
  Picture p;
  for (const Cut& c : {Cut(-10, 0, -5, 200), Cut(10, 250, 20, 300), Cut(-50, 30, 30, -60), Cut(150, 260, 260, 150)}) {
    EXPECT_NE(c.result, 0);
  }
  const Cut c(-50, 30, 30, -60);
  EXPECT_EQ(c.x1, -50);
  EXPECT_EQ(c.y2, -60);
}

TEST(ClipSegment, numbers_that_are_none_are_rejected) {
  Picture p;
  const double bad[] = {NAN, INFINITY, -INFINITY, 1e308, -1e308, 10};
  for (double a : bad) {
    for (double b : bad) {
      for (double c : bad) {
        const Cut cut(a, b, c, 10);
        if (cut.result == 0) {
          EXPECT_EQ(OutOfView(cut.x1, cut.y1), 0);
          EXPECT_EQ(OutOfView(cut.x2, cut.y2), 0);
        }
      }
    }
  }
}

TEST(DrawClipLine, draws_the_visible_part_or_without_the_flag_all) {
  Picture p;
  std::string log = recorded([] { EXPECT_EQ(DrawClipLine(1, -100, 100, 100, 100), 1); });
  EXPECT_EQ(log, "MoveToEx 0 1000\nLineTo 1000 1000\n");
  log = recorded([] { EXPECT_EQ(DrawClipLine(0, -100, 100, 100, 100), 1); });
  EXPECT_EQ(log, "MoveToEx -1000 1000\nLineTo 1000 1000\n");
  log = recorded([] { EXPECT_EQ(DrawClipLine(1, -100, 100, -50, 100), 0); });
  EXPECT_EQ(log, "");
}

}  // namespace
