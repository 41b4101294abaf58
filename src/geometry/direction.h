/** Points of the world, and a bearing turned once into its cosine and sine, for shapes with many points. */
#ifndef PN10_GEOMETRY_DIRECTION_H
#define PN10_GEOMETRY_DIRECTION_H

#include "exports/pn10gdi.h"

namespace pn10 {

struct WorldPoint {
  double x, y;
};

struct Direction {
  double cosine, sine;
};

/** Reduced as GetXY reduces a bearing, so that `moved` gives the digits of GetXY. */
inline Direction directionOf(double bearing) {
  Direction d;
  GetXY(0, 0, bearing, 1, &d.cosine, &d.sine);
  return d;
}

inline WorldPoint moved(const WorldPoint& p, const Direction& d, double distance) {
  return {d.cosine * distance + p.x, d.sine * distance + p.y};
}

}  // namespace pn10

#endif
