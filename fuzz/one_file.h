/** What the targets of the model's readers share: one folder per process, files written anew for every input. */
#ifndef PN10_FUZZ_ONE_FILE_H
#define PN10_FUZZ_ONE_FILE_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace pn10::fuzz {

/** A folder that goes with the process. */
struct Folder {
  Folder() {
    path = (std::filesystem::temp_directory_path() / "pn10fuzzXXXXXX").string();
    if (!mkdtemp(path.data())) std::abort();
    base = path + "/model";
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::string path, base;
};

/** A model base path in a folder of its own. */
inline const std::string& base() {
  static const Folder folder;
  return folder.base;
}

inline void write(const char* extension, const uint8_t* bytes, size_t size) {
  FILE* const file = std::fopen((base() + extension).c_str(), "wb");
  if (!file || std::fwrite(bytes, 1, size, file) != size) std::abort();
  std::fclose(file);
}

/** A broken promise of the reader is a finding like a crash. */
inline void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace pn10::fuzz

#endif
