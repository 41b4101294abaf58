/** Lines of every pen: which pixels they set, and how dashes run. */
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/raster_paper.h"

namespace pn10::test {
namespace {

TEST(OnePixelLine, takes_the_nearest_pixel_with_ties_up_and_left_and_leaves_out_its_end) {
  struct {
    int dx, dy;
    const char* pixels;
  } table[] = {{0, 0, ""},
               {1, 0, "10: 10"},
               {5, 0, "10: 10-14"},
               {-5, 0, "10: 6-10"},
               {0, -5, "6: 10; 7: 10; 8: 10; 9: 10; 10: 10"},
               {4, 2, "10: 10-11; 11: 12-13"},
               {-4, 2, "10: 9-10; 11: 7-8"},
               {4, -2, "8: 13; 9: 11-12; 10: 10"},
               {-4, -2, "8: 7; 9: 8-9; 10: 10"},
               {2, 4, "10: 10; 11: 10; 12: 11; 13: 11"},
               {-2, 4, "10: 10; 11: 9; 12: 9; 13: 8"},
               {2, -4, "7: 11; 8: 11; 9: 10; 10: 10"},
               {-2, -4, "7: 8; 8: 9; 9: 9; 10: 10"},
               {8, 3, "10: 10-11; 11: 12-14; 12: 15-16; 13: 17"},
               {-8, 3, "10: 9-10; 11: 6-8; 12: 4-5; 13: 3"}};
  for (const auto& t : table) {
    EXPECT_EQ(rows(Paper(21, 21).plain(0).line(10, 10, 10 + t.dx, 10 + t.dy).marks()), t.pixels) << t.dx << " " << t.dy;
  }
}

TEST(OnePixelLine, paints_the_end_of_a_slope_with_a_geometric_pen_only) {
  EXPECT_EQ(Paper(30, 30).plain(1).line(10, 10, 16, 16).marks().size(), 6u);
  EXPECT_EQ(Paper(30, 30).geometric(1).line(10, 10, 16, 16).marks().size(), 7u);
  EXPECT_EQ(rows(Paper(30, 30).geometric(1).line(10, 10, 20, 10).marks()), "10: 10-19");
  EXPECT_EQ(rows(Paper(30, 30).geometric(1).line(10, 10, 10, 10).marks()), "");
}

TEST(OnePixelLine, of_any_length_is_stepped_as_if_the_raster_were_as_large_as_its_coordinates) {
  Paper paper(40, 30);
  paper.plain(1).line(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
  for (int i = 0; i < 30; i++) EXPECT_TRUE(paper.marks().count({i, i})) << i;
  EXPECT_EQ(paper.marks().size(), 30u);
  /* Two rows over the whole range of columns: around column 0 it is half-way down, far from where rows change. */
  Paper flat(40, 30);
  EXPECT_EQ(rows(flat.plain(1).line(INT32_MIN, 13, INT32_MAX, 15).marks()), "14: 0-39");
}

TEST(OnePixelLine, is_hidden_by_a_clip_and_never_bent) {
  uint32_t seed = 1;
  const auto random = [&](int n) { return static_cast<int>((seed = seed * 1664525 + 1013904223) >> 8) % n; };
  for (int i = 0; i < 2000; i++) {
    const int x0 = random(100), y0 = random(80), x1 = random(100), y1 = random(80);
    Paper whole(100, 80), part(100, 80);
    part.state.clip = {random(60), random(40), 60 + random(40), 40 + random(40)};
    const auto clipped = [&](std::pair<int, int> p) {
      const RECT& c = part.state.clip;
      return p.first < c.top || p.first >= c.bottom || p.second < c.left || p.second >= c.right;
    };
    Pixels expected = whole.geometric(1).line(x0, y0, x1, y1).marks();
    std::erase_if(expected, clipped);
    EXPECT_EQ(rows(part.geometric(1).line(x0, y0, x1, y1).marks()), rows(expected));
  }
}

TEST(Polyline, paints_each_joint_once) {
  Paper paper(30, 30);
  paper.state.rop2 = R2_XORPEN;
  paper.pen.color = 0xFFFFFF;
  paper.polyline({{5, 5}, {15, 5}, {15, 15}});
  EXPECT_EQ(paper.marks().size(), 20u);
  EXPECT_TRUE(paper.marks().count({5, 15}));
}

TEST(WideLine, of_length_nought_is_a_dot_with_round_caps_only) {
  struct {
    int width;
    const char* pixels;
  } table[] = {{2, "9: 9-10; 10: 9-10"},
               {3, "9: 10; 10: 9-11; 11: 10"},
               {4, "8: 9-10; 9: 8-11; 10: 8-11; 11: 9-10"},
               {5, "8: 9-11; 9: 8-12; 10: 8-12; 11: 8-12; 12: 9-11"},
               {7, "7: 9-11; 8: 8-12; 9: 7-13; 10: 7-13; 11: 7-13; 12: 8-12; 13: 9-11"}};
  for (const auto& t : table) {
    EXPECT_EQ(rows(Paper(21, 21).plain(t.width).line(10, 10, 10, 10).marks()), t.pixels);
    EXPECT_EQ(rows(Paper(21, 21).geometric(t.width).line(10, 10, 10, 10).marks()), t.pixels);
    for (DWORD cap : {PS_ENDCAP_FLAT, PS_ENDCAP_SQUARE}) {
      EXPECT_EQ(rows(Paper(21, 21).geometric(t.width, PS_SOLID, cap).line(10, 10, 10, 10).marks()), "");
    }
  }
}

/** The smallest box around marks, as `columns first..last rows first..last`. */
std::string bounds(const Pixels& p) {
  int left = INT32_MAX, right = INT32_MIN;
  for (const auto& [y, x] : p) left = std::min(left, x), right = std::max(right, x);
  return p.empty() ? "none"
                   : "x " + std::to_string(left) + ".." + std::to_string(right) + " y " +
                         std::to_string(p.begin()->first) + ".." + std::to_string(p.rbegin()->first);
}

TEST(WideLine, reaches_half_its_width_up_and_left_rounded_down) {
  for (int w = 2; w <= 12; w++) {
    const int h = w / 2, low = 20 - h, high = 20 - h + w - 1;
    const auto box = [](int x0, int x1, int y0, int y1) {
      return "x " + std::to_string(x0) + ".." + std::to_string(x1) + " y " + std::to_string(y0) + ".." +
             std::to_string(y1);
    };
    Paper round(60, 60), upright(60, 60), flat(60, 60), square(60, 60);
    EXPECT_EQ(bounds(round.geometric(w).line(20, 20, 40, 20).marks()), box(low, 40 - h + w - 1, low, high));
    EXPECT_EQ(bounds(upright.geometric(w).line(20, 40, 20, 20).marks()), box(low, high, low, 40 - h + w - 1));
    EXPECT_EQ(bounds(flat.geometric(w, PS_SOLID, PS_ENDCAP_FLAT).line(20, 20, 40, 20).marks()), box(20, 39, low, high));
    EXPECT_EQ(bounds(square.geometric(w, PS_SOLID, PS_ENDCAP_SQUARE).line(20, 20, 40, 20).marks()),
              box(20 - h, 39 + h, low, high));
  }
}

TEST(WideLine, along_an_axis_has_round_ends) {
  EXPECT_EQ(rows(Paper(30, 30).plain(2).line(10, 10, 20, 10).marks()), "9: 9-20; 10: 9-20");
  EXPECT_EQ(rows(Paper(30, 30).plain(3).line(10, 10, 20, 10).marks()), "9: 10-20; 10: 9-21; 11: 10-20");
  EXPECT_EQ(rows(Paper(30, 30).plain(5).line(20, 10, 10, 10).marks()),
            "8: 9-21; 9: 8-22; 10: 8-22; 11: 8-22; 12: 9-21");
}

TEST(WideLine, on_a_slope_lies_near_the_measured_one) {
  struct {
    int width, x1, y1;
    const char* pixels;
  } table[] = {
      {2, 16, 16, "9: 9-10; 10: 9-11; 11: 9-12; 12: 10-13; 13: 11-14; 14: 12-15; 15: 13-16; 16: 14-16"},
      {2, 18, 14, "9: 9-10; 10: 9-12; 11: 10-14; 12: 12-16; 13: 14-18; 14: 16-18"},
      {3, 16, 16, "9: 10-12; 10: 9-13; 11: 9-14; 12: 10-15; 13: 11-16; 14: 12-17; 15: 13-16; 16: 14-17; 17: 16"},
      {3, 18, 14, "9: 10-12; 10: 9-14; 11: 9-16; 12: 11-18; 13: 13-18; 14: 15-19; 15: 18"},
      {5, 16, 16,
       "8: 9-11; 9: 8-12; 10: 8-13; 11: 8-14; 12: 8-15; 13: 9-16; 14: 10-17; 15: 11-18; 16: 12-18; 17: "
       "13-18; 18: 15-17"},
      {5, 18, 14, "8: 9-13; 9: 8-15; 10: 8-17; 11: 8-19; 12: 9-19; 13: 11-20; 14: 13-20; 15: 15-20; 16: 17-19"}};
  for (const auto& t : table) {
    EXPECT_LE(distance(Paper(30, 30).plain(t.width).line(10, 10, t.x1, t.y1).marks(), parseRows(t.pixels)), 1.5)
        << t.width << " " << t.x1;
  }
}

TEST(WideLine, as_a_chain_of_lines_sets_the_pixels_of_the_polyline) {
  const std::vector<POINT> p{{10, 10}, {45, 14}, {30, 40}, {12, 35}, {50, 50}};
  for (int w : {2, 3, 4, 5, 8}) {
    Paper chain(64, 64), polyline(64, 64), polygon(64, 64), closed(64, 64);
    chain.geometric(w), polyline.geometric(w), polygon.geometric(w), closed.geometric(w);
    for (size_t i = 0; i + 1 < p.size(); i++) chain.line(p[i].x, p[i].y, p[i + 1].x, p[i + 1].y);
    EXPECT_EQ(rows(chain.marks()), rows(polyline.polyline(p).marks()));
    std::vector<POINT> around = p;
    around.push_back(p[0]);
    EXPECT_EQ(rows(polygon.polygon(p).marks()), rows(closed.polyline(around).marks()));
  }
}

TEST(WideLine, under_an_inverting_operation_paints_each_pixel_of_a_polyline_once) {
  Paper plain(64, 64), inverted(64, 64);
  const std::vector<POINT> p{{10, 10}, {45, 14}, {30, 40}, {45, 14}, {12, 35}};
  inverted.state.rop2 = R2_XORPEN;
  inverted.geometric(5);
  inverted.pen.color = 0xFFFFFF;
  EXPECT_EQ(rows(inverted.polyline(p).marks()), rows(plain.geometric(5).polyline(p).marks()));
}

TEST(WideLine, of_absurd_size_ends_and_covers_what_it_should) {
  Paper paper(40, 30);
  EXPECT_EQ(paper.geometric(INT32_MAX).line(INT32_MIN, 0, INT32_MAX, 0).marks().size(), 1200u);
  Paper dashed(40, 30);
  dashed.geometric(INT32_MAX, PS_USERSTYLE, PS_ENDCAP_FLAT, {1, 1}).line(INT32_MIN, 0, INT32_MAX, 0);
  EXPECT_EQ(dashed.marks().size(), 600u);
  Paper dotted(40, 30);
  EXPECT_EQ(dotted.geometric(INT32_MAX, PS_USERSTYLE, PS_ENDCAP_ROUND, {1, 1}).line(0, 0, INT32_MAX, 0).marks().size(),
            1200u);
}

/** Lengths of the runs of set and unset pixels of a row, beginning with the first set one. */
std::string runs(const Pixels& pixels, int row, int limit = 12) {
  std::string text;
  int first = -1, last = -1, count = 0;
  for (const auto& [y, x] : pixels) {
    if (y != row) continue;
    if (first >= 0 && x != last + 1) {
      text += std::to_string(last - first + 1) + " " + std::to_string(x - last - 1) + " ";
      first = x;
      if (++count == limit / 2) break;
    }
    if (first < 0) first = x, text = std::to_string(x) + ": ";
    last = x;
  }
  if (!text.empty()) text.pop_back();
  return text;
}
/** `start` and then the lengths of the pattern, twelve of them, as runs() writes them. */
std::string pattern(int start, const std::vector<int>& lengths) {
  std::string text = std::to_string(start) + ":";
  for (size_t i = 0; i < 12; i++) text += " " + std::to_string(lengths[i % lengths.size()]);
  return text;
}

TEST(Dashes, of_the_predefined_styles_scale_with_the_width) {
  const std::vector<int> in_widths[] = {{3, 1}, {1, 1}, {3, 1, 1, 1}, {3, 1, 1, 1, 1, 1}};
  for (DWORD style : {PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT}) {
    for (int w : {1, 2, 3, 4, 5, 6, 8, 10}) {
      std::vector<int> lengths = in_widths[style - PS_DASH];
      for (int& n : lengths) n *= w;
      for (DWORD cap : {PS_ENDCAP_ROUND, PS_ENDCAP_FLAT}) {
        const int start = 20 - (cap == PS_ENDCAP_ROUND && w > 1 ? w / 2 : 0);
        Paper paper(400, 30);
        EXPECT_EQ(runs(paper.geometric(w, style, cap).line(20, 12, 390, 12).marks(), 12), pattern(start, lengths))
            << style << " " << w << " " << cap;
      }
    }
  }
}

TEST(Dashes, with_round_ends_are_one_pixel_shorter_in_the_outer_rows) {
  const Pixels p = Paper(110, 20).geometric(5, PS_DASH).line(6, 6, 95, 6).marks();
  EXPECT_EQ(rows(p),
            "4: 5-17 25-37 45-57 65-77 85-96; 5: 4-18 24-38 44-58 64-78 84-97; 6: 4-18 24-38 44-58 64-78 84-97; "
            "7: 4-18 24-38 44-58 64-78 84-97; 8: 5-17 25-37 45-57 65-77 85-96");
}

TEST(Dashes, of_dots_with_round_caps_are_dots_two_widths_apart) {
  EXPECT_EQ(runs(Paper(400, 30).geometric(5, PS_DOT).line(20, 12, 390, 12).marks(), 12), pattern(18, {5}));
}

TEST(Dashes, of_a_user_style_are_pixels_and_grow_by_round_caps) {
  for (const auto& [style, lengths] : userDashes()) {
    for (int w : {1, 2, 3, 5}) {
      std::vector<DWORD> entries;
      std::vector<int> round, flat;
      for (size_t i = 0; i < lengths.size(); i++) {
        const int n = lengths[i] ? lengths[i] * w : 1, grown = i % 2 ? n - w : n + w;
        entries.push_back(static_cast<DWORD>(n));
        flat.push_back(n);
        round.push_back(w == 1 ? n : grown);
      }
      Paper a(400, 30), b(400, 30);
      EXPECT_EQ(runs(a.geometric(w, PS_USERSTYLE, PS_ENDCAP_ROUND, entries).line(20, 12, 390, 12).marks(), 12),
                pattern(20 - (w > 1 ? w / 2 : 0), round))
          << style << " " << w;
      EXPECT_EQ(runs(b.geometric(w, PS_USERSTYLE, PS_ENDCAP_FLAT, entries).line(20, 12, 390, 12).marks(), 12),
                pattern(20, flat))
          << style << " " << w;
    }
  }
}

TEST(Dashes, of_an_odd_list_exchange_on_and_off_in_every_second_round) {
  EXPECT_EQ(
      runs(Paper(400, 30).geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, {6, 3, 2}).line(20, 12, 390, 12).marks(), 12),
      pattern(20, {6, 3, 2}));
}

TEST(Dashes, of_length_nought_paint_nothing_with_flat_caps) {
  EXPECT_EQ(rows(Paper(90, 30).geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, {0, 4}).line(20, 12, 80, 12).marks()), "");
}

TEST(Dashes, run_on_through_a_polyline_and_restart_with_every_line) {
  const std::vector<DWORD> style{20, 10};
  Paper corner(60, 70);
  const Pixels p =
      corner.geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, style).polyline({{10, 10}, {35, 10}, {35, 60}}).marks();
  Pixels expected;
  for (int x = 10; x <= 29; x++) expected.merge(Pixels{{9, x}, {10, x}, {11, x}});
  for (int y = 15; y <= 59; y++) {
    if (y <= 34 || y >= 45) expected.merge(Pixels{{y, 34}, {y, 35}, {y, 36}});
  }
  EXPECT_EQ(rows(p), rows(expected));
  Paper chain(140, 30);
  chain.geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, style).line(10, 10, 25, 10).line(25, 10, 60, 10);
  EXPECT_EQ(runs(chain.line(60, 10, 120, 10).marks(), 10), "10: 35 10 25 10");
  Paper straight(140, 30);
  straight.geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, style).polyline({{10, 10}, {25, 10}, {60, 10}, {120, 10}});
  EXPECT_EQ(runs(straight.marks(), 10), "10: 20 10 20 10 20 10");
}

