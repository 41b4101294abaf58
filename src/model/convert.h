/** Casts that are defined for every input: truncation toward zero, held at the limits, 0 for what is not a number. */
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

/** Truncates toward zero to 32 bits and keeps the low 16 with sign, as the setters store short members. */
constexpr int16_t toInt16(double value) { return static_cast<int16_t>(static_cast<uint16_t>(toInt32(value))); }

/** Truncates toward zero to 32 bits and keeps the low eight, as the setters store byte members. */
constexpr uint8_t toByte(double value) { return static_cast<uint8_t>(toInt32(value)); }

/** Rounds to single precision; a double beyond its range becomes infinite, which is defined under IEC 60559. */
constexpr float toFloat(double value) { return static_cast<float>(value); }

}  // namespace pn10

#endif
