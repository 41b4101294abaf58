/** Heights and widths of fonts: numbers of the measured sets, and a choice of them that needs no file. */
#include <sstream>

#include "platform/text_sheet.h"

namespace {

using namespace pn10::test;

std::string widthsOf(const Sheet& sheet, char c) {
  const ABC w = sheet.abc(c);
  return std::to_string(w.abcA) + " " + std::to_string(w.abcB) + " " + std::to_string(w.abcC);
}

/** A measured line of f06_text.txt, written from what the context answers. */
std::string measured(Sheet& sheet, int height) {
  sheet.use(arial(height));
  const TEXTMETRICA m = sheet.metrics();
  const SIZE hello = sheet.extent("Hello, World");
  std::ostringstream out;
  out << "h=" << height << ": Height " << m.tmHeight << " Ascent " << m.tmAscent << " Descent " << m.tmDescent
      << " IntLead " << m.tmInternalLeading << " ExtLead " << m.tmExternalLeading << " Ave " << m.tmAveCharWidth
      << " Max " << m.tmMaxCharWidth << " Weight " << m.tmWeight << " Overhang " << m.tmOverhang << " First "
      << int{m.tmFirstChar} << " Last " << int{m.tmLastChar} << " Default " << int{m.tmDefaultChar} << " Break "
      << int{m.tmBreakChar} << " PitchFam " << std::hex << int{m.tmPitchAndFamily} << std::dec << " CharSet "
      << int{m.tmCharSet} << " DigX " << m.tmDigitizedAspectX << " | 'A' " << widthsOf(sheet, 'A') << " 'j' "
      << widthsOf(sheet, 'j') << " 'W' " << widthsOf(sheet, 'W') << " | 'Hello, World' " << hello.cx << "x" << hello.cy;
  return out.str();
}

TEST(TextMetrics, all_measured_heights_come_out_to_the_digit) {
  const std::string file = sharedFile("gdi/f06_text.txt");
  if (file.empty()) GTEST_SKIP() << "the measured text set is not beside this checkout";
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  std::istringstream in(readFile(file));
  int lines = 0;
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("h=") || line.find(": Height") == std::string::npos) continue;
    EXPECT_EQ(measured(sheet, std::stoi(line.substr(2))), line);
    lines++;
  }
  EXPECT_GE(lines, 20);
}

TEST(TextMetrics, all_measured_character_widths_come_out_to_the_digit) {
  const std::string file = sharedFile("gdi/f11_abc.txt");
  if (file.empty()) GTEST_SKIP() << "the measured width set is not beside this checkout";
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  std::istringstream in(readFile(file));
  int count = 0;
  for (std::string line; std::getline(in, line);) {
    std::istringstream row(line);
    int em = 0;
    if (!(row >> em)) continue;
    sheet.use(arial(-em));
    ABC widths[95];
    ASSERT_TRUE(GetCharABCWidthsA(sheet.dc, 32, 126, widths));
    std::string triple;
    for (int c = 0; c < 95 && row >> triple; c++, count++) {
      const std::string got =
          std::to_string(widths[c].abcA) + "," + std::to_string(widths[c].abcB) + "," + std::to_string(widths[c].abcC);
      EXPECT_EQ(got, triple) << "em " << em << " character " << c + 32;
    }
  }
  EXPECT_EQ(count, 53 * 95);
}

TEST(TextMetrics, positive_heights_are_cell_heights) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  /* lfHeight, em height with the same metrics, tmHeight */
  const int rows[][3] = {{24, 21, 23},   {13, 12, 14}, {14, 12, 14}, {20, 18, 20},
                         {100, 89, 100}, {1, 1, 1},    {0, 14, 16}};
  for (const auto& [height, em, cell] : rows) {
    const TEXTMETRICA positive = sheet.use(arial(height)).metrics();
    const TEXTMETRICA negative = sheet.use(arial(-em)).metrics();
    EXPECT_EQ(positive.tmHeight, cell) << height;
    EXPECT_EQ(positive.tmAscent, negative.tmAscent) << height;
    EXPECT_EQ(positive.tmAveCharWidth, negative.tmAveCharWidth) << height;
  }
}

TEST(TextMetrics, every_measured_cell_height_gives_its_em_height) {
  const std::string file = sharedFile("gdi/f10_more.txt");
  if (file.empty()) GTEST_SKIP() << "the measured height set is not beside this checkout";
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  std::istringstream in(readFile(file));
  std::string line, pair;
  std::getline(in, line);
  std::getline(in, line); /* "1:1 2:2 ... 14:12* ..." */
  std::istringstream row(line);
  int count = 0;
  for (; row >> pair; count++) {
    const size_t colon = pair.find(':');
    const int height = std::stoi(pair), em = std::stoi(pair.substr(colon + 1));
    const TEXTMETRICA m = sheet.use(arial(height)).metrics();
    /* Ascent and descent are the em height's, by the units of the face. */
    EXPECT_EQ(m.tmAscent, (2 * em * 1854 + 2048) / 4096) << height;
    EXPECT_EQ(m.tmDescent, (2 * em * 434 + 2048) / 4096) << height;
  }
  EXPECT_EQ(count, 120);
}

