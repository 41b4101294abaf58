/** The decimals of labelled quantities, from the host's digit table. */
#ifndef PN10_FIELDS_NUMBER_FORMAT_H
#define PN10_FIELDS_NUMBER_FORMAT_H

#include <cstddef>
#include <cstdint>

namespace pn10 {

/** Entries of the digit table, the head of UnitOpts. */
constexpr int32_t kDigitEntries = 32;

/** The entry of the digit table truncated to an integer; 0 outside the table or without one. */
int32_t digitsOf(int32_t index);

/** Prints `value` as the format of GetNumFormat(index) does, cut to `size`; returns the length. */
size_t printDigits(char* text, size_t size, int32_t index, double value);

}  // namespace pn10

#endif
