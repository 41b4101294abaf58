// A source understood: kinds become element types, diameters sizes of the library, service lines customers.
#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include "args.h"
#include "import_source.h"
#include "output.h"

namespace host {

namespace {

enum class As { Link, ServiceLine };

/** Kinds of links in the words of EPANET, GasLib and of gas people; without a word it is a pipe. */
struct KindRow {
  const char* name;
  LinkKind kind;
  const char* facility;
  As as = As::Link;
  double length = 0; /* where none is given; 0: measured on the map */
};
constexpr KindRow kKinds[] = {{"", LinkKind::Pipe, "Pipes"},
                              {"pipe", LinkKind::Pipe, "Pipes"},
                              {"main", LinkKind::Pipe, "Pipes"},
                              {"shortpipe", LinkKind::Pipe, "Short pipes", As::Link, 1},
                              {"resistor", LinkKind::Fitting, "Devices", As::Link, 1},
                              {"fitting", LinkKind::Fitting, "Devices"},
                              {"valve", LinkKind::Valve, "Devices"},
                              {"controlvalve", LinkKind::Regulator, "Devices"},
                              {"regulator", LinkKind::Regulator, "Devices"},
                              {"pump", LinkKind::Compressor, "Devices"},
                              {"compressor", LinkKind::Compressor, "Devices"},
                              {"compressorstation", LinkKind::Compressor, "Devices"},
                              {"well", LinkKind::Well, "Devices"},
                              {"service_line", LinkKind::Pipe, "", As::ServiceLine}};

constexpr const char* kSources[] = {"source", "reservoir", "tank", "supply", "station"};

/** Colours of sizes and facilities, from thin to thick, 0x00BBGGRR. */
constexpr int32_t kRamp[] = {0x50A030, 0xA08020, 0xC07020, 0xB04040, 0x903060, 0x4060C0, 0x2838B0, 0x181880};

constexpr size_t kNodeName = 40, kLinkName = 20, kSizeName = 20;

class Maker {
 public:
  Maker(const Source& source, ImportCounts* counts) : source_(source), counts_(counts) {}

  Network make() {
    net_.title = ansi(source_.title);
    net_.units = source_.units;
    indexNodes();
    for (const SourceLink& link : source_.links) readLink(link);
    colourSizes();
    makeCustomers();
    return std::move(net_);
  }

 private:
  std::string nameOf(const std::string& text, size_t width) {
    std::string name = ansi(text);
    if (name.size() > width) counts_->cut++;
    return name.substr(0, width);
  }

  void indexNodes() {
    for (size_t i = 0; i < source_.nodes.size(); i++) {
      const SourceNode& node = source_.nodes[i];
      if (!nodes_.emplace(node.id, static_cast<int32_t>(i)).second)
        failAt(node.where, "node '" + node.id + "' is there twice");
    }
    for (const SourceNode& node : source_.nodes) {
      if (source_.units.geographic) checkPlace(node.where, "node '" + node.id + "'", node.at);
    }
    for (const SourceCustomer& customer : source_.customers) {
      if (source_.units.geographic) checkPlace(customer.where, "customer '" + customer.id + "'", customer.at);
    }
    numbers_.assign(source_.nodes.size(), -1);
    ends_.assign(source_.nodes.size(), 0);
  }

  /** Metres taken for degrees would paint an empty picture. */
  static void checkPlace(const Where& where, const std::string& who, const Point& at) {
    if (std::fabs(at.x) <= 180 && std::fabs(at.y) <= 90) return;
    failAt(where, who + ": " + shortNumber(at.x) + ", " + shortNumber(at.y) + " are no longitude and latitude");
  }

  int32_t nodeOf(const SourceLink& link, const std::string& id) const {
    const auto it = nodes_.find(id);
    if (it == nodes_.end()) failAt(link.where, "link '" + link.id + "': there is no node '" + id + "'");
    return it->second;
  }

