/** The small square that marks a selected item on the screen. */
#include "draw/frame.h"
#include "draw/gdi_objects.h"
#include "draw/symbols.h"

namespace pn10 {

void DrawGrip(int16_t paint, double x, double y) {
  const DrawState& s = drawState;
  if (s.DevMode != 0 || !s.Plot->GripsOn || (paint && !s.Plot->GripsShown)) return;
  SelectedPen pen(s.DC);
  SelectedBrush brush(s.DC);
  pen.plain(PS_SOLID, 1, paint ? s.Plot->GripColor : s.View->BackColor);
  brush.indirect(BS_HOLLOW, s.View->BackColor);
  DrawMark(-3, toFloat(s.Plot->GripSize * 0.0001 * s.ViewHeight), 0, 0, 0, x, y);
}

}  // namespace pn10
