/**
 * Record transfer between the model's binary files and memory: small loops over the rows of record_layout.h.
 *
 * A record is read column by column in file order, as if by one read per column:
 *  - a column that the file does not hold in full keeps what the record in memory had, and ends the file;
 *  - a text takes bytes up to its width or to a line feed, and every later column of the record then starts at
 *    the byte where the text ended; nothing guards against this.
 * The next record starts at its own place again.
 */
#ifndef PN10_MODEL_RECORD_FILE_H
#define PN10_MODEL_RECORD_FILE_H

#include <cstdio>
#include <cstring>
#include <utility>

#include "model/record_layout.h"
#include "platform/files.h"

namespace pn10 {

/** Bytes still to be read. */
struct ByteSpan {
  const uint8_t* next;
  size_t left;
};

/** Reads the columns of one record, whatever the bytes are; `from` ends behind the last byte taken. */
void readColumns(const RecordFormat& format, ByteSpan& from, void* record);

/** Records of a file of `size` bytes: the ceiling of size / stride, held at the limit of int32. */
int32_t recordCount(int64_t size, uint32_t stride);

/** Records of the file at `path`; -1 when it can't be opened. */
int32_t countRecords(const RecordFormat& format, const char* path);

/** Moves to record n and reads it into `record`; a number without a place in the file reads nothing. */
void readRecordAt(const RecordFormat& format, FILE* file, int32_t n, void* record);

/** Moves to record n and writes `bytes` there; false when the file does not take them. */
bool writeBytesAt(const RecordFormat& format, FILE* file, int32_t n, const uint8_t* bytes);

/** The path of a model file, <base><extension>; null when there is no base or the path is beyond all limits. */
class ModelPath {
 public:
  ModelPath(const char* base, const char* extension);
  const char* get() const { return fits_ ? text_ : nullptr; }

 private:
  char text_[4200];
  bool fits_;
};

namespace record_file_detail {

template <const RecordFormat& F, size_t I>
inline void decodeColumn(const uint8_t* from, uint8_t* to) {
  constexpr Column c = F.columns[I];
  from += c.offset;
  to += c.member;
  if constexpr (c.codec == Codec::LowByte) {
    *to = *from;
  } else if constexpr (c.codec == Codec::Flag) {
    *to = from[0] | from[1] ? 1 : 0;
  } else if constexpr (c.codec == Codec::LowByte16) {
    to[0] = from[0];
    to[1] = 0;
  } else if constexpr (isText(c.codec)) {
    if constexpr (c.memberSize > 0) {
      std::memcpy(to, from, c.memberSize - 1);
      to[c.memberSize - 1] = 0;
    }
  } else if constexpr (c.codec != Codec::Zeros) {
    std::memcpy(to, from, c.width);
  }
}

template <const RecordFormat& F, size_t I>
inline void encodeColumn(const uint8_t* from, uint8_t* to) {
  constexpr Column c = F.columns[I];
  from += c.member;
  to += c.offset;
  if constexpr (c.codec == Codec::LowByte || c.codec == Codec::Flag) {
    to[0] = *from;
    to[1] = 0;
  } else if constexpr (c.codec == Codec::Zeros) {
    std::memset(to, 0, c.width);
  } else {
    std::memcpy(to, from, c.width);
  }
}

template <const RecordFormat& F, size_t... I>
inline void encodeWhole(const uint8_t* from, uint8_t* to, std::index_sequence<I...>) {
  (encodeColumn<F, I>(from, to), ...);
}

template <const RecordFormat& F, size_t I>
inline bool lineFeedIn(const uint8_t* from) {
  constexpr Column c = F.columns[I];
  if constexpr (isText(c.codec)) return std::memchr(from + c.offset, '\n', c.width) != nullptr;
  return false;
}

/** The usual record, complete and without line feeds, through straight-line code; false leaves `to` alone. */
template <const RecordFormat& F, size_t... I>
inline bool decodeWhole(const uint8_t* from, uint8_t* to, std::index_sequence<I...>) {
  if ((lineFeedIn<F, I>(from) || ...)) return false;
  (decodeColumn<F, I>(from, to), ...);
  return true;
}

}  // namespace record_file_detail

/** readColumns for a format known at compile time, fast on complete records; `from` is left alone. */
template <const RecordFormat& F>
inline void decodeRecord(ByteSpan from, void* record) {
  using namespace record_file_detail;
  if (from.left >= F.bytes &&
      decodeWhole<F>(from.next, static_cast<uint8_t*>(record), std::make_index_sequence<F.columnCount>())) {
    return;
  }
  readColumns(F, from, record);
}

/** Writes the F.bytes bytes of one record. */
template <const RecordFormat& F>
inline void encodeRecord(const void* record, uint8_t* to) {
  record_file_detail::encodeWhole<F>(static_cast<const uint8_t*>(record), to,
                                     std::make_index_sequence<F.columnCount>());
}

/** Moves to record n and writes `record` there; false when the file does not take it. */
template <const RecordFormat& F>
bool writeRecordAt(FILE* file, int32_t n, const void* record) {
  uint8_t bytes[F.bytes];
  encodeRecord<F>(record, bytes);
  return writeBytesAt(F, file, n, bytes);
}

/** Reads the records of an open file in order through one buffer, with the same results as record by record. */
template <const RecordFormat& F>
class RecordReader {
 public:
  explicit RecordReader(FILE* file) : file_(file) {
    std::setvbuf(file, nullptr, _IONBF, 0);
    seekFile(file, F.header);
  }
  /** The next record into `record`; behind the end of the file `record` keeps what it has. */
  void next(void* record) {
    if (at_ >= have_) {
      have_ = std::fread(buffer_, 1, sizeof buffer_, file_);
      at_ = 0;
    }
    const size_t left = have_ - at_;
    decodeRecord<F>({buffer_ + at_, left < F.bytes ? left : F.bytes}, record);
    at_ += F.stride;
  }

