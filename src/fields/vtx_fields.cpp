/** Numbered fields of vertices, one row each, and the small readers for the drawing side of a host. */
#include <algorithm>
#include <cstddef>

#include "fields/field_table.h"
#include "model/record_at.h"

using namespace pn10;

namespace {

#define VTX(number, member) plain<decltype(Vtx::member)>(number, At::Item, offsetof(Vtx, member))

constexpr Field kRows[] = {
    VTX(VTX_OWNER_ID, VTX_OWNER),
    VTX(VTX_KIND_NO, VTX_KIND),
    VTX(VTX_X_COORD, VTX_X),
    VTX(VTX_Y_COORD, VTX_Y),
    VTX(VTX_Z_COORD, VTX_Z),
    plain<int32_t>(VTX_COUNT, At::Model, offsetof(ModelTables, vtxCount)),
    writeOnly(VTX(VTX_HILITE_REQ, VTX_HILITE)),
    writeOnly(VTX(VTX_DRAWN_FLAG, VTX_DRAWN)),
};
static_assert(ascending(kRows));
constexpr auto kFields = indexOf<801, 809>(kRows);

/** Where a field of a record stands; null when the table has no such slot. */
void* memberOf(const Field& f, int32_t vtx) {
  if (f.at == At::Model) return reinterpret_cast<char*>(&model) + f.offset;
  return hasVtxSlot(vtx) ? reinterpret_cast<char*>(model.vtx + vtx) + f.offset : nullptr;
}

}  // namespace

double GetVtxVal(int32_t vtx, int16_t field) {
  if (vtx < 0) return -1.0;
  const Field& f = kFields[field];
  if (!f.read) return unknownField("getvtx %i", field);
  if (const void* member = memberOf(f, vtx)) return f.read(member, vtx, nullptr);
  return vtx == 0 ? 0.0 : -1.0;
}

void SetVtxVal(int32_t vtx, int16_t field, double value) {
  if (vtx < 0) return;
  const Field& f = kFields[field];
  if (!f.store) {
    unknownField("setvtx %i", field);
  } else if (void* member = memberOf(f, vtx)) {
    f.store(member, vtx, nullptr, value);
  }
}

int32_t GetVTXY(int32_t vtx, double* x, double* y, float* z) {
  const Vtx& vertex = vtxAt(vtx);
  if (x) *x = vertex.VTX_X;
  if (y) *y = vertex.VTX_Y;
  if (z) *z = vertex.VTX_Z;
  return -1;
}

int32_t GetVTXYType(int32_t vtx, double* x, double* y, int16_t* kind) {
  const Vtx& vertex = vtxAt(vtx);
  if (x) *x = vertex.VTX_X;
  if (y) *y = vertex.VTX_Y;
  if (kind) *kind = vertex.VTX_KIND;
  return -1;
}

int32_t GetVtxAttCount(int32_t firstVtx, int32_t lastVtx) {
  int32_t count = 0;
  for (int32_t v = std::max(firstVtx, 0), last = std::min(lastVtx, model.vtxSlots - 1); v <= last; v++) {
    const Vtx& vertex = model.vtx[v];
    const int16_t kind = vertex.VTX_KIND;
    count += vertex.VTX_OWNER != 0 && (kind == 2 || kind == 3 || kind == 5 || kind == 7);
  }
  return count;
}
