/** Anchors, directions and steps of labels, worked out by hand. */
#include <cmath>

#include "draw/label_stack.h"
#include "draw/labels.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;

/** Text of all kinds is two units high, the pen four dots wide; ten dots per unit. */
class Placement : public testing::Test {
 protected:
  Placement() {
    picture.setup();
    drawState.TextHeightN = drawState.TextHeightP = drawState.TextHeightC = 2;
    drawState.CurPenWidth = 4;
  }

  struct At {
    float angle = 0, elev = 0;
    int16_t escapement = 0;
    double stepX = 0, stepY = 0, x = 0, y = 0, length = 0, midX = 0, midY = 0, x2 = 0, y2 = 0;
  };
  static At node(float symSize) {
    At a;
    CalcTextNXY(1, symSize, &a.angle, &a.stepX, &a.stepY, &a.x, &a.y, &a.length);
    return a;
  }
  static At cust() {
    At a;
    CalcTextCXY(1, &a.angle, &a.stepX, &a.stepY, &a.x, &a.y, &a.length);
    return a;
  }
  static At pipe(int32_t midVertex = 0) {
    At a;
    CalcTextPXY(1, midVertex, &a.escapement, &a.stepX, &a.stepY, &a.x, &a.y, &a.midX, &a.midY, &a.elev, &a.x2, &a.y2);
    return a;
  }
  static void expectAt(const At& a, double x, double y) {
    EXPECT_NEAR(a.x, x, 1e-6);
    EXPECT_NEAR(a.y, y, 1e-6);
  }
  static void expectStep(const At& a, double x, double y) {
    EXPECT_NEAR(a.stepX, x, 1e-6);
    EXPECT_NEAR(a.stepY, y, 1e-6);
  }
  /** Node 1 at (10, 20) and no angle of its own. */
  Ndt& addLabelledNode() {
    addNode(10, 20);
    model.ndt[1].TEXT_ANGLE = -1;
    return model.ndt[1];
  }
  /** Pipe 1 of this length and bearing about (50, 50). */
  Pdt& addPipeAt(double degrees, double length = 20) {
    const double dx = 0.5 * length * std::cos(degrees * kDegree), dy = 0.5 * length * std::sin(degrees * kDegree);
    addNode(50 - dx, 50 - dy);
    addNode(50 + dx, 50 + dy);
    addPipe(1, 2);
    model.pdt[1].TEXT_ANGLE = -1;
    return model.pdt[1];
  }

  Fresh fresh;
  SceneView picture;
};

TEST_F(Placement, a_node_label_stands_right_of_its_symbol_and_one_line_up) {
  addLabelledNode();
  const At a = node(5);
  EXPECT_EQ(a.angle, 0);
  expectAt(a, 10 + 0.6 * 5, 20 + 2);
  expectStep(a, 0, 2);
  EXPECT_NEAR(a.length, 2, 1e-6);
}

TEST_F(Placement, a_negative_angle_selects_the_default_and_zero_is_due_north) {
  Ndt& n = addLabelledNode();
  drawState.NodeLabelAngle = 0.5f;
  EXPECT_EQ(node(5).angle, 0.5f);
  n.TEXT_ANGLE = 0;
  const At a = node(5);
  EXPECT_EQ(tenthsOfDegree(a.angle), 900);
  expectStep(a, 2, 0);
  expectAt(a, 10 - 2, 20 + 3);  // 3 along the angle, less the step in X
}

TEST_F(Placement, a_stored_anchor_stands_as_it_is) {
  Ndt& n = addLabelledNode();
  n.TEXT_Y = 7;
  expectAt(node(5), 0, 7);
}

TEST_F(Placement, anchors_are_mapped_like_their_nodes) {
  Ndt& n = addLabelledNode();
  n.TEXT_X = 30, n.TEXT_Y = 40, n.Z_COORD = 3;
  drawState.MapMode = 1;
  expectAt(node(5), 70 * 0.8660253882408142, 5 + 3);
  drawState.MapMode = 2;
  expectAt(node(5), 30, CalcGeoY_(40));
  drawState.MapMode = 3;
  expectAt(node(5), 30, 40);
}

TEST_F(Placement, a_customer_label_stands_one_step_right_and_above_its_meter) {
  addCust(custRecord(1, 0, 10, 20));
  model.cdt[1].TEXT_ANGLE = -1;
  expectAt(cust(), 12, 22);
  model.cdt[1].TEXT_ANGLE = 0;  // whatever the direction of the text
  expectAt(cust(), 12, 22);
  model.cdt[1].TEXT_X = 33;
  expectAt(cust(), 33, 0);
}

TEST_F(Placement, a_pipe_label_straddles_its_line_clear_of_the_pen) {
  addPipeAt(0);
  const At a = pipe();
  EXPECT_EQ(a.escapement, 0);
  expectStep(a, 0, 2);
  expectAt(a, 50, 50 + 2.2);
  EXPECT_NEAR(a.x2, 50, 1e-6);
  EXPECT_NEAR(a.y2, 50 - 0.2 - 4 / 20.0, 1e-6);  // a tenth of the text, and half of four dots
}

TEST_F(Placement, a_pipe_running_west_reads_like_one_running_east) {
  addPipeAt(180);
  const At a = pipe();
  EXPECT_EQ(a.escapement, 0);
  expectAt(a, 50, 52.2);
}

