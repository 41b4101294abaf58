/** Records by number for readers that must not fail: a number without a slot reads as a record of zeros. */
#ifndef PN10_MODEL_RECORD_AT_H
#define PN10_MODEL_RECORD_AT_H

#include "model/tables.h"

namespace pn10 {

template <class Record>
inline constexpr Record kZeroRecord{};

inline const Ndt& nodeAt(int32_t n) { return hasNodeSlot(n) ? model.ndt[n] : kZeroRecord<Ndt>; }
inline const Pdt& pipeAt(int32_t p) { return hasPipeSlot(p) ? model.pdt[p] : kZeroRecord<Pdt>; }
inline const PXY& pipeScreenAt(int32_t p) { return hasPxySlot(p) ? model.pxy[p] : kZeroRecord<PXY>; }
inline const Cdt& custAt(int32_t c) { return hasCustSlot(c) ? model.cdt[c] : kZeroRecord<Cdt>; }
inline const Vtx& vtxAt(int32_t v) { return hasVtxSlot(v) ? model.vtx[v] : kZeroRecord<Vtx>; }

}  // namespace pn10

#endif
