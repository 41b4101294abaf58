// The command line: parsing by the tables, help texts, and the exit codes.
#include "args.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace host {

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

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
      "Exit codes: 0 done, 1 failed, 2 wrong words on the command line.\n");
}

Args parse(const Command& command, int argc, char** argv) {
  Args args;
  for (int i = 2; i < argc; i++) {
    std::string word = argv[i];
    // A single dash begins the short form -o; a number may be negative.
    if (word == "-o") word = "--output";
    if (word.size() < 3 || word.compare(0, 2, "--") != 0) {
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

int runOne(const Command& command, int argc, char** argv) {
  try {
    return command.run(parse(command, argc, argv));
  } catch (const UsageError& e) {
    std::fprintf(stderr, "pn10 %s: %s\nusage: pn10 %s %s [options]; pn10 %s --help lists them\n", command.name,
                 e.message.c_str(), command.name, command.arguments, command.name);
    return kUsage;
  } catch (const Failure& e) {
    std::fprintf(stderr, "pn10 %s: %s\n", command.name, e.message.c_str());
    return kFailed;
  }
}

}  // namespace

bool parseNumber(const std::string& text, double* value) {
  const char* begin = text.c_str();
  if (*begin == '+') begin++;
  const auto done = std::from_chars(begin, text.c_str() + text.size(), *value);
  return done.ec == std::errc() && done.ptr == text.c_str() + text.size() && begin != done.ptr;
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

int runCommand(int argc, char** argv) {
  const std::string name = argc > 1 ? argv[1] : "--help";
  if (name == "--help" || name == "-h" || name == "help") {
    printOverview();
    return argc > 1 ? kDone : kUsage;
  }
  for (const Command& command : commands()) {
    if (name != command.name) continue;
    for (int i = 2; i < argc; i++) {
      if (!std::strcmp(argv[i], "--help")) {
        printHelp(command);
        return kDone;
      }
    }
    return runOne(command, argc, argv);
  }
  std::fprintf(stderr, "pn10: unknown command '%s'; pn10 --help lists them\n", name.c_str());
  return kUsage;
}

}  // namespace host
