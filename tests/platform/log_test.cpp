/** What the operation log says of each operation and object, on a record context. */
#include "platform/gdi.h"
#include "platform/user.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

class Log : public testing::Test {
 protected:
  void SetUp() override { dc = PnCreateRecordDC(200, 100, 96); }
  void TearDown() override { PnDeleteDC(dc); }
  HDC dc = nullptr;
};

const LOGBRUSH kRed{BS_SOLID, 0x0000FF, 0};

TEST_F(Log, names_made_and_deleted_objects_by_their_properties) {
  const DWORD dash[] = {12, 6};
  const std::string log = recorded([&] {
    HGDIOBJ objects[] = {CreatePen(PS_SOLID, 1, 0x0000FF),
                         ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 3, &kRed, 2, dash),
                         ExtCreatePen(PS_GEOMETRIC | PS_DASH, 2, &kRed, 0, nullptr),
                         CreateSolidBrush(0x0000FF),
                         CreateHatchBrush(HS_CROSS, 0x0000FF),
                         CreateRectRgn(100, 90, 0, 0)};
    for (HGDIOBJ object : objects) DeleteObject(object);
  });
  EXPECT_EQ(log,
            "CreatePen pen(0,1,0x0000FF)\n"
            "ExtCreatePen pen(0x10007,3,0x0000FF,[12,6])\n"
            "ExtCreatePen pen(0x10001,2,0x0000FF)\n"
            "CreateSolidBrush brush(0,0x0000FF)\n"
            "CreateHatchBrush hatch(4,0x0000FF)\n"
            "CreateRectRgn rgn(0,0,100,90)\n"
            "DeleteObject pen(0,1,0x0000FF)\n"
            "DeleteObject pen(0x10007,3,0x0000FF,[12,6])\n"
            "DeleteObject pen(0x10001,2,0x0000FF)\n"
            "DeleteObject brush(0,0x0000FF)\n"
            "DeleteObject hatch(4,0x0000FF)\n"
            "DeleteObject rgn(0,0,100,90)\n");
}

TEST_F(Log, names_indirect_brushes_fonts_and_bitmaps) {
  const LOGBRUSH solid{BS_SOLID, 0x123456, 0}, hollow{BS_HOLLOW, 0xFFFFFF, 0};
  LOGFONTA font{};
  font.lfHeight = -12;
  font.lfEscapement = 900;
  font.lfWeight = 700;
  font.lfItalic = 1;
  std::memcpy(font.lfFaceName, "Ari\"al", 7);
  const std::string log = recorded([&] {
    HDC memory = CreateCompatibleDC(dc);
    HGDIOBJ objects[] = {CreateBrushIndirect(&solid), CreateBrushIndirect(&hollow), CreateFontIndirectA(&font),
                         CreateCompatibleBitmap(dc, 8, 4)};
    for (HGDIOBJ object : objects) DeleteObject(object);
    DeleteDC(memory);
  });
  EXPECT_EQ(log,
            "CreateCompatibleDC memdc\n"
            "CreateBrushIndirect brush(0,0x123456)\n"
            "CreateBrushIndirect brush(1,0xFFFFFF)\n"
            "CreateFontIndirectA font(-12,900,700,1,0,\"Ari\\\"al\")\n"
            "CreateCompatibleBitmap bitmap(8,4,32)\n"
            "DeleteObject brush(0,0x123456)\n"
            "DeleteObject brush(1,0xFFFFFF)\n"
            "DeleteObject font(-12,900,700,1,0,\"Ari\\\"al\")\n"
            "DeleteObject bitmap(8,4,32)\n"
            "DeleteDC memdc\n");
}

TEST_F(Log, a_fresh_context_holds_the_stock_objects) {
  HGDIOBJ pen = CreatePen(0, 1, 1), brush = CreateSolidBrush(2);
  const LOGFONTA any{};
  HGDIOBJ font = CreateFontIndirectA(&any);
  const HGDIOBJ olds[] = {SelectObject(dc, pen), SelectObject(dc, brush), SelectObject(dc, font)};
  EXPECT_EQ(recorded([&] {
              for (HGDIOBJ old : olds) SelectObject(dc, old);
            }),
            "SelectObject pen(0,1,0x000000)\nSelectObject brush(0,0xFFFFFF)\n"
            "SelectObject font(0,0,400,0,0,\"System\")\n");
  for (HGDIOBJ object : {pen, brush, font}) EXPECT_TRUE(DeleteObject(object));
}

