// Customers of the sample town: houses on both sides of the mains, each with its tap and its service line.
#include <cmath>

#include "sample_town.h"

namespace host {

namespace {

enum Salt : uint64_t { kBuilt = 120, kPlace, kDepth, kLoad, kKind, kCorner };

constexpr double kLot = 125;    /* feet of street per house and side */
constexpr double kSetBack = 18; /* of the first house from the corner */

/** Whole even cubic feet per hour: halves go to the two ends of the pipe, and sums stay exact. */
double loadOf(const Random& random, int64_t link, int64_t lot, int* count) {
  const double kind = random.unit(kKind, link, lot);
  *count = kind < 0.02 ? 6 + static_cast<int>(random.bits(kKind + 100, link, lot) % 19) : 1;
  if (kind > 0.995) return 400 + 20 * static_cast<double>(random.bits(kLoad, link, lot) % 41); /* a shop or a school */
  return 24 + 2 * static_cast<double>(random.bits(kLoad, link, lot) % 19);
}

void addHouse(const Random& random, Network& net, int32_t link, const LinkPath& path, double along, int lot, int side) {
  NetCustomer house;
  Point way, wayAtTap;
  const double depth = random.between(38, 66, kDepth, link, lot) * (side ? 1 : -1);
  const Point front = path.at(along, &way);
  house.at = {front.x - way.y * depth, front.y + way.x * depth};
  const double shift = random.chance(0.2, kCorner, link, lot) ? 14 : 0;
  house.tap = path.at(along + shift, &wayAtTap);
  // A service line that keeps off the neighbour's ground has a corner before the house.
  if (shift > 0) house.service = {{house.tap.x - wayAtTap.y * depth * 0.8, house.tap.y + wayAtTap.x * depth * 0.8}};
  NetLink& main = net.links[static_cast<size_t>(link)];
  house.name = std::to_string(100 + 2 * lot + side) + " " + main.name;
  house.link = link;
  house.load = loadOf(random, link, lot, &house.count);
  const double drawn = house.load * house.count / 2;
  net.nodes[static_cast<size_t>(main.from)].load -= drawn;
  net.nodes[static_cast<size_t>(main.to)].load -= drawn;
  net.customers.push_back(std::move(house));
}

}  // namespace

void makeCustomers(const Plan& plan, Network& net) {
  const Random& random = plan.random();
  for (size_t i = 0; i < net.links.size(); i++) {
    const NetLink& link = net.links[i];
    if (link.kind != LinkKind::Pipe || link.facility == kTransmission || link.off || link.deleted) continue;
    const auto number = static_cast<int32_t>(i);
    const LinkPath path(net, link);
    const auto lots = static_cast<int>((path.length() - 2 * kSetBack) / kLot);
    for (int lot = 0; lot < lots * 2; lot++) {
      if (!random.chance(0.66, kBuilt, number, lot)) continue;
      const double along = kSetBack + (lot / 2 + random.between(0.15, 0.75, kPlace, number, lot)) * kLot;
      addHouse(random, net, number, path, along, lot, lot % 2);
    }
  }
}

}  // namespace host
