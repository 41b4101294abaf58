/** Numbered fields of nodes: every row, the guards and the date stamp. */
#include <cmath>
#include <limits>

#include "fields/field_rows.h"

namespace {

using namespace pn10;
using namespace pn10::test;

struct NodeFields : testing::Test {
  Fresh fresh;
  char text[64] = "";
  void SetUp() override { makeEmptyTables(3, 8); }
  Ndt& node(int32_t n = 1) { return model.ndt[n]; }
};

#define NODE(field, kind, member)                                                              \
  NumberRow<Ndt> {                                                                             \
    field, Kind::kind, [](Ndt& n, double v) { n.member = static_cast<decltype(n.member)>(v); } \
  }

const NumberRow<Ndt> kNumbers[] = {
    NODE(302, Float, PRESSURE),     NODE(303, Byte, P_KNOWN),    NODE(305, Float, QB_LOAD),
    NODE(306, LowByte, QB_KNOWN),   NODE(307, LowByte, QB_DF),   NODE(308, LowByte, QB_STATUS),
    NODE(310, Float, QX_LOAD),      NODE(311, Byte, QX_DF),      NODE(312, Byte, QX_STATUS),
    NODE(313, Float, Z_COORD),      NODE(314, Float, T),         NODE(315, Byte, T_KNOWN),
    NODE(316, Float, PATM),         NODE(317, Float, VISCOSITY), NODE(318, Float, SG),
    NODE(319, Float, SH_RATIO),     NODE(320, Float, HV),        NODE(321, Double, X_COORD),
    NODE(322, Double, Y_COORD),     NODE(323, Double, TEXT_X),   NODE(324, Double, TEXT_Y),
    NODE(325, Float, TEXT_ANGLE),   NODE(326, Int16, LABEL_ON),  NODE(328, Int32, COLOR),
    NODE(329, Float, SYM_SIZE),     NODE(330, Int16, SYMBOL),    NODE(331, Byte, HAS_RDX),
    NODE(341, Float, QX_FIXED),     NODE(345, Float, ELEV),      NODE(346, Byte, HOST_BYTE_346),
    NODE(348, Byte, HOST_BYTE_348), NODE(360, Byte, HYD_STATUS), NODE(362, Float, P_FACTOR),
    NODE(363, Float, Q_FACTOR),     NODE(367, Int16, FLAG_TYPE), NODE(371, Byte, HYD_TYPE),
    NODE(377, Int32, ID),           NODE(380, Float, CMP_VALUE), NODE(381, Byte, CMP_MODE),
    NODE(385, Byte, HOST_BYTE_385)};

TEST_F(NodeFields, numbers_go_in_and_come_out_by_the_rules_of_their_types) {
  for (const auto& row : kNumbers) checkNumber(row, &node(), GetNdtVal, SetNdtVal);
}

TEST_F(NodeFields, texts_go_in_and_come_out_cut_at_the_width_of_the_member) {
  const TextRow rows[] = {
      {301, 41, offsetof(Ndt, NODENAME)}, {304, 11, offsetof(Ndt, P_UNITS)}, {309, 11, offsetof(Ndt, Q_UNITS)}};
  for (const auto& row : rows) checkText(row, &node(), GetNdtVal, SetNdtVal);
}

TEST_F(NodeFields, status_is_stored_and_switches_the_date_stamp_on) {
  PnSetDate(20240229);
  SetNdtVal(1, 332, "", -1.9);
  EXPECT_EQ(node().REC_STATUS, -1);
  EXPECT_STREQ(node().REC_DATE, "");
  SetNdtVal(1, 332, "", 2.9);
  EXPECT_EQ(GetNdtVal(1, text, 332), 2.0);
  EXPECT_STREQ(node().REC_DATE, "20240229");
}

TEST_F(NodeFields, every_plain_store_stamps_the_date_of_a_record_in_use) {
  PnSetDate(19991231);
  for (const auto& row : kNumbers) {
    node().REC_STATUS = 1;
    node().REC_DATE[0] = 0;
    SetNdtVal(1, row.field, "", 0);
    EXPECT_STREQ(node().REC_DATE, "19991231") << row.field;
    node().REC_STATUS = 0;
    node().REC_DATE[0] = 0;
    SetNdtVal(1, row.field, "", 0);
    EXPECT_STREQ(node().REC_DATE, "") << row.field;
  }
}

TEST_F(NodeFields, an_unknown_number_still_stamps_the_date) {
  PnSetDate(20240229);
  node().REC_STATUS = 1;
  SetNdtVal(1, 327, "", 0);
  EXPECT_EQ(messages(), "setndt 327\n");
  EXPECT_STREQ(node().REC_DATE, "20240229");
}

TEST_F(NodeFields, date_reads_with_dashes_and_is_stored_as_nine_bytes_without_a_stamp) {
  PnSetDate(20240229);
  node().REC_STATUS = 1;
  SetNdtVal(1, 359, "19870605", 0);
  EXPECT_EQ(std::memcmp(node().REC_DATE, "19870605", 9), 0);
  EXPECT_EQ(GetNdtVal(1, text, 359), 1.0);
  EXPECT_STREQ(text, "1987-06-05");
  SetNdtVal(1, 359, "2001", 0);
  EXPECT_EQ(std::memcmp(node().REC_DATE, "2001\0\0\0\0", 9), 0);
  SetNdtVal(1, 359, "123456789X", 0);
  EXPECT_EQ(std::memcmp(node().REC_DATE, "123456789", 9), 0);
  EXPECT_EQ(node().HYD_STATUS, 0);
  SetNdtVal(1, 359, nullptr, 0);
  EXPECT_EQ(std::memcmp(node().REC_DATE, "\0\0\0\0\0\0\0\0", 9), 0);
  EXPECT_EQ(GetNdtVal(1, nullptr, 359), 1.0);
}

TEST_F(NodeFields, fields_of_the_table_need_no_record_and_no_stamp) {
  PnSetDate(20240229);
  node().REC_STATUS = 1;
  struct {
    int16_t field;
    int32_t* counter;
  } rows[] = {{369, &model.lastNodeId}, {370, &model.lastNodeName}, {368, &model.nodeCount}};
  for (const auto& row : rows) {
    SetNdtVal(1, row.field, "", 5.9);
    EXPECT_EQ(*row.counter, 5) << row.field;
    EXPECT_EQ(GetNdtVal(0, text, row.field), 5.0) << row.field;
    EXPECT_EQ(GetNdtVal(3, text, row.field), 5.0) << row.field;
    SetNdtVal(1000000, row.field, "", 3);
    EXPECT_EQ(*row.counter, 3) << row.field;
  }
  EXPECT_STREQ(node().REC_DATE, "");
}

TEST_F(NodeFields, live_count_leaves_deleted_records_out) {
  node(2).REC_STATUS = -1;
  node(3).REC_STATUS = 5;
  EXPECT_EQ(GetNdtVal(0, text, 372), 2.0);
  EXPECT_EQ(GetNdtVal(0, text, 397), 220.0);
}

TEST_F(NodeFields, live_count_leaves_every_negative_status_out) {
  model.ndt[1].REC_STATUS = -2;
  EXPECT_EQ(GetNdtVal(0, text, 372), model.nodeCount - 1.0);
}

TEST_F(NodeFields, screen_fields_stand_in_the_screen_record) {
  for (const auto& [in, out] : samples(Kind::Byte)) {
    SetNdtVal(2, 376, "", in);
    EXPECT_EQ(model.nxy[2].HILITE_DRAWN, out);
    EXPECT_EQ(GetNdtVal(2, text, 376), out);
  }
  model.nxy[2].Aux = -7;
  EXPECT_EQ(GetNdtVal(2, text, 384), -7.0);
}

TEST_F(NodeFields, gas_is_known_with_a_gravity_above_zero) {
  for (auto [sg, known] : {std::pair{0.6f, 1.0}, {0.0f, 0.0}, {-0.6f, 0.0}}) {
    node().SG = sg;
    EXPECT_EQ(GetNdtVal(1, text, 333), known);
  }
}

TEST_F(NodeFields, unknown_numbers_show_a_message_and_return_minus_one) {
  std::set<int> read = {301, 304, 309, 332, 333, 350, 359, 364, 365, 366,
                        368, 369, 370, 372, 375, 376, 382, 383, 384, 397};
  std::set<int> write = {301, 304, 309, 332, 359, 368, 369, 370, 376};
  for (const auto& row : kNumbers) {
    read.insert(row.field);
    write.insert(row.field);
  }
  checkUnknown(read, "getndt", [&](int16_t field) { EXPECT_EQ(GetNdtVal(1, text, field), -1.0); });
  checkUnknown(write, "setndt", [](int16_t field) { SetNdtVal(1, field, "x", 1.0); });
  EXPECT_EQ(GetNdtVal(1, text, 377), 0.0);
}

TEST_F(NodeFields, bad_record_numbers_are_silent) {
  for (int32_t n : {-1, 4, 1000000, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(GetNdtVal(n, text, 377), -1.0);
    EXPECT_EQ(GetNdtVal(n, text, 999), -1.0);
    EXPECT_EQ(GetNdtVal(n, text, 368), -1.0);
    SetNdtVal(n, 377, "", 5);
    SetNdtVal(n, 376, "", 5);
  }
  SetNdtVal(-1, 999, "", 0);
  SetNdtVal(-1, 368, "", 0);
  EXPECT_EQ(model.nodeCount, 3);
  EXPECT_EQ(messages(), "");
}

TEST_F(NodeFields, a_count_above_the_table_reads_minus_one_and_stores_nothing) {
  SetNdtVal(1, 368, "", 1000000);
  for (int16_t field = 301; field <= 397; field++) {
    const bool ofTable = field == 368 || field == 369 || field == 370 || field == 372 || field == 397;
    const double value = GetNdtVal(999999, text, field);
    EXPECT_EQ(value == -1.0, !ofTable) << field;
    if (!ofTable) SetNdtVal(999999, field, "x", 1);
  }
  EXPECT_STREQ(text, "");
}

TEST_F(NodeFields, values_beyond_every_type_are_held_at_its_limits) {
  const double huge = 1e300, nothing = std::numeric_limits<double>::quiet_NaN();
  for (const auto& row : kNumbers) {
    for (const double value : {huge, -huge, HUGE_VAL, nothing}) SetNdtVal(1, row.field, "", value);
  }
  SetNdtVal(1, 377, "", huge);
  EXPECT_EQ(node().ID, INT32_MAX);
  SetNdtVal(1, 377, "", -huge);
  EXPECT_EQ(node().ID, INT32_MIN);
  SetNdtVal(1, 377, "", nothing);
  EXPECT_EQ(node().ID, 0);
  SetNdtVal(1, 302, "", huge);
  EXPECT_EQ(node().PRESSURE, std::numeric_limits<float>::infinity());
}

TEST(NodeFieldsBeforeALoad, record_zero_reads_zeros) {
  Fresh fresh;
  char text[64] = "#";
  EXPECT_EQ(GetNdtVal(0, text, 301), 1.0);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(GetNdtVal(0, text, 302), 0.0);
  EXPECT_EQ(GetNdtVal(0, text, 376), 0.0);
  EXPECT_EQ(GetNdtVal(0, text, 368), 0.0);
  EXPECT_EQ(GetNdtVal(1, text, 302), -1.0);
  SetNdtVal(0, 302, "", 1.0);
  SetNdtVal(0, 376, "", 1.0);
  EXPECT_EQ(GetNdtVal(0, text, 302), 0.0);
}

}  // namespace
