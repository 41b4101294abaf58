/** A model that is saved into a folder of its own, and the files that come of it. */
#ifndef PN10_TESTS_MODEL_SAVED_H
#define PN10_TESTS_MODEL_SAVED_H

#include "support/model_builder.h"

namespace pn10::test {

struct SaveTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();
  int32_t save(int32_t rdxCount = 0) { return SavePipe(rdxCount, base.c_str()); }
  std::string file(const char* extension) { return dir.read(std::string("model") + extension); }
};

/** The files in the order in which they are written; the reference file comes last, when a node asks for it. */
inline constexpr const char* kExtensions[] = {".cdt", ".ndt", ".fdt", ".pdt", ".vtx"};

}  // namespace pn10::test

#endif
