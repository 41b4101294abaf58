/** The main program of every test program: GoogleTest, and --bless for golden files. */
#include <gtest/gtest.h>

#include <cstring>

namespace pn10::test {
extern bool blessing;
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (int i = 1; i < argc; i++) {
    if (!std::strcmp(argv[i], "--bless")) pn10::test::blessing = true;
  }
  return RUN_ALL_TESTS();
}

/** fontconfig 2.14 loses a pattern of its own when it reads its configuration; all other leaks are ours. */
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
