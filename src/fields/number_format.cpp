/** Number formats by the host's digit table. */
#include "fields/number_format.h"

#include <cstring>

#include "fields/number_text.h"
#include "model/convert.h"
#include "model/draw_state.h"

namespace pn10 {

int32_t digitsOf(int32_t index) {
  if (!drawState.Unit || index < 0 || index >= kDigitEntries) return 0;
  return toInt32(static_cast<double>(drawState.Unit->Digits[index]));
}

size_t printDigits(char* text, size_t size, int32_t index, double value) {
  return printFixed(text, size, value, digitsOf(index));
}

}  // namespace pn10

void GetNumFormat(int16_t index, char* buffer) {
  if (!buffer) return;
  std::memcpy(buffer, "%0.", 3);
  const size_t digits = pn10::printInt(buffer + 3, 12, pn10::digitsOf(index));
  std::memcpy(buffer + 3 + digits, "f", 2);
}
