/** The pipe pass in operation logs: what is drawn, pens, clipping, vertices, hilites, paper, modes, polls. */
#include <cmath>

#include "draw/pipe_pass.h"

namespace pn10::test {
namespace {

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
  EXPECT_EQ(timesIn(ops({"MoveToEx"}), "MoveToEx"), 5);
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
  EXPECT_EQ(timesIn(log, "LineTo"), 90 + 1);
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

TEST_F(PipePass, an_isometric_arc_whose_ends_coincide_paints_nothing_and_says_nothing) {
  add(60, 20, 60.5, 20);
  addArc(1, 10, 90 * kDegree);
  model.ndt[1].Z_COORD = model.ndt[2].Z_COORD = 50;
  picture.iso = 1;
  settings.tolerance = 0.51f;
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(messages(), "");
  settings.tolerance = 0.5f;
  EXPECT_NE(lines(), "");
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
  EXPECT_EQ(timesIn(log, "CreatePen pen(0,1,0x00FFFF)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_DRAWN, 1);
  EXPECT_EQ(model.vtx[2].VTX_DRAWN, 0);
  picture.clearHilite = 1;
  EXPECT_EQ(timesIn(ops({"CreatePen"}), "pen(0,1,0xC0C0C0)"), 1);
  EXPECT_EQ(model.vtx[1].VTX_HILITE + model.vtx[1].VTX_DRAWN, 0);
}

TEST_F(PipePass, clearing_reaches_the_vertices_outside_the_window) {
  add(110, 10, 130, 10);
  addRun(1, {{110, 20}, {130, 20}});
  model.vtx[2].VTX_HILITE = model.vtx[2].VTX_DRAWN = 1;
  picture.clearHilite = 1;
  picture.paintQuietly();
  EXPECT_EQ(model.vtx[2].VTX_HILITE + model.vtx[2].VTX_DRAWN, 0);
}

TEST_F(PipePass, a_selected_pipe_takes_the_hilite_colour_and_grips_at_nodes_and_vertices) {
  add();
  addRun(1, {{20, 20}});
  model.pxy[1].HILITE = 1;
  EXPECT_EQ(ops({"ExtCreatePen"}), "ExtCreatePen pen(0x10000,1,0xFF00FF)\n");
  EXPECT_EQ(model.pxy[1].HILITE_DRAWN, 0);
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  EXPECT_EQ(timesIn(ops({"Polygon"}), "Polygon 4"), 3);
  EXPECT_EQ(model.pxy[1].HILITE_DRAWN, 1);
  picture.clearHilite = 1;
  const std::string log = ops({"ExtCreatePen", "CreatePen"});
  EXPECT_EQ(timesIn(log, "ExtCreatePen pen(0x10000,1,0xFF0000)"), 1);
  EXPECT_EQ(timesIn(log, "CreatePen pen(0,1,0xC0C0C0)"), 3);
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
  EXPECT_EQ(timesIn(ops({"UpdateWindow"}), "UpdateWindow"), 3 + 6);
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
