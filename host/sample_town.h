/** The parts that the sample town is made of, in the order in which they run. */
#ifndef PN10_HOST_SAMPLE_TOWN_H
#define PN10_HOST_SAMPLE_TOWN_H

#include "network.h"
#include "sample_streets.h"

namespace host {

/** Facilities of the town. */
enum TownFacility : int16_t { kTransmission = 1, kHighTier = 2, kLowTier = 3, kBranches = 4 };

/** Makes nodes and links of the streets, the transmission lines and the gate stations. */
void makeMains(const Plan& plan, Streets& streets, Network& net);

/** Puts customers on both sides of the mains; their loads are drawn at the ends of their pipe. */
void makeCustomers(const Plan& plan, Network& net);

/** Sizes, flows and pressures. Throws Failure when a node that draws gas is not reached. */
void makeFlows(const Plan& plan, const Streets& streets, Network& net);

/** A link's path: its length, and the place and direction at a distance from its beginning. */
class LinkPath {
 public:
  LinkPath(const Network& net, const NetLink& link);
  double length() const { return length_; }
  Point at(double distance, Point* direction) const;

 private:
  std::vector<Point> points_;
  Point centre_; /* of an arc */
  double radius_ = 0, start_ = 0, sweep_ = 0, length_ = 0;
};

}  // namespace host

#endif
