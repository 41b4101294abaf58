/** The grid index against a look at every pipe. */
#include <cmath>
#include <random>

#include "host/run.h"
#include "import_source.h"

namespace {

using host::NetLink;
using host::Network;
using host::Point;

double distance(const Point& a, const Point& b, const Point& p) {
  const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
  const double t = square > 0 ? std::fmin(1, std::fmax(0, ((p.x - a.x) * dx + (p.y - a.y) * dy) / square)) : 0;
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

Network network(std::mt19937& random, int links, double wide, double high) {
  const auto at = [&](double size) { return size * static_cast<double>(random() % 1000) / 1000; };
  Network net;
  for (int i = 0; i < links; i++) {
    for (int end = 0; end < 2; end++) {
      host::NetNode node;
      node.x = at(wide), node.y = at(high);
      net.nodes.push_back(node);
    }
    NetLink link;
    link.from = 2 * i, link.to = 2 * i + 1;
    if (i % 3 == 0) link.bends = {{at(wide), at(high)}, {at(wide), at(high)}};
    net.links.push_back(link);
  }
  return net;
}

double nearestByAll(const Network& net, const Point& p) {
  double best = 1e300;
  for (const NetLink& link : net.links) {
    const auto place = [&](int32_t n) {
      return Point{net.nodes[static_cast<size_t>(n)].x, net.nodes[static_cast<size_t>(n)].y};
    };
    Point last = place(link.from);
    for (const Point& bend : link.bends) best = std::fmin(best, distance(last, bend, p)), last = bend;
    best = std::fmin(best, distance(last, place(link.to), p));
  }
  return best;
}

TEST(PipeIndex, finds_what_a_look_at_every_pipe_finds) {
  std::mt19937 random(7);
  const struct {
    int links;
    double wide, high;
  } shapes[] = {{1, 100, 100}, {2, 1000, 0}, {40, 0, 500}, {60, 1000, 1000}, {200, 1e6, 10}, {5, 0, 0}};
  for (const auto& shape : shapes) {
    const Network net = network(random, shape.links, shape.wide, shape.high);
    const host::PipeIndex index(net);
    for (int i = 0; i < 200; i++) {
      // Inside, and around at half the size.
      const auto at = [&](double size) { return (size + 1) * (static_cast<double>(random() % 2000) / 1000 - 0.5); };
      const Point p{at(shape.wide), at(shape.high)};
      Point on;
      ASSERT_GE(index.nearest(p, &on), 0);
      EXPECT_NEAR(std::hypot(on.x - p.x, on.y - p.y), nearestByAll(net, p), 1e-6) << shape.links << " " << i;
    }
  }
}

TEST(PipeIndex, has_nothing_to_find_without_pipes_and_takes_no_device) {
  Network net;
  Point on;
  EXPECT_EQ(host::PipeIndex(net).nearest({1, 1}, &on), -1);
  std::mt19937 random(1);
  net = network(random, 1, 10, 10);
  net.links[0].kind = host::LinkKind::Valve;
  EXPECT_EQ(host::PipeIndex(net).nearest({1, 1}, &on), -1);
}

}  // namespace
