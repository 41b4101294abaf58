/** State of a context: defaults, setters, saved levels, selection and deletion, clip, paths, bad handles. */
#include <limits>

#include "platform/gdi.h"
#include "platform/user.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

class State : public testing::Test {
 protected:
  void SetUp() override {
    before = PnGetObjectCount();
    dc = PnCreateImageDC(40, 40, 96, 0xFFFFFF);
  }
  void TearDown() override {
    PnDeleteDC(dc);
    EXPECT_EQ(PnGetObjectCount(), before);
  }
  bool inked(int x, int y) const { return PnGetPixel(dc, x, y) != 0xFFFFFF; }
  int32_t before = 0;
  HDC dc = nullptr;
};

TEST_F(State, fresh_contexts_have_the_defaults) {
  POINT at{7, 7};
  for (HDC each : {dc, CreateCompatibleDC(nullptr)}) {
    EXPECT_EQ(GetROP2(each), 13);
    EXPECT_EQ(GetBkMode(each), 2);
    EXPECT_EQ(GetBkColor(each), 0xFFFFFFu);
    EXPECT_EQ(GetTextColor(each), 0u);
    EXPECT_EQ(GetTextAlign(each), 0u);
    EXPECT_EQ(GetPolyFillMode(each), 1);
    EXPECT_EQ(GetArcDirection(each), 1);
    EXPECT_EQ(GetStretchBltMode(each), 1);
    MoveToEx(each, 0, 0, &at);
    EXPECT_EQ(at.x, 0);
    EXPECT_EQ(at.y, 0);
    if (each != dc) DeleteDC(each);
  }
}

TEST_F(State, setters_answer_the_old_value) {
  EXPECT_EQ(SetROP2(dc, 9), 13);
  EXPECT_EQ(SetROP2(dc, 13), 9);
  EXPECT_EQ(SetBkMode(dc, 1), 2);
  EXPECT_EQ(SetBkColor(dc, 0x123456), 0xFFFFFFu);
  EXPECT_EQ(GetBkColor(dc), 0x123456u);
  EXPECT_EQ(SetTextColor(dc, 0xFFFFFFFF), 0u);
  EXPECT_EQ(SetTextColor(dc, 0), 0xFFFFFFFFu);
  EXPECT_EQ(SetTextAlign(dc, 24), 0u);
  EXPECT_EQ(SetPolyFillMode(dc, 2), 1);
  EXPECT_EQ(SetStretchBltMode(dc, 3), 1);
  EXPECT_EQ(SetArcDirection(dc, 2), 1);
}

TEST_F(State, values_that_mean_nothing_change_nothing) {
  EXPECT_EQ(SetArcDirection(dc, 5), 0);
  EXPECT_EQ(GetArcDirection(dc), 1);
  for (int bad : {0, 17, -1}) EXPECT_EQ(SetROP2(dc, bad), 0);
  EXPECT_EQ(GetROP2(dc), 13);
  EXPECT_EQ(SetBkMode(dc, 3), 0);
  EXPECT_EQ(SetPolyFillMode(dc, 0), 0);
  EXPECT_EQ(SetStretchBltMode(dc, 9), 0);
  EXPECT_EQ(GetBkMode(dc), 2);
}

