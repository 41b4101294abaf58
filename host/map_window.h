/** Which part of the world a picture shows, and where in the picture a model point stands. */
#ifndef PN10_HOST_MAP_WINDOW_H
#define PN10_HOST_MAP_WINDOW_H

#include "map_view.h"
#include "network.h"

namespace host {

/** The world window of a picture. Of the geographic view it counts in degrees of longitude both ways. */
struct Window {
  double left, bottom, right, top;
  double width() const { return right - left; }
  double height() const { return top - bottom; }
};

/** What the options ask for, or all of the open model with a margin; widened to the shape of the picture. */
Window pictureWindow(const MapOptions& o, double aspect);

/** Pixels of the picture, from model points. */
struct Mapping {
  Window window;
  int32_t width, height;
  View view;
  Point operator()(double x, double y, double z = 0) const;
};

}  // namespace host

#endif