TEST(TextMetrics, weights_from_600_on_are_bold_and_italic_keeps_the_widths) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  const struct {
    LONG weight, answered, hello;
  } rows[] = {{0, 400, 53}, {200, 400, 53}, {550, 400, 53}, {600, 700, 59}, {700, 700, 59}, {900, 700, 59}};
  for (const auto& row : rows) {
    for (const BYTE italic : {BYTE{0}, BYTE{1}}) {
      LOGFONTA font = arial(-24, 0, row.weight);
      font.lfItalic = italic;
      sheet.use(font);
      EXPECT_EQ(sheet.metrics().tmWeight, row.answered);
      EXPECT_EQ(sheet.metrics().tmItalic, italic ? 255 : 0);
      EXPECT_EQ(sheet.extent("Hello").cx, row.hello);
      EXPECT_EQ(sheet.extent("Hello").cy, 27);
    }
  }
}

TEST(TextMetrics, widths_add_up_without_kerning_and_controls_count_as_glyphs) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  sheet.use(arial(-24));
  EXPECT_EQ(sheet.extent("AVAVAV").cx, 96);
  EXPECT_EQ(sheet.extent("\xB0").cx, 10);
  EXPECT_EQ(sheet.extent("\xB1").cx, 13);
  EXPECT_EQ(sheet.extent("\xD8").cx, 19);
  sheet.use(arial(-11));
  EXPECT_EQ(sheet.extent("A\tB\nC").cx, 30);
  EXPECT_EQ(sheet.extent("ABC").cx, 22);
}

TEST(TextMetrics, the_blank_has_no_bearing_and_one_column_of_ink) {
  NEEDS_LIBERATION();
  Sheet sheet(1, 1);
  sheet.use(arial(-24));
  EXPECT_EQ(widthsOf(sheet, ' '), "0 1 6");
  EXPECT_EQ(widthsOf(sheet, 'H'), "1 15 1");
  EXPECT_EQ(widthsOf(sheet, 'A'), "0 16 0");
  EXPECT_EQ(widthsOf(sheet, 'j'), "-1 5 1");
  EXPECT_EQ(widthsOf(sheet, 'W'), "0 23 0");
}

TEST(TextMetrics, escapement_changes_no_number) {
  Sheet sheet(1, 1);
  for (int height : {-8, -11, -24, 13}) {
    const SIZE upright = sheet.use(arial(height)).extent("pressure 60.0");
    const TEXTMETRICA metrics = sheet.metrics();
    const ABC wide = sheet.abc('W');
    for (int escapement : {300, 900, -1, 7200}) {
      sheet.use(arial(height, escapement));
      EXPECT_EQ(sheet.extent("pressure 60.0").cx, upright.cx);
      EXPECT_EQ(sheet.extent("pressure 60.0").cy, upright.cy);
      EXPECT_EQ(sheet.metrics().tmAscent, metrics.tmAscent);
      EXPECT_EQ(sheet.abc('W').abcA, wide.abcA);
    }
  }
}

TEST(TextMetrics, empty_texts_and_bad_counts) {
  Sheet sheet(1, 1);
  sheet.use(arial(-24));
  SIZE size{7, 7};
  EXPECT_TRUE(GetTextExtentPoint32A(sheet.dc, "", 0, &size));
  EXPECT_EQ(size.cx, 0);
  EXPECT_EQ(size.cy, 0);
  EXPECT_FALSE(GetTextExtentPoint32A(sheet.dc, "abc", -1, &size));
  EXPECT_FALSE(GetTextExtentPoint32A(sheet.dc, nullptr, 3, &size));
  EXPECT_FALSE(GetTextExtentPoint32A(sheet.dc, "abc", 3, nullptr));
  ABC widths[1];
  EXPECT_FALSE(GetCharABCWidthsA(sheet.dc, 5, 4, widths));
  EXPECT_FALSE(GetCharABCWidthsA(sheet.dc, 200, 256, widths));
  EXPECT_FALSE(GetTextMetricsA(sheet.dc, nullptr));
}

TEST(RecordMetrics, follow_one_rule_on_every_machine) {
  HDC dc = PnCreateRecordDC(100, 100, 96);
  /* height: (h + 1) / 2 wide, h high, ascent h - h / 5, with h = 16 for 0 */
  const int rows[][4] = {{-24, 24, 20, 12}, {13, 13, 11, 7}, {0, 16, 13, 8}, {1, 1, 1, 1}};
  for (const auto& [height, line, ascent, width] : rows) {
    const LOGFONTA font = arial(height, 450);
    HFONT made = CreateFontIndirectA(&font);
    SelectObject(dc, made);
    TEXTMETRICA m{};
    SIZE size{};
    ABC abc[2];
    ASSERT_TRUE(GetTextMetricsA(dc, &m) && GetTextExtentPoint32A(dc, "iW\xFF", 3, &size) &&
                GetCharABCWidthsA(dc, ' ', '!', abc));
    EXPECT_EQ(m.tmHeight, line);
    EXPECT_EQ(m.tmAscent, ascent);
    EXPECT_EQ(m.tmDescent, line - ascent);
    EXPECT_EQ(size.cx, 3 * width);
    EXPECT_EQ(size.cy, line);
    EXPECT_EQ(abc[0].abcA, 0);
    EXPECT_EQ(abc[0].abcB, static_cast<UINT>(width));
    EXPECT_EQ(abc[1].abcC, 0);
    DeleteObject(made);
  }
  PnDeleteDC(dc);
}

}  // namespace
