/** Numbered fields of nodes. */
#include "fields/field_table.h"
#include "fields/node_calcs.h"

namespace {

using namespace pn10;

double gasKnown(const Ndt& n) { return n.SG > 0.0f ? 1.0 : 0.0; }

double stride() { return 220.0; }

double liveCount() {
  int32_t live = 0;
  for (int32_t n = 1; n <= nodeTop(); n++) live += model.ndt[n].REC_STATUS > -1;
  return live;
}

#define NDT(name) plain<decltype(Ndt::name)>(NDT_##name, At::Item, offsetof(Ndt, name))
#define SCREEN(number, name) plain<decltype(NXY::name)>(number, At::Screen, offsetof(NXY, name))
#define TABLE(number, name) plain<int32_t>(number, At::Model, offsetof(ModelTables, name))

constexpr Field kRows[] = {
    NDT(NODENAME),
    NDT(PRESSURE),
    NDT(P_KNOWN),
    NDT(P_UNITS),
    NDT(QB_LOAD),
    lowByte(NDT(QB_KNOWN)),
    lowByte(NDT(QB_DF)),
    lowByte(NDT(QB_STATUS)),
    NDT(Q_UNITS),
    NDT(QX_LOAD),
    NDT(QX_DF),
    NDT(QX_STATUS),
    NDT(Z_COORD),
    NDT(T),
    NDT(T_KNOWN),
    NDT(PATM),
    NDT(VISCOSITY),
    NDT(SG),
    NDT(SH_RATIO),
    NDT(HV),
    NDT(X_COORD),
    NDT(Y_COORD),
    NDT(TEXT_X),
    NDT(TEXT_Y),
    NDT(TEXT_ANGLE),
    NDT(LABEL_ON),
    NDT(COLOR),
    NDT(SYM_SIZE),
    NDT(SYMBOL),
    NDT(HAS_RDX),
    NDT(REC_STATUS),
    computed<gasKnown>(NDT_GAS_KNOWN),
    NDT(QX_FIXED),
    NDT(ELEV),
    NDT(HOST_BYTE_346),
    NDT(HOST_BYTE_348),
    computed<touchingPipes>(NDT_PIPES),
    date(NDT(REC_DATE)),
    NDT(HYD_STATUS),
    NDT(P_FACTOR),
    NDT(Q_FACTOR),
    computed<basePressure>(NDT_BASE_PRESSURE),
    computed<baseLoad>(NDT_BASE_LOAD),
    computed<rankine>(NDT_RANKINE),
    NDT(FLAG_TYPE),
    TABLE(NDT_COUNT, nodeCount),
    TABLE(NDT_LAST_ID, lastNodeId),
    TABLE(NDT_LAST_NAME, lastNodeName),
    NDT(HYD_TYPE),
    computed<liveCount>(NDT_LIVE_COUNT, At::Model),
    computed<nodeBalance>(NDT_BALANCE),
    SCREEN(NDT_HILITE_DRAWN, HILITE_DRAWN),
    NDT(ID),
    NDT(CMP_VALUE),
    NDT(CMP_MODE),
    computed<nodeDifference>(NDT_CMP_DIFF),
    computed<nodePercentage>(NDT_CMP_PERCENT),
    readOnly(SCREEN(NDT_AUX, Aux)),
    NDT(HOST_BYTE_385),
    computed<stride>(NDT_STRIDE, At::Model),
};
static_assert(ascending(kRows));
constexpr auto kFields = indexOf<301, 397>(kRows);

Records<Ndt, NXY> nodes() { return {model.ndt, model.ndtSlots, model.nxy, model.nxySlots}; }

}  // namespace

double GetNdtVal(int32_t node, char* text, int16_t field) {
  if (node < 0 || node > model.nodeCount) return -1.0;
  const Field& f = kFields[field];
  if (!f.read) return unknownField("getndt %i", field);
  return nodes().read(f, node, text);
}

void SetNdtVal(int32_t node, int16_t field, const char* text, double value) {
  if (node < 0) return;
  const Field& f = kFields[field];
  if (!f.store) unknownField("setndt %i", field);
  nodes().store(f, node, text, value);
}
