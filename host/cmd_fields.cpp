// pn10 fields: every numbered field of one record.
#include <pn10gdi.h>

#include <cstdio>

#include "commands.h"
#include "model_files.h"
#include "output.h"
#include "records.h"

namespace host {

namespace {

int runFields(const Args& args) {
  const Kind kind = parseKind(args.positional[1]);
  openModel(modelBase(args.positional[0]));
  const int32_t record = parseRecord(kind, args.positional[2]);
  Json json;
  json.open('{').member("kind", kindName(kind)).member("record", double(record)).open('[', "fields");
  if (!args.has("--json")) std::printf("%s %d\n", kindName(kind), record);
  for (const FieldName& f : fieldsOf(kind)) {
    const std::string words = f.reads == Reads::Number ? "" : text(kind, record, f.number);
    const double value = number(kind, record, f.number);
    const std::string unit = unitOf(record, f);
    json.open('{').member("number", double(f.number)).member("name", f.name);
    if (f.reads != Reads::Text) json.member("value", value);
    if (f.reads != Reads::Number) json.member("text", utf8(words));
    if (!unit.empty()) json.member("unit", utf8(unit));
    json.close('}');
    if (args.has("--json")) continue;
    std::string shown = f.reads == Reads::Text ? "" : shortNumber(value);
    if (f.reads == Reads::Both) shown += "  ";
    if (f.reads != Reads::Number) shown.append("\"").append(utf8(words)).append("\"");
    std::printf("  %4d  %-16s %s%s%s\n", f.number, f.name, shown.c_str(), unit.empty() ? "" : "  ", utf8(unit).c_str());
  }
  json.close(']').close('}');
  if (args.has("--json")) std::printf("%s\n", json.text().c_str());
  closeModel();
  return 0;
}

}  // namespace

Command fieldsCommand() {
  return {"fields",
          "BASE KIND RECORD",
          "Every numbered field of a node, pipe or customer with its name, value and unit.",
          "pn10 fields town/town pipe 12",
          {{"--json", nullptr, "as JSON"}},
          runFields};
}

}  // namespace host
