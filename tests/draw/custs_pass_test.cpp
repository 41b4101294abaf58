/** The customer pass in operation logs. A world unit is ten dots; (50, 50) is the dot (500, 500). */
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

class CustPass : public testing::Test {
 protected:
  CustPass() { picture.view.NodeOn = 0; }

  /** A customer without a pipe and without a service line. */
  Cdt& add(double x = 50, double y = 50) {
    const CXY last = model.custCount ? model.cxy[model.custCount] : CXY{};
    const int32_t c = addCust(0, x, y);
    if (c > 1) model.cxy[c - 1] = last;  // growing resets the last screen record
    model.cxy[c].Color = 0x008080;
    model.cdt[c].COLOR = -1;
    model.cdt[c].TEXT_ANGLE = -1;
    return model.cdt[c];
  }
  Cdt& addTapped(double x, double y, double tapX, double tapY) {
    Cdt& c = add(x, y);
    c.SX_COORD = tapX, c.SY_COORD = tapY;
    return c;
  }
  std::string ops(std::initializer_list<std::string_view> names) { return only(picture.paint(), names); }
  std::string shapes() { return ops({"Ellipse", "Polygon", "MoveToEx", "LineTo", "Pie"}); }

  Fresh fresh;
  SceneView picture;
};

TEST_F(CustPass, one_customer_from_font_to_last_restore) {
  addTapped(50, 50, 40, 50);
  EXPECT_EQ(picture.paint(),
            "CreatePen pen(0,1,0x000000)\n"
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\n"
            "SelectObject font(-10,0,400,0,0,\"Arial\")\n"
            "CreatePen pen(0,1,0x008080)\n"
            "SelectObject pen(0,1,0x008080)\n"
            "CreateSolidBrush brush(0,0x008080)\n"
            "SelectObject brush(0,0x008080)\n"
            "SetTextColor 0x000003\n"
            "MoveToEx 400 500\n"
            "LineTo 500 500\n"
            "Ellipse 495 495 505 505\n"
            "UpdateWindow\n"
            "InvalidateRect 1\n"
            "PeekMessageA none\n"
            "SelectObject brush(0,0xFFFFFF)\n"
            "DeleteObject brush(0,0x008080)\n"
            "SelectObject pen(0,1,0x000000)\n"
            "DeleteObject pen(0,1,0x008080)\n"
            "SelectObject font(0,0,400,0,0,\"System\")\n"
            "DeleteObject font(-10,0,400,0,0,\"Arial\")\n"
            "DeleteObject pen(0,1,0x000000)\n");
}

TEST_F(CustPass, sizes_by_record) {
  picture.displayHeight = 50;  // a display unit is two world units
  const struct {
    int16_t size;
    const char* disc;
  } rows[] = {{0, "Ellipse 490 490 510 510\n"}, {3, "Ellipse 470 470 530 530\n"}, {-8, "Ellipse 460 460 540 540\n"}};
  add();
  for (const auto& row : rows) {
    model.cdt[1].HOST_SHORT_409 = row.size;
    EXPECT_EQ(shapes(), row.disc);
  }
  model.cdt[1].HOST_SHORT_409 = 0;
  picture.view.CustSize = -80;
  EXPECT_EQ(shapes(), "Ellipse 460 460 540 540\n");
}

TEST_F(CustPass, a_customer_shows_only_with_its_pipe) {
  addPipe(addNode(10, 10), addNode(20, 10));
  model.pxy[1].LineType = model.pxy[1].LineWidth = 1;
  add().PIPE_REC = 1;
  EXPECT_EQ(ops({"Ellipse"}), "");  // the pipe's class is hidden
  EXPECT_EQ(model.cxy[1].DRAW, 0);
  model.pxy[1].Display = 1;
  EXPECT_NE(ops({"Ellipse"}), "");
  EXPECT_EQ(model.cxy[1].DRAW, 1);
  model.cdt[1].PIPE_REC = 77;  // no such pipe: none was drawn
  EXPECT_EQ(ops({"Ellipse"}), "");
  model.cdt[1].PIPE_REC = 0;
  EXPECT_NE(ops({"Ellipse"}), "");
}

TEST_F(CustPass, deleted_customers_keep_their_draw_flag_and_paint_nothing) {
  add().REC_STATUS = -1;
  model.cxy[1].DRAW = 5;
  EXPECT_EQ(shapes(), "");
  EXPECT_EQ(model.cxy[1].DRAW, 5);
}

TEST_F(CustPass, symbols_under_five_dots_need_a_flag) {
  picture.view.CustSize = 4;
  add(50.03, 50.03);
  EXPECT_EQ(shapes(), "");
  model.cdt[1].FLAG_BYTE = 9;
  EXPECT_EQ(shapes(), "Ellipse 498 497 502 501\n");
}

