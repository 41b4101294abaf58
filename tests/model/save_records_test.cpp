/** SavePipe: which nodes, pipes and customers are written, and under which numbers. */
#include "model/saved.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

TEST_F(SaveTest, without_any_record_nothing_is_touched) {
  dir.write("model.ndt", "old");
  EXPECT_EQ(save(), 0);
  EXPECT_EQ(dir.read("model.ndt"), "old");
  EXPECT_FALSE(dir.exists("model.ndt.bak"));
}

TEST_F(SaveTest, nodes_get_numbers_in_the_order_in_which_live_pipes_meet_them) {
  addNodes(4);
  addPipe(3, 1);
  addPipe(1, 4);
  EXPECT_EQ(save(), 2);
  EXPECT_EQ(file(".ndt"), fileOf({model.ndt[3], model.ndt[1], model.ndt[4]}));
  EXPECT_EQ(file(".pdt"), fileOf({pipeRecord(1, 1, 2), pipeRecord(2, 2, 3)}));
}

TEST_F(SaveTest, every_column_of_the_records_reaches_the_file) {
  addNode(everyNodeField(1));
  addNode(everyNodeField(2));
  model.ndt[1].HAS_RDX = model.ndt[2].HAS_RDX = 0;
  Pdt pipe = everyPipeField(3);
  pipe.FROM_NODE = 2;
  pipe.TO_NODE = 1;
  pipe.VTX_MODE = 0;
  pipe.FTG_COUNT = 0;
  addPipe(pipe);
  Cdt cust = everyCustField(4);
  cust.PIPE_REC = 1;
  addCust(cust);
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(file(".ndt"), fileOf({model.ndt[2], model.ndt[1]}));
  pipe.FROM_NODE = 1;
  pipe.TO_NODE = 2;
  EXPECT_EQ(file(".pdt"), fileOf({pipe}));
  EXPECT_EQ(file(".cdt"), fileOf({cust}));
}

TEST_F(SaveTest, a_node_that_no_live_pipe_uses_is_left_out) {
  addNodes(3);
  model.ndt[3].QB_LOAD = 500;
  addPipe(1, 2);
  addPipe(2, 3);
  DelPipe(2);
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(file(".ndt"), fileOf({model.ndt[1], model.ndt[2]}));
  EXPECT_EQ(file(".pdt"), fileOf({pipeRecord(1, 1, 2)}));
}

TEST_F(SaveTest, a_deleted_node_of_a_live_pipe_is_saved_as_live) {
  addNodes(2);
  addPipe(1, 2);
  DelNode(2);
  save();
  Ndt back = model.ndt[2];
  back.REC_STATUS = 1;
  EXPECT_EQ(file(".ndt"), fileOf({model.ndt[1], back}));
  EXPECT_EQ(model.ndt[2].REC_STATUS, -1);
}

TEST_F(SaveTest, nodes_alone_give_0_and_empty_files) {
  addNodes(2);
  EXPECT_EQ(save(), 0);
  for (const char* extension : kExtensions) {
    if (std::string(extension) == ".vtx") continue;
    EXPECT_TRUE(dir.exists(std::string("model") + extension)) << extension;
    EXPECT_EQ(file(extension), "");
  }
}

TEST_F(SaveTest, a_pipe_of_node_0_saves_the_empty_record) {
  addNodes(1);
  addPipe(0, 1);
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(file(".ndt"), fileOf({Ndt{}, model.ndt[1]}));
}

TEST_F(SaveTest, a_node_out_of_range_becomes_0_so_that_the_file_can_be_read) {
  addNodes(1);
  addPipe(1, 2);
  addPipe(-3, INT32_MAX);
  EXPECT_EQ(save(), 2);
  EXPECT_EQ(file(".ndt"), fileOf({model.ndt[1]}));
  EXPECT_EQ(file(".pdt"), fileOf({pipeRecord(1, 1, 0), pipeRecord(2, 0, 0)}));
}

TEST_F(SaveTest, customers_follow_their_pipes_to_the_new_numbers) {
  addNodes(2);
  for (int i = 0; i < 3; i++) addPipe(1, 2);
  DelPipe(1);
  addCust(3, 1, 1);
  addCust(1, 2, 2);  // on a deleted pipe: dropped
  addCust(0, 3, 3);  // on no pipe: stays
  addCust(2, 4, 4);
  DelCust(4);
  addCust(9, 5, 5);  // on a pipe that is not there: dropped
  addCust(-1, 6, 6);
  save();
  EXPECT_EQ(file(".cdt"), fileOf({custRecord(1, 2, 1, 1), custRecord(3, 0, 3, 3)}));
  EXPECT_EQ(model.cdt[1].PIPE_REC, 3);
}

TEST_F(SaveTest, without_pipes_every_live_customer_is_saved_without_a_pipe) {
  addCust(0, 1, 1);
  addCust(7, 2, 2);
  addCust(0, 3, 3);
  DelCust(3);
  EXPECT_EQ(save(), 0);
  EXPECT_EQ(file(".cdt"), fileOf({custRecord(1, 0, 1, 1), custRecord(2, 0, 2, 2)}));
}

TEST_F(SaveTest, counts_above_the_tables_write_the_tables) {
  addNodes(2);
  addPipe(1, 2);
  addCust(1, 1, 1);
  model.nodeCount = model.pipeCount = model.custCount = model.ftgCount = model.vtxCount = INT32_MAX;
  EXPECT_EQ(save(), 1);
  EXPECT_EQ(file(".pdt"), fileOf({pipeRecord(1, 1, 2)}));
}

TEST_F(SaveTest, a_count_without_a_table_gives_empty_files) {
  model.pipeCount = 5;
  model.custCount = -5;
  EXPECT_EQ(save(), 0);
  EXPECT_EQ(file(".pdt"), "");
}

}  // namespace
}  // namespace pn10::test
