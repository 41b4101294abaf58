/** The text of every label field: prefix, value with the decimals of its quantity, marks, units. */
#include <limits>

#include "draw/labels.h"
#include "model/draw_state.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

/** Texts of one record; the digit table gives every entry its own count of decimals where labels use it. */
class LabelTexts : public testing::Test {
 protected:
  LabelTexts() {
    unit.Digits[0] = 3;   // diameters
    unit.Digits[2] = 1;   // lengths
    unit.Digits[3] = 2;   // efficiency, velocity
    unit.Digits[4] = 1;   // flow
    unit.Digits[5] = 4;   // pressure drop
    unit.Digits[7] = 2;   // pressures
    unit.Digits[8] = 1;   // node loads
    unit.Digits[10] = 1;  // temperature; elevation (9) keeps none
    unit.Digits[15] = 2;  // coordinates
    unit.Digits[25] = 1;  // customer loads
    unit.Digits[26] = 1;  // heating value
    unit.Digits[27] = 5;  // viscosity
    unit.Digits[28] = 2;  // heat ratio
    unit.Digits[29] = 3;  // gravity
    drawState.Unit = &unit;
    drawState.LoadFactor = 0.5f;
    SetGlobalUnits("ft/s", "m", "Feet", 2.0f, 4.0f, 0.0f, 0.0f);
    copyText(settings.tempUnits, "F");
    copyText(settings.patmUnits, "PSIA");
    copyText(settings.visUnits, "CP");
    copyText(settings.hvUnits, "BTU/CF");
  }

  using Maker = int32_t (*)(int32_t, int16_t, char*, int16_t, int16_t);
  static std::string text(Maker make, int32_t record, int field, bool prefix, bool units) {
    char line[256] = "left over";
    const int32_t made = make(record, static_cast<int16_t>(field), line, prefix, units);
    EXPECT_EQ(made, line[0] ? 1 : 0) << field;
    return line;
  }
  static std::string n(int field, bool prefix = true, bool units = true) {
    return text(SetTextN, 1, field, prefix, units);
  }
  static std::string p(int field, bool prefix = true, bool units = true) {
    return text(SetTextP, 1, field, prefix, units);
  }
  static std::string c(int field, bool prefix = true, bool units = true) {
    return text(SetTextC, 1, field, prefix, units);
  }

  Ndt& node() {
    if (!model.nodeCount) {
      Ndt r = nodeRecord(7, "Main St  ");
      r.PRESSURE = 60.125f, r.QB_LOAD = 10, r.Q_FACTOR = 2, r.QX_LOAD = 6, r.QX_FIXED = 3;
      r.T = 60.05f, r.PATM = 14.7f, r.VISCOSITY = 0.0123f, r.SG = 0.6f, r.SH_RATIO = 1.3f, r.HV = 1010;
      r.ELEV = 123.7f, r.X_COORD = 1.5, r.Y_COORD = -2.25, r.Z_COORD = 3;
      copyText(r.P_UNITS, "PSI");
      copyText(r.Q_UNITS, "MCFH");
      addNode(r);
    }
    return model.ndt[1];
  }
  Pdt& pipe() {
    if (!model.pipeCount) {
      addNodes(2);
      Pdt r = pipeRecord(41, 1, 2);
      copyText(r.SIZE_TYPE, "4.5 PE  ");
      copyText(r.DR_UNITS, "In");
      copyText(r.L_UNITS, "Feet");
      copyText(r.Q_UNITS, "MCFH");
      copyText(r.DP_UNITS, "PSI");
      copyText(r.LINK_ID, "L-9");
      r.LENGTH = 120, r.L_FACTOR = 1, r.EFFICIENCY = 0.95f, r.FLOW = -20.25f, r.Q_FACTOR = 1000, r.DP = -0.5f;
      r.DP_FACTOR = 2, r.CUST_COUNT = 12, r.VELOCITY = 5, r.REYNOLDSNO = 12345.6f, r.MAOP = 99, r.D_FACTOR = 1;
      addPipe(r);
    }
    return model.pdt[1];
  }
  Cdt& cust() {
    if (!model.custCount) {
      pipe();
      Cdt r = custRecord(31, 1);
      copyText(r.LOAD_UNITS, "CFH");
      copyText(r.LINK_ID, "meter 5");
      r.UNIT_LOAD = 12.25f, r.COUNT = 3;
      addCust(r);
    }
    return model.cdt[1];
  }

