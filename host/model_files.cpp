// Opening and saving: the order of the loaders, and one text for each of their codes.
#include "model_files.h"

#include <pn10gdi.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "library_files.h"
#include "network_model.h"

namespace host {

namespace fs = std::filesystem;

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
    {"SavePipe", -1, "the .pdt file can't be opened"},
    {"SavePipe", -2, "the .vtx file can't be opened"},
    {"SavePipe", -4, "the .ndt file can't be opened"},
    {"SavePipe", -5, "not enough memory"},
    {"SavePipe", -6, "the .cdt file can't be opened"},
    {"SavePipe", -7, "the .fdt file can't be opened"},
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
    if (fs::exists(path)) {
      check("", library.read(path.c_str()), path);
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
  if (!fs::exists(path)) return info;
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

/** Moves finished files to their places; what stood there before stays as .bak. */
void moveInto(const fs::path& scratch, const fs::path& folder) {
  std::error_code error;
  for (const auto& file : fs::directory_iterator(scratch)) {
    const fs::path to = folder / file.path().filename();
    if (fs::exists(to)) fs::rename(to, to.string() + ".bak", error);
    if (!error) fs::rename(file.path(), to, error);
    if (error) throw Failure{to.string() + ": " + error.message()};
  }
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

ModelInfo openModel(const std::string& base) {
  closeModel();
  if (!fs::exists(base + ".ndt")) throw Failure{base + ".ndt: no such model"};
  const ModelInfo info = readHeader(base);
  applyUnits(info.units);
  loadLibraries(base);
  const std::string facilities = base + ".fac";
  check("", fs::exists(facilities) ? ReadFac(facilities.c_str()) : DefaultFac(), facilities);
  check("", ReadVtx(base.c_str(), 0), base + ".vtx");
  check("", ReadNdt(base.c_str(), 0, 10.1f), base + ".ndt");
  check("", ReadPdt(base.c_str(), 1, info.units.pressure.c_str(), 0), base + ".pdt");
  check("", ReadCdt(base.c_str(), 0), base + ".cdt");
  if (fs::exists(base + ".fdt")) check("", ReadFtg(base.c_str(), 0, 0, "10.0"), base + ".fdt");
  return info;
}

void saveModel(const std::string& base) {
  const int32_t saved = SavePipe(0, base.c_str());
  if (saved < 0) throw Failure{base + ": " + resultText("SavePipe", saved)};
}

void closeModel() {
  FreeModel();
  FreeFdt();
  FreeFac();
  FreeLut();
}

void saveNetwork(const Network& network, const std::string& base) {
  const fs::path target(base);
  std::error_code error;
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), error);
  const fs::path scratch = target.string() + ".part";
  fs::remove_all(scratch, error);
  if (!fs::create_directory(scratch, error)) throw Failure{scratch.string() + ": " + error.message()};
  try {
    const std::string part = (scratch / target.filename()).string();
    closeModel();
    writeLibraries(part, network.sizes.empty() ? nominalSizes() : network.sizes);
    loadLibraries(part);
    writeFacilities(part + ".fac", network.facilities);
    makeModel(network);
    saveModel(part);
    markDeleted(network, part);
    ModelInfo info;
    info.title = network.title;
    info.units = network.units;
    writeHeader(part, info);
    moveInto(scratch, target.parent_path());
  } catch (...) {
    fs::remove_all(scratch, error);
    throw;
  }
  fs::remove_all(scratch, error);
}

}  // namespace host
