// pn10 trace: writes the control file, runs the trace, lists what it reached and paints it.
#include <pn10gdi.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "commands.h"
#include "map_view.h"
#include "model_files.h"
#include "output.h"
#include "records.h"

namespace host {

namespace fs = std::filesystem;

namespace {

struct TraceType {
  const char* word;
  int type;
  const char* help;
};
constexpr TraceType kTypes[] = {{"upstream", 0, "where the gas comes from"},
                                {"downstream", 1, "where the gas goes"},
                                {"connected", 2, "everything that hangs together"},
                                {"isolate", 3, "what must be shut: up to valves, regulators and valve nodes"},
                                {"isolate-main", 5, "the same, only valve nodes of the second kind close"},
                                {"main-down", 6, "the largest flow at each node, downstream"},
                                {"main-up", 7, "the largest flow at each node, upstream"},
                                {"to-regulator", 8, "the largest flow upstream to the first regulator or compressor"},
                                {"district", 20, "what lies between regulators"},
                                {"facility", 21, "the start pipe's facility"}};

const TraceType& parseType(const std::string& word) {
  std::string all;
  for (const TraceType& t : kTypes) {
    if (word == t.word) return t;
    all += std::string(all.empty() ? "" : ", ") + t.word;
  }
  throw UsageError{"--type is one of " + all};
}

int32_t nodeByName(const std::string& name) {
  std::string upper = ansi(name);
  StrUpper(upper.data());
  const int32_t node = FindNodeByName(upper.c_str(), static_cast<int32_t>(upper.size()), 1, 0);
  if (!node) throw Failure{"no node is called '" + name + "'"};
  return node;
}

/** A folder for the control and output files of one run, removed afterwards. */
class TraceFolder {
 public:
  TraceFolder() : path_(fs::temp_directory_path() / ("pn10trace" + std::to_string(reinterpret_cast<uintptr_t>(this)))) {
    fs::create_directories(path_);
  }
  ~TraceFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TraceFolder(const TraceFolder&) = delete;
  TraceFolder& operator=(const TraceFolder&) = delete;
  std::string prefix() const { return path_.string() + "/"; }
  std::string read(const char* name) const {
    std::ifstream in(path_ / name);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  fs::path path_;
};

constexpr int32_t kTraceColor = 0x0020D0, kFaded = 0xD0D4D6;

/** What the trace did not reach steps back, so that what it reached is seen. */
void fadeAll() {
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++)
    SetColorPXY(p, kFaded, kFaded, 0), SetPdtVal(p, PDT_XY_COLOR, "", kFaded);
  for (int32_t c = 1; c <= recordCount(Kind::Customer); c++) SetColorCXY(c, kFaded);
}

void list(const Args& args, int32_t count, const TraceFolder& folder) {
  const std::string pipes = folder.read("trace.pip"), devices = folder.read("trace.vlv"),
                    summary = folder.read("trace.sum");
  if (args.has("--json")) {
    Json json;
    json.open('{').member("traced", double(count)).open('[', "pipes");
    for (size_t at = 0; at < pipes.size(); at = pipes.find('\n', at) + 1) json.element(std::stod(pipes.substr(at)));
    json.close(']').open('[', "devices");
    for (size_t at = 0; at < devices.size();) {
      const size_t end = devices.find('\n', at);
      json.open('{').member("line", devices.substr(at, end - at)).close('}');
      at = end + 1;
    }
    std::printf("%s\n", json.close(']').close('}').text().c_str());
    return;
  }
  std::printf("%d pipes traced\n%s%s", count, summary.c_str(), utf8(devices).c_str());
  if (!args.has("--list")) return;
  for (size_t at = 0; at < pipes.size(); at = pipes.find('\n', at) + 1) {
    const auto p = static_cast<int32_t>(std::stod(pipes.substr(at)));
    std::printf("  pipe %d  %s  %s - %s\n", p, utf8(text(Kind::Pipe, p, PDT_SIZE_TYPE)).c_str(),
                utf8(text(Kind::Pipe, p, PDT_FROM_NAME)).c_str(), utf8(text(Kind::Pipe, p, PDT_TO_NAME)).c_str());
  }
}

int run(const Args& args) {
  if (!args.has("--type")) throw UsageError{"--type is wanted"};
  if (!args.has("--from") && !args.has("--from-pipe"))
    throw UsageError{"a start is wanted: --from NODE or --from-pipe ID"};
  const TraceType& type = parseType(args.text("--type"));
  MapOptions options = parseMapOptions(args);
  const ModelInfo info = openModel(args.positional[0]);
  takeModelDefaults(args, info, &options);

  int32_t startPipe = 0, startNode = 0;
  const int32_t stopNode = args.has("--stop") ? nodeByName(args.text("--stop")) : 0;
  if (args.has("--from-pipe")) {
    startPipe = FindPipeByID(static_cast<int32_t>(args.number("--from-pipe", 0)));
    if (!startPipe) throw Failure{"no pipe has the id " + args.text("--from-pipe")};
    startNode = static_cast<int32_t>(number(Kind::Pipe, startPipe, PDT_FROM_NODE));
  }
  if (args.has("--from")) startNode = nodeByName(args.text("--from"));

  const TraceFolder folder;
  SetGlobalGDI(folder.prefix().c_str(), "");
  fadeAll();
  std::ofstream(folder.prefix() + "pntrace.ini") << type.type << "\n"
                                                 << kTraceColor << "\n1\n0\n"
                                                 << (startPipe ? 9 : 0) << "\n1\n0\n3\n1\n3\n4\n";
  const int32_t count = CalcSystemTrace(startNode, stopNode, startPipe, 0, nullptr, 0);
  if (count < 0) throw Failure{std::string("trace: ") + resultText("CalcSystemTrace", count)};
  list(args, count, folder);
  if (!options.output.empty()) {
    options.colorBy = ColorBy::Trace;
    // The colours are the message: labels of pipes only when they are asked for.
    if (!args.has("--pipe-labels")) options.pipeLabels = false;
    options.hiliteNodes = {startNode};
    paintMap(options);
  }
  closeModel();
  return 0;
}

}  // namespace

Command traceCommand() {
  std::vector<Option> options = {
      {"--type", "NAME",
       "upstream, downstream, connected, isolate, isolate-main, main-down, main-up, to-regulator, district, facility"},
      {"--from", "NODE", "the name of the start node"},
      {"--from-pipe", "ID", "the id of the start pipe"},
      {"--stop", "NODE", "a flow trace does not pass this node"},
      {"--list", nullptr, "every pipe reached, a line each"},
      {"--json", nullptr, "as JSON"}};
  for (const Option& o : mapOptionRows()) options.push_back(o);
  return {"trace",
          "BASE",
          "Follows the network from a place, lists what it reaches, and paints it with -o.",
          "pn10 trace town/town --type isolate --from \"Forest Rd & Clark Blvd\" -o trace.png",
          options,
          run};
}

}  // namespace host
