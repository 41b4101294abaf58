/** The service line of a customer, from its tap on the pipe to its meter. */
#ifndef PN10_DRAW_CUST_SERVICE_H
#define PN10_DRAW_CUST_SERVICE_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

/** What all service lines of a picture share. */
struct ServiceStyle {
  bool showMarks, showChanges;
  float markSize, deviceSize;
  int32_t penWidth;
};
ServiceStyle serviceStyle(int32_t penWidth);

class ServiceLine {
 public:
  explicit ServiceLine(int32_t cust);
  /** True when tap, meter and every vertex lie beyond the same side of the window, further than `reach`. */
  bool outside(double reach) const;
  /** Line, vertex marks and change marks, in the pen and brush that are selected. */
  void paint(const ServiceStyle& style, int32_t color, bool clearing) const;
  /** Paints (1) or erases (0) the grips of meter and tap. */
  void grip(int16_t paint) const;

  double meterX, meterY, tapX, tapY; /* on the world plane */
  bool hasTap;                       /* kept: a tap at the origin means no service line */

 private:
  void paintRun(const ServiceStyle& style, int32_t color, bool clearing) const;
  void paintVertex(const ServiceStyle& style, Vtx& vtx, int32_t color, bool clearing, double x, double y,
                   double nextBearing) const;
  void paintChange(const ServiceStyle& style, int32_t segment, double x1, double y1, double x2, double y2) const;

  const Cdt& cdt_;
  const CXY& screen_;
  int32_t firstVtx_ = 1, lastVtx_ = 0; /* the run, empty without one */
};

}  // namespace pn10

#endif
