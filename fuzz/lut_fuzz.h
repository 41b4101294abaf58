/** What the targets of the lookups share: the bytes as a file, then every field and every name of the rows. */
#ifndef PN10_FUZZ_LUT_FUZZ_H
#define PN10_FUZZ_LUT_FUZZ_H

#include "exports/pn10gdi.h"
#include "exports/pn10platform.h"
#include "one_file.h"

namespace pn10::fuzz {

struct Lookup {
  size_t stride;
  int32_t countOfOneRecord; /* 0 where the count is the number of rows */
  int32_t (*read)(const char* path);
  double (*get)(int32_t row, char* text, int16_t field);
  int32_t (*find)(const char* key, int16_t countMatches);
  int16_t nameField;
};

/** A row whose name is not empty is among the matches of its name, unless these lie in another range. */
inline void readLookup(const Lookup& lut, const uint8_t* data, size_t size) {
  PnSetMessageBox([](const char*, const char*) {});
  write(".lut", data, size);
  const int32_t records = static_cast<int32_t>(size / lut.stride);
  const int32_t count = lut.read((base() + ".lut").c_str());
  require(count == (records == 0 ? -2 : records - 1 + lut.countOfOneRecord));
  for (int32_t row = -1; row <= records + 1; row++) {
    for (int16_t field = -1; field < 25; field++) {
      char text[300] = "1";
      lut.get(row, text, field);
    }
    char name[300] = "";
    lut.get(row, name, lut.nameField);
    const int32_t found = lut.find(name, 0), matches = lut.find(name, 1);
    require((found == 0) == (matches == 0) && found <= records && matches <= records);
  }
  FreePLut();
  FreeLut();
}

}  // namespace pn10::fuzz

#endif
