/** Rolling search of the vertices of a record, with an index for vertices that lie out of order. */
#include "model/bind_vertices.h"

#include <algorithm>

#include "model/tables.h"

namespace pn10 {

namespace {

/** Records looked at one by one before the index is asked: in a file in order the match comes at once. */
constexpr int32_t kNear = 32;

bool isOwned(const Vtx& v, int32_t owner, VtxKinds kinds) { return v.VTX_OWNER == owner && isKind(v.VTX_KIND, kinds); }

int32_t scan(int32_t owner, VtxKinds kinds, int32_t from, int32_t to) {
  for (int32_t v = from; v <= to; v++) {
    if (isOwned(model.vtx[v], owner, kinds)) return v;
  }
  return 0;
}

constexpr uint64_t keyOf(int32_t owner, int32_t vtx) {
  return static_cast<uint64_t>(static_cast<uint32_t>(owner)) << 32 | static_cast<uint32_t>(vtx);
}

/** First vertex of `owner` in the range, 0 when there is none. */
int32_t firstMatch(int32_t owner, VtxKinds kinds, const BindRange& range) {
  if (owner == 0) return 0; /* killed vertices belong to nobody */
  const int32_t from = std::max(range.START, 1);
  const int32_t to = std::min(range.END, vtxTop());
  if (!range.index || to - from < kNear) return scan(owner, kinds, from, to);
  const int32_t soon = scan(owner, kinds, from, from + kNear - 1);
  if (soon) return soon;
  return range.index->pays(to - from) ? range.index->find(owner, kinds, from + kNear, to)
                                      : scan(owner, kinds, from + kNear, to);
}

/** Turns to the part of the table before or behind the range; false when the range is the whole table. */
bool turnToRest(BindRange* range) {
  if (range->START >= 2) {
    range->END = range->START - 1;
    range->START = 1;
    return true;
  }
  if (range->END >= model.vtxCount) return false;
  range->START = range->END + 1;
  range->END = model.vtxCount;
  return true;
}

/** Up to two passes: the range, then the rest of the table. The second range stays when it holds no match either. */
int32_t firstMatchAnywhere(int32_t owner, VtxKinds kinds, BindRange* range) {
  if (const int32_t match = firstMatch(owner, kinds, *range)) return match;
  return turnToRest(range) ? firstMatch(owner, kinds, *range) : 0;
}

}  // namespace

bool VtxIndex::pays(int32_t records) {
  if (!tried_) {
    far_ += records;
    if (far_ <= vtxTop()) return false;
    tried_ = true;
    made_ = make();
  }
  return made_;
}

bool VtxIndex::make() {
  const int32_t top = vtxTop();
  size_t count = 0;
  for (int32_t v = 1; v <= top; v++) count += model.vtx[v].VTX_OWNER != 0 && isKind(model.vtx[v].VTX_KIND, kinds_);
  if (!owned_.resize(count)) return false;
  uint64_t* next = owned_.data();
  for (int32_t v = 1; v <= top; v++) {
    const Vtx& vtx = model.vtx[v];
    if (vtx.VTX_OWNER != 0 && isKind(vtx.VTX_KIND, kinds_)) *next++ = keyOf(vtx.VTX_OWNER, v);
  }
  std::sort(owned_.data(), next);
  return true;
}

int32_t VtxIndex::find(int32_t owner, VtxKinds kinds, int32_t from, int32_t to) const {
  const uint64_t* const end = owned_.data() + owned_.size();
  const uint64_t last = keyOf(owner, to);
  for (const uint64_t* at = std::lower_bound(owned_.data(), end, keyOf(owner, from)); at < end && *at <= last; at++) {
    const int32_t v = static_cast<int32_t>(*at);
    if (isKind(model.vtx[v].VTX_KIND, kinds)) return v;
  }
  return 0;
}

BindRange wholeRange(VtxIndex* index) { return {1, model.vtxCount, index}; }

bool findRun(int32_t owner, VtxKinds kinds, BindRange* range, int32_t* first, int32_t* last) {
  const int32_t match = firstMatchAnywhere(owner, kinds, range);
  if (!match) return false;
  *first = *last = match;
  const int32_t end = std::min(range->END, vtxTop());
  for (int32_t v = match + 1; v <= end; v++) {
    const Vtx& vtx = model.vtx[v];
    if (vtx.VTX_OWNER == 0 || !isKind(vtx.VTX_KIND, kinds)) continue;
    if (vtx.VTX_OWNER != owner) { /* the next owner begins: the range goes on from here */
      range->START = v;
      range->END = model.vtxCount;
      return true;
    }
    *last = v;
  }
  return true; /* kept: a run that reaches the end of the range leaves the range as it is */
}

void BindPipeRun(int32_t pipe, BindRange* range) {
  Pdt& record = model.pdt[pipe];
  PXY& screen = model.pxy[pipe];
  if (!findRun(record.ID, kRunKinds, range, &screen.FIRST_VTX, &screen.LAST_VTX)) record.VTX_MODE = 0;
}

void BindPipeVertex(int32_t pipe, BindRange* range) {
  Pdt& record = model.pdt[pipe];
  const int32_t match = firstMatchAnywhere(record.ID, kSingleKinds, range);
  if (!match) {
    record.VTX_MODE = 0;
    return;
  }
  Vtx& vtx = model.vtx[match];
  if (vtx.VTX_X != 0 || vtx.VTX_Y != 0) {
    model.pxy[pipe].FIRST_VTX = 0;
    model.pxy[pipe].LAST_VTX = match;
    vtx.VTX_KIND = 8;
  }
  range->START = match; /* kept: at the vertex itself, not behind it */
  range->END = model.vtxCount;
}

void BindCustRun(int32_t cust, BindRange* range) {
  Cdt& record = model.cdt[cust];
  CXY& screen = model.cxy[cust];
  if (!findRun(record.ID, kServiceKinds, range, &screen.FIRST_VTX, &screen.LAST_VTX)) record.VTX_MODE = 0;
}

}  // namespace pn10
