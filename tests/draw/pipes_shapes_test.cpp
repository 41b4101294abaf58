/** Devices, fittings, flags and arrows against operations that worked_shapes.py works out from their tables. */
#include <cmath>

#include "draw/passes.h"
#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

constexpr double kX = 40.0319, kY = 50.0437, kLength = 25;
constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr int kBearings[] = {0, 30, 120, 200, 300};

/** One pipe in a view of 100 x 100 on 1000 x 1000 dots whose display unit is two world units. */
class Shapes : public testing::Test {
 protected:
  Shapes() {
    addNode(kX, kY);
    addNode(kX + kLength, kY);
    addPipe(1, 2);
    picture.displayHeight = 50;
    picture.setup();
    drawState.ViewHeight = drawState.ViewWidth = 100;
    copyText(valves[1].KEY_TEXT, "wired");
    valves[1].FIELD_7 = 9;
    lookups.vlut = {valves, 2};
  }
  ~Shapes() override { lookups.vlut = {nullptr, 0}; }

  template <class F>
  void atEveryBearing(F&& paint) {
    for (const int degrees : kBearings) {
      paint(kX + kLength * std::cos(degrees * kDegree), kY + kLength * std::sin(degrees * kDegree));
    }
  }

  Fresh fresh;
  SceneView picture;
  VLut valves[3]{};
};

TEST_F(Shapes, every_device_at_every_bearing_and_size) {
  const struct {
    uint8_t type;
    const char* size;
  } kinds[] = {{1, ""}, {2, ""}, {3, ""}, {3, "wired"}, {4, ""}};
  EXPECT_GOLDEN("draw/devices.ops", recorded([&] {
                  for (const int32_t size : {0, 80, -200}) {
                    picture.view.DeviceSize = size;
                    atEveryBearing([&](double x2, double y2) {
                      for (const auto& kind : kinds) {
                        model.pdt[1].HYD_TYPE = kind.type;
                        copyText(model.pdt[1].SIZE_TYPE, kind.size);
                        DrawDeviceSymbol(1, kX, kY, x2, y2);
                      }
                    });
                  }
                }));
}

TEST_F(Shapes, every_fitting_at_every_bearing_and_size) {
  EXPECT_GOLDEN("draw/fittings.ops", recorded([&] {
                  for (const int32_t size : {0, 80, -200}) {
                    picture.view.DeviceSize = size;
                    atEveryBearing([&](double x2, double y2) {
                      for (int16_t code = 1000; code <= 1005; code++) DrawFittingSymbol(1, code, kX, kY, x2, y2);
                    });
                  }
                }));
}

TEST_F(Shapes, a_code_outside_the_catalogue_paints_nothing) {
  EXPECT_EQ(recorded([] {
              for (const int code : {0, 999, 1006, -1000})
                DrawFittingSymbol(1, static_cast<int16_t>(code), kX, kY, kX + 9, kY);
            }),
            "");
}

TEST_F(Shapes, flag_post_and_load_flag) {
  EXPECT_GOLDEN("draw/flags.ops", recorded([] {
                  DrawFlag(30.03, 20.04, 0, PS_SOLID, 1, -1);
                  DrawFlagPost(0, 30.03, 20.04);
                  DrawLoadFlag(30.03, 20.04, 0, PS_SOLID, 1, -1, 3);
                }));
}

TEST_F(Shapes, a_flag_of_a_colour_brings_and_takes_its_own_pen_and_brush) {
  const std::string log = recorded([] { DrawFlag(30, 20, 0, PS_SOLID, 3, 0x0000FF); });
  EXPECT_EQ(only(log, {"CreatePen", "CreateSolidBrush", "SelectObject", "DeleteObject"}),
            "CreatePen pen(0,3,0x0000FF)\nSelectObject pen(0,3,0x0000FF)\n"
            "CreateSolidBrush brush(0,0x0000FF)\nSelectObject brush(0,0x0000FF)\n"
            "SelectObject brush(0,0xFFFFFF)\nDeleteObject brush(0,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,3,0x0000FF)\n");
}

TEST_F(Shapes, a_flag_takes_a_tenth_of_the_larger_side_of_the_view) {
  drawState.ViewWidth = 400;  // s = 40: the mast ends at (0.104, 0.662) * 40 = (4.16, 26.48) from (10, 20)
  const std::string log = recorded([] { DrawFlag(10, 20, 0, PS_SOLID, 1, -1); });
  EXPECT_EQ(only(log, {"MoveToEx", "LineTo"}), "MoveToEx 100 800\nLineTo 141 535\n");
}

