/** The picture sheet: every operation of the platform that paints, at places that probes know. */
#ifndef PN10_TESTS_SHEET_SCENES_H
#define PN10_TESTS_SHEET_SCENES_H

#include "platform/gdi.h"

namespace pn10::test {

constexpr int kSheetWidth = 1000, kSheetHeight = 1260, kSheetDpi = 100;

/** A place inside a plain area, and the colour that every kind of context shows there. */
struct Probe {
  const char* what;
  int x, y;
  uint32_t rgb;
};
extern const Probe kProbes[];
extern const int kProbeCount;

void paintSheet(HDC dc);

}  // namespace pn10::test

#endif
