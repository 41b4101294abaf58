// ReadCLut on any bytes.
#include "lut_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  pn10::fuzz::readLookup({388, 1, ReadCLut, GetCLutVal, FindCLutRno, CLUT_NAME}, data, size);
  return 0;
}
