/**
 * Names and link identifiers against a search text, without regard to case.
 *
 * The text is given in upper case. A stored field counts without the white space at its end. Case and white space
 * are those of the C locale: a host's locale must not change what is found.
 */
#ifndef PN10_SEARCH_TEXT_MATCH_H
#define PN10_SEARCH_TEXT_MATCH_H

#include <cstddef>
#include <cstdint>

#include "fields/text.h"

namespace pn10 {

/** Length of a field of at most `width` bytes without the white space at its end. */
constexpr int32_t trimmedField(const char* field, int32_t width) {
  int32_t n = 0;
  while (n < width && field[n]) n++;
  return static_cast<int32_t>(trimmedLength(field, static_cast<size_t>(n)));
}

/** A search text and how it is compared. */
class TextMatch {
 public:
  /** `text` null counts as empty; `length` as the caller gives it. */
  TextMatch(const char* text, int32_t length, bool partial);

  /** Whether a field of at most `width` bytes equals the text, or holds it when partial. */
  bool matches(const char* field, int32_t width) const {
    // Nearly every record of a scan fails on its first character.
    if (!partial_ && upper(field[0]) != first_ && !isSpace(field[0])) return false;
    return compare(field, width);
  }

 private:
  bool compare(const char* field, int32_t width) const;

  const char* text_;
  int32_t length_; /* as given */
  int32_t stored_; /* bytes that the text really has */
  char first_;
  bool partial_;
};

/**
 * Runs `test` over the rows from `start` to `top`, then, if none passed and the start was not 1, over the rows
 * before the start; returns the first row that passes, or 0.
 */
template <class Test>
int32_t scanWrapped(int32_t start, int32_t top, Test test) {
  const int32_t from = start < 1 ? 1 : start;
  for (int32_t row = from; row <= top; row++) {
    if (test(row)) return row;
  }
  for (int32_t row = 1; row < from && row <= top; row++) {
    if (test(row)) return row;
  }
  return 0;
}

}  // namespace pn10

#endif
