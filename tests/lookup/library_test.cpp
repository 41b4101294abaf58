// What is handed to the calculation library, and what comes back through the fields of regulators and compressors.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "hq50_calcs.h"
#include "lookup/calc_library.h"
#include "lookup/lookup.h"
#include "lookup/packed.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

/** Arguments of the last call of a stand-in entry, in order. */
std::vector<double> seen;
bool statusWasZero, textWasEmpty;

float PN10_CALL recordReg(int32_t one, int32_t a, int32_t b, float c0, float c1, float c2, float c3, float c4,
                          float setValue, double flow, double p1, double p2, float pAtm, float t, float baseP,
                          float baseT, float sg, float viscosity, float k, float z, int32_t* status, char* text) {
  seen = {double(one), double(a), double(b), c0, c1,    c2,    c3, c4,        setValue, flow,
          p1,          p2,        pAtm,      t,  baseP, baseT, sg, viscosity, k,        z};
  statusWasZero = *status == 0;
  textWasEmpty = *text == 0;
  *status = 5;
  return 1234.5f;
}

float PN10_CALL recordComp(int32_t zero, int32_t equation, double flow, float p1, float p2, float t, float e,
                           float zeroA, float z, float baseP, float baseT, float k, float a, float zeroB, float b) {
  seen = {double(zero), double(equation), flow, p1, p2, t, e, zeroA, z, baseP, baseT, k, a, zeroB, b};
  return 10.0f;
}

class CalcLibraryCalls : public testing::Test {
 protected:
  Fresh fresh;
  LutFiles files;
  Text text;

  void SetUp() override {
    seen.clear();
    ReallocNdt(2);
    ReallocNXY(2);
    ReallocPdt(9);
    ReallocPXY(9);
    std::memset(model.ndt, 0, 3 * sizeof(Ndt));
    std::memset(model.pdt, 0, 10 * sizeof(Pdt));
    model.nodeCount = 2;
    model.pipeCount = 9;
    Pdt& pipe = model.pdt[9];
    pipe.FROM_NODE = 1;
    pipe.TO_NODE = 2;
    pipe.FLOW = 3;
    pipe.Q_FACTOR = 1000;
    pipe.Z_FACTOR = 0.9f;
    pipe.EFFICIENCY = 0.8f;
    Ndt& from = model.ndt[1];
    from.PRESSURE = 4;
    from.P_FACTOR = 14.5f;
    from.PATM = 2;
    from.T = 60;
    from.SG = -0.6f;
    from.VISCOSITY = 7;
    from.SH_RATIO = 1.25f;
    model.ndt[2].PRESSURE = 2;
    model.ndt[2].P_FACTOR = 14.5f;
    SetBaseCond(14.7f, 520.0f, "Bar", "F", "", "");
    files.rlut({Packed(kRLutStride), Packed(kRLutStride),
                Packed(kRLutStride)
                    .text(0, "R")
                    .i16(40, -2)
                    .f32(116, 10)
                    .f32(120, 11)
                    .f32(124, 12)
                    .f32(128, 13)
                    .f32(132, 14)
                    .f32(136, 2)
                    .text(140, "Bar")});
    files.clut({Packed(kCLutStride).text(0, "C").i16(40, 1).f32(42, 3).f32(46, 4).f32(54, 2).text(62, "MCfh/hp")});
  }
};

TEST_F(CalcLibraryCalls, a_regulator_hands_over_twenty_two_arguments) {
  calcLibrary.calcReg = recordReg;
  EXPECT_EQ(GetRLutVal(9, std::strcpy(text.bytes, "3"), 6), 1234.5) << "the pipe is above the count of regulators";
  // p = 4 x 14.5 = 58, pa = 2 x 14.5 = 29; the set value of 29 psi is converted once more: 420.5
  const std::vector<double> expected = {1,  65534, 65534, 10, 11, 12, 13, 14, 420.5, 3000,
                                        87, 58,    29,    0,  0,  0,  0,  0,  0,     0};
  for (size_t i = 0; i < 13; i++) EXPECT_DOUBLE_EQ(seen[i], expected[i]) << "argument " << i + 1;
  EXPECT_NEAR(seen[13], 519.67, 1e-4);
  EXPECT_FLOAT_EQ(float(seen[14]), 14.7f);
  EXPECT_EQ(seen[15], 520.0);
  EXPECT_FLOAT_EQ(float(seen[16]), 0.6f) << "the magnitude of the gravity";
  EXPECT_EQ(seen[17], 0.0) << "the viscosity factor is 0";
  EXPECT_EQ(seen[18], 1.25);
  EXPECT_FLOAT_EQ(float(seen[19]), 0.9f);
  EXPECT_TRUE(statusWasZero);
  EXPECT_TRUE(textWasEmpty);
}

TEST_F(CalcLibraryCalls, a_compressor_hands_over_fifteen_arguments) {
  calcLibrary.calcComp = recordComp;
  EXPECT_EQ(GetCLutVal(9, std::strcpy(text.bytes, "C"), 8), 10.0);
  const std::vector<double> expected = {0, 0, 3000, 87, 58, 0, 0, 0, 0, 0, 520, 1.25, 0, 0, 0};
  for (size_t i : {0u, 1u, 2u, 3u, 4u, 7u, 10u, 11u, 12u, 13u, 14u})
    EXPECT_DOUBLE_EQ(seen[i], expected[i]) << "argument " << i + 1;
  EXPECT_NEAR(seen[5], 519.67, 1e-4);
  EXPECT_FLOAT_EQ(float(seen[6]), 0.8f);
  EXPECT_FLOAT_EQ(float(seen[8]), 0.9f);
  EXPECT_FLOAT_EQ(float(seen[9]), 14.7f);
}

