// Calls and arguments that a picture of a network hardly ever needs, and that hold all the same.
#include "platform/gdi.h"
#include "platform/kernel.h"
#include "support/support.h"

namespace pn10::test {
namespace {

struct RareCalls : testing::Test {
  Fresh fresh;
  TempDir dir;
  int32_t objects = PnGetObjectCount();
  HDC dc = PnCreateImageDC(8, 8, 96, 0xFFFFFF);
  ~RareCalls() override {
    PnDeleteDC(dc);
    EXPECT_EQ(PnGetObjectCount(), objects);
  }
};

/** A header with room for a full colour table. */
struct Dib {
  BITMAPINFOHEADER head{};
  uint32_t colors[256]{};
  Dib(int32_t width, int32_t height, int bits) {
    head.biSize = sizeof head;
    head.biWidth = width;
    head.biHeight = height;
    head.biPlanes = 1;
    head.biBitCount = static_cast<WORD>(bits);
  }
  BITMAPINFO* info() { return reinterpret_cast<BITMAPINFO*>(this); }
};

TEST_F(RareCalls, bits_without_colours_of_their_own_come_out_in_the_usual_ones) {
  HBITMAP red = CreateCompatibleBitmap(dc, 2, 1);
  const uint32_t pixels[2] = {0xFF0000, 0x0000FF};
  ASSERT_EQ(SetDIBits(dc, red, 0, 1, pixels, Dib(2, 1, 32).info(), DIB_RGB_COLORS), 1);
  uint8_t row[4] = {};
  Dib sixteen(2, 1, 4);
  EXPECT_EQ(GetDIBits(dc, red, 0, 1, row, sixteen.info(), DIB_RGB_COLORS), 1);
  EXPECT_EQ(row[0], 0x9C) << "bright red is the tenth of the sixteen, bright blue the thirteenth";
  EXPECT_EQ(sixteen.colors[9], 0xFF0000u);
  EXPECT_EQ(sixteen.colors[15], 0xFFFFFFu);
  Dib mixed(2, 1, 8);
  EXPECT_EQ(GetDIBits(dc, red, 0, 1, row, mixed.info(), DIB_RGB_COLORS), 1);
  EXPECT_EQ(row[0], 0xE0) << "three bits of red, three of green, two of blue";
  EXPECT_EQ(row[1], 0x03);
  EXPECT_EQ(mixed.colors[0xE0], 0xFF0000u);
  EXPECT_EQ(mixed.colors[0x1C], 0x00FF00u);
  EXPECT_EQ(mixed.colors[255], 0xFFFFFFu);
  Dib mono(2, 1, 1);
  EXPECT_EQ(GetDIBits(dc, red, 0, 1, row, mono.info(), DIB_RGB_COLORS), 1);
  EXPECT_EQ(mono.colors[0], 0x000000u);
  EXPECT_EQ(mono.colors[1], 0xFFFFFFu);
  DeleteObject(red);
}

TEST_F(RareCalls, colours_are_not_written_behind_a_header_that_is_none) {
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 2, 1);
  uint8_t row[8] = {};
  for (const DWORD size : {0u, 39u, 257u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    for (const int bits : {0, 1, 8, 32}) {
      Dib header(2, 1, bits);
      header.head.biSize = size;
      EXPECT_EQ(GetDIBits(dc, bitmap, 0, 1, row, header.info(), DIB_RGB_COLORS), 0) << size;
    }
  }
  DeleteObject(bitmap);
}

TEST_F(RareCalls, a_moved_bitmap_is_logged_by_its_size) {
  const uint32_t pixel = 0x00FF00;
  const std::string log = recorded([&] {
    EXPECT_EQ(StretchDIBits(dc, 1, 2, 3, 4, 0, 0, 1, 1, &pixel, Dib(1, 1, 32).info(), DIB_RGB_COLORS, SRCCOPY), 1);
  });
  EXPECT_EQ(log, "StretchDIBits 1 2 3 4 0 0 1 1 bitmap(1,1,32) 0 0xCC0020\n");
  EXPECT_EQ(PnGetPixel(dc, 3, 5), 0x00FF00);
  EXPECT_EQ(PnGetPixel(dc, 4, 5), 0xFFFFFF);
}

TEST_F(RareCalls, shapes_between_begin_and_end_of_a_path_paint_with_the_path) {
  HBRUSH brush = CreateSolidBrush(0x0000FF);
  SelectObject(dc, brush);
  const POINT square[] = {{1, 1}, {6, 1}, {6, 6}, {1, 6}};
  BeginPath(dc);
  EXPECT_NE(Polygon(dc, square, 4), 0);
  EXPECT_NE(Polyline(dc, square, 2), 0);
  EXPECT_NE(Pie(dc, 0, 0, 4, 4, 4, 2, 0, 2), 0);
  EndPath(dc);
  EXPECT_EQ(PnGetPixel(dc, 5, 5), 0xFFFFFF) << "nothing is painted yet";
  EXPECT_NE(StrokeAndFillPath(dc), 0);
  EXPECT_EQ(PnGetPixel(dc, 5, 5), 0x0000FF);
  EXPECT_EQ(PnGetPixel(dc, 6, 3), 0x000000);
  PnDeleteDC(dc);
  DeleteObject(brush);
  dc = PnCreateImageDC(8, 8, 96, 0);
}

TEST_F(RareCalls, a_region_can_be_selected_like_a_pen) {
  HRGN region = CreateRectRgn(0, 0, 2, 8);
  EXPECT_EQ(SelectObject(dc, region), reinterpret_cast<HGDIOBJ>(uintptr_t{SIMPLEREGION}));
  MoveToEx(dc, 0, 4, nullptr);
  LineTo(dc, 8, 4);
  EXPECT_EQ(PnGetPixel(dc, 1, 4), 0x000000);
  EXPECT_EQ(PnGetPixel(dc, 2, 4), 0xFFFFFF);
  DeleteObject(region);
  HRGN empty = CreateRectRgn(3, 3, 3, 8);
  EXPECT_EQ(SelectObject(dc, empty), reinterpret_cast<HGDIOBJ>(uintptr_t{NULLREGION}));
  DeleteObject(empty);
  char record[200];
  EXPECT_EQ(GetObjectA(region, sizeof record, record), 0) << "deleted";
}

TEST_F(RareCalls, global_memory_is_plain_memory) {
  auto* block = static_cast<char*>(GlobalAlloc(GMEM_ZEROINIT, 16));
  ASSERT_TRUE(block);
  EXPECT_EQ(std::string(block, 16), std::string(16, '\0'));
  block[15] = 'x';
  EXPECT_EQ(GlobalFree(block), nullptr);
  EXPECT_EQ(GlobalFree(GlobalAlloc(0, 0)), nullptr);
}

TEST_F(RareCalls, a_printer_added_again_prints_to_its_new_path) {
  const std::string first = dir.path("first.svg"), second = dir.path("second.svg");
  EXPECT_EQ(PnAddPrinter("Twice", first.c_str(), 4, 3, 100, 0, 0), 1);
  EXPECT_EQ(PnAddPrinter("Twice", second.c_str(), 4, 3, 100, 0, 0), 1);
  const HDC printer = CreateDCA("WINSPOOL", "Twice", nullptr, nullptr);
  ASSERT_TRUE(printer);
  EXPECT_EQ(PnDeleteDC(printer), 1);
  EXPECT_FALSE(dir.exists("first.svg"));
  EXPECT_TRUE(dir.exists("second.svg"));
}

TEST_F(RareCalls, a_page_has_a_blank_for_a_control_character) {
  const std::string path = dir.path("page.svg");
  const HDC page = PnCreateSvgDC(path.c_str(), 3, 3, 100);
  TextOutA(page, 10, 10, "a\001b<c>&d", 9);
  EXPECT_EQ(PnDeleteDC(page), 1);
  EXPECT_NE(dir.read("page.svg").find("a b&lt;c&gt;&amp;d"), std::string::npos);
}

TEST_F(RareCalls, a_page_takes_black_white_and_inverted_colours_from_the_raster_operation) {
  const struct {
    int operation;
    const char* color;
  } rows[] = {{R2_BLACK, "#000000"}, {R2_WHITE, "#ffffff"}, {R2_NOTCOPYPEN, "#edcba9"}, {R2_COPYPEN, "#123456"}};
  for (const auto& row : rows) {
    const HDC page = PnCreateSvgDC(dir.path("page.svg").c_str(), 3, 3, 100);
    HPEN pen = CreatePen(PS_SOLID, 3, 0x563412);
    SelectObject(page, pen);
    SetROP2(page, row.operation);
    MoveToEx(page, 10, 10, nullptr);
    LineTo(page, 90, 50);
    EXPECT_EQ(PnDeleteDC(page), 1);
    DeleteObject(pen);
    EXPECT_NE(dir.read("page.svg").find(std::string("stroke=\"") + row.color), std::string::npos) << row.operation;
  }
}

TEST_F(RareCalls, fonts_come_and_go_by_the_hundred) {
  for (int height = 1; height <= 400; height++) {
    LOGFONTA record{};
    record.lfHeight = -height;
    std::strcpy(record.lfFaceName, "Arial");
    HFONT font = CreateFontIndirectA(&record);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    EXPECT_NE(GetTextExtentPoint32A(dc, "W", 1, &size), 0);
    EXPECT_GE(size.cy, height);
    SelectObject(dc, before);
    DeleteObject(font);
  }
}

}  // namespace
}  // namespace pn10::test
