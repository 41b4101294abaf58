/** Where the ink of text lies: alignment, turning, the opaque cell, underline, and glyphs as FreeType gives them. */
#include <fontconfig/fontconfig.h>
#include <ft2build.h>

#include <cstdlib>
#include <sstream>
#include FT_FREETYPE_H

#include "platform/text_sheet.h"

namespace {

using namespace pn10::test;

TEST(TextInk, stands_by_each_alignment) {
  NEEDS_LIBERATION();
  const struct {
    UINT align;
    const char *ink, *cell;
  } rows[] = {
      {0, "x 62..116 y 65..86", "x 60..118 y 60..86"},  {2, "x 3..57 y 65..86", "x 1..59 y 60..86"},
      {6, "x 33..87 y 65..86", "x 31..89 y 60..86"},    {8, "x 62..116 y 38..59", "x 60..118 y 33..59"},
      {10, "x 3..57 y 38..59", "x 1..59 y 33..59"},     {14, "x 33..87 y 38..59", "x 31..89 y 33..59"},
      {24, "x 62..116 y 43..64", "x 60..118 y 38..64"}, {26, "x 3..57 y 43..64", "x 1..59 y 38..64"},
      {30, "x 33..87 y 43..64", "x 31..89 y 38..64"},
  };
  for (const auto& row : rows) {
    Sheet transparent(130, 130), opaque(130, 130);
    EXPECT_EQ(transparent.use(arial(-24)).write(60, 60, "HxgH", row.align).ink(), row.ink) << row.align;
    SetBkMode(opaque.dc, OPAQUE);
    SetBkColor(opaque.dc, 0x00FFFF);
    EXPECT_EQ(opaque.use(arial(-24)).write(60, 60, "HxgH", row.align).ink(), row.cell) << row.align;
  }
}

TEST(TextInk, only_update_position_moves_the_current_point) {
  NEEDS_LIBERATION();
  Sheet sheet(130, 130);
  sheet.use(arial(-24));
  MoveToEx(sheet.dc, 60, 60, nullptr);
  POINT at{};
  sheet.write(3, 3, "HxgH", 24);
  MoveToEx(sheet.dc, 60, 60, &at);
  EXPECT_EQ(at.x, 60);
  sheet.write(3, 3, "HxgH", 24 | TA_UPDATECP);
  MoveToEx(sheet.dc, 0, 0, &at);
  EXPECT_EQ(at.x, 119);
  EXPECT_EQ(at.y, 60);
}

/** Every side of the ink lies within `tolerance` of the measured one. */
void expectNear(const RECT& got, const RECT& want, int tolerance, const std::string& what) {
  const int worst = std::max({std::abs(got.left - want.left), std::abs(got.right - want.right),
                              std::abs(got.top - want.top), std::abs(got.bottom - want.bottom)});
  EXPECT_LE(worst, tolerance) << what << ": " << got.left << ".." << got.right << " " << got.top << ".." << got.bottom;
}

TEST(TextInk, turns_about_the_point_given) {
  NEEDS_LIBERATION();
  const struct {
    int escapement;
    RECT baseline, top, centre; /* ink boxes at alignments 24, 0 and 6 */
  } rows[] = {
      {0, {152, 133, 283, 149}, {152, 155, 283, 171}, {84, 155, 215, 171}},
      {300, {143, 69, 265, 148}, {154, 88, 276, 167}, {96, 121, 218, 200}},
      {450, {139, 43, 244, 148}, {154, 58, 259, 163}, {106, 106, 211, 211}},
      {900, {133, 16, 149, 147}, {155, 16, 171, 147}, {155, 84, 171, 215}},
      {1350, {43, 55, 148, 160}, {58, 39, 163, 144}, {106, 87, 211, 192}},
      {1800, {16, 150, 147, 166}, {16, 128, 147, 144}, {84, 128, 215, 144}},
      {2700, {150, 152, 166, 283}, {128, 152, 144, 283}, {128, 84, 144, 215}},
      {3000, {151, 143, 230, 265}, {131, 154, 210, 276}, {97, 96, 176, 218}},
      {-900, {150, 152, 166, 283}, {128, 152, 144, 283}, {128, 84, 144, 215}},
      {4500, {133, 16, 149, 147}, {155, 16, 171, 147}, {155, 84, 171, 215}},
  };
  for (const auto& row : rows) {
    const std::pair<UINT, RECT> aligned[] = {{24, row.baseline}, {0, row.top}, {6, row.centre}};
    for (const auto& [align, box] : aligned) {
      Sheet sheet(300, 300);
      sheet.use(arial(-24, row.escapement)).write(150, 150, "HHHHHHHH", align);
      const bool quarter = row.escapement % 900 == 0;
      expectNear(sheet.inkBox(), box, quarter ? 0 : 1, std::to_string(row.escapement) + "/" + std::to_string(align));
    }
  }
}

TEST(TextInk, orientation_gives_way_to_escapement) {
  NEEDS_LIBERATION();
  Sheet turned(300, 300), upright(300, 300);
  LOGFONTA font = arial(-24, 900);
  EXPECT_EQ(turned.use(font).write(150, 150, "HHHHHHHH").ink(), "x 155..171 y 16..147");
  font.lfEscapement = 0;
  font.lfOrientation = 900;
  EXPECT_EQ(upright.use(font).write(150, 150, "HHHHHHHH", 24).ink(), "x 152..283 y 133..149");
}

TEST(TextInk, an_opaque_cell_turns_with_the_text) {
  NEEDS_LIBERATION();
  Sheet sheet(300, 300);
  SetBkMode(sheet.dc, OPAQUE);
  SetBkColor(sheet.dc, 0x00FFFF);
  /* The cell of "HHHHHHHH" is 136 x 27; at 900 it stands on its end, its baseline through column 150. */
  EXPECT_EQ(sheet.use(arial(-24, 900)).write(150, 150, "HHHHHHHH", 24).ink(), "x 128..154 y 14..149");
  Sheet slanted(300, 300);
  SetBkMode(slanted.dc, OPAQUE);
  SetBkColor(slanted.dc, 0x00FFFF);
  slanted.use(arial(-24, 300)).write(150, 150, "HHHHHHHH");
  /* Corners by hand: (150,150), 136 along (cos 30, -sin 30) to (267.8,82), 27 down (sin 30, cos 30) from both. */
  expectNear(slanted.inkBox(), {150, 82, 281, 173}, 1, "slanted cell");
  EXPECT_EQ(PnGetPixel(slanted.dc, 152, 152), 0x00FFFF);
  EXPECT_EQ(PnGetPixel(slanted.dc, 152, 165), 0xFFFFFF);
}

TEST(TextInk, rows_of_one_letter_are_the_measured_ones) {
  NEEDS_LIBERATION();
  Sheet sheet(40, 50);
  sheet.use(arial(-24)).write(10, 40, "H", 24);
  for (int y = 0; y < 50; y++) {
    const bool bar = y == 30 || y == 31, letter = y >= 23 && y <= 39;
    EXPECT_EQ(sheet.row(y), bar ? "12-24" : letter ? "12-13 23-24" : "") << y;
  }
}

TEST(TextInk, underline_runs_below_the_baseline_over_the_whole_cell) {
  NEEDS_LIBERATION();
  Sheet sheet(40, 50);
  LOGFONTA font = arial(-24);
  font.lfUnderline = 1;
  sheet.use(font).write(5, 30, "H", 24);
  EXPECT_EQ(sheet.row(29), "7-8 18-19");
  EXPECT_EQ(sheet.row(30), "5-21");
  EXPECT_EQ(sheet.row(31), "5-21");
  EXPECT_EQ(sheet.row(32), "");
}

TEST(TextInk, the_measured_picture_of_two_letters) {
  const std::string file = sharedFile("gdi/f06_text.txt");
  if (file.empty()) GTEST_SKIP() << "the measured text set is not beside this checkout";
  NEEDS_LIBERATION();
  Sheet sheet(35, 31);
  sheet.use(arial(-24)).write(2, 22, "Rg", 24);
  std::istringstream in(readFile(file));
  std::string line;
  while (std::getline(in, line) && !line.starts_with("== J.")) {
  }
  std::getline(in, line); /* the column ruler */
  for (int y = 0; y < 31; y++) {
    ASSERT_TRUE(std::getline(in, line));
    std::string got;
    for (int x = 0; x < 35; x++) got += sheet.inked(x, y) ? '#' : '.';
    EXPECT_EQ(got, line.substr(line.find(": ") + 2)) << y;
  }
}

TEST(TextInk, covers_whatever_the_raster_operation_says) {
  NEEDS_LIBERATION();
  for (int rop : {R2_COPYPEN, R2_MASKPEN, R2_NOP, R2_XORPEN}) {
    Sheet sheet(40, 40);
    SetROP2(sheet.dc, rop);
    SetBkMode(sheet.dc, OPAQUE);
    SetBkColor(sheet.dc, 0x00FFFF);
    SetTextColor(sheet.dc, 0x0000FF);
    sheet.use(arial(-24)).write(5, 5, "H");
    EXPECT_EQ(PnGetPixel(sheet.dc, 7, 12), 0x0000FF) << rop;
    EXPECT_EQ(PnGetPixel(sheet.dc, 6, 10), 0x00FFFF) << rop;
  }
}

TEST(TextInk, is_cut_by_the_clip_region) {
  NEEDS_LIBERATION();
  Sheet sheet(60, 40);
  HRGN region = CreateRectRgn(5, 5, 20, 20);
  SelectClipRgn(sheet.dc, region);
  DeleteObject(region);
  SetBkMode(sheet.dc, OPAQUE);
  SetBkColor(sheet.dc, 0x00FFFF);
  EXPECT_EQ(sheet.use(arial(-24)).write(0, 0, "HHH").ink(), "x 5..19 y 5..19");
}

TEST(TextInk, other_qualities_have_grey_edges_without_colours) {
  NEEDS_LIBERATION();
  for (BYTE quality = 0; quality <= 6; quality++) {
    Sheet sheet(60, 40);
    LOGFONTA font = arial(-24);
    font.lfQuality = quality;
    sheet.use(font).write(5, 5, "Hg");
    int grey = 0, coloured = 0;
    for (int y = 0; y < 40; y++) {
      for (int x = 0; x < 60; x++) {
        const int32_t p = PnGetPixel(sheet.dc, x, y), red = p & 255, green = p >> 8 & 255, blue = p >> 16 & 255;
        if (red != green || green != blue) coloured++;
        if (red != 0 && red != 255) grey++;
      }
    }
    EXPECT_EQ(coloured, 0);
    EXPECT_EQ(grey > 0, quality != NONANTIALIASED_QUALITY) << int{quality};
  }
}

/** The font file that this machine offers for Arial, opened without the library. */
class OwnFace {
 public:
  explicit OwnFace(bool bold) {
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>("Arial"));
    FcPatternAddInteger(wanted, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result;
    FcPattern* found = FcFontMatch(nullptr, wanted, &result);
    FcChar8* file = nullptr;
    FcPatternGetString(found, FC_FILE, 0, &file);
    FT_Init_FreeType(&library_);
    FT_New_Face(library_, reinterpret_cast<const char*>(file), 0, &face);
    FcPatternDestroy(found);
    FcPatternDestroy(wanted);
  }
  ~OwnFace() { FT_Done_FreeType(library_); }
  OwnFace(const OwnFace&) = delete;
  OwnFace& operator=(const OwnFace&) = delete;
  FT_Face face = nullptr;

