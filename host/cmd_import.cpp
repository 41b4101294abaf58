// pn10 import: networks of other programs.
#include <cstdio>

#include "commands.h"
#include "import_source.h"
#include "model_files.h"
#include "output.h"
#include "paths.h"

namespace host {

namespace {

struct UnitChoice {
  const char* name;
  bool metric, degrees;
};
constexpr UnitChoice kChoices[] = {
    {"us", false, false}, {"metric", true, false}, {"us-degrees", false, true}, {"metric-degrees", true, true}};

const UnitChoice* chosenUnits(const Args& args) {
  if (!args.has("--units")) return nullptr;
  for (const UnitChoice& choice : kChoices) {
    if (args.text("--units") == choice.name) return &choice;
  }
  throw UsageError{"--units wants us, metric, us-degrees or metric-degrees, not '" + args.text("--units") + "'"};
}

Source readSource(const std::string& path, const UnitChoice* units) {
  if (!fs::exists(pathOf(path))) throw Failure{path + ": there is no such file or folder"};
  if (fs::is_directory(pathOf(path))) return readCsvFolder(path, units && !units->metric);
  Source source = readInp(path);
  if (units && units->metric != source.metric) {
    throw Failure{path + ": its flow units make it " + (source.metric ? "metric" : "us") +
                  "; --units can't change that"};
  }
  return source;
}

int run(const Args& args) {
  const UnitChoice* units = chosenUnits(args);
  Source source = readSource(args.positional[0], units);
  source.units.geographic = units && units->degrees;
  ImportCounts counts;
  const Network network = makeNetwork(source, &counts);
  refuseToReplace(args.positional[1], args);
  if (network.links.empty()) throw Failure{args.positional[0] + ": there is no pipe to import"};
  saveNetwork(network, args.positional[1]);
  closeModel();
  std::printf("%s: %zu nodes, %zu pipes and devices, %zu customers\n", args.positional[1].c_str(), network.nodes.size(),
              network.links.size(), network.customers.size());
  std::printf("units: length %s, diameter %s, flow %s, pressure %s%s\n", network.units.length.c_str(),
              network.units.diameter.c_str(), network.units.flow.c_str(), network.units.pressure.c_str(),
              network.units.geographic ? ", coordinates degrees" : "");
  if (counts.houses)
    std::printf("%zu nodes at the ends of service lines became meters and taps of customers\n", counts.houses);
  if (counts.unused) std::printf("%zu nodes that no link names were left out\n", counts.unused);
  if (counts.cut)
    std::printf("%zu names were cut: nodes and customers keep 40 characters, links and sizes 20\n", counts.cut);
  return 0;
}

}  // namespace

Command importCommand() {
  return {"import",
          "SOURCE BASE",
          "Makes a model of an EPANET text network (.inp) or of a folder with nodes.csv, links.csv and customers.csv.",
          "pn10 import networks/town models/town --units metric",
          {{"--units", "UNITS",
            "us (feet, inches), metric (metres, millimetres), us-degrees or metric-degrees for longitude and latitude; "
            "CSV is metric without it, an .inp says it itself"},
           replaceOption()},
          run};
}

}  // namespace host
