/** ReadCdt, the customer records on file, and the binding of service lines. */
#include <cstddef>

#include "model/record_file.h"
#include "model/staging.h"
#include "model/tables.h"
#include "support/model_builder.h"

namespace pn10::test {

namespace {

struct CdtTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();
  int32_t read(const std::string& bytes, int16_t noFile = 0) {
    dir.write("model.cdt", bytes);
    return ReadCdt(base.c_str(), noFile);
  }
  void pipes(int32_t count) {
    for (int32_t i = 0; i < count; i++) addPipe(0, 0);
  }
};

Cdt deleted(Cdt cust) {
  cust.REC_STATUS = -1;
  return cust;
}

Cdt withService(int32_t id) {
  Cdt cust = custRecord(id, 0);
  cust.VTX_MODE = 4;
  return cust;
}

/** Offset on file, bytes there, and the member that must hold the same bytes. */
struct Place {
  size_t offset;
  std::string bytes;
  size_t member;
};

#define MEMBER(field) offsetof(Cdt, field)
const Place kPlaces[] = {
    {0, Bytes().i32(-7).str(), MEMBER(ID)},
    {24, Bytes().i32(-9).str(), MEMBER(PIPE_REC)},
    {28, Bytes().i16(-300).str(), MEMBER(NODE_ASGN)},
    {30, Bytes().f32(1.5f).str(), MEMBER(UNIT_LOAD)},
    {34, "tenletters", MEMBER(LOAD_UNITS)},
    {44, Bytes().f32(2.5f).str(), MEMBER(LOAD_FACTOR)},
    {48, Bytes().f64(1e300).str(), MEMBER(X_COORD)},
    {56, Bytes().f64(-1e-300).str(), MEMBER(Y_COORD)},
    {64, Bytes().f32(3.5f).str(), MEMBER(Z_COORD)},
    {68, Bytes().i32(-2).str(), MEMBER(COLOR)},
    {72, Bytes().i16(-1).str(), MEMBER(HOST_SHORT_409)},
    {74, Bytes().i16(256).str(), MEMBER(HOST_SHORT_410)},
    {76, Bytes().i16(257).str(), MEMBER(HOST_SHORT_437)},
    {78, Bytes().i16(258).str(), MEMBER(HOST_SHORT_411)},
    {80, Bytes().f64(4.5).str(), MEMBER(TEXT_X)},
    {88, Bytes().f64(5.5).str(), MEMBER(TEXT_Y)},
    {96, Bytes().f32(6.5f).str(), MEMBER(TEXT_ANGLE)},
    {100, Bytes().f64(7.5).str(), MEMBER(CALC_RESERVED_D)},
    {108, Bytes().f64(8.5).str(), MEMBER(SX_COORD)},
    {116, Bytes().f64(9.5).str(), MEMBER(SY_COORD)},
    {124, Bytes().i16(511).str(), MEMBER(VTX_MODE)},
    {126, Bytes().i16(512).str(), MEMBER(LINK_FLAG)},
    {128, Bytes().i32(70000).str(), MEMBER(LINK_CUST)},
    {132, std::string(40, 'q'), MEMBER(LINK_ID)},
    {172, Bytes().i16(1001).str(), MEMBER(HOST_SHORT_425)},
    {174, Bytes().i16(1002).str(), MEMBER(HOST_SHORT_436)},
    {176, Bytes().i16(1003).str(), MEMBER(COUNT)},
    {178, Bytes().f32(10.5f).str(), MEMBER(LOAD_MULT)},
    {182, Bytes().i16(1004).str(), MEMBER(LOAD_DF)},
    {184, Bytes().i16(1005).str(), MEMBER(HOST_SHORT_431)},
    {186, Bytes().i8(250).str(), MEMBER(FLAG_BYTE)},
    {187, Bytes().i8(251).str(), MEMBER(HOST_BYTE_464)},
    {188, Bytes().i16(1006).str(), MEMBER(REC_STATUS)},
    {190, "20240229", MEMBER(REC_DATE)},
};
#undef MEMBER

}  // namespace

TEST_F(CdtTest, every_column_lies_at_its_offset_and_travels_as_it_stands) {
  for (const Place& place : kPlaces) {
    std::string bytes(198, '\0');
    bytes.replace(place.offset, place.bytes.size(), place.bytes);
    std::string expected(sizeof(Cdt), '\0');
    expected.replace(place.member, place.bytes.size(), place.bytes);
    read(bytes);
    EXPECT_EQ(std::memcmp(&staging.cust, expected.data(), sizeof(Cdt)), 0) << "read at " << place.offset;
    FreeModel();
    File file(dir.path("out").c_str(), "wb+");
    EXPECT_EQ(WriteCdtRecord(file.get(), 1), 0);
    file.close();
    EXPECT_EQ(dir.read("out"), bytes) << "written at " << place.offset;
  }
}

