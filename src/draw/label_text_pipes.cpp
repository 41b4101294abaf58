/** The label lines of pipes. */
#include <cmath>

#include "draw/label_text.h"
#include "draw/labels.h"
#include "lookup/lookup.h"
#include "model/tables.h"

namespace pn10 {

namespace {

using Field = LabelField<Pdt>;

bool isPlain(const Pdt& p) { return p.HYD_TYPE == 0; }

const char* lengthUnits(const Pdt& p) { return p.L_UNITS; }
const char* flowUnits(const Pdt& p) { return p.Q_UNITS; }
const char* pressureUnits(const Pdt& p) { return p.DP_UNITS; }
const char* diameterUnits(const Pdt& p) { return p.DR_UNITS; }
const char* velocityUnits(const Pdt&) { return settings.velUnits; }

template <auto member>
double magnitude(const Pdt& p) {
  return std::fabs(static_cast<double>(p.*member));
}
int32_t numberOf(const Pdt& p) { return static_cast<int32_t>(&p - model.pdt); }
double recordNumber(const Pdt& p) { return numberOf(p); }

/** A factor that the host never set divides like 1. */
double divisor(float factor) { return factor == 0 ? 1.0 : static_cast<double>(factor); }
double velocity(const Pdt& p) { return p.VELOCITY / divisor(settings.velFactor); }

double insideDiameter(const Pdt& p) {
  char unused[kLabelSize] = "";
  return GetPdtVal(numberOf(p), unused, 35);
}

/** The factor of the efficiency units goes in and out again. */
double totalEfficiency(const Pdt& p) {
  const double factor = divisor(settings.effFactor);
  double efficiency = p.EFFICIENCY * factor;
  if (const PLut* row = lutRow(lookups.plut, FindPLutRno(p.SIZE_TYPE, 0))) efficiency *= row->EFFICIENCY;
  return efficiency / factor;
}

/** Flow by pressure gradient: a number alone, for comparing pipes. */
double gradient(const Pdt& p) {
  const double drop = std::pow(static_cast<double>(p.DP) * p.DP_FACTOR, 1.0);
  const double length = std::pow(static_cast<double>(p.LENGTH) * p.L_FACTOR, 1.0);
  return magnitude<&Pdt::FLOW>(p) * p.Q_FACTOR * drop / length;
}

bool writeSize(LabelText& line, const Pdt& p, bool) {
  line.trimmed(p.SIZE_TYPE);
  if (!isPlain(p)) return true;
  if (p.SIZE_FLAG) line.put("*");
  if (p.FTG_COUNT) line.put(" (F)");
  return true;
}

bool writeLength(LabelText& line, const Pdt& p, bool prefix) {
  constexpr const char* kNames[] = {"L = ", "SetP = ", "SetP = ", "Open = ", "Coeff = "};
  if (prefix) line.put(p.HYD_TYPE < 5 ? kNames[p.HYD_TYPE] : kNames[0]);
  line.number(p.LENGTH, kLength);
  return true;
}

bool writeFittings(LabelText& line, const Pdt& p, bool) {
  if (p.FTG_COUNT) line.put("Fittings Attached");
  return !line.empty();
}

bool writeLink(LabelText& line, const Pdt& p, bool prefix) {
  line.put(prefix ? "Link ID = " : "");
  line.put(p.LINK_ID, strnlen(p.LINK_ID, sizeof p.LINK_ID));
  return !line.empty();
}

bool writeSizeAndLength(LabelText& line, const Pdt& p, bool prefix) {
  line.trimmed(p.SIZE_TYPE);
  line.put(p.FTG_COUNT ? " (F) - " : " - ");
  line.put(prefix ? "L = " : "");
  line.number(p.LENGTH, kLength);
  return true;
}

constexpr Field kPipeFields[] = {
    {1, "ID = ", kInteger, memberValue<&Pdt::ID>},
    {.field = 7, .write = writeSize},
    {.field = 9, .unit = lengthUnits, .write = writeLength},
    {11, "E = ", kEfficiency, memberValue<&Pdt::EFFICIENCY>, nullptr, nullptr, isPlain},
    {12, "Q = ", kFlow, magnitude<&Pdt::FLOW>, flowUnits},
    {14, "DP = ", kPressureDrop, magnitude<&Pdt::DP>, pressureUnits},
    {.field = 18, .when = isPlain, .write = writeFittings},
    {22, "Customer = ", kInteger, memberValue<&Pdt::CUST_COUNT>},
    {33, "Vel = ", kVelocity, velocity, velocityUnits},
    {35, "D = ", kDiameter, insideDiameter, diameterUnits},
    {.field = 43, .write = writeLink},
    {63, "E, Total = ", kEfficiency, totalEfficiency, nullptr, nullptr, isPlain},
    {65, "RE = ", kWhole, memberValue<&Pdt::REYNOLDSNO>},
    {76, "MAOP = ", kPressure, memberValue<&Pdt::MAOP>, pressureUnits},
    {78, "Rec No = ", kInteger, recordNumber},
    {.field = 86, .unit = lengthUnits, .write = writeSizeAndLength},
    {129, "", kPressureDrop, gradient, nullptr, nullptr, isPlain},
};

}  // namespace

int32_t SetTextP(int32_t pipe, int16_t field, char* text, int16_t prefix, int16_t units) {
  LabelText line(text);
  if (!isPipe(pipe)) return 0;
  return printLabelField(kPipeFields, model.pdt[pipe], field, line, prefix != 0, units != 0);
}

}  // namespace pn10
