// The committed seeds of every fuzz target, run as ordinary tests: a broken promise aborts the program that runs it.
#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "support/support.h"

extern "C" {
#define FUZZ_TARGET(name) int fuzz_##name(const uint8_t* data, size_t size);
#include "fuzz_targets.inc"
#undef FUZZ_TARGET
}

namespace pn10::test {
namespace {

namespace fs = std::filesystem;

struct Target {
  const char* name;
  int (*run)(const uint8_t* data, size_t size);
};

constexpr Target kTargets[] = {
#define FUZZ_TARGET(name) {#name, fuzz_##name},
#include "fuzz_targets.inc"
#undef FUZZ_TARGET
};

struct Seed {
  Target target;
  fs::path file;
};

void PrintTo(const Seed& seed, std::ostream* out) { *out << seed.file; }

std::vector<Seed> seeds() {
  std::vector<Seed> all;
  for (const Target& target : kTargets) {
    const fs::path folder = fs::path(PN10_FUZZ_DIR) / "seeds" / target.name;
    if (!fs::is_directory(folder)) continue;
    for (const auto& entry : fs::directory_iterator(folder)) all.push_back({target, entry.path()});
  }
  std::sort(all.begin(), all.end(), [](const Seed& a, const Seed& b) { return a.file < b.file; });
  return all;
}

class Seeds : public testing::TestWithParam<Seed> {
  Fresh fresh;
};

TEST_P(Seeds, holds) {
  const std::string bytes = readFile(GetParam().file.string());
  /* a copy of the exact size, so that a sanitizer sees one byte too many */
  const std::vector<uint8_t> data(bytes.begin(), bytes.end());
  EXPECT_EQ(GetParam().target.run(data.data(), data.size()), 0);
}

INSTANTIATE_TEST_SUITE_P(Every, Seeds, testing::ValuesIn(seeds()), [](const auto& info) {
  return std::string(info.param.target.name) + "_" + info.param.file.filename().string();
});

TEST(SeedFolders, every_target_has_seeds_and_every_folder_a_target) {
  std::set<std::string> targets, folders;
  for (const Target& target : kTargets) targets.insert(target.name);
  for (const auto& entry : fs::directory_iterator(fs::path(PN10_FUZZ_DIR) / "seeds")) {
    folders.insert(entry.path().filename().string());
  }
  EXPECT_EQ(targets, folders);
}

TEST(SeedFolders, the_readme_has_a_row_for_every_target_and_no_other) {
  const std::string readme = readFile(std::string(PN10_FUZZ_DIR) + "/README.md");
  std::set<std::string> targets, rows;
  for (const Target& target : kTargets) targets.insert(target.name);
  for (size_t at = readme.find("\n| `"); at != std::string::npos; at = readme.find("\n| `", at + 1)) {
    rows.insert(readme.substr(at + 4, readme.find('`', at + 4) - at - 4));
  }
  EXPECT_EQ(rows, targets);
}

}  // namespace
}  // namespace pn10::test
