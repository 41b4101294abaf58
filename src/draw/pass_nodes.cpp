/** The node pass: symbols, grips, flags, load marks and labels of the nodes that a drawn pipe or the host has marked.
 */
#include <cstdlib>

#include "draw/label_stack.h"
#include "draw/labels.h"
#include "draw/pass_common.h"
#include "draw/symbols.h"
#include "geometry/angles.h"
#include "model/prefetch.h"
#include "model/tables.h"

namespace pn10 {

namespace {

bool isValve(const Ndt& n) { return n.HYD_TYPE == 1 || n.HYD_TYPE == 2; }

int32_t nodeColor(const Ndt& n) {
  if (n.COLOR >= 0) return n.COLOR;
  return isValve(n) ? drawState.View->NodeSpecialColor : drawState.View->NodeColor;
}

/** The base load with its flags, and the external load; kept: the external one without the unit factor. */
double markedLoad(const Ndt& n) {
  double base = n.QB_STATUS ? 0.0 : static_cast<double>(n.Q_FACTOR) * n.QB_LOAD;
  double external = n.QX_STATUS ? 0.0 : static_cast<double>(n.QX_LOAD);
  if (n.QB_DF) base *= drawState.LoadFactor;
  if (n.QX_DF) external *= drawState.LoadFactor;
  return base + external;
}

class NodePass {
 public:
  NodePass(bool clearing, bool recolour, bool mono, int32_t paperColor, int32_t penWidth, float sizeFactor,
           int16_t showNodes, bool showLabels)
      : tools_(penWidth, paperColor),
        clearing_(clearing),
        recolour_(recolour),
        mono_(mono),
        showSymbols_(showNodes > 0),
        sizeZero_(showNodes < 0),
        showLabels_(showLabels),
        smallest_(5 / drawState.ScaleX),
        placeFirst_(drawState.DefaultNodeSize * 1.5f >= smallest_),
        hideDefaults_(!recolour && !onPaper() && !drawState.View->SymbolsAllZoom && !placeFirst_ &&
                      !(drawState.DefaultNodeSize >= smallest_)),
        sizeFactor_(sizeFactor) {
    tools_.solid(drawState.View->NodeColor);
  }

  /** Paints one node; true when it was really painted. */
  bool paint(int32_t node) {
    const Ndt& n = model.ndt[node];
    NXY& screen = model.nxy[node];
    double x, y;
    if (!recolour_ && (!screen.Drawn || (placeFirst_ && !inView(n, &x, &y)))) return false;
    if (n.REC_STATUS < 0) return false;
    if (recolour_) screen.Color = nodeColor(n);
    if (!screen.Drawn) return false;
    const float size = sizeZero_ ? 0.0f : CalcNodeSize(node);
    if (!onPaper() && !n.FLAG_TYPE && !drawState.View->SymbolsAllZoom && !(size >= smallest_)) return false;
    if (!inView(n, &x, &y)) return false;
    paintAt(node, n, screen, size, x, y);
    return true;
  }

  /** The first of `node` to `top` that may show; far out, only one in thousands has a size of its own or a flag. */
  int32_t skipHidden(int32_t node, int32_t top) const {
    if (!hideDefaults_) return node;
    const Ndt* const nodes = model.ndt;
    NXY* const screens = model.nxy;
    for (; node <= top && nodes[node].SYM_SIZE == 0 && nodes[node].FLAG_TYPE == 0; node++) {
      prefetchNodes(node, top, false);
      screens[node].Drawn = 0;
    }
    return node;
  }

  /** Far zoomed in, most nodes fail by their place; far out, by their size. */
  bool placeFirst() const { return placeFirst_; }

 private:
  static bool inView(const Ndt& n, double* x, double* y) {
    MapModelXY(n.X_COORD, n.Y_COORD, n.Z_COORD, x, y);
    return !OutOfView(*x, *y);
  }

