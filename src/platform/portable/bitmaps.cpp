/** Bitmaps and memory contexts: making, selecting, and moving pixels in and out. */
#include "platform/portable/bitmaps.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/portable/context.h"

namespace pn10::portable {

Bitmap* newBitmap(const PixelFormat& format, int32_t width, int32_t height, bool topDown) {
  const int64_t stride = rowBytes(width, format.bits);
  if (width < 1 || height < 1 || stride > INT32_MAX / height) return nullptr;
  Bitmap* bitmap = new (std::nothrow) Bitmap{};
  if (!bitmap) return nullptr;
  bitmap->kind = Kind::Bitmap;
  bitmap->format = format;
  bitmap->width = width;
  bitmap->height = height;
  bitmap->topDown = topDown;
  bitmap->stride = stride;
  bitmap->bits = static_cast<uint8_t*>(std::calloc(static_cast<size_t>(stride * height), 1));
  if (bitmap->bits) return bitmap;
  delete bitmap;
  return nullptr;
}

void freeBitmap(Bitmap* bitmap) {
  std::free(bitmap->bits);
  delete bitmap;
}

HGDIOBJ selectBitmap(Context& context, Bitmap* bitmap) {
  if (bitmap->holder && bitmap->holder != &context) return nullptr;
  Painter* painter = nullptr;
  if (bitmap->paintable()) {
    painter = newRasterPainter(rasterOf(*bitmap));
    if (!painter) return nullptr;
  }
  Bitmap* const before = context.bitmap;
  const HGDIOBJ old = before->handle;
  retain(bitmap);
  delete context.painter;
  context.painter = painter;
  before->holder = nullptr;
  if (!bitmap->stock) bitmap->holder = &context;
  context.bitmap = bitmap;
  release(before);
  updateClip(context);
  return old;
}

Painter* beginOnCopy(Context&, RasterView& view) { return view.ok() ? newRasterPainter(view.raster()) : nullptr; }

int getBitmapObject(const Bitmap& bitmap, int size, void* data) {
  if (!data) return static_cast<int>(sizeof(BITMAP));
  if (size < static_cast<int>(sizeof(BITMAP))) return 0;
  DIBSECTION all{};
  all.dsBm.bmWidth = bitmap.width;
  all.dsBm.bmHeight = bitmap.height;
  all.dsBm.bmWidthBytes = static_cast<LONG>(rowBytes(bitmap.width, bitmap.format.bits));
  all.dsBm.bmPlanes = 1;
  all.dsBm.bmBitsPixel = static_cast<WORD>(bitmap.format.bits);
  all.dsBm.bmBits = bitmap.section ? bitmap.bits : nullptr;
  if (!bitmap.section || size < static_cast<int>(sizeof all)) {
    std::memcpy(data, &all.dsBm, sizeof all.dsBm);
    return static_cast<int>(sizeof all.dsBm);
  }
  BITMAPINFOHEADER& h = all.dsBmih;
  h.biSize = sizeof h;
  h.biWidth = bitmap.width;
  h.biHeight = bitmap.topDown ? -bitmap.height : bitmap.height;
  h.biPlanes = 1;
  h.biBitCount = static_cast<WORD>(bitmap.format.bits);
  h.biSizeImage = static_cast<DWORD>(bitmap.stride * bitmap.height);
  std::copy_n(bitmap.format.masks, 3, all.dsBitfields);
  std::memcpy(data, &all, sizeof all);
  return static_cast<int>(sizeof all);
}

namespace {

PixelFormat monochrome() {
  PixelFormat format;
  format.bits = 1;
  format.colors = 2;
  format.palette[1] = 0xFFFFFF;
  return format;
}

bool sameFormat(const PixelFormat& a, const PixelFormat& b) {
  return a.bits == b.bits && std::equal(a.masks, a.masks + 3, b.masks) && a.colors == b.colors &&
         std::equal(a.palette, a.palette + a.colors, b.palette);
}

/** The colours of a bitmap read out with a palette of its own: black and white, 16 or 256 mixed ones. */
void mixPalette(PixelFormat* format) {
  static constexpr uint32_t kSixteen[16] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                            0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                            0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  format->colors = 1 << format->bits;
  if (format->bits == 1) *format = monochrome();
  if (format->bits == 4) std::copy_n(kSixteen, 16, format->palette);
  if (format->bits != 8) return;
  for (uint32_t i = 0; i < 256; i++) {
    const uint32_t red = (i >> 5) * 255 / 7, green = (i >> 2 & 7) * 255 / 7, blue = (i & 3) * 255 / 3;
    format->palette[i] = red << 16 | green << 8 | blue;
  }
}

/** Writes the colour table that belongs to the rows given out, behind the header. */
void writeColors(const PixelFormat& format, BITMAPINFO* info) {
  uint8_t* behind = reinterpret_cast<uint8_t*>(info) + info->bmiHeader.biSize;
  if (info->bmiHeader.biCompression == BI_BITFIELDS) {
    std::memcpy(reinterpret_cast<uint8_t*>(info) + sizeof(BITMAPINFOHEADER), format.masks, sizeof format.masks);
  } else if (format.bits <= 8) {
    const size_t count = static_cast<size_t>(format.colors);
    std::memcpy(behind, format.palette, count * sizeof(RGBQUAD));
  }
}

/** The header alone, as GetDIBits answers a bit count of 0. */
int describeDib(const Bitmap& bitmap, BITMAPINFO* info) {
  BITMAPINFOHEADER& h = info->bmiHeader;
  const DWORD size = h.biSize;
  h = BITMAPINFOHEADER{};
  h.biSize = size;
  h.biWidth = bitmap.width;
  h.biHeight = bitmap.topDown && bitmap.section ? -bitmap.height : bitmap.height;
  h.biPlanes = 1;
  h.biBitCount = static_cast<WORD>(bitmap.format.bits);
  h.biCompression = bitmap.format.bits == 16 || bitmap.format.bits == 32 ? BI_BITFIELDS : BI_RGB;
  h.biSizeImage = static_cast<DWORD>(bitmap.stride * bitmap.height);
  return bitmap.height;
}

/** The form in which GetDIBits gives rows out; false for a header that means none. */
bool outputLayout(const Bitmap& bitmap, const BITMAPINFO* info, DibLayout* layout) {
  BITMAPINFO plain{}; /* no colours are read from the host: they are an answer here */
  plain.bmiHeader = info->bmiHeader;
  plain.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  const bool masks = plain.bmiHeader.biCompression == BI_BITFIELDS;
  if (masks && plain.bmiHeader.biBitCount != 16 && plain.bmiHeader.biBitCount != 32) return false;
  const WORD bits = plain.bmiHeader.biBitCount;
  if (masks) plain.bmiHeader.biCompression = BI_RGB;
  plain.bmiHeader.biClrUsed = 1;
  if (!readDibHeader(&plain, layout)) return false;
  if (bits == bitmap.format.bits && (bits <= 8 || masks)) {
    layout->format = bitmap.format;
  } else if (bits <= 8) {
    mixPalette(&layout->format);
  }
  return true;
}

}  // namespace
}  // namespace pn10::portable

