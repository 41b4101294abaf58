/** Text files line by line for the imports: every complaint names the file and the line. */
#ifndef PN10_HOST_IMPORT_TEXT_H
#define PN10_HOST_IMPORT_TEXT_H

#include <string>
#include <unordered_map>
#include <vector>

#include "network.h"

namespace host {

/** A place in a file; the path outlives it. */
struct Where {
  const std::string* path = nullptr;
  int line = 0;
};

[[noreturn]] void failAt(const Where& where, const std::string& what);

/** A whole file; UTF-8 with or without its mark, any line ends. Throws Failure when it can't be read. */
std::vector<std::string> readLines(const std::string& path);

/** A finite number, or a complaint that names the column or the meaning. */
double numberAt(const Where& where, const std::string& text, const std::string& what);

std::string lowerCase(std::string text);
std::string trimmed(const std::string& text);

/** Points written as "x y;x y". */
std::vector<Point> pointsAt(const Where& where, const std::string& text);

/**
 * A table of comma-, semicolon- or tab-separated values with a line of names on top. A value may stand in double
 * quotes, which double inside it; behind semicolons a number may have a decimal comma.
 */
class CsvTable {
 public:
  CsvTable(const std::string& path, const std::vector<const char*>& needed);
  /** Steps to the next row; false at the end. */
  bool next();
  Where where() const { return {&path_, line_}; }
  bool has(const std::string& column) const { return columns_.count(column) != 0; }
  /** The value of a column; empty when there is no such column. */
  std::string text(const std::string& column) const;
  /** A number; `otherwise` for an empty value or a column that is not there. */
  double number(const std::string& column, double otherwise) const;
  /** A number that has to be there. */
  double number(const std::string& column) const;

 private:
  std::vector<std::string> split(const std::string& line) const;

  const std::string& path_;
  std::vector<std::string> lines_;
  std::unordered_map<std::string, size_t> columns_;
  std::vector<std::string> values_;
  char separator_ = ',';
  int line_ = 0; /* of the row, from 1 */
};

}  // namespace host

#endif
