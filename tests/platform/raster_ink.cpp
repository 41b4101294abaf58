/** What painting does to what lies below: operations, colours, hatches. */
#include <gtest/gtest.h>

#include "platform/raster_paper.h"

namespace pn10::test {
namespace {

TEST(Operation, combines_bit_by_bit_for_every_kind_of_mark) {
  const uint32_t below[] = {0xFFFFFF, 0x000000, 0x7F8081, 0x123456, 0xFF8040};
  const COLORREF pens[] = {0x0000FF, 0xC04080, 0x000000, 0xFFFFFF};
  for (uint32_t d : below) {
    for (COLORREF color : pens) {
      const uint32_t expected = d & paintedColor(color);
      Paper paper(40, 40);
      paper.clear(d);
      paper.state.rop2 = R2_MASKPEN;
      paper.plain(1).pen.color = color;
      paper.line(1, 1, 9, 1);
      paper.geometric(5).pen.color = color;
      paper.line(6, 8, 20, 8);
      paper.noPen().fill(color).ellipse(22, 2, 34, 14).polygon({{2, 20}, {20, 20}, {20, 34}, {2, 34}});
      EXPECT_EQ(paper.at(5, 1), expected);
      EXPECT_EQ(paper.at(10, 8), expected);
      EXPECT_EQ(paper.at(28, 8), expected);
      EXPECT_EQ(paper.at(10, 30), expected);
    }
  }
  Paper sample(4, 4);
  sample.clear(0x7F8081);
  sample.state.rop2 = R2_MASKPEN;
  sample.pen.color = 0xC04080; /* blue C0, green 40, red 80 */
  EXPECT_EQ(sample.line(0, 0, 3, 0).at(0, 0), 0x000080u);
}

TEST(Operation, of_all_sixteen_codes_follows_its_truth_table) {
  const uint32_t d = 0x3C5A99, p = 0x0FF0A5;
  const uint32_t expected[16] = {0,     ~(d | p), d & ~p, ~p,     p & ~d, ~d,     d ^ p, ~(d & p),
                                 d & p, ~(d ^ p), d,      d | ~p, p,      p | ~d, d | p, 0xFFFFFF};
  for (int rop = R2_BLACK; rop <= R2_WHITE; rop++) {
    for (int width : {1, 3}) {
      Paper paper(20, 20);
      paper.clear(d);
      paper.state.rop2 = rop;
      paper.geometric(width).fill(0xA5F00F).pen.color = 0xA5F00F;
      paper.line(2, 9, 18, 9);
      EXPECT_EQ(paper.at(9, 9), expected[rop - 1] & 0xFFFFFF) << rop;
      paper.clear(d);
      paper.noPen().ellipse(2, 2, 18, 18);
      EXPECT_EQ(paper.at(9, 9), expected[rop - 1] & 0xFFFFFF) << rop;
    }
  }
}

TEST(Operation, combines_an_outline_with_the_fill_below_it) {
  Paper paper(30, 30);
  paper.clear(0);
  paper.state.rop2 = R2_XORPEN;
  paper.fill(0xFFFFFF).pen.color = 0xFFFFFF;
  paper.ellipse(4, 3, 16, 14); /* outline pixels are turned twice */
  EXPECT_EQ(paper.at(4, 8), 0u);
  EXPECT_EQ(paper.at(5, 8), 0xFFFFFFu);
  EXPECT_EQ(paper.at(10, 3), 0u);
  EXPECT_EQ(paper.at(10, 4), 0xFFFFFFu);
}

TEST(Color, has_palette_bits_in_its_high_byte) {
  struct {
    COLORREF color;
    uint32_t paints;
  } table[] = {{0x000000FF, 0xFF0000}, {0x0000FF00, 0x00FF00}, {0x00FF0000, 0x0000FF}, {0x02123456, 0x563412},
               {0x04000010, 0x100000}, {0x80FF8040, 0x4080FF}, {0x01000003, 0x808000}, {0xFFFFFFFF, 0},
               {0xFFFFFFFE, 0},        {0xFF0000FF, 0},        {0x03ABCDEF, 0}};
  for (const auto& t : table) EXPECT_EQ(paintedColor(t.color), t.paints) << std::hex << t.color;
}

TEST(Hatch, is_fixed_to_the_corner_of_the_device) {
  const auto set = [](int style, int x, int y) {
    x &= 7, y &= 7;
    switch (style) {
      case HS_HORIZONTAL:
        return y == 3;
      case HS_VERTICAL:
        return x == 4;
      case HS_FDIAGONAL:
        return x == y;
      case HS_BDIAGONAL:
        return x + y == 7;
      case HS_CROSS:
        return y == 3 || x == 4;
      case HS_DIAGCROSS:
        return x == y || x + y == 7;
      default:
        return true; /* numbers beyond the six are solid */
    }
  };
  for (int style = 0; style <= 7; style++) {
    for (int mode : {TRANSPARENT, OPAQUE}) {
      Paper paper(30, 30);
      paper.noPen().brush = {2, style, 0x0000FF};
      paper.state.bkMode = mode;
      paper.state.bkColor = 0x00FF00;
      paper.polygon({{3, 5}, {27, 5}, {27, 23}, {3, 23}});
      for (int y = 5; y < 23; y++) {
        for (int x = 3; x < 27; x++) {
          const uint32_t gap = mode == OPAQUE ? 0x00FF00 : Paper::kWhite;
          EXPECT_EQ(paper.at(x, y), set(style, x, y) ? 0xFF0000 : gap) << style << " " << x << " " << y;
        }
      }
      EXPECT_EQ(paper.at(2, 8), Paper::kWhite);
    }
  }
}

TEST(Hatch, under_an_operation_combines_its_lines_and_leaves_its_gaps) {
  Paper paper(16, 16);
  paper.clear(0x7F8081);
  paper.noPen().brush = {2, HS_CROSS, 0xC04080};
  paper.state.bkMode = TRANSPARENT;
  paper.state.rop2 = R2_MASKPEN;
  paper.ellipse(0, 0, 16, 16);
  EXPECT_EQ(paper.at(4, 6), 0x000080u);
  EXPECT_EQ(paper.at(5, 6), 0x7F8081u);
}

TEST(Brush, that_is_hollow_leaves_the_inside) {
  EXPECT_EQ(rows(Paper(20, 20).noPen().ellipse(2, 2, 12, 12).polygon({{1, 1}, {9, 1}, {9, 9}}).marks()), "");
}

}  // namespace
}  // namespace pn10::test
