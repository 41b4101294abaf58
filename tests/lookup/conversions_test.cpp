/** What the lookup loaders make of values and texts: units, defaults, trims, line feeds. */
#include "lookup/lookup.h"
#include "lookup/packed.h"

namespace pn10::test {
namespace {

TEST_F(LookupFiles, percent_of_a_pipe_size_are_times_the_single_precision_hundredth) {
  // the single 0.01 is 0.009999999776482582; 99 of it are 0.98999997787, nearer to this single than to 0.99f
  files.plut({pipeSize("A").f32(56, 99)});
  EXPECT_EQ(lookups.plut.rows[1].EFFICIENCY, 0.98999995f);
}

TEST_F(LookupFiles, pipe_sizes_come_in_inches_and_psi) {
  files.plut({pipeSize("100")
                  .f32(40, 10)
                  .f32(44, 110)
                  .f32(48, 100)
                  .f32(52, 2)
                  .f32(56, 95)
                  .f32(64, 235)
                  .f32(70, 0.03937f)
                  .text(88, "MPa")});
  const PLut& row = lookups.plut.rows[1];
  EXPECT_FLOAT_EQ(row.WALL, 0.3937f);
  EXPECT_FLOAT_EQ(row.OUTSIDE_D, 4.3307f);
  EXPECT_FLOAT_EQ(row.INSIDE_D, 3.937f);
  EXPECT_FLOAT_EQ(row.ROUGHNESS, 0.07874f);
  EXPECT_FLOAT_EQ(row.EFFICIENCY, 0.95f);
  EXPECT_EQ(row.YIELD, 34075.0f);
}

TEST_F(LookupFiles, fittings_convert_by_their_type) {
  // 10 feet long in metres is x 3.28084; 2 feet of diameter are 24 inches
  struct {
    int type;
    float k, d0;
  } rows[] = {{0, 32.8084f, 24}, {51, 32.8084f, 24}, {52, 10, 24}, {53, 10, 2}, {54, 10, 2}, {56, 32.8084f, 24}};
  for (const auto& r : rows) {
    files.flut({Packed(kFLutStride)
                    .f32(40, 10)
                    .f32(44, 2)
                    .f32(48, 1)
                    .f32(52, 50)
                    .text(56, "Feet")
                    .text(66, "Metres")
                    .i16(428, r.type)});
    EXPECT_FLOAT_EQ(lookups.flut.rows[1].EQ_LENGTH, r.k) << r.type;
    EXPECT_FLOAT_EQ(lookups.flut.rows[1].REF_D, r.d0) << r.type;
    EXPECT_FLOAT_EQ(lookups.flut.rows[1].ROUGHNESS, 12.0f) << r.type;
    EXPECT_FLOAT_EQ(lookups.flut.rows[1].EFFICIENCY, 0.5f) << r.type;
    FreeLut();
  }
}

TEST_F(LookupFiles, a_fixed_pressure_drop_stands_in_the_diameter) {
  files.flut({Packed(kFLutStride).text(0, "FIXED DP 5 PSI").f32(40, 10).f32(44, 5).text(56, "Psi").i16(428, 55),
              Packed(kFLutStride).text(0, "FIXED DP 1 BAR").f32(44, 1).text(56, "Bar").i16(428, 55)});
  EXPECT_EQ(lookups.flut.rows[1].REF_D, 5.0f);
  EXPECT_EQ(lookups.flut.rows[1].EQ_LENGTH, 0.0f);
  EXPECT_EQ(lookups.flut.rows[2].REF_D, 14.5f);
  EXPECT_EQ(CalcEqLFtgNo(2.0f, 1, 1), -2.0f);
}

TEST_F(LookupFiles, regulators_and_valves_get_35_for_a_missing_second_coefficient) {
  files.rlut({Packed(kRLutStride), Packed(kRLutStride).i16(40, 6), Packed(kRLutStride).f32(120, 20)});
  EXPECT_EQ(lookups.rlut.rows[1].C[1], 35.0f);
  EXPECT_EQ(lookups.rlut.rows[2].C[1], 0.0f);
  EXPECT_EQ(lookups.rlut.rows[3].C[1], 20.0f);
  files.vlut({Packed(kVLutStride), Packed(kVLutStride).i16(40, 9), Packed(kVLutStride).f32(60, 20)});
  EXPECT_EQ(lookups.vlut.rows[1].COEF_B, 35.0f);
  EXPECT_EQ(lookups.vlut.rows[2].COEF_B, 0.0f);
  EXPECT_EQ(lookups.vlut.rows[3].COEF_B, 20.0f);
}

TEST_F(LookupFiles, regulator_pressures_become_psi_and_the_names_of_regulators_and_valves_are_trimmed) {
  files.rlut({Packed(kRLutStride).text(0, " Reg 1 \t ").f32(136, 2).text(140, "Bar")});
  EXPECT_EQ(std::string(lookups.rlut.rows[1].KEY_TEXT), " Reg 1");
  EXPECT_EQ(lookups.rlut.rows[1].SET_VALUE, 29.0f);
  files.vlut({Packed(kVLutStride).text(0, "Gate  ")});
  EXPECT_EQ(std::string(lookups.vlut.rows[1].KEY_TEXT), "Gate");
  files.flut({Packed(kFLutStride).text(0, "Elbow  ")});
  EXPECT_EQ(std::string(lookups.flut.rows[1].KEY_TEXT), "Elbow  ");
}

TEST_F(LookupFiles, a_line_feed_ends_a_text_and_shifts_what_follows_in_that_record_only) {
  Packed broken = Packed(kPLutStride).text(0, "A\n").f32(2, 3.5f).f32(32, 1.0f);
  ASSERT_EQ(files.plut({broken, pipeSize("B").f32(48, 6)}), 2);
  EXPECT_EQ(std::string(lookups.plut.rows[1].KEY_TEXT), "A\n");
  EXPECT_EQ(lookups.plut.rows[1].WALL, 3.5f) << "taken from right behind the line feed";
  EXPECT_EQ(lookups.plut.rows[2].INSIDE_D, 6.0f);
  // a text that is not kept shifts as well: 416 - 79 bytes earlier
  ASSERT_EQ(files.rlut({Packed(kRLutStride).text(172, "\n").f32(337, 50.0f)}), 2);
  EXPECT_EQ(lookups.rlut.rows[1].FIELD_14, 0.5f);
}

}  // namespace
}  // namespace pn10::test
