/** What a picture hands to its passes: ranges, sizes, print factors, colours, order and cancel. */
#include <cmath>

#include "draw/picture.h"
#include "model/tables.h"

using namespace pn10;
using namespace pn10::test;

namespace {

/**
 * Three nodes in a row at y 100 (x 20, 100, 180), two pipes between them, a customer at (60, 150). Nodes are discs
 * of 10 world units: 100 tenths of a display unit at 1 world unit each... see the constructor.
 */
struct Network : Picture {
  int16_t pipes = 0, nodes = 0, custs = 0;

  explicit Network(int16_t devMode = 0) : Picture(0, 0, devMode) {
    model.ndt = newTable<Ndt>(3);
    model.nxy = newTable<NXY>(3);
    model.pdt = newTable<Pdt>(2);
    model.pxy = newTable<PXY>(2);
    model.cdt = newTable<Cdt>(1);
    model.cxy = newTable<CXY>(1);
    model.ndtSlots = model.nxySlots = 4;
    model.pdtSlots = model.pxySlots = 3;
    model.cdtSlots = model.cxySlots = 2;
    model.nodeCount = 3;
    model.pipeCount = 2;
    model.custCount = 1;
    for (int32_t n = 1; n <= 3; n++) {
      model.ndt[n].X_COORD = 80 * n - 60;
      model.ndt[n].Y_COORD = 100.05;
      model.nxy[n].Color = 0x000010 * n;
      model.nxy[n].Drawn = -1;
    }
    for (int32_t p = 1; p <= 2; p++) {
      model.pdt[p].FROM_NODE = p;
      model.pdt[p].TO_NODE = p + 1;
      model.pxy[p].Display = 1;
      model.pxy[p].LineType = 1;
      model.pxy[p].LineWidth = 1;
      model.pxy[p].Color = 0x00FF00;
      model.pxy[p].LENGTH = 80;
    }
    model.cdt[1].X_COORD = 60;
    model.cdt[1].Y_COORD = 150.05;
    view.NodeOn = view.CustOn = 1;
    view.NodeSymbol = 3;
    view.CustSymbol = 2;
    view.NodeSize = view.CustSize = 5; /* half a display unit of 20 world units: 10 */
    view.LineWidth = 1;
    plot.PollPercent = 100;
    set(0, 0, devMode);
  }

