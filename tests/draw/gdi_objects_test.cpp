/** The guards of pens, brushes, fonts and modes: made once a look, put back at the end. */
#include "draw/gdi_objects.h"
#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

TEST(SelectedPen, is_made_anew_only_when_its_look_changes_and_put_back_at_the_end) {
  Picture p;
  const int32_t before = PnGetObjectCount();
  const std::string log = recorded([&] {
    SelectedPen pen(p.dc);
    for (int i = 0; i < 3; i++) EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0x0000FF));
    for (int i = 0; i < 3; i++) EXPECT_TRUE(pen.plain(PS_SOLID, 2, 0x0000FF));
  });
  EXPECT_EQ(log,
            "CreatePen pen(0,1,0x0000FF)\nSelectObject pen(0,1,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,1,0x0000FF)\n"
            "CreatePen pen(0,2,0x0000FF)\nSelectObject pen(0,2,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,2,0x0000FF)\n");
  EXPECT_EQ(PnGetObjectCount(), before);
}

TEST(SelectedPen, that_was_put_back_is_made_anew) {
  Picture p;
  const std::string log = recorded([&] {
    SelectedPen pen(p.dc);
    EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0x0000FF));
    pen.restore();
    EXPECT_EQ(pen.object(), nullptr);
    EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0x0000FF));
  });
  EXPECT_EQ(only(log, {"CreatePen"}), "CreatePen pen(0,1,0x0000FF)\nCreatePen pen(0,1,0x0000FF)\n");
}

TEST(SelectedPen, that_can_not_be_selected_is_deleted_at_once) {
  const int32_t before = PnGetObjectCount();
  SelectedPen pen(nullptr);
  EXPECT_FALSE(pen.plain(PS_SOLID, 1, 0x0000FF));
  EXPECT_EQ(pen.object(), nullptr);
  EXPECT_EQ(PnGetObjectCount(), before);
}

TEST(SelectedPen, that_can_not_be_made_leaves_the_old_one_and_is_tried_once) {
  Picture p;
  const int32_t before = PnGetObjectCount();
  const std::string log = recorded([&] {
    SelectedPen pen(p.dc);
    EXPECT_TRUE(pen.lineStyle(1, 1, 0));
    EXPECT_FALSE(pen.lineStyle(9, 1, 0));
    EXPECT_FALSE(pen.lineStyle(9, 1, 0));
    EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0));
  });
  EXPECT_EQ(only(log, {"CreatePen"}), "CreatePen pen(0,1,0x000000)\n");
  EXPECT_EQ(PnGetObjectCount(), before);
}

TEST(SelectedBrush, each_way_of_making_is_a_look_of_its_own) {
  Picture p;
  const std::string log = recorded([&] {
    SelectedBrush brush(p.dc);
    brush.solid(0xFF);
    brush.indirect(BS_SOLID, 0xFF);
    brush.hatch(4, 0xFF);
    brush.hatch(4, 0xFF);
  });
  EXPECT_EQ(only(log, {"CreateSolidBrush", "CreateBrushIndirect", "CreateHatchBrush"}),
            "CreateSolidBrush brush(0,0x0000FF)\nCreateBrushIndirect brush(0,0x0000FF)\nCreateHatchBrush "
            "hatch(4,0x0000FF)\n");
}

TEST(SelectedFont, BackgroundMode_and_BorrowedObject_put_everything_back) {
  Picture p;
  HPEN lent = CreatePen(PS_SOLID, 3, 0);
  const int32_t before = PnGetObjectCount();
  HGDIOBJ font = nullptr, pen = nullptr;
  const std::string log = recorded([&] {
    SelectedFont selected(p.dc);
    LOGFONTA look{};
    look.lfHeight = -12;
    EXPECT_TRUE(selected.font(look));
    EXPECT_TRUE(selected.font(look));
    font = selected.object();
    const BackgroundMode transparent(p.dc, TRANSPARENT);
    const BorrowedObject borrowed(p.dc, lent);
    pen = lent;
  });
  EXPECT_NE(font, nullptr);
  EXPECT_EQ(PnGetObjectCount(), before);
  EXPECT_EQ(GetBkMode(p.dc), OPAQUE);
  EXPECT_NE(SelectObject(p.dc, lent), pen); /* the context had its own pen again */
  EXPECT_EQ(only(log, {"DeleteObject"}), "DeleteObject font(-12,0,0,0,0,\"\")\n");
  PnDeleteDC(p.dc);
  p.dc = nullptr;
  DeleteObject(lent);
}

}  // namespace
