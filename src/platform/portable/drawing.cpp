/** Lines and shapes, painted at once or gathered into the path while a bracket is open. */
#include "platform/portable/arcs.h"
#include "platform/portable/context.h"

using namespace pn10::portable;

namespace {

/** The figure that goes on at the current position, begun there when none does. */
PathFigure& openFigure(Context& context) {
  if (!context.figureOpen) {
    const POINT at = context.state.position;
    context.path.push_back({double(at.x), double(at.y), {}, false});
    context.figureOpen = true;
  }
  return context.path.back();
}

void appendLine(PathFigure& figure, double x, double y) {
  PathFigure::Piece piece{};
  piece.x3 = x;
  piece.y3 = y;
  figure.pieces.push_back(piece);
}

/** A shape of its own in the path; what goes on afterwards begins a new figure at the position. */
void appendFigure(Context& context, PathFigure figure) {
  context.path.push_back(static_cast<PathFigure&&>(figure));
  context.figureOpen = false;
}

PathFigure pointsFigure(const POINT* points, int count, bool closed) {
  PathFigure figure{double(points[0].x), double(points[0].y), {}, closed};
  for (int i = 1; i < count; i++) appendLine(figure, points[i].x, points[i].y);
  return figure;
}

void logPoints(const char* name, const POINT* points, int count) {
  std::string list = std::to_string(count);
  for (int i = 0; points && i < count; i++) {
    list += ' ' + std::to_string(points[i].x) + ' ' + std::to_string(points[i].y);
  }
  logOp(name, list);
}

/** StrokePath and its kin: use up the finished path. */
BOOL paintPath(HDC dc, const char* name, bool stroke, bool fill) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp(name);
  if (!context->pathReady) return 0;
  context->pathReady = false;
  if (stroke && fill) {
    for (PathFigure& figure : context->path) figure.closed = true;
  }
  withPainter(*context, [&](Painter& p) { p.path(context->state.paint, context->path, stroke, fill); });
  context->path.clear();
  return 1;
}

}  // namespace

BOOL MoveToEx(HDC dc, int x, int y, POINT* old) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("MoveToEx", x, y);
  if (old) *old = context->state.position;
  context->state.position = {x, y};
  context->figureOpen = false;
  return 1;
}

BOOL LineTo(HDC dc, int x, int y) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("LineTo", x, y);
  State& state = context->state;
  if (context->pathOpen) {
    appendLine(openFigure(*context), x, y);
  } else {
    /* Read as it was written, in halves: a read of both at once would wait until all pixels before are stored. */
    const volatile POINT& at = state.position;
    const POINT from{at.x, at.y};
    withPainter(*context, [&](Painter& p) { p.line(state.paint, from, {x, y}); });
  }
  state.position = {x, y};
  return 1;
}

BOOL Polyline(HDC dc, const POINT* points, int count) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  if (recording()) logPoints("Polyline", points, count);
  if (!points || count < 2) return 0;
  if (context->pathOpen) {
    appendFigure(*context, pointsFigure(points, count, false));
  } else {
    withPainter(*context, [&](Painter& p) { p.polyline(context->state.paint, points, count); });
  }
  return 1;
}

BOOL Polygon(HDC dc, const POINT* points, int count) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  if (recording()) logPoints("Polygon", points, count);
  if (!points || count < 2) return 0;
  if (context->pathOpen) {
    appendFigure(*context, pointsFigure(points, count, true));
  } else {
    withPainter(*context, [&](Painter& p) { p.polygon(context->state.paint, points, count); });
  }
  return 1;
}

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("Ellipse", left, top, right, bottom);
  const RECT box = ordered(left, top, right, bottom);
  if (context->pathOpen) {
    appendFigure(*context, ellipseFigure(box, true));
  } else {
    withPainter(*context, [&](Painter& p) { p.ellipse(context->state.paint, box); });
  }
  return 1;
}

BOOL Pie(HDC dc, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("Pie", left, top, right, bottom, x1, y1, x2, y2);
  const bool clockwise = context->state.arcDirection == AD_CLOCKWISE;
  const PieShape pie{ordered(left, top, right, bottom), {x1, y1}, {x2, y2}, clockwise};
  if (context->pathOpen) {
    appendFigure(*context, pieFigure(pie, true));
  } else {
    withPainter(*context, [&](Painter& p) { p.pie(context->state.paint, pie); });
  }
  return 1;
}

BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("ArcTo", left, top, right, bottom, x1, y1, x2, y2);
  const RECT box = ordered(left, top, right, bottom);
  const Arc arc = arcOf(box, {x1, y1}, {x2, y2}, context->state.arcDirection == AD_CLOCKWISE);
  const POINT from = context->state.position;
  Path alone;
  if (!context->pathOpen) alone.push_back({double(from.x), double(from.y), {}, false});
  PathFigure& figure = context->pathOpen ? openFigure(*context) : alone.back();
  appendLine(figure, roundToInt(arc.x(arc.start)), roundToInt(arc.y(arc.start)));
  appendCurves(figure, arc, true);
  if (!context->pathOpen) {
    withPainter(*context, [&](Painter& p) { p.path(context->state.paint, alone, true, false); });
  }
  context->state.position = arcEnd(box, {x2, y2});
  return 1;
}

BOOL BeginPath(HDC dc) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("BeginPath");
  context->path.clear();
  context->pathOpen = true;
  context->pathReady = context->figureOpen = false;
  return 1;
}

BOOL EndPath(HDC dc) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("EndPath");
  if (!context->pathOpen) return 0;
  context->pathOpen = context->figureOpen = false;
  context->pathReady = true;
  return 1;
}

BOOL StrokePath(HDC dc) { return paintPath(dc, "StrokePath", true, false); }
BOOL FillPath(HDC dc) { return paintPath(dc, "FillPath", false, true); }
BOOL StrokeAndFillPath(HDC dc) { return paintPath(dc, "StrokeAndFillPath", true, true); }