  Fresh fresh;
  UnitOpts unit{};
};

TEST_F(LabelTexts, every_node_field_with_prefix_and_units) {
  node();
  const struct {
    int field;
    const char* text;
  } rows[] = {
      {301, "Main St"},
      {302, "P = 60.12 PSI"},  // 60.125 is exact: half to even
      {305, "Q = 10.0 MCFH"},
      {310, "Q(ext) = 4.5 MCFH"},  // 6 / 2 + 3 / 2
      {314, "T = 60.0 F"},         // 60.05 in single precision lies below the half
      {316, "Pa = 14.70 PSIA"},
      {317, "Vis = 0.01230 CP"},
      {318, "SG = 0.600"},
      {319, "K = 1.30"},
      {320, "HV = 1010.0 BTU/CF"},
      {334, "Q = 14.5 MCFH"},       // 10 + 3 + 1.5
      {335, "Q(adj) = 14.5 MCFH"},  // no flag set
      {345, "Elev = 124 m"},
      {347, "Rec No = 1"},
      {378, "X = 1.50, Y = -2.25, Z = 3.00 Feet"},
      {379, "X = 1.50, Y = -2.25 Feet"},
  };
  for (const auto& row : rows) EXPECT_EQ(n(row.field), row.text);
}

TEST_F(LabelTexts, every_node_field_without_prefix_and_units) {
  node();
  const struct {
    int field;
    const char* text;
  } rows[] = {
      {301, "Main St"},     {302, "60.12"},   {305, "10.0"},  {310, "4.5"},  {314, "60.0"},
      {316, "14.70"},       {317, "0.01230"}, {318, "0.600"}, {319, "1.30"}, {320, "1010.0"},
      {334, "14.5"},        {335, "14.5"},    {345, "124"},   {347, "1"},    {378, "1.50, -2.25, 3.00"},
      {379, "1.50, -2.25"},
  };
  for (const auto& row : rows) EXPECT_EQ(n(row.field, false, false), row.text);
}

TEST_F(LabelTexts, stars_of_nodes_follow_their_own_flags) {
  node().P_KNOWN = 1;
  EXPECT_EQ(n(302), "P = 60.12* PSI");
  node().QB_KNOWN = 1;
  EXPECT_EQ(n(305), "Q = 10.0* MCFH");
  EXPECT_EQ(n(334), "Q = 14.5* MCFH");
  EXPECT_EQ(n(335), "Q(adj) = 14.5* MCFH");
  node().T_KNOWN = 1;
  EXPECT_EQ(n(314), "T = 60.0* F");
  node().T_KNOWN = 2;
  EXPECT_EQ(n(314), "T = 60.0 F");
  node().SG = -0.6f;
  EXPECT_EQ(n(317), "Vis = 0.01230* CP");
  EXPECT_EQ(n(318), "SG = 0.600*");
  EXPECT_EQ(n(319), "K = 1.30*");
  EXPECT_EQ(n(320), "HV = 1010.0* BTU/CF");
  EXPECT_EQ(n(316), "Pa = 14.70 PSIA");
}

TEST_F(LabelTexts, a_load_that_is_off_never_has_a_star_as_well) {
  node().QB_KNOWN = 1;
  node().QX_STATUS = 1;
  for (int field : {305, 334}) EXPECT_NE(n(field).find(" (Off) MCFH"), std::string::npos);
  EXPECT_EQ(n(305), "Q = 10.0 (Off) MCFH");
  EXPECT_EQ(n(310), "Q(ext) = 4.5 (Off) MCFH");
  node().QX_STATUS = 0;
  node().QB_STATUS = 1;
  EXPECT_EQ(n(335, false, false), "14.5 (Off)");
  EXPECT_EQ(n(310), "Q(ext) = 4.5 MCFH");  // the base load's switch is not its own
}

