// ReadCdt with the binding of service lines: the first bytes tell how many pipes there are and how long the vertex file
// is.
#include <algorithm>

#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  const size_t vtxBytes = std::min(size - 3, (data[1] + size_t{256} * data[2]) % 4096);
  fuzz::write(".vtx", data + 3, vtxBytes);
  const uint8_t* const custs = data + 3 + vtxBytes;
  const size_t custBytes = size - 3 - vtxBytes;
  fuzz::write(".cdt", custs, custBytes);
  ReadVtx(fuzz::base().c_str(), 0);
  model.pipeCount = data[0] % 8;
  const int32_t last = ReadCdt(fuzz::base().c_str(), 0);
  fuzz::require(last >= 0 && model.custCount == static_cast<int32_t>((custBytes + 213) / 214));
  for (int32_t c = 1; c <= custTop(); c++) {
    const Cdt& cust = model.cdt[c];
    const CXY& screen = model.cxy[c];
    fuzz::require(cust.REC_STATUS < 0 || (cust.PIPE_REC <= model.pipeCount && cust.ID <= last));
    fuzz::require(screen.FIRST_VTX >= 0 && screen.LAST_VTX >= screen.FIRST_VTX && screen.LAST_VTX <= vtxTop());
  }
  FreeModel();
  return 0;
}
