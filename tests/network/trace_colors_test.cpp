/** The colours that traces leave on pipes, and how two of them blend. */
#include "network/trace_output.h"
#include "network/traced.h"

namespace pn10::test {
namespace {

TEST_F(SystemTrace, two_colours_blend_on_what_two_traces_share) {
  makeRow(4);
  EXPECT_EQ(trace({.type = 2, .color = 0x0000FF}, 1), 3);
  EXPECT_EQ(model.pxy[2].Color, 0x0000FF);
  EXPECT_EQ(model.pxy[2].TraceColor, 0x000100);
  // From the other end with a start pipe that carries no mark: the shared pipes get the average.
  model.pxy[3].TraceColor = 0;
  EXPECT_EQ(trace({.type = 0, .color = 0xFF0000}, 4), 3);
  EXPECT_EQ(model.pxy[3].Color, 0xFF0000);
  EXPECT_EQ(model.pxy[2].Color, 0x7F007F);
  EXPECT_EQ(model.pxy[2].TraceColor, 0x000100);
}

TEST_F(SystemTrace, a_first_pipe_with_a_mark_hands_it_on_so_that_a_repeat_recolours) {
  makeRow(4);
  trace({.type = 2, .color = 0x0000FF}, 1);
  trace({.type = 2, .color = 0x00FF00}, 1);
  for (int32_t p = 1; p <= 3; p++) EXPECT_EQ(model.pxy[p].Color, 0x00FF00) << p;
}

TEST_F(SystemTrace, a_flow_trace_without_colour_clears_the_marks) {
  makeRow(3);
  model.pxy[1].Color = 5;
  EXPECT_EQ(trace({.type = 1, .color = -1}, 1), 2);
  EXPECT_EQ(model.pxy[1].Color, -1);
  EXPECT_EQ(model.pxy[1].TraceColor, 0);
  model.pxy[1].Color = 5;
  EXPECT_EQ(trace({.type = 2, .color = -1}, 1), 2);
  EXPECT_EQ(model.pxy[1].Color, 5) << "the other walks look at the colour";
}

TEST(BlendColor, averages_each_part_with_the_fraction_dropped) {
  EXPECT_EQ(BlendColor(0x0000FF, 0xFF0000), 0x7F007F);
  EXPECT_EQ(BlendColor(0x010203, 0x020304), 0x010203);
  EXPECT_EQ(BlendColor(-1, 0x7F000000), 0x7F7F7F);
}

}  // namespace
}  // namespace pn10::test
