/** Letters and blanks as the C locale knows them, whatever locale the host has set. */
#ifndef PN10_FIELDS_TEXT_H
#define PN10_FIELDS_TEXT_H

#include <cstddef>

namespace pn10 {

/** toupper and isspace of the C locale; bytes above 127 stay what they are. */
constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/** The length of the first `length` bytes without the white space at their end. */
constexpr size_t trimmedLength(const char* text, size_t length) {
  while (length > 0 && isSpace(text[length - 1])) length--;
  return length;
}

/** Upper-cases `from` into a buffer of N bytes, cut to N - 1 and terminated; null counts as empty. Returns the length.
 */
template <size_t N>
size_t copyUpper(char (&to)[N], const char* from) {
  size_t n = 0;
  while (from && n < N - 1 && from[n]) {
    to[n] = upper(from[n]);
    n++;
  }
  to[n] = 0;
  return n;
}

}  // namespace pn10

#endif
