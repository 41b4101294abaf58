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

double readField(Fac& row, const FacColumn& field, char* text) {
  switch (field.kind) {
    case FacColumn::kShort:
      return facMember<int16_t>(row, field);
    case FacColumn::kText:
      if (text) copyText(text, kFacTextSize, facText(row, field));
      return 1.0;
    default:
      return facMember<int32_t>(row, field);
  }
}

void storeField(Fac& row, const FacColumn& field, const char* text, double value) {
  switch (field.kind) {
    case FacColumn::kShort:
      facMember<int16_t>(row, field) = toInt16(value);
      break;
    case FacColumn::kText:
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
  if (field == FAC_ROW) return row;
  if (field == FAC_LAST_NUMBER) return facilities.lastNumber;
  if (field == FAC_COUNT) return facilities.count;
  Fac* from = rowToRead(row);
  if (!from || field < 1 || field > FAC_PRESS_UNITS) return -1.0;
  return readField(*from, kFacFields[field - 1], text);
}

void SetFacVal(int32_t row, int16_t field, const char* text, double value) {
  if (row == 0) return;
  if (field < 1 || field > FAC_COUNT) {
    unknownField("setfac %i", row);  // kept: the row number, not the field's
    return;
  }
  if (field == FAC_IDX || field == FAC_COUNT) facNumbersChanged();
  if (field == FAC_LAST_NUMBER) {
    facilities.lastNumber = toInt32(value);
  } else if (field == FAC_COUNT) {
    facilities.count = toInt16(value);
  } else if (row > 0 && row < facilities.slots) {
    storeField(facilities.rows[row], kFacFields[field - 1], text, value);
    if (field == FAC_IDX) noteFacNumber(facilities.rows[row].Idx);
  }
}
