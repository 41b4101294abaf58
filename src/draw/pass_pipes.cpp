/** The pipe pass: bodies, devices, flow arrows, vertex marks, flags and labels, and the marking of the end nodes. */
#include <algorithm>
#include <cmath>
#include <limits>

#include "draw/label_stack.h"
#include "draw/labels.h"
#include "draw/pass_common.h"
#include "draw/pipe_body.h"
#include "draw/plain_pipes.h"
#include "model/prefetch.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** The world size of flow arrows; false when they would be too small to read. */
bool arrowsReadable(float sizeFactor, float viewWidth) {
  DrawState& s = drawState;
  const double a = s.View->ArrowSize;
  double size = s.DefaultNodeSize * 5.0 * std::cos(0.15707963705062866);
  if (a < 0) size = -a * s.ViewHeight * 0.003;
  if (a > 0) size = a * 0.3 * s.UnitsPerDisplay;
  if (onPaper()) size *= sizeFactor;
  s.ArrowSize = static_cast<float>(size);
  return onPaper() || s.ArrowSize >= viewWidth * 0.01 || s.ArrowSize >= s.ViewHeight * 0.01;
}

/** A zoom limit of 0 is none; beyond a limit means further out. */
bool beyond(float limit) { return limit != 0 && limit < drawState.MapScale; }

/** What the label slots ask for; kept: sizes and diameters do not count as lines, though they are painted. */
struct LabelSlots {
  bool numberSegments = false;
  int32_t lines = 0;
};
LabelSlots scanLabelSlots() {
  LabelSlots slots;
  for (const int32_t field : drawState.View->PipeLabel) {
    if (field == 71) {
      slots.numberSegments = true;
    } else if (field != 0 && field != 7 && field != 35) {
      slots.lines++;
    }
  }
  return slots;
}

/** The window that bodies must reach into: wider by an open arrow, which stands on a line outside too; all without
 * clip. */
void reachOfBodies(PipeStyle& style) {
  const DrawState& s = drawState;
  const double margin = style.clip ? (style.showArrows ? s.ArrowSize : 0.0) : std::numeric_limits<double>::infinity();
  style.left = s.ClipX0 - margin;
  style.right = s.ClipX1 + margin;
  style.bottom = s.ClipY1 - margin;
  style.top = s.ClipY0 + margin;
}

/** Everything of a picture that one pipe needs to know. */
struct PipePass {
  PipeStyle style;
  LabelSlots slots;
  bool clearing, recolour, mono, showLabels, showFlags;
  float penFactor;
  int32_t flagWidth;
  uint32_t nodeTop; /* the highest record that ends a pipe */

  bool paint(int32_t pipe);
  bool linesAlone() const;
  bool isEnd(int32_t node) const { return static_cast<uint32_t>(node) - 1u < nodeTop; }
  bool isFar(const Pdt& p, const PXY& screen, const PipeBody& body) const;
  bool wantsMidVertex(const Pdt& p, bool labelled) const;
  void paintGrips(PXY& screen, const PipeBody& body) const;
  void paintFlag(int32_t pipe, const PipeBody& body) const;
};

/** True when the picture shows nothing of a plain pipe but its line, as it stands in the screen records. */
bool PipePass::linesAlone() const {
  return !onPaper() && !clearing && !recolour && !showLabels && !slots.numberSegments && !style.showArrows &&
         !style.showMarks && (drawState.MapMode == 0 || drawState.MapMode == 3);
}

/** True when a plain pipe without vertices lies outside the window and has nothing to show but its body. */
bool PipePass::isFar(const Pdt& p, const PXY& screen, const PipeBody& body) const {
  return p.HYD_TYPE == 0 && screen.LAST_VTX == 0 && !showLabels && !clearing && !screen.HILITE &&
         !(showFlags && p.FLAG_BYTE) && body.endsOutside();
}

/** Marks the end nodes for the node pass. */
void markNode(int32_t node) {
  if (static_cast<uint32_t>(node) < static_cast<uint32_t>(model.nxySlots)) model.nxy[node].Drawn = -1;
}

/** True when something of the pipe was painted. */
bool PipePass::paint(int32_t pipe) {
  const Pdt& p = model.pdt[pipe];
  PXY& screen = model.pxy[pipe];
  screen.DRAWN = 0;
  if (p.REC_STATUS < 0) return false;
  if (recolour) SetPipeColor(pipe);
  if (!screen.Display || (p.HYD_TYPE == 0 && screen.LENGTH < drawState.MinPipeLength)) return false;
  if (!isEnd(p.FROM_NODE) || !isEnd(p.TO_NODE)) return false;
  screen.DRAWN = 1;
  markNode(p.FROM_NODE);
  markNode(p.TO_NODE);
  if (screen.LineType == 6) return false;

  PipeBody body(pipe, style);
  if (isFar(p, screen, body)) return false;
  if (clearing) {
    if (screen.HILITE_DRAWN) {
      DrawGrip(0, body.x1, body.y1);
      DrawGrip(0, body.x2, body.y2);
    }
    screen.HILITE = 0;
  }
  body.look(onPaper() ? std::max(toInt32(static_cast<double>(screen.LineWidth) * penFactor), 1) : screen.LineWidth,
            itemColor(screen.Color, mono, screen.HILITE));
  drawState.CurPenWidth = body.width;
  const bool labelled = showLabels && p.LABEL_ON && (p.HYD_TYPE == 0 || !drawState.View->DevicesUnlabelled);
  if (wantsMidVertex(p, labelled)) body.midVertex = GetPolyMidVtx(pipe);

  bool painted = body.paint(clearing);
  if (screen.HILITE && gripsApply()) paintGrips(screen, body);
  if (showFlags && p.FLAG_BYTE) paintFlag(pipe, body);
  if (labelled && DrawPipeLabel(pipe, body.midVertex, clearing)) painted = true;
  if (slots.numberSegments && p.VTX_MODE == 4) {
    DrawSegmentNumbers(screen.FIRST_VTX, screen.LAST_VTX, body.x1, body.y1, body.x2, body.y2, 0, slots.lines);
  }
  if (clearing) screen.HILITE_DRAWN = 0;
  return painted;
}

