/** Headers of bitmaps in memory, contexts that hold one, and an image to transfer them to. */
#ifndef PN10_TESTS_DIB_BUILDER_H
#define PN10_TESTS_DIB_BUILDER_H

#include "platform/gdi.h"
#include "support/support.h"

namespace pn10::test {

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
inline uint32_t rgb(HDC dc, int x, int y) {
  const auto p = static_cast<uint32_t>(PnGetPixel(dc, x, y));
  return (p & 0xFF) << 16 | (p & 0xFF00) | (p >> 16 & 0xFF);
}

/** A small white image that takes colours as they are; whatever a test makes besides, it deletes. */
class SmallImage : public testing::Test {
 protected:
  void SetUp() override {
    before_ = PnGetObjectCount();
    dc = PnCreateImageDC(20, 12, 96, 0xFFFFFF);
    SetStretchBltMode(dc, COLORONCOLOR);
  }
  void TearDown() override {
    PnDeleteDC(dc);
    EXPECT_EQ(PnGetObjectCount(), before_);
  }
  HDC dc = nullptr;

 private:
  int32_t before_ = 0;
};

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

}  // namespace pn10::test

#endif
