/** ReadPdt: the pipes, <base>.pdt, bound to their vertices, with facility flags and computed lengths. */
#include "model/bind_vertices.h"
#include "model/record_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

constexpr int32_t kIdLimit = 2000000000; /* higher ids do not raise the counter */

bool isNodeReference(int32_t node) { return node >= 0 && node <= model.nodeCount; }

void countPipe(const Pdt& pipe) {
  if (pipe.ID < kIdLimit) model.lastPipeId = std::max(model.lastPipeId, pipe.ID);
  model.lastGroupId = std::max(model.lastGroupId, pipe.GROUP_ID);
}

/** Binds pipe n, hands it and its end nodes their facility flags, and measures it. */
void finishPipe(int32_t n, BindRange* range, int16_t defaultEquation, const char* defaultPressureUnits) {
  const Pdt& pipe = model.pdt[n];
  if (pipe.VTX_MODE == 4) {
    BindPipeRun(n, range);
  } else if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) {
    BindPipeVertex(n, range);
  }
  SetPipeFacFlags(n, defaultEquation);
  SetNodeFacFlags(n, pipe.FROM_NODE, pipe.TO_NODE, defaultPressureUnits);
  model.pxy[n].LENGTH = CalcPipeLength(n, 1);
}

}  // namespace

int32_t ReadPdt(const char* base, int16_t defaultEquation, const char* defaultPressureUnits, int16_t noFile) {
  model.pdt = nullptr;
  model.pxy = nullptr;
  model.pdtSlots = model.pxySlots = 0;
  model.lastPipeId = model.lastGroupId = model.pipeCount = 0;
  const ModelPath path(base, kPdtFormat.extension);
  const int32_t count = noFile ? 0 : countRecords(kPdtFormat, path.get());
  if (count < 0) return -2;
  model.pipeCount = count;
  if (!newTables(model.pdt, model.pdtSlots, model.pxy, model.pxySlots, count)) return -1;
  if (model.pipeCount == 0) return 0;

  File file(path.get(), "rb");
  if (!file) return -2;
  RecordReader<kPdtFormat> reader(file.get());
  VtxIndex index(kSingleKinds);
  BindRange range = wholeRange(&index);
  for (int32_t n = 1; n <= model.pipeCount; n++) {
    reader.next(&staging.pipe);
    model.pdt[n] = staging.pipe;
    countPipe(staging.pipe);
    if (!isNodeReference(staging.pipe.FROM_NODE) || !isNodeReference(staging.pipe.TO_NODE)) return -100;
    finishPipe(n, &range, defaultEquation, defaultPressureUnits);
  }
  return model.lastPipeId;
}