TEST_F(LabelTexts, the_external_load_takes_the_load_factor_by_the_flag_of_the_base_load) {
  node().QX_DF = 1;
  EXPECT_EQ(n(310, false, false), "4.5");
  node().QB_DF = 1;
  EXPECT_EQ(n(310, false, false), "3.0");  // 3 * 0.5 + 1.5
}

TEST_F(LabelTexts, the_adjusted_load_takes_the_load_factor_for_each_of_its_parts) {
  node().QB_DF = 1;
  EXPECT_EQ(n(335, false, false), "9.5");  // 10 * 0.5 + 3 + 1.5
  node().QX_DF = 1;
  EXPECT_EQ(n(335, false, false), "8.0");  // 5 + 1.5 + 1.5
  node().QB_KNOWN = 1;
  EXPECT_EQ(n(335, false, false), "13.0*");  // 10 + 1.5 + 1.5
}

TEST_F(LabelTexts, every_pipe_field_with_prefix_and_units) {
  pipe();
  const struct {
    int field;
    const char* text;
  } rows[] = {
      {1, "ID = 41"},           {7, "4.5 PE"},           {9, "L = 120.0 Feet"},
      {11, "E = 0.95"},         {12, "Q = 20.2 MCFH"},                             // 20.25 is exact: half to even
      {14, "DP = 0.5000 PSI"},  {22, "Customer = 12"},   {33, "Vel = 2.50 ft/s"},  // 5 / 2
      {35, "D = 0.000 In"},                                                        // no lookup is loaded
      {43, "Link ID = L-9"},    {63, "E, Total = 0.95"}, {65, "RE = 12346"},
      {76, "MAOP = 99.00 PSI"}, {78, "Rec No = 1"},      {86, "4.5 PE - L = 120.0 Feet"},
      {129, "-168.7500"},  // 20.25 * 1000 * (-0.5 * 2) / (120 * 1)
  };
  for (const auto& row : rows) EXPECT_EQ(p(row.field), row.text);
}

TEST_F(LabelTexts, every_pipe_field_without_prefix_and_units) {
  pipe();
  const struct {
    int field;
    const char* text;
  } rows[] = {
      {1, "41"},     {7, "4.5 PE"}, {9, "120.0"},           {11, "0.95"},       {12, "20.2"}, {14, "0.5000"},
      {22, "12"},    {33, "2.50"},  {35, "0.000"},          {43, "L-9"},        {63, "0.95"}, {65, "12346"},
      {76, "99.00"}, {78, "1"},     {86, "4.5 PE - 120.0"}, {129, "-168.7500"},
  };
  for (const auto& row : rows) EXPECT_EQ(p(row.field, false, false), row.text);
}

TEST_F(LabelTexts, the_length_field_is_named_after_the_type) {
  const char* names[] = {"L = ", "SetP = ", "SetP = ", "Open = ", "Coeff = ", "L = "};
  for (int type = 0; type <= 5; type++) {
    pipe().HYD_TYPE = static_cast<uint8_t>(type);
    EXPECT_EQ(p(9), std::string(names[type]) + "120.0 Feet");
  }
}

TEST_F(LabelTexts, sizes_show_a_star_and_fittings_on_plain_pipes_alone) {
  pipe().SIZE_FLAG = 1;
  EXPECT_EQ(p(7), "4.5 PE*");
  pipe().FTG_COUNT = 2;
  EXPECT_EQ(p(7), "4.5 PE* (F)");
  EXPECT_EQ(p(86), "4.5 PE (F) - L = 120.0 Feet");
  EXPECT_EQ(p(18), "Fittings Attached");
  pipe().HYD_TYPE = 3;
  EXPECT_EQ(p(7), "4.5 PE");
  EXPECT_EQ(p(18), "");
}

TEST_F(LabelTexts, efficiencies_and_the_gradient_are_lines_of_plain_pipes_alone) {
  pipe().HYD_TYPE = 5;
  for (int field : {11, 63, 129, 18}) EXPECT_EQ(p(field), "");
}

