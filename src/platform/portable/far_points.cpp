/** Chains and polygons cut to the coordinates that the libraries of pages can hold. */
#include "platform/portable/far_points.h"

#include <algorithm>
#include <cmath>

namespace pn10::portable {

namespace {

struct Corner {
  double at[2];
};

Corner cornerOf(POINT p) { return {{double(p.x), double(p.y)}}; }

Corner between(const Corner& a, const Corner& b, double part) {
  return {{a.at[0] + part * (b.at[0] - a.at[0]), a.at[1] + part * (b.at[1] - a.at[1])}};
}

void appendCorner(PathFigure& figure, const Corner& c) {
  PathFigure::Piece piece{};
  piece.x3 = c.at[0];
  piece.y3 = c.at[1];
  figure.pieces.push_back(piece);
}

/** The part begin ... end of a side that lies inside, 0 ... 1 being all of it; false when there is none. */
bool cutSide(const Corner& from, const Corner& to, double& begin, double& end) {
  begin = 0;
  end = 1;
  for (int axis = 0; axis < 2; axis++) {
    const double at = from.at[axis], way = to.at[axis] - at;
    if (way == 0) {
      if (std::fabs(at) > kFarthest) return false;
      continue;
    }
    const double a = (-kFarthest - at) / way, b = (kFarthest - at) / way;
    begin = std::max(begin, std::min(a, b));
    end = std::min(end, std::max(a, b));
  }
  return begin <= end;
}

/** Keeps what lies on the inner side of one edge: its axis, and which end of it. */
void cutArea(const std::vector<Corner>& area, std::vector<Corner>& kept, int axis, double end) {
  kept.clear();
  for (size_t i = 0; i < area.size(); i++) {
    const Corner &a = area[i], &b = area[i + 1 == area.size() ? 0 : i + 1];
    const double inA = kFarthest - end * a.at[axis], inB = kFarthest - end * b.at[axis];
    if (inA >= 0) kept.push_back(a);
    if ((inA >= 0) != (inB >= 0)) kept.push_back(between(a, b, inA / (inA - inB)));
  }
}

}  // namespace

bool anyFar(const POINT* points, int32_t count) {
  return std::any_of(points, points + count,
                     [](POINT p) { return std::fabs(double(p.x)) > kFarthest || std::fabs(double(p.y)) > kFarthest; });
}

Path sidesInside(const POINT* points, int32_t count, bool closed) {
  Path path;
  bool goesOn = false;
  for (int32_t i = closed ? 0 : 1; i < count; i++) {
    const Corner from = cornerOf(points[i ? i - 1 : count - 1]), to = cornerOf(points[i]);
    double begin, end;
    const bool seen = cutSide(from, to, begin, end);
    if (seen) {
      const Corner first = between(from, to, begin);
      if (!goesOn || begin > 0) path.push_back({first.at[0], first.at[1], {}, false});
      appendCorner(path.back(), between(from, to, end));
    }
    goesOn = seen && end == 1;
  }
  return path;
}

Path areaInside(const POINT* points, int32_t count) {
  std::vector<Corner> area, kept;
  for (int32_t i = 0; i < count; i++) area.push_back(cornerOf(points[i]));
  for (int axis = 0; axis < 2; axis++) {
    for (const double end : {1.0, -1.0}) {
      cutArea(area, kept, axis, end);
      area.swap(kept);
    }
  }
  Path path;
  if (area.empty()) return path;
  path.push_back({area[0].at[0], area[0].at[1], {}, true});
  for (size_t i = 1; i < area.size(); i++) appendCorner(path[0], area[i]);
  return path;
}

}  // namespace pn10::portable
