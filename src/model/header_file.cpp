/**
 * The header file: a magic line and 201 lines of settings that the host reads and writes by number.
 *
 * The lines mean nothing to the library; six of them are switches that every load puts back to "1".
 */
#include <cstdio>
#include <cstring>

#include "exports/pn10gdi.h"
#include "model/tables.h"
#include "platform/files.h"

using namespace pn10;

namespace {

constexpr int16_t kHdrLines = 201;
constexpr int16_t kFirstSwitch = 120, kLastSwitch = 125;

/** A line of at most 255 bytes, longer ones in pieces. At the end of the file the line before stays in place. */
class LineReader {
 public:
  explicit LineReader(FILE* file) : file_(file) {}
  const char* next() {
    char line[sizeof line_];
    if (std::fgets(line, sizeof line, file_)) copyText(line_, line);
    return line_;
  }
  /** The next line without white space at its end, trimmed in place. */
  const char* nextTrimmed() {
    next();
    TrimRight(line_);
    return line_;
  }

 private:
  FILE* file_;
  char line_[256] = "";
};

bool isHdrLine(int16_t line) { return line >= 0 && line < kHdrLines; }

bool beginsWith(const char* line, const char* magic) {
  return !magic || std::strncmp(line, magic, std::strlen(magic)) == 0;
}

int32_t writeHeader(const char* path, const char* magic) {
  File file(path, "w");
  if (!file) return -2;
  std::fprintf(file.get(), "%s\n", magic ? magic : "");
  for (int16_t i = 0; i < kHdrLines; i++) std::fprintf(file.get(), "%s\n", model.hdr ? model.hdr[i].LINE : "");
  return file.close() ? 200 : -2;
}

int32_t readHeader(const char* path, const char* magic) {
  File file(path, "r");
  if (!file) return -2;
  LineReader lines(file.get());
  if (!beginsWith(lines.next(), magic)) return -1;
  releaseTable(model.hdr);
  model.hdr = newTable<Hdr>(kHdrLines - 1);
  if (!model.hdr) return -4;
  for (int16_t i = 0; i < kHdrLines; i++) copyText(model.hdr[i].LINE, lines.nextTrimmed());
  for (int16_t i = kFirstSwitch; i <= kLastSwitch; i++) copyText(model.hdr[i].LINE, "1");
  return 200;
}

}  // namespace

int32_t HdrIo(const char* path, const char* magic, int16_t mode) {
  if (mode == 0) return writeHeader(path, magic);
  if (mode == 1) return readHeader(path, magic);
  return 200;
}

void GetHdrVal(int16_t line, char* text) {
  if (!text) return;
  const char* value = model.hdr && isHdrLine(line) ? model.hdr[line].LINE : "";
  std::memcpy(text, value, std::strlen(value) + 1);
}

void SetHdrVal(int16_t line, const char* text) {
  if (model.hdr && isHdrLine(line)) copyText(model.hdr[line].LINE, text);
}

int32_t GetValFromHdrFile(const char* path, const char* magic, char* text, int16_t line) {
  File file(path, "r");
  if (!file) return -2;
  LineReader lines(file.get());
  if (!beginsWith(lines.next(), magic)) return -1;
  if (!isHdrLine(line)) return 0;
  const char* value = "";
  for (int16_t i = 0; i <= line; i++) {
    value = lines.nextTrimmed();
    if (model.hdr) copyText(model.hdr[i].LINE, value);
  }
  if (text) std::memcpy(text, value, std::strlen(value)); /* kept: no terminator */
  return 0;
}

intptr_t GetHdrAddress(void) { return reinterpret_cast<intptr_t>(model.hdr); }
