/** The state of a picture: SetDrawVars, SetPNGDIScale, mapping, visibility, clipping, fonts, colours, grips, polls. */
#include "draw/frame.h"

#include <cmath>

#include "draw/gdi_objects.h"
#include "draw/picture.h"
#include "model/tables.h"
#include "platform/user.h"

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
}

TEST(SetPNGDIScale, without_pixels_the_shortest_pipe_is_half_a_pixel_in_feet) {
  Picture p;
  p.plot.ShortPipeSkip = 1;
  for (float pixels : {0.0f, -4.0f}) {
    SetPNGDIScale(7, 52, 8, 51, 1000, 800, pixels, 8, 0, 0, 0, 0);
    EXPECT_EQ(drawState.MinChord, pixels / 1000);
    /* one degree is 364813.26677 feet */
    EXPECT_NEAR(drawState.MinPipeLength, 364813.26677 / 1000 / 2, 1e-4);
  }
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

TEST(WorldToDev, truncates_toward_zero) {
  Picture p;
  int32_t x, y;
  WorldToDev(20.19, 99.99, &x, &y);
  EXPECT_EQ(x, 201);
  EXPECT_EQ(y, 1000);
  WorldToDev(-0.09, 200.09, &x, &y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
}

TEST(MapModelXY, every_mode) {
  double x, y;
  {
    Picture p;
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 45);
  }
  {
    Picture p(0, 1);
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 48 * 0.8660253882408142);
    EXPECT_EQ(y, 28);
  }
  {
    Picture p(1, 1);
    MapModelXY(3, 45, 7, &x, &y);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, CalcGeoY(45, 0, 60, 20, 40, 5));
  }
  Picture p(2, 1);
  MapModelXY(3, 45, 7, &x, &y);
  EXPECT_EQ(y, 45);
}

TEST(MapModelXY, without_a_picture_of_the_poles_everything_is_out_of_view) {
  Picture p(1);
  drawState.GeoY1 = 100;
  drawState.GeoY2 = 99;
  double x, y;
  MapModelXY(3, 45, 7, &x, &y);
  EXPECT_EQ(OutOfView(x, y), 1);
}

TEST(OutOfView, the_border_is_in_view) {
  Picture p;
  for (double at : {0.0, 200.0}) {
    EXPECT_EQ(OutOfView(at, 100), 0);
    EXPECT_EQ(OutOfView(100, at), 0);
  }
  EXPECT_EQ(OutOfView(-0.001, 100), 1);
  EXPECT_EQ(OutOfView(200.001, 100), 1);
  EXPECT_EQ(OutOfView(100, -0.001), 1);
  EXPECT_EQ(OutOfView(100, 200.001), 1);
  EXPECT_EQ(OutOfView(std::nan(""), 100), 1);
  drawState.ClipX0 = 50; /* the clip window decides, not the world window */
  EXPECT_EQ(OutOfView(40, 100), 1);
}

struct Cut {
  double x1, y1, x2, y2;
  int32_t result;
  Cut(double a, double b, double c, double d) : x1(a), y1(b), x2(c), y2(d), result(ClipSegment(&x1, &y1, &x2, &y2)) {}
};

void expectCut(const Cut& c, double x1, double y1, double x2, double y2) {
  EXPECT_EQ(c.result, 0);
  EXPECT_NEAR(c.x1, x1, 1e-9);
  EXPECT_NEAR(c.y1, y1, 1e-9);
  EXPECT_NEAR(c.x2, x2, 1e-9);
  EXPECT_NEAR(c.y2, y2, 1e-9);
}

TEST(ClipSegment, cuts_at_every_side) {
  Picture p;
  expectCut({10, 20, 30, 40}, 10, 20, 30, 40);
  expectCut({-100, 100, 100, 100}, 0, 100, 100, 100);
  expectCut({100, 100, 300, 150}, 100, 100, 200, 125);
  expectCut({100, -100, 100, 300}, 100, 0, 100, 200);
  expectCut({-100, -50, 300, 350}, 0, 50, 150, 200); /* y = x + 50 */
  expectCut({-50, 100, 250, 100}, 0, 100, 200, 100);
}