TEST(Dashes, of_a_polygon_start_at_its_first_point_and_run_around) {
  Paper paper(70, 50);
  paper.geometric(1, PS_USERSTYLE, PS_ENDCAP_FLAT, {20, 10});
  const Pixels p = paper.polygon({{10, 10}, {55, 10}, {55, 40}, {10, 40}}).marks();
  std::string tall = "10: 10-29 40-55; 11: 55; 12: 55; 13: 55; 14: 55; 21: 10; 22: 10; 23: 10; 24: 10";
  for (int y = 25; y < 40; y++) tall += "; " + std::to_string(y) + ": 10 55";
  EXPECT_EQ(rows(p), tall + "; 40: 10 21-40 51-55");
}

TEST(Dashes, of_one_pixel_count_steps_and_of_more_true_lengths_on_a_slope) {
  const Pixels thin = Paper(90, 90).geometric(1, PS_USERSTYLE, PS_ENDCAP_FLAT, {20, 10}).line(10, 10, 70, 70).marks();
  for (int i = 0; i < 60; i++) EXPECT_EQ(thin.count({10 + i, 10 + i}), i % 30 < 20 ? 1u : 0u) << i;
  const Pixels wide = Paper(90, 90).geometric(3, PS_USERSTYLE, PS_ENDCAP_FLAT, {20, 10}).line(10, 10, 70, 70).marks();
  for (int i = 0; i <= 58; i++) { /* dashes at lengths 0..19, 29..49, 59..78 */
    const double length = i * std::sqrt(2.0);
    const bool on = std::fmod(length, 30) < 20;
    const double toEdge =
        std::min({std::fmod(length, 30), std::fabs(std::fmod(length, 30) - 20), 30 - std::fmod(length, 30)});
    if (toEdge <= 1.5) continue;
    EXPECT_EQ(wide.count({10 + i, 10 + i}), on ? 1u : 0u) << i;
  }
}

