/** The grow operations: each table to n + 1 records, slot 0 counted. New records are zero before their own rules apply.
 */
#include <cstring>

#include "model/tables.h"

using namespace pn10;

namespace {

/**
 * A block with records 0 to n of the table in it, or null and the table as it was. A block that more than doubles is
 * made anew, so that a host that asks for far more than it uses pays for the pages it touches only.
 */
template <class Record>
Record* resized(Record* table, int32_t slots, int32_t n) {
  const size_t had = table ? static_cast<size_t>(slots) : 0;
  if (n >= 0 && static_cast<size_t>(n) / 2 >= had) {
    Record* const block = newTable<Record>(n);
    if (!block) return nullptr;
    if (had) std::memcpy(static_cast<void*>(block), table, had * sizeof(Record));
    freeRecords(table);
    return block;
  }
  Record* const block = static_cast<Record*>(reallocateRecords(table, n, sizeof(Record)));
  const size_t has = static_cast<size_t>(n) + 1;
  if (block && has > had) std::memset(static_cast<void*>(block + had), 0, (has - had) * sizeof(Record));
  return block;
}

/** Room for records 0 to n; without memory the table is gone, its block released and its pointer null. */
template <class Record>
bool grow(Record*& table, int32_t& slots, int32_t n) {
  Record* const block = resized(table, slots, n);
  if (!block) freeRecords(table);
  table = block;
  slots = block ? n + 1 : 0;
  return block != nullptr;
}

template <size_t... N>
void clear(char (&... texts)[N]) {
  (std::memset(texts, 0, N), ...);
}

}  // namespace

int32_t ReallocNdt(int32_t highestRecord) {
  if (!grow(model.ndt, model.ndtSlots, highestRecord)) return 0;
  if (model.nodeCount <= highestRecord) { /* kept: the text of the last record only */
    Ndt& node = model.ndt[highestRecord];
    clear(node.NODENAME, node.P_UNITS, node.Q_UNITS);
  }
  return 1;
}

int32_t ReallocPdt(int32_t highestRecord) {
  if (!grow(model.pdt, model.pdtSlots, highestRecord)) return 0;
  if (model.pipeCount <= highestRecord) { /* kept: the text of the last record only */
    Pdt& pipe = model.pdt[highestRecord];
    clear(pipe.LINK_ID, pipe.SIZE_TYPE, pipe.DR_UNITS, pipe.L_UNITS, pipe.Q_UNITS, pipe.DP_UNITS);
  }
  return 1;
}

int32_t ReallocCdt(int32_t highestRecord) {
  if (!grow(model.cdt, model.cdtSlots, highestRecord)) return 0;
  if (model.custCount <= highestRecord) { /* kept: the text of the last record only */
    Cdt& cust = model.cdt[highestRecord];
    clear(cust.LINK_ID, cust.LOAD_UNITS);
  }
  return 1;
}

/** kept: begins at the node count, not behind it, so a host that grows before it counts resets its last node too. */
int32_t ReallocNXY(int32_t highestRecord) {
  if (!grow(model.nxy, model.nxySlots, highestRecord)) return 0;
  for (int64_t n = std::max(model.nodeCount, 0); n <= highestRecord; n++) InitNXY(static_cast<int32_t>(n));
  return 1;
}

int32_t ReallocPXY(int32_t highestRecord) { return grow(model.pxy, model.pxySlots, highestRecord); }

int32_t ReallocCXY(int32_t highestRecord) { return grow(model.cxy, model.cxySlots, highestRecord); }

int32_t ReallocVtx(int32_t highestRecord) { return grow(model.vtx, model.vtxSlots, highestRecord); }

int32_t ReallocFdt(int32_t highestRecord) {
  if (!grow(model.fdt, model.fdtSlots, highestRecord)) return 0;
  for (int64_t f = std::max(model.ftgCount, -1) + int64_t{1}; f <= highestRecord; f++) {
    model.fdt[f].FTG_PIPE_ID = 0;
    model.fdt[f].FTG_NUM = 0;
  }
  model.ftgCount = highestRecord;
  return 1;
}

/** Rows that fall away give their texts back first. */
int32_t ReallocTXY(int32_t highestRecord) {
  const int32_t slots = model.gtx ? model.textCapacity + 1 : 0;
  for (int64_t row = std::max(highestRecord, 0) + int64_t{1}; row < slots; row++) {
    freeRecords(model.gtx[row].Text);
    model.gtx[row].Text = nullptr;
  }
  Gtx* const block = resized(model.gtx, slots, highestRecord);
  if (!block) releaseTexts();
  model.gtx = block;
  model.textCapacity = block ? highestRecord : 0;
  return block ? 1 : -1;
}
