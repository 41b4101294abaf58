/** Nodes by point: plain scans in record order; which match wins is part of each search. */
#include "model/wait_cursor.h"
#include "search/plane.h"

namespace pn10 {
namespace {

/** A node exists for a search by point when it is not deleted and not kept out of hit tests. */
bool isHittable(int32_t node) {
  if (model.ndt[node].REC_STATUS < 0) return false;
  return !hasNxySlot(node) || model.nxy[node].Drawn != -2;
}

bool inSquare(const Ndt& node, double x, double y, double halfWidth) {
  return node.X_COORD >= x - halfWidth && node.X_COORD <= x + halfWidth && node.Y_COORD >= y - halfWidth &&
         node.Y_COORD <= y + halfWidth;
}

float distance2(const Ndt& node, double x, double y) {
  return static_cast<float>(distance({node.X_COORD, node.Y_COORD}, {x, y}));
}

/** In the square first: it is cheap, and it is part of the rule. */
bool isClose(const Ndt& node, double x, double y, float tolerance) {
  return inSquare(node, x, y, tolerance) && distance2(node, x, y) <= tolerance;
}

/** The radius of a symbol of default size, in model units. */
float defaultRadius() {
  const double size = drawState.View->NodeSize;
  if (size > 0) return static_cast<float>(size * 0.10000000149011612 * drawState.UnitsPerDisplay);
  return static_cast<float>((drawState.Y1 - drawState.Y0) * size * 0.0005);
}

/** A symbol's own radius; `viewHeight` turns a percentage into model units. */
float symbolRadius(const Ndt& node, float defaultSize, float viewHeight) {
  if (node.SYM_SIZE > 0) return node.SYM_SIZE;
  if (node.SYM_SIZE < 0)
    return static_cast<float>(-node.SYM_SIZE * static_cast<double>(viewHeight) * 0.009999999776482582);
  return defaultSize;
}

}  // namespace
}  // namespace pn10

using namespace pn10;

int32_t FindNodeClose(double x, double y, float z) {
  const WaitCursor wait;
  const float radius = defaultRadius();
  const float viewHeight = static_cast<float>(drawState.Y0 - drawState.Y1);
  int32_t found = 0;
  for (int32_t n = 1, top = nodeTop(); n <= top; n++) {
    const Ndt& node = model.ndt[n];
    // The square is of the default radius, so it also clips symbols larger than that. Kept.
    if (!inSquare(node, x, y, radius) || !isHittable(n)) continue;
    const double dx = node.X_COORD - x, dy = node.Y_COORD - y, dz = static_cast<double>(node.Z_COORD) - z;
    if (static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz)) <= symbolRadius(node, radius, viewHeight)) found = n;
  }
  return found;
}

int32_t FindNodeSnap(double x, double y, float z, float tolerance, int16_t threeD) {
  const WaitCursor wait;
  for (int32_t n = 1, top = nodeTop(); n <= top; n++) {
    const Ndt& node = model.ndt[n];
    const double dx = node.X_COORD - x, dy = node.Y_COORD - y;
    double square = dx * dx + dy * dy;
    if (threeD) {
      const double dz = static_cast<double>(node.Z_COORD) - z;
      square += dz * dz;
    }
    if (static_cast<float>(std::sqrt(square)) <= tolerance && isHittable(n)) return n;
  }
  return 0;
}

int32_t FindNodeSnapPix(double x, double y, float tolerance) {
  const WaitCursor wait;
  for (int32_t n = 1, top = nodeTop(); n <= top; n++) {
    if (static_cast<float>(distance(onPlane(model.ndt[n]), {x, y})) <= tolerance && isHittable(n)) return n;
  }
  return 0;
}

int32_t FindNodeFuzzyRno(int32_t node, float tolerance) {
  const WaitCursor wait;
  if (!hasNodeSlot(node)) return 0;
  const double x = model.ndt[node].X_COORD, y = model.ndt[node].Y_COORD;
  for (int32_t n = 1, top = nodeTop(); n <= top; n++) {
    if (n != node && isClose(model.ndt[n], x, y, tolerance) && isHittable(n)) return n;
  }
  return 0;
}

int32_t FindNodeFuzzy(double x, double y, float tolerance) {
  const WaitCursor wait;
  for (int32_t n = nodeTop(); n >= 1; n--) {
    if (isClose(model.ndt[n], x, y, tolerance) && isHittable(n)) return n;
  }
  return 0;
}

int32_t FindNodeFuzzy2x(double x1, double y1, double x2, double y2, float tolerance, int32_t* node1, int32_t* node2) {
  struct Target {
    double x, y;
    int32_t found;
  } targets[2] = {{x1, y1, 0}, {x2, y2, 0}};
  for (int32_t n = 1, top = nodeTop(); n <= top && !(targets[0].found && targets[1].found); n++) {
    const Ndt& node = model.ndt[n];
    for (Target& target : targets) {
      if (target.found || !isClose(node, target.x, target.y, tolerance) || !isHittable(n)) continue;
      if (distance2(node, target.x, target.y) < kFarAway) target.found = n;
    }
  }
  if (node1) *node1 = targets[0].found;
  if (node2) *node2 = targets[1].found;
  return 0;
}

int32_t FindNodeByID(int32_t id) {
  const WaitCursor wait;
  for (int32_t n = 1, top = nodeTop(); n <= top; n++) {
    if (model.ndt[n].ID == id && model.ndt[n].REC_STATUS >= 0) return n;
  }
  return 0;
}
