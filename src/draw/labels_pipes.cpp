/** The labels of pipes: stacks that straddle the line, and the numbers of its segments. */
#include <algorithm>
#include <cmath>

#include "draw/frame.h"
#include "draw/gdi_objects.h"
#include "draw/label_stack.h"
#include "draw/labels.h"
#include "geometry/angles.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** The texts of a pipe; the first one tells that the pipe is off. */
void collectLines(int32_t pipe, LabelStack* stack) {
  const ViewOpts& view = *drawState.View;
  for (const int32_t field : view.PipeLabel) {
    if (field == 0) break;
    char* line = stack->lines[stack->count];
    if (!SetTextP(pipe, toInt16(field), line, static_cast<int16_t>(view.PipePrefix != 0),
                  static_cast<int16_t>(view.PipeUnits != 0)))
      continue;
    if (stack->count == 0 && model.pdt[pipe].STATUS) {
      const size_t length = std::strlen(line);
      copyText(line + length, kLabelSize - length, " (Off)");
    }
    stack->count++;
  }
}

/** The kinds of vertices that end a segment of pipe. */
bool isJoint(int16_t kind, bool custLine) { return custLine ? kind == 3 || kind == 5 || kind == 7 : kind == 2; }

struct Run {
  double x1, y1, x2, y2, length;
};

/** A number stands above its run; with label lines, which straddle it, below the run and all of them. */
void paintNumber(const Run& run, int32_t number, int32_t labelLines) {
  const double bearing = GetBrg(run.x1, run.y1, run.x2, run.y2);
  const int16_t escapement = tenthsOfDegree(static_cast<float>(bearing));
  const int16_t upright = uprightTenths(escapement, 910, 2712);
  const double reading = upright == escapement ? bearing : bearing - PI;
  // Kept: the lines of pipes are the measure, on service lines too.
  const double distance = (1.1 + std::max(labelLines - 2, 0)) * drawState.TextHeightP;
  double x, y;
  GetXY((run.x1 + run.x2) * 0.5, (run.y1 + run.y2) * 0.5, labelLines == 0 ? reading + HALF_PI : reading - HALF_PI,
        distance, &x, &y);
  if (OutOfView(x, y) || !turnLabelFont(upright)) return;
  char text[16];
  printInt(text, sizeof text, number);
  paintLabelLine(text, x, y);
}

}  // namespace

int32_t DrawPipeLabel(int32_t pipe, int32_t midVertex, int16_t clearHilite) {
  const Pdt& p = model.pdt[pipe];
  const PXY& screen = model.pxy[pipe];
  const ViewOpts& view = *drawState.View;
  if (p.HYD_TYPE > 0 && view.DevicesUnlabelled) return 0;
  int16_t escapement;
  double stepX, stepY, x, y, midX, midY, x2, y2;
  float elev;
  CalcTextPXY(pipe, midVertex, &escapement, &stepX, &stepY, &x, &y, &midX, &midY, &elev, &x2, &y2);
  if (clearHilite && screen.HILITE_DRAWN) DrawGrip(0, x, y);
  if (OutOfView(x, y)) return 0;
  LabelStack stack;
  collectLines(pipe, &stack);
  const bool leader = view.PipeLeader && hasStoredAnchor(p);
  if (stack.count == 0 && !screen.HILITE && !leader) return 0;
  const BackgroundMode mode(drawState.DC, view.PipeTransparent ? TRANSPARENT : OPAQUE);
  if (!turnLabelFont(escapement)) return 0;
  if (leader) paintLeader(midX, midY, 0, x, y, stepX, stepY, stack.count);
  for (int32_t i = 0; i < stack.count; i++) {
    if (i == 0) {
      paintLabelLine(stack.lines[i], x, y);
    } else {
      paintLabelLine(stack.lines[i], x2 + (i - 1) * stepX, y2 - (i - 1) * stepY);
    }
  }
  if (screen.HILITE) DrawGrip(1, x, y);
  return 1;
}

void DrawSegmentNumbers(int32_t firstVtx, int32_t lastVtx, double x1, double y1, double x2, double y2, int16_t custLine,
                        int32_t labelLines) {
  if (!isVtx(firstVtx) || !isVtx(lastVtx) || firstVtx > lastVtx) return;
  const UINT oldAlign = SetTextAlign(drawState.DC, TA_LEFT);
  Run longest{};
  longest.length = -1;
  int32_t number = 0;
  double lastX = x1, lastY = y1;
  for (int32_t v = firstVtx; v <= lastVtx + 1; v++) {
    double x = x2, y = y2;
    const bool end = v > lastVtx;
    if (!end) MapModelXY(model.vtx[v].VTX_X, model.vtx[v].VTX_Y, model.vtx[v].VTX_Z, &x, &y);
    const double length = std::hypot(x - lastX, y - lastY);
    if (length > longest.length) longest = {lastX, lastY, x, y, length};
    if (end || isJoint(model.vtx[v].VTX_KIND, custLine != 0)) {
      paintNumber(longest, ++number, labelLines);
      longest.length = -1;
    }
    lastX = x;
    lastY = y;
  }
  SetTextAlign(drawState.DC, oldAlign);
}

}  // namespace pn10
