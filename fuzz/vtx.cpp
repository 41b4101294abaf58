// ReadVtx on any bytes.
#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::write(".vtx", data, size);
  const int32_t count = ReadVtx(fuzz::base().c_str(), 0);
  fuzz::require(count == static_cast<int32_t>((size + 25) / 26) && model.vtxSlots == count + 1);
  for (int32_t v = 0; v <= vtxTop(); v++) fuzz::require(model.vtx[v].VTX_HILITE == 0 && model.vtx[v].VTX_DRAWN == 0);
  FreeModel();
  return 0;
}
