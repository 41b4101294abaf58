/** Image contexts over GDI: a memory context with a DIB section selected, and what GDI does not keep of it. */
#ifndef PN10_PLATFORM_WINDOWS_IMAGE_CONTEXT_H
#define PN10_PLATFORM_WINDOWS_IMAGE_CONTEXT_H

#include "platform/gdi.h"

namespace pn10::windows {

struct ImageContext {
  HDC dc;
  HBITMAP bitmap;
  HGDIOBJ former;         /* the bitmap that the context was born with */
  const uint32_t* pixels; /* 0x00RRGGBB, rows from the top without gaps */
  int32_t width, height, dpi;
  ImageContext* next;
};

/** The image context of this handle; null for every other context. */
const ImageContext* imageContextOf(HDC dc);

/** Writes the pixels as a PNG file; false, and no file left, when that fails. */
bool writePng(const ImageContext& image, const char* path);

}  // namespace pn10::windows

#endif
