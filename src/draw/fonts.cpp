/** Fonts of labels: face, weight and height on screen, on paper and on a reduced raster. */
#include <cmath>

#include "draw/frame.h"
#include "model/tables.h"
#include "platform/kernel.h"

namespace pn10 {

void MakeLogFont(LOGFONTA* font, float screenSize, float printSize, int16_t screenBold, int16_t printBold,
                 int16_t sizeMode) {
  const DrawState& s = drawState;
  const bool screen = s.DevMode == 0, scaled = sizeMode == 1;
  copyText(font->lfFaceName, screen ? "Arial" : s.FontFace);
  font->lfWeight = (screen ? screenBold : printBold) ? FW_BOLD : FW_NORMAL;
  font->lfEscapement = 0;
  if (scaled) {
    font->lfHeight = toInt32(screen ? screenSize * s.PointsFactor * 1.4 : printSize * s.ScaleY * 0.14);
  } else {
    font->lfHeight = -MulDiv(toInt32(screen ? screenSize : printSize / 10), s.Dpi, 72);
  }
  if (s.DevMode != 2) return;
  font->lfWeight = toInt32(double(font->lfWeight) * s.ReducedScale);
  font->lfHeight = toInt32(std::ceil(double{s.ReducedScale} * double(font->lfHeight)));
  if (font->lfHeight == 0) font->lfHeight = -1;
}

}  // namespace pn10