TEST_F(CdtTest, a_record_of_all_fields_equals_hand_packed_bytes) {
  const Cdt cust = everyCustField(3);
  read(fileOf(std::vector<Cdt>{cust}));
  Cdt expected = cust;
  expected.PIPE_REC = 0;  // above the pipe count
  EXPECT_EQ(std::memcmp(&model.cdt[1], &expected, sizeof(Cdt)), 0);
}

TEST_F(CdtTest, the_reserved_bytes_are_skipped_and_written_as_zeros) {
  std::string bytes = packed(custRecord(1, 0));
  bytes.replace(4, 20, std::string(20, '\n'));
  read(bytes);
  EXPECT_EQ(model.cdt[1].ID, 1);
  staging.cust = custRecord(1, 0);
  File file(dir.path("out").c_str(), "wb");
  WriteCdtRecord(file.get(), 1);
  file.close();
  EXPECT_EQ(dir.read("out"), packed(custRecord(1, 0)));
}

TEST_F(CdtTest, records_lie_214_bytes_apart) {
  read(fileOf(std::vector<Cdt>{custRecord(11, 0), custRecord(12, 0), custRecord(13, 0)}));
  EXPECT_EQ(model.cdt[3].ID, 13);
  File file((base + ".cdt").c_str(), "rb");
  ReadCdtRecord(file.get(), 2);
  EXPECT_EQ(staging.cust.ID, 12);
  ReadCdtRecord(file.get(), 0);  // no such place: the staging record stays
  ReadCdtRecord(file.get(), 9);
  EXPECT_EQ(staging.cust.ID, 12);
}

TEST_F(CdtTest, the_count_is_the_ceiling_of_size_over_stride) {
  struct {
    size_t size;
    int32_t count;
  } rows[] = {{0, 0}, {1, 1}, {198, 1}, {214, 1}, {215, 2}, {428, 2}, {429, 3}};
  for (const auto& row : rows) {
    read(std::string(row.size, '\0'));
    EXPECT_EQ(model.custCount, row.count) << row.size;
    FreeModel();
  }
}

TEST_F(CdtTest, a_truncated_record_keeps_what_the_record_before_had) {
  Cdt first = everyCustField(1);
  first.PIPE_REC = 0;
  read(fileOf(std::vector<Cdt>{first}).append(16, '\0') + Bytes().i32(77).str());
  EXPECT_EQ(model.custCount, 2);
  Cdt expected = first;
  expected.ID = 77;
  EXPECT_EQ(std::memcmp(&model.cdt[2], &expected, sizeof(Cdt)), 0);
}

TEST_F(CdtTest, result_is_the_last_customer_id_without_an_upper_limit) {
  EXPECT_EQ(read(fileOf(std::vector<Cdt>{custRecord(5, 0), custRecord(2000000000, 0), custRecord(7, 0)})), 2000000000);
  EXPECT_EQ(model.lastCustId, 2000000000);
}

TEST_F(CdtTest, a_missing_file_gives_minus_2_and_no_tables) {
  EXPECT_EQ(ReadCdt(dir.path("none").c_str(), 0), -2);
  EXPECT_EQ(model.cdt, nullptr);
  EXPECT_EQ(ReadCdt(nullptr, 0), -2);
}

TEST_F(CdtTest, an_empty_file_and_no_file_give_empty_tables) {
  EXPECT_EQ(read(""), 0);
  EXPECT_NE(model.cdt, nullptr);
  EXPECT_NE(model.cxy, nullptr);
  FreeModel();
  EXPECT_EQ(read(fileOf(std::vector<Cdt>{custRecord(1, 0)}), 1), 0);
  EXPECT_EQ(model.custCount, 0);
  EXPECT_NE(model.cdt, nullptr);
}

TEST_F(CdtTest, a_pipe_above_the_pipe_count_becomes_0) {
  pipes(2);
  read(fileOf(std::vector<Cdt>{custRecord(1, 2), custRecord(2, 3)}));
  EXPECT_EQ(model.cdt[1].PIPE_REC, 2);
  EXPECT_EQ(model.cdt[2].PIPE_REC, 0);
}

TEST_F(CdtTest, without_pipes_every_customer_loses_its_pipe) {
  read(fileOf(std::vector<Cdt>{custRecord(1, 1), custRecord(2, 2)}));
  EXPECT_EQ(model.cdt[1].PIPE_REC, 0);
  EXPECT_EQ(model.cdt[2].PIPE_REC, 0);
}

