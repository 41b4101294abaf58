// EPANET text networks: sections in brackets, words apart by blanks, comments behind a semicolon.
#include <algorithm>
#include <unordered_map>

#include "import_source.h"

namespace host {

namespace {

/** Flow units of [OPTIONS]; they also tell whether lengths are feet and diameters inches, or metres and millimetres. */
struct FlowUnit {
  const char* name;
  double factor; /* to cubic feet or cubic metres per hour */
  bool metric;
};
constexpr double kGallon = 231.0 / 1728, kImperialGallon = 0.160543653; /* cubic feet */
constexpr FlowUnit kFlowUnits[] = {{"cfs", 3600, false},
                                   {"gpm", 60 * kGallon, false},
                                   {"mgd", 1e6 * kGallon / 24, false},
                                   {"imgd", 1e6 * kImperialGallon / 24, false},
                                   {"afd", 43560.0 / 24, false},
                                   {"lps", 3.6, true},
                                   {"lpm", 0.06, true},
                                   {"mld", 1000.0 / 24, true},
                                   {"cmh", 1, true},
                                   {"cmd", 1.0 / 24, true}};

class InpReader {
 public:
  explicit InpReader(const std::string& path) {
    source_.paths.push_back(path);
    setUnits(source_, false);
    source_.flowFactor = 60 * kGallon;
  }

  Source read() {
    for (const std::string& line : readLines(source_.paths[0])) {
      line_++;
      if (!readLine(line)) break;
    }
    if (source_.nodes.empty())
      failAt({&source_.paths[0], 0}, "is no EPANET network: there is no node in [JUNCTIONS], [RESERVOIRS] or [TANKS]");
    for (const SourceNode& node : source_.nodes) {
      if (!node.placed) failAt(node.where, "node '" + node.id + "' has no place in [COORDINATES]");
    }
    return std::move(source_);
  }

 private:
  using Words = std::vector<std::string>;

  struct Section {
    const char* name;
    size_t words; /* a line has at least so many */
    void (InpReader::*read)(const Words& words);
  };
  static constexpr size_t kSections = 11;
  static const Section kTable[kSections];

  Where where() const { return {&source_.paths[0], line_}; }

  /** False behind the last section. */
  bool readLine(const std::string& line) {
    const std::string text = trimmed(line.substr(0, line.find(';')));
    if (text.empty()) return true;
    if (text[0] == '[') {
      if (text.find(']') == std::string::npos) failAt(where(), "a section name does not end: '" + text + "'");
      const std::string name = lowerCase(text.substr(1, text.find(']') - 1));
      inTitle_ = name == "title";
      section_ = nullptr;
      for (const Section& s : kTable) {
        if (name == s.name) section_ = &s;
      }
      return name != "end";
    }
    if (inTitle_ && source_.title.empty()) source_.title = text;
    if (!section_) return true;
    const Words words = split(text);
    if (words.size() < section_->words) {
      failAt(where(), std::string("[") + section_->name + "] wants " + std::to_string(section_->words) +
                          " values, here are " + std::to_string(words.size()));
    }
    (this->*section_->read)(words);
    return true;
  }

  static Words split(const std::string& text) {
    Words words;
    for (size_t at = 0; at < text.size();) {
      const size_t end = std::min(text.find_first_of(" \t", at), text.size());
      if (end > at) words.push_back(text.substr(at, end - at));
      at = end + 1;
    }
    return words;
  }

  double number(const Words& words, size_t i, const char* what) const { return numberAt(where(), words[i], what); }

  SourceNode& addNode(const Words& words, const char* kind, const char* height) {
    SourceNode node;
    node.id = node.name = words[0];
    node.kind = kind;
    node.z = words.size() > 1 ? number(words, 1, height) : 0;
    node.where = where();
    if (!nodes_.emplace(node.id, source_.nodes.size()).second) failAt(where(), "node '" + node.id + "' is there twice");
    source_.nodes.push_back(node);
    return source_.nodes.back();
  }
  void readJunction(const Words& w) {
    SourceNode& node = addNode(w, "junction", "elevation");
    if (w.size() > 2) node.demand = number(w, 2, "demand");
  }
  void readReservoir(const Words& w) { addNode(w, "reservoir", "head"); }
  void readTank(const Words& w) { addNode(w, "tank", "elevation"); }

