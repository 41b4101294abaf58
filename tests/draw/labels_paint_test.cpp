/** Labels as the passes paint them: fonts, modes, leaders, lines, segment numbers. */
#include <cmath>

#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

/** Text is ten dots high; (x, y) is the dot (10 x, 1000 - 10 y). */
class Labels : public testing::Test {
 protected:
  Labels() {
    view().NodeLabelMask = view().PipeLabelMask = view().CustLabelMask = 1;
    view().NodeLabel[0] = 301;
    view().PipeLabel[0] = 1;
    view().CustLabel[0] = 401;
  }
  ViewOpts& view() { return picture.view; }

  Ndt& node(double x = 50, double y = 50) {
    const int32_t n = addNode(x, y);
    model.ndt[n].LABEL_ON = 1;
    model.ndt[n].TEXT_ANGLE = -1;
    model.ndt[n].COLOR = -1;
    picture.recolourNodes = 1;
    return model.ndt[n];
  }
  Pdt& pipe(double x1 = 40, double y1 = 50, double x2 = 60, double y2 = 50) {
    const int32_t p = addPipe(addNode(x1, y1), addNode(x2, y2));
    PXY& screen = model.pxy[p];
    screen.LineType = screen.LineWidth = screen.Display = 1;
    model.pdt[p].LABEL_ON = 1;
    model.pdt[p].TEXT_ANGLE = -1;
    return model.pdt[p];
  }
  Cdt& cust(double x = 50, double y = 50) {
    const int32_t c = addCust(0, x, y);
    model.cdt[c].HOST_SHORT_411 = 1;
    model.cdt[c].TEXT_ANGLE = -1;
    return model.cdt[c];
  }
  std::string ops(std::initializer_list<std::string_view> names) {
    for (int32_t n = 1; n <= model.nodeCount; n++) model.nxy[n].Drawn = -1;
    return only(picture.paint(), names);
  }
  std::string texts() { return ops({"TextOutA"}); }

  Fresh fresh;
  SceneView picture;
};

