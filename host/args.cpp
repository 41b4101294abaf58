// The command line: parsing by the tables, help texts, and the exit codes.
#include "args.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>

#include "output.h"

namespace host {

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotHere = 3;

const Option* findOption(const Command& command, const std::string& name) {
  const auto it =
      std::find_if(command.options.begin(), command.options.end(), [&](const Option& o) { return name == o.name; });
  return it == command.options.end() ? nullptr : &*it;
}

size_t positionalCount(const Command& command) {
  const std::string words = command.arguments;
  return words.empty() ? 0 : static_cast<size_t>(std::count(words.begin(), words.end(), ' ')) + 1;
}

void printHelp(const Command& command) {
  std::printf("pn10 %s %s\n\n%s\n\nOptions:\n", command.name, command.arguments, command.summary);
  const auto row = [](const std::string& left, const char* help) { std::printf("  %-26s %s\n", left.c_str(), help); };
  for (const Option& o : command.options) row(o.value ? std::string(o.name) + " " + o.value : o.name, o.help);
  row("--help", "this text");
  std::printf("\nExample:\n  %s\n", command.example);
}

void printOverview() {
  std::printf(
      "pn10 COMMAND ...\n\nA gas network on the command line: make it, look at it, paint it, trace it.\n\nCommands:\n");
  for (const Command& c : commands()) std::printf("  %-8s %s\n", c.name, c.summary);
  std::printf(
      "\n'pn10 COMMAND --help' tells the options of a command and shows an example.\n"
      "Exit codes: 0 done, 1 failed, 2 wrong words on the command line, 3 not on this system (PDF and SVG on "
      "Windows).\n");
}

/** A dash begins an option, unless a number follows it. */
bool isOption(const std::string& word) {
  return word.size() > 1 && word[0] == '-' && word[1] != '.' && !(word[1] >= '0' && word[1] <= '9');
}

Args parse(const Command& command, int argc, char** argv) {
  Args args;
  bool optionsEnded = false;
  for (int i = 2; i < argc; i++) {
    std::string word = argv[i];
    if (!optionsEnded && word == "--") {
      optionsEnded = true;
      continue;
    }
    if (word == "-o") word = "--output";
    if (optionsEnded || !isOption(word)) {
      args.positional.push_back(word);
      continue;
    }
    std::string value;
    const size_t equals = word.find('=');
    const bool attached = equals != std::string::npos;
    if (attached) {
      value = word.substr(equals + 1);
      word.resize(equals);
    }
    const Option* option = findOption(command, word);
    if (!option) throw UsageError{"unknown option " + word};
    if (option->value && !attached) {
      if (++i >= argc) throw UsageError{"option " + word + " needs " + option->value};
      value = argv[i];
    } else if (!option->value && attached) {
      throw UsageError{"option " + word + " takes no value"};
    }
    args.add(word, value);
  }
  const size_t wanted = positionalCount(command);
  if (args.positional.size() != wanted) {
    throw UsageError{args.positional.size() < wanted ? "too few arguments"
                                                     : "too many arguments: " + args.positional[wanted]};
  }
  return args;
}

int failed(const Command& command, const char* message, int code) {
  std::fprintf(stderr, "pn10 %s: %s\n", command.name, message);
  return code;
}

int runOne(const Command& command, int argc, char** argv) {
  try {
    return command.run(parse(command, argc, argv));
  } catch (const UsageError& e) {
    std::fprintf(stderr, "pn10 %s: %s\nusage: pn10 %s %s [options]; pn10 %s --help lists them\n", command.name,
                 e.message.c_str(), command.name, command.arguments, command.name);
    return kUsage;
  } catch (const Failure& e) {
    return failed(command, e.message.c_str(), kFailed);
  } catch (const NotHere& e) {
    return failed(command, e.message.c_str(), kNotHere);
  } catch (const std::exception& e) {  // no memory, or a folder that can't be looked into
    return failed(command, e.what(), kFailed);
  }
}

}  // namespace

bool parseNumber(const std::string& text, double* value) {
  const char* begin = text.c_str();
  if (begin[0] == '+' && begin[1] != '-') begin++;
  double read = 0;
  const auto done = std::from_chars(begin, text.c_str() + text.size(), read);
  if (done.ec != std::errc() || done.ptr != text.c_str() + text.size() || !std::isfinite(read)) return false;
  *value = read;
  return true;
}

bool parseWhole(const std::string& text, int32_t* value) {
  double read = 0;
  if (!parseNumber(text, &read) || std::fabs(read) > 2147483647.0 || read != std::floor(read)) return false;
  *value = static_cast<int32_t>(read);
  return true;
}

std::string Args::text(const std::string& option, const std::string& otherwise) const {
  const auto it = given_.find(option);
  return it == given_.end() ? otherwise : it->second.back();
}

std::vector<std::string> Args::all(const std::string& option) const {
  const auto it = given_.find(option);
  return it == given_.end() ? std::vector<std::string>{} : it->second;
}

double Args::number(const std::string& option, double otherwise) const {
  double value = otherwise;
  if (has(option) && !parseNumber(text(option), &value))
    throw UsageError{option + " wants a number, not '" + text(option) + "'"};
  return value;
}

std::vector<double> Args::numbers(const std::string& option, size_t count) const {
  std::vector<double> values;
  const std::string list = text(option);
  for (size_t at = 0; at <= list.size();) {
    const size_t comma = std::min(list.find(',', at), list.size());
    double value = 0;
    if (!parseNumber(list.substr(at, comma - at), &value)) break;
    values.push_back(value);
    at = comma + 1;
  }
  if (values.size() != count)
    throw UsageError{option + " wants " + std::to_string(count) + " numbers, not '" + list + "'"};
  return values;
}

double Args::numberWithin(const std::string& option, double otherwise, double low, double high) const {
  const double value = number(option, otherwise);
  if (has(option) && !(value >= low && value <= high))
    throw UsageError{option + " wants " + shortNumber(low) + " to " + shortNumber(high) + ", not '" + text(option) +
                     "'"};
  return value;
}

int64_t Args::wholeWithin(const std::string& option, int64_t otherwise, int64_t low, int64_t high) const {
  const auto value = number(option, static_cast<double>(otherwise));
  if (!(value >= static_cast<double>(low) && value <= static_cast<double>(high)) || value != std::floor(value)) {
    throw UsageError{option + " wants a whole number from " + std::to_string(low) + " to " + std::to_string(high) +
                     ", not '" + text(option) + "'"};
  }
  return static_cast<int64_t>(value);
}

int runCommand(int argc, char** argv) {
  std::string name = argc > 1 ? argv[1] : "--help";
  bool help = name == "--help" || name == "-h" || name == "help";
  if (help && argc < 3) {
    printOverview();
    return argc > 1 ? kDone : kUsage;
  }
  if (help) name = argv[2];
  for (int i = 2; i < argc && std::strcmp(argv[i], "--"); i++)
    help = help || !std::strcmp(argv[i], "--help") || !std::strcmp(argv[i], "-h");
  for (const Command& command : commands()) {
    if (name != command.name) continue;
    if (!help) return runOne(command, argc, argv);
    printHelp(command);
    return kDone;
  }
  std::fprintf(stderr, "pn10: unknown command '%s'; pn10 --help lists them\n", name.c_str());
  return kUsage;
}

}  // namespace host
