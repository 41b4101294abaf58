/**
 * The state of the picture: device, windows, scales, the host's option records and the sizes derived from them.
 *
 * It stands among the process-wide tables because fields, units, geometry and searches read it too; only the
 * calls of draw/ and plot/ change it.
 */
#ifndef PN10_MODEL_DRAW_STATE_H
#define PN10_MODEL_DRAW_STATE_H

#include "exports/pn10gdi.h"
#include "platform/gdi.h"

#undef DrawState /* a macro of <windows.h> */

namespace pn10 {

/**
 * One static instance. Zero at load, except: View, Plot and Unit point at zeroed records, ReducedScale is 1
 * and LabelEscapement -1.
 */
struct DrawState {
  int16_t DevMode; /* 0 screen, 1 print, 2 print through a reduced raster */
  HDC DC;          /* device context */
  HWND DrawWindow;
  HWND KeyWindow;
  float LoadFactor; /* also the diversity factor of node and customer loads */
  const PlotOpts* Plot;
  const ViewOpts* View;
  const UnitOpts* Unit;
  int32_t SingleNode;
  int32_t SingleCust;
  int16_t IsoFlag;
  int16_t MapMode; /* 0 plain, 1 isometric, 2 geographic, 3 plain */
  int16_t Zoom;
  double MapScale; /* host's scale number; not settings.lengthFactor */
  float Iso30;     /* 0.5235987901687622 */
  float Iso60;     /* 1.0471975803375244 */
  int32_t Black, Blue, Cyan, Grey, Green, Magenta, Red, White, Yellow;
  double X0, Y0, X1, Y1; /* world window */
  double ClipX0, ClipY0, ClipX1, ClipY1;
  double GeoX1, GeoY1, GeoX2, GeoY2; /* geographic (base) window */
  double ScaleX, ScaleY;
  float MinChord;
  float MinPipeLength;
  double PointsFactor;
  double UnitsPerDisplay;
  float ViewHeight;
  float DefaultNodeSize;
  float NodeLabelAngle;
  float TextHeightN; /* text height (nodes) */
  float TextHeightP; /* text height (pipes) */
  char FontFace[32]; /* set by StartPlot; 32 = LF_FACESIZE */
  float ReducedScale;
  /* shared by the passes */
  int16_t DevValue;      /* set by SetDev, read by nothing */
  float ViewWidth;       /* world width of the window */
  int32_t Dpi;           /* of the context, for MakeLogFont */
  float TextHeightC;     /* text height (customers) */
  float CustLabelAngle;  /* radians */
  float DefaultCustSize; /* world units */
  float ArrowSize;       /* world units */
  HPEN PlainPen;         /* black, width 1; leaders use it */
  int32_t CurPenWidth;   /* width of the pen in use */
  HFONT LabelFont;       /* shared label state */
  HGDIOBJ LabelOldFont;
  int16_t LabelEscapement; /* -1 = none set */
  LOGFONTA* LabelLogFont;
  double GeoTop;   /* set by SetGeoYVars: tile pixel Y of the window's top */
  double GeoScale; /* tile pixels per degree of window Y */
};
extern DrawState drawState;

}  // namespace pn10

#endif
