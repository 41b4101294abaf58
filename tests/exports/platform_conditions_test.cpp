// Where a line may ask for the system it is compiled on: in the platform folder and in the headers for hosts.
#include <algorithm>
#include <filesystem>
#include <regex>
#include <sstream>

#include "support/support.h"

namespace pn10::test {
namespace {

namespace fs = std::filesystem;

bool isSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp" || path.extension() == ".c";
}

/** The lines of all sources under `folder` that match, each as file:line; files under `but` left out. */
std::vector<std::string> linesWith(const std::regex& pattern, const fs::path& folder,
                                   const std::vector<fs::path>& but) {
  std::vector<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string path = entry.path().string();
    const auto inside = [&](const fs::path& part) { return path.starts_with(part.string() + "/"); };
    if (!isSource(entry.path()) || std::any_of(but.begin(), but.end(), inside)) continue;
    std::istringstream text(readFile(path));
    int number = 1;
    for (std::string line; std::getline(text, line); number++) {
      if (std::regex_search(line, pattern)) found.push_back(path + ":" + std::to_string(number));
    }
  }
  return found;
}

const fs::path kRoot = PN10_SOURCE_DIR;
const fs::path kPlatform = kRoot / "src/platform", kExports = kRoot / "src/exports";

}  // namespace

TEST(PlatformConditions, stand_in_platform_and_exports_only) {
  const std::regex condition("_WIN32|_WIN64|__MINGW|__linux__|__unix__|_MSC_VER");
  for (const char* folder : {"src", "calcs", "host"}) {
    EXPECT_EQ(linesWith(condition, kRoot / folder, {kPlatform, kExports}), std::vector<std::string>()) << folder;
  }
  EXPECT_FALSE(linesWith(condition, kPlatform, {}).empty()) << "the search itself finds nothing";
}

TEST(PlatformConditions, system_headers_are_included_by_the_platform_only) {
  const std::regex header(
      "#include <(windows|unistd|dlfcn|pthread|fcntl|strings|sys/[a-z]+|cairo.*|ft2build|fontconfig/.*)\\.?h?>");
  for (const char* folder : {"src", "calcs", "host"}) {
    EXPECT_EQ(linesWith(header, kRoot / folder, {kPlatform, kExports}), std::vector<std::string>()) << folder;
  }
  EXPECT_FALSE(linesWith(header, kPlatform, {}).empty()) << "the search itself finds nothing";
}

TEST(PlatformConditions, the_host_sees_the_two_public_headers_and_the_standard_library) {
  // A name without a folder is the host's own; a standard header has neither folder nor ending.
  const std::regex other("#include (?!<pn10(gdi|platform)\\.h>|<[a-z_0-9]+>|\"[a-z_]+\\.(h|inc)\")");
  EXPECT_EQ(linesWith(other, kRoot / "host", {}), std::vector<std::string>());
  EXPECT_FALSE(linesWith(other, kRoot / "src/platform", {}).empty()) << "the search itself finds nothing";
}

}  // namespace pn10::test
