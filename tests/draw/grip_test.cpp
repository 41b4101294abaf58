/** Grips, and the colours that stand off the background. */
#include "draw/frame.h"
#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

TEST(ContrastColor, complements_what_stands_off_the_background) {
  EXPECT_EQ(ContrastColor(0x0000FF, 0x000000), 0xFFFF00);
  EXPECT_EQ(ContrastColor(0x000000, 0x000000), 0xFFFFFF);
}

TEST(ContrastColor, within_4_of_the_background_only_the_largest_byte_turns) {
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFF), 0x0000FF); /* all equal: the first byte */
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFB), 0x0000FF); /* 4 away */
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFA), 0xFFFFFF); /* 5 away */
  EXPECT_EQ(ContrastColor(0x102030, ~0x102030 & 0xFFFFFF), 0x1020CF);
  EXPECT_EQ(ContrastColor(0x203010, ~0x203010 & 0xFFFFFF), 0x20CF10);
  EXPECT_EQ(ContrastColor(0x301020, ~0x301020 & 0xFFFFFF), 0xCF1020);
  EXPECT_EQ(ContrastColor(0x102020, ~0x102020 & 0xFFFFFF), 0x1020DF); /* tie of the first two */
  EXPECT_EQ(ContrastColor(0x203020, ~0x203020 & 0xFFFFFF), 0x20CF20);
  EXPECT_EQ(ContrastColor(0x303010, ~0x303010 & 0xFFFFFF), 0x30CF10); /* tie of the last two */
}

TEST(HiliteColor, is_the_hosts_or_stands_off_the_background) {
  Picture p;
  p.plot.HiliteColor = 0x123456;
  EXPECT_EQ(HiliteColor(0xFF0000), 0x123456);
  p.plot.HiliteColor = 0; /* black is a colour */
  EXPECT_EQ(HiliteColor(0xFF0000), 0);
  p.plot.HiliteColor = -1;
  p.view.BackColor = 0xFFFFFF;
  EXPECT_EQ(HiliteColor(0xFF0000), 0x00FFFF);
}

struct Grips : Picture {
  explicit Grips(int16_t devMode = 0) : Picture(0, 0, devMode) {
    plot.GripsOn = plot.GripsShown = 1;
    plot.GripColor = 0x0000FF;
    plot.GripSize = 100;
    view.BackColor = 0x112233;
    drawState.ViewHeight = 200; /* 100 * 0.0001 * 200 = 2 world units */
  }
};

/** The pen and the brush, put back in the order of their guards. */
std::string gripLog(const char* pen) {
  const std::string p = pen;
  return "CreatePen " + p + "\nSelectObject " + p + "\nCreateBrushIndirect brush(1,0x112233)\n" +
         "SelectObject brush(1,0x112233)\nPolygon 4 90 1009 90 989 110 989 110 1009\n" +
         "SelectObject brush(0,0xFFFFFF)\nDeleteObject brush(1,0x112233)\nSelectObject "
         "pen(0,1,0x000000)\nDeleteObject " +
         p + "\n";
}

TEST(DrawGrip, paints_in_the_grip_colour_and_erases_in_the_background_colour) {
  Grips p; /* corners at 0.99985 left and below, 1.00015 right and above of device (100, 999.5) */
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100.05); }), gripLog("pen(0,1,0x0000FF)"));
  EXPECT_EQ(recorded([] { DrawGrip(0, 10, 100.05); }), gripLog("pen(0,1,0x112233)"));
}

TEST(DrawGrip, erasing_needs_no_more_than_grips_on) {
  Grips p;
  p.plot.GripsShown = 0;
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100); }), "");
  EXPECT_NE(recorded([] { DrawGrip(0, 10, 100); }), "");
  p.plot.GripsOn = 0;
  EXPECT_EQ(recorded([] { DrawGrip(0, 10, 100); }), "");
}

TEST(DrawGrip, is_for_the_screen_only) {
  Grips p(1);
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100); }), "");
}

}  // namespace
