/**
 * All symbols and line styles on one picture, contact_sheet.png in the build folder: to be looked at. Checked here:
 * every cell of the catalogue has ink, the cells of absent shapes have none, and no object is left.
 */
#include "draw/gdi_objects.h"
#include "draw/lines.h"
#include "draw/picture.h"
#include "draw/symbols.h"

using namespace pn10;
using namespace pn10::test;

namespace {

constexpr int kWidth = 1480, kHeight = 1560, kCell = 60, kTop = 50, kLinesLeft = 640;
constexpr int32_t kWhite = 0xFFFFFF, kPaper = 0xF4FFFF;

/** One device unit per world unit, Y up from the bottom of the sheet. */
class Sheet : public Fresh {
 public:
  ViewOpts view{};
  PlotOpts plot{};
  HDC dc = PnCreateImageDC(kWidth, kHeight, 96, kWhite);

  Sheet() { mode(0); }
  ~Sheet() { PnDeleteDC(dc); }
  void mode(int16_t iso) {
    SetDrawVars(0, dc, nullptr, 1, &plot, &view, nullptr, nullptr, 0, 0, iso, 0, 0, 1);
    SetPNGDIScale(0, kHeight, kWidth, 0, kWidth, kHeight, 0, 10, 0, 0, 0, 0);
  }
  void label(int x, int y, const std::string& text) const {
    SetBkMode(dc, TRANSPARENT);
    TextOutA(dc, x, y, text.c_str(), static_cast<int>(text.size()));
  }
  bool inked(int left, int top, int right, int bottom) const {
    for (int y = top; y < bottom; y++) {
      for (int x = left; x < right; x++) {
        if (PnGetPixel(dc, x, y) != kWhite) return true;
      }
    }
    return false;
  }
};

enum Column { kSolid, kTurned, kHollow, kMark, kMarkTurned, kIso, kColumns };
constexpr const char* kTitles[] = {"solid", "turned", "hollow", "mark", "turned", "iso"};

void paintSymbol(Sheet& sheet, int16_t number, int column, double x, double y) {
  constexpr float kSize = 40, kBearing = 0.6f;
  SelectedPen pen(sheet.dc);
  SelectedBrush brush(sheet.dc);
  pen.plain(PS_SOLID, 1, 0x802000);
  if (column == kHollow) {
    brush.indirect(BS_SOLID, kPaper);
  } else {
    brush.solid(0xE0B060);
  }
  const float reach = number >= 106 && number != 107 && number != 109 && number != 110 ? kSize / 2 : kSize;
  const float bearing = column == kTurned || column == kMarkTurned ? kBearing : 0;
  if (column < kMark) return DrawSymbol(number, reach, bearing, x, y);
  if (column == kIso) {
    sheet.mode(1);
    /* devices take a point of the model plane, all others one of the world plane; 14, 103 and 105 come apart */
    double modelX, modelY;
    CalcXYIso(x, y, 0, &modelX, &modelY);
    const bool device = number == 10 || number == 11 || number == 13 || number == 15 || number == 101;
    DrawMark(number, reach, 0, 0, 0, device ? modelX : x, device ? modelY : y);
    return sheet.mode(0);
  }
  DrawMark(number, reach, 0, bearing, 0, x, y);
}

TEST(ContactSheet, shows_every_symbol_and_line_style) {
  Sheet sheet;
  const int32_t before = PnGetObjectCount();
  for (int c = 0; c < kColumns; c++) sheet.label(60 + c * 90, 16, kTitles[c]);
  int row = 0;
  for (int16_t number : {int16_t{2},   int16_t{3},   int16_t{4},   int16_t{5},   int16_t{6},   int16_t{7},
                         int16_t{10},  int16_t{11},  int16_t{12},  int16_t{13},  int16_t{14},  int16_t{15},
                         int16_t{16},  int16_t{101}, int16_t{102}, int16_t{103}, int16_t{104}, int16_t{105},
                         int16_t{106}, int16_t{107}, int16_t{108}, int16_t{109}, int16_t{110}, int16_t{111}}) {
    const int top = kTop + row++ * kCell, y = kHeight - top - kCell / 2;
    sheet.label(8, top + 22, std::to_string(number));
    for (int c = 0; c < kColumns; c++) {
      paintSymbol(sheet, number, c, 80 + c * 90, y);
      const bool absent = c == kIso && (number == 2 || number == 16);
      EXPECT_EQ(sheet.inked(40 + c * 90, top + 5, 120 + c * 90, top + kCell - 5), !absent) << number << ' ' << c;
    }
  }
  row = 0;
  for (int16_t style : {int16_t{1},  int16_t{2},  int16_t{3},  int16_t{4},  int16_t{5},  int16_t{6},  int16_t{7},
                        int16_t{10}, int16_t{11}, int16_t{12}, int16_t{13}, int16_t{14}, int16_t{15}, int16_t{16},
                        int16_t{17}, int16_t{18}, int16_t{19}, int16_t{20}, int16_t{21}, int16_t{22}}) {
    const int top = kTop + row++ * kCell, y = kHeight - top - kCell / 2;
    sheet.label(kLinesLeft, top + 22, std::to_string(style));
    int column = 0;
    for (int32_t width : {1, 2, 4}) {
      SelectedPen pen(sheet.dc);
      SelectedBrush brush(sheet.dc);
      pen.lineStyle(style, width, 0x0000C0);
      brush.solid(kPaper);
      const int x = kLinesLeft + 40 + 260 * column++;
      DrawStyledSegment(style, 16, x, y - 10, x + 230, y + 10);
      EXPECT_EQ(sheet.inked(x, top, x + 230, top + kCell), style != 6) << style << ' ' << width;
    }
  }
  const int y = kHeight - (kTop + 22 * kCell);
  sheet.label(kLinesLeft, kTop + 21 * kCell + 22, "arcs");
  DrawArcPoly(0, 50, 0, 6.2831855f, 0, 740, y, 0);
  DrawArcPoly(0, 50, 5.5f, 1.0f, 0, 860, y, 0);
  sheet.mode(1);
  double modelX, modelY;
  CalcXYIso(1040, y, 0, &modelX, &modelY);
  DrawArcPoly(0, 40, 0, 6.2831855f, 0, modelX, modelY, 1);
  sheet.mode(0);
  drawState.MinChord = 25;
  DrawArcPoly(0, 50, 0, 6.2831855f, 0, 1200, y, 0);
  DrawArrowHead(1400, y, 1290, y + 30, 60);
  EXPECT_EQ(PnGetObjectCount(), before);
  EXPECT_TRUE(PnSavePng(sheet.dc, PN10_BUILD_DIR "/contact_sheet.png"));
}

}  // namespace
