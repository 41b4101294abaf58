// Nodes and links of the sample town, street by street, so that neighbours on the map are neighbours on file.
#include <algorithm>
#include <cmath>

#include "sample_town.h"

namespace host {

namespace {

enum Salt : uint64_t { kClosePlace = 60, kCloseSide, kArcAngle, kArcTurn, kFlag, kOff, kGone };

constexpr double kDeviceLength = 8;  /* feet */
constexpr double kBendDeviation = 2; /* a street that strays less from its chord is straight */
constexpr double kGatePsi = 60, kDistrictPsi = 10, kLinePsi = 600;

class Mains {
 public:
  Mains(const Plan& plan, Streets& streets, Network& net)
      : plan_(plan),
        streets_(streets),
        net_(net),
        crossings_(static_cast<size_t>(streets.size) * static_cast<size_t>(streets.size), -1) {}

  void make() {
    for (size_t row = 0; row < streets_.gateRows.size(); row++) makeLine(static_cast<int>(row));
    for (Block& b : streets_.blocks) {
      if (b.use == Use::None) continue;
      b.firstLink = static_cast<int32_t>(net_.links.size());
      makeBlock(b);
      b.links = static_cast<int32_t>(net_.links.size()) - b.firstLink;
    }
  }

 private:
  int32_t addNode(const std::string& name, const Point& at) {
    NetNode node;
    node.name = name;
    node.x = at.x;
    node.y = at.y;
    node.z = std::round(plan_.elevation(at) * 10) / 10;
    net_.nodes.push_back(std::move(node));
    return static_cast<int32_t>(net_.nodes.size()) - 1;
  }

  int32_t crossing(int u, int v) {
    int32_t& node = crossings_[static_cast<size_t>(v) * static_cast<size_t>(streets_.size) + static_cast<size_t>(u)];
    if (node < 0) node = addNode(plan_.street(v) + " & " + plan_.avenue(u), plan_.at(u, v));
    return node;
  }

  std::string nameOf(const Block& b) const {
    return b.north ? plan_.avenue(b.u) + "-" + std::to_string(b.v) : plan_.street(b.v) + "-" + std::to_string(b.u);
  }
  /** Grid coordinates at a share of the way along the block, in its direction. */
  Point gridAt(const Block& b, double share) const {
    const double s = b.turned ? 1 - share : share;
    return {b.u + (b.north ? 0 : s), b.v + (b.north ? s : 0)};
  }
  Point placeAt(const Block& b, double share) const {
    const Point grid = gridAt(b, share);
    return plan_.at(grid.x, grid.y);
  }
  int32_t begin(const Block& b) { return b.turned ? crossing(b.u + 1 - b.north, b.v + b.north) : crossing(b.u, b.v); }
  int32_t end(const Block& b) { return b.turned ? crossing(b.u, b.v) : crossing(b.u + 1 - b.north, b.v + b.north); }

  NetLink& addLink(const std::string& name, LinkKind kind, int32_t from, int32_t to, int16_t facility) {
    NetLink link;
    link.name = name;
    link.kind = kind;
    link.from = from;
    link.to = to;
    link.facility = facility;
    net_.links.push_back(std::move(link));
    return net_.links.back();
  }

  /** Bends where the street does, between two shares of the block. */
  void bend(NetLink& link, const Block& b, double from, double to) {
    const Point p = placeAt(b, from), q = placeAt(b, to);
    const double length = std::hypot(q.x - p.x, q.y - p.y);
    if (length < 60) return;
    double most = 0;
    std::vector<Point> bends;
    for (int i = 1; i < 4; i++) {
      const Point r = placeAt(b, from + (to - from) * i / 4);
      most = std::max(most, std::fabs((q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x)) / length);
      bends.push_back(r);
    }
    if (most > kBendDeviation) link.bends = std::move(bends);
  }

  /** An arc of the same ends: a crescent. */
  void arch(NetLink& link, const Block& b) {
    const NetNode &p = net_.nodes[static_cast<size_t>(link.from)], &q = net_.nodes[static_cast<size_t>(link.to)];
    link.arcAngle = plan_.random().between(0.8, 1.7, kArcAngle, b.u, b.v);
    link.arcRadius = std::hypot(q.x - p.x, q.y - p.y) / (2 * std::sin(link.arcAngle / 2));
    link.arcTurn = plan_.random().chance(0.5, kArcTurn, b.u, b.v) ? 1 : 2;
  }

