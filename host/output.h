/** What commands print: JSON when asked for, plain tables otherwise, and progress on a terminal. */
#ifndef PN10_HOST_OUTPUT_H
#define PN10_HOST_OUTPUT_H

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace host {

/** A number as short as it reads back, without trailing zeros; "null" is left to the caller. */
std::string shortNumber(double value);
/** A number with this many decimals. */
std::string fixedNumber(double value, int decimals);

/** A JSON text, grown member by member; its texts are UTF-8, those of records come through utf8(). */
class Json {
 public:
  Json& open(char bracket, const std::string& key = "");
  Json& close(char bracket);
  Json& member(const std::string& key, const std::string& text);
  Json& member(const std::string& key, const char* text) { return member(key, std::string(text)); }
  Json& member(const std::string& key, double value);
  Json& member(const std::string& key, bool value);
  Json& element(double value);
  const std::string& text() const { return text_; }

 private:
  void separate(const std::string& key);
  std::string text_;
  bool first_ = true;
};

/** Text of a record, in code page 1252, as UTF-8: for the terminal and for JSON. */
std::string utf8(const std::string& text1252);
/** UTF-8 as code page 1252; what it does not have becomes '?'. */
std::string ansi(const std::string& textUtf8);

/** A bar on standard error, for work that takes over a second, when that is a terminal. */
class Progress {
 public:
  explicit Progress(std::string what);
  ~Progress();
  void show(double fraction);

 private:
  std::string what_;
  std::chrono::steady_clock::time_point start_;
  bool terminal_, shown_ = false;
  int percent_ = -1;
};

}  // namespace host

#endif
