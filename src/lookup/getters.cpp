/** The numbered fields of the six lookups: one row per field number, one reader for all. */
#include <cstddef>
#include <cstring>
#include <iterator>

#include "exports/pn10gdi.h"
#include "fields/number_text.h"
#include "lookup/lookup.h"
#include "model/tables.h"

namespace pn10 {
namespace {

struct Field {
  enum Kind : uint8_t { kUnknown, kFloat, kShort, kText, kComputed, kCount, kRow, kMatches };
  Kind kind;
  uint16_t offset, size; /* of the member */
  double (*compute)(const void* row, char* text);
};

template <class Member>
constexpr Field member(size_t offset) {
  constexpr Field::Kind kind = std::is_same_v<Member, float>     ? Field::kFloat
                               : std::is_same_v<Member, int16_t> ? Field::kShort
                                                                 : Field::kText;
  static_assert(kind != Field::kText || std::is_same_v<std::remove_extent_t<Member>, char>);
  return {kind, static_cast<uint16_t>(offset), sizeof(Member), nullptr};
}

constexpr Field kUnknown = {Field::kUnknown, 0, 0, nullptr};
constexpr Field kCount = {Field::kCount, 0, 0, nullptr};
constexpr Field kRow = {Field::kRow, 0, 0, nullptr};
constexpr Field kMatches = {Field::kMatches, 0, 0, nullptr};

template <class Row, double (*Compute)(const Row&, char*)>
constexpr Field computed() {
  return {Field::kComputed, 0, 0,
          [](const void* row, char* text) { return Compute(*static_cast<const Row*>(row), text); }};
}

/** The base value in the units that the row names: divided by the factor, with 0 as good as undefined. */
double inUnits(float value, const char* units, float heatingValue, const char* family) {
  return static_cast<double>(value) / static_cast<double>(GetUnitFactor(units, heatingValue, family));
}

double diameterInUnits(const FLut& row, char*) { return inUnits(row.REF_D, row.D_UNITS, 1, "DUS"); }
double lengthInUnits(const FLut& row, char*) { return inUnits(row.EQ_LENGTH, row.L_UNITS, 1, "LUS"); }
double setValueInUnits(const RLut& row, char*) { return inUnits(row.SET_VALUE, row.P_UNITS, 1, "PUS"); }
double fuelRateInUnits(const CLut& row, char*) { return inUnits(row.FUEL_RATE, row.FUEL_UNITS, 0, "FUEL"); }
double hundredTimesField14(const RLut& row, char*) { return static_cast<double>(row.FIELD_14) * 100.0; }

/** The unit of a fuel flow, by the leading text of the fuel units; other units leave the text alone. */
double powerName(const CLut& row, char* text) {
  static constexpr struct {
    char units[8], name[5];
  } kNames[] = {{"Cfh/hp", "Cfh"}, {"MCfh/hp", "MCfh"}, {"kWh/hp", "kWh"}};
  for (const auto& n : kNames) {
    if (text && std::strncmp(row.FUEL_UNITS, n.units, std::strlen(n.units)) == 0) std::strcpy(text, n.name);
  }
  return 1.0;
}

#define M(Row, name) member<decltype(Row::name)>(offsetof(Row, name))
#define CALC(Row, function) computed<Row, function>()

constexpr Field kPLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ M(PLut, FIELD_1),
    /* 2 */ M(PLut, INSIDE_D),
    /* 3 */ M(PLut, FIELD_3),
    /* 4 */ M(PLut, FIELD_4),
    /* 5 */ M(PLut, FIELD_5),
    /* 6 */ M(PLut, KEY_TEXT),
    /* 7 */ M(PLut, EFFICIENCY),
    /* 8 */ M(PLut, ROUGHNESS),
    /* 9 */ M(PLut, OUTSIDE_D),
    /* 10 */ M(PLut, FIELD_10),
    /* 11 */ M(PLut, WALL),
    /* 12 */ M(PLut, YIELD),
    /* 13 */ kCount,
    /* 14 */ kMatches,
    /* 15 */ kUnknown,
    /* 16 */ M(PLut, FIELD_16),
};

constexpr Field kFLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ kCount,
    /* 2 */ kUnknown,
    /* 3 */ CALC(FLut, diameterInUnits),
    /* 4 */ CALC(FLut, lengthInUnits),
    /* 5 */ M(FLut, KEY_TEXT),
    /* 6 */ M(FLut, FIELD_6),
    /* 7 */ M(FLut, FIELD_7),
    /* 8 */ M(FLut, FIELD_8),
    /* 9 */ M(FLut, TEXT_136),
    /* 10 */ M(FLut, FIELD_10),
    /* 11 */ M(FLut, REF_D),
    /* 12 */ M(FLut, EQ_LENGTH),
    /* 13 */ M(FLut, D_UNITS),
    /* 14 */ M(FLut, L_UNITS),
    /* 15 */ M(FLut, ROUGHNESS),
    /* 16 */ kMatches,
    /* 17 */ M(FLut, TEXT_168),
    /* 18 */ M(FLut, EFFICIENCY),
    /* 19 */ M(FLut, FTG_TYPE),
    /* 20 */ M(FLut, FIELD_20),
    /* 21 */ M(FLut, FIELD_21),
    /* 22 */ M(FLut, DESCRIPTION),
};

