// Colour, line type and line width of pipes; the screen colours of nodes, customers and text.
#include <gtest/gtest.h>

#include <algorithm>

#include "facility/network.h"
#include "lookup/lookup.h"
#include "lookup/packed.h"

namespace pn10::test {
namespace {

constexpr int32_t kPipe = 0x101010, kElem = 0x202020, kOff = 255, kSize = 0x303030, kFac = 0x404040, kNode = 0x505050,
                  kCust = 0x606060;

/** The options at library load, before any test has set some. */
const ViewOpts* const kAtLoad = drawState.View;

class PipeStyle : public testing::Test {
 protected:
  Fresh fresh;
  LutFiles files;
  ViewOpts view = {};

  void SetUp() override {
    view.PipeColor = kPipe;
    view.ElemColor = kElem;
    view.NodeColor = kNode;
    view.CustColor = kCust;
    view.PipeWidth = 2;
    view.PipeLineType = 1;
    drawState.View = &view;
    settings.offColor = kOff;
    files.plut({pipeSize("SIZE").i32(98, kSize).i16(102, 4).i16(104, 2), pipeSize("BARE").i32(98, -1)});
    Fac* rows = makeFacilities({7, 8});
    rows[1].Color = kFac;
    rows[1].LineType = 3;
    rows[1].LineWidth = 2;
    rows[2].Color = -1;
    rows[2].LineType = 0;
    rows[2].LineWidth = 0;
    makeNetwork(2, {{1, 2}});
  }
  Pdt& pipe() { return model.pdt[1]; }
  PXY& screen() { return model.pxy[1]; }
  void setSize(const char* text) { copyText(pipe().SIZE_TYPE, text); }
};

struct ColorCase {
  int type, status;
  int32_t color;
  int mode, facility;
  const char* size;
  int32_t expected;
};

TEST_F(PipeStyle, colours_of_pipes_and_fittings) {
  const ColorCase cases[] = {
      // a colour of its own, on or off
      {0, 0, 0x123456, 0, 0, "", 0x123456},
      {0, 1, 0x123456, -3, 7, "", 0x123456},
      {0, 1, 0, 0, 0, "", 0},
      // plain requests
      {0, 0, -1, 0, 0, "", kPipe},
      {0, 1, -1, 0, 0, "", kOff},
      {5, 1, -1, -1, 0, "", kOff},
      {5, 0, -1, -1, 0, "", kPipe},
      // by size
      {0, 0, -2, 0, 0, "SIZE", kSize},
      {0, 1, -2, 0, 0, "SIZE", kSize},
      {0, 0, -1, -2, 0, "SIZE", kSize},
      {0, 0, -2, 0, 0, "NONE", kPipe},
      {0, 1, -2, 0, 0, "NONE", kOff},
      {0, 0, -2, 0, 0, "BARE", kPipe},
      {0, 1, -2, 0, 0, "BARE", kPipe},
      // by facility
      {0, 0, -3, 0, 7, "", kFac},
      {0, 1, -3, 0, 7, "", kFac},
      {0, 0, -1, -3, 7, "", kFac},
      {0, 1, -3, 0, 99, "", kPipe},
      {0, 0, -3, 0, 99, "", kPipe},
      {0, 0, -3, 0, 8, "", kPipe},
      {0, 1, -3, 0, 8, "", kOff},
      // anything else
      {0, 1, -4, 0, 0, "", kPipe},
      {0, 1, -1, 5, 0, "", kPipe},
      {0, 1, -1, -9, 0, "", kPipe},
      // a request of its own is not replaced by the mode; the mode has 16 bits
      {0, 0, -2, -3, 7, "SIZE", kSize},
      {0, 0, -1, 0x10000, 0, "", kPipe},
      {0, 1, -1, 0xffff, 0, "", kOff},
  };
  for (const ColorCase& c : cases) {
    pipe().HYD_TYPE = static_cast<uint8_t>(c.type);
    pipe().STATUS = static_cast<uint8_t>(c.status);
    pipe().COLOR = c.color;
    pipe().FACILITY = static_cast<int16_t>(c.facility);
    setSize(c.size);
    view.PipeColorMode = c.mode;
    SetPipeColor(1);
    EXPECT_EQ(screen().Color, c.expected) << "status " << c.status << " color " << c.color << " mode " << c.mode
                                          << " facility " << c.facility << " size " << c.size;
  }
}

TEST_F(PipeStyle, colours_of_elements) {
  const ColorCase cases[] = {
      {3, 0, 0x123456, 0, 0, "", 0x123456}, {3, 1, 0x123456, 0, 0, "", 0x123456}, {3, 1, -1, 0, 0, "", kOff},
      {3, 0, -1, 0, 0, "", kElem},          {1, 0, -2, 0, 0, "SIZE", kElem},      {2, 1, -3, 0, 7, "", kOff},
      {4, 0, -3, 0, 7, "", kFac},           {4, 0, -3, 0, 8, "", kPipe},          {4, 0, -3, 0, 99, "", kPipe},
      {1, 0, -1, -3, 7, "", kElem},         {9, 0, -4, 0, 0, "", kElem},
  };
  for (const ColorCase& c : cases) {
    pipe().HYD_TYPE = static_cast<uint8_t>(c.type);
    pipe().STATUS = static_cast<uint8_t>(c.status);
    pipe().COLOR = c.color;
    pipe().FACILITY = static_cast<int16_t>(c.facility);
    setSize(c.size);
    view.PipeColorMode = c.mode;
    SetPipeColor(1);
    EXPECT_EQ(screen().Color, c.expected)
        << "type " << c.type << " status " << c.status << " color " << c.color << " facility " << c.facility;
  }
}

struct LineCase {
  int stored, display, facility;
  const char* size;
  int expected;
};

TEST_F(PipeStyle, line_types) {
  const LineCase cases[] = {
      {0, 1, 0, "", 1},      {0, 6, 0, "", 6},       {5, 1, 0, "", 5},         {-3, 1, 0, "", -3},
      {98, 2, 7, "", 3},     {98, 2, 8, "", 1},      {98, 2, 99, "", 2},       {0, 98, 7, "", 3},
      {0, 98, 99, "", 98},   {99, 2, 0, "SIZE", 4},  {99, 2, 0, "BARE", 1},    {99, 2, 0, "NONE", 2},
      {0, 99, 0, "SIZE", 4}, {0, 99, 0, "NONE", 99}, {98, 99, 99, "SIZE", 99},
  };
  for (const LineCase& c : cases) {
    pipe().LINE_TYPE = static_cast<int16_t>(c.stored);
    pipe().FACILITY = static_cast<int16_t>(c.facility);
    setSize(c.size);
    view.PipeLineType = c.display;
    SetPipeColor(1);
    EXPECT_EQ(screen().LineType, c.expected) << c.stored << " " << c.display << " " << c.facility << " " << c.size;
  }
}

TEST_F(PipeStyle, line_widths) {
  const LineCase cases[] = {
      {0, 1, 0, "", 1},      {5, 1, 0, "", 5},      {98, 1, 7, "", 3},     {98, 4, 8, "", 4},
      {98, 4, 99, "", 4},    {98, 98, 99, "", 98},  {0, 98, 7, "", 3},     {99, 1, 0, "SIZE", 2},
      {99, 5, 0, "BARE", 5}, {99, 5, 0, "NONE", 5}, {0, 99, 0, "SIZE", 2}, {0, 99, 0, "NONE", 99},
  };
  for (const LineCase& c : cases) {
    pipe().LINE_WIDTH = static_cast<int16_t>(c.stored);
    pipe().FACILITY = static_cast<int16_t>(c.facility);
    setSize(c.size);
    view.PipeWidth = c.display;
    SetPipeColor(1);
    EXPECT_EQ(screen().LineWidth, c.expected) << c.stored << " " << c.display << " " << c.facility << " " << c.size;
  }
}

TEST_F(PipeStyle, a_width_of_1_is_a_width) {
  facilities.rows[1].LineWidth = 1;
  lookups.plut.rows[FindPLutRno("SIZE", 0)].LINE_WIDTH = 1;
  view.PipeWidth = 7;
  setSize("SIZE");
  pipe().FACILITY = 7;
  pipe().LINE_WIDTH = 98;
  SetPipeColor(1);
  EXPECT_EQ(screen().LineWidth, 2) << "one more than the facility's";
  pipe().LINE_WIDTH = 99;
  SetPipeColor(1);
  EXPECT_EQ(screen().LineWidth, 1);
}

TEST_F(PipeStyle, the_answer_without_the_model_has_its_own_rules) {
  struct {
    int32_t color;
    int16_t type;
    int32_t facility;
    const char* size;
    int32_t expected;
  } cases[] = {{0x123456, 3, 0, "", 0x123456}, {0, 0, 0, "", 0},           {-3, 3, 7, "", kElem},
               {-1, 1, 0, "", kElem},          {-2, 0, 0, "SIZE", kSize},  {-2, 5, 0, "BARE", kPipe},
               {-2, 0, 0, "NONE", kPipe},      {-2, 0, 0, nullptr, kPipe}, {-3, 0, 7, "", kFac},
               {-3, 0, 8, "", kPipe},          {-3, 0, 99, "", 0},         {-1, 0, 0, "", kPipe},
               {-9, 0, 7, "SIZE", kPipe}};
  for (int mode : {0, -3}) {
    view.PipeColorMode = mode;
    for (const auto& c : cases) {
      EXPECT_EQ(GetPipeColor(c.color, c.type, c.facility, c.size), c.expected) << c.color << " type " << c.type;
    }
  }
}

TEST_F(PipeStyle, black_of_a_size_is_a_colour_and_so_is_every_colour_of_a_facility_but_minus_1) {
  lookups.plut.rows[FindPLutRno("SIZE", 0)].COLOR = 0;
  EXPECT_EQ(GetPipeColor(-2, 0, 0, "SIZE"), 0);
  facilities.rows[1].Color = -2;
  pipe().FACILITY = 7;
  pipe().COLOR = -3;
  SetPipeColor(1);
  EXPECT_EQ(screen().Color, -2);
}

TEST_F(PipeStyle, colours_set_directly_clear_the_trace) {
  screen().TraceColor = 9;
  EXPECT_EQ(SetColorPXY(1, 11, 22, 0), 1);
  EXPECT_EQ(GetColorPXY(1), 11);
  EXPECT_EQ(screen().TraceColor, 0);
  pipe().HYD_TYPE = 3;
  SetColorPXY(1, 11, 22, 0);
  EXPECT_EQ(GetColorPXY(1), 22);
  screen().TraceColor = 9;
  pipe().COLOR = 33;
  SetColorPXY(1, 11, 22, 1);
  EXPECT_EQ(GetColorPXY(1), 33);
  EXPECT_EQ(screen().TraceColor, 0);
}

TEST_F(PipeStyle, nodes_and_customers_fall_back_to_their_default) {
  FreeModel();
  makeEmptyTables(1, 1, 1);
  EXPECT_EQ(GetNodeColor(5), 5);
  EXPECT_EQ(GetNodeColor(0), 0) << "black is a colour";
  EXPECT_EQ(GetNodeColor(-1), kNode);
  EXPECT_EQ(GetCustColor(0), 0);
  EXPECT_EQ(GetCustColor(-3), kCust);
  EXPECT_EQ(SetColorNXY(1, 77), 1);
  EXPECT_EQ(GetColorNXY(1), 77);
  SetColorNXY(1, -1);
  EXPECT_EQ(GetColorNXY(1), kNode);
  model.cxy[1].TraceColor = 9;
  EXPECT_EQ(SetColorCXY(1, 77), 1);
  EXPECT_EQ(GetColorCXY(1), 77);
  EXPECT_EQ(model.cxy[1].TraceColor, 0);
  SetColorCXY(1, -1);
  EXPECT_EQ(GetColorCXY(1), kCust);
}

TEST_F(PipeStyle, resetting_takes_active_sized_pipes_without_a_colour) {
  FreeModel();
  makeNetwork(2, {{1, 2}, {1, 2}, {1, 2}, {1, 2}});
  for (int p = 1; p <= 4; p++) {
    model.pxy[p].Active = 1;
    model.pdt[p].SIZE_FLAG = 1;
    model.pdt[p].COLOR = -1;
  }
  model.pxy[2].Active = 0;
  model.pdt[3].SIZE_FLAG = 0;
  model.pdt[4].COLOR = 5;
  ResetPipeColors();
  EXPECT_EQ(GetColorPXY(1), kPipe);
  for (int p = 2; p <= 4; p++) EXPECT_EQ(GetColorPXY(p), 0) << p;
}

TEST_F(PipeStyle, all_texts_take_a_colour_under_the_wait_cursor) {
  model.gtx = newTable<Gtx>(3);
  model.textCount = 2;
  model.textCapacity = 3;
  const std::string log = recorded([] { EXPECT_EQ(SetAllTextColor(0x777777), 1); });
  EXPECT_EQ(model.gtx[0].Color, 0);
  EXPECT_EQ(model.gtx[1].Color, 0x777777);
  EXPECT_EQ(model.gtx[2].Color, 0x777777);
  EXPECT_EQ(model.gtx[3].Color, 0);
  const std::string cursors = only(log, {"SetCursor"});
  EXPECT_EQ(std::count(cursors.begin(), cursors.end(), '\n'), 2) << log;
}

TEST_F(PipeStyle, before_any_picture_the_options_are_zero) {
  drawState.View = kAtLoad;
  pipe().COLOR = -1;
  SetPipeColor(1);
  EXPECT_EQ(screen().Color, 0);
  EXPECT_EQ(screen().LineType, 0);
  EXPECT_EQ(GetNodeColor(-1), 0);
}

TEST_F(PipeStyle, records_that_are_not_there_do_nothing) {
  for (bool tables : {true, false}) {
    if (!tables) FreeModel();
    for (int32_t bad : {-1, 0, 2, INT32_MIN, INT32_MAX}) {
      SetPipeColor(bad);
      EXPECT_EQ(SetColorPXY(bad, 1, 1, 0), 1);
      EXPECT_EQ(SetColorPXY(bad, 1, 1, 1), 1);
      EXPECT_EQ(SetColorCXY(bad, 1), 1);
      EXPECT_EQ(GetColorPXY(bad), 0);
      EXPECT_EQ(GetColorCXY(bad), 0);
    }
    for (int32_t bad : {-1, 0, 3, INT32_MAX}) {
      EXPECT_EQ(SetColorNXY(bad, 1), 1);
      EXPECT_EQ(GetColorNXY(bad), 0);
    }
    ResetPipeColors();
    EXPECT_EQ(SetAllTextColor(1), 1);
  }
}

}  // namespace
}  // namespace pn10::test
