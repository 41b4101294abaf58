/** Bitmaps of 1 to 32 bits and memory contexts: making, selecting, bits in and out. */
#include "platform/dib_builder.h"

namespace {

using namespace pn10::test;

class Bitmaps : public SmallImage {};

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

}  // namespace
