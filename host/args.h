/** Command lines as tables: each subcommand lists its positional arguments and its options, and the help is made from
 * them. */
#ifndef PN10_HOST_ARGS_H
#define PN10_HOST_ARGS_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace host {

struct Option {
  const char* name;  /* "--size" */
  const char* value; /* "W,H"; null for a switch */
  const char* help;
};

/** What a command was given. */
class Args {
 public:
  std::vector<std::string> positional;

  bool has(const std::string& option) const { return given_.count(option) != 0; }
  /** The last value given, or `otherwise`. */
  std::string text(const std::string& option, const std::string& otherwise = "") const;
  /** Every value given, in order. */
  std::vector<std::string> all(const std::string& option) const;
  /** A number; a text that is none ends the command with a usage error. */
  double number(const std::string& option, double otherwise) const;
  /** A number from `low` to `high`, both allowed. */
  double numberWithin(const std::string& option, double otherwise, double low, double high) const;
  /** The same, and whole. */
  int64_t wholeWithin(const std::string& option, int64_t otherwise, int64_t low, int64_t high) const;
  /** Comma-separated numbers, exactly `count` of them. */
  std::vector<double> numbers(const std::string& option, size_t count) const;
  void add(const std::string& option, const std::string& value) { given_[option].push_back(value); }

 private:
  std::map<std::string, std::vector<std::string>> given_;
};

struct Command {
  const char* name;
  const char* arguments; /* "BASE node|pipe|customer RECORD" */
  const char* summary;
  const char* example;
  std::vector<Option> options;
  int (*run)(const Args& args);
};

/** All subcommands, in the order of the help. */
const std::vector<Command>& commands();

/** Wrong words on the command line: the message goes to standard error, the program ends with code 2. */
struct UsageError {
  std::string message;
};
/** Anything else that stops a command: message to standard error, code 1. */
struct Failure {
  std::string message;
};

/** What the program can do, but not on this system: message to standard error, code 3. */
struct NotHere {
  std::string message;
};

/** A whole text as a finite number; false, and `value` as it was, when it is none. */
bool parseNumber(const std::string& text, double* value);
/** The same for a whole number of 32 bits, also when it is written as 5.0 or 5e0. */
bool parseWhole(const std::string& text, int32_t* value);

/** Runs the program. */
int runCommand(int argc, char** argv);

}  // namespace host

#endif
