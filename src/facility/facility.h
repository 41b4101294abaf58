/**
 * The facility table: named classes of network items, their settings, and how these reach the screen records.
 *
 * Rows count from 1; row 0 is zeroed and never written, so that a failed lookup reads zeros.
 */
#ifndef PN10_FACILITY_FACILITY_H
#define PN10_FACILITY_FACILITY_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

struct Facilities {
  Fac* rows;
  int32_t slots; /* rows that the block really has, row 0 counted; the host may raise the count before it grows it */
  int16_t count;
  int32_t lastNumber; /* highest ordinary facility number seen; those from 30000 on are reserved */
};
extern Facilities facilities;

/** Numbers of the classes that the system itself needs. */
enum ReservedFacility : int32_t {
  kFirstReservedFacility = 30000,
  kColorLegendFacility = 30002,
  kBillOfMaterialsFacility = 30003,
  kMarkedViewsFacility = 30005,
  kCrossingsFacility = 30006
};

/** Highest row that may be walked: the count, or less when the block is smaller. */
int32_t facTop();

/** The first row with this number, or null; constant time for the numbers that a record can hold. */
const Fac* findFac(int32_t facNo);

/** Says that numbers, count or block changed: the index behind findFac is made anew at its next use. */
void facNumbersChanged();

/**
 * Rebuilds the flags of both end nodes of a pipe from the first six pipes at each, and the pressure units of
 * end nodes without a pressure.
 */
void RecalcNodeFacFlags(int32_t pipe, const char* defaultPressureUnits);

}  // namespace pn10

#endif
