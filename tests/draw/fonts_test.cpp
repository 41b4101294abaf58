/** MakeLogFont: the height and the weight of a font on screen, on paper and on a reduced raster. */
#include "draw/frame.h"
#include "draw/picture.h"
#include "model/tables.h"

using namespace pn10;
using namespace pn10::test;

namespace {

LOGFONTA fontOf(int16_t devMode, float screen, float print, int16_t screenBold, int16_t printBold, int16_t mode) {
  Picture p(0, 0, devMode);
  drawState.Dpi = 144;
  drawState.ReducedScale = 0.25f;
  copyText(drawState.FontFace, "Times");
  LOGFONTA font{};
  font.lfEscapement = 7;
  MakeLogFont(&font, screen, print, screenBold, printBold, mode);
  EXPECT_EQ(font.lfEscapement, 0);
  return font;
}

TEST(MakeLogFont, on_screen_in_points) {
  const LOGFONTA f = fontOf(0, 9.9f, 500, 0, 1, 0);
  EXPECT_STREQ(f.lfFaceName, "Arial");
  EXPECT_EQ(f.lfWeight, 400);
  EXPECT_EQ(f.lfHeight, -18); /* 9 * 144 / 72 */
  EXPECT_EQ(fontOf(0, 9, 500, 1, 0, 2).lfWeight, 700);
  EXPECT_EQ(fontOf(0, 90, 500, 0, 0, 0).lfHeight, -180); /* 90 * 144 / 72 */
}

TEST(MakeLogFont, on_screen_in_display_units) {
  EXPECT_EQ(fontOf(0, 0.11f, 500, 0, 0, 1).lfHeight, -30); /* 0.11 * -200 * 1.4 = -30.8 */
}

TEST(MakeLogFont, on_paper_in_tenths_of_a_point) {
  const LOGFONTA f = fontOf(1, 9, 99, 0, 1, 0);
  EXPECT_STREQ(f.lfFaceName, "Times");
  EXPECT_EQ(f.lfWeight, 700);
  EXPECT_EQ(f.lfHeight, -18); /* 99 / 10 -> 9 */
  EXPECT_EQ(fontOf(1, 9, 99, 1, 0, 0).lfWeight, 400);
}

TEST(MakeLogFont, on_paper_scaled_with_the_map) {
  EXPECT_EQ(fontOf(1, 9, 25, 0, 0, 1).lfHeight, -35); /* 25 * -10 * 0.14 */
}

TEST(MakeLogFont, on_a_reduced_raster) {
  const LOGFONTA f = fontOf(2, 9, 90, 0, 1, 0);
  EXPECT_EQ(f.lfWeight, 175);                        /* 700 / 4 */
  EXPECT_EQ(f.lfHeight, -4);                         /* ceil(-18 / 4) = ceil(-4.5) */
  EXPECT_EQ(fontOf(2, 9, 10, 0, 0, 0).lfHeight, -1); /* ceil(-0.5) is 0, which becomes -1 */
}

}  // namespace
