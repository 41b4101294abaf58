/** Bitmaps of 1 to 32 bits: their memory, and reading and writing it as 32-bit pixels. */
#ifndef PN10_PLATFORM_PORTABLE_BITMAPS_H
#define PN10_PLATFORM_PORTABLE_BITMAPS_H

#include "platform/portable/objects.h"

namespace pn10::portable {

/** How a pixel lies in memory: bits per pixel, and its colours by palette (to 8 bits) or by masks (16, 32). */
struct PixelFormat {
  int32_t bits = 0;
  int32_t colors = 0;         /* entries of the palette that exist */
  uint32_t masks[3] = {};     /* red, green, blue of 16 and 32 bits */
  uint32_t palette[256] = {}; /* 0x00RRGGBB */
};

/** Rows of pixels in somebody's memory. */
struct PixelRows {
  const PixelFormat* format;
  uint8_t* bits;
  int32_t width, height;
  int64_t stride; /* bytes from one row in memory to the next */
  bool topDown;
  /** The row that shows as the y-th from the top. */
  uint8_t* row(int32_t y) const { return bits + stride * (topDown ? y : height - 1 - y); }
};

struct Bitmap : Object {
  static constexpr Kind kKind = Kind::Bitmap;
  PixelFormat format;
  int32_t width = 0, height = 0;
  bool topDown = false;
  bool section = false; /* a DIB section: its description and its bits are visible to the host */
  uint8_t* bits = nullptr;
  int64_t stride = 0;
  Context* holder = nullptr; /* the memory context that it is selected into; one at a time */

  PixelRows rows() const { return {&format, bits, width, height, stride, topDown}; }
  /** True when the pixels are 0x00RRGGBB as painters take them, so that they paint straight into the bits. */
  bool paintable() const;
};

/** Bytes of a row of a bitmap, a multiple of 4. */
inline int64_t rowBytes(int64_t width, int32_t bits) { return (width * bits + 31) / 32 * 4; }

constexpr DWORD kLongestHeader = 256; /* twice what any description of a bitmap has */

/** A description of pixels in memory, taken apart and checked; false when no pixels can be meant. */
struct DibLayout {
  PixelFormat format;
  int32_t width, height; /* positive */
  bool topDown;
  int64_t stride, size;
};
bool readDibHeader(const BITMAPINFO* info, DibLayout* layout);

/** `count` pixels of a row from column `x` as 0x00RRGGBB. */
void readPixels(const PixelFormat& format, const uint8_t* row, int32_t x, int32_t count, uint32_t* out);
/** The reverse; a palette gets its nearest entry. */
void writePixels(const PixelFormat& format, uint8_t* row, int32_t x, int32_t count, const uint32_t* in);

/** Sets the palette index of one pixel of a row, 1 to 8 bits. */
void putPaletteIndex(uint8_t* row, int bits, int64_t x, uint32_t index);

/** A new bitmap, blank; null when there is no memory. */
Bitmap* newBitmap(const PixelFormat& format, int32_t width, int32_t height, bool topDown);

/** The painting rows of a paintable bitmap. */
Raster rasterOf(const Bitmap& bitmap);

/** Pixels that a painter or a blit works on: the bitmap's own, or a 32-bit copy of them. */
class RasterView {
 public:
  /** `back`: at the end a copy is written back into the bitmap. */
  explicit RasterView(Bitmap* bitmap, bool back);
  ~RasterView();
  RasterView(const RasterView&) = delete;
  RasterView& operator=(const RasterView&) = delete;
  bool ok() const { return raster_.pixels != nullptr; }
  const Raster& raster() const { return raster_; }

 private:
  Bitmap* bitmap_;
  bool back_;
  Raster raster_;
  uint32_t* copy_ = nullptr;
};

PixelFormat trueColor();

}  // namespace pn10::portable

#endif
