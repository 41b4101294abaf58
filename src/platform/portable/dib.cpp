/** Pixel formats of 1 to 32 bits: reading a bitmap's header, and rows of pixels from and to 0x00RRGGBB. */
#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

#include "platform/portable/bitmaps.h"

namespace pn10::portable {

namespace {

constexpr size_t kHeaderSize = sizeof(BITMAPINFOHEADER);

/** Where a colour channel lies in a pixel. */
struct Channel {
  uint32_t mask;
  int shift, width;

  explicit Channel(uint32_t m) : mask(m), shift(m ? std::countr_zero(m) : 0), width(std::popcount(m)) {}

  /** The channel widened to 8 bits, its upper bits repeated below. */
  uint32_t read(uint32_t pixel) const {
    if (!mask) return 0;
    const uint32_t value = (pixel & mask) >> shift;
    if (width >= 8) return value >> (width - 8);
    uint32_t wide = value << (8 - width);
    for (int filled = width; filled < 8; filled *= 2) wide |= wide >> filled;
    return wide;
  }
  uint32_t write(uint32_t value) const {
    const uint32_t placed = width >= 8 ? value << (width - 8) : value >> (8 - width);
    return placed << shift & mask;
  }
};

uint32_t loadWord(const uint8_t* at, int bytes) {
  uint32_t value = 0;
  for (int i = 0; i < bytes; i++) value |= uint32_t{at[i]} << (8 * i);
  return value;
}

void storeWord(uint8_t* at, int bytes, uint32_t value) {
  for (int i = 0; i < bytes; i++) at[i] = static_cast<uint8_t>(value >> (8 * i));
}

bool isTrueColor(const PixelFormat& f) {
  return f.bits == 32 && f.masks[0] == 0xFF0000 && f.masks[1] == 0xFF00 && f.masks[2] == 0xFF;
}

uint32_t paletteIndex(const uint8_t* row, int bits, int64_t x) {
  const int64_t bit = x * bits;
  return uint32_t{row[bit / 8]} >> (8 - bits - bit % 8) & ((1u << bits) - 1);
}

uint32_t distance(uint32_t a, uint32_t b) {
  uint32_t sum = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const int d = static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255);
    sum += static_cast<uint32_t>(d * d);
  }
  return sum;
}

uint32_t nearestEntry(const PixelFormat& format, uint32_t color) {
  uint32_t best = 0, bestDistance = UINT32_MAX;
  for (int32_t i = 0; i < format.colors; i++) {
    const uint32_t d = distance(format.palette[i], color);
    if (d >= bestDistance) continue;
    best = static_cast<uint32_t>(i);
    bestDistance = d;
    if (!d) break;
  }
  return best;
}

bool maskFits(uint32_t mask, int bits) {
  if (bits == 16 && mask > 0xFFFF) return false;
  if (!mask) return true;
  const uint32_t ones = mask >> std::countr_zero(mask);
  return (ones & (ones + 1)) == 0;
}

bool readMasks(const BITMAPINFO* info, PixelFormat* format) {
  const BITMAPINFOHEADER& h = info->bmiHeader;
  if (h.biCompression == BI_RGB) {
    const uint32_t rgb555[] = {0x7C00, 0x3E0, 0x1F}, rgb888[] = {0xFF0000, 0xFF00, 0xFF};
    std::copy_n(format->bits == 16 ? rgb555 : rgb888, 3, format->masks);
    return true;
  }
  if (format->bits != 16 && format->bits != 32) return false;
  std::memcpy(format->masks, reinterpret_cast<const uint8_t*>(info) + kHeaderSize, sizeof format->masks);
  return std::all_of(format->masks, format->masks + 3, [&](uint32_t m) { return maskFits(m, format->bits); });
}

void readPalette(const BITMAPINFO* info, PixelFormat* format) {
  const BITMAPINFOHEADER& h = info->bmiHeader;
  const DWORD most = DWORD{1} << format->bits;
  format->colors = static_cast<int32_t>(h.biClrUsed ? std::min(h.biClrUsed, most) : most);
  const uint8_t* entry = reinterpret_cast<const uint8_t*>(info) + h.biSize;
  for (int32_t i = 0; i < format->colors; i++, entry += 4) format->palette[i] = loadWord(entry, 3);
}

}  // namespace

void putPaletteIndex(uint8_t* row, int bits, int64_t x, uint32_t index) {
  const int64_t bit = x * bits;
  const auto shift = static_cast<int>(8 - bits - bit % 8);
  const uint32_t keep = ~(((1u << bits) - 1) << shift);
  row[bit / 8] = static_cast<uint8_t>((row[bit / 8] & keep) | index << shift);
}

PixelFormat trueColor() {
  PixelFormat format;
  format.bits = 32;
  format.masks[0] = 0xFF0000;
  format.masks[1] = 0xFF00;
  format.masks[2] = 0xFF;
  return format;
}

