/** The operation log: one line per operation, process-wide, off at start. */
#ifndef PN10_PLATFORM_PORTABLE_LOG_H
#define PN10_PLATFORM_PORTABLE_LOG_H

#include <cstdint>
#include <string>
#include <string_view>

namespace pn10::portable {

extern bool logOn;
inline bool recording() { return logOn; }

/** Appends one line; the terminating line feed is added. */
void logLine(std::string_view line);

/** Text in double quotes, with \xNN outside 0x20 to 0x7E and \" and \\ escaped. */
std::string quoted(const char* text, size_t length);

/** Arguments that are not plain decimal integers. */
struct Color {
  uint32_t value;
}; /* six hex digits; eight when the high byte says more than the colour */
struct Style {
  uint32_t value;
}; /* decimal below 0x10000, hex from there on */

void put(std::string& line, Color color);
void put(std::string& line, Style style);
inline void put(std::string& line, std::string_view text) { line += text; }
inline void put(std::string& line, const std::string& text) { line += text; }
inline void put(std::string& line, const char* text) { line += text; }
template <class Integer>
inline void put(std::string& line, Integer value) {
  line += std::to_string(value);
}

/** An operation's name followed by its arguments, separated by one blank. Nothing while the log is off. */
template <class... Arguments>
inline void logOp(std::string_view name, const Arguments&... arguments) {
  if (!logOn) [[likely]]
    return;
  std::string line(name);
  ((line += ' ', put(line, arguments)), ...);
  logLine(line);
}

/** An object's description: name(a,b,c). */
template <class... Arguments>
std::string described(std::string_view name, const Arguments&... arguments) {
  std::string text(name);
  char separator = '(';
  ((text += separator, put(text, arguments), separator = ','), ...);
  return text += ')';
}

}  // namespace pn10::portable

#endif