TEST_F(Log, writes_lines_and_shapes_with_their_arguments) {
  const POINT triangle[] = {{10, 20}, {30, 40}, {50, 60}};
  EXPECT_EQ(recorded([&] {
              MoveToEx(dc, 10, 20, nullptr);
              LineTo(dc, 30, -40);
              Polyline(dc, triangle, 2);
              Polygon(dc, triangle, 3);
              Ellipse(dc, 0, 0, 9, 9);
              Pie(dc, 0, 0, 9, 9, 9, 4, 0, 4);
              BeginPath(dc);
              ArcTo(dc, 0, 0, 9, 9, 9, 4, 0, 4);
              EndPath(dc);
              StrokeAndFillPath(dc);
              StrokePath(dc);
              FillPath(dc);
            }),
            "MoveToEx 10 20\nLineTo 30 -40\nPolyline 2 10 20 30 40\nPolygon 3 10 20 30 40 50 60\n"
            "Ellipse 0 0 9 9\nPie 0 0 9 9 9 4 0 4\nBeginPath\nArcTo 0 0 9 9 9 4 0 4\nEndPath\n"
            "StrokeAndFillPath\nStrokePath\nFillPath\n");
}

TEST_F(Log, writes_modes_and_colours) {
  EXPECT_EQ(recorded([&] {
              SetTextAlign(dc, 24);
              SetBkMode(dc, 1);
              SetTextColor(dc, 0x0000FF);
              SetBkColor(dc, 0xC0FFEE);
              SetROP2(dc, 9);
              SetArcDirection(dc, 2);
              SetPolyFillMode(dc, 2);
              SetStretchBltMode(dc, 3);
              SaveDC(dc);
              RestoreDC(dc, 1);
            }),
            "SetTextAlign 24\nSetBkMode 1\nSetTextColor 0x0000FF\nSetBkColor 0xC0FFEE\nSetROP2 9\n"
            "SetArcDirection 2\nSetPolyFillMode 2\nSetStretchBltMode 3\nSaveDC 1\nRestoreDC 1\n");
}

TEST_F(Log, names_clip_regions_and_their_absence) {
  HRGN region = CreateRectRgn(0, 0, 100, 100);
  EXPECT_EQ(recorded([&] {
              SelectClipRgn(dc, region);
              SelectClipRgn(dc, nullptr);
            }),
            "SelectClipRgn rgn(0,0,100,100)\nSelectClipRgn none\n");
  DeleteObject(region);
}

TEST_F(Log, quotes_text_byte_by_byte) {
  RECT box{1, 2, 30, 40};
  EXPECT_EQ(recorded([&] {
              TextOutA(dc, 10, 20, "P = 60.0", 8);
              TextOutA(dc, 0, 0, "a\"\\\xB0\n", 5);
              DrawTextA(dc, "two words", -1, &box, 0x810);
            }),
            "TextOutA 10 20 \"P = 60.0\"\nTextOutA 0 0 \"a\\\"\\\\\\xB0\\x0A\"\n"
            "DrawTextA \"two words\" 1 2 30 40 2064\n");
}

TEST_F(Log, names_contexts_that_are_made_and_deleted) {
  TempDir dir;
  ASSERT_EQ(PnAddPrinter("Plot", dir.path("plot.svg").c_str(), 4, 3, 100, 0, 0), 1);
  EXPECT_EQ(recorded([&] {
              DeleteDC(CreateCompatibleDC(dc));
              DeleteDC(CreateDCA("WINSPOOL", "Plot", nullptr, nullptr));
              EXPECT_EQ(CreateDCA("WINSPOOL", "other", nullptr, nullptr), nullptr);
              EXPECT_EQ(DeleteDC(nullptr), 0);
            }),
            "CreateCompatibleDC memdc\nDeleteDC memdc\nCreateDCA \"WINSPOOL\" \"Plot\"\nDeleteDC\n");
}

TEST_F(Log, writes_transfers_and_escapes) {
  HDC memory = CreateCompatibleDC(dc);
  POINT size{};
  EXPECT_EQ(recorded([&] {
              BitBlt(dc, 1, 2, 3, 4, memory, 5, 6, SRCAND);
              StretchBlt(dc, 1, -2, 3, 4, memory, 5, 6, 7, 8, SRCCOPY);
              Escape(dc, GETPHYSPAGESIZE, 0, nullptr, &size);
              Escape(dc, GETPRINTINGOFFSET, 0, nullptr, &size);
            }),
            "BitBlt 1 2 3 4 5 6 0x8800C6\nStretchBlt 1 -2 3 4 5 6 7 8 0xCC0020\nEscape 12\nEscape 13\n");
  DeleteDC(memory);
}

TEST_F(Log, leaves_out_pure_questions) {
  SIZE size;
  TEXTMETRICA metrics;
  ABC widths[1];
  EXPECT_EQ(recorded([&] {
              GetDeviceCaps(dc, LOGPIXELSX);
              GetTextExtentPoint32A(dc, "a", 1, &size);
              GetTextMetricsA(dc, &metrics);
              GetCharABCWidthsA(dc, 'a', 'a', widths);
              GetObjectA(nullptr, 0, nullptr);
            }),
            "");
}

TEST_F(Log, says_nothing_while_it_is_off_and_begins_empty) {
  PnRecord(1);
  LineTo(dc, 1, 1);
  PnRecord(0);
  LineTo(dc, 2, 2);
  char text[8] = "xxxxxxx";
  EXPECT_EQ(PnGetRecord(text, 5), 11);
  EXPECT_STREQ(text, "Line");
  EXPECT_EQ(recorded([] {}), "");
}

}  // namespace