TEST_F(LabelTexts, total_efficiency_and_diameter_come_from_the_lookup_row) {
  pipe();
  // A size file: header record, then one row with its diameter in inches and its efficiency in percent.
  Bytes file;
  file.text("PN.10.3   0", 40).padTo(432).text("4.5 PE", 40).padTo(432 + 48).f32(4.026f).padTo(432 + 56).f32(50);
  file.padTo(432 + 70).f32(1).padTo(864);
  TempDir dir;
  dir.write("sizes", file.str());
  ASSERT_EQ(ReadPLut(dir.path("sizes").c_str()), 1);
  copyText(pipe().SIZE_TYPE, "4.5 PE");
  EXPECT_EQ(p(63), "E, Total = 0.47");  // 0.95 * 0.5 in single precision lies below the half
  EXPECT_EQ(p(35), "D = 4.026 In");
  FreePLut();
}

TEST_F(LabelTexts, velocity_and_efficiency_divisors_of_zero_divide_like_one) {
  SetGlobalUnits("", "", "", 0.0f, 0.0f, 0.0f, 0.0f);
  pipe();
  EXPECT_EQ(p(33, false, false), "5.00");
  EXPECT_EQ(p(63, false, false), "0.95");
}

TEST_F(LabelTexts, every_customer_field) {
  cust().NODE_ASGN = 1;
  const struct {
    int field;
    const char *full, *bare;
  } rows[] = {
      {401, "ID = 31", "31"},          {402, "Main ID = 41", "41"},
      {403, "From Node", "From Node"}, {404, "12.2 CFH", "12.2"},  // 12.25 is exact: half to even
      {421, "Units = 3", "3"},         {422, "Link ID = meter 5", "meter 5"},
      {438, "Rec No = 1", "1"},        {454, "Q = 36.8 CFH", "36.8"},  // 36.75
  };
  for (const auto& row : rows) {
    EXPECT_EQ(c(row.field), row.full);
    EXPECT_EQ(c(row.field, false, false), row.bare);
  }
}

TEST_F(LabelTexts, every_assignment_of_a_customer) {
  const struct {
    int16_t code;
    const char* text;
  } rows[] = {{0, "Load Off"},
              {1, "From Node"},
              {2, "To Node"},
              {3, "Both Nodes"},
              {4, ""},
              {5, ""},
              {11, "Central Pre 77"},
              {12, "Central Post 76"},
              {13, "Non Central Older"},
              {14, "Non Central Newer"}};
  for (const auto& row : rows) {
    cust().NODE_ASGN = row.code;
    EXPECT_EQ(c(403), row.text);
  }
}

TEST_F(LabelTexts, a_customer_without_a_pipe_has_the_main_id_of_the_empty_row) {
  cust().PIPE_REC = 0;
  EXPECT_EQ(c(402), "Main ID = 0");
  cust().PIPE_REC = 99;
  EXPECT_EQ(c(402), "Main ID = 0");
}

TEST_F(LabelTexts, unknown_fields_and_records_leave_an_empty_line) {
  cust();
  node();
  for (int field : {0, -1, 2, 71, 300, 303, 380, 405, 428, 455, 32767, -32768}) {
    EXPECT_EQ(n(field), "");
    EXPECT_EQ(p(field), "");
    EXPECT_EQ(c(field), "");
  }
  for (int32_t record : {0, -1, 99, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(text(SetTextN, record, 301, true, true), "");
    EXPECT_EQ(text(SetTextP, record, 1, true, true), "");
    EXPECT_EQ(text(SetTextC, record, 401, true, true), "");
  }
}

TEST_F(LabelTexts, empty_names_make_no_line) {
  copyText(node().NODENAME, "   ");
  EXPECT_EQ(n(301), "");
  copyText(cust().LINK_ID, "");
  EXPECT_EQ(c(422), "Link ID = ");
  EXPECT_EQ(c(422, false, false), "");
}

TEST_F(LabelTexts, absurd_values_stay_within_the_line) {
  node().X_COORD = 1e308;
  node().Y_COORD = -1e308;
  unit.Digits[15] = 1e9f;
  EXPECT_EQ(n(378).size(), 255u);
  node().PRESSURE = std::numeric_limits<float>::quiet_NaN();
  unit.Digits[7] = -5;
  EXPECT_EQ(n(302, true, false), "P = nan");
  node().Q_FACTOR = 0;
  EXPECT_EQ(n(310, false, false), "inf");
}

}  // namespace
}  // namespace pn10::test
