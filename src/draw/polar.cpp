/** Points at a bearing and a distance from an origin, as device points. */
#include "draw/frame.h"
#include "geometry/direction.h"

using namespace pn10;

namespace {

WorldPoint polar(double x, double y, float bearing, float distance) {
  WorldPoint p;
  GetXY(x, y, bearing, distance, &p.x, &p.y);
  return p;
}

DevPair devPair(const WorldPoint& p) {
  const DevPoint d = WorldToDevPair(p.x, p.y);
  return {d.x, d.y};
}

void put(DevPair pair, int32_t* devX, int32_t* devY) {
  if (devX) *devX = pair.x;
  if (devY) *devY = pair.y;
}

WorldPoint lifted(const WorldPoint& p, float z) {
  return drawState.MapMode == 1 ? WorldPoint{isoX(p.x, p.y), isoY(p.x, p.y, z)} : p;
}

}  // namespace

void GetIsoDevXY(double x, double y, float bearing, float distance, float z, int32_t* devX, int32_t* devY) {
  put(devPair(lifted(polar(x, y, bearing, distance), z)), devX, devY);
}

void GetDevXY(double x, double y, float bearing, float distance, int32_t* devX, int32_t* devY) {
  put(devPair(polar(x, y, bearing, distance)), devX, devY);
}

DevPair GetViewDevXY(double x, double y, float bearing, float distance, float z, int16_t geoFlag) {
  WorldPoint p = lifted(polar(x, y, bearing, distance), z);
  if (drawState.MapMode == 2 && geoFlag) p.y = CalcGeoY_(p.y);
  return devPair(p);
}

DevPair GetDevXYPair(double x, double y, float bearing, float distance) {
  return devPair(polar(x, y, bearing, distance));
}

DevPair GetPolarXY(double x, double y, float bearing, float distance) {
  const WorldPoint p = polar(x, y, bearing, distance);
  return {toInt32(p.x), toInt32(p.y)};
}
