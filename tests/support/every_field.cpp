/** Records in which every member has a value of its own. */
#include "support/model_builder.h"

namespace pn10::test {

namespace {

/** Hands out a new value for every member of a record. */
class Values {
 public:
  explicit Values(int seed) : next_(seed * 100) {}
  int small() { return next_++ % 120 + 1; } /* fits a byte, never 0 */
  int16_t i16() { return static_cast<int16_t>(1000 + next_++); }
  int32_t i32() { return 1000000 + next_++; }
  float f32() { return static_cast<float>(next_++) + 0.25f; }
  double f64() { return next_++ + 0.125; }
  template <size_t N>
  void text(char (&field)[N]) {
    std::string t = "t";
    t += std::to_string(next_++);
    t.resize(N - 1, 'x');
    std::memcpy(field, t.c_str(), N);
  }

 private:
  int next_;
};

}  // namespace

Ndt everyNodeField(int seed) {
  Values v(seed);
  Ndt n{};
  n.ID = v.i32();
  v.text(n.NODENAME);
  n.PRESSURE = v.f32();
  n.P_KNOWN = static_cast<uint8_t>(v.small());
  v.text(n.P_UNITS);
  n.P_FACTOR = v.f32();
  n.QB_LOAD = v.f32();
  n.QB_KNOWN = static_cast<int16_t>(v.small());
  n.QB_DF = static_cast<int16_t>(v.small());
  n.QB_STATUS = static_cast<int16_t>(v.small());
  v.text(n.Q_UNITS);
  n.Q_FACTOR = v.f32();
  n.QX_LOAD = v.f32();
  n.QX_DF = 1;
  n.QX_STATUS = static_cast<uint8_t>(v.small());
  n.QX_FIXED = v.f32();
  n.ELEV = v.f32();
  n.PATM = v.f32();
  n.T = v.f32();
  n.T_KNOWN = static_cast<uint8_t>(v.small());
  n.VISCOSITY = v.f32();
  n.SG = v.f32();
  n.SH_RATIO = v.f32();
  n.HV = v.f32();
  n.X_COORD = v.f64();
  n.Y_COORD = v.f64();
  n.Z_COORD = v.f32();
  n.TEXT_X = v.f64();
  n.TEXT_Y = v.f64();
  n.TEXT_ANGLE = v.f32();
  n.LABEL_ON = v.i16();
  n.RESERVED_D = v.f64();
  n.COLOR = v.i32();
  n.SYM_SIZE = v.f32();
  n.SYMBOL = v.i16();
  n.HAS_RDX = static_cast<uint8_t>(v.small());
  n.HOST_BYTE_348 = static_cast<uint8_t>(v.small());
  n.HOST_BYTE_346 = static_cast<uint8_t>(v.small());
  n.FLAG_TYPE = v.i16();
  n.REC_STATUS = v.i16();
  v.text(n.REC_DATE);
  n.HYD_STATUS = static_cast<uint8_t>(v.small());
  n.HYD_TYPE = static_cast<uint8_t>(v.small());
  n.HOST_BYTE_385 = static_cast<uint8_t>(v.small());
  n.CMP_VALUE = v.f32();
  n.CMP_MODE = static_cast<uint8_t>(v.small());
  return n;
}

Pdt everyPipeField(int seed) {
  Values v(seed);
  Pdt p{};
  p.ID = v.i32();
  p.FROM_NODE = v.i32();
  p.TO_NODE = v.i32();
  p.HYD_TYPE = static_cast<uint8_t>(v.small());
  p.EQUATION = v.i16();
  p.STATUS = static_cast<uint8_t>(v.small());
  v.text(p.SIZE_TYPE);
  v.text(p.DR_UNITS);
  p.D_FACTOR = v.f32();
  p.SIZE_FLAG = static_cast<uint8_t>(v.small());
  p.HOST_SHORT_34 = v.i16();
  p.LENGTH = v.f32();
  v.text(p.L_UNITS);
  p.L_FACTOR = v.f32();
  p.EFFICIENCY = v.f32();
  p.FLOW = v.f32();
  v.text(p.Q_UNITS);
  p.Q_FACTOR = v.f32();
  p.DP = v.f32();
  v.text(p.DP_UNITS);
  p.DP_FACTOR = v.f32();
  p.Z_FACTOR = v.f32();
  p.FACILITY = v.i16();
  p.FTG_COUNT = static_cast<uint8_t>(v.small());
  p.CMP_MODE = static_cast<uint8_t>(v.small());
  p.FTG_EQ_LENGTH = v.f32();
  p.CMP_VALUE = v.f64();
  p.CUST_COUNT = v.i16();
  p.TEXT_X = v.f64();
  p.TEXT_Y = v.f64();
  p.TEXT_ANGLE = v.f32();
  p.LABEL_ON = v.i16();
  p.CALC_RESERVED_D = v.f64();
  p.COLOR = v.i32();
  p.VTX_MODE = static_cast<uint8_t>(v.small());
  p.LINE_WIDTH = v.i16();
  p.LINE_TYPE = v.i16();
  p.HOST_BYTE_58 = static_cast<uint8_t>(v.small());
  v.text(p.LINK_ID);
  p.CALC_RESERVED_B = static_cast<uint8_t>(v.small());
  for (float& value : p.CALC_RESERVED_F) value = v.f32();
  p.VTX_FIRST = v.i32();
  p.VTX_LAST = v.i32();
  p.ROUGHNESS = v.f32();
  p.VELOCITY = v.f32();
  p.REYNOLDSNO = v.f32();
  p.MAOP = v.f32();
  p.FLAG_BYTE = static_cast<uint8_t>(v.small());
  p.HOST_BYTE_154 = static_cast<uint8_t>(v.small());
  p.REC_STATUS = v.i16();
  p.GROUP_ID = v.i32();
  p.GROUP_TYPE = v.i16();
  v.text(p.REC_DATE);
  return p;
}

Cdt everyCustField(int seed) {
  Values v(seed);
  Cdt c{};
  c.ID = v.i32();
  c.PIPE_REC = v.i32();
  c.NODE_ASGN = v.i16();
  c.UNIT_LOAD = v.f32();
  v.text(c.LOAD_UNITS);
  c.LOAD_FACTOR = v.f32();
  c.X_COORD = v.f64();
  c.Y_COORD = v.f64();
  c.Z_COORD = v.f32();
  c.COLOR = v.i32();
  c.HOST_SHORT_409 = v.i16();
  c.HOST_SHORT_410 = v.i16();
  c.HOST_SHORT_437 = v.i16();
  c.HOST_SHORT_411 = v.i16();
  c.TEXT_X = v.f64();
  c.TEXT_Y = v.f64();
  c.TEXT_ANGLE = v.f32();
  c.CALC_RESERVED_D = v.f64();
  c.SX_COORD = v.f64();
  c.SY_COORD = v.f64();
  c.VTX_MODE = v.i16();
  c.LINK_FLAG = v.i16();
  c.LINK_CUST = v.i32();
  v.text(c.LINK_ID);
  c.HOST_SHORT_425 = v.i16();
  c.HOST_SHORT_436 = v.i16();
  c.COUNT = v.i16();
  c.LOAD_MULT = v.f32();
  c.LOAD_DF = v.i16();
  c.HOST_SHORT_431 = v.i16();
  c.FLAG_BYTE = static_cast<uint8_t>(v.small());
  c.HOST_BYTE_464 = static_cast<uint8_t>(v.small());
  c.REC_STATUS = v.i16();
  v.text(c.REC_DATE);
  return c;
}

}  // namespace pn10::test
