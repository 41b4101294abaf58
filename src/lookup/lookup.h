/**
 * The six lookup libraries in memory, and the two values that the calculation library computes from them.
 *
 * All lengths are in inches or feet, all pressures in psi: the loaders convert once. Rows count from 1; row 0
 * is zeroed. The tables stay with the process until FreePLut and FreeLut.
 */
#ifndef PN10_LOOKUP_LOOKUP_H
#define PN10_LOOKUP_LOOKUP_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

/** A table and its count; rows 0 to `count` exist unless `rows` is null. FreeLut leaves the count. */
template <class Row>
struct Lut {
  Row* rows;
  int32_t count;
};

struct Lookups {
  Lut<PLut> plut; /* its count is the number of rows */
  Lut<FLut> flut; /* the counts of the other five are one above their last filled row */
  Lut<RLut> rlut;
  Lut<VLut> vlut;
  Lut<WLut> wlut;
  Lut<CLut> clut;
};
extern Lookups lookups;

/** Row 1 to the count of a lookup, or null. */
template <class Row>
const Row* lutRow(const Lut<Row>& lut, int32_t row) {
  return lut.rows && row > 0 && row <= lut.count ? &lut.rows[row] : nullptr;
}

/**
 * Capacity of the regulator `rlutRow` at the state of `pipe`, in base cubic feet per hour as the calculation
 * library computes it; 0 without the library, or when the pipe or the row is not there.
 */
double CalcRegCapacity(int32_t pipe, int32_t rlutRow);

/**
 * Power of the compressor `clutRow` at the state of `pipe` (mode 0), or the fuel that it burns (mode 5);
 * 0 in every other mode, without the library, or when the pipe or the row is not there.
 */
double CalcCompPower(int32_t pipe, int32_t clutRow, int16_t mode);

}  // namespace pn10

#endif
