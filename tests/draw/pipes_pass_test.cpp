/** The pipe pass in operation logs. A world unit is ten dots; (50, 50) is the dot (500, 500). */
#include <cmath>

#include "draw/passes.h"
#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;

class PipePass : public testing::Test {
 protected:
  PipePass() { picture.view.NodeOn = picture.view.CustOn = 0; }
  ~PipePass() override { lookups.flut = {nullptr, 0}, lookups.vlut = {nullptr, 0}; }

  /** A blue solid pipe of width 1 between two new nodes. */
  Pdt& add(double x1 = 10, double y1 = 10, double x2 = 30, double y2 = 10) {
    const PXY last = model.pipeCount ? model.pxy[model.pipeCount] : PXY{};
    const int32_t from = addNode(x1, y1), to = addNode(x2, y2), pipe = addPipe(from, to);
    if (pipe > 1) model.pxy[pipe - 1] = last;  // growing resets the last screen record
    PXY& screen = model.pxy[pipe];
    screen.Color = 0xFF0000;
    screen.LineType = screen.LineWidth = 1;
    screen.Display = 1;
    screen.LENGTH = 20;
    model.pdt[pipe].TEXT_ANGLE = -1;
    model.pdt[pipe].COLOR = -1;
    for (const int32_t node : {from, to}) model.nxy[node].Drawn = 0;
    return model.pdt[pipe];
  }
  std::string lines() { return ops({"MoveToEx", "LineTo"}); }
  std::string ops(std::initializer_list<std::string_view> names) { return only(picture.paint(), names); }
  static int count(const std::string& log, std::string_view what) {
    int n = 0;
    for (size_t at = log.find(what); at != std::string::npos; at = log.find(what, at + 1)) n++;
    return n;
  }

  Fresh fresh;
  SceneView picture;
};

TEST_F(PipePass, one_pipe_from_brush_to_last_restore) {
  add();
  EXPECT_EQ(picture.paint(),
            "CreatePen pen(0,1,0x000000)\n"
            "CreateSolidBrush brush(0,0xFFFFFFFF)\n"
            "SelectObject brush(0,0xFFFFFFFF)\n"
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\n"
            "SelectObject font(-10,0,400,0,0,\"Arial\")\n"
            "SetTextAlign 6\n"
            "SetTextColor 0x000002\n"
            "SetBkMode 2\n"
            "CreatePen pen(0,1,0x000000)\n"
            "SelectObject pen(0,1,0x000000)\n"
            "SelectObject pen(0,1,0x000000)\n"
            "DeleteObject pen(0,1,0x000000)\n"
            "ExtCreatePen pen(0x10000,1,0xFF0000)\n"
            "SelectObject pen(0x10000,1,0xFF0000)\n"
            "MoveToEx 100 900\n"
            "LineTo 300 900\n"
            "UpdateWindow\n"
            "InvalidateRect 1\n"
            "PeekMessageA none\n"
            "SelectObject pen(0,1,0x000000)\n"
            "DeleteObject pen(0x10000,1,0xFF0000)\n"
            "SelectObject font(0,0,400,0,0,\"System\")\n"
            "DeleteObject font(-10,0,400,0,0,\"Arial\")\n"
            "SelectObject brush(0,0xFFFFFF)\n"
            "DeleteObject brush(0,0xFFFFFFFF)\n"
            "DeleteObject pen(0,1,0x000000)\n");
}

TEST_F(PipePass, transparent_text_sets_the_mode_at_the_start) {
  add();
  picture.view.PipeTransparent = 1;
  EXPECT_EQ(ops({"SetBkMode"}), "SetBkMode 1\n");
}

TEST_F(PipePass, a_drawn_pipe_marks_itself_and_its_end_nodes) {
  add();
  picture.paintQuietly();
  EXPECT_EQ(model.pxy[1].DRAWN, 1);
  EXPECT_EQ(model.nxy[1].Drawn, -1);
  EXPECT_EQ(model.nxy[2].Drawn, -1);
}