TEST_F(CustPass, paper_takes_the_factor_of_print_customers) {
  picture.devMode = 1;
  add(50.03, 50.03).HOST_SHORT_409 = 10;  // factor 72 * 0.1 / 10 = 0.72: radius 3.6
  EXPECT_EQ(shapes(), "Ellipse 464 463 536 535\n");
  picture.plot.Metric = 1;
  picture.plot.PrintCustSize = 2540;  // 72 * 2.54 * 0.03937 / 10 = 0.71999: radius 3.6
  EXPECT_EQ(shapes(), "Ellipse 464 463 536 535\n");
  picture.devMode = 2;
  picture.setup();
  drawState.ReducedScale = 0.5f;
  EXPECT_EQ(shapes(), "Ellipse 482 481 518 517\n");
  picture.view.CustSize = 0;  // no default size: factor 1, and that of the raster
  EXPECT_EQ(shapes(), "Ellipse 475 474 525 524\n");
  picture.devMode = 1;
  EXPECT_EQ(shapes(), "Ellipse 450 449 550 549\n");
}

TEST_F(CustPass, paper_starts_in_black_and_mono_stays_there) {
  add();
  picture.devMode = 1;
  EXPECT_EQ(ops({"CreatePen", "SetTextColor"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,7,0x000000)\nSetTextColor 0x000000\n"
            "CreatePen pen(0,7,0x008080)\n");
  picture.plot.Mono = 1;
  EXPECT_EQ(ops({"CreatePen"}), "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,7,0x000000)\n");
}

TEST_F(CustPass, a_tap_at_the_origin_means_no_service_line) {
  addTapped(50, 50, 0, 0);
  EXPECT_EQ(shapes(), "Ellipse 495 495 505 505\n");
  model.cdt[1].SX_COORD = 1e-9;
  EXPECT_NE(shapes().find("LineTo"), std::string::npos);
}

TEST_F(CustPass, symbol_1_has_neither_symbol_nor_service_line_but_flags) {
  Cdt& c = addTapped(20, 20, 10, 10);
  c.HOST_SHORT_410 = 1;
  c.FLAG_BYTE = 1;
  EXPECT_EQ(shapes(), "MoveToEx 200 800\nLineTo 210 733\nPolygon 4 210 733 215 701 265 701 260 733\n");
  c.HOST_SHORT_410 = 0;
  c.FLAG_BYTE = 0;
  picture.view.CustSymbol = 1;
  EXPECT_EQ(shapes(), "");
}

TEST_F(CustPass, hollow_symbols_are_filled_with_the_paper) {
  add().HOST_SHORT_410 = -2;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
  picture.devMode = 1;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xFFFFFF)\n");
}

TEST_F(CustPass, recolouring_takes_the_record_or_the_default) {
  add().COLOR = 0x123456;
  add();
  picture.recolourCusts = 1;
  picture.paintQuietly();
  EXPECT_EQ(model.cxy[1].Color, 0x123456);
  EXPECT_EQ(model.cxy[2].Color, 0x008080);
  EXPECT_EQ(picture.recolourCusts, 0);
}

TEST_F(CustPass, a_service_line_is_walked_from_tap_to_meter_without_clipping) {
  addTapped(50, 50, 30, 50);
  addService(1, {{30, 120}, {50, 120}});
  EXPECT_EQ(ops({"MoveToEx", "LineTo"}),
            "MoveToEx 300 500\nLineTo 300 -200\nMoveToEx 300 -200\nLineTo 500 -200\nMoveToEx 500 -200\n"
            "LineTo 500 500\n");
}

TEST_F(CustPass, service_vertices_show_by_odd_kind) {
  picture.view.VtxMarksOn = 1;
  picture.view.NodeSize = 80;  // marks of 6, devices of 9
  addTapped(80.03, 20.04, 20.03, 20.04);
  addService(1, {{40.03, 20.04}});
  const struct {
    int16_t kind;
    const char* mark;
  } rows[] = {
      {0, ""},
      // Triangle: (0.5, -0.366), (0, 0.5), (-0.5, -0.366) of 6 about (40.03, 20.04).
      {1, "Polygon 3 430 821 400 769 370 821\n"},
      {2, ""},
      // Square turned by 45 degrees: corners 4.2426 away.
      {3, "Polygon 4 400 842 357 799 400 757 442 799\n"},
      {4, ""},
      // Bow tie (0, 0.33), (1, -0.33), (1, 0.33), (0, -0.33) of 9 along the coming segment, due east.
      {5, "Polygon 4 400 769 490 829 490 769 400 829\n"},
      {6, ""},
      {7, "Ellipse 370 769 430 829\n"},
      {8, ""},
  };
  for (const auto& row : rows) {
    model.vtx[1].VTX_KIND = row.kind;
    std::string log = ops({"Polygon", "Ellipse"});
    log.resize(log.rfind("Ellipse"));  // the meter itself
    EXPECT_EQ(log, row.mark) << row.kind;
  }
  model.vtx[1].VTX_KIND = 7;
  model.vtx[1].VTX_OWNER = 0;
  EXPECT_EQ(timesIn(shapes(), "Ellipse"), 1);
  model.vtx[1].VTX_OWNER = 1;
  picture.view.VtxMarksOn = 0;
  EXPECT_EQ(timesIn(shapes(), "Ellipse"), 1);
}