TEST_F(Labels, a_node_label_from_mode_to_mode) {
  node();
  // Right of a symbol of one unit by 0.6, one line up: (50.6, 51).
  EXPECT_EQ(ops({"SetBkMode", "CreateFontIndirectA", "SelectObject", "DeleteObject", "TextOutA"}),
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\nSelectObject font(-10,0,400,0,0,\"Arial\")\n"
            "SelectObject pen(0,1,0x0000FF)\nSelectObject brush(0,0x0000FF)\n"
            "SetBkMode 2\n"
            "SelectObject font(0,0,400,0,0,\"System\")\nDeleteObject font(-10,0,400,0,0,\"Arial\")\n"
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\nSelectObject font(-10,0,400,0,0,\"Arial\")\n"
            "TextOutA 506 490 \"N1\"\n"
            "SetBkMode 2\n"
            "SelectObject brush(0,0xFFFFFF)\nDeleteObject brush(0,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,1,0x0000FF)\n"
            "SelectObject font(0,0,400,0,0,\"System\")\nDeleteObject font(-10,0,400,0,0,\"Arial\")\n"
            "DeleteObject pen(0,1,0x000000)\n");
}

TEST_F(Labels, the_font_turns_only_when_the_escapement_changes) {
  for (int i = 1; i <= 5; i++) node(10 * i, 50);
  model.ndt[4].TEXT_ANGLE = 0;
  EXPECT_EQ(ops({"CreateFontIndirectA"}),
            "CreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\nCreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\n"
            "CreateFontIndirectA font(-10,900,400,0,0,\"Arial\")\nCreateFontIndirectA font(-10,0,400,0,0,\"Arial\")\n");
}

TEST_F(Labels, slots_without_text_leave_no_gap_and_the_first_empty_slot_ends_the_list) {
  node();
  view().NodeLabel[1] = 999;
  view().NodeLabel[2] = 347;
  view().NodeLabel[4] = 301;
  EXPECT_EQ(texts(), "TextOutA 506 490 \"N1\"\nTextOutA 506 500 \"1\"\n");
  view().NodeLabel[0] = 0;
  EXPECT_EQ(texts(), "");
}

TEST_F(Labels, customers_try_all_their_slots_on_the_baseline) {
  cust();
  view().CustLabel[0] = 0;
  view().CustLabel[19] = 438;
  EXPECT_EQ(ops({"SetTextAlign", "TextOutA"}), "SetTextAlign 24\nTextOutA 510 490 \"1\"\n");
}

TEST_F(Labels, labels_need_their_switch_their_mask_and_their_limit) {
  node().LABEL_ON = 0;
  EXPECT_EQ(texts(), "");
  model.ndt[1].LABEL_ON = 1;
  view().NodeLabelLimit = 100;  // equal still shows
  EXPECT_NE(texts(), "");
  view().NodeLabelLimit = 99;
  EXPECT_EQ(texts(), "");
  view().NodeLabelLimit = 100;
  view().NodeLabelMask = 0;
  EXPECT_EQ(texts(), "");
  view().NodeLabelMask = 2;
  view().NodeFontSize = 0.5f;  // a font of no height
  EXPECT_EQ(texts(), "");
}

TEST_F(Labels, paper_needs_the_labels_of_prints_and_takes_the_print_font) {
  node();
  pipe(10, 10, 30, 10);
  cust(80, 80);
  picture.devMode = 1;
  EXPECT_EQ(texts(), "");
  picture.plot.PrintLabelsOn = 1;
  picture.plot.NodePrintFontSize = 205;  // tenths of a point: 20 dots
  view().NodeLabelLimit = 0;             // a limit of the screen
  const std::string log = ops({"TextOutA", "CreateFontIndirectA", "SetTextColor"});
  EXPECT_NE(log.find("TextOutA 506 480 \"N1\""), std::string::npos);
  EXPECT_NE(log.find("CreateFontIndirectA font(-20,0,400,0,0,\"\")"), std::string::npos);
  EXPECT_NE(log.find("\"1\""), std::string::npos);
  EXPECT_NE(log.find("SetTextColor 0x000001"), std::string::npos);
  EXPECT_NE(log.find("SetTextColor 0x000002"), std::string::npos);
  EXPECT_NE(log.find("SetTextColor 0x000000"), std::string::npos);  // customers are black on every paper
}

TEST_F(Labels, scaled_fonts_follow_the_map) {
  node();
  picture.plot.NodeFontMode = 1;  // 10 display units of ten dots times 1.4
  EXPECT_NE(ops({"CreateFontIndirectA"}).find("font(-140,"), std::string::npos);
  view().NodeFontBold = 1;
  EXPECT_NE(ops({"CreateFontIndirectA"}).find("font(-140,0,700,"), std::string::npos);
}

TEST_F(Labels, nodes_without_load_stay_unlabelled_when_only_loaded_ones_count) {
  node();
  view().NodeLabelsLoadedOnly = 1;
  EXPECT_EQ(texts(), "");
  model.ndt[1].QX_LOAD = 1;
  EXPECT_NE(texts(), "");
  model.ndt[1].QX_LOAD = 0;
  model.ndt[1].QB_LOAD = -1;
  EXPECT_NE(texts(), "");
}

TEST_F(Labels, an_anchor_out_of_view_has_no_label) {
  Ndt& n = node();
  n.TEXT_X = 101, n.TEXT_Y = 50;
  EXPECT_EQ(texts(), "");
  n.TEXT_X = 100;
  EXPECT_EQ(texts(), "TextOutA 1000 500 \"N1\"\n");
}

TEST_F(Labels, transparent_labels_set_mode_1_each_kind_its_own) {
  node();
  view().NodeTransparent = 1;
  EXPECT_EQ(ops({"SetBkMode"}), "SetBkMode 1\nSetBkMode 2\n");
  view().NodeTransparent = 0;
  view().CustTransparent = 1;
  EXPECT_EQ(ops({"SetBkMode"}), "SetBkMode 2\nSetBkMode 2\n");
}

TEST_F(Labels, a_leader_runs_from_beside_the_symbol_to_half_the_stack_in_the_plain_pen) {
  Ndt& n = node();
  n.TEXT_X = 70, n.TEXT_Y = 51;
  view().NodeLabel[1] = 347;
  EXPECT_EQ(ops({"MoveToEx"}), "");
  view().NodeLeader = 1;
  view().NodeTransparent = 1;
  // Two lines of one unit: half the stack is one unit down, at (70, 50); 0.6 from the node is (50.6, 50).
  const std::string log = ops({"MoveToEx", "LineTo", "SetBkMode", "TextOutA"});
  EXPECT_EQ(log,
            "SetBkMode 1\nMoveToEx 506 500\nLineTo 700 500\nSetBkMode 2\n"
            "TextOutA 700 490 \"N1\"\nTextOutA 700 500 \"1\"\nSetBkMode 2\n");
  EXPECT_NE(
      ops({"SelectObject", "MoveToEx", "LineTo"})
          .find("SelectObject pen(0,1,0x000000)\nMoveToEx 506 500\nLineTo 700 500\nSelectObject pen(0,1,0x0000FF)"),
      std::string::npos);
}

TEST_F(Labels, a_leader_needs_a_stored_anchor_and_no_text) {
  Ndt& n = node();
  view().NodeLeader = view().CustLeader = view().PipeLeader = 1;
  EXPECT_EQ(ops({"MoveToEx"}), "");
  n.TEXT_X = 70, n.TEXT_Y = 50;
  view().NodeLabel[0] = 999;  // a stack without lines: the leader ends at its anchor
  EXPECT_EQ(ops({"SetBkMode", "MoveToEx", "LineTo", "TextOutA"}),
            "SetBkMode 2\nMoveToEx 506 500\nLineTo 700 500\nSetBkMode 2\nSetBkMode 2\n");
  view().NodeLeader = 0;
  EXPECT_EQ(ops({"SetBkMode", "MoveToEx"}), "");
  Cdt& c = cust(20, 20);
  c.TEXT_X = 30, c.TEXT_Y = 20;
  view().CustLabel[0] = 0;
  EXPECT_EQ(ops({"MoveToEx", "LineTo", "TextOutA"}), "MoveToEx 206 800\nLineTo 300 800\n");
}

TEST_F(Labels, a_leader_of_a_pipe_without_text_ends_one_step_above_the_place) {
  Pdt& p = pipe();
  p.TEXT_X = 70.03, p.TEXT_Y = 60.03;
  view().PipeLeader = 1;
  view().PipeLabel[0] = 18;  // no fittings: no line
  EXPECT_EQ(ops({"MoveToEx", "LineTo", "TextOutA"}),
            "MoveToEx 400 500\nLineTo 600 500\nMoveToEx 500 500\nLineTo 700 389\n");
}

TEST_F(Labels, a_pipe_label_straddles_the_pipe) {
  pipe(40.03, 50, 60.03, 50);
  view().PipeLabel[1] = 22;
  view().PipeLabel[2] = 78;
  // First 1.1 above; second 0.1 and half a dot below; the third one more line down.
  EXPECT_EQ(texts(), "TextOutA 500 489 \"1\"\nTextOutA 500 501 \"0\"\nTextOutA 500 511 \"1\"\n");
}

TEST_F(Labels, the_first_line_with_text_tells_that_the_pipe_is_off) {
  pipe(40.03, 50, 60.03, 50).STATUS = 1;
  view().PipeLabel[0] = 18;  // no fittings: no line
  view().PipeLabel[1] = 1;
  view().PipeLabel[2] = 78;
  EXPECT_EQ(texts(), "TextOutA 500 489 \"1 (Off)\"\nTextOutA 500 501 \"1\"\n");
}

TEST_F(Labels, a_stored_pipe_label_has_a_leader_from_the_middle_of_the_pipe) {
  Pdt& p = pipe();
  p.TEXT_X = 70.03, p.TEXT_Y = 60.03;
  view().PipeLeader = 1;
  // The stack starts one line above its place; half of one line down is (70.03, 60.53).
  EXPECT_EQ(ops({"MoveToEx", "LineTo", "TextOutA"}),
            "MoveToEx 400 500\nLineTo 600 500\nMoveToEx 500 500\nLineTo 700 394\nTextOutA 700 389 \"1\"\n");
}

TEST_F(Labels, a_leader_is_cut_at_the_window_whatever_bit_the_clip_switch_has) {
  Pdt& p = pipe(110, 50, 130, 50);
  p.TEXT_X = 70.03, p.TEXT_Y = 60.03;
  view().PipeLeader = 1;
  picture.plot.ClipOn = 1 << 16;
  // From (120, 50) to (70.03, 60.53): at x 100 it is 20 / 49.97 * 10.53 = 4.2145 up.
  EXPECT_EQ(ops({"MoveToEx", "LineTo"}), "MoveToEx 1000 457\nLineTo 700 394\n");
}

TEST_F(Labels, device_labels_can_be_left_out) {
  pipe().HYD_TYPE = 3;
  EXPECT_NE(texts(), "");
  view().DevicesUnlabelled = 1;
  EXPECT_EQ(texts(), "");
  model.pdt[1].HYD_TYPE = 0;
  EXPECT_NE(texts(), "");
}

TEST_F(Labels, sizes_and_diameters_are_painted_though_they_do_not_count) {
  copyText(pipe().SIZE_TYPE, "4 PE");
  view().PipeLabel[0] = 7;
  EXPECT_EQ(texts(), "TextOutA 500 489 \"4 PE\"\n");
}

TEST_F(Labels, no_pipe_text_stands_on_its_head) {
  for (int degrees = 5; degrees < 360; degrees += 10) {
    FreeModel();
    const double a = degrees * 3.14159265358979323846 / 180;
    pipe(50 - 10 * std::cos(a), 50 - 10 * std::sin(a), 50 + 10 * std::cos(a), 50 + 10 * std::sin(a));
    const std::string fonts = ops({"CreateFontIndirectA"});
    const int escapement = std::atoi(fonts.c_str() + fonts.rfind("-10,") + 4);
    EXPECT_GE(std::cos(escapement / 1800.0 * 3.14159265358979323846), -0.02) << degrees;
  }
}

TEST_F(Labels, the_isometric_view_bends_customer_labels_and_not_those_of_nodes) {
  node(40, 20).Z_COORD = 40;
  cust(60, 20).Z_COORD = 40;
  picture.iso = 1;
  const std::string fonts = ops({"CreateFontIndirectA"});
  EXPECT_NE(fonts.find("font(-10,3300,"), std::string::npos);  // 0 tenths become 3300
  EXPECT_EQ(fonts.find("font(-10,3300,", fonts.find("font(-10,3300,") + 1), std::string::npos);
}

TEST_F(Labels, grips_of_selected_items_stand_at_their_labels_too) {
  node();
  model.nxy[1].HILITE = 1;
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  view().NodeSymbol = 0;
  EXPECT_EQ(ops({"Polygon"}).find("Polygon 4 49"), 0u);
  const std::string grips = ops({"Polygon"});
  EXPECT_NE(grips.find("\nPolygon 4 50"), std::string::npos);
  picture.clearHilite = 1;
  const std::string erased = ops({"Polygon", "CreatePen"});
  EXPECT_EQ(only(erased, {"Polygon"}), grips);
  EXPECT_NE(erased.find("CreatePen pen(0,1,0xC0C0C0)"), std::string::npos);
}

TEST_F(Labels, segments_between_joints_are_numbered_on_their_longest_run) {
  pipe(10, 50, 90, 50);
  addRun(1, {{20, 50}, {50, 50}, {60, 50}, {80, 50}});
  model.vtx[2].VTX_KIND = 2;  // a joint at (50, 50)
  view().PipeLabel[0] = 71;
  picture.view.PipeLabelMask = 0;
  // Longest runs: (20..50) and (60..80); no label line counts, so 1.1 above the line; the text starts in the middle.
  EXPECT_EQ(ops({"SetTextAlign", "TextOutA"}),
            "SetTextAlign 6\nSetTextAlign 0\nTextOutA 350 489 \"1\"\nTextOutA 700 489 \"2\"\nSetTextAlign 6\n"
            "SetTextAlign 0\n");
  view().PipeLabel[1] = 22;  // a label line: below
  EXPECT_EQ(texts().substr(0, 21), "TextOutA 350 511 \"1\"\n");
}

TEST_F(Labels, segment_numbers_stand_below_all_label_lines) {
  pipe(10, 50, 90, 50);
  addRun(1, {{20, 50}, {50, 50}, {60, 50}, {80, 50}});
  for (int slot = 0; slot < 3; slot++) view().PipeLabel[slot] = 22;
  view().PipeLabel[3] = 71;
  model.pdt[1].LABEL_ON = 0;
  // Three lines: one above and two below, the last one from 1.1 to 2.1; the number begins at 2.1.
  EXPECT_EQ(texts(), "TextOutA 350 521 \"1\"\n");
  view().PipeLabel[2] = 7;  // sizes do not count
  EXPECT_EQ(texts(), "TextOutA 350 511 \"1\"\n");
}

TEST_F(Labels, segment_numbers_of_service_lines_have_joints_of_their_own) {
  view().CustFontSize = 20;  // but keep the distance of the pipes' numbers
  pipe(10, 80, 30, 80).LABEL_ON = 0;
  Cdt& c = cust(50, 10);
  c.SX_COORD = 10, c.SY_COORD = 10;
  addService(1, {{20, 10}, {30, 10}, {40, 10}});
  model.vtx[1].VTX_KIND = 2;
  model.vtx[2].VTX_KIND = 5;
  view().CustLabel[0] = 428;
  picture.view.CustLabelMask = 0;
  EXPECT_EQ(texts(), "TextOutA 150 889 \"1\"\nTextOutA 350 889 \"2\"\n");
  std::swap(view().CustLabel[0], view().CustLabel[19]);  // in any of the slots
  EXPECT_NE(texts().find("\"2\""), std::string::npos);
  view().CustLabel[19] = 0;
  EXPECT_EQ(texts(), "");
}

TEST_F(Labels, a_segment_number_at_2711_tenths_is_turned_a_label_is_not) {
  const double a = 271.15 * 3.14159265358979323846 / 180;
  pipe(50 - 20 * std::cos(a), 50 - 20 * std::sin(a), 50 + 20 * std::cos(a), 50 + 20 * std::sin(a));
  addRun(1, {{50, 50}});
  view().PipeLabel[0] = 71;
  EXPECT_NE(ops({"CreateFontIndirectA"}).find("font(-10,911,"), std::string::npos);
  view().PipeLabel[0] = 1;
  EXPECT_NE(ops({"CreateFontIndirectA"}).find("font(-10,2711,"), std::string::npos);
}

TEST_F(Labels, every_label_leaves_the_objects_as_they_were) {
  node(), cust(20, 20), pipe(10, 80, 40, 90);
  const int32_t objects = PnGetObjectCount();
  picture.paintQuietly();
  EXPECT_EQ(PnGetObjectCount(), objects);
}

}  // namespace
}  // namespace pn10::test