using namespace pn10::portable;

HDC CreateCompatibleDC(HDC dc) {
  DeviceFacts facts;
  facts.width = 1024;
  facts.height = 768;
  if (dc) {
    const Context* like = contextOf(dc);
    if (!like) return nullptr;
    facts = like->facts;
  }
  Context* context = newContext(Device::Memory, facts);
  return context ? enterContext(context, "CreateCompatibleDC") : nullptr;
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
  const Context* context = contextOf(dc);
  if (!context || width < 0 || height < 0) return nullptr;
  const Bitmap* like = context->device == Device::Memory ? context->bitmap : nullptr;
  Bitmap* bitmap = nullptr;
  if (width == 0 || height == 0) {
    bitmap = newBitmap(monochrome(), 1, 1, false);
  } else if (like && like->section) {
    bitmap = newBitmap(like->format, width, height, like->topDown);
  } else {
    bitmap = newBitmap(like && like->format.bits == 1 ? monochrome() : trueColor(), width, height, true);
  }
  if (bitmap && like && like->section) bitmap->section = true;
  return static_cast<HBITMAP>(enter(bitmap, "CreateCompatibleBitmap"));
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD) {
  if (bits) *bits = nullptr;
  DibLayout layout;
  if (usage != DIB_RGB_COLORS || section || !readDibHeader(info, &layout)) return nullptr;
  Bitmap* bitmap = newBitmap(layout.format, layout.width, layout.height, layout.topDown);
  if (!bitmap) return nullptr;
  bitmap->section = true;
  const auto handle = static_cast<HBITMAP>(enter(bitmap, "CreateDIBSection"));
  if (handle && bits) *bits = bitmap->bits;
  return handle;
}

