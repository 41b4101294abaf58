/** What the node pass adds to the symbols: flags, load marks, hilites, grips. */
#include "draw/node_pass.h"

namespace pn10::test {
namespace {

TEST_F(NodePass, flags_by_type) {
  const struct {
    int16_t type;
    int polygons, reds;
  } rows[] = {{0, 0, 0}, {1, 1, 0},  {-1, 1, 0}, {2, 2, 0},  {-2, 2, 0},
              {3, 0, 0}, {-3, 0, 0}, {4, 1, 1},  {-4, 1, 1}, {5, 0, 0}};
  add().SYMBOL = 3;
  mark(1, 0x00FF00);
  for (const auto& row : rows) {
    model.ndt[1].FLAG_TYPE = row.type;
    const std::string log = ops({"Polygon", "CreatePen"});
    EXPECT_EQ(timesIn(log, "Polygon"), row.polygons + 1) << row.type;  // the symbol is a square itself
    EXPECT_EQ(timesIn(log, "CreatePen pen(0,1,0x0000FF)"), row.reds + 1) << row.type;
  }
}

TEST_F(NodePass, flag_3_is_an_outline_and_needs_its_switch) {
  picture.view.NodeFlag3On = 1;
  add(20, 20).FLAG_TYPE = 3;
  // s = 10: (0.104, 0.662) is (21.04, 26.62), and so on; the pennant and both diagonals.
  EXPECT_EQ(only(shapes(), {"MoveToEx", "LineTo"}),
            "MoveToEx 200 800\nLineTo 210 733\nLineTo 215 701\nLineTo 265 701\nLineTo 260 733\nLineTo 210 733\n"
            "LineTo 265 701\nMoveToEx 215 701\nLineTo 260 733\n");
}

TEST_F(NodePass, the_symbol_on_a_load_flag_is_a_sixth_of_the_flag) {
  add().FLAG_TYPE = 2;
  // s = 10: size 1.65, on a mast of 8.35 at 81 degrees and 2.5 to the right: (53.8062, 58.2472).
  EXPECT_EQ(ops({"Ellipse"}), "Ellipse 495 495 505 505\nEllipse 529 409 546 425\n");
}

TEST_F(NodePass, a_flag_is_in_the_objects_of_a_solid_symbol_also_behind_a_hollow_one) {
  Ndt& hollow = add(20, 20);
  hollow.SYMBOL = -3;
  hollow.FLAG_TYPE = 1;
  add(60, 20).FLAG_TYPE = 1;
  // Pens: of the picture, of the pass, of the hollow one's flag. Brushes: of the pass, of that flag, of the solid one.
  EXPECT_EQ(ops({"CreatePen"}),
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x0000FF)\nCreatePen pen(0,1,0x0000FF)\n");
  EXPECT_EQ(ops({"CreateSolidBrush"}),
            "CreateSolidBrush brush(0,0x0000FF)\nCreateSolidBrush brush(0,0x0000FF)\nCreateSolidBrush "
            "brush(0,0x0000FF)\n");
}

TEST_F(NodePass, the_load_mark_takes_unit_and_load_factors_as_they_are_meant) {
  picture.view.NodeLoadMarkOn = 1;
  picture.loadFactor = 0;
  Ndt& n = add();
  n.Q_FACTOR = 2;
  const auto marked = [&] { return shapes().find("Polygon") != std::string::npos; };
  struct Row {
    float base, external;
    int16_t baseDf, baseOff;
    uint8_t extDf, extOff;
    bool marked;
  };
  const Row rows[] = {{0, 0, 0, 0, 0, 0, false},  {1, 0, 0, 0, 0, 0, true},  {1, 0, 1, 0, 0, 0, false},
                      {1, 0, 0, 1, 0, 0, false},  {0, 1, 0, 0, 0, 0, true},  {0, 1, 0, 0, 1, 0, false},
                      {0, 1, 0, 0, 0, 1, false},  {1, -1, 0, 0, 0, 0, true},  // 2 * 1 - 1: no unit factor outside
                      {1, -2, 0, 0, 0, 0, false}, {-1, 1, 0, 0, 0, 0, false}};
  for (const Row& r : rows) {
    n.QB_LOAD = r.base, n.QX_LOAD = r.external, n.QB_DF = r.baseDf, n.QB_STATUS = r.baseOff, n.QX_DF = r.extDf;
    n.QX_STATUS = r.extOff;
    EXPECT_EQ(marked(), r.marked) << r.base << " " << r.external;
  }
}

TEST_F(NodePass, hilite_changes_the_colour_and_shows_a_grip) {
  add(50.03, 50.02);
  model.nxy[1].HILITE = 1;
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  const std::string log = ops({"CreatePen", "Ellipse", "CreateBrushIndirect", "Polygon"});
  EXPECT_EQ(log,
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x0000FF)\nCreatePen pen(0,1,0xFF00FF)\n"
            "Ellipse 495 494 505 504\n"
            "CreatePen pen(0,1,0x00FFFF)\nCreateBrushIndirect brush(1,0xC0C0C0)\n"
            "Polygon 4 495 504 495 494 505 494 505 504\n");
  EXPECT_EQ(model.nxy[1].HILITE_DRAWN, 1);
  EXPECT_EQ(model.nxy[1].HILITE, 1);
}

TEST_F(NodePass, without_both_grip_switches_nothing_counts_as_drawn) {
  add();
  model.nxy[1].HILITE = 1;
  for (int on = 0; on < 3; on++) {
    picture.plot.GripsOn = on == 1;
    picture.plot.GripsShown = on == 2;
    EXPECT_EQ(ops({"Polygon"}), "");
    EXPECT_EQ(model.nxy[1].HILITE_DRAWN, 0);
  }
  picture.plot.GripsOn = picture.plot.GripsShown = 1;
  picture.devMode = 1;
  EXPECT_EQ(ops({"Polygon"}), "");
}

TEST_F(NodePass, clearing_erases_the_grip_in_the_background_colour) {
  add();
  model.nxy[1].HILITE = model.nxy[1].HILITE_DRAWN = 1;
  picture.plot.GripsOn = 1;  // shown or not: erasing needs no more
  picture.clearHilite = 1;
  const std::string log = ops({"CreatePen", "CreateBrushIndirect"});
  EXPECT_EQ(log,
            "CreatePen pen(0,1,0x000000)\nCreatePen pen(0,1,0x0000FF)\nCreatePen pen(0,1,0xC0C0C0)\n"
            "CreateBrushIndirect brush(1,0xC0C0C0)\n");
  EXPECT_EQ(model.nxy[1].HILITE, 0);
  EXPECT_EQ(model.nxy[1].HILITE_DRAWN, 0);
}

}  // namespace
}  // namespace pn10::test
