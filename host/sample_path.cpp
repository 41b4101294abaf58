// The path of a link on the map: straight, along its bends, or on its arc.
#include <cmath>

#include "sample_town.h"

namespace host {

namespace {

double distance(const Point& a, const Point& b) { return std::hypot(b.x - a.x, b.y - a.y); }

Point placeOf(const NetNode& node) { return {node.x, node.y}; }

}  // namespace

LinkPath::LinkPath(const Network& net, const NetLink& link) {
  const Point from = placeOf(net.nodes[static_cast<size_t>(link.from)]),
              to = placeOf(net.nodes[static_cast<size_t>(link.to)]);
  if (link.arcRadius > 0) {
    // Turn 1 has its centre to the right of the way and runs clockwise, any other turn to the left.
    const double side = link.arcTurn == 1 ? -1 : 1;
    const double towards = std::atan2(to.y - from.y, to.x - from.x) + side * (std::acos(-1.0) - link.arcAngle) / 2;
    radius_ = link.arcRadius;
    centre_ = {from.x + radius_ * std::cos(towards), from.y + radius_ * std::sin(towards)};
    start_ = std::atan2(from.y - centre_.y, from.x - centre_.x);
    sweep_ = side * link.arcAngle;
    length_ = radius_ * link.arcAngle;
    return;
  }
  points_ = {from};
  points_.insert(points_.end(), link.bends.begin(), link.bends.end());
  points_.push_back(to);
  for (size_t i = 1; i < points_.size(); i++) length_ += distance(points_[i - 1], points_[i]);
}

Point LinkPath::at(double along, Point* direction) const {
  if (radius_ > 0) {
    const double angle = start_ + sweep_ * along / length_, sense = sweep_ < 0 ? 1 : -1;
    *direction = {sense * std::sin(angle), -sense * std::cos(angle)};
    return {centre_.x + radius_ * std::cos(angle), centre_.y + radius_ * std::sin(angle)};
  }
  size_t i = 1;
  double piece = distance(points_[0], points_[1]);
  while (along > piece && i + 1 < points_.size()) {
    along -= piece;
    i++;
    piece = distance(points_[i - 1], points_[i]);
  }
  const Point &a = points_[i - 1], &b = points_[i];
  const double scale = piece > 0 ? 1 / piece : 0;
  *direction = {(b.x - a.x) * scale, (b.y - a.y) * scale};
  return {a.x + direction->x * along, a.y + direction->y * along};
}

}  // namespace host
