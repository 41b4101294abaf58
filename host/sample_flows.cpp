/**
 * Sizes, flows and pressures of the sample town.
 *
 * A tree from the supplies reaches every node over the pipes that are on; each pipe of the tree carries what is drawn
 * behind it. Then every whole block, and every whole square of arterials, gets a flow around it that brings the
 * pressure drops around it towards zero (the method of Hardy Cross, a few rounds). A flow around a loop takes from no
 * node and adds to none, and it is a whole number as the loads are: the balance at the nodes stays exact in single
 * precision. Pressures follow the tree: squares of absolute pressures drop by Weymouth's formula.
 */
#include <algorithm>
#include <array>
#include <cmath>

#include "args.h"
#include "library_files.h"
#include "sample_town.h"

namespace host {

namespace {

constexpr double kAtmosphere = 14.7, kSupplyPsi = 450;
constexpr double kWellShare = 0.1; /* of what a transmission line carries */

/** Weymouth: the square of the pressure drops by this times feet times the square of cubic feet per hour. */
double resistance(double insideInches, double feet) { return feet / 5280 / (1310 * std::pow(insideInches, 16.0 / 3)); }

struct SizeChoice {
  const char* name;
  double inside; /* filled from the library */
};

/** Sizes of a tier in rising order, and the drop that asks for the next one, psi squared per foot. */
struct TierSizes {
  std::vector<SizeChoice> sizes;
  double steepest;
};

const TierSizes& sizesOf(int16_t facility, bool old) {
  static const auto made = [] {
    std::array<TierSizes, 4> tiers = {
        {{{{"12\" STL", 0}, {"16\" STL", 0}, {"20\" STL", 0}, {"24\" STL", 0}}, 2},
         {{{"4\" STL", 0},
           {"6\" STL", 0},
           {"8\" STL", 0},
           {"12\" STL", 0},
           {"16\" STL", 0},
           {"20\" STL", 0},
           {"24\" STL", 0}},
          0.04},
         {{{"2\" STL", 0}, {"4\" STL", 0}, {"6\" STL", 0}, {"8\" STL", 0}}, 0.02},
         {{{"2\" PE", 0}, {"3\" PE", 0}, {"4\" PE", 0}, {"6\" PE", 0}, {"8\" PE", 0}}, 0.02}}};
    for (TierSizes& tier : tiers) {
      for (SizeChoice& choice : tier.sizes) {
        for (const NetSize& size : nominalSizes()) {
          if (size.name == choice.name) choice.inside = size.inside;
        }
      }
    }
    return tiers;
  }();
  return made[facility == kTransmission ? 0 : facility == kHighTier ? 1 : old ? 2 : 3];
}

struct Reach {
  int32_t link = -1; /* the link that the tree comes by; -1 at a supply and for a node that is not reached */
  bool reached = false;
};

class Flows {
 public:
  Flows(const Streets& streets, Network& net) : streets_(streets), net_(net), resistance_(net.links.size()) {}

  void make() {
    indexEnds();
    placeWells();
    growTree();
    carryLoads();
    chooseSizes();
    closeLoops();
    setPressures();
  }

 private:
  NetNode& node(int32_t n) { return net_.nodes[static_cast<size_t>(n)]; }
  NetLink& link(int32_t l) { return net_.links[static_cast<size_t>(l)]; }

  /** Ends of links by node: ends_[first_[n]] to ends_[first_[n + 1]]. */
  void indexEnds() {
    first_.assign(net_.nodes.size() + 1, 0);
    for (const NetLink& l : net_.links)
      first_[static_cast<size_t>(l.from) + 1]++, first_[static_cast<size_t>(l.to) + 1]++;
    for (size_t n = 1; n < first_.size(); n++) first_[n] += first_[n - 1];
    ends_.resize(net_.links.size() * 2);
    std::vector<size_t> next(first_.begin(), first_.end() - 1);
    for (size_t l = 0; l < net_.links.size(); l++) {
      for (const int32_t n : {net_.links[l].from, net_.links[l].to})
        ends_[next[static_cast<size_t>(n)]++] = static_cast<int32_t>(l);
    }
  }

