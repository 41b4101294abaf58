/** The passes of a picture and what they paint with. */
#ifndef PN10_DRAW_PASSES_H
#define PN10_DRAW_PASSES_H

#include "model/draw_state.h"

namespace pn10 {

int32_t DrawNodes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, float sizeFactor, int16_t showNodes);
float CalcNodeSize(int32_t node);
void DrawFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color);
void DrawLoadFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color, int16_t symbol);
void DrawFlagPost(float size, double x, double y);
int32_t DrawPipes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  float viewWidth, float sizeFactor, float penFactor, int32_t penWidth, HPEN plainPen,
                  int16_t showNodes, int16_t linesOnly);
int32_t DrawPipeArc(int32_t pipe, double x1, double y1, float z1, double x2, double y2, float z2);
void DrawFlowArrow(int32_t pipe, double flow, double x1, double y1, double x2, double y2, float arrowSize);
void DrawDeviceSymbol(int32_t pipe, double x1, double y1, double x2, double y2);
void DrawFittingSymbol(int32_t pipe, int16_t code, double x1, double y1, double x2, double y2);
int32_t DrawCusts(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, int32_t dpi, int16_t showCustomers);
int32_t DrawTexts(int32_t first, int32_t last, int16_t mono, int32_t paperColor, int16_t clearHilite);
int32_t DrawUserGraphics(int32_t first, int32_t last, int16_t clearHilite, int16_t mono, int32_t paperColor,
                         float sizeFactor, float penFactor, int32_t penWidth);

}  // namespace pn10

#endif
