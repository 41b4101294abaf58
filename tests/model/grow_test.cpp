/** The grow operations: sizes, what is cleared, what stays, and what a failing allocator leaves. */
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct Grow : testing::Test {
  Fresh fresh;
};

/** Fills a text to its last byte. */
template <size_t N>
void fill(char (&text)[N]) {
  std::memset(text, 'x', N - 1);
  text[N - 1] = 0;
}

template <size_t N>
bool isFull(const char (&text)[N]) {
  return std::string(text) == std::string(N - 1, 'x');
}

void fillTexts(Ndt& n) { fill(n.NODENAME), fill(n.P_UNITS), fill(n.Q_UNITS), fill(n.REC_DATE); }
void fillTexts(Pdt& p) {
  fill(p.LINK_ID), fill(p.SIZE_TYPE), fill(p.DR_UNITS), fill(p.L_UNITS), fill(p.Q_UNITS), fill(p.DP_UNITS);
}

TEST_F(Grow, a_table_gets_one_slot_more_than_its_highest_record_and_all_answer_1) {
  EXPECT_EQ(ReallocNdt(3), 1);
  EXPECT_EQ(ReallocNXY(4), 1);
  EXPECT_EQ(ReallocPdt(5), 1);
  EXPECT_EQ(ReallocPXY(6), 1);
  EXPECT_EQ(ReallocCdt(7), 1);
  EXPECT_EQ(ReallocCXY(8), 1);
  EXPECT_EQ(ReallocVtx(9), 1);
  EXPECT_EQ(ReallocFdt(10), 1);
  EXPECT_EQ(ReallocTXY(11), 1);
  EXPECT_EQ(model.ndtSlots, 4);
  EXPECT_EQ(model.nxySlots, 5);
  EXPECT_EQ(model.pdtSlots, 6);
  EXPECT_EQ(model.pxySlots, 7);
  EXPECT_EQ(model.cdtSlots, 8);
  EXPECT_EQ(model.cxySlots, 9);
  EXPECT_EQ(model.vtxSlots, 10);
  EXPECT_EQ(model.fdtSlots, 11);
  EXPECT_EQ(model.textCapacity, 11);
}

TEST_F(Grow, no_counter_moves_but_the_one_of_the_fittings) {
  ReallocNdt(3), ReallocPdt(3), ReallocCdt(3), ReallocVtx(3), ReallocTXY(3), ReallocFdt(4);
  EXPECT_EQ(model.nodeCount, 0);
  EXPECT_EQ(model.pipeCount, 0);
  EXPECT_EQ(model.custCount, 0);
  EXPECT_EQ(model.vtxCount, 0);
  EXPECT_EQ(model.textCount, 0);
  EXPECT_EQ(model.ftgCount, 4);
}

TEST_F(Grow, nodes_lose_the_text_of_the_last_record_only) {
  addNodes(2);
  ReallocNdt(5); /* slots 3 to 5 are there, with text */
  for (int n = 1; n <= 5; n++) fillTexts(model.ndt[n]);
  EXPECT_EQ(ReallocNdt(model.nodeCount + 3), 1);
  for (int n = 1; n <= 4; n++) {
    EXPECT_TRUE(isFull(model.ndt[n].NODENAME) && isFull(model.ndt[n].P_UNITS) && isFull(model.ndt[n].Q_UNITS)) << n;
  }
  EXPECT_STREQ(model.ndt[5].NODENAME, "");
  EXPECT_STREQ(model.ndt[5].P_UNITS, "");
  EXPECT_STREQ(model.ndt[5].Q_UNITS, "");
  EXPECT_TRUE(isFull(model.ndt[5].REC_DATE));
}

TEST_F(Grow, nodes_below_the_count_keep_their_text) {
  addNodes(4);
  EXPECT_EQ(ReallocNdt(3), 1); /* the count of 4 is above 3 */
  EXPECT_STREQ(model.ndt[3].NODENAME, "N3");
}

TEST_F(Grow, the_node_at_the_count_is_cleared) {
  addNodes(4);
  EXPECT_EQ(ReallocNdt(4), 1); /* the count of 4 is not above 4 */
  EXPECT_STREQ(model.ndt[4].NODENAME, "");
  EXPECT_STREQ(model.ndt[3].NODENAME, "N3");
}

TEST_F(Grow, the_pipe_and_the_customer_at_the_count_are_cleared_and_those_below_it_stay) {
  ReallocPdt(3), ReallocCdt(3);
  fillTexts(model.pdt[2]), fill(model.cdt[2].LINK_ID);
  model.pipeCount = model.custCount = 3;
  ReallocPdt(2), ReallocCdt(2);
  EXPECT_TRUE(isFull(model.pdt[2].SIZE_TYPE) && isFull(model.cdt[2].LINK_ID));
  model.pipeCount = model.custCount = 2;
  ReallocPdt(2), ReallocCdt(2);
  EXPECT_STREQ(model.pdt[2].SIZE_TYPE, "");
  EXPECT_STREQ(model.cdt[2].LINK_ID, "");
}

TEST_F(Grow, pipes_lose_six_texts_of_the_last_record_only) {
  ReallocPdt(3);
  for (int p = 1; p <= 3; p++) fillTexts(model.pdt[p]);
  EXPECT_EQ(ReallocPdt(3), 1);
  EXPECT_TRUE(isFull(model.pdt[2].LINK_ID) && isFull(model.pdt[2].DP_UNITS));
  const Pdt& last = model.pdt[3];
  for (const char* text : {last.LINK_ID, last.SIZE_TYPE, last.DR_UNITS, last.L_UNITS, last.Q_UNITS, last.DP_UNITS}) {
    EXPECT_STREQ(text, "");
  }
}

