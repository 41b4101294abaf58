/** The symbols of fittings, by the device code of their lookup row. */
#include "draw/passes.h"
#include "draw/pipe_devices.h"
#include "model/tables.h"

namespace pn10 {

namespace {

struct FittingShape {
  int16_t code;
  Stroke stroke;
};
constexpr FittingShape kShapes[] = {
    {1000, {true, 4, {{0, -0.1}, {1, -0.766}, {1, -0.1}, {0, -0.766}}}},
    {1001,
     {true,
      8,
      {{0, -0.1},
       {1, -0.1},
       {1, -0.433},
       {0.667, -0.433},
       {0.667, -0.766},
       {0.333, -0.766},
       {0.333, -0.433},
       {0, -0.433}}}},
    {1002,
     {true,
      8,
      {{0.5, -0.1},
       {0.833, -0.1},
       {0.833, -1.1},
       {0.5, -1.1},
       {0.5, -0.766},
       {0.167, -0.766},
       {0.167, -0.433},
       {0.5, -0.433}}}},
    {1004,
     {true,
      8,
      {{0, -0.1},
       {0.333, -0.1},
       {0.667, -0.266},
       {1, -0.266},
       {1, -0.6},
       {0.667, -0.6},
       {0.333, -0.766},
       {0, -0.766}}}},
};

/** A quarter circle about `centre` in the direction that is set, as ArcTo takes it. */
void arcTo(const Span& span, ShapePoint centre, double radius, ShapePoint from, ShapePoint to) {
  const ShapePoint c = span.world(centre);
  const DevPoint topLeft = WorldToDevPair(c.x - radius, c.y + radius);
  const DevPoint bottomRight = WorldToDevPair(c.x + radius, c.y - radius);
  const DevPoint start = span.device(from), end = span.device(to);
  ArcTo(drawState.DC, topLeft.x, topLeft.y, bottomRight.x, bottomRight.y, start.x, start.y, end.x, end.y);
}

void lineTo(const Span& span, ShapePoint p) {
  const DevPoint d = span.device(p);
  LineTo(drawState.DC, d.x, d.y);
}

/** A quarter bend of pipe: outer arc there, inner arc back. */
void paintElbow(const Span& span, double length) {
  const HDC dc = drawState.DC;
  const ShapePoint centre{0, -1.1}, outerFrom{0, -0.1}, outerTo{1, -1.1}, innerFrom{0.5, -1.1}, innerTo{0, -0.6};
  const int direction = GetArcDirection(dc);
  BeginPath(dc);
  SetArcDirection(dc, AD_CLOCKWISE);
  const DevPoint start = span.device(outerFrom);
  MoveToEx(dc, start.x, start.y, nullptr);
  arcTo(span, centre, length, outerFrom, outerTo);
  lineTo(span, innerFrom);
  SetArcDirection(dc, AD_COUNTERCLOCKWISE);
  arcTo(span, centre, length * 0.5, innerFrom, innerTo);
  lineTo(span, outerFrom);
  EndPath(dc);
  StrokeAndFillPath(dc);
  SetArcDirection(dc, direction);
}

/**
 * The wired bow tie over the whole pipe. Kept: on the isometric view its corners are projected once more, with the
 * From node's elevation, so that it stands apart from its pipe.
 */
void paintWired(const Span& span, float elev) {
  for (int i = 0; i < kWiredBowTie.count; i++) {
    ShapePoint p = span.world(kWiredBowTie.points[i]);
    if (drawState.MapMode == 1) p = {isoX(p.x, p.y), isoY(p.x, p.y, elev)};
    const DevPoint d = WorldToDevPair(p.x, p.y);
    i == 0 ? MoveToEx(drawState.DC, d.x, d.y, nullptr) : LineTo(drawState.DC, d.x, d.y);
  }
}

}  // namespace

void DrawFittingSymbol(int32_t pipe, int16_t code, double x1, double y1, double x2, double y2) {
  if (code == 1005) {
    paintWired(deviceSpan(x1, y1, x2, y2, 0), model.ndt[model.pdt[pipe].FROM_NODE].Z_COORD);
    return;
  }
  const double size = deviceSize(1.0);
  const Span span = deviceSpan(x1, y1, x2, y2, size);
  if (code == 1003) paintElbow(span, size != 0 ? size : std::hypot(x2 - x1, y2 - y1));
  for (const FittingShape& shape : kShapes) {
    if (shape.code == code) span.paint(shape.stroke);
  }
}

}  // namespace pn10
