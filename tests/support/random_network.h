/** Random networks with a fixed seed: loops, parallel pipes, crowded nodes, arcs, polylines, deleted and odd records.
 */
#ifndef PN10_TESTS_RANDOM_NETWORK_H
#define PN10_TESTS_RANDOM_NETWORK_H

#include <random>

#include "support/model_builder.h"

namespace pn10::test {

struct NetworkSize {
  int32_t nodes, pipes, customers;
};

/** Fills the empty model; every record, its screen record and the vertices are set. The caller frees the model. */
void makeRandomNetwork(uint32_t seed, NetworkSize size);

}  // namespace pn10::test

#endif
