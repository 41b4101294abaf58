/** What the passes of nodes, pipes and customers share. */
#ifndef PN10_DRAW_PASS_COMMON_H
#define PN10_DRAW_PASS_COMMON_H

#include "draw/frame.h"
#include "draw/gdi_objects.h"
#include "draw/passes.h"

namespace pn10 {

/** True when selected items show their grips: on screen, with both switches on. */
inline bool gripsApply() { return drawState.DevMode == 0 && drawState.Plot->GripsOn && drawState.Plot->GripsShown; }

inline bool onPaper() { return drawState.DevMode != 0; }

/** True when the host asked for it; the flag is cleared by a pass that ran to its end. */
inline bool isSet(const int16_t* flag) { return flag && *flag != 0; }
inline void clearFlag(int16_t* flag) {
  if (flag) *flag = 0;
}

/** Labels of a kind: its mask, within its limit on screen and with the labels of prints on paper. */
inline bool labelsShown(int32_t mask, float limit, int32_t fontHeight) {
  if (fontHeight == 0) return false;
  const bool allowed = onPaper() ? drawState.Plot->PrintLabelsOn != 0 : drawState.MapScale <= limit;
  return mask != 0 && allowed;
}

/** World height of a font; its device height and ScaleY are both negative. */
inline float worldHeight(const LOGFONTA& font) { return static_cast<float>(font.lfHeight / drawState.ScaleY); }

/** The colour of an item on the sheet and on the screen, hilites included. */
inline int32_t itemColor(int32_t color, bool mono, bool hilite) {
  if (onPaper() && mono) color = drawState.Black;
  return hilite ? HiliteColor(color) : color;
}

/** The red of warning flags; a mono print has black alone. */
inline int32_t warningColor() { return onPaper() && drawState.Plot->Mono ? drawState.Black : drawState.Red; }

/** Pen and brush of items that are painted as symbols, and the two brushes they know. */
class SymbolTools {
 public:
  SymbolTools(int32_t penWidth, int32_t paperColor)
      : pen_(drawState.DC), brush_(drawState.DC), penWidth_(penWidth), paper_(paperColor) {}

  /** The pen and the brush of a solid symbol. */
  void solid(int32_t color) {
    pen_.plain(PS_SOLID, penWidth_, color);
    brush_.solid(color);
    inside_ = color;
    hollow_ = false;
  }
  /** The pen in the item's colour, the inside in the colour of the paper. */
  void hollow(int32_t color) {
    pen_.plain(PS_SOLID, penWidth_, color);
    if (inside_ != paper_) brush_.indirect(BS_SOLID, paper_);  // a solid brush of that colour serves as well
    inside_ = paper_;
    hollow_ = true;
  }
  /** A flag in the item's colour: with what is selected when that is the colour inside and out. */
  void flag(double x, double y, int32_t color) const { DrawFlag(x, y, 0, PS_SOLID, penWidth_, hollow_ ? color : -1); }
  void redFlag(double x, double y) const { DrawFlag(x, y, 0, PS_SOLID, penWidth_, warningColor()); }
  /** A flag with the item's symbol on it, in the colour of the paper so that it shows. */
  void loadFlag(double x, double y, int32_t color, int16_t symbol) const {
    flag(x, y, color);
    DrawLoadFlag(x, y, 0, PS_SOLID, penWidth_, paper_, symbol);
  }

 private:
  SelectedPen pen_;
  SelectedBrush brush_;
  int32_t penWidth_, paper_;
  int32_t inside_ = -1; /* the colour of the brush */
  bool hollow_ = false;
};

}  // namespace pn10

#endif
