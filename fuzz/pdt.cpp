// ReadPdt with the binding of vertices: the first bytes tell how many nodes there are and how long the vertex file is.
#include <algorithm>

#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  const int32_t nodes = data[0] % 8;
  const size_t vtxBytes = std::min(size - 3, (data[1] + size_t{256} * data[2]) % 4096);
  fuzz::write(".vtx", data + 3, vtxBytes);
  fuzz::write(".pdt", data + 3 + vtxBytes, size - 3 - vtxBytes);
  ReadVtx(fuzz::base().c_str(), 0);
  ReadNdt(fuzz::base().c_str(), 1, 10.1f);
  ReallocNdt(nodes);
  ReallocNXY(nodes);
  model.nodeCount = nodes;
  const int32_t result = ReadPdt(fuzz::base().c_str(), 1, "psig", 0);
  fuzz::require(result >= -100 && result < 2000000000);
  for (int32_t p = 1; p <= pipeTop(); p++) {
    const PXY& screen = model.pxy[p];
    fuzz::require(model.pdt[p].SIZE_TYPE[20] == 0 && model.pdt[p].LINK_ID[20] == 0);
    fuzz::require(screen.FIRST_VTX >= 0 && screen.LAST_VTX >= screen.FIRST_VTX && screen.LAST_VTX <= vtxTop());
  }
  FreeModel();
  return 0;
}
