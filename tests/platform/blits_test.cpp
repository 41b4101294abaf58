/** Block transfers: depths, raster operations, row order, stretching, masks. */
#include "platform/dib_builder.h"

namespace {

using namespace pn10::test;

class Blits : public SmallImage {
 protected:
  /** The colours of row 0 from a transfer 1:1 of a two-pixel bitmap in memory, over a field. */
  std::string two(const Info& info, const Bytes& bits, uint32_t field = 0xFFFFFF, DWORD rop = SRCCOPY) {
    HBRUSH brush = CreateSolidBrush((field & 0xFF) << 16 | (field & 0xFF00) | field >> 16);
    const HGDIOBJ old = SelectObject(dc, brush);
    const POINT all[] = {{0, 0}, {20, 0}, {20, 12}, {0, 12}};
    Polygon(dc, all, 4);
    SelectObject(dc, old);
    DeleteObject(brush);
    EXPECT_EQ(StretchDIBits(dc, 1, 1, 2, 1, 0, 0, 2, 1, bits.str().data(), info.get(), DIB_RGB_COLORS, rop), 1);
    char text[32];
    std::snprintf(text, sizeof text, "%06x %06x", rgb(dc, 1, 1), rgb(dc, 2, 1));
    return text;
  }
};

TEST_F(Blits, every_depth_shows_its_colours) {
  const uint32_t a = 0x332211, b = 0x506070;
  const auto palette = [&](int bits) { return Info(2, 1, bits).color(0, a).color(1, b); };
  EXPECT_EQ(two(palette(1), Bytes().i8(0x40).padTo(4)), "332211 506070");
  EXPECT_EQ(two(palette(4), Bytes().i8(0x01).padTo(4)), "332211 506070");
  EXPECT_EQ(two(palette(8), Bytes().i8(0).i8(1).padTo(4)), "332211 506070");
  EXPECT_EQ(two(Info(2, 1, 24), Bytes().i8(0x11).i8(0x22).i8(0x33).i8(0x70).i8(0x60).i8(0x50).padTo(8)),
            "332211 506070");
  EXPECT_EQ(two(Info(2, 1, 32), Bytes().i32(0xFF332211).i32(0x506070)), "332211 506070");
  /* 5 bits a channel: 16 widens to 132, 31 to 255 */
  EXPECT_EQ(two(Info(2, 1, 16), Bytes().i16(16 << 10 | 31 << 5).i16(31)), "84ff00 0000ff");
  EXPECT_EQ(two(Info(2, 1, 16, BI_BITFIELDS).masks(0xF800, 0x7E0, 0x1F), Bytes().i16(0x7E0).i16(-2048)),
            "00ff00 ff0000");
  EXPECT_EQ(two(Info(2, 1, 32, BI_BITFIELDS).masks(0xFF, 0xFF00, 0xFF0000), Bytes().i32(0x112233).i32(0x010203)),
            "332211 030201");
}

TEST_F(Blits, raster_operations_combine_bit_by_bit) {
  const Bytes source = Bytes().i32(0x0FF0A5).i32(0);
  const struct {
    DWORD rop;
    const char* result;
  } rows[] = {{SRCCOPY, "0ff0a5"},    {SRCAND, "0c5081"},   {NOTSRCERASE, "c00542"},
              {NOTSRCCOPY, "f00f5a"}, {SRCPAINT, "3ffabd"}, {SRCINVERT, "33aa3c"}};
  for (const auto& row : rows) {
    EXPECT_EQ(two(Info(2, 1, 32), source, 0x3C5A99, row.rop).substr(0, 6), row.result) << std::hex << row.rop;
  }
}

TEST_F(Blits, rows_count_from_the_lower_left_unless_the_bitmap_is_top_down) {
  const Bytes rows = Bytes().i32(0).i32(1).i32(2).i32(3);
  const auto column = [&](int height, int sourceY, int count) {
    SelectClipRgn(dc, nullptr);
    HBRUSH white = CreateSolidBrush(0xFFFFFF);
    const HGDIOBJ old = SelectObject(dc, white);
    const POINT all[] = {{0, 0}, {20, 0}, {20, 12}, {0, 12}};
    Polygon(dc, all, 4);
    SelectObject(dc, old);
    DeleteObject(white);
    EXPECT_EQ(StretchDIBits(dc, 1, 1, 1, count, 0, sourceY, 1, count, rows.str().data(), Info(1, height, 32).get(), 0,
                            SRCCOPY),
              4);
    std::string all4;
    for (int y = 1; y <= count; y++) all4 += std::to_string(rgb(dc, 1, y));
    return all4;
  };
  EXPECT_EQ(column(4, 0, 4), "3210");
  EXPECT_EQ(column(4, 0, 2), "10");
  EXPECT_EQ(column(4, 2, 2), "32");
  EXPECT_EQ(column(-4, 0, 2), "01");
  EXPECT_EQ(column(-4, 2, 2), "23");
}

TEST_F(Blits, blits_copy_stretch_and_mirror) {
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 5, 1);
  SetDIBits(dc, bitmap, 0, 1, Bytes().i32(0).i32(1).i32(2).i32(3).i32(4).str().data(), Info(5, 1, 32).get(), 0);
  Memory memory(bitmap);
  const auto row = [&](int from, int to) {
    std::string all;
    for (int x = from; x <= to; x++) all += rgb(dc, x, 0) == 0xFFFFFF ? "." : std::to_string(rgb(dc, x, 0));
    return all;
  };
  EXPECT_TRUE(StretchBlt(dc, 6, 0, -5, 1, memory.dc, 0, 0, 5, 1, SRCCOPY));
  EXPECT_EQ(row(1, 7), ".43210.");
  EXPECT_TRUE(StretchBlt(dc, 8, 0, 10, 1, memory.dc, 0, 0, 4, 1, SRCCOPY));
  EXPECT_EQ(row(8, 17), "0001122233");
  HDC clean = PnCreateImageDC(20, 1, 96, 0xFFFFFF);
  std::swap(dc, clean);
  EXPECT_TRUE(BitBlt(dc, 1, 0, 8, 1, memory.dc, -2, 0, SRCCOPY));
  EXPECT_EQ(row(0, 9), "...01234..");
  EXPECT_FALSE(BitBlt(dc, 0, 0, 5, 1, nullptr, 0, 0, SRCCOPY));
  PnDeleteDC(clean);
}

