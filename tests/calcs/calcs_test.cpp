// The calculation library against hand calculations; the numbers beside the tests show the steps.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "hq50_calcs.h"
#include "lookup/calc_library.h"
#include "support/support.h"

namespace pn10::test {
namespace {

static_assert(std::is_same_v<decltype(&CalcReg_), CalcRegEntry>);
static_assert(std::is_same_v<decltype(&CalcComp_), CalcCompEntry>);

struct Library {
  void* handle = dlopen(PN10_BUILD_DIR "/src/libhq50_calcs.so", RTLD_NOW | RTLD_LOCAL);
  CalcRegEntry reg = reinterpret_cast<CalcRegEntry>(dlsym(handle, "CalcReg_"));
  CalcCompEntry comp = reinterpret_cast<CalcCompEntry>(dlsym(handle, "CalcComp_"));
  CalcPaveEntry pave = reinterpret_cast<CalcPaveEntry>(dlsym(handle, "CalcPave"));
};
const Library& library() {
  static const Library loaded;
  return loaded;
}

struct Regulator {
  float c0 = 1000, c1 = 35, c2 = 1, c3 = 0, c4 = 0, setValue = 0;
  double p1 = 114.7, p2 = 74.7;
  float t = 520, baseP = 0, baseT = 0, sg = 1, k = 0, z = 0;
  int32_t equation = 0;
  int32_t status = 99;
  double capacity() {
    char text[1] = "";
    return library().reg(1, equation, equation, c0, c1, c2, c3, c4, setValue, 5000.0, p1, p2, 14.7f, t, baseP, baseT,
                         sg, 0, k, z, &status, text);
  }
};

TEST(HqLibrary, exports_the_three_names_and_nothing_else) {
  ASSERT_NE(library().handle, nullptr) << dlerror();
  EXPECT_NE(library().reg, nullptr);
  EXPECT_NE(library().comp, nullptr);
  EXPECT_NE(library().pave, nullptr);
  EXPECT_EQ(dlsym(library().handle, "CalcReg"), nullptr);
  EXPECT_EQ(dlsym(library().handle, "CalcComp"), nullptr);
}

TEST(CalcReg, subcritical_flow_follows_the_sine) {
  // 3417 / 35 x sqrt(40 / 114.7) = 97.62857 x 0.590542 = 57.6534 degrees; sine 0.844828; x 1000 x 114.7
  Regulator r;
  EXPECT_NEAR(r.capacity(), 96901.7, 0.5);
  EXPECT_EQ(r.status, HQ_REG_SUBCRITICAL);
}

TEST(CalcReg, critical_flow_no_longer_depends_on_the_outlet) {
  // 97.62857 x sqrt(100 / 114.7) = 91.16 degrees, held at 90: Cg x P1
  Regulator r;
  r.p2 = 14.7;
  EXPECT_NEAR(r.capacity(), 114700.0, 0.5);
  EXPECT_EQ(r.status, HQ_REG_CRITICAL);
  r.p2 = 5;
  EXPECT_NEAR(r.capacity(), 114700.0, 0.5);
}

TEST(CalcReg, gas_and_base_conditions_scale_the_flow) {
  // 114700 x sqrt(520 / (0.6 x 540 x 0.98)) = 114700 x 1.279719; x 14.7 / 14.73 x 519.67 / 520 = 0.997330
  Regulator r;
  r.p2 = 14.7;
  r.t = 540;
  r.sg = 0.6f;
  r.z = 0.98f;
  r.baseP = 14.73f;
  r.baseT = 519.67f;
  EXPECT_NEAR(r.capacity(), 146392.4, 2.0);
}

TEST(CalcReg, c2_comes_from_the_ratio_of_specific_heats) {
  // f(k) = sqrt(k / (k + 1)) (2 / (k + 1))^(1 / (k - 1)): f(1.27) = 0.467835, f(1.4) = 0.484125, C2 = 0.966352;
  // 97.62857 / 0.966352 x sqrt(54.7 / 114.7) = 69.7661 degrees, near enough to the exact 69.7579; x 0.8
  Regulator r;
  r.c2 = 0;
  r.k = 1.27f;
  r.c3 = 0.8f;
  r.p2 = 60;
  r.t = 540;
  r.sg = 0.6f;
  r.z = 0.98f;
  r.baseP = 14.73f;
  r.baseT = 519.67f;
  EXPECT_NEAR(r.capacity(), 106198.2, 2.0);
}

TEST(CalcReg, small_drops_follow_the_liquid_equation) {
  // Cv = Cg / C1 = 1000 / 35; 59.6378 x Cv x sqrt(P1 dP) with dP = 0.01: 59.6378 x 28.5714 x 1.070981 = 1824.89
  Regulator r;
  r.p2 = 114.69;
  EXPECT_NEAR(r.capacity(), 1824.89, 0.1);
  r.c2 = 0.9f;
  EXPECT_NEAR(r.capacity(), 1824.89, 0.1) << "the ratio of specific heats cancels at small drops";
}

TEST(CalcReg, c1_of_zero_is_35_and_every_equation_is_taken_alike) {
  Regulator r;
  r.c1 = 0;
  r.equation = 6;
  EXPECT_NEAR(r.capacity(), 96901.7, 0.5);
}

TEST(CalcReg, without_an_outlet_pressure_the_set_pressure_counts) {
  Regulator r;
  r.p2 = 0;
  r.setValue = 60;  // 74.7 psia
  EXPECT_NEAR(r.capacity(), 96901.7, 1.0);
}

TEST(CalcReg, no_drop_or_too_small_a_drop_gives_no_flow) {
  for (double p2 : {114.7, 200.0, 74.8}) {
    Regulator r;
    r.p2 = p2;
    r.c4 = 40;
    EXPECT_EQ(r.capacity(), 0.0) << p2;
    EXPECT_EQ(r.status, HQ_REG_NO_FLOW);
  }
}

TEST(CalcReg, unusable_states_give_zero) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (float bad : {0.0f, -1.0f, nan}) {
    Regulator cg, t, sg, p1;
    cg.c0 = bad;
    t.t = bad;
    sg.sg = bad;
    p1.p1 = bad;
    for (Regulator* r : {&cg, &t, &sg, &p1}) EXPECT_EQ(r->capacity(), 0.0) << bad;
  }
  EXPECT_EQ(
      library().reg(1, 0, 0, 1000, 35, 1, 0, 0, 0, 0, 114.7, 114.7, 14.7f, 520, 0, 0, 1, 0, 0, 0, nullptr, nullptr),
      0.0f);
}

struct Compressor {
  int32_t equation = 0;
  double flow = 1e6 / 24;
  float p1 = 500, p2 = 1000, t = 540, e = 0.8f, z = 0.9f, baseP = 14.7f, baseT = 520, k = 1.27f, a = 0, b = 0;
  double power() const { return library().comp(0, equation, flow, p1, p2, t, e, 0, z, baseP, baseT, k, a, 0, b); }
};

TEST(CalcComp, adiabatic_head_times_mass_flow) {
  // G = 0.6: R = 1545.35 / 17.37882 = 88.9215; H = 0.9 R 540 x 4.703704 x (2^0.2125984 - 1 = 0.158779) = 32274.6;
  // m = 41666.67 x 14.7 x 144 / (88.9215 x 520) / 3600 = 0.529850 lbm/s; m H / 550 / 0.8
  EXPECT_NEAR(Compressor().power(), 38.8655, 0.002);
}

TEST(CalcComp, agrees_with_the_handbook_form_per_million_per_day) {
  // 0.0857 x k / (k - 1) x T x Z / E x (r^((k - 1) / k) - 1) = 38.8817; the handbook constant has three digits
  EXPECT_NEAR(Compressor().power(), 38.8817, 38.88 * 0.0006);
}

TEST(CalcComp, a_ratio_of_heats_not_above_one_is_isothermal) {
  // 144 / 1980000 x 14.7 / 520 x 41666.67 x 0.9 x 540 x ln 2 / 0.8 = 36.0733
  for (float k : {1.0f, 0.0f, -3.0f}) {
    Compressor c;
    c.k = k;
    EXPECT_NEAR(c.power(), 36.0733, 0.002) << k;
  }
  Compressor near;
  near.k = 1.0001f;
  EXPECT_NEAR(near.power(), 36.0733, 0.01);
}

TEST(CalcComp, the_own_curve_is_horsepower_per_million_per_day) {
  Compressor c;
  c.equation = 1;
  c.a = 12;
  c.b = 5;
  EXPECT_NEAR(c.power(), 12 * 2 + 5, 1e-4);
}

TEST(CalcComp, no_compression_needs_no_power) {
  Compressor equal, down, back, vacuum, cold;
  equal.p2 = 500;
  down.p2 = 100;
  back.flow = -1;
  vacuum.p1 = 0;
  cold.t = 0;
  for (const Compressor& c : {equal, down, back, vacuum, cold}) EXPECT_EQ(c.power(), 0.0);
}

TEST(CalcComp, missing_values_act_as_their_usual_ones) {
  Compressor bare, usual;
  bare.e = bare.z = bare.baseP = bare.baseT = 0;
  usual.e = usual.z = 1;
  EXPECT_EQ(bare.power(), usual.power());
}

TEST(CalcComp, results_are_finite) {
  Compressor c;
  c.flow = 1e300;
  EXPECT_TRUE(std::isfinite(c.power()));
  c.t = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(c.power(), 0.0);
}

TEST(CalcPave, is_two_thirds_of_the_sum_less_the_product_over_the_sum) {
  // 100 and 50: 150 - 5000 / 150 = 116.6667; x 2/3 = 77.7778
  EXPECT_FLOAT_EQ(library().pave(100, 50), 77.777779f);
  EXPECT_FLOAT_EQ(library().pave(60, 60), 60.0f);
  EXPECT_EQ(library().pave(0, 0), 0.0f);
  EXPECT_EQ(library().pave(5, -5), 0.0f);
}

}  // namespace
}  // namespace pn10::test
