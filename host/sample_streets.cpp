// The streets of the sample town: tiers, devices and dead ends, and side streets until the number of records is right.
#include "sample_streets.h"

#include <algorithm>
#include <cmath>

#include "args.h"

namespace host {

namespace {

enum Salt : uint64_t { kPark = 20, kValve, kReducer, kStub, kArc, kRegulator };

constexpr int kSmallest = 9; /* streets of a grid with two arterials each way */
constexpr int kNodesPerRegulator = 30;
constexpr int64_t kPipesPerGate = 15000;

/** Sets of crossings that hang together. */
class Parts {
 public:
  explicit Parts(size_t count) : above_(count, -1) {}
  size_t find(size_t i) {
    while (above_[i] >= 0) {
      const auto up = static_cast<size_t>(above_[i]);
      if (above_[up] >= 0) above_[i] = above_[up];
      i = up;
    }
    return i;
  }
  void join(size_t a, size_t b) {
    a = find(a), b = find(b);
    if (a == b) return;
    if (above_[a] > above_[b]) std::swap(a, b);
    above_[a] += above_[b];
    above_[b] = static_cast<int32_t>(a);
  }
  int32_t size(size_t i) { return -above_[find(i)]; }

 private:
  std::vector<int32_t> above_; /* the one above, or minus the size of the set */
};

class Layout {
 public:
  Layout(const Plan& plan, int64_t pipes) : plan_(plan), size_(plan.size()), parts_(area()) {
    streets_.size = size_;
    streets_.blocks.resize(area() * 2);
    placeMains();
    dropLooseEnds();
    placeRegulators();
    placeDevices();
    placeGates(pipes);
  }

  int64_t records() const {
    int64_t count = 0;
    for (const Block& b : streets_.blocks) count += recordsOf(b.use);
    for (const auto& row : streets_.gateRows) count += recordsOfLine(row.size());
    return count;
  }

  /** Side streets in blocks spread over the town, two records more each, until `pipes` records are there. */
  bool fillUp(int64_t pipes) {
    int64_t missing = pipes - records();
    std::vector<Block*> free;
    for (Block& b : streets_.blocks) {
      if (b.use == Use::Main && b.tier == Tier::Low && !b.arc) free.push_back(&b);
    }
    const auto wanted = static_cast<size_t>(missing / 2 + missing % 2);
    if (missing < 0 || wanted > free.size()) return false;
    for (size_t i = 0; i < wanted; i++) {
      Block& b = *free[i * free.size() / wanted];
      b.use = missing == 1 ? Use::Halves : Use::Close;
      missing -= missing == 1 ? 1 : 2;
    }
    return true;
  }

  Streets take() { return std::move(streets_); }

 private:
  size_t area() const { return static_cast<size_t>(size_) * static_cast<size_t>(size_); }
  size_t crossing(int u, int v) const {
    return static_cast<size_t>(v) * static_cast<size_t>(size_) + static_cast<size_t>(u);
  }
  size_t farEnd(const Block& b) const { return crossing(b.u + 1 - b.north, b.v + b.north); }

  bool highCrossing(int u, int v) const { return Plan::arterial(u) || Plan::arterial(v); }

  Use useOf(const Block& b) {
    const int u2 = b.u + 1 - b.north, v2 = b.v + b.north;
    if (!plan_.inTown(b.u, b.v) || !plan_.inTown(u2, v2)) return Use::None;
    if (b.north && b.v == plan_.riverStreet() && !plan_.bridge(b.u)) return Use::None;
    const bool high = highCrossing(b.u, b.v), farHigh = highCrossing(u2, v2);
    if (high != farHigh) return Use::Stub;
    return high || !plan_.random().chance(0.05, kPark + b.north, b.u, b.v) ? Use::Main : Use::None;
  }

  /** Mains of both tiers, and what may become a regulator or a branch between them. */
  void placeMains() {
    for (int v = 0; v < size_; v++) {
      for (int u = 0; u < size_; u++) {
        for (uint8_t north = 0; north < 2; north++) {
          Block& b = streets_.at(u, v, north);
          b.u = u, b.v = v, b.north = north;
          b.use = useOf(b);
          b.tier = highCrossing(u, v) && b.use == Use::Main ? Tier::High : Tier::Low;
          if (b.use == Use::Main) parts_.join(crossing(u, v), farEnd(b));
        }
      }
    }
  }

  /** The high tier is one part; what does not hang on it is left out, and so are crossings on their own. */
  void dropLooseEnds() {
    const size_t whole = parts_.find(crossing(plan_.ringFirst(), plan_.ringFirst()));
    for (Block& b : streets_.blocks) {
      if (b.use == Use::Main && b.tier == Tier::High && parts_.find(crossing(b.u, b.v)) != whole) b.use = Use::None;
    }
  }