bool PipePass::wantsMidVertex(const Pdt& p, bool labelled) const {
  return p.VTX_MODE == 4 && (labelled || (showFlags && p.FLAG_BYTE) || (style.showArrows && style.arrowsAtMid));
}

void PipePass::paintGrips(PXY& screen, const PipeBody& body) const {
  DrawGrip(1, body.x1, body.y1);
  DrawGrip(1, body.x2, body.y2);
  screen.HILITE_DRAWN = 1;
}

/** Flags at the middle of the pipe: 1 plain, 2 with an outlined post, 4 red. */
void PipePass::paintFlag(int32_t pipe, const PipeBody& body) const {
  const uint8_t flag = model.pdt[pipe].FLAG_BYTE;
  if (flag != 1 && flag != 2 && flag != 4) return;
  double x, y;
  pipeMiddle(pipe, body.midVertex, &x, &y);
  DrawFlag(x, y, 0, PS_SOLID, flagWidth, flag == 4 ? warningColor() : body.color);
  if (flag != 2) return;
  body.usePen();
  DrawFlagPost(0, x, y);
}

}  // namespace

int32_t DrawPipes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  float viewWidth, float sizeFactor, float penFactor, int32_t penWidth, HPEN plainPen,
                  int16_t showNodes, int16_t linesOnly) {
  const ViewOpts& view = *drawState.View;
  const PlotOpts& plot = *drawState.Plot;
  const HDC dc = drawState.DC;
  drawState.PlainPen = plainPen;
  SelectedBrush brush(dc);
  brush.solid(-1);
  LOGFONTA description{};
  MakeLogFont(&description, view.PipeFontSize, plot.PipePrintFontSize, view.PipeFontBold != 0, plot.PipePrintBold != 0,
              plot.PipeFontMode == 1);
  const LabelFont font(description);
  if (!font.selected()) return 0;
  SetTextAlign(dc, TA_CENTER);
  drawState.TextHeightP = worldHeight(description);
  SetTextColor(dc, static_cast<COLORREF>(onPaper() && mono ? drawState.Black : view.PipeTextColor));
  SetBkMode(dc, view.PipeTransparent ? TRANSPARENT : OPAQUE);
  SelectedPen pen(dc);
  pen.plain(PS_SOLID, penWidth, 0);

  const bool symbols = linesOnly == 0;
  const bool devices = view.DevicesOn && (onPaper() || !beyond(view.DeviceZoomLimit));
  const bool arrows = view.ArrowsOn && !beyond(view.ArrowZoomLimit) && arrowsReadable(sizeFactor, viewWidth);
  PipePass pass{};
  pass.style = {&pen,
                &brush,
                paperColor,
                plot.ClipOn != 0,
                symbols && devices,
                symbols && arrows,
                view.ArrowsAtMidVertex != 0,
                symbols && view.VtxMarksOn && showNodes > 0,
                drawState.DefaultNodeSize * 0.75f * (onPaper() ? sizeFactor : 1.0f),
                0,
                0,
                0,
                0};
  reachOfBodies(pass.style);
  pass.slots = scanLabelSlots();
  pass.clearing = clearHilite != 0;
  pass.recolour = isSet(recolour);
  pass.mono = mono != 0;
  pass.showLabels = labelsShown(view.PipeLabelMask, view.PipeLabelLimit, description.lfHeight);
  pass.showFlags = showNodes != 0;
  pass.penFactor = penFactor;
  pass.flagWidth = penWidth;
  pass.nodeTop = static_cast<uint32_t>(std::max(nodeTop(), 0));

  CancelPolls polls(first, last);
  const int32_t top = std::min({last, pipeTop(), model.pxySlots - 1});
  const bool linesAlone = pass.linesAlone();
  const PlainPipes plain(pass.style, pass.showFlags);
  bool cancelled = false;
  for (int32_t pipe = std::max(first, 1); pipe <= top && !cancelled; pipe++) {
    if (linesAlone) pipe = plain.paint(pipe, top, polls, &cancelled);
    if (pipe > top || cancelled) break;
    PipesAhead(top).ask(pipe, true);
    cancelled = pass.paint(pipe) && polls.drawn();
  }
  if (cancelled || polls.finish()) return -1;
  clearFlag(recolour);
  return 0;
}

}  // namespace pn10