  /** The operations of the whole picture. */
  std::string draw(int32_t firstPipe = 1, int32_t lastPipe = 2, int32_t firstNode = 1, int32_t lastNode = 3,
                   int32_t firstCust = 1, int32_t lastCust = 1) {
    return recorded([&] {
      EXPECT_EQ(DrawPict(firstPipe, lastPipe, firstNode, lastNode, firstCust, lastCust, 1, 1, 1, 1, 0, &pipes, &nodes,
                         &custs, 0),
                -1);
    });
  }
};

const std::string kPipes =
    "MoveToEx 200 999\nLineTo 1000 999\n"
    "MoveToEx 1000 999\nLineTo 1800 999\n";
/* squares of side 10 about (20, 100.05) and so on: corners 4.99924 left and below, 5.00076 right and above */
const std::string kNodes[] = {"Polygon 4 150 1049 150 949 250 949 250 1049\n",
                              "Polygon 4 950 1049 950 949 1050 949 1050 1049\n",
                              "Polygon 4 1750 1049 1750 949 1850 949 1850 1049\n"};
const std::string kCust = "Ellipse 550 449 650 549\n";

std::string shapes(const std::string& log) { return only(log, {"MoveToEx", "LineTo", "Polygon", "Ellipse"}); }

TEST(DrawPict, paints_pipes_then_nodes_then_customers) {
  Network n;
  EXPECT_EQ(shapes(n.draw()), kPipes + kNodes[0] + kNodes[1] + kNodes[2] + kCust);
}

TEST(DrawPict, a_range_with_a_zero_end_is_skipped) {
  Network n;
  EXPECT_EQ(shapes(n.draw(0, 2)), kNodes[0] + kNodes[1] + kNodes[2] + kCust);
  model.nxy[1].Drawn = model.nxy[2].Drawn = model.nxy[3].Drawn = -1;
  EXPECT_EQ(shapes(n.draw(1, 0, 1, 3, 0, 1)), kNodes[0] + kNodes[1] + kNodes[2]);
  EXPECT_EQ(shapes(n.draw(1, 2, 0, 3, 1, 0)), kPipes);
  EXPECT_EQ(shapes(n.draw(1, 2, 1, 0, 0, 0)), kPipes);
  EXPECT_EQ(shapes(n.draw(0, 0, 0, 0, 0, 0)), "");
}

TEST(DrawPict, with_the_node_pass_off_only_the_single_node_is_painted) {
  Network n;
  n.view.NodeOn = 0;
  EXPECT_EQ(shapes(n.draw()), kPipes + kCust);
  drawState.SingleNode = 2;
  EXPECT_EQ(shapes(n.draw(1, 2, 1, 1)), kPipes + kNodes[1] + kCust);
}

TEST(DrawPict, with_the_customer_pass_off_only_the_single_customer_is_painted) {
  Network n;
  n.view.CustOn = 0;
  EXPECT_EQ(shapes(n.draw()), kPipes + kNodes[0] + kNodes[1] + kNodes[2]);
  drawState.SingleCust = 1;
  EXPECT_EQ(shapes(n.draw(1, 2, 1, 3, 7, 9)), kPipes + kNodes[0] + kNodes[1] + kNodes[2] + kCust);
}

TEST(DrawPict, zoom_limits_hide_what_lies_strictly_beyond) {
  for (float limit : {0.0f, 100.0f, 100.5f}) {
    Network n;
    n.view.NodeZoomLimit = n.view.CustZoomLimit = limit; /* the scale is 100 */
    EXPECT_EQ(shapes(n.draw()), kPipes + kNodes[0] + kNodes[1] + kNodes[2] + kCust) << limit;
  }
  for (float limit : {99.9f, -1.0f}) {
    Network n;
    n.view.NodeZoomLimit = n.view.CustZoomLimit = limit;
    EXPECT_EQ(shapes(n.draw()), kPipes) << limit;
  }
}

TEST(DrawPict, beyond_the_limit_symbols_at_all_zoom_keep_flags_alone) {
  Network n;
  n.view.NodeZoomLimit = n.view.CustZoomLimit = 99;
  n.view.SymbolsAllZoom = 1;
  model.ndt[2].FLAG_TYPE = 1;
  const std::string log = shapes(n.draw());
  EXPECT_TRUE(log.starts_with(kPipes));
  EXPECT_EQ(log.find("Polygon 4 9"), std::string::npos);
  EXPECT_NE(log.find("Polygon"), std::string::npos); /* the pennant */
}

std::string pens(const std::string& log) { return only(log, {"CreatePen", "ExtCreatePen"}); }

TEST(DrawPict, a_line_width_above_97_counts_as_2) {
  Network n;
  n.view.LineWidth = 97;
  EXPECT_NE(pens(n.draw()).find("CreatePen pen(0,97,"), std::string::npos);
  n.view.LineWidth = 98;
  EXPECT_EQ(pens(n.draw()).find("pen(0,98,"), std::string::npos);
  EXPECT_NE(pens(n.draw()).find("CreatePen pen(0,2,"), std::string::npos);
}

TEST(DrawPict, makes_the_plain_pen_first_and_deletes_it_last) {
  Network n;
  const int32_t before = PnGetObjectCount();
  const std::string log = n.draw();
  EXPECT_TRUE(log.starts_with("CreatePen pen(0,1,0x000000)\n")) << log;
  EXPECT_TRUE(log.ends_with("DeleteObject pen(0,1,0x000000)\n")) << log;
  EXPECT_EQ(PnGetObjectCount(), before);
  EXPECT_EQ(drawState.PlainPen, nullptr);
}

TEST(DrawPict, works_out_its_sizes) {
  Network n;
  n.view.NodeLabelAngle = 300;
  n.draw();
  EXPECT_EQ(drawState.ViewHeight, 200);
  EXPECT_EQ(drawState.ViewWidth, 200);
  EXPECT_EQ(drawState.Dpi, 96);
  EXPECT_EQ(drawState.DefaultNodeSize, 10);
  EXPECT_EQ(drawState.NodeLabelAngle, static_cast<float>(60 * 0.017453292));
  n.view.NodeSize = -25; /* 2.5 percent of 200 */
  n.draw();
  EXPECT_EQ(drawState.DefaultNodeSize, 5);
}

TEST(DrawPict, the_dpi_is_the_mean_of_both_directions_without_its_fraction) {
  Network n;
  HDC dc = PnCreateRecordDC(10, 10, 75);
  drawState.DC = dc;
  n.draw(0, 0, 0, 0, 0, 0);
  EXPECT_EQ(drawState.Dpi, 75);
  PnDeleteDC(dc);
}

/** The width of the pens of a picture on paper: a line width of 4 units, 96 dpi. */
std::string paperPens(int16_t devMode, int32_t printWidth, int32_t metric, float reduced = 1) {
  Network n(devMode);
  n.view.LineWidth = 4;
  n.plot.PrintLineWidth = printWidth;
  n.plot.Metric = metric;
  n.plot.PrintNodeSize = 200;
  drawState.ReducedScale = reduced;
  const std::string log = pens(n.draw(0, 0, 1, 3, 0, 0));
  const size_t at = log.find("pen(0,", log.find('\n')) + 6;
  return log.substr(at, log.find(',', at) - at);
}

TEST(DrawPict, pens_on_paper_have_their_print_width) {
  EXPECT_EQ(paperPens(1, 62, 0), "5");       /* 96 * 0.062 = 5.95 */
  EXPECT_EQ(paperPens(1, 1575, 1), "5");     /* thousandths of a millimetre: 151.2 * 0.03937 = 5.95 */
  EXPECT_EQ(paperPens(1, 0, 0), "4");        /* a factor of 0 is 1 */
  EXPECT_EQ(paperPens(2, 62, 0, 0.5f), "2"); /* 5.95 / 2 */
}

/** The square of node 2 on paper: x of its left and right corner. */
std::pair<int, int> paperNode(int16_t devMode, int32_t printSize, int32_t metric, float reduced = 1) {
  Network n(devMode);
  n.plot.PrintNodeSize = printSize;
  n.plot.Metric = metric;
  drawState.ReducedScale = reduced;
  const std::string log = only(n.draw(0, 0, 2, 2, 0, 0), {"Polygon"});
  std::pair<int, int> x{-1, -1};
  EXPECT_EQ(std::sscanf(log.c_str(), "Polygon 4 %d %*d %*d %*d %d", &x.first, &x.second), 2) << log;
  return x;
}

TEST(DrawPict, symbols_on_paper_have_their_print_size) {
  /* 96 dpi * 0.2 = 19.2 device units about 1000, whatever the 100 of the screen */
  EXPECT_EQ(paperNode(1, 200, 0), std::pair(990, 1009));
  EXPECT_EQ(paperNode(1, 5080, 1), std::pair(990, 1009)); /* 5.08 mm; times 0.03937: 19.2 */
  EXPECT_EQ(paperNode(2, 200, 0, 0.5f), std::pair(995, 1004));
}

TEST(DrawPict, sizes_of_zero_divide_nothing) {
  Network n(1);
  n.view.NodeSize = n.view.CustSize = n.view.LineWidth = 0;
  n.plot.PrintNodeSize = n.plot.PrintLineWidth = 100;
  n.draw();
  EXPECT_NE(pens(n.draw()).find("pen(0,0,"), std::string::npos); /* factor 1 times a width of 0 */
}

TEST(DrawPict, mono_is_for_paper_only) {
  {
    Network n;
    n.plot.Mono = 1;
    EXPECT_NE(pens(n.draw()).find("0x00FF00"), std::string::npos);
  }
  Network n(1);
  n.plot.Mono = 1;
  n.plot.PrintNodeSize = n.plot.PrintCustSize = 100;
  n.view.NodeColor = n.view.CustColor = 0x000000;
  const std::string log = pens(n.draw());
  EXPECT_EQ(log.find("0x00FF00"), std::string::npos);
  EXPECT_EQ(log.find("0x000010"), std::string::npos);
}

TEST(DrawPict, hollow_symbols_are_white_on_paper_and_in_the_background_colour_on_screen) {
  for (int16_t devMode : {int16_t{0}, int16_t{1}}) {
    Network n(devMode);
    n.view.NodeSymbol = -3;
    n.view.BackColor = 0x445566;
    n.plot.PrintNodeSize = 100;
    const std::string log = only(n.draw(0, 0, 1, 1, 0, 0), {"CreateBrushIndirect"});
    EXPECT_EQ(log, devMode ? "CreateBrushIndirect brush(0,0xFFFFFF)\n" : "CreateBrushIndirect brush(0,0x445566)\n");
  }
}

struct Watched : Network {
  HWND window = PnCreateWindow();
  Watched() { drawState.DrawWindow = drawState.KeyWindow = window; }
  ~Watched() { PnDestroyWindow(window); }
};

TEST(DrawPict, escape_skips_every_later_pass_and_leaves_nothing_behind) {
  Watched n;
  const int32_t before = PnGetObjectCount();
  n.pipes = n.nodes = n.custs = 1;
  PnPostMessage(n.window, 0x100, 0, 0x00010001);
  const std::string log = n.draw();
  EXPECT_EQ(only(log, {"Polygon", "Ellipse"}), "");
  EXPECT_EQ(n.pipes, 1); /* so that the next paint computes anew */
  EXPECT_EQ(n.nodes, 1);
  EXPECT_EQ(n.custs, 1);
  EXPECT_EQ(PnGetObjectCount(), before);
  n.draw();
  EXPECT_EQ(n.pipes, 0);
  EXPECT_EQ(n.nodes, 0);
  EXPECT_EQ(n.custs, 0);
}

TEST(DrawPict, any_other_key_is_swallowed_and_changes_nothing) {
  Watched n;
  PnPostMessage(n.window, 0x100, 0, 0x001E0001);
  PnPostMessage(n.window, 0x100, 0, 0x01010001); /* Escape with the extended bit */
  const std::string log = n.draw();
  EXPECT_EQ(shapes(log), kPipes + kNodes[0] + kNodes[1] + kNodes[2] + kCust);
  EXPECT_NE(log.find("PeekMessageA found"), std::string::npos);
}

TEST(DrawPict, absent_flags_and_tables_are_harmless) {
  Picture p;
  p.view.NodeOn = p.view.CustOn = p.view.TextOn = p.view.UgdOn = 1;
  EXPECT_EQ(DrawPict(-5, 2147483647, -5, 2147483647, -5, 2147483647, -5, 2147483647, -5, 2147483647, 1, nullptr,
                     nullptr, nullptr, 1),
            -1);
}

}  // namespace