int SetDIBits(HDC, HBITMAP handle, UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage) {
  Bitmap* bitmap = find<Bitmap>(handle);
  DibLayout layout;
  if (!bitmap || bitmap->stock || !bits || usage != DIB_RGB_COLORS || !readDibHeader(info, &layout)) return 0;
  logOp("SetDIBits", describe(bitmap), start, lines,
        described("bitmap", layout.width, layout.height, layout.format.bits), usage);
  if (start >= static_cast<UINT>(layout.height)) return 0;
  const auto count = static_cast<int32_t>(std::min(lines, static_cast<UINT>(layout.height) - start));
  const int32_t width = std::min(layout.width, bitmap->width);
  uint32_t* line = static_cast<uint32_t*>(std::malloc(static_cast<size_t>(width) * sizeof(uint32_t)));
  if (!line) return 0;
  const PixelRows rows = bitmap->rows();
  const bool alike = sameFormat(layout.format, bitmap->format) && width == bitmap->width;
  for (int32_t i = 0; i < count; i++) {
    const int64_t at = int64_t{start} + i;
    const int64_t y = layout.topDown ? at : bitmap->height - 1 - at;
    if (y < 0 || y >= bitmap->height) continue;
    const uint8_t* source = static_cast<const uint8_t*>(bits) + layout.stride * i;
    uint8_t* row = rows.row(static_cast<int32_t>(y));
    if (alike) {
      std::memcpy(row, source, static_cast<size_t>(bitmap->stride));
      continue;
    }
    readPixels(layout.format, source, 0, width, line);
    writePixels(bitmap->format, row, 0, width, line);
  }
  std::free(line);
  return count;
}

int GetDIBits(HDC, HBITMAP handle, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
  const Bitmap* bitmap = find<Bitmap>(handle);
  if (!bitmap || !info || usage != DIB_RGB_COLORS) return 0;
  if (info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER) || info->bmiHeader.biSize > kLongestHeader) return 0;
  logOp("GetDIBits", describe(bitmap), start, lines, usage);
  if (info->bmiHeader.biBitCount == 0) return describeDib(*bitmap, info);
  DibLayout layout;
  if (!outputLayout(*bitmap, info, &layout)) return 0;
  info->bmiHeader.biSizeImage = static_cast<DWORD>(layout.size);
  writeColors(layout.format, info);
  if (!bits) return bitmap->height;
  if (!bitmap->bits || start >= static_cast<UINT>(layout.height)) return 0;
  const auto count = static_cast<int32_t>(std::min(lines, static_cast<UINT>(layout.height) - start));
  const int32_t width = std::min(layout.width, bitmap->width);
  uint32_t* line = static_cast<uint32_t*>(std::malloc(static_cast<size_t>(width) * sizeof(uint32_t)));
  if (!line) return 0;
  const PixelRows rows = bitmap->rows();
  for (int32_t i = 0; i < count; i++) {
    uint8_t* out = static_cast<uint8_t*>(bits) + layout.stride * i;
    std::memset(out, 0, static_cast<size_t>(layout.stride));
    const int64_t at = int64_t{start} + i;
    const int64_t y = layout.topDown ? at : bitmap->height - 1 - at;
    if (y < 0 || y >= bitmap->height) continue;
    readPixels(bitmap->format, rows.row(static_cast<int32_t>(y)), 0, width, line);
    writePixels(layout.format, out, 0, width, line);
  }
  std::free(line);
  return count;
}
