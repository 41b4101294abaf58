/** Lines of a text file, one value per line, as a line reader with a limit of 256 takes them. */
#ifndef PN10_FIELDS_TEXT_FILE_H
#define PN10_FIELDS_TEXT_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "fields/number_text.h"
#include "platform/files.h"

namespace pn10 {

/**
 * Reads pieces of at most 255 bytes, the line end kept; a longer line comes in several pieces.
 *
 * What a missing line is differs between the files: most read it as empty, so that its number is 0; some
 * keep the line before it, so that the last value repeats.
 */
class LineReader {
 public:
  enum AtEnd { kEmpty, kRepeat };
  static constexpr size_t kLineSize = 256;

  explicit LineReader(AtEnd atEnd = kEmpty) : atEnd_(atEnd) {}

  /** Opens in text mode and forgets the line before; false when the file can't be opened. */
  bool open(const char* path) {
    line_[0] = 0;
    return file_.open(path, "r");
  }
  void close() { file_.close(); }

  /** Takes the next piece; false at the end of the file, where the line is empty or stays, by the rule. */
  bool next() {
    if (file_ && std::fgets(line_, sizeof line_, file_.get())) return true;
    if (atEnd_ == kEmpty) line_[0] = 0;
    return false;
  }

  /** The line taken last, for reading or trimming in place. */
  char* text() { return line_; }

  /** Takes the next line and gives the number at its start, 0 when it begins with none. */
  int32_t nextInt() { return next(), parseInt(line_); }
  double nextDouble() { return next(), parseDouble(line_); }

 private:
  File file_;
  AtEnd atEnd_;
  char line_[kLineSize] = "";
};

}  // namespace pn10

#endif
