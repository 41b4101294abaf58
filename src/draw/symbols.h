/** The two symbol drawers and their common catalogue. */
#ifndef PN10_DRAW_SYMBOLS_H
#define PN10_DRAW_SYMBOLS_H

#include "model/draw_state.h"

namespace pn10 {

void DrawSymbol(int16_t symbol, float size, float bearing, double x, double y);
void DrawMark(int16_t symbol, float size, float elev, float bearing, int16_t ground, double x, double y);

}  // namespace pn10

#endif
