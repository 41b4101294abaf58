#include "support/scene.h"

#include <cmath>

#include "model/draw_state.h"
#include "model/tables.h"
#include "support/model_builder.h"
#include "support/random_network.h"

namespace pn10::test {

SceneView::SceneView() : dc(PnCreateRecordDC(1000, 1000, 72)), window(PnCreateWindow()), own_(dc) {
  view.BackColor = 0xC0C0C0;
  view.LineWidth = 1;
  view.NodeOn = view.CustOn = 1;
  view.NodeSize = view.CustSize = 10; /* one world unit */
  view.NodeColor = 0x0000FF;
  view.NodeSpecialColor = 0x00FF00;
  view.NodeSymbol = view.CustSymbol = 2;
  view.PipeColor = 0xFF0000;
  view.ElemColor = 0x800000;
  view.PipeWidth = view.PipeLineType = 1;
  view.CustColor = 0x008080;
  view.NodeFontSize = view.PipeFontSize = view.CustFontSize = 10; /* one world unit high */
  view.NodeLabelLimit = view.PipeLabelLimit = view.CustLabelLimit = 1e9f;
  view.NodeLabelAngle = view.CustLabelAngle = 900; /* east: horizontal text */
  view.NodeTextColor = 0x000001;
  view.PipeTextColor = 0x000002;
  view.CustTextColor = 0x000003;
  plot.ClipOn = 1;
  plot.PollPercent = 1000; /* no poll before the end */
  plot.HiliteColor = 0xFF00FF;
  plot.GripColor = 0x00FFFF;
  plot.GripSize = 100; /* one world unit */
  plot.PrintNodeSize = plot.PrintCustSize = plot.PrintLineWidth = 100;
  plot.NodePrintFontSize = plot.PipePrintFontSize = plot.CustPrintFontSize = 100;
}

SceneView::~SceneView() {
  PnDestroyWindow(window);
  PnDeleteDC(own_);
}

void SceneView::setup() {
  SetDrawVars(devMode, dc, window, loadFactor, &plot, &view, &unit, window, singleNode, singleCust, iso, projection,
              zoom, mapScale);
  SetPNGDIScale(x0, y0, x1, y1, width, height, minPixels, displayHeight, geo[0], geo[1], geo[2], geo[3]);
}

void SceneView::paintQuietly() {
  setup();
  DrawPict(1, model.pipeCount, 1, model.nodeCount, 1, model.custCount, 1, model.textCount, 1, model.ugdCount,
           clearHilite, &recolourPipes, &recolourNodes, &recolourCusts, linesOnly);
}

std::string SceneView::paint() {
  return recorded([this] { paintQuietly(); });
}

namespace {

void setPipe(int32_t pipe, int32_t from, int32_t to) {
  Pdt& p = model.pdt[pipe];
  p.ID = pipe;
  p.FROM_NODE = from;
  p.TO_NODE = to;
  p.COLOR = -1;
  PXY& screen = model.pxy[pipe];
  screen.Color = 0xFF0000;
  screen.LineWidth = screen.LineType = 1;
  screen.Display = 1;
}

}  // namespace

void makeStreetGrid(const StreetGrid& grid) {
  // Pipes run between all neighbours of a row and, every ninth column, between the rows: 0.9 nodes per pipe.
  const auto c = static_cast<int32_t>(std::sqrt(grid.pipes * 0.9)) + 1;
  const int32_t crossings = c * c;
  const int32_t vertices = static_cast<int32_t>(int64_t{grid.pipes} * grid.verticesPercent / 100) * 2 + 2;
  const int32_t custs = static_cast<int32_t>(int64_t{grid.pipes} * grid.customersPercent / 100);
  makeEmptyTables(crossings, grid.pipes, custs, vertices);
  const double step = grid.side / c;
  for (int32_t i = 0; i < crossings; i++) {
    Ndt& n = model.ndt[i + 1];
    n.ID = i + 1;
    n.COLOR = -1;
    n.X_COORD = (i % c + 0.5) * step;
    n.Y_COORD = (i / c + 0.5) * step;
    model.nxy[i + 1].Color = 0x0000FF;
  }
  int32_t pipe = 0, vtx = 0, cust = 0;
  for (int32_t i = 0; i < crossings && pipe < grid.pipes; i++) {
    for (const int32_t to : {i % c + 1 < c ? i + 1 : -1, i + c < crossings && i % 9 == 0 ? i + c : -1}) {
      if (to < 0 || pipe == grid.pipes) continue;
      setPipe(++pipe, i + 1, to + 1);
      const Ndt &a = model.ndt[i + 1], &b = model.ndt[to + 1];
      if (pipe % 100 < grid.verticesPercent && vtx + 2 <= vertices) {
        model.pdt[pipe].VTX_MODE = 4;
        model.pxy[pipe].FIRST_VTX = vtx + 1;
        model.pxy[pipe].LAST_VTX = vtx + 2;
        for (const double t : {0.3, 0.6}) {
          const double bend = 0.1 * step;
          model.vtx[++vtx] = vtxRecord(pipe, 0, a.X_COORD + t * (b.X_COORD - a.X_COORD) + bend,
                                       a.Y_COORD + t * (b.Y_COORD - a.Y_COORD) + bend);
        }
      }
      model.pxy[pipe].LENGTH = static_cast<float>(step);
      if (cust < custs && pipe % 100 < grid.customersPercent) {
        Cdt& customer = model.cdt[++cust];
        customer = custRecord(cust, pipe, a.X_COORD + 0.3 * step, a.Y_COORD + 0.3 * step);
        customer.COLOR = -1;
        model.cxy[cust].Color = 0x008080;
      }
    }
  }
  model.pipeCount = pipe;
  model.custCount = cust;
}

}  // namespace pn10::test
