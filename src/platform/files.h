/** Files as every system has them: 64-bit positions, closing on every way out, backups. */
#ifndef PN10_PLATFORM_FILES_H
#define PN10_PLATFORM_FILES_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace pn10 {

/** Moves to a byte from the start of the file; false when that fails. */
bool seekFile(FILE* file, int64_t position);

/** Size of an open file in bytes, its position unchanged; -1 when it can't be told. */
int64_t fileSize(FILE* file);

/** A file that closes itself. */
class File {
 public:
  File() = default;
  File(const char* path, const char* mode) { open(path, mode); }
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  /** Opens with fopen's modes; false when the file can't be opened, or is a folder. */
  bool open(const char* path, const char* mode);
  /** Flushes and closes; false when a write since the opening failed, or none was open. */
  bool close();
  FILE* get() const { return file_; }
  explicit operator bool() const { return file_ != nullptr; }

 private:
  FILE* file_ = nullptr;
};

/**
 * Keeps one previous generation: removes `backup`, then renames `path` to it. A missing file is no error; false
 * when the file is still there, so that writing would destroy its only copy.
 */
bool rotateBackup(const char* path, const char* backup);

}  // namespace pn10

#endif
