// Lines, numbers and separated values for the imports.
#include "import_text.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "args.h"
#include "paths.h"

namespace host {

namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

char separatorOf(const std::string& names) {
  for (const char c : {'\t', ';'}) {
    if (names.find(c) != std::string::npos && names.find(',') == std::string::npos) return c;
  }
  return ',';
}

}  // namespace

void failAt(const Where& where, const std::string& what) {
  throw Failure{*where.path + (where.line > 0 ? ":" + std::to_string(where.line) : "") + ": " + what};
}

std::vector<std::string> readLines(const std::string& path) {
  if (fs::is_directory(pathOf(path))) throw Failure{path + ": is a folder"};
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Failure{path + ": can't be opened"};
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (lines.empty() && line.compare(0, 3, kMark) == 0) line.erase(0, 3);
    lines.push_back(line);
  }
  if (file.bad()) throw Failure{path + ": can't be read"};
  return lines;
}

double numberAt(const Where& where, const std::string& text, const std::string& what) {
  double value = 0;
  if (!parseNumber(text, &value) || !std::isfinite(value)) failAt(where, what + " is no number: '" + text + "'");
  // Records keep most numbers in single precision.
  if (std::fabs(value) > 1e30) failAt(where, what + " is out of range: '" + text + "'");
  return value;
}

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}

std::string trimmed(const std::string& text) {
  size_t begin = 0, end = text.size();
  while (begin < end && isSpace(text[begin])) begin++;
  while (end > begin && isSpace(text[end - 1])) end--;
  return text.substr(begin, end - begin);
}

std::vector<Point> pointsAt(const Where& where, const std::string& text) {
  std::vector<Point> points;
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find(';', at), text.size());
    const std::string pair = trimmed(text.substr(at, end - at));
    const size_t space = pair.find(' ');
    if (space == std::string::npos) failAt(where, "vertices want 'x y;x y', not '" + pair + "'");
    points.push_back(
        {numberAt(where, pair.substr(0, space), "vertex x"), numberAt(where, trimmed(pair.substr(space)), "vertex y")});
    at = end + 1;
  }
  return points;
}

CsvTable::CsvTable(const std::string& path, const std::vector<const char*>& needed)
    : path_(path), lines_(readLines(path)) {
  if (lines_.empty()) failAt({&path_, 0}, "is empty");
  line_ = 1;
  separator_ = separatorOf(lines_[0]);
  const std::vector<std::string> names = split(lines_[0]);
  for (size_t i = 0; i < names.size(); i++) columns_.emplace(lowerCase(names[i]), i);
  for (const char* name : needed) {
    if (!has(name)) failAt(where(), std::string("there is no column '") + name + "'");
  }
}

bool CsvTable::next() {
  while (static_cast<size_t>(line_) < lines_.size()) {
    const std::string& line = lines_[static_cast<size_t>(line_++)];
    if (trimmed(line).empty()) continue;
    values_ = split(line);
    if (values_.size() != columns_.size()) {
      failAt(where(),
             std::to_string(values_.size()) + " values under " + std::to_string(columns_.size()) + " column names");
    }
    return true;
  }
  return false;
}

std::string CsvTable::text(const std::string& column) const {
  const auto it = columns_.find(column);
  return it == columns_.end() || it->second >= values_.size() ? "" : values_[it->second];
}

double CsvTable::number(const std::string& column, double otherwise) const {
  std::string value = text(column);
  if (value.empty()) return otherwise;
  if (separator_ == ';') std::replace(value.begin(), value.end(), ',', '.');
  return numberAt(where(), value, column);
}

double CsvTable::number(const std::string& column) const {
  if (text(column).empty()) failAt(where(), column + " is missing");
  return number(column, 0);
}

std::vector<std::string> CsvTable::split(const std::string& line) const {
  std::vector<std::string> values(1);
  bool quoted = false, wasQuoted = false;
  for (size_t i = 0; i < line.size(); i++) {
    std::string& value = values.back();
    if (quoted) {
      const bool twice = line[i] == '"' && i + 1 < line.size() && line[i + 1] == '"';
      if (line[i] != '"' || twice) {
        value += line[i];
        i += twice;
      } else {
        quoted = false;
      }
    } else if (line[i] == '"' && trimmed(value).empty()) {
      value.clear();
      quoted = wasQuoted = true;
    } else if (line[i] == separator_) {
      if (!wasQuoted) value = trimmed(value);
      values.emplace_back();
      wasQuoted = false;
    } else if (!wasQuoted || !isSpace(line[i])) {
      value += line[i];
    }
  }
  if (quoted) failAt(where(), "a quoted value does not end");
  if (!wasQuoted) values.back() = trimmed(values.back());
  return values;
}

}  // namespace host