TEST_F(Shapes, arrows_of_both_styles_at_every_bearing) {
  EXPECT_GOLDEN("draw/arrows.ops", recorded([&] {
                  atEveryBearing([&](double x2, double y2) {
                    for (const double flow : {5.0, -5.0}) {
                      for (const int32_t style : {0, 1}) {
                        picture.view.ArrowStyle = style;
                        DrawFlowArrow(1, flow, kX, kY, x2, y2, 3);
                      }
                    }
                  });
                }));
}

std::string arrow(double flow, double x2, double y2, float size) {
  return recorded([&] { DrawFlowArrow(1, flow, kX, kY, x2, y2, size); });
}

TEST_F(Shapes, a_flow_equal_to_the_minimum_has_its_arrow) {
  picture.view.ArrowMinFlow = 250;  // hundredths
  EXPECT_NE(arrow(2.5, kX + 20, kY, 3), "");
  EXPECT_NE(arrow(-2.5, kX + 20, kY, 3), "");
  EXPECT_EQ(arrow(2.49, kX + 20, kY, 3), "");
  for (const int32_t hundredths : {7, 29, 57, 58, 113}) {  // as the flow of a record, in single precision
    picture.view.ArrowMinFlow = hundredths;
    EXPECT_NE(arrow(static_cast<float>(hundredths) / 100.0f, kX + 20, kY, 3), "") << hundredths;
  }
  picture.view.ArrowMinFlow = 0;
  EXPECT_EQ(arrow(0, kX + 20, kY, 3), "");
}

TEST_F(Shapes, a_segment_of_no_length_has_no_arrow) {
  for (const int32_t style : {0, 1}) {
    picture.view.ArrowStyle = style;
    EXPECT_EQ(arrow(5, kX, kY, 3), "");
  }
}

TEST_F(Shapes, the_isometric_view_drops_arrows_of_segments_within_the_tolerance) {
  settings.tolerance = 2;
  EXPECT_NE(arrow(5, kX + 1.9, kY - 1.9, 3), "");
  drawState.IsoFlag = 1;
  EXPECT_EQ(arrow(5, kX + 1.9, kY - 1.9, 3), "");
  EXPECT_NE(arrow(5, kX + 2, kY - 1.9, 3), "");  // strictly below, in both
}

TEST_F(Shapes, arrows_under_one_dot_are_not_painted) {
  EXPECT_NE(arrow(5, kX + 20, kY, 0.125f), "");  // 1.25 dots
  EXPECT_EQ(arrow(5, kX + 20, kY, 0.09f), "");
}

TEST_F(Shapes, a_feathered_arrow_is_no_longer_than_half_its_segment_and_needs_its_tip_in_view) {
  picture.view.ArrowStyle = 1;
  // Half of 4 is 2: the notch lies 0.9 * 2 behind the tip at 44.03.
  EXPECT_NE(arrow(5, kX + 4, kY, 9).find("LineTo 422 499"), std::string::npos);
  EXPECT_EQ(arrow(5, kX + 61, kY, 3), "");
  EXPECT_NE(arrow(-5, kX + 61, kY, 3), "");
}

TEST_F(Shapes, a_feathered_arrow_of_an_arc_is_no_longer_than_half_the_chord_of_its_angle) {
  picture.view.ArrowStyle = 1;
  addArc(1, 2, 90 * kDegree);
  model.pdt[1].VTX_MODE = 2;
  // The chord is 2 * 2 * sin 45 degrees = 2.8284, its half 1.4142: the notch lies 1.2728 behind the tip at 60.0319.
  EXPECT_NE(arrow(5, kX + 20, kY, 9).find("LineTo 587 499"), std::string::npos);
}

TEST_F(Shapes, a_small_pie_is_left_out) {
  picture.view.DeviceSize = 4;  // 0.4 world units: a box of 3.7 dots
  model.pdt[1].HYD_TYPE = 1;
  EXPECT_EQ(only(recorded([] { DrawDeviceSymbol(1, kX, kY, kX + 20, kY); }), {"Pie"}), "");
}

TEST_F(Shapes, a_wired_fitting_stands_apart_from_its_pipe_on_the_isometric_view) {
  // Corners at x 40.0319 and 50.0319, y 50.0437 - 3.3 and + 3.3, each projected once more with Z = 2:
  // ((x + y) 0.866025, (y - x) 0.5 + 2), in dots trunc(10 X), trunc(1000 - 10 Y).
  model.ndt[1].Z_COORD = 2;
  drawState.MapMode = 1;
  EXPECT_EQ(recorded([] { DrawFittingSymbol(1, 1005, kX, kY, kX + 10, kY); }),
            "MoveToEx 751 946\nLineTo 808 913\nLineTo 838 996\nLineTo 895 963\n");
}

}  // namespace
}  // namespace pn10::test