TEST_F(PipePass, style_6_marks_its_nodes_and_paints_nothing) {
  Pdt& p = add();
  model.pxy[1].LineType = 6;
  p.HYD_TYPE = 2;
  p.LABEL_ON = p.FLAG_BYTE = 1;
  picture.view.DevicesOn = picture.view.PipeLabelMask = picture.view.PipeLabel[0] = 1;
  EXPECT_EQ(ops({"MoveToEx", "Polygon", "TextOutA"}), "");
  EXPECT_EQ(model.pxy[1].DRAWN, 1);
  EXPECT_EQ(model.nxy[2].Drawn, -1);
}

TEST_F(PipePass, pipes_deleted_hidden_or_without_an_end_are_not_drawn) {
  add().REC_STATUS = -1;
  add().FROM_NODE = 0;
  add().TO_NODE = 0;
  add();
  model.pxy[4].Display = 0;
  add().TO_NODE = 99;
  for (int p = 1; p <= 5; p++) model.pxy[p].DRAWN = 1;
  EXPECT_EQ(lines(), "");
  for (int p = 1; p <= 5; p++) EXPECT_EQ(model.pxy[p].DRAWN, 0) << p;
  for (int n = 1; n <= 10; n++) EXPECT_EQ(model.nxy[n].Drawn, 0) << n;
}

TEST_F(PipePass, short_pipes_are_dropped_and_devices_are_not) {
  picture.plot.ShortPipeSkip = 1;
  picture.minPixels = 4;  // 0.4 world units, halved: 0.2
  add();
  model.pxy[1].LENGTH = 0.19f;
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(model.pxy[1].DRAWN, 0);
  model.pdt[1].HYD_TYPE = 3;
  EXPECT_NE(lines(), "");
  model.pdt[1].HYD_TYPE = 0;
  model.pxy[1].LENGTH = 0.2f;
  EXPECT_NE(lines(), "");
}

TEST_F(PipePass, recolouring_resolves_colour_and_ends_with_the_pass) {
  add();
  model.pxy[1].Color = 5;
  picture.paintQuietly();
  EXPECT_EQ(model.pxy[1].Color, 5);
  picture.recolourPipes = 1;
  EXPECT_NE(ops({"ExtCreatePen"}).find("0xFF0000"), std::string::npos);
  EXPECT_EQ(picture.recolourPipes, 0);
}

TEST_F(PipePass, one_look_makes_one_pen_however_many_pipes) {
  for (int i = 1; i <= 40; i++) add(i, i, i + 5, i);
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,1,0xFF0000)\n");
}

TEST_F(PipePass, colour_width_and_style_each_make_a_new_pen) {
  for (int i = 0; i < 4; i++) add();
  model.pxy[2].Color = 0x00FF00;
  model.pxy[3].LineWidth = 3;
  model.pxy[4].LineType = 16;
  model.pxy[4].LineWidth = 3;
  EXPECT_EQ(ops({"ExtCreatePen"}),
            "ExtCreatePen pen(0x10000,1,0xFF0000)\nExtCreatePen pen(0x10000,1,0x00FF00)\n"
            "ExtCreatePen pen(0x10000,3,0xFF0000)\nExtCreatePen pen(0x10007,3,0xFF0000,[12,6])\n");
}

TEST_F(PipePass, a_pipe_outside_the_window_costs_no_operation) {
  const std::string empty = picture.paint();
  add(110, 10, 130, 60);
  add(10, -5, 90, -1);
  addRun(add(110, 110, 150, 150).ID, {{120, 130}, {130, 120}});
  model.pxy[1].LineWidth = 7;
  EXPECT_EQ(ops({"ExtCreatePen", "MoveToEx", "UpdateWindow"}), "");
  EXPECT_EQ(model.pxy[1].DRAWN, 1);  // it still brings its nodes and customers
  picture.plot.ClipOn = 0;
  EXPECT_EQ(count(ops({"MoveToEx"}), "MoveToEx"), 5);
}

