/** Every line style, arcs and arrow heads against the operations that expected_ops.py works out. */
#include "draw/lines.h"
#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

void makePen(int16_t style, int32_t width, int32_t color) {
  if (HPEN pen = MakeStylePen(style, width, color)) DeleteObject(pen);
}

class Lines : public testing::TestWithParam<int> {};

TEST_P(Lines, paint_the_stated_operations) {
  const int16_t style = static_cast<int16_t>(GetParam());
  constexpr struct {
    float spacing;
    double x1, y1, x2, y2;
  } kSegments[] = {{4, 20, 100.017, 40, 100.017},
                   {3.1f, 30.013, 20.029, 61.017, 47.033},
                   {2.7f, 90.01, 90.02, 71.033, 121.049},
                   {0, 10.003, 10.007, 13.011, 10.009},
                   {5, 60.003, 60.007, 60.003, 60.007}};
  Picture p;
  const std::string log = recorded([&] {
    for (int32_t width : {1, 3}) makePen(style, width, 0x30A0F0);
    makePen(static_cast<int16_t>(-style), 2, 0x102030);
    for (auto& s : kSegments) DrawStyledSegment(style, s.spacing, s.x1 + .0013, s.y1, s.x2 + .0013, s.y2);
  });
  EXPECT_GOLDEN("draw/line_" + std::to_string(style) + ".ops", log);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, Lines,
                         testing::Values(1, 2, 3, 4, 5, 7, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22),
                         [](const auto& info) { return std::to_string(info.param); });

TEST(DrawArcPoly, paints_the_stated_chords) {
  const float full = 6.2831855f, radius = 20.013f;
  const double x = 100.0031, y = 100.0017;
  std::string log;
  {
    Picture p;
    log += recorded([&] {
      DrawArcPoly(0, radius, 0, full, 0, x, y, 0);
      DrawArcPoly(0, radius, 350 * 0.017453292f, 10 * 0.017453292f, 0, x, y, 0);
      DrawArcPoly(0, radius, 7.1f, -8.2f, 0, x, y, 0);
      drawState.MinChord = 1.7f;
      DrawArcPoly(0, 3.013f, 0, full, 0, x, y, 0);
      drawState.MinChord = 0;
      DrawArcPoly(0, 150, 0.5f, 1, 1, x, y, 0);
      DrawArcPoly(0, 90, 0.5f, 3, 1, 150.0031, y, 0);
    });
  }
  {
    Picture p(0, 1);
    log += recorded([&] {
      DrawArcPoly(4.4f, radius, 0.3f, 2.3f, 0, 60.0031, 80.0017, 1);
      DrawArcPoly(4.4f, radius, 0.3f, 2.3f, 0, 60.0031, 80.0017, 0);
    });
  }
  Picture p(1);
  log += recorded([&] { DrawArcPoly(0, 2.513f, 0.3f, 2.3f, 0, 11.0031, 46.0017, 1); });
  EXPECT_GOLDEN("draw/arc_poly.ops", log);
}

TEST(DrawArrowHead, is_a_closed_head_no_longer_than_its_segment) {
  Picture p;
  EXPECT_GOLDEN("draw/arrow_head.ops", recorded([] {
                  DrawArrowHead(100.0013, 100.0017, 60.0031, 90.0037, 12.5f);
                  DrawArrowHead(100.0013, 100.0017, 103.0031, 98.0037, 12.5f);
                }));
}

}  // namespace
