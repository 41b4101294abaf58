/** The two control files, line by line: what each line holds is a row of a table. */
#include "network/trace_control.h"

#include <iterator>

#include "fields/number_text.h"
#include "model/tables.h"
#include "platform/files.h"

namespace pn10 {
namespace {

enum class Line { Type, Color, WriteFiles, StartKind, Customers, Ignored, Count };

constexpr Line kFileLines[] = {Line::Type,      Line::Color,     Line::WriteFiles, Line::Ignored,
                               Line::StartKind, Line::Customers, Line::Ignored,    Line::Count};
constexpr Line kListLines[] = {Line::Type,    Line::Color,   Line::StartKind, Line::Customers,
                               Line::Ignored, Line::Ignored, Line::Ignored};

/** Selector k of a control file names this file; 0 and numbers above 5 name none. */
constexpr TraceFile kSelectors[] = {kTraceFiles, kTracePip, kTraceCst, kTraceVlv, kTraceSum, kTraceReg};

struct Reader {
  FILE* file;
  char text[256] = {};

  /** False when the file has no further line at all. */
  bool next() { return std::fgets(text, sizeof text, file) != nullptr; }
  /** A last line without a line end counts as the end of the file. */
  bool ended() const { return std::feof(file) != 0; }
  int32_t number() const { return parseInt(text); }
};

void readSelectors(Reader& reader, int32_t count, bool writeFiles, TraceControl* control) {
  for (int32_t i = 0; i < count && reader.next(); i++) {
    const auto selector = static_cast<int16_t>(reader.number());
    if (writeFiles && selector >= 1 && selector <= 5) control->selected[kSelectors[selector]] = true;
  }
}

}  // namespace

DataPath::DataPath(const char* name) {
  static_assert(sizeof settings.dataPath + sizeof "pntrace.ini" <= sizeof path_);
  std::snprintf(path_, sizeof path_, "%s%s", settings.dataPath, name);
}

int32_t readTraceControl(int16_t mode, TraceControl* control) {
  const File file(DataPath(mode == 0 ? "pntrace.ini" : "traceup.ini").get(), "r");
  if (!file) return -1;
  Reader reader{file.get()};
  const Line* lines = mode == 0 ? kFileLines : kListLines;
  const int32_t lineCount =
      mode == 0 ? static_cast<int32_t>(std::size(kFileLines)) : static_cast<int32_t>(std::size(kListLines));
  bool writeFiles = false;
  int32_t selectors = 0;
  for (int32_t i = 0; i < lineCount; i++) {
    if (!reader.next() || reader.ended()) return i == 0 ? -2 : i == 1 ? -3 : -4;
    switch (lines[i]) {
      case Line::Type:
        control->type = static_cast<int16_t>(reader.number());
        break;
      case Line::Color:
        control->color = reader.number();
        break;
      case Line::WriteFiles:
        writeFiles = reader.number() != 0;
        break;
      case Line::StartKind:
        control->startKind = reader.number();
        break;
      case Line::Customers:
        control->customers = reader.number() != 0;
        break;
      case Line::Count:
        selectors = reader.number();
        break;
      case Line::Ignored:
        break;
    }
  }
  readSelectors(reader, selectors, writeFiles, control);
  return 0;
}

}  // namespace pn10
