/** DrawTextA: measuring, breaking at blanks, clipping to the rectangle. */
#include "platform/text_sheet.h"

namespace {

using namespace pn10::test;

std::string asText(const RECT& r) {
  return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
         std::to_string(r.bottom);
}

/** "27 0,0,49,27": the height returned and the rectangle afterwards. */
std::string measure(Sheet& sheet, const std::string& text, RECT box, UINT format = DT_CALCRECT) {
  const int height = DrawTextA(sheet.dc, text.data(), static_cast<int>(text.size()), &box, format);
  return std::to_string(height) + " " + asText(box);
}

TEST(DrawText, measures_lines_whatever_the_rectangle_was) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  const struct {
    LONG height;
    const char *fromZero, *fromTen;
  } rows[] = {{-11, "12 0,0,22,12", "12 10,20,32,32"},
              {-24, "27 0,0,49,27", "27 10,20,59,47"},
              {24, "23 0,0,43,23", "23 10,20,53,43"}};
  for (const auto& row : rows) {
    for (LONG escapement : {0, 300, 900}) {
      sheet.use(arial(row.height, escapement));
      EXPECT_EQ(measure(sheet, "ABC", {0, 0, 0, 0}), row.fromZero);
      EXPECT_EQ(measure(sheet, "ABC", {10, 20, 500, 600}), row.fromTen);
    }
  }
}

TEST(DrawText, breaks_lines_at_line_feeds_of_either_kind) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  sheet.use(arial(-24));
  EXPECT_EQ(measure(sheet, "AB\nCD\r\nE", {}), "81 0,0,34,81");
  EXPECT_EQ(measure(sheet, "", {}), "27 0,0,0,0");
}

TEST(DrawText, takes_an_ampersand_for_a_prefix_unless_told_otherwise) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  sheet.use(arial(-24));
  EXPECT_EQ(measure(sheet, "A&B", {}), "27 0,0,32,27");
  EXPECT_EQ(measure(sheet, "A&B", {}, DT_CALCRECT | DT_NOPREFIX), "27 0,0,48,27");
  EXPECT_EQ(measure(sheet, "A&&B", {}), "27 0,0,48,27");
}

TEST(DrawText, wraps_a_paragraph_at_blanks_and_cuts_it_at_the_rectangle) {
  NEEDS_LIBERATION();
  const std::string text = "The quick brown fox jumps overthelazydogstwice";
  Sheet sheet(150, 120);
  sheet.use(arial(-16));
  SetBkMode(sheet.dc, OPAQUE);
  SetBkColor(sheet.dc, 0x00FFFF);
  RECT box{10, 10, 110, 90};
  EXPECT_EQ(DrawTextA(sheet.dc, text.c_str(), -1, &box, 0x810), 68);
  EXPECT_EQ(asText(box), "10,10,110,90");
  EXPECT_EQ(sheet.ink(), "x 10..109 y 10..77");
  EXPECT_EQ(sheet.row(10), "10-83");
  EXPECT_EQ(sheet.row(27), "10-82");
  EXPECT_EQ(sheet.row(44), "10-56");
  EXPECT_EQ(sheet.row(61), "10-109");
}

TEST(DrawText, obeys_the_text_alignment) {
  NEEDS_LIBERATION();
  Sheet left(150, 120), baseline(150, 120), centre(150, 120);
  for (const auto& [sheet, align] : {std::pair<Sheet*, UINT>{&left, 0}, {&baseline, 24}, {&centre, 6}}) {
    sheet->use(arial(-16));
    SetTextAlign(sheet->dc, align);
    RECT box{10, 10, 110, 90};
    DrawTextA(sheet->dc, "HHH", 3, &box, 0x810);
  }
  /* Three letters of 12: the first begins in column 11, the baseline of 14 below the top holds their feet. */
  EXPECT_EQ(left.inkBox().left, 11);
  EXPECT_EQ(left.inkBox().top, 13);
  EXPECT_EQ(left.inkBox().bottom, 23);
  EXPECT_EQ(baseline.ink(), "none"); /* above the rectangle, cut away */
  EXPECT_EQ(centre.inkBox().right, left.inkBox().right - 18);
  EXPECT_GE(centre.inkBox().left, 10);
}

TEST(DrawText, cuts_at_the_rectangle_and_leaves_the_clip_region_as_it_was) {
  NEEDS_LIBERATION();
  Sheet sheet(60, 60);
  sheet.use(arial(-16));
  SetBkMode(sheet.dc, OPAQUE);
  SetBkColor(sheet.dc, 0x00FFFF);
  RECT box{10, 10, 25, 18};
  DrawTextA(sheet.dc, "HHH", 3, &box, 0x810);
  EXPECT_EQ(sheet.ink(), "x 10..24 y 10..17");
  sheet.write(30, 40, "H");
  EXPECT_EQ(sheet.inkBox().right, 41);
  EXPECT_EQ(sheet.inkBox().bottom, 56);
}

TEST(DrawText, a_paragraph_of_any_length_is_read_once) {
  HDC dc = PnCreateRecordDC(100, 100, 96); /* each character 8 wide, each line 16 high */
  std::string text;
  for (int i = 0; i < 300000; i++) text += "word ";
  RECT rect{0, 0, 32, 10};
  EXPECT_EQ(DrawTextA(dc, text.c_str(), -1, &rect, DT_WORDBREAK | DT_NOPREFIX), 300000 * 16);
  rect = {0, 0, 72, 10};
  EXPECT_EQ(DrawTextA(dc, "one two  \nthree  four \r\n\nfive", -1, &rect, DT_WORDBREAK | DT_NOPREFIX), 5 * 16)
      << "one two, three, four, an empty line, five";
  PnDeleteDC(dc);
}

TEST(DrawText, a_word_that_never_fits_stays_whole_and_no_text_ends_at_once) {
  HDC dc = PnCreateRecordDC(100, 100, 96);
  RECT box{0, 0, 5, 5};
  /* 16 high, 8 wide: three words of their own lines. */
  EXPECT_EQ(DrawTextA(dc, "aaa bbb ccc", -1, &box, DT_CALCRECT | DT_WORDBREAK), 48);
  EXPECT_EQ(asText(box), "0,0,24,48");
  box = {0, 0, -10, -10};
  EXPECT_EQ(DrawTextA(dc, "   a   \n\n", -1, &box, 0x810), DrawTextA(dc, "   a   \n\n", -1, &box, 0x810));
  EXPECT_EQ(DrawTextA(dc, nullptr, -1, &box, 0x810), 0);
  EXPECT_EQ(DrawTextA(dc, "a", -5, &box, 0x810), 0);
  EXPECT_EQ(DrawTextA(dc, "a", 1, nullptr, 0x810), 0);
  EXPECT_EQ(DrawTextA(nullptr, "a", 1, &box, 0x810), 0);
  PnDeleteDC(dc);
}

}  // namespace