TEST_F(State, save_and_restore_bring_everything_back) {
  HPEN pen = CreatePen(PS_SOLID, 1, 0x0000FF), other = CreatePen(PS_SOLID, 1, 0xFF0000);
  HBRUSH brush = CreateSolidBrush(0x00FF00);
  const LOGFONTA any{};
  HFONT font = CreateFontIndirectA(&any);
  SelectObject(dc, pen);
  MoveToEx(dc, 7, 8, nullptr);
  EXPECT_EQ(SaveDC(dc), 1);
  HRGN region = CreateRectRgn(0, 0, 5, 5);
  const HGDIOBJ oldBrush = SelectObject(dc, brush), oldFont = SelectObject(dc, font);
  SelectObject(dc, other);
  SelectClipRgn(dc, region);
  SetROP2(dc, 9), SetBkMode(dc, 1), SetBkColor(dc, 1), SetTextColor(dc, 2), SetTextAlign(dc, 6);
  SetStretchBltMode(dc, 3), SetPolyFillMode(dc, 2), SetArcDirection(dc, 2), MoveToEx(dc, 1, 1, nullptr);
  EXPECT_TRUE(RestoreDC(dc, 1));
  POINT at{};
  MoveToEx(dc, 0, 20, &at);
  EXPECT_EQ(at.x, 7);
  EXPECT_EQ(at.y, 8);
  EXPECT_EQ(GetROP2(dc), 13);
  EXPECT_EQ(GetBkMode(dc), 2);
  EXPECT_EQ(GetBkColor(dc), 0xFFFFFFu);
  EXPECT_EQ(GetTextColor(dc), 0u);
  EXPECT_EQ(GetTextAlign(dc), 0u);
  EXPECT_EQ(GetStretchBltMode(dc), 1);
  EXPECT_EQ(GetPolyFillMode(dc), 1);
  EXPECT_EQ(GetArcDirection(dc), 1);
  LineTo(dc, 39, 20); /* the clip is gone, the pen is red again */
  EXPECT_EQ(PnGetPixel(dc, 30, 20), 0x0000FF);
  EXPECT_EQ(SelectObject(dc, oldBrush), oldBrush);
  EXPECT_EQ(SelectObject(dc, oldFont), oldFont);
  EXPECT_EQ(SelectObject(dc, other), pen);
  PnDeleteDC(dc);
  dc = nullptr;
  for (HGDIOBJ object : {HGDIOBJ{pen}, HGDIOBJ{other}, HGDIOBJ{brush}, HGDIOBJ{font}, HGDIOBJ{region}}) {
    EXPECT_TRUE(DeleteObject(object));
  }
}

TEST_F(State, levels_drop_with_the_one_restored) {
  for (int level = 1; level <= 3; level++) {
    SetTextColor(dc, static_cast<COLORREF>(level));
    EXPECT_EQ(SaveDC(dc), level);
  }
  EXPECT_FALSE(RestoreDC(dc, 0));
  EXPECT_FALSE(RestoreDC(dc, 4));
  EXPECT_FALSE(RestoreDC(dc, -4));
  EXPECT_FALSE(RestoreDC(dc, INT32_MIN));
  EXPECT_TRUE(RestoreDC(dc, -1));
  EXPECT_EQ(GetTextColor(dc), 3u);
  EXPECT_TRUE(RestoreDC(dc, 1));
  EXPECT_EQ(GetTextColor(dc), 1u);
  EXPECT_FALSE(RestoreDC(dc, 2));
  EXPECT_EQ(SaveDC(dc), 1);
}

TEST_F(State, a_deleted_pen_goes_on_painting_while_it_is_selected) {
  HPEN pen = CreatePen(PS_SOLID, 1, 0x0000FF);
  const HGDIOBJ old = SelectObject(dc, pen);
  EXPECT_TRUE(DeleteObject(pen));
  MoveToEx(dc, 0, 5, nullptr);
  LineTo(dc, 10, 5);
  EXPECT_EQ(PnGetPixel(dc, 3, 5), 0x0000FF);
  EXPECT_EQ(PnGetObjectCount(), before + 1);
  SelectObject(dc, old);
  EXPECT_EQ(PnGetObjectCount(), before);
  EXPECT_EQ(SelectObject(dc, pen), nullptr);
  EXPECT_FALSE(DeleteObject(pen));
}

TEST_F(State, selecting_nothing_keeps_the_object) {
  HPEN pen = CreatePen(PS_SOLID, 1, 0x0000FF);
  SelectObject(dc, pen);
  EXPECT_EQ(SelectObject(dc, nullptr), nullptr);
  LineTo(dc, 5, 0);
  EXPECT_EQ(PnGetPixel(dc, 2, 0), 0x0000FF);
  PnDeleteDC(dc);
  dc = nullptr;
  DeleteObject(pen);
}

