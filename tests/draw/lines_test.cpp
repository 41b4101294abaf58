/** Line styles: dash patterns, pens, styled segments and arcs, worked out by hand. */
#include "draw/lines.h"

#include <algorithm>
#include <cmath>

#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

std::vector<uint32_t> pattern(int16_t style, int32_t width) {
  uint32_t lengths[8];
  int32_t count = -1;
  EXPECT_EQ(DashPattern(style, width, lengths, &count), 0);
  return {lengths, lengths + count};
}

using Lengths = std::vector<uint32_t>;

TEST(DashPattern, every_row_at_width_1_and_3) {
  EXPECT_EQ(pattern(7, 1), (Lengths{2, 2, 1, 2, 1, 2, 1, 2}));
  EXPECT_EQ(pattern(7, 3), (Lengths{6, 6, 1, 6, 1, 6, 1, 6}));
  EXPECT_EQ(pattern(16, 1), (Lengths{4, 2}));
  EXPECT_EQ(pattern(16, 3), (Lengths{12, 6}));
  EXPECT_EQ(pattern(17, 3), (Lengths{12, 6, 1, 6}));
  EXPECT_EQ(pattern(18, 3), (Lengths{12, 6, 1, 6, 1, 6}));
  EXPECT_EQ(pattern(19, 3), (Lengths{12, 6, 1, 6, 1, 6, 1, 6}));
  EXPECT_EQ(pattern(20, 3), (Lengths{12, 6, 1, 6, 6, 6, 1, 6}));
  EXPECT_EQ(pattern(22, 3), (Lengths{6, 6, 6, 6, 1, 6}));
}

TEST(DashPattern, other_styles_have_none) {
  for (int style : {-32768, -16, -7, 0, 1, 5, 6, 8, 10, 15, 21, 23, 32767}) {
    EXPECT_TRUE(pattern(static_cast<int16_t>(style), 3).empty()) << style;
  }
}

TEST(MakeStylePen, a_number_without_a_meaning_reaches_the_platform_as_it_is) {
  Picture p;
  EXPECT_EQ(MakeStylePen(0, 1, 0), nullptr); /* 0xFFFFFFFF is no style */
  EXPECT_EQ(MakeStylePen(9, 1, 0), nullptr); /* 0x10008 neither */
  const std::string log = recorded([] { DeleteObject(MakeStylePen(6, 1, 0)); });
  EXPECT_NE(log.find("ExtCreatePen pen(0x10005,1,0x000000)"), std::string::npos) << log; /* paints nothing */
  for (int style = -32768; style <= 32767; style += 7) {
    if (HPEN pen = MakeStylePen(static_cast<int16_t>(style), -5, -1)) DeleteObject(pen);
  }
}

int64_t count(const std::string& log, const char* op) {
  const std::string lines = only(log, {op});
  return std::count(lines.begin(), lines.end(), '\n');
}

std::string along5(int16_t style) { /* 5 spacings of 4 from (20.0625, 100) */
  return recorded([=] { DrawStyledSegment(style, 4, 20.0625, 100, 40.0625, 100); });
}

TEST(DrawStyledSegment, repeats_of_a_segment_of_five_spacings) {
  Picture p;
  EXPECT_EQ(count(along5(1), "LineTo"), 1);
  EXPECT_EQ(count(along5(11), "LineTo"), 6);
  EXPECT_EQ(count(along5(21), "LineTo"), 6);
  EXPECT_EQ(count(along5(12), "LineTo"), 7); /* three crosses, not four */
  EXPECT_EQ(count(along5(13), "LineTo"), 6);
  EXPECT_EQ(count(along5(14), "LineTo"), 6);
  EXPECT_EQ(count(along5(15), "Ellipse"), 5);
}

TEST(DrawStyledSegment, a_repeat_begins_where_its_share_of_the_segment_fits) {
  Picture p;
  struct {
    int16_t style;
    double length; /* of spacings of 4: the shortest with its count, and one a little shorter */
    int marks;
    double shorter;
  } rows[] = {{11, 18, 5, 17.98}, {21, 18, 5, 17.98}, {13, 18, 5, 17.98},
              {14, 18, 5, 17.98}, {12, 16, 6, 15.98}, {15, 20.02, 5, 19.98}};
  for (auto& r : rows) {
    const auto marks = [&](double length) {
      const std::string log = recorded([&] { DrawStyledSegment(r.style, 4, 20, 100, 20 + length, 100); });
      return count(log, r.style == 15 ? "Ellipse" : "LineTo") - (r.style == 15 ? 0 : 1);
    };
    EXPECT_EQ(marks(r.length), r.marks) << r.style;
    EXPECT_EQ(marks(r.shorter), 4) << r.style; /* of style 12 two crosses */
  }
}

TEST(DrawStyledSegment, first_strokes_by_hand) {
  Picture p; /* 1 spacing = 40 units, 0.667 of it = 26.68; the line lies at device y 1000 */
  const auto second = [](const std::string& log) {
    size_t at = log.find('\n', log.find('\n') + 1) + 1;
    return log.substr(at, log.find('\n', log.find('\n', at) + 1) - at);
  };
  EXPECT_EQ(second(along5(11)), "MoveToEx 200 1026\nLineTo 240 973");
  EXPECT_EQ(second(along5(21)), "MoveToEx 200 973\nLineTo 240 1026");
  EXPECT_EQ(second(along5(14)), "MoveToEx 220 1026\nLineTo 220 973");
}

