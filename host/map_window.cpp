// The window on the world of a picture, in each of the views.
#include "map_window.h"

#include <algorithm>
#include <cmath>

#include "extent.h"
#include "records.h"

namespace host {

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;

/** A latitude as the height above the equator that map tiles give it, in degrees of longitude; and back. */
double tileY(double latitude) {
  const double seen = std::clamp(latitude, -85.0, 85.0);  // tiles end there
  return std::log(std::tan((45 + seen / 2) * kDegree)) / kDegree;
}
double latitudeOf(double tile) { return (std::atan(std::exp(tile * kDegree)) / kDegree - 45) * 2; }

Window fullWindow(View view, bool customers) {
  if (view != View::Isometric) {
    const Extent e = modelExtent(customers);
    return {e.minX, e.minY, e.maxX, e.maxY};
  }
  Extent e;
  for (int32_t n = 1; n <= recordCount(Kind::Node); n++) {
    if (isDeleted(Kind::Node, n)) continue;
    Point p;
    CalcIsoXY(number(Kind::Node, n, NDT_X_COORD), number(Kind::Node, n, NDT_Y_COORD),
              static_cast<float>(number(Kind::Node, n, NDT_Z_COORD)), &p.x, &p.y);
    e.add(p.x, p.y);
  }
  return {e.minX, e.minY, e.maxX, e.maxY};
}

/** Widened to the shape of the picture around its middle, with a margin when it is the full extent. */
Window fitted(Window w, double aspect, double margin) {
  const double centreX = (w.left + w.right) / 2, centreY = (w.bottom + w.top) / 2;
  double width = std::max(w.width(), 1e-9) * (1 + margin), height = std::max(w.height(), 1e-9) * (1 + margin);
  if (w.width() <= 0 && w.height() <= 0) width = height = 100;
  if (width / height < aspect) {
    width = height * aspect;
  } else {
    height = width / aspect;
  }
  return {centreX - width / 2, centreY - height / 2, centreX + width / 2, centreY + height / 2};
}

}  // namespace

Window pictureWindow(const MapOptions& o, double aspect) {
  const bool full = o.window.empty();
  Window w = full ? fullWindow(o.view, o.customers) : Window{o.window[0], o.window[1], o.window[2], o.window[3]};
  const double margin = full ? 0.06 : 0;
  if (o.view != View::Geographic) return fitted(w, aspect, margin);
  // The picture stretches latitudes away from the middle one: what must fit is their height on the tiles.
  w.bottom = tileY(w.bottom);
  w.top = tileY(w.top);
  w = fitted(w, aspect, margin);
  const double middle = (w.bottom + w.top) / 2, shift = latitudeOf(middle) - middle;
  return {w.left, w.bottom + shift, w.right, w.top + shift};
}

Point Mapping::operator()(double x, double y, double z) const {
  Point p{x, y};
  if (view == View::Isometric) CalcIsoXY(x, y, static_cast<float>(z), &p.x, &p.y);
  if (view == View::Geographic) p.y = CalcGeoY(y, window.left, window.top, window.right, window.bottom, 0);
  return {(p.x - window.left) / window.width() * width, (window.top - p.y) / window.height() * height};
}

}  // namespace host
