// Numbers in text against the C library, whose rules they follow; the process runs in the C locale.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "fields/number_text.h"
#include "one_file.h"

using namespace pn10;

namespace {

int32_t int32Of(const char* text) {
  const int64_t value = std::strtoll(text, nullptr, 10);
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

bool alike(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b)); }

void printBoth(double value, int decimals) {
  char ours[kNumberSize], theirs[kNumberSize];
  if (std::isnan(value)) return;
  const auto length = static_cast<size_t>(std::snprintf(theirs, sizeof theirs, "%.*f", decimals, value));
  fuzz::require(printFixed(ours, sizeof ours, value, decimals) == length && std::strcmp(ours, theirs) == 0);
  std::snprintf(theirs, sizeof theirs, "%.*e", decimals, value);
  printExponent(ours, sizeof ours, value, decimals);
  fuzz::require(std::strcmp(ours, theirs) == 0);
  char cut[5];
  fuzz::require(printFixed(cut, sizeof cut, value, decimals) == std::min<size_t>(length, 4));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  fuzz::require(parseInt(text.c_str()) == int32Of(text.c_str()));
  const double value = parseDouble(text.c_str());
  /* Hexadecimal numbers, which no file holds, read as 0. */
  if (text.find_first_of("xX") == std::string::npos) fuzz::require(alike(value, std::strtod(text.c_str(), nullptr)));
  printBoth(value, data[0] % 61);
  double any = 0;
  if (size >= 9) std::memcpy(&any, data + 1, sizeof any);
  printBoth(any, data[0] % 61);
  return 0;
}
