/**
 * Refreshing the copies of the facility settings after the host has edited the table.
 *
 * A node's flags come from the first six pipe ends at it, in pipe order. Rebuilding them pipe by pipe would scan
 * all pipes for each; as a node ends with what its last pipe in the range leaves, which sees every refreshed
 * pipe at that node, one pass over all pipes after the refresh gives the same.
 */
#include "exports/pn10gdi.h"
#include "facility/fac_flags.h"
#include "facility/facility.h"
#include "model/tables.h"
#include "platform/memory.h"

namespace pn10 {
namespace {

/** What has been seen of the pipes at one node. */
struct NodeFlags {
  bool wanted;
  uint8_t ends; /* pipe ends taken, at most six */
  bool report, active, display, aux;
};
constexpr uint8_t kMostEnds = 6;

void addEnd(NodeFlags& flags, const PXY& pipe) {
  if (!flags.wanted || flags.ends == kMostEnds) return;
  flags.ends++;
  flags.report = flags.report || pipe.Report != 0;
  flags.active = flags.active || pipe.Active != 0;
  flags.display = flags.display || pipe.Display != 0;
  flags.aux = flags.aux || pipe.Aux != 0;
}

void store(NXY& screen, const NodeFlags& flags) {
  screen.Report = flags.report;
  screen.Active = flags.active;
  screen.Display = flags.display;
  screen.Aux = flags.aux;
}

/** Highest pipe with a record and a screen record. */
int32_t screenTop() { return pipeTop() < model.pxySlots ? pipeTop() : model.pxySlots - 1; }

/** One pass over the live pipes; a pipe with both ends at a node counts twice there. */
template <class FlagsOf>
void collect(FlagsOf&& flagsOf) {
  for (int32_t pipe = 1; pipe <= screenTop(); pipe++) {
    if (model.pdt[pipe].REC_STATUS == -1) continue;
    if (NodeFlags* flags = flagsOf(model.pdt[pipe].FROM_NODE)) addEnd(*flags, model.pxy[pipe]);
    if (NodeFlags* flags = flagsOf(model.pdt[pipe].TO_NODE)) addEnd(*flags, model.pxy[pipe]);
  }
}

void setUnitsOfEnds(int32_t pipe, const char* defaultPressureUnits) {
  const Pdt& record = model.pdt[pipe];
  setPressureUnits(record, record.FROM_NODE, defaultPressureUnits);
  setPressureUnits(record, record.TO_NODE, defaultPressureUnits);
}

void want(Buffer<NodeFlags>& flags, int32_t node) {
  if (hasNode(node)) flags[static_cast<size_t>(node)].wanted = true;
}

/** All pipes of the range at once; false when there is no memory, and nothing is done. */
bool recalcRange(int32_t firstPipe, int32_t lastPipe, const char* defaultPressureUnits) {
  Buffer<NodeFlags> flags;
  if (!flags.allocate(static_cast<size_t>(model.nxySlots))) return false;
  for (int32_t pipe = firstPipe; pipe <= lastPipe; pipe++) {
    setUnitsOfEnds(pipe, defaultPressureUnits);
    want(flags, model.pdt[pipe].FROM_NODE);
    want(flags, model.pdt[pipe].TO_NODE);
  }
  collect([&](int32_t node) { return hasNode(node) ? &flags[static_cast<size_t>(node)] : nullptr; });
  for (int32_t node = 1; node < model.nxySlots; node++) {
    const NodeFlags& seen = flags[static_cast<size_t>(node)];
    if (seen.wanted) store(model.nxy[node], seen);
  }
  return true;
}

template <class Record>
void refresh(Record& record) {
  record.Display = static_cast<int16_t>(GetFacFlag(record.Facility, FAC_DISPLAY));
  record.Active = static_cast<int16_t>(GetFacFlag(record.Facility, FAC_ACTIVE));
}

}  // namespace

void RecalcNodeFacFlags(int32_t pipe, const char* defaultPressureUnits) {
  if (!hasPipe(pipe)) return;
  const int32_t from = model.pdt[pipe].FROM_NODE, to = model.pdt[pipe].TO_NODE;
  NodeFlags fromFlags{}, toFlags{};
  fromFlags.wanted = toFlags.wanted = true;
  collect([&](int32_t node) { return node == from ? &fromFlags : node == to ? &toFlags : nullptr; });
  if (hasNode(from)) store(model.nxy[from], fromFlags);
  if (hasNode(to) && to != from) store(model.nxy[to], toFlags);
  setUnitsOfEnds(pipe, defaultPressureUnits);
}

}  // namespace pn10

using namespace pn10;

int32_t SetPipeFacSettings(int32_t facNo, int16_t flag, int16_t value) {
  for (int32_t pipe = 1; pipe <= screenTop(); pipe++) {
    if (model.pdt[pipe].FACILITY != facNo) continue;
    PXY& screen = model.pxy[pipe];
    if (flag == 0) screen.Display = static_cast<uint8_t>(value);
    if (flag == 1) screen.Report = value;
    if (flag == 2) screen.Aux = value;
    if (flag == 3) screen.Active = value;
  }
  return 0;
}

int32_t ResetPipeFacSettings(int32_t firstPipe, int32_t lastPipe, int16_t defaultEquation,
                             const char* defaultPressureUnits, int16_t recompute) {
  if (firstPipe < 1) firstPipe = 1;
  if (lastPipe > screenTop()) lastPipe = screenTop();
  for (int32_t pipe = firstPipe; pipe <= lastPipe; pipe++) {
    SetPipeFacFlags(pipe, defaultEquation);
    if (recompute) continue;
    SetFacNodePipe(pipe, model.pdt[pipe].FROM_NODE);
    SetFacNodePipe(pipe, model.pdt[pipe].TO_NODE);
  }
  if (!recompute || recalcRange(firstPipe, lastPipe, defaultPressureUnits)) return 0;
  for (int32_t pipe = firstPipe; pipe <= lastPipe; pipe++) RecalcNodeFacFlags(pipe, defaultPressureUnits);
  return 0;
}

int32_t ResetFacSettings(void) {
  for (int32_t row = 1; row <= textTop(); row++) {
    Gtx& text = model.gtx[row];
    refresh(text);
    if (text.Facility == kBillOfMaterialsFacility) text.Display = text.Active = 1;
  }
  for (int32_t row = 1; row <= ugdTop(); row++) refresh(model.ugd[row]);
  return 0;
}
