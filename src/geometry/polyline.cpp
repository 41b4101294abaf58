/** The length of a pipe along its path, the middle of a polyline, and the height of a pipe's label. */
#include <algorithm>
#include <cmath>

#include "exports/pn10gdi.h"
#include "model/convert.h"
#include "model/draw_state.h"
#include "model/record_at.h"

using namespace pn10;

namespace {

struct Point {
  double x, y;
  float z;
};

Point pointOf(const Ndt& n) { return {n.X_COORD, n.Y_COORD, n.Z_COORD}; }
Point pointOf(const Vtx& v) { return {v.VTX_X, v.VTX_Y, v.VTX_Z}; }

float planeDistance(const Point& a, const Point& b) {
  const double dx = b.x - a.x, dy = b.y - a.y, dz = double{b.z} - a.z;
  return toFloat(std::sqrt(dx * dx + dy * dy + dz * dz));
}

float mapDistance(const Point& a, const Point& b) {
  return settings.lengthFactor < 0 ? toFloat(CalcGreatCircleDist(a.x, a.y, b.x, b.y, a.z, b.z)) : planeDistance(a, b);
}

/** The vertices of a pipe that the table really has; none when first is above last. */
struct Run {
  int32_t first, last;
};

Run runOf(int32_t pipe) {
  const PXY& screen = pipeScreenAt(pipe);
  if (screen.FIRST_VTX < 1) return {1, 0};
  return {screen.FIRST_VTX, std::min(screen.LAST_VTX, model.vtxSlots - 1)};
}

/** Calls `visit` with each segment from `a` through the run to `b`, until it answers false. */
template <class Visit>
void walkSegments(const Run& run, const Point& a, const Point& b, Visit visit) {
  Point from = a;
  for (int32_t v = run.first; v <= run.last; v++) {
    const Point to = pointOf(model.vtx[v]);
    if (!visit(from, to)) return;
    from = to;
  }
  visit(from, b);
}

double arcLength(int32_t pipe, const Pdt& p, const Point& a, const Point& b) {
  const int32_t vtx = pipeScreenAt(pipe).LAST_VTX;
  /* a refused arc still has the radius and the angle of its vertex */
  double radius = toFloat(vtxAt(vtx).VTX_X), included = vtxAt(vtx).VTX_Y;
  CalcArcGeom(vtx, p.VTX_MODE, a.z, b.z, a.x, a.y, b.x, b.y, nullptr, nullptr, &radius, nullptr, nullptr, &included,
              nullptr, nullptr, nullptr);
  if (settings.lengthFactor < 0) radius = mapDistance({a.x, a.y, a.z}, {a.x, a.y + radius, b.z});
  return radius * included;
}

}  // namespace

float CalcPipeLength(int32_t pipe, int16_t useZ) {
  const Pdt& p = pipeAt(pipe);
  Point a = pointOf(nodeAt(p.FROM_NODE)), b = pointOf(nodeAt(p.TO_NODE));
  if (!useZ) a.z = b.z = 0; /* kept: the Z of vertices counts all the same */
  double length = 0;
  if (p.VTX_MODE == 0) {
    length = mapDistance(a, b);
  } else if (p.VTX_MODE == 1 || p.VTX_MODE == 2) {
    length = arcLength(pipe, p, a, b);
  } else if (p.VTX_MODE == 4) {
    walkSegments(runOf(pipe), a, b, [&](const Point& from, const Point& to) {
      length += mapDistance(from, to);
      return true;
    });
  }
  if (settings.lengthFactor > 0) length *= settings.lengthFactor;
  return toFloat(length);
}

/** Two walks instead of a list of lengths: labels ask this for every polyline, and nothing is allocated there. */
int32_t GetPolyMidVtx(int32_t pipe) {
  const Pdt& p = pipeAt(pipe);
  const Run run = runOf(pipe);
  if (run.first > run.last) return pipeScreenAt(pipe).FIRST_VTX;
  const Point a = pointOf(nodeAt(p.FROM_NODE)), b = pointOf(nodeAt(p.TO_NODE));
  float total = 0;
  walkSegments(run, a, b, [&](const Point& from, const Point& to) {
    total += planeDistance(from, to);
    return true;
  });
  const float half = total * 0.5f;
  float sum = 0;
  int32_t middle = run.first;
  walkSegments(run, a, b, [&](const Point& from, const Point& to) {
    sum += planeDistance(from, to);
    if (sum >= half || middle > run.last) return false;
    middle++;
    return true;
  });
  return middle;
}

float GetPipeTextZ(int32_t pipe) {
  const Pdt& p = pipeAt(pipe);
  double za = nodeAt(p.FROM_NODE).Z_COORD, zb = nodeAt(p.TO_NODE).Z_COORD;
  const Run run = runOf(pipe);
  if (p.VTX_MODE == 4 && run.first <= run.last) {
    const int32_t middle = GetPolyMidVtx(pipe);
    if (middle > run.first) za = vtxAt(middle - 1).VTX_Z;
    if (middle <= run.last) zb = vtxAt(middle).VTX_Z;
  }
  return toFloat((za + zb) * 0.5);
}
