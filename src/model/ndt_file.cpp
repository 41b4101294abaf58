/** ReadNdt: the nodes, <base>.ndt, with their screen records and the reference table. */
#include "fields/number_text.h"
#include "model/record_file.h"
#include "model/staging.h"
#include "model/tables.h"

using namespace pn10;

namespace {

constexpr int32_t kRdxRows = 10;                 /* and row 0 */
constexpr int32_t kNameNumberLimit = 2000000000; /* higher names are no numbers to count on from */

/** All three tables for the present count, or none. */
bool allocateTables() {
  model.ndt = newTable<Ndt>(model.nodeCount);
  model.nxy = model.ndt ? newTable<NXY>(model.nodeCount) : nullptr;
  Rdx* const rdx = model.nxy ? newTable<Rdx>(kRdxRows) : nullptr;
  if (!rdx) {
    releaseTable(model.ndt);
    releaseTable(model.nxy);
    return false;
  }
  model.rdx = rdx;
  model.rdxRows = kRdxRows + 1;
  model.ndtSlots = model.nxySlots = model.nodeCount + 1;
  return true;
}

/** Keeps the highest id and the highest numeric name, so that new nodes collide with none. */
void countNode(const Ndt& node) {
  model.lastNodeId = std::max(model.lastNodeId, node.ID);
  const int32_t number = parseInt(node.NODENAME);
  if (number < kNameNumberLimit) model.lastNodeName = std::max(model.lastNodeName, number);
}

void readNodes(FILE* file, bool hasComparison) {
  RecordReader<kNdtFormat> reader(file);
  for (int32_t n = 1; n <= model.nodeCount; n++) {
    reader.next(&staging.node);
    Ndt& node = model.ndt[n];
    node = staging.node;
    countNode(node);
    model.nxy[n].Drawn = -1; /* its colour stays 0 until UpdateNXY */
    if (hasComparison) continue;
    node.CMP_VALUE = 0;
    node.CMP_MODE = 0;
  }
}

}  // namespace

/** kept: the count is set to 0 first, so noFile always gives an empty table. */
int32_t ReadNdt(const char* base, int16_t noFile, float version) {
  model.ndt = nullptr;
  model.nxy = nullptr;
  model.ndtSlots = model.nxySlots = 0;
  model.lastNodeId = model.lastNodeName = model.nodeCount = 0;
  const ModelPath path(base, kNdtFormat.extension);
  const int32_t count = noFile ? 0 : countRecords(kNdtFormat, path.get());
  if (count < 0) return -2;
  model.nodeCount = count;
  if (!allocateTables()) return -1;
  if (model.nodeCount == 0) return 0;

  File file(path.get(), "rb");
  if (!file) return -2;
  readNodes(file.get(), version != 10.0f);
  return model.lastNodeName;
}
