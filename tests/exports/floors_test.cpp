// Which file may include which: the table of docs/architecture.md, held against every include of src.
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "support/support.h"

namespace pn10::test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = PN10_SOURCE_DIR;

/** A row's name, "begin" or "begin*end", and its floor. */
struct Place {
  std::string begin, end;
  int floor;
  bool holds(const std::string& path) const { return path.starts_with(begin) && path.ends_with(end); }
};

std::vector<Place> readPlaces() {
  std::vector<Place> places;
  std::istringstream text(readFile(kRoot / "docs/architecture.md"));
  for (std::string line; std::getline(text, line);) {
    std::smatch row;
    if (!std::regex_match(line, row, std::regex("\\| (\\d) \\| ([^|]*) \\|.*"))) continue;
    const std::string names = row[2];
    const std::regex name("`([^`*]*)\\*?([^`]*)`");
    for (std::sregex_iterator at(names.begin(), names.end(), name), end; at != end; ++at) {
      places.push_back({(*at)[1], (*at)[2], std::stoi(row[1])});
    }
  }
  return places;
}

int floorOf(const std::vector<Place>& places, const std::string& path) {
  const Place* best = nullptr;
  for (const Place& place : places) {
    if (place.holds(path) && (!best || place.begin.size() > best->begin.size())) best = &place;
  }
  return best ? best->floor : -1;
}

/** What each file of src includes of src, by paths within src. */
std::map<std::string, std::set<std::string>> readIncludes() {
  std::map<std::string, std::set<std::string>> all;
  const std::regex include("#include \"([a-z_]+/[^\"]+)\"");
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    std::set<std::string>& own = all[fs::relative(entry.path(), kRoot / "src").generic_string()];
    const std::string text = readFile(entry.path());
    for (std::sregex_iterator at(text.begin(), text.end(), include), end; at != end; ++at) own.insert((*at)[1]);
  }
  return all;
}

TEST(Floors, no_file_includes_a_file_of_a_higher_floor) {
  const std::vector<Place> places = readPlaces();
  ASSERT_GT(places.size(), 10u);
  for (const auto& [path, included] : readIncludes()) {
    EXPECT_NE(floorOf(places, path), -1) << path << " has no floor";
    for (const std::string& other : included) {
      EXPECT_LE(floorOf(places, other), floorOf(places, path)) << path << " includes " << other;
    }
  }
}

TEST(Floors, no_two_headers_need_each_other) {
  std::map<std::string, std::set<std::string>> left = readIncludes();
  std::erase_if(left, [](const auto& file) { return !file.first.ends_with(".h"); });
  ASSERT_FALSE(left.empty());
  for (bool removed = true; removed;) { /* headers whose includes are all gone go too: only circles stay */
    removed = std::erase_if(left, [&](const auto& file) {
      for (const std::string& other : file.second) {
        if (left.contains(other)) return false;
      }
      return true;
    });
  }
  EXPECT_TRUE(left.empty()) << "in or before a circle: " << left.begin()->first;
}

}  // namespace
}  // namespace pn10::test
