// Searches of the scanned lookups, every numbered field of the six, base conditions.
#include <gtest/gtest.h>

#include "lookup/lookup.h"
#include "lookup/packed.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

class LookupQueries : public testing::Test {
 protected:
  Fresh fresh;
  LutFiles files;
  Text text;
};

using Getter = double (*)(int32_t, char*, int16_t);
double plutVal(int32_t row, char* text, int16_t field) { return GetPLutVal(static_cast<int16_t>(row), text, field); }

/** One field of a loaded row: its value, or 1.0 and its text. */
struct FieldRow {
  int16_t field;
  double value;
  const char* in;  /* what the buffer holds before the call */
  const char* out; /* and after */
};

void expectFields(Getter get, int32_t row, std::initializer_list<FieldRow> rows) {
  for (const FieldRow& r : rows) {
    Text text;
    std::strcpy(text.bytes, r.in);
    EXPECT_DOUBLE_EQ(get(row, text, r.field), r.value) << "field " << r.field;
    EXPECT_EQ(text.str(), r.out) << "field " << r.field;
  }
  EXPECT_EQ(messages(), "");
}

void expectUnknown(Getter get, const char* name, double result, std::initializer_list<int16_t> fields) {
  for (int16_t field : fields) {
    Text text;
    EXPECT_EQ(get(1, text, field), result);
    EXPECT_EQ(messages(), name + std::string(" ") + std::to_string(field) + "\n");
    EXPECT_EQ(text.str(), "?");
  }
}

TEST_F(LookupQueries, every_field_of_a_pipe_size) {
  files.plut({pipeSize("6 STD"),
              pipeSize("4 STD")
                  .f32(40, 0.25f)
                  .f32(44, 4.5f)
                  .f32(48, 4)
                  .f32(52, 0.125f)
                  .f32(56, 50)
                  .f32(60, 5.5f)
                  .f32(64, 35000)
                  .i16(68, -1)
                  .i16(84, 10)
                  .i16(86, 4)
                  .text(88, "Psi")
                  .i16(406, 3)
                  .f32(408, 16.5f),
              pipeSize("4 STD")});
  expectFields(plutVal, 2,
               {{0, 3, "4 STD", "4 STD"},
                {1, -1, "?", "?"},
                {2, 4, "?", "?"},
                {3, 3, "?", "?"},
                {4, 4, "?", "?"},
                {5, 5.5, "?", "?"},
                {6, 1, "?", "4 STD"},
                {7, 0.5, "?", "?"},
                {8, 0.125, "?", "?"},
                {9, 4.5, "?", "?"},
                {10, 10, "?", "?"},
                {11, 0.25, "?", "?"},
                {12, 35000, "?", "?"},
                {13, 3, "?", "?"},
                {14, 1, "6 STD", "6 STD"},
                {16, 16.5, "?", "?"}});
  expectUnknown(plutVal, "getplut", 0.0, {-1, 15, 17, 999});
}

TEST_F(LookupQueries, every_field_of_a_fitting) {
  files.flut({Packed(kFLutStride)
                  .text(0, "ELBOW")
                  .f32(40, 10)
                  .f32(44, 2)
                  .f32(48, 0.5f)
                  .f32(52, 50)
                  .text(56, "Feet")
                  .text(66, "Feet")
                  .text(136, "nine")
                  .i16(156, 6)
                  .f32(158, 7.5f)
                  .f32(162, 8.5f)
                  .i16(166, 10)
                  .text(168, "seventeen")
                  .text(188, "described")
                  .i16(428, 12)
                  .i16(430, 1001)
                  .f32(432, 21.5f)});
  expectFields(GetFLutVal, 1,
               {{0, 1, "ELBOW", "ELBOW"},  {1, 2, "?", "?"},          {3, 2, "?", "?"},  // 24 inches in feet again
                {4, 10, "?", "?"},         {5, 1, "?", "ELBOW"},      {6, 6, "?", "?"},         {7, 7.5, "?", "?"},
                {8, 8.5, "?", "?"},        {9, 1, "?", "nine"},       {10, 10, "?", "?"},       {11, 24, "?", "?"},
                {12, 10, "?", "?"},        {13, 1, "?", "Feet"},      {14, 1, "?", "Feet"},     {15, 6, "?", "?"},
                {16, 1, "ELBOW", "ELBOW"}, {17, 1, "?", "seventeen"}, {18, 0.5, "?", "?"},      {19, 12, "?", "?"},
                {20, 1001, "?", "?"},      {21, 21.5, "?", "?"},      {22, 1, "?", "described"}});
  expectUnknown(GetFLutVal, "getflut", -1.0, {-1, 2, 23});
}