  int16_t facilityOf(const Block& b) const { return b.tier == Tier::High ? kHighTier : kLowTier; }

  NetLink& pipe(const Block& b, const std::string& suffix, double from, double to, int32_t fromNode, int32_t toNode,
                int16_t facility) {
    NetLink& link = addLink(nameOf(b) + suffix, LinkKind::Pipe, fromNode, toNode, facility);
    bend(link, b, from, to);
    return link;
  }

  /** Pipe, device, pipe. */
  void makeDevice(const Block& b, LinkKind kind, double share, int16_t before, int16_t after) {
    const Point p = placeAt(b, 0), q = placeAt(b, 1);
    const double gap = kDeviceLength / std::max(std::hypot(q.x - p.x, q.y - p.y), 4 * kDeviceLength);
    const int32_t first = begin(b), last = end(b);
    const std::string name = nameOf(b);
    const int32_t in = addNode(name + " in", placeAt(b, share)), out = addNode(name + " out", placeAt(b, share + gap));
    pipe(b, "a", 0, share, first, in, before);
    NetLink& device = addLink(name + "b", kind, in, out, kind == LinkKind::Regulator ? before : after);
    device.size = kind == LinkKind::Regulator ? "R-2 inch"
                  : kind == LinkKind::Fitting ? "Reducer"
                  : after == kHighTier        ? "Valve 8 inch"
                                              : "Valve 4 inch";
    device.setting = kind == LinkKind::Regulator ? kDistrictPsi : kind == LinkKind::Valve ? 100 : 0;
    device.off = b.closed;
    for (const int32_t n : {in, out}) net_.nodes[static_cast<size_t>(n)].valve = kind == LinkKind::Valve;
    pipe(b, "c", share + gap, 1, out, last, after);
  }

  /** A branch towards the arterial that ends before it; a few are shut down, a few are taken out. */
  void makeStub(const Block& b) {
    const Random& random = plan_.random();
    const int32_t first = begin(b), last = addNode(nameOf(b) + " end", placeAt(b, 0.75));
    NetLink& link = pipe(b, "", 0, 0.75, first, last, kBranches);
    NetNode& tail = net_.nodes.back();
    if (random.chance(0.06, kOff + b.north, b.u, b.v)) {
      link.off = tail.off = true;
    } else if (random.chance(0.06, kGone + 100 + b.north, b.u, b.v)) {
      link.deleted = tail.deleted = true;
      link.bends.clear();
    }
  }

  /** The block in two pipes, and a side street into the block beside it. */
  void makeClose(const Block& b) {
    const Random& random = plan_.random();
    const double share = random.between(0.35, 0.65, kClosePlace + b.north, b.u, b.v);
    const int32_t first = begin(b), last = end(b);
    const std::string name = nameOf(b);
    const int32_t middle = addNode(name + " side", placeAt(b, share));
    pipe(b, "a", 0, share, first, middle, facilityOf(b));
    pipe(b, "b", share, 1, middle, last, facilityOf(b));
    if (b.use == Use::Halves) return;
    const Point grid = gridAt(b, share);
    const double depth = random.chance(0.5, kCloseSide + b.north, b.u, b.v) ? 0.42 : -0.42;
    const Point tip = plan_.at(grid.x + (b.north ? depth : 0), grid.y + (b.north ? 0 : depth));
    const int32_t dead = addNode(name + " court", tip);
    addLink(name + "ct", LinkKind::Pipe, middle, dead, kBranches).fittings = {"Tee branch"};
  }

