// JSON, numbers, character sets and the progress bar.
#include "output.h"

#include <pn10platform.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace host {

namespace {

/** What 0x80 to 0x9F mean in code page 1252; 0 where nothing is assigned. */
constexpr std::array<uint16_t, 32> kHigh = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::string quotedJson(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char code[8];
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
      out += code;
    } else {
      out += c;
    }
  }
  return out + '"';
}

constexpr int kBarWidth = 40;

std::string jsonNumber(double value) { return std::isfinite(value) ? shortNumber(value) : "null"; }

}  // namespace

std::string shortNumber(double value) {
  char text[64];
  // Fields of single precision print as they were stored, not as their widened doubles.
  const auto single = static_cast<float>(value);
  const auto print = [&](auto number) {
    // People read 0.0001 more easily than 1e-04, and 200000 than 2e+05.
    const double size = std::fabs(value);
    return (size >= 1e-6 && size < 1e15) || size == 0
               ? std::to_chars(text, text + sizeof text, number, std::chars_format::fixed)
               : std::to_chars(text, text + sizeof text, number);
  };
  const auto done = static_cast<double>(single) == value ? print(single) : print(value);
  return std::string(text, done.ptr);
}

std::string fixedNumber(double value, int decimals) {
  char text[400];
  const auto done = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
  return std::string(text, done.ptr);
}

std::string utf8(const std::string& text1252) {
  std::string out;
  for (const char c : text1252) {
    unsigned code = static_cast<unsigned char>(c);
    if (code >= 0x80 && code < 0xA0 && kHigh[code - 0x80]) code = kHigh[code - 0x80];
    if (code < 0x80) {
      out += static_cast<char>(code);
    } else if (code < 0x800) {
      out += static_cast<char>(0xC0 | code >> 6);
      out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | code >> 12);
      out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return out;
}

std::string ansi(const std::string& textUtf8) {
  std::string out;
  for (size_t i = 0; i < textUtf8.size();) {
    const auto lead = static_cast<unsigned char>(textUtf8[i]);
    const size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    unsigned code = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    for (size_t k = 1; k < length && i + k < textUtf8.size(); k++)
      code = code << 6 | (static_cast<unsigned char>(textUtf8[i + k]) & 0x3Fu);
    i += length;
    char c = code < 0x80 || (code >= 0xA0 && code < 0x100) ? static_cast<char>(code) : '?';
    for (size_t k = 0; k < kHigh.size(); k++) {
      if (kHigh[k] && kHigh[k] == code) c = static_cast<char>(0x80 + k);
    }
    out += c;
  }
  return out;
}

void Json::separate(const std::string& key) {
  if (!first_) text_ += ",";
  first_ = false;
  if (!key.empty()) text_ += quotedJson(key) + ":";
}

Json& Json::open(char bracket, const std::string& key) {
  separate(key);
  text_ += bracket;
  first_ = true;
  return *this;
}

Json& Json::close(char bracket) {
  text_ += bracket;
  first_ = false;
  return *this;
}

Json& Json::member(const std::string& key, const std::string& text) {
  separate(key);
  text_ += quotedJson(text);
  return *this;
}

Json& Json::member(const std::string& key, double value) {
  separate(key);
  text_ += jsonNumber(value);
  return *this;
}

Json& Json::member(const std::string& key, bool value) {
  separate(key);
  text_ += value ? "true" : "false";
  return *this;
}

Json& Json::element(double value) {
  separate("");
  text_ += jsonNumber(value);
  return *this;
}

Progress::Progress(std::string what)
    : what_(std::move(what)), start_(std::chrono::steady_clock::now()), terminal_(PnIsTerminal(2) != 0) {}

Progress::~Progress() {
  if (shown_) std::fprintf(stderr, "\r%*s\r", static_cast<int>(what_.size()) + kBarWidth + 8, "");
}

void Progress::show(double fraction) {
  if (!terminal_ || std::chrono::steady_clock::now() - start_ < std::chrono::seconds(1)) return;
  const int percent = static_cast<int>(fraction * 100);
  if (percent == percent_) return;
  percent_ = percent;
  shown_ = true;
  std::string bar(static_cast<size_t>(kBarWidth), '.');
  for (int i = 0; i < kBarWidth * percent / 100 && i < kBarWidth; i++) bar[static_cast<size_t>(i)] = '#';
  std::fprintf(stderr, "\r%s [%s] %d%%", what_.c_str(), bar.c_str(), percent);
}

}  // namespace host
