/**
 * Cache lines asked for ahead of a walk.
 *
 * A record spans several lines of which a pass reads two or three, and the end nodes of a pipe lie anywhere; without
 * this, waiting for memory is most of a picture. It changes no result. Always inline: a compiler takes a function of
 * prefetches alone for one without effect and drops its calls.
 */
#ifndef PN10_MODEL_PREFETCH_H
#define PN10_MODEL_PREFETCH_H

#include "model/tables.h"

namespace pn10 {

/** How many records ahead: far enough for a line to arrive, near enough for it to stay. */
constexpr int32_t kPipesAhead = 32, kEndsAhead = 16, kNodesAhead = 32;

/**
 * Calls for pipe `p` of a walk up to `top`: its record's lines, and the places of the end nodes of a nearer pipe. The
 * line of its shape is worth its way only while pipes are painted; far ones are rejected without.
 */
[[gnu::always_inline]] inline void prefetchPipes(int32_t p, int32_t top, bool shape) {
  if (top - p < kPipesAhead) return;
  const Pdt& later = model.pdt[p + kPipesAhead];
  __builtin_prefetch(&later.FROM_NODE);
  if (shape) __builtin_prefetch(&later.VTX_MODE);
  __builtin_prefetch(&later.REC_STATUS);
  const Pdt& soon = model.pdt[p + kEndsAhead];
  const auto from = static_cast<uint32_t>(soon.FROM_NODE), to = static_cast<uint32_t>(soon.TO_NODE);
  const auto slots = static_cast<uint32_t>(model.ndtSlots);
  if (from < slots) __builtin_prefetch(&model.ndt[from].X_COORD);
  if (to < slots) __builtin_prefetch(&model.ndt[to].X_COORD);
}

/** The lines that decide about a node: by its place, or by its size and flag, which may lie on two lines. */
[[gnu::always_inline]] inline void prefetchNodes(int32_t n, int32_t top, bool byPlace) {
  if (top - n < kNodesAhead) return;
  const Ndt& later = model.ndt[n + kNodesAhead];
  if (byPlace) {
    __builtin_prefetch(&later.X_COORD);
    return;
  }
  __builtin_prefetch(&later.SYM_SIZE);
  __builtin_prefetch(&later.FLAG_TYPE);
}

}  // namespace pn10

#endif
