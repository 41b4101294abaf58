// pn10 info: what a model holds.
#include <pn10gdi.h>

#include <cmath>
#include <cstdio>
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

struct Totals {
  int32_t live[3] = {}, deleted[3] = {};
  std::map<std::string, Sum> bySize, byFacility;
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

void addGroup(Json& json, const char* name, const std::map<std::string, Sum>& sums) {
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
  json.open('{', "units").member("length", info.units.length).member("pressure", info.units.pressure);
  json.member("flow", info.units.flow)
      .member("diameter", info.units.diameter)
      .member("geographic", info.units.geographic)
      .close('}');
  std::printf("%s\n", json.close('}').text().c_str());
}

void printSums(const char* title, const std::map<std::string, Sum>& sums) {
  std::printf("%s\n", title);
  for (const auto& [key, sum] : sums)
    std::printf("  %-24s %9d pipes %14s ft\n", key.c_str(), sum.count, fixedNumber(sum.length, 0).c_str());
}

void printText(const std::string& base, const ModelInfo& info, const Totals& t, const Extent& e) {
  std::printf("%s%s%s\n", base.c_str(), info.title.empty() ? "" : ": ", utf8(info.title).c_str());
  for (const Kind kind : kKinds) {
    const auto k = static_cast<size_t>(kind);
    std::printf("  %-10s %9d live, %d deleted\n", (std::string(kindName(kind)) + "s").c_str(), t.live[k], t.deleted[k]);
  }
  std::printf("  of the pipes");
  for (size_t i = 0; i < 6; i++) {
    if (t.byType[i].count) std::printf("%s %d %s", i ? "," : "", t.byType[i].count, kTypes[i]);
  }
  std::printf("\n  vertices   %9d\n", t.vertices);
  std::printf("length %s ft (%s miles)\n", fixedNumber(t.pipes.length, 0).c_str(),
              fixedNumber(t.pipes.length / 5280, 2).c_str());
  printSums("by size", t.bySize);
  printSums("by facility", t.byFacility);
  std::printf("loads: supplies %s cf/h, demands %s cf/h, customers %s cf/h\n", fixedNumber(t.supply, 0).c_str(),
              fixedNumber(t.drawn, 0).c_str(), fixedNumber(t.custLoad, 0).c_str());
  std::printf("extent: %s, %s to %s, %s%s\n", shortNumber(e.minX).c_str(), shortNumber(e.minY).c_str(),
              shortNumber(e.maxX).c_str(), shortNumber(e.maxY).c_str(), info.units.geographic ? " degrees" : "");
  std::printf("units: length %s, pressure %s, flow %s, diameter %s\n", info.units.length.c_str(),
              info.units.pressure.c_str(), info.units.flow.c_str(), info.units.diameter.c_str());
}

int run(const Args& args) {
  const std::string& base = args.positional[0];
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