TEST_F(CustPass, device_marks_follow_the_device_size) {
  picture.view.VtxMarksOn = 1;
  addTapped(80.03, 20.03, 20.03, 20.03);
  addService(1, {{40.03, 20.03}});
  model.vtx[1].VTX_KIND = 5;
  picture.view.DeviceSize = 60;  // 6 world units
  EXPECT_EQ(ops({"Polygon"}), "Polygon 4 400 779 460 819 460 779 400 819\n");
  picture.view.DeviceSize = -60;  // 6 percent of the view
  EXPECT_EQ(ops({"Polygon"}), "Polygon 4 400 779 460 819 460 779 400 819\n");
}

TEST_F(CustPass, change_marks_stand_along_the_segment_of_their_vertex) {
  picture.view.CustChangeMarkOn = 1;
  picture.view.DeviceSize = 100;
  addTapped(80.03, 20.03, 20.03, 20.03);
  addService(1, {{40.03, 20.03}});
  SetCXYChange(1, 1, 0.5f, 2, 0.25f);
  // Half of the first segment is (30.03, 20.03), a quarter of the last (50.03, 20.03); the stake of 10 points down.
  const std::string log = ops({"MoveToEx", "LineTo"});
  EXPECT_EQ(timesIn(log, "MoveToEx 300 799\nLineTo 300 899\n"), 1);
  EXPECT_EQ(timesIn(log, "MoveToEx 500 799\nLineTo 500 899\n"), 1);
  picture.view.CustChangeMarkOn = 0;
  EXPECT_EQ(timesIn(ops({"MoveToEx"}), "MoveToEx"), 2);
}

TEST_F(CustPass, a_selected_customer_has_grips_at_meter_and_tap) {
  addTapped(50, 50, 30, 50);
  add(70, 50);
  model.cxy[1].HILITE = model.cxy[2].HILITE = 1;
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0x00FFFF)"), 3);
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0xFF00FF)"), 1);
  EXPECT_EQ(model.cxy[1].HILITE_DRAWN, 1);
  picture.clearHilite = 1;
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0xC0C0C0)"), 3);
  EXPECT_EQ(model.cxy[1].HILITE + model.cxy[1].HILITE_DRAWN, 0);
}

TEST_F(CustPass, a_selected_vertex_is_shown_by_a_pen_and_brush_of_its_own) {
  picture.view.VtxMarksOn = 1;
  addTapped(80, 20, 20, 20);
  addService(1, {{40, 20}});
  model.vtx[1].VTX_HILITE = 1;
  EXPECT_EQ(timesIn(ops({"CreateSolidBrush"}), "brush(0,0xFF00FF)"), 1);
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0x00FFFF)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_DRAWN, 1);
  picture.clearHilite = 1;
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0xC0C0C0)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_HILITE + model.vtx[1].VTX_DRAWN, 0);
}

TEST_F(CustPass, flags_by_byte) {
  const struct {
    uint8_t flag;
    int polygons, reds;
  } rows[] = {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {3, 2, 0}, {4, 1, 1}, {5, 0, 0}};
  add(20, 20).HOST_SHORT_410 = 3;
  for (const auto& row : rows) {
    model.cdt[1].FLAG_BYTE = row.flag;
    const std::string log = ops({"Polygon", "CreatePen"});
    EXPECT_EQ(timesIn(log, "Polygon"), row.polygons + 1) << int{row.flag};
    EXPECT_EQ(timesIn(log, "CreatePen pen(0,1,0x0000FF)"), row.reds) << int{row.flag};
  }
}

TEST_F(CustPass, beyond_the_zoom_limit_only_flagged_ones_stay_and_only_their_flags) {
  picture.view.CustZoomLimit = 99;
  addTapped(20, 20, 10, 20).FLAG_BYTE = 1;
  add(30, 30);
  EXPECT_EQ(shapes(), "");
  picture.view.SymbolsAllZoom = 1;
  EXPECT_EQ(shapes(), "MoveToEx 200 800\nLineTo 210 733\nPolygon 4 210 733 215 701 265 701 260 733\n");
}

