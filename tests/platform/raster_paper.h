/** A raster with a painter, and its marks as rows of runs: `9: 10-12 15; 10: 11`. */
#ifndef PN10_TESTS_RASTER_PAPER_H
#define PN10_TESTS_RASTER_PAPER_H

#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/portable/painter.h"

namespace pn10::test {

using namespace pn10::portable;
using Pixels = std::set<std::pair<int, int>>; /* row, column */

/** The user dashes of the line styles in pen widths; 0 stands for the literal single pixel. */
inline const std::map<int, std::vector<int>>& userDashes() {
  static const std::map<int, std::vector<int>> dashes = {{7, {2, 2, 0, 2, 0, 2, 0, 2}},
                                                         {16, {4, 2}},
                                                         {17, {4, 2, 0, 2}},
                                                         {18, {4, 2, 0, 2, 0, 2}},
                                                         {19, {4, 2, 0, 2, 0, 2, 0, 2}},
                                                         {20, {4, 2, 0, 2, 2, 2, 0, 2}},
                                                         {22, {2, 2, 2, 2, 0, 2}}};
  return dashes;
}

/** White paper; pens and brushes paint black unless told. */
class Paper {
 public:
  static constexpr uint32_t kWhite = 0xFFFFFF;
  Paper(int width, int height)
      : width_(width), height_(height), pixels_(static_cast<size_t>(width) * static_cast<size_t>(height), kWhite) {
    painter.reset(newRasterPainter(raster()));
    brush.style = BS_HOLLOW;
    state.clip = {0, 0, width, height};
  }
  Raster raster() { return {pixels_.data(), width_, height_, width_}; }

  /** CreatePen(PS_SOLID, width). */
  Paper& plain(int width) { return pen = PenData{}, pen.width = width, *this; }
  /** ExtCreatePen(PS_GEOMETRIC | style | cap, width). */
  Paper& geometric(int width, DWORD style = PS_SOLID, DWORD cap = PS_ENDCAP_ROUND, std::vector<DWORD> lengths = {}) {
    pen = PenData{};
    pen.geometric = pen.fromExtCreatePen = true;
    pen.width = width;
    pen.style = style;
    pen.cap = cap;
    pen.count = static_cast<int32_t>(lengths.size());
    std::copy(lengths.begin(), lengths.end(), pen.lengths);
    return *this;
  }
  Paper& noPen() { return pen = PenData{}, pen.style = PS_NULL, *this; }
  Paper& fill(COLORREF color = 0) { return brush = BrushData{BS_SOLID, 0, color}, *this; }

  Paper& line(int x0, int y0, int x1, int y1) { return painter->line(state, {x0, y0}, {x1, y1}), *this; }
  Paper& polyline(const std::vector<POINT>& p) {
    return painter->polyline(state, p.data(), static_cast<int32_t>(p.size())), *this;
  }
  Paper& polygon(const std::vector<POINT>& p) {
    return painter->polygon(state, p.data(), static_cast<int32_t>(p.size())), *this;
  }
  Paper& ellipse(int left, int top, int right, int bottom) {
    return painter->ellipse(state, {left, top, right, bottom}), *this;
  }

  uint32_t at(int x, int y) const {
    return pixels_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
  }
  void set(int x, int y, uint32_t color) {
    pixels_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)] = color;
  }
  void clear(uint32_t color = kWhite) { std::fill(pixels_.begin(), pixels_.end(), color); }

  /** The pixels that are not white any more, or those of one colour. */
  Pixels marks() const {
    return collect([](uint32_t c) { return c != kWhite; });
  }
  Pixels marks(uint32_t color) const {
    return collect([color](uint32_t c) { return c == color; });
  }

 private:
  template <class Test>
  Pixels collect(Test test) const {
    Pixels set;
    for (int y = 0; y < height_; y++) {
      for (int x = 0; x < width_; x++) {
        if (test(at(x, y))) set.insert({y, x});
      }
    }
    return set;
  }
  int width_, height_;
  std::vector<uint32_t> pixels_;

 public:
  PenData pen;
  BrushData brush;
  PaintState state{&pen, &brush, R2_COPYPEN, OPAQUE, 0xFFFFFF, 0, ALTERNATE, COLORONCOLOR, {}};
  std::unique_ptr<Painter> painter;
};

/** Rows of runs as text. */
inline std::string rows(const Pixels& pixels) {
  std::ostringstream out;
  int row = INT32_MIN, column = 0;
  for (auto p = pixels.begin(); p != pixels.end();) {
    if (p->first != row) out << (row == INT32_MIN ? "" : "; ") << p->first << ":";
    row = p->first;
    const int first = column = p->second;
    for (++p; p != pixels.end() && p->first == row && p->second == column + 1; ++p) column++;
    out << " " << first;
    if (column > first) out << "-" << column;
  }
  return out.str();
}

/** The pixels of rows of runs, moved by (dx, dy). */
inline Pixels parseRows(const std::string& text, int dx = 0, int dy = 0) {
  Pixels pixels;
  std::istringstream in(text);
  for (std::string row; std::getline(in, row, ';');) {
    const size_t colon = row.find(':');
    if (colon == std::string::npos) continue;
    const int y = std::stoi(row.substr(0, colon));
    std::istringstream runs(row.substr(colon + 1));
    for (std::string run; runs >> run;) {
      const size_t dash = run.find('-', 1);
      const int first = std::stoi(run), last = dash == std::string::npos ? first : std::stoi(run.substr(dash + 1));
      for (int x = first; x <= last; x++) pixels.insert({y + dy, x + dx});
    }
  }
  return pixels;
}

/** The largest distance from a pixel of one set to the nearest of the other, both ways. */
inline double distance(const Pixels& a, const Pixels& b) {
  const auto oneWay = [](const Pixels& from, const Pixels& to) {
    double worst = 0;
    for (const auto& [y, x] : from) {
      if (to.count({y, x})) continue;
      double best = 1e9;
      for (int dy = -6; dy <= 6; dy++) {
        for (int dx = -6; dx <= 6; dx++) {
          if (to.count({y + dy, x + dx})) best = std::min(best, std::hypot(dx, dy));
        }
      }
      worst = std::max(worst, best);
    }
    return worst;
  };
  return std::max(oneWay(a, b), oneWay(b, a));
}

}  // namespace pn10::test

#endif
