/** Points on the picture plane, as the searches measure them. */
#ifndef PN10_SEARCH_PLANE_H
#define PN10_SEARCH_PLANE_H

#include <cmath>

#include "model/draw_state.h"
#include "model/tables.h"

namespace pn10 {

struct PlanePoint {
  double x, y;
};

/** The distance that "far away" stands for. */
constexpr double kFarAway = 9999999.0;

/** A model point as it is: projected when the isometric flag is set. */
inline PlanePoint onPlane(double x, double y, float z) {
  if (drawState.IsoFlag == 0) return {x, y};
  PlanePoint p;
  CalcIsoXY(x, y, z, &p.x, &p.y);
  return p;
}

inline PlanePoint onPlane(const Ndt& node) { return onPlane(node.X_COORD, node.Y_COORD, node.Z_COORD); }
inline PlanePoint onPlane(const Vtx& vertex) { return onPlane(vertex.VTX_X, vertex.VTX_Y, vertex.VTX_Z); }

inline double distance(PlanePoint a, PlanePoint b) {
  const double dx = a.x - b.x, dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

/** The node of a record number that a pipe or a host gives; zeros when there is none. */
inline const Ndt& nodeOrEmpty(int32_t node) {
  static const Ndt empty = {};
  return hasNodeSlot(node) ? model.ndt[node] : empty;
}

inline const Pdt& pipeOf(int32_t pipe) { return model.pdt[pipe]; }

/** The screen record of a pipe; zeros when its table is absent or smaller. */
inline const PXY& screenOf(int32_t pipe) {
  static const PXY empty = {};
  return hasPxySlot(pipe) ? model.pxy[pipe] : empty;
}

/** The run of vertices of a pipe, cut to the vertex table; empty (last below first) when it has none. */
struct VertexRun {
  int32_t first, last;
};
inline VertexRun runOf(const PXY& screen) {
  if (screen.FIRST_VTX <= 0 || screen.LAST_VTX < screen.FIRST_VTX || screen.LAST_VTX >= model.vtxSlots) return {1, 0};
  return {screen.FIRST_VTX, screen.LAST_VTX};
}

}  // namespace pn10

#endif
