/**
 * The constants of all angles, and how bearings are reduced.
 *
 * Kept: the values are short on purpose. Comparisons of angles in drawing and search are made with them, so a
 * better pi would move pictures and hits apart.
 */
#ifndef PN10_GEOMETRY_ANGLES_H
#define PN10_GEOMETRY_ANGLES_H

namespace pn10 {

constexpr double PI = 3.1415926535;
constexpr double HALF_PI = 1.57079632675;
constexpr double THREE_HALF_PI = 4.71238898025;
constexpr double TWO_PI = 6.2831854820251465; /* the float nearest to two pi */
constexpr float DEG_TO_RAD = 0.017453292f;

}  // namespace pn10

#endif