  /** The wells give a share of what all customers draw, the same each. */
  void placeWells() {
    double drawn = 0;
    for (const NetNode& n : net_.nodes) drawn -= n.load;
    const double share = std::floor(kWellShare * drawn / static_cast<double>(streets_.gateRows.size()));
    for (const NetLink& l : net_.links) {
      if (l.kind == LinkKind::Well) node(l.from).load += share;
    }
  }

  /** Gas goes one way through a regulator and a compressor, and never back into a supply. */
  bool passes(const NetLink& l, int32_t from) const {
    if (l.off || l.deleted) return false;
    return l.from == from || (l.kind != LinkKind::Regulator && l.kind != LinkKind::Compressor);
  }

  void growTree() {
    reach_.resize(net_.nodes.size());
    for (size_t n = 0; n < net_.nodes.size(); n++) {
      if (!net_.nodes[n].source) continue;
      order_.push_back(static_cast<int32_t>(n));
      reach_[n].reached = true;
    }
    for (size_t i = 0; i < order_.size(); i++) {
      const int32_t from = order_[i];
      for (size_t e = first_[static_cast<size_t>(from)]; e < first_[static_cast<size_t>(from) + 1]; e++) {
        const NetLink& l = link(ends_[e]);
        const int32_t to = l.from == from ? l.to : l.from;
        if (reach_[static_cast<size_t>(to)].reached || !passes(l, from)) continue;
        reach_[static_cast<size_t>(to)] = {ends_[e], true};
        order_.push_back(to);
      }
    }
    for (size_t n = 0; n < net_.nodes.size(); n++) {
      if (!reach_[n].reached && net_.nodes[n].load != 0) throw Failure{"no gas reaches " + net_.nodes[n].name};
    }
  }

  /** From the far ends back: what a node and all behind it draw comes in by its link of the tree. */
  void carryLoads() {
    std::vector<double> drawn(net_.nodes.size());
    for (size_t i = order_.size(); i-- > 0;) {
      const int32_t to = order_[i];
      NetNode& n = node(to);
      const double flow = drawn[static_cast<size_t>(to)] - n.load;
      const int32_t by = reach_[static_cast<size_t>(to)].link;
      if (by < 0) {
        n.load += flow; /* a supply gives what its tree draws */
        continue;
      }
      NetLink& l = link(by);
      l.flow = l.to == to ? flow : -flow;
      drawn[static_cast<size_t>(l.to == to ? l.from : l.to)] += flow;
    }
  }

  void chooseSizes() {
    for (size_t i = 0; i < net_.links.size(); i++) {
      NetLink& l = net_.links[i];
      if (l.kind != LinkKind::Pipe) continue;
      const double feet = LinkPath(net_, l).length();
      const TierSizes& tier = sizesOf(l.facility, isOld(l));
      const bool ring = l.facility == kHighTier && onRing(l);
      size_t s = ring ? 3 : 0;
      while (s + 1 < tier.sizes.size() && resistance(tier.sizes[s].inside, 1) * l.flow * l.flow > tier.steepest) s++;
      l.size = tier.sizes[s].name;
      resistance_[i] = resistance(tier.sizes[s].inside, feet);
    }
  }

  /** The town grew from its middle: the oldest mains there are steel. */
  bool isOld(const NetLink& l) {
    if (oldReach_ == 0) {
      double minX = 1e300, maxX = -1e300, minY = 1e300, maxY = -1e300;
      for (const NetNode& n : net_.nodes) {
        minX = std::min(minX, n.x), maxX = std::max(maxX, n.x), minY = std::min(minY, n.y), maxY = std::max(maxY, n.y);
      }
      middle_ = {(minX + maxX) / 2, (minY + maxY) / 2};
      oldReach_ = (maxY - minY) / 6;
    }
    const NetNode& n = node(l.from);
    return std::hypot(n.x - middle_.x, n.y - middle_.y) < oldReach_;
  }

  bool onRing(const NetLink& l) const {
    const auto index = static_cast<size_t>(&l - net_.links.data());
    return index < onRing_.size() && onRing_[index];
  }

  /** A side of a loop: the links of a block, and whether they run along or against it. */
  struct Side {
    const Block* block;
    int sense;
  };

