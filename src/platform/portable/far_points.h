/** Figures that leave the coordinates which the libraries of pages can hold: their parts inside, on the same slopes. */
#ifndef PN10_PLATFORM_PORTABLE_FAR_POINTS_H
#define PN10_PLATFORM_PORTABLE_FAR_POINTS_H

#include "platform/portable/painter.h"

namespace pn10::portable {

constexpr double kFarthest = 4000000; /* beyond it the libraries' own coordinates run over */

bool anyFar(const POINT* points, int32_t count);

/** The sides of a chain; those that meet inside stay one figure. */
Path sidesInside(const POINT* points, int32_t count, bool closed);

/** A polygon's area, as one closed figure or none. */
Path areaInside(const POINT* points, int32_t count);

}  // namespace pn10::portable

#endif
