// Opening and saving: the order of the loaders, and one text for each of their codes.
#include "model_files.h"

#include <pn10gdi.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

#include "library_files.h"
#include "network_model.h"
#include "paths.h"
#include "unfinished.h"

namespace host {

namespace {

/** Header lines that this host keeps; line 0 says that the file is its own. */
enum HeaderLine : int16_t {
  kTitle = 1,
  kVersion = 2,
  kLengthUnits = 3,
  kPressureUnits = 4,
  kFlowUnits = 5,
  kDiameterUnits = 6,
  kGeographic = 7,
  kDigits = 8
};
constexpr char kMagic[] = "PN10 HEADER 10.1";

struct CodeText {
  const char* call;
  int32_t code;
  const char* text;
};
constexpr CodeText kCodeTexts[] = {
    {"", -1, "not enough memory"},
    {"", -2, "can't be opened"},
    {"HdrIo", -1, "is no header file of a model"},
    {"HdrIo", -4, "not enough memory"},
    {"ReadPdt", -100, "a pipe names a node that is not there; is the .ndt file cut off, or of another model?"},
    {"ReadLut", -1, "can't be opened"},
    {"ReadLut", -2, "holds no record"},
    {"ReadLut", -3, "not enough memory"},
    {"ReadLut", -4, "not enough memory"},
    {"SavePipe", -1, "the .pdt or .rdx file can't be written"},
    {"SavePipe", -2, "the .vtx file can't be written"},
    {"SavePipe", -4, "the .ndt file can't be written"},
    {"SavePipe", -5, "not enough memory"},
    {"SavePipe", -6, "the .cdt file can't be written"},
    {"SavePipe", -7, "the .fdt file can't be written"},
    {"CalcSystemTrace", -1, "the control file can't be opened, or memory is short"},
    {"CalcSystemTrace", -2, "an output file can't be written"},
    {"CalcSystemTrace", -3, "the control file ends at its second line"},
    {"CalcSystemTrace", -4, "the control file ends too early"},
    {"CalcSystemTrace", -6, "not enough memory"},
};

void check(const char* call, int32_t code, const std::string& path) {
  if (code < 0) throw Failure{path + ": " + resultText(call, code)};
}

std::string headerText(int16_t line) {
  char text[257] = "";
  GetHdrVal(line, text);
  std::string value = text;
  while (!value.empty() && (value.back() == '\n' || value.back() == '\r' || value.back() == ' ')) value.pop_back();
  return value;
}

void loadLibraries(const std::string& base) {
  const struct {
    const char* ending;
    int32_t(PN10_CALL* read)(const char*);
    int32_t(PN10_CALL* empty)();
  } libraries[] = {{".plut", ReadPLut, InitPLut}, {".flut", ReadFLut, InitFLut}, {".rlut", ReadRLut, InitRLut},
                   {".vlut", ReadVLut, InitVLut}, {".wlut", ReadWLut, InitWLut}, {".clut", ReadCLut, InitCLut}};
  for (const auto& library : libraries) {
    const std::string path = base + library.ending;
    // A model without a library is whole; one whose library can't be read is not.
    if (fs::exists(pathOf(path))) {
      check("ReadLut", library.read(path.c_str()), path);
    } else {
      library.empty();
    }
  }
}

/** The digit table in one line, entries apart by a space. */
std::string digitsText(const ModelInfo& info) {
  std::string text;
  for (const float d : info.digits) {
    if (!text.empty()) text += ' ';
    text += std::to_string(static_cast<int>(d));
  }
  return text;
}

void readDigits(const std::string& text, ModelInfo& info) {
  std::istringstream words(text);
  std::string word;
  double value = 0;
  for (float& d : info.digits) {
    if (!(words >> word) || !parseNumber(word, &value)) return;
    d = static_cast<float>(value);
  }
}

ModelInfo readHeader(const std::string& base) {
  ModelInfo info;
  const std::string path = base + ".hdr";
  if (!fs::exists(pathOf(path))) return info;
  check("HdrIo", HdrIo(path.c_str(), kMagic, 1), path);
  info.title = headerText(kTitle);
  const auto take = [](std::string& units, int16_t line) {
    if (const std::string text = headerText(line); !text.empty()) units = text;
  };
  take(info.units.length, kLengthUnits);
  take(info.units.pressure, kPressureUnits);
  take(info.units.flow, kFlowUnits);
  take(info.units.diameter, kDiameterUnits);
  info.units.geographic = headerText(kGeographic) == "1";
  readDigits(headerText(kDigits), info);
  return info;
}

void writeHeader(const std::string& base, const ModelInfo& info) {
  // A read of a file with nothing but the magic line makes an empty table of lines.
  const std::string path = base + ".hdr";
  check("HdrIo", HdrIo(path.c_str(), kMagic, 0), path);
  check("HdrIo", HdrIo(path.c_str(), kMagic, 1), path);
  SetHdrVal(kTitle, info.title.substr(0, 200).c_str());
  SetHdrVal(kVersion, "10.1");
  SetHdrVal(kLengthUnits, info.units.length.c_str());
  SetHdrVal(kPressureUnits, info.units.pressure.c_str());
  SetHdrVal(kFlowUnits, info.units.flow.c_str());
  SetHdrVal(kDiameterUnits, info.units.diameter.c_str());
  SetHdrVal(kGeographic, info.units.geographic ? "1" : "0");
  SetHdrVal(kDigits, digitsText(info).c_str());
  check("HdrIo", HdrIo(path.c_str(), kMagic, 0), path);
}

/** Writes the facility file; the rows of the library's own are added to it by the next load. */
void writeFacilities(const std::string& path, const std::vector<NetFacility>& facilities) {
  if (ReallocFac(static_cast<int32_t>(facilities.size())) < 0) throw Failure{"not enough memory for facilities"};
  int32_t row = 0;
  for (const NetFacility& f : facilities) {
    row++;
    SetFacVal(row, FAC_NAME, f.name.c_str(), 0);
    SetFacVal(row, FAC_IDX, "", row);
    for (const int16_t on : {FAC_DISPLAY, FAC_AUX, FAC_REPORT, FAC_ACTIVE}) SetFacVal(row, on, "", 1);
    SetFacVal(row, FAC_COLOR, "", f.color);
    SetFacVal(row, FAC_LINE_TYPE, "", 0);
    SetFacVal(row, FAC_LINE_WIDTH, "", f.lineWidth);
    SetFacVal(row, FAC_EQUATION, "", -1);
    SetFacVal(row, FAC_PRESS_UNITS, "Default", 0);
  }
  check("", SaveFac(path.c_str(), "10.1"), path);
}

/** Where the files keep the mark of a deleted record, a negative 16-bit number. */
struct DeletedMark {
  const char* ending;
  int64_t stride, offset;
};

/** Marks records of a saved file deleted. A save leaves deleted records out, so this comes behind it. */
void markDeleted(const std::string& base, const DeletedMark& mark, const std::vector<int32_t>& records) {
  if (records.empty()) return;
  std::fstream file(base + mark.ending, std::ios::in | std::ios::out | std::ios::binary);
  for (const int32_t record : records) {
    file.seekp((record - 1) * mark.stride + mark.offset);
    file.write("\xFF\xFF", 2);
  }
  file.close();
  if (!file) throw Failure{base + mark.ending + ": can't be written"};
}

/**
 * Deleted records, which files of a model hold until its next save. All records were saved as live ones: pipes and
 * customers have kept their numbers then, and nodes are numbered as the pipes name them.
 */
void markDeleted(const Network& net, const std::string& base) {
  std::vector<int32_t> nodes, pipes, customers, number(net.nodes.size());
  int32_t next = 0;
  for (size_t i = 0; i < net.links.size(); i++) {
    for (const int32_t end : {net.links[i].from, net.links[i].to}) {
      const auto n = static_cast<size_t>(end);
      if (number[n]) continue;
      number[n] = ++next;
      if (net.nodes[n].deleted) nodes.push_back(next);
    }
    if (net.links[i].deleted) pipes.push_back(static_cast<int32_t>(i) + 1);
  }
  for (size_t i = 0; i < net.customers.size(); i++) {
    if (net.customers[i].deleted) customers.push_back(static_cast<int32_t>(i) + 1);
  }
  markDeleted(base, {".ndt", static_cast<int64_t>(GetNdtVal(0, nullptr, NDT_STRIDE)), 198}, nodes);
  markDeleted(base, {".pdt", static_cast<int64_t>(GetPdtVal(0, nullptr, PDT_STRIDE)), 254}, pipes);
  markDeleted(base, {".cdt", static_cast<int64_t>(GetCdtVal(0, nullptr, CDT_STRIDE)), 188}, customers);
}

/** Files of fixed records: bytes before the first, of a record with its gap, and without. */
struct RecordFile {
  const char* ending;
  uintmax_t header, stride, used;
};
constexpr RecordFile kRecordFiles[] = {
    {".ndt", 0, 220, 218}, {".pdt", 0, 280, 270}, {".vtx", 0, 26, 26}, {".cdt", 0, 214, 198}, {".fdt", 4, 32, 32}};
constexpr uintmax_t kReferenceStride = 336;

/** A file of the model that ends within a record; empty when all are whole. */
std::string cutFileOf(const std::string& base) {
  for (const RecordFile& file : kRecordFiles) {
    std::error_code error;
    const uintmax_t size = fs::file_size(pathOf(base + file.ending), error);
    if (error || size == 0) continue;
    const uintmax_t rest = size < file.header ? 1 : (size - file.header) % file.stride;
    if (rest != 0 && rest != file.used) return base + file.ending;
  }
  return "";
}

/** References of nodes, row by row; returns their number. */
int32_t loadReferences(const std::string& base) {
  std::ifstream file(base + ".rdx", std::ios::binary);
  char row[kReferenceStride];
  int32_t rows = 0;
  const auto part = [&](size_t at, size_t width) {
    return std::string(row + at, std::find(row + at, row + at + width, 0));
  };
  for (; file.read(row, sizeof row); rows++)
    PutRdx(rows + 1, part(0, 40).c_str(), part(40, 256).c_str(), part(296, 40).c_str());
  return rows;
}

}  // namespace

const char* resultText(const char* call, int32_t code) {
  const char* general = "failed";
  for (const CodeText& row : kCodeTexts) {
    if (row.code != code) continue;
    if (!std::strcmp(row.call, call)) return row.text;
    if (!*row.call) general = row.text;
  }
  return general;
}

std::string modelBase(const std::string& word) {
  const fs::path path = pathOf(word);
  for (const char* ending : {".ndt", ".pdt", ".cdt", ".vtx", ".fdt", ".hdr", ".fac"}) {
    if (path.extension() == ending && !fs::exists(pathOf(word + ".ndt")))
      return word.substr(0, word.size() - std::strlen(ending));
  }
  return word;
}

Option replaceOption() { return {"--replace", nullptr, "a model of that name is replaced; its files stay as .bak"}; }

void refuseToReplace(const std::string& base, const Args& args) {
  if (args.has("--replace")) return;
  for (const RecordFile& file : kRecordFiles) {
    if (fs::exists(pathOf(base + file.ending)))
      throw Failure{base + file.ending + ": there is a model already; --replace puts the new one in its place"};
  }
}

ModelInfo openModel(const std::string& base, const std::string& tablesAt) {
  const std::string& tables = tablesAt.empty() ? base : tablesAt;
  closeModel();
  if (!fs::exists(pathOf(tables + ".ndt"))) throw Failure{tables + ".ndt: no such model"};
  ModelInfo info = readHeader(base);
  info.cutFile = cutFileOf(tables);
  if (!info.cutFile.empty())
    std::fprintf(stderr, "pn10: warning: %s ends within a record: it is cut off\n", info.cutFile.c_str());
  applyUnits(info.units);
  loadLibraries(base);
  const std::string facilities = base + ".fac";
  check("", fs::exists(pathOf(facilities)) ? ReadFac(facilities.c_str()) : DefaultFac(), facilities);
  check("", ReadVtx(tables.c_str(), 0), tables + ".vtx");
  check("", ReadNdt(tables.c_str(), 0, 10.1f), tables + ".ndt");
  check("ReadPdt", ReadPdt(tables.c_str(), 1, info.units.pressure.c_str(), 0), tables + ".pdt");
  check("", ReadCdt(tables.c_str(), 0), tables + ".cdt");
  if (fs::exists(pathOf(tables + ".fdt"))) check("", ReadFtg(tables.c_str(), 0, 0, "10.0"), tables + ".fdt");
  info.references = loadReferences(tables);
  return info;
}

void writeTables(const std::string& base, int32_t references) {
  const int32_t saved = SavePipe(references, base.c_str());
  if (saved < 0) throw Failure{std::string("the model can't be saved: ") + resultText("SavePipe", saved)};
}

void closeModel() {
  FreeModel();
  FreeFdt();
  FreeFac();
  FreeLut();
}

void saveNetwork(const Network& network, const std::string& base) {
  UnfinishedModel unfinished(base);
  const std::string part = unfinished.base();
  closeModel();
  writeLibraries(part, network.sizes.empty() ? nominalSizes() : network.sizes);
  loadLibraries(part);
  writeFacilities(part + ".fac", network.facilities);
  makeModel(network);
  writeTables(part, 0);
  markDeleted(network, part);
  ModelInfo info;
  info.title = network.title;
  info.units = network.units;
  writeHeader(part, info);
  // Texts, graphics and references of a model before would stand in the new one.
  unfinished.moveIntoPlace({".rdx", ".gtx", ".ugd"});
}

}  // namespace host
