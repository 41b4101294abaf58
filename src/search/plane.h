/** Points on the picture plane, as the searches measure them. */
#ifndef PN10_SEARCH_PLANE_H
#define PN10_SEARCH_PLANE_H

#include <algorithm>
#include <cmath>

#include "geometry/isometric.h"
#include "model/draw_state.h"
#include "model/record_at.h"

namespace pn10 {

struct PlanePoint {
  double x, y;
};

/** The distance that "far away" stands for. */
constexpr double kFarAway = 9999999.0;

/** A model point as it is: projected when the isometric flag is set. */
inline PlanePoint onPlane(double x, double y, float z) {
  if (drawState.IsoFlag == 0) return {x, y};
  return {isoX(x, y), isoY(x, y, z)};
}

inline PlanePoint onPlane(const Ndt& node) { return onPlane(node.X_COORD, node.Y_COORD, node.Z_COORD); }
inline PlanePoint onPlane(const Vtx& vertex) { return onPlane(vertex.VTX_X, vertex.VTX_Y, vertex.VTX_Z); }

inline double distance(PlanePoint a, PlanePoint b) {
  const double dx = a.x - b.x, dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

/** The run of vertices of a pipe, cut to the vertex table; empty (last below first) when it has none. */
struct VertexRun {
  int32_t first, last;
};
inline VertexRun runOf(const PXY& screen) {
  if (screen.FIRST_VTX <= 0 || screen.FIRST_VTX >= model.vtxSlots) return {1, 0};
  return {screen.FIRST_VTX, std::min(screen.LAST_VTX, model.vtxSlots - 1)};
}

}  // namespace pn10

#endif
