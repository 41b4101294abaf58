/** The customer pass: meters, service lines with their marks, grips, flags and labels. */
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "draw/cust_service.h"
#include "draw/label_stack.h"
#include "draw/labels.h"
#include "draw/pass_common.h"
#include "draw/symbols.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** The symbol size of customers that have none of their own; percent of the view height when negative. */
float defaultSize() {
  const double size = drawState.View->CustSize * 0.1;
  return toFloat(size < 0 ? -size * drawState.ViewHeight * 0.01 : size * drawState.UnitsPerDisplay);
}

float custSize(const Cdt& c) {
  if (c.HOST_SHORT_409 > 0) return static_cast<float>(c.HOST_SHORT_409 * drawState.UnitsPerDisplay);
  if (c.HOST_SHORT_409 < 0) return -c.HOST_SHORT_409 * drawState.ViewHeight / 100;
  return drawState.DefaultCustSize;
}

struct CustPass {
  SymbolTools tools;
  ServiceStyle service{};
  bool clearing = false, recolour = false, mono = false;
  bool showSymbols = true, sizeZero = false, showLabels = false, numberSegments = false;
  float sizeFactor = 1;

  bool paint(int32_t cust);
  double reach(float size, bool flagged) const;
  void paintFlags(const Cdt& c, const ServiceLine& line, int16_t symbol, int32_t color) const;
};

/** How far a customer's symbol, marks and flag and the place of its label may stand from its points; rather too far. */
double CustPass::reach(float size, bool flagged) const {
  const DrawState& s = drawState;
  const double symbols = 2.5 * std::max({size, service.markSize, service.deviceSize});
  const double flag = flagged ? 0.12 * std::max(s.ViewHeight, s.ViewWidth) : 0.0;
  return symbols + flag + 2 * std::max(std::fabs(s.TextHeightC), std::fabs(s.TextHeightP)) +
         service.penWidth / std::fabs(s.ScaleX);
}

/** True when something of the customer was painted. */
bool CustPass::paint(int32_t cust) {
  const Cdt& c = model.cdt[cust];
  CXY& screen = model.cxy[cust];
  if (c.REC_STATUS < 0) return false;
  if (recolour) screen.Color = c.COLOR >= 0 ? c.COLOR : drawState.View->CustColor;
  // A customer shows only when its pipe was drawn in this picture; one without a pipe always does.
  screen.DRAW = c.PIPE_REC == 0 || (hasPxySlot(c.PIPE_REC) && model.pxy[c.PIPE_REC].DRAWN);
  if (!screen.DRAW) return false;
  const int16_t number = c.HOST_SHORT_410 ? c.HOST_SHORT_410 : toInt16(drawState.View->CustSymbol);
  const bool noSymbol = number == 1;
  const float size = sizeZero ? 0.0f : custSize(c);
  if (!noSymbol && !c.FLAG_BYTE && !onPaper() && !(size >= 5 / drawState.ScaleX)) return false;
  const bool labelled = showLabels && c.HOST_SHORT_411;
  const ServiceLine line(cust);
  if (!clearing && !screen.HILITE && !(labelled && hasStoredAnchor(c)) &&
      line.outside(reach(size * sizeFactor, c.FLAG_BYTE != 0))) {
    return false;
  }

  const int32_t color = itemColor(screen.Color, mono, !clearing && screen.HILITE);
  if (clearing) {
    screen.HILITE = 0;
    if (screen.HILITE_DRAWN) line.grip(0);
  }
  const int16_t symbol = static_cast<int16_t>(number == INT16_MIN ? 0 : std::abs(number));
  number < 0 ? tools.hollow(color) : tools.solid(color);
  if (showSymbols && !noSymbol) {
    line.paint(service, color, clearing);
    DrawSymbol(symbol, size * sizeFactor, 0, line.meterX, line.meterY);
    if (screen.HILITE && gripsApply()) {
      line.grip(1);
      screen.HILITE_DRAWN = 1;
    }
  }
  paintFlags(c, line, symbol, color);
  if (labelled) DrawCustLabel(cust, size, clearing);
  if (numberSegments && line.hasTap && c.VTX_MODE == 4) {
    DrawSegmentNumbers(screen.FIRST_VTX, screen.LAST_VTX, line.tapX, line.tapY, line.meterX, line.meterY, 1, 0);
  }
  if (clearing) screen.HILITE_DRAWN = 0;
  return true;
}

void CustPass::paintFlags(const Cdt& c, const ServiceLine& line, int16_t symbol, int32_t color) const {
  switch (c.FLAG_BYTE) {
    case 1:
      tools.flag(line.meterX, line.meterY, color);
      break;
    case 2:
    case 3:
      tools.loadFlag(line.meterX, line.meterY, color, symbol);
      break;
    case 4:
      tools.redFlag(line.meterX, line.meterY);
      break;
    default:
      break;
  }
}

}  // namespace

int32_t DrawCusts(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, int32_t dpi, int16_t showCustomers) {
  DrawState& s = drawState;
  const ViewOpts& view = *s.View;
  const PlotOpts& plot = *s.Plot;
  LOGFONTA description{};
  MakeLogFont(&description, view.CustFontSize, plot.CustPrintFontSize, view.CustFontBold != 0, plot.CustPrintBold != 0,
              plot.CustFontMode == 1);
  const LabelFont font(description);
  if (!font.selected()) return 0;
  s.TextHeightC = worldHeight(description);
  s.CustLabelAngle = static_cast<float>((90 - view.CustLabelAngle * 0.1) * 0.017453292);
  s.DefaultCustSize = defaultSize();

  CustPass pass{.tools = SymbolTools(penWidth, paperColor)};
  pass.clearing = clearHilite != 0;
  pass.recolour = isSet(recolour);
  pass.mono = mono != 0;
  pass.showSymbols = showCustomers > 0;
  pass.sizeZero = showCustomers < 0;
  pass.showLabels = labelsShown(view.CustLabelMask, view.CustLabelLimit, description.lfHeight);
  pass.numberSegments = std::find(view.CustLabel, view.CustLabel + 20, 428) != view.CustLabel + 20;
  pass.sizeFactor = SymbolPrintFactor(dpi, plot.PrintCustSize, s.DefaultCustSize);
  pass.service = serviceStyle(penWidth);
  pass.tools.solid(onPaper() ? s.Black : view.CustColor);
  SetTextColor(s.DC, static_cast<COLORREF>(onPaper() ? s.Black : view.CustTextColor));

  CancelPolls polls(first, last);
  const int32_t top = std::min({last, custTop(), model.cxySlots - 1});
  bool cancelled = false;
  for (int32_t cust = std::max(first, 1); cust <= top && !cancelled; cust++) {
    cancelled = pass.paint(cust) && polls.drawn();
  }
  if (cancelled || polls.finish()) return -1;
  clearFlag(recolour);
  return 0;
}

}  // namespace pn10