constexpr Field kC0 = {Field::kFloat, offsetof(RLut, C), sizeof(float), nullptr};
constexpr Field kRLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ kCount,
    /* 2 */ CALC(RLut, setValueInUnits),
    /* 3 */ M(RLut, P_UNITS),
    /* 4 */ kC0,
    /* 5 */ M(RLut, SET_VALUE),
    /* 6 */ kUnknown, /* the capacity, asked by pipe before the rows are looked at */
    /* 7 */ M(RLut, EQUATION),
    /* 8 */ kC0,
    /* 9 */ M(RLut, FIELD_9),
    /* 10 */ M(RLut, KEY_TEXT),
    /* 11 */ kMatches,
    /* 12 */ kUnknown,
    /* 13 */ M(RLut, FIELD_13),
    /* 14 */ CALC(RLut, hundredTimesField14),
    /* 15 */ M(RLut, UNITS),
};

constexpr Field kVLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ kCount,
    /* 2 */ M(VLut, FIELD_2),
    /* 3 */ M(VLut, KEY_TEXT),
    /* 4 */ kMatches,
    /* 5 */ kUnknown,
    /* 6 */ M(VLut, FIELD_6),
    /* 7 */ M(VLut, FIELD_7),
};

constexpr Field kWLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ kCount,
    /* 2 */ M(WLut, FIELD_2),
    /* 3 */ M(WLut, FIELD_3),
    /* 4 */ M(WLut, FIELD_4),
    /* 5 */ M(WLut, KEY_TEXT),
    /* 6 */ kMatches,
    /* 7 */ kUnknown,
    /* 8 */ M(WLut, FIELD_8),
};

constexpr Field kCLutFields[] = {
    /* 0 */ kRow,
    /* 1 */ kCount,
    /* 2 */ CALC(CLut, fuelRateInUnits),
    /* 3 */ M(CLut, FUEL_RATE),
    /* 4 */ M(CLut, FUEL_UNITS),
    /* 5 */ M(CLut, POWER_UNITS),
    /* 6 */ M(CLut, FIELD_6),
    /* 7 */ kUnknown,
    /* 8 */ kUnknown, /* power and fuel use, asked by pipe before the rows are looked at */
    /* 9 */ kUnknown,
    /* 10 */ CALC(CLut, powerName),
    /* 11 */ M(CLut, FIELD_11),
    /* 12 */ M(CLut, KEY_TEXT),
    /* 13 */ kMatches,
    /* 14 */ kUnknown,
    /* 15 */ M(CLut, FIELD_15),
};
#undef M
#undef CALC

/** What a getter knows of its lookup besides the rows. */
struct Access {
  const Field* fields;
  int16_t fieldCount;
  int32_t(PN10_CALL* find)(const char* key, int16_t countMatches);
  const char* unknown;
  double bad;
};

