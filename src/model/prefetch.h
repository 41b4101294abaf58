/**
 * Cache lines asked for ahead of a walk.
 *
 * A record spans several lines of which a pass reads two or three, and the end nodes of a pipe lie anywhere; without
 * this, waiting for memory is most of a picture. It changes no result. Always inline: a compiler takes a function of
 * prefetches alone for one without effect and drops its calls.
 */
#ifndef PN10_MODEL_PREFETCH_H
#define PN10_MODEL_PREFETCH_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "model/tables.h"

namespace pn10 {

/** How many records ahead: far enough for a line to arrive, near enough for it to stay. */
constexpr int32_t kPipesAhead = 32, kEndsAhead = 16, kNodesAhead = 64;

/** Asks ahead of a walk over the pipes. Its places are values of its own, which no write of the walk can change. */
class PipesAhead {
 public:
  /** For a walk that ends at record `top`, which exists. */
  explicit PipesAhead(int32_t top)
      : top_(top),
        pipes_(model.pdt),
        places_(reinterpret_cast<uintptr_t>(model.ndt) + offsetof(Ndt, X_COORD)),
        marks_(reinterpret_cast<uintptr_t>(model.nxy) + offsetof(NXY, Drawn)) {}

  /**
   * At pipe `p`, calls for the lines of a record further on and for the places of the end nodes of a nearer one. The
   * line of its shape is worth its way only while pipes are painted; far ones are rejected without. A mark is asked
   * for at the To node alone: it is mostly the From node of a pipe soon after, and to ask costs too.
   */
  [[gnu::always_inline]] void ask(int32_t p, bool shape) const {
    const Pdt& later = pipes_[std::min(p + kPipesAhead, top_)];
    __builtin_prefetch(&later.FROM_NODE);
    if (shape) __builtin_prefetch(&later.VTX_MODE);
    __builtin_prefetch(&later.REC_STATUS);
    const Pdt& soon = pipes_[std::min(p + kEndsAhead, top_)];
    const auto from = static_cast<uintptr_t>(soon.FROM_NODE), to = static_cast<uintptr_t>(soon.TO_NODE);
    __builtin_prefetch(reinterpret_cast<const void*>(places_ + from * sizeof(Ndt)));
    __builtin_prefetch(reinterpret_cast<const void*>(places_ + to * sizeof(Ndt)));
    __builtin_prefetch(reinterpret_cast<const void*>(marks_ + to * sizeof(NXY)), 1);
  }

 private:
  int32_t top_;
  const Pdt* pipes_;
  uintptr_t places_, marks_; /* of node 0; any number may be asked for, since nothing is read */
};

/** The lines that decide about a node: by its place, or by its size and flag, which may lie on two lines. */
[[gnu::always_inline]] inline void prefetchNodes(int32_t n, int32_t top, bool byPlace) {
  const Ndt& later = model.ndt[std::min(n + kNodesAhead, top)];
  if (byPlace) {
    __builtin_prefetch(&later.X_COORD);
    return;
  }
  __builtin_prefetch(&later.SYM_SIZE);
  __builtin_prefetch(&later.FLAG_TYPE);
}

}  // namespace pn10

#endif
