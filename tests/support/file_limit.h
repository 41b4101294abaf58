/** A disk that is full at a byte: while it lives, no file of the process grows beyond the limit. */
#ifndef PN10_TESTS_FILE_LIMIT_H
#define PN10_TESTS_FILE_LIMIT_H

#include <sys/resource.h>

#include <csignal>
#include <cstddef>

namespace pn10::test {

class FileLimit {
 public:
  explicit FileLimit(size_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileLimit(const FileLimit&) = delete;
  FileLimit& operator=(const FileLimit&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_;
};

}  // namespace pn10::test

#endif
