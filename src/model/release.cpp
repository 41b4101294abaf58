/** Release of the model and of the fittings. Nothing is released implicitly. */
#include "model/tables.h"

using namespace pn10;

namespace {

template <class Record>
void releaseCounted(Record*& table, int32_t& slots) {
  releaseTable(table);
  slots = 0;
}

}  // namespace

void pn10::releaseTexts() {
  for (int32_t row = 0; model.gtx && row <= model.textCapacity; row++) freeRecords(model.gtx[row].Text);
  releaseTable(model.gtx);
}

/** Ids and the numbers of names and groups stay: the loaders reset them. Fittings, facilities, layers have calls of
 * their own. */
void FreeModel() {
  releaseTable(model.hdr);
  releaseCounted(model.cdt, model.cdtSlots);
  model.custCount = 0;
  releaseCounted(model.cxy, model.cxySlots);
  releaseCounted(model.ndt, model.ndtSlots);
  model.nodeCount = 0;
  releaseCounted(model.nxy, model.nxySlots);
  releaseCounted(model.rdx, model.rdxRows);
  releaseCounted(model.pdt, model.pdtSlots);
  model.pipeCount = 0;
  releaseCounted(model.pxy, model.pxySlots);
  releaseCounted(model.vtx, model.vtxSlots);
  model.vtxCount = 0;
  if (model.gtx) {
    releaseTexts();
    model.textCapacity = 0;
    model.textCount = 0;
  }
  if (model.ugd) {
    releaseTable(model.ugd);
    model.ugdCapacity = 0;
    model.ugdCount = 0;
  }
  FreePLut();
}

int32_t FreeFdt() {
  if (!model.fdt) return 0;
  releaseCounted(model.fdt, model.fdtSlots);
  model.ftgCount = 0;
  return 1;
}

/** kept: does nothing. */
int32_t cnull() { return 0; }
