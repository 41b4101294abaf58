/** Files as every system has them. */
#include "platform/files.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace pn10 {

namespace {
int64_t tellFile(FILE* file) {
#ifdef _WIN32
  return _ftelli64(file);
#else
  return ftello(file);
#endif
}

int seekFrom(FILE* file, int64_t offset, int origin) {
#ifdef _WIN32
  return _fseeki64(file, offset, origin);
#else
  return fseeko(file, offset, origin);
#endif
}
/** A folder opens for reading here and there, and claims to be as long as can be. */
bool isFolder([[maybe_unused]] FILE* file) {
#ifdef _WIN32
  return false;
#else
  struct stat facts;
  return fstat(fileno(file), &facts) == 0 && S_ISDIR(facts.st_mode);
#endif
}
}  // namespace

bool seekFile(FILE* file, int64_t position) { return position >= 0 && seekFrom(file, position, SEEK_SET) == 0; }

int64_t fileSize(FILE* file) {
  const int64_t here = tellFile(file);
  if (here < 0 || seekFrom(file, 0, SEEK_END) != 0) return -1;
  const int64_t size = tellFile(file);
  return seekFile(file, here) ? size : -1;
}

bool File::open(const char* path, const char* mode) {
  close();
  file_ = path ? std::fopen(path, mode) : nullptr;
  if (file_ && isFolder(file_)) close();
  return file_ != nullptr;
}

bool File::close() {
  if (!file_) return false;
  const bool written = std::ferror(file_) == 0;
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  return written && closed;
}

bool rotateBackup(const char* path, const char* backup) {
  std::remove(backup);
  return std::rename(path, backup) == 0 || !File(path, "rb");
}

}  // namespace pn10
