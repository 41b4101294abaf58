/** Styled lines: dash patterns, pens of a style number, decorated segments, arcs and arrow heads. */
#ifndef PN10_DRAW_LINES_H
#define PN10_DRAW_LINES_H

#include "model/draw_state.h"

namespace pn10 {

int32_t DashPattern(int16_t style, int32_t penWidth, uint32_t* lengths, int32_t* count);
int32_t DrawStyledSegment(int16_t style, float spacing, double x1, double y1, double x2, double y2);
void DrawArcPoly(float elev, float radius, float startAngle, float endAngle, int16_t clip, double cx, double cy,
                 int16_t project);
HPEN MakeStylePen(int16_t style, int32_t width, int32_t color);
void DrawArrowHead(double tipX, double tipY, double backX, double backY, float arrowSize);

}  // namespace pn10

#endif
