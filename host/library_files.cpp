// Lookup library files: a header record, then one record a row, at the stride of each library.
#include "library_files.h"

#include <cstring>
#include <fstream>

#include "args.h"

namespace host {

namespace {

/** One record of fixed size; every put names its offset, as the format tables do. */
class Record {
 public:
  explicit Record(size_t stride) : bytes_(stride, '\0') {}
  Record& text(size_t at, size_t width, const std::string& value) {
    const std::string cut = value.substr(0, width);
    std::memcpy(&bytes_[at], cut.data(), cut.size());
    return *this;
  }
  Record& f32(size_t at, double value) {
    const auto f = static_cast<float>(value);
    uint32_t bits;
    std::memcpy(&bits, &f, 4);
    return put(at, bits, 4);
  }
  Record& i16(size_t at, int value) { return put(at, static_cast<uint16_t>(value), 2); }
  Record& i32(size_t at, int32_t value) { return put(at, static_cast<uint32_t>(value), 4); }
  const std::string& bytes() const { return bytes_; }

 private:
  Record& put(size_t at, uint32_t value, size_t width) {
    for (size_t i = 0; i < width; i++) bytes_[at + i] = static_cast<char>(value >> (8 * i));
    return *this;
  }
  std::string bytes_;
};

void writeFile(const std::string& path, size_t stride, const std::vector<Record>& rows) {
  std::ofstream out(path, std::ios::binary);
  std::string magic = "PN.10.3   0";
  magic.resize(40, ' ');
  std::string header = magic;
  header.resize(stride, '\0');
  out << header;
  for (const Record& row : rows) out << row.bytes();
  out.close();
  if (!out) throw Failure{path + ": can't be written"};
}

Record pipeRow(const NetSize& s) {
  return Record(432)
      .text(0, 40, s.name)
      .f32(40, s.wall)
      .f32(44, s.outside)
      .f32(48, s.inside)
      .f32(52, s.roughness)
      .f32(56, 100)
      .f32(64, 35000)
      .f32(70, s.metric ? 0.03937 : 1)
      .text(74, 10, s.metric ? "mm" : "Inches")
      .text(88, 10, "psi")
      .i32(98, s.color)
      .i16(102, 0)
      .i16(104, s.lineWidth);
}

/** Equivalent length in diameters, by the usual tables of minor losses: elbow 30, tee 60, plug valve 18, reducer 10. */
struct FittingRow {
  const char* name;
  double feet, diameter;
  int picture;
};
constexpr FittingRow kFittings[] = {{"Elbow 90", 10.1, 4.026, 1000},
                                    {"Tee branch", 20.1, 4.026, 1001},
                                    {"Plug valve", 6.0, 4.026, 1002},
                                    {"Reducer", 3.4, 4.026, 1003}};

std::vector<Record> fittingRows() {
  std::vector<Record> rows;
  for (const FittingRow& f : kFittings) {
    rows.push_back(Record(436)
                       .text(0, 40, f.name)
                       .f32(40, f.feet)
                       .f32(44, f.diameter)
                       .f32(48, 0.0018)
                       .f32(52, 100)
                       .text(56, 10, "Inches")
                       .text(66, 10, "Feet")
                       .i16(428, 1)
                       .i16(430, f.picture));
  }
  return rows;
}

/** Regulators by the universal sizing equation: c0 is the gas sizing coefficient, c1 the recovery coefficient. */
struct RegulatorRow {
  const char* name;
  double cg, c1, setPsi;
};
constexpr RegulatorRow kRegulators[] = {
    {"R-1 inch", 450, 33, 7}, {"R-2 inch", 1680, 31, 10}, {"R-4 inch", 6200, 30, 60}};

std::vector<Record> regulatorRows() {
  std::vector<Record> rows;
  for (const RegulatorRow& r : kRegulators) {
    rows.push_back(Record(430)
                       .text(0, 40, r.name)
                       .i16(40, 0)
                       .f32(116, r.cg)
                       .f32(120, r.c1)
                       .f32(136, r.setPsi)
                       .text(140, 10, "psi"));
  }
  return rows;
}

std::vector<Record> valveRows() {
  std::vector<Record> rows;
  for (const double inches : {2.0, 4.0, 6.0, 8.0}) {
    const std::string name = "Valve " + std::to_string(static_cast<int>(inches)) + " inch";
    rows.push_back(
        Record(344).text(0, 40, name).f32(42, inches).text(46, 10, "Inches").f32(56, 480 * inches).f32(60, 35));
  }
  return rows;
}

}  // namespace

const std::vector<NetSize>& nominalSizes() {
  // Steel: ASME B36.10 schedule 40 up to 6 inches, standard wall above. Polyethylene: ASTM D2513 iron pipe sizes,
  // SDR 11.
  static const std::vector<NetSize> sizes = {{"2\" STL", 0.154, 2.375, 2.067, 0.0018, 0x707070, 2},
                                             {"4\" STL", 0.237, 4.500, 4.026, 0.0018, 0x4060C0, 3},
                                             {"6\" STL", 0.280, 6.625, 6.065, 0.0018, 0x2838B0, 3},
                                             {"8\" STL", 0.322, 8.625, 7.981, 0.0018, 0x202898, 4},
                                             {"12\" STL", 0.375, 12.750, 12.000, 0.0018, 0x181880, 5},
                                             {"16\" STL", 0.375, 16.000, 15.250, 0.0018, 0x301870, 5},
                                             {"20\" STL", 0.375, 20.000, 19.250, 0.0018, 0x401860, 6},
                                             {"24\" STL", 0.375, 24.000, 23.250, 0.0018, 0x501850, 6},
                                             {"1\" PE", 0.120, 1.315, 1.075, 0.00006, 0xB0B060, 1},
                                             {"2\" PE", 0.216, 2.375, 1.943, 0.00006, 0x40A040, 2},
                                             {"3\" PE", 0.318, 3.500, 2.864, 0.00006, 0xA08020, 2},
                                             {"4\" PE", 0.409, 4.500, 3.682, 0.00006, 0xC07020, 3},
                                             {"6\" PE", 0.602, 6.625, 5.421, 0.00006, 0xB04040, 4},
                                             {"8\" PE", 0.784, 8.625, 7.057, 0.00006, 0x903060, 4}};
  return sizes;
}

void writeLibraries(const std::string& base, const std::vector<NetSize>& sizes) {
  std::vector<Record> pipes;
  for (const NetSize& s : sizes) pipes.push_back(pipeRow(s));
  writeFile(base + ".plut", 432, pipes);
  writeFile(base + ".flut", 436, fittingRows());
  writeFile(base + ".rlut", 430, regulatorRows());
  writeFile(base + ".vlut", 344, valveRows());
  writeFile(base + ".wlut", 324, {Record(324).text(0, 40, "Well A").f32(42, 1.2).f32(46, 0.8)});
  writeFile(base + ".clut", 388, {Record(388).text(0, 40, "Compressor 200")});
}

}  // namespace host
