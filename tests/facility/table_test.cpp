// The facility table: fields by number, counters, finders, the default table.
#include <gtest/gtest.h>

#include "facility/network.h"

namespace pn10::test {
namespace {

class FacilityTable : public testing::Test {
 protected:
  Fresh fresh;
  char text[300] = "?";
};

TEST_F(FacilityTable, the_default_has_four_rows) {
  makeFacilities({9});  // its last number is forgotten
  EXPECT_EQ(DefaultFac(), 4);
  struct {
    const char* name;
    double idx, display, aux, report, active;
  } rows[] = {{"UnSpecified", 0, 1, 1, 1, 1},
              {"Color Legend", 30002, 1, 0, 0, 1},
              {"Bill-Of-Material Text", 30003, 1, 0, 0, 1},
              {"Marked Views", 30005, 1, 0, 0, 1}};
  for (int32_t row = 1; row <= 4; row++) {
    const auto& r = rows[row - 1];
    EXPECT_EQ(GetFacVal(row, 0, text, 1), 1.0);
    EXPECT_STREQ(text, r.name);
    const double values[] = {r.idx, r.display, r.aux, r.report, r.active, -1, 0, 0, -1};
    for (int16_t field = 2; field <= 10; field++) {
      EXPECT_EQ(GetFacVal(row, 0, text, field), values[field - 2]) << "row " << row << " field " << field;
    }
    EXPECT_EQ(GetFacVal(row, 0, text, 11), 1.0);
    EXPECT_STREQ(text, "-1");
  }
  EXPECT_EQ(GetFacVal(0, 0, text, 12), 0.0);
  EXPECT_EQ(GetFacVal(0, 0, text, 13), 4.0);
  EXPECT_EQ(FindFacRnoIdx(30006), 0);
  EXPECT_EQ(GetNextFacId(), 1);
}

TEST_F(FacilityTable, fields_store_and_return) {
  ReallocFac(2);
  struct {
    int16_t field;
    double in, out;
  } rows[] = {{2, 17.9, 17},
              {2, 100000, 100000},
              {3, -1, -1},
              {3, 65536, 0},
              {3, 4294967301.0, 5},
              {4, 32768, -32768},
              {5, -2.9, -2},
              {6, 1, 1},
              {7, 0xffffff, 0xffffff},
              {7, -1, -1},
              {8, 5, 5},
              {9, 40000, -25536},
              {10, -1, -1},
              {12, 29, 29},
              {13, 2, 2}};
  for (const auto& r : rows) {
    SetFacVal(2, r.field, nullptr, r.in);
    EXPECT_EQ(GetFacVal(2, 0, text, r.field), r.out) << r.field;
  }
  SetFacVal(2, 1, " Main ", 0);
  SetFacVal(2, 11, "Default units", 0);
  EXPECT_EQ(GetFacVal(2, 0, text, 1), 1.0);
  EXPECT_STREQ(text, " Main ");
  GetFacVal(2, 0, text, 11);
  EXPECT_STREQ(text, "Default units");
  EXPECT_EQ(GetFacVal(2, 0, text, 0), 2.0);
  EXPECT_EQ(GetFacVal(1, 0, text, 3), 0.0) << "the neighbour is untouched";
}

TEST_F(FacilityTable, a_missing_number_reads_the_empty_row) {
  for (bool table : {false, true}) {
    if (table) DefaultFac();
    EXPECT_EQ(GetFacVal(0, 99, text, 7), 0.0);
    std::strcpy(text, "?");
    EXPECT_EQ(GetFacVal(0, 99, text, 1), 1.0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(GetFacVal(0, 99, text, 0), 0.0);
  }
  EXPECT_EQ(GetFacVal(0, 30005, text, 0), 4.0);
  EXPECT_EQ(GetFacVal(0, 30005, text, 2), 30005.0);
}

TEST_F(FacilityTable, unknown_fields_return_minus_one_silently_when_read) {
  DefaultFac();
  for (int16_t field : {int16_t{14}, int16_t{-1}, int16_t{999}}) {
    EXPECT_EQ(GetFacVal(1, 0, text, field), -1.0);
    EXPECT_STREQ(text, "?");
  }
  EXPECT_EQ(messages(), "");
}

TEST_F(FacilityTable, unknown_fields_show_the_row_when_stored) {
  DefaultFac();
  SetFacVal(3, 99, "x", 1);
  SetFacVal(2, 0, "x", 1);
  SetFacVal(-7, -1, "x", 1);
  EXPECT_EQ(messages(), "setfac 3\nsetfac 2\nsetfac -7\n");
}

TEST_F(FacilityTable, row_zero_stores_nothing) {
  DefaultFac();
  for (int16_t field : {int16_t{1}, int16_t{2}, int16_t{12}, int16_t{13}, int16_t{99}}) SetFacVal(0, field, "x", 77);
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(GetFacVal(0, 99, text, 13), 4.0);
  EXPECT_EQ(GetFacVal(0, 99, text, 12), 0.0);
  EXPECT_EQ(GetFacVal(0, 99, text, 2), 0.0);
}

TEST_F(FacilityTable, rows_beyond_the_block_are_harmless) {
  DefaultFac();
  for (int32_t row : {5, 32767, -1, INT32_MIN, INT32_MAX}) {
    SetFacVal(row, 1, "x", 0);
    SetFacVal(row, 7, nullptr, 5);
    EXPECT_EQ(GetFacVal(row, 0, text, 1), -1.0);
    EXPECT_EQ(GetFacVal(row, 0, text, 0), row);
  }
  SetFacVal(1, 1, std::string(1000, 'n').c_str(), 0);
  EXPECT_EQ(GetFacVal(1, 0, text, 2), 0.0);
  EXPECT_EQ(GetFacVal(1, 0, nullptr, 1), 1.0);
  SetFacVal(1, 1, nullptr, 0);
  GetFacVal(1, 0, text, 1);
  EXPECT_STREQ(text, "");
}

TEST_F(FacilityTable, only_ordinary_numbers_raise_the_last_one) {
  ReallocFac(3);
  SetFacVal(1, 2, nullptr, 29999);
  EXPECT_EQ(GetFacVal(1, 0, text, 12), 29999.0);
  SetFacVal(2, 2, nullptr, 30000);
  SetFacVal(3, 2, nullptr, 5);
  EXPECT_EQ(GetFacVal(1, 0, text, 12), 29999.0);
  EXPECT_EQ(GetNextFacId(), 30000);
  EXPECT_EQ(GetNextFacId(), 30001);
}

TEST_F(FacilityTable, finders_give_the_first_match) {
  makeFacilities({5, 7, 7, -3, 70000});
  SetFacVal(2, 1, "Same", 0);
  SetFacVal(3, 1, "Same", 0);
  SetFacVal(4, 1, (std::string(40, 'a') + "tail").c_str(), 0);
  EXPECT_EQ(FindFacRnoIdx(7), 2);
  EXPECT_EQ(FindFacRnoIdx(-3), 4);
  EXPECT_EQ(FindFacRnoIdx(70000), 5);
  SetFacVal(1, 2, nullptr, 70000);
  EXPECT_EQ(FindFacRnoIdx(70000), 1);
  EXPECT_EQ(FindFacRnoIdx(70000 - 65536), 0);
  EXPECT_EQ(FindFacRnoIdx(8), 0);
  EXPECT_EQ(FindFacRnoIdx(INT32_MIN), 0);
  SetFacVal(1, 1, "First", 0);
  EXPECT_EQ(FindFacRnoId("First"), 1);
  EXPECT_EQ(FindFacRnoId("Same"), 2);
  EXPECT_EQ(FindFacRnoId("same"), 0);
  EXPECT_EQ(FindFacRnoId((std::string(40, 'a') + "other").c_str()), 4) << "forty characters count";
  EXPECT_EQ(FindFacRnoId(std::string(39, 'a').c_str()), 0);
  SetFacVal(5, 1, "Last", 0);
  EXPECT_EQ(FindFacRnoId("Last"), 5);
  EXPECT_EQ(FindFacRnoId(nullptr), 0);
}

TEST_F(FacilityTable, finders_follow_every_change) {
  makeFacilities({1, 2, 3});
  EXPECT_EQ(FindFacRnoIdx(3), 3);
  SetFacVal(1, 2, nullptr, 3);
  EXPECT_EQ(FindFacRnoIdx(3), 1);
  EXPECT_EQ(FindFacRnoIdx(1), 0);
  SetFacVal(1, 13, nullptr, 1);
  EXPECT_EQ(FindFacRnoIdx(2), 0) << "the count is shorter now";
  EXPECT_EQ(GetNextFacCnt(), 2);
  EXPECT_EQ(FindFacRnoIdx(2), 2);
  DefaultFac();
  EXPECT_EQ(FindFacRnoIdx(2), 0);
  EXPECT_EQ(FindFacRnoIdx(30002), 2);
  FreeFac();
  EXPECT_EQ(FindFacRnoIdx(30002), 0);
}

TEST_F(FacilityTable, a_count_beyond_the_block_is_not_walked) {
  makeFacilities({1, 2});
  SetFacVal(1, 13, nullptr, 30000);
  EXPECT_EQ(FindFacRnoIdx(2), 2);
  EXPECT_EQ(FindFacRnoIdx(9), 0);
  EXPECT_EQ(FindFacRnoId("nobody"), 0);
}

TEST_F(FacilityTable, realloc_makes_a_new_zeroed_table) {
  DefaultFac();
  EXPECT_EQ(ReallocFac(6), 6);
  EXPECT_EQ(FindFacRnoIdx(30002), 0);
  EXPECT_EQ(GetFacVal(6, 0, text, 3), 0.0);
  EXPECT_EQ(ReallocFac(0), 0);
  EXPECT_EQ(ReallocFac(65536 + 3), 3) << "the count has 16 bits";
  EXPECT_EQ(ReallocFac(40000), -1) << "40000 is negative in 16 bits";
  EXPECT_EQ(ReallocFac(-1), -1);
}

TEST_F(FacilityTable, counters_step) {
  ReallocFac(3);
  EXPECT_EQ(GetNextFacCnt(), 4);
  SetFacVal(1, 13, nullptr, 32767);
  EXPECT_EQ(GetNextFacCnt(), -32768);
  SetFacVal(1, 12, nullptr, INT32_MAX);
  EXPECT_EQ(GetNextFacId(), INT32_MIN);
}

TEST_F(FacilityTable, free_twice_gives_one_both_times_and_keeps_the_last_number) {
  makeFacilities({9});
  EXPECT_EQ(FreeFac(), 1);
  EXPECT_EQ(FreeFac(), 1);
  EXPECT_EQ(GetFacVal(0, 1, text, 13), 0.0);
  EXPECT_EQ(GetFacVal(0, 1, text, 12), 9.0);
  EXPECT_EQ(GetFacVal(0, 9, text, 2), 0.0) << "the empty row stands in";
  SetFacVal(1, 13, nullptr, 5);
  FreeFac();
  EXPECT_EQ(GetFacVal(0, 1, text, 13), 5.0) << "the count is cleared only with a table";
}

}  // namespace
}  // namespace pn10::test
