/** Numbers in text, against the C library in the C locale. */
#include "fields/number_text.h"

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "support/support.h"

namespace {

using namespace pn10;

/** Doubles of every magnitude, by their bits, and the odd ones. */
std::vector<double> doubles() {
  std::vector<double> values = {
      0.0, -0.0, 0.5, 1.5, 2.5, -2.5, 0.1, 1e15, 1e16, 123456.789, -1e-7, 5e-324, 1.7976931348623157e308};
  std::mt19937_64 random(20240229);
  std::uniform_real_distribution<double> ordinary(-1e6, 1e6);
  while (values.size() < 4000) {
    const uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) values.push_back(value);
    values.push_back(ordinary(random));
  }
  return values;
}

TEST(NumberText, prints_as_the_formats_f_and_e_do) {
  char ours[kNumberSize], theirs[kNumberSize];
  for (const double value : doubles()) {
    for (const int decimals : {0, 1, 2, 6, 15}) {
      std::snprintf(theirs, sizeof theirs, "%.*f", decimals, value);
      EXPECT_EQ(printFixed(ours, sizeof ours, value, decimals), std::strlen(theirs));
      EXPECT_STREQ(ours, theirs);
      std::snprintf(theirs, sizeof theirs, "%.*e", decimals, value);
      EXPECT_EQ(printExponent(ours, sizeof ours, value, decimals), std::strlen(theirs));
      EXPECT_STREQ(ours, theirs);
    }
  }
}

TEST(NumberText, prints_infinity_and_what_is_no_number_as_the_formats_do) {
  char ours[kNumberSize];
  const double infinite = std::numeric_limits<double>::infinity();
  printFixed(ours, sizeof ours, infinite);
  EXPECT_STREQ(ours, "inf");
  printExponent(ours, sizeof ours, -infinite);
  EXPECT_STREQ(ours, "-inf");
  printFixed(ours, sizeof ours, std::numeric_limits<double>::quiet_NaN());
  EXPECT_STREQ(ours, "nan");
}

TEST(NumberText, six_decimals_are_the_default_and_sixty_the_most) {
  char ours[kNumberSize];
  printFixed(ours, sizeof ours, 1.0 / 3);
  EXPECT_STREQ(ours, "0.333333");
  printExponent(ours, sizeof ours, 12345.678);
  EXPECT_STREQ(ours, "1.234568e+04");
  EXPECT_EQ(printFixed(ours, sizeof ours, 1.7976931348623157e308, 2147483647), 309u + 1 + 60);
  EXPECT_EQ(printFixed(ours, sizeof ours, 2.5, -2147483647), 1u);
}

TEST(NumberText, is_cut_at_the_size_of_the_buffer) {
  char ours[8] = "#######";
  EXPECT_EQ(printFixed(ours, 5, 123456.0), 4u);
  EXPECT_STREQ(ours, "1234");
  EXPECT_EQ(ours[5], '#');
  EXPECT_EQ(printInt(ours, 1, 7), 0u);
  EXPECT_STREQ(ours, "");
  EXPECT_EQ(printFixed(nullptr, 0, 1.0), 0u);
}

TEST(NumberText, prints_whole_numbers) {
  char ours[32];
  for (const int64_t value : {int64_t{0}, int64_t{-1}, int64_t{INT32_MIN}, int64_t{INT32_MAX}, INT64_MIN, INT64_MAX}) {
    printInt(ours, sizeof ours, value);
    EXPECT_EQ(ours, std::to_string(value));
  }
}

TEST(NumberText, parses_what_it_printed_to_the_last_bit) {
  char text[kNumberSize];
  for (const double value : doubles()) {
    std::snprintf(text, sizeof text, "%.17g", value);
    EXPECT_EQ(parseDouble(text), value) << text;
  }
}

TEST(NumberText, parses_as_atof_does) {
  for (const char* text : {"12.5",
                           " \t\n\v\f\r12.5",
                           "+3",
                           "-3",
                           "--3",
                           "+-3",
                           "-+3",
                           "-",
                           "-x",
                           "-0",
                           "",
                           " ",
                           "abc",
                           "1.5abc",
                           "1,5",
                           ".5",
                           "5.",
                           ".",
                           "-.5e1",
                           "1e3",
                           "1e",
                           "1e+",
                           "1e+x",
                           "1E-2",
                           "1e400",
                           "-1e400",
                           "1e-400",
                           "1e99999999999",
                           "0e99999999999",
                           "000123",
                           "4.5 STEEL",
                           "6\"",
                           "inf",
                           "-inf",
                           "1e2.5"}) {
    EXPECT_EQ(parseDouble(text), std::strtod(text, nullptr)) << text;
    EXPECT_EQ(std::signbit(parseDouble(text)), std::signbit(std::strtod(text, nullptr))) << text;
  }
  EXPECT_TRUE(std::isnan(parseDouble("nan")));
  EXPECT_EQ(parseDouble(nullptr), 0.0);
  EXPECT_EQ(parseDouble((std::string(400, '9') + ".5").c_str()), std::numeric_limits<double>::infinity());
  EXPECT_EQ(parseDouble(("0." + std::string(400, '0') + "1").c_str()), 0.0);
}

TEST(NumberText, parses_whole_numbers_and_holds_them_at_the_limits) {
  struct {
    const char* text;
    int32_t value;
  } rows[] = {{"12", 12},
              {" \t-12abc", -12},
              {"+7", 7},
              {"--7", 0},
              {"", 0},
              {"x1", 0},
              {"1.9", 1},
              {"2147483647", INT32_MAX},
              {"2147483648", INT32_MAX},
              {"-2147483648", INT32_MIN},
              {"-99999999999999999999999", INT32_MIN},
              {"99999999999999999999999", INT32_MAX},
              {nullptr, 0}};
  for (const auto& row : rows) EXPECT_EQ(parseInt(row.text), row.value) << (row.text ? row.text : "null");
}

/** Switches to a locale with a decimal comma, one made in `dir` when none is installed; false when neither works. */
bool useDecimalComma(const pn10::test::TempDir& dir) {
  if (std::setlocale(LC_ALL, "de_DE.UTF-8")) return true;
  const std::string make = "localedef -i de_DE -f UTF-8 " + dir.path("de_DE.UTF-8") + " 2>/dev/null";
  if (std::system(make.c_str()) != 0) return false;
  setenv("LOCPATH", dir.path("").c_str(), 1);
  const bool found = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  unsetenv("LOCPATH");
  return found;
}

TEST(NumberText, knows_no_locale) {
  const pn10::test::TempDir dir;
  if (!useDecimalComma(dir)) GTEST_SKIP() << "no locale with a decimal comma, and no localedef to make one";
  char text[kNumberSize], theirs[32];
  std::snprintf(theirs, sizeof theirs, "%.2f", 1234.5);
  printFixed(text, sizeof text, 1234.5, 2);
  const double point = parseDouble("1.5"), comma = parseDouble("1,5");
  std::setlocale(LC_ALL, "C");
  EXPECT_STREQ(theirs, "1234,50");  // the locale is at work
  EXPECT_STREQ(text, "1234.50");
  EXPECT_EQ(point, 1.5);
  EXPECT_EQ(comma, 1.0);
}

}  // namespace