TEST(ClipSegment, keeps_what_touches_the_border) {
  Picture p;
  expectCut({0, 0, 0, 200}, 0, 0, 0, 200);
  expectCut({-50, 50, 50, -50}, 0, 0, 0, 0); /* through the corner */
}

TEST(ClipSegment, rejects_what_passes_by_and_leaves_it) {
  Picture p;
  for (const Cut& c : {Cut(-10, 0, -5, 200), Cut(10, 250, 20, 300), Cut(-50, 30, 30, -60), Cut(150, 260, 260, 150)}) {
    EXPECT_NE(c.result, 0);
  }
  const Cut c(-50, 30, 30, -60);
  EXPECT_EQ(c.x1, -50);
  EXPECT_EQ(c.y2, -60);
}

TEST(ClipSegment, numbers_that_are_none_are_rejected) {
  Picture p;
  const double bad[] = {NAN, INFINITY, -INFINITY, 1e308, -1e308, 10};
  for (double a : bad) {
    for (double b : bad) {
      for (double c : bad) {
        const Cut cut(a, b, c, 10);
        if (cut.result == 0) {
          EXPECT_EQ(OutOfView(cut.x1, cut.y1), 0);
          EXPECT_EQ(OutOfView(cut.x2, cut.y2), 0);
        }
      }
    }
  }
}

TEST(DrawClipLine, draws_the_visible_part_or_without_the_flag_all) {
  Picture p;
  std::string log = recorded([] { EXPECT_EQ(DrawClipLine(1, -100, 100, 100, 100), 1); });
  EXPECT_EQ(log, "MoveToEx 0 1000\nLineTo 1000 1000\n");
  log = recorded([] { EXPECT_EQ(DrawClipLine(0, -100, 100, 100, 100), 1); });
  EXPECT_EQ(log, "MoveToEx -1000 1000\nLineTo 1000 1000\n");
  log = recorded([] { EXPECT_EQ(DrawClipLine(1, -100, 100, -50, 100), 0); });
  EXPECT_EQ(log, "");
}

LOGFONTA fontOf(int16_t devMode, float screen, float print, int16_t screenBold, int16_t printBold, int16_t mode) {
  Picture p(0, 0, devMode);
  drawState.Dpi = 144;
  drawState.ReducedScale = 0.25f;
  copyText(drawState.FontFace, "Times");
  LOGFONTA font{};
  font.lfEscapement = 7;
  MakeLogFont(&font, screen, print, screenBold, printBold, mode);
  EXPECT_EQ(font.lfEscapement, 0);
  return font;
}

TEST(MakeLogFont, on_screen_in_points) {
  const LOGFONTA f = fontOf(0, 9.9f, 500, 0, 1, 0);
  EXPECT_STREQ(f.lfFaceName, "Arial");
  EXPECT_EQ(f.lfWeight, 400);
  EXPECT_EQ(f.lfHeight, -18); /* 9 * 144 / 72 */
  EXPECT_EQ(fontOf(0, 9, 500, 1, 0, 2).lfWeight, 700);
}

TEST(MakeLogFont, on_screen_in_display_units) {
  EXPECT_EQ(fontOf(0, 0.11f, 500, 0, 0, 1).lfHeight, -30); /* 0.11 * -200 * 1.4 = -30.8 */
}

TEST(MakeLogFont, on_paper_in_tenths_of_a_point) {
  const LOGFONTA f = fontOf(1, 9, 99, 0, 1, 0);
  EXPECT_STREQ(f.lfFaceName, "Times");
  EXPECT_EQ(f.lfWeight, 700);
  EXPECT_EQ(f.lfHeight, -18); /* 99 / 10 -> 9 */
  EXPECT_EQ(fontOf(1, 9, 99, 1, 0, 0).lfWeight, 400);
}

TEST(MakeLogFont, on_paper_scaled_with_the_map) {
  EXPECT_EQ(fontOf(1, 9, 25, 0, 0, 1).lfHeight, -35); /* 25 * -10 * 0.14 */
}

