/** Lookup files packed byte by byte: a header record, then one record per row. */
#ifndef PN10_TESTS_SIZE_FILES_H
#define PN10_TESTS_SIZE_FILES_H

#include "support/support.h"

namespace pn10::test {

/** A file of any lookup whose rows have nothing but their key, in the first 40 bytes. */
inline std::string keyFile(size_t stride, const std::vector<std::string>& keys) {
  Bytes file;
  file.padTo(stride);
  for (const std::string& key : keys) file.text(key, 40).padTo(file.size() + stride - 40);
  return file.str();
}

/** A pipe size in inches and psi. */
struct Size {
  const char* key;
  float wall, outsideD, insideD, roughness, efficiencyPercent, yield;
};

inline std::string sizeFile(const std::vector<Size>& sizes) {
  Bytes file;
  file.padTo(432);
  for (const Size& s : sizes) {
    file.text(s.key, 40).f32(s.wall).f32(s.outsideD).f32(s.insideD).f32(s.roughness).f32(s.efficiencyPercent);
    file.f32(0).f32(s.yield).i16(0).f32(1.0f).text("Inches", 10).i16(0).i16(0).text("Psi", 10);
    file.padTo(file.size() + 432 - 98);
  }
  return file.str();
}

}  // namespace pn10::test

#endif
