/** Dates of records: stored without dashes, read with them. */
#include "fields/field_table.h"

namespace pn10 {

double readDate(const void* member, int32_t, char* text) {
  if (!text) return 1.0;
  const char* d = static_cast<const char*>(member);
  const char dashed[] = {d[0], d[1], d[2], d[3], '-', d[4], d[5], '-', d[6], d[7], 0};
  std::memcpy(text, dashed, sizeof dashed);
  return 1.0;
}

void storeDate(void* member, int32_t, const char* text, double) {
  constexpr size_t kBytes = 9;
  const size_t length = text ? strnlen(text, kBytes) : 0;
  if (length) std::memmove(member, text, length);
  std::memset(static_cast<char*>(member) + length, 0, kBytes - length);
}

}  // namespace pn10