 private:
  FILE* file_;
  size_t have_ = 0, at_ = 0;
  uint8_t buffer_[(size_t{1} << 16) / F.stride * F.stride];
};

/** Writes records one behind the other through one buffer; the bytes between records are zeros. */
template <const RecordFormat& F>
class RecordWriter {
 public:
  /** `file` stands at its start; null makes a writer that takes nothing. */
  explicit RecordWriter(FILE* file) : file_(file) {
    if (file) std::setvbuf(file, nullptr, _IONBF, 0);
    std::memset(buffer_, 0, F.header);
  }
  ~RecordWriter() { flush(); }
  RecordWriter(const RecordWriter&) = delete;
  RecordWriter& operator=(const RecordWriter&) = delete;

  /** Appends one record; returns its number on file. */
  int32_t append(const void* record) {
    if (used_ + F.stride > sizeof buffer_) flush();
    const size_t gap = written_ ? F.stride - F.bytes : 0;
    std::memset(buffer_ + used_, 0, gap);
    encodeRecord<F>(record, buffer_ + used_ + gap);
    used_ += gap + F.bytes;
    return ++written_;
  }
  /** Hands everything to the file; false when it did not take everything so far. */
  bool flush() {
    if (written_) {
      if (file_ && std::fwrite(buffer_, 1, used_, file_) != used_) good_ = false;
      used_ = 0;
    }
    return good_ && file_;
  }

 private:
  FILE* file_;
  size_t used_ = F.header;
  int32_t written_ = 0;
  bool good_ = true;
  uint8_t buffer_[size_t{1} << 16];
};

/** Through the staging records: one record from file, or to file. */
int32_t ReadNdtRecord(FILE* ndtFile, int32_t fileRecord);
int32_t WriteNdtRecord(FILE* ndtFile, int32_t fileRecord);
void ReadPdtRecord(FILE* pdtFile, int32_t fileRecord);
void WritePdtRecord(FILE* pdtFile, int32_t fileRecord);
void ReadCdtRecord(FILE* cdtFile, int32_t fileRecord);
int32_t WriteCdtRecord(FILE* cdtFile, int32_t fileRecord);
/** Straight from the vertex table. */
int32_t WriteVtxRecord(FILE* vtxFile, int32_t fileRecord, int32_t tableRecord);
/** Appends a reference row at the place where the file stands; the row, or 0 when there is no such row. */
int32_t WriteRdxRecord(FILE* rdxFile, int32_t row);

}  // namespace pn10

#endif
