/** What is computed from a customer; the numbered fields name these functions in their rows. */
#ifndef PN10_FIELDS_CUST_CALCS_H
#define PN10_FIELDS_CUST_CALCS_H

#include <cstdint>

namespace pn10 {

/** Load of one unit: 0 when it is switched off, with the load multiplier and, where it applies, the load factor. */
double CalcCustLoad(int32_t cust);

/** Fields 454 and 456: the load of all units, or of one, with its units as text; both return that of one unit. */
double totalLoadText(int32_t cust, char* text);
double unitLoadText(int32_t cust, char* text);

/** Field 460: record of the linked customer, 0 without. */
double linkedRecord(int32_t cust);

}  // namespace pn10

#endif
