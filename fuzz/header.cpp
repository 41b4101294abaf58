// HdrIo and GetValFromHdrFile on any bytes; what was read is written and read again line by line.
#include <cstring>
#include <initializer_list>
#include <vector>

#include "exports/pn10gdi.h"
#include "one_file.h"

using namespace pn10;

namespace {

constexpr char kMagic[] = "PN.10.2";

std::vector<std::string> lines() {
  std::vector<std::string> all;
  for (int16_t i = 0; i < 201; i++) {
    char text[257];
    GetHdrVal(i, text);
    all.emplace_back(text);
  }
  return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::write(".hdr", data, size);
  const std::string path = fuzz::base() + ".hdr";
  const int32_t result = HdrIo(path.c_str(), kMagic, 1);
  fuzz::require(result == 200 || result == -1);
  for (const int16_t line : std::initializer_list<int16_t>{-1, 0, 7, 123, 200, 201}) {
    char text[257] = "";
    fuzz::require(GetValFromHdrFile(path.c_str(), kMagic, text, line) == (result == 200 ? 0 : -1));
    fuzz::require(std::memchr(text, 0, sizeof text) != nullptr);
  }
  if (result == 200) {
    fuzz::require(HdrIo(path.c_str(), kMagic, 1) == 200);
    const std::vector<std::string> before = lines();
    size_t longest = 0;
    for (const std::string& line : before) longest = line.size() > longest ? line.size() : longest;
    fuzz::require(longest <= 255);
    fuzz::require(HdrIo(path.c_str(), kMagic, 0) == 200 && HdrIo(path.c_str(), kMagic, 1) == 200);
    fuzz::require(longest == 255 || lines() == before); /* a line of 255 bytes comes back in two pieces */
  }
  FreeModel();
  return 0;
}
