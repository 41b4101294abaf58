/**
 * Unit names to factors of the base units: feet, inches, psi, cubic feet per hour, Btu per cubic foot.
 *
 * Every family is a list of leading texts in upper case; the first one that the name begins with decides. A text
 * that ends in its terminator matches the whole name only.
 */
#include <cstring>
#include <string_view>

#include "exports/pn10gdi.h"
#include "fields/text.h"
#include "model/tables.h"

namespace {

using namespace std::string_view_literals;

struct Unit {
  std::string_view begin;
  float factor;
  bool overHeat = false; /* the factor is divided by the heating value */
};

struct Family {
  std::string_view key;
  const Unit* units;
  size_t count;
  float other; /* what a name outside the list gives */
};

/** Cubic feet in a cubic metre: the cube of 3.2808399 in double, rounded to single. */
constexpr float kCubicMetre = static_cast<float>(3.2808399 * 3.2808399 * 3.2808399);

constexpr Unit kLength[] = {{"F", 1.0f},       {"MI", 5280.0f},   {"ME", 3.28084f},  {"M", 3.28084f},
                            {"K", 3280.8398f}, {"C", 0.0328084f}, {"I", 0.08333333f}};

/* kept: mils count as millimetres */
constexpr Unit kDiameter[] = {{"I", 1.0f},          {"C", 0.3937f}, {"MIL", 0.03937f}, {"MM", 0.03937f},
                              {"MIC", 0.00003937f}, {"F", 12.0f},   {"M", 39.37f}};

constexpr Unit kEfficiency[] = {{"D", 1.0f}, {"P", 0.01f}, {"%", 0.01f}};

/* kept: "MI" is a millibar here, a mile among the lengths */
constexpr Unit kPressure[] = {
    {"PSI", 1.0f},       {"INCHES H2O", 0.036092f}, {"IN-WC", 0.036092f},     {"A", 14.7f},   {"B", 14.5f},
    {"OSI", 0.0625f},    {"MB", 0.0145f},           {"MI", 0.0145f},          {"KP", 0.145f}, {"MP", 145.0f},
    {"PA", 0.000145f},   {"IN-HG", 0.491154f},      {"INCHES HG", 0.491154f}, {"F", 0.4335f}, {"KG/C", 14.22f},
    {"KG/M", 0.001422f}, {"MM-H2", 0.00142094f},    {"MM-HG", 0.019337f}};

constexpr Unit kFlow[] = {
    {"MCFH", 1000.0f},      {"M^3/H", kCubicMetre},  {"M3H", kCubicMetre},
    {"M3/HR", kCubicMetre}, {"CFH", 1.0f},           {"MCFD", 41.667f},
    {"MMCFD", 41667.0f},    {"MMCFH", 1000000.0f},   {"M3/D\0"sv, 1.47125f},
    {"M3D", 1.47125f},      {"MM3/D\0"sv, 1471.25f}, {"MM3D", 1471.25f},
    {"MMM3/D", 1471250.0f}, {"MMM3D", 1471250.0f},   {"MM3H", kCubicMetre * 1000.0f},
    {"CFD", 0.041667f},     {"CFM", 60.0f},          {"LI", 2.1186f},
    {"CCF/M", 0.13689254f}, {"MCF/M", 1.3689029f},   {"M3/MO", static_cast<float>(kCubicMetre / 730.512)},
    {"KW", 3415.2f, true},  {"KILOW", 3415.2f, true}};

constexpr Unit kTemperature[] = {{"F", 0.0f}, {"C", 1.0f}, {"K", 2.0f}};

constexpr Unit kFuel[] = {{"C", 1.0f}, {"M", 1000.0f}, {"K", 0.0f}};

constexpr Unit kViscosity[] = {{"LBM", 1.0f}, {"C", 0.000672f}, {"M", 0.0000000672f}, {"LB-", 32.2f}, {"PA", 0.672f}};

constexpr Unit kVelocity[] = {{"F", 1.0f}, {"ME", 3.28084f}, {"MPS", 3.28084f}, {"M", 1.46667f}, {"K", 0.911389f}};

/* kept: "BTU/M" gives the cubic metre itself and not its inverse */
constexpr Unit kHeating[] = {{"BTU/C", 1.0f},           {"BTU/M", kCubicMetre},  {"MBTU/C", 1000.0f},
                             {"MBTU/M", 0.0000283206f}, {"JOULES/C", 0.000948f}, {"JOULES/M", 0.0000268495f},
                             {"KJOULES/C", 0.948f},     {"KJ/C", 0.948f},        {"KJOULE/M", 0.0268495f},
                             {"KJ/M", 0.0268495f},      {"MJ", 26.86495f}};

template <size_t N>
constexpr Family family(std::string_view key, const Unit (&units)[N], float other = 1.0f) {
  return {key, units, N, other};
}

/** In this order: the first letter takes a key before the longer keys behind it are looked at. */
constexpr Family kFamilies[] = {family("L", kLength),     family("D", kDiameter),    family("E", kEfficiency),
                                family("P", kPressure),   family("Q", kFlow),        family("T", kTemperature, 3.0f),
                                family("F", kFuel, 0.0f), family("VIS", kViscosity), family("VEL", kVelocity),
                                family("HV", kHeating)};

/** strncmp over the length of `begin`; `text` is terminated unless all its bytes are longer than any `begin`. */
bool beginsWith(const char* text, std::string_view begin) {
  return std::strncmp(text, begin.data(), begin.size()) == 0;
}

}  // namespace

float GetUnitFactor(const char* unitName, float heatingValue, const char* family) {
  if (!family) return 0.0f;
  char name[12];
  pn10::copyUpper(name, unitName);
  for (const Family& f : kFamilies) {
    if (!beginsWith(family, f.key)) continue;
    for (size_t i = 0; i < f.count; i++) {
      const Unit& u = f.units[i];
      if (beginsWith(name, u.begin)) return u.overHeat ? u.factor / heatingValue : u.factor;
    }
    return f.other;
  }
  return 0.0f;
}

double CalcRankine(float t) {
  const double degrees = static_cast<double>(t);
  constexpr double kZeroF = 459.67f, kRatio = 1.8f;
  switch (pn10::settings.tempCode) {
    case 0:
      return degrees + kZeroF;
    case 1:
      return (degrees + static_cast<double>(17.78f)) * kRatio + kZeroF;
    case 2:
      return (degrees - static_cast<double>(255.22f)) * kRatio + kZeroF;
    default:
      return degrees;
  }
}