  /** The node of the network for one of the source; only nodes that links use become records. */
  int32_t place(int32_t index) {
    int32_t& number = numbers_[static_cast<size_t>(index)];
    if (number >= 0) return number;
    const SourceNode& from = source_.nodes[static_cast<size_t>(index)];
    NetNode node;
    node.name = nameOf(from.name, kNodeName);
    node.x = from.at.x;
    node.y = from.at.y;
    node.z = from.z;
    node.load = -from.demand * source_.flowFactor;
    const std::string kind = lowerCase(from.kind);
    node.source = std::any_of(std::begin(kSources), std::end(kSources), [&](const char* s) { return kind == s; });
    number = static_cast<int32_t>(net_.nodes.size());
    net_.nodes.push_back(std::move(node));
    return number;
  }

  const KindRow& kindOf(const SourceLink& link) const {
    const std::string kind = lowerCase(link.kind);
    for (const KindRow& row : kKinds) {
      if (kind == row.name) return row;
    }
    std::string known;
    for (const KindRow& row : kKinds) known += *row.name ? std::string(known.empty() ? "" : ", ") + row.name : "";
    failAt(link.where, "'" + link.kind + "' is no kind of link: " + known);
  }

  bool isOff(const SourceLink& link) const {
    const std::string status = lowerCase(link.status);
    if (status == "closed" || status == "off" || status == "0") return true;
    if (status.empty() || status == "open" || status == "on" || status == "1" || status == "active" || status == "cv")
      return false;
    failAt(link.where, "status is 'Open' or 'Closed', not '" + link.status + "'");
  }

  void readLink(const SourceLink& from) {
    const KindRow& kind = kindOf(from);
    const int32_t a = nodeOf(from, from.from), b = nodeOf(from, from.to);
    if (!links_.emplace(from.id, &from).second) failAt(from.where, "link '" + from.id + "' is there twice");
    if (from.length < 0) failAt(from.where, "length is below 0");
    if (from.diameter < 0) failAt(from.where, "diameter is below 0");
    ends_[static_cast<size_t>(a)]++, ends_[static_cast<size_t>(b)]++;
    if (kind.as == As::ServiceLine) {
      services_.push_back(&from);
      return;
    }
    NetLink link;
    link.name = nameOf(from.id, kLinkName);
    link.kind = kind.kind;
    link.from = place(a);
    link.to = place(b);
    link.bends = from.bends;
    link.length = from.length > 0 ? from.length : kind.length;
    link.setting = kind.kind == LinkKind::Valve ? 100 : from.setting;
    link.off = isOff(from);
    link.size = sizeOf(from);
    // Types without a diameter are owners or materials: they make the classes of the map.
    const bool owner = from.diameter == 0 && !from.type.empty();
    link.facility = facilityOf(owner ? ansi(from.type).substr(0, 40) : kind.facility);
    net_.links.push_back(std::move(link));
  }

  int16_t facilityOf(const std::string& name) {
    const auto known = facilities_.find(name);
    if (known != facilities_.end()) return known->second;
    if (net_.facilities.size() >= 1000) return 1; /* more classes than a map can tell apart */
    const auto number = static_cast<int16_t>(net_.facilities.size() + 1);
    net_.facilities.push_back({name, kRamp[(net_.facilities.size() * 3) % std::size(kRamp)], 2});
    facilities_.emplace(name, number);
    return number;
  }

  /** The key of the pipe library: the type's name, or the diameter; a name with two diameters gets them appended. */
  std::string sizeOf(const SourceLink& from) {
    if (from.diameter == 0) return ""; /* its type makes its facility */
    const std::string measure = shortNumber(from.diameter) + (source_.metric ? " mm" : "\"");
    std::string name = from.type.empty() ? measure : nameOf(from.type, kSizeName);
    const auto known = sizes_.find(name);
    if (known != sizes_.end() && known->second != from.diameter) name = measure.substr(0, kSizeName);
    if (sizes_.emplace(name, from.diameter).second) {
      NetSize size;
      size.name = name;
      size.inside = size.outside = from.diameter;
      size.metric = source_.metric;
      size.roughness = source_.metric ? 0.05 : 0.0018;
      net_.sizes.push_back(size);
    }
    return name;
  }

