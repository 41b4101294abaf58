/** Image contexts of pn10platform.h over GDI. Pages are none of GDI's: hosts print to the printers of the system. */
#include "platform/windows/image_context.h"

#include <algorithm>
#include <cstdlib>

#include "exports/pn10platform.h"

using namespace pn10::windows;

namespace {

/** All that live: a host has one or two at a time. */
ImageContext* images = nullptr;

/** 0x00BBGGRR to 0x00RRGGBB and back. */
uint32_t exchanged(uint32_t color) { return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF); }

uint32_t* makePixels(ImageContext* image, int32_t width, int32_t height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  image->bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  return image->bitmap ? static_cast<uint32_t*>(pixels) : nullptr;
}

/** Ends what was made of an image, and the image. */
void release(ImageContext* image) {
  if (image->former) SelectObject(image->dc, image->former);
  if (image->bitmap) DeleteObject(image->bitmap);
  if (image->dc) DeleteDC(image->dc);
  std::free(image);
}

}  // namespace

const ImageContext* pn10::windows::imageContextOf(HDC dc) {
  const ImageContext* image = images;
  while (image && image->dc != dc) image = image->next;
  return dc ? image : nullptr;
}

HDC PnCreateImageDC(int32_t width, int32_t height, int32_t dpi, int32_t background) {
  if (width < 1 || height < 1 || dpi < 1 || int64_t{width} * height > INT32_MAX / 4) return nullptr;
  auto* image = static_cast<ImageContext*>(std::calloc(1, sizeof(ImageContext)));
  if (!image) return nullptr;
  uint32_t* pixels = makePixels(image, width, height);
  image->dc = pixels ? CreateCompatibleDC(nullptr) : nullptr;
  image->former = image->dc ? SelectObject(image->dc, image->bitmap) : nullptr;
  if (!image->former) {
    release(image);
    return nullptr;
  }
  std::fill_n(pixels, static_cast<size_t>(width) * static_cast<size_t>(height),
              exchanged(static_cast<uint32_t>(background)));
  image->pixels = pixels;
  image->width = width;
  image->height = height;
  image->dpi = dpi;
  image->next = images;
  images = image;
  return image->dc;
}

int32_t PnHasPageDC(void) { return 0; }
HDC PnCreatePdfDC(const char*, double, double, int32_t) { return nullptr; }
HDC PnCreateSvgDC(const char*, double, double, int32_t) { return nullptr; }

int32_t PnDeleteDC(HDC dc) {
  if (!imageContextOf(dc)) return 0;
  ImageContext** link = &images;
  while ((*link)->dc != dc) link = &(*link)->next;
  ImageContext* image = *link;
  *link = image->next;
  release(image);
  return 1;
}

int32_t PnSetAntialias(HDC, int16_t) { return 0; }

int32_t PnSavePng(HDC dc, const char* path) {
  const ImageContext* image = imageContextOf(dc);
  if (!image || !path) return 0;
  GdiFlush();
  return writePng(*image, path) ? 1 : 0;
}

int32_t PnGetPixel(HDC dc, int32_t x, int32_t y) {
  const ImageContext* image = imageContextOf(dc);
  // GDI answers CLR_INVALID, which is -1, outside and for what is no context.
  if (!image) return GetObjectType(dc) == OBJ_MEMDC ? static_cast<int32_t>(GetPixel(dc, x, y)) : -1;
  if (x < 0 || y < 0 || x >= image->width || y >= image->height) return -1;
  GdiFlush();
  return static_cast<int32_t>(exchanged(image->pixels[int64_t{y} * image->width + x]));
}
