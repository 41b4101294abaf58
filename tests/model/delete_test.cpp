/** Deletes: what is marked, what is left, where walks end. */
#include "exports/pn10platform.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct Delete : testing::Test {
  Fresh fresh;
  /** Nodes 1-2-3-4 in a row, pipes 1, 2, 3 between them. */
  void chain() {
    addNodes(4);
    for (int p = 1; p <= 3; p++) addPipe(p, p + 1);
  }
  std::string deletedNodes() {
    std::string all;
    for (int n = 0; n <= model.nodeCount; n++) {
      if (model.ndt[n].REC_STATUS == -1) all += std::to_string(n) + " ";
    }
    return all;
  }
  std::string deletedCusts() {
    std::string all;
    for (int c = 1; c <= model.custCount; c++) {
      if (model.cdt[c].REC_STATUS == -1) all += std::to_string(c) + " ";
    }
    return all;
  }
};

TEST_F(Delete, marks_one_record_and_nothing_else) {
  chain();
  addCust(1, 0, 0);
  Ndt node = model.ndt[2];
  DelNode(2), DelPipe(1), DelCust(1);
  node.REC_STATUS = -1;
  EXPECT_EQ(std::memcmp(&node, &model.ndt[2], sizeof node), 0);
  EXPECT_EQ(model.pdt[1].REC_STATUS, -1);
  EXPECT_EQ(model.cdt[1].REC_STATUS, -1);
  EXPECT_EQ(model.nodeCount, 4);
  for (const int32_t bad : {-1, 99, INT32_MAX, INT32_MIN}) DelNode(bad), DelPipe(bad), DelCust(bad);
  EXPECT_EQ(deletedNodes(), "2 ");
}

TEST_F(Delete, a_pipe_takes_the_nodes_that_no_live_pipe_touches) {
  chain();
  EXPECT_EQ(DelPipePXY(1, 1, 0, -1), 1);
  EXPECT_EQ(model.pdt[1].REC_STATUS, -1);
  EXPECT_EQ(deletedNodes(), "1 "); /* node 2 hangs on pipe 2 */
  DelPipePXY(2, 1, 0, -1);
  EXPECT_EQ(deletedNodes(), "1 2 ");
}

TEST_F(Delete, the_last_pipe_takes_both_its_nodes) {
  addNodes(2);
  addPipe(1, 2);
  DelPipePXY(1, 1, 0, -1);
  EXPECT_EQ(deletedNodes(), "1 2 ");
}

TEST_F(Delete, a_pipe_that_stays_live_still_counts_at_its_nodes) {
  chain();
  EXPECT_EQ(DelPipePXY(1, 1, 0, 0), 1);
  EXPECT_EQ(deletedNodes(), "");
  DelPipePXY(1, 1, 0, 5);
  EXPECT_EQ(model.pdt[1].REC_STATUS, 5);
  EXPECT_EQ(deletedNodes(), "");
}

TEST_F(Delete, without_the_flag_the_nodes_stay) {
  chain();
  DelPipePXY(1, 0, 0, -1);
  EXPECT_EQ(deletedNodes(), "");
}

TEST_F(Delete, any_negative_status_counts_as_deleted_there) {
  chain();
  model.pdt[2].REC_STATUS = -7;
  DelPipePXY(1, 1, 0, -1);
  EXPECT_EQ(deletedNodes(), "1 2 ");
}

TEST_F(Delete, a_pipe_without_nodes_leaves_slot_0_empty) {
  addNodes(1);
  addPipe(0, 0);
  DelPipePXY(1, 1, 0, -1);
  EXPECT_EQ(deletedNodes(), "");
}

TEST_F(Delete, the_customers_of_a_pipe_go_until_its_count_is_reached) {
  chain();
  for (const int pipe : {1, 2, 1, 1, 1}) addCust(pipe, 0, 0);
  model.pdt[1].CUST_COUNT = 2;
  DelPipePXY(1, 0, 1, -1);
  EXPECT_EQ(deletedCusts(), "1 3 ");
}

