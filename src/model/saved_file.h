/** The files of a save: the old one is put aside as <name>.bak, the new one is written from its start. */
#ifndef PN10_MODEL_SAVED_FILE_H
#define PN10_MODEL_SAVED_FILE_H

#include <optional>

#include "model/record_file.h"

namespace pn10 {

/**
 * Removes <base><extension>.bak, renames <base><extension> to it and opens the name for writing. False when the
 * name can't be opened, or when the old file can't be put aside and would be lost.
 */
bool openSaved(File& file, const char* base, const char* extension);

/** A file of records in a run, numbered from 1 as they come. */
template <const RecordFormat& F>
class SavedFile {
 public:
  bool open(const char* base) {
    if (!openSaved(file_, base, F.extension)) return false;
    writer_.emplace(file_.get());
    return true;
  }
  bool isOpen() const { return writer_.has_value(); }
  /** Appends a record and returns its number; goes to nowhere when the file is not open. */
  int32_t append(const void* record) { return writer_ ? count_ = writer_->append(record) : count_; }
  /** Records written so far. */
  int32_t count() const { return count_; }
  /** Closes the file; false when it did not take everything. A file that was never open has nothing to lose. */
  bool close() {
    if (!writer_) return true;
    const bool written = count_ == 0 || writer_->flush();
    writer_.reset();
    return file_.close() && written;
  }

 private:
  File file_; /* outlives the writer, which hands it the last bytes */
  std::optional<RecordWriter<F>> writer_;
  int32_t count_ = 0;
};

}  // namespace pn10

#endif
