/** The pipe whose path comes nearest to a point by projection: what a customer is tapped to. */
#include <algorithm>

#include "geometry/angles.h"
#include "model/wait_cursor.h"
#include "search/plane.h"

using namespace pn10;

namespace {

constexpr double kQuarter = 1.5707963705062866;

PlanePoint positionOf(const Ndt& node) { return {node.X_COORD, node.Y_COORD}; }
PlanePoint positionOf(const Vtx& vertex) { return {vertex.VTX_X, vertex.VTX_Y}; }

/** Whether `p` lies in the box of a piece grown on all sides, edges included. */
bool inBox(PlanePoint p, PlanePoint a, PlanePoint b, double grown) {
  return p.x >= std::min(a.x, b.x) - grown && p.x <= std::max(a.x, b.x) + grown && p.y >= std::min(a.y, b.y) - grown &&
         p.y <= std::max(a.y, b.y) + grown;
}

/** The point of the piece from `a` to `b` that counts as nearest to `p`. */
PlanePoint projectOn(PlanePoint a, PlanePoint b, PlanePoint p) {
  const double d = distance(a, p), length = distance(a, b);
  const double direction = GetBrg(a.x, a.y, b.x, b.y);
  double angle = std::fabs(GetBrg(a.x, a.y, p.x, p.y) - direction);
  if (angle > PI) angle = TWO_PI - angle;
  if (angle > kQuarter) return a;
  const double along = std::cos(angle) * d;
  if (along > length) return b;
  PlanePoint c;
  GetXY(a.x, a.y, direction, along, &c.x, &c.y);
  return c;
}

/** The arc of a pipe as CalcArcGeom tells it. */
struct DrawnArc {
  PlanePoint centre, mid;
  double radius;
  float start, end;
};

bool arcOf(const Pdt& pipe, const PXY& screen, DrawnArc* arc) {
  const Ndt &from = nodeAt(pipe.FROM_NODE), &to = nodeAt(pipe.TO_NODE);
  double angle;
  float midZ;
  return CalcArcGeom(screen.LAST_VTX, pipe.VTX_MODE, from.Z_COORD, to.Z_COORD, from.X_COORD, from.Y_COORD, to.X_COORD,
                     to.Y_COORD, &arc->centre.x, &arc->centre.y, &arc->radius, &arc->start, &arc->end, &angle,
                     &arc->mid.x, &arc->mid.y, &midZ) == 0;
}

PlanePoint projectOnArc(const DrawnArc& arc, PlanePoint from, PlanePoint to, PlanePoint p) {
  const double b = GetBrg(arc.centre.x, arc.centre.y, p.x, p.y);
  if (arc.start <= arc.end) {
    if (b < arc.start) return to;
    if (b > arc.end) return from;
  } else if ((b > arc.end && b < arc.start) || b > TWO_PI) {
    const double half = (TWO_PI - arc.start + arc.end) * 0.5;
    return b <= arc.end + half ? to : from;
  }
  PlanePoint c;
  GetXY(arc.centre.x, arc.centre.y, b, arc.radius, &c.x, &c.y);
  return c;
}

/** The best pipe so far; the tie goes to the later one. */
struct Nearest {
  PlanePoint point;
  double tolerance;
  double best = kFarAway;
  int32_t pipe = 0;

  /**
   * A box that no winner lies outside of: the projection stays on the piece, but for the rounding of its bearing (the
   * thousandth of the piece) and of coordinates of this size.
   */
  bool mayWin(PlanePoint a, PlanePoint b) const {
    const double size = std::fabs(a.x - b.x) + std::fabs(a.y - b.y), reach = std::min(tolerance, best);
    const double rounding = 1e-12 * (std::fabs(point.x) + std::fabs(point.y) + reach);
    return inBox(point, a, b, reach + rounding + 0.001 * size);
  }
  void take(PlanePoint candidate, int32_t p) {
    const double d = distance(point, candidate);
    if (d <= tolerance && d <= best) {
      best = d;
      pipe = p;
    }
  }
  void takePiece(PlanePoint a, PlanePoint b, int32_t p) {
    if (mayWin(a, b)) take(projectOn(a, b, point), p);
  }
};

bool isTappable(const Pdt& pipe, const PXY& screen) {
  return pipe.HYD_TYPE == 0 && screen.Active != 0 && pipe.REC_STATUS >= 0;
}

}  // namespace

int32_t FindPipeClosePno(double x, double y, float tolerance) {
  const WaitCursor wait;
  Nearest nearest{{x, y}, tolerance};
  const double boxGrowth = tolerance * 1.1;
  for (int32_t p = 1, top = pipeTop(); p <= top; p++) {
    const Pdt& pipe = pipeAt(p);
    const PXY& screen = pipeScreenAt(p);
    if (!isTappable(pipe, screen)) continue;
    const PlanePoint from = positionOf(nodeAt(pipe.FROM_NODE)), to = positionOf(nodeAt(pipe.TO_NODE));
    if (pipe.VTX_MODE == 0) {
      nearest.takePiece(from, to, p);
    } else if (pipe.VTX_MODE == 4) {
      const VertexRun run = runOf(screen);
      PlanePoint at = from;
      for (int32_t v = run.first; v <= run.last; v++) {
        const PlanePoint next = positionOf(model.vtx[v]);
        if (inBox(nearest.point, at, next, boxGrowth)) nearest.takePiece(at, next, p);
        at = next;
      }
      nearest.takePiece(at, to, p);
    } else if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
      DrawnArc arc;
      if (!arcOf(pipe, screen, &arc)) break;  // kept: an arc without a circle ends the scan
      nearest.take(projectOnArc(arc, from, to, nearest.point), p);
    }
  }
  return nearest.pipe;
}

int32_t FindPipeCloseMid(double x, double y, float tolerance, double* midX, double* midY, float* midZ) {
  const WaitCursor wait;
  // Kept: only record 1 is looked at.
  if (!isPipe(1) || !midX || !midY || !midZ) return 0;
  const Pdt& pipe = pipeAt(1);
  const PXY& screen = pipeScreenAt(1);
  if (!isTappable(pipe, screen)) return 0;
  const PlanePoint point = {x, y};
  const PlanePoint from = positionOf(nodeAt(pipe.FROM_NODE)), to = positionOf(nodeAt(pipe.TO_NODE));
  const auto middle = [](PlanePoint a, PlanePoint b) { return PlanePoint{(a.x + b.x) * 0.5, (a.y + b.y) * 0.5}; };
  const auto within = [&](PlanePoint c) { return distance(point, c) <= tolerance; };
  const auto give = [&](PlanePoint c) {
    *midX = c.x;
    *midY = c.y;
    *midZ = 0;
  };

  if (pipe.VTX_MODE == 0) {
    const PlanePoint mid = middle(from, to);
    if (within(mid)) give(mid);
    return 0;
  }
  if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
    DrawnArc arc;
    if (arcOf(pipe, screen, &arc) && within(arc.mid)) give(arc.mid);
    return 0;
  }
  if (pipe.VTX_MODE != 4) return 0;
  // A piece whose middle is near ends the walk; what is given is the middle between the start of that piece and the
  // To node. Kept.
  const VertexRun run = runOf(screen);
  PlanePoint at = from;
  int32_t endedEarly = 0;
  for (int32_t v = run.first; v <= run.last && !endedEarly; v++) {
    const PlanePoint next = positionOf(model.vtx[v]);
    if (within(middle(at, next))) {
      endedEarly = 1;
    } else {
      at = next;
    }
  }
  const PlanePoint last = middle(at, to);
  if (endedEarly || within(last)) give(last);
  return endedEarly;
}
