/** Numbered fields of pipes: every row, the guards, the actions and the date stamp. */
#include "fields/field_rows.h"

namespace {

using namespace pn10;
using namespace pn10::test;

struct PipeFields : testing::Test {
  Fresh fresh;
  char text[64] = "";
  void SetUp() override { makeEmptyTables(3, 4, 0, 6); }
  Pdt& pipe(int32_t p = 1) { return model.pdt[p]; }
  double get(int16_t field, int32_t p = 1) { return GetPdtVal(p, text, field); }
};

#define PIPE(field, kind, member)                                                              \
  NumberRow<Pdt> {                                                                             \
    field, Kind::kind, [](Pdt& p, double v) { p.member = static_cast<decltype(p.member)>(v); } \
  }

const NumberRow<Pdt> kNumbers[] = {PIPE(1, Int32, ID),
                                   PIPE(4, Byte, HYD_TYPE),
                                   PIPE(5, Int16, EQUATION),
                                   PIPE(6, Byte, STATUS),
                                   PIPE(8, Byte, SIZE_FLAG),
                                   PIPE(9, Float, LENGTH),
                                   PIPE(11, Float, EFFICIENCY),
                                   PIPE(12, Float, FLOW),
                                   PIPE(14, Float, DP),
                                   PIPE(16, Float, Z_FACTOR),
                                   PIPE(17, Int16, FACILITY),
                                   PIPE(18, Byte, FTG_COUNT),
                                   PIPE(19, Float, FTG_EQ_LENGTH),
                                   PIPE(22, Int16, CUST_COUNT),
                                   PIPE(23, Double, TEXT_X),
                                   PIPE(24, Double, TEXT_Y),
                                   PIPE(25, Float, TEXT_ANGLE),
                                   PIPE(26, Int16, LABEL_ON),
                                   PIPE(27, Int32, COLOR),
                                   PIPE(28, Byte, VTX_MODE),
                                   PIPE(29, Int16, LINE_WIDTH),
                                   PIPE(30, LowByte, LINE_TYPE),
                                   PIPE(33, Float, VELOCITY),
                                   PIPE(34, Int16, HOST_SHORT_34),
                                   PIPE(38, Float, ROUGHNESS),
                                   PIPE(58, Byte, HOST_BYTE_58),
                                   PIPE(65, Float, REYNOLDSNO),
                                   PIPE(76, Float, MAOP),
                                   PIPE(81, Int32, FROM_NODE),
                                   PIPE(82, Int32, TO_NODE),
                                   PIPE(83, Int32, GROUP_ID),
                                   PIPE(84, Int16, GROUP_TYPE),
                                   PIPE(92, Float, D_FACTOR),
                                   PIPE(94, Float, L_FACTOR),
                                   PIPE(96, Float, DP_FACTOR),
                                   PIPE(97, Float, Q_FACTOR),
                                   PIPE(99, Byte, FLAG_BYTE),
                                   PIPE(154, Byte, HOST_BYTE_154),
                                   PIPE(156, Double, CMP_VALUE),
                                   PIPE(157, Byte, CMP_MODE)};

TEST_F(PipeFields, numbers_go_in_and_come_out_by_the_rules_of_their_types) {
  for (const auto& row : kNumbers) checkNumber(row, &pipe(), GetPdtVal, SetPdtVal);
}

TEST_F(PipeFields, texts_go_in_and_come_out_cut_at_the_width_of_the_member) {
  const TextRow rows[] = {{7, 21, offsetof(Pdt, SIZE_TYPE)}, {10, 11, offsetof(Pdt, L_UNITS)},
                          {13, 11, offsetof(Pdt, Q_UNITS)},  {15, 11, offsetof(Pdt, DP_UNITS)},
                          {43, 21, offsetof(Pdt, LINK_ID)},  {49, 11, offsetof(Pdt, DR_UNITS)}};
  for (const auto& row : rows) checkText(row, &pipe(), GetPdtVal, SetPdtVal);
}

TEST_F(PipeFields, screen_numbers_stand_in_the_screen_record) {
  for (const auto& [in, out] : samples(Kind::Int32)) {
    SetPdtVal(2, 106, "", in);
    SetPdtVal(2, 107, "", in);
    SetPdtVal(2, 127, "", in);
    EXPECT_EQ(model.pxy[2].FIRST_VTX, out);
    EXPECT_EQ(model.pxy[2].LAST_VTX, out);
    EXPECT_EQ(model.pxy[2].Color, out);
    EXPECT_EQ(get(106, 2), out);
    EXPECT_EQ(get(107, 2), out);
  }
  for (const auto& [in, out] : samples(Kind::Byte)) {
    SetPdtVal(2, 128, "", in);
    EXPECT_EQ(model.pxy[2].HILITE_DRAWN, out);
    EXPECT_EQ(get(128, 2), out);
  }
  model.pxy[2].LENGTH = 12.5f;
  EXPECT_EQ(get(119, 2), 12.5);
}

TEST_F(PipeFields, file_vertices_are_read_only) {
  pipe().VTX_FIRST = 7;
  pipe().VTX_LAST = -9;
  EXPECT_EQ(get(139), 7.0);
  EXPECT_EQ(get(140), -9.0);
  EXPECT_EQ(get(139), 7.0);
}

TEST_F(PipeFields, names_and_places_come_from_the_two_nodes) {
  connect(1, 2, 3);
  copyText(model.ndt[2].NODENAME, "from");
  copyText(model.ndt[3].NODENAME, "to");
  for (int32_t n : {2, 3}) {
    model.ndt[n].X_COORD = n * 10 + 1;
    model.ndt[n].Y_COORD = n * 10 + 2;
    model.ndt[n].Z_COORD = static_cast<float>(n * 10 + 3);
  }
  EXPECT_EQ(get(2), 1.0);
  EXPECT_STREQ(text, "from");
  EXPECT_EQ(get(3), 1.0);
  EXPECT_STREQ(text, "to");
  struct {
    int16_t field;
    double value;
  } rows[] = {{59, 31}, {60, 32}, {136, 33}, {61, 21}, {62, 22}, {137, 23}};
  for (const auto& row : rows) EXPECT_EQ(get(row.field), row.value) << row.field;
}

TEST_F(PipeFields, nodes_outside_the_table_read_zeros) {
  connect(1, 1000000, -5);
  std::strcpy(text, "#");
  EXPECT_EQ(get(2), 1.0);
  EXPECT_STREQ(text, "");
  for (int16_t field = 1; field <= 159; field++) {
    GetPdtVal(1, text, field);
    GetPdtVal(1, nullptr, field);
  }
  EXPECT_EQ(get(59), 0.0);
  EXPECT_EQ(get(61), 0.0);
}

TEST_F(PipeFields, status_is_stored_and_switches_the_date_stamp_on) {
  PnSetDate(20240229);
  SetPdtVal(1, 32, "", -1.9);
  EXPECT_EQ(get(32), -1.0);
  EXPECT_STREQ(pipe().REC_DATE, "");
  SetPdtVal(1, 32, "", 3);
  EXPECT_STREQ(pipe().REC_DATE, "20240229");
}

TEST_F(PipeFields, every_store_stamps_the_date_but_those_of_date_and_table) {
  PnSetDate(19991231);
  pipe().VTX_FIRST = 1;
  for (int16_t field = -3; field <= 170; field++) {
    const bool keeps = field == 87 || field == 100 || field == 101;
    pipe().REC_STATUS = 1;
    pipe().REC_DATE[0] = 0;
    SetPdtVal(1, field, "", 1);
    EXPECT_STREQ(pipe().REC_DATE, keeps ? "" : "19991231") << field;
    pipe().REC_STATUS = 0;
    pipe().REC_DATE[0] = 0;
    if (field == 32) continue;
    SetPdtVal(1, field, "", 1);
    EXPECT_STREQ(pipe().REC_DATE, "") << field;
  }
}

TEST_F(PipeFields, date_reads_with_dashes_and_is_stored_as_nine_bytes) {
  SetPdtVal(1, 87, "19870605", 0);
  EXPECT_EQ(std::memcmp(pipe().REC_DATE, "19870605", 9), 0);
  EXPECT_EQ(get(87), 1.0);
  EXPECT_STREQ(text, "1987-06-05");
}

TEST_F(PipeFields, fields_of_the_table_need_no_record) {
  SetPdtVal(1000000, 101, "", 5.9);
  EXPECT_EQ(model.lastPipeId, 5);
  EXPECT_EQ(get(101, 0), 5.0);
  SetPdtVal(0, 100, "", 3.9);
  EXPECT_EQ(model.pipeCount, 3);
  EXPECT_EQ(get(100, 0), 3.0);
  EXPECT_EQ(get(108, 0), 280.0);
}

TEST_F(PipeFields, regulators_are_counted_with_the_deleted_ones) {
  pipe(2).HYD_TYPE = 1;
  pipe(3).HYD_TYPE = 1;
  pipe(4).HYD_TYPE = 2;
  pipe(3).REC_STATUS = -1;
  EXPECT_EQ(get(126, 0), 2.0);
  pipe(4).HYD_TYPE = 1;
  EXPECT_EQ(get(126, 0), 3.0) << "the last record";
}

TEST_F(PipeFields, clearing_the_results_takes_the_reserved_block_vertices_and_roughness) {
  Pdt& p = pipe();
  std::memset(static_cast<void*>(&p), 0x11, sizeof p);
  Pdt expected;
  std::memcpy(static_cast<void*>(&expected), &p, sizeof p);
  expected.CALC_RESERVED_D = 0;
  expected.CALC_RESERVED_B = 0;
  for (float& f : expected.CALC_RESERVED_F) f = 0;
  expected.VTX_FIRST = expected.VTX_LAST = 0;
  expected.ROUGHNESS = 0;
  p.REC_STATUS = expected.REC_STATUS = 0;
  SetPdtVal(1, 102, "", 77);
  EXPECT_EQ(std::memcmp(&p, &expected, sizeof p), 0);
}

TEST_F(PipeFields, clearing_the_flow_takes_drop_velocity_and_byte_154) {
  Pdt& p = pipe();
  std::memset(static_cast<void*>(&p), 0x11, sizeof p);
  Pdt expected;
  std::memcpy(static_cast<void*>(&expected), &p, sizeof p);
  expected.FLOW = expected.DP = expected.VELOCITY = 0;
  expected.HOST_BYTE_154 = 0;
  p.REC_STATUS = expected.REC_STATUS = 0;
  SetPdtVal(1, 134, "", 77);
  EXPECT_EQ(std::memcmp(&p, &expected, sizeof p), 0);
}

TEST_F(PipeFields, length_is_measured_anew_into_the_screen_record) {
  connect(1, 1, 2);
  model.ndt[2].X_COORD = 3;
  model.ndt[2].Y_COORD = 4;
  model.ndt[2].Z_COORD = 12;
  pipe().LENGTH = 99;
  SetPdtVal(1, 119, "", 0.9);
  EXPECT_EQ(get(119), 5.0);
  SetPdtVal(1, 119, "", 1);
  EXPECT_EQ(model.pxy[1].LENGTH, 13.0f);
  EXPECT_EQ(pipe().LENGTH, 99.0f);
}

TEST_F(PipeFields, heights_go_to_the_vertices_of_the_file_numbers) {
  pipe().VTX_FIRST = 2;
  pipe().VTX_LAST = 4;
  SetPdtVal(1, 153, "", 7.5);
  const float expected[] = {0, 0, 7.5f, 7.5f, 7.5f, 0, 0};
  for (int v = 0; v < 7; v++) EXPECT_EQ(model.vtx[v].VTX_Z, expected[v]) << v;
  pipe().VTX_FIRST = 4;
  pipe().VTX_LAST = 3;
  SetPdtVal(1, 153, "", 9);
  EXPECT_EQ(model.vtx[4].VTX_Z, 7.5f);
}

TEST_F(PipeFields, heights_stay_inside_the_vertex_table) {
  pipe().VTX_FIRST = INT32_MIN;
  pipe().VTX_LAST = INT32_MAX;
  SetPdtVal(1, 153, "", 2);
  EXPECT_EQ(model.vtx[0].VTX_Z, 0.0f);
  EXPECT_EQ(model.vtx[1].VTX_Z, 2.0f);
  EXPECT_EQ(model.vtx[6].VTX_Z, 2.0f);
}

std::set<int> plus(std::set<int> numbers) {
  for (const auto& row : kNumbers) numbers.insert(row.field);
  return numbers;
}

TEST_F(PipeFields, unknown_numbers_show_a_message_and_return_minus_one) {
  const auto read = plus({2,   3,   7,   10,  13,  15,  32,  35,  39,  40,  43,  49,  50,  51,  59,  60,
                          61,  62,  63,  68,  69,  70,  87,  93,  95,  98,  100, 101, 103, 104, 105, 106,
                          107, 108, 119, 120, 126, 128, 130, 131, 132, 133, 136, 137, 139, 140, 158, 159});
  const auto write = plus({7, 10, 13, 15, 32, 43, 49, 87, 100, 101, 102, 106, 107, 119, 127, 128, 134, 153});
  checkUnknown(read, "getpdt", [&](int16_t field) { EXPECT_EQ(GetPdtVal(1, text, field), -1.0); });
  checkUnknown(write, "setpdt", [](int16_t field) { SetPdtVal(1, field, "x", 1.0); });
  Pdt untouched{};
  EXPECT_EQ(std::memcmp(&pipe(), &untouched, sizeof untouched), 0);
}

TEST_F(PipeFields, known_numbers_show_no_message) {
  for (int field : plus({2,   3,   7,   10,  13,  15,  32,  35,  39,  40,  43,  49,  50,  51,  59,  60,
                         61,  62,  63,  68,  69,  70,  87,  93,  95,  98,  100, 101, 103, 104, 105, 106,
                         107, 108, 119, 120, 126, 128, 130, 131, 132, 133, 136, 137, 139, 140, 158, 159}))
    get(static_cast<int16_t>(field));
  for (int field : plus({7, 10, 13, 15, 32, 43, 49, 87, 101, 102, 106, 107, 119, 127, 128, 134, 153}))
    SetPdtVal(1, static_cast<int16_t>(field), "x", 1.0);
  EXPECT_EQ(messages(), "");
}

TEST_F(PipeFields, bad_record_numbers_are_silent) {
  for (int32_t p : {-1, 5, 1000000, INT32_MIN, INT32_MAX}) {
    for (int16_t field : std::initializer_list<int16_t>{1, 2, 20, 35, 100, 106}) EXPECT_EQ(get(field, p), -1.0);
    for (int16_t field : std::initializer_list<int16_t>{1, 7, 102, 119, 127, 134, 153}) SetPdtVal(p, field, "x", 5);
    EXPECT_EQ(CalcVolPno(p, 520, 14.7f), 0.0);
  }
  SetPdtVal(-1, 20, "", 0);
  SetPdtVal(-1, 100, "", 0);
  EXPECT_EQ(model.pipeCount, 4);
  EXPECT_EQ(messages(), "");
}

TEST(PipeFieldsBeforeALoad, record_zero_reads_zeros) {
  Fresh fresh;
  char text[64] = "#";
  EXPECT_EQ(GetPdtVal(0, text, 7), 1.0);
  EXPECT_STREQ(text, "");
  for (int16_t field : std::initializer_list<int16_t>{1, 12, 59, 100, 106, 119})
    EXPECT_EQ(GetPdtVal(0, text, field), 0.0) << field;
  EXPECT_EQ(GetPdtVal(1, text, 1), -1.0);
  for (int16_t field = 1; field <= 159; field++) SetPdtVal(0, field, "x", 0.0);
  EXPECT_EQ(GetPdtVal(0, text, 12), 0.0);
}

}  // namespace
