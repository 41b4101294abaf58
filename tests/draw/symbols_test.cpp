/** DrawSymbol and DrawMark: sizes, limits and odd numbers, worked out by hand. */
#include "draw/symbols.h"

#include <cmath>

#include "draw/picture.h"

using namespace pn10;
using namespace pn10::test;

namespace {

std::string symbol(int16_t number, float size, float bearing = 0) {
  return recorded([=] { DrawSymbol(number, size, bearing, 50.05, 60.05); });
}
std::string mark(int16_t number, float size, float bearing = 0) {
  return recorded([=] { DrawMark(number, size, 0, bearing, 0, 50.05, 60.05); });
}

constexpr float kQuarter = 1.5707963f;

TEST(DrawSymbol, the_sun_does_not_turn) {
  Picture p;
  EXPECT_EQ(symbol(4, 20, kQuarter), symbol(4, 20));
}

TEST(DrawSymbol, a_disc_of_two_units_is_not_painted_and_one_of_three_is) {
  Picture p;                       /* the middle lies at device 500.5, 1399.5 */
  EXPECT_EQ(symbol(2, 0.26f), ""); /* 499.2 to 501.8: 499 to 501 */
  EXPECT_EQ(symbol(2, 0.32f), "Ellipse 498 1397 502 1401\n");
  EXPECT_EQ(recorded([] { DrawSymbol(2, 0.26f, 0, 50.08, 60.02); }), "Ellipse 499 1398 502 1401\n");
}

TEST(DrawSymbol, the_cross_of_symbol_16_comes_only_with_its_circle) {
  Picture p;
  EXPECT_EQ(symbol(16, 0.26f), "");
  EXPECT_EQ(symbol(16, 0.32f), "Ellipse 498 1397 502 1401\nMoveToEx 498 1397\nLineTo 502 1401\n");
}

TEST(DrawSymbol, the_rays_of_the_sun_come_without_its_disc) {
  Picture p;
  EXPECT_EQ(only(symbol(4, 0.4f), {"Ellipse"}), "");
  EXPECT_NE(only(symbol(4, 0.4f), {"LineTo"}), "");
}

TEST(DrawSymbol, a_pie_must_exceed_four_units) {
  Picture p;
  EXPECT_EQ(only(symbol(11, 0.4f), {"Pie"}), "");
  EXPECT_NE(only(symbol(11, 0.8f), {"Pie"}), "");
}

TEST(DrawSymbol, numbers_without_a_symbol_paint_nothing) {
  Picture p;
  for (int n : {0, 1, 8, 9, 17, 99, 100, 112, 32767, -1, -2, -3, -10, -101, -32768}) {
    EXPECT_EQ(symbol(static_cast<int16_t>(n), 20), "") << n;
  }
}

TEST(DrawMark, numbers_without_a_symbol_paint_nothing) {
  Picture p;
  for (int n : {0, 1, 8, 9, 17, 100, 112, 32767, -1, -8, -9, -12, -13, -112, -32768}) {
    EXPECT_EQ(mark(static_cast<int16_t>(n), 20), "") << n;
  }
}

TEST(DrawMark, a_negative_number_is_the_same_shape) {
  Picture p;
  EXPECT_EQ(mark(-3, 20), mark(3, 20));
  EXPECT_NE(mark(12, 20), "");
  EXPECT_EQ(mark(-12, 20), "");
}

TEST(DrawMark, has_no_disc_in_the_isometric_view_but_DrawSymbol_has) {
  Picture p(0, 1);
  EXPECT_EQ(mark(2, 20), "");
  EXPECT_EQ(mark(16, 20), "");
  EXPECT_EQ(only(mark(4, 20), {"Ellipse"}), "");
  EXPECT_NE(mark(4, 20), "");
  EXPECT_NE(symbol(2, 20), "");
}

TEST(DrawMark, a_triangle_points_along_the_bearing_where_DrawSymbol_points_to_its_left) {
  Picture p;
  EXPECT_TRUE(mark(5, 20).starts_with("Polygon 3 615 1399 ")) << mark(5, 20); /* 11.547 to the right */
  EXPECT_NE(symbol(5, 20).find(" 500 1299 "), std::string::npos);             /* 10 up */
}

TEST(DrawMark, symbols_11_and_101_differ_by_a_quarter_turn) {
  Picture p;
  EXPECT_EQ(symbol(101, 19.37f, 0.3f), symbol(11, 19.37f, 0.3f));
  EXPECT_EQ(mark(101, 19.37f, 0.3f), symbol(11, 19.37f, 0.3f));
  EXPECT_EQ(mark(11, 19.37f, 0.3f), symbol(11, 19.37f, 0.3f - kQuarter));
}

TEST(DrawMark, draws_its_circle_also_when_the_east_of_it_is_out_of_view) {
  Picture p; /* it begins at (209, 60), beyond the right border at 200 */
  const std::string log = recorded([] { DrawMark(110, 20, 0, 0, 0, 199, 60); });
  EXPECT_NE(log.find("MoveToEx 2090 1400\n"), std::string::npos) << log;
}

/** A kind of view: the projection and the iso flag. */
constexpr struct { int16_t projection, iso; } kPlainViews[] = {{1, 0}, {1, 1}, {2, 0}, {2, 1}};

TEST(DrawMark, has_the_same_shapes_in_every_view_but_the_isometric) {
  for (int n = -111; n <= 111; n++) {
    const auto shape = [&](int16_t projection, int16_t iso) {
      Picture p(projection, iso);
      return mark(static_cast<int16_t>(n), 19.37f, 0.7f);
    };
    for (auto& view : kPlainViews) EXPECT_EQ(shape(view.projection, view.iso), shape(0, 0)) << n;
  }
}

TEST(DrawSymbol, has_the_same_shapes_in_every_view) {
  for (int n = 1; n <= 111; n++) {
    const auto shape = [&](int16_t projection, int16_t iso) {
      Picture p(projection, iso);
      return symbol(static_cast<int16_t>(n), 19.37f, 0.7f);
    };
    EXPECT_EQ(shape(0, 1), shape(0, 0)) << n;
    for (auto& view : kPlainViews) EXPECT_EQ(shape(view.projection, view.iso), shape(0, 0)) << n;
  }
}

TEST(DrawMark, a_size_of_zero_or_beyond_all_bounds_is_harmless) {
  Picture p;
  for (int n = -120; n <= 120; n++) {
    for (float size : {0.0f, 1e30f, -1e30f, NAN, INFINITY}) {
      mark(static_cast<int16_t>(n), size, 1);
      symbol(static_cast<int16_t>(n), size, NAN);
    }
  }
  EXPECT_EQ(mark(3, 0), "Polygon 4 500 1399 500 1399 500 1399 500 1399\n");
}

}  // namespace