TEST(MakeLogFont, on_a_reduced_raster) {
  const LOGFONTA f = fontOf(2, 9, 90, 0, 1, 0);
  EXPECT_EQ(f.lfWeight, 175);                        /* 700 / 4 */
  EXPECT_EQ(f.lfHeight, -4);                         /* ceil(-18 / 4) = ceil(-4.5) */
  EXPECT_EQ(fontOf(2, 9, 10, 0, 0, 0).lfHeight, -1); /* ceil(-0.5) is 0, which becomes -1 */
}

TEST(ContrastColor, complements_what_stands_off_the_background) {
  EXPECT_EQ(ContrastColor(0x0000FF, 0x000000), 0xFFFF00);
  EXPECT_EQ(ContrastColor(0x000000, 0x000000), 0xFFFFFF);
}

TEST(ContrastColor, within_4_of_the_background_only_the_largest_byte_turns) {
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFF), 0x0000FF); /* all equal: the first byte */
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFB), 0x0000FF); /* 4 away */
  EXPECT_EQ(ContrastColor(0x000000, 0xFFFFFA), 0xFFFFFF); /* 5 away */
  EXPECT_EQ(ContrastColor(0x102030, ~0x102030 & 0xFFFFFF), 0x1020CF);
  EXPECT_EQ(ContrastColor(0x203010, ~0x203010 & 0xFFFFFF), 0x20CF10);
  EXPECT_EQ(ContrastColor(0x301020, ~0x301020 & 0xFFFFFF), 0xCF1020);
  EXPECT_EQ(ContrastColor(0x102020, ~0x102020 & 0xFFFFFF), 0x1020DF); /* tie of the first two */
  EXPECT_EQ(ContrastColor(0x203020, ~0x203020 & 0xFFFFFF), 0x20CF20);
  EXPECT_EQ(ContrastColor(0x303010, ~0x303010 & 0xFFFFFF), 0x30CF10); /* tie of the last two */
}

TEST(HiliteColor, is_the_hosts_or_stands_off_the_background) {
  Picture p;
  p.plot.HiliteColor = 0x123456;
  EXPECT_EQ(HiliteColor(0xFF0000), 0x123456);
  p.plot.HiliteColor = -1;
  p.view.BackColor = 0xFFFFFF;
  EXPECT_EQ(HiliteColor(0xFF0000), 0x00FFFF);
}

struct Grips : Picture {
  explicit Grips(int16_t devMode = 0) : Picture(0, 0, devMode) {
    plot.GripsOn = plot.GripsShown = 1;
    plot.GripColor = 0x0000FF;
    plot.GripSize = 100;
    view.BackColor = 0x112233;
    drawState.ViewHeight = 200; /* 100 * 0.0001 * 200 = 2 world units */
  }
};

/** The pen and the brush, put back in the order of their guards. */
std::string gripLog(const char* pen) {
  const std::string p = pen;
  return "CreatePen " + p + "\nSelectObject " + p + "\nCreateBrushIndirect brush(1,0x112233)\n" +
         "SelectObject brush(1,0x112233)\nPolygon 4 90 1009 90 989 110 989 110 1009\n" +
         "SelectObject brush(0,0xFFFFFF)\nDeleteObject brush(1,0x112233)\nSelectObject "
         "pen(0,1,0x000000)\nDeleteObject " +
         p + "\n";
}

TEST(DrawGrip, paints_in_the_grip_colour_and_erases_in_the_background_colour) {
  Grips p; /* corners at 0.99985 left and below, 1.00015 right and above of device (100, 999.5) */
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100.05); }), gripLog("pen(0,1,0x0000FF)"));
  EXPECT_EQ(recorded([] { DrawGrip(0, 10, 100.05); }), gripLog("pen(0,1,0x112233)"));
}

