/** Records by number, and their members widened for arithmetic. */
#ifndef PN10_FIELDS_RECORDS_H
#define PN10_FIELDS_RECORDS_H

#include "model/record_at.h"

namespace pn10 {

/** Single members widened: arithmetic on them runs in double unless a step is said to round. */
constexpr double wide(float value) { return static_cast<double>(value); }

}  // namespace pn10

#endif
