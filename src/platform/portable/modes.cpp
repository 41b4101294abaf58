/** Modes and colours of a context: setters answer the old value, 0 for a bad one; colours answer -1 without a context.
 */
#include <utility>

#include "platform/portable/context.h"

using namespace pn10::portable;

namespace {

constexpr COLORREF kNoColor = 0xFFFFFFFF;

/** Sets a mode that lies in first ... last. */
int setMode(HDC dc, const char* name, int PaintState::*mode, int value, int first, int last) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp(name, value);
  if (value < first || value > last) return 0;
  return std::exchange(context->state.paint.*mode, value);
}

int getMode(HDC dc, int PaintState::*mode) {
  const Context* context = contextOf(dc);
  return context ? context->state.paint.*mode : 0;
}

COLORREF setColor(HDC dc, const char* name, COLORREF PaintState::*color, COLORREF value) {
  Context* context = contextOf(dc);
  if (!context) return kNoColor;
  logOp(name, Color{value});
  return std::exchange(context->state.paint.*color, value);
}

COLORREF getColor(HDC dc, COLORREF PaintState::*color) {
  const Context* context = contextOf(dc);
  return context ? context->state.paint.*color : kNoColor;
}

}  // namespace

int SetROP2(HDC dc, int mode) { return setMode(dc, "SetROP2", &PaintState::rop2, mode, R2_BLACK, R2_WHITE); }
int GetROP2(HDC dc) { return getMode(dc, &PaintState::rop2); }
int SetBkMode(HDC dc, int mode) { return setMode(dc, "SetBkMode", &PaintState::bkMode, mode, TRANSPARENT, OPAQUE); }
int GetBkMode(HDC dc) { return getMode(dc, &PaintState::bkMode); }
int SetPolyFillMode(HDC dc, int mode) {
  return setMode(dc, "SetPolyFillMode", &PaintState::fillMode, mode, ALTERNATE, WINDING);
}
int GetPolyFillMode(HDC dc) { return getMode(dc, &PaintState::fillMode); }
int SetStretchBltMode(HDC dc, int mode) {
  return setMode(dc, "SetStretchBltMode", &PaintState::stretchMode, mode, BLACKONWHITE, HALFTONE);
}
int GetStretchBltMode(HDC dc) { return getMode(dc, &PaintState::stretchMode); }

COLORREF SetTextColor(HDC dc, COLORREF color) { return setColor(dc, "SetTextColor", &PaintState::textColor, color); }
COLORREF GetTextColor(HDC dc) { return getColor(dc, &PaintState::textColor); }
COLORREF SetBkColor(HDC dc, COLORREF color) { return setColor(dc, "SetBkColor", &PaintState::bkColor, color); }
COLORREF GetBkColor(HDC dc) { return getColor(dc, &PaintState::bkColor); }

int SetArcDirection(HDC dc, int direction) {
  Context* context = contextOf(dc);
  if (!context) return 0;
  logOp("SetArcDirection", direction);
  if (direction != AD_COUNTERCLOCKWISE && direction != AD_CLOCKWISE) return 0;
  return std::exchange(context->state.arcDirection, direction);
}

int GetArcDirection(HDC dc) {
  const Context* context = contextOf(dc);
  return context ? context->state.arcDirection : 0;
}

UINT SetTextAlign(HDC dc, UINT align) {
  Context* context = contextOf(dc);
  if (!context) return kNoColor; /* GDI_ERROR has the same bits */
  logOp("SetTextAlign", align);
  return std::exchange(context->state.textAlign, align);
}

UINT GetTextAlign(HDC dc) {
  const Context* context = contextOf(dc);
  return context ? context->state.textAlign : kNoColor;
}
