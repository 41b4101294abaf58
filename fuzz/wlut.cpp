// ReadWLut on any bytes.
#include "lut_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  pn10::fuzz::readLookup({324, 1, ReadWLut, GetWLutVal, FindWLutRno, WLUT_NAME}, data, size);
  return 0;
}
