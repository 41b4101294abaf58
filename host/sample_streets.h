/** What lies in each street of the sample town: which tier, which devices, which streets have no main at all. */
#ifndef PN10_HOST_SAMPLE_STREETS_H
#define PN10_HOST_SAMPLE_STREETS_H

#include <vector>

#include "sample_plan.h"

namespace host {

enum class Tier : uint8_t { High, Low };

/** What a block of a street holds. */
enum class Use : uint8_t {
  None,      /* nothing */
  Main,      /* one pipe */
  Valve,     /* pipe, valve, pipe */
  Reducer,   /* pipe, fitting, pipe */
  Regulator, /* from the high tier to the low one: pipe, regulator, pipe */
  Stub,      /* a branch that ends before the arterial */
  Close,     /* two pipes and a side street between them that ends in the block */
  Halves     /* two pipes */
};

/** The block of street north (down = 1: of an avenue) or east (0) of a crossing. */
struct Block {
  int32_t u = 0, v = 0;
  uint8_t north = 0;
  Tier tier = Tier::Low;
  Use use = Use::None;
  bool turned = false; /* runs towards the crossing (u, v) */
  bool closed = false; /* its valve is shut */
  bool arc = false;
  int32_t firstLink = -1, links = 0; /* its records, once they are made */
};

/** All blocks by crossing, and the crossing that every gate station feeds. */
struct Streets {
  int size = 0;
  std::vector<Block> blocks;
  struct Gate {
    int u, v;
  };
  std::vector<std::vector<Gate>> gateRows; /* one transmission line each, from west to east */

  Block& at(int u, int v, int north) { return blocks[index(u, v, north)]; }
  const Block& at(int u, int v, int north) const { return blocks[index(u, v, north)]; }
  bool inside(int u, int v) const { return u >= 0 && v >= 0 && u < size && v < size; }

 private:
  size_t index(int u, int v, int north) const {
    return (static_cast<size_t>(v) * static_cast<size_t>(size) + static_cast<size_t>(u)) * 2 +
           static_cast<size_t>(north);
  }
};

/** Records that a use takes. */
int recordsOf(Use use);

/** Lays out the streets so that the whole town has exactly `pipes` records. Throws Failure when that can't be. */
Streets layOut(int64_t pipes, uint64_t seed, Plan& plan);

/** Records of a transmission line with this many gates. */
int recordsOfLine(size_t gates);

}  // namespace host

#endif
