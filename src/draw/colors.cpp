/** Colours of selected items, and colours that stand out from a background. */
#include <cstdlib>

#include "draw/frame.h"

namespace pn10 {

namespace {

constexpr int32_t kColorBits = 0xFFFFFF;

int32_t byteOf(int32_t color, int index) { return color >> (8 * index) & 0xFF; }

/** The index of the largest byte; on a tie the earlier one. */
int largestByte(int32_t color) {
  int largest = byteOf(color, 1) > byteOf(color, 0) ? 1 : 0;
  if (byteOf(color, 2) > byteOf(color, largest)) largest = 2;
  return largest;
}

}  // namespace

int32_t ContrastColor(int32_t color, int32_t background) {
  const int32_t complement = ~color & kColorBits;
  if (std::llabs(int64_t{complement} - background) > 4) return complement;
  return (color ^ 0xFF << 8 * largestByte(color)) & kColorBits;
}

int32_t HiliteColor(int32_t color) {
  const int32_t hilite = drawState.Plot->HiliteColor;
  return hilite < 0 ? ContrastColor(color, drawState.View->BackColor) : hilite;
}

}  // namespace pn10