bool readDibHeader(const BITMAPINFO* info, DibLayout* layout) {
  if (!info) return false;
  const BITMAPINFOHEADER& h = info->bmiHeader;
  const bool bitsKnown = h.biBitCount == 1 || h.biBitCount == 4 || h.biBitCount == 8 || h.biBitCount == 16 ||
                         h.biBitCount == 24 || h.biBitCount == 32;
  if (h.biSize < kHeaderSize || h.biSize > kLongestHeader || h.biPlanes != 1 || !bitsKnown) return false;
  if (h.biCompression != BI_RGB && h.biCompression != BI_BITFIELDS) return false;
  if (h.biWidth < 1 || h.biHeight == 0 || h.biHeight == INT32_MIN) return false;
  layout->format = PixelFormat{};
  layout->format.bits = h.biBitCount;
  layout->width = h.biWidth;
  layout->topDown = h.biHeight < 0;
  layout->height = std::abs(h.biHeight);
  layout->stride = rowBytes(h.biWidth, h.biBitCount);
  if (layout->stride > INT32_MAX / layout->height) return false;
  layout->size = layout->stride * layout->height;
  if (!readMasks(info, &layout->format)) return false;
  if (h.biBitCount <= 8) readPalette(info, &layout->format);
  return true;
}

void readPixels(const PixelFormat& format, const uint8_t* row, int32_t x, int32_t count, uint32_t* out) {
  if (format.bits <= 8) {
    for (int32_t i = 0; i < count; i++) out[i] = format.palette[paletteIndex(row, format.bits, int64_t{x} + i)];
    return;
  }
  const int bytes = format.bits / 8;
  const uint8_t* at = row + int64_t{x} * bytes;
  if (format.bits == 24 || isTrueColor(format)) {
    for (int32_t i = 0; i < count; i++, at += bytes) out[i] = loadWord(at, 3);
    return;
  }
  const Channel red(format.masks[0]), green(format.masks[1]), blue(format.masks[2]);
  for (int32_t i = 0; i < count; i++, at += bytes) {
    const uint32_t pixel = loadWord(at, bytes);
    out[i] = red.read(pixel) << 16 | green.read(pixel) << 8 | blue.read(pixel);
  }
}

void writePixels(const PixelFormat& format, uint8_t* row, int32_t x, int32_t count, const uint32_t* in) {
  if (format.bits <= 8) {
    uint32_t color = ~0u, index = 0; /* neighbours are often alike */
    for (int32_t i = 0; i < count; i++) {
      if ((in[i] & 0xFFFFFF) != color) {
        color = in[i] & 0xFFFFFF;
        index = nearestEntry(format, color);
      }
      putPaletteIndex(row, format.bits, int64_t{x} + i, index);
    }
    return;
  }
  const int bytes = format.bits / 8;
  uint8_t* at = row + int64_t{x} * bytes;
  if (format.bits == 24 || isTrueColor(format)) {
    for (int32_t i = 0; i < count; i++, at += bytes) storeWord(at, bytes, in[i] & 0xFFFFFF);
    return;
  }
  const Channel red(format.masks[0]), green(format.masks[1]), blue(format.masks[2]);
  for (int32_t i = 0; i < count; i++, at += bytes) {
    storeWord(at, bytes, red.write(in[i] >> 16 & 255) | green.write(in[i] >> 8 & 255) | blue.write(in[i] & 255));
  }
}

bool Bitmap::paintable() const { return bits && isTrueColor(format); }

Raster rasterOf(const Bitmap& bitmap) {
  const PixelRows rows = bitmap.rows();
  const ptrdiff_t stride = static_cast<ptrdiff_t>(bitmap.stride / 4);
  return {reinterpret_cast<uint32_t*>(rows.row(0)), bitmap.width, bitmap.height, bitmap.topDown ? stride : -stride};
}

RasterView::RasterView(Bitmap* bitmap, bool back) : bitmap_(bitmap), back_(back) {
  if (bitmap->paintable()) {
    raster_ = rasterOf(*bitmap);
    return;
  }
  if (!bitmap->bits) return;
  const auto width = static_cast<size_t>(bitmap->width), height = static_cast<size_t>(bitmap->height);
  copy_ = static_cast<uint32_t*>(std::calloc(width * height, sizeof(uint32_t)));
  if (!copy_) return;
  const PixelRows rows = bitmap->rows();
  for (int32_t y = 0; y < bitmap->height; y++) {
    readPixels(bitmap->format, rows.row(y), 0, bitmap->width, copy_ + static_cast<size_t>(y) * width);
  }
  raster_ = {copy_, bitmap->width, bitmap->height, bitmap->width};
}

RasterView::~RasterView() {
  if (copy_ && back_) {
    const PixelRows rows = bitmap_->rows();
    const auto width = static_cast<size_t>(bitmap_->width);
    for (int32_t y = 0; y < bitmap_->height; y++) {
      writePixels(bitmap_->format, rows.row(y), 0, bitmap_->width, copy_ + static_cast<size_t>(y) * width);
    }
  }
  std::free(copy_);
}

}  // namespace pn10::portable
