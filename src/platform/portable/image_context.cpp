/** Image contexts: a 32-bit raster in memory, read back by pixel or as a PNG file. */
#include <png.h>

#include <algorithm>
#include <cstdlib>

#include "exports/pn10platform.h"
#include "platform/portable/cairo_painter.h"
#include "platform/portable/context.h"

using namespace pn10::portable;

namespace {

/** 0x00BBGGRR to 0x00RRGGBB and back. */
uint32_t exchanged(uint32_t color) { return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF); }

uint32_t* newPixels(int32_t width, int32_t height, uint32_t color) {
  if (width < 1 || height < 1 || int64_t{width} * height > INT32_MAX / 4) return nullptr;
  const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
  auto* pixels = static_cast<uint32_t*>(std::malloc(count * sizeof(uint32_t)));
  if (pixels) std::fill_n(pixels, count, color);
  return pixels;
}

}  // namespace

HDC PnCreateImageDC(int32_t width, int32_t height, int32_t dpi, int32_t background) {
  if (dpi < 1) return nullptr;
  uint32_t* pixels = newPixels(width, height, exchanged(static_cast<uint32_t>(background)));
  if (!pixels) return nullptr;
  DeviceFacts facts;
  facts.width = width;
  facts.height = height;
  facts.dpi = dpi;
  Context* context = newContext(Device::Image, facts);
  if (!context) {
    std::free(pixels);
    return nullptr;
  }
  context->raster = {pixels, width, height, width};
  context->sharp = context->painter = newRasterPainter(context->raster);
  if (context->sharp) return enterContext(context);
  freeContext(context);
  return nullptr;
}

int32_t PnSetAntialias(HDC dc, int16_t on) {
  Context* context = contextOf(dc);
  if (!context || context->device != Device::Image) return 0;
  if (on && !context->smooth) context->smooth = newSmoothPainter(context->raster, context->sharp);
  if (on && !context->smooth) return 0;
  context->painter = on ? context->smooth : context->sharp;
  return 1;
}

int32_t PnGetPixel(HDC dc, int32_t x, int32_t y) {
  const Context* context = contextOf(dc);
  if (!context || x < 0 || y < 0) return -1;
  uint32_t pixel = 0;
  if (context->device == Device::Image) {
    const Raster& r = context->raster;
    if (x >= r.width || y >= r.height) return -1;
    pixel = r.pixels[y * r.stride + x];
  } else if (context->device == Device::Memory && context->bitmap->bits) {
    const Bitmap& bitmap = *context->bitmap;
    if (x >= bitmap.width || y >= bitmap.height) return -1;
    readPixels(bitmap.format, bitmap.rows().row(y), x, 1, &pixel);
  } else {
    return -1;
  }
  return static_cast<int32_t>(exchanged(pixel));
}

int32_t PnSavePng(HDC dc, const char* path) {
  const Context* context = contextOf(dc);
  if (!context || !path || context->device != Device::Image) return 0;
  const Raster& r = context->raster;
  const size_t width = static_cast<size_t>(r.width), height = static_cast<size_t>(r.height);
  auto* bytes = static_cast<uint8_t*>(std::malloc(width * height * 3));
  if (!bytes) return 0;
  uint8_t* out = bytes;
  for (const uint32_t *p = r.pixels, *end = p + width * height; p < end; p++) {
    *out++ = static_cast<uint8_t>(*p >> 16);
    *out++ = static_cast<uint8_t>(*p >> 8);
    *out++ = static_cast<uint8_t>(*p);
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(r.width);
  image.height = static_cast<png_uint_32>(r.height);
  image.format = PNG_FORMAT_RGB;
  const int written = png_image_write_to_file(&image, path, 0, bytes, 0, nullptr);
  std::free(bytes);
  return written ? 1 : 0;
}
