/** The raster painter behind the GDI calls: an image context, objects selected, pixels asked for. */
#include <gtest/gtest.h>

#include "platform/gdi.h"
#include "platform/raster_paper.h"
#include "support/support.h"

namespace pn10::test {
namespace {

class ImageContext : public testing::Test {
 protected:
  static constexpr int kWidth = 60, kHeight = 60;
  ImageContext() : dc(PnCreateImageDC(kWidth, kHeight, 96, 0xFFFFFF)) {}
  ~ImageContext() override { PnDeleteDC(dc); }

  /** Selects an object for the rest of the test; it stays alive while the context uses it. */
  void use(HGDIOBJ object) { SelectObject(dc, object), DeleteObject(object); }
  Pixels marks() const {
    Pixels set;
    for (int y = 0; y < kHeight; y++) {
      for (int x = 0; x < kWidth; x++) {
        if (PnGetPixel(dc, x, y) != 0xFFFFFF) set.insert({y, x});
      }
    }
    return set;
  }
  HDC dc;
};

TEST_F(ImageContext, chains_lines_from_the_position_and_leaves_out_the_last_pixel) {
  MoveToEx(dc, 3, 3, nullptr);
  LineTo(dc, 7, 5);
  LineTo(dc, 7, 9);
  EXPECT_EQ(rows(marks()), "3: 3-4; 4: 5-6; 5: 7; 6: 7; 7: 7; 8: 7");
}

TEST_F(ImageContext, paints_a_wide_line_with_the_pen_selected) {
  use(CreatePen(PS_SOLID, 3, 0x0000FF));
  MoveToEx(dc, 10, 10, nullptr);
  LineTo(dc, 20, 10);
  EXPECT_EQ(rows(marks()), "9: 10-20; 10: 9-21; 11: 10-20");
  EXPECT_EQ(PnGetPixel(dc, 15, 10), 0x0000FF);
}

TEST_F(ImageContext, combines_overlapping_marks_by_the_operation_set) {
  SetROP2(dc, R2_MASKPEN);
  use(CreatePen(PS_SOLID, 1, 0x00FFFF));
  MoveToEx(dc, 5, 10, nullptr);
  LineTo(dc, 25, 10);
  use(CreatePen(PS_SOLID, 1, 0xFF00FF));
  MoveToEx(dc, 15, 5, nullptr);
  LineTo(dc, 15, 20);
  EXPECT_EQ(PnGetPixel(dc, 14, 10), 0x00FFFF);
  EXPECT_EQ(PnGetPixel(dc, 15, 9), 0xFF00FF);
  EXPECT_EQ(PnGetPixel(dc, 15, 10), 0x0000FF);
}

TEST_F(ImageContext, paints_the_elbow_of_two_arcs_closed_and_ends_at_its_start) {
  struct {
    int width, left, top, right, bottom;
  } table[] = {{0, 5, 10, 34, 40}, {3, 4, 9, 35, 41}};
  for (const auto& t : table) {
    use(t.width ? [&] {
      const LOGBRUSH black{BS_SOLID, 0, 0};
      return ExtCreatePen(PS_GEOMETRIC, static_cast<DWORD>(t.width), &black, 0, nullptr);
    }()
                : CreatePen(PS_SOLID, 0, 0));
    use(CreateSolidBrush(0x0000FF));
    BeginPath(dc);
    MoveToEx(dc, 5, 10, nullptr);
    SetArcDirection(dc, AD_CLOCKWISE);
    ArcTo(dc, -25, 10, 35, 70, 5, 10, 35, 40);
    LineTo(dc, 25, 40);
    SetArcDirection(dc, AD_COUNTERCLOCKWISE);
    ArcTo(dc, -15, 20, 25, 60, 25, 40, 5, 20);
    LineTo(dc, 5, 10);
    EndPath(dc);
    EXPECT_EQ(StrokeAndFillPath(dc), 1);
    POINT at{};
    MoveToEx(dc, 0, 0, &at);
    EXPECT_EQ(at.x, 5);
    EXPECT_EQ(at.y, 10);
    int left = 99, right = 0;
    const Pixels p = marks();
    for (const auto& [y, x] : p) left = std::min(left, x), right = std::max(right, x);
    EXPECT_EQ(left, t.left);
    EXPECT_EQ(right, t.right);
    EXPECT_EQ(p.begin()->first, t.top);
    EXPECT_EQ(p.rbegin()->first, t.bottom);
    EXPECT_EQ(PnGetPixel(dc, 28, 30), 0x0000FF);
  }
}

TEST_F(ImageContext, stretches_from_a_memory_context) {
  const HDC memory = CreateCompatibleDC(dc);
  const HBITMAP bitmap = CreateCompatibleBitmap(dc, 4, 1);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  for (int x = 0; x < 4; x++) {
    const HPEN pen = CreatePen(PS_SOLID, 1, static_cast<COLORREF>(x));
    const HGDIOBJ old = SelectObject(memory, pen);
    MoveToEx(memory, x, 0, nullptr);
    LineTo(memory, x + 1, 0);
    DeleteObject(SelectObject(memory, old));
  }
  SetStretchBltMode(dc, COLORONCOLOR);
  EXPECT_EQ(StretchBlt(dc, 2, 3, 10, 1, memory, 0, 0, 4, 1, SRCCOPY), 1);
  const int expected[] = {0, 0, 0, 1, 1, 2, 2, 2, 3, 3};
  for (int i = 0; i < 10; i++) EXPECT_EQ(PnGetPixel(dc, 2 + i, 3), expected[i]) << i;
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

TEST_F(ImageContext, moves_its_own_pixels_as_they_were) {
  for (int x = 5; x < 25; x++) {
    use(CreatePen(PS_SOLID, 1, static_cast<COLORREF>(x)));
    MoveToEx(dc, x, 5, nullptr);
    LineTo(dc, x, 15);
  }
  EXPECT_EQ(BitBlt(dc, 8, 7, 20, 10, dc, 5, 5, SRCCOPY), 1);
  for (int x = 0; x < 20; x++) EXPECT_EQ(PnGetPixel(dc, 8 + x, 16), 5 + x) << x;
  EXPECT_EQ(PnGetPixel(dc, 27, 7), 24);
}

}  // namespace
}  // namespace pn10::test
