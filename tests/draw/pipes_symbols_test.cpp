/** What the pipe pass adds to the lines: devices, fittings, flags, flow arrows. */
#include <cmath>

#include "draw/pipe_pass.h"

namespace pn10::test {
namespace {

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
  EXPECT_EQ(timesIn(ops({"ExtCreatePen"}), "ExtCreatePen"), 2);
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
  EXPECT_EQ(timesIn(log, "Polygon 8"), 1);
  copyText(p.SIZE_TYPE, "plain");
  EXPECT_EQ(ops({"Polygon"}), "");
  EXPECT_EQ(lines(), "MoveToEx 100 499\nLineTo 300 499\n");
}

TEST_F(PipePass, a_wired_fitting_shows_where_it_stands_though_its_pipe_is_out_of_view) {
  FLut rows[2]{};
  copyText(rows[1].KEY_TEXT, "plug");
  rows[1].FIELD_20 = 1005;
  lookups.flut = {rows, 2};
  Pdt& p = add(213.5, -86.5, 215.5, -86.5);
  p.HYD_TYPE = 5;
  copyText(p.SIZE_TYPE, "plug");
  model.ndt[1].Z_COORD = model.ndt[2].Z_COORD = 100;
  picture.view.DevicesOn = 1;
  picture.iso = 1;
  // The pipe begins at (127 * 0.866025, -150 + 100) = (110, -50), the symbol about (60 * 0.866025, -80 + 100).
  EXPECT_EQ(timesIn(lines(), "LineTo"), 3);
}

TEST_F(PipePass, a_wired_fitting_is_as_wide_as_its_pipe_whatever_the_size_of_devices) {
  FLut rows[2]{};
  copyText(rows[1].KEY_TEXT, "plug");
  rows[1].FIELD_20 = 1005;
  lookups.flut = {rows, 2};
  Pdt& p = add(103.05, 20.05, 103.05, 80.05);  // its line lies outside, its corners 0.33 * 60 = 19.8 to either side
  p.HYD_TYPE = 5;
  copyText(p.SIZE_TYPE, "plug");
  picture.view.DevicesOn = 1;
  picture.view.DeviceSize = 10;
  EXPECT_EQ(lines(), "MoveToEx 1228 799\nLineTo 832 799\nLineTo 1228 199\nLineTo 832 199\n");
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

TEST_F(PipePass, lines_only_leaves_out_arrows_and_vertex_marks) {
  Pdt& p = add();
  addRun(1, {{10, 20}, {30, 20}});
  p.FLOW = p.Q_FACTOR = 1;
  picture.view.NodeOn = picture.view.ArrowsOn = picture.view.VtxMarksOn = 1;
  EXPECT_EQ(timesIn(ops({"MoveToEx", "Polygon"}), "Polygon 3"), 2);
  EXPECT_GT(timesIn(lines(), "MoveToEx"), 3);
  picture.linesOnly = 1;
  EXPECT_EQ(timesIn(ops({"MoveToEx", "Polygon"}), "Polygon"), 0);
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 3);
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
    EXPECT_EQ(timesIn(log, "Polygon 4 310 733"), row.pennants);
    EXPECT_EQ(timesIn(log, "LineTo 360 733\n"), row.outlines * 2);
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
  EXPECT_EQ(timesIn(lines(), "MoveToEx 200 900"), 2);
  picture.view.ArrowMinFlow = 151;
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 1);
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
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 1);
  picture.devMode = 1;
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 3);  // paper shows them at every size
  picture.devMode = 0;
  picture.view.ArrowSize = -4;
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 3);
  picture.view.ArrowZoomLimit = 99;
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 1);
}

TEST_F(PipePass, a_polyline_has_an_arrow_on_every_segment_or_on_the_mid_one) {
  Pdt& p = add();
  p.FLOW = p.Q_FACTOR = 1;
  addRun(1, {{10, 20}, {30, 20}});
  picture.view.ArrowsOn = 1;
  EXPECT_EQ(timesIn(lines(), "MoveToEx"), 3 + 3 * 2);
  picture.view.ArrowsAtMidVertex = 1;
  const std::string log = lines();
  EXPECT_EQ(timesIn(log, "MoveToEx"), 3 + 2);
  EXPECT_EQ(timesIn(log, "MoveToEx 200 800"), 2);
  addRun(1, {{10, 12}});  // the middle lies on the last segment
  EXPECT_EQ(timesIn(lines(), "MoveToEx 200 890"), 2);
}

TEST_F(PipePass, an_arrow_on_a_line_outside_reaches_into_the_window) {
  Pdt& p = add(100.5, 50.03, 102.5, 50.03);
  p.FLOW = p.Q_FACTOR = 1;
  picture.view.ArrowsOn = 1;
  picture.view.ArrowSize = -10;  // 3 world units
  // Tip (101.5, 50.03); barbs 3 * 0.865973 = 2.59792 back and 3 * 0.500091 = 1.50027 to either side.
  EXPECT_EQ(lines(), "MoveToEx 1015 499\nLineTo 989 514\nMoveToEx 1015 499\nLineTo 989 484\n");
}

TEST_F(PipePass, the_open_arrow_of_an_arc_stands_on_its_middle) {
  Pdt& p = add(60.03, 50.03, 50.03, 60.03);
  p.FLOW = p.Q_FACTOR = 1;
  addArc(1, 10, 90 * kDegree);
  p.VTX_MODE = 2;
  picture.view.ArrowsOn = 1;
  // (50.03, 50.03) + 10 at 45 degrees = (57.10, 57.10)
  EXPECT_EQ(timesIn(lines(), "MoveToEx 571 428"), 2);
}

}  // namespace
}  // namespace pn10::test
