/** Numbered fields of customers. */
#include "fields/cust_calcs.h"
#include "fields/field_table.h"

namespace {

using namespace pn10;

/** kept: the text of the pipe comes with a result of -1.0, which callers know. */
double readPipeLink(const void* pipeNumber, int32_t, char* text) {
  const Pdt& p = pipeAt(*static_cast<const int32_t*>(pipeNumber));
  if (text) copyText(text, sizeof p.LINK_ID, p.LINK_ID);
  return -1.0;
}

/** kept: no terminator, the caller's buffer is cleared. */
double readBareText(const void* member, int32_t, char* text) {
  const char* link = static_cast<const char*>(member);
  if (text) std::memcpy(text, link, strnlen(link, sizeof(Cdt::LINK_ID)));
  return 1.0;
}

constexpr Field withRead(Field f, ReadField read) {
  f.read = read;
  return f;
}

double baseLoad(const Cdt& c) { return wide(c.LOAD_FACTOR) * wide(c.UNIT_LOAD); }

double stride() { return 214.0; }

double liveCount() {
  int32_t live = 0;
  for (int32_t c = 1; c <= custTop(); c++) live += model.cdt[c].REC_STATUS > -1;
  return live;
}

void clearCalc(Cdt& c) {
  c.CALC_RESERVED_D = 0.0;
  c.HOST_SHORT_436 = 0;
}

#define CDT(name) plain<decltype(Cdt::name)>(CDT_##name, At::Item, offsetof(Cdt, name))
#define SCREEN(number, name) plain<decltype(CXY::name)>(number, At::Screen, offsetof(CXY, name))
#define TABLE(number, name) plain<int32_t>(number, At::Model, offsetof(ModelTables, name))

constexpr Field kRows[] = {
    CDT(ID),
    Field{CDT_PIPE_LINK_ID, offsetof(Cdt, PIPE_REC), At::Item, true, readPipeLink, nullptr},
    CDT(NODE_ASGN),
    CDT(UNIT_LOAD),
    CDT(LOAD_UNITS),
    CDT(X_COORD),
    CDT(Y_COORD),
    CDT(COLOR),
    CDT(HOST_SHORT_409),
    CDT(HOST_SHORT_410),
    CDT(HOST_SHORT_411),
    CDT(TEXT_X),
    CDT(TEXT_Y),
    CDT(TEXT_ANGLE),
    CDT(SX_COORD),
    CDT(SY_COORD),
    CDT(VTX_MODE),
    CDT(LINK_FLAG),
    CDT(LINK_CUST),
    CDT(COUNT),
    withRead(CDT(LINK_ID), readBareText),
    CDT(HOST_SHORT_425),
    CDT(LOAD_MULT),
    CDT(LOAD_DF),
    CDT(HOST_SHORT_431),
    CDT(PIPE_REC),
    CDT(Z_COORD),
    CDT(HOST_SHORT_436),
    CDT(HOST_SHORT_437),
    date(CDT(REC_DATE)),
    CDT(REC_STATUS),
    CDT(LOAD_FACTOR),
    computed<baseLoad>(CDT_BASE_LOAD),
    CDT(FLAG_BYTE),
    TABLE(CDT_LAST_ID, lastCustId),
    TABLE(CDT_TABLE_COUNT, custCount),
    action<clearCalc>(CDT_CLEAR_CALC),
    computed<liveCount>(CDT_LIVE_COUNT, At::Model),
    SCREEN(CDT_FIRST_VTX, FIRST_VTX),
    SCREEN(CDT_LAST_VTX, LAST_VTX),
    computed<totalLoadText>(CDT_TOTAL_TEXT),
    computed<unitLoadText>(CDT_UNIT_TEXT),
    SCREEN(CDT_HILITE_DRAWN, HILITE_DRAWN),
    readOnly(SCREEN(CDT_XY_COLOR, Color)),
    computed<linkedRecord>(CDT_LINK_REC),
    CDT(HOST_BYTE_464),
    computed<stride>(CDT_STRIDE, At::Model),
};
static_assert(ascending(kRows));
constexpr auto kFields = indexOf<401, 497>(kRows);

Records<Cdt, CXY> custs() { return {model.cdt, model.cdtSlots, model.cxy, model.cxySlots}; }

}  // namespace

/** The count is no limit here, the slots of the table are: a host may ask for a record before it counts it. */
double GetCdtVal(int32_t cust, char* text, int16_t field) {
  if (cust < 0) return -1.0;
  const Field& f = kFields[field];
  if (!f.read) return unknownField("getcdt %i", field);
  return custs().read(f, cust, text);
}

void SetCdtVal(int32_t cust, int16_t field, const char* text, double value) {
  if (cust < 0) return;
  const Field& f = kFields[field];
  if (!f.store) unknownField("setcdt %i", field);
  custs().store(f, cust, text, value);
}
