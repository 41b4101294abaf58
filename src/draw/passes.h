/** The passes of a picture and what they paint with. */
#ifndef PN10_DRAW_PASSES_H
#define PN10_DRAW_PASSES_H

#include "model/draw_state.h"

namespace pn10 {

/**
 * Each pass paints the items of a range, records 1 to the last of its table at most, and answers -1 when the user
 * cancelled, else 0. With `clearHilite` it takes selections and grips away; a set recolour flag resolves the colours
 * anew and is cleared by a pass that ran to its end. Sizes of the paper go by `sizeFactor` and `penFactor`.
 *
 * The pipe pass goes first: it marks the end nodes of every pipe that it drew for the node pass, and the pipe itself
 * for its customers. `showNodes` and `showCustomers`: 1 all, -1 flags alone, 0 (nodes) nothing.
 */
int32_t DrawPipes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  float viewWidth, float sizeFactor, float penFactor, int32_t penWidth, HPEN plainPen,
                  int16_t showNodes, int16_t linesOnly);
int32_t DrawNodes(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, float sizeFactor, int16_t showNodes);
int32_t DrawCusts(int32_t first, int32_t last, int16_t clearHilite, int16_t* recolour, int16_t mono, int32_t paperColor,
                  int32_t penWidth, int32_t dpi, int16_t showCustomers);

/**
 * What turns the size of a symbol on the screen into its size on the sheet: a print size in thousandths of an inch or,
 * metric, of a millimetre over the default size in world units, or 1 where that is 0; times the scale of a reduced
 * raster. 1 on the screen.
 */
float SymbolPrintFactor(int32_t dpi, int32_t printSize, float defaultSize);

/** The symbol size of a node in world units: its own, else the default; half as large again for valves. */
float CalcNodeSize(int32_t node);

/**
 * Flags beside a world point. Size 0 is a tenth of the larger side of the view. A colour of -1 takes the selected pen
 * and brush, another one brings its own. The load flag is a symbol where the pennant is; the post an outline of it.
 */
void DrawFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color);
void DrawLoadFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color, int16_t symbol);
void DrawFlagPost(float size, double x, double y);

/** The arc of a pipe between two points of the model plane, in lines of a degree; -1 when it has no geometry. */
int32_t DrawPipeArc(int32_t pipe, double x1, double y1, float z1, double x2, double y2, float z2);

/** The arrow of a flow (positive: to the second point) on a segment of the world plane, in the selected pen. */
void DrawFlowArrow(int32_t pipe, double flow, double x1, double y1, double x2, double y2, float arrowSize);

/** The symbol of a device, or of a fitting with a device code, over a pipe between two points of the world plane. */
void DrawDeviceSymbol(int32_t pipe, double x1, double y1, double x2, double y2);
void DrawFittingSymbol(int32_t pipe, int16_t code, double x1, double y1, double x2, double y2);

/** The passes of graphic text and user graphics. */
int32_t DrawTexts(int32_t first, int32_t last, int16_t mono, int32_t paperColor, int16_t clearHilite);
int32_t DrawUserGraphics(int32_t first, int32_t last, int16_t clearHilite, int16_t mono, int32_t paperColor,
                         float sizeFactor, float penFactor, int32_t penWidth);

}  // namespace pn10

#endif
