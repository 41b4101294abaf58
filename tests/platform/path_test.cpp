// Paths and arcs of an image context against the measured pixels.
#include "platform/gdi.h"
#include "platform/raster_paper.h"
#include "support/support.h"

namespace pn10::test {
namespace {

constexpr int kSide = 40;

struct PathPixels : testing::Test {
  Fresh fresh;
  HDC dc = PnCreateImageDC(kSide, kSide, 96, 0xFFFFFF);
  HBRUSH red = CreateSolidBrush(0x0000FF);
  PathPixels() { SelectObject(dc, red); }
  ~PathPixels() override {
    PnDeleteDC(dc);
    DeleteObject(red);
  }
  Pixels marks(int32_t color) const {
    Pixels set;
    for (int y = 0; y < kSide; y++) {
      for (int x = 0; x < kSide; x++) {
        if (PnGetPixel(dc, x, y) == color) set.insert({y, x});
      }
    }
    return set;
  }
  void openCorner() {
    BeginPath(dc);
    MoveToEx(dc, 5, 5, nullptr);
    LineTo(dc, 25, 5);
    LineTo(dc, 25, 20);
    EndPath(dc);
  }
};

TEST_F(PathPixels, stroke_and_fill_close_an_open_figure) {
  openCorner();
  EXPECT_TRUE(StrokeAndFillPath(dc));
  EXPECT_EQ(rows(marks(0)),
            "5: 5-25; 6: 6-7 25; 7: 8 25; 8: 9 25; 9: 10-11 25; 10: 12 25; 11: 13 25; 12: 14-15 25; 13: 16 25; "
            "14: 17 25; 15: 18-19 25; 16: 20 25; 17: 21 25; 18: 22-23 25; 19: 24-25; 20: 25");
  EXPECT_EQ(rows(marks(0x0000FF)),
            "6: 8-24; 7: 9-24; 8: 10-24; 9: 12-24; 10: 13-24; 11: 14-24; 12: 16-24; 13: 17-24; 14: 18-24; 15: 20-24; "
            "16: 21-24; 17: 22-24; 18: 24");
}

TEST_F(PathPixels, a_stroke_alone_leaves_the_figure_open_and_its_last_pixel_out) {
  openCorner();
  EXPECT_TRUE(StrokePath(dc));
  std::string expected = "5: 5-25";
  for (int y = 6; y < 20; y++) expected += "; " + std::to_string(y) + ": 25";
  EXPECT_EQ(rows(marks(0)), expected);
  EXPECT_EQ(rows(marks(0x0000FF)), "");
}

TEST_F(PathPixels, a_fill_alone_closes_the_figure_without_a_line) {
  openCorner();
  EXPECT_TRUE(FillPath(dc));
  EXPECT_EQ(rows(marks(0x0000FF)),
            "5: 5-24; 6: 7-24; 7: 8-24; 8: 9-24; 9: 11-24; 10: 12-24; 11: 13-24; 12: 15-24; 13: 16-24; 14: 17-24; "
            "15: 19-24; 16: 20-24; 17: 21-24; 18: 23-24; 19: 24");
  EXPECT_EQ(rows(marks(0)), "");
}

TEST_F(PathPixels, arcs_of_both_directions_lie_within_a_pixel_of_the_measured_ones) {
  const std::string file = sharedFile("gdi/f05_paths.txt");
  if (file.empty()) GTEST_SKIP() << "the measured pixel sets are not here";
  Pixels expected[3];
  int direction = 0;
  std::istringstream in(readFile(file));
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("== Arc endpoints", 0) == 0) break;
    std::sscanf(line.c_str(), "direction %d", &direction);
    int y;
    char row[64];
    if (!direction || std::sscanf(line.c_str(), " %d: %63[.#]", &y, row) != 2) continue;
    for (int x = 0; row[x]; x++) {
      if (row[x] == '#') expected[direction].insert({y, x});
    }
  }
  for (const int way : {AD_COUNTERCLOCKWISE, AD_CLOCKWISE}) {
    ASSERT_FALSE(expected[way].empty());
    PnDeleteDC(dc);
    dc = PnCreateImageDC(kSide, kSide, 96, 0xFFFFFF);
    SetArcDirection(dc, way);
    MoveToEx(dc, 5, 5, nullptr);
    EXPECT_TRUE(ArcTo(dc, 10, 10, 31, 31, 31, 20, 20, 10));
    EXPECT_LE(distance(marks(0), expected[way]), 1.0) << way;
  }
}

}  // namespace
}  // namespace pn10::test
