// pn10 trace: writes the control file, runs the trace, lists what it reached and paints it.
#include <pn10gdi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <set>

#include "commands.h"
#include "map_view.h"
#include "model_files.h"
#include "output.h"
#include "paths.h"
#include "records.h"

namespace host {

namespace {

struct TraceType {
  const char* word;
  int type;
  int direction; /* with the flow 1, against it -1 */
  const char* help;
};
constexpr int kFacility = 21, kStartElement = 10;
constexpr TraceType kTypes[] = {
    {"upstream", 0, -1, "where the gas comes from"},
    {"downstream", 1, 1, "where the gas goes"},
    {"connected", 2, 0, "everything that hangs together"},
    {"isolate", 3, 0, "what must be shut: up to valves, regulators and valve nodes"},
    {"isolate-main", 5, 0, "the same, only valve nodes of the second kind close"},
    {"main-down", 6, 1, "the largest flow at each node, downstream"},
    {"main-up", 7, -1, "the largest flow at each node, upstream"},
    {"to-regulator", 8, -1, "the largest flow upstream to the first regulator or compressor"},
    {"district", 20, 0, "what lies between regulators"},
    {"facility", 21, 0, "the start pipe's facility"}};

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
  TraceFolder() {
    // A folder of that name may be another run's: only the one that was made here is this one's.
    std::random_device random;
    do path_ = fs::temp_directory_path() / ("pn10trace" + std::to_string(random()));
    while (!fs::create_directory(path_));
  }
  ~TraceFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TraceFolder(const TraceFolder&) = delete;
  TraceFolder& operator=(const TraceFolder&) = delete;
  std::string prefix() const { return nameOf(path_) + "/"; }
  std::string read(const char* name) const {
    std::ifstream in(path_ / name);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  fs::path path_;
};

constexpr int32_t kTraceColor = 0x0020D0, kEdgeColor = 0xC05000, kFaded = 0xD0D4D6;

/** What the trace did not reach steps back, so that what it reached is seen. */
void fadeAll() {
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++)
    SetColorPXY(p, kFaded, kFaded, 0), SetPdtVal(p, PDT_XY_COLOR, "", kFaded);
  for (int32_t c = 1; c <= recordCount(Kind::Customer); c++) SetColorCXY(c, kFaded);
}

/** What a trace found: the elements, the lines about devices, and the counts of the summary. */
struct Findings {
  std::vector<int32_t> pipes;
  std::vector<std::string> devices;
  int32_t customers = 0, controls = 0, off = 0;
};

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

int32_t countBehind(const std::string& summary, const char* title) {
  const size_t at = summary.find(title);
  return at == std::string::npos ? 0 : std::atoi(summary.c_str() + at + std::strlen(title));
}

/** The files of the trace, and the start pipe first when the walk did not come back to it. */
Findings findingsOf(const TraceFolder& folder, int32_t startPipe) {
  Findings found;
  for (const std::string& line : linesOf(folder.read("trace.pip"))) found.pipes.push_back(std::atoi(line.c_str()));
  // A start element that the walk comes back to has two lines.
  std::set<std::string> seen;
  for (const std::string& line : linesOf(folder.read("trace.vlv"))) {
    if (seen.insert(line).second) found.devices.push_back(line);
  }
  const std::string summary = folder.read("trace.sum");
  found.customers = countBehind(summary, "Customers Found: ");
  found.controls = countBehind(summary, "Control Devices Found: ");
  found.off = countBehind(summary, "Turned 'Off' Elements: ");
  if (!startPipe || std::find(found.pipes.begin(), found.pipes.end(), startPipe) != found.pipes.end()) return found;
  found.pipes.insert(found.pipes.begin(), startPipe);
  const double type = number(Kind::Pipe, startPipe, PDT_HYD_TYPE);
  found.customers += static_cast<int32_t>(number(Kind::Pipe, startPipe, PDT_CUST_COUNT));
  found.controls += type >= 1 && type <= 3;
  found.off += number(Kind::Pipe, startPipe, PDT_STATUS) != 0;
  return found;
}

void printJson(const Findings& found) {
  Json json;
  json.open('{').member("traced", double(found.pipes.size())).member("customers", double(found.customers));
  json.member("control_devices", double(found.controls)).member("turned_off", double(found.off)).open('[', "pipes");
  for (const int32_t p : found.pipes) json.element(p);
  json.close(']').open('[', "devices");
  for (const std::string& line : found.devices) json.open('{').member("line", utf8(line)).close('}');
  std::printf("%s\n", json.close(']').close('}').text().c_str());
}

void printText(const Findings& found, bool everyPipe) {
  std::printf("%zu pipes and devices, %d customers, %d control devices, %d turned off\n", found.pipes.size(),
              found.customers, found.controls, found.off);
  for (const std::string& line : found.devices) std::printf("%s\n", utf8(line).c_str());
  for (size_t i = 0; everyPipe && i < found.pipes.size(); i++) {
    const int32_t p = found.pipes[i];
    std::printf("  pipe %d  %s  %s - %s\n", p, utf8(text(Kind::Pipe, p, PDT_SIZE_TYPE)).c_str(),
                utf8(text(Kind::Pipe, p, PDT_FROM_NAME)).c_str(), utf8(text(Kind::Pipe, p, PDT_TO_NAME)).c_str());
  }
}

/** What the trace met and did not cross stands out: these are the elements that end it. */
void markEdges(const Findings& found) {
  for (const int32_t p : found.pipes) {
    if (GetColorPXY(p) == kFaded) SetPdtVal(p, PDT_XY_COLOR, "", kEdgeColor);
  }
}

/** The end of a pipe that a trace from it begins at: where the gas leaves it downstream, and enters it upstream. */
int32_t startEnd(int32_t pipe, const TraceType& type) {
  const bool forward = number(Kind::Pipe, pipe, PDT_FLOW) >= 0;
  const bool toNode = type.direction != 0 && (type.direction > 0) == forward;
  return static_cast<int32_t>(number(Kind::Pipe, pipe, toNode ? PDT_TO_NODE : PDT_FROM_NODE));
}

int run(const Args& args) {
  if (!args.has("--type")) throw UsageError{"--type is wanted"};
  if (!args.has("--from") && !args.has("--from-pipe"))
    throw UsageError{"a start is wanted: --from NODE or --from-pipe ID"};
  const TraceType& type = parseType(args.text("--type"));
  if (type.type == kFacility && !args.has("--from-pipe"))
    throw UsageError{"a facility trace wants a pipe: --from-pipe ID"};
  const auto pipeId = static_cast<int32_t>(args.wholeWithin("--from-pipe", 0, -INT32_MAX, INT32_MAX));
  MapOptions options = parseMapOptions(args);
  const ModelInfo info = openModel(modelBase(args.positional[0]));
  takeModelDefaults(args, info, &options);

  int32_t startPipe = 0, startNode = 0;
  const int32_t stopNode = args.has("--stop") ? nodeByName(args.text("--stop")) : 0;
  if (args.has("--from-pipe")) {
    startPipe = FindPipeByID(pipeId);
    if (!startPipe) throw Failure{"no pipe has the id " + args.text("--from-pipe")};
    startNode = startEnd(startPipe, type);
  }
  if (args.has("--from")) startNode = nodeByName(args.text("--from"));

  const TraceFolder folder;
  SetGlobalGDI(folder.prefix().c_str(), "");
  fadeAll();
  std::ofstream(folder.prefix() + "pntrace.ini") << type.type << "\n"
                                                 << kTraceColor << "\n1\n0\n"
                                                 << (startPipe ? kStartElement : 0) << "\n1\n0\n3\n1\n3\n4\n";
  const int32_t count = CalcSystemTrace(startNode, stopNode, startPipe, 0, nullptr, 0);
  if (count < 0) throw Failure{std::string("trace: ") + resultText("CalcSystemTrace", count)};
  const Findings found = findingsOf(folder, startPipe);
  if (args.has("--json")) {
    printJson(found);
  } else {
    printText(found, args.has("--list"));
  }
  if (!options.output.empty()) {
    markEdges(found);
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
  return {
      "trace",
      "BASE",
      "Follows the network from a place, lists what it reaches, and paints it with -o: reached red, what ends it blue.",
      "pn10 trace town/town --type isolate --from \"Forest Rd & Clark Blvd\" -o trace.png",
      options,
      run};
}

}  // namespace host