TEST_F(PipePass, a_crossing_pipe_is_cut_at_the_window) {
  add(50, 50, 150, 50);
  EXPECT_EQ(lines(), "MoveToEx 500 500\nLineTo 1000 500\n");
  picture.plot.ClipOn = 0;
  EXPECT_EQ(lines(), "MoveToEx 500 500\nLineTo 1500 500\n");
}

TEST_F(PipePass, a_quarter_arc_runs_in_one_degree_steps_from_its_from_node) {
  add(60.03, 50.03, 50.03, 60.03);
  addArc(1, 10, 90.2 * kDegree);
  model.pdt[1].VTX_MODE = 2;
  const std::string log = lines();
  EXPECT_EQ(log.substr(0, 17), "MoveToEx 600 499\n");
  EXPECT_EQ(log.substr(log.size() - 15), "LineTo 500 399\n");
  EXPECT_EQ(count(log, "LineTo"), 90 + 1);
  model.pdt[1].VTX_MODE = 1;  // the other turn: about (60, 60), from the same node
  const std::string other = lines();
  EXPECT_EQ(other.substr(0, 17), "MoveToEx 600 499\n");
  EXPECT_EQ(other.substr(other.size() - 15), "LineTo 500 399\n");
  EXPECT_NE(other, log);
}

TEST_F(PipePass, an_arc_between_two_ends_out_of_view_is_skipped_and_one_without_geometry_too) {
  add(110, 50, 50, 110);
  addArc(1, 60, 90 * kDegree);
  EXPECT_EQ(lines(), "");
  picture.plot.ClipOn = 0;
  EXPECT_NE(lines(), "");
  model.pxy[1].LAST_VTX = 0;
  EXPECT_EQ(lines(), "");
}

TEST_F(PipePass, an_isometric_arc_is_squashed_and_rises_with_its_ends) {
  add(60, 20, 50, 30);
  addArc(1, 10, 90 * kDegree);
  model.pdt[1].VTX_MODE = 2;
  model.ndt[1].Z_COORD = 20, model.ndt[2].Z_COORD = 30;
  picture.iso = 1;
  const std::string log = lines();
  // (80 * 0.866025, -20 + 20) and (80 * 0.866025, -10 + 30)
  EXPECT_EQ(log.substr(0, log.find('\n')), "MoveToEx 692 1000");
  EXPECT_EQ(log.substr(log.rfind("LineTo")), "LineTo 692 800\n");
}

TEST_F(PipePass, a_polyline_is_walked_segment_by_segment) {
  add();
  addRun(1, {{10, 20}, {30, 20}});
  EXPECT_EQ(lines(),
            "MoveToEx 100 900\nLineTo 100 800\nMoveToEx 100 800\nLineTo 300 800\nMoveToEx 300 800\nLineTo 300 900\n");
}

TEST_F(PipePass, a_polyline_with_a_run_outside_the_table_is_drawn_as_far_as_it_goes) {
  add();
  addRun(1, {{10, 20}});
  model.pxy[1].LAST_VTX = INT32_MAX;
  EXPECT_EQ(lines(), "MoveToEx 100 900\nLineTo 100 800\nMoveToEx 100 800\nLineTo 300 900\n");
  model.pxy[1].FIRST_VTX = -7;
  EXPECT_EQ(lines(), "MoveToEx 100 900\nLineTo 300 900\n");
}

TEST_F(PipePass, vertex_marks_by_kind_owner_and_switches) {
  add();
  addRun(1, {{10.03, 20.03}, {30.03, 20.03}});
  picture.view.NodeOn = picture.view.VtxMarksOn = 1;
  picture.view.NodeSize = 80;
  model.vtx[2].VTX_KIND = 2;
  // Size 6. The triangle's corners lie 3.4641 from (10.03, 20.03): up, lower left, lower right; the square's 4.2426
  // from (30.03, 20.03) at 270, 180, 90 and 0 degrees, walked from bearing 45 + 225.
  EXPECT_EQ(ops({"Polygon"}), "Polygon 3 100 765 70 817 130 817\nPolygon 4 300 842 257 799 300 757 342 799\n");
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
  picture.view.VtxMarksFilled = 1;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "");
  EXPECT_NE(ops({"CreateSolidBrush"}).find("brush(0,0xFF0000)"), std::string::npos);
  model.vtx[1].VTX_OWNER = 0;
  model.vtx[2].VTX_KIND = 8;
  EXPECT_EQ(ops({"Polygon"}), "");
  model.vtx[1].VTX_OWNER = 1;
  picture.view.NodeZoomLimit = 1;
  picture.view.SymbolsAllZoom = 1;  // nodes without size: no marks
  EXPECT_EQ(ops({"Polygon"}), "");
}

