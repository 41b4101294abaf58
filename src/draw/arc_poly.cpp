/** Arcs as chains of chords, and the small closed arrow head. */
#include <algorithm>
#include <cmath>

#include "draw/frame.h"
#include "draw/lines.h"
#include "geometry/angles.h"
#include "geometry/direction.h"

namespace pn10 {

namespace {

constexpr double kDegree = 0.017453292;
constexpr double kHeadHalfAngle = 0.15707964; /* 9 degrees */

double withinOneTurn(double angle) {
  if (!(std::fabs(angle) > TWO_PI)) return angle;
  const double rest = std::fmod(angle, TWO_PI);
  return rest < 0 ? rest + TWO_PI : rest;
}

/** The points of one arc on the world plane. */
struct DrawnArc {
  double x, y, radius;
  float elev;
  bool leaning; /* a circle on the ground, seen in the isometric view */

  WorldPoint at(double angle) const {
    WorldPoint p;
    GetXY(x, y, angle, radius, &p.x, &p.y);
    return leaning ? WorldPoint{isoX(p.x, p.y), isoY(p.x, p.y, elev)} : p;
  }
};

DevPoint dev(const WorldPoint& p) { return WorldToDevPair(p.x, p.y); }

}  // namespace

void DrawArcPoly(float elev, float radius, float startAngle, float endAngle, int16_t clip, double cx, double cy,
                 int16_t project) {
  const DrawState& s = drawState;
  const double start = withinOneTurn(startAngle), end = withinOneTurn(endAngle);
  const DrawnArc arc{cx, project && s.MapMode == 2 ? CalcGeoY_(cy) : cy, radius, elev, project && s.MapMode == 1};
  const WorldPoint first = arc.at(start), last = arc.at(end);
  if (clip && OutOfView(first.x, first.y) && OutOfView(last.x, last.y)) return;
  const double sweep = start <= end ? end - start : (TWO_PI - start) + end;
  const double step = radius * kDegree < s.MinChord ? double{s.MinChord} / radius : kDegree;
  const int32_t chords = toInt32(std::floor(sweep / step));
  const DevPoint a = dev(first), b = dev(last);
  MoveToEx(s.DC, a.x, a.y, nullptr);
  double angle = start;
  for (int32_t i = 1; i < chords; i++) {
    angle += step;
    const DevPoint p = dev(arc.at(angle));
    LineTo(s.DC, p.x, p.y);
  }
  LineTo(s.DC, b.x, b.y);
}

void DrawArrowHead(double tipX, double tipY, double backX, double backY, float arrowSize) {
  const double back = GetBrg(tipX, tipY, backX, backY);
  const double length = std::sqrt((backX - tipX) * (backX - tipX) + (backY - tipY) * (backY - tipY));
  const double head = std::min(length, double{arrowSize});
  const WorldPoint tip{tipX, tipY};
  const POINT corners[3] = {dev(tip), dev(moved(tip, directionOf(back + kHeadHalfAngle), head)),
                            dev(moved(tip, directionOf(back - kHeadHalfAngle), head))};
  Polygon(drawState.DC, corners, 3);
}

}  // namespace pn10
