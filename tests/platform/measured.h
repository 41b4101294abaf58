/** The measured pixels and tables; they lie outside the tree, so a test that needs one skips without it. */
#ifndef PN10_TESTS_PLATFORM_MEASURED_H
#define PN10_TESTS_PLATFORM_MEASURED_H

#include <sstream>
#include <string>
#include <vector>

#include "support/support.h"

namespace pn10::test {

/** The lines of a measured file; empty when the folder is absent. */
inline std::vector<std::string> measured(const std::string& name) {
  std::vector<std::string> lines;
  const std::string path = sharedFile("gdi/" + name);
  if (path.empty()) return lines;
  std::istringstream in(readFile(path));
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace pn10::test

#define MEASURED_OR_SKIP(name)                   \
  const auto lines = pn10::test::measured(name); \
  if (lines.empty()) GTEST_SKIP() << "the measured pixels are not here: " << name

#endif
