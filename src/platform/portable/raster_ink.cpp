/** Colours, binary raster operations and brushes: what painting a pixel or a span does. */
#include "platform/portable/raster.h"

namespace pn10::portable {

/* The twenty colours of the default palette, which palette indices choose from; RRGGBB. */
static constexpr uint32_t kDefaultPalette[20] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080,
                                                 0xC0C0C0, 0xC0DCC0, 0xA6CAF0, 0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000,
                                                 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

uint32_t paintedColor(COLORREF color) {
  if (color & 0x01000000) { /* a palette index; one out of range is black, so 0xFFFFFFFF is */
    const uint32_t index = color & 0xFFFF;
    return index < 20 ? kDefaultPalette[index] : 0;
  }
  return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

/* An operation's number less one is its truth table: bit 0 for pen 0 on pixel 0, then 0 on 1, 1 on 0, 1 on 1. */
Ink combiningInk(int rop2, uint32_t rgb) {
  if (rop2 < R2_BLACK || rop2 > R2_WHITE) return {0, rgb};
  const int table = rop2 - 1;
  const uint32_t onClear = (table & 4 ? rgb : 0) | (table & 1 ? ~rgb : 0);
  const uint32_t onSet = (table & 8 ? rgb : 0) | (table & 2 ? ~rgb : 0);
  return {(onClear ^ onSet) & 0xFFFFFF, onClear & 0xFFFFFF};
}

Fill fillOf(const PaintState& state) {
  Fill fill;
  const BrushData& brush = *state.brush;
  if (brush.style == BS_HOLLOW) return fill;
  fill.ink = inkOf(state.rop2, paintedColor(brush.color));
  fill.visible = !fill.ink.nothing();
  if (brush.style != 2 || brush.hatch < HS_HORIZONTAL || brush.hatch > HS_DIAGCROSS) return fill;
  fill.hatch = brush.hatch;
  fill.gaps = state.bkMode == OPAQUE;
  fill.gapInk = inkOf(state.rop2, paintedColor(state.bkColor));
  fill.visible = fill.visible || fill.gaps;
  return fill;
}

/** The set columns of a hatch in a row, bit x for column x modulo 8: patterns are fixed to the device's corner. */
static uint32_t hatchRow(int32_t hatch, int64_t y) {
  const uint32_t row = static_cast<uint32_t>(y & 7);
  const uint32_t across = row == 3 ? 0xFF : 0, down = 1u << 4, falling = 1u << row, rising = 1u << (7 - row);
  switch (hatch) {
    case HS_HORIZONTAL:
      return across;
    case HS_VERTICAL:
      return down;
    case HS_FDIAGONAL:
      return falling;
    case HS_BDIAGONAL:
      return rising;
    case HS_CROSS:
      return across | down;
    default:
      return falling | rising;
  }
}

void fillSpan(const Canvas& canvas, const Fill& fill, int64_t y, int64_t left, int64_t right) {
  if (fill.hatch < 0) return paintSpan(canvas, fill.ink, y, left, right);
  if (y < canvas.clip.top || y >= canvas.clip.bottom) return;
  left = std::max<int64_t>(left, canvas.clip.left);
  right = std::min<int64_t>(right, canvas.clip.right);
  const uint32_t set = hatchRow(fill.hatch, y);
  for (int64_t x = left; x < right; x++) {
    if (set >> (x & 7) & 1) {
      fill.ink.apply(*canvas.at(x, y));
    } else if (fill.gaps) {
      fill.gapInk.apply(*canvas.at(x, y));
    }
  }
}

}  // namespace pn10::portable
