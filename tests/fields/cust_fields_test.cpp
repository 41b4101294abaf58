/** Numbered fields of customers: every row, the guards, the loads and the date stamp. */
#include <limits>

#include "fields/cust_calcs.h"
#include "fields/field_rows.h"
#include "model/draw_state.h"

namespace {

using namespace pn10;
using namespace pn10::test;

struct CustFields : testing::Test {
  Fresh fresh;
  UnitOpts units{};
  char text[64] = "";
  void SetUp() override { makeEmptyTables(1, 2, 4); }
  Cdt& cust(int32_t c = 1) { return model.cdt[c]; }
  double get(int16_t field, int32_t c = 1) { return GetCdtVal(c, text, field); }
};

#define CUST(field, kind, member)                                                              \
  NumberRow<Cdt> {                                                                             \
    field, Kind::kind, [](Cdt& c, double v) { c.member = static_cast<decltype(c.member)>(v); } \
  }

const NumberRow<Cdt> kNumbers[] = {CUST(401, Int32, ID),
                                   CUST(403, Int16, NODE_ASGN),
                                   CUST(404, Float, UNIT_LOAD),
                                   CUST(406, Double, X_COORD),
                                   CUST(407, Double, Y_COORD),
                                   CUST(408, Int32, COLOR),
                                   CUST(409, Int16, HOST_SHORT_409),
                                   CUST(410, Int16, HOST_SHORT_410),
                                   CUST(411, Int16, HOST_SHORT_411),
                                   CUST(412, Double, TEXT_X),
                                   CUST(413, Double, TEXT_Y),
                                   CUST(414, Float, TEXT_ANGLE),
                                   CUST(416, Double, SX_COORD),
                                   CUST(417, Double, SY_COORD),
                                   CUST(418, Int16, VTX_MODE),
                                   CUST(419, Int16, LINK_FLAG),
                                   CUST(420, Int32, LINK_CUST),
                                   CUST(421, Int16, COUNT),
                                   CUST(425, Int16, HOST_SHORT_425),
                                   CUST(426, Float, LOAD_MULT),
                                   CUST(427, Int16, LOAD_DF),
                                   CUST(431, Int16, HOST_SHORT_431),
                                   CUST(433, Int32, PIPE_REC),
                                   CUST(435, Float, Z_COORD),
                                   CUST(436, Int16, HOST_SHORT_436),
                                   CUST(437, Int16, HOST_SHORT_437),
                                   CUST(444, Float, LOAD_FACTOR),
                                   CUST(446, Byte, FLAG_BYTE),
                                   CUST(464, Byte, HOST_BYTE_464)};

TEST_F(CustFields, numbers_go_in_and_come_out_by_the_rules_of_their_types) {
  for (const auto& row : kNumbers) checkNumber(row, &cust(), GetCdtVal, SetCdtVal);
}

TEST_F(CustFields, units_text_goes_in_and_comes_out) {
  checkText<Cdt>({405, 11, offsetof(Cdt, LOAD_UNITS)}, &cust(), GetCdtVal, SetCdtVal);
}

TEST_F(CustFields, link_reads_without_its_terminator) {
  SetCdtVal(1, 422, "ABC", 0);
  EXPECT_STREQ(cust().LINK_ID, "ABC");
  std::strcpy(text, "XXXXXXXXXXXX");
  EXPECT_EQ(get(422), 1.0);
  EXPECT_STREQ(text, "ABCXXXXXXXXX");
  const std::string full(40, 'y');
  SetCdtVal(1, 422, (full + "zz").c_str(), 0);
  EXPECT_EQ(cust().LINK_ID, full);
  EXPECT_EQ(GetCdtVal(1, nullptr, 422), 1.0);
}

TEST_F(CustFields, link_of_the_pipe_comes_with_minus_one) {
  copyText(model.pdt[2].LINK_ID, "pipe link");
  cust().PIPE_REC = 2;
  EXPECT_EQ(get(402), -1.0);
  EXPECT_STREQ(text, "pipe link");
  for (int32_t p : {0, 3, -1, INT32_MAX}) {
    cust().PIPE_REC = p;
    EXPECT_EQ(get(402), -1.0);
    EXPECT_STREQ(text, "");
  }
  EXPECT_EQ(GetCdtVal(1, nullptr, 402), -1.0);
  EXPECT_EQ(messages(), "");
}

TEST_F(CustFields, screen_numbers_stand_in_the_screen_record) {
  for (const auto& [in, out] : samples(Kind::Int32)) {
    SetCdtVal(2, 451, "", in);
    SetCdtVal(2, 452, "", in);
    EXPECT_EQ(model.cxy[2].FIRST_VTX, out);
    EXPECT_EQ(model.cxy[2].LAST_VTX, out);
    EXPECT_EQ(get(451, 2), out);
    EXPECT_EQ(get(452, 2), out);
  }
  for (const auto& [in, out] : samples(Kind::Byte)) {
    SetCdtVal(2, 458, "", in);
    EXPECT_EQ(model.cxy[2].HILITE_DRAWN, out);
    EXPECT_EQ(get(458, 2), out);
  }
  model.cxy[2].Color = -3;
  EXPECT_EQ(get(459, 2), -3.0);
}

TEST_F(CustFields, status_is_stored_and_switches_the_date_stamp_on) {
  PnSetDate(20240229);
  SetCdtVal(1, 443, "", -1.9);
  EXPECT_EQ(get(443), -1.0);
  EXPECT_STREQ(cust().REC_DATE, "");
  SetCdtVal(1, 443, "", 3);
  EXPECT_STREQ(cust().REC_DATE, "20240229");
}

TEST_F(CustFields, every_store_stamps_the_date_but_those_of_date_and_table) {
  PnSetDate(19991231);
  for (int16_t field = 395; field <= 505; field++) {
    const bool keeps = field == 442 || field == 447 || field == 448;
    cust().REC_STATUS = 1;
    cust().REC_DATE[0] = 0;
    SetCdtVal(1, field, "", 1);
    EXPECT_STREQ(cust().REC_DATE, keeps ? "" : "19991231") << field;
    cust().REC_STATUS = 0;
    cust().REC_DATE[0] = 0;
    if (field == 443) continue;
    SetCdtVal(1, field, "", 1);
    EXPECT_STREQ(cust().REC_DATE, "") << field;
  }
}

TEST_F(CustFields, date_reads_with_dashes_and_is_stored_as_nine_bytes) {
  SetCdtVal(1, 442, "19870605", 0);
  EXPECT_EQ(std::memcmp(cust().REC_DATE, "19870605", 9), 0);
  EXPECT_EQ(get(442), 1.0);
  EXPECT_STREQ(text, "1987-06-05");
}

TEST_F(CustFields, fields_of_the_table_need_no_record) {
  SetCdtVal(1000000, 447, "", 7.9);
  EXPECT_EQ(model.lastCustId, 7);
  EXPECT_EQ(get(447, 1000000), 7.0);
  cust(2).REC_STATUS = -1;
  EXPECT_EQ(get(450, 0), 3.0);
  SetCdtVal(0, 448, "", 3.9);
  EXPECT_EQ(model.custCount, 3);
  EXPECT_EQ(get(448, 1000000), 3.0);
  EXPECT_EQ(get(450, 1000000), 2.0);
  EXPECT_EQ(get(497, 0), 214.0);
}

TEST_F(CustFields, live_count_leaves_every_negative_status_out) {
  cust(2).REC_STATUS = -2;
  EXPECT_EQ(get(450, 0), 3.0);
}

TEST_F(CustFields, a_load_that_is_off_is_zero_whatever_one_unit_is) {
  cust().UNIT_LOAD = std::numeric_limits<float>::infinity();
  cust().LOAD_MULT = 0;
  EXPECT_EQ(CalcCustLoad(1), 0.0);
}

TEST_F(CustFields, clearing_takes_the_reserved_value_and_short_436) {
  Cdt& c = cust();
  std::memset(static_cast<void*>(&c), 0x11, sizeof c);
  Cdt expected;
  std::memcpy(static_cast<void*>(&expected), &c, sizeof c);
  expected.CALC_RESERVED_D = 0;
  expected.HOST_SHORT_436 = 0;
  c.REC_STATUS = expected.REC_STATUS = 0;
  SetCdtVal(1, 449, "", 77);
  EXPECT_EQ(std::memcmp(&c, &expected, sizeof c), 0);
}

TEST_F(CustFields, base_load_leaves_multiplier_and_diversity_out) {
  cust().UNIT_LOAD = 2.5f;
  cust().LOAD_FACTOR = 1000;
  cust().LOAD_DF = 1;
  EXPECT_EQ(get(445), 2500.0);
}

TEST_F(CustFields, load_of_a_unit_has_its_multiplier_and_the_load_factor) {
  drawState.LoadFactor = 0.5f;
  cust().UNIT_LOAD = 10;
  EXPECT_EQ(CalcCustLoad(1), 0.0);
  cust().LOAD_MULT = 3;
  EXPECT_EQ(CalcCustLoad(1), 30.0);
  cust().LOAD_DF = 2;
  EXPECT_EQ(CalcCustLoad(1), 15.0);
  EXPECT_EQ(CalcCustLoad(99), 0.0);
}

TEST_F(CustFields, loads_print_with_the_digits_of_entry_25) {
  units.Digits[25] = 2;
  drawState.Unit = &units;
  cust().UNIT_LOAD = 10;
  cust().LOAD_MULT = 1;
  cust().COUNT = 3;
  copyText(cust().LOAD_UNITS, "Cfh");
  EXPECT_EQ(get(456), 10.0);
  EXPECT_STREQ(text, "10.00 Cfh");
  EXPECT_EQ(get(454), 10.0);
  EXPECT_STREQ(text, "30.00 Cfh");
  units.Digits[25] = 0;
  EXPECT_EQ(get(454), 10.0);
  EXPECT_STREQ(text, "30 Cfh");
  EXPECT_EQ(GetCdtVal(1, nullptr, 454), 10.0);
  EXPECT_EQ(GetCdtVal(1, nullptr, 456), 10.0);
}

TEST_F(CustFields, linked_customer_is_found_when_the_flag_is_set) {
  cust(3).ID = 77;
  cust(4).ID = 77;
  cust().LINK_CUST = 77;
  EXPECT_EQ(get(460), 0.0);
  cust().LINK_FLAG = -1;
  EXPECT_EQ(get(460), 3.0);
  cust().LINK_CUST = 78;
  EXPECT_EQ(get(460), 0.0);
}

TEST_F(CustFields, search_by_id_takes_the_first_live_record_under_the_wait_cursor) {
  cust(2).ID = cust(3).ID = cust(4).ID = 5;
  cust(2).REC_STATUS = -1;
  EXPECT_EQ(FindCustByID(5), 3);
  EXPECT_EQ(FindCustByID(6), 0);
  cust(4).ID = 6;
  EXPECT_EQ(FindCustByID(6), 4) << "the last record";
  EXPECT_NE(only(recorded([] { FindCustByID(5); }), {"SetCursor"}), "");
}

std::set<int> plus(std::set<int> numbers) {
  for (const auto& row : kNumbers) numbers.insert(row.field);
  return numbers;
}

TEST_F(CustFields, unknown_numbers_show_a_message_and_return_minus_one) {
  const auto read = plus({402, 405, 422, 442, 443, 445, 447, 448, 450, 451, 452, 454, 456, 458, 459, 460, 497});
  const auto write = plus({405, 422, 442, 443, 447, 448, 449, 451, 452, 458});
  checkUnknown(read, "getcdt", [&](int16_t field) { EXPECT_EQ(GetCdtVal(1, text, field), -1.0); });
  checkUnknown(write, "setcdt", [](int16_t field) { SetCdtVal(1, field, "x", 1.0); });
  for (int field : read) get(static_cast<int16_t>(field));
  for (int field : write) SetCdtVal(1, static_cast<int16_t>(field), "x", 1.0);
  EXPECT_EQ(messages(), "");
}

TEST_F(CustFields, records_that_are_not_there_are_silent) {
  for (int32_t c : {-1, 5, 1000000, INT32_MIN, INT32_MAX}) {
    for (int16_t field : std::initializer_list<int16_t>{401, 402, 405, 422, 451, 454, 460})
      EXPECT_EQ(get(field, c), -1.0);
    for (int16_t field : std::initializer_list<int16_t>{401, 422, 442, 449, 451}) SetCdtVal(c, field, "x", 5);
  }
  SetCdtVal(-1, 999, "", 0);
  EXPECT_EQ(get(999, -1), -1.0);
  EXPECT_EQ(messages(), "");
}

TEST_F(CustFields, a_record_in_the_table_is_read_also_above_the_count) {
  cust(4).ID = 9;
  model.custCount = 2;
  EXPECT_EQ(get(401, 4), 9.0);
}

TEST(CustFieldsBeforeALoad, record_zero_reads_zeros) {
  Fresh fresh;
  char text[64] = "#";
  EXPECT_EQ(GetCdtVal(0, text, 405), 1.0);
  EXPECT_STREQ(text, "");
  for (int16_t field : std::initializer_list<int16_t>{401, 406, 451, 459, 460})
    EXPECT_EQ(GetCdtVal(0, text, field), 0.0) << field;
  EXPECT_EQ(GetCdtVal(1, text, 401), -1.0);
  for (int16_t field = 401; field <= 497; field++) SetCdtVal(0, field, "x", 0.0);
  EXPECT_EQ(FindCustByID(0), 0);
}

}  // namespace
