/**
 * The staging records: one node, one pipe and one customer through which every file transfer runs.
 *
 * A short read leaves the fields of the record before it in place; that is the stated result of a truncated
 * file, so the records are never cleared between transfers.
 */
#ifndef PN10_MODEL_STAGING_H
#define PN10_MODEL_STAGING_H

#include "exports/pn10gdi.h"

namespace pn10 {

struct Staging {
  Ndt node;
  Pdt pipe;
  Cdt cust;
};
extern Staging staging;

class VtxIndex;

/** The rolling vertex range of a load: changed in place from pipe to pipe. */
struct BindRange {
  int32_t START, END;
  VtxIndex* index = nullptr; /* speeds up searches beyond the range; may be null */
};

}  // namespace pn10

#endif
