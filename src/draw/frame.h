/** The frame of a picture: mapping, visibility, clipping, fonts, hilite colours, grips and the cancel poll. */
#ifndef PN10_DRAW_FRAME_H
#define PN10_DRAW_FRAME_H

#include "model/draw_state.h"

namespace pn10 {

/** A point in device units. */
using DevPoint = POINT;

void WorldToDev(double x, double y, int32_t* devX, int32_t* devY);
DevPoint WorldToDevPair(double x, double y);
int32_t OutOfView(double x, double y);
int32_t ClipSegment(double* x1, double* y1, double* x2, double* y2);
int32_t DrawClipLine(int16_t clip, double x1, double y1, double x2, double y2);
void MakeLogFont(LOGFONTA* font, float screenSize, float printSize, int16_t screenBold, int16_t printBold,
                 int16_t sizeMode);
int32_t HiliteColor(int32_t color);
int32_t ContrastColor(int32_t color, int32_t background);
void DrawGrip(int16_t paint, double x, double y);
int32_t PollCancel(HWND window);
void MapModelXY(double x, double y, float z, double* worldX, double* worldY);

}  // namespace pn10

#endif
