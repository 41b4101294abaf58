/** The help of every command: its example runs, and docs/cli.md is made of it. */
#include <sstream>

#include "host/run.h"

namespace {

using namespace pn10::test;

/** The commands that the overview lists. */
std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  std::istringstream lines(run({"--help"}).out);
  bool listed = false;
  for (std::string line; std::getline(lines, line);) {
    if (listed && line.empty()) break;
    if (listed) names.push_back(line.substr(2, line.find(' ', 2) - 2));
    listed = listed || line == "Commands:";
  }
  return names;
}

std::string exampleOf(const std::string& command) {
  const std::string help = run({command, "--help"}).out;
  const size_t at = help.find("\nExample:\n  ");
  EXPECT_NE(at, std::string::npos) << command;
  return at == std::string::npos ? "" : help.substr(at + 12, help.find('\n', at + 12) - at - 12);
}

TEST(Help, lists_all_eight_commands) {
  const std::vector<std::string> all = {"sample", "import", "info", "fields", "set", "render", "find", "trace"};
  EXPECT_EQ(commandNames(), all);
}

TEST(Help, every_example_runs_as_it_stands) {
  const TempDir dir;
  EXPECT_EQ(shell("mkdir -p networks/town", dir.path("")).code, 0);
  dir.write("networks/town/nodes.csv", "id,x,y\nA,0,0\nB,100,0\n");
  dir.write("networks/town/links.csv", "id,from,to,diameter\n1,A,B,150\n");
  for (const std::string& command : commandNames()) {
    const Result r = shell(exampleOf(command), dir.path(""));
    EXPECT_EQ(r.code, 0) << command << ": " << r.err;
  }
  EXPECT_TRUE(dir.exists("town.png") && dir.exists("trace.png"));
}

TEST(Help, the_manual_is_the_help_of_all_commands) {
  const Result made = shell(std::string(PN10_SOURCE_DIR) + "/host/make_cli_doc.sh " + PN10_PROGRAM, "");
  EXPECT_EQ(made.code, 0) << made.err;
  EXPECT_EQ(readFile(std::string(PN10_SOURCE_DIR) + "/docs/cli.md"), made.out)
      << "make it anew with host/make_cli_doc.sh";
}

TEST(FieldNames, are_those_of_the_header) {
  const std::string host = std::string(PN10_SOURCE_DIR) + "/host/";
  const Result made =
      shell("python3 " + host + "make_field_names.py " + PN10_SOURCE_DIR + "/src/exports/pn10gdi.h", "");
  EXPECT_EQ(made.code, 0) << made.err;
  EXPECT_EQ(readFile(host + "field_names.inc"), made.out) << "make it anew with host/make_field_names.py";
}

}  // namespace