TEST_F(LookupQueries, every_field_of_a_regulator) {
  files.rlut({Packed(kRLutStride)
                  .text(0, "R1")
                  .i16(40, 6)
                  .f32(116, 10.5f)
                  .f32(136, 4)
                  .text(140, "Bar")
                  .i16(150, 9)
                  .f32(416, 50)
                  .text(420, "unit")});
  expectFields(GetRLutVal, 1,
               {{0, 1, "R1", "R1"},
                {1, 2, "?", "?"},
                {2, 4, "?", "?"},  // 58 psi in bar again
                {3, 1, "?", "Bar"},
                {4, 10.5, "?", "?"},
                {5, 58, "?", "?"},
                {6, -1, "1", "1"},  // asked by pipe, and there is none
                {7, 6, "?", "?"},
                {8, 10.5, "?", "?"},
                {9, 9, "?", "?"},
                {10, 1, "?", "R1"},
                {11, 1, "R1", "R1"},
                {13, 0, "?", "?"},
                {14, 50, "?", "?"},
                {15, 1, "?", "unit"}});
  expectUnknown(GetRLutVal, "getrlut", -1.0, {-1, 12, 16});
}

TEST_F(LookupQueries, every_field_of_a_valve) {
  files.vlut({Packed(kVLutStride).text(0, "V1").i16(40, 7).f32(64, 6).i16(78, 2)});
  expectFields(GetVLutVal, 1,
               {{0, 1, "V1", "V1"},
                {1, 2, "?", "?"},
                {2, 2, "?", "?"},
                {3, 1, "?", "V1"},
                {4, 1, "V1", "V1"},
                {6, 0, "?", "?"},
                {7, 7, "?", "?"}});
  expectUnknown(GetVLutVal, "getvlut", -1.0, {-1, 5, 8});
}

TEST_F(LookupQueries, every_field_of_a_well) {
  files.wlut({Packed(kWLutStride).text(0, "W1").f32(42, 2.5f).f32(46, 3.5f).i16(58, 4)});
  expectFields(GetWLutVal, 1,
               {{0, 1, "W1", "W1"},
                {1, 2, "?", "?"},
                {2, 2.5, "?", "?"},
                {3, 3.5, "?", "?"},
                {4, 4, "?", "?"},
                {5, 1, "?", "W1"},
                {6, 1, "W1", "W1"},
                {8, 0, "?", "?"}});
  expectUnknown(GetWLutVal, "getwlut", -1.0, {-1, 7, 9});
}

TEST_F(LookupQueries, every_field_of_a_compressor) {
  files.clut(
      {Packed(kCLutStride).text(0, "C1").f32(54, 8).f32(58, 6.5f).text(62, "MCfh/hp").text(72, "Hp").i16(82, 11)});
  expectFields(GetCLutVal, 1,
               {{0, 1, "C1", "C1"},
                {1, 2, "?", "?"},
                {2, 8, "?", "?"},
                {3, 8000, "?", "?"},
                {4, 1, "?", "MCfh/hp"},
                {5, 1, "?", "Hp"},
                {6, 6.5, "?", "?"},
                {8, -1, "C1", "C1"},
                {9, -1, "C1", "C1"},
                {10, 1, "?", "MCfh"},
                {11, 11, "?", "?"},
                {12, 1, "?", "C1"},
                {13, 1, "C1", "C1"},
                {15, 0, "?", "?"}});
  expectUnknown(GetCLutVal, "getclut", -1.0, {-1, 7, 14, 16});
}

TEST_F(LookupQueries, the_power_name_follows_the_fuel_units) {
  struct {
    const char *units, *name;
  } rows[] = {{"Cfh/hp", "Cfh"}, {"Cfh/hp-hr", "Cfh"}, {"MCfh/hp", "MCfh"},
              {"kWh/hp", "kWh"}, {"cfh/hp", "?"},      {"", "?"}};
  for (const auto& r : rows) {
    files.clut({Packed(kCLutStride).text(62, r.units)});
    Text out;
    EXPECT_EQ(GetCLutVal(1, out, 10), 1.0);
    EXPECT_EQ(out.str(), r.name) << r.units;
    FreeLut();
  }
}

TEST_F(LookupQueries, two_rows_of_one_key_count_two_and_the_first_is_found) {
  files.flut({Packed(kFLutStride).text(0, "T"), Packed(kFLutStride).text(0, "E"), Packed(kFLutStride).text(0, "E")});
  EXPECT_EQ(FindFLutRno("E", 1), 2);
  EXPECT_EQ(FindFLutRno("E", 0), 2);
  EXPECT_EQ(FindFLutRno("e", 0), 0);
  EXPECT_EQ(FindFLutRno("E ", 0), 0);
  EXPECT_EQ(FindFLutRno("EE", 1), 0);
}

TEST_F(LookupQueries, the_scans_compare_whole_names_in_each_table) {
  files.rlut({Packed(kRLutStride).text(0, "R"), Packed(kRLutStride).text(0, "RR")});
  files.vlut({Packed(kVLutStride).text(0, "V"), Packed(kVLutStride).text(0, "VV")});
  files.wlut({Packed(kWLutStride).text(0, "W"), Packed(kWLutStride).text(0, std::string(40, 'w'))});
  files.clut({Packed(kCLutStride).text(0, "C"), Packed(kCLutStride).text(0, "CC")});
  EXPECT_EQ(FindRLutRno("RR", 0), 2);
  EXPECT_EQ(FindVLutRno("VV", 0), 2);
  EXPECT_EQ(FindWLutRno(std::string(20, 'w').c_str(), 0), 2);
  EXPECT_EQ(FindWLutRno(std::string(40, 'w').c_str(), 0), 0) << "the row keeps twenty characters";
  EXPECT_EQ(FindCLutRno("CC", 0), 2);
  EXPECT_EQ(FindRLutRno("R", 1), 1);
  EXPECT_EQ(FindRLutRno(nullptr, 0), 0);
}

