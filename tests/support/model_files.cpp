/** Records as they stand on file, packed member by member. */
#include "support/model_builder.h"

namespace pn10::test {

namespace {

/** A text as it stands on file: `width` bytes of the array. */
template <size_t N>
void put(Bytes& to, const char (&field)[N]) {
  to.add(std::string_view(field, N - 1));
}

template <class Record>
std::string joined(const std::vector<Record>& records, size_t stride) {
  std::string all;
  for (const Record& record : records) {
    if (!all.empty()) all.resize((all.size() + stride - 1) / stride * stride, '\0');
    all += packed(record);
  }
  return all;
}

}  // namespace

std::string packed(const Ndt& n) {
  Bytes b;
  b.i32(n.ID);
  put(b, n.NODENAME);
  b.f32(n.PRESSURE).i16(n.P_KNOWN);
  put(b, n.P_UNITS);
  b.f32(n.P_FACTOR).f32(n.QB_LOAD).i16(n.QB_KNOWN).i16(n.QB_DF).i16(n.QB_STATUS);
  put(b, n.Q_UNITS);
  b.f32(n.Q_FACTOR).f32(n.QX_LOAD).i16(n.QX_DF).i16(n.QX_STATUS).f32(n.QX_FIXED);
  b.f32(n.ELEV).f32(n.PATM).f32(n.T).i16(n.T_KNOWN).f32(n.VISCOSITY).f32(n.SG).f32(n.SH_RATIO).f32(n.HV);
  b.f64(n.X_COORD).f64(n.Y_COORD).f32(n.Z_COORD).f64(n.TEXT_X).f64(n.TEXT_Y).f32(n.TEXT_ANGLE).i16(n.LABEL_ON);
  b.f64(n.RESERVED_D).i32(n.COLOR).f32(n.SYM_SIZE).i16(n.SYMBOL);
  b.i16(n.HAS_RDX).i16(n.HOST_BYTE_348).i16(n.HOST_BYTE_346).i16(n.FLAG_TYPE).i16(n.REC_STATUS);
  put(b, n.REC_DATE);
  b.i16(n.HYD_STATUS).i8(n.HYD_TYPE).i8(n.HOST_BYTE_385).f32(n.CMP_VALUE).i16(n.CMP_MODE);
  return b.str();
}

std::string packed(const Pdt& p) {
  Bytes b;
  b.i32(p.ID).i32(p.FROM_NODE).i32(p.TO_NODE).i16(p.HYD_TYPE).i16(p.EQUATION).i16(p.STATUS);
  put(b, p.SIZE_TYPE);
  put(b, p.DR_UNITS);
  b.f32(p.D_FACTOR).i16(p.SIZE_FLAG).i16(p.HOST_SHORT_34).f32(p.LENGTH);
  put(b, p.L_UNITS);
  b.f32(p.L_FACTOR).f32(p.EFFICIENCY).f32(p.FLOW);
  put(b, p.Q_UNITS);
  b.f32(p.Q_FACTOR).f32(p.DP);
  put(b, p.DP_UNITS);
  b.f32(p.DP_FACTOR).f32(p.Z_FACTOR).i16(p.FACILITY).i8(p.FTG_COUNT).i8(p.CMP_MODE).f32(p.FTG_EQ_LENGTH);
  b.f64(p.CMP_VALUE).i16(p.CUST_COUNT).f64(p.TEXT_X).f64(p.TEXT_Y).f32(p.TEXT_ANGLE).i16(p.LABEL_ON);
  b.f64(p.CALC_RESERVED_D).i32(p.COLOR).i16(p.VTX_MODE).i16(p.LINE_WIDTH).i16(p.LINE_TYPE).i16(p.HOST_BYTE_58);
  put(b, p.LINK_ID);
  b.i16(p.CALC_RESERVED_B);
  for (float value : p.CALC_RESERVED_F) b.f32(value);
  b.i32(p.VTX_FIRST).i32(p.VTX_LAST).f32(p.ROUGHNESS).f32(p.VELOCITY).f32(p.REYNOLDSNO).f32(p.MAOP);
  b.i8(p.FLAG_BYTE).i8(p.HOST_BYTE_154).i16(p.REC_STATUS).i32(p.GROUP_ID).i16(p.GROUP_TYPE);
  put(b, p.REC_DATE);
  return b.str();
}

std::string packed(const Cdt& c) {
  Bytes b;
  b.i32(c.ID).text("", 20).i32(c.PIPE_REC).i16(c.NODE_ASGN).f32(c.UNIT_LOAD);
  put(b, c.LOAD_UNITS);
  b.f32(c.LOAD_FACTOR).f64(c.X_COORD).f64(c.Y_COORD).f32(c.Z_COORD).i32(c.COLOR);
  b.i16(c.HOST_SHORT_409).i16(c.HOST_SHORT_410).i16(c.HOST_SHORT_437).i16(c.HOST_SHORT_411);
  b.f64(c.TEXT_X).f64(c.TEXT_Y).f32(c.TEXT_ANGLE).f64(c.CALC_RESERVED_D).f64(c.SX_COORD).f64(c.SY_COORD);
  b.i16(c.VTX_MODE).i16(c.LINK_FLAG).i32(c.LINK_CUST);
  put(b, c.LINK_ID);
  b.i16(c.HOST_SHORT_425).i16(c.HOST_SHORT_436).i16(c.COUNT).f32(c.LOAD_MULT).i16(c.LOAD_DF).i16(c.HOST_SHORT_431);
  b.i8(c.FLAG_BYTE).i8(c.HOST_BYTE_464).i16(c.REC_STATUS);
  put(b, c.REC_DATE);
  return b.str();
}

std::string packed(const Vtx& v) {
  return Bytes().i32(v.VTX_OWNER).i16(v.VTX_KIND).f64(v.VTX_X).f64(v.VTX_Y).f32(v.VTX_Z).str();
}

std::string packed(const Fdt& f) {
  Bytes b;
  b.i32(f.FTG_PIPE_ID);
  put(b, f.FTG_NAME);
  return b.i16(f.FTG_NUM).f32(f.FTG_EQL).i16(f.FTG_FLAG).str();
}

std::string fileOf(const std::vector<Ndt>& nodes) { return joined(nodes, 220); }
std::string fileOf(const std::vector<Pdt>& pipes) { return joined(pipes, 280); }
std::string fileOf(const std::vector<Cdt>& custs) { return joined(custs, 214); }
std::string fileOf(const std::vector<Vtx>& vtxs) { return joined(vtxs, 26); }
std::string fileOf(const std::vector<Fdt>& ftgs) { return std::string(4, '\0') + joined(ftgs, 32); }

}  // namespace pn10::test
