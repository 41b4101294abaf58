/** Numbers that look random and are the same everywhere: splitmix64, and no distribution of a library. */
#ifndef PN10_HOST_SAMPLE_RANDOM_H
#define PN10_HOST_SAMPLE_RANDOM_H

#include <cstdint>

namespace host {

/** A number for a place: what it gives depends on the seed and the place alone, not on what was asked before. */
class Random {
 public:
  explicit Random(uint64_t seed) : seed_(mix(seed)) {}

  uint64_t bits(uint64_t what, int64_t a, int64_t b = 0) const {
    return mix(mix(mix(seed_ + what) + static_cast<uint64_t>(a)) + static_cast<uint64_t>(b));
  }
  /** 0 to below 1. */
  double unit(uint64_t what, int64_t a, int64_t b = 0) const {
    return static_cast<double>(bits(what, a, b) >> 11) * 0x1p-53;
  }
  double between(double low, double high, uint64_t what, int64_t a, int64_t b = 0) const {
    return low + (high - low) * unit(what, a, b);
  }
  bool chance(double share, uint64_t what, int64_t a, int64_t b = 0) const { return unit(what, a, b) < share; }

 private:
  static uint64_t mix(uint64_t z) {
    z += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  uint64_t seed_;
};

}  // namespace host

#endif
