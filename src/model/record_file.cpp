/** Record transfer: the reader for any bytes, places in a file, paths, and the routines on the staging records. */
#include "model/record_file.h"

#include "model/staging.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** Takes up to the width or a line feed; nothing at the end of the file, where the text stays as it is. */
void readText(const Column& column, ByteSpan& from, uint8_t* to) {
  size_t taken = from.left < column.width ? from.left : column.width;
  if (taken == 0) return;
  if (const void* feed = std::memchr(from.next, '\n', taken)) {
    taken = static_cast<size_t>(static_cast<const uint8_t*>(feed) - from.next) + 1;
  }
  if (column.memberSize > 0) {
    const size_t kept = taken < column.memberSize ? taken : column.memberSize - size_t{1};
    std::memcpy(to, from.next, kept);
    to[kept] = 0;
  }
  from.next += taken;
  from.left -= taken;
}

/** A column that is there in full. */
void readNumber(const Column& column, const uint8_t* from, uint8_t* to) {
  switch (column.codec) {
    case Codec::LowByte:
      *to = *from;
      break;
    case Codec::Flag:
      *to = from[0] | from[1] ? 1 : 0;
      break;
    case Codec::LowByte16:
      to[0] = from[0];
      to[1] = 0;
      break;
    case Codec::Zeros:
      break;
    default:
      std::memcpy(to, from, column.width);
  }
}

int64_t placeOf(const RecordFormat& format, int32_t n) {
  return static_cast<int64_t>(format.header) + (static_cast<int64_t>(n) - 1) * format.stride;
}

}  // namespace

void readColumns(const RecordFormat& format, ByteSpan& from, void* record) {
  for (size_t i = 0; i < format.columnCount; i++) {
    const Column& column = format.columns[i];
    uint8_t* to = static_cast<uint8_t*>(record) + column.member;
    if (isText(column.codec)) {
      readText(column, from, to);
      continue;
    }
    const bool whole = from.left >= column.width;
    if (whole) readNumber(column, from.next, to);
    const size_t taken = whole ? column.width : from.left;
    from.next += taken;
    from.left -= taken;
  }
}

int32_t recordCount(int64_t size, uint32_t stride) {
  if (size <= 0) return 0;
  const int64_t count = size / stride + (size % stride != 0);
  return count > INT32_MAX ? INT32_MAX : static_cast<int32_t>(count);
}

int32_t countRecords(const RecordFormat& format, const char* path) {
  File file(path, "rb");
  const int64_t size = file ? fileSize(file.get()) : -1;
  return size < 0 ? -1 : recordCount(size, format.stride);
}

void readRecordAt(const RecordFormat& format, FILE* file, int32_t n, void* record) {
  uint8_t bytes[336]; /* the widest record */
  if (!file || !seekFile(file, placeOf(format, n))) return;
  ByteSpan from = {bytes, std::fread(bytes, 1, format.bytes, file)};
  readColumns(format, from, record);
}

bool writeBytesAt(const RecordFormat& format, FILE* file, int32_t n, const uint8_t* bytes) {
  return file && seekFile(file, placeOf(format, n)) && std::fwrite(bytes, 1, format.bytes, file) == format.bytes;
}

ModelPath::ModelPath(const char* base, const char* extension) {
  const size_t length = base ? strnlen(base, sizeof text_) : sizeof text_;
  const size_t more = std::strlen(extension) + 1;
  fits_ = length + more <= sizeof text_;
  if (!fits_) return;
  std::memcpy(text_, base, length);
  std::memcpy(text_ + length, extension, more);
}

int32_t ReadNdtRecord(FILE* ndtFile, int32_t fileRecord) {
  readRecordAt(kNdtFormat, ndtFile, fileRecord, &staging.node);
  return 0;
}

int32_t WriteNdtRecord(FILE* ndtFile, int32_t fileRecord) {
  writeRecordAt<kNdtFormat>(ndtFile, fileRecord, &staging.node);
  return 0;
}

void ReadPdtRecord(FILE* pdtFile, int32_t fileRecord) { readRecordAt(kPdtFormat, pdtFile, fileRecord, &staging.pipe); }

void WritePdtRecord(FILE* pdtFile, int32_t fileRecord) {
  writeRecordAt<kPdtFormat>(pdtFile, fileRecord, &staging.pipe);
}

int32_t WriteVtxRecord(FILE* vtxFile, int32_t fileRecord, int32_t tableRecord) {
  if (hasVtxSlot(tableRecord)) writeRecordAt<kVtxFormat>(vtxFile, fileRecord, &model.vtx[tableRecord]);
  return 0;
}

}  // namespace pn10
