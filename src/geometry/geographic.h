/** What the geographic measures share with the scale and the symbols of the picture. */
#ifndef PN10_GEOMETRY_GEOGRAPHIC_H
#define PN10_GEOMETRY_GEOGRAPHIC_H

#include "exports/pn10gdi.h"

namespace pn10 {

constexpr double kEarthRadius = 6371009.0;               /* metres */
constexpr double kRadiansOfDegree = 0.01745329238474369; /* the single-precision value */

/** Feet in a metre, as the unit table has it. */
inline double feetPerMetre() {
  static const double factor = double{GetUnitFactor("Metres", 0.0f, "LUS")};
  return factor;
}

}  // namespace pn10

#endif