TEST_F(PipePass, a_selected_vertex_is_shown_by_a_pen_and_brush_of_its_own_and_a_grip) {
  add();
  addRun(1, {{10, 20}, {30, 20}});
  picture.view.NodeOn = picture.view.VtxMarksOn = 1;
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  model.vtx[1].VTX_HILITE = 1;
  const std::string log = ops({"CreatePen", "CreateSolidBrush", "Polygon", "DeleteObject"});
  EXPECT_NE(log.find("CreatePen pen(0,1,0xFF00FF)\nCreateSolidBrush brush(0,0xFF00FF)\nPolygon 3"), std::string::npos);
  EXPECT_EQ(count(log, "CreatePen pen(0,1,0x00FFFF)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_DRAWN, 1);
  EXPECT_EQ(model.vtx[2].VTX_DRAWN, 0);
  picture.clearHilite = 1;
  EXPECT_EQ(count(ops({"CreatePen"}), "pen(0,1,0xC0C0C0)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_HILITE + model.vtx[1].VTX_DRAWN, 0);
}

TEST_F(PipePass, a_selected_pipe_takes_the_hilite_colour_and_grips_at_nodes_and_vertices) {
  add();
  addRun(1, {{20, 20}});
  model.pxy[1].HILITE = 1;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,1,0xFF00FF)\n");
  EXPECT_EQ(model.pxy[1].HILITE_DRAWN, 0);
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  EXPECT_EQ(count(ops({"Polygon"}), "Polygon 4"), 3);
  EXPECT_EQ(model.pxy[1].HILITE_DRAWN, 1);
  picture.clearHilite = 1;
  const std::string log = ops({"ExtCreatePen", "CreatePen"});
  EXPECT_EQ(count(log, "ExtCreatePen pen(0x10000,1,0xFF0000)"), 1);
  EXPECT_EQ(count(log, "CreatePen pen(0,1,0xC0C0C0)"), 3);
  EXPECT_EQ(model.pxy[1].HILITE, 0);
  EXPECT_EQ(model.pxy[1].HILITE_DRAWN, 0);
}

TEST_F(PipePass, a_negative_hilite_colour_is_the_contrast_of_the_pipe) {
  add();
  model.pxy[1].HILITE = 1;
  model.pxy[1].Color = 0x102030;
  picture.plot.HiliteColor = -1;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,1,0xEFDFCF)\n");
}

TEST_F(PipePass, devices_stand_for_their_pipes_and_keep_the_line_with_a_device_size) {
  add(10, 10.03, 30, 10.03).HYD_TYPE = 2;
  picture.view.DevicesOn = 1;
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(ops({"Polygon"}), "Polygon 4 100 799 300 849 300 949 100 999\n");
  picture.view.DeviceSize = 40;  // 4 units about (20, 10.03)
  EXPECT_EQ(lines(), "MoveToEx 100 899\nLineTo 300 899\n");
  EXPECT_EQ(ops({"Polygon"}), "Polygon 4 180 879 220 889 220 909 180 919\n");
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
}

TEST_F(PipePass, a_dashed_device_gets_a_solid_pen_and_the_next_pipe_its_dashes_again) {
  add().HYD_TYPE = 2;
  add(10, 50, 30, 50);
  picture.view.DevicesOn = 1;
  for (int p : {1, 2}) model.pxy[p].LineType = 3;
  EXPECT_EQ(ops({"CreatePen", "ExtCreatePen"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0xFF0000)\n"
            "ExtCreatePen pen(0x10002,1,0xFF0000)\n");
  model.pxy[1].LineType = 1;
  EXPECT_EQ(count(ops({"ExtCreatePen"}), "ExtCreatePen"), 2);
}

TEST_F(PipePass, hidden_devices_leave_the_plain_line) {
  add().HYD_TYPE = 3;
  EXPECT_EQ(lines(), "MoveToEx 100 900\nLineTo 300 900\n");
  picture.view.DevicesOn = 1;
  picture.view.DeviceZoomLimit = 99;
  EXPECT_EQ(lines(), "MoveToEx 100 900\nLineTo 300 900\n");
  picture.devMode = 1;  // the limit is one of the screen
  EXPECT_EQ(lines(), "");
  picture.devMode = 0;
  picture.view.DeviceZoomLimit = 100;
  EXPECT_EQ(lines(), "");
}

TEST_F(PipePass, a_valve_row_of_kind_9_is_wired) {
  VLut rows[3]{};
  copyText(rows[1].KEY_TEXT, "plug");
  copyText(rows[2].KEY_TEXT, "gate");
  rows[2].FIELD_7 = 9;
  lookups.vlut = {rows, 3};
  Pdt& p = add();
  p.HYD_TYPE = 3;
  picture.view.DevicesOn = 1;
  copyText(p.SIZE_TYPE, "plug");
  EXPECT_EQ(ops({"Polygon"}), "Polygon 4 100 834 300 966 300 834 100 966\n");
  copyText(p.SIZE_TYPE, "gate");
  EXPECT_EQ(ops({"Polygon"}), "");
  EXPECT_EQ(lines(), "MoveToEx 100 966\nLineTo 100 834\nLineTo 300 966\nLineTo 300 834\n");
}

TEST_F(PipePass, a_fitting_is_its_device_code_behind_a_line) {
  FLut rows[3]{};
  copyText(rows[1].KEY_TEXT, "tee");
  copyText(rows[2].KEY_TEXT, "plain");
  rows[1].FIELD_20 = 1004;
  lookups.flut = {rows, 3};
  Pdt& p = add(10.03, 50.03, 30.03, 50.03);
  p.HYD_TYPE = 5;
  picture.view.DevicesOn = 1;
  copyText(p.SIZE_TYPE, "tee");
  const std::string log = ops({"MoveToEx", "LineTo", "Polygon"});
  EXPECT_EQ(log.substr(0, log.find("Polygon")), "MoveToEx 100 499\nLineTo 300 499\n");
  EXPECT_EQ(count(log, "Polygon 8"), 1);
  copyText(p.SIZE_TYPE, "plain");
  EXPECT_EQ(ops({"Polygon"}), "");
  EXPECT_EQ(lines(), "MoveToEx 100 499\nLineTo 300 499\n");
}

TEST_F(PipePass, lines_only_leaves_labels_and_flags) {
  Pdt& p = add(40, 50, 60, 50);
  p.LABEL_ON = p.FLAG_BYTE = 1;
  p.FLOW = p.Q_FACTOR = 1;
  p.HYD_TYPE = 2;
  picture.linesOnly = 1;
  picture.view.NodeOn = picture.view.DevicesOn = picture.view.ArrowsOn = picture.view.VtxMarksOn = 1;
  picture.view.PipeLabelMask = 1;
  picture.view.PipeLabel[0] = 1;
  EXPECT_EQ(ops({"MoveToEx", "LineTo", "Polygon", "TextOutA"}),
            "MoveToEx 400 500\nLineTo 600 500\n"
            "MoveToEx 500 500\nLineTo 510 433\nPolygon 4 510 433 515 401 565 401 560 433\n"
            "TextOutA 500 489 \"1\"\n");
}

TEST_F(PipePass, flags_by_byte) {
  Pdt& p = add(20, 20, 40, 20);
  picture.view.NodeOn = 1;
  const struct {
    uint8_t flag;
    int pennants, outlines;
    const char* color;
  } rows[] = {{0, 0, 0, "0xFFFFFFFF"}, {1, 1, 0, "0xFF0000"}, {2, 1, 1, "0xFF0000"},
              {3, 0, 0, "0xFFFFFFFF"}, {4, 1, 0, "0x0000FF"}, {5, 0, 0, "0xFFFFFFFF"}};
  for (const auto& row : rows) {
    p.FLAG_BYTE = row.flag;
    model.nxy[1].Drawn = model.nxy[2].Drawn = 0;
    picture.view.NodeSymbol = 0;
    const std::string log = ops({"Polygon", "CreateSolidBrush", "LineTo"});
    EXPECT_EQ(count(log, "Polygon 4 310 733"), row.pennants);
    EXPECT_EQ(count(log, "LineTo 360 733\n"), row.outlines * 2);
    EXPECT_NE(log.find(std::string("brush(0,") + row.color), std::string::npos) << int{row.flag};
  }
  picture.view.NodeOn = 0;  // no nodes shown, no flags
  p.FLAG_BYTE = 1;
  EXPECT_EQ(ops({"Polygon"}), "");
}

TEST_F(PipePass, arrows_take_the_product_of_flow_and_factor) {
  Pdt& p = add();
  p.FLOW = 3;
  p.Q_FACTOR = 0.5f;
  picture.view.ArrowsOn = 1;
  picture.view.ArrowMinFlow = 150;
  EXPECT_EQ(count(lines(), "MoveToEx 200 900"), 2);
  picture.view.ArrowMinFlow = 151;
  EXPECT_EQ(count(lines(), "MoveToEx"), 1);
}

TEST_F(PipePass, arrow_sizes_by_option) {
  Pdt& p = add();
  p.FLOW = p.Q_FACTOR = 1;
  picture.view.ArrowsOn = 1;
  const auto size = [&] {
    picture.paintQuietly();
    return drawState.ArrowSize;
  };
  EXPECT_NEAR(size(), 5 * std::cos(0.15707963705062866), 1e-6);
  picture.view.ArrowSize = -10;
  EXPECT_FLOAT_EQ(size(), 3);  // 10 * 100 * 0.003
  picture.view.ArrowSize = 10;
  EXPECT_FLOAT_EQ(size(), 3);  // 10 * 0.3 display units
  picture.devMode = 1;
  EXPECT_FLOAT_EQ(size(), 3 * 0.72f);  // 72 dpi * 0.1 inch over ten dots
}

TEST_F(PipePass, arrows_too_small_to_read_or_beyond_their_limit_are_left_out) {
  Pdt& p = add();
  p.FLOW = p.Q_FACTOR = 1;
  picture.view.ArrowsOn = 1;
  picture.view.ArrowSize = -3;  // 0.9 of a view of 100
  EXPECT_EQ(count(lines(), "MoveToEx"), 1);
  picture.devMode = 1;
  EXPECT_EQ(count(lines(), "MoveToEx"), 3);  // paper shows them at every size
  picture.devMode = 0;
  picture.view.ArrowSize = -4;
  EXPECT_EQ(count(lines(), "MoveToEx"), 3);
  picture.view.ArrowZoomLimit = 99;
  EXPECT_EQ(count(lines(), "MoveToEx"), 1);
}

TEST_F(PipePass, a_polyline_has_an_arrow_on_every_segment_or_on_the_mid_one) {
  Pdt& p = add();
  p.FLOW = p.Q_FACTOR = 1;
  addRun(1, {{10, 20}, {30, 20}});
  picture.view.ArrowsOn = 1;
  EXPECT_EQ(count(lines(), "MoveToEx"), 3 + 3 * 2);
  picture.view.ArrowsAtMidVertex = 1;
  const std::string log = lines();
  EXPECT_EQ(count(log, "MoveToEx"), 3 + 2);
  EXPECT_EQ(count(log, "MoveToEx 200 800"), 2);
  addRun(1, {{10, 12}});  // the middle lies on the last segment
  EXPECT_EQ(count(lines(), "MoveToEx 200 890"), 2);
}

TEST_F(PipePass, the_open_arrow_of_an_arc_stands_on_its_middle) {
  Pdt& p = add(60.03, 50.03, 50.03, 60.03);
  p.FLOW = p.Q_FACTOR = 1;
  addArc(1, 10, 90 * kDegree);
  p.VTX_MODE = 2;
  picture.view.ArrowsOn = 1;
  // (50.03, 50.03) + 10 at 45 degrees = (57.10, 57.10)
  EXPECT_EQ(count(lines(), "MoveToEx 571 428"), 2);
}

TEST_F(PipePass, print_scales_the_pen_by_the_pen_factor_and_mono_is_black) {
  add();
  model.pxy[1].LineWidth = 3;
  picture.devMode = 1;
  picture.view.LineWidth = 2;
  picture.plot.PrintLineWidth = 100;  // 72 * 0.1 / 2 = 3.6: the view's pen 7, the pipe's 10
  EXPECT_EQ(ops({"CreatePen"}), "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,7,0x000000)\n");
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,10,0xFF0000)\n");
  picture.plot.Mono = 1;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,10,0x000000)\n");
  picture.plot.PrintLineWidth = 1;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,1,0x000000)\n");  // at least 1
  picture.plot.PrintLineWidth = 0;                                             // a factor of 0 counts as 1
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,3,0x000000)\n");
  picture.plot.PrintLineWidth = 100;
  picture.devMode = 2;
  picture.setup();
  drawState.ReducedScale = 0.5f;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,5,0x000000)\n");
}

