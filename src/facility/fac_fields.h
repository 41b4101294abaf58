/** The fields of a facility row, in the order of their numbers, of the lines of the file, and of the record. */
#ifndef PN10_FACILITY_FAC_FIELDS_H
#define PN10_FACILITY_FAC_FIELDS_H

#include <cstddef>
#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

struct FacColumn {
  enum Kind : uint8_t { kText, kShort, kLong, kNumber /* a long that the file holds as a short */ };
  Kind kind;
  uint16_t offset;
  const char* name;
};

#define FAC(kind, member) \
  FacColumn { FacColumn::kind, offsetof(Fac, member), #member }
/** Field n stands at n - 1. */
inline constexpr FacColumn kFacFields[] = {
    FAC(kText, Name),       /* 1 */
    FAC(kNumber, Idx),      /* 2 */
    FAC(kShort, Display),   /* 3 */
    FAC(kShort, Aux),       /* 4 */
    FAC(kShort, Report),    /* 5 */
    FAC(kShort, Active),    /* 6 */
    FAC(kLong, Color),      /* 7 */
    FAC(kShort, LineType),  /* 8 */
    FAC(kShort, LineWidth), /* 9 */
    FAC(kShort, Equation),  /* 10 */
    FAC(kText, PressUnits), /* 11 */
};
#undef FAC

/** Bytes of both texts. */
constexpr size_t kFacTextSize = sizeof Fac::Name;
static_assert(sizeof Fac::PressUnits == kFacTextSize);

template <class Value>
Value& facMember(Fac& row, const FacColumn& field) {
  return *reinterpret_cast<Value*>(reinterpret_cast<char*>(&row) + field.offset);
}
inline char* facText(Fac& row, const FacColumn& field) { return reinterpret_cast<char*>(&row) + field.offset; }

/** A number of an ordinary class, when it is the highest so far, becomes the base of the next one. */
void noteFacNumber(int32_t facNo);

/** Zeroed rows 0 to `count` in place of what was there; false, with no table, when there is no memory. */
bool makeFacRows(int32_t count);

}  // namespace pn10

#endif
