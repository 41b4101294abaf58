/** The isometric transform: the one place of its factor, shared by drawing, hit tests and extents. */
#ifndef PN10_GEOMETRY_ISOMETRIC_H
#define PN10_GEOMETRY_ISOMETRIC_H

namespace pn10 {

constexpr double kIsoX = 0.8660253882408142; /* the single-precision sine of 60 degrees */

inline double isoX(double x, double y) { return (x + y) * kIsoX; }
inline double isoY(double x, double y, double z) { return (y - x) * 0.5 + z; }

}  // namespace pn10

#endif
