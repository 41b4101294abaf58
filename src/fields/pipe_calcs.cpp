/** Pressures, volume, stresses and comparison of a pipe. */
#include "fields/pipe_calcs.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "fields/node_calcs.h"
#include "fields/records.h"
#include "fields/text.h"
#include "model/convert.h"

namespace pn10 {

namespace {

const Ndt& fromNode(const Pdt& p) { return nodeAt(p.FROM_NODE); }
const Ndt& toNode(const Pdt& p) { return nodeAt(p.TO_NODE); }

/** The inlet by the direction of the flow; without a flow it is the To node. */
const Ndt& inlet(const Pdt& p) { return p.FLOW > 0.0f ? fromNode(p) : toNode(p); }
const Ndt& outlet(const Pdt& p) { return p.FLOW > 0.0f ? toNode(p) : fromNode(p); }

double pressure(const Ndt& n) { return wide(n.P_FACTOR) * wide(n.PRESSURE); }

/** The value that is compared with the measured one; false when nothing is. */
bool compared(const Pdt& p, double* value) {
  *value = wide(p.CMP_MODE == 1 ? p.DP : p.FLOW);
  return p.CMP_MODE == 1 || p.CMP_MODE == 2;
}

}  // namespace

double CalcPipePave(int32_t pipe, int16_t gauge) {
  const Pdt& p = pipeAt(pipe);
  const double factor = wide(settings.patmFactor);
  const double g1 = wide(toFloat(factor * wide(fromNode(p).PATM)));
  const double p1 = wide(toFloat(pressure(fromNode(p)) + g1));
  const double g2 = wide(toFloat(factor * wide(toNode(p).PATM)));
  const double p2 = wide(toFloat(pressure(toNode(p)) + g2));
  const double sum = wide(toFloat(p1 + p2));
  const double mean = sum == 0.0 ? 0.0 : wide(toFloat((sum - p1 * p2 / sum) * 0.6666666666666666));
  return gauge ? mean - (g1 + g2) * 0.5 : mean;
}

double volume(int32_t pipe) { return CalcVolPno(pipe, settings.baseT, settings.baseP); }
double absolutePave(int32_t pipe) { return CalcPipePave(pipe, 0); }
double gaugePave(int32_t pipe) { return CalcPipePave(pipe, 1); }

double inletPressure(const Pdt& p) { return wide(inlet(p).PRESSURE); }
double outletPressure(const Pdt& p) { return wide(outlet(p).PRESSURE); }
double inletInPipeUnits(const Pdt& p) { return pressure(inlet(p)) / wide(p.DP_FACTOR); }
double outletInPipeUnits(const Pdt& p) { return pressure(outlet(p)) / wide(p.DP_FACTOR); }

double meanRankine(const Pdt& p) { return (rankine(toNode(p)) + rankine(fromNode(p))) * 0.5; }

double straightDistance(const Pdt& p) {
  const double dx = toNode(p).X_COORD - fromNode(p).X_COORD;
  const double dy = toNode(p).Y_COORD - fromNode(p).Y_COORD;
  return std::sqrt(std::pow(dx, 2.0) + std::pow(dy, 2.0));
}

double pipeDifference(const Pdt& p) {
  double value;
  return compared(p, &value) ? value - p.CMP_VALUE : 0.0;
}

double pipePercentage(const Pdt& p) {
  double value;
  if (!compared(p, &value) || value == 0.0) return 0.0;
  return 100.0 * (value - p.CMP_VALUE) / value;
}

namespace {

struct Equation {
  int16_t code;
  const char* name;
};
constexpr Equation kEquations[] = {
    {-1, "Facility Table"},    {1, "IGT-Improved"},     {2, "Spitzglass-LP"}, {3, "Spitzglass-HP"},
    {4, "Weymouth"},           {6, "Panhandle-A"},      {7, "Panhandle-B"},   {8, "AGA-Turbulent"},
    {9, "AGA-Partially Turb"}, {10, "AGA-Fully Turb"},  {13, "Oliphant"},     {14, "Colebrook"},
    {15, "Mueller-HP"},        {16, "Pole-LP"},         {18, "Mueller-LP"},   {19, "IGE3-MP"},
    {27, "IGE3-LP"},           {31, "IGE-TD3 General"}, {32, "IMC-LP"},       {33, "IMC-HP"},
    {37, "IAPMO-LP"},          {38, "IAPMO-HP"},        {39, "TracPipe"},     {50, "IFGC-HP"},
    {51, "IFGC-LP"},
};

/** Leading text of the flow units in upper case, factor from cubic feet, volume unit; the first match counts. */
struct VolumeUnit {
  const char* begin;
  float factor;
  const char* name;
};
constexpr VolumeUnit kVolumeUnits[] = {
    {"MCFH", 0.001f, "Mcf"},
    {"MCFD", 0.001f, "Mcf"},
    {"MCF/MO", 0.001f, "Mcf"},
    {"MMCFH", 0.000001f, "MMcf"},
    {"MMCFD", 0.000001f, "MMcf"},
    {"M^3/HR", 0.0283205882f, "M^3"},
    {"LITERS", 0.0283205882f, "M^3"},
    {"M3H", 0.0283205882f, "M^3"},
    {"KW", 0.0283205882f, "M^3"},
    {"KILOW", 0.0283205882f, "M^3"},
    {"M3/HR", 0.0283205882f, "M^3"},
    {"M3D", 0.0283205882f, "M^3"},
    {"M3/D", 0.0283205882f, "M^3"},
    {"MM3H", 0.0000283205882f, "Mm^3"},
    {"MM3D", 0.0000283205882f, "Mm^3"},
    {"MM3/D", 0.0000283205882f, "Mm^3"},
    {"MMM3D", 0.0000000283205885f, "MMm^3"},
    {"MMM3/D", 0.0000000283205885f, "MMm^3"},
    {"CCF/MO", 0.01f, "Ccf"},
    {"", 1.0f, "Cf"},
};

}  // namespace

double equationName(int32_t pipe, char* text) {
  const int16_t code = pipeAt(pipe).EQUATION;
  const auto* e =
      std::find_if(std::begin(kEquations), std::end(kEquations), [&](auto& row) { return row.code == code; });
  if (text && e != std::end(kEquations)) std::strcpy(text, e->name);
  return code;
}

double GetVolUnits(int32_t pipe, char* text) {
  char units[sizeof(Pdt::Q_UNITS)];
  copyUpper(units, pipeAt(pipe).Q_UNITS);
  const VolumeUnit* u = kVolumeUnits;
  while (std::strncmp(units, u->begin, std::strlen(u->begin)) != 0) u++;
  if (text) std::strcpy(text, u->name);
  return wide(u->factor);
}

}  // namespace pn10

double CalcVolPno(int32_t pipe, float baseT, float baseP) {
  using namespace pn10;
  const Pdt& p = pipeAt(pipe);
  const double pave = CalcPipePave(pipe, 0), t = meanRankine(p), d = baseDiameter(p);
  const double pb = baseP == 0.0f ? 1.0 : wide(baseP), tb = baseT == 0.0f ? 1.0 : wide(baseT);
  if (p.Z_FACTOR == 0.0f || t == 0.0) return 0.0;
  constexpr double kPi = 3.1415926535, kFourSquareFeet = 576.0; /* 4 x 144: diameter in inches, length in feet */
  return kPi * d * d * wide(p.LENGTH) * wide(p.L_FACTOR) * pave * tb / (pb * wide(p.Z_FACTOR) * kFourSquareFeet * t);
}
