/** One picture: sizes and factors, then the passes in their fixed order, each painting over those before it. */
#include <cmath>

#include "draw/frame.h"
#include "draw/passes.h"
#include "platform/host_choices.h"

using namespace pn10;

namespace {

constexpr double kMillimetre = 0.03937; /* inches */

/** The pen that leaders share; it lives as long as the picture. */
class PlainPen {
 public:
  PlainPen() { drawState.PlainPen = CreatePen(PS_SOLID, 1, 0); }
  ~PlainPen() {
    if (drawState.PlainPen) DeleteObject(drawState.PlainPen);
    drawState.PlainPen = nullptr;
  }
  PlainPen(const PlainPen&) = delete;
  PlainPen& operator=(const PlainPen&) = delete;
};

/** What is shown of a kind of item: all, only flags and the like at size zero, or nothing. */
enum Show : int16_t { kSizeless = -1, kNothing = 0, kAll = 1 };

struct Range {
  int32_t first, last;
  bool empty() const { return first == 0 || last == 0; }
};

/**
 * The share of a picture that one kind of item has: with its pass off only the single item, beyond the zoom limit
 * nothing, or with symbols at all zoom everything without size.
 */
Show showOf(int32_t passOn, int32_t single, float zoomLimit, Range& range) {
  if (!passOn) {
    if (!single) return kNothing;
    range = {single, single};
  } else if (zoomLimit != 0 && zoomLimit < drawState.MapScale) {
    return drawState.View->SymbolsAllZoom ? kSizeless : kNothing;
  }
  return kAll;
}

/** Device dots of a print size in thousandths of an inch, over the dots that the thing has; 1 over nothing. */
double printFactor(int32_t dpi, int32_t printSize, double dots) {
  if (dots == 0) return 1;
  const double factor = double(dpi) * printSize * 0.001 / dots;
  return drawState.Plot->Metric ? factor * kMillimetre : factor;
}

double reduced(double factor) { return drawState.DevMode == 2 ? factor * drawState.ReducedScale : factor; }

void setPictureSizes(DrawState& s) {
  s.ViewHeight = toFloat(s.Y0 - s.Y1);
  s.ViewWidth = toFloat(s.X1 - s.X0);
  s.Dpi = dotsPerInch(s.DC);
  const double size = s.View->NodeSize * 0.1;
  s.DefaultNodeSize = toFloat(size < 0 ? -size * (s.ViewHeight * 0.01) : size * s.UnitsPerDisplay);
  s.NodeLabelAngle = toFloat((90 - s.View->NodeLabelAngle * 0.1) * 0.017453292);
}

float lineFactor(const DrawState& s, int32_t penWidth) {
  if (s.DevMode == 0) return 1;
  const double factor = printFactor(s.Dpi, s.Plot->PrintLineWidth, penWidth);
  return toFloat(reduced(factor == 0 ? 1 : factor));
}

/** A recolour flag that the host left out counts as clear. */
int16_t* flagOr(int16_t* flag, int16_t& spare) { return flag ? flag : &spare; }

}  // namespace

float pn10::SymbolPrintFactor(int32_t dpi, int32_t printSize, float defaultSize) {
  if (drawState.DevMode == 0) return 1;
  return toFloat(reduced(printFactor(dpi, printSize, std::fabs(drawState.ScaleY) * defaultSize)));
}

int32_t DrawPict(int32_t firstPipe, int32_t lastPipe, int32_t firstNode, int32_t lastNode, int32_t firstCust,
                 int32_t lastCust, int32_t firstText, int32_t lastText, int32_t firstUgd, int32_t lastUgd,
                 int16_t clearHilite, int16_t* recolourPipes, int16_t* recolourNodes, int16_t* recolourCusts,
                 int16_t linesOnly) {
  DrawState& s = drawState;
  const ViewOpts& view = *s.View;
  setPictureSizes(s);
  const int16_t mono = s.Plot->Mono != 0;
  const int32_t paper = s.DevMode ? 0xFFFFFF : view.BackColor;
  const float sizeFactor = SymbolPrintFactor(s.Dpi, s.Plot->PrintNodeSize, s.DefaultNodeSize);
  const int32_t screenWidth = view.LineWidth > 97 ? 2 : view.LineWidth;
  const float penFactor = lineFactor(s, screenWidth);
  const int32_t penWidth = s.DevMode ? toInt32(double{penFactor} * screenWidth) : screenWidth;

  const Range pipes{firstPipe, lastPipe}, texts{firstText, lastText}, graphics{firstUgd, lastUgd};
  Range nodes{firstNode, lastNode}, custs{firstCust, lastCust};
  const Show showNodes = showOf(view.NodeOn, s.SingleNode, view.NodeZoomLimit, nodes);
  const Show showCusts = showOf(view.CustOn, s.SingleCust, view.CustZoomLimit, custs);
  int16_t spare = 0;
  const PlainPen plainPen;

  if (!pipes.empty() && DrawPipes(pipes.first, pipes.last, clearHilite, flagOr(recolourPipes, spare), mono, paper,
                                  s.ViewWidth, sizeFactor, penFactor, penWidth, s.PlainPen, showNodes, linesOnly)) {
    return -1;
  }
  if (showNodes && !nodes.empty() &&
      DrawNodes(nodes.first, nodes.last, clearHilite, flagOr(recolourNodes, spare), mono, paper, penWidth, sizeFactor,
                showNodes)) {
    return -1;
  }
  if (showCusts && !custs.empty() &&
      DrawCusts(custs.first, custs.last, clearHilite, flagOr(recolourCusts, spare), mono, paper, penWidth, s.Dpi,
                showCusts)) {
    return -1;
  }
  if (view.TextOn && !texts.empty() && DrawTexts(texts.first, texts.last, mono, paper, clearHilite)) return -1;
  if (view.UgdOn && !graphics.empty()) {
    DrawUserGraphics(graphics.first, graphics.last, clearHilite, mono, paper, sizeFactor, penFactor, penWidth);
  }
  return -1;
}