 private:
  FT_Library library_ = nullptr;
};

TEST(TextInk, upright_glyphs_are_the_very_bitmaps_of_the_face) {
  NEEDS_LIBERATION();
  for (const bool bold : {false, true}) {
    OwnFace own(bold);
    ASSERT_NE(own.face, nullptr);
    for (const int em : {9, 13, 24, 40}) {
      ASSERT_EQ(FT_Set_Pixel_Sizes(own.face, 0, static_cast<FT_UInt>(em)), 0);
      for (int c = 33; c < 127; c++) {
        Sheet sheet(90, 90);
        sheet.use(arial(-em, 0, bold ? 700 : 400)).write(20, 60, std::string(1, static_cast<char>(c)), 24);
        ASSERT_EQ(
            FT_Load_Char(own.face, static_cast<FT_ULong>(c), FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_MONOCHROME),
            0);
        const FT_GlyphSlot slot = own.face->glyph;
        int differences = 0;
        for (int y = 0; y < 90; y++) {
          for (int x = 0; x < 90; x++) {
            const int column = x - 20 - slot->bitmap_left, row = y - 60 + slot->bitmap_top;
            const bool inside = column >= 0 && row >= 0 && column < static_cast<int>(slot->bitmap.width) &&
                                row < static_cast<int>(slot->bitmap.rows);
            const bool set =
                inside && (slot->bitmap.buffer[row * slot->bitmap.pitch + column / 8] >> (7 - column % 8) & 1);
            differences += set != sheet.inked(x, y);
          }
        }
        EXPECT_EQ(differences, 0) << "em " << em << " character " << c;
      }
    }
  }
}

TEST(TextInk, huge_fonts_and_far_places_do_no_harm) {
  Sheet sheet(50, 50);
  for (LONG height : {-1000000, INT32_MIN, INT32_MAX, -5000, -300}) {
    for (LONG escapement : {0, 333, INT32_MIN, INT32_MAX}) {
      sheet.use(arial(height, escapement));
      for (int at : {0, INT32_MIN, INT32_MAX, 25}) sheet.write(at, at, "W\x01\xFF", 30);
    }
  }
  /* A letter larger than the sheet covers it where its stem runs. */
  Sheet large(50, 50);
  large.use(arial(-1000)).write(-80, 400, "H", 24);
  EXPECT_TRUE(large.inked(25, 25));
}

}  // namespace
