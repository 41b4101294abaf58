/** Binding of the calculation library, and what is handed to it for regulators and compressors. */
#include "lookup/calc_library.h"

#include "lookup/lookup.h"
#include "model/convert.h"
#include "model/record_at.h"
#include "model/tables.h"
#include "platform/kernel.h"

namespace pn10 {

CalcLibrary calcLibrary;

namespace {

template <class Entry>
Entry entryOf(HMODULE library, const char* name) {
  return reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

/** State of a pipe as both calculations take it, in base units. */
struct FlowState {
  double flow, p1, p2, pAtm;
  float tRankine;
};

FlowState stateOf(const Pdt& pipe, const Ndt& from, const Ndt& to) {
  return {static_cast<double>(pipe.Q_FACTOR) * pipe.FLOW, static_cast<double>(from.P_FACTOR) * from.PRESSURE,
          static_cast<double>(to.P_FACTOR) * to.PRESSURE, static_cast<double>(from.PATM) * settings.patmFactor,
          toFloat(CalcRankine(from.T))};
}

int32_t zeroExtended(int16_t value) { return static_cast<uint16_t>(value); }

}  // namespace

double CalcRegCapacity(int32_t pipe, int32_t rlutRow) {
  const RLut* row = lutRow(lookups.rlut, rlutRow);
  if (!calcLibrary.calcReg || !row || (pipe != 0 && !isPipe(pipe))) return 0.0;
  const Pdt& record = pipeAt(pipe);
  const Ndt& from = nodeAt(record.FROM_NODE);
  const FlowState state = stateOf(record, from, nodeAt(record.TO_NODE));
  const int32_t equation = zeroExtended(row->EQUATION);
  // kept: the set value is in psi already and is converted once more
  const float setValue = row->SET_VALUE * GetUnitFactor(row->P_UNITS, 1, "PUS");
  int32_t status = 0;
  char text[1] = "";
  return calcLibrary.calcReg(1, equation, equation, row->C[0], row->C[1], row->C[2], row->C[3], row->C[4], setValue,
                             state.flow, state.p1 + state.pAtm, state.p2 + state.pAtm, toFloat(state.pAtm),
                             state.tRankine, settings.baseP, settings.baseT, from.SG < 0 ? -from.SG : from.SG,
                             from.VISCOSITY * settings.visFactor, from.SH_RATIO, record.Z_FACTOR, &status, text);
}

double CalcCompPower(int32_t pipe, int32_t clutRow, int16_t mode) {
  const CLut* row = lutRow(lookups.clut, clutRow);
  if (!calcLibrary.calcComp || !row || (mode != 0 && mode != 5) || (pipe != 0 && !isPipe(pipe))) return 0.0;
  const Pdt& record = pipeAt(pipe);
  const Ndt& from = nodeAt(record.FROM_NODE);
  const FlowState state = stateOf(record, from, nodeAt(record.TO_NODE));
  const bool ownCurve = row->EQUATION == 1;
  const double power = calcLibrary.calcComp(0, zeroExtended(row->EQUATION), state.flow, toFloat(state.p1 + state.pAtm),
                                            toFloat(state.p2 + state.pAtm), state.tRankine, record.EFFICIENCY, 0.0f,
                                            record.Z_FACTOR, settings.baseP, settings.baseT, from.SH_RATIO,
                                            ownCurve ? row->A : 0.0f, 0.0f, ownCurve ? row->B : 0.0f);
  if (mode == 0) return power;
  return power * row->FUEL_RATE * GetUnitFactor(row->FUEL_UNITS, 0, "FUEL");
}

}  // namespace pn10

using namespace pn10;

void SetHQDll(void) {
  const HMODULE library = LoadLibraryA("hq50_calcs.dll");
  if (!library) return;
  FreeHQDll();
  calcLibrary = {library, entryOf<CalcRegEntry>(library, "CalcReg_"), entryOf<CalcCompEntry>(library, "CalcComp_"),
                 entryOf<CalcPaveEntry>(library, "CalcPave")};
}

void FreeHQDll(void) {
  if (calcLibrary.handle) FreeLibrary(static_cast<HMODULE>(calcLibrary.handle));
  calcLibrary = {};
}

float CalcPave(float absPressureA, float absPressureB) {
  return calcLibrary.calcPave ? calcLibrary.calcPave(absPressureA, absPressureB) : 0.0f;
}
