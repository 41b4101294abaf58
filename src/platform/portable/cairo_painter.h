/** Painters on Cairo: PDF pages, and rasters with smooth lines. */
#ifndef PN10_PLATFORM_PORTABLE_CAIRO_PAINTER_H
#define PN10_PLATFORM_PORTABLE_CAIRO_PAINTER_H

#include "platform/portable/context.h"

namespace pn10::portable {

/** Smooth lines and shapes on a raster; text and block transfers as `sharp` paints them. Null without memory. */
Painter* newSmoothPainter(const Raster& raster, Painter* sharp);

/** A page of `width` x `height` device units of 1/dpi inch, painted from `origin`; null when it can't be made. */
FilePainter* newPdfPainter(const char* path, double width, double height, int32_t dpi, POINT origin);

}  // namespace pn10::portable

#endif