TEST_F(State, stock_objects_are_neither_counted_nor_deleted) {
  HPEN pen = CreatePen(PS_SOLID, 1, 0);
  const HGDIOBJ stock = SelectObject(dc, pen);
  EXPECT_TRUE(DeleteObject(stock));
  EXPECT_EQ(SelectObject(dc, stock), pen);
  DeleteObject(pen);
}

TEST_F(State, clip_regions_are_copied_and_half_open) {
  HRGN region = CreateRectRgn(20, 15, 5, 6);
  EXPECT_EQ(SelectClipRgn(dc, region), SIMPLEREGION);
  EXPECT_TRUE(DeleteObject(region));
  HBRUSH black = CreateSolidBrush(0);
  SelectObject(dc, black);
  const POINT all[] = {{0, 0}, {40, 0}, {40, 40}, {0, 40}};
  Polygon(dc, all, 4);
  for (int y = 0; y < 40; y++) {
    for (int x = 0; x < 40; x++) ASSERT_EQ(inked(x, y), x >= 5 && x < 20 && y >= 6 && y < 15) << x << " " << y;
  }
  EXPECT_EQ(SelectClipRgn(dc, nullptr), SIMPLEREGION);
  Polygon(dc, all, 4);
  EXPECT_TRUE(inked(39, 39));
  PnDeleteDC(dc);
  dc = nullptr;
  DeleteObject(black);
}

TEST_F(State, an_empty_region_hides_everything) {
  HRGN region = CreateRectRgn(5, 5, 5, 9);
  EXPECT_EQ(SelectClipRgn(dc, region), NULLREGION);
  MoveToEx(dc, 0, 7, nullptr);
  LineTo(dc, 40, 7);
  for (int x = 0; x < 40; x++) EXPECT_FALSE(inked(x, 7));
  DeleteObject(region);
  EXPECT_EQ(SelectClipRgn(dc, region), ERROR_REGION);
}

TEST_F(State, shapes_and_text_leave_the_current_position_alone) {
  const POINT points[] = {{0, 0}, {9, 0}, {9, 9}};
  MoveToEx(dc, 3, 4, nullptr);
  Polygon(dc, points, 3);
  Ellipse(dc, 0, 0, 9, 9);
  Pie(dc, 0, 0, 9, 9, 9, 4, 0, 4);
  TextOutA(dc, 1, 1, "a", 1);
  POINT at{};
  MoveToEx(dc, 0, 0, &at);
  EXPECT_EQ(at.x, 3);
  EXPECT_EQ(at.y, 4);
  LineTo(dc, 11, 12);
  MoveToEx(dc, 0, 0, &at);
  EXPECT_EQ(at.x, 11);
  EXPECT_EQ(at.y, 12);
}

TEST_F(State, an_arc_ends_on_its_box) {
  /* box (10,10,31,31); first radial, second radial, position afterwards */
  const struct {
    POINT from, to, end;
  } rows[] = {{{31, 20}, {20, 10}, {20, 10}},
              {{20, 10}, {10, 20}, {10, 20}},
              {{10, 20}, {20, 31}, {20, 31}},
              {{20, 31}, {31, 20}, {31, 20}},
              {{31, 10}, {10, 10}, {13, 13}}};
  for (const auto& row : rows) {
    for (int direction : {1, 2}) {
      SetArcDirection(dc, direction);
      MoveToEx(dc, 20, 20, nullptr);
      EXPECT_TRUE(ArcTo(dc, 10, 10, 31, 31, row.from.x, row.from.y, row.to.x, row.to.y));
      POINT at{};
      MoveToEx(dc, 0, 0, &at);
      EXPECT_EQ(at.x, row.end.x);
      EXPECT_EQ(at.y, row.end.y);
    }
  }
}