TEST(DrawGrip, erasing_needs_no_more_than_grips_on) {
  Grips p;
  p.plot.GripsShown = 0;
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100); }), "");
  EXPECT_NE(recorded([] { DrawGrip(0, 10, 100); }), "");
  p.plot.GripsOn = 0;
  EXPECT_EQ(recorded([] { DrawGrip(0, 10, 100); }), "");
}

TEST(DrawGrip, is_for_the_screen_only) {
  Grips p(1);
  EXPECT_EQ(recorded([] { DrawGrip(1, 10, 100); }), "");
}

/** A window for keys and drawing. */
struct Keys : Picture {
  HWND window = PnCreateWindow();
  Keys() {
    drawState.KeyWindow = window;
    drawState.DrawWindow = window;
  }
  ~Keys() { PnDestroyWindow(window); }
  void key(uint32_t message, uint32_t lparam) { PnPostMessage(window, message, 0, lparam); }
  bool empty() {
    MSG m{};
    return !PeekMessageA(&m, window, 0, 0xFFFF, PM_REMOVE);
  }
};

TEST(PollCancel, shows_what_stands_and_takes_all_keys) {
  Keys k;
  k.key(0x100, 0x001E0001);
  k.key(0x101, 0xC01E0001);
  EXPECT_EQ(recorded([&] { EXPECT_EQ(PollCancel(k.window), 0); }),
            "UpdateWindow\nInvalidateRect 1\nPeekMessageA found\nPeekMessageA found\nPeekMessageA none\n");
  EXPECT_TRUE(k.empty());
}

TEST(PollCancel, escape_cancels_and_stops_at_once) {
  Keys k;
  k.key(0x100, 0x001E0001);
  k.key(0x100, 0x00010001);
  k.key(0x100, 0x001E0001);
  EXPECT_EQ(PollCancel(k.window), -1);
  EXPECT_FALSE(k.empty()); /* the key behind Escape still waits */
}

TEST(PollCancel, escape_with_the_extended_bit_or_released_does_not_cancel) {
  Keys k;
  k.key(0x100, 0x01010001); /* extended */
  k.key(0x100, 0x40010001); /* repeated */
  k.key(0x101, 0x00010001); /* released */
  EXPECT_EQ(PollCancel(k.window), 0);
  EXPECT_TRUE(k.empty());
}

TEST(PollCancel, other_messages_stay_in_the_queue) {
  Keys k;
  k.key(0x0F, 0);
  k.key(0x201, 0);
  EXPECT_EQ(PollCancel(k.window), 0);
  EXPECT_FALSE(k.empty());
}

int32_t pollsOf(int32_t first, int32_t last, int32_t percent, int items, int16_t devMode = 0) {
  Keys k;
  k.plot.PollPercent = percent;
  drawState.DevMode = devMode;
  CancelPolls polls(first, last);
  for (int i = 0; i < items; i++) EXPECT_FALSE(polls.drawn());
  EXPECT_FALSE(polls.finish());
  return PnGetWindowUpdates(k.window);
}

TEST(CancelPolls, every_batch_and_once_more_at_the_end) {
  EXPECT_EQ(pollsOf(1, 101, 10, 100), 10); /* (100 * 10) / 100 = 10 items */
  EXPECT_EQ(pollsOf(1, 101, 10, 95), 10);  /* nine batches and five items */
  EXPECT_EQ(pollsOf(1, 101, 10, 91), 9);   /* one item left is not above 1 */
  EXPECT_EQ(pollsOf(1, 100, 10, 18), 2);   /* 99 * 10 / 100 = 9 */
}

TEST(CancelPolls, one_item_polls_once) { EXPECT_EQ(pollsOf(5, 5, 100, 1), 1); }

TEST(CancelPolls, no_or_an_absurd_percentage_polls_at_every_item) {
  EXPECT_EQ(pollsOf(1, 100, 0, 7), 7);
  EXPECT_EQ(pollsOf(1, 100, -50, 7), 7);
  EXPECT_EQ(pollsOf(-2147483647, 2147483647, 2147483647, 7), 1); /* far more than 7: only the end */
}

