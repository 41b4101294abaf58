/** Casts that are defined for every input: truncation toward zero, 0 for what is not a number. */
#ifndef PN10_MODEL_CONVERT_H
#define PN10_MODEL_CONVERT_H

#include <cstdint>

namespace pn10 {

/** Truncates toward zero; values beyond int32 are held at its limits, NaN gives 0. */
constexpr int32_t toInt32(double value) {
  if (value > -2147483649.0 && value < 2147483648.0) return static_cast<int32_t>(value);
  if (value > 0) return INT32_MAX;
  return value < 0 ? INT32_MIN : 0;
}

/** Truncates toward zero; 0 for NaN and beyond int64, where a double has no low byte other than 0. */
constexpr int64_t toInt64(double value) {
  return value > -9223372036854775808.0 && value < 9223372036854775808.0 ? static_cast<int64_t>(value) : 0;
}

/** Truncates toward zero and keeps the low 16 bits with sign, as the setters store short members. */
constexpr int16_t toInt16(double value) { return static_cast<int16_t>(static_cast<uint16_t>(toInt64(value))); }

/** Truncates toward zero and keeps the low eight bits, as the setters store byte members. */
constexpr uint8_t toByte(double value) { return static_cast<uint8_t>(toInt64(value)); }

/** Rounds to single precision; a double beyond its range becomes infinite, which is defined under IEC 60559. */
constexpr float toFloat(double value) { return static_cast<float>(value); }

}  // namespace pn10

#endif
