/** Points and directions in the isometric view. */
#include "geometry/isometric.h"

#include <cstddef>

#include "exports/pn10gdi.h"
#include "model/convert.h"

using namespace pn10;

namespace {

/** One quadrant of the bending rule: angles above `above` and up to `top` run from `base` with slope `slope`. */
struct Bend {
  double top, above, slope, base;
};

constexpr Bend kTenths[] = {
    {900, 0, 0.66666667, 3300},
    {1800, 900, 1.33333333, 300},
    {2700, 1800, 0.66666667, 1500},
};
constexpr Bend kTenthsRest = {0, 2700, 1.33333333, 2100};

constexpr Bend kRadians[] = {
    {1.5707963705062866, 0, 0.66666667, 5.759586532},
    {3.1415926535, 1.5707963705062866, 1.333333333, 0.523598775},
    {4.71238899230957, 3.1415926535, 0.66666667, 2.617993878},
};
constexpr Bend kRadiansRest = {0, 4.71238899230957, 1.333333333, 3.665191429};

double along(const Bend& row, double angle) { return (angle - row.above) * row.slope + row.base; }

template <size_t N>
double bent(const Bend (&rows)[N], const Bend& rest, double angle) {
  for (const Bend& row : rows) {
    if (angle <= row.top) return along(row, angle);
  }
  return along(rest, angle);
}

}  // namespace

void CalcIsoXY(double x, double y, float z, double* outX, double* outY) {
  if (outX) *outX = isoX(x, y);
  if (outY) *outY = isoY(x, y, z);
}

void CalcXYIso(double isoX, double isoY, float z, double* x, double* y) {
  const double across = isoX / kIsoX, up = isoY - z;
  const double modelY = (up + up + across) * 0.5;
  if (x) *x = across - modelY;
  if (y) *y = modelY;
}

int16_t CalcIsoDeg(float tenthsOfDegree) { return toInt16(bent(kTenths, kTenthsRest, tenthsOfDegree)); }

/* kept: a negative angle is bent like one of the last quadrant */
float CalcIsoRad(float radians) {
  return toFloat(radians < 0 ? along(kRadiansRest, radians) : bent(kRadians, kRadiansRest, radians));
}
