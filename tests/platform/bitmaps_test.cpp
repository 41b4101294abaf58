/** Bitmaps of 1 to 32 bits, memory contexts, and block transfers between them. */
#include "platform/gdi.h"
#include "platform/user.h"
#include "support/support.h"

namespace {

using namespace pn10::test;

/** A header with room for the longest colour table. */
struct Info {
  BITMAPINFOHEADER head{};
  RGBQUAD colors[256] = {};

  Info(int width, int height, int bits, DWORD compression = BI_RGB) {
    head.biSize = sizeof head;
    head.biWidth = width;
    head.biHeight = height;
    head.biPlanes = 1;
    head.biBitCount = static_cast<WORD>(bits);
    head.biCompression = compression;
  }
  Info& color(size_t index, uint32_t rgb) {
    colors[index] = {static_cast<BYTE>(rgb), static_cast<BYTE>(rgb >> 8), static_cast<BYTE>(rgb >> 16), 0};
    return *this;
  }
  Info& masks(uint32_t red, uint32_t green, uint32_t blue) {
    const uint32_t all[] = {red, green, blue};
    std::memcpy(colors, all, sizeof all);
    return *this;
  }
  const BITMAPINFO* get() const { return reinterpret_cast<const BITMAPINFO*>(this); }
  BITMAPINFO* get() { return reinterpret_cast<BITMAPINFO*>(this); }
};

/** 0xRRGGBB of a pixel. */
uint32_t rgb(HDC dc, int x, int y) {
  const auto p = static_cast<uint32_t>(PnGetPixel(dc, x, y));
  return (p & 0xFF) << 16 | (p & 0xFF00) | (p >> 16 & 0xFF);
}

class Bitmaps : public testing::Test {
 protected:
  void SetUp() override {
    before = PnGetObjectCount();
    dc = PnCreateImageDC(20, 12, 96, 0xFFFFFF);
    SetStretchBltMode(dc, COLORONCOLOR);
  }
  void TearDown() override {
    PnDeleteDC(dc);
    EXPECT_EQ(PnGetObjectCount(), before);
  }
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
  int32_t before = 0;
  HDC dc = nullptr;
};

TEST_F(Bitmaps, every_depth_shows_its_colours) {
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

TEST_F(Bitmaps, raster_operations_combine_bit_by_bit) {
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

TEST_F(Bitmaps, rows_count_from_the_lower_left_unless_the_bitmap_is_top_down) {
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

/** A memory context that holds a bitmap of its own. */
struct Memory {
  explicit Memory(HBITMAP made) : dc(CreateCompatibleDC(nullptr)), bitmap(made), old(SelectObject(dc, made)) {}
  ~Memory() {
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
  }
  Memory(const Memory&) = delete;
  Memory& operator=(const Memory&) = delete;
  HDC dc;
  HBITMAP bitmap;
  HGDIOBJ old;
};

TEST_F(Bitmaps, sections_share_their_bits_with_the_host) {
  for (const int height : {4, -4}) {
    void* bits = nullptr;
    Memory memory(CreateDIBSection(nullptr, Info(3, height, 32).get(), DIB_RGB_COLORS, &bits, nullptr, 0));
    ASSERT_NE(bits, nullptr);
    auto* pixels = static_cast<uint32_t*>(bits);
    pixels[0] = 0x123456; /* the first row in memory is the lowest when the bitmap stands on its head */
    EXPECT_EQ(rgb(memory.dc, 0, height > 0 ? 3 : 0), 0x123456u);
    HPEN pen = CreatePen(PS_SOLID, 1, 0x0000FF);
    const HGDIOBJ old = SelectObject(memory.dc, pen);
    MoveToEx(memory.dc, 0, 1, nullptr);
    LineTo(memory.dc, 2, 1);
    EXPECT_EQ(pixels[height > 0 ? 6 : 3], 0xFF0000u);
    SelectObject(memory.dc, old);
    DeleteObject(pen);
  }
}

TEST_F(Bitmaps, painting_reaches_bitmaps_of_every_depth) {
  for (const int bits : {1, 4, 8, 16, 24, 32}) {
    Info info(9, 5, bits);
    info.color(0, 0xFFFFFF).color(1, 0xFF0000);
    info.head.biClrUsed = 2;
    void* memoryBits = nullptr;
    Memory memory(CreateDIBSection(nullptr, info.get(), DIB_RGB_COLORS, &memoryBits, nullptr, 0));
    HPEN pen = CreatePen(PS_SOLID, 1, 0x0000FF);
    const HGDIOBJ old = SelectObject(memory.dc, pen);
    MoveToEx(memory.dc, 1, 2, nullptr);
    LineTo(memory.dc, 8, 2);
    EXPECT_EQ(rgb(memory.dc, 1, 2), 0xFF0000u) << bits;
    EXPECT_EQ(rgb(memory.dc, 7, 2), 0xFF0000u) << bits;
    EXPECT_EQ(rgb(memory.dc, 8, 2), bits <= 8 ? 0xFFFFFFu : 0u) << bits;
    SelectObject(memory.dc, old);
    DeleteObject(pen);
  }
}

TEST_F(Bitmaps, compatible_bitmaps_take_after_their_context) {
  HDC fresh = CreateCompatibleDC(nullptr);
  BITMAP record{};
  HBITMAP mono = CreateCompatibleBitmap(fresh, 10, 10);
  EXPECT_EQ(GetObjectA(mono, sizeof record, &record), static_cast<int>(sizeof record));
  EXPECT_EQ(record.bmBitsPixel, 1);
  EXPECT_EQ(record.bmPlanes, 1);
  HBITMAP color = CreateCompatibleBitmap(dc, 10, 10);
  GetObjectA(color, sizeof record, &record);
  EXPECT_EQ(record.bmBitsPixel, 32);
  EXPECT_EQ(record.bmBits, nullptr);
  {
    Memory memory(CreateDIBSection(nullptr, Info(20, 20, 32).get(), 0, nullptr, nullptr, 0));
    HBITMAP like = CreateCompatibleBitmap(memory.dc, 10, 10);
    GetObjectA(like, sizeof record, &record);
    EXPECT_EQ(record.bmBitsPixel, 32);
    EXPECT_NE(record.bmBits, nullptr);
    DeleteObject(like);
  }
  EXPECT_EQ(CreateCompatibleBitmap(dc, -1, 5), nullptr);
  EXPECT_EQ(CreateCompatibleBitmap(dc, INT32_MAX, INT32_MAX), nullptr);
  EXPECT_EQ(CreateCompatibleBitmap(nullptr, 5, 5), nullptr);
  HBITMAP dot = CreateCompatibleBitmap(dc, 0, 5);
  GetObjectA(dot, sizeof record, &record);
  EXPECT_EQ(record.bmWidth * record.bmHeight * record.bmBitsPixel, 1);
  for (HBITMAP bitmap : {mono, color, dot}) DeleteObject(bitmap);
  DeleteDC(fresh);
}

TEST_F(Bitmaps, a_section_answers_its_whole_description) {
  HBITMAP section = CreateDIBSection(nullptr, Info(20, 20, 32).get(), 0, nullptr, nullptr, 0);
  DIBSECTION all{};
  EXPECT_EQ(GetObjectA(section, sizeof all, &all), sizeof(void*) == 8 ? 104 : 84);
  EXPECT_EQ(all.dsBmih.biHeight, 20);
  EXPECT_EQ(all.dsBmih.biSizeImage, 1600u);
  BITMAP record{};
  EXPECT_EQ(GetObjectA(section, sizeof record, &record), sizeof(void*) == 8 ? 32 : 24);
  EXPECT_EQ(GetObjectA(section, 5, &record), 0);
  DeleteObject(section);
}

TEST_F(Bitmaps, bits_can_be_asked_for_by_header_first) {
  HBITMAP section = CreateDIBSection(nullptr, Info(20, 20, 32).get(), 0, nullptr, nullptr, 0);
  Info info(0, 0, 0);
  EXPECT_EQ(GetDIBits(dc, section, 0, 0, nullptr, info.get(), 0), 20);
  EXPECT_EQ(info.head.biWidth, 20);
  EXPECT_EQ(info.head.biHeight, 20);
  EXPECT_EQ(info.head.biBitCount, 32);
  EXPECT_EQ(info.head.biCompression, BI_BITFIELDS);
  EXPECT_EQ(info.head.biSizeImage, 1600u);
  std::vector<uint32_t> bits(400, 7);
  EXPECT_EQ(GetDIBits(dc, section, 0, 20, bits.data(), info.get(), 0), 20);
  EXPECT_EQ(bits[399], 0u);
  DeleteObject(section);
}

TEST_F(Bitmaps, bits_go_in_and_come_out_in_any_depth) {
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 2, 2);
  const Bytes bits = Bytes().i32(0x112233).i32(0x445566).i32(0x778899).i32(0xAABBCC);
  EXPECT_EQ(SetDIBits(dc, bitmap, 0, 2, bits.str().data(), Info(2, 2, 32).get(), 0), 2);
  Info as24(2, 2, 24);
  std::string out(16, 'x');
  EXPECT_EQ(GetDIBits(dc, bitmap, 0, 2, out.data(), as24.get(), 0), 2);
  EXPECT_EQ(out, Bytes()
                     .i8(0x33)
                     .i8(0x22)
                     .i8(0x11)
                     .i8(0x66)
                     .i8(0x55)
                     .i8(0x44)
                     .i16(0)
                     .i8(0x99)
                     .i8(0x88)
                     .i8(0x77)
                     .i8(0xCC)
                     .i8(0xBB)
                     .i8(0xAA)
                     .i16(0)
                     .str());
  EXPECT_EQ(as24.head.biSizeImage, 16u);
  Info topDown(2, -2, 32);
  std::string second(8, 'x');
  EXPECT_EQ(GetDIBits(dc, bitmap, 1, 9, second.data(), topDown.get(), 0), 1);
  EXPECT_EQ(second, Bytes().i32(0x112233).i32(0x445566).str());
  DeleteObject(bitmap);
}

TEST_F(Bitmaps, palettes_come_out_with_the_bits) {
  Info info = Info(2, 1, 8).color(0, 0x332211).color(1, 0x506070);
  HBITMAP section = CreateDIBSection(nullptr, info.get(), 0, nullptr, nullptr, 0);
  EXPECT_EQ(SetDIBits(dc, section, 0, 1, Bytes().i8(1).i8(0).padTo(4).str().data(), info.get(), 0), 1);
  Info out(2, 1, 8);
  std::string bits(4, 'x');
  EXPECT_EQ(GetDIBits(dc, section, 0, 1, bits.data(), out.get(), 0), 1);
  EXPECT_EQ(bits, Bytes().i8(1).i8(0).padTo(4).str());
  EXPECT_EQ(std::memcmp(out.colors, info.colors, 8), 0);
  DeleteObject(section);
}

TEST_F(Bitmaps, bad_headers_are_refused) {
  std::vector<Info> bad;
  for (const int bits : {0, 2, 3, 5, 15, 33, 64, -1}) bad.emplace_back(2, 2, bits);
  for (const int side : {0, -2, INT32_MIN}) bad.emplace_back(side, 2, 32);
  for (const int side : {0, INT32_MIN, INT32_MAX}) bad.emplace_back(2, side, 32);
  bad.emplace_back(INT32_MAX, INT32_MAX, 32);
  bad.emplace_back(2, 2, 8, BI_RLE8);
  bad.emplace_back(2, 2, 8, BI_BITFIELDS);
  bad.emplace_back(2, 2, 32, 77u);
  bad.push_back(Info(2, 2, 16, BI_BITFIELDS).masks(0xF800F, 0, 0));
  bad.push_back(Info(2, 2, 32, BI_BITFIELDS).masks(0xF0F, 0xF0, 0xF000));
  Info small(2, 2, 32), huge(2, 2, 32), planes(2, 2, 32);
  small.head.biSize = 12;
  huge.head.biSize = 0xFFFFFFFF;
  planes.head.biPlanes = 3;
  for (const Info& more : {small, huge, planes}) bad.push_back(more);
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 2, 2);
  const char bits[64] = {};
  for (const Info& info : bad) {
    void* made = bitmap;
    EXPECT_EQ(CreateDIBSection(dc, info.get(), 0, &made, nullptr, 0), nullptr);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(StretchDIBits(dc, 0, 0, 2, 2, 0, 0, 2, 2, bits, info.get(), 0, SRCCOPY), 0);
    EXPECT_EQ(SetDIBits(dc, bitmap, 0, 2, bits, info.get(), 0), 0);
  }
  EXPECT_EQ(CreateDIBSection(dc, nullptr, 0, nullptr, nullptr, 0), nullptr);
  EXPECT_EQ(CreateDIBSection(dc, Info(2, 2, 32).get(), 1, nullptr, nullptr, 0), nullptr);
  EXPECT_EQ(GetDIBits(dc, bitmap, 0, 2, nullptr, nullptr, 0), 0);
  EXPECT_EQ(SetDIBits(dc, nullptr, 0, 2, bits, Info(2, 2, 32).get(), 0), 0);
  EXPECT_EQ(SetDIBits(dc, bitmap, 2, 2, bits, Info(2, 2, 32).get(), 0), 0);
  DeleteObject(bitmap);
}

TEST_F(Bitmaps, blits_copy_stretch_and_mirror) {
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

TEST_F(Bitmaps, overlapping_copies_read_before_they_write) {
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

TEST_F(Bitmaps, a_mask_takes_text_and_background_colours) {
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

TEST_F(Bitmaps, a_mask_is_set_where_the_source_shows_its_background) {
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

TEST_F(Bitmaps, a_deleted_bitmap_stays_usable_while_it_is_selected) {
  HDC memory = CreateCompatibleDC(dc);
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 4, 4);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  EXPECT_TRUE(DeleteObject(bitmap));
  LineTo(memory, 4, 0);
  EXPECT_TRUE(BitBlt(dc, 0, 0, 4, 4, memory, 0, 0, SRCCOPY));
  EXPECT_EQ(rgb(dc, 3, 3), 0u);
  BITMAP record{};
  EXPECT_GT(GetObjectA(bitmap, sizeof record, &record), 0);
  EXPECT_EQ(SelectObject(memory, old), bitmap);
  EXPECT_FALSE(DeleteObject(bitmap));
  DeleteDC(memory);
}

TEST_F(Bitmaps, a_bitmap_is_selected_into_one_memory_context_at_a_time) {
  HBITMAP bitmap = CreateCompatibleBitmap(dc, 4, 4);
  HDC first = CreateCompatibleDC(dc), second = CreateCompatibleDC(dc);
  const HGDIOBJ old = SelectObject(first, bitmap);
  EXPECT_NE(old, nullptr);
  EXPECT_EQ(SelectObject(second, bitmap), nullptr);
  EXPECT_EQ(SelectObject(dc, bitmap), nullptr);
  EXPECT_EQ(SelectObject(first, old), bitmap);
  EXPECT_EQ(SelectObject(second, bitmap), old);
  DeleteDC(first);
  DeleteDC(second);
  EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(Bitmaps, transfers_of_absurd_extents_do_no_harm) {
  Memory memory(CreateCompatibleBitmap(dc, 4, 4));
  const char bits[64] = {};
  for (const int n : {INT32_MIN, INT32_MAX, 0, -1}) {
    StretchBlt(dc, n, n, n, n, memory.dc, n, n, n, n, SRCCOPY);
    StretchBlt(dc, 0, 0, 5, 5, memory.dc, n, n, n, n, SRCAND);
    StretchDIBits(dc, n, n, n, n, n, n, n, n, bits, Info(4, 4, 32).get(), 0, SRCCOPY);
    StretchDIBits(dc, 0, 0, 5, 5, n, n, 4, 4, bits, Info(4, -4, 32).get(), 0, SRCCOPY);
  }
}

TEST_F(Bitmaps, files_load_when_they_are_whole) {
  TempDir dir;
  const Bytes file = Bytes()
                         .add("BM")
                         .i32(70)
                         .i32(0)
                         .i32(54)
                         .i32(40)
                         .i32(2)
                         .i32(2)
                         .i16(1)
                         .i16(24)
                         .i32(0)
                         .i32(16)
                         .i32(0)
                         .i32(0)
                         .i32(0)
                         .i32(0)
                         .i8(1)
                         .i8(2)
                         .i8(3)
                         .i8(4)
                         .i8(5)
                         .i8(6)
                         .i16(0)
                         .padTo(70);
  const auto load = [&](std::string_view bytes) {
    dir.write("a.bmp", bytes);
    return static_cast<HBITMAP>(LoadImageA(nullptr, dir.path("a.bmp").c_str(), IMAGE_BITMAP, 0, 0, 0x2050));
  };
  HBITMAP loaded = load(file.str());
  ASSERT_NE(loaded, nullptr);
  BITMAP record{};
  GetObjectA(loaded, sizeof record, &record);
  EXPECT_EQ(record.bmWidth, 2);
  EXPECT_EQ(record.bmBitsPixel, 24);
  {
    Memory memory(loaded);
    EXPECT_EQ(rgb(memory.dc, 0, 1), 0x030201u);
    EXPECT_EQ(rgb(memory.dc, 1, 1), 0x060504u);
  }
  for (size_t n = 0; n < 70; n++) EXPECT_EQ(load(file.str().substr(0, n)), nullptr) << n;
  EXPECT_EQ(load("BM" + std::string(4000, '\xFF')), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("none.bmp").c_str(), IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("").c_str(), IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, nullptr, IMAGE_BITMAP, 0, 0, 0x2050), nullptr);
  EXPECT_EQ(LoadImageA(nullptr, dir.path("a.bmp").c_str(), 1, 0, 0, 0x2050), nullptr);
}

}  // namespace
