// ReadFtg on any bytes, alone and behind a table; what was read is saved and read again under the same numbers.
#include <cstring>
#include <vector>

#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

namespace {

bool same(const Fdt& a, const Fdt& b) {
  return a.FTG_PIPE_ID == b.FTG_PIPE_ID && std::strcmp(a.FTG_NAME, b.FTG_NAME) == 0 && a.FTG_NUM == b.FTG_NUM &&
         std::memcmp(&a.FTG_EQL, &b.FTG_EQL, sizeof a.FTG_EQL) == 0 && a.FTG_FLAG == b.FTG_FLAG;
}

/** A line feed in a name, also behind its end, shifts the columns behind it: such a file is not what a save writes. */
bool plainNames() {
  for (int32_t i = 1; i <= ftgTop(); i++) {
    if (std::memchr(model.fdt[i].FTG_NAME, '\n', sizeof model.fdt[i].FTG_NAME)) return false;
  }
  return true;
}

void saveAndReadAgain(const char* base) {
  std::vector<Fdt> before(model.fdt, model.fdt + ftgTop() + 1);
  while (!before.empty() && before.back().FTG_PIPE_ID == 0) before.pop_back();
  fuzz::require(SaveFtg(base, "10.0") == 0);
  FreeFdt();
  const int32_t count = ReadFtg(base, 0, 0, "10.0");
  fuzz::require(before.empty() || count == static_cast<int32_t>(before.size()) - 1);
  for (size_t i = 1; i < before.size(); i++) {
    fuzz::require(before[i].FTG_PIPE_ID == 0 ? model.fdt[i].FTG_PIPE_ID == 0 : same(before[i], model.fdt[i]));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const char* const versions[] = {"10.0", "10.1", "1", nullptr};
  const char* const version = versions[data[0] & 3];
  const char* const base = fuzz::base().c_str();
  fuzz::write(".fdt", data + 1, size - 1);
  const int64_t records = static_cast<int64_t>(size) - 1 - 4;
  const int32_t count = ReadFtg(base, 0, 0, version);
  fuzz::require(count == (records <= 0 ? 0 : static_cast<int32_t>((records + 31) / 32)) && ftgTop() == count);
  fuzz::require(ReadFtg(base, 1, data[0], version) == 2 * count);
  if (plainNames()) saveAndReadAgain(base);
  FreeFdt();
  return 0;
}
