// A network becomes the library's tables: records through the grow calls and the numbered fields, as any host adds
// them.
#include "network_model.h"

#include <pn10gdi.h>

#include <cmath>

namespace host {

namespace {

constexpr int kWeymouth = 4;

/** The factors of a model's own units to the base units, asked for once. */
struct Factors {
  double length, pressure, flow, diameter;
  explicit Factors(const NetUnits& units)
      : length(factor(units.length, "LUS")),
        pressure(factor(units.pressure, "PUS")),
        flow(factor(units.flow, "QUS")),
        diameter(factor(units.diameter, "DUS")) {}

 private:
  static double factor(const std::string& unit, const char* family) {
    return static_cast<double>(GetUnitFactor(unit.c_str(), 1, family));
  }
};

int32_t countOf(size_t n) { return static_cast<int32_t>(n); }

/** All records at once: a table that grows record by record is moved again and again. */
void growTables(const Network& net) {
  size_t vertices = 0, fittings = 0;
  for (const NetLink& link : net.links) {
    vertices += link.arcRadius > 0 ? 1 : link.bends.size();
    fittings += link.fittings.size();
  }
  for (const NetCustomer& customer : net.customers) vertices += customer.service.size();
  const int32_t nodes = countOf(net.nodes.size()), links = countOf(net.links.size()),
                customers = countOf(net.customers.size());
  if (!ReallocNdt(nodes) || !ReallocNXY(nodes) || !ReallocPdt(links) || !ReallocPXY(links) || !ReallocCdt(customers) ||
      !ReallocCXY(customers) || !ReallocVtx(countOf(vertices)) || !ReallocFdt(countOf(fittings))) {
    throw Failure{"not enough memory for " + std::to_string(nodes) + " nodes and " + std::to_string(links) + " pipes"};
  }
}

void setNode(int32_t n, const NetNode& node, const NetUnits& units, const Factors& factors) {
  const auto set = [n](int16_t field, double value) { SetNdtVal(n, field, "", value); };
  const auto text = [n](int16_t field, const std::string& value) { SetNdtVal(n, field, value.c_str(), 0); };
  set(NDT_ID, n);
  text(NDT_NODENAME, node.name);
  set(NDT_X_COORD, node.x);
  set(NDT_Y_COORD, node.y);
  set(NDT_Z_COORD, node.z);
  set(NDT_ELEV, node.z);
  set(NDT_PRESSURE, node.pressure);
  set(NDT_P_KNOWN, node.source ? 0 : 1);
  text(NDT_P_UNITS, units.pressure);
  set(NDT_P_FACTOR, factors.pressure);
  set(NDT_QB_LOAD, node.load);
  set(NDT_QB_KNOWN, node.source ? 1 : 0);
  text(NDT_Q_UNITS, units.flow);
  set(NDT_Q_FACTOR, factors.flow);
  set(NDT_PATM, 14.7);
  set(NDT_T, 60);
  set(NDT_VISCOSITY, 0.011);
  set(NDT_SG, 0.6);
  set(NDT_SH_RATIO, 1.3);
  set(NDT_HV, 1000);
  set(NDT_TEXT_ANGLE, -1);
  set(NDT_LABEL_ON, 1);
  set(NDT_COLOR, -1);
  set(NDT_HYD_TYPE, node.valve ? 1 : 0);
  set(NDT_HYD_STATUS, node.off ? 1 : 0);
  set(NDT_FLAG_TYPE, node.flag);
}

void addNodes(const Network& net, const Factors& factors) {
  for (const NetNode& node : net.nodes) {
    const int32_t n = GetNextNdtCnt();
    GetNextNid();
    InitNXY(n);
    setNode(n, node, net.units, factors);
  }
}

/** Vertices of one owner, one behind the other; kind 0 belongs to a pipe, 1 to a service line, 8 is an arc. */
struct Run {
  int32_t first = 0, last = 0;
};
Run addRun(int32_t owner, int16_t kind, const std::vector<Point>& points, double fromZ, double toZ) {
  Run run;
  double fraction = 0;
  for (const Point& p : points) {
    fraction += 1.0 / static_cast<double>(points.size() + 1);
    const int32_t v = GetNextVtxCnt();
    SetVtxVal(v, VTX_OWNER_ID, owner);
    SetVtxVal(v, VTX_KIND_NO, kind);
    SetVtxVal(v, VTX_X_COORD, p.x);
    SetVtxVal(v, VTX_Y_COORD, p.y);
    SetVtxVal(v, VTX_Z_COORD, fromZ + (toZ - fromZ) * fraction);
    if (!run.first) run.first = v;
    run.last = v;
  }
  return run;
}

/** A regulator's or compressor's LENGTH is its set pressure, a valve's its opening, a well's its coefficient. */
bool hasLength(LinkKind kind) { return kind == LinkKind::Pipe || kind == LinkKind::Fitting; }

const char* settingUnits(const NetLink& link, const NetUnits& units) {
  const bool pressure = link.kind == LinkKind::Regulator || link.kind == LinkKind::Compressor;
  return hasLength(link.kind) ? units.length.c_str() : pressure ? units.pressure.c_str() : "";
}

/** Fittings count from 1; `next` is the record that the next one takes. */
void addFittings(int32_t pipe, const NetLink& link, int32_t& next) {
  for (const std::string& name : link.fittings) {
    SetFdtVal(next, FDT_NAME, name.c_str(), 0);
    SetFdtVal(next, FDT_PIPE_ID, "", pipe);
    SetFdtVal(next, FDT_NUM, "", 1);
    next++;
  }
  SetPdtVal(pipe, PDT_FTG_COUNT, "", static_cast<double>(link.fittings.size()));
}

void setPipe(int32_t p, const NetLink& link, const NetUnits& units, const Factors& factors) {
  const auto set = [p](int16_t field, double value) { SetPdtVal(p, field, "", value); };
  const auto text = [p](int16_t field, const std::string& value) { SetPdtVal(p, field, value.c_str(), 0); };
  set(PDT_ID, p);
  set(PDT_FROM_NODE, link.from + 1);
  set(PDT_TO_NODE, link.to + 1);
  set(PDT_HYD_TYPE, static_cast<double>(link.kind));
  set(PDT_EQUATION, kWeymouth);
  set(PDT_STATUS, link.off ? 1 : 0);
  text(PDT_SIZE_TYPE, link.size);
  text(PDT_DR_UNITS, units.diameter);
  set(PDT_D_FACTOR, factors.diameter);
  text(PDT_L_UNITS, settingUnits(link, units));
  set(PDT_L_FACTOR, link.kind == LinkKind::Regulator || link.kind == LinkKind::Compressor ? factors.pressure
                    : hasLength(link.kind)                                                ? factors.length
                                                                                          : 1);
  set(PDT_EFFICIENCY, 1);
  set(PDT_FLOW, link.flow);
  text(PDT_Q_UNITS, units.flow);
  set(PDT_Q_FACTOR, factors.flow);
  text(PDT_DP_UNITS, units.pressure);
  set(PDT_DP_FACTOR, factors.pressure);
  set(PDT_Z_FACTOR, 1);
  set(PDT_FACILITY, link.facility);
  set(PDT_TEXT_ANGLE, -1);
  set(PDT_LABEL_ON, 1);
  set(PDT_COLOR, -1);  // colour, width and type are those of the view
  set(PDT_FLAG_BYTE, link.flag);
  text(PDT_LINK_ID, link.name);
}

void setPath(int32_t p, const NetLink& link, double fromZ, double toZ) {
  if (link.arcRadius > 0) {
    const Run run = addRun(p, 8, {{link.arcRadius, link.arcAngle}}, fromZ, toZ);
    SetPdtVal(p, PDT_VTX_MODE, "", link.arcTurn);
    UpdatePXY(p, run.first, run.last, 0);
  } else if (!link.bends.empty()) {
    const Run run = addRun(p, 0, link.bends, fromZ, toZ);
    SetPdtVal(p, PDT_VTX_MODE, "", 4);
    UpdatePXY(p, run.first, run.last, 0);
  }
}

/** A length that is not given is measured along the ground: feet on the globe, model units in the plane. */
double lengthOf(int32_t p, const NetLink& link, bool geographic, double lengthFactor) {
  if (!hasLength(link.kind)) return link.setting;
  if (link.length > 0) return link.length;
  const double measured = static_cast<double>(CalcPipeLength(p, 1));
  return geographic ? measured / lengthFactor : measured;
}

double pressureDrop(const Network& net, const NetLink& link) {
  const double from = net.nodes[static_cast<size_t>(link.from)].pressure,
               to = net.nodes[static_cast<size_t>(link.to)].pressure;
  return from < 0 || to < 0 ? 0 : std::fabs(from - to);
}

void addPipes(const Network& net, const Factors& factors) {
  int32_t nextFitting = 1;
  for (const NetLink& link : net.links) {
    const int32_t p = GetNextPdtCnt();
    GetNextPid();
    InitPXY(p);
    setPipe(p, link, net.units, factors);
    setPath(p, link, net.nodes[static_cast<size_t>(link.from)].z, net.nodes[static_cast<size_t>(link.to)].z);
    SetPdtVal(p, PDT_LENGTH, "", lengthOf(p, link, net.units.geographic, factors.length));
    SetPdtVal(p, PDT_DP, "", pressureDrop(net, link));
    addFittings(p, link, nextFitting);
  }
}

void setCustomer(int32_t c, const NetCustomer& customer, const NetUnits& units, const Factors& factors) {
  const auto set = [c](int16_t field, double value) { SetCdtVal(c, field, "", value); };
  const auto text = [c](int16_t field, const std::string& value) { SetCdtVal(c, field, value.c_str(), 0); };
  set(CDT_ID, c);
  set(CDT_PIPE_REC, customer.link + 1);
  set(CDT_NODE_ASGN, 3);
  set(CDT_UNIT_LOAD, customer.load);
  text(CDT_LOAD_UNITS, units.flow);
  set(CDT_LOAD_FACTOR, factors.flow);
  set(CDT_COUNT, customer.count);
  set(CDT_LOAD_MULT, 1);
  set(CDT_X_COORD, customer.at.x);
  set(CDT_Y_COORD, customer.at.y);
  set(CDT_SX_COORD, customer.tap.x);
  set(CDT_SY_COORD, customer.tap.y);
  set(CDT_COLOR, -1);
  set(CDT_HOST_SHORT_411, 1);
  set(CDT_TEXT_ANGLE, -1);
  text(CDT_LINK_ID, customer.name);
}

double levelOf(const Network& net, const NetLink& link) {
  return (net.nodes[static_cast<size_t>(link.from)].z + net.nodes[static_cast<size_t>(link.to)].z) / 2;
}

void addCustomers(const Network& net, const Factors& factors) {
  std::vector<int32_t> perPipe(net.links.size());
  for (const NetCustomer& customer : net.customers) {
    const int32_t c = GetNextCdtCnt();
    GetNextCid();
    InitCXY(c);
    setCustomer(c, customer, net.units, factors);
    // A meter stands at the level of the street that it is tapped to.
    const double z = customer.link < 0 ? 0 : levelOf(net, net.links[static_cast<size_t>(customer.link)]);
    SetCdtVal(c, CDT_Z_COORD, "", z);
    if (!customer.service.empty()) {
      const Run run = addRun(c, 1, customer.service, z, z);
      SetCdtVal(c, CDT_VTX_MODE, "", 4);
      UpdateCXY(c, run.first, run.last, 0, 1);
    }
    if (customer.link >= 0) perPipe[static_cast<size_t>(customer.link)]++;
  }
  for (size_t i = 0; i < perPipe.size(); i++) SetPdtVal(countOf(i) + 1, PDT_CUST_COUNT, "", perPipe[i]);
}

}  // namespace

void makeModel(const Network& net) {
  FreeModel();
  FreeFdt();
  // Empty tables with their slot 0, as a new model has them.
  ReadVtx("", 1);
  ReadNdt("", 1, 10.1f);
  ReadPdt("", 1, net.units.pressure.c_str(), 1);
  ReadCdt("", 1);
  applyUnits(net.units);
  const Factors factors(net.units);
  growTables(net);
  addNodes(net, factors);
  addPipes(net, factors);
  addCustomers(net, factors);
}

void applyUnits(const NetUnits& units) {
  const float lengthFactor = units.geographic ? -1.0f : 1.0f;
  SetGlobalUnits("ft/s", units.length.c_str(), units.length.c_str(), 1, 1, lengthFactor, 0.01f);
  SetBaseCond(14.7f, 519.67f, "psia", "Fahrenheit", "cP", "Btu/cf");
}

}  // namespace host
