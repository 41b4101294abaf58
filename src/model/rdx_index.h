/** Reference rows by key for a whole save: FindRdx for many keys, at the cost of one walk over the table. */
#ifndef PN10_MODEL_RDX_INDEX_H
#define PN10_MODEL_RDX_INDEX_H

#include <cstdint>

#include "model/row_index.h"

namespace pn10 {

class RdxIndex {
 public:
  explicit RdxIndex(int32_t count) : count_(count) {}
  /** The result of FindRdx, with the same trims of the keys looked at. */
  int32_t find(const char* key);

 private:
  bool build();

  int32_t count_;
  int32_t trimmed_ = 0; /* rows 1 to this one have lost the white space at their end */
  bool built_ = false, usable_ = false;
  RowIndex rows_;
};

}  // namespace pn10

#endif