TEST_F(Placement, no_escapement_between_911_and_2710_is_left) {
  const struct {
    double degrees;
    int16_t escapement;
  } rows[] = {{90.95, 909},  {91.05, 910},   {91.15, 911 - 1800}, {180.05, 0},
              {271.05, 910}, {271.15, 2711}, {315.05, 3150},      {45.05, 450}};
  for (const auto& row : rows) {
    FreeModel();
    addPipeAt(row.degrees);
    EXPECT_EQ(pipe().escapement, row.escapement) << row.degrees;
  }
}

TEST_F(Placement, the_window_of_the_bearing_is_wider_on_the_low_side) {
  // 91.07 degrees stay below 1.58965 radians, 91.09 do not; the normal turns with the bearing.
  addPipeAt(91.07);
  EXPECT_LT(pipe().x, 50);
  FreeModel();
  addPipeAt(91.09);
  EXPECT_GT(pipe().x, 50);
}

TEST_F(Placement, an_angle_of_its_own_turns_the_text_and_leaves_the_steps_to_the_line) {
  addPipeAt(90).TEXT_ANGLE = static_cast<float>(kDegree * 90);
  const At a = pipe();
  EXPECT_EQ(a.escapement, 0);
  expectStep(a, 2, 0);
}

TEST_F(Placement, a_stored_pipe_label_starts_one_step_above_its_place) {
  Pdt& p = addPipeAt(0);
  p.TEXT_X = 70, p.TEXT_Y = 80;
  const At a = pipe();
  expectAt(a, 70, 82);
  EXPECT_NEAR(a.x2, 70, 1e-6);
  EXPECT_NEAR(a.y2, 80, 1e-6);
  EXPECT_NEAR(a.midX, 50, 1e-6);
}

TEST_F(Placement, a_stored_pipe_label_is_mapped_with_the_elevation_of_the_pipe) {
  Pdt& p = addPipeAt(0);
  p.TEXT_X = 70, p.TEXT_Y = 80;
  model.ndt[1].Z_COORD = 2, model.ndt[2].Z_COORD = 6;
  drawState.MapMode = 1;
  const At a = pipe();
  EXPECT_EQ(a.elev, 4);
  // Pipe from (40, 50, 2) to (60, 50, 6): on the plane (77.94, 7) to (95.26, 1).
  const double bearing = std::atan2(1.0 - 7.0, 20 * 0.8660253882408142);
  expectAt(a, 150 * 0.8660253882408142 - 2 * std::sin(bearing), 5 + 4 + 2 * std::cos(bearing));
}

TEST_F(Placement, ends_that_coincide_put_the_label_one_step_to_the_left) {
  addPipeAt(0, 0);
  expectAt(pipe(), 48, 50);
}

TEST_F(Placement, an_arc_label_stands_on_the_tangent_of_its_middle) {
  addNode(60, 50);
  addNode(50, 60);
  addPipe(1, 2);
  addArc(1, 10, kDegree * 90);
  model.pdt[1].VTX_MODE = 2;  // counter-clockwise about (50, 50)
  model.pdt[1].TEXT_ANGLE = -1;
  const At a = pipe();
  const double r = std::sqrt(0.5);
  EXPECT_NEAR(a.escapement, 1350 - 1800, 1);  // the arc is worked out in single precision
  EXPECT_NEAR(a.midX, 50 + 10 * r, 1e-4);
  EXPECT_NEAR(a.x, 50 + 12.2 * r, 1e-4);
  EXPECT_NEAR(a.y, 50 + 12.2 * r, 1e-4);
}

TEST_F(Placement, the_label_of_an_isometric_arc_whose_ends_coincide_stands_between_its_nodes) {
  addNode(60, 50);
  addNode(60.5, 50);
  addPipe(1, 2);
  addArc(1, 10, kDegree * 90);
  model.pdt[1].TEXT_ANGLE = -1;
  model.ndt[1].Z_COORD = 2, model.ndt[2].Z_COORD = 6;
  drawState.MapMode = drawState.IsoFlag = 1;
  settings.tolerance = 0.51f;
  const At a = pipe();
  // On the plane from (110 k, -10 / 2 + 2) to (110.5 k, -10.5 / 2 + 6), k the factor of the plane.
  EXPECT_NEAR(a.midX, 110.25 * 0.8660253882408142, 1e-6);
  EXPECT_NEAR(a.midY, -1.125, 1e-6);
  EXPECT_EQ(a.elev, 4);
  EXPECT_EQ(a.escapement, 834);  // the arc tangent of 3.75 / 0.433 is 83.41 degrees
  settings.tolerance = 0.5f;     // the ends are half a unit apart: not closer than that
  EXPECT_GT(pipe().escapement, 3500) << "along the arc, which is level on the plane";
}

TEST_F(Placement, a_polyline_label_stands_on_the_run_of_its_mid_vertex) {
  addPipeAt(0);
  addRun(1, {{40, 60}, {60, 60}});
  EXPECT_NEAR(pipe(1).midY, 55, 1e-9);  // from (40, 50) up to (40, 60)
  expectAt(pipe(2), 50, 62.2);          // between the vertices
  EXPECT_NEAR(pipe(3).midX, 60, 1e-9);  // one past the last: down to the To node
  EXPECT_NEAR(pipe(0).midY, 50, 1e-9);  // none: from node to node
}

TEST_F(Placement, half_a_turn_is_exactly_1800_tenths) {
  EXPECT_EQ(tenthsOfDegree(3.1415926535f), 1800);
  EXPECT_EQ(tenthsOfDegree(1.57079632675f), 900);
  EXPECT_EQ(tenthsOfDegree(-0.1f), -57);
}

}  // namespace
}  // namespace pn10::test
