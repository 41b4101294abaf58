/** The pen of a line style number. */
#include <cstdint>
#include <cstdlib>

#include "draw/lines.h"

namespace pn10 {

namespace {

/** On and off lengths of a style in pen widths; a 1 is a dot: one device unit whatever the width. */
struct DashRow {
  int16_t style;
  const char* lengths;
};

constexpr DashRow kDashes[] = {
    {7, "22121212"}, {16, "42"}, {17, "4212"}, {18, "421212"}, {19, "42121212"}, {20, "42122212"}, {22, "222212"},
};

/** Styles that are a solid line under their decorations or arrow head. */
constexpr bool isDecorated(int32_t style) { return (style >= 10 && style <= 15) || style == 21; }

}  // namespace

int32_t DashPattern(int16_t style, int32_t penWidth, uint32_t* lengths, int32_t* count) {
  *count = 0;
  for (const DashRow& row : kDashes) {
    if (row.style != style) continue;
    for (const char* c = row.lengths; *c; c++) {
      const uint32_t widths = static_cast<uint32_t>(*c - '0');
      lengths[(*count)++] = widths == 1 ? 1 : widths * static_cast<uint32_t>(penWidth);
    }
  }
  return 0;
}

/** A negative number stands for the same magnitude. A number without a meaning reaches the platform as it is. */
HPEN MakeStylePen(int16_t style, int32_t width, int32_t color) {
  const int32_t number = std::abs(int32_t{style});
  DWORD lengths[8];
  uint32_t pattern[8];
  int32_t count = 0;
  DashPattern(static_cast<int16_t>(number), width, pattern, &count);
  for (int32_t i = 0; i < count; i++) lengths[i] = pattern[i];
  DWORD penStyle = PS_GEOMETRIC | static_cast<DWORD>(number - 1);
  if (count) penStyle = PS_GEOMETRIC | PS_USERSTYLE;
  if (isDecorated(number)) penStyle = PS_GEOMETRIC | PS_SOLID;
  const LOGBRUSH brush{BS_SOLID, static_cast<COLORREF>(color), 0};
  return ExtCreatePen(penStyle, static_cast<DWORD>(width), &brush, static_cast<DWORD>(count),
                      count ? lengths : nullptr);
}

}  // namespace pn10
