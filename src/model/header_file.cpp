/**
 * The header file: a magic line and 201 lines of settings that the host reads and writes by number.
 *
 * The lines mean nothing to the library; six of them are switches that every load puts back to "1".
 */
#include <cstdio>
#include <cstring>

#include "exports/pn10gdi.h"
#include "fields/text_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

constexpr int16_t kHdrLines = 201;
constexpr int16_t kFirstSwitch = 120, kLastSwitch = 125;

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

/** The next line without white space at its end. At the end of the file the line before stays in place. */
const char* nextTrimmed(LineReader& lines) {
  lines.next();
  TrimRight(lines.text());
  return lines.text();
}

/** Opens a header file behind its magic line; 0, or the code of what is wrong with it. */
int32_t openHeader(LineReader& lines, const char* path, const char* magic) {
  if (!lines.open(path)) return -2;
  lines.next();
  return beginsWith(lines.text(), magic) ? 0 : -1;
}

int32_t readHeader(const char* path, const char* magic) {
  LineReader lines(LineReader::kRepeat);
  if (const int32_t failure = openHeader(lines, path, magic)) return failure;
  releaseTable(model.hdr);
  model.hdr = newTable<Hdr>(kHdrLines - 1);
  if (!model.hdr) return -4;
  for (int16_t i = 0; i < kHdrLines; i++) copyText(model.hdr[i].LINE, nextTrimmed(lines));
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
  copyText(text, sizeof Hdr::LINE, model.hdr && isHdrLine(line) ? model.hdr[line].LINE : "");
}

void SetHdrVal(int16_t line, const char* text) {
  if (model.hdr && isHdrLine(line)) copyText(model.hdr[line].LINE, text);
}

int32_t GetValFromHdrFile(const char* path, const char* magic, char* text, int16_t line) {
  LineReader lines(LineReader::kRepeat);
  if (const int32_t failure = openHeader(lines, path, magic)) return failure;
  if (!isHdrLine(line)) return 0;
  const char* value = "";
  for (int16_t i = 0; i <= line; i++) {
    value = nextTrimmed(lines);
    if (model.hdr) copyText(model.hdr[i].LINE, value);
  }
  if (text) std::memcpy(text, value, std::strlen(value)); /* kept: no terminator */
  return 0;
}

intptr_t GetHdrAddress(void) { return reinterpret_cast<intptr_t>(model.hdr); }
