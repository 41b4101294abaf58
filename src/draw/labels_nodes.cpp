/** The labels of nodes and customers: stacks of lines beside a point. */
#include "draw/frame.h"
#include "draw/gdi_objects.h"
#include "draw/label_stack.h"
#include "draw/labels.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** Where a stack stands and how it runs. */
struct Place {
  float angle;
  double stepX, stepY, x, y, stepLength;
};

/** What the two kinds look up under different names. */
struct Kind {
  bool transparent, leader;
  bool hilite;
  double itemX, itemY; /* on the world plane */
  bool storedAnchor;
};

void paintStack(const Place& place, const Kind& kind, int16_t escapement, const LabelStack& stack, float symSize) {
  const bool leader = kind.leader && kind.storedAnchor;  // without a line of text too: it ends at the anchor
  if (stack.count == 0 && !kind.hilite && !leader) return;
  const BackgroundMode mode(drawState.DC, kind.transparent ? TRANSPARENT : OPAQUE);
  if (!turnLabelFont(escapement)) return;
  if (leader) {
    paintLeader(kind.itemX, kind.itemY, 0.6 * symSize, place.x, place.y, place.stepX, place.stepY, stack.count);
  }
  double x = place.x, y = place.y;
  for (int32_t i = 0; i < stack.count; i++) {
    paintLabelLine(stack.lines[i], x, y);
    x += place.stepX;
    y -= place.stepY;
  }
  if (kind.hilite) DrawGrip(1, place.x, place.y);
}

}  // namespace

int32_t DrawNodeLabel(int32_t node, float symSize, int16_t clearHilite) {
  const Ndt& n = model.ndt[node];
  const NXY& screen = model.nxy[node];
  const ViewOpts& view = *drawState.View;
  if (view.NodeLabelsLoadedOnly && n.QB_LOAD == 0 && n.QX_LOAD == 0) return 0;
  Place place;
  CalcTextNXY(node, symSize, &place.angle, &place.stepX, &place.stepY, &place.x, &place.y, &place.stepLength);
  if (clearHilite && screen.HILITE_DRAWN) DrawGrip(0, place.x, place.y);
  if (OutOfView(place.x, place.y)) return 0;
  LabelStack stack;
  for (int32_t slot = 0; slot < 20 && view.NodeLabel[slot] != 0; slot++) {
    stack.count += SetTextN(node, toInt16(view.NodeLabel[slot]), stack.lines[stack.count],
                            static_cast<int16_t>(view.NodePrefix != 0), static_cast<int16_t>(view.NodeUnits != 0));
  }
  Kind kind{view.NodeTransparent != 0, view.NodeLeader != 0, screen.HILITE != 0, 0, 0, hasStoredAnchor(n)};
  MapModelXY(n.X_COORD, n.Y_COORD, n.Z_COORD, &kind.itemX, &kind.itemY);
  paintStack(place, kind, tenthsOfDegree(place.angle), stack, symSize);
  return 1;
}

int32_t DrawCustLabel(int32_t cust, float symSize, int16_t clearHilite) {
  const Cdt& c = model.cdt[cust];
  const CXY& screen = model.cxy[cust];
  const ViewOpts& view = *drawState.View;
  Place place;
  CalcTextCXY(cust, &place.angle, &place.stepX, &place.stepY, &place.x, &place.y, &place.stepLength);
  if (clearHilite && screen.HILITE_DRAWN) DrawGrip(0, place.x, place.y);
  if (OutOfView(place.x, place.y)) return 0;
  LabelStack stack;
  for (const int32_t field : view.CustLabel) {
    stack.count += SetTextC(cust, toInt16(field), stack.lines[stack.count], static_cast<int16_t>(view.CustPrefix != 0),
                            static_cast<int16_t>(view.CustUnits != 0));
  }
  Kind kind{view.CustTransparent != 0, view.CustLeader != 0, screen.HILITE != 0, 0, 0, hasStoredAnchor(c)};
  MapModelXY(c.X_COORD, c.Y_COORD, c.Z_COORD, &kind.itemX, &kind.itemY);
  SetTextAlign(drawState.DC, TA_BASELINE);
  int16_t escapement = tenthsOfDegree(place.angle);
  if (drawState.IsoFlag) escapement = CalcIsoDeg(escapement);
  paintStack(place, kind, escapement, stack, symSize);
  return 1;
}

}  // namespace pn10