  SourceLink& addLink(const Words& words, const char* kind) {
    SourceLink link;
    link.id = words[0];
    link.kind = kind;
    link.from = words[1];
    link.to = words[2];
    link.where = where();
    if (!links_.emplace(link.id, source_.links.size()).second) failAt(where(), "link '" + link.id + "' is there twice");
    source_.links.push_back(link);
    return source_.links.back();
  }
  void readPipe(const Words& w) {
    SourceLink& link = addLink(w, "pipe");
    link.length = number(w, 3, "length");
    link.diameter = number(w, 4, "diameter");
    if (w.size() > 7) link.status = w[7];
    // Without a loss coefficient the state stands in its place.
    if (w.size() == 7 && !(w[6][0] >= '0' && w[6][0] <= '9') && w[6][0] != '.') link.status = w[6];
  }
  void readPump(const Words& w) { addLink(w, "pump"); }
  void readValve(const Words& w) {
    SourceLink& link = addLink(w, "valve");
    link.diameter = number(w, 3, "diameter");
    // Pressure reducing, sustaining and breaking valves hold a pressure, as regulators do.
    const std::string type = lowerCase(w[4]);
    if (type == "prv" || type == "psv" || type == "pbv") {
      link.kind = "regulator";
      link.setting = number(w, 5, "setting");
    }
  }

  SourceNode& nodeOf(const std::string& id) {
    const auto it = nodes_.find(id);
    if (it == nodes_.end()) failAt(where(), "there is no node '" + id + "'");
    return source_.nodes[it->second];
  }
  SourceLink& linkOf(const std::string& id) {
    const auto it = links_.find(id);
    if (it == links_.end()) failAt(where(), "there is no link '" + id + "'");
    return source_.links[it->second];
  }
  /** The demands of a junction here add up; they stand in place of the one that its own line gives. */
  void readDemand(const Words& w) {
    SourceNode& node = nodeOf(w[0]);
    const double demand = number(w, 1, "demand");
    node.demand = demanded_.emplace(w[0], true).second ? demand : node.demand + demand;
  }
  void readStatus(const Words& w) {
    const std::string status = lowerCase(w[1]);
    if (status == "open" || status == "closed" || status == "active")
      linkOf(w[0]).status = status;
    else
      number(w, 1, "status"); /* a speed or a setting */
  }
  void readOption(const Words& w) {
    const std::string name = lowerCase(w[0]), value = w.size() > 1 ? lowerCase(w[1]) : "";
    if (name != "units") return;
    for (const FlowUnit& unit : kFlowUnits) {
      if (value != unit.name) continue;
      setUnits(source_, unit.metric);
      source_.flowFactor = unit.factor;
      return;
    }
    failAt(where(), "'" + value + "' are no flow units");
  }
  void readCoordinates(const Words& w) {
    SourceNode& node = nodeOf(w[0]);
    node.at = {number(w, 1, "x"), number(w, 2, "y")};
    node.placed = true;
  }
  void readVertex(const Words& w) { linkOf(w[0]).bends.push_back({number(w, 1, "x"), number(w, 2, "y")}); }

  Source source_;
  const Section* section_ = nullptr;
  bool inTitle_ = false;
  int line_ = 0;
  std::unordered_map<std::string, size_t> nodes_, links_;
  std::unordered_map<std::string, bool> demanded_;
};

const InpReader::Section InpReader::kTable[kSections] = {
    {"junctions", 1, &InpReader::readJunction}, {"reservoirs", 1, &InpReader::readReservoir},
    {"tanks", 1, &InpReader::readTank},         {"pipes", 5, &InpReader::readPipe},
    {"pumps", 3, &InpReader::readPump},         {"valves", 6, &InpReader::readValve},
    {"demands", 2, &InpReader::readDemand},     {"status", 2, &InpReader::readStatus},
    {"options", 1, &InpReader::readOption},     {"coordinates", 3, &InpReader::readCoordinates},
    {"vertices", 3, &InpReader::readVertex}};

}  // namespace

Source readInp(const std::string& path) { return InpReader(path).read(); }

}  // namespace host
