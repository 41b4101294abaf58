/** Counters, last live records, change marks, addresses. */
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct Counters : testing::Test {
  Fresh fresh;
};

TEST_F(Counters, next_ids_and_counts_go_up_by_one_and_come_back) {
  struct {
    int32_t (*next)();
    int32_t& counter;
  } rows[] = {{GetNextNid, model.lastNodeId},   {GetNextPid, model.lastPipeId},   {GetNextCid, model.lastCustId},
              {GetNextNdtCnt, model.nodeCount}, {GetNextPdtCnt, model.pipeCount}, {GetNextCdtCnt, model.custCount},
              {GetNextVtxCnt, model.vtxCount}};
  for (const auto& row : rows) {
    row.counter = 41;
    EXPECT_EQ(row.next(), 42);
    EXPECT_EQ(row.counter, 42);
  }
}

TEST_F(Counters, the_next_node_number_goes_by_steps) {
  model.lastNodeName = 100;
  EXPECT_EQ(GetNextNode(10), 110);
  EXPECT_EQ(GetNextNode(-20), 90);
}

TEST_F(Counters, a_counter_at_the_limit_wraps_around) {
  model.lastNodeId = INT32_MAX;
  EXPECT_EQ(GetNextNid(), INT32_MIN);
}

TEST_F(Counters, the_last_record_is_sought_one_below_the_count) {
  addNodes(1);
  EXPECT_EQ(GetLastNdt(), 0); /* live, but the top record is not looked at */
  addNodes(2);
  DelNode(2);
  EXPECT_EQ(GetLastNdt(), 1);
  DelNode(1);
  EXPECT_EQ(GetLastNdt(), 0);
}

TEST_F(Counters, the_last_pipe_and_customer_follow_the_same_rule) {
  addPipe(0, 0), addPipe(0, 0), addPipe(0, 0);
  addCust(0, 0, 0), addCust(0, 0, 0), addCust(0, 0, 0);
  EXPECT_EQ(GetLastPdt(), 2);
  EXPECT_EQ(GetLastCdt(), 2);
  DelPipe(2), DelCust(2);
  EXPECT_EQ(GetLastPdt(), 1);
  EXPECT_EQ(GetLastCdt(), 1);
}

TEST_F(Counters, only_a_status_of_minus_1_is_deleted_there) {
  addNodes(3);
  model.ndt[2].REC_STATUS = -2;
  EXPECT_EQ(GetLastNdt(), 2);
}

TEST_F(Counters, a_count_beyond_the_table_is_no_way_out_of_it) {
  addNodes(2);
  model.nodeCount = 1000000;
  EXPECT_EQ(GetLastNdt(), 2);
  model.pipeCount = 5; /* and there is no pipe table */
  EXPECT_EQ(GetLastPdt(), 0);
}

TEST_F(Counters, the_change_mark_is_the_record_status) {
  addNodes(1), addPipe(1, 1), addCust(1, 0, 0);
  model.ndt[1].REC_STATUS = -1;
  model.pdt[1].REC_STATUS = 3;
  model.cdt[1].REC_STATUS = -32768;
  EXPECT_EQ(GetNdtChanged(1), -1);
  EXPECT_EQ(GetPdtChanged(1), 3);
  EXPECT_EQ(GetCdtChanged(1), -32768);
  for (const int32_t bad : {-1, 2, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(GetNdtChanged(bad), 0);
    EXPECT_EQ(GetPdtChanged(bad), 0);
    EXPECT_EQ(GetCdtChanged(bad), 0);
  }
}

TEST_F(Counters, addresses_are_those_of_slot_0_and_0_without_a_table) {
  EXPECT_EQ(GetNdtAddress(), 0);
  EXPECT_EQ(GetPdtAddress(), 0);
  EXPECT_EQ(GetCdtAddress(), 0);
  EXPECT_EQ(GetPXYAddress(), 0);
  addNodes(1), addPipe(1, 1), addCust(1, 0, 0);
  EXPECT_STREQ(reinterpret_cast<const Ndt*>(GetNdtAddress())[1].NODENAME, "N1");
  EXPECT_EQ(reinterpret_cast<const Pdt*>(GetPdtAddress())[1].ID, 1);
  EXPECT_EQ(reinterpret_cast<const Cdt*>(GetCdtAddress())[1].PIPE_REC, 1);
  EXPECT_EQ(reinterpret_cast<const PXY*>(GetPXYAddress())[1].Color, -1);
}

}  // namespace
}  // namespace pn10::test
