/**
 * Binding at load: a record finds its vertices through their owner, in a rolling range of the vertex table.
 *
 * Vertices of one owner lie together and in the order of their owners, so the range usually begins at the right
 * place. An owner that is not in the range is looked for in the rest of the table, and the range goes on from
 * there. Which vertices are found depends on the range that earlier records left, so the range is part of the
 * result; the index below only finds the same first match sooner.
 */
#ifndef PN10_MODEL_BIND_VERTICES_H
#define PN10_MODEL_BIND_VERTICES_H

#include <cstdint>

#include "model/staging.h"
#include "platform/memory.h"

namespace pn10 {

/** Vertex kinds as a set, one bit per kind. */
using VtxKinds = uint32_t;
constexpr VtxKinds kRunKinds = 1u << 0 | 1u << 2;                         /* run of a pipe */
constexpr VtxKinds kSingleKinds = kRunKinds | 1u << 8;                    /* single vertex of a pipe */
constexpr VtxKinds kServiceKinds = 1u << 1 | 1u << 3 | 1u << 5 | 1u << 7; /* service line of a customer */

constexpr bool isKind(int16_t kind, VtxKinds kinds) { return kind >= 0 && kind < 32 && (kinds >> kind & 1) != 0; }

/**
 * Vertices by owner, for one load, made once its far searches come to more than a walk over the table: in a file in
 * order there is only one, for the first service line behind all pipes. Owners do not change during a load; kinds do,
 * and are looked at in the table. Without memory searches stay plain scans.
 */
class VtxIndex {
 public:
  explicit VtxIndex(VtxKinds kinds) : kinds_(kinds) {}
  /** Whether to ask it rather than look at `records` one by one; false also when there is no index. */
  bool pays(int32_t records);
  /** First record of `owner` from `from` to `to` with one of `kinds`, 0 when there is none. */
  int32_t find(int32_t owner, VtxKinds kinds, int32_t from, int32_t to) const;

 private:
  bool make();

  VtxKinds kinds_;
  int64_t far_ = 0; /* records that the far searches so far had before them */
  bool tried_ = false, made_ = false;
  Buffer<uint64_t> owned_; /* owner in the upper half, record number in the lower, ascending */
};

/** The whole vertex table as the range of a load that begins. */
BindRange wholeRange(VtxIndex* index);

/** Finds the run of `owner` and moves the range on; false when there is none. */
bool findRun(int32_t owner, VtxKinds kinds, BindRange* range, int32_t* first, int32_t* last);

/** Sets the run of a pipe with VTX_MODE 4 in its screen record; VTX_MODE becomes 0 when there is none. */
void BindPipeRun(int32_t pipe, BindRange* range);

/**
 * Sets the one vertex of a pipe with VTX_MODE 1 or 2 as the last vertex of its screen record and turns its kind
 * to 8, unless it lies at 0, 0; VTX_MODE becomes 0 when there is none.
 */
void BindPipeVertex(int32_t pipe, BindRange* range);

/** Sets the run of a service line; VTX_MODE becomes 0 when there is none. */
void BindCustRun(int32_t cust, BindRange* range);

}  // namespace pn10

#endif
