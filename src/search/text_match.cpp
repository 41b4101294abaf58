/** The comparison of a search text with a stored field. */
#include "search/text_match.h"

#include <cstring>

namespace pn10 {

namespace {
constexpr int32_t kLongestField = 64;
}

TextMatch::TextMatch(const char* text, int32_t length, bool partial)
    : text_(text ? text : ""),
      length_(length),
      stored_(static_cast<int32_t>(strnlen(text_, 2 * kLongestField))),
      first_(text_[0]),
      partial_(partial) {}

bool TextMatch::compare(const char* field, int32_t width) const {
  char name[kLongestField + 1];
  const int32_t n = trimmedField(field, width < kLongestField ? width : kLongestField);
  for (int32_t i = 0; i < n; i++) name[i] = upper(field[i]);
  name[n] = 0;
  if (!partial_) return n == length_ && name[0] == first_ && std::strncmp(name, text_, static_cast<size_t>(n)) == 0;
  return n >= length_ && stored_ <= n && std::strstr(name, text_) != nullptr;
}

}  // namespace pn10
