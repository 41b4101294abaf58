/** Screen records: fresh values, updates, flags and reads. */
#include "model/draw_state.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct ScreenRecords : testing::Test {
  Fresh fresh;
  ViewOpts view{};
  ScreenRecords() {
    view.NodeColor = 111;
    view.NodeSpecialColor = 222;
    view.CustColor = 333;
    drawState.View = &view;
    addNodes(2), addPipe(1, 2), addCust(1, 0, 0);
  }
};

const int32_t kBadNumbers[] = {-1, 2000, INT32_MAX, INT32_MIN};

TEST_F(ScreenRecords, fresh_ones_have_no_colour_yet_and_zeros_elsewhere) {
  std::memset(static_cast<void*>(model.nxy + 1), 0x55, sizeof(NXY));
  std::memset(static_cast<void*>(model.pxy + 1), 0x55, sizeof(PXY));
  std::memset(static_cast<void*>(model.cxy + 1), 0x55, sizeof(CXY));
  InitNXY(1), InitPXY(1), InitCXY(1);
  NXY node{};
  node.Color = -1;
  EXPECT_EQ(std::memcmp(&model.nxy[1], &node, sizeof node), 0);
  const PXY& pipe = model.pxy[1];
  EXPECT_EQ(pipe.Color, -1);
  EXPECT_EQ(pipe.TraceColor, -1);
  EXPECT_EQ(pipe.FIRST_VTX + pipe.LAST_VTX + pipe.LineWidth + pipe.LineType + pipe.Display + pipe.Report, 0);
  EXPECT_EQ(pipe.Aux + pipe.Active + pipe.DRAWN + pipe.HILITE + pipe.HILITE_DRAWN, 0);
  EXPECT_EQ(pipe.LENGTH, 0);
  const CXY& cust = model.cxy[1];
  EXPECT_EQ(cust.Color, -1);
  EXPECT_EQ(cust.TraceColor, -1);
  EXPECT_EQ(cust.FIRST_VTX + cust.LAST_VTX + cust.DRAW + cust.HILITE + cust.HILITE_DRAWN, 0);
  EXPECT_EQ(cust.CHANGE_VTX_A + cust.CHANGE_VTX_B, 0);
  EXPECT_EQ(cust.CHANGE_FRAC_A + cust.CHANGE_FRAC_B, 0);
  for (const int32_t bad : kBadNumbers) InitNXY(bad), InitPXY(bad), InitCXY(bad);
}

TEST_F(ScreenRecords, a_node_is_coloured_by_itself_or_by_its_kind) {
  struct {
    int32_t own;
    int type;
    int32_t color;
  } rows[] = {{7, 0, 7}, {0, 1, 0}, {-1, 0, 111}, {-1, 1, 222}, {-1, 2, 222}, {-1, 9, 222}};
  for (const auto& row : rows) {
    model.ndt[1].COLOR = row.own;
    model.ndt[1].HYD_TYPE = static_cast<uint8_t>(row.type);
    EXPECT_EQ(UpdateNXY(1, 1), 1);
    EXPECT_EQ(model.nxy[1].Color, row.color) << row.own << " " << row.type;
  }
}

TEST_F(ScreenRecords, a_node_update_asks_for_painting_and_takes_the_hilite_back) {
  model.nxy[1] = {5, 0, 1, 1, 2, 3, 4, 5};
  EXPECT_EQ(UpdateNXY(1, 0), 1);
  EXPECT_EQ(model.nxy[1].Color, 5);
  EXPECT_EQ(model.nxy[1].Drawn, -1);
  EXPECT_EQ(model.nxy[1].HILITE, 0);
  EXPECT_EQ(model.nxy[1].HILITE_DRAWN, 1);
  EXPECT_EQ(model.nxy[1].Display, 5);
  for (const int32_t bad : kBadNumbers) EXPECT_EQ(UpdateNXY(bad, 1), 1);
}

TEST_F(ScreenRecords, a_pipe_update_takes_the_run_only_with_vertices_and_both_numbers) {
  struct {
    int mode;
    int32_t first, last, wantFirst, wantLast;
  } rows[] = {{0, 3, 5, 0, 0}, {4, 3, 5, 3, 5}, {4, 0, 0, 0, 0}, {4, -1, 5, 8, 9}, {4, 3, -1, 8, 9}, {1, 0, 6, 0, 6}};
  for (const auto& row : rows) {
    model.pdt[1].VTX_MODE = static_cast<uint8_t>(row.mode);
    model.pxy[1].FIRST_VTX = 8;
    model.pxy[1].LAST_VTX = 9;
    model.pxy[1].HILITE = 1;
    EXPECT_EQ(UpdatePXY(1, row.first, row.last, 0), 1);
    EXPECT_EQ(model.pxy[1].FIRST_VTX, row.wantFirst) << row.mode << " " << row.first;
    EXPECT_EQ(model.pxy[1].LAST_VTX, row.wantLast) << row.mode << " " << row.last;
    EXPECT_EQ(model.pxy[1].HILITE, 0);
  }
  for (const int32_t bad : kBadNumbers) EXPECT_EQ(UpdatePXY(bad, 1, 2, 1), 1);
}

TEST_F(ScreenRecords, a_pipe_update_resolves_colour_on_request_only) {
  model.pdt[1].COLOR = 4711; /* a colour of its own is taken as it stands */
  UpdatePXY(1, 0, 0, 0);
  EXPECT_EQ(model.pxy[1].Color, -1);
  UpdatePXY(1, 0, 0, 1);
  EXPECT_EQ(model.pxy[1].Color, 4711);
}

