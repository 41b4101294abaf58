/** Facility rows by field number. */
#include "exports/pn10gdi.h"
#include "facility/fac_fields.h"
#include "facility/facility.h"
#include "model/convert.h"
#include "model/tables.h"

namespace pn10 {
namespace {

/** What a failed lookup reads when there is no table. */
Fac emptyRow;

/** The row to read: row 0 stands in for a number that is not there; null when the block has no such row. */
Fac* rowToRead(int32_t row) {
  if (row >= 0 && row < facilities.slots) return &facilities.rows[row];
  return row == 0 ? &emptyRow : nullptr;
}

double readField(Fac& row, const FacField& field, char* text) {
  switch (field.kind) {
    case FacField::kShort:
      return facMember<int16_t>(row, field);
    case FacField::kText:
      if (text) copyText(text, kFacTextSize, facText(row, field));
      return 1.0;
    default:
      return facMember<int32_t>(row, field);
  }
}

void storeField(Fac& row, const FacField& field, const char* text, double value) {
  switch (field.kind) {
    case FacField::kShort:
      facMember<int16_t>(row, field) = toInt16(value);
      break;
    case FacField::kText:
      copyText(facText(row, field), kFacTextSize, text);
      break;
    default:
      facMember<int32_t>(row, field) = toInt32(value);
  }
}

}  // namespace
}  // namespace pn10

using namespace pn10;

double GetFacVal(int32_t row, int32_t facNo, char* text, int16_t field) {
  if (row == 0) row = FindFacRnoIdx(facNo);
  if (field == kFacRow) return row;
  if (field == kFacLastNumber) return facilities.lastNumber;
  if (field == kFacCount) return facilities.count;
  Fac* from = rowToRead(row);
  if (!from || field < 1 || field > kFacPressUnits) return -1.0;
  return readField(*from, kFacFields[field - 1], text);
}

void SetFacVal(int32_t row, int16_t field, const char* text, double value) {
  if (row == 0) return;
  if (field < 1 || field > kFacCount) {
    unknownField("setfac %i", row);  // kept: the row number, not the field's
    return;
  }
  if (field == kFacIdx || field == kFacCount) facNumbersChanged();
  if (field == kFacLastNumber) {
    facilities.lastNumber = toInt32(value);
  } else if (field == kFacCount) {
    facilities.count = toInt16(value);
  } else if (row > 0 && row < facilities.slots) {
    storeField(facilities.rows[row], kFacFields[field - 1], text, value);
    if (field == kFacIdx) noteFacNumber(facilities.rows[row].Idx);
  }
}
