/** What a picture begins with: SetDrawVars, SetIso, SetDev and SetPNGDIScale. */
#include "draw/picture.h"
#include "model/tables.h"

using namespace pn10;
using namespace pn10::test;

namespace {

TEST(SetDrawVars, stores_its_arguments_and_answers_1) {
  Picture p;
  HWND draw = PnCreateWindow(), keys = PnCreateWindow();
  EXPECT_EQ(SetDrawVars(2, p.dc, draw, 0.5f, &p.plot, &p.view, &p.unit, keys, 7, 8, 1, 0, 11, 1234.5), 1);
  EXPECT_EQ(drawState.DevMode, 2);
  EXPECT_EQ(drawState.DC, p.dc);
  EXPECT_EQ(drawState.DrawWindow, draw);
  EXPECT_EQ(drawState.KeyWindow, keys);
  EXPECT_EQ(drawState.LoadFactor, 0.5f);
  EXPECT_EQ(drawState.Plot, &p.plot);
  EXPECT_EQ(drawState.View, &p.view);
  EXPECT_EQ(drawState.Unit, &p.unit);
  EXPECT_EQ(drawState.SingleNode, 7);
  EXPECT_EQ(drawState.SingleCust, 8);
  EXPECT_EQ(drawState.IsoFlag, 1);
  EXPECT_EQ(drawState.Zoom, 11);
  EXPECT_EQ(drawState.MapScale, 1234.5);
  EXPECT_EQ(double{drawState.Iso30}, 0.5235987901687622);
  EXPECT_EQ(double{drawState.Iso60}, 1.0471975803375244);
  PnDestroyWindow(draw);
  PnDestroyWindow(keys);
}

TEST(SetDrawVars, sets_the_nine_colours_on_every_call) {
  Picture p;
  drawState.Red = 5;
  p.set(0, 0, 0);
  EXPECT_EQ(drawState.Black, 0x000000);
  EXPECT_EQ(drawState.Blue, 0xFF0000);
  EXPECT_EQ(drawState.Cyan, 0xFFFF00);
  EXPECT_EQ(drawState.Grey, 0x7F7F7F);
  EXPECT_EQ(drawState.Green, 0x00FF00);
  EXPECT_EQ(drawState.Magenta, 0xFF00FF);
  EXPECT_EQ(drawState.Red, 0x0000FF);
  EXPECT_EQ(drawState.White, 0xFFFFFF);
  EXPECT_EQ(drawState.Yellow, 0x00FFFF);
}

TEST(SetDrawVars, the_projection_decides_before_the_iso_flag) {
  const struct {
    int16_t projection, iso, mode;
  } rows[] = {{0, 0, 0}, {0, 1, 1}, {1, 0, 2}, {1, 1, 2}, {2, 0, 3}, {2, 1, 3}, {7, 0, 0}, {7, -1, 1}};
  for (auto& r : rows) {
    Picture p(r.projection, r.iso);
    EXPECT_EQ(drawState.MapMode, r.mode) << r.projection << ' ' << r.iso;
  }
}

TEST(SetDrawVars, absent_records_read_as_zeros) {
  Picture p;
  SetDrawVars(0, p.dc, nullptr, 1, nullptr, nullptr, nullptr, nullptr, 0, 0, 0, 0, 0, 0);
  EXPECT_EQ(drawState.Plot->Mono, 0);
  EXPECT_EQ(drawState.View->NodeOn, 0);
  EXPECT_EQ(drawState.Unit->Metric, 0);
}

TEST(SetIso, leaves_the_mapping_as_it_is) {
  Picture p;
  drawState.Iso30 = 0;
  EXPECT_EQ(SetIso(1), 1);
  EXPECT_EQ(drawState.IsoFlag, 1);
  EXPECT_EQ(drawState.MapMode, 0);
  EXPECT_EQ(double{drawState.Iso30}, 0.5235987901687622);
}

TEST(SetDev, is_stored_and_changes_nothing_else) {
  Picture p;
  EXPECT_EQ(SetDev(2), 1);
  EXPECT_EQ(drawState.DevMode, 0);
}

TEST(SetPNGDIScale, sets_windows_scales_and_units) {
  Picture p;
  drawState.ClipX0 = 99;
  EXPECT_EQ(SetPNGDIScale(100, 500, 300, 400, 1000, 800, 2, 8, 1, 2, 3, 4), -1);
  EXPECT_EQ(drawState.X0, 100);
  EXPECT_EQ(drawState.Y1, 400);
  EXPECT_EQ(drawState.ClipX0, 100);
  EXPECT_EQ(drawState.ClipY0, 500);
  EXPECT_EQ(drawState.ScaleX, 5);
  EXPECT_EQ(drawState.ScaleY, -8);
  EXPECT_EQ(drawState.PointsFactor, -100); /* 800 / 8 */
  EXPECT_EQ(drawState.UnitsPerDisplay, 12.5);
  EXPECT_EQ(drawState.GeoX1, 1);
  EXPECT_EQ(drawState.GeoY1, 2);
  EXPECT_EQ(drawState.GeoX2, 3);
  EXPECT_EQ(drawState.GeoY2, 4);
  EXPECT_EQ(drawState.MinChord, 0);
  EXPECT_EQ(drawState.MinPipeLength, 0);
}

TEST(SetPNGDIScale, shortest_chord_and_pipe_come_from_the_pixels) {
  Picture p;
  p.plot.ShortPipeSkip = 1;
  SetPNGDIScale(100, 500, 300, 400, 1000, 800, 3, 8, 0, 0, 0, 0);
  EXPECT_EQ(drawState.MinChord, 0.6f);
  EXPECT_EQ(drawState.MinPipeLength, 0.3f);
  SetPNGDIScale(100, 500, 300, 400, 1000, 800, 0.5f, 8, 0, 0, 0, 0);
  EXPECT_EQ(drawState.MinChord, 0.1f);
  EXPECT_EQ(drawState.MinPipeLength, 0.05f);
}

TEST(SetPNGDIScale, without_pixels_the_shortest_pipe_is_half_a_pixel_in_feet) {
  Picture p;
  p.plot.ShortPipeSkip = 1;
  for (float pixels : {0.0f, -4.0f}) {
    SetPNGDIScale(7, 52, 8, 51, 1000, 800, pixels, 8, 0, 0, 0, 0);
    EXPECT_EQ(drawState.MinChord, pixels / 1000);
    /* one degree is 3.28083992 * 6371009 * 0.01745329238474369 = 364813.266768978572 feet */
    EXPECT_EQ(drawState.MinPipeLength, 182.406633384489f);
  }
}

TEST(SetPNGDIScale, the_points_factor_is_worked_out_in_single_precision) {
  Picture p; /* the float nearest to 1000 / 3, 333.33334350585938, over a scale of 4 in double precision */
  SetPNGDIScale(0, 250, 200, 0, 1000, 1000, 0, 3, 0, 0, 0, 0);
  EXPECT_EQ(drawState.PointsFactor, -333.33334350585938);
  EXPECT_EQ(drawState.UnitsPerDisplay, 83.333335876464845);
}

TEST(SetPNGDIScale, before_the_options_are_handed_over_short_pipes_are_kept) {
  Fresh fresh;
  SetPNGDIScale(0, 100, 100, 0, 1000, 1000, 5, 3, 0, 0, 0, 0);
  EXPECT_EQ(drawState.ScaleX, 10);
  EXPECT_EQ(drawState.MinPipeLength, 0);
}

TEST(SetPNGDIScale, a_device_without_width_has_no_scale_and_no_shortest_pipe) {
  Picture p;
  p.plot.ShortPipeSkip = 1;
  SetPNGDIScale(0, 100, 100, 0, 0, 1000, 0, 3, 0, 0, 0, 0);
  EXPECT_EQ(drawState.ScaleX, 0);
  EXPECT_EQ(drawState.ScaleY, -10);
  EXPECT_EQ(drawState.MinPipeLength, 0);
}

TEST(SetPNGDIScale, a_window_of_no_size_leaves_the_scale_at_zero) {
  Picture p;
  p.plot.ShortPipeSkip = 1;
  SetPNGDIScale(5, 9, 5, 9, 1000, 800, 2, 8, 0, 0, 0, 0);
  EXPECT_EQ(drawState.ScaleX, 0);
  EXPECT_EQ(drawState.ScaleY, 0);
  EXPECT_EQ(drawState.MinChord, 0);
  const DevPoint origin = WorldToDevPair(123, 456);
  EXPECT_EQ(origin.x, 0);
  EXPECT_EQ(origin.y, 0);
  int16_t on = 0;
  DrawPict(1, 9, 1, 9, 1, 9, 1, 9, 1, 9, 0, &on, &on, &on, 0);
}

}  // namespace
