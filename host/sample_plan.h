/**
 * The street plan of the sample town: a grid of streets (rows) and avenues (columns), bent as a whole, cut by a
 * river. A place is a pair of grid coordinates; u counts avenues from the west, v counts streets from the south.
 */
#ifndef PN10_HOST_SAMPLE_PLAN_H
#define PN10_HOST_SAMPLE_PLAN_H

#include <string>
#include <vector>

#include "network.h"
#include "sample_random.h"

namespace host {

class Plan {
 public:
  Plan(int size, uint64_t seed);

  /** Every sixth street and avenue is an arterial, which carries a main of the high tier. */
  static constexpr int kArterial = 6, kFirstArterial = 2;
  static bool arterial(int line) { return line % kArterial == kFirstArterial; }

  int size() const { return size_; }
  /** The river flows between this street and the next one to the north. */
  int riverStreet() const { return river_; }
  bool bridge(int avenue) const;
  bool inTown(int u, int v) const;
  /** First and last arterial of the ring main, both ways. */
  int ringFirst() const { return ringFirst_; }
  int ringLast() const { return ringLast_; }
  bool onRing(int u, int v) const;

  /** The place on the map, feet; between crossings the streets follow the bends of the plan. */
  Point at(double u, double v) const;
  double elevation(const Point& p) const;
  std::string street(int v) const;
  std::string avenue(int u) const;
  const Random& random() const { return random_; }

 private:
  double riverAt(double x) const;

  Random random_;
  int size_, river_, ringFirst_, ringLast_;
  double phase_[6];
  std::vector<double> xs_, ys_; /* of avenues and streets before bending */
};

}  // namespace host

#endif