TEST_F(CustPass, a_single_customer_is_painted_alone_while_the_pass_is_off) {
  add(10, 10), add(20, 20);
  picture.view.CustOn = 0;
  EXPECT_EQ(shapes(), "");
  picture.singleCust = 2;
  EXPECT_EQ(shapes(), "Ellipse 195 795 205 805\n");
}

TEST_F(CustPass, customers_wholly_outside_the_window_cost_no_operation) {
  addTapped(120, 50, 110, 50);
  add(50, -10);
  EXPECT_EQ(ops({"Ellipse", "LineTo", "UpdateWindow"}), "");
  model.cdt[1].SX_COORD = 90;  // the tap lies inside: its line shows
  EXPECT_EQ(ops({"LineTo"}), "LineTo 1200 500\n");
}

TEST_F(CustPass, what_reaches_into_the_window_shows_though_its_meter_lies_outside) {
  add(100.3, 50.03);
  EXPECT_EQ(ops({"Ellipse"}), "Ellipse 998 494 1008 504\n");
  Cdt& c = model.cdt[1];
  c.X_COORD = -5, c.Y_COORD = 20;
  EXPECT_EQ(shapes(), "");
  c.FLAG_BYTE = 1;
  c.HOST_SHORT_410 = 1;
  // A flag of 10: (-5, 20) + (1.04, 6.62), (1.56, 9.88), (6.56, 9.88), (6.04, 6.62).
  EXPECT_EQ(shapes(), "MoveToEx -50 800\nLineTo -39 733\nPolygon 4 -39 733 -34 701 15 701 10 733\n");
}

TEST_F(CustPass, a_label_with_a_place_in_the_window_shows_though_its_customer_lies_outside) {
  Cdt& c = add(120, 50);
  c.HOST_SHORT_411 = 1;
  c.TEXT_X = 90, c.TEXT_Y = 50;
  picture.view.CustLabelMask = 1;
  picture.view.CustLabel[0] = 421;
  c.COUNT = 7;
  EXPECT_EQ(ops({"TextOutA"}), "TextOutA 900 500 \"7\"\n");
}

TEST_F(CustPass, clearing_reaches_customers_outside_the_window) {
  add(120, 50);
  model.cxy[1].HILITE = model.cxy[1].HILITE_DRAWN = 1;
  picture.clearHilite = 1;
  picture.paintQuietly();
  EXPECT_EQ(model.cxy[1].HILITE + model.cxy[1].HILITE_DRAWN, 0);
}

TEST_F(CustPass, absurd_print_sizes_are_harmless) {
  add();
  picture.devMode = 1;
  picture.plot.PrintCustSize = INT32_MAX;
  EXPECT_NE(ops({"Ellipse"}), "");
}

TEST_F(CustPass, every_map_mode_moves_meter_and_tap) {
  Cdt& c = addTapped(60, 20, 50, 20);
  c.Z_COORD = 30;
  EXPECT_EQ(shapes(), "MoveToEx 500 800\nLineTo 600 800\nEllipse 595 795 605 805\n");
  picture.iso = 1;
  // Meter (80 * 0.866025, 10); tap (70 * 0.866025, -15 + 30).
  EXPECT_EQ(shapes(), "MoveToEx 606 850\nLineTo 692 900\nEllipse 687 895 697 905\n");
  picture.iso = 0;
  picture.projection = 2;
  EXPECT_EQ(shapes(), "MoveToEx 500 800\nLineTo 600 800\nEllipse 595 795 605 805\n");
  picture.projection = 1;
  c.Y_COORD = 50, c.SY_COORD = 50;  // the middle latitude
  EXPECT_EQ(shapes(), "MoveToEx 500 500\nLineTo 600 500\nEllipse 595 495 605 505\n");
}

TEST_F(CustPass, escape_cancels_and_leaves_the_recolour_flag) {
  for (int i = 1; i <= 3; i++) add(10 * i, 10);
  picture.plot.PollPercent = 0;
  picture.recolourCusts = 1;
  PnPostMessage(picture.window, 0x100, 27, 1 << 16);
  const int32_t objects = PnGetObjectCount();
  EXPECT_EQ(ops({"Ellipse"}), "Ellipse 95 895 105 905\n");
  EXPECT_EQ(picture.recolourCusts, 1);
  EXPECT_EQ(PnGetObjectCount(), objects);
}

TEST_F(CustPass, vertex_runs_outside_the_table_are_cut) {
  addTapped(80, 20, 20, 20);
  addService(1, {{40, 20}});
  model.cxy[1].LAST_VTX = INT32_MAX;
  EXPECT_EQ(timesIn(shapes(), "LineTo"), 2);
  model.cxy[1].FIRST_VTX = INT32_MIN;
  EXPECT_EQ(timesIn(shapes(), "LineTo"), 1);
}

}  // namespace
}  // namespace pn10::test
