/** Label texts, their places, and the labels of nodes, pipes and customers. */
#ifndef PN10_DRAW_LABELS_H
#define PN10_DRAW_LABELS_H

#include "model/draw_state.h"

namespace pn10 {

/**
 * The text of one label field of an item, by its field number, into a line of 256 bytes: with `prefix` the name and an
 * equals sign, the value, its marks, and with `units` a blank and the unit text. 1 when the line holds text, else 0.
 */
int32_t SetTextN(int32_t node, int16_t field, char* text, int16_t prefix, int16_t units);
int32_t SetTextP(int32_t pipe, int16_t field, char* text, int16_t prefix, int16_t units);
int32_t SetTextC(int32_t cust, int16_t field, char* text, int16_t prefix, int16_t units);

/**
 * Where a label stands on the world plane: the angle of its lines in radians, the step to the next line (plus stepX,
 * less stepY), the anchor of the first, and the length of a step. They need the text height of the running pass.
 */
void CalcTextNXY(int32_t node, float symSize, float* angle, double* stepX, double* stepY, double* x, double* y,
                 double* stepLength);
void CalcTextCXY(int32_t cust, float* angle, double* stepX, double* stepY, double* x, double* y, double* stepLength);

/**
 * The same for a pipe, whose lines follow its path at `midVertex` (0: from node to node): escapement in tenths of a
 * degree, start of a leader, elevation of the label, and the anchor of the second line below the pipe. The width of
 * the pen in use decides how far below. Both end nodes must exist.
 */
void CalcTextPXY(int32_t pipe, int32_t midVertex, int16_t* escapement, double* stepX, double* stepY, double* x,
                 double* y, double* leaderX, double* leaderY, float* elev, double* x2, double* y2);

/** Paint the label of one item within its pass; 1 when it was painted. */
int32_t DrawNodeLabel(int32_t node, float symSize, int16_t clearHilite);
int32_t DrawPipeLabel(int32_t pipe, int32_t midVertex, int16_t clearHilite);
int32_t DrawCustLabel(int32_t cust, float symSize, int16_t clearHilite);

/**
 * Numbers the segments of a vertex run between its joints, each at the middle of its longest piece. The ends are world
 * points. The number stands above the line, or below the label lines that straddle it. Does nothing without a run.
 */
void DrawSegmentNumbers(int32_t firstVtx, int32_t lastVtx, double x1, double y1, double x2, double y2, int16_t custLine,
                        int32_t labelLines);

}  // namespace pn10

#endif
