/** Fonts, lines and leaders that the labels of all kinds share. */
#include "draw/label_stack.h"

#include <cstring>

#include "draw/frame.h"
#include "draw/gdi_objects.h"

namespace pn10 {

namespace {

/** Selects a new font of the description in LabelLogFont; LabelFont is null when that fails. */
bool selectLabelFont() {
  DrawState& s = drawState;
  s.LabelFont = CreateFontIndirectA(s.LabelLogFont);
  if (!s.LabelFont) return false;
  s.LabelOldFont = SelectObject(s.DC, s.LabelFont);
  if (s.LabelOldFont) return true;
  DeleteObject(s.LabelFont);
  s.LabelFont = nullptr;
  return false;
}

void dropLabelFont() {
  DrawState& s = drawState;
  if (s.LabelFont) DeleteObject(SelectObject(s.DC, s.LabelOldFont));
  s.LabelFont = nullptr;
  s.LabelOldFont = nullptr;
}

}  // namespace

LabelFont::LabelFont(const LOGFONTA& font) : font_(font) {
  drawState.LabelLogFont = &font_;
  drawState.LabelEscapement = -1;
  selectLabelFont();
}

LabelFont::~LabelFont() {
  dropLabelFont();
  drawState.LabelLogFont = nullptr;
  drawState.LabelEscapement = -1;
}

bool turnLabelFont(int16_t escapement) {
  DrawState& s = drawState;
  if (escapement == s.LabelEscapement) return s.LabelFont != nullptr;
  if (!s.LabelLogFont) return false;
  s.LabelEscapement = escapement;
  s.LabelLogFont->lfEscapement = escapement;
  dropLabelFont();
  return selectLabelFont();
}

void paintLabelLine(const char* text, double x, double y) {
  const DevPoint p = WorldToDevPair(x, y);
  TextOutA(drawState.DC, p.x, p.y, text, static_cast<int>(std::strlen(text)));
}

void paintLeader(double fromX, double fromY, double gap, double x, double y, double stepX, double stepY,
                 int32_t count) {
  const double toX = x + 0.5 * count * stepX, toY = y - 0.5 * count * stepY;
  double startX, startY;
  GetXY(fromX, fromY, GetBrg(fromX, fromY, toX, toY), gap, &startX, &startY);
  {
    const BorrowedObject pen(drawState.DC, drawState.PlainPen);
    DrawClipLine(drawState.Plot->ClipOn != 0, startX, startY, toX, toY);
  }
  SetBkMode(drawState.DC, OPAQUE);
}

}  // namespace pn10
