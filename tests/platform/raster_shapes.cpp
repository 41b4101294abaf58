/** Shapes and paths: polygons, ellipses, pies, what is filled, and what a clip leaves of them. */
#include <gtest/gtest.h>

#include "platform/raster_paper.h"

namespace pn10::test {
namespace {

TEST(Polygon, is_filled_to_its_left_and_top_edges_and_not_to_the_others) {
  struct {
    std::vector<POINT> points;
    const char* pixels;
  } table[] = {{{{3, 3}, {13, 3}, {13, 9}, {3, 9}}, "3: 3-12; 4: 3-12; 5: 3-12; 6: 3-12; 7: 3-12; 8: 3-12"},
               {{{3, 3}, {15, 6}, {6, 12}}, "4: 4-6; 5: 4-10; 6: 4-14; 7: 5-13; 8: 5-11; 9: 5-10; 10: 6-8; 11: 6-7"},
               {{{8, 2}, {14, 8}, {8, 14}, {2, 8}},
                "3: 7-8; 4: 6-9; 5: 5-10; 6: 4-11; 7: 3-12; 8: 2-13; 9: 3-12; 10: 4-11; 11: 5-10; 12: 6-9; 13: 7-8"},
               {{{3, 3}, {15, 11}, {15, 3}, {3, 11}},
                "4: 3-4 14; 5: 3-5 12-14; 6: 3-7 11-14; 7: 3-14; 8: 3-7 11-14; 9: 3-5 12-14; 10: 3-4 14"},
               {{{3, 3}, {11, 3}, {7, 3}}, ""}};
  for (const auto& t : table) EXPECT_EQ(rows(Paper(30, 30).noPen().fill().polygon(t.points).marks()), t.pixels);
}

TEST(Polygon, has_the_closed_chain_as_its_outline) {
  const std::vector<POINT> box{{3, 3}, {13, 3}, {13, 9}, {3, 9}}, closed{{3, 3}, {13, 3}, {13, 9}, {3, 9}, {3, 3}};
  std::string sides = "3: 3-13";
  for (int y = 4; y < 9; y++) sides += "; " + std::to_string(y) + ": 3 13";
  EXPECT_EQ(rows(Paper(20, 20).plain(1).polygon(box).marks()), sides + "; 9: 3-13");
  EXPECT_EQ(rows(Paper(20, 20).geometric(1).polygon(closed).marks()), sides + "; 9: 3-13");
  EXPECT_EQ(rows(Paper(20, 20).plain(1).polygon({{3, 3}, {11, 3}, {7, 3}}).marks()), "3: 3-11");
  EXPECT_EQ(rows(Paper(20, 20).plain(1).polygon({{3, 3}, {6, 6}}).marks()), "3: 3; 4: 4; 5: 5; 6: 6");
  EXPECT_EQ(rows(Paper(20, 20).plain(1).fill().polygon({{3, 3}}).marks()), "");
}

TEST(Polygon, keeps_its_fill_under_a_wide_outline) {
  Paper paper(20, 20);
  paper.geometric(3).fill(0x0000FF).polygon({{3, 3}, {13, 3}, {13, 9}, {3, 9}});
  EXPECT_EQ(rows(paper.marks(0xFF0000)), "5: 5-11; 6: 5-11; 7: 5-11");
  EXPECT_EQ(rows(paper.marks()), "2: 3-13; 3: 2-14; 4: 2-14; 5: 2-14; 6: 2-14; 7: 2-14; 8: 2-14; 9: 2-14; 10: 3-13");
}

TEST(Polygon, leaves_the_middle_of_a_pentagram_empty_unless_winding) {
  const std::vector<POINT> star{{12, 2}, {18, 20}, {3, 9}, {21, 9}, {6, 20}};
  Paper alternate(30, 30), winding(30, 30);
  EXPECT_FALSE(alternate.noPen().fill().polygon(star).marks().count({12, 12}));
  winding.state.fillMode = WINDING;
  EXPECT_TRUE(winding.noPen().fill().polygon(star).marks().count({12, 12}));
}

TEST(Polygon, of_many_sides_or_any_coordinates_is_filled_alike) {
  std::vector<POINT> comb; /* 300 teeth one column wide and apart */
  for (int i = 0; i < 300; i++) {
    for (const POINT p : {POINT{2 * i, 5}, {2 * i, 1}, {2 * i + 1, 1}, {2 * i + 1, 5}}) comb.push_back(p);
  }
  const Pixels marks = Paper(700, 10).noPen().fill().polygon(comb).marks();
  EXPECT_EQ(marks.size(), 1200u);
  EXPECT_TRUE(marks.count({1, 598}) && !marks.count({1, 599}));
  Paper huge(40, 30);
  huge.noPen().fill().polygon({{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, INT32_MAX}});
  /* the side from the upper left to the lower right corner is x = y: right of it is inside */
  for (int y = 0; y < 30; y++) EXPECT_EQ(huge.marks().count({y, 20}), y <= 20 ? 1u : 0u) << y;
}

TEST(Ellipse, has_right_and_bottom_exclusive) {
  struct {
    int size;
    const char* pixels;
  } table[] = {{0, ""},
               {1, ""},
               {2, "4: 4-5; 5: 4-5"},
               {3, "4: 5; 5: 4 6; 6: 5"},
               {4, "4: 5-6; 5: 4 7; 6: 4 7; 7: 5-6"},
               {5, "4: 5-7; 5: 4 8; 6: 4 8; 7: 4 8; 8: 5-7"},
               {6, "4: 6-7; 5: 5 8; 6: 4 9; 7: 4 9; 8: 5 8; 9: 6-7"},
               {7, "4: 6-8; 5: 5 9; 6: 4 10; 7: 4 10; 8: 4 10; 9: 5 9; 10: 6-8"},
               {8, "4: 6-9; 5: 5 10; 6: 4 11; 7: 4 11; 8: 4 11; 9: 4 11; 10: 5 10; 11: 6-9"},
               {9, "4: 7-9; 5: 5-6 10-11; 6: 5 11; 7: 4 12; 8: 4 12; 9: 4 12; 10: 5 11; 11: 5-6 10-11; 12: 7-9"}};
  for (const auto& t : table) {
    EXPECT_EQ(rows(Paper(20, 20).plain(1).ellipse(4, 4, 4 + t.size, 4 + t.size).marks()), t.pixels) << t.size;
    EXPECT_EQ(rows(Paper(20, 20).geometric(1).ellipse(4, 4, 4 + t.size, 4 + t.size).marks()), t.pixels) << t.size;
  }
  EXPECT_EQ(rows(Paper(20, 20).ellipse(2, 2, 14, 14).marks()),
            "2: 6-9; 3: 4-5 10-11; 4: 3 12; 5: 3 12; 6: 2 13; 7: 2 13; 8: 2 13; 9: 2 13; 10: 3 12; 11: 3 12; "
            "12: 4-5 10-11; 13: 6-9");
  EXPECT_EQ(rows(Paper(22, 20).ellipse(2, 2, 20, 9).marks()),
            "2: 7-14; 3: 4-6 15-17; 4: 3 18; 5: 2 19; 6: 3 18; 7: 4-6 15-17; 8: 7-14");
  EXPECT_EQ(rows(Paper(20, 20).ellipse(5, 5, 6, 9).marks()), "5: 5; 6: 5; 7: 5; 8: 5");
}

TEST(Ellipse, is_filled_up_to_and_including_its_outline) {
  EXPECT_EQ(rows(Paper(20, 20).noPen().fill().ellipse(4, 4, 9, 9).marks()), "4: 5-7; 5: 4-8; 6: 4-8; 7: 4-8; 8: 5-7");
  EXPECT_EQ(rows(Paper(20, 20).noPen().fill().ellipse(4, 4, 7, 7).marks()), "4: 5; 5: 4-6; 6: 5");
  EXPECT_EQ(rows(Paper(20, 20).noPen().fill().ellipse(4, 4, 6, 6).marks()), "4: 4"); /* as measured */
  Paper both(20, 20);
  both.plain(1).fill(0x0000FF).ellipse(4, 4, 9, 9);
  EXPECT_EQ(rows(both.marks(0xFF0000)), "5: 5-7; 6: 5-7; 7: 5-7");
}

TEST(Ellipse, centres_a_wide_pen_on_its_outline) {
  struct {
    int width, first, last;
  } table[] = {{1, 10, 29}, {2, 9, 29}, {3, 9, 30}, {4, 8, 30}, {5, 8, 31}, {7, 7, 32}, {10, 5, 33}};
  for (const auto& t : table) {
    for (const bool round : {true, false}) { /* a circle, and one that is a little higher than wide */
      Paper paper(50, 60);
      const Pixels p = paper.plain(t.width).ellipse(10, 10, 30, round ? 30 : 40).marks();
      int left = 99, right = 0;
      for (const auto& [y, x] : p) left = std::min(left, x), right = std::max(right, x);
      EXPECT_EQ(left, t.first) << t.width;
      EXPECT_EQ(right, t.last) << t.width;
      EXPECT_EQ(p.begin()->first, t.first) << t.width;
      EXPECT_EQ(p.rbegin()->first, t.last + (round ? 0 : 10)) << t.width;
      const int middle = round ? 19 : 24; /* level with the middle the outline is upright */
      const auto thick = std::count_if(p.begin(), p.end(), [&](auto q) { return q.first == middle; });
      EXPECT_EQ(thick, 2 * t.width) << t.width;
    }
  }
  Paper inside(50, 50);
  inside.plain(5).pen.style = PS_INSIDEFRAME;
  const Pixels framed = inside.ellipse(10, 10, 30, 30).marks();
  EXPECT_EQ(framed.begin()->first, 10);
  EXPECT_EQ(framed.rbegin()->first, 29);
}

TEST(Ellipse, of_absurd_size_shows_its_edge_where_it_crosses_the_raster) {
  Paper paper(40, 30);
  paper.ellipse(10, INT32_MIN, INT32_MAX, INT32_MAX); /* its left end is at column 10, upright over the raster */
  EXPECT_EQ(paper.marks().size(), 30u);
  EXPECT_TRUE(paper.marks().count({15, 10}));
  Paper filled(40, 30);
  filled.noPen().fill().ellipse(INT32_MIN, INT32_MIN, INT32_MAX, 12);
  EXPECT_TRUE(filled.marks().count({11, 0}) && !filled.marks().count({12, 0}));
  Paper wide(40, 30);
  wide.plain(9).ellipse(20, -1000000000, 2000000020, 1000000000);
  EXPECT_EQ(wide.marks().size(), 270u);
}

/** The smallest box around marks: left, top, right, bottom. */
std::vector<int> bounds(const Pixels& p) {
  int left = 999, right = -1;
  for (const auto& [y, x] : p) left = std::min(left, x), right = std::max(right, x);
  return p.empty() ? std::vector<int>{} : std::vector<int>{left, p.begin()->first, right, p.rbegin()->first};
}

TEST(Pie, is_the_piece_between_its_radials_counter_clockwise_unless_told) {
  const RECT box{2, 2, 22, 22};
  struct {
    POINT from, to;
    bool clockwise;
    std::vector<int> bounds;
  } table[] = {{{22, 12}, {12, 2}, false, {12, 2, 21, 12}},
               {{12, 2}, {22, 12}, false, {2, 2, 21, 21}},
               {{22, 12}, {2, 12}, false, {2, 2, 21, 12}},
               {{22, 12}, {12, 2}, true, {2, 2, 21, 21}},
               {{1000, 12}, {12, -5000}, false, {12, 2, 21, 12}}};
  for (const auto& t : table) {
    Paper paper(26, 26);
    paper.painter->pie(paper.state, {box, t.from, t.to, t.clockwise});
    EXPECT_EQ(bounds(paper.marks()), t.bounds) << t.from.x << " " << t.to.x;
  }
  Paper half(26, 26);
  half.painter->pie(half.state, {box, {22, 12}, {2, 12}, false});
  for (int x = 2; x <= 21; x++) EXPECT_TRUE(half.marks().count({12, x})) << x; /* its flat side is flat */
}

TEST(Pie, lies_near_the_measured_one) {
  Paper small(12, 12);
  small.fill(0x0000FF).painter->pie(small.state, {{2, 2, 7, 7}, {7, 4}, {2, 4}, false});
  EXPECT_LE(distance(small.marks(), parseRows("2: 3-5; 3: 2-6; 4: 4-6")), 2.0);
  Paper quarter(26, 26);
  quarter.painter->pie(quarter.state, {{2, 2, 22, 22}, {22, 12}, {12, 2}, false});
  EXPECT_LE(distance(quarter.marks(), parseRows("2: 13-14; 3: 13 15-16; 4: 13 17; 5: 13 18; 6: 13 19; 7: 12 20; "
                                                "8: 12 20; 9: 12 21; 10: 12 21; 11: 12 17-21; 12: 12-16")),
            2.0);
}

TEST(Pie, with_equal_radials_is_the_whole_ellipse_and_one_radial) {
  Paper paper(26, 26);
  paper.fill(0x0000FF).painter->pie(paper.state, {{2, 2, 22, 22}, {22, 12}, {22, 12}, false});
  EXPECT_EQ(bounds(paper.marks()), (std::vector<int>{2, 2, 21, 21}));
  for (int x = 12; x <= 21; x++) EXPECT_EQ(paper.at(x, 12), 0u) << x;
  EXPECT_EQ(paper.at(6, 12), 0xFF0000u);
}

TEST(Pie, of_any_box_ends) {
  for (const RECT& box : {RECT{5, 5, 6, 6}, RECT{5, 5, 6, 20}, RECT{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}}) {
    for (int width : {1, 3}) {
      Paper paper(26, 26);
      paper.plain(width).fill().painter->pie(paper.state, {box, {5, 5}, {5, 5}, true});
      paper.painter->pie(paper.state, {box, {INT32_MAX, INT32_MIN}, {INT32_MIN, 0}, false});
    }
  }
}

/** A figure of lines and of curves (three points each, marked by a first curve point). */
PathFigure figureOf(POINT start, const std::vector<POINT>& points, bool closed) {
  PathFigure f{double(start.x), double(start.y), {}, closed};
  for (const POINT& p : points) f.pieces.push_back({false, 0, 0, 0, 0, double(p.x), double(p.y)});
  return f;
}

TEST(Path, is_closed_for_fill_and_stroke_together_but_not_for_the_stroke_alone) {
  const Path path{figureOf({3, 3}, {{13, 3}, {13, 9}, {3, 9}}, false)};
  Paper stroked(20, 20), both(20, 20), filled(20, 20);
  stroked.painter->path(stroked.state, path, true, false);
  EXPECT_EQ(rows(stroked.marks()), "3: 3-13; 4: 13; 5: 13; 6: 13; 7: 13; 8: 13; 9: 4-13");
  both.fill(0x0000FF).painter->path(both.state, path, true, true);
  EXPECT_EQ(rows(both.marks(0)), "3: 3-13; 4: 3 13; 5: 3 13; 6: 3 13; 7: 3 13; 8: 3 13; 9: 3-13");
  EXPECT_EQ(rows(both.marks(0xFF0000)), "4: 4-12; 5: 4-12; 6: 4-12; 7: 4-12; 8: 4-12");
  filled.fill().painter->path(filled.state, path, false, true);
  EXPECT_EQ(rows(filled.marks()), "3: 3-12; 4: 3-12; 5: 3-12; 6: 3-12; 7: 3-12; 8: 3-12");
}

TEST(Path, fills_its_figures_together) {
  const Path path{figureOf({2, 2}, {{18, 2}, {18, 18}, {2, 18}}, true),
                  figureOf({6, 6}, {{14, 6}, {14, 14}, {6, 14}}, true)};
  Paper paper(20, 20);
  paper.noPen().fill().painter->path(paper.state, path, false, true);
  EXPECT_EQ(paper.marks().size(), 16u * 16 - 8 * 8);
}

TEST(Path, survives_what_is_no_number) {
  Paper paper(20, 20);
  Path path{figureOf({3, 3}, {{13, 3}}, true)};
  path[0].pieces.push_back({true, NAN, INFINITY, -INFINITY, 1e300, -1e300, NAN});
  for (int width : {1, 4}) {
    paper.geometric(width).fill().painter->path(paper.state, path, true, true);
    paper.geometric(width, PS_DASH).painter->path(paper.state, path, true, false);
  }
  paper.painter->path(paper.state, {}, true, true);
}

/** The elbow fitting: outer arc clockwise, step in, inner arc back; points as they are in the path. */
Path elbow() {
  PathFigure f{5, 10, {}, false};
  f.pieces.push_back({true, 21, 10, 34, 23, 34, 40});
  f.pieces.push_back({false, 0, 0, 0, 0, 25, 40});
  f.pieces.push_back({false, 0, 0, 0, 0, 24, 40});
  f.pieces.push_back({true, 24, 29, 15, 20, 5, 20});
  f.pieces.push_back({false, 0, 0, 0, 0, 5, 10});
  return {f};
}

TEST(Path, of_an_elbow_has_the_measured_extent) {
  Paper thin(46, 46), wide(46, 46);
  thin.fill(0x0000FF).painter->path(thin.state, elbow(), true, true);
  EXPECT_EQ(bounds(thin.marks()), (std::vector<int>{5, 10, 34, 40}));
  wide.geometric(3).painter->path(wide.state, elbow(), true, true);
  EXPECT_EQ(bounds(wide.marks()), (std::vector<int>{4, 9, 35, 41}));
}

TEST(Clip, hides_pixels_and_is_half_open) {
  Paper paper(30, 30);
  paper.state.clip = {5, 6, 20, 15};
  paper.noPen().fill().polygon({{0, 0}, {30, 0}, {30, 30}, {0, 30}});
  EXPECT_EQ(bounds(paper.marks()), (std::vector<int>{5, 6, 19, 14}));
  EXPECT_EQ(paper.marks().size(), 135u);
  Paper empty(30, 30);
  empty.state.clip = {9, 9, 9, 9};
  empty.plain(5).fill().ellipse(2, 2, 28, 28).line(0, 0, 29, 29).polygon({{0, 0}, {30, 0}, {30, 30}});
  empty.painter->pie(empty.state, {{2, 2, 22, 22}, {22, 12}, {12, 2}, false});
  EXPECT_TRUE(empty.marks().empty());
}

TEST(Clip, cuts_every_kind_of_mark_without_changing_it) {
  const auto paint = [](Paper& p) {
    p.geometric(5, PS_DASHDOT).fill(0x00FF00).ellipse(-20, 5, 70, 50).polygon({{-30, 2}, {50, 30}, {80, 90}});
    p.geometric(1).line(-50, -3, 100, 55);
    p.geometric(7).ellipse(5, 5, 45, 45).polyline({{-9, 40}, {30, 10}, {70, 60}});
    p.painter->pie(p.state, {{4, 8, 60, 44}, {60, 0}, {0, 9}, true});
    p.painter->path(p.state, elbow(), true, true);
  };
  Paper whole(60, 60), part(60, 60);
  part.state.clip = {13, 9, 41, 37};
  paint(whole);
  paint(part);
  for (int y = 0; y < 60; y++) {
    for (int x = 0; x < 60; x++) {
      const bool inside = x >= 13 && x < 41 && y >= 9 && y < 37;
      EXPECT_EQ(part.at(x, y), inside ? whole.at(x, y) : Paper::kWhite) << x << " " << y;
    }
  }
}

}  // namespace
}  // namespace pn10::test
