/** A record context over the world 0..200 by 200..0, 2000 x 2000 device units: ten to a world unit, Y down. */
#ifndef PN10_TESTS_DRAW_PICTURE_H
#define PN10_TESTS_DRAW_PICTURE_H

#include "draw/frame.h"
#include "exports/pn10platform.h"
#include "support/support.h"

namespace pn10::test {

struct Picture : Fresh {
  ViewOpts view{};
  PlotOpts plot{};
  UnitOpts unit{};
  HDC dc = PnCreateRecordDC(2000, 2000, 96);

  explicit Picture(int16_t projection = 0, int16_t iso = 0, int16_t devMode = 0) { set(projection, iso, devMode); }
  ~Picture() { PnDeleteDC(dc); }

  void set(int16_t projection, int16_t iso, int16_t devMode, double mapScale = 100) {
    SetDrawVars(devMode, dc, nullptr, 1, &plot, &view, &unit, nullptr, 0, 0, iso, projection, 5, mapScale);
    scale(0);
  }
  void scale(float minPixels) { SetPNGDIScale(0, 200, 200, 0, 2000, 2000, minPixels, 10, 0, 60, 20, 40); }
};

}  // namespace pn10::test

#endif
