/** Block transfers between contexts and from bitmaps in memory. */
#include <algorithm>
#include <cstdlib>

#include "platform/portable/context.h"

using namespace pn10::portable;

namespace {

/** The pixels of a source context while a transfer reads them. */
class SourcePixels {
 public:
  explicit SourcePixels(const Context& source) {
    if (source.device == Device::Image) {
      raster_ = source.raster;
    } else if (source.device == Device::Memory && source.bitmap->paintable()) {
      raster_ = rasterOf(*source.bitmap);
    } else if (source.device == Device::Memory && source.bitmap->bits) {
      copy(*source.bitmap);
    }
  }
  ~SourcePixels() { std::free(copy_); }
  SourcePixels(const SourcePixels&) = delete;
  SourcePixels& operator=(const SourcePixels&) = delete;

  const Raster& raster() const { return raster_; }

  /** Gives each pixel the colour that `change` makes of it, in a copy. */
  template <class Change>
  bool recolor(Change change) {
    if (!copy_ && !copyRaster()) return false;
    uint32_t* const end = copy_ + static_cast<size_t>(raster_.width) * static_cast<size_t>(raster_.height);
    for (uint32_t* p = copy_; p < end; p++) *p = change(*p & 0xFFFFFF);
    return true;
  }

 private:
  bool reserve(int32_t width, int32_t height) {
    copy_ =
        static_cast<uint32_t*>(std::calloc(static_cast<size_t>(width) * static_cast<size_t>(height), sizeof(uint32_t)));
    return copy_ != nullptr;
  }
  void copy(const Bitmap& bitmap) {
    if (!reserve(bitmap.width, bitmap.height)) return;
    const PixelRows rows = bitmap.rows();
    for (int32_t y = 0; y < bitmap.height; y++) {
      readPixels(bitmap.format, rows.row(y), 0, bitmap.width, copy_ + ptrdiff_t{y} * bitmap.width);
    }
    raster_ = {copy_, bitmap.width, bitmap.height, bitmap.width};
  }
  bool copyRaster() {
    const Raster from = raster_;
    if (!from.pixels || !reserve(from.width, from.height)) return false;
    for (int32_t y = 0; y < from.height; y++) {
      std::copy_n(from.pixels + y * from.stride, from.width, copy_ + ptrdiff_t{y} * from.width);
    }
    raster_ = {copy_, from.width, from.height, from.width};
    return true;
  }

  Raster raster_{};
  uint32_t* copy_ = nullptr;
};

/** A bitmap of two colours without colours of its own: its bits mean text and background of the other side. */
bool isMask(const Context& context) {
  return context.device == Device::Memory && context.bitmap->format.bits == 1 && !context.bitmap->section;
}

bool transfer(Context& context, HDC from, Blit blit) {
  const Context* source = contextOf(from);
  if (!source) return false;
  SourcePixels pixels(*source);
  if (!pixels.raster().pixels) return false;
  if (isMask(*source) && !isMask(context)) {
    const uint32_t zero = paintedColor(context.state.paint.textColor), one = paintedColor(context.state.paint.bkColor);
    if (!pixels.recolor([=](uint32_t p) { return p ? one : zero; })) return false;
  } else if (isMask(context) && !isMask(*source)) {
    const uint32_t ground = paintedColor(source->state.paint.bkColor);
    if (!pixels.recolor([=](uint32_t p) { return p == ground ? 0xFFFFFFu : 0u; })) return false;
  }
  blit.source = pixels.raster();
  withPainter(context, [&](Painter& p) { p.blit(context.state.paint, blit); });
  return true;
}

/** The part of a bitmap in memory that a transfer reads, as 32-bit pixels. */
class DibPixels {
 public:
  DibPixels(const DibLayout& layout, const void* bits, int64_t left, int64_t top, int64_t right, int64_t bottom)
      : left_(std::clamp<int64_t>(left, 0, layout.width)), top_(std::clamp<int64_t>(top, 0, layout.height)) {
    const int64_t width = std::clamp<int64_t>(right, left_, layout.width) - left_;
    const int64_t height = std::clamp<int64_t>(bottom, top_, layout.height) - top_;
    if (!width || !height) return;
    pixels_ = static_cast<uint32_t*>(std::malloc(static_cast<size_t>(width * height) * sizeof(uint32_t)));
    if (!pixels_) return;
    PixelFormat format = layout.format;
    const PixelRows rows{&format,       const_cast<uint8_t*>(static_cast<const uint8_t*>(bits)),
                         layout.width,  layout.height,
                         layout.stride, layout.topDown};
    for (int64_t y = 0; y < height; y++) {
      readPixels(format, rows.row(static_cast<int32_t>(top_ + y)), static_cast<int32_t>(left_),
                 static_cast<int32_t>(width), pixels_ + y * width);
    }
    width_ = static_cast<int32_t>(width);
    height_ = static_cast<int32_t>(height);
  }
  ~DibPixels() { std::free(pixels_); }
  DibPixels(const DibPixels&) = delete;
  DibPixels& operator=(const DibPixels&) = delete;

  Raster raster() const { return {pixels_, width_, height_, width_}; }
  int64_t left() const { return left_; }
  int64_t top() const { return top_; }

 private:
  int64_t left_, top_;
  uint32_t* pixels_ = nullptr;
  int32_t width_ = 0, height_ = 0;
};

bool fitsInt(int64_t value) { return value >= INT32_MIN && value <= INT32_MAX; }

}  // namespace

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("BitBlt", x, y, width, height, sourceX, sourceY, Style{rop});
  return transfer(*context, source, {{}, x, y, width, height, sourceX, sourceY, width, height, rop});
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD rop) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("StretchBlt", x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight, Style{rop});
  return transfer(*context, source, {{}, x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight, rop});
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop) {
  Context* context = contextOf(dc);
  DibLayout layout;
  if (!context || !bits || usage != DIB_RGB_COLORS || !readDibHeader(info, &layout)) return 0;
  if (recording()) {
    logOp("StretchDIBits", x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight,
          described("bitmap", layout.width, layout.height, layout.format.bits), usage, Style{rop});
  }
  /* Rows count from the lower left in a bitmap that stands on its head in memory. */
  const int64_t right = int64_t{sourceX} + sourceWidth, far = int64_t{sourceY} + sourceHeight;
  const int64_t fromTop = layout.topDown ? sourceY : layout.height - far;
  const int64_t toTop = layout.topDown ? far : layout.height - int64_t{sourceY};
  const DibPixels pixels(layout, bits, std::min<int64_t>(sourceX, right), std::min(fromTop, toTop),
                         std::max<int64_t>(sourceX, right) + 1, std::max(fromTop, toTop) + 1);
  const int64_t left = sourceX - pixels.left(), top = fromTop - pixels.top();
  if (!pixels.raster().pixels || !fitsInt(left) || !fitsInt(top)) return layout.height;
  const Blit blit{
      pixels.raster(), x,  y, width, height, static_cast<int32_t>(left), static_cast<int32_t>(top), sourceWidth,
      sourceHeight,    rop};
  withPainter(*context, [&](Painter& p) { p.blit(context->state.paint, blit); });
  return layout.height;
}
