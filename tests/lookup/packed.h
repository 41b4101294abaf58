/** Lookup files packed byte by byte, at offsets written down here once more. */
#ifndef PN10_TESTS_LOOKUP_PACKED_H
#define PN10_TESTS_LOOKUP_PACKED_H

#include <string>
#include <vector>

#include "support/support.h"

namespace pn10::test {

/** A record of `stride` zero bytes in which values are set by offset. */
class Packed {
 public:
  explicit Packed(size_t stride) : bytes_(stride, '\0') {}
  Packed& text(size_t at, std::string_view value) { return put(at, Bytes().text(value, value.size())); }
  Packed& i16(size_t at, int value) { return put(at, Bytes().i16(value)); }
  Packed& i32(size_t at, int64_t value) { return put(at, Bytes().i32(value)); }
  Packed& f32(size_t at, float value) { return put(at, Bytes().f32(value)); }
  const std::string& str() const { return bytes_; }

 private:
  Packed& put(size_t at, const Bytes& value) {
    bytes_.replace(at, value.size(), value.str());
    return *this;
  }
  std::string bytes_;
};

/** The header record and the rows behind it. */
inline std::string lutFile(size_t stride, const std::vector<Packed>& rows) {
  std::string file = "PN.10.3   0";
  file.resize(40, ' ');
  file.resize(stride, '\0');
  for (const Packed& row : rows) file += row.str();
  return file;
}

constexpr size_t kPLutStride = 432, kFLutStride = 436, kRLutStride = 430;
constexpr size_t kVLutStride = 344, kWLutStride = 324, kCLutStride = 388;

/** A pipe size of this key whose lengths are in inches. */
inline Packed pipeSize(std::string_view key) { return Packed(kPLutStride).text(0, key).f32(70, 1.0f); }

/** Files of a folder of their own, loaded at once. */
struct LutFiles {
  TempDir dir;
  std::string path(const std::string& bytes) {
    dir.write("lut", bytes);
    return dir.path("lut");
  }
  int32_t plut(const std::vector<Packed>& rows) { return ReadPLut(path(lutFile(kPLutStride, rows)).c_str()); }
  int32_t flut(const std::vector<Packed>& rows) { return ReadFLut(path(lutFile(kFLutStride, rows)).c_str()); }
  int32_t rlut(const std::vector<Packed>& rows) { return ReadRLut(path(lutFile(kRLutStride, rows)).c_str()); }
  int32_t vlut(const std::vector<Packed>& rows) { return ReadVLut(path(lutFile(kVLutStride, rows)).c_str()); }
  int32_t wlut(const std::vector<Packed>& rows) { return ReadWLut(path(lutFile(kWLutStride, rows)).c_str()); }
  int32_t clut(const std::vector<Packed>& rows) { return ReadCLut(path(lutFile(kCLutStride, rows)).c_str()); }
};

/** A fresh process state, and files to load into it. */
class LookupFiles : public testing::Test {
 protected:
  Fresh fresh;
  LutFiles files;
};

/** Text buffer that a text field is read into. */
struct Text {
  char bytes[300] = "?";
  operator char*() { return bytes; }
  std::string str() const { return bytes; }
};

}  // namespace pn10::test

#endif
