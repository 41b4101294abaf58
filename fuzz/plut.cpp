// ReadPLut on any bytes; the searches by answers and entry by entry must agree.
#include "lut_fuzz.h"

namespace {

double get(int32_t row, char* text, int16_t field) { return GetPLutVal(static_cast<int16_t>(row), text, field); }

/** Searches once, then gives the index to the host, which makes the second search a scan. */
int32_t findBoth(const char* key, int16_t countMatches) {
  const int32_t found = FindPLutRno(key, countMatches);
  GetPPTypeAddress();
  pn10::fuzz::require(FindPLutRno(key, countMatches) == found);
  return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  pn10::fuzz::readLookup({432, 0, ReadPLut, get, FindPLutRno, PLUT_NAME}, data, size);
  pn10::fuzz::readLookup({432, 0, ReadPLut, get, findBoth, PLUT_NAME}, data, size);
  return 0;
}
