/** The record behind a number that came from the host or from another record. */
#ifndef PN10_FIELDS_RECORDS_H
#define PN10_FIELDS_RECORDS_H

#include "model/tables.h"

namespace pn10 {

/** A record of zeros: what stands in for a slot that a table does not have. */
template <class Record>
inline constexpr Record kEmpty{};

inline const Ndt& nodeAt(int32_t n) { return hasNodeSlot(n) ? model.ndt[n] : kEmpty<Ndt>; }
inline const Pdt& pipeAt(int32_t p) { return hasPipeSlot(p) ? model.pdt[p] : kEmpty<Pdt>; }
inline const Cdt& custAt(int32_t c) { return hasCustSlot(c) ? model.cdt[c] : kEmpty<Cdt>; }

/** Single members widened: arithmetic on them runs in double unless a step is said to round. */
constexpr double wide(float value) { return static_cast<double>(value); }

}  // namespace pn10

#endif
