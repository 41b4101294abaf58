/**
 * The pipe under a point: end nodes, straight segments, arcs and labels, the closest one wins.
 *
 * The scan walks the whole pipe table. A box around each piece, widened by more than the segment rule can reach
 * beyond it, rejects nearly all of them before any bearing or root is taken, and never a candidate.
 */
#include <algorithm>

#include "geometry/angles.h"
#include "model/prefetch.h"
#include "search/plane.h"

using namespace pn10;

namespace {

/** Single-precision quarter circle: the widest angle in front of a segment. */
constexpr float kQuarter = 1.5707963705062866f;

/** `GetBrg` in single precision. */
float bearing(PlanePoint from, PlanePoint to) { return static_cast<float>(GetBrg(from.x, from.y, to.x, to.y)); }

/**
 * Whether a point may lie within `best` of the segment by the rule of CalcSegDist. The rule reaches 1 percent of the
 * length beyond either end, and its rounding far less than that again: 2 percent of the box cover both.
 */
bool mayBeWithin(PlanePoint p, PlanePoint a, PlanePoint b, double best) {
  // The distance from the middle of the box against half its size, both doubled.
  const double width = std::fabs(a.x - b.x), height = std::fabs(a.y - b.y);
  const double margin = 2 * best + 0.04 * (width + height);
  // Asked this way round, an end that is no number leaves the pipe to the full test: its other end may be near.
  return !(std::fabs(2 * p.x - a.x - b.x) > width + margin || std::fabs(2 * p.y - a.y - b.y) > height + margin);
}

double segmentDistance(PlanePoint a, PlanePoint b, PlanePoint p) {
  const double d = distance(a, p), length = distance(a, b);
  if (d > length * 1.01) return kFarAway;
  float angle = std::fabs(bearing(a, p) - bearing(a, b));
  if (angle > PI) angle = static_cast<float>(TWO_PI) - angle;
  if (angle > kQuarter) {  // behind the first end
    if (d / length > 0.01) return kFarAway;
    angle = kQuarter;
  }
  return std::sin(static_cast<double>(angle)) * d;
}

/** The closest pipe so far: only what lies strictly nearer replaces it. */
struct Hit {
  PlanePoint point;
  double best;
  int32_t pipe = 0;
  /** More than the rounding of the box test at these coordinates. */
  double slack = 1e-13 * (std::fabs(point.x) + std::fabs(point.y));

  double reach() const { return best + slack; }

  void take(double candidate, int32_t p) {
    if (candidate < best) {
      best = candidate;
      pipe = p;
    }
  }
  void takeSegment(PlanePoint a, PlanePoint b, int32_t p) {
    if (mayBeWithin(point, a, b, reach())) take(segmentDistance(a, b, point), p);
  }
  void takePoint(PlanePoint q, int32_t p) {
    if (std::fabs(point.x - q.x) <= best && std::fabs(point.y - q.y) <= best) take(distance(point, q), p);
  }
};

void takePolyline(Hit& hit, int32_t p, const PXY& screen, PlanePoint from, PlanePoint to) {
  const VertexRun run = runOf(screen);
  PlanePoint at = from;
  for (int32_t v = run.first; v <= run.last; v++) {
    const PlanePoint next = onPlane(model.vtx[v]);
    hit.takeSegment(at, next, p);
    at = next;
  }
  hit.takeSegment(at, to, p);
}

/** False when the pipe takes no further part: no circle, or the point lies in a direction that the arc leaves out. */
bool takeArc(Hit& hit, int32_t p, const Pdt& pipe, const PXY& screen) {
  const Ndt &from = nodeAt(pipe.FROM_NODE), &to = nodeAt(pipe.TO_NODE);
  PlanePoint centre, mid;
  double radius, angle;
  float start, end, midZ;
  if (CalcArcGeom(screen.LAST_VTX, pipe.VTX_MODE, 0, 0, from.X_COORD, from.Y_COORD, to.X_COORD, to.Y_COORD, &centre.x,
                  &centre.y, &radius, &start, &end, &angle, &mid.x, &mid.y, &midZ) != 0) {
    return false;
  }
  centre = onPlane(centre.x, centre.y, 0);
  const float b = bearing(centre, hit.point);
  const bool outside = start > end ? b > end && b < start : b < start || b > end;
  if (outside) return false;
  PlanePoint onCircle;
  GetXY(centre.x, centre.y, b, radius, &onCircle.x, &onCircle.y);
  hit.take(distance(hit.point, onCircle), p);
  return true;
}

void takeLabel(Hit& hit, int32_t p, const Pdt& pipe) {
  if (pipe.TEXT_X == 0 || pipe.TEXT_Y == 0) return;
  const float z = drawState.IsoFlag ? GetPipeTextZ(p) : 0;
  hit.takePoint(onPlane(pipe.TEXT_X, pipe.TEXT_Y, z), p);
}

/**
 * Rejects the pipes without vertices that lie too far away, from their end nodes alone: the rest of a pipe's record is
 * not read for them. Such a pipe stays between its end nodes, whatever its mode says, as long as vertex slot 0 is
 * empty.
 */
class EndBoxFilter {
 public:
  explicit EndBoxFilter(bool withLabel)
      : usable_(!withLabel && drawState.IsoFlag == 0 && model.pxySlots >= model.pdtSlots &&
                (model.vtxSlots < 1 || (model.vtx[0].VTX_X == 0 && model.vtx[0].VTX_Y == 0))) {}

