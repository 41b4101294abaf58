/** Counters of the model, the last live records, change marks and the addresses of the tables. */
#include "model/tables.h"

using namespace pn10;

namespace {

/** Adds with wrap-around, so that a counter a host set to any value stays defined. */
int32_t advance(int32_t& counter, int32_t step = 1) {
  counter = static_cast<int32_t>(static_cast<uint32_t>(counter) + static_cast<uint32_t>(step));
  return counter;
}

/** kept: the scan starts one below the count, the top record is not looked at. */
template <class Record>
int32_t lastLive(const Record* table, int32_t slots, int32_t count) {
  for (int32_t n = std::min(count, slots) - 1; n > 0; n--) {
    if (table[n].REC_STATUS != -1) return n;
  }
  return 0;
}

template <class Record>
intptr_t addressOf(const Record* table) {
  return reinterpret_cast<intptr_t>(table);
}

}  // namespace

int32_t GetNextNid() { return advance(model.lastNodeId); }
int32_t GetNextPid() { return advance(model.lastPipeId); }
int32_t GetNextCid() { return advance(model.lastCustId); }
int32_t GetNextNode(int16_t step) { return advance(model.lastNodeName, step); }

int32_t GetNextNdtCnt() { return advance(model.nodeCount); }
int32_t GetNextPdtCnt() { return advance(model.pipeCount); }
int32_t GetNextCdtCnt() { return advance(model.custCount); }
int32_t GetNextVtxCnt() { return advance(model.vtxCount); }

int32_t GetLastNdt() { return lastLive(model.ndt, model.ndtSlots, model.nodeCount); }
int32_t GetLastPdt() { return lastLive(model.pdt, model.pdtSlots, model.pipeCount); }
int32_t GetLastCdt() { return lastLive(model.cdt, model.cdtSlots, model.custCount); }

int32_t GetNdtChanged(int32_t node) { return hasNodeSlot(node) ? model.ndt[node].REC_STATUS : 0; }
int32_t GetPdtChanged(int32_t pipe) { return hasPipeSlot(pipe) ? model.pdt[pipe].REC_STATUS : 0; }
int32_t GetCdtChanged(int32_t cust) { return hasCustSlot(cust) ? model.cdt[cust].REC_STATUS : 0; }

intptr_t GetNdtAddress() { return addressOf(model.ndt); }
intptr_t GetPdtAddress() { return addressOf(model.pdt); }
intptr_t GetCdtAddress() { return addressOf(model.cdt); }
intptr_t GetPXYAddress() { return addressOf(model.pxy); }
