/** Searches of the five lookups that are scanned: the first row, or the number of rows, with exactly this key. */
#include <cstring>

#include "exports/pn10gdi.h"
#include "lookup/lookup.h"

namespace pn10 {
namespace {

/** The scan takes in the empty row behind the last one: an empty key finds it. */
template <class Row>
int32_t find(const Lut<Row>& lut, const char* key, bool countMatches) {
  if (!key || !lut.rows) return 0;
  const size_t bytes = strnlen(key, sizeof Row::KEY_TEXT) + 1;
  if (bytes > sizeof Row::KEY_TEXT) return 0;
  int32_t matches = 0;
  for (int32_t row = 1; row <= lut.count; row++) {
    if (std::memcmp(lut.rows[row].KEY_TEXT, key, bytes) != 0) continue;
    if (!countMatches) return row;
    matches++;
  }
  return matches;
}

}  // namespace
}  // namespace pn10

using namespace pn10;

int32_t FindFLutRno(const char* key, int16_t countMatches) { return find(lookups.flut, key, countMatches); }
int32_t FindRLutRno(const char* key, int16_t countMatches) { return find(lookups.rlut, key, countMatches); }
int32_t FindVLutRno(const char* key, int16_t countMatches) { return find(lookups.vlut, key, countMatches); }
int32_t FindWLutRno(const char* key, int16_t countMatches) { return find(lookups.wlut, key, countMatches); }
int32_t FindCLutRno(const char* key, int16_t countMatches) { return find(lookups.clut, key, countMatches); }