  void paintAt(int32_t node, const Ndt& n, NXY& screen, float size, double x, double y) {
    const int32_t color = itemColor(screen.Color, mono_, !clearing_ && screen.HILITE);
    if (clearing_) {
      screen.HILITE = 0;
      if (screen.HILITE_DRAWN) DrawGrip(0, x, y);
    }
    const int16_t number = n.SYMBOL ? n.SYMBOL : toInt16(drawState.View->NodeSymbol);
    const int16_t symbol = static_cast<int16_t>(number == INT16_MIN ? 0 : std::abs(number));
    number < 0 || n.HYD_STATUS ? tools_.hollow(color) : tools_.solid(color);
    if (showSymbols_) paintSymbol(n, symbol, onPaper() ? size * sizeFactor_ : size, x, y);
    if (screen.HILITE && gripsApply()) {
      DrawGrip(1, x, y);
      screen.HILITE_DRAWN = 1;
    }
    paintFlags(n, symbol, color, x, y);
    if (showLabels_ && showSymbols_ && n.LABEL_ON) DrawNodeLabel(node, size, clearing_);
    if (clearing_) screen.HILITE_DRAWN = 0;
  }

  static void paintSymbol(const Ndt& n, int16_t symbol, float size, double x, double y) {
    if (n.HYD_STATUS) {
      DrawSymbol(16, size * 1.5f, 0, x, y);
    } else if (isValve(n)) {
      DrawMark(-110, size, n.Z_COORD, 0, 0, x, y);
    } else {
      DrawSymbol(symbol, size, 0, x, y);
    }
  }

  void paintFlags(const Ndt& n, int16_t symbol, int32_t color, double x, double y) const {
    switch (n.FLAG_TYPE) {
      case 1:
      case -1:
        tools_.flag(x, y, color);
        break;
      case 2:
      case -2:
        tools_.loadFlag(x, y, color, symbol);
        break;
      case 3:
        if (drawState.View->NodeFlag3On) DrawFlagPost(0, x, y);
        break;
      case 4:
      case -4:
        tools_.redFlag(x, y);
        break;
      default:
        break;
    }
    if (drawState.View->NodeLoadMarkOn && markedLoad(n) > 0) tools_.redFlag(x, y);
  }

  SymbolTools tools_;
  bool clearing_, recolour_, mono_, showSymbols_, sizeZero_, showLabels_;
  double smallest_; /* symbols under five dots are only a cost */
  bool placeFirst_;
  bool hideDefaults_; /* nodes of the default size are too small, valves too */
  float sizeFactor_;
};

}  // namespace

float CalcNodeSize(int32_t node) {
  const Ndt& n = model.ndt[node];
  float size = drawState.DefaultNodeSize;
  if (n.SYM_SIZE > 0) size = static_cast<float>(n.SYM_SIZE * drawState.UnitsPerDisplay);
  if (n.SYM_SIZE < 0) size = static_cast<float>(-n.SYM_SIZE * drawState.ViewHeight * 0.01);
  return isValve(n) ? size * 1.5f : size;
}

int32_t DrawNodes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, float sizeFactor, int16_t showNodes) {
  const ViewOpts& view = *drawState.View;
  const PlotOpts& plot = *drawState.Plot;
  LOGFONTA description{};
  MakeLogFont(&description, view.NodeFontSize, plot.NodePrintFontSize, view.NodeFontBold != 0, plot.NodePrintBold != 0,
              plot.NodeFontMode == 1);
  const LabelFont font(description);
  if (!font.selected()) return 0;
  drawState.TextHeightN = worldHeight(description);
  const bool showLabels = labelsShown(view.NodeLabelMask, view.NodeLabelLimit, description.lfHeight);
  NodePass pass(clearHilite != 0, isSet(recolour), mono != 0, paperColor, penWidth, sizeFactor, showNodes, showLabels);
  SetTextAlign(drawState.DC, TA_LEFT | TA_TOP);
  SetTextColor(drawState.DC, static_cast<COLORREF>(onPaper() && mono ? drawState.Black : view.NodeTextColor));

  CancelPolls polls(first, last);
  const int32_t top = std::min({last, nodeTop(), model.nxySlots - 1});
  bool cancelled = false;
  for (int32_t node = std::max(first, 1); node <= top && !cancelled; node++) {
    node = pass.skipHidden(node, top);
    if (node > top) break;
    prefetchNodes(node, top, pass.placeFirst());
    const bool painted = pass.paint(node);
    model.nxy[node].Drawn = 0;
    cancelled = painted && polls.drawn();
  }
  if (cancelled || polls.finish()) return -1;
  clearFlag(recolour);
  return 0;
}

}  // namespace pn10
