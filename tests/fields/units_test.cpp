/** Unit names, absolute temperature, number formats and the text helpers. */
#include <cmath>
#include <limits>

#include "fields/number_format.h"
#include "fields/number_text.h"
#include "model/draw_state.h"
#include "model/tables.h"
#include "support/support.h"

namespace {

using pn10::test::Fresh;

struct UnitRow {
  const char* family;
  const char* name;
  double factor;
};

const double kCube = static_cast<double>(static_cast<float>(std::pow(3.2808399, 3.0)));

class EveryUnit : public testing::TestWithParam<UnitRow> {};

TEST_P(EveryUnit, gives_its_factor_in_single_precision) {
  const auto& row = GetParam();
  EXPECT_EQ(GetUnitFactor(row.name, 1000.0f, row.family), static_cast<float>(row.factor))
      << row.family << " " << row.name;
}

INSTANTIATE_TEST_SUITE_P(Length, EveryUnit,
                         testing::Values(UnitRow{"LUS", "Feet", 1.0}, UnitRow{"LUS", "F", 1.0},
                                         UnitRow{"LUS", "Miles", 5280.0}, UnitRow{"LUS", "Metres", 3.28084},
                                         UnitRow{"LUS", "M", 3.28084}, UnitRow{"LUS", "mm", 3.28084},
                                         UnitRow{"LUS", "Km", 3280.8398}, UnitRow{"LUS", "cm", 0.0328084},
                                         UnitRow{"LUS", "Inches", 0.08333333}, UnitRow{"LUS", "Yards", 1.0},
                                         UnitRow{"LUS", "", 1.0}));

INSTANTIATE_TEST_SUITE_P(Diameter, EveryUnit,
                         testing::Values(UnitRow{"DUS", "Inches", 1.0}, UnitRow{"DUS", "cm", 0.3937},
                                         UnitRow{"DUS", "Mils", 0.03937}, UnitRow{"DUS", "mm", 0.03937},
                                         UnitRow{"DUS", "Microns", 0.00003937}, UnitRow{"DUS", "Feet", 12.0},
                                         UnitRow{"DUS", "Metres", 39.37}, UnitRow{"DUS", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(Efficiency, EveryUnit,
                         testing::Values(UnitRow{"E", "Decimal", 1.0}, UnitRow{"E", "Percent", 0.01},
                                         UnitRow{"E", "%", 0.01}, UnitRow{"E", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(KeysThatBeginWithEAreEfficiency, EveryUnit,
                         testing::Values(UnitRow{"EN", "Therms", 1.0}, UnitRow{"EN", "kBtu", 1.0},
                                         UnitRow{"EN", "Percent", 0.01}));

INSTANTIATE_TEST_SUITE_P(Pressure, EveryUnit,
                         testing::Values(UnitRow{"PUS", "PSI", 1.0}, UnitRow{"PUS", "PSIG", 1.0},
                                         UnitRow{"PUS", "Inches H2O", 0.036092}, UnitRow{"PUS", "In-wc", 0.036092},
                                         UnitRow{"PUS", "Atm", 14.7}, UnitRow{"PUS", "Bar", 14.5},
                                         UnitRow{"PUS", "OSI", 0.0625}, UnitRow{"PUS", "mbar", 0.0145},
                                         UnitRow{"PUS", "Millibar", 0.0145}, UnitRow{"PUS", "kPa", 0.145},
                                         UnitRow{"PUS", "MPa", 145.0}, UnitRow{"PUS", "Pa", 0.000145},
                                         UnitRow{"PUS", "In-Hg", 0.491154}, UnitRow{"PUS", "Inches Hg", 0.491154},
                                         UnitRow{"PUS", "Feet H2O", 0.4335}, UnitRow{"PUS", "kg/cm2", 14.22},
                                         UnitRow{"PUS", "kg/m2", 0.001422}, UnitRow{"PUS", "mm-H2O", 0.00142094},
                                         UnitRow{"PUS", "mm-Hg", 0.019337}, UnitRow{"PUS", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(
    Flow, EveryUnit,
    testing::Values(UnitRow{"Q", "Mcfh", 1000.0}, UnitRow{"Q", "M^3/Hr", kCube}, UnitRow{"Q", "m3h", kCube},
                    UnitRow{"Q", "m3/hr", kCube}, UnitRow{"Q", "cfh", 1.0}, UnitRow{"Q", "Mcfd", 41.667},
                    UnitRow{"Q", "MMcfd", 41667.0}, UnitRow{"Q", "MMcfh", 1000000.0}, UnitRow{"Q", "m3/d", 1.47125},
                    UnitRow{"Q", "m3d", 1.47125}, UnitRow{"Q", "m3day", 1.47125}, UnitRow{"Q", "Mm3/d", 1471.25},
                    UnitRow{"Q", "Mm3d", 1471.25}, UnitRow{"Q", "MMm3/d", 1471250.0},
                    UnitRow{"Q", "MMm3/day", 1471250.0}, UnitRow{"Q", "MMm3d", 1471250.0},
                    UnitRow{"Q", "Mm3h", kCube * 1000.0}, UnitRow{"Q", "cfd", 0.041667}, UnitRow{"Q", "cfm", 60.0},
                    UnitRow{"Q", "Liters/s", 2.1186}, UnitRow{"Q", "Ccf/Mo", 0.13689254},
                    UnitRow{"Q", "Mcf/Mo", 1.3689029}, UnitRow{"Q", "m3/mo", kCube / 730.512},
                    UnitRow{"Q", "kW", 3.4152}, UnitRow{"Q", "Kilowatts", 3.4152}, UnitRow{"Q", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(WholeTextsOfTheDailyFlows, EveryUnit,
                         testing::Values(UnitRow{"Q", "m3/day", 1.0}, UnitRow{"Q", "Mm3/day", 1.0}));

INSTANTIATE_TEST_SUITE_P(Temperature, EveryUnit,
                         testing::Values(UnitRow{"T", "Fahrenheit", 0.0}, UnitRow{"T", "Celsius", 1.0},
                                         UnitRow{"T", "Kelvin", 2.0}, UnitRow{"T", "Rankine", 3.0}));

INSTANTIATE_TEST_SUITE_P(Fuel, EveryUnit,
                         testing::Values(UnitRow{"FUEL", "Cfh/hp", 1.0}, UnitRow{"FUEL", "Mcfh/hp", 1000.0},
                                         UnitRow{"FUEL", "Kelvin", 0.0}, UnitRow{"FUEL", "Therms", 0.0}));

INSTANTIATE_TEST_SUITE_P(Viscosity, EveryUnit,
                         testing::Values(UnitRow{"VIS", "lbm/ft-s", 1.0}, UnitRow{"VIS", "cP", 0.000672},
                                         UnitRow{"VIS", "Micropoise", 0.0000000672}, UnitRow{"VIS", "lb-s/ft2", 32.2},
                                         UnitRow{"VIS", "Pa-s", 0.672}, UnitRow{"VIS", "lbf", 1.0}));

INSTANTIATE_TEST_SUITE_P(Velocity, EveryUnit,
                         testing::Values(UnitRow{"VEL", "ft/s", 1.0}, UnitRow{"VEL", "Metres/s", 3.28084},
                                         UnitRow{"VEL", "mps", 3.28084}, UnitRow{"VEL", "mph", 1.46667},
                                         UnitRow{"VEL", "kmh", 0.911389}, UnitRow{"VEL", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(HeatingValue, EveryUnit,
                         testing::Values(UnitRow{"HV", "Btu/cf", 1.0}, UnitRow{"HV", "Btu/m3", kCube},
                                         UnitRow{"HV", "MBtu/cf", 1000.0}, UnitRow{"HV", "MBtu/m3", 0.0000283206},
                                         UnitRow{"HV", "Joules/cf", 0.000948}, UnitRow{"HV", "Joules/m3", 0.0000268495},
                                         UnitRow{"HV", "kJoules/cf", 0.948}, UnitRow{"HV", "kJ/cf", 0.948},
                                         UnitRow{"HV", "kJoule/m3", 0.0268495}, UnitRow{"HV", "kJ/m3", 0.0268495},
                                         UnitRow{"HV", "MJ/m3", 26.86495}, UnitRow{"HV", "other", 1.0}));

INSTANTIATE_TEST_SUITE_P(UnknownFamilies, EveryUnit,
                         testing::Values(UnitRow{"MUS", "Anything", 0.0}, UnitRow{"", "Feet", 0.0},
                                         UnitRow{"V", "cP", 0.0}, UnitRow{"H", "Btu/cf", 0.0},
                                         UnitRow{"lus", "Feet", 0.0}, UnitRow{nullptr, "Feet", 0.0}));

TEST(GetUnitFactor, cubic_metre_is_about_35_point_3147_cubic_feet) { EXPECT_NEAR(kCube, 35.3147, 0.0001); }

TEST(GetUnitFactor, keys_stay_as_they_stand_whatever_follows_their_letter) {
  EXPECT_EQ(GetUnitFactor("Miles", 0, "Lx"), 5280.0f);
  EXPECT_EQ(GetUnitFactor("kW", 1000, "Qxyz"), GetUnitFactor("kW", 1000, "Q"));
}

TEST(GetUnitFactor, power_divides_a_single_precision_constant) {
  EXPECT_EQ(GetUnitFactor("KW", 900.0f, "Q"), static_cast<float>(3415.199951171875 / 900.0));
  EXPECT_NE(GetUnitFactor("KW", 900.0f, "Q"), static_cast<float>(3415.2 / 900.0));
}

TEST(GetUnitFactor, power_without_a_heating_value_is_infinite) {
  EXPECT_EQ(GetUnitFactor("KW", 0.0f, "Q"), std::numeric_limits<float>::infinity());
}

TEST(GetUnitFactor, long_and_missing_names_are_cut_and_empty) {
  EXPECT_EQ(GetUnitFactor("INCHES H2O and far more text than the buffer holds", 0, "PUS"), 0.036092f);
  const char eleven[11] = {'m', 'e', 't', 'r', 'e', 's', 'm', 'e', 't', 'r', 'e'};  // no terminator behind it
  EXPECT_EQ(GetUnitFactor(eleven, 0, "LUS"), 3.28084f);
  EXPECT_EQ(GetUnitFactor(nullptr, 0, "LUS"), 1.0f);
}

TEST(CalcRankine, follows_the_temperature_code) {
  Fresh fresh;
  const double zeroF = 459.67f, zeroC = 17.78f, zeroK = 255.22f, ratio = 1.8f;
  const double expected[] = {60 + zeroF, (60 + zeroC) * ratio + zeroF, (60 - zeroK) * ratio + zeroF, 60};
  for (int16_t code = 0; code < 4; code++) {
    pn10::settings.tempCode = code;
    EXPECT_EQ(CalcRankine(60.0f), expected[code]) << code;
  }
  EXPECT_NEAR(expected[1], 599.674, 1e-4);  // 77.78 * 1.8 + 459.67 by hand
}

TEST(GetNumFormat, takes_the_digits_of_the_hosts_table) {
  Fresh fresh;
  UnitOpts units{};
  units.Digits[3] = 2.0f;
  units.Digits[4] = 3.9f;
  units.Digits[5] = 12.0f;
  pn10::drawState.Unit = &units;
  struct {
    int16_t index;
    const char* format;
  } rows[] = {{0, "%0.0f"}, {3, "%0.2f"}, {4, "%0.3f"}, {5, "%0.12f"}, {-1, "%0.0f"}, {32, "%0.0f"}, {32767, "%0.0f"}};
  for (const auto& row : rows) {
    char buffer[32] = "";
    GetNumFormat(row.index, buffer);
    EXPECT_STREQ(buffer, row.format);
  }
  GetNumFormat(3, nullptr);
}

TEST(GetNumFormat, has_no_decimals_before_the_host_passed_a_table) {
  Fresh fresh;
  char buffer[32] = "";
  GetNumFormat(7, buffer);
  EXPECT_STREQ(buffer, "%0.0f");
  pn10::drawState.Unit = nullptr;
  GetNumFormat(7, buffer);
  EXPECT_STREQ(buffer, "%0.0f");
}

TEST(PrintDigits, prints_as_the_format_of_the_table_does) {
  Fresh fresh;
  UnitOpts units{};
  units.Digits[1] = 2.0f;
  units.Digits[2] = -4.0f;
  units.Digits[3] = std::numeric_limits<float>::quiet_NaN();
  pn10::drawState.Unit = &units;
  char text[64];
  EXPECT_EQ(pn10::printDigits(text, sizeof text, 1, 1.005), 4u);
  EXPECT_STREQ(text, "1.00");
  for (int32_t index : {0, 2, 3}) {
    pn10::printDigits(text, sizeof text, index, 2.5);
    EXPECT_STREQ(text, "2") << index;
  }
}

TEST(StrUpper, changes_letters_in_place_and_returns_the_length) {
  char text[] = "az-AZ 09 \xe4";
  EXPECT_EQ(StrUpper(text), 10);
  EXPECT_STREQ(text, "AZ-AZ 09 \xe4");
  char empty[] = "";
  EXPECT_EQ(StrUpper(empty), 0);
  EXPECT_EQ(StrUpper(nullptr), 0);
}

TEST(TrimRight, removes_white_space_at_the_end_only) {
  struct {
    const char *text, *trimmed;
  } rows[] = {{"abc", "abc"}, {" a b \t\r\n\v\f ", " a b"}, {"   ", ""}, {"", ""}, {"x\xa0", "x\xa0"}};
  for (const auto& row : rows) {
    char text[32];
    pn10::copyText(text, row.text);
    TrimRight(text);
    EXPECT_STREQ(text, row.trimmed);
  }
  TrimRight(nullptr);
}

TEST(TrimRight20, works_on_exactly_twenty_bytes) {
  char blanks[22] = "                    X";
  TrimRight20(blanks);
  EXPECT_STREQ(blanks, "");
  EXPECT_EQ(blanks[20], 'X');
  char name[24] = "name                XX";
  TrimRight20(name);
  EXPECT_STREQ(name, "name");
  char full[22] = "abcdefghijklmnopqrstX";
  TrimRight20(full);
  EXPECT_STREQ(full, "abcdefghijklmnopqrst");
  TrimRight20(nullptr);
}

TEST(TrimRight20, takes_a_terminator_for_a_character) {
  char early[22] = "abc \0               ";  // 15 blanks behind the terminator
  TrimRight20(early);
  EXPECT_STREQ(early, "abc ");
  char late[21] = "                   ";  // byte 19 is the terminator
  TrimRight20(late);
  EXPECT_EQ(late[0], ' ');
  EXPECT_EQ(late[20], 0);
}

}  // namespace
