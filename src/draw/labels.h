/** Label texts, their places, and the labels of nodes, pipes and customers. */
#ifndef PN10_DRAW_LABELS_H
#define PN10_DRAW_LABELS_H

#include "model/draw_state.h"

namespace pn10 {

int32_t SetTextN(int32_t node, int16_t field, char* text, int16_t prefix, int16_t units);
int32_t SetTextP(int32_t pipe, int16_t field, char* text, int16_t prefix, int16_t units);
int32_t SetTextC(int32_t cust, int16_t field, char* text, int16_t prefix, int16_t units);
void CalcTextNXY(int32_t node, float symSize, float* angle, double* stepX, double* stepY, double* x, double* y,
                 double* stepLength);
void CalcTextPXY(int32_t pipe, int32_t midVertex, int16_t* escapement, double* stepX, double* stepY, double* x,
                 double* y, double* leaderX, double* leaderY, float* elev, double* x2, double* y2);
void CalcTextCXY(int32_t cust, float* angle, double* stepX, double* stepY, double* x, double* y, double* stepLength);
int32_t DrawNodeLabel(int32_t node, float symSize, int16_t clearHilite);
int32_t DrawPipeLabel(int32_t pipe, int32_t midVertex, int16_t clearHilite);
int32_t DrawCustLabel(int32_t cust, float symSize, int16_t clearHilite);
void DrawSegmentNumbers(int32_t firstVtx, int32_t lastVtx, double x1, double y1, double x2, double y2, int16_t custLine,
                        int32_t labelLines);

}  // namespace pn10

#endif
