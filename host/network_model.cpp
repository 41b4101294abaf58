// A network becomes the library's tables: records through the grow calls and the numbered fields, as any host adds
// them.
#include "network_model.h"

#include <pn10gdi.h>

#include <cmath>

namespace host {

namespace {

void setNode(int32_t n, const NetNode& node, const NetUnits& units) {
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
  set(NDT_P_FACTOR, static_cast<double>(GetUnitFactor(units.pressure.c_str(), 1, "PUS")));
  set(NDT_QB_LOAD, node.load);
  set(NDT_QB_KNOWN, node.source ? 1 : 0);
  text(NDT_Q_UNITS, units.flow);
  set(NDT_Q_FACTOR, static_cast<double>(GetUnitFactor(units.flow.c_str(), 1, "QUS")));
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

void addNodes(const Network& net) {
  for (const NetNode& node : net.nodes) {
    const int32_t n = GetNextNdtCnt();
    if (!ReallocNdt(n) || !ReallocNXY(n)) throw Failure{"no memory for " + std::to_string(net.nodes.size()) + " nodes"};
    InitNXY(n);
    setNode(n, node, net.units);
    GetNextNid();
  }
}

/** Appends a run of vertices and gives its first and last record; kind 0 belongs to a pipe, 1 to a service line, 8 is
 * an arc. */
struct Run {
  int32_t first, last;
};
Run addRun(int32_t owner, int16_t kind, const std::vector<Point>& points) {
  Run run{0, 0};
  for (const Point& p : points) {
    const int32_t v = GetNextVtxCnt();
    if (!ReallocVtx(v)) throw Failure{"no memory for vertices"};
    SetVtxVal(v, VTX_OWNER_ID, owner);
    SetVtxVal(v, VTX_KIND_NO, kind);
    SetVtxVal(v, VTX_X_COORD, p.x);
    SetVtxVal(v, VTX_Y_COORD, p.y);
    SetVtxVal(v, VTX_Z_COORD, 0);
    if (!run.first) run.first = v;
    run.last = v;
  }
  return run;
}

/** A regulator's or compressor's LENGTH is its set pressure, a valve's its opening, a well's its coefficient. */
bool hasLength(LinkKind kind) { return kind == LinkKind::Pipe || kind == LinkKind::Fitting; }

void addFittings(int32_t pipe, const NetLink& link) {
  for (const std::string& name : link.fittings) {
    const auto f = static_cast<int32_t>(GetFdtVal(0, nullptr, FDT_COUNT)) + 1;
    if (!ReallocFdt(f)) throw Failure{"no memory for fittings"};
    SetFdtVal(f, FDT_NAME, name.c_str(), 0);
    SetFdtVal(f, FDT_PIPE_ID, "", pipe);
    SetFdtVal(f, FDT_NUM, "", 1);
  }
  SetPdtVal(pipe, PDT_FTG_COUNT, "", static_cast<double>(link.fittings.size()));
}

void setPipe(int32_t p, const NetLink& link, const NetUnits& units) {
  const auto set = [p](int16_t field, double value) { SetPdtVal(p, field, "", value); };
  const auto text = [p](int16_t field, const std::string& value) { SetPdtVal(p, field, value.c_str(), 0); };
  const bool measured = hasLength(link.kind);
  const std::string lengthUnits = measured ? units.length : units.pressure;
  set(PDT_ID, p);
  set(PDT_FROM_NODE, link.from + 1);
  set(PDT_TO_NODE, link.to + 1);
  set(PDT_HYD_TYPE, static_cast<double>(link.kind));
  set(PDT_EQUATION, 1);
  set(PDT_STATUS, link.off ? 1 : 0);
  text(PDT_SIZE_TYPE, link.size);
  text(PDT_DR_UNITS, units.diameter);
  set(PDT_D_FACTOR, static_cast<double>(GetUnitFactor(units.diameter.c_str(), 1, "DUS")));
  text(PDT_L_UNITS, lengthUnits);
  set(PDT_L_FACTOR, static_cast<double>(GetUnitFactor(lengthUnits.c_str(), 1, measured ? "LUS" : "PUS")));
  set(PDT_EFFICIENCY, 0.95);
  set(PDT_FLOW, link.flow);
  text(PDT_Q_UNITS, units.flow);
  set(PDT_Q_FACTOR, static_cast<double>(GetUnitFactor(units.flow.c_str(), 1, "QUS")));
  text(PDT_DP_UNITS, units.pressure);
  set(PDT_DP_FACTOR, static_cast<double>(GetUnitFactor(units.pressure.c_str(), 1, "PUS")));
  set(PDT_Z_FACTOR, 1);
  set(PDT_FACILITY, link.facility);
  set(PDT_TEXT_ANGLE, -1);
  set(PDT_LABEL_ON, 1);
  set(PDT_COLOR, -1);  // colour, width and type are those of the view
  set(PDT_FLAG_BYTE, link.flag);
  text(PDT_LINK_ID, link.name);
}

void addPipes(const Network& net) {
  const bool geographic = net.units.geographic;
  for (const NetLink& link : net.links) {
    const int32_t p = GetNextPdtCnt();
    if (!ReallocPdt(p) || !ReallocPXY(p)) throw Failure{"no memory for " + std::to_string(net.links.size()) + " pipes"};
    InitPXY(p);
    GetNextPid();
    setPipe(p, link, net.units);
    if (link.arcRadius > 0) {
      const Run run = addRun(p, 8, {{link.arcRadius, link.arcAngle}});
      SetPdtVal(p, PDT_VTX_MODE, "", link.arcTurn);
      UpdatePXY(p, run.first, run.last, 0);
    } else if (!link.bends.empty()) {
      const Run run = addRun(p, 0, link.bends);
      SetPdtVal(p, PDT_VTX_MODE, "", 4);
      UpdatePXY(p, run.first, run.last, 0);
    }
    double length = link.length;
    if (hasLength(link.kind) && length <= 0) {
      // Measured on the map: feet on the globe, model units in the plane.
      const double feet = static_cast<double>(CalcPipeLength(p, 0));
      const double factor = static_cast<double>(GetUnitFactor(net.units.length.c_str(), 1, "LUS"));
      length = geographic && factor > 0 ? feet / factor : feet;
    }
    SetPdtVal(p, PDT_LENGTH, "", hasLength(link.kind) ? length : link.setting);
    addFittings(p, link);
  }
}

void addCustomers(const Network& net) {
  std::vector<int32_t> perPipe(net.links.size());
  for (const NetCustomer& customer : net.customers) {
    const int32_t c = GetNextCdtCnt();
    if (!ReallocCdt(c) || !ReallocCXY(c))
      throw Failure{"no memory for " + std::to_string(net.customers.size()) + " customers"};
    InitCXY(c);
    GetNextCid();
    const auto set = [c](int16_t field, double value) { SetCdtVal(c, field, "", value); };
    const auto text = [c](int16_t field, const std::string& value) { SetCdtVal(c, field, value.c_str(), 0); };
    set(CDT_ID, c);
    set(CDT_PIPE_REC, customer.link + 1);
    set(CDT_NODE_ASGN, 3);
    set(CDT_UNIT_LOAD, customer.load);
    text(CDT_LOAD_UNITS, net.units.flow);
    set(CDT_LOAD_FACTOR, static_cast<double>(GetUnitFactor(net.units.flow.c_str(), 1, "QUS")));
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
    if (!customer.service.empty()) {
      const Run run = addRun(c, 1, customer.service);
      set(CDT_VTX_MODE, 4);
      UpdateCXY(c, run.first, run.last, 0, 1);
    }
    if (customer.link >= 0 && !customer.deleted) perPipe[static_cast<size_t>(customer.link)]++;
  }
  for (size_t i = 0; i < perPipe.size(); i++) {
    SetPdtVal(static_cast<int32_t>(i) + 1, PDT_CUST_COUNT, "", perPipe[i]);
  }
}

/** Deletions come last, as a host's would: the record keeps its slot until a save. */
void markDeleted(const Network& net) {
  for (size_t i = 0; i < net.links.size(); i++) {
    if (net.links[i].deleted) DelPipe(static_cast<int32_t>(i) + 1);
  }
  for (size_t i = 0; i < net.nodes.size(); i++) {
    if (net.nodes[i].deleted) DelNode(static_cast<int32_t>(i) + 1);
  }
  for (size_t i = 0; i < net.customers.size(); i++) {
    if (net.customers[i].deleted) DelCust(static_cast<int32_t>(i) + 1);
  }
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
  addNodes(net);
  addPipes(net);
  addCustomers(net);
  markDeleted(net);
}

void applyUnits(const NetUnits& units) {
  const float lengthFactor = units.geographic ? -1.0f : 1.0f;
  SetGlobalUnits("ft/s", units.length.c_str(), units.length.c_str(), 1, 1, lengthFactor, 0.01f);
  SetBaseCond(14.7f, 60, "psia", "Fahrenheit", "cP", "Btu/cf");
}

}  // namespace host
