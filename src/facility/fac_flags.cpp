/** The four facility flags of pipes, nodes and customers: copied from the row, merged into end nodes, read back. */
#include "facility/fac_flags.h"

#include <cstring>

#include "exports/pn10gdi.h"
#include "facility/facility.h"
#include "model/record_at.h"

namespace pn10 {

bool hasPipe(int32_t pipe) { return pipe > 0 && hasPipeSlot(pipe) && hasPxySlot(pipe); }
bool hasNode(int32_t node) { return node > 0 && hasNodeSlot(node) && hasNxySlot(node); }

void setPressureUnits(const Pdt& pipe, int32_t node, const char* defaultPressureUnits) {
  if (!hasNode(node) || !(model.ndt[node].PRESSURE < 0.0f)) return;
  const Fac* row = findFac(pipe.FACILITY);
  if (!row) return;
  const bool useDefault = std::strncmp(row->PressUnits, "Default", 7) == 0;
  copyText(model.ndt[node].P_UNITS, useDefault ? defaultPressureUnits : row->PressUnits);
}

namespace {

void mergeFlag(int16_t value, int16_t NXY::*flag, int32_t fromNode, int32_t toNode) {
  if (!value) return;
  if (hasNode(fromNode)) model.nxy[fromNode].*flag = value;
  if (hasNode(toNode)) model.nxy[toNode].*flag = value;
}

template <class Screen>
void copyFlags(const PXY& from, Screen* to) {
  to->Display = from.Display;
  to->Report = from.Report;
  to->Aux = from.Aux;
  to->Active = from.Active;
}

void clearDrawn(int32_t node) {
  if (hasNode(node)) model.nxy[node].Drawn = 0;
}

/** Screen record of the pipe of a customer; the empty row 0 for an untapped one. */
const PXY& pipeOfCust(int32_t cust) { return pipeScreenAt(hasCustSlot(cust) ? model.cdt[cust].PIPE_REC : 0); }

bool isUntapped(int32_t cust) { return cust == 0 || (hasCustSlot(cust) && model.cdt[cust].PIPE_REC == 0); }

}  // namespace
}  // namespace pn10

using namespace pn10;

void SetPipeFacFlags(int32_t pipe, int16_t defaultEquation) {
  if (!hasPipe(pipe)) return;
  Pdt& record = model.pdt[pipe];
  PXY& screen = model.pxy[pipe];
  const Fac* row = findFac(record.FACILITY);
  if (!row) {
    record.FACILITY = 0;
    screen.Display = 1;
    screen.Report = screen.Aux = screen.Active = 1;
    if (record.EQUATION < 0) record.EQUATION = defaultEquation;  // kept: positive, while a row leaves the sign
    return;
  }
  screen.Display = static_cast<uint8_t>(row->Display);
  screen.Report = row->Report;
  screen.Aux = row->Aux;
  screen.Active = row->Active;
  clearDrawn(record.FROM_NODE);
  clearDrawn(record.TO_NODE);
  if (record.EQUATION < 0) {
    record.EQUATION = static_cast<int16_t>(-(row->Equation >= 0 ? row->Equation : defaultEquation));
  }
}

void SetNodeFacFlags(int32_t pipe, int32_t fromNode, int32_t toNode, const char* defaultPressureUnits) {
  if (!hasPipe(pipe)) return;
  const PXY& screen = model.pxy[pipe];
  mergeFlag(screen.Report, &NXY::Report, fromNode, toNode);
  mergeFlag(screen.Aux, &NXY::Aux, fromNode, toNode);
  mergeFlag(screen.Active, &NXY::Active, fromNode, toNode);
  mergeFlag(screen.Display, &NXY::Display, fromNode, toNode);
  setPressureUnits(model.pdt[pipe], fromNode, defaultPressureUnits);
  setPressureUnits(model.pdt[pipe], toNode, defaultPressureUnits);
}

int32_t GetFacFlag(int32_t facNo, int16_t field) {
  const Fac* row = findFac(facNo);
  if (row && field == FAC_DISPLAY) return row->Display;
  if (row && field == FAC_ACTIVE) return row->Active;
  return 1;
}

int32_t GetFacActivePipe(int32_t pipe) { return pipeScreenAt(pipe).Active; }
int32_t GetFacDisplayPipe(int32_t pipe) { return pipeScreenAt(pipe).Display; }
int32_t GetFacReportPipe(int32_t pipe) { return pipeScreenAt(pipe).Report; }

int32_t GetFacActiveNode(int32_t node) { return hasNxySlot(node) ? model.nxy[node].Active : 0; }
int32_t GetFacDisplayNode(int32_t node) { return hasNxySlot(node) ? model.nxy[node].Display : 0; }
int32_t GetFacReportNode(int32_t node) { return hasNxySlot(node) ? model.nxy[node].Report : 0; }

int32_t GetFacActiveCust(int32_t cust) { return isUntapped(cust) ? 1 : pipeOfCust(cust).Active; }
int32_t GetFacReportCust(int32_t cust) { return isUntapped(cust) ? 1 : pipeOfCust(cust).Report; }
/** Kept: without the test for an untapped customer, which reads the empty row 0. */
int32_t GetFacDisplayCust(int32_t cust) { return pipeOfCust(cust).Display; }

void SetFacNodeDflt(int32_t node) {
  if (!hasNode(node)) return;
  NXY& screen = model.nxy[node];
  screen.Report = screen.Aux = screen.Active = 1;
}

void SetFacNodePipe(int32_t pipe, int32_t node) {
  if (!hasPipe(pipe) || !hasNode(node)) return;
  copyFlags(model.pxy[pipe], &model.nxy[node]);
}

void CopyFacPipe(int32_t sourcePipe, int32_t targetPipe) {
  if (!hasPipe(sourcePipe) || !hasPipe(targetPipe)) return;
  copyFlags(model.pxy[sourcePipe], &model.pxy[targetPipe]);
}
