/** The picture sheet: every operation of the platform that paints, at places that the probes of its test know. */
#ifndef PN10_TESTS_SHEET_SCENES_H
#define PN10_TESTS_SHEET_SCENES_H

#include "platform/gdi.h"

namespace pn10::test {

constexpr int kSheetWidth = 1000, kSheetHeight = 1260, kSheetDpi = 100;

void paintSheet(HDC dc);

}  // namespace pn10::test

#endif