TEST(CancelPolls, printing_never_polls) { EXPECT_EQ(pollsOf(1, 101, 10, 100, 1), 0); }

TEST(CancelPolls, escape_is_told) {
  Keys k;
  k.plot.PollPercent = 100;
  CancelPolls polls(1, 3);
  k.key(0x100, 0x00010001);
  EXPECT_FALSE(polls.drawn());
  EXPECT_TRUE(polls.drawn());
}

TEST(SelectedPen, is_made_anew_only_when_its_look_changes_and_put_back_at_the_end) {
  Picture p;
  const int32_t before = PnGetObjectCount();
  const std::string log = recorded([&] {
    SelectedPen pen(p.dc);
    for (int i = 0; i < 3; i++) EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0x0000FF));
    for (int i = 0; i < 3; i++) EXPECT_TRUE(pen.plain(PS_SOLID, 2, 0x0000FF));
  });
  EXPECT_EQ(log,
            "CreatePen pen(0,1,0x0000FF)\nSelectObject pen(0,1,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,1,0x0000FF)\n"
            "CreatePen pen(0,2,0x0000FF)\nSelectObject pen(0,2,0x0000FF)\n"
            "SelectObject pen(0,1,0x000000)\nDeleteObject pen(0,2,0x0000FF)\n");
  EXPECT_EQ(PnGetObjectCount(), before);
}

TEST(SelectedPen, that_can_not_be_made_leaves_the_old_one_and_is_tried_once) {
  Picture p;
  const int32_t before = PnGetObjectCount();
  const std::string log = recorded([&] {
    SelectedPen pen(p.dc);
    EXPECT_TRUE(pen.lineStyle(1, 1, 0));
    EXPECT_FALSE(pen.lineStyle(9, 1, 0));
    EXPECT_FALSE(pen.lineStyle(9, 1, 0));
    EXPECT_TRUE(pen.plain(PS_SOLID, 1, 0));
  });
  EXPECT_EQ(only(log, {"CreatePen"}), "CreatePen pen(0,1,0x000000)\n");
  EXPECT_EQ(PnGetObjectCount(), before);
}

TEST(SelectedBrush, each_way_of_making_is_a_look_of_its_own) {
  Picture p;
  const std::string log = recorded([&] {
    SelectedBrush brush(p.dc);
    brush.solid(0xFF);
    brush.indirect(BS_SOLID, 0xFF);
    brush.hatch(4, 0xFF);
    brush.hatch(4, 0xFF);
  });
  EXPECT_EQ(only(log, {"CreateSolidBrush", "CreateBrushIndirect", "CreateHatchBrush"}),
            "CreateSolidBrush brush(0,0x0000FF)\nCreateBrushIndirect brush(0,0x0000FF)\nCreateHatchBrush "
            "hatch(4,0x0000FF)\n");
}

TEST(SelectedFont, BackgroundMode_and_BorrowedObject_put_everything_back) {
  Picture p;
  HPEN lent = CreatePen(PS_SOLID, 3, 0);
  const int32_t before = PnGetObjectCount();
  HGDIOBJ font = nullptr, pen = nullptr;
  const std::string log = recorded([&] {
    SelectedFont selected(p.dc);
    LOGFONTA look{};
    look.lfHeight = -12;
    EXPECT_TRUE(selected.font(look));
    EXPECT_TRUE(selected.font(look));
    font = selected.object();
    const BackgroundMode transparent(p.dc, TRANSPARENT);
    const BorrowedObject borrowed(p.dc, lent);
    pen = lent;
  });
  EXPECT_NE(font, nullptr);
  EXPECT_EQ(PnGetObjectCount(), before);
  EXPECT_EQ(GetBkMode(p.dc), OPAQUE);
  EXPECT_NE(SelectObject(p.dc, lent), pen); /* the context had its own pen again */
  EXPECT_EQ(only(log, {"DeleteObject"}), "DeleteObject font(-12,0,0,0,0,\"\")\n");
  PnDeleteDC(p.dc);
  p.dc = nullptr;
  DeleteObject(lent);
}

}  // namespace
