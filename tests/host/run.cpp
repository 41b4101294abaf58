/** Running the program: standard output and standard error go to files of a folder of their own. */
#include "host/run.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace pn10::test {

namespace fs = std::filesystem;

namespace {

std::string quoted(const std::string& word) {
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

}  // namespace

Result shell(const std::string& line, const std::string& folder) {
  const TempDir capture;
  // Without a sanitizer in the program this says nothing to it.
  std::string command =
      "export LSAN_OPTIONS=print_suppressions=0:suppressions=" PN10_SOURCE_DIR "/tests/host/known_leaks.txt; ";
  command += "pn10() { " + quoted(PN10_PROGRAM) + " \"$@\"; }; ";
  if (!folder.empty()) command += "cd " + quoted(folder) + " && ";
  command += "{ " + line + "; } >" + quoted(capture.path("out")) + " 2>" + quoted(capture.path("err")) + " </dev/null";
  const int status = std::system(command.c_str());
  Result result;
  result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.out = capture.read("out");
  result.err = capture.read("err");
  return result;
}

Result run(const std::vector<std::string>& words, const std::string& folder) {
  std::string line = "pn10";
  for (const std::string& word : words) line += " " + quoted(word);
  return shell(line, folder);
}

double numberBehind(const std::string& json, const std::string& text) {
  const size_t at = json.find(text);
  EXPECT_NE(at, std::string::npos) << text << " in " << json;
  return at == std::string::npos ? -1 : std::strtod(json.c_str() + at + text.size(), nullptr);
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    names.push_back(fs::relative(entry.path(), folder).string());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace pn10::test
