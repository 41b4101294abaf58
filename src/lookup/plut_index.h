/** The sorted key index of the pipe sizes: making, sorting and releasing it. */
#ifndef PN10_LOOKUP_PLUT_INDEX_H
#define PN10_LOOKUP_PLUT_INDEX_H

#include <cstdint>

namespace pn10 {

/** Zeroed entries 0 to n; false when there is no memory. */
bool makePLutIndex(int32_t n);

/** Enters the keys of rows 1 to n - 1, sorts them and notes the pivots. */
void sortPLutIndex(int32_t n);

/** Frees the entries and forgets the pivots. */
void releasePLutIndex();

}  // namespace pn10

#endif
