/** Numbers in text, by std::to_chars and std::from_chars, which know no locale. */
#include "fields/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace pn10 {

namespace {

size_t put(char* text, size_t size, const char* digits, const char* end) {
  if (size == 0) return 0;
  const size_t length = std::min(static_cast<size_t>(end - digits), size - 1);
  std::memcpy(text, digits, length);
  text[length] = 0;
  return length;
}

size_t print(char* text, size_t size, double value, std::chars_format format, int decimals) {
  char digits[kNumberSize];
  const auto done = std::to_chars(digits, digits + sizeof digits, value, format, std::clamp(decimals, 0, 60));
  return put(text, size, digits, done.ptr);
}

const char* skipBlanks(const char* text) {
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) text++;
  return text;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/** A number too large or too small for a double: infinity or zero, by the decimal exponent of its first digit. */
double outOfRange(const char* p) {
  int64_t point = 0, exponent = 0;
  bool started = false, fraction = false;
  for (; isDigit(*p) || (*p == '.' && !fraction); p++) {
    if (*p == '.') {
      fraction = true;
    } else {
      started = started || *p != '0';
      if (started && !fraction) point++;
      if (!started && fraction) point--;
    }
  }
  if (*p == 'e' || *p == 'E') {
    const bool negative = p[1] == '-';
    for (p += p[1] == '-' || p[1] == '+' ? 2 : 1; isDigit(*p); p++)
      exponent = std::min<int64_t>(exponent * 10 + (*p - '0'), 1 << 30);
    if (negative) exponent = -exponent;
  }
  return point + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

size_t printFixed(char* text, size_t size, double value, int decimals) {
  return print(text, size, value, std::chars_format::fixed, decimals);
}

size_t printExponent(char* text, size_t size, double value, int decimals) {
  return print(text, size, value, std::chars_format::scientific, decimals);
}

size_t printInt(char* text, size_t size, int64_t value) {
  char digits[24];
  const auto done = std::to_chars(digits, digits + sizeof digits, value);
  return put(text, size, digits, done.ptr);
}

double parseDouble(const char* text) {
  if (!text) return 0.0;
  const char* p = skipBlanks(text);
  const bool negative = *p == '-';
  if (*p == '-' || *p == '+') p++;
  if (*p == '-') return 0.0;  // from_chars would take a second sign
  double value = 0.0;
  const auto done = std::from_chars(p, p + std::strlen(p), value);
  if (done.ec == std::errc::invalid_argument) return 0.0;  // a sign alone is no number
  if (done.ec == std::errc::result_out_of_range) value = outOfRange(p);
  return negative ? -value : value;
}

int32_t parseInt(const char* text) {
  if (!text) return 0;
  const char* p = skipBlanks(text);
  const bool negative = *p == '-';
  if (*p == '-' || *p == '+') p++;
  int64_t value = 0;
  for (; isDigit(*p); p++) value = std::min<int64_t>(value * 10 + (*p - '0'), int64_t{1} << 40);
  return static_cast<int32_t>(std::clamp<int64_t>(negative ? -value : value, INT32_MIN, INT32_MAX));
}

}  // namespace pn10