  void makeBlock(const Block& b) {
    const int16_t facility = facilityOf(b);
    switch (b.use) {
      case Use::Main: {
        const int32_t first = begin(b), last = end(b);
        NetLink& link = pipe(b, "", 0, 1, first, last, facility);
        if (b.arc) {
          link.bends.clear();
          arch(link, b);
        }
        if (plan_.random().chance(0.01, kFlag + b.north, b.u, b.v)) link.flag = 1;
        if (plan_.random().chance(0.01, kFlag + 2 + b.north, b.u, b.v)) net_.nodes[static_cast<size_t>(last)].flag = 1;
        if (link.bends.size() > 2 && plan_.random().chance(0.2, kFlag + 4 + b.north, b.u, b.v))
          link.fittings = {"Elbow 90"};
        break;
      }
      case Use::Valve:
        makeDevice(b, LinkKind::Valve, 0.4, facility, facility);
        break;
      case Use::Reducer:
        makeDevice(b, LinkKind::Fitting, 0.5, facility, facility);
        break;
      case Use::Regulator:
        makeDevice(b, LinkKind::Regulator, 0.3, kHighTier, kLowTier);
        break;
      case Use::Stub:
        makeStub(b);
        break;
      default:
        makeClose(b);
    }
  }

  /** Source, compressor and well in the west, then a station at every gate. */
  void makeLine(int row) {
    const auto& gates = streets_.gateRows[static_cast<size_t>(row)];
    const double v = gates[0].v + 0.35;
    const std::string line = "Line " + std::to_string(row + 1);
    double from = std::min(-7.0, static_cast<double>(gates[0].u) - 7);
    const int32_t source = addNode(line + " supply", plan_.at(from, v));
    net_.nodes[static_cast<size_t>(source)].source = true;
    const int32_t suction = addNode(line + " suction", plan_.at(from + 2, v)),
                  discharge = addNode(line + " discharge", plan_.at(from + 2.1, v));
    const int32_t join = addNode(line + " well tie-in", plan_.at(from + 4, v)),
                  well = addNode(line + " well", plan_.at(from + 3.4, v + 1.5));
    linePipe(line + " a", source, suction, from, from + 2, v);
    NetLink& compressor = addLink(line + " compr", LinkKind::Compressor, suction, discharge, kTransmission);
    compressor.size = "Compressor 200";
    compressor.setting = kLinePsi;
    linePipe(line + " b", discharge, join, from + 2.1, from + 4, v);
    NetLink& producer = addLink(line + " well", LinkKind::Well, well, join, kTransmission);
    producer.size = "Well A";
    producer.setting = 1.2;
    from += 4;
    int32_t last = join;
    for (size_t g = 0; g < gates.size(); g++) {
      const std::string station = "Gate " + std::to_string(row + 1) + "-" + std::to_string(g + 1);
      const double u = gates[g].u - 0.35;
      const int32_t tap = addNode(station + " tap", plan_.at(u, v));
      linePipe(station + " line", last, tap, from, u, v);
      makeStation(station, gates[g], tap);
      last = tap;
      from = u;
    }
  }

  /** Vertices at every other avenue: the line follows the country as the streets do. */
  void linePipe(const std::string& name, int32_t from, int32_t to, double u1, double u2, double v) {
    NetLink& link = addLink(name, LinkKind::Pipe, from, to, kTransmission);
    for (double u = std::floor(u1) + 2; u < u2 - 1; u += 2) link.bends.push_back(plan_.at(u, v));
  }

  void makeStation(const std::string& name, const Streets::Gate& gate, int32_t tap) {
    const auto add = [&](const char* what, double du, double dv) {
      return addNode(name + what, plan_.at(gate.u + du, gate.v + dv));
    };
    const int32_t inlet = add(" inlet", -0.31, 0.31), before = add(" run", -0.2, 0.2),
                  after = add(" outlet", -0.16, 0.16);
    NetLink& valve = addLink(name + " valve", LinkKind::Valve, tap, inlet, kTransmission);
    valve.size = "Valve 8 inch";
    valve.setting = 100;
    addLink(name + " run", LinkKind::Pipe, inlet, before, kTransmission);
    NetLink& regulator = addLink(name + " reg", LinkKind::Regulator, before, after, kTransmission);
    regulator.size = "R-4 inch";
    regulator.setting = kGatePsi;
    addLink(name + " out", LinkKind::Pipe, after, crossing(gate.u, gate.v), kHighTier);
  }

  const Plan& plan_;
  Streets& streets_;
  Network& net_;
  std::vector<int32_t> crossings_;
};

}  // namespace

void makeMains(const Plan& plan, Streets& streets, Network& net) { Mains(plan, streets, net).make(); }

}  // namespace host