TEST(Dashes, of_cosmetic_pens_have_fixed_lengths_and_an_opaque_background) {
  const std::vector<int> lengths[] = {{18, 6}, {3, 3}, {9, 6, 3, 6}, {9, 3, 3, 3, 3, 3}};
  for (DWORD style : {PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT}) {
    for (int width : {0, 1}) {
      Paper paper(400, 30);
      paper.plain(width).pen.style = style;
      paper.state.bkColor = 0x0000FF;
      const int mode = width ? OPAQUE : TRANSPARENT;
      paper.state.bkMode = mode;
      paper.line(20, 12, 390, 12);
      EXPECT_EQ(runs(paper.marks(0), 12), pattern(20, lengths[style - PS_DASH]));
      EXPECT_EQ(paper.marks(0xFF0000).empty(), mode == TRANSPARENT);
      EXPECT_EQ(paper.marks().size(), mode == OPAQUE ? 370u : paper.marks(0).size());
    }
    Paper wide(400, 30);
    wide.plain(2).pen.style = style; /* such a pen of two pixels or more is solid */
    EXPECT_EQ(wide.line(20, 12, 200, 12).marks().size(), 364u);
    Paper gaps(400, 30);
    gaps.geometric(1, style).state.bkColor = 0x0000FF;
    EXPECT_TRUE(gaps.line(20, 12, 390, 12).marks(0xFF0000).empty());
  }
  Paper user(400, 30);
  user.geometric(1, PS_USERSTYLE, 0, {4, 2}).pen.geometric = false;
  user.state.bkMode = TRANSPARENT;
  EXPECT_EQ(runs(user.line(20, 12, 390, 12).marks(), 12), pattern(20, {12, 6}));
}

TEST(Dashes, of_a_line_of_any_length_keep_their_step) {
  Paper paper(60, 10);
  paper.geometric(1, PS_USERSTYLE, 0, {4, 2}).line(-600000006, 5, 2000000000, 5);
  EXPECT_EQ(runs(paper.marks(), 5), pattern(0, {4, 2}));
  Paper wide(90, 10);
  wide.geometric(2, PS_USERSTYLE, PS_ENDCAP_FLAT, {4, 2}).line(-600000006, 5, 2000000000, 5);
  EXPECT_EQ(runs(wide.marks(), 5), pattern(0, {4, 2}));
}

TEST(NullPen, paints_nothing) { EXPECT_EQ(rows(Paper(20, 20).noPen().line(1, 1, 9, 9).marks()), ""); }

}  // namespace
}  // namespace pn10::test
