/** Block transfers: operations, stretching, mirroring, sources and targets that reach beyond their rasters. */
#include <gtest/gtest.h>

#include "platform/raster_paper.h"

namespace pn10::test {
namespace {

/** A source whose pixel (x, y) holds y * 256 + x, so that a copy tells where it came from. */
class Numbered {
 public:
  Numbered(int width, int height) : pixels_(static_cast<size_t>(width * height)) {
    for (int y = 0; y < height; y++) {
      for (int x = 0; x < width; x++) pixels_[static_cast<size_t>(y * width + x)] = static_cast<uint32_t>(y * 256 + x);
    }
    raster = {pixels_.data(), width, height, width};
  }
  Raster raster;

 private:
  std::vector<uint32_t> pixels_;
};

Blit blit(const Raster& source, RECT target, RECT from, DWORD rop = SRCCOPY) {
  return {source,    target.left, target.top, target.right, target.bottom,
          from.left, from.top,    from.right, from.bottom,  rop};
}

/** What a row of `sourceWidth` columns becomes in `width` columns: the source columns, by stretch mode 3. */
std::vector<int> stretched(int sourceWidth, int width) {
  Numbered source(sourceWidth, 1);
  Paper paper(64, 4);
  paper.painter->blit(paper.state, blit(source.raster, {0, 0, width, 1}, {0, 0, sourceWidth, 1}));
  std::vector<int> columns;
  for (int x = 0; x < width; x++) columns.push_back(static_cast<int>(paper.at(x, 0)));
  return columns;
}

TEST(Stretch, takes_the_middle_when_growing_and_the_last_when_shrinking) {
  EXPECT_EQ(stretched(4, 10), (std::vector<int>{0, 0, 0, 1, 1, 2, 2, 2, 3, 3}));
  EXPECT_EQ(stretched(10, 4), (std::vector<int>{2, 4, 7, 9}));
  EXPECT_EQ(stretched(8, 4), (std::vector<int>{1, 3, 5, 7}));
  EXPECT_EQ(stretched(2, 3), (std::vector<int>{0, 0, 1}));
  EXPECT_EQ(stretched(3, 2), (std::vector<int>{1, 2}));
  EXPECT_EQ(stretched(13, 5), (std::vector<int>{2, 4, 7, 9, 12}));
}

TEST(Stretch, follows_its_formula_for_every_pair_of_sizes) {
  for (int sw = 1; sw <= 40; sw++) {
    for (int dw = 1; dw <= 60; dw++) {
      const std::vector<int> columns = stretched(sw, dw);
      for (int i = 0; i < dw; i++) {
        const double exact =
            dw >= sw ? std::ceil((i + 0.5) * sw / dw - 1e-9) - 1 : std::floor((i + 1.0) * sw / dw - 0.5 + 1e-9);
        ASSERT_EQ(columns[static_cast<size_t>(i)], static_cast<int>(exact)) << sw << " to " << dw << " at " << i;
      }
    }
  }
}

TEST(Stretch, works_on_both_axes) {
  Numbered source(4, 3);
  Paper paper(20, 20);
  paper.painter->blit(paper.state, blit(source.raster, {5, 6, 10, 2}, {0, 0, 4, 3}));
  EXPECT_EQ(paper.at(5, 6), 256u * 1 + 0);
  EXPECT_EQ(paper.at(14, 7), 256u * 2 + 3);
  EXPECT_EQ(paper.at(4, 6), Paper::kWhite);
  EXPECT_EQ(paper.at(15, 6), Paper::kWhite);
  EXPECT_EQ(paper.at(5, 8), Paper::kWhite);
}

TEST(Stretch, mirrors_into_a_negative_width_from_its_origin_leftward) {
  Numbered source(5, 1);
  Paper paper(12, 3);
  paper.painter->blit(paper.state, blit(source.raster, {6, 1, -5, 1}, {0, 0, 5, 1}));
  for (int i = 0; i < 5; i++) EXPECT_EQ(paper.at(2 + i, 1), static_cast<uint32_t>(4 - i));
  EXPECT_EQ(paper.at(1, 1), Paper::kWhite);
  EXPECT_EQ(paper.at(7, 1), Paper::kWhite);
}

TEST(Stretch, in_the_older_modes_combines_what_falls_together) {
  uint32_t pixels[4] = {0x0F0F0F, 0x3C3C3C, 0xFF00FF, 0x00FFFF};
  const Raster source{pixels, 4, 1, 4};
  Paper paper(4, 4);
  paper.state.stretchMode = BLACKONWHITE;
  paper.painter->blit(paper.state, blit(source, {0, 0, 2, 1}, {0, 0, 4, 1}));
  EXPECT_EQ(paper.at(0, 0), 0x0C0C0Cu);
  EXPECT_EQ(paper.at(1, 0), 0x0000FFu);
  paper.state.stretchMode = WHITEONBLACK;
  paper.painter->blit(paper.state, blit(source, {0, 1, 2, 1}, {0, 0, 4, 1}));
  EXPECT_EQ(paper.at(0, 1), 0x3F3F3Fu);
  EXPECT_EQ(paper.at(1, 1), 0xFFFFFFu);
}

TEST(BlockTransfer, combines_by_its_code) {
  const uint32_t s = 0x0FF0A5, d = 0x3C5A99;
  struct {
    DWORD rop;
    uint32_t result;
  } table[] = {{SRCCOPY, s},      {SRCAND, 0x0C5081}, {NOTSRCERASE, 0xC00542}, {NOTSRCCOPY, ~s & 0xFFFFFF},
               {SRCPAINT, s | d}, {SRCINVERT, s ^ d}};
  for (const auto& t : table) {
    for (int width : {2, 3, -2}) { /* plain, stretched, mirrored */
      uint32_t pixels[2] = {s, s};
      Paper paper(8, 2);
      paper.clear(d);
      paper.painter->blit(paper.state, blit({pixels, 2, 1, 2}, {4, 0, width, 1}, {0, 0, 2, 1}, t.rop));
      EXPECT_EQ(paper.at(4, 0), t.result) << std::hex << t.rop;
      EXPECT_EQ(paper.at(4, 1), d);
    }
  }
}

TEST(BlockTransfer, paints_only_what_lies_in_the_source_at_its_place) {
  Numbered source(4, 4);
  Paper paper(20, 20);
  paper.painter->blit(paper.state, blit(source.raster, {5, 5, 8, 8}, {-2, -2, 8, 8}));
  EXPECT_EQ(rows(paper.marks()), "7: 7-10; 8: 7-10; 9: 7-10; 10: 7-10");
  EXPECT_EQ(paper.at(8, 9), 256u * 2 + 1);
  Paper stretched(20, 20);
  stretched.painter->blit(stretched.state, blit(source.raster, {2, 2, 16, 16}, {-2, -2, 8, 8}));
  EXPECT_EQ(rows(stretched.marks()), "6: 6-13; 7: 6-13; 8: 6-13; 9: 6-13; 10: 6-13; 11: 6-13; 12: 6-13; 13: 6-13");
}

TEST(BlockTransfer, is_cut_by_the_clip_and_by_the_raster) {
  Numbered source(10, 10);
  Paper paper(12, 12);
  paper.state.clip = {3, 4, 9, 8};
  paper.painter->blit(paper.state, blit(source.raster, {1, 1, 10, 10}, {0, 0, 10, 10}));
  EXPECT_EQ(rows(paper.marks()), "4: 3-8; 5: 3-8; 6: 3-8; 7: 3-8");
  EXPECT_EQ(paper.at(3, 4), 256u * 3 + 2);
  Paper off(12, 12);
  off.painter->blit(off.state, blit(source.raster, {-4, 8, 10, 10}, {0, 0, 10, 10}));
  EXPECT_EQ(rows(off.marks()), "8: 0-5; 9: 0-5; 10: 0-5; 11: 0-5");
  EXPECT_EQ(off.at(0, 8), 4u);
}

TEST(BlockTransfer, within_one_raster_reads_before_it_paints) {
  Paper paper(12, 3);
  for (int x = 0; x < 12; x++) paper.set(x, 0, static_cast<uint32_t>(x));
  paper.painter->blit(paper.state, blit(paper.raster(), {3, 0, 8, 1}, {1, 0, 8, 1}));
  for (int i = 0; i < 8; i++) EXPECT_EQ(paper.at(3 + i, 0), static_cast<uint32_t>(1 + i));
}

TEST(BlockTransfer, of_absurd_sizes_ends) {
  Numbered source(10, 10);
  for (int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR}) {
    Paper paper(12, 12);
    paper.state.stretchMode = mode;
    const int low = INT32_MIN, high = INT32_MAX;
    for (const RECT& target : {RECT{low, low, high, high}, RECT{high, high, low, low}, RECT{0, 0, 5, 5},
                               RECT{low, 0, 1, high}, RECT{0, 0, 0, 9}, RECT{11, 11, low, low}}) {
      for (const RECT& from : {RECT{0, 0, 10, 10}, RECT{low, low, high, high}, RECT{high, high, low, low},
                               RECT{0, 0, high, high}, RECT{9, 9, -10, -10}, RECT{0, 0, 0, 0}}) {
        paper.painter->blit(paper.state, blit(source.raster, target, from));
      }
    }
  }
  Paper big(12, 12); /* one source pixel over the whole raster */
  big.painter->blit(big.state, blit(source.raster, {-1000000000, -1000000000, 2000000000, 2000000000}, {0, 0, 10, 10}));
  EXPECT_EQ(big.at(0, 0), 256u * 5 + 5); /* the middle of place 1000000000 is just beyond the fifth part of ten */
}

}  // namespace
}  // namespace pn10::test
