// What the built library shows: every name of the list, and nothing else.
#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <string>

#include "support/support.h"

namespace {

constexpr const char* kExports[] = {
#define PN10_FUNCTION(name) #name,
#define PN10_PORTABLE_FUNCTION(name) #name,
#include "exports/exports.inc"
#undef PN10_FUNCTION
#undef PN10_PORTABLE_FUNCTION
};

/** Those that a Windows DLL has too: its .def file is made of them. */
const std::set<std::string> kOnWindows = {
#define PN10_FUNCTION(name) #name,
#define PN10_PORTABLE_FUNCTION(name)
#include "exports/exports.inc"
#undef PN10_FUNCTION
#undef PN10_PORTABLE_FUNCTION
};

std::string outputOf(const std::string& command) {
  std::string all;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) all.append(buffer, n);
    pclose(pipe);
  }
  return all;
}

/**
 * The names that a header declares: the word before the bracket of every line that begins with PN10_EXPORT. On Windows
 * those behind the line "#ifndef _WIN32" of pn10platform.h fall away, and the rest calls as the system does.
 */
std::set<std::string> declaredIn(const std::string& header, bool windows = false) {
  std::set<std::string> names;
  std::ifstream in(std::string(PN10_SOURCE_DIR) + "/src/exports/" + header);
  for (std::string line; std::getline(in, line);) {
    if (windows && line == "#ifndef _WIN32") break;
    if (!line.starts_with("PN10_EXPORT")) continue;
    EXPECT_TRUE(!windows || line.find(" PN10_CALL ") != std::string::npos) << line;
    const size_t open = line.find('(');
    const size_t start = line.find_last_of(" *", open) + 1;
    names.insert(line.substr(start, open - start));
  }
  return names;
}

std::set<std::string> listed() { return {std::begin(kExports), std::end(kExports)}; }

}  // namespace

TEST(Exports, every_name_of_the_list_resolves_from_the_built_library) {
  void* library = dlopen(PN10_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_TRUE(library) << dlerror();
  for (const char* name : kExports) EXPECT_TRUE(dlsym(library, name)) << name;
  dlclose(library);
}

TEST(Exports, nothing_but_the_list_is_visible) {
  const std::string symbols = outputOf("nm -D --defined-only --format=posix " PN10_LIBRARY);
  std::set<std::string> visible;
  for (size_t at = 0; at < symbols.size();) {
    const size_t end = symbols.find('\n', at);
    visible.insert(symbols.substr(at, symbols.find(' ', at) - at));
    at = end == std::string::npos ? symbols.size() : end + 1;
  }
  EXPECT_EQ(visible, listed());
}

TEST(Exports, the_list_and_the_headers_name_the_same_functions) {
  std::set<std::string> declared = declaredIn("pn10gdi.h");
  declared.merge(declaredIn("pn10platform.h"));
  EXPECT_EQ(declared, listed());
}

TEST(Exports, the_list_knows_what_the_headers_keep_from_windows) {
  std::set<std::string> declared = declaredIn("pn10gdi.h", true);
  declared.merge(declaredIn("pn10platform.h", true));
  EXPECT_EQ(declared, kOnWindows);
  EXPECT_TRUE(kOnWindows.contains("PnCreateImageDC") && !kOnWindows.contains("PnCreateWindow"));
}

TEST(Exports, no_name_stands_twice) { EXPECT_EQ(listed().size(), std::size(kExports)); }

extern "C" int headerCompilesAsC(void);
TEST(Exports, the_headers_compile_as_strict_c99) { EXPECT_EQ(headerCompilesAsC(), 3); }