TEST_F(State, an_arc_begins_with_a_line_from_the_current_position) {
  MoveToEx(dc, 5, 5, nullptr);
  ArcTo(dc, 10, 10, 31, 31, 31, 20, 20, 10);
  EXPECT_TRUE(inked(5, 5));
  EXPECT_TRUE(inked(28, 19)); /* the line's end runs into (30,20) */
  EXPECT_TRUE(inked(27, 13)); /* the north-east of the quarter */
  EXPECT_FALSE(inked(13, 13));
}

TEST_F(State, a_path_is_painted_once_and_not_before_its_end) {
  EXPECT_FALSE(EndPath(dc));
  EXPECT_FALSE(StrokeAndFillPath(dc));
  EXPECT_TRUE(BeginPath(dc));
  MoveToEx(dc, 5, 5, nullptr);
  LineTo(dc, 20, 5);
  LineTo(dc, 20, 20);
  EXPECT_FALSE(StrokeAndFillPath(dc));
  EXPECT_FALSE(inked(10, 5));
  EXPECT_TRUE(EndPath(dc));
  EXPECT_TRUE(StrokeAndFillPath(dc));
  EXPECT_TRUE(inked(10, 5));
  EXPECT_TRUE(inked(10, 10)); /* the closing side */
  EXPECT_FALSE(StrokePath(dc));
  EXPECT_FALSE(FillPath(dc));
}

