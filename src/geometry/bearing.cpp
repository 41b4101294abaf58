/** Directions between points, points at a direction, and the guarded inverse functions. */
#include <cmath>

#include "exports/pn10gdi.h"
#include "geometry/angles.h"
#include "model/convert.h"

using namespace pn10;

namespace {

/**
 * A bearing beyond one turn comes back into it, by way of single precision.
 * Kept: the remainder of a negative bearing is negative, so that -7 acts as +7.
 */
double reducedBearing(double bearing) {
  if (!(std::fabs(bearing) > TWO_PI)) return bearing;
  const float rest = toFloat(std::fmod(bearing, TWO_PI));
  return bearing < 0 ? TWO_PI - rest : rest;
}

}  // namespace

double GetBrg(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1, dy = y2 - y1;
  if (dy == 0) return dx < 0 ? PI : 0.0;
  if (dx == 0) return dy > 0 ? HALF_PI : THREE_HALF_PI;
  const double angle = std::atan(std::fabs(dy / dx));
  if (dx < 0) return dy > 0 ? PI - angle : PI + angle;
  return dy < 0 ? TWO_PI - angle : angle;
}

int32_t GetXY(double x, double y, double bearing, double distance, double* outX, double* outY) {
  const double angle = reducedBearing(bearing);
  if (outX) *outX = std::cos(angle) * distance + x;
  if (outY) *outY = std::sin(angle) * distance + y;
  return -1;
}

double CalcACos(double x) { return std::fabs(x) > 1 ? 0.0 : std::acos(x); }
double CalcASin(double x) { return std::fabs(x) > 1 ? 0.0 : std::asin(x); }

int32_t FloorLong(double value) { return toInt32(std::floor(value)); }
double CalcFloor(double value) { return std::floor(value); }
double CalcCeil(double value) { return std::ceil(value); }
