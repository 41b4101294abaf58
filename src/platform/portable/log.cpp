/** The operation log and its two public calls. */
#include "platform/portable/log.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "exports/pn10platform.h"

namespace pn10::portable {

bool logOn = false;

namespace {
/** Made at first use, so that loading the library runs no code; never destroyed, so that a late call is harmless. */
std::string& logText() {
  static std::string* text = new std::string;
  return *text;
}
}  // namespace

void logLine(std::string_view line) {
  if (!logOn) return;
  logText().append(line).push_back('\n');
}

std::string quoted(const char* text, size_t length) {
  static const char kHex[] = "0123456789ABCDEF";
  std::string out = "\"";
  for (size_t i = 0; i < length; i++) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20 || c > 0x7E) {
      out += "\\x";
      out += kHex[c >> 4];
      out += kHex[c & 15];
    } else {
      out += static_cast<char>(c);
    }
  }
  return out += '"';
}

namespace {
void putHex(std::string& line, uint32_t value, int digits) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%0*X", digits, value);
  line += text;
}
}  // namespace

void put(std::string& line, Color color) { putHex(line, color.value, 6); }

void put(std::string& line, Style style) {
  if (style.value < 0x10000) {
    line += std::to_string(style.value);
  } else {
    putHex(line, style.value, 1);
  }
}

}  // namespace pn10::portable

using namespace pn10::portable;

void PnRecord(int16_t on) {
  if (on) {
    logText().clear();
    logOn = true;
  } else {
    logOn = false;
  }
}

int32_t PnGetRecord(char* text, int32_t size) {
  const std::string& log = logText();
  if (text && size > 0) {
    const size_t n = std::min(log.size(), static_cast<size_t>(size) - 1);
    std::memcpy(text, log.data(), n);
    text[n] = 0;
  }
  return static_cast<int32_t>(std::min<size_t>(log.size(), INT32_MAX));
}
