/** The three kinds of records as commands name them, and their numbered fields by name and unit. */
#ifndef PN10_HOST_RECORDS_H
#define PN10_HOST_RECORDS_H

#include <cstdint>
#include <string>
#include <vector>

#include "args.h"

namespace host {

enum class Kind { Node, Pipe, Customer };
constexpr Kind kKinds[] = {Kind::Node, Kind::Pipe, Kind::Customer};

/** "node", "pipe" or "customer"; anything else is a usage error. */
Kind parseKind(const std::string& word);
const char* kindName(Kind kind);

/** A record number of the open model; throws Failure when there is no such record. */
int32_t parseRecord(Kind kind, const std::string& word);
int32_t recordCount(Kind kind);
bool isDeleted(Kind kind, int32_t record);

/** What a field reads as: a number, a text, or a number with a text. */
enum class Reads { Number, Text, Both };

struct FieldName {
  Kind kind;
  int16_t number;
  const char* name;
  Reads reads;
  const char* unit; /* a word, or "@n": the text of field n of the same record */
};
/** The fields of a kind, in the order of their numbers. */
std::vector<FieldName> fieldsOf(Kind kind);
/** A field by its number or its name, in any case; throws UsageError. */
FieldName parseField(Kind kind, const std::string& word);

double number(Kind kind, int32_t record, int16_t field);
std::string text(Kind kind, int32_t record, int16_t field);
void store(Kind kind, int32_t record, int16_t field, const std::string& text, double value);

/** The unit of a field of a record, from its table or from the record's own unit text; empty for none. */
std::string unitOf(int32_t record, const FieldName& field);

}  // namespace host

#endif