TEST_F(CalcLibraryCalls, the_coefficients_of_a_compressor_count_only_with_equation_1) {
  calcLibrary.calcComp = recordComp;
  lookups.clut.rows[1].EQUATION = 1;  // no file gives it; a host may, through the address
  GetCLutVal(9, std::strcpy(text.bytes, "C"), 8);
  EXPECT_EQ(seen[1], 1.0);
  EXPECT_EQ(seen[12], 3.0);
  EXPECT_EQ(seen[14], 4.0);
}

TEST_F(CalcLibraryCalls, fuel_is_power_times_rate_times_the_factor_once_more) {
  calcLibrary.calcComp = recordComp;
  EXPECT_EQ(GetCLutVal(9, std::strcpy(text.bytes, "C"), 9), 10.0 * 2000.0 * 1000.0);
  lookups.clut.rows[1].FUEL_RATE = 0;
  EXPECT_EQ(GetCLutVal(9, text, 9), 0.0);
}

TEST_F(CalcLibraryCalls, row_zero_and_rows_that_are_not_there_never_reach_the_library) {
  calcLibrary.calcReg = recordReg;
  calcLibrary.calcComp = recordComp;
  for (const char* digits : {"0", "", "x", "-1", "5", "99999999999"}) {
    EXPECT_EQ(GetRLutVal(9, std::strcpy(text.bytes, digits), 6), -1.0) << digits;
  }
  EXPECT_EQ(GetRLutVal(9, nullptr, 6), -1.0);
  EXPECT_EQ(GetRLutVal(-1, std::strcpy(text.bytes, "3"), 6), -1.0);
  EXPECT_EQ(GetRLutVal(10, text, 6), -1.0) << "above the pipe count";
  EXPECT_EQ(GetCLutVal(-1, std::strcpy(text.bytes, "C"), 8), -1.0);
  EXPECT_EQ(GetCLutVal(10, text, 9), -1.0);
  EXPECT_EQ(GetCLutVal(9, std::strcpy(text.bytes, "nobody"), 8), 0.0);
  EXPECT_EQ(GetCLutVal(9, nullptr, 9), 0.0);
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(messages(), "");
}

TEST_F(CalcLibraryCalls, pipe_zero_reads_as_an_empty_record) {
  calcLibrary.calcReg = recordReg;
  EXPECT_EQ(GetRLutVal(0, std::strcpy(text.bytes, "3"), 6), 1234.5);
  EXPECT_EQ(seen[9], 0.0);
  model.pdt[9].TO_NODE = 70;
  GetRLutVal(9, text, 6);
  EXPECT_EQ(seen[11], 29.0) << "a node that is not there has no pressure";
}

TEST_F(CalcLibraryCalls, without_the_library_values_are_zero) {
  EXPECT_EQ(GetRLutVal(9, std::strcpy(text.bytes, "3"), 6), 0.0);
  EXPECT_EQ(GetCLutVal(9, std::strcpy(text.bytes, "C"), 8), 0.0);
  EXPECT_EQ(GetCLutVal(9, text, 9), 0.0);
  EXPECT_EQ(CalcCompPower(9, 1, 3), 0.0);
  EXPECT_EQ(::CalcPave(1, 2), 0.0f);
}

TEST_F(CalcLibraryCalls, other_modes_are_zero) {
  calcLibrary.calcComp = recordComp;
  for (int16_t mode : std::initializer_list<int16_t>{1, 2, 3, 4, 6, -1}) EXPECT_EQ(CalcCompPower(9, 1, mode), 0.0);
  EXPECT_TRUE(seen.empty());
}

TEST_F(CalcLibraryCalls, the_library_itself_answers_once_bound) {
#ifdef __SANITIZE_ADDRESS__
  // the sanitizer calls dlopen for us, so the run path of this program does not count: name the file once
  dlopen(PN10_BUILD_DIR "/src/libhq50_calcs.so", RTLD_NOW | RTLD_LOCAL);
#endif
  SetHQDll();
  ASSERT_NE(calcLibrary.handle, nullptr);
  EXPECT_FLOAT_EQ(::CalcPave(100, 50), 77.777779f);
  // row 3: Cg 10, C1 11, C2 12, usable part 13, opens at 14 psi; the drop is 29 psi.
  // 3417 / (11 x 12) x sqrt(29 / 87) = 14.9456 degrees, sine 0.257899; 13 x 12 x 10 x 87 x 0.257899 = 35002.1;
  // x sqrt(520 / (0.6 x 519.67 x 0.9)) = 1.361264
  EXPECT_NEAR(GetRLutVal(9, std::strcpy(text.bytes, "3"), 6), 47647.1, 2.0);
  // from 87 to 58 psia nothing is compressed; turned around:
  std::swap(model.pdt[9].FROM_NODE, model.pdt[9].TO_NODE);
  model.ndt[2] = model.ndt[1];
  model.ndt[2].PRESSURE = 2;
  // 58 + 29 = 87 psia out of 29 + 29 = 58; 144 / 1980000 x 14.7 / 520 x 3000 x 0.9 x 519.67 x 5 x
  // (1.5^0.2 - 1 = 0.0844718) / 0.8 = 1.52298
  EXPECT_NEAR(GetCLutVal(9, std::strcpy(text.bytes, "C"), 8), 1.52298, 1e-4);
  SetHQDll();
  FreeHQDll();
  EXPECT_EQ(calcLibrary.handle, nullptr);
  EXPECT_EQ(calcLibrary.calcReg, nullptr);
  EXPECT_EQ(GetRLutVal(9, std::strcpy(text.bytes, "3"), 6), 0.0);
  FreeHQDll();
}

}  // namespace
}  // namespace pn10::test
