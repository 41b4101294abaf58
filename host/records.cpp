// Kinds of records: one row of calls each.
#include "records.h"

#include <pn10gdi.h>

#include <algorithm>
#include <cstdlib>

namespace host {

namespace {

struct KindCalls {
  Kind kind;
  const char* name;
  double(PN10_CALL* get)(int32_t, char*, int16_t);
  void(PN10_CALL* set)(int32_t, int16_t, const char*, double);
  int16_t count, status;
};
constexpr KindCalls kCalls[] = {{Kind::Node, "node", GetNdtVal, SetNdtVal, NDT_COUNT, NDT_REC_STATUS},
                                {Kind::Pipe, "pipe", GetPdtVal, SetPdtVal, PDT_COUNT, PDT_REC_STATUS},
                                {Kind::Customer, "customer", GetCdtVal, SetCdtVal, CDT_TABLE_COUNT, CDT_REC_STATUS}};

const KindCalls& callsOf(Kind kind) { return kCalls[static_cast<size_t>(kind)]; }

constexpr FieldName kFields[] = {
#define FIELD(kind, number, name, reads, unit) {Kind::kind, number, name, Reads::reads, unit},
#include "field_names.inc"
#undef FIELD
};

std::string lower(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return word;
}

}  // namespace

Kind parseKind(const std::string& word) {
  for (const KindCalls& row : kCalls) {
    if (word == row.name) return row.kind;
  }
  throw UsageError{"'" + word + "' is no kind of record: node, pipe or customer"};
}

const char* kindName(Kind kind) { return callsOf(kind).name; }

int32_t recordCount(Kind kind) { return static_cast<int32_t>(number(kind, 0, callsOf(kind).count)); }

int32_t parseRecord(Kind kind, const std::string& word) {
  int32_t record = 0;
  if (!parseWhole(word, &record)) throw UsageError{"'" + word + "' is no record number"};
  if (record < 1 || record > recordCount(kind)) {
    throw Failure{std::string("there is no ") + kindName(kind) + " " + word + "; the last one is " +
                  std::to_string(recordCount(kind))};
  }
  return record;
}

bool isDeleted(Kind kind, int32_t record) { return number(kind, record, callsOf(kind).status) < 0; }

std::vector<FieldName> fieldsOf(Kind kind) {
  std::vector<FieldName> fields;
  std::copy_if(std::begin(kFields), std::end(kFields), std::back_inserter(fields),
               [&](const FieldName& f) { return f.kind == kind; });
  return fields;
}

FieldName parseField(Kind kind, const std::string& word) {
  for (const FieldName& f : kFields) {
    if (f.kind == kind && (word == std::to_string(f.number) || lower(word) == lower(f.name))) return f;
  }
  throw UsageError{std::string("a ") + kindName(kind) + " has no field '" + word + "'; 'pn10 fields' lists them"};
}

double number(Kind kind, int32_t record, int16_t field) {
  static char spare[512];
  return callsOf(kind).get(record, spare, field);
}

std::string text(Kind kind, int32_t record, int16_t field) {
  char value[512] = "";
  callsOf(kind).get(record, value, field);
  return value;
}

void store(Kind kind, int32_t record, int16_t field, const std::string& text, double value) {
  callsOf(kind).set(record, field, text.c_str(), value);
}

std::string unitOf(int32_t record, const FieldName& field) {
  if (field.unit[0] != '@') return field.unit;
  return text(field.kind, record, static_cast<int16_t>(std::atoi(field.unit + 1)));
}

}  // namespace host
