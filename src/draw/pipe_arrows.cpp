/** Flow arrows, and the arcs of arc pipes. */
#include <algorithm>
#include <cmath>

#include "draw/frame.h"
#include "draw/passes.h"
#include "geometry/angles.h"
#include "model/tables.h"

namespace pn10 {

namespace {

constexpr double kOpenAngle = 0.5237035;     /* 30 degrees */
constexpr double kFeatherAngle = 0.15707964; /* 9 degrees */

DevPoint deviceAt(double x, double y, double bearing, double distance) {
  double toX, toY;
  GetXY(x, y, bearing, distance, &toX, &toY);
  return WorldToDevPair(toX, toY);
}

void paintLine(DevPoint from, DevPoint to) {
  MoveToEx(drawState.DC, from.x, from.y, nullptr);
  LineTo(drawState.DC, to.x, to.y);
}

bool underOneUnit(double length) { return !(length * std::fabs(drawState.ScaleX) >= 1.0); }

bool isArc(const Pdt& pipe) { return pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2; }

/** Two lines back from the middle of the segment, or from the middle of the arc. */
void paintOpenArrow(int32_t pipe, double back, double midX, double midY, float arrowSize) {
  if (underOneUnit(arrowSize)) return;
  if (isArc(model.pdt[pipe])) {
    double x = midX, y = midY;
    float z = 0;
    if (CalcArcMidXY(pipe, &x, &y, &z) == 0) MapModelXY(x, y, z, &midX, &midY);
  }
  const DevPoint tip = WorldToDevPair(midX, midY);
  paintLine(tip, deviceAt(midX, midY, back + kOpenAngle, arrowSize));
  paintLine(tip, deviceAt(midX, midY, back - kOpenAngle, arrowSize));
}

/** What an arrow has room on: the segment, or the chord that an arc's radius and angle make. */
double roomOf(int32_t pipe, double segment) {
  const int32_t vtx = model.pxy[pipe].LAST_VTX;
  if (!isArc(model.pdt[pipe]) || !isVtx(vtx)) return segment;
  const float radius = toFloat(model.vtx[vtx].VTX_X), included = toFloat(model.vtx[vtx].VTX_Y);
  return std::fabs(2.0 * radius * std::sin(0.5 * included));
}

/** A slim head with a concave back at the end that the flow runs to. */
void paintFeatheredArrow(double back, double tipX, double tipY, double room, float arrowSize) {
  const double length = std::min(0.5 * room, static_cast<double>(arrowSize));
  if (OutOfView(tipX, tipY) || underOneUnit(length)) return;
  const DevPoint tip = WorldToDevPair(tipX, tipY);
  const DevPoint barb1 = deviceAt(tipX, tipY, back + kFeatherAngle, length);
  const DevPoint barb2 = deviceAt(tipX, tipY, back - kFeatherAngle, length);
  const DevPoint notch = deviceAt(tipX, tipY, back, 0.9 * length);
  paintLine(tip, barb1);
  paintLine(tip, barb2);
  paintLine(barb1, notch);
  LineTo(drawState.DC, barb2.x, barb2.y);
}

}  // namespace

void DrawFlowArrow(int32_t pipe, double flow, double x1, double y1, double x2, double y2, float arrowSize) {
  // In single precision, as flows are kept: a flow of exactly the least one has its arrow at every number of
  // hundredths.
  if (flow == 0 || std::fabs(flow) < toFloat(drawState.View->ArrowMinFlow * 0.01)) return;
  const double dx = std::fabs(x1 - x2), dy = std::fabs(y1 - y2);
  if (dx == 0 && dy == 0) return;
  if (drawState.IsoFlag && dx < settings.tolerance && dy < settings.tolerance) return;
  const double bearing = GetBrg(x1, y1, x2, y2);
  const double back = flow > 0 ? bearing + PI : bearing;
  if (drawState.View->ArrowStyle == 0) {
    paintOpenArrow(pipe, back, (x1 + x2) * 0.5, (y1 + y2) * 0.5, arrowSize);
  } else {
    paintFeatheredArrow(back, flow > 0 ? x2 : x1, flow > 0 ? y2 : y1, roomOf(pipe, std::hypot(dx, dy)), arrowSize);
  }
}

int32_t DrawPipeArc(int32_t pipe, double x1, double y1, float z1, double x2, double y2, float z2) {
  const int32_t vtx = model.pxy[pipe].LAST_VTX;
  const int16_t turn = model.pdt[pipe].VTX_MODE;
  double centreX, centreY, radius, included, midX, midY;
  float start, end, midZ;
  if (!isVtx(vtx)) return -1;
  if (CalcArcGeom(vtx, turn, z1, z2, x1, y1, x2, y2, &centreX, &centreY, &radius, &start, &end, &included, &midX, &midY,
                  &midZ) < 0)
    return -1;
  const double sweep = start < end ? static_cast<double>(end) - start : (TWO_PI - start) + end;
  const int32_t count = FloorLong(sweep / 0.017453292);
  // With turn 1 the geometry was found from the To node: the arc runs from the From node, clockwise.
  const double step = count > 0 ? (turn == 1 ? -sweep : sweep) / count : 0;
  const double first = turn == 1 ? end : start;
  double worldX, worldY;
  MapModelXY(x1, y1, z1, &worldX, &worldY);
  DevPoint p = WorldToDevPair(worldX, worldY);
  MoveToEx(drawState.DC, p.x, p.y, nullptr);
  for (int32_t i = 1; i <= count; i++) {
    double x, y;
    GetXY(centreX, centreY, first + i * step, radius, &x, &y);
    MapModelXY(x, y, z1 + (z2 - z1) * static_cast<float>(i) / static_cast<float>(count), &worldX, &worldY);
    p = WorldToDevPair(worldX, worldY);
    LineTo(drawState.DC, p.x, p.y);
  }
  MapModelXY(x2, y2, z2, &worldX, &worldY);
  p = WorldToDevPair(worldX, worldY);
  LineTo(drawState.DC, p.x, p.y);
  return 0;
}

}  // namespace pn10