  /** Every part of the low tier has its regulators; what has no way to the high tier is left out. */
  void placeRegulators() {
    const size_t whole = parts_.find(crossing(plan_.ringFirst(), plan_.ringFirst()));
    std::vector<int32_t> ways(area()), seen(area()), made(area());
    const auto ends = [&](const Block& b, size_t* low) {
      const bool high = highCrossing(b.u, b.v);
      *low = parts_.find(high ? farEnd(b) : crossing(b.u, b.v));
      return parts_.find(high ? crossing(b.u, b.v) : farEnd(b)) == whole;
    };
    size_t low = 0;
    for (Block& b : streets_.blocks) {
      if (b.use == Use::Stub && ends(b, &low)) ways[low]++;
    }
    for (Block& b : streets_.blocks) {
      if (b.use == Use::Main && b.tier == Tier::Low && !ways[parts_.find(crossing(b.u, b.v))]) b.use = Use::None;
      if (b.use != Use::Stub) continue;
      const bool reaches = ends(b, &low), high = highCrossing(b.u, b.v);
      if (!ways[low]) {
        b.use = Use::None;
        continue;
      }
      // A regulator runs from the high tier, a branch away from the low one.
      b.turned = high;
      const int32_t wanted = std::min(ways[low], 1 + parts_.size(low) / kNodesPerRegulator);
      if (reaches && made[low] * int64_t{ways[low]} <= seen[low] * int64_t{wanted} && made[low] < wanted) {
        b.use = Use::Regulator;
        b.turned = !high;
        made[low]++;
      } else if (!plan_.random().chance(0.6, kStub + b.north, b.u, b.v)) {
        b.use = Use::None;
      }
      seen[low] += reaches;
    }
  }

  bool isMain(int u, int v, int north, Tier tier) const {
    if (!streets_.inside(u, v)) return false;
    const Block& b = streets_.at(u, v, north);
    return b.use == Use::Main && b.tier == tier;
  }

  /** One side of a block that is whole may be shut off: the other three sides feed both its ends. */
  bool mayClose(const Block& b) const {
    return b.north == 0 && b.u % 3 == 0 && b.v % 3 == 0 && isMain(b.u, b.v, 1, Tier::Low) &&
           isMain(b.u + 1, b.v, 1, Tier::Low) && isMain(b.u, b.v + 1, 0, Tier::Low);
  }

  void placeDevices() {
    const Random& random = plan_.random();
    for (Block& b : streets_.blocks) {
      if (b.use != Use::Main) continue;
      const bool high = b.tier == Tier::High;
      // A shut valve needs the other sides of its block as they are: they are looked at first, in the same order.
      if (!high && mayClose(b) && random.chance(0.35, kValve, b.u, b.v)) {
        b.use = Use::Valve;
        b.closed = true;
      } else if (random.chance(high ? 0.12 : 0.02, kValve + 100 + b.north, b.u, b.v)) {
        b.use = Use::Valve;
      } else if (high && random.chance(0.06, kReducer + b.north, b.u, b.v)) {
        b.use = Use::Reducer;
      } else if (!high) {
        b.arc = random.chance(0.05, kArc + b.north, b.u, b.v);
      }
    }
  }

  /** The arterial crossing nearest to a place; false when no main of the high tier reaches it. */
  bool crossingNear(double u, double v, Streets::Gate* gate) const {
    const auto nearest = [this](double at) {
      const int last = (size_ - 1 - Plan::kFirstArterial) / Plan::kArterial;
      const auto step = static_cast<int>(std::lround((at - Plan::kFirstArterial) / Plan::kArterial));
      return Plan::kFirstArterial + Plan::kArterial * std::clamp(step, 0, last);
    };
    *gate = {nearest(u), nearest(v)};
    const auto main = [this](int x, int y, int north) {
      return streets_.inside(x, y) && streets_.at(x, y, north).use != Use::None &&
             streets_.at(x, y, north).tier == Tier::High;
    };
    return main(gate->u, gate->v, 0) || main(gate->u, gate->v, 1) || main(gate->u - 1, gate->v, 0) ||
           main(gate->u, gate->v - 1, 1);
  }

  /** One gate for a small town, on its ring main; a grid of them for a large one, a transmission line for each row. */
  void placeGates(int64_t pipes) {
    const int rows = static_cast<int>(std::lround(std::sqrt(static_cast<double>(pipes) / kPipesPerGate)));
    if (rows <= 1) {
      streets_.gateRows = {{{plan_.ringFirst(), plan_.ringLast()}}};
      return;
    }
    for (int row = 0; row < rows; row++) {
      std::vector<Streets::Gate> gates;
      for (int column = 0; column < rows; column++) {
        Streets::Gate gate;
        if (!crossingNear((column + 0.5) * size_ / rows, (row + 0.5) * size_ / rows, &gate)) continue;
        if (gates.empty() || gate.u > gates.back().u) gates.push_back(gate);
      }
      if (!gates.empty()) streets_.gateRows.push_back(gates);
    }
  }

  const Plan& plan_;
  int size_;
  Parts parts_;
  Streets streets_;
};

}  // namespace

int recordsOf(Use use) {
  constexpr int kRecords[] = {0, 1, 3, 3, 3, 1, 3, 2};
  return kRecords[static_cast<size_t>(use)];
}

/** Line, compressor, line and well; for each gate its line, valve, line, regulator and line. */
int recordsOfLine(size_t gates) { return 4 + 5 * static_cast<int>(gates); }

Streets layOut(int64_t pipes, uint64_t seed, Plan& plan) {
  constexpr double kShare = 0.90; /* the streets hold about this share of the records, side streets the rest */
  const auto wanted = static_cast<double>(pipes);
  int size = std::max(kSmallest, static_cast<int>(std::sqrt(wanted * 0.7)));
  for (int attempt = 0; attempt < 4; attempt++) {
    plan = Plan(size, seed);
    const auto made = static_cast<double>(Layout(plan, pipes).records());
    size = std::max(kSmallest, static_cast<int>(size * std::sqrt(kShare * wanted / made)));
  }
  // The grid that comes near; when it holds too much, the next smaller ones.
  for (; size >= kSmallest; size--) {
    plan = Plan(size, seed);
    Layout layout(plan, pipes);
    if (layout.fillUp(pipes)) return layout.take();
  }
  throw Failure{"no town of " + std::to_string(pipes) + " pipes can be laid out; ask for more"};
}

}  // namespace host
