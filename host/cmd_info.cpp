// pn10 info: what a model holds.
#include <pn10gdi.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "commands.h"
#include "extent.h"
#include "model_files.h"
#include "output.h"
#include "records.h"

namespace host {

namespace {

constexpr const char* kTypes[] = {"pipes", "regulators", "compressors", "valves", "wells", "fittings"};

struct Sum {
  int32_t count = 0;
  double length = 0; /* feet */
};

/** Sizes in the order of their numbers: 2" before 12". */
struct ByNumber {
  bool operator()(const std::string& a, const std::string& b) const {
    const double x = leading(a), y = leading(b);
    return x != y ? x < y : a < b;
  }
  static double leading(const std::string& name) {
    return !name.empty() && name[0] >= '0' && name[0] <= '9' ? std::strtod(name.c_str(), nullptr) : 0;
  }
};
using Sums = std::map<std::string, Sum, ByNumber>;

struct Totals {
  int32_t live[3] = {}, deleted[3] = {};
  Sums bySize, byFacility;
  Sum byType[6], pipes;
  int32_t vertices = 0, withService = 0;
  double supply = 0, drawn = 0, custLoad = 0; /* cubic feet per hour; of nodes, and of customers */
};

std::string facilityName(int16_t number) {
  char name[257] = "";
  GetFacVal(0, number, name, FAC_NAME);
  return *name ? utf8(name) : "facility " + std::to_string(number);
}

void addPipe(Totals& t, int32_t p) {
  const auto type = static_cast<size_t>(number(Kind::Pipe, p, PDT_HYD_TYPE));
  const bool measured = type == 0;
  const double feet = measured ? number(Kind::Pipe, p, PDT_BASE_LENGTH) : 0;
  if (type < 6) t.byType[type].count++, t.byType[type].length += feet;
  if (number(Kind::Pipe, p, PDT_VTX_MODE) != 0) {
    int32_t first = 0, last = 0;
    GetPXY(p, &first, &last);
    if (first > 0) t.vertices += last - first + 1;
  }
  if (!measured) return;
  t.pipes.count++;
  t.pipes.length += feet;
  for (Sum* sum : {&t.bySize[utf8(text(Kind::Pipe, p, PDT_SIZE_TYPE))],
                   &t.byFacility[facilityName(static_cast<int16_t>(number(Kind::Pipe, p, PDT_FACILITY)))]}) {
    sum->count++;
    sum->length += feet;
  }
}

Totals addUp() {
  Totals t;
  for (const Kind kind : kKinds) {
    const auto k = static_cast<size_t>(kind);
    for (int32_t r = 1; r <= recordCount(kind); r++) {
      if (isDeleted(kind, r)) {
        t.deleted[k]++;
        continue;
      }
      t.live[k]++;
      if (kind == Kind::Pipe) addPipe(t, r);
      if (kind == Kind::Node) {
        const double load = number(kind, r, NDT_BASE_LOAD);
        (load > 0 ? t.supply : t.drawn) += std::fabs(load);
      }
      if (kind == Kind::Customer) {
        t.custLoad += number(kind, r, CDT_BASE_LOAD) * number(kind, r, CDT_COUNT);
        t.withService += number(kind, r, CDT_VTX_MODE) == 4;
      }
    }
  }
  return t;
}

void addGroup(Json& json, const char* name, const Sums& sums) {
  json.open('[', name);
  for (const auto& [key, sum] : sums) {
    json.open('{').member("name", key).member("pipes", double(sum.count)).member("length_ft", sum.length).close('}');
  }
  json.close(']');
}

void printJson(const std::string& base, const ModelInfo& info, const Totals& t, const Extent& e) {
  Json json;
  json.open('{').member("model", base).member("title", utf8(info.title));
  for (const Kind kind : kKinds) {
    const auto k = static_cast<size_t>(kind);
    json.open('{', std::string(kindName(kind)) + "s")
        .member("live", double(t.live[k]))
        .member("deleted", double(t.deleted[k]))
        .close('}');
  }
  json.open('{', "elements");
  for (size_t i = 0; i < 6; i++) json.member(kTypes[i], double(t.byType[i].count));
  json.close('}');
  json.member("vertices", double(t.vertices)).member("service_lines_with_bends", double(t.withService));
  json.member("length_ft", t.pipes.length);
  addGroup(json, "by_size", t.bySize);
  addGroup(json, "by_facility", t.byFacility);
  json.member("node_supply_cfh", t.supply).member("node_demand_cfh", t.drawn).member("customer_load_cfh", t.custLoad);
  json.open('[', "extent");
  for (double v : {e.minX, e.minY, e.maxX, e.maxY}) json.element(v);
  json.close(']');
  json.open('{', "units").member("length", utf8(info.units.length)).member("pressure", utf8(info.units.pressure));
  json.member("flow", utf8(info.units.flow))
      .member("diameter", utf8(info.units.diameter))
      .member("geographic", info.units.geographic)
      .close('}');
  std::printf("%s\n", json.close('}').text().c_str());
}

/** What people read lengths and flows in: the units of the model. */
struct Shown {
  double length, flow; /* a unit in feet, in cubic feet per hour */
  std::string lengthName, flowName;
  explicit Shown(const NetUnits& units)
      : length(static_cast<double>(GetUnitFactor(units.length.c_str(), 1, "LUS"))),
        flow(static_cast<double>(GetUnitFactor(units.flow.c_str(), 1, "QUS"))),
        lengthName(utf8(units.length)),
        flowName(utf8(units.flow)) {
    if (!(length > 0)) length = 1, lengthName = "Feet";
    if (!(flow > 0)) flow = 1, flowName = "cfh";
  }
  std::string ofLength(double feet) const { return fixedNumber(feet / length, 0) + " " + lengthName; }
  std::string ofFlow(double cfh) const { return fixedNumber(cfh / flow, 0) + " " + flowName; }
};

void printSums(const char* title, const Sums& sums, const Shown& shown) {
  std::printf("%s\n", title);
  for (const auto& [key, sum] : sums) {
    std::printf("  %-24s %9d pipe%s %20s\n", key.empty() ? "(none)" : key.c_str(), sum.count,
                sum.count == 1 ? " " : "s", shown.ofLength(sum.length).c_str());
  }
}

void printText(const std::string& base, const ModelInfo& info, const Totals& t, const Extent& e) {
  std::printf("%s%s%s\n", base.c_str(), info.title.empty() ? "" : ": ", utf8(info.title).c_str());
  for (const Kind kind : kKinds) {
    const auto k = static_cast<size_t>(kind);
    std::printf("  %-10s %9d live, %d deleted\n", (std::string(kindName(kind)) + "s").c_str(), t.live[k], t.deleted[k]);
  }
  std::string kinds;
  for (size_t i = 0; i < 6; i++) {
    if (!t.byType[i].count) continue;
    const std::string name = kTypes[i];
    kinds += (kinds.empty() ? " " : ", ") + std::to_string(t.byType[i].count) + " " +
             (t.byType[i].count == 1 ? name.substr(0, name.size() - 1) : name);
  }
  const Shown shown(info.units);
  const bool metric = shown.length > 3 && shown.length < 3.5;  // a metre has 3.28 feet
  std::printf("  of the pipes%s\n  vertices   %9d\n", kinds.empty() ? " none" : kinds.c_str(), t.vertices);
  std::printf("length %s (%s %s)\n", shown.ofLength(t.pipes.length).c_str(),
              fixedNumber(t.pipes.length / (metric ? 1000 * shown.length : 5280), 2).c_str(), metric ? "km" : "miles");
  printSums("by size", t.bySize, shown);
  printSums("by facility", t.byFacility, shown);
  std::printf("loads: supplies %s, demands %s, customers %s\n", shown.ofFlow(t.supply).c_str(),
              shown.ofFlow(t.drawn).c_str(), shown.ofFlow(t.custLoad).c_str());
  const int decimals = info.units.geographic ? 6 : 2;
  const auto place = [&](double v) { return fixedNumber(v, decimals); };
  std::printf("extent: %s, %s to %s, %s%s\n", place(e.minX).c_str(), place(e.minY).c_str(), place(e.maxX).c_str(),
              place(e.maxY).c_str(), info.units.geographic ? " degrees" : "");
  std::printf("units: length %s, pressure %s, flow %s, diameter %s\n", utf8(info.units.length).c_str(),
              utf8(info.units.pressure).c_str(), utf8(info.units.flow).c_str(), utf8(info.units.diameter).c_str());
}

int run(const Args& args) {
  const std::string base = modelBase(args.positional[0]);
  const ModelInfo info = openModel(base);
  const Totals totals = addUp();
  (args.has("--json") ? printJson : printText)(base, info, totals, modelExtent(true));
  closeModel();
  return 0;
}

}  // namespace

Command infoCommand() {
  return {"info",
          "BASE",
          "What a model holds: records, lengths by size and by facility, loads, extent, units.",
          "pn10 info town/town",
          {{"--json", nullptr, "as JSON"}},
          run};
}

}  // namespace host
