/** Copies of whole records. A number without a slot copies nothing; the result is the same. */
#include <cstring>

#include "model/tables.h"

using namespace pn10;

namespace {

template <class Record>
void copySlot(Record* table, int32_t slots, int32_t from, int32_t to) {
  if (from >= 0 && from < slots && to >= 0 && to < slots) table[to] = table[from];
}

/** Adds a copy of each fitting of pipe `sourceId`, `wanted` at most, behind the last fitting. */
void copyFittings(int32_t sourceId, int32_t newId, int32_t wanted) {
  const int32_t before = std::max(model.ftgCount, 0);
  if (before > INT32_MAX - wanted || !ReallocFdt(before + wanted)) return;
  int32_t to = before;
  for (int32_t from = 1; from <= before && to < before + wanted; from++) {
    const Fdt& source = model.fdt[from];
    if (source.FTG_PIPE_ID != sourceId) continue;
    Fdt& copy = model.fdt[++to]; /* kept: the flag is not copied */
    copy.FTG_PIPE_ID = newId;
    std::memcpy(copy.FTG_NAME, source.FTG_NAME, sizeof copy.FTG_NAME);
    copy.FTG_NUM = source.FTG_NUM;
    copy.FTG_EQL = source.FTG_EQL;
  }
}

}  // namespace

int32_t CopyNdt(int32_t fromNode, int32_t toNode) {
  copySlot(model.ndt, model.ndtSlots, fromNode, toNode);
  return 1;
}

void CopyCdt(int32_t fromCust, int32_t toCust) { copySlot(model.cdt, model.cdtSlots, fromCust, toCust); }

void CopyVtx(int32_t fromVtx, int32_t toVtx) { copySlot(model.vtx, model.vtxSlots, fromVtx, toVtx); }

int32_t CopyFdt(int32_t fromFtg, int32_t toFtg) {
  copySlot(model.fdt, model.fdtSlots, fromFtg, toFtg);
  return 1;
}

int32_t CopyNXY(int32_t fromNode, int32_t toNode) {
  copySlot(model.nxy, model.nxySlots, fromNode, toNode);
  return -1;
}

int32_t CopyPXY(int32_t fromPipe, int32_t toPipe) {
  copySlot(model.pxy, model.pxySlots, fromPipe, toPipe);
  return -1;
}

int32_t CopyCXY(int32_t fromCust, int32_t toCust) {
  copySlot(model.cxy, model.cxySlots, fromCust, toCust);
  return -1;
}

/** kept: without fittings FTG_EQ_LENGTH stays as copied; values other than 0 and 1 leave the fittings alone. */
int32_t CopyPdt(int32_t fromPipe, int32_t toPipe, int16_t fittings, int32_t newId) {
  if (!hasPipeSlot(fromPipe) || !hasPipeSlot(toPipe)) return -1;
  Pdt& to = model.pdt[toPipe];
  to = model.pdt[fromPipe];
  if (newId != 0) to.ID = newId;
  if (fittings == 0) to.FTG_COUNT = 0;
  if (fittings == 1 && to.FTG_COUNT != 0) copyFittings(model.pdt[fromPipe].ID, newId, to.FTG_COUNT);
  return -1;
}
