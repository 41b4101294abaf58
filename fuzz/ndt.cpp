// ReadNdt on any bytes; the first byte chooses the version.
#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  fuzz::write(".ndt", data + 1, size - 1);
  const int32_t result = ReadNdt(fuzz::base().c_str(), 0, data[0] & 1 ? 10.0f : 10.1f);
  fuzz::require(result >= 0 && result < 2000000000 && model.nodeCount == static_cast<int32_t>((size - 1 + 219) / 220));
  for (int32_t n = 0; n <= nodeTop(); n++) {
    const Ndt& node = model.ndt[n];
    fuzz::require(node.NODENAME[40] == 0 && node.P_UNITS[10] == 0 && node.Q_UNITS[10] == 0 && node.REC_DATE[8] == 0);
    fuzz::require(node.QX_DF <= 1 && node.QB_DF >= 0 && node.QB_DF <= 255);
  }
  GetLastNdt();
  FreeModel();
  return 0;
}
