// Texts that hosts hand over: units, names to be found, settings. Any bytes are harmless and answered alike.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

namespace {

constexpr const char* kFamilies[] = {"L", "D", "E", "P", "Q", "T", "F", "VIS", "VEL", "HV", ""};

void trim(std::string text) {
  const size_t length = std::strlen(text.c_str());
  TrimRight(text.data());
  fuzz::require(std::strlen(text.c_str()) <= length);
  StrUpper(text.data());
  const std::string once = text.c_str();
  StrUpper(text.data());
  fuzz::require(once == text.c_str());
}

/** Nodes and pipes named by pieces of the text; each piece is found where it stands or earlier. */
void find(const std::string& text) {
  constexpr int32_t kRecords = 5;
  ReallocNdt(kRecords), ReallocNXY(kRecords), ReallocPdt(kRecords), ReallocPXY(kRecords);
  model.nodeCount = model.pipeCount = kRecords;
  std::string names[kRecords + 1];
  for (int32_t n = 1; n <= kRecords; n++) {
    model.ndt[n] = {}, model.pdt[n] = {};
    names[n] = text.substr(std::min(text.size(), 7 * static_cast<size_t>(n)), 20).c_str();
    std::memcpy(model.ndt[n].NODENAME, names[n].c_str(), names[n].size());
    std::memcpy(model.pdt[n].LINK_ID, names[n].c_str(), names[n].size());
  }
  for (int32_t n = 1; n <= kRecords; n++) {
    std::string wanted = names[n];
    TrimRight(wanted.data());
    StrUpper(wanted.data());
    const auto length = static_cast<int32_t>(std::strlen(wanted.c_str()));
    for (const int16_t partial : {int16_t{0}, int16_t{1}}) {
      const int32_t node = FindNodeByName(wanted.c_str(), length, 0, partial);
      fuzz::require(node >= 0 && node <= n && (length == 0 || node > 0));
      const int32_t pipe = FindPipeByLinkID(wanted.c_str(), 0, partial);
      fuzz::require(pipe >= 0 && pipe <= n && (length == 0 || pipe > 0));
    }
    FindPipeByNodeName(names[n].c_str(), names[1].c_str());
  }
  FreeModel();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const char* const family = kFamilies[data[0] % std::size(kFamilies)];
  fuzz::require(std::isfinite(GetUnitFactor(text.c_str(), 1000.0f, family)));
  GetUnitFactor("psi", 0.0f, text.c_str());
  SetGlobalUnits(text.c_str(), text.c_str(), text.c_str(), 1.0f, 1.0f, 0.0f, 0.0f);
  SetGlobalGDI(text.c_str(), text.c_str());
  trim(text);
  find(text);
  SetGlobalGDI("", "");
  return 0;
}
