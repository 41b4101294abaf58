/** Records and tables, made the way a host makes them. */
#include "support/model_builder.h"

#include <cstdlib>

namespace pn10::test {

namespace {

template <size_t N>
void set(char (&field)[N], std::string_view text) {
  std::memset(field, 0, N);
  std::memcpy(field, text.data(), std::min(text.size(), N - 1));
}

int32_t addVertices(int32_t owner, int kind, std::initializer_list<Point> points) {
  const int32_t first = model.vtxCount + 1;
  for (const Point& p : points) addVtx(vtxRecord(owner, kind, p.x, p.y, p.z));
  return first;
}

}  // namespace

std::string nodeName(int32_t number) {
  std::string name = "N";
  return name += std::to_string(number);
}

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

void makeEmptyTables(int32_t nodes, int32_t pipes, int32_t customers, int32_t vertices) {
  model.ndt = newTable<Ndt>(nodes);
  model.nxy = newTable<NXY>(nodes);
  model.pdt = newTable<Pdt>(pipes);
  model.pxy = newTable<PXY>(pipes);
  model.cdt = newTable<Cdt>(customers);
  model.cxy = newTable<CXY>(customers);
  model.vtx = newTable<Vtx>(vertices);
  model.ndtSlots = model.nxySlots = nodes + 1;
  model.pdtSlots = model.pxySlots = pipes + 1;
  model.cdtSlots = model.cxySlots = customers + 1;
  model.vtxSlots = vertices + 1;
  model.nodeCount = nodes;
  model.pipeCount = pipes;
  model.custCount = customers;
  model.vtxCount = vertices;
}

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
  return addNode(nodeRecord(id, nodeName(id), x, y));
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
