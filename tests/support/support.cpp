/** Folders, fresh state, messages, logs and golden files. */
#include "support/support.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "facility/facility.h"
#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "model/staging.h"
#include "model/tables.h"

namespace pn10::test {

bool blessing = false;

namespace {
std::string caught;
void catchMessage(const char* text, const char*) { caught += std::string(text) + "\n"; }
const DrawState initialState = drawState;
}  // namespace

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "pn10testXXXXXX").string();
  if (!mkdtemp(pattern.data())) ADD_FAILURE() << "no temporary folder";
  dir_ = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(dir_, ignored);
}

void TempDir::write(std::string_view name, std::string_view bytes) const {
  std::ofstream out(path(name), std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(out.good());
}

bool TempDir::writeHole(std::string_view name, uint64_t bytes) const {
  std::error_code failed;
  write(name, "");
  std::filesystem::resize_file(path(name), bytes, failed);
  return !failed;
}

std::string TempDir::read(std::string_view name) const { return readFile(path(name)); }
bool TempDir::exists(std::string_view name) const { return std::filesystem::exists(path(name)); }

Fresh::Fresh() {
  caught.clear();
  PnSetMessageBox(catchMessage);
}

void freeAll() {
  FreeModel();
  FreeFdt();
  FreePLut();
  FreeLut();
  FreeFac();
  FreeHQDll();
}

Fresh::~Fresh() {
  freeAll();
  facNumbersChanged();
  lookups = Lookups{};
  facilities = Facilities{};
  model = ModelTables{};
  settings = Settings{};
  staging = Staging{};
  drawState = initialState;
  PnSetDate(0);
  PnSetMessageBox(nullptr);
}

std::string messages() {
  std::string all;
  all.swap(caught);
  return all;
}

std::string only(const std::string& log, std::initializer_list<std::string_view> names) {
  std::istringstream in(log);
  std::string line, out;
  while (std::getline(in, line)) {
    const std::string_view op(line.data(), std::min(line.find(' '), line.size()));
    for (std::string_view name : names) {
      if (op == name) {
        out += line + "\n";
        break;
      }
    }
  }
  return out;
}

int timesIn(const std::string& log, std::string_view what) {
  int n = 0;
  for (size_t at = log.find(what); at != std::string::npos; at = log.find(what, at + 1)) n++;
  return n;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

std::string sharedFile(const std::string& relative) {
  const std::string path = std::string(PN10_SHARED_DIR) + "/" + relative;
  return std::filesystem::exists(path) ? path : "";
}

void expectGolden(const std::string& name, const std::string& actual, const char* file, int line) {
  const std::string path = std::string(PN10_GOLDEN_DIR) + "/" + name;
  std::string comments, expected, row;
  std::ifstream in(path);
  const bool there = in.good();
  while (std::getline(in, row)) (row.starts_with('#') ? comments : expected) += row + "\n";
  if (blessing) {
    if (there && expected == actual) return;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path) << comments << actual;
    return;
  }
  if (!there) {
    ADD_FAILURE_AT(file, line) << "no golden file " << name << " (run with --bless to write it)";
  } else if (expected != actual) {
    ADD_FAILURE_AT(file, line) << name << " differs; now:\n" << actual;
  }
}

}  // namespace pn10::test
