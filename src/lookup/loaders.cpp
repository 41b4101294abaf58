/** Loading and releasing the six lookup libraries; every physical value is converted to base units once. */
#include <cstring>

#include "exports/pn10gdi.h"
#include "lookup/lookup.h"
#include "lookup/lookup_layout.h"
#include "lookup/plut_index.h"
#include "model/convert.h"
#include "model/record_file.h"
#include "model/tables.h"

namespace pn10 {

constinit Lookups lookups{};

namespace {

enum Failure : int32_t { kNoFile = -1, kNoRecord = -2, kNoMemory = -3, kNoMemoryPLut = -4 };

constexpr double kPercent = 0.01f; /* kept: single precision, widened */
constexpr float kDefaultC1 = 35.0f;

float timesPercent(float value) { return toFloat(value * kPercent); }

/** Whole records of an open file, its header counted. */
int64_t wholeRecords(FILE* file, uint32_t stride) { return fileSize(file) / stride; }

/** Zeroed rows 0 to n; null when there is no memory, or more of them than row numbers. */
template <class Row>
Row* makeRows(int64_t n) {
  return n < INT32_MAX ? newTable<Row>(static_cast<int32_t>(n)) : nullptr;
}

void convert(PLut& row) {
  row.WALL *= row.UNIT_FACTOR;
  row.OUTSIDE_D *= row.UNIT_FACTOR;
  row.INSIDE_D *= row.UNIT_FACTOR;
  row.ROUGHNESS *= row.UNIT_FACTOR;
  row.EFFICIENCY = timesPercent(row.EFFICIENCY);
  row.YIELD *= GetUnitFactor(row.S_UNITS, 0, "PUS");
}

/** Types 52 to 54 have a coefficient of their own, type 55 a fixed pressure drop in place of the diameter. */
void convert(FLut& row) {
  const float factor = GetUnitFactor(row.D_UNITS, 1, "DUS");
  row.ROUGHNESS *= factor;
  row.EFFICIENCY = timesPercent(row.EFFICIENCY);
  if (row.FTG_TYPE == 55) {
    row.EQ_LENGTH = 0;
    row.REF_D *= GetUnitFactor(row.D_UNITS, 1, "PUS");
    return;
  }
  if (row.FTG_TYPE != 53 && row.FTG_TYPE != 54) row.REF_D *= factor;
  if (row.FTG_TYPE < 52 || row.FTG_TYPE > 55) row.EQ_LENGTH *= GetUnitFactor(row.L_UNITS, 1, "LUS");
}

void convert(RLut& row) {
  TrimRight(row.KEY_TEXT);
  if (row.EQUATION == 0 && row.C[1] == 0) row.C[1] = kDefaultC1;
  row.SET_VALUE *= GetUnitFactor(row.P_UNITS, 1, "PUS");
  row.FIELD_14 /= 100.0f;
}

void convert(VLut& row) {
  TrimRight(row.KEY_TEXT);
  row.DIAMETER *= GetUnitFactor(row.D_UNITS, 1, "DUS");
  if (row.FIELD_7 == 0 && row.COEF_B == 0) row.COEF_B = kDefaultC1;
}

void convert(WLut&) {}

void convert(CLut& row) { row.FUEL_RATE *= GetUnitFactor(row.FUEL_UNITS, 0, "FUEL"); }

template <const RecordFormat& Format, class Row>
void readRows(FILE* file, Row* rows, int64_t n) {
  RecordReader<Format> reader(file);
  for (int64_t i = 1; i < n; i++) {
    reader.next(&rows[i]);
    convert(rows[i]);
  }
}

/** The five that are scanned. Kept: the old rows are forgotten, not released, and row n stays empty. */
template <const RecordFormat& Format, class Row>
int32_t load(Lut<Row>& lut, const char* path) {
  lut.count = 0;
  File file(path, "rb");
  if (!file) return kNoFile;
  const int64_t n = wholeRecords(file.get(), Format.stride);
  if (n <= 0) return kNoRecord;
  lut.rows = makeRows<Row>(n);
  if (!lut.rows) return kNoMemory;
  readRows<Format>(file.get(), lut.rows, n);
  return lut.count = static_cast<int32_t>(n);
}

template <class Row>
int32_t init(Lut<Row>& lut) {
  releaseTable(lut.rows);
  lut.count = 0;
  lut.rows = newTable<Row>(0);
  return lut.rows ? 0 : kNoMemory;
}

/** Empty rows and index entries 0 to n in place of what was there. */
bool makePLut(int64_t n) {
  FreePLut();
  lookups.plut.rows = makeRows<PLut>(n);
  if (lookups.plut.rows && makePLutIndex(static_cast<int32_t>(n))) return true;
  FreePLut();
  return false;
}

}  // namespace
}  // namespace pn10

using namespace pn10;

int32_t ReadPLut(const char* path) {
  lookups.plut.count = 0;
  File file(path, "rb");
  if (!file) return kNoFile;
  const int64_t n = wholeRecords(file.get(), kPLutFormat.stride);
  if (n <= 0) return kNoRecord;
  if (!makePLut(n)) return kNoMemoryPLut;
  readRows<kPLutFormat>(file.get(), lookups.plut.rows, n);
  sortPLutIndex(static_cast<int32_t>(n));
  return lookups.plut.count;
}

int32_t ReadFLut(const char* path) { return load<kFLutFormat>(lookups.flut, path); }
int32_t ReadRLut(const char* path) { return load<kRLutFormat>(lookups.rlut, path); }
int32_t ReadVLut(const char* path) { return load<kVLutFormat>(lookups.vlut, path); }
int32_t ReadWLut(const char* path) { return load<kWLutFormat>(lookups.wlut, path); }
int32_t ReadCLut(const char* path) { return load<kCLutFormat>(lookups.clut, path); }

int32_t InitPLut(void) { return makePLut(0) ? 0 : kNoMemoryPLut; }
int32_t InitFLut(void) { return init(lookups.flut); }
int32_t InitRLut(void) { return init(lookups.rlut); }
int32_t InitVLut(void) { return init(lookups.vlut); }
int32_t InitWLut(void) { return init(lookups.wlut); }
int32_t InitCLut(void) { return init(lookups.clut); }

int32_t FreePLut(void) {
  releaseTable(lookups.plut.rows);
  releasePLutIndex();
  lookups.plut.count = 0;
  return 1;
}

int32_t FreeLut(void) {
  releaseTable(lookups.flut.rows);
  releaseTable(lookups.rlut.rows);
  releaseTable(lookups.vlut.rows);
  releaseTable(lookups.wlut.rows);
  releaseTable(lookups.clut.rows);
  return 1;
}

intptr_t GetPLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.plut.rows); }
intptr_t GetFLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.flut.rows); }
intptr_t GetRLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.rlut.rows); }
intptr_t GetVLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.vlut.rows); }
intptr_t GetWLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.wlut.rows); }
intptr_t GetCLutAddress(void) { return reinterpret_cast<intptr_t>(lookups.clut.rows); }
