// A folder of separated values: nodes.csv, links.csv and customers.csv, columns found by their names.

#include "args.h"
#include "import_source.h"
#include "paths.h"

namespace host {

namespace {

/** A column of demands, and its factor to cubic metres per hour; 0 leaves the units to the source. */
struct DemandColumn {
  const char* name;
  double factor;
};
constexpr DemandColumn kDemands[] = {{"demand", 0}, {"demand_m3_per_h", 1}, {"demand_m3_per_a", 1.0 / 8760}};
constexpr double kCubicFeet = 35.3146667; /* in a cubic metre */

void readNodes(Source& source, const std::string& path) {
  CsvTable table(path, {"id", "x", "y"});
  while (table.next()) {
    SourceNode node;
    node.id = table.text("id");
    node.kind = table.text("kind");
    node.name = table.text("name").empty() ? node.id : table.text("name");
    node.at = {table.number("x"), table.number("y")};
    node.z = table.number("z", 0);
    node.demand = table.number("demand", 0);
    node.where = table.where();
    if (node.id.empty()) failAt(node.where, "id is missing");
    source.nodes.push_back(std::move(node));
  }
}

void readLinks(Source& source, const std::string& path) {
  CsvTable table(path, {"id", "from", "to"});
  while (table.next()) {
    SourceLink link;
    link.id = table.text("id");
    link.kind = table.text("kind");
    link.from = table.text("from");
    link.to = table.text("to");
    link.length = table.number("length", 0);
    link.diameter = table.number("diameter", 0);
    link.status = table.text("status");
    link.type = table.text("type_name");
    link.where = table.where();
    link.bends = pointsAt(link.where, table.text("vertices"));
    if (link.id.empty()) failAt(link.where, "id is missing");
    source.links.push_back(std::move(link));
  }
}

void readCustomers(Source& source, const std::string& path) {
  CsvTable table(path, {"id", "x", "y"});
  const DemandColumn* demand = nullptr;
  for (const DemandColumn& column : kDemands) {
    if (!demand && table.has(column.name)) demand = &column;
  }
  while (table.next()) {
    SourceCustomer customer;
    customer.id = table.text("id");
    customer.at = {table.number("x"), table.number("y")};
    customer.serviceLine = table.text("service_line");
    customer.where = table.where();
    customer.tapped = !table.text("tap_x").empty();
    if (customer.tapped) customer.tap = {table.number("tap_x"), table.number("tap_y")};
    if (demand) {
      const double factor = demand->factor == 0 ? 1 : demand->factor * (source.metric ? 1 : kCubicFeet);
      customer.demand = table.number(demand->name, 0) * factor;
    }
    if (customer.id.empty()) failAt(customer.where, "id is missing");
    source.customers.push_back(std::move(customer));
  }
}

}  // namespace

void setUnits(Source& source, bool metric) {
  source.metric = metric;
  source.units =
      metric ? NetUnits{"Meters", "Bar", "M3/HR", "mm", false} : NetUnits{"Feet", "psig", "cfh", "Inches", false};
}

Source readCsvFolder(const std::string& folder, bool us) {
  Source source;
  setUnits(source, !us);
  const fs::path base = pathOf(folder);
  source.title = nameOf(fs::path(fs::absolute(base).lexically_normal() / "").parent_path().filename());
  const auto file = [&](const char* name) -> const std::string& {
    source.paths.push_back(nameOf(base / name));
    return source.paths.back();
  };
  for (const char* name : {"nodes.csv", "links.csv"}) {
    if (!fs::exists(base / name)) throw Failure{folder + ": there is no " + name + " in this folder"};
  }
  readNodes(source, file("nodes.csv"));
  readLinks(source, file("links.csv"));
  if (fs::exists(base / "customers.csv")) readCustomers(source, file("customers.csv"));
  return source;
}

}  // namespace host