TEST_F(CdtTest, a_deleted_customer_is_taken_as_it_is) {
  addVtx(vtxRecord(9, 1));
  Cdt cust = deleted(withService(9));
  cust.PIPE_REC = 99;
  EXPECT_EQ(read(fileOf(std::vector<Cdt>{cust})), 0);
  EXPECT_EQ(model.cdt[1].PIPE_REC, 99);
  EXPECT_EQ(model.cdt[1].VTX_MODE, 4);
  const CXY zero{};
  EXPECT_EQ(std::memcmp(&model.cxy[1], &zero, sizeof zero), 0);
}

TEST_F(CdtTest, any_negative_status_takes_a_customer_as_it_is) {
  Cdt cust = custRecord(7, 99);
  cust.REC_STATUS = -2;
  EXPECT_EQ(read(fileOf(std::vector<Cdt>{cust})), 0);
  EXPECT_EQ(model.cdt[1].PIPE_REC, 99);
  EXPECT_EQ(model.cxy[1].DRAW, 0);
}

TEST_F(CdtTest, a_live_customer_is_to_be_drawn_and_slot_0_stays_zero) {
  read(fileOf(std::vector<Cdt>{custRecord(1, 0)}));
  CXY expected{};
  expected.DRAW = 1;
  EXPECT_EQ(std::memcmp(&model.cxy[1], &expected, sizeof expected), 0);
  const Cdt zero{};
  EXPECT_EQ(std::memcmp(&model.cdt[0], &zero, sizeof zero), 0);
}

TEST_F(CdtTest, a_service_line_is_found_by_its_owner_among_kinds_1_3_5_7) {
  for (int kind : {1, 0, 3, 5, 2, 7}) addVtx(vtxRecord(4, kind));
  addVtx(vtxRecord(5, 1));
  read(fileOf(std::vector<Cdt>{withService(4), withService(5)}));
  EXPECT_EQ(model.cxy[1].FIRST_VTX, 1);
  EXPECT_EQ(model.cxy[1].LAST_VTX, 6);
  EXPECT_EQ(model.cxy[2].FIRST_VTX, 7);
  EXPECT_EQ(model.cxy[2].LAST_VTX, 7);
}

TEST_F(CdtTest, vertices_of_a_pipe_of_the_same_id_do_not_count) {
  addVtx(vtxRecord(4, 0));
  addVtx(vtxRecord(4, 8));
  read(fileOf(std::vector<Cdt>{withService(4)}));
  EXPECT_EQ(model.cdt[1].VTX_MODE, 0);
  EXPECT_EQ(model.cxy[1].FIRST_VTX, 0);
}

TEST_F(CdtTest, a_service_line_before_the_range_is_found_in_the_second_pass) {
  for (int owner : {2, 1, 3}) addVtx(vtxRecord(owner, 1));
  read(fileOf(std::vector<Cdt>{withService(1), withService(2), withService(3)}));
  EXPECT_EQ(model.cxy[1].FIRST_VTX, 2);
  EXPECT_EQ(model.cxy[2].FIRST_VTX, 1);
  EXPECT_EQ(model.cxy[3].FIRST_VTX, 3);
}

TEST_F(CdtTest, other_vertex_modes_bind_nothing_and_stay) {
  addVtx(vtxRecord(4, 1));
  Cdt cust = withService(4);
  cust.VTX_MODE = 1;
  read(fileOf(std::vector<Cdt>{cust}));
  EXPECT_EQ(model.cdt[1].VTX_MODE, 1);
  EXPECT_EQ(model.cxy[1].FIRST_VTX, 0);
}

TEST_F(CdtTest, a_line_feed_in_a_text_shifts_the_rest_of_its_record_only) {
  std::string file = fileOf(std::vector<Cdt>{custRecord(1, 0), custRecord(2, 0)});
  file[34] = '\n';
  read(file);
  EXPECT_STREQ(model.cdt[1].LOAD_UNITS, "\n");
  EXPECT_EQ(model.cdt[2].ID, 2);
}

TEST_F(CdtTest, every_prefix_of_a_file_reads_without_harm) {
  const std::string file = fileOf(std::vector<Cdt>{everyCustField(1), everyCustField(2)});
  for (size_t size = 0; size <= file.size(); size++) {
    const int32_t last = read(file.substr(0, size));
    EXPECT_GE(last, 0);
    EXPECT_EQ(model.custCount, (static_cast<int32_t>(size) + 213) / 214);
    FreeModel();
  }
}

}  // namespace pn10::test
