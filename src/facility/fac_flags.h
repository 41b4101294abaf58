/** What the passes over facility flags share. */
#ifndef PN10_FACILITY_FAC_FLAGS_H
#define PN10_FACILITY_FAC_FLAGS_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

/** True for a record above 0 whose slot and screen record exist; slot 0 is never written. */
bool hasPipe(int32_t pipe);
bool hasNode(int32_t node);

/** A node without a pressure takes the pressure units of the pipe's facility, if that has a row. */
void setPressureUnits(const Pdt& pipe, int32_t node, const char* defaultPressureUnits);

}  // namespace pn10

#endif
