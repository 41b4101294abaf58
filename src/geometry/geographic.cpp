/**
 * Models in longitude and latitude: lengths on the sphere, and the picture Y of the web tile projection.
 *
 * Lengths are feet. The picture keeps the axis in degrees, but spaces latitudes as the map tiles do; the middle
 * latitude of the window stays where it is.
 */
#include "geometry/geographic.h"

#include <cmath>

#include "geometry/angles.h"
#include "model/draw_state.h"

using namespace pn10;

namespace {

constexpr double kQuarterPi = 0.785398163375;
constexpr double kPixelsPerRadian = 40.743665432689745; /* 128 / pi */
constexpr double kRadiansPerPixel = 0.0078125;          /* 1 / 128, per pi */
constexpr double kNoY = -99999999.0;

double sineSquared(double half) {
  const double s = std::sin(half);
  return s * s;
}

/** The window in tile pixels of the zoom. */
struct TileWindow {
  double power;   /* 2^zoom */
  double perRad;  /* G: tile pixels per radian */
  double width;   /* in tile pixels */
  double B, H;    /* height in tile pixels and in degrees */
  double tangent; /* T of the middle latitude; negative: no picture */
  double top;     /* tile pixel Y of the top */
};

TileWindow computed(double x1, double y1, double x2, double y2, int16_t zoom) {
  TileWindow w{};
  const double W = x2 - x1;
  w.H = y1 - y2;
  w.power = std::ldexp(1.0, zoom);
  w.perRad = w.power * kPixelsPerRadian;
  w.width = w.perRad * (W * PI / 180);
  const double middle = PI * ((y1 + y2) * 0.5) / 180;
  w.tangent = std::tan(0.5 * middle + kQuarterPi);
  w.B = w.H * w.width / W;
  w.top = (PI - std::log(w.tangent)) * w.perRad - 0.5 * w.B;
  return w;
}

/** The window of the call before is kept: every point of a picture asks for the same one. */
const TileWindow& tileWindow(double x1, double y1, double x2, double y2, int16_t zoom) {
  static struct {
    double x1, y1, x2, y2;
    int32_t zoom;
    TileWindow window;
  } last = {0, 0, 0, 0, INT32_MIN, {}};
  if (last.zoom != zoom || last.x1 != x1 || last.y1 != y1 || last.x2 != x2 || last.y2 != y2) {
    last = {x1, y1, x2, y2, zoom, computed(x1, y1, x2, y2, zoom)};
  }
  return last.window;
}

}  // namespace

double CalcGreatCircleDist(double x1, double y1, double x2, double y2, float z1, float z2) {
  const double p1 = y1 * kRadiansOfDegree, p2 = y2 * kRadiansOfDegree;
  const double a =
      sineSquared(std::fabs(x1 * kRadiansOfDegree - x2 * kRadiansOfDegree) * 0.5) * std::cos(p1) * std::cos(p2) +
      sineSquared(std::fabs(p1 - p2) * 0.5);
  const double d = 2 * std::asin(std::sqrt(a));
  return d * ((double{z1} + z2) * 0.5 + kEarthRadius) * feetPerMetre();
}

/* kept: here the height counts in feet, in CalcGreatCircleDist in metres */
double CalcLatLonDist(double distance, float z) {
  return (distance / (feetPerMetre() * kEarthRadius + z)) / kRadiansOfDegree;
}

double CalcDistLatLon(double degrees, float z) {
  return (feetPerMetre() * kEarthRadius + z) * degrees * kRadiansOfDegree;
}

double CalcGeoY(double latitude, double winX1, double winY1, double winX2, double winY2, int16_t zoom) {
  const TileWindow& w = tileWindow(winX1, winY1, winX2, winY2, zoom);
  if (w.tangent < 0) return kNoY;
  const double A = w.power * 128 / PI;
  const double v = std::log(std::tan(latitude * PI / 180 * 0.5 + kQuarterPi));
  return winY1 - ((PI - v) * A - w.top) / (w.B / w.H);
}

double CalcGeoY_(double latitude) {
  const DrawState& s = drawState;
  return CalcGeoY(latitude, s.GeoX1, s.GeoY1, s.GeoX2, s.GeoY2, s.Zoom);
}

int32_t SetGeoYVars(void) {
  DrawState& s = drawState;
  const TileWindow& w = tileWindow(s.X0, s.Y0, s.X1, s.Y1, s.Zoom);
  if (w.width == 0 || w.B == 0) return 65535;
  const bool usable = !(w.tangent < 0);
  s.GeoTop = usable ? w.top : 0;
  s.GeoScale = usable ? w.B / w.H : 0;
  return usable ? 1 : 65535;
}

double CalcLatFromPictY(double pictY, double winX1, double winY1, double winX2, double winY2, int16_t zoom) {
  const TileWindow& w = tileWindow(winX1, winY1, winX2, winY2, zoom);
  if (w.tangent < 0) return kNoY;
  const double pixel = (PI - std::log(w.tangent)) * w.perRad - 0.5 * w.B + (w.B / w.H) * (winY1 - pictY);
  const double q = PI - pixel * PI * kRadiansPerPixel / w.power;
  return (std::atan(std::exp(q)) - kQuarterPi) * 2 * 180 / PI;
}
