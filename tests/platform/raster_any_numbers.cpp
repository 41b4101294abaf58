/** Marks of any coordinates, pens and operations: they end, and touch nothing outside the clip. */
#include <gtest/gtest.h>

#include <random>

#include "platform/raster_paper.h"

namespace pn10::test {
namespace {

class AnyNumbers : public testing::Test {
 protected:
  int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
  bool coin() { return below(2) == 1; }
  int32_t coordinate() {
    switch (below(6)) {
      case 0:
        return INT32_MIN + below(3);
      case 1:
        return INT32_MAX - below(3);
      case 2:
        return static_cast<int32_t>(random());
      case 3:
        return below(20000) - 10000;
      default:
        return below(140) - 40;
    }
  }
  double place() { return coordinate(); }
  RECT box() {
    const auto [left, right] = std::minmax({coordinate(), coordinate()});
    const auto [top, bottom] = std::minmax({coordinate(), coordinate()});
    return {left, top, right, bottom};
  }
  void choosePenAndBrush(Paper& p) {
    constexpr int kWidths[] = {0, 1, 2, 3, 5, 20, 300, 70000, INT32_MAX};
    p.pen = PenData{};
    p.pen.style = static_cast<DWORD>(below(8));
    p.pen.cap = static_cast<DWORD>(below(3)) * PS_ENDCAP_SQUARE;
    p.pen.geometric = coin();
    p.pen.fromExtCreatePen = coin();
    p.pen.width = kWidths[below(9)];
    p.pen.count = below(17);
    for (DWORD& length : p.pen.lengths) length = coin() ? static_cast<DWORD>(below(30)) : static_cast<DWORD>(random());
    p.pen.color = static_cast<COLORREF>(random());
    p.brush = {static_cast<UINT>(below(3)), below(9), static_cast<COLORREF>(random())};
    p.state.rop2 = below(18);
    p.state.bkMode = 1 + below(2);
    p.state.fillMode = 1 + below(2);
    p.state.stretchMode = below(5);
  }
  Path path() {
    Path path;
    for (int f = below(3); f >= 0; f--) {
      PathFigure figure{place(), place(), {}, coin()};
      for (int n = below(4); n; n--)
        figure.pieces.push_back({coin(), place(), place(), place(), place(), place(), place()});
      path.push_back(figure);
    }
    return path;
  }
  void paintSomething(Paper& p) {
    std::vector<POINT> points(static_cast<size_t>(below(9)));
    for (POINT& point : points) point = {coordinate(), coordinate()};
    const Raster source = coin() ? p.raster() : Raster{small, 6, 4, 6};
    switch (below(7)) {
      case 0:
        return void(p.line(coordinate(), coordinate(), coordinate(), coordinate()));
      case 1:
        return void(p.polyline(points));
      case 2:
        return void(p.polygon(points));
      case 3:
        return p.painter->ellipse(p.state, box());
      case 4:
        return p.painter->pie(p.state, {box(), {coordinate(), coordinate()}, {coordinate(), coordinate()}, coin()});
      case 5:
        return p.painter->path(p.state, path(), coin(), coin());
      default:
        return p.painter->blit(p.state, {source, coordinate(), coordinate(), coordinate(), coordinate(), coordinate(),
                                         coordinate(), coordinate(), coordinate(), static_cast<DWORD>(random())});
    }
  }

  std::mt19937 random{7};
  uint32_t small[24] = {};
};

TEST_F(AnyNumbers, end_and_leave_everything_outside_the_clip) {
  Paper paper(64, 48);
  for (int i = 0; i < 4000; i++) {
    paper.clear(0x123456);
    const int left = below(50), top = below(40), right = left + below(30), bottom = top + below(30);
    paper.state.clip = {left, top, right, bottom};
    choosePenAndBrush(paper);
    paintSomething(paper);
    for (int y = 0; y < 48; y++) {
      for (int x = 0; x < 64; x++) {
        if (x >= left && x < right && y >= top && y < bottom) continue;
        ASSERT_EQ(paper.at(x, y), 0x123456u) << "mark " << i << " at " << x << "," << y;
      }
    }
  }
}

}  // namespace
}  // namespace pn10::test