  void colourSizes() {
    std::stable_sort(net_.sizes.begin(), net_.sizes.end(),
                     [](const NetSize& a, const NetSize& b) { return a.inside < b.inside; });
    for (size_t i = 0; i < net_.sizes.size(); i++) {
      const size_t step = i * std::size(kRamp) / net_.sizes.size();
      net_.sizes[i].color = kRamp[step];
      net_.sizes[i].lineWidth = static_cast<int16_t>(1 + step / 2);
    }
  }

  /** Customers of the list, then the service lines that none of them named. */
  void makeCustomers() {
    const PipeIndex index(net_);
    std::unordered_map<std::string, bool> listed;
    for (const SourceCustomer& customer : source_.customers) {
      const SourceLink* line = serviceOf(customer);
      if (line) listed.emplace(line->id, true);
      addCustomer(index, customer, line);
    }
    for (const SourceLink* line : services_) {
      if (listed.count(line->id)) continue;
      SourceCustomer customer;
      customer.id = line->id;
      customer.at = source_.nodes[static_cast<size_t>(houseEnd(*line, nullptr))].at;
      customer.where = line->where;
      addCustomer(index, customer, line);
    }
    for (size_t i = 0; i < source_.nodes.size(); i++) {
      if (numbers_[i] >= 0) continue;
      (ends_[i] > 0 ? counts_->houses : counts_->unused)++;
    }
  }

  const SourceLink* serviceOf(const SourceCustomer& customer) const {
    if (customer.serviceLine.empty()) return nullptr;
    const auto it = links_.find(customer.serviceLine);
    if (it == links_.end())
      failAt(customer.where, "customer '" + customer.id + "': there is no link '" + customer.serviceLine + "'");
    if (kindOf(*it->second).as != As::ServiceLine)
      failAt(customer.where, "customer '" + customer.id + "': link '" + customer.serviceLine + "' is no service line");
    return it->second;
  }

  /** The end of a service line at the house: the one nearer to the customer, else the one where nothing goes on. */
  int32_t houseEnd(const SourceLink& line, const SourceCustomer* customer) const {
    const int32_t a = nodeOf(line, line.from), b = nodeOf(line, line.to);
    const auto distance = [&](int32_t n) {
      const Point& p = source_.nodes[static_cast<size_t>(n)].at;
      return std::hypot(p.x - customer->at.x, p.y - customer->at.y);
    };
    if (customer) return distance(b) < distance(a) ? b : a;
    return ends_[static_cast<size_t>(b)] < ends_[static_cast<size_t>(a)] ? b : a;
  }

  void addCustomer(const PipeIndex& index, const SourceCustomer& from, const SourceLink* line) {
    NetCustomer customer;
    customer.name = nameOf(from.id, kNodeName);
    customer.at = from.at;
    customer.load = from.demand;
    Point tap = from.tapped ? from.tap : from.at;
    if (line) {
      const int32_t house = houseEnd(*line, &from);
      const bool fromHouse = house == nodeOf(*line, line->from);
      if (!from.tapped) tap = source_.nodes[static_cast<size_t>(nodeOf(*line, fromHouse ? line->to : line->from))].at;
      // A service line runs from the meter to its tap.
      customer.service = line->bends;
      if (!fromHouse) std::reverse(customer.service.begin(), customer.service.end());
    }
    customer.link = index.nearest(tap, &customer.tap);
    if (customer.link >= 0) {
      NetLink& pipe = net_.links[static_cast<size_t>(customer.link)];
      for (const int32_t end : {pipe.from, pipe.to}) net_.nodes[static_cast<size_t>(end)].load -= customer.load / 2;
    }
    net_.customers.push_back(std::move(customer));
  }

  const Source& source_;
  ImportCounts* counts_;
  Network net_;
  std::unordered_map<std::string, int32_t> nodes_;
  std::unordered_map<std::string, const SourceLink*> links_;
  std::vector<int32_t> numbers_, ends_; /* of source nodes: records, and ends of links */
  std::vector<const SourceLink*> services_;
  std::unordered_map<std::string, double> sizes_;
  std::unordered_map<std::string, int16_t> facilities_;
};

}  // namespace

Network makeNetwork(const Source& source, ImportCounts* counts) { return Maker(source, counts).make(); }

}  // namespace host
