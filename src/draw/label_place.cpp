/** Where a label stands: anchor, direction and line step of nodes, pipes and customers. */
#include <cmath>

#include "draw/frame.h"
#include "draw/label_stack.h"
#include "draw/labels.h"
#include "geometry/angles.h"
#include "model/tables.h"

namespace pn10 {

namespace {

struct Point {
  double x, y;
};

/** A stored angle counts from north; without one (negative) the default of the kind holds. */
float labelAngle(float stored, float standard) { return stored >= 0 ? static_cast<float>(HALF_PI - stored) : standard; }

void stepOf(float angle, float textHeight, double* stepX, double* stepY, double* stepLength) {
  *stepX = std::sin(static_cast<double>(angle)) * textHeight;
  *stepY = std::cos(static_cast<double>(angle)) * textHeight;
  *stepLength = std::sqrt(*stepX * *stepX + *stepY * *stepY);
}

/** The line that a pipe's label stands on, on the world plane, with the elevation of its middle. */
struct BaseLine {
  Point from, to;
  float elev;
};

BaseLine mapped(double x1, double y1, float z1, double x2, double y2, float z2) {
  BaseLine line{};
  MapModelXY(x1, y1, z1, &line.from.x, &line.from.y);
  MapModelXY(x2, y2, z2, &line.to.x, &line.to.y);
  line.elev = (z1 + z2) * 0.5f;
  return line;
}

BaseLine nodesLine(const Ndt& from, const Ndt& to) {
  return mapped(from.X_COORD, from.Y_COORD, from.Z_COORD, to.X_COORD, to.Y_COORD, to.Z_COORD);
}

/** The run that ends at the mid vertex; one past the last vertex stands for the To node. */
BaseLine runLine(const PXY& screen, const Ndt& from, const Ndt& to, int32_t midVertex) {
  BaseLine line = nodesLine(from, to);
  const float fromZ = from.Z_COORD, toZ = to.Z_COORD;
  float z1 = fromZ, z2 = toZ;
  if (midVertex > screen.FIRST_VTX && isVtx(midVertex - 1)) {
    const Vtx& v = model.vtx[midVertex - 1];
    MapModelXY(v.VTX_X, v.VTX_Y, v.VTX_Z, &line.from.x, &line.from.y);
    z1 = v.VTX_Z;
  }
  if (midVertex <= screen.LAST_VTX && isVtx(midVertex)) {
    const Vtx& v = model.vtx[midVertex];
    MapModelXY(v.VTX_X, v.VTX_Y, v.VTX_Z, &line.to.x, &line.to.y);
    z2 = v.VTX_Z;
  }
  line.elev = (z1 + z2) * 0.5f;
  return line;
}

/** Ten units along the tangent to either side of the arc's middle; false when the arc has no geometry. */
bool arcLine(const Pdt& pipe, const PXY& screen, const Ndt& from, const Ndt& to, BaseLine* line) {
  if (!isVtx(screen.LAST_VTX)) return false;
  double centreX, centreY, radius, included, midX, midY;
  float start, end, midZ;
  if (CalcArcGeom(screen.LAST_VTX, pipe.VTX_MODE, from.Z_COORD, to.Z_COORD, from.X_COORD, from.Y_COORD, to.X_COORD,
                  to.Y_COORD, &centreX, &centreY, &radius, &start, &end, &included, &midX, &midY, &midZ) < 0)
    return false;
  // With turn 1 the arc runs clockwise from the From node.
  const double out = GetBrg(centreX, centreY, midX, midY);
  const double along = pipe.VTX_MODE == 1 ? out - HALF_PI : out + HALF_PI;
  constexpr double kReach = 10.0;
  const bool iso = drawState.MapMode == 1;
  // The two points lie on the world plane; only the isometric plane bends a direction, so there the model's are mapped.
  Point mid{midX, midY};
  if (!iso) MapModelXY(midX, midY, midZ, &mid.x, &mid.y);
  Point a, b;
  GetXY(mid.x, mid.y, along + PI, kReach, &a.x, &a.y);
  GetXY(mid.x, mid.y, along, kReach, &b.x, &b.y);
  *line = iso ? mapped(a.x, a.y, midZ, b.x, b.y, midZ) : BaseLine{a, b, midZ};
  return true;
}

BaseLine baseLineOf(const Pdt& pipe, const PXY& screen, int32_t midVertex) {
  const Ndt& from = model.ndt[pipe.FROM_NODE];
  const Ndt& to = model.ndt[pipe.TO_NODE];
  BaseLine line;
  if ((pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) && arcLine(pipe, screen, from, to, &line)) return line;
  if (pipe.VTX_MODE == 4 && midVertex > 0) return runLine(screen, from, to, midVertex);
  return nodesLine(from, to);
}

}  // namespace

int16_t tenthsOfDegree(float angle) { return toInt16(static_cast<double>(angle * 572.957763671875f)); }

int16_t uprightTenths(int16_t tenths, int16_t above, int16_t below) {
  return static_cast<int16_t>(tenths > above && tenths < below ? tenths - 1800 : tenths);
}

void CalcTextNXY(int32_t node, float symSize, float* angle, double* stepX, double* stepY, double* x, double* y,
                 double* stepLength) {
  const Ndt& n = model.ndt[node];
  *angle = labelAngle(n.TEXT_ANGLE, drawState.NodeLabelAngle);
  stepOf(*angle, drawState.TextHeightN, stepX, stepY, stepLength);
  double modelX = n.TEXT_X, modelY = n.TEXT_Y;
  if (!hasStoredAnchor(n)) {
    GetXY(n.X_COORD, n.Y_COORD, *angle, 0.6 * symSize, &modelX, &modelY);
    modelX -= *stepX;
    modelY += *stepY;
  }
  MapModelXY(modelX, modelY, n.Z_COORD, x, y);
}

void CalcTextCXY(int32_t cust, float* angle, double* stepX, double* stepY, double* x, double* y, double* stepLength) {
  const Cdt& c = model.cdt[cust];
  *angle = labelAngle(c.TEXT_ANGLE, drawState.CustLabelAngle);
  stepOf(*angle, drawState.TextHeightC, stepX, stepY, stepLength);
  const bool stored = hasStoredAnchor(c);
  MapModelXY(stored ? c.TEXT_X : c.X_COORD + *stepLength, stored ? c.TEXT_Y : c.Y_COORD + *stepLength, c.Z_COORD, x, y);
}

void pipeMiddle(int32_t pipe, int32_t midVertex, double* x, double* y) {
  const BaseLine line = baseLineOf(model.pdt[pipe], model.pxy[pipe], midVertex);
  *x = (line.from.x + line.to.x) * 0.5;
  *y = (line.from.y + line.to.y) * 0.5;
}

void CalcTextPXY(int32_t pipe, int32_t midVertex, int16_t* escapement, double* stepX, double* stepY, double* x,
                 double* y, double* leaderX, double* leaderY, float* elev, double* x2, double* y2) {
  const Pdt& p = model.pdt[pipe];
  const BaseLine line = baseLineOf(p, model.pxy[pipe], midVertex);
  double bearing = GetBrg(line.from.x, line.from.y, line.to.x, line.to.y);
  *escapement = p.TEXT_ANGLE >= 0 ? tenthsOfDegree(static_cast<float>(HALF_PI - p.TEXT_ANGLE))
                                  : uprightTenths(tenthsOfDegree(static_cast<float>(bearing)), 910, 2711);
  const double midX = (line.from.x + line.to.x) * 0.5, midY = (line.from.y + line.to.y) * 0.5;
  *leaderX = midX;
  *leaderY = midY;
  *elev = line.elev;

  // Kept: this window is wider on the low side than that of the escapement.
  if (bearing > 1.5896458625793457 && bearing <= 4.731239) bearing -= PI;
  const double height = drawState.TextHeightP;
  const double normal = bearing + HALF_PI;
  *stepX = -height * std::cos(normal);
  *stepY = height * std::sin(normal);

  if (hasStoredAnchor(p)) {
    MapModelXY(p.TEXT_X, p.TEXT_Y, line.elev, x, y);
    *x -= *stepX;
    *y += *stepY;
    *x2 = *x + *stepX;
    *y2 = *y - *stepY;
    return;
  }
  // The stack straddles the pipe: the first line above it, the second below it and clear of the pen.
  GetXY(midX, midY, normal, 1.1 * height, x, y);
  if (line.from.x == line.to.x && line.from.y == line.to.y) {
    *x = midX - height;
    *y = midY;
  }
  const double clear = 0.1 * height - drawState.CurPenWidth / (2.0 * drawState.ScaleY);
  GetXY(midX, midY, normal + PI, clear, x2, y2);
}

}  // namespace pn10