TEST(DrawStyledSegment, circles_of_two_units_leave_only_the_line) {
  Picture p;
  const std::string log = recorded([] { DrawStyledSegment(15, 0.3f, 20, 100, 40, 100); }); /* radius 0.999 units */
  EXPECT_EQ(log, "MoveToEx 200 1000\nLineTo 400 1000\n");
}

TEST(DrawStyledSegment, a_segment_without_length_is_still_a_line) {
  Picture p;
  for (int16_t style : {int16_t{11}, int16_t{12}, int16_t{13}, int16_t{14}, int16_t{15}, int16_t{21}}) {
    EXPECT_EQ(recorded([=] { DrawStyledSegment(style, 4, 20, 100, 20, 100); }), "MoveToEx 200 1000\nLineTo 200 1000\n");
  }
}

TEST(DrawStyledSegment, a_spacing_of_nothing_counts_as_1) {
  Picture p;
  for (float spacing : {0.0f, -3.0f, NAN}) {
    EXPECT_EQ(recorded([=] { DrawStyledSegment(14, spacing, 20, 100, 24, 100); }),
              recorded([=] { DrawStyledSegment(14, 1, 20, 100, 24, 100); }));
  }
}

TEST(DrawStyledSegment, a_tiny_spacing_ends_all_the_same) {
  Picture p;
  DrawStyledSegment(12, 1e-30f, -1e300, 0, 1e300, 0);
  DrawStyledSegment(11, 1, NAN, 0, INFINITY, 0);
}

TEST(DrawStyledSegment, a_negative_style_is_a_plain_line) {
  Picture p;
  EXPECT_EQ(along5(-11), along5(1));
}

int64_t chords(float radius, float start, float end) {
  return count(recorded([=] { DrawArcPoly(0, radius, start, end, 0, 100, 100, 0); }), "LineTo");
}

TEST(DrawArcPoly, a_full_circle_has_360_steps) {
  Picture p;
  EXPECT_EQ(chords(20, 0, 6.2831855f), 360);
}

TEST(DrawArcPoly, between_equal_angles_is_a_point) {
  Picture p;
  EXPECT_EQ(recorded([] { DrawArcPoly(0, 20.01f, 0, 0, 0, 100, 100.05, 0); }), "MoveToEx 1200 999\nLineTo 1200 999\n");
}

TEST(DrawArcPoly, from_350_to_10_degrees_runs_through_east_in_20_steps) {
  Picture p; /* degrees of 0.017453292: (6.28318548 - 6.10865211 + 0.17453292) / 0.017453292 = 20.00003 */
  EXPECT_EQ(chords(20, 350 * 0.017453292f, 10 * 0.017453292f), 20);
}

TEST(DrawArcPoly, a_shortest_chord_of_ten_degrees_makes_36_sides) {
  Picture p;
  drawState.MinChord = 10 * 8 * 0.017453292f;
  EXPECT_EQ(chords(8, 0, 6.2831855f), 36);
}

TEST(DrawArcPoly, with_the_clip_flag_one_visible_end_is_enough) {
  Picture p;
  const auto log = [](float end) { return recorded([=] { DrawArcPoly(0, 90, 0.5f, end, 1, 150, 100, 0); }); };
  EXPECT_EQ(log(0.6f), "");
  EXPECT_NE(log(3), "");
}

TEST(DrawArcPoly, is_laid_on_the_ground_in_the_isometric_and_the_geographic_view_only) {
  const auto log = [](int16_t projection, int16_t iso, int16_t project) {
    Picture p(projection, iso);
    return recorded([=] { DrawArcPoly(3, 5, 1, 2, 0, 60, 55, project); });
  };
  const std::string plain = log(0, 0, 0);
  EXPECT_EQ(log(0, 0, 1), plain);
  EXPECT_EQ(log(2, 1, 1), plain);
  EXPECT_NE(log(0, 1, 1), plain);
  EXPECT_NE(log(1, 0, 1), plain);
  EXPECT_EQ(log(0, 1, 0), plain);
  EXPECT_EQ(log(1, 0, 0), plain);
}

TEST(DrawArcPoly, the_clip_flag_looks_at_the_ends_as_they_are_painted) {
  Picture p(0, 1); /* (150, 150) leans to X 259.8, beyond the window of 200 */
  EXPECT_EQ(recorded([] { DrawArcPoly(0, 5, 1, 2, 1, 150, 150, 1); }), "");
  EXPECT_NE(recorded([] { DrawArcPoly(0, 5, 1, 2, 1, 150, 150, 0); }), "");
}

TEST(DrawArcPoly, sizes_and_angles_beyond_all_bounds_end) {
  Picture p;
  drawState.MinChord = 1;
  for (float v : {0.0f, -5.0f, 1e-30f, 1e30f, NAN, INFINITY, -INFINITY}) {
    DrawArcPoly(v, 5, 0, 1, 1, 10, 10, 1);
    DrawArcPoly(0, v, 0, 1, 0, 10, 10, 0);
    DrawArcPoly(0, 5, v, 1, 0, 10, 10, 0);
    DrawArcPoly(0, 5, 0, v, 0, 10, 10, 0);
    DrawArrowHead(v, 5, 3, v, v);
  }
}

}  // namespace