TEST_F(Blits, overlapping_copies_read_before_they_write) {
  for (int x = 0; x < 5; x++) {
    HPEN pen = CreatePen(PS_SOLID, 1, static_cast<COLORREF>(x) << 16);
    const HGDIOBJ old = SelectObject(dc, pen);
    MoveToEx(dc, x, 0, nullptr);
    LineTo(dc, x + 1, 0);
    SelectObject(dc, old);
    DeleteObject(pen);
  }
  EXPECT_TRUE(BitBlt(dc, 1, 0, 5, 1, dc, 0, 0, SRCCOPY));
  for (int x = 0; x < 5; x++) EXPECT_EQ(rgb(dc, x + 1, 0), static_cast<uint32_t>(x));
}

TEST_F(Blits, a_mask_takes_text_and_background_colours) {
  HDC fresh = CreateCompatibleDC(nullptr);
  Memory memory(CreateCompatibleBitmap(fresh, 8, 1));
  SetDIBits(dc, memory.bitmap, 0, 1, Bytes().i8(0x55).padTo(4).str().data(),
            Info(8, 1, 1).color(0, 0).color(1, 0xFFFFFF).get(), 0);
  SetTextColor(dc, 0x0000FF);
  SetBkColor(dc, 0x00FF00);
  for (const bool stretched : {false, true}) {
    EXPECT_TRUE(stretched ? StretchBlt(dc, 0, 1, 8, 1, memory.dc, 0, 0, 8, 1, SRCCOPY)
                          : BitBlt(dc, 0, 1, 8, 1, memory.dc, 0, 0, SRCCOPY));
    for (int x = 0; x < 8; x++) EXPECT_EQ(rgb(dc, x, 1), x % 2 ? 0x00FF00u : 0xFF0000u);
  }
  DeleteDC(fresh);
}

TEST_F(Blits, a_mask_is_set_where_the_source_shows_its_background) {
  HDC fresh = CreateCompatibleDC(nullptr);
  Memory memory(CreateCompatibleBitmap(fresh, 3, 1));
  HPEN pen = CreatePen(PS_SOLID, 1, 0xC0C0C0);
  const HGDIOBJ old = SelectObject(dc, pen);
  MoveToEx(dc, 1, 0, nullptr);
  LineTo(dc, 2, 0);
  EXPECT_TRUE(BitBlt(memory.dc, 0, 0, 3, 1, dc, 0, 0, SRCCOPY));
  EXPECT_EQ(rgb(memory.dc, 0, 0), 0xFFFFFFu);
  EXPECT_EQ(rgb(memory.dc, 1, 0), 0u);
  EXPECT_EQ(rgb(memory.dc, 2, 0), 0xFFFFFFu);
  SelectObject(dc, old);
  DeleteObject(pen);
  DeleteDC(fresh);
}

TEST_F(Blits, transfers_of_absurd_extents_do_no_harm) {
  Memory memory(CreateCompatibleBitmap(dc, 4, 4));
  const char bits[64] = {};
  for (const int n : {INT32_MIN, INT32_MAX, 0, -1}) {
    StretchBlt(dc, n, n, n, n, memory.dc, n, n, n, n, SRCCOPY);
    StretchBlt(dc, 0, 0, 5, 5, memory.dc, n, n, n, n, SRCAND);
    StretchDIBits(dc, n, n, n, n, n, n, n, n, bits, Info(4, 4, 32).get(), 0, SRCCOPY);
    StretchDIBits(dc, 0, 0, 5, 5, n, n, 4, 4, bits, Info(4, -4, 32).get(), 0, SRCCOPY);
  }
}

}  // namespace