TEST_F(Delete, a_count_of_0_lets_all_customers_of_the_pipe_go) {
  chain();
  for (const int pipe : {1, 2, 1}) addCust(pipe, 0, 0);
  DelPipePXY(1, 0, 1, -1);
  EXPECT_EQ(deletedCusts(), "1 3 ");
}

TEST_F(Delete, shows_the_wait_cursor_and_puts_the_old_one_back) {
  chain();
  EXPECT_EQ(only(recorded([] { DelPipePXY(1, 1, 1, -1); }), {"SetCursor"}),
            "SetCursor 32514\n"
            "SetCursor 32512\n"); /* the hourglass, then the arrow that was there */
}

TEST_F(Delete, a_bad_pipe_number_is_harmless) {
  chain();
  for (const int32_t bad : {-1, 99, INT32_MAX, INT32_MIN}) EXPECT_EQ(DelPipePXY(bad, 1, 1, -1), 1);
  EXPECT_EQ(deletedNodes(), "");
}

TEST_F(Delete, a_pipe_whose_nodes_are_out_of_range_is_harmless) {
  addNodes(2);
  addPipe(-5, 70000);
  EXPECT_EQ(DelPipePXY(1, 1, 1, -1), 1);
  EXPECT_EQ(deletedNodes(), "");
}

TEST_F(Delete, legend_texts_of_a_type_are_marked_from_a_row_on) {
  for (const int group : {4, 4, 5, 4}) addText("t", 0, 0, group);
  EXPECT_EQ(DelLegend(2, 4), 2);
  EXPECT_EQ(model.gtx[1].Deleted, 0);
  EXPECT_EQ(model.gtx[2].Deleted, 1);
  EXPECT_EQ(model.gtx[3].Deleted, 0);
  EXPECT_EQ(model.gtx[4].Deleted, 1);
  EXPECT_EQ(DelLegend(5, 4), 0);
  EXPECT_EQ(DelLegend(-3, 0), 0); /* slot 0 is no row */
  model.textCount = 1000;
  EXPECT_EQ(DelLegend(1, 5), 1);
}

TEST_F(Delete, graphics_of_a_type_are_marked_from_a_row_on) {
  EXPECT_EQ(DelBOM(1, 0), 0);
  for (const int group : {4, 4, 5, 4}) addUgd(1, 0, 0, 1, 1, group);
  EXPECT_EQ(DelBOM(1, 4), 3);
  EXPECT_EQ(model.ugd[3].Deleted, 0);
  EXPECT_EQ(DelBOM(4, 4), 1); /* marked ones count again */
  EXPECT_EQ(DelBOM(INT32_MAX, 4), 0);
}

TEST_F(Delete, a_text_goes_by_its_number_slot_0_included) {
  addText("one"), addText("two");
  EXPECT_EQ(DelTXY(0), 1);
  EXPECT_EQ(DelTXY(2), 1);
  EXPECT_EQ(DelTXY(3), 0);
  EXPECT_EQ(DelTXY(-1), 0);
  EXPECT_EQ(model.gtx[1].Deleted, 0);
  EXPECT_EQ(model.gtx[2].Deleted, 1);
}

TEST_F(Delete, slot_0_of_no_text_table_is_accepted_too) { EXPECT_EQ(DelTXY(0), 1); }

TEST_F(Delete, a_text_moves) {
  addText("one", 1, 2);
  EXPECT_EQ(MoveTXY(1, 3.5, -4.5), 1);
  EXPECT_EQ(model.gtx[1].X, 3.5);
  EXPECT_EQ(model.gtx[1].Y, -4.5);
  for (const int32_t bad : {-1, 99, INT32_MAX, INT32_MIN}) EXPECT_EQ(MoveTXY(bad, 0, 0), 1);
}

TEST_F(Delete, a_killed_vertex_has_no_owner) {
  addVtx(vtxRecord(5, 2, 1, 1));
  EXPECT_EQ(KillVtx(1), -1);
  EXPECT_EQ(model.vtx[1].VTX_OWNER, 0);
  EXPECT_EQ(model.vtx[1].VTX_KIND, 2);
  for (const int32_t bad : {-1, 99, INT32_MAX, INT32_MIN}) EXPECT_EQ(KillVtx(bad), -1);
}

}  // namespace
}  // namespace pn10::test
