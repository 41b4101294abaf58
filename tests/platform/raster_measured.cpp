/** The raster painter against the measured tables of pens, dashes and shapes; each test skips without them. */
#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "platform/measured.h"
#include "platform/raster_paper.h"
#include "support/support.h"

namespace pn10::test {
namespace {

struct Box {
  int left = 0, right = -1, top = 0, bottom = -1;
  bool operator==(const Box&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Box& b) {
  return out << "x " << b.left << ".." << b.right << " y " << b.top << ".." << b.bottom;
}

Box boxOf(const Pixels& pixels) {
  if (pixels.empty()) return {};
  Box box{INT32_MAX, INT32_MIN, INT32_MAX, INT32_MIN};
  for (const auto& [y, x] : pixels) {
    box = {std::min(box.left, x), std::max(box.right, x), std::min(box.top, y), std::max(box.bottom, y)};
  }
  return box;
}

/** "x 20..39 y 20..20" or "none". */
Box parseBox(const std::string& text) {
  Box box;
  std::sscanf(text.c_str(), " x %d..%d y %d..%d", &box.left, &box.right, &box.top, &box.bottom);
  return box;
}

void choosePen(Paper& paper, const std::string& name, int width) {
  if (name == "CreatePen") {
    paper.plain(width);
  } else {
    const DWORD cap = name.find("FLAT") != name.npos     ? PS_ENDCAP_FLAT
                      : name.find("SQUARE") != name.npos ? PS_ENDCAP_SQUARE
                                                         : PS_ENDCAP_ROUND;
    paper.geometric(width, PS_SOLID, cap);
  }
}

/** Rows "w=2 Ext GEOM FLAT: H box | V box | D box | Z box": level, upright, diagonal and no length at all. */
TEST(MeasuredPens, of_each_width_and_cap_reach_as_far) {
  MEASURED_OR_SKIP("f02_pens.txt");
  int seen = 0;
  for (const std::string& line : lines) {
    int width, used = 0;
    const size_t colon = line.find(": H ");
    if (std::sscanf(line.c_str(), "w=%d %n", &width, &used) != 1 || colon == std::string::npos) continue;
    const std::string pen = line.substr(static_cast<size_t>(used), colon - static_cast<size_t>(used));
    const struct {
      const char* mark;
      int x, y;
    } ways[] = {{" H ", 40, 20}, {"| V ", 20, 40}, {"| D ", 40, 40}, {"| Z ", 20, 20}};
    for (const auto& way : ways) {
      Paper paper(64, 64);
      choosePen(paper, pen, width);
      const Box box = boxOf(paper.line(20, 20, way.x, way.y).marks());
      const Box expected = parseBox(line.substr(line.find(way.mark) + std::strlen(way.mark)));
      if (way.mark[2] != 'D' || width < 2) {
        EXPECT_EQ(box, expected) << line << way.mark;
      } else { /* slopes stray: by a pixel, and square caps by two */
        const int slack = pen.find("SQUARE") == pen.npos ? 1 : 2;
        EXPECT_LE(std::abs(box.left - expected.left), slack) << line;
        EXPECT_LE(std::abs(box.right - expected.right), slack) << line;
        EXPECT_LE(std::abs(box.top - expected.top), slack) << line;
        EXPECT_LE(std::abs(box.bottom - expected.bottom), slack) << line;
      }
    }
    seen++;
  }
  EXPECT_EQ(seen, 44);
}

/** "x0=20 on3 off1 ..." of a row: its first column, then the lengths in turn. */
std::string runsOf(const Pixels& pixels, int row) {
  std::ostringstream out;
  int last = INT32_MIN, begin = 0;
  for (const auto& [y, x] : pixels) {
    if (y != row) continue;
    if (last == INT32_MIN) {
      out << "x0=" << (begin = x);
    } else if (x != last + 1) {
      out << " on" << last + 1 - begin << " off" << x - last - 1;
      begin = x;
    }
    last = x;
  }
  if (last != INT32_MIN) out << " on" << last + 1 - begin;
  return out.str();
}

/** Long rows of the tables are cut off in the middle; they have to be how ours begins. */
void expectRuns(const Pixels& pixels, const std::string& line, int used) {
  constexpr size_t kCut = 146;
  const std::string ours = runsOf(pixels, 12), expected = line.substr(static_cast<size_t>(used));
  EXPECT_EQ(expected.size() < kCut ? ours : ours.substr(0, expected.size()), expected) << line.substr(0, 20);
}

const std::map<std::string, DWORD> kStyles = {
    {"DASH", PS_DASH}, {"DOT", PS_DOT}, {"DASHDOT", PS_DASHDOT}, {"DASHDOTDOT", PS_DASHDOTDOT}};

TEST(MeasuredDashes, of_the_predefined_styles_have_each_length) {
  MEASURED_OR_SKIP("f03_dashes.txt");
  int seen = 0;
  for (const std::string& line : lines) {
    char style[32], cap[16];
    int width, used = 0;
    if (std::sscanf(line.c_str(), "%31s w=%d %15[A-Z]: %n", style, &width, cap, &used) != 3 || !used) continue;
    if (!kStyles.count(style)) continue;
    const bool round = std::strcmp(cap, "ROUND") == 0;
    if (round && width > 1 && std::strcmp(style, "DOT") == 0) continue; /* measured as one dot and nothing more */
    Paper paper(400, 30);
    paper.geometric(width, kStyles.at(style), round ? PS_ENDCAP_ROUND : PS_ENDCAP_FLAT).line(20, 12, 320, 12);
    expectRuns(paper.marks(), line, used);
    seen++;
  }
  EXPECT_EQ(seen, 57);
}

TEST(MeasuredDashes, of_the_user_styles_have_each_length) {
  MEASURED_OR_SKIP("f03_dashes.txt");
  int seen = 0;
  for (const std::string& line : lines) {
    char cap[16];
    int style, width, used = 0;
    if (std::sscanf(line.c_str(), "style %d w=%d %15[A-Z] : %n", &style, &width, cap, &used) != 3 || !used) continue;
    std::vector<DWORD> lengths; /* in widths; 0 stands for the single pixel */
    for (const int n : userDashes().at(style)) lengths.push_back(n ? static_cast<DWORD>(n * width) : 1);
    Paper paper(400, 30);
    paper.geometric(width, PS_USERSTYLE, std::strcmp(cap, "ROUND") ? PS_ENDCAP_FLAT : PS_ENDCAP_ROUND, lengths);
    expectRuns(paper.line(20, 12, 340, 12).marks(), line, used);
    seen++;
  }
  EXPECT_EQ(seen, 84);
}

/** A picture of the tables: what the pen set, and the brush. */
struct Picture {
  std::string name;
  Pixels pen, brush;
};
std::vector<Picture> pictures(const std::vector<std::string>& lines) {
  std::vector<Picture> all;
  for (const std::string& line : lines) {
    int y, used = 0;
    char first = 0;
    if (line.rfind("-- ", 0) == 0) all.push_back({line.substr(3, line.rfind(": bbox") - 3), {}, {}});
    if (all.empty() || std::sscanf(line.c_str(), " %d: %n%c", &y, &used, &first) != 2) continue;
    if (!std::strchr(".#o", first)) continue;
    for (int x = 0; line[static_cast<size_t>(used + x)]; x++) {
      const char c = line[static_cast<size_t>(used + x)];
      if (c == '#') all.back().pen.insert({y, x});
      if (c == 'o') all.back().brush.insert({y, x});
    }
  }
  return all;
}

constexpr COLORREF kRed = 0x0000FF;
constexpr uint32_t kRedPixel = 0xFF0000;

/** Chooses the pen that a picture's name ends in; false when it is no such name. */
bool penOf(const std::string& name, Paper& paper, bool* thin) {
  const size_t comma = name.rfind(", ");
  const std::string pen = comma == std::string::npos ? "" : name.substr(comma + 2);
  *thin = pen != "geometric w3";
  if (pen == "NULL_PEN") return paper.noPen(), true;
  if (pen == "CreatePen w1") return paper.plain(1), true;
  if (pen == "geometric w1") return paper.geometric(1), true;
  if (pen == "geometric w3") return paper.geometric(3), true;
  return false;
}

TEST(MeasuredShapes, polygons_have_their_outline_and_fill) {
  MEASURED_OR_SKIP("f04_shapes.txt");
  const std::vector<POINT> star{{12, 2}, {18, 20}, {3, 9}, {21, 9}, {6, 20}};
  const std::map<std::string, std::vector<POINT>> shapes = {{"rectangle", {{3, 3}, {13, 3}, {13, 9}, {3, 9}}},
                                                            {"triangle", {{3, 3}, {15, 6}, {6, 12}}},
                                                            {"diamond", {{8, 2}, {14, 8}, {8, 14}, {2, 8}}},
                                                            {"bow tie", {{3, 3}, {15, 11}, {15, 3}, {3, 11}}},
                                                            {"pentagram", star},
                                                            {"two points", {{3, 3}, {12, 6}}},
                                                            {"degenerate", {{3, 3}, {11, 3}, {7, 3}}}};
  int seen = 0;
  for (const Picture& picture : pictures(lines)) {
    for (const auto& [name, points] : shapes) {
      Paper paper(40, 40);
      bool thin;
      if (picture.name.rfind(name, 0) != 0 || !penOf(picture.name, paper, &thin)) continue;
      paper.state.fillMode = picture.name.find("WINDING") == std::string::npos ? ALTERNATE : WINDING;
      paper.fill(kRed).polygon(points);
      if (thin) {
        EXPECT_EQ(rows(paper.marks(0)), rows(picture.pen)) << picture.name;
        EXPECT_EQ(rows(paper.marks(kRedPixel)), rows(picture.brush)) << picture.name;
      } else {
        EXPECT_LE(distance(paper.marks(0), picture.pen), 1.5) << picture.name;
      }
      seen++;
    }
  }
  EXPECT_EQ(seen, 32);
}

TEST(MeasuredShapes, ellipses_have_their_outline_and_fill) {
  MEASURED_OR_SKIP("f04_shapes.txt");
  int seen = 0;
  for (const Picture& picture : pictures(lines)) {
    int l, t, r, b;
    bool thin;
    Paper paper(40, 40);
    if (std::sscanf(picture.name.c_str(), "Ellipse(%d,%d,%d,%d)", &l, &t, &r, &b) != 4) continue;
    if (!penOf(picture.name, paper, &thin)) continue;
    paper.fill(kRed).ellipse(std::min(l, r), std::min(t, b), std::max(l, r), std::max(t, b));
    EXPECT_EQ(boxOf(paper.marks()), boxOf([&] {
                Pixels both = picture.pen;
                both.insert(picture.brush.begin(), picture.brush.end());
                return both;
              }()))
        << picture.name;
    EXPECT_LE(distance(paper.marks(0), picture.pen), thin ? 0 : 1.5) << picture.name;
    if (thin) {
      EXPECT_EQ(rows(paper.marks(kRedPixel)), rows(picture.brush)) << picture.name;
    }
    seen++;
  }
  EXPECT_EQ(seen, 16);
}

TEST(MeasuredShapes, pies_lie_within_two_pixels) {
  MEASURED_OR_SKIP("f04_shapes.txt");
  int seen = 0;
  for (const Picture& picture : pictures(lines)) {
    const std::string& name = picture.name;
    RECT box{2, 2, 22, 22};
    POINT from{22, 12}, to{12, 2};
    bool thin;
    Paper paper(40, 40);
    if (!penOf(name, paper, &thin)) continue;
    if (name.rfind("half disc", 0) == 0) {
      to = {2, 12};
    } else if (name.rfind("equal radials", 0) == 0) {
      to = from;
    } else if (name.rfind("radials far outside", 0) == 0) {
      from = {120, 12}, to = {12, -200};
    } else if (const size_t at = name.find("Pie("); at != name.npos) {
      std::sscanf(name.c_str() + at, "Pie(%d,%d,%d,%d, %d,%d, %d,%d)", &box.left, &box.top, &box.right, &box.bottom,
                  &from.x, &from.y, &to.x, &to.y);
      box = {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
             std::max(box.top, box.bottom)};
    } else {
      continue;
    }
    paper.fill(kRed).painter->pie(paper.state, {box, from, to, name.find("CLOCKWISE") != name.npos});
    EXPECT_LE(distance(paper.marks(0), picture.pen), 2) << name;
    if (thin) { /* a wide pen leaves so little inside that the measured bend of the radials is most of it */
      EXPECT_LE(distance(paper.marks(kRedPixel), picture.brush), 2) << name;
    }
    seen++;
  }
  EXPECT_EQ(seen, 32);
}

}  // namespace
}  // namespace pn10::test
