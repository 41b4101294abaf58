/** How a pipe's line, arc, polyline or device is painted. */
#include "draw/pipe_body.h"

#include <algorithm>
#include <cmath>

#include "draw/pass_common.h"
#include "draw/pipe_devices.h"
#include "draw/symbols.h"
#include "geometry/angles.h"
#include "lookup/lookup.h"

namespace pn10 {

namespace {

/** A device's line is never broken: its outline would be. */
bool isDashed(int16_t style) {
  uint32_t lengths[8];
  int32_t count = 0;
  DashPattern(style, 1, lengths, &count);
  return count > 0 || (style >= 2 && style <= 5);
}

/** The device code of a fitting's row, 0 without one. */
int16_t fittingCode(const Pdt& p) {
  const FLut* row = lutRow(lookups.flut, FindFLutRno(p.SIZE_TYPE, 0));
  return row ? row->FIELD_20 : int16_t{0};
}

struct Box {
  Box(double x, double y) : left(x), bottom(y), right(x), top(y) {}
  Box& with(double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    bottom = std::min(bottom, y);
    top = std::max(top, y);
    return *this;
  }
  Box& wider(double margin) {
    left -= margin;
    right += margin;
    bottom -= margin;
    top += margin;
    return *this;
  }
  bool outside() const {
    const DrawState& s = drawState;
    return right < s.ClipX0 || left > s.ClipX1 || top < s.ClipY1 || bottom > s.ClipY0;
  }
  double left, bottom, right, top;
};

void mapVertex(const Vtx& v, double* x, double* y) { MapModelXY(v.VTX_X, v.VTX_Y, v.VTX_Z, x, y); }

}  // namespace

bool PipeBody::paint(bool clearing) {
  if (style_.showDevices && pdt_.HYD_TYPE >= 1 && pdt_.HYD_TYPE <= 5) {
    if (pdt_.HYD_TYPE != 5 || fittingCode(pdt_) != 0) return paintDevice();
  }
  if (pdt_.VTX_MODE == 1 || pdt_.VTX_MODE == 2) return paintArc();
  if (pdt_.VTX_MODE == 4) return paintPolyline(clearing);
  return paintStraight();
}

bool PipeBody::paintDevice() {
  // Wired fittings span the pipe whatever the size of devices.
  const double size = deviceSize(std::max(1.0, drawState.UnitsPerDisplay));
  const double reach = 1.6 * std::max(size, std::hypot(x2 - x1, y2 - y1));
  const bool fitting = pdt_.HYD_TYPE == 5;
  const bool apart = fitting && drawState.MapMode == 1;  // may stand anywhere on the isometric view
  if (style_.clip && !apart && Box(x1, y1).with(x2, y2).wider(reach).outside()) return false;
  if (!fitting && isDashed(screen_.LineType)) {
    style_.pen->plain(PS_SOLID, width, color);
  } else {
    usePen();
  }
  useBrush();
  if (fitting || drawState.View->DeviceSize != 0) DrawClipLine(style_.clip, x1, y1, x2, y2);
  if (fitting) {
    DrawFittingSymbol(pipe_, fittingCode(pdt_), x1, y1, x2, y2);
  } else {
    DrawDeviceSymbol(pipe_, x1, y1, x2, y2);
  }
  return true;
}

bool PipeBody::paintArc() {
  if (style_.clip && OutOfView(x1, y1) && OutOfView(x2, y2)) return false;
  const Ndt& from = model.ndt[pdt_.FROM_NODE];
  const Ndt& to = model.ndt[pdt_.TO_NODE];
  usePen();
  if (DrawPipeArc(pipe_, from.X_COORD, from.Y_COORD, from.Z_COORD, to.X_COORD, to.Y_COORD, to.Z_COORD) < 0)
    return false;
  arrow(x1, y1, x2, y2);
  return true;
}

bool PipeBody::paintStraight() {
  if (endsOutside()) return false;
  usePen();
  const bool visible = ClipPath(style_.clip, x1, y1).lineTo(x2, y2);
  arrow(x1, y1, x2, y2);  // its barbs may reach into the window where the line does not
  return visible;
}

bool PipeBody::paintPolyline(bool clearing) {
  const int32_t first = screen_.FIRST_VTX, last = std::min(screen_.LAST_VTX, vtxTop());
  if (first < 1 || first > last) return paintStraight();
  if (!clearing && endsOutside()) {  // clearing looks at every vertex, painted or not
    Box box = Box(x1, y1).with(x2, y2);
    for (int32_t v = first; v <= last; v++) {
      double x, y;
      mapVertex(model.vtx[v], &x, &y);
      box.with(x, y);
    }
    if (box.outside()) return false;
  }
  usePen();
  if (style_.showMarks) useBrush();
  const bool watchVertices = clearing || style_.showMarks || screen_.HILITE;
  bool painted = false;
  ClipPath path(style_.clip, x1, y1);
  double fromX = x1, fromY = y1;
  for (int32_t v = first; v <= last + 1; v++) {
    double x = x2, y = y2;
    if (v <= last) mapVertex(model.vtx[v], &x, &y);
    const bool visible = path.lineTo(x, y);
    if (style_.showArrows && visible && (!style_.arrowsAtMid || v == midVertex)) arrow(fromX, fromY, x, y);
    if (v <= last && (watchVertices || model.vtx[v].VTX_HILITE)) paintVertex(model.vtx[v], x, y, visible, clearing);
    painted = painted || visible;
    fromX = x;
    fromY = y;
  }
  return painted;
}

/** The mark of a vertex, in its own hilite colour when it alone is selected, and its grip. */
void PipeBody::paintVertex(Vtx& vtx, double x, double y, bool visible, bool clearing) const {
  if (visible && style_.showMarks && vtx.VTX_OWNER != 0) {
    SelectedPen pen(drawState.DC);
    SelectedBrush brush(drawState.DC);
    if (vtx.VTX_HILITE && !screen_.HILITE && !clearing) {
      pen.plain(PS_SOLID, width, HiliteColor(color));
      brush.solid(HiliteColor(color));
    }
    paintMark(vtx, x, y);
  }
  if (clearing) {
    if (vtx.VTX_DRAWN) DrawGrip(0, x, y);
    vtx.VTX_HILITE = vtx.VTX_DRAWN = 0;
  } else if ((vtx.VTX_HILITE || screen_.HILITE) && gripsApply()) {
    DrawGrip(1, x, y);
    vtx.VTX_DRAWN = 1;
  }
}

void PipeBody::paintMark(const Vtx& vtx, double x, double y) const {
  struct Mark {
    int16_t kind, symbol;
    double bearing;
  };
  constexpr Mark kMarks[] = {{0, 5, HALF_PI}, {2, 3, HALF_PI * 0.5}};
  for (const Mark& mark : kMarks) {
    if (mark.kind == vtx.VTX_KIND)
      DrawMark(mark.symbol, style_.markSize, vtx.VTX_Z, static_cast<float>(mark.bearing), 0, x, y);
  }
}

void PipeBody::arrow(double fromX, double fromY, double toX, double toY) const {
  if (!style_.showArrows) return;
  DrawFlowArrow(pipe_, static_cast<double>(pdt_.Q_FACTOR) * pdt_.FLOW, fromX, fromY, toX, toY, drawState.ArrowSize);
}

void PipeBody::useBrush() const {
  if (drawState.View->VtxMarksFilled) {
    style_.brush->solid(color);
  } else {
    style_.brush->indirect(BS_SOLID, style_.paperColor);
  }
}

}  // namespace pn10
