/**
 * Numbers in text, the same under every locale of the host: printed like "%f", "%e", "%i" of the C locale and
 * parsed like its atof and atol.
 */
#ifndef PN10_FIELDS_NUMBER_TEXT_H
#define PN10_FIELDS_NUMBER_TEXT_H

#include <cstddef>
#include <cstdint>

namespace pn10 {

/** Room for any double with up to 60 decimals, and its terminator. */
constexpr size_t kNumberSize = 384;

/** "%.<decimals>f" into `text` of `size` bytes, cut when it does not fit; returns the length written. */
size_t printFixed(char* text, size_t size, double value, int decimals = 6);

/** "%.<decimals>e" likewise. */
size_t printExponent(char* text, size_t size, double value, int decimals = 6);

/** "%i" likewise. */
size_t printInt(char* text, size_t size, int64_t value);

/** The number at the start of `text` after blanks, as atof reads it; 0.0 when there is none or `text` is null. */
double parseDouble(const char* text);

/** The whole number at the start of `text` as a 32-bit atol reads it, held at the limits of int32. */
int32_t parseInt(const char* text);

}  // namespace pn10

#endif
