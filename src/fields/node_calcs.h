/** What is computed from a node; the numbered fields name these functions in their rows. */
#ifndef PN10_FIELDS_NODE_CALCS_H
#define PN10_FIELDS_NODE_CALCS_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

/** Field 350: live pipes that touch the node, a loop once, counted up to 6. */
double touchingPipes(int32_t node);

/** Field 364: magnitude of the pressure in the base unit. */
double basePressure(const Ndt& n);

/** Field 365: base load in the base unit. */
double baseLoad(const Ndt& n);

/** Field 366: absolute temperature by the first letter of the temperature units, rounded to single. */
double rankine(const Ndt& n);

/** Field 375: magnitude of loads and pipe flows together, in the flow unit of the node; -1.0 with a load off. */
double nodeBalance(int32_t node);

/** Fields 382 and 383: computed less measured, and that in percent; 0 when nothing is compared. */
double nodeDifference(const Ndt& n);
double nodePercentage(const Ndt& n);

}  // namespace pn10

#endif
