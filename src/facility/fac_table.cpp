/** The facility table: its rows, counters and finders, and the table that a new model begins with. */
#include <cstring>
#include <iterator>

#include "exports/pn10gdi.h"
#include "facility/fac_fields.h"
#include "facility/facility.h"
#include "model/convert.h"
#include "model/tables.h"

namespace pn10 {

Facilities facilities;

namespace {

constexpr size_t kNameSize = 40;

/** First row of each number that a record can hold, as 16 bits; 0 = none. Nobody but this area writes the rows. */
struct {
  bool fresh;
  int16_t row[1 << 16];
} numberIndex;

void indexNumbers() {
  std::memset(numberIndex.row, 0, sizeof numberIndex.row);
  for (int32_t row = facTop(); row >= 1; row--) {
    const int32_t number = facilities.rows[row].Idx;
    if (number == static_cast<int16_t>(number)) {
      numberIndex.row[static_cast<uint16_t>(number)] = static_cast<int16_t>(row);
    }
  }
  numberIndex.fresh = true;
}

/** The rows of a new table, which has no row for crossings. */
constexpr struct {
  const char* name;
  int32_t number;
  int16_t aux, report;
} kDefaultRows[] = {
    {"UnSpecified", 0, 1, 1},
    {"Color Legend", kColorLegendFacility, 0, 0},
    {"Bill-Of-Material Text", kBillOfMaterialsFacility, 0, 0},
    {"Marked Views", kMarkedViewsFacility, 0, 0},
};

}  // namespace

int32_t facTop() { return facilities.count < facilities.slots ? facilities.count : facilities.slots - 1; }

void facNumbersChanged() { numberIndex.fresh = false; }

void noteFacNumber(int32_t facNo) {
  if (facNo < kFirstReservedFacility && facNo > facilities.lastNumber) facilities.lastNumber = facNo;
}

bool makeFacRows(int32_t count) {
  releaseTable(facilities.rows);
  facilities.rows = newTable<Fac>(count);
  facilities.slots = facilities.rows ? count + 1 : 0;
  facNumbersChanged();
  return facilities.rows != nullptr;
}

const Fac* findFac(int32_t facNo) {
  const int32_t row = FindFacRnoIdx(facNo);
  return row ? &facilities.rows[row] : nullptr;
}

}  // namespace pn10

using namespace pn10;

int32_t FindFacRnoIdx(int32_t facNo) {
  if (facNo == static_cast<int16_t>(facNo)) {
    if (!numberIndex.fresh) indexNumbers();
    return numberIndex.row[static_cast<uint16_t>(facNo)];
  }
  for (int32_t row = 1; row <= facTop(); row++) {
    if (facilities.rows[row].Idx == facNo) return row;
  }
  return 0;
}

int32_t FindFacRnoId(const char* name) {
  for (int32_t row = 1; name && row <= facTop(); row++) {
    if (std::strncmp(facilities.rows[row].Name, name, kNameSize) == 0) return row;
  }
  return 0;
}

int32_t DefaultFac(void) {
  constexpr int16_t kCount = std::size(kDefaultRows);
  facilities.count = 0;
  facilities.lastNumber = 0;
  if (!makeFacRows(kCount)) return -1;
  for (int16_t i = 0; i < kCount; i++) {
    const auto& from = kDefaultRows[i];
    Fac& row = facilities.rows[i + 1];
    copyText(row.Name, from.name);
    copyText(row.PressUnits, "-1");
    row.Idx = from.number;
    row.Display = row.Active = 1;
    row.Aux = from.aux;
    row.Report = from.report;
    row.Color = row.Equation = -1;  // kept: line type and width are 0 here and -1 in rows that ReadFac appends
  }
  return facilities.count = kCount;
}

int32_t ReallocFac(int32_t rowCount) {
  const int16_t count = static_cast<int16_t>(rowCount);
  if (!makeFacRows(count)) return -1;
  return facilities.count = count;
}

int32_t FreeFac(void) {
  if (!facilities.rows) return 1;
  releaseTable(facilities.rows);
  facilities.slots = 0;
  facilities.count = 0;
  facNumbersChanged();
  return 1;
}

int32_t GetNextFacCnt(void) {
  facNumbersChanged();
  return facilities.count = static_cast<int16_t>(facilities.count + 1);
}

int32_t GetNextFacId(void) {
  return facilities.lastNumber = static_cast<int32_t>(static_cast<uint32_t>(facilities.lastNumber) + 1);
}
