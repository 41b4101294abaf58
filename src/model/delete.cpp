/** Deletes: records are marked and keep their slot until a save or a sort. Numbers without a slot do nothing. */
#include "model/tables.h"
#include "model/wait_cursor.h"

using namespace pn10;

namespace {

/** Marks the end nodes of a pipe that no live pipe touches any more. */
void deleteOrphans(const Pdt& pipe) {
  bool fromUsed = false, toUsed = false;
  const int32_t top = pipeTop();
  for (int32_t p = 1; p <= top && !(fromUsed && toUsed); p++) {
    const Pdt& other = model.pdt[p];
    if (other.REC_STATUS < 0) continue;
    fromUsed |= other.FROM_NODE == pipe.FROM_NODE || other.TO_NODE == pipe.FROM_NODE;
    toUsed |= other.FROM_NODE == pipe.TO_NODE || other.TO_NODE == pipe.TO_NODE;
  }
  if (!fromUsed && pipe.FROM_NODE != 0) DelNode(pipe.FROM_NODE);
  if (!toUsed && pipe.TO_NODE != 0) DelNode(pipe.TO_NODE);
}

/** Marks the customers of a pipe; the walk ends with the last one the pipe counts, so a count of 0 takes them all. */
void deleteCustomers(int32_t pipe) {
  const int32_t counted = model.pdt[pipe].CUST_COUNT;
  const int32_t top = custTop();
  for (int32_t c = 1, deleted = 0; c <= top; c++) {
    if (model.cdt[c].PIPE_REC != pipe) continue;
    model.cdt[c].REC_STATUS = -1;
    if (++deleted == counted) return;
  }
}

/** Marks the rows of a group type from `first` on; returns how many. Slot 0 holds no item. */
template <class Row>
int32_t deleteGroup(Row* rows, int32_t first, int32_t top, int16_t groupType) {
  int32_t marked = 0;
  for (int32_t row = std::max(first, 1); row <= top; row++) {
    if (rows[row].Group != groupType) continue;
    rows[row].Deleted = 1;
    marked++;
  }
  return marked;
}

}  // namespace

void DelNode(int32_t node) {
  if (hasNodeSlot(node)) model.ndt[node].REC_STATUS = -1;
}

void DelPipe(int32_t pipe) {
  if (hasPipeSlot(pipe)) model.pdt[pipe].REC_STATUS = -1;
}

void DelCust(int32_t cust) {
  if (hasCustSlot(cust)) model.cdt[cust].REC_STATUS = -1;
}

/** The status is set first, so that a negative one takes the pipe out of the count of its nodes' pipes. */
int32_t DelPipePXY(int32_t pipe, int16_t orphanNodes, int16_t customers, int16_t newStatus) {
  const WaitCursor wait;
  if (!hasPipeSlot(pipe)) return 1;
  model.pdt[pipe].REC_STATUS = newStatus;
  if (orphanNodes) deleteOrphans(model.pdt[pipe]);
  if (customers) deleteCustomers(pipe);
  return 1;
}

int32_t DelLegend(int32_t firstText, int16_t groupType) {
  return deleteGroup(model.gtx, firstText, textTop(), groupType);
}

int32_t DelBOM(int32_t firstGraphic, int16_t groupType) {
  return deleteGroup(model.ugd, firstGraphic, ugdTop(), groupType);
}

int32_t DelTXY(int32_t textRecord) {
  if (textRecord < 0 || textRecord > model.textCount) return 0;
  if (model.gtx && textRecord <= model.textCapacity) model.gtx[textRecord].Deleted = 1;
  return 1;
}

int32_t MoveTXY(int32_t textRecord, double x, double y) {
  if (model.gtx && textRecord >= 0 && textRecord <= model.textCapacity) {
    model.gtx[textRecord].X = x;
    model.gtx[textRecord].Y = y;
  }
  return 1;
}

int32_t KillVtx(int32_t vtx) {
  if (hasVtxSlot(vtx)) model.vtx[vtx].VTX_OWNER = 0;
  return -1;
}
