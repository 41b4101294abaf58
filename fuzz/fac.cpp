// ReadFac on any bytes; what was read is saved and read again with the same numbers.
#include <cstring>
#include <vector>

#include "facility/facility.h"
#include "one_file.h"

using namespace pn10;

namespace {

std::vector<int32_t> numbers() {
  std::vector<int32_t> all;
  for (int32_t row = 1; row <= facTop(); row++) all.push_back(facilities.rows[row].Idx);
  return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::write(".fac", data, size);
  const std::string path = fuzz::base() + ".fac";
  const int32_t count = ReadFac(path.c_str());
  fuzz::require(count == -1 || count >= 4);
  fuzz::require(facilities.count == (count < 0 ? 0 : count));
  for (int32_t number : {-1, 0, 7, 29999, 30002, 30003, 30005, 30006}) {
    const int32_t row = FindFacRnoIdx(number);
    fuzz::require(row == 0 || (row > 0 && row <= facTop()));
    fuzz::require(number < 30002 || count < 0 || row > 0);
  }
  bool fits = count > 0;
  for (int32_t row = 1; row <= facTop(); row++) {
    fits = fits && strnlen(facilities.rows[row].Name, 257) < 255 && strnlen(facilities.rows[row].PressUnits, 257) < 255;
    FindFacRnoId(facilities.rows[row].Name);
  }
  const std::vector<int32_t> before = numbers();
  if (fits) {
    fuzz::require(SaveFac(path.c_str(), "title") == count);
    fuzz::require(ReadFac(path.c_str()) == count && numbers() == before);
  }
  FreeFac();
  return 0;
}
