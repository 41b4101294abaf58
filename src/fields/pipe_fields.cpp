/** Numbered fields of pipes. */
#include <iterator>

#include "fields/field_table.h"
#include "fields/pipe_calcs.h"

namespace {

using namespace pn10;

/** A member of the node whose record number stands in the pipe. */
template <auto Member>
double readOfNode(const void* nodeNumber, int32_t rno, char* text) {
  const auto& value = nodeAt(*static_cast<const int32_t*>(nodeNumber)).*Member;
  return readMember<std::remove_cvref_t<decltype(value)>>(&value, rno, text);
}
template <auto Member>
constexpr Field ofNode(int16_t number, size_t nodeNumber) {
  return {number, static_cast<uint16_t>(nodeNumber), At::Item, true, readOfNode<Member>, nullptr};
}

double baseLength(const Pdt& p) { return wide(p.L_FACTOR) * wide(p.LENGTH); }
double baseFlow(const Pdt& p) { return wide(p.Q_FACTOR) * wide(p.FLOW); }

double stride() { return 280.0; }

double regulators() {
  int32_t count = 0;
  for (int32_t p = 1; p <= pipeTop(); p++) count += model.pdt[p].HYD_TYPE == 1;
  return count;
}

void clearCalc(Pdt& p) {
  p.CALC_RESERVED_D = 0.0;
  p.CALC_RESERVED_B = 0;
  std::fill_n(p.CALC_RESERVED_F, std::size(p.CALC_RESERVED_F), 0.0f);
  p.VTX_FIRST = p.VTX_LAST = 0;
  p.ROUGHNESS = 0.0f;
}

void clearFlow(Pdt& p) {
  p.FLOW = p.DP = p.VELOCITY = 0.0f;
  p.HOST_BYTE_154 = 0;
}

void measureLength(int32_t pipe, double useZ) { model.pxy[pipe].LENGTH = CalcPipeLength(pipe, toInt16(useZ)); }

/** The run goes by the numbers on file; slot 0 is no vertex. */
void setVertexZ(int32_t pipe, double z) {
  const Pdt& p = model.pdt[pipe];
  const int32_t last = std::min(p.VTX_LAST, vtxTop());
  for (int32_t v = std::max(p.VTX_FIRST, 1); v <= last; v++) model.vtx[v].VTX_Z = toFloat(z);
}

#define PDT(name) plain<decltype(Pdt::name)>(PDT_##name, At::Item, offsetof(Pdt, name))
#define SCREEN(number, name) plain<decltype(PXY::name)>(number, At::Screen, offsetof(PXY, name))
#define TABLE(number, name) plain<int32_t>(number, At::Model, offsetof(ModelTables, name))

constexpr Field kRows[] = {
    PDT(ID),
    ofNode<&Ndt::NODENAME>(PDT_FROM_NAME, offsetof(Pdt, FROM_NODE)),
    ofNode<&Ndt::NODENAME>(PDT_TO_NAME, offsetof(Pdt, TO_NODE)),
    PDT(HYD_TYPE),
    PDT(EQUATION),
    PDT(STATUS),
    PDT(SIZE_TYPE),
    PDT(SIZE_FLAG),
    PDT(LENGTH),
    PDT(L_UNITS),
    PDT(EFFICIENCY),
    PDT(FLOW),
    PDT(Q_UNITS),
    PDT(DP),
    PDT(DP_UNITS),
    PDT(Z_FACTOR),
    PDT(FACILITY),
    PDT(FTG_COUNT),
    PDT(FTG_EQ_LENGTH),
    PDT(CUST_COUNT),
    PDT(TEXT_X),
    PDT(TEXT_Y),
    PDT(TEXT_ANGLE),
    PDT(LABEL_ON),
    PDT(COLOR),
    PDT(VTX_MODE),
    PDT(LINE_WIDTH),
    lowByte(PDT(LINE_TYPE)),
    PDT(REC_STATUS),
    PDT(VELOCITY),
    PDT(HOST_SHORT_34),
    computed<insideDiameter>(PDT_INSIDE_D),
    readWith<roughness>(PDT(ROUGHNESS)),
    computed<volume>(PDT_VOLUME),
    computed<absolutePave>(PDT_PAVE_ABS),
    PDT(LINK_ID),
    PDT(DR_UNITS),
    computed<inletPressure>(PDT_P_IN),
    computed<outletPressure>(PDT_P_OUT),
    PDT(HOST_BYTE_58),
    ofNode<&Ndt::X_COORD>(PDT_TO_X, offsetof(Pdt, TO_NODE)),
    ofNode<&Ndt::Y_COORD>(PDT_TO_Y, offsetof(Pdt, TO_NODE)),
    ofNode<&Ndt::X_COORD>(PDT_FROM_X, offsetof(Pdt, FROM_NODE)),
    ofNode<&Ndt::Y_COORD>(PDT_FROM_Y, offsetof(Pdt, FROM_NODE)),
    computed<totalEfficiency>(PDT_TOTAL_EFF),
    PDT(REYNOLDSNO),
    computed<hoopStress>(PDT_HOOP_STRESS),
    computed<yieldStrength>(PDT_YIELD),
    computed<stressRatio>(PDT_STRESS_RATIO),
    PDT(MAOP),
    PDT(FROM_NODE),
    PDT(TO_NODE),
    PDT(GROUP_ID),
    PDT(GROUP_TYPE),
    date(PDT(REC_DATE)),
    PDT(D_FACTOR),
    computed<baseDiameter>(PDT_BASE_D),
    PDT(L_FACTOR),
    computed<baseLength>(PDT_BASE_LENGTH),
    PDT(DP_FACTOR),
    PDT(Q_FACTOR),
    computed<baseFlow>(PDT_BASE_FLOW),
    PDT(FLAG_BYTE),
    TABLE(PDT_COUNT, pipeCount),
    TABLE(PDT_LAST_ID, lastPipeId),
    action<clearCalc>(PDT_CLEAR_CALC),
    computed<meanRankine>(PDT_MEAN_RANKINE),
    computed<lookupRow>(PDT_LOOKUP_ROW),
    computed<GetVolUnits>(PDT_VOL_UNITS),
    SCREEN(PDT_FIRST_VTX, FIRST_VTX),
    SCREEN(PDT_LAST_VTX, LAST_VTX),
    computed<stride>(PDT_STRIDE, At::Model),
    storeWith<measureLength>(SCREEN(PDT_XY_LENGTH, LENGTH)),
    computed<straightDistance>(PDT_STRAIGHT),
    computed<regulators>(PDT_REGULATORS, At::Model),
    writeOnly(SCREEN(PDT_XY_COLOR, Color)),
    SCREEN(PDT_HILITE_DRAWN, HILITE_DRAWN),
    computed<gaugePave>(PDT_PAVE),
    computed<inletInPipeUnits>(PDT_P_IN_PIPE),
    computed<outletInPipeUnits>(PDT_P_OUT_PIPE),
    computed<equationName>(PDT_EQ_NAME),
    action<clearFlow>(PDT_CLEAR_FLOW),
    ofNode<&Ndt::Z_COORD>(PDT_TO_Z, offsetof(Pdt, TO_NODE)),
    ofNode<&Ndt::Z_COORD>(PDT_FROM_Z, offsetof(Pdt, FROM_NODE)),
    readOnly(PDT(VTX_FIRST)),
    readOnly(PDT(VTX_LAST)),
    action<setVertexZ>(PDT_VTX_Z),
    PDT(HOST_BYTE_154),
    PDT(CMP_VALUE),
    PDT(CMP_MODE),
    computed<pipeDifference>(PDT_CMP_DIFF),
    computed<pipePercentage>(PDT_CMP_PERCENT),
};
static_assert(ascending(kRows));
constexpr auto kFields = indexOf<1, 159>(kRows);

Records<Pdt, PXY> pipes() { return {model.pdt, model.pdtSlots, model.pxy, model.pxySlots}; }

}  // namespace

double GetPdtVal(int32_t pipe, char* text, int16_t field) {
  if (pipe < 0 || pipe > model.pipeCount) return -1.0;
  const Field& f = kFields[field];
  if (!f.read) return unknownField("getpdt %i", field);
  return pipes().read(f, pipe, text);
}

void SetPdtVal(int32_t pipe, int16_t field, const char* text, double value) {
  if (pipe < 0) return;
  const Field& f = kFields[field];
  if (!f.store) unknownField("setpdt %i", field);
  pipes().store(f, pipe, text, value);
}
