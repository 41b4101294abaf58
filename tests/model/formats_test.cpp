/** docs/formats.md tells the column tables of the engine, each between its marker and the next blank line. */
#include <fstream>
#include <sstream>

#include "facility/fac_fields.h"
#include "lookup/lookup_layout.h"
#include "model/record_layout.h"
#include "support/support.h"

namespace pn10::test {

extern bool blessing;

namespace {

const char* codecName(Codec codec) {
  switch (codec) {
    case Codec::I32:
      return "int32 | as it stands";
    case Codec::I16:
      return "int16 | as it stands";
    case Codec::U8:
      return "uint8 | as it stands";
    case Codec::F32:
      return "float32 | as it stands";
    case Codec::F64:
      return "float64 | as it stands";
    case Codec::Text:
      return "text | as it stands";
    case Codec::CutText:
      return "text | the first characters are kept";
    case Codec::SkipText:
      return "text | not read by the engine";
    case Codec::LowByte:
    case Codec::LowByte16:
      return "int16 | low byte";
    case Codec::Flag:
      return "int16 | nonzero is 1";
    case Codec::Zeros:
      return "bytes | not read by the engine";
  }
  return "";
}

std::string tableOf(const RecordFormat& format) {
  std::ostringstream out;
  out << "Stride " << format.stride << ", " << format.bytes << " bytes used";
  if (format.header) out << ", " << format.header << " bytes before record 1";
  out << ".\n| Offset | Width | Type | Transfer | Member |\n|---|---|---|---|---|\n";
  for (size_t i = 0; i < format.columnCount; i++) {
    const Column& c = format.columns[i];
    const size_t unit = unitWidth(c.codec);
    out << "| " << c.offset << " | " << c.width << " | ";
    if (unit && c.width > unit) out << c.width / unit << " x ";
    out << codecName(c.codec) << " | `" << c.name << "` |\n";
  }
  return out.str();
}

std::string tableOfFacilities() {
  std::ostringstream out;
  out << "| Line of a row | Type | Member |\n|---|---|---|\n";
  int line = 1;
  for (const FacColumn& c : kFacFields) {
    const char* type = c.kind == FacColumn::kText ? "text" : c.kind == FacColumn::kLong ? "int32" : "int16";
    out << "| " << line++ << " | " << type << " | `" << c.name << "` |\n";
  }
  return out.str();
}

struct Table {
  const char* marker;
  std::string text;
};
std::vector<Table> tables() {
  return {{"ndt", tableOf(kNdtFormat)},   {"pdt", tableOf(kPdtFormat)},   {"vtx", tableOf(kVtxFormat)},
          {"cdt", tableOf(kCdtFormat)},   {"fdt", tableOf(kFdtFormat)},   {"rdx", tableOf(kRdxFormat)},
          {"plut", tableOf(kPLutFormat)}, {"flut", tableOf(kFLutFormat)}, {"rlut", tableOf(kRLutFormat)},
          {"vlut", tableOf(kVLutFormat)}, {"wlut", tableOf(kWLutFormat)}, {"clut", tableOf(kCLutFormat)},
          {"fac", tableOfFacilities()}};
}

}  // namespace

TEST(Formats, the_document_tells_the_tables_of_the_engine) {
  const std::string path = std::string(PN10_SOURCE_DIR) + "/docs/formats.md";
  std::string page = readFile(path);
  ASSERT_FALSE(page.empty());
  for (const Table& table : tables()) {
    const std::string marker = std::string("<!-- table ") + table.marker + " -->\n";
    const size_t start = page.find(marker);
    ASSERT_NE(start, std::string::npos) << table.marker;
    const size_t from = start + marker.size(), end = page[from] == '\n' ? from : page.find("\n\n", from) + 1;
    if (blessing) {
      page.replace(from, end - from, table.text);
    } else {
      EXPECT_EQ(page.substr(from, end - from), table.text)
          << table.marker << ": run test_model --bless and read the diff";
    }
  }
  if (blessing) std::ofstream(path, std::ios::binary) << page;
}

}  // namespace pn10::test
