/** ReadCdt: the customers, <base>.cdt, bound to their pipes and to the vertices of their service lines. */
#include "model/bind_vertices.h"
#include "model/record_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

/** Counts, checks and binds a live customer. */
void finishCustomer(int32_t n, BindRange* range) {
  Cdt& cust = model.cdt[n];
  model.lastCustId = std::max(model.lastCustId, cust.ID); /* kept: no upper limit here, unlike nodes and pipes */
  if (cust.PIPE_REC > model.pipeCount) cust.PIPE_REC = 0;
  if (cust.VTX_MODE == 4) BindCustRun(n, range);
  model.cxy[n].DRAW = 1;
}

}  // namespace

int32_t ReadCdt(const char* base, int16_t noFile) {
  model.cdt = nullptr;
  model.cxy = nullptr;
  model.cdtSlots = model.cxySlots = 0;
  model.custCount = model.lastCustId = 0;
  const ModelPath path(base, kCdtFormat.extension);
  const int32_t count = noFile ? 0 : countRecords(kCdtFormat, path.get());
  if (count < 0) return -2;
  model.custCount = count;
  if (!newTables(model.cdt, model.cdtSlots, model.cxy, model.cxySlots, count)) return -1;
  if (model.custCount == 0) return 0;

  File file(path.get(), "rb");
  if (!file) return -2;
  RecordReader<kCdtFormat> reader(file.get());
  VtxIndex index(kServiceKinds);
  BindRange range = wholeRange(&index);
  for (int32_t n = 1; n <= model.custCount; n++) {
    reader.next(&staging.cust);
    model.cdt[n] = staging.cust;
    if (staging.cust.REC_STATUS >= 0) finishCustomer(n, &range);
  }
  return model.lastCustId;
}

namespace pn10 {

void ReadCdtRecord(FILE* cdtFile, int32_t fileRecord) { readRecordAt(kCdtFormat, cdtFile, fileRecord, &staging.cust); }

int32_t WriteCdtRecord(FILE* cdtFile, int32_t fileRecord) {
  writeRecordAt<kCdtFormat>(cdtFile, fileRecord, &staging.cust);
  return 0;
}

}  // namespace pn10
