/** The label lines of nodes. */
#include <cmath>

#include "draw/label_text.h"
#include "draw/labels.h"
#include "model/tables.h"

namespace pn10 {

namespace {

using Field = LabelField<Ndt>;

/** "*" marks a value that was calculated, not given. */
constexpr const char* kCalculated = "*";

const char* pressureMark(const Ndt& n) { return n.P_KNOWN ? kCalculated : ""; }
const char* temperatureMark(const Ndt& n) { return n.T_KNOWN == 1 ? kCalculated : ""; }
const char* gasMark(const Ndt& n) { return n.SG < 0 ? kCalculated : ""; }
const char* loadMark(const Ndt& n) {
  if (n.QB_STATUS || n.QX_STATUS) return " (Off)";
  return n.QB_KNOWN ? kCalculated : "";
}
const char* externalMark(const Ndt& n) { return n.QX_STATUS ? " (Off)" : ""; }

const char* pressureUnits(const Ndt& n) { return n.P_UNITS; }
const char* loadUnits(const Ndt& n) { return n.Q_UNITS; }
const char* temperatureUnits(const Ndt&) { return settings.tempUnits; }
const char* patmUnits(const Ndt&) { return settings.patmUnits; }
const char* viscosityUnits(const Ndt&) { return settings.visUnits; }
const char* heatingUnits(const Ndt&) { return settings.hvUnits; }
const char* elevationUnits(const Ndt&) { return settings.elevUnits; }
const char* coordinateUnits(const Ndt&) { return settings.coordUnits; }

double times(double load, bool factored) { return factored ? load * drawState.LoadFactor : load; }
double fixedLoad(const Ndt& n) { return static_cast<double>(n.QX_FIXED) / n.Q_FACTOR; }

/** Kept: the flag of the base load decides whether the external load takes the load factor. */
double externalLoad(const Ndt& n) {
  return times(static_cast<double>(n.QX_LOAD) / n.Q_FACTOR, n.QB_DF != 0) + fixedLoad(n);
}
double totalLoad(const Ndt& n) {
  return static_cast<double>(n.QB_LOAD) + static_cast<double>(n.QX_LOAD) / n.Q_FACTOR + fixedLoad(n);
}
double adjustedLoad(const Ndt& n) {
  return times(n.QB_LOAD, n.QB_KNOWN == 0 && n.QB_DF != 0) +
         times(static_cast<double>(n.QX_LOAD) / n.Q_FACTOR, n.QX_DF != 0) + fixedLoad(n);
}

bool writeName(LabelText& line, const Ndt& n, bool) {
  line.trimmed(n.NODENAME);
  return !line.empty();
}

void writeCoordinate(LabelText& line, const char* prefix, double value) {
  line.put(prefix);
  line.number(value, kCoordinate);
}
bool writeXY(LabelText& line, const Ndt& n, bool prefix) {
  writeCoordinate(line, prefix ? "X = " : "", n.X_COORD);
  writeCoordinate(line, prefix ? ", Y = " : ", ", n.Y_COORD);
  return true;
}
bool writeXYZ(LabelText& line, const Ndt& n, bool prefix) {
  writeXY(line, n, prefix);
  writeCoordinate(line, prefix ? ", Z = " : ", ", n.Z_COORD);
  return true;
}

double gravity(const Ndt& n) { return std::fabs(n.SG); }
double recordNumber(const Ndt& n) { return static_cast<double>(&n - model.ndt); }

constexpr Field kNodeFields[] = {
    {.field = 301, .write = writeName},
    {302, "P = ", kPressure, memberValue<&Ndt::PRESSURE>, pressureUnits, pressureMark},
    {305, "Q = ", kLoad, memberValue<&Ndt::QB_LOAD>, loadUnits, loadMark},
    {310, "Q(ext) = ", kLoad, externalLoad, loadUnits, externalMark},
    {314, "T = ", kTemperature, memberValue<&Ndt::T>, temperatureUnits, temperatureMark},
    {316, "Pa = ", kPressure, memberValue<&Ndt::PATM>, patmUnits},
    {317, "Vis = ", kViscosity, memberValue<&Ndt::VISCOSITY>, viscosityUnits, gasMark},
    {318, "SG = ", kGravity, gravity, nullptr, gasMark},
    {319, "K = ", kHeatRatio, memberValue<&Ndt::SH_RATIO>, nullptr, gasMark},
    {320, "HV = ", kHeatingValue, memberValue<&Ndt::HV>, heatingUnits, gasMark},
    {334, "Q = ", kLoad, totalLoad, loadUnits, loadMark},
    {335, "Q(adj) = ", kLoad, adjustedLoad, loadUnits, loadMark},
    {345, "Elev = ", kElevation, memberValue<&Ndt::ELEV>, elevationUnits},
    {347, "Rec No = ", kInteger, recordNumber},
    {.field = 378, .unit = coordinateUnits, .write = writeXYZ},
    {.field = 379, .unit = coordinateUnits, .write = writeXY},
};

}  // namespace

int32_t SetTextN(int32_t node, int16_t field, char* text, int16_t prefix, int16_t units) {
  LabelText line(text);
  if (!isNode(node)) return 0;
  return printLabelField(kNodeFields, model.ndt[node], field, line, prefix != 0, units != 0);
}

}  // namespace pn10
