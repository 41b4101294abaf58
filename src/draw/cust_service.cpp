/** How a service line is painted. */
#include "draw/cust_service.h"

#include <algorithm>
#include <cmath>

#include "draw/pass_common.h"
#include "draw/symbols.h"
#include "geometry/angles.h"
#include "model/tables.h"

namespace pn10 {

namespace {

void mapVertex(const Vtx& v, double* x, double* y) { MapModelXY(v.VTX_X, v.VTX_Y, v.VTX_Z, x, y); }

/** The mark of a kind of service vertex. */
struct ServiceMark {
  int16_t kind, symbol;
  bool device;    /* sized like devices, else like marks */
  bool alongNext; /* turned to the coming segment */
  double bearing;
};
constexpr ServiceMark kMarks[] = {
    {1, 5, false, false, 0},
    {3, 3, false, false, HALF_PI * 0.5},
    {5, 15, true, true, 0},
    {7, 2, false, false, 0},
};

}  // namespace

ServiceStyle serviceStyle(int32_t penWidth) {
  const DrawState& s = drawState;
  const ViewOpts& view = *s.View;
  const double size = view.DeviceSize;
  const float markSize = s.DefaultNodeSize * 0.75f;
  double deviceSize = size * 0.1;
  if (size == 0) deviceSize = markSize * 1.5;
  if (size < 0) deviceSize = s.ViewHeight * -size * 0.001;
  return {view.VtxMarksOn != 0, view.CustChangeMarkOn != 0, markSize, static_cast<float>(deviceSize), penWidth};
}

ServiceLine::ServiceLine(int32_t cust) : cdt_(model.cdt[cust]), screen_(model.cxy[cust]) {
  MapModelXY(cdt_.X_COORD, cdt_.Y_COORD, cdt_.Z_COORD, &meterX, &meterY);
  hasTap = cdt_.SX_COORD != 0 || cdt_.SY_COORD != 0;
  tapX = cdt_.SX_COORD;
  tapY = cdt_.SY_COORD;
  if (hasTap) MapModelXY(cdt_.SX_COORD, cdt_.SY_COORD, cdt_.Z_COORD, &tapX, &tapY);
  if (hasTap && cdt_.VTX_MODE == 4 && screen_.FIRST_VTX > 0) {
    firstVtx_ = screen_.FIRST_VTX;
    lastVtx_ = std::min(screen_.LAST_VTX, vtxTop());
  }
}

bool ServiceLine::outside(double reach) const {
  double left = meterX, right = meterX, bottom = meterY, top = meterY;
  const auto add = [&](double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    bottom = std::min(bottom, y);
    top = std::max(top, y);
  };
  if (hasTap) add(tapX, tapY);
  for (int32_t v = firstVtx_; v <= lastVtx_; v++) {
    double x, y;
    mapVertex(model.vtx[v], &x, &y);
    add(x, y);
  }
  const DrawState& s = drawState;
  return right < s.ClipX0 - reach || left > s.ClipX1 + reach || top < s.ClipY1 - reach || bottom > s.ClipY0 + reach;
}

void ServiceLine::grip(int16_t paint) const {
  DrawGrip(paint, meterX, meterY);
  if (hasTap) DrawGrip(paint, tapX, tapY);
}

void ServiceLine::paint(const ServiceStyle& style, int32_t color, bool clearing) const {
  if (!hasTap) return;
  if (firstVtx_ <= lastVtx_) {
    paintRun(style, color, clearing);
  } else {
    DrawClipLine(0, tapX, tapY, meterX, meterY);
  }
}

void ServiceLine::paintRun(const ServiceStyle& style, int32_t color, bool clearing) const {
  double fromX = tapX, fromY = tapY, x, y;
  mapVertex(model.vtx[firstVtx_], &x, &y);
  for (int32_t v = firstVtx_; v <= lastVtx_; v++) {
    double nextX = meterX, nextY = meterY;
    if (v < lastVtx_) mapVertex(model.vtx[v + 1], &nextX, &nextY);
    DrawClipLine(0, fromX, fromY, x, y);
    paintVertex(style, model.vtx[v], color, clearing, x, y, GetBrg(x, y, nextX, nextY));
    paintChange(style, v, fromX, fromY, x, y);
    fromX = x;
    fromY = y;
    x = nextX;
    y = nextY;
  }
  DrawClipLine(0, fromX, fromY, meterX, meterY);
  paintChange(style, lastVtx_ + 1, fromX, fromY, meterX, meterY);
}

/** The mark of a vertex, in its own hilite colour when it alone is selected, and its grip. */
void ServiceLine::paintVertex(const ServiceStyle& style, Vtx& vtx, int32_t color, bool clearing, double x, double y,
                              double nextBearing) const {
  const bool erase = clearing && vtx.VTX_DRAWN;
  if (erase) DrawGrip(0, x, y);
  if (clearing) vtx.VTX_HILITE = vtx.VTX_DRAWN = 0;
  for (const ServiceMark& mark : kMarks) {
    if (!style.showMarks || vtx.VTX_OWNER == 0 || mark.kind != vtx.VTX_KIND) continue;
    SelectedPen pen(drawState.DC);
    SelectedBrush brush(drawState.DC);
    if (vtx.VTX_HILITE && !screen_.HILITE) {
      pen.plain(PS_SOLID, style.penWidth, HiliteColor(color));
      brush.solid(HiliteColor(color));
    }
    DrawSymbol(mark.symbol, mark.device ? style.deviceSize : style.markSize,
               static_cast<float>(mark.alongNext ? nextBearing : mark.bearing), x, y);
  }
  if ((vtx.VTX_HILITE || screen_.HILITE) && gripsApply()) {
    DrawGrip(1, x, y);
    vtx.VTX_DRAWN = 1;
  }
}

/** A stake where the line changes. Kept: a segment goes by the vertex at its far end, the last by one more. */
void ServiceLine::paintChange(const ServiceStyle& style, int32_t segment, double x1, double y1, double x2,
                              double y2) const {
  if (!style.showChanges) return;
  const double bearing = GetBrg(x1, y1, x2, y2), length = std::hypot(x2 - x1, y2 - y1);
  const auto stake = [&](int32_t vertex, float fraction) {
    if (vertex != segment) return;
    double x, y;
    GetXY(x1, y1, bearing, length * fraction, &x, &y);
    DrawSymbol(106, style.deviceSize, static_cast<float>(bearing - HALF_PI), x, y);
  };
  stake(screen_.CHANGE_VTX_A, screen_.CHANGE_FRAC_A);
  stake(screen_.CHANGE_VTX_B, screen_.CHANGE_FRAC_B);
}

}  // namespace pn10