  bool addSide(std::vector<Side>& loop, int u, int v, int north, int sense, Tier tier) const {
    if (!streets_.inside(u, v)) return false;
    const Block& b = streets_.at(u, v, north);
    if (b.use == Use::None || b.use == Use::Stub || b.use == Use::Regulator || b.tier != tier || b.closed) return false;
    loop.push_back({&b, b.turned ? -sense : sense});
    return true;
  }

  /** The loop around a square of `step` blocks, counter-clockwise; empty when a side of it is missing. */
  std::vector<Side> loopAround(int u, int v, int step, Tier tier) const {
    std::vector<Side> loop;
    bool whole = true;
    for (int i = 0; i < step && whole; i++) {
      whole = addSide(loop, u + i, v, 0, 1, tier) && addSide(loop, u + step, v + i, 1, 1, tier) &&
              addSide(loop, u + i, v + step, 0, -1, tier) && addSide(loop, u, v + i, 1, -1, tier);
    }
    if (!whole) loop.clear();
    return loop;
  }

  template <class Visit>
  void alongSide(const Side& side, Visit visit) {
    // A side street hangs on the block but is no part of the way along it.
    const int32_t ways = side.block->use == Use::Close ? 2 : side.block->links;
    for (int32_t i = 0; i < ways; i++) visit(side.block->firstLink + i);
  }

  void relax(const std::vector<Side>& loop) {
    double drop = 0, slope = 0;
    for (const Side& side : loop) {
      alongSide(side, [&](int32_t l) {
        const double q = link(l).flow * side.sense, r = resistance_[static_cast<size_t>(l)];
        drop += r * q * std::fabs(q);
        slope += 2 * r * std::fabs(q);
      });
    }
    const double change = slope > 0 ? std::round(-drop / slope) : 0;
    if (change == 0) return;
    for (const Side& side : loop) {
      alongSide(side, [&](int32_t l) { link(l).flow += change * side.sense; });
    }
  }

  void closeLoops() {
    constexpr int kRounds = 6;
    for (int round = 0; round < kRounds; round++) {
      for (int v = 0; v + 1 < streets_.size; v++) {
        for (int u = 0; u + 1 < streets_.size; u++) {
          relax(loopAround(u, v, 1, Tier::Low));
          if (Plan::arterial(u) && Plan::arterial(v)) relax(loopAround(u, v, Plan::kArterial, Tier::High));
        }
      }
    }
  }

  /** The outlet pressure of a device or a pipe, gauge, going along the tree. */
  double behind(const NetLink& l, size_t index, double psi, double flow) const {
    if (l.kind == LinkKind::Regulator) return std::min(psi, l.setting);
    if (l.kind == LinkKind::Compressor) return std::max(psi, l.setting);
    const double square = (psi + kAtmosphere) * (psi + kAtmosphere) - resistance_[index] * flow * std::fabs(flow);
    return std::sqrt(std::max(square, kAtmosphere * kAtmosphere)) - kAtmosphere;
  }

  void setPressures() {
    for (const int32_t to : order_) {
      const int32_t by = reach_[static_cast<size_t>(to)].link;
      if (by < 0) {
        node(to).pressure = kSupplyPsi;
        continue;
      }
      const NetLink& l = link(by);
      const int32_t from = l.to == to ? l.from : l.to;
      node(to).pressure = behind(l, static_cast<size_t>(by), node(from).pressure, l.to == to ? l.flow : -l.flow);
    }
  }

 public:
  void markRing(const Plan& plan) {
    onRing_.assign(net_.links.size(), false);
    for (const Block& b : streets_.blocks) {
      if (b.tier != Tier::High || !plan.onRing(b.u, b.v) || !plan.onRing(b.u + 1 - b.north, b.v + b.north)) continue;
      for (int32_t i = 0; i < b.links; i++) onRing_[static_cast<size_t>(b.firstLink + i)] = true;
    }
  }

 private:
  const Streets& streets_;
  Network& net_;
  std::vector<size_t> first_;
  std::vector<int32_t> ends_, order_;
  std::vector<Reach> reach_;
  std::vector<double> resistance_;
  std::vector<bool> onRing_;
  Point middle_;
  double oldReach_ = 0;
};

}  // namespace

void makeFlows(const Plan& plan, const Streets& streets, Network& net) {
  Flows flows(streets, net);
  flows.markRing(plan);
  flows.make();
}

}  // namespace host
