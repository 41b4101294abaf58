// ReadRdx on any bytes; a search of the table and one through the index of a save must agree.
#include "model/rdx_index.h"
#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const int32_t count = data[0] % 40;
  fuzz::write(".rdx", data + 1, size - 1);
  fuzz::require(ReadRdx(count, fuzz::base().c_str()) == 0);
  RdxIndex index(count);
  for (int32_t row = 1; row <= count && row < model.rdxRows; row++) {
    char key[41], longText[257], shortText[41];
    copyText(key, model.rdx[row].KEY_TEXT);
    const int32_t indexed = index.find(key);
    const int32_t found = FindRdx(count, key, longText, shortText);
    fuzz::require(found == indexed && found >= 1 && found <= row);
    PutRdx(count + row, longText, key, shortText);
    if (row > 1 && model.rdx == nullptr) break;
  }
  FreeModel();
  return 0;
}
