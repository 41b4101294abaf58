/** Names of files: UTF-8 in this program, as on the command line, whatever the system makes of a plain std::string. */
#ifndef PN10_HOST_PATHS_H
#define PN10_HOST_PATHS_H

#include <filesystem>
#include <string>

namespace host {

namespace fs = std::filesystem;

inline fs::path pathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

inline std::string nameOf(const fs::path& path) {
  const std::u8string name = path.u8string();
  return {name.begin(), name.end()};
}

}  // namespace host

#endif
