// A grid over the straight pieces of all pipes: a piece lies in every cell that it passes.
#include <algorithm>
#include <cmath>

#include "import_source.h"

namespace host {

namespace {

Point nearestOn(const Point& a, const Point& b, const Point& p) {
  const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
  const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0;
  return {a.x + dx * t, a.y + dy * t};
}

/** Cells of a rectangle along a piece: those of each column that the piece passes, row by row. */
template <class Visit>
void cellsAlong(const Point& a, const Point& b, double cell, Visit visit) {
  const Point &left = a.x <= b.x ? a : b, &right = a.x <= b.x ? b : a;
  const auto first = static_cast<int>(left.x / cell), last = static_cast<int>(right.x / cell);
  for (int column = first; column <= last; column++) {
    const double width = right.x - left.x;
    const auto yAt = [&](double x) {
      return width > 0 ? left.y + (right.y - left.y) * std::clamp((x - left.x) / width, 0.0, 1.0) : left.y;
    };
    const double y1 = width > 0 ? yAt(column * cell) : left.y, y2 = width > 0 ? yAt((column + 1) * cell) : right.y;
    for (int row = static_cast<int>(std::min(y1, y2) / cell); row <= static_cast<int>(std::max(y1, y2) / cell); row++)
      visit(column, row);
  }
}

}  // namespace

PipeIndex::PipeIndex(const Network& net) {
  double x1 = -1e300, y1 = -1e300;
  x0_ = y0_ = 1e300;
  const auto placeOf = [&](int32_t n) {
    return Point{net.nodes[static_cast<size_t>(n)].x, net.nodes[static_cast<size_t>(n)].y};
  };
  for (size_t i = 0; i < net.links.size(); i++) {
    const NetLink& link = net.links[i];
    if (link.kind != LinkKind::Pipe) continue;
    Point last = placeOf(link.from);
    const auto step = [&](const Point& to) {
      pieces_.push_back({last, to, static_cast<int32_t>(i)});
      for (const Point& p : {last, to})
        x0_ = std::min(x0_, p.x), y0_ = std::min(y0_, p.y), x1 = std::max(x1, p.x), y1 = std::max(y1, p.y);
      last = to;
    };
    for (const Point& p : link.bends) step(p);
    step(placeOf(link.to));
  }
  if (pieces_.empty()) return;
  // About one piece a cell, whatever the shape of the network.
  const double wide = std::max(x1 - x0_, 1e-9), high = std::max(y1 - y0_, 1e-9),
               count = static_cast<double>(pieces_.size());
  cell_ = std::max({std::sqrt(wide * high / count), wide / 4096, high / 4096});
  columns_ = static_cast<int>(wide / cell_) + 1;
  rows_ = static_cast<int>(high / cell_) + 1;
  first_.assign(static_cast<size_t>(columns_) * static_cast<size_t>(rows_) + 1, 0);
  const auto each = [&](const Piece& piece, auto visit) {
    const Point a{piece.a.x - x0_, piece.a.y - y0_}, b{piece.b.x - x0_, piece.b.y - y0_};
    cellsAlong(a, b, cell_, [&](int column, int row) {
      column = std::clamp(column, 0, columns_ - 1), row = std::clamp(row, 0, rows_ - 1);
      visit(static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(column));
    });
  };
  for (const Piece& piece : pieces_) each(piece, [&](size_t cell) { first_[cell + 1]++; });
  for (size_t c = 1; c < first_.size(); c++) first_[c] += first_[c - 1];
  inCell_.resize(first_.back());
  std::vector<size_t> next(first_.begin(), first_.end() - 1);
  for (size_t i = 0; i < pieces_.size(); i++)
    each(pieces_[i], [&](size_t cell) { inCell_[next[cell]++] = static_cast<uint32_t>(i); });
}

void PipeIndex::lookInto(int column, int row, const Point& to, double* best, int32_t* link, Point* on) const {
  if (column < 0 || row < 0 || column >= columns_ || row >= rows_) return;
  const size_t cell = static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(column);
  for (size_t i = first_[cell]; i < first_[cell + 1]; i++) {
    const Piece& piece = pieces_[inCell_[i]];
    const Point p = nearestOn(piece.a, piece.b, to);
    const double distance = std::hypot(p.x - to.x, p.y - to.y);
    if (distance < *best || (distance == *best && piece.link < *link)) *best = distance, *link = piece.link, *on = p;
  }
}

int32_t PipeIndex::nearest(const Point& to, Point* on) const {
  if (pieces_.empty()) return -1;
  const int column =
      std::clamp(static_cast<int>(std::floor(std::clamp((to.x - x0_) / cell_, -1.0, columns_ + 0.0))), 0, columns_ - 1);
  const int row =
      std::clamp(static_cast<int>(std::floor(std::clamp((to.y - y0_) / cell_, -1.0, rows_ + 0.0))), 0, rows_ - 1);
  double best = 1e300;
  int32_t link = -1;
  for (int ring = 0; ring <= std::max(columns_, rows_); ring++) {
    // Cells of this ring are at least this far away, also from a place outside the grid.
    if (link >= 0 && best < (ring - 1) * cell_) break;
    for (int c = column - ring; c <= column + ring; c++) {
      const bool edge = c == column - ring || c == column + ring;
      for (int r = row - ring; r <= row + ring; r += edge || ring == 0 ? 1 : 2 * ring)
        lookInto(c, r, to, &best, &link, on);
    }
  }
  return link;
}

}  // namespace host
