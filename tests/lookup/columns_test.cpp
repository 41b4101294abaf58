/** Every column of the six lookup files: a value packed at its offset is seen in its member. */
#include <functional>

#include "lookup/lookup.h"
#include "lookup/packed.h"

namespace pn10::test {
namespace {

/** One column: a value packed alone at its offset, and where it must be seen. */
struct NumberColumn {
  const char* what;
  std::function<void(Packed&)> pack;
  std::function<double()> seen;
  double expected;
};
struct TextColumn {
  const char* what;
  size_t offset, width;
  std::function<std::string()> seen;
};

std::string letters(size_t width) {
  std::string text;
  for (size_t i = 0; i < width; i++) text += static_cast<char>('a' + i % 26);
  return text;
}

TEST_F(LookupFiles, every_number_of_a_pipe_size) {
  const NumberColumn columns[] = {
      {"wall", [](Packed& p) { p.f32(40, 0.25f); }, [] { return lookups.plut.rows[1].WALL; }, 0.25},
      {"outside", [](Packed& p) { p.f32(44, 4.5f); }, [] { return lookups.plut.rows[1].OUTSIDE_D; }, 4.5},
      {"inside", [](Packed& p) { p.f32(48, 4.0f); }, [] { return lookups.plut.rows[1].INSIDE_D; }, 4.0},
      {"roughness", [](Packed& p) { p.f32(52, 0.5f); }, [] { return lookups.plut.rows[1].ROUGHNESS; }, 0.5},
      {"efficiency", [](Packed& p) { p.f32(56, 100.0f); }, [] { return lookups.plut.rows[1].EFFICIENCY; }, 1.0},
      {"field 5", [](Packed& p) { p.f32(60, 7.5f); }, [] { return lookups.plut.rows[1].FIELD_5; }, 7.5},
      {"yield", [](Packed& p) { p.f32(64, 35000.0f); }, [] { return lookups.plut.rows[1].YIELD; }, 35000.0},
      {"field 1", [](Packed& p) { p.i16(68, -12); }, [] { return lookups.plut.rows[1].FIELD_1; }, -12},
      {"unit factor", [](Packed& p) { p.f32(70, 0.5f); }, [] { return lookups.plut.rows[1].UNIT_FACTOR; }, 0.5},
      {"field 10", [](Packed& p) { p.i16(84, 310); }, [] { return lookups.plut.rows[1].FIELD_10; }, 310},
      {"field 4", [](Packed& p) { p.i16(86, 311); }, [] { return lookups.plut.rows[1].FIELD_4; }, 311},
      {"colour", [](Packed& p) { p.i32(98, 0x00aabbcc); }, [] { return lookups.plut.rows[1].COLOR; }, 0x00aabbcc},
      {"line type", [](Packed& p) { p.i16(102, 5); }, [] { return lookups.plut.rows[1].LINE_TYPE; }, 5},
      {"line width", [](Packed& p) { p.i16(104, 3); }, [] { return lookups.plut.rows[1].LINE_WIDTH; }, 3},
      {"field 3", [](Packed& p) { p.i16(406, 312); }, [] { return lookups.plut.rows[1].FIELD_3; }, 312},
      {"field 16", [](Packed& p) { p.f32(408, 1.5f); }, [] { return lookups.plut.rows[1].FIELD_16; }, 1.5},
  };
  for (const NumberColumn& c : columns) {
    Packed row = pipeSize("K");
    c.pack(row);
    ASSERT_EQ(files.plut({row}), 1) << c.what;
    EXPECT_FLOAT_EQ(static_cast<float>(c.seen()), static_cast<float>(c.expected)) << c.what;
  }
}

TEST_F(LookupFiles, every_text_of_a_pipe_size) {
  const TextColumn columns[] = {
      {"key", 0, 40, [] { return std::string(lookups.plut.rows[1].KEY_TEXT); }},
      {"diameter units", 74, 10, [] { return std::string(lookups.plut.rows[1].D_UNITS); }},
      {"strength units", 88, 10, [] { return std::string(lookups.plut.rows[1].S_UNITS); }},
      {"106", 106, 20, [] { return std::string(lookups.plut.rows[1].TEXT_106); }},
      {"description", 126, 80, [] { return std::string(lookups.plut.rows[1].DESCRIPTION); }},
      {"reference", 206, 80, [] { return std::string(lookups.plut.rows[1].REFERENCE); }},
      {"286", 286, 20, [] { return std::string(lookups.plut.rows[1].TEXT_286); }},
      {"306", 306, 20, [] { return std::string(lookups.plut.rows[1].TEXT_306); }},
      {"326", 326, 40, [] { return std::string(lookups.plut.rows[1].TEXT_326); }},
      {"366", 366, 40, [] { return std::string(lookups.plut.rows[1].TEXT_366); }},
  };
  for (const TextColumn& c : columns) {
    for (size_t length : {size_t{1}, c.width}) {
      ASSERT_EQ(files.plut({Packed(kPLutStride).text(c.offset, letters(length))}), 1);
      EXPECT_EQ(c.seen(), letters(length)) << c.what;
    }
  }
}

TEST_F(LookupFiles, every_column_of_a_fitting) {
  const NumberColumn numbers[] = {
      {"k", [](Packed& p) { p.f32(40, 30.0f); }, [] { return lookups.flut.rows[1].EQ_LENGTH; }, 30.0},
      {"d0", [](Packed& p) { p.f32(44, 2.0f); }, [] { return lookups.flut.rows[1].REF_D; }, 2.0},
      {"roughness", [](Packed& p) { p.f32(48, 0.5f); }, [] { return lookups.flut.rows[1].ROUGHNESS; }, 0.5},
      {"efficiency", [](Packed& p) { p.f32(52, 100.0f); }, [] { return lookups.flut.rows[1].EFFICIENCY; }, 1.0},
      {"field 6", [](Packed& p) { p.i16(156, 61); }, [] { return lookups.flut.rows[1].FIELD_6; }, 61},
      {"field 7", [](Packed& p) { p.f32(158, 7.5f); }, [] { return lookups.flut.rows[1].FIELD_7; }, 7.5},
      {"field 8", [](Packed& p) { p.f32(162, 8.5f); }, [] { return lookups.flut.rows[1].FIELD_8; }, 8.5},
      {"field 10", [](Packed& p) { p.i16(166, 101); }, [] { return lookups.flut.rows[1].FIELD_10; }, 101},
      {"type", [](Packed& p) { p.i16(428, 52); }, [] { return lookups.flut.rows[1].FTG_TYPE; }, 52},
      {"field 20", [](Packed& p) { p.i16(430, 1003); }, [] { return lookups.flut.rows[1].FIELD_20; }, 1003},
      {"field 21", [](Packed& p) { p.f32(432, 2.25f); }, [] { return lookups.flut.rows[1].FIELD_21; }, 2.25},
  };
  for (const NumberColumn& c : numbers) {
    Packed row = Packed(kFLutStride).text(56, "Inches").text(66, "Feet");
    c.pack(row);
    ASSERT_EQ(files.flut({row}), 2);
    EXPECT_FLOAT_EQ(static_cast<float>(c.seen()), static_cast<float>(c.expected)) << c.what;
    FreeLut();
  }
  const TextColumn texts[] = {
      {"key", 0, 40, [] { return std::string(lookups.flut.rows[1].KEY_TEXT); }},
      {"diameter units", 56, 10, [] { return std::string(lookups.flut.rows[1].D_UNITS); }},
      {"length units", 66, 10, [] { return std::string(lookups.flut.rows[1].L_UNITS); }},
      {"136", 136, 20, [] { return std::string(lookups.flut.rows[1].TEXT_136); }},
      {"168", 168, 20, [] { return std::string(lookups.flut.rows[1].TEXT_168); }},
      {"description", 188, 80, [] { return std::string(lookups.flut.rows[1].DESCRIPTION); }},
  };
  for (const TextColumn& c : texts) {
    ASSERT_EQ(files.flut({Packed(kFLutStride).text(c.offset, letters(c.width))}), 2);
    EXPECT_EQ(c.seen(), letters(c.width)) << c.what;
    FreeLut();
  }
}

TEST_F(LookupFiles, every_column_of_a_regulator) {
  const NumberColumn numbers[] = {
      {"equation", [](Packed& p) { p.i16(40, 6); }, [] { return lookups.rlut.rows[1].EQUATION; }, 6},
      {"c0", [](Packed& p) { p.f32(116, 10.0f); }, [] { return lookups.rlut.rows[1].C[0]; }, 10.0},
      {"c1", [](Packed& p) { p.f32(120, 11.0f); }, [] { return lookups.rlut.rows[1].C[1]; }, 11.0},
      {"c2", [](Packed& p) { p.f32(124, 12.0f); }, [] { return lookups.rlut.rows[1].C[2]; }, 12.0},
      {"c3", [](Packed& p) { p.f32(128, 13.0f); }, [] { return lookups.rlut.rows[1].C[3]; }, 13.0},
      {"c4", [](Packed& p) { p.f32(132, 14.0f); }, [] { return lookups.rlut.rows[1].C[4]; }, 14.0},
      {"set value", [](Packed& p) { p.f32(136, 60.0f); }, [] { return lookups.rlut.rows[1].SET_VALUE; }, 60.0},
      {"field 9", [](Packed& p) { p.i16(150, 91); }, [] { return lookups.rlut.rows[1].FIELD_9; }, 91},
      {"not kept", [](Packed& p) { p.f32(412, 5.0f); }, [] { return lookups.rlut.rows[1].FIELD_13; }, 0},
      {"a hundredth", [](Packed& p) { p.f32(416, 50.0f); }, [] { return lookups.rlut.rows[1].FIELD_14; }, 0.5},
  };
  for (const NumberColumn& c : numbers) {
    Packed row = Packed(kRLutStride).text(140, "Psi");
    c.pack(row);
    ASSERT_EQ(files.rlut({row}), 2);
    EXPECT_FLOAT_EQ(static_cast<float>(c.seen()), static_cast<float>(c.expected)) << c.what;
    FreeLut();
  }
  const TextColumn texts[] = {
      {"key", 0, 40, [] { return std::string(lookups.rlut.rows[1].KEY_TEXT); }},
      {"pressure units", 140, 10, [] { return std::string(lookups.rlut.rows[1].P_UNITS); }},
      {"units", 420, 10, [] { return std::string(lookups.rlut.rows[1].UNITS); }},
  };
  for (const TextColumn& c : texts) {
    ASSERT_EQ(files.rlut({Packed(kRLutStride).text(c.offset, letters(c.width))}), 2);
    EXPECT_EQ(c.seen(), letters(c.width)) << c.what;
    FreeLut();
  }
}

TEST_F(LookupFiles, every_column_of_a_valve) {
  const NumberColumn numbers[] = {
      {"field 7", [](Packed& p) { p.i16(40, 9); }, [] { return lookups.vlut.rows[1].FIELD_7; }, 9},
      {"diameter", [](Packed& p) { p.f32(42, 2.0f); }, [] { return lookups.vlut.rows[1].DIAMETER; }, 24.0},
      {"coefficient", [](Packed& p) { p.f32(56, 3.5f); }, [] { return lookups.vlut.rows[1].COEF_A; }, 3.5},
      {"second", [](Packed& p) { p.f32(60, 4.5f); }, [] { return lookups.vlut.rows[1].COEF_B; }, 4.5},
      {"not kept", [](Packed& p) { p.f32(64, 5.5f); }, [] { return lookups.vlut.rows[1].FIELD_6; }, 0},
      {"field 2", [](Packed& p) { p.i16(78, 21); }, [] { return lookups.vlut.rows[1].FIELD_2; }, 21},
  };
  for (const NumberColumn& c : numbers) {
    Packed row = Packed(kVLutStride).text(46, "Feet");
    c.pack(row);
    ASSERT_EQ(files.vlut({row}), 2);
    EXPECT_FLOAT_EQ(static_cast<float>(c.seen()), static_cast<float>(c.expected)) << c.what;
    FreeLut();
  }
  ASSERT_EQ(files.vlut({Packed(kVLutStride).text(0, letters(40)).text(46, letters(10))}), 2);
  EXPECT_EQ(std::string(lookups.vlut.rows[1].KEY_TEXT), letters(40));
  EXPECT_EQ(std::string(lookups.vlut.rows[1].D_UNITS), letters(10));
}

TEST_F(LookupFiles, every_column_of_a_well_whose_name_is_cut_to_twenty) {
  ASSERT_EQ(files.wlut({Packed(kWLutStride)
                            .text(0, letters(40))
                            .i16(40, 99)
                            .f32(42, 2.5f)
                            .f32(46, 3.5f)
                            .f32(50, 98)
                            .f32(54, 97)
                            .i16(58, 41)
                            .text(60, letters(20))}),
            2);
  const WLut& row = lookups.wlut.rows[1];
  EXPECT_EQ(std::string(row.KEY_TEXT), letters(20));
  EXPECT_EQ(row.FIELD_2, 2.5f);
  EXPECT_EQ(row.FIELD_3, 3.5f);
  EXPECT_EQ(row.FIELD_4, 41);
  EXPECT_EQ(row.FIELD_8, 0);
}

TEST_F(LookupFiles, every_column_of_a_compressor_whose_equation_is_not_kept) {
  ASSERT_EQ(files.clut({Packed(kCLutStride)
                            .text(0, letters(40))
                            .i16(40, 1)
                            .f32(42, 1.5f)
                            .f32(46, 2.5f)
                            .f32(50, 3.5f)
                            .f32(54, 8.0f)
                            .f32(58, 6.5f)
                            .text(62, "MCfh/hp")
                            .text(72, letters(10))
                            .i16(82, 111)
                            .f32(384, 77)}),
            2);
  const CLut& row = lookups.clut.rows[1];
  EXPECT_EQ(std::string(row.KEY_TEXT), letters(40));
  EXPECT_EQ(row.EQUATION, 0);
  EXPECT_EQ(row.A, 1.5f);
  EXPECT_EQ(row.B, 2.5f);
  EXPECT_EQ(row.C, 3.5f);
  EXPECT_EQ(row.FUEL_RATE, 8000.0f);
  EXPECT_EQ(row.FIELD_6, 6.5f);
  EXPECT_EQ(std::string(row.FUEL_UNITS), "MCfh/hp");
  EXPECT_EQ(std::string(row.POWER_UNITS), letters(10));
  EXPECT_EQ(row.FIELD_11, 111);
  EXPECT_EQ(row.FIELD_15, 0);
}

}  // namespace
}  // namespace pn10::test