constexpr Access kPLut = {kPLutFields, std::size(kPLutFields), FindPLutRno, "getplut %i", 0.0};
constexpr Access kFLut = {kFLutFields, std::size(kFLutFields), FindFLutRno, "getflut %i", -1.0};
constexpr Access kRLut = {kRLutFields, std::size(kRLutFields), FindRLutRno, "getrlut %i", -1.0};
constexpr Access kVLut = {kVLutFields, std::size(kVLutFields), FindVLutRno, "getvlut %i", -1.0};
constexpr Access kWLut = {kWLutFields, std::size(kWLutFields), FindWLutRno, "getwlut %i", -1.0};
constexpr Access kCLut = {kCLutFields, std::size(kCLutFields), FindCLutRno, "getclut %i", -1.0};

/** The one number that needs no rows, the same in all of the five. */
constexpr int16_t kCountNumber = FLUT_COUNT;
constexpr bool hasCountThere(const Access& access) { return access.fields[kCountNumber].kind == Field::kCount; }
static_assert(hasCountThere(kFLut) && hasCountThere(kRLut) && hasCountThere(kVLut) && hasCountThere(kWLut) &&
              hasCountThere(kCLut));

double readMember(const Field& field, const void* row, char* text) {
  const char* at = static_cast<const char*>(row) + field.offset;
  if (field.kind == Field::kFloat) {
    float value;
    std::memcpy(&value, at, sizeof value);
    return value;
  }
  if (field.kind == Field::kShort) {
    int16_t value;
    std::memcpy(&value, at, sizeof value);
    return value;
  }
  if (field.kind == Field::kComputed) return field.compute(row, text);
  if (text) copyText(text, field.size, at);
  return 1.0;
}

/** Field `number` of `row`, or of the whole table; `lut` has rows and `row` is not negative. */
template <class Row>
double readField(const Lut<Row>& lut, const Access& access, int32_t row, char* text, int16_t number) {
  const Field& field = number >= 0 && number < access.fieldCount ? access.fields[number] : kUnknown;
  switch (field.kind) {
    case Field::kUnknown:
      unknownField(access.unknown, number);
      return access.bad;
    case Field::kCount:
      return lut.count;
    case Field::kRow:
      return access.find(text, 0);
    case Field::kMatches:
      return access.find(text, 1);
    default:
      return row <= lut.count ? readMember(field, &lut.rows[row], text) : access.bad;
  }
}

/** The five that check the row against the count. After FreeLut the count is still readable, and nothing else. */
template <class Row>
double checkedField(const Lut<Row>& lut, const Access& access, int32_t row, char* text, int16_t number) {
  if (row < 0 || lut.count == 0 || row > lut.count) return access.bad;
  if (!lut.rows && number != kCountNumber) return access.bad;
  return readField(lut, access, row, text, number);
}

/** Values that are asked by pipe: the rows must be there, the pipe may be above their count. */
template <class Row>
bool canAskByPipe(const Lut<Row>& lut, int32_t pipe) {
  return lut.rows && lut.count != 0 && (pipe == 0 || isPipe(pipe));
}

}  // namespace
}  // namespace pn10

using namespace pn10;

double GetPLutVal(int16_t row, char* text, int16_t field) {
  if (row < 0 || lookups.plut.count <= 0 || !lookups.plut.rows) return kPLut.bad;
  return readField(lookups.plut, kPLut, row, text, field);
}

double GetFLutVal(int32_t row, char* text, int16_t field) {
  return checkedField(lookups.flut, kFLut, row, text, field);
}

double GetRLutVal(int32_t row, char* text, int16_t field) {
  if (field != RLUT_CAPACITY) return checkedField(lookups.rlut, kRLut, row, text, field);
  const int32_t rlutRow = parseInt(text);
  if (!canAskByPipe(lookups.rlut, row) || !lutRow(lookups.rlut, rlutRow)) return kRLut.bad;
  return CalcRegCapacity(row, rlutRow);
}

double GetVLutVal(int32_t row, char* text, int16_t field) {
  return checkedField(lookups.vlut, kVLut, row, text, field);
}

double GetWLutVal(int32_t row, char* text, int16_t field) {
  return checkedField(lookups.wlut, kWLut, row, text, field);
}

double GetCLutVal(int32_t row, char* text, int16_t field) {
  if (field != CLUT_POWER && field != CLUT_FUEL_USE) return checkedField(lookups.clut, kCLut, row, text, field);
  if (!canAskByPipe(lookups.clut, row)) return kCLut.bad;
  return CalcCompPower(row, FindCLutRno(text, 0), field == CLUT_POWER ? 0 : 5);
}
