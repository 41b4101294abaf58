/**
 * The facility file: plain text, one value per line.
 *
 *   title                     written for the reader's eye, skipped
 *   row count
 *   eleven lines per row      the fields 1 to 11 in their order, see fac_fields.h
 *
 * Every number that is missing or malformed is 0; a file that ends early repeats its last line.
 */
#include <cstdio>
#include <iterator>

#include "exports/pn10gdi.h"
#include "facility/fac_fields.h"
#include "facility/facility.h"
#include "fields/text_file.h"
#include "model/tables.h"

namespace pn10 {
namespace {

constexpr struct {
  int32_t number;
  const char* name;
  int32_t color;
} kReservedRows[] = {
    {kBillOfMaterialsFacility, "Bill Of Materials Text", -1},
    {kColorLegendFacility, "Color Legend", -1},
    {kMarkedViewsFacility, "Marked Views", -1},
    {kCrossingsFacility, "Marked Pipe Crossings", 255},
};

void readField(LineReader& lines, Fac& row, const FacColumn& field) {
  if (field.kind == FacColumn::kText) {
    lines.next();
    TrimRight(lines.text());
    copyText(facText(row, field), kFacTextSize, lines.text());
    return;
  }
  const int32_t value = lines.nextInt();
  if (field.kind == FacColumn::kShort) {
    facMember<int16_t>(row, field) = static_cast<int16_t>(value);
  } else {
    facMember<int32_t>(row, field) = field.kind == FacColumn::kNumber ? static_cast<int16_t>(value) : value;
  }
}

void readRow(LineReader& lines, Fac& row) {
  for (const FacColumn& field : kFacFields) readField(lines, row, field);
  noteFacNumber(row.Idx);
  if (row.Idx == kColorLegendFacility) copyText(row.Name, "Color Legend");
}

bool hasRow(int32_t count, int32_t number) {
  for (int32_t row = 1; row <= count; row++) {
    if (facilities.rows[row].Idx == number) return true;
  }
  return false;
}

/** Appends the reserved rows that the first `count` rows lack; the new count, or -1 when there is no room. */
int32_t appendReserved(int32_t count) {
  bool missing[std::size(kReservedRows)];
  int32_t total = count;
  for (size_t i = 0; i < std::size(kReservedRows); i++) {
    missing[i] = !hasRow(count, kReservedRows[i].number);
    total += missing[i];
  }
  if (total > INT16_MAX) return -1;
  Fac* grown = static_cast<Fac*>(reallocateRecords(facilities.rows, total, sizeof(Fac)));
  if (!grown) return -1;
  facilities.rows = grown;
  facilities.slots = total + 1;
  for (size_t i = 0; i < std::size(kReservedRows); i++) {
    if (!missing[i]) continue;
    Fac& row = facilities.rows[++count];
    row = {};
    copyText(row.Name, kReservedRows[i].name);
    copyText(row.PressUnits, "-1");
    row.Idx = kReservedRows[i].number;
    row.Display = row.Active = 1;
    row.Color = kReservedRows[i].color;
    row.LineType = row.LineWidth = row.Equation = -1;
  }
  return count;
}

void writeField(FILE* file, Fac& row, const FacColumn& field) {
  if (field.kind == FacColumn::kText) {
    TrimRight(facText(row, field));
    std::fputs(facText(row, field), file);
  } else {
    char digits[16];
    printInt(digits, sizeof digits,
             field.kind == FacColumn::kShort ? facMember<int16_t>(row, field) : facMember<int32_t>(row, field));
    std::fputs(digits, file);
  }
  std::fputc('\n', file);
}

}  // namespace
}  // namespace pn10

using namespace pn10;

int32_t ReadFac(const char* path) {
  FreeFac();
  facilities.count = 0;
  facilities.lastNumber = 0;
  LineReader lines(LineReader::kRepeat);
  if (!lines.open(path)) return -2;
  lines.next();
  const int16_t count = static_cast<int16_t>(lines.nextInt());
  if (!makeFacRows(count)) return -1;
  for (int32_t row = 1; row <= count; row++) readRow(lines, facilities.rows[row]);
  const int32_t total = appendReserved(count);
  if (total < 0) {
    FreeFac();
    return -1;
  }
  facNumbersChanged();
  return facilities.count = static_cast<int16_t>(total);
}

int32_t SaveFac(const char* path, const char* title) {
  if (!facilities.rows || facilities.count <= 0) return 0;
  File file(path, "w");
  if (!file) return -2;
  std::fputs(title ? title : "", file.get());
  char digits[16];
  printInt(digits, sizeof digits, facilities.count);
  std::fputc('\n', file.get());
  std::fputs(digits, file.get());
  std::fputc('\n', file.get());
  for (int32_t row = 1; row <= facilities.count; row++) {
    Fac beyond = {};
    Fac& from = row < facilities.slots ? facilities.rows[row] : beyond;
    for (const FacColumn& field : kFacFields) writeField(file.get(), from, field);
  }
  return file.close() ? facilities.count : -2;
}