TEST_F(State, the_elbow_has_the_measured_extent) {
  PnDeleteDC(dc);
  dc = PnCreateImageDC(60, 60, 96, 0xFFFFFF);
  BeginPath(dc);
  MoveToEx(dc, 5, 10, nullptr);
  SetArcDirection(dc, AD_CLOCKWISE);
  ArcTo(dc, -25, 10, 35, 70, 5, 10, 35, 40);
  LineTo(dc, 25, 40);
  SetArcDirection(dc, AD_COUNTERCLOCKWISE);
  ArcTo(dc, -15, 20, 25, 60, 25, 40, 5, 20);
  LineTo(dc, 5, 10);
  EndPath(dc);
  EXPECT_TRUE(StrokeAndFillPath(dc));
  POINT at{};
  MoveToEx(dc, 0, 0, &at);
  EXPECT_EQ(at.x, 5);
  EXPECT_EQ(at.y, 10);
  RECT box{99, 99, -1, -1};
  for (int y = 0; y < 60; y++) {
    for (int x = 0; x < 60; x++) {
      if (!inked(x, y)) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  EXPECT_EQ(box.left, 5);
  EXPECT_EQ(box.right, 34);
  EXPECT_EQ(box.top, 10);
  EXPECT_EQ(box.bottom, 40);
}

TEST(Handles, that_are_none_are_harmless) {
  HDC bad[] = {nullptr, reinterpret_cast<HDC>(uintptr_t{12345}), reinterpret_cast<HDC>(~uintptr_t{0}),
               PnCreateRecordDC(9, 9, 96)};
  PnDeleteDC(bad[3]);
  const POINT points[] = {{0, 0}, {9, 0}, {9, 9}};
  SIZE size;
  TEXTMETRICA metrics;
  ABC abc[1];
  POINT out;
  for (HDC dc : bad) {
    EXPECT_FALSE(MoveToEx(dc, 0, 0, nullptr) || LineTo(dc, 1, 1) || Polyline(dc, points, 3) || Polygon(dc, points, 3));
    EXPECT_FALSE(Ellipse(dc, 0, 0, 9, 9) || Pie(dc, 0, 0, 9, 9, 1, 1, 2, 2) || ArcTo(dc, 0, 0, 9, 9, 1, 1, 2, 2));
    EXPECT_FALSE(BeginPath(dc) || EndPath(dc) || StrokePath(dc) || FillPath(dc) || StrokeAndFillPath(dc));
    EXPECT_FALSE(TextOutA(dc, 0, 0, "a", 1) || GetTextExtentPoint32A(dc, "a", 1, &size));
    EXPECT_FALSE(GetTextMetricsA(dc, &metrics) || GetCharABCWidthsA(dc, 'a', 'a', abc));
    EXPECT_EQ(SelectObject(dc, nullptr), nullptr);
    EXPECT_EQ(SelectClipRgn(dc, nullptr), ERROR_REGION);
    EXPECT_FALSE(SaveDC(dc) || RestoreDC(dc, -1) || SetROP2(dc, 9) || GetROP2(dc) || SetBkMode(dc, 1));
    EXPECT_FALSE(GetDeviceCaps(dc, LOGPIXELSX) || Escape(dc, 12, 0, nullptr, &out) || DeleteDC(dc) || PnDeleteDC(dc));
    EXPECT_FALSE(BitBlt(dc, 0, 0, 1, 1, dc, 0, 0, SRCCOPY) || StretchBlt(dc, 0, 0, 1, 1, dc, 0, 0, 1, 1, SRCCOPY));
    EXPECT_FALSE(PnSetAntialias(dc, 1) || PnSavePng(dc, "x") || PnSetPage(dc, 1, 1, 1, 1));
    EXPECT_EQ(PnGetPixel(dc, 0, 0), -1);
    EXPECT_EQ(SetTextColor(dc, 0), 0xFFFFFFFFu);
    EXPECT_FALSE(DeleteObject(dc) || GetObjectA(dc, 99, &metrics));
  }
  EXPECT_EQ(CreateCompatibleDC(bad[1]), nullptr);
}

TEST(Handles, a_slot_that_is_used_again_does_not_revive_the_old_handle) {
  HPEN first = CreatePen(PS_SOLID, 1, 0);
  DeleteObject(first);
  HPEN second = CreatePen(PS_SOLID, 1, 0);
  EXPECT_NE(first, second);
  EXPECT_FALSE(DeleteObject(first));
  EXPECT_TRUE(DeleteObject(second));
}

TEST(Handles, contexts_of_absurd_sizes_are_refused) {
  EXPECT_EQ(PnCreateImageDC(0, 10, 96, 0), nullptr);
  EXPECT_EQ(PnCreateImageDC(10, -1, 96, 0), nullptr);
  EXPECT_EQ(PnCreateImageDC(10, 10, 0, 0), nullptr);
  EXPECT_EQ(PnCreateImageDC(INT32_MAX, INT32_MAX, 96, 0), nullptr);
  EXPECT_EQ(PnCreateImageDC(70000, 70000, 96, 0), nullptr);
  EXPECT_EQ(PnCreateRecordDC(0, 1, 96), nullptr);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const TempDir dir;
  for (double bad : {0.0, -1.0, nan, 1e300}) {
    EXPECT_EQ(PnCreatePdfDC(dir.path("never.pdf").c_str(), bad, 1, 96), nullptr);
    EXPECT_EQ(PnCreateSvgDC(dir.path("never.svg").c_str(), 1, bad, 96), nullptr);
    EXPECT_FALSE(dir.exists("never.pdf") || dir.exists("never.svg"));
  }
  EXPECT_EQ(PnCreatePdfDC(nullptr, 1, 1, 96), nullptr);
  EXPECT_EQ(PnCreatePdfDC("/no/such/folder/a.pdf", 1, 1, 96), nullptr);
  EXPECT_EQ(PnCreateSvgDC("/no/such/folder/a.svg", 1, 1, 96), nullptr);
}

TEST(Handles, figures_without_points_paint_nothing) {
  HDC dc = PnCreateImageDC(9, 9, 96, 0xFFFFFF);
  const POINT points[] = {{0, 0}, {4, 4}};
  EXPECT_FALSE(Polygon(dc, points, 1) || Polygon(dc, points, -1) || Polygon(dc, nullptr, 3));
  EXPECT_FALSE(Polyline(dc, points, 1) || Polyline(dc, nullptr, 3));
  EXPECT_TRUE(Polygon(dc, points, 2));
  EXPECT_FALSE(TextOutA(dc, 0, 0, nullptr, 3) || TextOutA(dc, 0, 0, "a", -1));
  EXPECT_TRUE(TextOutA(dc, 0, 0, nullptr, 0));
  PnDeleteDC(dc);
}

}  // namespace
