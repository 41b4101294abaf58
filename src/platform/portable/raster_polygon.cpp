/**
 * Polygon fill by scan lines.
 *
 * A pixel is decided at its integer coordinates; left and top edges are in, right and bottom edges are out. Edges
 * step with whole numbers and a remainder, so every crossing is exact however long the edge is.
 */
#include "platform/memory.h"
#include "platform/portable/raster.h"

namespace pn10::portable {

namespace {

constexpr size_t kSmall = 64; /* figures up to here need no memory of their own */

/** A side of the polygon from its first visible row on. The crossing is column + rest / height. */
struct Edge {
  int64_t top, bottom; /* rows top ... bottom - 1 */
  int64_t column, rest, step, stepRest, height;
  int32_t direction;

  int64_t firstInside() const { return column + (rest > 0); }
  void advance() {
    column += step;
    rest += stepRest;
    if (rest >= height) column++, rest -= height;
  }
};

/** Makes the edge of a side; false when no row of it is visible. */
bool makeEdge(Edge& edge, POINT a, POINT b, const RECT& clip) {
  if (a.y == b.y) return false;
  edge.direction = a.y < b.y ? 1 : -1;
  if (a.y > b.y) std::swap(a, b);
  if (b.y <= clip.top || a.y >= clip.bottom) return false;
  edge.height = int64_t{b.y} - a.y;
  edge.top = std::max(a.y, clip.top);
  edge.bottom = std::min(b.y, clip.bottom);
  const int64_t dx = int64_t{b.x} - a.x, skipped = edge.top - a.y;
  edge.step = dx / edge.height - (dx % edge.height < 0);
  edge.stepRest = dx - edge.step * edge.height;
  const uint64_t rest = static_cast<uint64_t>(edge.stepRest) * static_cast<uint64_t>(skipped); /* below 2^64 */
  edge.column = a.x + edge.step * skipped + static_cast<int64_t>(rest / static_cast<uint64_t>(edge.height));
  edge.rest = static_cast<int64_t>(rest % static_cast<uint64_t>(edge.height));
  return true;
}

bool before(const Edge* a, const Edge* b) { return a->firstInside() < b->firstInside(); }

/** Edges are nearly in order from row to row; where they are not, a general sort keeps a tangle from costing squares.
 */
void sortByColumn(Edge** active, size_t count) {
  size_t moves = 0;
  for (size_t i = 1; i < count; i++) {
    Edge* const edge = active[i];
    size_t j = i;
    for (; j && before(edge, active[j - 1]); j--, moves++) active[j] = active[j - 1];
    active[j] = edge;
    if (moves > 8 * count) return std::sort(active, active + count, before);
  }
}

void fillRow(const Canvas& canvas, const Fill& fill, int mode, int64_t y, Edge** active, size_t count) {
  int32_t winding = 0;
  for (size_t i = 0; i + 1 < count; i++) {
    winding += mode == WINDING ? active[i]->direction : (winding ? -1 : 1);
    const int64_t left = active[i]->firstInside(), right = active[i + 1]->firstInside();
    if (winding && left < right) fillSpan(canvas, fill, y, left, right);
  }
}

void fillEdges(const Canvas& canvas, const Fill& fill, int mode, Edge* edges, size_t count, Edge** active) {
  std::sort(edges, edges + count, [](const Edge& a, const Edge& b) { return a.top < b.top; });
  size_t next = 0, alive = 0;
  for (int64_t y = canvas.clip.top; y < canvas.clip.bottom; y++) {
    if (!alive) {
      if (next == count) return;
      y = edges[next].top;
    }
    while (next < count && edges[next].top == y) active[alive++] = &edges[next++];
    sortByColumn(active, alive);
    fillRow(canvas, fill, mode, y, active, alive);
    size_t kept = 0;
    for (size_t i = 0; i < alive; i++) {
      if (active[i]->bottom == y + 1) continue;
      active[i]->advance();
      active[kept++] = active[i];
    }
    alive = kept;
  }
}

}  // namespace

void fillPolygons(const Canvas& canvas, const Fill& fill, int mode, const POINT* points, const size_t* figureEnds,
                  size_t figures) {
  if (!fill.visible || !figures || canvas.empty()) return;
  const size_t sides = figureEnds[figures - 1];
  Edge smallEdges[kSmall];
  Edge* smallActive[kSmall];
  Buffer<Edge> manyEdges;
  Buffer<Edge*> manyActive;
  const bool small = sides <= kSmall;
  if (!small && (!manyEdges.resize(sides) || !manyActive.resize(sides))) return;
  Edge* const edges = small ? smallEdges : manyEdges.data();
  size_t count = 0, first = 0;
  for (size_t f = 0; f < figures; first = figureEnds[f++]) {
    for (size_t i = first; i < figureEnds[f]; i++) {
      const size_t next = i + 1 == figureEnds[f] ? first : i + 1;
      if (makeEdge(edges[count], points[i], points[next], canvas.clip)) count++;
    }
  }
  fillEdges(canvas, fill, mode, edges, count, small ? smallActive : manyActive.data());
}

}  // namespace pn10::portable
