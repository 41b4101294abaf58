/** The node pass in operation logs: symbols, sizes, objects, limits, paper, modes, polls. */
#include "draw/node_pass.h"

namespace pn10::test {
namespace {

TEST_F(NodePass, one_node_from_font_to_last_restore) {
  add();
  EXPECT_EQ(picture.paint(),
            "CreatePen pen(0,1,0x000000)\n"
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\n"
            "SelectObject font(-10,0,400,0,0,\"Arial\")\n"
            "CreatePen pen(0,1,0x0000FF)\n"
            "SelectObject pen(0,1,0x0000FF)\n"
            "CreateSolidBrush brush(0,0x0000FF)\n"
            "SelectObject brush(0,0x0000FF)\n"
            "SetTextAlign 0\n"
            "SetTextColor 0x000001\n"
            "Ellipse 495 495 505 505\n"
            "UpdateWindow\n"
            "InvalidateRect 1\n"
            "PeekMessageA none\n"
            "SelectObject brush(0,0xFFFFFF)\n"
            "DeleteObject brush(0,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\n"
            "DeleteObject pen(0,1,0x0000FF)\n"
            "SelectObject font(0,0,400,0,0,\"System\")\n"
            "DeleteObject font(-10,0,400,0,0,\"Arial\")\n"
            "DeleteObject pen(0,1,0x000000)\n");
  EXPECT_EQ(model.nxy[1].Drawn, 0);
}

TEST_F(NodePass, sizes_by_record_and_type) {
  picture.displayHeight = 50;  // a display unit is two world units
  add();
  struct {
    float symSize;
    uint8_t type;
    float size;
  } rows[] = {{0, 0, 2}, {3, 0, 6}, {-5, 0, 5}, {0, 1, 3}, {3, 2, 9}, {-5, 1, 7.5f}, {0, 3, 2}};
  for (const auto& row : rows) {
    model.ndt[1].SYM_SIZE = row.symSize;
    model.ndt[1].HYD_TYPE = row.type;
    markAll();
    picture.paintQuietly();
    EXPECT_FLOAT_EQ(CalcNodeSize(1), row.size);
  }
}

TEST_F(NodePass, a_negative_default_size_is_percent_of_the_view) {
  picture.view.NodeSize = -80;  // 8 percent of 100
  add();
  EXPECT_EQ(radius(), 40);
}

TEST_F(NodePass, symbols_under_five_dots_are_left_out_on_screen) {
  add().SYM_SIZE = 0.49f;
  EXPECT_EQ(shapes(), "");
  model.ndt[1].SYM_SIZE = 0.5f;
  EXPECT_NE(shapes(), "");
  model.ndt[1].SYM_SIZE = 0.49f;
  picture.view.SymbolsAllZoom = 1;
  EXPECT_EQ(shapes(), "Ellipse 497 497 502 502\n");
  picture.view.SymbolsAllZoom = 0;
  model.ndt[1].FLAG_TYPE = 3;  // and flag 3 is off: the flag alone brings the symbol
  EXPECT_EQ(shapes(), "Ellipse 497 497 502 502\n");
}

TEST_F(NodePass, far_out_only_a_size_or_a_flag_of_its_own_shows_a_node_and_all_are_done_with) {
  picture.view.NodeSize = 3;  // three dots; half as large again, as valves are, is still under five
  for (int i = 1; i <= 5; i++) add(10 * i + 0.03, 50.03);
  model.ndt[1].HYD_TYPE = 1;
  model.ndt[2].SYM_SIZE = 1;
  model.ndt[4].FLAG_TYPE = 3;  // off
  model.ndt[5].SYM_SIZE = 0.2f;
  EXPECT_EQ(shapes(), "Ellipse 195 494 205 504\nEllipse 398 498 401 501\n");
  for (int n = 1; n <= 5; n++) EXPECT_EQ(model.nxy[n].Drawn, 0) << n;
  model.ndt[4].FLAG_TYPE = 0;
  model.ndt[2].SYM_SIZE = 0;
  EXPECT_EQ(shapes(), "");
  for (int n = 1; n <= 5; n++) EXPECT_EQ(model.nxy[n].Drawn, 0) << n;
}

TEST_F(NodePass, paper_paints_every_size_times_the_print_factor) {
  picture.devMode = 1;
  add(50.03, 50.03).SYM_SIZE = 0.25f;
  // Factor 72 dpi * 100 * 0.001 / (10 * 1) = 0.72; a disc of 0.18 world units is under three dots.
  EXPECT_EQ(shapes(), "");
  model.ndt[1].SYM_SIZE = 10;  // radius 3.6: from 46.43 to 53.63
  EXPECT_EQ(shapes(), "Ellipse 464 463 536 535\n");
  picture.plot.PrintNodeSize = 5080;
  picture.plot.Metric = 1;  // 72 * 5.08 * 0.03937 / 10 = 1.44
  EXPECT_EQ(radius(), 72);
  picture.devMode = 2;
  picture.setup();
  drawState.ReducedScale = 0.5f;
  EXPECT_EQ(radius(), 36);
}

TEST_F(NodePass, a_default_size_of_zero_leaves_the_print_factor_at_one) {
  picture.devMode = 1;
  picture.view.NodeSize = 0;
  add().SYM_SIZE = 4;
  EXPECT_EQ(radius(), 20);
  picture.devMode = 2;  // but for the raster's own factor
  picture.setup();
  drawState.ReducedScale = 0.5f;
  EXPECT_EQ(radius(), 10);
}

TEST_F(NodePass, nodes_deleted_unmarked_or_out_of_view_paint_nothing_and_lose_their_mark) {
  add().REC_STATUS = -1;
  add(101, 50);
  add(50, -0.1);
  add(20, 20);
  EXPECT_EQ(shapes(), "Ellipse 195 795 205 805\n");
  for (int32_t n = 1; n <= 4; n++) EXPECT_EQ(model.nxy[n].Drawn, 0);
  EXPECT_EQ(only(picture.paint(), {"Ellipse"}), "");
}

TEST_F(NodePass, the_border_of_the_window_is_in_view) {
  add(0, 0);
  add(100, 100);
  EXPECT_EQ(ops({"Ellipse"}), "Ellipse -5 995 5 1005\nEllipse 995 -5 1005 5\n");
}

TEST_F(NodePass, recolouring_takes_the_record_then_the_defaults) {
  add().COLOR = 0x123456;
  add(60, 50).HYD_TYPE = 1;
  add(70, 50);
  model.nxy[3].Drawn = 0;
  picture.recolourNodes = 1;
  picture.paintQuietly();
  EXPECT_EQ(model.nxy[1].Color, 0x123456);
  EXPECT_EQ(model.nxy[2].Color, 0x00FF00);
  EXPECT_EQ(model.nxy[3].Color, 0x0000FF);
  EXPECT_EQ(picture.recolourNodes, 0);
}

TEST_F(NodePass, one_colour_makes_one_pen_and_one_brush_however_many_nodes) {
  for (int i = 1; i <= 50; i++) add(i, i);
  EXPECT_EQ(ops({"CreatePen", "CreateSolidBrush"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x0000FF)\nCreateSolidBrush brush(0,0x0000FF)\n");
}

TEST_F(NodePass, objects_change_when_a_colour_changes) {
  add(10, 10), add(20, 20), add(30, 30);
  mark(2, 0x112233);
  mark(3, 0x112233);
  EXPECT_EQ(ops({"CreatePen"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x0000FF)\nCreatePen pen(0,1,0x112233)\n");
  EXPECT_EQ(ops({"CreateSolidBrush"}), "CreateSolidBrush brush(0,0x0000FF)\nCreateSolidBrush brush(0,0x112233)\n");
}

TEST_F(NodePass, hollow_symbols_are_filled_with_the_screen_background_and_on_paper_with_white) {
  add().SYMBOL = -2;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
  EXPECT_EQ(shapes(), "Ellipse 495 495 505 505\n");
  picture.devMode = 1;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xFFFFFF)\n");
}

TEST_F(NodePass, a_brush_in_the_colour_of_the_paper_fills_hollow_symbols_too) {
  add(10, 10);
  add(20, 20).SYMBOL = -2;
  mark(1, 0xC0C0C0);
  EXPECT_EQ(ops({"CreateSolidBrush", "CreateBrushIndirect", "Ellipse"}),
            "CreateSolidBrush brush(0,0x0000FF)\nCreateSolidBrush brush(0,0xC0C0C0)\nEllipse 95 895 105 905\n"
            "Ellipse 195 795 205 805\n");
}

TEST_F(NodePass, symbol_zero_takes_the_default_and_a_default_of_zero_paints_nothing) {
  add();
  picture.view.NodeSymbol = -3;
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
  EXPECT_NE(shapes().find("Polygon 4"), std::string::npos);
  picture.view.NodeSymbol = 0;
  EXPECT_EQ(shapes(), "");
  model.ndt[1].SYMBOL = INT16_MIN;
  EXPECT_EQ(shapes(), "");
}

TEST_F(NodePass, a_node_that_is_off_is_a_hollow_crossed_circle_half_as_large_again) {
  add().HYD_STATUS = 1;
  // Radius 0.75: the box from 492.5 to 507.5 dots, truncated; then the crossing line.
  EXPECT_EQ(shapes(), "Ellipse 492 492 507 507\nMoveToEx 492 492\nLineTo 507 507\n");
  EXPECT_EQ(ops({"CreateBrushIndirect"}), "CreateBrushIndirect brush(0,0xC0C0C0)\n");
}

TEST_F(NodePass, valve_nodes_are_spoked_circles) {
  picture.view.NodeSize = 80;
  add().HYD_TYPE = 2;  // 8 * 1.5: radius 6
  const std::string spoked = shapes();
  EXPECT_NE(spoked.find("MoveToEx 500 500\n"), std::string::npos);
  EXPECT_EQ(only(spoked, {"Ellipse"}), "");  // its circle is laid in lines
  model.ndt[1].HYD_STATUS = 1;               // off comes first
  EXPECT_NE(shapes().find("Ellipse"), std::string::npos);
}

TEST_F(NodePass, beyond_the_zoom_limit_only_flags_stay_with_symbols_at_all_zoom) {
  picture.view.NodeZoomLimit = 99;
  picture.view.NodeLabelMask = 1;
  picture.view.NodeLabel[0] = 301;
  Ndt& n = add(20, 20);
  n.LABEL_ON = 1;
  n.FLAG_TYPE = 1;
  EXPECT_EQ(shapes(), "");
  picture.view.SymbolsAllZoom = 1;
  EXPECT_EQ(ops({"Ellipse", "Polygon", "TextOutA"}), "Polygon 4 210 733 215 701 265 701 260 733\n");
}

TEST_F(NodePass, the_zoom_limit_is_strict_and_zero_is_none) {
  add();
  picture.view.NodeZoomLimit = 100;
  EXPECT_NE(shapes(), "");
  picture.view.NodeZoomLimit = 0;
  EXPECT_NE(shapes(), "");
  picture.view.NodeZoomLimit = 99.9f;
  EXPECT_EQ(shapes(), "");
}

TEST_F(NodePass, a_single_node_is_painted_alone_while_the_pass_is_off) {
  add(10, 10), add(20, 20), add(30, 30);
  picture.view.NodeOn = 0;
  EXPECT_EQ(shapes(), "");
  picture.singleNode = 2;
  EXPECT_EQ(shapes(), "Ellipse 195 795 205 805\n");
  picture.view.NodeOn = 1;
  EXPECT_EQ(shapes(), "Ellipse 95 895 105 905\nEllipse 195 795 205 805\nEllipse 295 695 305 705\n");
}

TEST_F(NodePass, a_mono_print_is_black) {
  add().FLAG_TYPE = 4;
  picture.plot.Mono = 1;
  EXPECT_NE(ops({"CreatePen"}).find("0x0000FF"), std::string::npos);  // not on screen
  picture.devMode = 1;
  // The pass starts with the pen of its default colour; every node then is black, red flags too.
  EXPECT_EQ(ops({"CreatePen"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,7,0x0000FF)\nCreatePen pen(0,7,0x000000)\n"
            "CreatePen pen(0,7,0x000000)\n");
  EXPECT_EQ(ops({"SetTextColor"}), "SetTextColor 0x000000\n");
}

TEST_F(NodePass, every_map_mode_puts_the_node_in_its_place) {
  add(60, 20).Z_COORD = 30;
  const struct {
    int16_t iso, projection;
    const char* ellipse;
  } rows[] = {{0, 0, "Ellipse 595 795 605 805\n"},
              // (80 * 0.866025, (20 - 60) * 0.5 + 30) = (69.282, 10): dots 692.8 and 900
              {1, 0, "Ellipse 687 895 697 905\n"},
              {0, 2, "Ellipse 595 795 605 805\n"}};
  for (const auto& row : rows) {
    picture.iso = row.iso;
    picture.projection = row.projection;
    EXPECT_EQ(shapes(), row.ellipse);
  }
  picture.iso = 0;
  picture.projection = 1;
  model.ndt[1].Y_COORD = 50;  // the window's middle latitude keeps its place
  EXPECT_EQ(shapes(), "Ellipse 595 495 605 505\n");
}

TEST_F(NodePass, polls_come_by_batches_and_once_at_the_end) {
  for (int i = 1; i <= 11; i++) add(i, i);
  picture.plot.PollPercent = 40;                                                   // (11 - 1) * 40 / 100 = 4
  EXPECT_EQ(ops({"UpdateWindow"}), "UpdateWindow\nUpdateWindow\nUpdateWindow\n");  // after 4 and 8; 3 are left
  model.ndt[11].REC_STATUS = model.ndt[10].REC_STATUS = -1;
  EXPECT_EQ(ops({"UpdateWindow"}), "UpdateWindow\nUpdateWindow\n");  // one left is not worth a poll
  picture.devMode = 1;
  EXPECT_EQ(ops({"UpdateWindow"}), "");
}

TEST_F(NodePass, escape_cancels_after_the_item_and_leaves_marks_and_recolouring) {
  for (int i = 1; i <= 3; i++) add(10 * i, 10);
  addCust(0, 50, 50);
  picture.plot.PollPercent = 0;
  picture.recolourNodes = picture.recolourCusts = 1;
  PnPostMessage(picture.window, 0x100, 27, 1 << 16);
  const int32_t objects = PnGetObjectCount();
  EXPECT_EQ(only(picture.paint(), {"Ellipse"}), "Ellipse 95 895 105 905\n");
  EXPECT_EQ(PnGetObjectCount(), objects);
  EXPECT_EQ(picture.recolourNodes, 1);
  EXPECT_EQ(picture.recolourCusts, 1);
  EXPECT_EQ(model.nxy[1].Drawn, 0);
  EXPECT_EQ(model.nxy[2].Drawn, -1);
  EXPECT_NE(only(picture.paint(), {"Ellipse"}), "");  // a later paint completes it
  EXPECT_EQ(picture.recolourNodes, 0);
}

TEST_F(NodePass, other_keys_and_extended_escapes_are_swallowed) {
  for (int i = 1; i <= 3; i++) add(10 * i, 10);
  picture.plot.PollPercent = 0;
  PnPostMessage(picture.window, 0x100, 65, 0x1E << 16);
  PnPostMessage(picture.window, 0x100, 27, 0x01000000 | 1 << 16);
  PnPostMessage(picture.window, 0x101, 27, 1 << 16);  // key up
  const std::string log = ops({"Ellipse", "PeekMessageA"});
  EXPECT_EQ(log,
            "Ellipse 95 895 105 905\nPeekMessageA found\nPeekMessageA found\nPeekMessageA found\nPeekMessageA none\n"
            "Ellipse 195 895 205 905\nPeekMessageA none\nEllipse 295 895 305 905\nPeekMessageA none\n");
}

TEST_F(NodePass, a_context_that_is_not_there_ends_the_pass_and_keeps_the_marks) {
  add();
  picture.useContext(nullptr);
  picture.recolourNodes = 1;
  const int32_t objects = PnGetObjectCount();
  EXPECT_EQ(only(picture.paint(), {"Ellipse"}), "");
  EXPECT_EQ(PnGetObjectCount(), objects);
  EXPECT_EQ(model.nxy[1].Drawn, -1);
  EXPECT_EQ(picture.recolourNodes, 1);
}

TEST_F(NodePass, absurd_ranges_stay_within_the_tables) {
  add();
  picture.setup();
  int16_t flag = 0;
  EXPECT_EQ(
      DrawPict(INT32_MIN, INT32_MAX, -5, INT32_MAX, INT32_MIN, INT32_MAX, 0, 0, 0, 0, 0, &flag, nullptr, &flag, 0), -1);
  EXPECT_EQ(model.nxy[1].Drawn, 0);
  FreeModel();
  EXPECT_EQ(DrawPict(1, 9, 1, 9, 1, 9, 1, 9, 1, 9, 1, nullptr, nullptr, nullptr, 1), -1);
}

}  // namespace
}  // namespace pn10::test
