#include "support/model_builder.h"

#include <cstdlib>

namespace pn10::test {

namespace {

template <size_t N>
void set(char (&field)[N], std::string_view text) {
  std::memset(field, 0, N);
  std::memcpy(field, text.data(), std::min(text.size(), N - 1));
}

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
    std::string t = "t" + std::to_string(next_++);
    t.resize(N - 1, 'x');
    set(field, t);
  }

 private:
  int next_;
};

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

int32_t addVertices(int32_t owner, int kind, std::initializer_list<Point> points) {
  const int32_t first = model.vtxCount + 1;
  for (const Point& p : points) addVtx(vtxRecord(owner, kind, p.x, p.y, p.z));
  return first;
}

}  // namespace

Ndt nodeRecord(int32_t id, std::string_view name, double x, double y) {
  Ndt n{};
  n.ID = id;
  set(n.NODENAME, name);
  n.X_COORD = x;
  n.Y_COORD = y;
  return n;
}

Pdt pipeRecord(int32_t id, int32_t fromNode, int32_t toNode, int vtxMode) {
  Pdt p{};
  p.ID = id;
  p.FROM_NODE = fromNode;
  p.TO_NODE = toNode;
  p.VTX_MODE = static_cast<uint8_t>(vtxMode);
  return p;
}

Cdt custRecord(int32_t id, int32_t pipe, double x, double y) {
  Cdt c{};
  c.ID = id;
  c.PIPE_REC = pipe;
  c.X_COORD = x;
  c.Y_COORD = y;
  return c;
}

Vtx vtxRecord(int32_t owner, int kind, double x, double y, float z) {
  Vtx v{};
  v.VTX_OWNER = owner;
  v.VTX_KIND = static_cast<int16_t>(kind);
  v.VTX_X = x;
  v.VTX_Y = y;
  v.VTX_Z = z;
  return v;
}

Fdt ftgRecord(int32_t pipeId, std::string_view name, int number, float eqLength, int flag) {
  Fdt f{};
  f.FTG_PIPE_ID = pipeId;
  set(f.FTG_NAME, name);
  f.FTG_NUM = static_cast<int16_t>(number);
  f.FTG_EQL = eqLength;
  f.FTG_FLAG = static_cast<int16_t>(flag);
  return f;
}

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

int32_t addNode(const Ndt& node) {
  const int32_t n = model.nodeCount + 1;
  EXPECT_EQ(ReallocNdt(n), 1);
  EXPECT_EQ(ReallocNXY(n), 1);
  GetNextNdtCnt();
  InitNXY(n);
  model.ndt[n] = node;
  model.lastNodeId = std::max(model.lastNodeId, node.ID);
  return n;
}

int32_t addPipe(const Pdt& pipe) {
  const int32_t p = model.pipeCount + 1;
  EXPECT_EQ(ReallocPdt(p), 1);
  EXPECT_EQ(ReallocPXY(p), 1);
  GetNextPdtCnt();
  InitPXY(p);
  model.pdt[p] = pipe;
  model.lastPipeId = std::max(model.lastPipeId, pipe.ID);
  return p;
}

int32_t addCust(const Cdt& cust) {
  const int32_t c = model.custCount + 1;
  EXPECT_EQ(ReallocCdt(c), 1);
  EXPECT_EQ(ReallocCXY(c), 1);
  GetNextCdtCnt();
  InitCXY(c);
  model.cdt[c] = cust;
  model.lastCustId = std::max(model.lastCustId, cust.ID);
  return c;
}

int32_t addVtx(const Vtx& vtx) {
  const int32_t v = model.vtxCount + 1;
  EXPECT_EQ(ReallocVtx(v), 1);
  GetNextVtxCnt();
  model.vtx[v] = vtx;
  return v;
}

int32_t addFtg(const Fdt& ftg) {
  const int32_t f = model.ftgCount + 1;
  EXPECT_EQ(ReallocFdt(f), 1);
  model.fdt[f] = ftg;
  return f;
}

int32_t addText(std::string_view text, double x, double y, int group) {
  const int32_t t = model.textCount + 1;
  EXPECT_EQ(ReallocTXY(t), 1);
  model.textCount = t;
  Gtx& row = model.gtx[t];
  row.Text = static_cast<char*>(std::calloc(text.size() + 1, 1));
  text.copy(row.Text, text.size());
  row.X = x;
  row.Y = y;
  row.Group = static_cast<int16_t>(group);
  row.Id = ++model.lastGroupId;
  row.Display = row.Active = 1;
  return t;
}

int32_t addUgd(int kind, double x1, double y1, double x2, double y2, int group) {
  const int32_t u = model.ugdCount + 1;
  model.ugd = static_cast<Ugd*>(std::realloc(model.ugd, (static_cast<size_t>(u) + 1) * sizeof(Ugd)));
  if (u == 1) model.ugd[0] = Ugd{};
  model.ugdCount = model.ugdCapacity = u;
  Ugd& row = model.ugd[u] = Ugd{};
  row.Id = ++model.lastUgdId;
  row.Kind = static_cast<int16_t>(kind);
  row.X1 = x1;
  row.Y1 = y1;
  row.X2 = x2;
  row.Y2 = y2;
  row.Group = static_cast<int16_t>(group);
  row.Display = row.Active = 1;
  return u;
}

int32_t addNode(double x, double y) {
  const int32_t id = GetNextNid();
  return addNode(nodeRecord(id, "N" + std::to_string(id), x, y));
}

int32_t addPipe(int32_t fromNode, int32_t toNode) { return addPipe(pipeRecord(GetNextPid(), fromNode, toNode)); }

int32_t addCust(int32_t pipe, double x, double y) { return addCust(custRecord(GetNextCid(), pipe, x, y)); }

void addNodes(int32_t count) {
  for (int32_t i = 1; i <= count; i++) addNode(10.0 * i, 0);
}

void addRun(int32_t pipe, std::initializer_list<Point> points) {
  model.pdt[pipe].VTX_MODE = 4;
  model.pxy[pipe].FIRST_VTX = addVertices(model.pdt[pipe].ID, 0, points);
  model.pxy[pipe].LAST_VTX = model.vtxCount;
}

void addService(int32_t cust, std::initializer_list<Point> points) {
  model.cdt[cust].VTX_MODE = 4;
  model.cxy[cust].FIRST_VTX = addVertices(model.cdt[cust].ID, 1, points);
  model.cxy[cust].LAST_VTX = model.vtxCount;
}

void addArc(int32_t pipe, double radius, double angle) {
  model.pdt[pipe].VTX_MODE = 1;
  model.pxy[pipe].FIRST_VTX = 0;
  model.pxy[pipe].LAST_VTX = addVertices(model.pdt[pipe].ID, 8, {{radius, angle}});
}

}  // namespace pn10::test