TEST_F(LookupQueries, the_empty_row_behind_the_last_is_found_by_an_empty_key) {
  files.clut({Packed(kCLutStride).text(0, "A"), Packed(kCLutStride).text(0, "B"), Packed(kCLutStride).text(0, "C")});
  EXPECT_EQ(GetCLutVal(0, text, 1), 4.0);
  EXPECT_EQ(FindCLutRno("", 0), 4);
  EXPECT_EQ(FindCLutRno("", 1), 1);
  EXPECT_EQ(GetCLutVal(4, text, 12), 1.0);
  EXPECT_EQ(text.str(), "");
}

TEST_F(LookupQueries, a_bad_row_of_five_lookups_gives_minus_one_even_for_the_count) {
  const Getter getters[] = {GetFLutVal, GetRLutVal, GetVLutVal, GetWLutVal, GetCLutVal};
  for (Getter get : getters) EXPECT_EQ(get(0, text, 1), -1.0) << "nothing loaded";
  files.flut({Packed(kFLutStride)});
  files.rlut({Packed(kRLutStride)});
  files.vlut({Packed(kVLutStride)});
  files.wlut({Packed(kWLutStride)});
  files.clut({Packed(kCLutStride)});
  for (Getter get : getters) {
    EXPECT_EQ(get(3, text, 1), -1.0);
    EXPECT_EQ(get(-1, text, 1), -1.0);
    EXPECT_EQ(get(2, text, 1), 2.0);
    EXPECT_EQ(get(0, text, 1), 2.0);
    EXPECT_EQ(get(3, text, 999), -1.0) << "silent: the row is looked at first";
  }
  EXPECT_EQ(messages(), "");
}

TEST_F(LookupQueries, a_bad_pipe_size_row_gives_zero_but_the_table_wide_fields_answer) {
  EXPECT_EQ(GetPLutVal(1, text, 13), 0.0);
  files.plut({pipeSize("A").f32(48, 4)});
  EXPECT_EQ(GetPLutVal(5, text, 13), 1.0);
  EXPECT_EQ(GetPLutVal(0, text, 13), 1.0);
  EXPECT_EQ(GetPLutVal(5, text, 2), 0.0);
  EXPECT_EQ(GetPLutVal(32767, text, 6), 0.0);
  EXPECT_EQ(GetPLutVal(-1, text, 13), 0.0);
  EXPECT_EQ(GetPLutVal(0, text, 2), 0.0);
  EXPECT_EQ(messages(), "");
}

TEST_F(LookupQueries, texts_go_nowhere_without_a_buffer) {
  files.plut({pipeSize("A")});
  files.clut({Packed(kCLutStride).text(0, "C").text(62, "Cfh/hp")});
  EXPECT_EQ(GetPLutVal(1, nullptr, 6), 1.0);
  EXPECT_EQ(GetPLutVal(1, nullptr, 0), 0.0);
  EXPECT_EQ(GetCLutVal(1, nullptr, 10), 1.0);
  EXPECT_EQ(GetCLutVal(1, nullptr, 13), 0.0);
}

TEST_F(LookupQueries, base_conditions_are_stored_with_factors_and_code) {
  SetBaseCond(14.73f, 520.0f, "Bar", "Kelvin", "lbm/ft-sec", "Btu/Cf");
  EXPECT_EQ(settings.baseP, 14.73f);
  EXPECT_EQ(settings.baseT, 520.0f);
  EXPECT_EQ(settings.patmFactor, 14.5f);
  EXPECT_EQ(settings.visFactor, 0.0f) << "viscosity has no family of its own name";
  EXPECT_STREQ(settings.patmUnits, "Bar");
  EXPECT_STREQ(settings.tempUnits, "Kelvin");
  EXPECT_STREQ(settings.visUnits, "lbm/ft-sec");
  EXPECT_STREQ(settings.hvUnits, "Btu/Cf");
}

TEST_F(LookupQueries, the_temperature_code_is_the_first_letter) {
  struct {
    const char* units;
    int16_t code;
  } rows[] = {{"Celsius", 1}, {"Fahrenheit", 0}, {"Kelvin", 2}, {"Rankine", 3}, {"celsius", 0}, {"", 0}, {nullptr, 0}};
  for (const auto& r : rows) {
    SetBaseCond(0, 0, "Psi", r.units, "", "");
    EXPECT_EQ(settings.tempCode, r.code) << (r.units ? r.units : "null");
  }
}

}  // namespace
}  // namespace pn10::test
