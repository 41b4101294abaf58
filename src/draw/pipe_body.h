/** The body of one pipe: its line, arc or polyline, or the device that stands for it. */
#ifndef PN10_DRAW_PIPE_BODY_H
#define PN10_DRAW_PIPE_BODY_H

#include "draw/frame.h"
#include "draw/gdi_objects.h"
#include "model/tables.h"

namespace pn10 {

/** What all bodies of a picture share. */
struct PipeStyle {
  SelectedPen* pen;
  SelectedBrush* brush;
  int32_t paperColor;
  bool clip, showDevices, showArrows, arrowsAtMid, showMarks;
  float markSize;
  double left, bottom, right, top; /* what a body beyond one of these has nothing to show of; see reachOfBodies */

  /** True when two ends lie so far beyond the same side of the window that nothing between them reaches into it. */
  bool endsOutside(double x1, double y1, double x2, double y2) const {
    return (x1 < left && x2 < left) || (x1 > right && x2 > right) || (y1 < bottom && y2 < bottom) ||
           (y1 > top && y2 > top);
  }
};

class PipeBody {
 public:
  PipeBody(int32_t pipe, const PipeStyle& style)
      : style_(style), pipe_(pipe), pdt_(model.pdt[pipe]), screen_(model.pxy[pipe]) {
    const Ndt& from = model.ndt[pdt_.FROM_NODE];
    const Ndt& to = model.ndt[pdt_.TO_NODE];
    MapModelXY(from.X_COORD, from.Y_COORD, from.Z_COORD, &x1, &y1);
    MapModelXY(to.X_COORD, to.Y_COORD, to.Z_COORD, &x2, &y2);
  }
  void look(int32_t penWidth, int32_t penColor) {
    width = penWidth;
    color = penColor;
  }
  /** Paints line, symbols and arrows; false when all of it lies outside the window. */
  bool paint(bool clearing);
  bool endsOutside() const { return style_.endsOutside(x1, y1, x2, y2); }
  /** The pipe's own pen. */
  void usePen() const { style_.pen->lineStyle(screen_.LineType, width, color); }

  double x1, y1, x2, y2; /* the ends on the world plane */
  int32_t width = 0, color = 0;
  int32_t midVertex = 0; /* of a polyline, when someone needs it */

 private:
  bool paintDevice();
  bool paintArc();
  bool paintPolyline(bool clearing);
  bool paintStraight();
  void paintVertex(Vtx& vtx, double x, double y, bool visible, bool clearing) const;
  void paintMark(const Vtx& vtx, double x, double y) const;
  void arrow(double fromX, double fromY, double toX, double toY) const;
  void useBrush() const;

  const PipeStyle& style_;
  const int32_t pipe_;
  const Pdt& pdt_;
  const PXY& screen_;
};

}  // namespace pn10

#endif
