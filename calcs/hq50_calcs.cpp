/** Regulator capacity, compressor power and average pressure. */
#include "hq50_calcs.h"

#include <cfloat>
#include <cmath>

namespace {

constexpr double kAirRatio = 1.4;
constexpr double kHalfPi = 1.5707963267948966;
/** 3417 degrees: the angle constant of the universal equation. */
constexpr double kAngle = 3417.0 * kHalfPi / 90.0;
/** Standard conditions of Cg: air at 60 degrees Fahrenheit and 14.7 psi, temperatures rounded to 520. */
constexpr double kStandardP = 14.7, kStandardT = 520.0;
constexpr double kDefaultC1 = 35.0;
/** Cubic feet per hour and psi to horsepower: 144 square inches, 3600 seconds, 550 foot-pounds per second. */
constexpr double kHorsepower = 144.0 / (3600.0 * 550.0);
constexpr double kMillionPerDay = 24.0 / 1e6;

double orElse(double value, double instead) { return value > 0.0 ? value : instead; }

float toFiniteFloat(double value) {
  if (std::isnan(value)) return 0.0f;
  return static_cast<float>(std::fmin(std::fmax(value, -FLT_MAX), FLT_MAX));
}

/** Flow function of sonic flow through an ideal nozzle, but for factors that all gases share. */
double sonicFlow(double k) { return std::sqrt(k) * std::pow(2.0 / (k + 1.0), (k + 1.0) / (2.0 * (k - 1.0))); }

/** How much more a gas of ratio k flows than air does, at the same Cg and density. */
double heatRatioCorrection(double c2, double k) {
  if (c2 > 0.0) return c2;
  return k > 1.0 ? sonicFlow(k) / sonicFlow(kAirRatio) : 1.0;
}

void setStatus(int32_t* status, int32_t value) {
  if (status) *status = value;
}

}  // namespace

float HQ50_CALL CalcReg_(int32_t, int32_t, int32_t, float c0, float c1, float c2, float c3, float c4, float setValue,
                         double, double p1Abs, double p2Abs, float pAtm, float tRankine, float baseP, float baseT,
                         float sg, float, float shRatio, float zFactor, int32_t* status, char*) {
  const double outlet = p2Abs > 0.0 ? p2Abs : static_cast<double>(setValue) + pAtm;
  const double drop = p1Abs - outlet;
  const double density = static_cast<double>(sg) * tRankine * orElse(zFactor, 1.0);
  if (!(c0 > 0.0f) || !(p1Abs > 0.0) || !(drop > 0.0) || drop < c4 || !(density > 0.0)) {
    setStatus(status, HQ_REG_NO_FLOW);
    return 0.0f;
  }
  const double c2Used = heatRatioCorrection(c2, shRatio);
  const double angle = kAngle / (orElse(c1, kDefaultC1) * c2Used) * std::sqrt(drop / p1Abs);
  const bool critical = !(angle < kHalfPi);
  setStatus(status, critical ? HQ_REG_CRITICAL : HQ_REG_SUBCRITICAL);
  const double opening = critical ? 1.0 : std::sin(angle);
  const double standardFlow = orElse(c3, 1.0) * c2Used * c0 * p1Abs * std::sqrt(kStandardT / density) * opening;
  const double toBase = kStandardP / orElse(baseP, kStandardP) * (orElse(baseT, kStandardT) / kStandardT);
  return toFiniteFloat(standardFlow * toBase);
}

float HQ50_CALL CalcComp_(int32_t, int32_t equation, double flow, float p1Abs, float p2Abs, float tFrom,
                          float efficiency, float, float zFactor, float baseP, float baseT, float shRatio, float coefA,
                          float, float coefB) {
  if (!(flow > 0.0) || !(p1Abs > 0.0f) || !(p2Abs > p1Abs)) return 0.0f;
  const double ratio = static_cast<double>(p2Abs) / p1Abs;
  if (equation == 1) return toFiniteFloat((coefA * ratio + coefB) * flow * kMillionPerDay);
  const double k = shRatio;
  const double rise = k > 1.0 ? k / (k - 1.0) * std::expm1((k - 1.0) / k * std::log(ratio)) : std::log(ratio);
  const double flowWork = orElse(baseP, kStandardP) / orElse(baseT, kStandardT) * flow * tFrom * orElse(zFactor, 1.0);
  return toFiniteFloat(kHorsepower * flowWork * rise / orElse(efficiency, 1.0));
}

float HQ50_CALL CalcPave(float a, float b) {
  const float sum = a + b;
  if (sum == 0.0f) return sum;
  return static_cast<float>((sum - static_cast<double>(a) * b / sum) * 0.6666666865348816);
}
