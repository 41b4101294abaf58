// pn10 set: one field stored, the model saved. What a save would lose or change is refused before a file is touched.
#include <pn10gdi.h>

#include <cstdio>
#include <vector>

#include "commands.h"
#include "model_files.h"
#include "output.h"
#include "records.h"
#include "unfinished.h"

namespace host {

namespace {

/** One field of one record, and what it shall hold. */
struct Change {
  Kind kind;
  FieldName field;
  int32_t record;
  std::string given;
  double value;
  bool isText() const { return field.reads == Reads::Text; }
};

/** The fields that hold the model together: vertices, fittings and counts hang on them. */
bool holdsTogether(const Change& c) {
  switch (c.kind) {
    case Kind::Node:
      return c.field.number == NDT_ID || c.field.number == NDT_COUNT;
    case Kind::Pipe:
      return c.field.number == PDT_ID || c.field.number == PDT_COUNT || c.field.number == PDT_FIRST_VTX ||
             c.field.number == PDT_LAST_VTX;
    default:
      return c.field.number == CDT_ID || c.field.number == CDT_TABLE_COUNT || c.field.number == CDT_FIRST_VTX ||
             c.field.number == CDT_LAST_VTX;
  }
}

/** Whether a field is the record number of another record; `of` tells its kind. */
bool isReference(const Change& c, Kind* of) {
  *of = c.kind == Kind::Pipe ? Kind::Node : Kind::Pipe;
  if (c.kind == Kind::Pipe) return c.field.number == PDT_FROM_NODE || c.field.number == PDT_TO_NODE;
  return c.kind == Kind::Customer && c.field.number == CDT_PIPE_REC;
}

bool isDeletion(const Change& c) {
  constexpr int16_t kStatus[] = {NDT_REC_STATUS, PDT_REC_STATUS, CDT_REC_STATUS};
  return c.field.number == kStatus[static_cast<size_t>(c.kind)] && c.value < 0;
}

std::string shown(const Change& c) {
  if (!c.isText()) return shortNumber(number(c.kind, c.record, c.field.number));
  return std::string("'").append(utf8(text(c.kind, c.record, c.field.number))).append("'");
}

bool holds(const Change& c, double expected) {
  if (c.isText()) return text(c.kind, c.record, c.field.number) == ansi(c.given);
  const double held = number(c.kind, c.record, c.field.number);
  return held == expected || held == static_cast<double>(static_cast<float>(expected));
}

void checkReference(const Change& c) {
  Kind of;
  if (!isReference(c, &of)) return;
  if (of == Kind::Pipe && c.value == 0) return; /* a customer of no pipe */
  if (c.value < 1 || c.value > recordCount(of) || c.value != static_cast<int32_t>(c.value) ||
      isDeleted(of, static_cast<int32_t>(c.value))) {
    throw Failure{std::string("there is no ") + kindName(of) + " " + c.given};
  }
}

/** The references of nodes are found by name: a node takes its own along. */
void renameReference(const Change& c, int32_t references) {
  if (c.kind != Kind::Node || c.field.number != NDT_NODENAME) return;
  char longText[257] = "", shortText[41] = "";
  const std::string before = text(c.kind, c.record, NDT_NODENAME);
  if (const int32_t row = FindRdx(references, before.c_str(), longText, shortText))
    PutRdx(row, ansi(c.given).c_str(), longText, shortText);
}

void storeExactly(const Change& c) {
  store(c.kind, c.record, c.field.number, ansi(c.given), c.value);
  if (holds(c, c.value)) return;
  throw Failure{std::string(c.field.name) +
                " can't be stored: it is computed, or the value does not fit; it would be " + shown(c)};
}

/** Nodes are numbered in the order in which live pipes name them; the empty node 0 of a pipe without an end counts. */
int32_t nodeAfterSave(int32_t record) {
  int32_t next = 0;
  std::vector<bool> named(static_cast<size_t>(recordCount(Kind::Node)) + 1);
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    if (isDeleted(Kind::Pipe, p)) continue;
    for (const int16_t end : {PDT_FROM_NODE, PDT_TO_NODE}) {
      const auto node = static_cast<int32_t>(number(Kind::Pipe, p, end));
      if (node < 0 || node > recordCount(Kind::Node) || named[static_cast<size_t>(node)]) continue;
      named[static_cast<size_t>(node)] = true;
      next++;
      if (node == record) return next;
    }
  }
  return 0;
}

/** The number that a record gets in a save; 0 when it is left out, as deleted records and unused nodes are. */
int32_t numberAfterSave(Kind kind, int32_t record) {
  if (kind == Kind::Node) return nodeAfterSave(record);
  int32_t next = 0;
  for (int32_t r = 1; r <= record; r++) {
    const auto pipe = kind == Kind::Customer ? static_cast<int32_t>(number(kind, r, CDT_PIPE_REC)) : 0;
    const bool kept = !isDeleted(kind, r) && (pipe == 0 || !isDeleted(Kind::Pipe, pipe));
    if (kept) next++;
    if (r == record) return kept ? next : 0;
  }
  return 0;
}

/** Reads the saved tables back: the field must hold there what it was given. */
void checkSaved(const Change& c, const std::string& base, const std::string& saved, int32_t record, double expected) {
  openModel(base, saved);
  if (!record) return;
  const Change after = {c.kind, c.field, record, c.given, c.value};
  if (holds(after, expected)) return;
  throw Failure{std::string(c.field.name) + " can't be stored: the files of a model do not keep it; it would be " +
                shown(after)};
}

int run(const Args& args) {
  const std::string base = modelBase(args.positional[0]);
  Change change{parseKind(args.positional[1]), {}, 0, args.positional[4], 0};
  change.field = parseField(change.kind, args.positional[3]);
  if (!change.isText() && !parseNumber(change.given, &change.value))
    throw UsageError{std::string(change.field.name) + " wants a number, not '" + change.given + "'"};
  if (change.isText() && utf8(ansi(change.given)) != change.given)
    throw UsageError{"'" + change.given + "' has characters beyond code page 1252"};
  if (holdsTogether(change))
    throw Failure{std::string(change.field.name) + " can't be stored: it ties records together"};

  const ModelInfo info = openModel(base);
  change.record = parseRecord(change.kind, args.positional[2]);
  if (!info.cutFile.empty()) throw Failure{base + ": is not saved, what is missing would be lost for good"};
  checkReference(change);
  renameReference(change, info.references);
  storeExactly(change);
  const int32_t saved = numberAfterSave(change.kind, change.record);
  if (!saved && !isDeletion(change)) {
    throw Failure{std::string("a save leaves ") + kindName(change.kind) + " " + std::to_string(change.record) +
                  " out: it is deleted, or no pipe uses it"};
  }
  Kind of;
  const bool reference = isReference(change, &of) && change.value != 0;
  const double expected = reference ? numberAfterSave(of, static_cast<int32_t>(change.value)) : change.value;
  int32_t before = 0, after = 0;
  for (const Kind kind : kKinds) before += recordCount(kind);
  UnfinishedModel unfinished(base);
  writeTables(unfinished.base(), info.references);
  checkSaved(change, base, unfinished.base(), saved, expected);
  for (const Kind kind : kKinds) after += recordCount(kind);
  unfinished.moveIntoPlace();
  closeModel();
  if (before != after) {
    std::printf("records that were deleted or that no pipe uses are gone: %d; those behind them have new numbers\n",
                before - after);
  }
  return 0;
}

}  // namespace

Command setCommand() {
  return {"set",
          "BASE KIND RECORD FIELD VALUE",
          "Stores one field, by number or name, and saves the model; the files before stay as .bak.",
          "pn10 set town/town node 5 PRESSURE 58.5",
          {},
          run};
}

}  // namespace host
