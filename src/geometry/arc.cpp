/** The circle of a pipe that is drawn as an arc: its vertex holds the radius (X) and the included angle (Y). */
#include <cmath>

#include "exports/pn10gdi.h"
#include "geometry/angles.h"
#include "model/convert.h"
#include "model/draw_state.h"
#include "model/record_at.h"

using namespace pn10;

namespace {

template <class T>
void put(T* out, T value) {
  if (out) *out = value;
}

bool coincide(double x1, double y1, double x2, double y2) {
  return std::fabs(x1 - x2) < settings.tolerance && std::fabs(y1 - y2) < settings.tolerance;
}

struct Circle {
  double x, y;      /* centre */
  float start, end; /* bearings from the centre; the arc runs counter-clockwise from start to end */
};

Circle circleOf(int16_t turn, float radius, float included, double x1, double y1, double x2, double y2) {
  const float base = toFloat((PI - included) * 0.5);
  const float chord = toFloat(GetBrg(x1, y1, x2, y2));
  const double inward = turn == 1 ? double{chord} - base : double{chord} + base;
  Circle c{};
  GetXY(x1, y1, inward, radius, &c.x, &c.y);
  const float toFirst = toFloat(GetBrg(c.x, c.y, x1, y1)), toSecond = toFloat(GetBrg(c.x, c.y, x2, y2));
  c.start = turn == 1 ? toSecond : toFirst;
  c.end = turn == 1 ? toFirst : toSecond;
  return c;
}

}  // namespace

int32_t CalcArcGeom(int32_t vtx, int16_t turn, float z1, float z2, double x1, double y1, double x2, double y2,
                    double* centreX, double* centreY, double* radius, float* startBrg, float* endBrg,
                    double* includedAngle, double* midX, double* midY, float* midZ) {
  if (vtx != 0 && !hasVtxSlot(vtx)) return -1;
  if (drawState.IsoFlag && coincide(x1, y1, x2, y2)) return -1;
  const Vtx& v = vtxAt(vtx);
  const float r = toFloat(v.VTX_X), included = toFloat(v.VTX_Y);
  const Circle c = circleOf(turn, r, included, x1, y1, x2, y2);
  const double sweep = c.start < c.end ? double{c.end} - c.start : (TWO_PI - c.start) + c.end;
  double mx, my;
  GetXY(c.x, c.y, toFloat(sweep * 0.5 + c.start), r, &mx, &my);
  put(centreX, c.x);
  put(centreY, c.y);
  put(radius, double{r});
  put(startBrg, c.start);
  put(endBrg, c.end);
  put(includedAngle, v.VTX_Y);
  put(midX, mx);
  put(midY, my);
  put(midZ, toFloat((double{z1} + z2) * 0.5));
  return 0;
}

int32_t CalcArcCxy(int16_t turn, float radius, float includedAngle, double x1, double y1, float, double x2, double y2,
                   float, double* centreX, double* centreY, float* startBrg, float* endBrg) {
  /* kept: the ends are compared on the plain map only, in CalcArcGeom in the isometric view only */
  if (!drawState.IsoFlag && coincide(x1, y1, x2, y2)) return -1;
  const Circle c = circleOf(turn, radius, includedAngle, x1, y1, x2, y2);
  put(centreX, c.x);
  put(centreY, c.y);
  put(startBrg, c.start);
  put(endBrg, c.end);
  return 0;
}

int32_t CalcArcMidXY(int32_t pipe, double* midX, double* midY, float* midZ) {
  const Pdt& p = pipeAt(pipe);
  if (p.VTX_MODE != 1 && p.VTX_MODE != 2) return -1;
  const Ndt& a = nodeAt(p.FROM_NODE);
  const Ndt& b = nodeAt(p.TO_NODE);
  CalcArcGeom(pipeScreenAt(pipe).LAST_VTX, p.VTX_MODE, a.Z_COORD, b.Z_COORD, a.X_COORD, a.Y_COORD, b.X_COORD, b.Y_COORD,
              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, midX, midY, midZ);
  return 0;
}

int32_t GetArc(int32_t pipe, int32_t* vtx, double* centreX, double* centreY, float* vtxZ, float* startBrg,
               float* endBrg, float* radius, float* includedAngle, int32_t* wholeDegrees) {
  const Pdt& p = pipeAt(pipe);
  const Ndt& a = nodeAt(p.FROM_NODE);
  const Ndt& b = nodeAt(p.TO_NODE);
  const int32_t number = pipeScreenAt(pipe).LAST_VTX;
  const Vtx& v = vtxAt(number);
  const float r = toFloat(v.VTX_X), included = toFloat(v.VTX_Y);
  put(vtx, number);
  put(vtxZ, v.VTX_Z);
  put(radius, r);
  put(includedAngle, included);
  put(wholeDegrees, toInt32(std::floor(double{included} / DEG_TO_RAD)));
  CalcArcCxy(p.VTX_MODE, r, included, a.X_COORD, a.Y_COORD, a.Z_COORD, b.X_COORD, b.Y_COORD, b.Z_COORD, centreX,
             centreY, startBrg, endBrg);
  return -1;
}
