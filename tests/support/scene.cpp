/** The scenes that tests and benchmarks paint, and the view onto them. */
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
  EXPECT_EQ(DrawPict(1, model.pipeCount, 1, model.nodeCount, 1, model.custCount, 1, model.textCount, 1, model.ugdCount,
                     clearHilite, &recolourPipes, &recolourNodes, &recolourCusts, linesOnly),
            -1); /* also when it was cancelled */
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

namespace {

int32_t sceneNode(double x, double y, const char* name, float pressure, float load) {
  Ndt n = nodeRecord(GetNextNid(), name, x, y);
  n.COLOR = -1;
  n.TEXT_ANGLE = -1;
  n.LABEL_ON = 1;
  n.PRESSURE = pressure;
  n.QB_LOAD = load;
  n.Q_FACTOR = 1000;
  copyText(n.P_UNITS, "PSI");
  copyText(n.Q_UNITS, "MCFH");
  return addNode(n);
}

int32_t scenePipe(int32_t from, int32_t to, const char* size, int type = 0, float flow = 12.5f) {
  Pdt p = pipeRecord(GetNextPid(), from, to);
  copyText(p.SIZE_TYPE, size);
  copyText(p.L_UNITS, "Feet");
  copyText(p.Q_UNITS, "MCFH");
  p.HYD_TYPE = static_cast<uint8_t>(type);
  p.COLOR = -1;
  p.TEXT_ANGLE = -1;
  p.LABEL_ON = 1;
  p.LENGTH = 250;
  p.FLOW = flow;
  p.Q_FACTOR = 1;
  return addPipe(p);
}

int32_t sceneCust(int32_t pipe, double x, double y, double tapX, double tapY) {
  Cdt c = custRecord(GetNextCid(), pipe, x, y);
  c.COLOR = -1;
  c.TEXT_ANGLE = -1;
  c.SX_COORD = tapX, c.SY_COORD = tapY;
  c.HOST_SHORT_411 = 1;
  c.COUNT = 1;
  c.UNIT_LOAD = 2.5f;
  copyText(c.LOAD_UNITS, "CFH");
  return addCust(c);
}

}  // namespace

void makeStreetScene() {
  const int32_t west = sceneNode(10, 50, "Elm/1st", 60.2f, 0), middle = sceneNode(45, 50, "Elm/2nd", 58.9f, 4);
  const int32_t east = sceneNode(90, 52, "Elm/3rd", 57.1f, 0), north = sceneNode(45, 85, "2nd North", 55.8f, 2);
  const int32_t south = sceneNode(48, 12, "2nd South", 54.0f, 3), corner = sceneNode(85, 82, "Park", 53.3f, 1);
  const int32_t station = sceneNode(14, 80, "Station", 99.0f, 0), valve = sceneNode(20, 66, "", 60.0f, 0);
  const int32_t well = sceneNode(10, 20, "Well 4", 80.0f, 0), comp = sceneNode(28, 22, "", 75.0f, 0);
  const int32_t end = sceneNode(88, 20, "End", 50.0f, 6);
  model.ndt[end].FLAG_TYPE = 1;
  model.ndt[corner].HYD_TYPE = 1;
  model.ndt[north].TEXT_X = 50, model.ndt[north].TEXT_Y = 96;
  model.ndt[south].TEXT_X = 56, model.ndt[south].TEXT_Y = 8;

  const int32_t elmWest = scenePipe(west, middle, "6 PE");
  const int32_t elmEast = scenePipe(middle, east, "4 PE", 0, -8);
  scenePipe(middle, north, "4 PE");
  const int32_t second = scenePipe(middle, south, "2 PE");
  const int32_t bend = scenePipe(north, corner, "4 PE");
  const int32_t arc = scenePipe(corner, east, "4 ST");
  const int32_t lane = scenePipe(south, end, "2 PE", 0, 3);
  scenePipe(station, valve, "reg", 1);
  scenePipe(valve, west, "gate", 3);
  scenePipe(well, comp, "well", 4);
  scenePipe(comp, south, "comp", 2);
  addRun(bend, {{55, 90}, {75, 90}});
  addRun(lane, {{60, 20}, {72, 12}});
  addArc(arc, 30, 0.98);
  model.pxy[arc].FIRST_VTX = model.pxy[arc].LAST_VTX;
  model.pdt[elmWest].TEXT_X = 26, model.pdt[elmWest].TEXT_Y = 38;
  model.pdt[second].STATUS = 1;
  model.pdt[lane].FLAG_BYTE = 1;

  const int32_t bakery = sceneCust(elmEast, 60, 62, 60, 50.7);
  sceneCust(elmEast, 72, 62, 72, 51.2);
  const int32_t mill = sceneCust(elmEast, 70, 38, 66, 50.9);
  addService(mill, {{66, 44}, {70, 44}});
  model.vtx[model.cxy[mill].FIRST_VTX].VTX_KIND = 3;
  model.cdt[bakery].FLAG_BYTE = 2;
  copyText(model.cdt[bakery].LINK_ID, "Bakery");
  copyText(model.cdt[mill].LINK_ID, "Mill");

  for (int32_t p = 1; p <= model.pipeCount; p++) {
    model.pxy[p].Display = 1;
    model.pxy[p].LENGTH = CalcPipeLength(p, 0);
  }
}

void showEverything(SceneView& picture) {
  ViewOpts& v = picture.view;
  v.BackColor = 0xFFFFFF;
  v.NodeLabelMask = v.PipeLabelMask = v.CustLabelMask = 1;
  v.NodeLabel[0] = 301, v.NodeLabel[1] = 302;
  v.PipeLabel[0] = 7, v.PipeLabel[1] = 12;
  v.CustLabel[0] = 422, v.CustLabel[1] = 454;
  v.NodePrefix = v.PipePrefix = v.CustPrefix = v.NodeUnits = v.PipeUnits = v.CustUnits = 1;
  v.NodeTransparent = v.PipeTransparent = v.CustTransparent = 1;
  v.NodeLeader = v.PipeLeader = v.CustLeader = 1;
  v.DevicesOn = v.ArrowsOn = v.VtxMarksOn = v.ArrowsAtMidVertex = 1;
  v.DeviceSize = 60;
  v.NodeSize = v.CustSize = 14;
  v.CustSymbol = -3;
  v.NodeFontSize = v.PipeFontSize = v.CustFontSize = 12;
  v.PipeTextColor = 0x800000;
  v.NodeTextColor = 0x000080;
  v.CustTextColor = 0x006000;
  v.PipeWidth = 2;
  v.ArrowStyle = 1;
  for (float& digits : picture.unit.Digits) digits = 1;
  picture.plot.PrintLabelsOn = 1;
  picture.recolourPipes = picture.recolourNodes = picture.recolourCusts = 1;
}

}  // namespace pn10::test
