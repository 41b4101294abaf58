/** Rows of a table by key, for the length of one call: all rows of a key in ascending order, found by hash. */
#ifndef PN10_MODEL_ROW_INDEX_H
#define PN10_MODEL_ROW_INDEX_H

#include <cstdint>

#include "platform/memory.h"

namespace pn10 {

class RowIndex {
 public:
  /** Makes room for rows 1 to `top`; false when there is no memory. */
  bool allocate(int32_t top) {
    size_t slots = 16;
    while (slots < static_cast<size_t>(top) * 2) slots *= 2;
    mask_ = slots - 1;
    return heads_.allocate(slots) && next_.allocate(static_cast<size_t>(top) + 1);
  }
  /** Enters a row before those already there: go from `top` down to 1. `same(other)` compares the keys of rows. */
  template <class Same>
  void enter(int32_t row, uint32_t hash, Same same) {
    int32_t& head = heads_[slotOf(hash, same)];
    next_[static_cast<size_t>(row)] = head;
    head = row;
  }
  /** The first row of a key, 0 when there is none; `same(row)` compares it with the key of a row. */
  template <class Same>
  int32_t first(uint32_t hash, Same same) const {
    return heads_.size() ? heads_[slotOf(hash, same)] : 0;
  }
  /** The next row of the same key, 0 behind the last. */
  int32_t next(int32_t row) const { return next_[static_cast<size_t>(row)]; }

 private:
  template <class Same>
  size_t slotOf(uint32_t hash, Same same) const {
    size_t slot = static_cast<size_t>((hash * uint64_t{0x9E3779B97F4A7C15}) >> 32) & mask_;
    while (heads_[slot] && !same(heads_[slot])) slot = (slot + 1) & mask_;
    return slot;
  }

  Buffer<int32_t> heads_, next_;
  size_t mask_ = 0;
};

}  // namespace pn10

#endif
