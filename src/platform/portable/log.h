/**
 * The operation log: one line per operation on a context or a window and per object made or deleted.
 *
 * Process-wide, off at start. Callers test `recording()` first, so that an operation costs one load when the
 * log is off.
 */
#ifndef PN10_PLATFORM_PORTABLE_LOG_H
#define PN10_PLATFORM_PORTABLE_LOG_H

#include <string>
#include <string_view>

namespace pn10::portable {

extern bool logOn;
inline bool recording() { return logOn; }

/** Appends one line; the terminating line feed is added. */
void logLine(std::string_view line);

/** Text in double quotes, with \xNN outside 0x20 to 0x7E and \" and \\ escaped. */
std::string quoted(const char* text, size_t length);

/** An operation's name followed by its integer arguments, separated by one blank. */
template <class... Integers>
void logInts(std::string_view name, Integers... values) {
  std::string line(name);
  ((line += ' ', line += std::to_string(values)), ...);
  logLine(line);
}

}  // namespace pn10::portable

#endif
