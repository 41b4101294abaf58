/** Numbered fields of vertices: every row, the guards, and the small readers. */
#include "fields/field_rows.h"
#include "support/model_builder.h"

namespace {

using namespace pn10;
using namespace pn10::test;

struct VtxFields : testing::Test {
  Fresh fresh;
  void SetUp() override {
    for (int i = 0; i < 3; i++) addVtx(vtxRecord(0, 0));
  }
};

}  // namespace

TEST_F(VtxFields, every_row_stores_and_reads_its_member) {
  SetVtxVal(2, 801, 70000.9);
  SetVtxVal(2, 802, -3.9);
  SetVtxVal(2, 803, 1.5);
  SetVtxVal(2, 804, -2.25);
  SetVtxVal(2, 805, 0.1);
  SetVtxVal(2, 808, 257);
  SetVtxVal(2, 809, -1);
  const Vtx& v = model.vtx[2];
  EXPECT_EQ(v.VTX_OWNER, 70000);
  EXPECT_EQ(v.VTX_KIND, -3);
  EXPECT_EQ(v.VTX_X, 1.5);
  EXPECT_EQ(v.VTX_Y, -2.25);
  EXPECT_EQ(v.VTX_Z, 0.1f);
  EXPECT_EQ(v.VTX_HILITE, 1) << "the low byte of 257";
  EXPECT_EQ(v.VTX_DRAWN, 255);
  EXPECT_EQ(GetVtxVal(2, 801), 70000);
  EXPECT_EQ(GetVtxVal(2, 802), -3);
  EXPECT_EQ(GetVtxVal(2, 803), 1.5);
  EXPECT_EQ(GetVtxVal(2, 804), -2.25);
  EXPECT_EQ(GetVtxVal(2, 805), static_cast<double>(0.1f));
}

TEST_F(VtxFields, the_count_belongs_to_the_table) {
  EXPECT_EQ(GetVtxVal(99, 807), 3);
  SetVtxVal(99, 807, 2);
  EXPECT_EQ(model.vtxCount, 2);
  EXPECT_EQ(model.vtxSlots, 4) << "and nothing else";
  EXPECT_EQ(GetVtxVal(-1, 807), -1.0);
}

TEST_F(VtxFields, unknown_numbers_show_a_message_and_change_nothing) {
  const Vtx before = model.vtx[1];
  const auto read = [](int16_t field) { EXPECT_EQ(GetVtxVal(1, field), -1.0); };
  const auto write = [](int16_t field) { SetVtxVal(1, field, 7); };
  checkUnknown({801, 802, 803, 804, 805, 807}, "getvtx", read);
  checkUnknown({801, 802, 803, 804, 805, 807, 808, 809}, "setvtx", write);
  EXPECT_EQ(std::memcmp(&before, &model.vtx[1], sizeof before), 0);
  EXPECT_EQ(GetVtxVal(-1, 806), -1.0);
  SetVtxVal(-1, 806, 1);
  EXPECT_EQ(messages(), "") << "a negative record is silent whatever the number";
}

TEST_F(VtxFields, records_that_are_not_there_are_silent) {
  for (int32_t bad : {-1, 4, 2000000000}) {
    EXPECT_EQ(GetVtxVal(bad, 803), -1.0);
    SetVtxVal(bad, 803, 5);
    double x = 7, y = 7;
    float z = 7;
    EXPECT_EQ(GetVTXY(bad, &x, &y, &z), -1);
    EXPECT_EQ(x + y + z, 0);
  }
  EXPECT_EQ(messages(), "");
  FreeModel();
  EXPECT_EQ(GetVtxVal(0, 803), 0.0);
}

TEST_F(VtxFields, place_and_kind_come_back_together) {
  model.vtx[3] = vtxRecord(9, 5, 10, 20, 30);
  double x, y;
  float z;
  int16_t kind;
  EXPECT_EQ(GetVTXY(3, &x, &y, &z), -1);
  EXPECT_EQ(x, 10);
  EXPECT_EQ(y, 20);
  EXPECT_EQ(z, 30);
  EXPECT_EQ(GetVTXYType(3, &x, &y, &kind), -1);
  EXPECT_EQ(kind, 5);
}

TEST_F(VtxFields, attached_vertices_are_owned_and_of_kind_2_3_5_or_7) {
  EXPECT_EQ(GetVtxAttCount(5, 4), 0);
  for (int kind = 0; kind <= 9; kind++) {
    model.vtx[1] = vtxRecord(4, kind);
    EXPECT_EQ(GetVtxAttCount(1, 3), kind == 2 || kind == 3 || kind == 5 || kind == 7) << kind;
    model.vtx[1].VTX_OWNER = 0;
    EXPECT_EQ(GetVtxAttCount(1, 3), 0) << "killed";
  }
  model.vtx[1] = model.vtx[3] = vtxRecord(4, 2);
  EXPECT_EQ(GetVtxAttCount(-5, 2000000000), 2);
}