  bool rejects(int32_t p, PlanePoint point, double best) const {
    if (!usable_ || (pxy_[p].FIRST_VTX | pxy_[p].LAST_VTX) != 0) return false;
    const auto from = static_cast<uint32_t>(pdt_[p].FROM_NODE), to = static_cast<uint32_t>(pdt_[p].TO_NODE);
    if (from >= nodeSlots_ || to >= nodeSlots_) return false;
    const Ndt &a = ndt_[from], &b = ndt_[to];
    return !mayBeWithin(point, {a.X_COORD, a.Y_COORD}, {b.X_COORD, b.Y_COORD}, best);
  }

  /** Calls for what the filter reads a few pipes ahead: the waits for memory are most of a scan. */
  [[gnu::always_inline]] void prefetch(int32_t p, int32_t top) const {
    if (top - p < kPipesAhead) return;
    __builtin_prefetch(&pdt_[p + kPipesAhead].FROM_NODE);
    for (const int32_t node : {pdt_[p + kEndsAhead].FROM_NODE, pdt_[p + kEndsAhead].TO_NODE}) {
      if (static_cast<uint32_t>(node) < nodeSlots_) __builtin_prefetch(&ndt_[node].X_COORD);
    }
  }

 private:
  const bool usable_;
  const Pdt* const pdt_ = model.pdt;
  const PXY* const pxy_ = model.pxy;
  const Ndt* const ndt_ = model.ndt;
  const uint32_t nodeSlots_ = static_cast<uint32_t>(model.ndtSlots);
};

}  // namespace

double CalcSegDist(double x1, double y1, double x2, double y2, double px, double py) {
  return segmentDistance({x1, y1}, {x2, y2}, {px, py});
}

int32_t FindPipeXY(double x, double y, float* distance, int16_t activeOnly, int16_t drawnOnly, int16_t withLabel,
                   int32_t excludedNode) {
  if (!distance) return 0;
  Hit hit{{x, y}, *distance};
  const EndBoxFilter filter(withLabel != 0);
  for (int32_t p = 1, top = pipeTop(); p <= top; p++) {
    filter.prefetch(p, top);
    if (filter.rejects(p, hit.point, hit.reach())) continue;
    const Pdt& pipe = pipeAt(p);
    const PXY& screen = pipeScreenAt(p);
    if (pipe.REC_STATUS < 0) continue;
    if ((drawnOnly && screen.DRAWN == 0) || (activeOnly && screen.Active == 0)) continue;
    if (excludedNode && (pipe.FROM_NODE == excludedNode || pipe.TO_NODE == excludedNode)) continue;

    const PlanePoint from = onPlane(nodeAt(pipe.FROM_NODE)), to = onPlane(nodeAt(pipe.TO_NODE));
    hit.takePoint(from, p);
    hit.takePoint(to, p);
    if (pipe.VTX_MODE == 0) {
      hit.takeSegment(from, to, p);
    } else if (pipe.VTX_MODE == 4) {
      takePolyline(hit, p, screen, from, to);
    } else if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
      if (!takeArc(hit, p, pipe, screen)) continue;
    }
    if (withLabel) takeLabel(hit, p, pipe);
  }
  *distance = static_cast<float>(hit.best);
  return hit.pipe;
}

int32_t FindPipeByLocation(double fromX, double fromY, float fromZ, double toX, double toY, float toZ,
                           const double* vtxXs, const double* vtxYs, int32_t vtxCount, float tolerance) {
  const auto closeTo = [tolerance](const Ndt& node, double x, double y, float z) {
    const double dx = node.X_COORD - x, dy = node.Y_COORD - y, dz = static_cast<double>(node.Z_COORD) - z;
    return std::sqrt(dx * dx + dy * dy + dz * dz) <= tolerance;
  };
  const auto sameRun = [&](const PXY& screen) {
    const VertexRun run = runOf(screen);
    if (vtxCount == 0 || vtxCount != run.last - run.first + 1 || !vtxXs || !vtxYs) return false;
    for (int32_t i = 0; i < vtxCount; i++) {
      const Vtx& vertex = model.vtx[run.first + i];
      if (!(::pn10::distance({vertex.VTX_X, vertex.VTX_Y}, {vtxXs[i], vtxYs[i]}) <= tolerance)) return false;
    }
    return true;
  };
  for (int32_t p = 1, top = pipeTop(); p <= top; p++) {
    const Pdt& pipe = pipeAt(p);
    if (!closeTo(nodeAt(pipe.FROM_NODE), fromX, fromY, fromZ) || !closeTo(nodeAt(pipe.TO_NODE), toX, toY, toZ))
      continue;
    if (pipe.REC_STATUS < 0) continue;
    if (pipe.VTX_MODE <= 2) return p;
    if (pipe.VTX_MODE == 4 && sameRun(pipeScreenAt(p))) return p;
  }
  return 0;
}