TEST_F(PipePass, every_map_mode_puts_both_ends_in_their_place) {
  add(60, 20, 60, 40);
  model.ndt[1].Z_COORD = 30, model.ndt[2].Z_COORD = 10;
  const struct {
    int16_t iso, projection;
    const char* line;
  } rows[] = {{0, 0, "MoveToEx 600 800\nLineTo 600 600\n"},
              // (80, -20 + 30) and (100, -10 + 10), X times 0.866025
              {1, 0, "MoveToEx 692 900\nLineTo 866 1000\n"},
              {0, 2, "MoveToEx 600 800\nLineTo 600 600\n"}};
  for (const auto& row : rows) {
    picture.iso = row.iso;
    picture.projection = row.projection;
    EXPECT_EQ(lines(), row.line);
  }
  picture.iso = 0;
  picture.projection = 1;
  picture.geo[0] = 0, picture.geo[1] = 60, picture.geo[2] = 100, picture.geo[3] = 20;
  picture.y0 = 60, picture.y1 = 20;
  model.ndt[1].Y_COORD = 40;  // the middle latitude of the base window
  EXPECT_EQ(lines().substr(0, 17), "MoveToEx 600 500\n");
}

TEST_F(PipePass, polls_count_what_was_painted_and_escape_leaves_the_later_passes_out) {
  for (int i = 1; i <= 3; i++) add(10 * i, 10, 10 * i, 20);
  add(110, 10, 120, 20);  // out of view
  picture.view.NodeOn = 1;
  picture.plot.PollPercent = 0;
  EXPECT_EQ(count(ops({"UpdateWindow"}), "UpdateWindow"), 3 + 6);
  PnPostMessage(picture.window, 0x100, 27, 1 << 16);
  picture.recolourPipes = picture.recolourNodes = 1;
  const int32_t objects = PnGetObjectCount();
  EXPECT_EQ(ops({"LineTo", "Ellipse"}), "LineTo 100 800\n");
  EXPECT_EQ(PnGetObjectCount(), objects);
  EXPECT_EQ(picture.recolourPipes, 1);
  EXPECT_EQ(model.nxy[1].Drawn, -1);
}

TEST_F(PipePass, a_range_paints_only_its_own) {
  for (int i = 1; i <= 3; i++) add(10 * i, 10, 10 * i, 20);
  picture.setup();
  EXPECT_EQ(only(recorded([] {
                   int16_t flag = 0;
                   DrawPict(2, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, &flag, &flag, &flag, 0);
                 }),
                 {"LineTo"}),
            "LineTo 200 800\n");
}

}  // namespace
}  // namespace pn10::test