TEST_F(Grow, customers_lose_two_texts_of_the_last_record_only) {
  ReallocCdt(3);
  for (int c = 1; c <= 3; c++) fill(model.cdt[c].LINK_ID), fill(model.cdt[c].LOAD_UNITS), fill(model.cdt[c].REC_DATE);
  EXPECT_EQ(ReallocCdt(3), 1);
  EXPECT_TRUE(isFull(model.cdt[2].LINK_ID) && isFull(model.cdt[2].LOAD_UNITS));
  EXPECT_STREQ(model.cdt[3].LINK_ID, "");
  EXPECT_STREQ(model.cdt[3].LOAD_UNITS, "");
  EXPECT_TRUE(isFull(model.cdt[3].REC_DATE));
}

TEST_F(Grow, node_screen_records_from_the_count_on_are_reset_the_last_node_among_them) {
  addNodes(2);
  for (int n = 1; n <= 2; n++) model.nxy[n] = {5, 6, 7, 8, 9, 10, 11, 12};
  EXPECT_EQ(ReallocNXY(4), 1);
  EXPECT_EQ(model.nxy[1].Color, 5);
  for (int n = 2; n <= 4; n++) {
    const NXY& screen = model.nxy[n];
    EXPECT_EQ(screen.Color, -1) << n;
    EXPECT_EQ(screen.Drawn + screen.HILITE + screen.HILITE_DRAWN + screen.Report, 0) << n;
    EXPECT_EQ(screen.Aux + screen.Active + screen.Display, 0) << n;
  }
}

TEST_F(Grow, fittings_behind_the_count_are_empty_and_the_count_follows) {
  addFtg(ftgRecord(7, "tee", 3, 1.5f, 2));
  addFtg(ftgRecord(8, "elbow", 4, 2.5f, 2));
  model.ftgCount = 1;
  EXPECT_EQ(ReallocFdt(3), 1);
  EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 7);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 0);
  EXPECT_EQ(model.fdt[2].FTG_NUM, 0);
  EXPECT_STREQ(model.fdt[2].FTG_NAME, "elbow"); /* id and number only */
  EXPECT_EQ(model.ftgCount, 3);
  EXPECT_EQ(ReallocFdt(1), 1);
  EXPECT_EQ(model.ftgCount, 1);
}

TEST_F(Grow, texts_that_fall_away_are_released_and_new_rows_are_empty) {
  addText("one"), addText("two"), addText("three");
  EXPECT_EQ(ReallocTXY(1), 1); /* the leak checker watches the other two */
  EXPECT_STREQ(model.gtx[1].Text, "one");
  EXPECT_EQ(ReallocTXY(5), 1);
  EXPECT_EQ(model.gtx[5].Text, nullptr);
  EXPECT_EQ(model.textCapacity, 5);
}

TEST_F(Grow, growing_one_by_one_keeps_every_record) {
  for (int n = 1; n <= 3000; n++) addVtx(vtxRecord(n, 0, n));
  for (int n = 1; n <= 3000; n++) ASSERT_EQ(model.vtx[n].VTX_X, n);
  EXPECT_EQ(model.vtx[0].VTX_OWNER, 0);
}

TEST_F(Grow, shrinking_to_nothing_keeps_slot_0) {
  addNodes(3);
  EXPECT_EQ(ReallocNdt(0), 1);
  EXPECT_EQ(model.ndtSlots, 1);
  EXPECT_EQ(GetLastNdt(), 0);
}

/** The table is gone then, and nothing that walks it looks at the count. */
TEST_F(Grow, an_impossible_size_answers_0_and_leaves_no_table) {
  struct {
    int32_t (*grow)(int32_t);
    int32_t failure;
    const void* (*table)();
  } rows[] = {
      {ReallocNdt, 0, [] { return static_cast<const void*>(model.ndt); }},
      {ReallocNXY, 0, [] { return static_cast<const void*>(model.nxy); }},
      {ReallocPdt, 0, [] { return static_cast<const void*>(model.pdt); }},
      {ReallocPXY, 0, [] { return static_cast<const void*>(model.pxy); }},
      {ReallocCdt, 0, [] { return static_cast<const void*>(model.cdt); }},
      {ReallocCXY, 0, [] { return static_cast<const void*>(model.cxy); }},
      {ReallocVtx, 0, [] { return static_cast<const void*>(model.vtx); }},
      {ReallocFdt, 0, [] { return static_cast<const void*>(model.fdt); }},
      {ReallocTXY, -1, [] { return static_cast<const void*>(model.gtx); }},
  };
  for (const int32_t size : {-1, INT32_MIN, INT32_MAX}) {
    addNodes(2), addPipe(1, 2), addCust(1, 0, 0), addVtx(vtxRecord(1, 0)), addFtg(ftgRecord(1, "tee")), addText("t");
    for (const auto& row : rows) {
      EXPECT_EQ(row.grow(size), row.failure) << size;
      EXPECT_EQ(row.table(), nullptr) << size;
    }
    EXPECT_EQ(nodeTop(), -1);
    EXPECT_EQ(textTop(), 0);
    EXPECT_EQ(GetLastNdt() + GetLastPdt() + GetLastCdt(), 0);
    FreeModel();
    model.ftgCount = model.textCount = 0;
  }
}

}  // namespace
}  // namespace pn10::test
