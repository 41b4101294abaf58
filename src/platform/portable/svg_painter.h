/** SVG pages, written as text. */
#ifndef PN10_PLATFORM_PORTABLE_SVG_PAINTER_H
#define PN10_PLATFORM_PORTABLE_SVG_PAINTER_H

#include "platform/portable/context.h"

namespace pn10::portable {

/** A page of `width` x `height` device units of 1/dpi inch, painted from `origin`; null when it can't be made. */
FilePainter* newSvgPainter(const char* path, double width, double height, int32_t dpi, POINT origin);

}  // namespace pn10::portable

#endif
