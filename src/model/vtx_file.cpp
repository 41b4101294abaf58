/** ReadVtx: the vertices of pipes and service lines, <base>.vtx. */
#include "model/record_file.h"
#include "model/tables.h"

using namespace pn10;

/** A model without a vertex file is normal and gives an empty table. */
int32_t ReadVtx(const char* base, int16_t noFile) {
  model.vtx = nullptr;
  model.vtxSlots = model.vtxCount = 0;
  const ModelPath path(base, kVtxFormat.extension);
  if (!noFile) model.vtxCount = std::max(countRecords(kVtxFormat, path.get()), 0);
  model.vtx = newTable<Vtx>(model.vtxCount);
  if (!model.vtx) return -1;
  model.vtxSlots = model.vtxCount + 1;
  if (model.vtxCount == 0) return 0;

  File file(path.get(), "rb");
  if (!file) return -2;
  RecordReader<kVtxFormat> reader(file.get());
  for (int32_t v = 1; v <= model.vtxCount; v++) reader.next(&model.vtx[v]); /* hilite bytes stay 0 */
  return model.vtxCount;
}