TEST_F(ScreenRecords, a_customer_is_coloured_by_itself_or_by_the_default) {
  model.cdt[1].COLOR = -1;
  EXPECT_EQ(UpdateCXY(1, -1, -1, 0, 0), 1);
  EXPECT_EQ(model.cxy[1].Color, -1);
  UpdateCXY(1, -1, -1, 1, 0);
  EXPECT_EQ(model.cxy[1].Color, 333);
  model.cdt[1].COLOR = 0;
  UpdateCXY(1, -1, -1, 1, 0);
  EXPECT_EQ(model.cxy[1].Color, 0);
}

TEST_F(ScreenRecords, a_service_line_that_ends_before_it_begins_is_no_line) {
  struct {
    int32_t first, last, wantFirst, wantLast;
    int mode;
  } rows[] = {{3, 5, 3, 5, 4},   {5, 5, 5, 5, 4},  {6, 5, 0, 0, 0},
              {-1, -1, 8, 9, 4}, {2, -1, 0, 0, 0}, {-1, 5, -1, 5, 4}};
  for (const auto& row : rows) {
    model.cdt[1].VTX_MODE = 4;
    model.cxy[1].FIRST_VTX = 8;
    model.cxy[1].LAST_VTX = 9;
    UpdateCXY(1, row.first, row.last, 0, 0);
    EXPECT_EQ(model.cxy[1].FIRST_VTX, row.wantFirst) << row.first << " " << row.last;
    EXPECT_EQ(model.cxy[1].LAST_VTX, row.wantLast) << row.first << " " << row.last;
    EXPECT_EQ(model.cdt[1].VTX_MODE, row.mode) << row.first << " " << row.last;
  }
}

TEST_F(ScreenRecords, a_customer_is_painted_again_on_request) {
  UpdateCXY(1, -1, -1, 0, 0);
  EXPECT_EQ(model.cxy[1].DRAW, 0);
  UpdateCXY(1, -1, -1, 0, 7);
  EXPECT_EQ(model.cxy[1].DRAW, 1);
  for (const int32_t bad : kBadNumbers) EXPECT_EQ(UpdateCXY(bad, 1, 2, 1, 1), 1);
}

TEST_F(ScreenRecords, flags_keep_the_low_byte) {
  struct {
    int value, kept;
  } rows[] = {{1, 1}, {256, 0}, {-1, 255}, {0x1234, 0x34}};
  for (const auto& row : rows) {
    EXPECT_EQ(FlagPipe(1, static_cast<int16_t>(row.value)), -1);
    EXPECT_EQ(FlagCust(1, static_cast<int16_t>(row.value)), -1);
    EXPECT_EQ(model.pdt[1].FLAG_BYTE, row.kept);
    EXPECT_EQ(model.cdt[1].FLAG_BYTE, row.kept);
  }
  for (const int32_t bad : kBadNumbers) {
    EXPECT_EQ(FlagPipe(bad, 1), -1);
    EXPECT_EQ(FlagCust(bad, 1), -1);
  }
}

TEST_F(ScreenRecords, the_run_of_a_pipe_is_read) {
  model.pxy[1].FIRST_VTX = 3;
  model.pxy[1].LAST_VTX = 5;
  int32_t first = 77, last = 77;
  EXPECT_EQ(GetPXY(1, &first, &last), -1);
  EXPECT_EQ(first, 3);
  EXPECT_EQ(last, 5);
  EXPECT_EQ(GetPXY(99, &first, &last), -1);
  EXPECT_EQ(first + last, 0);
  EXPECT_EQ(GetPXY(1, nullptr, nullptr), -1);
}

TEST_F(ScreenRecords, place_tap_and_run_of_a_customer_are_read) {
  model.cdt[1] = everyCustField(1);
  model.cxy[1].FIRST_VTX = 3;
  model.cxy[1].LAST_VTX = 5;
  double x = 0, y = 0, sx = 0, sy = 0;
  int32_t first = 0, last = 0;
  EXPECT_EQ(GetCXY(1, &x, &y, &sx, &sy, &first, &last), -1);
  const Cdt want = everyCustField(1);
  EXPECT_EQ(x, want.X_COORD);
  EXPECT_EQ(y, want.Y_COORD);
  EXPECT_EQ(sx, want.SX_COORD);
  EXPECT_EQ(sy, want.SY_COORD);
  EXPECT_EQ(first, 3);
  EXPECT_EQ(last, 5);
  EXPECT_EQ(GetCXY(-1, &x, &y, &sx, &sy, &first, &last), -1);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(last, 0);
  EXPECT_EQ(GetCXY(1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), -1);
}

TEST_F(ScreenRecords, the_four_change_fields_of_a_customer_are_stored) {
  EXPECT_EQ(SetCXYChange(1, 3, 0.25f, 4, 0.75f), 0);
  EXPECT_EQ(model.cxy[1].CHANGE_VTX_A, 3);
  EXPECT_EQ(model.cxy[1].CHANGE_FRAC_A, 0.25f);
  EXPECT_EQ(model.cxy[1].CHANGE_VTX_B, 4);
  EXPECT_EQ(model.cxy[1].CHANGE_FRAC_B, 0.75f);
  for (const int32_t bad : kBadNumbers) EXPECT_EQ(SetCXYChange(bad, 3, 0.25f, 4, 0.75f), 0);
}

}  // namespace
}  // namespace pn10::test
