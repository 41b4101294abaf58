/** Copies of records, and of a pipe with its fittings. */
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct Copy : testing::Test {
  Fresh fresh;
  /** Pipe 1 with id 7 and `count` fittings counted, pipe 2 free. */
  void twoPipes(int count) {
    addPipe(pipeRecord(7, 1, 2));
    addPipe(pipeRecord(8, 0, 0));
    model.pdt[1].FTG_COUNT = static_cast<uint8_t>(count);
    model.pdt[1].FTG_EQ_LENGTH = 12.5f;
  }
};

template <class Record>
bool same(const Record& a, const Record& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST_F(Copy, takes_whole_records_and_answers_its_kept_results) {
  addNode(everyNodeField(1)), addNode(0, 0);
  addCust(everyCustField(1)), addCust(0, 0, 0);
  addVtx(vtxRecord(3, 2, 1, 2, 3)), addVtx(Vtx{});
  addFtg(ftgRecord(9, "tee", 1, 2, 3)), addFtg(Fdt{});
  EXPECT_EQ(CopyNdt(1, 2), 1);
  CopyCdt(1, 2);
  CopyVtx(1, 2);
  EXPECT_EQ(CopyFdt(1, 2), 1);
  EXPECT_TRUE(same(model.ndt[2], everyNodeField(1)));
  EXPECT_TRUE(same(model.cdt[2], everyCustField(1)));
  EXPECT_TRUE(same(model.vtx[2], model.vtx[1]));
  EXPECT_TRUE(same(model.fdt[2], model.fdt[1]));
  EXPECT_EQ(model.fdt[2].FTG_FLAG, 3);
}

TEST_F(Copy, takes_whole_screen_records_and_answers_minus_1) {
  addNodes(2), addPipe(1, 2), addPipe(2, 1), addCust(1, 0, 0), addCust(1, 0, 0);
  model.nxy[1] = {1, 2, 3, 4, 5, 6, 7, 8};
  model.pxy[1] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13.5f, 14};
  model.cxy[1] = {1, 2, 3, 4, 5, 6, 7, 8.5f, 9, 10.5f, 11};
  EXPECT_EQ(CopyNXY(1, 2), -1);
  EXPECT_EQ(CopyPXY(1, 2), -1);
  EXPECT_EQ(CopyCXY(1, 2), -1);
  EXPECT_TRUE(same(model.nxy[2], model.nxy[1]));
  EXPECT_EQ(model.pxy[2].LENGTH, 13.5f);
  EXPECT_EQ(model.pxy[2].TraceColor, 14);
  EXPECT_TRUE(same(model.cxy[2], model.cxy[1]));
}

TEST_F(Copy, numbers_without_a_slot_copy_nothing_and_answer_the_same) {
  addNodes(1);
  for (const int32_t bad : {-1, 2, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(CopyNdt(bad, 1), 1);
    EXPECT_EQ(CopyNdt(1, bad), 1);
    EXPECT_EQ(CopyFdt(1, bad), 1);
    EXPECT_EQ(CopyNXY(bad, 1), -1);
    EXPECT_EQ(CopyPXY(1, bad), -1);
    EXPECT_EQ(CopyCXY(1, bad), -1);
    EXPECT_EQ(CopyPdt(1, bad, 1, 5), -1);
    CopyCdt(1, bad);
    CopyVtx(bad, 1);
  }
  EXPECT_STREQ(model.ndt[1].NODENAME, "N1");
}

TEST_F(Copy, a_pipe_without_its_fittings_keeps_their_length) {
  twoPipes(3);
  EXPECT_EQ(CopyPdt(1, 2, 0, 20), -1);
  EXPECT_EQ(model.pdt[2].ID, 20);
  EXPECT_EQ(model.pdt[2].FROM_NODE, 1);
  EXPECT_EQ(model.pdt[2].FTG_COUNT, 0);
  EXPECT_EQ(model.pdt[2].FTG_EQ_LENGTH, 12.5f);
  EXPECT_EQ(model.pdt[1].FTG_COUNT, 3);
}

TEST_F(Copy, a_new_id_of_0_keeps_the_id) {
  twoPipes(0);
  CopyPdt(1, 2, 0, 0);
  EXPECT_EQ(model.pdt[2].ID, 7);
}

TEST_F(Copy, a_pipe_takes_as_many_fittings_as_it_counts_behind_the_last_one) {
  twoPipes(3);
  for (int i = 1; i <= 5; i++)
    addFtg(ftgRecord(i == 2 ? 99 : 7, "f" + std::to_string(i), i, 0.5f * static_cast<float>(i), 4));
  EXPECT_EQ(CopyPdt(1, 2, 1, 20), -1); /* fittings 1, 3, 4 and 5 are of the pipe, three are counted */
  ASSERT_EQ(model.ftgCount, 8);
  const int from[] = {1, 3, 4};
  for (int i = 0; i < 3; i++) {
    const Fdt& copy = model.fdt[6 + i];
    EXPECT_EQ(copy.FTG_PIPE_ID, 20);
    EXPECT_STREQ(copy.FTG_NAME, model.fdt[from[i]].FTG_NAME);
    EXPECT_EQ(copy.FTG_NUM, from[i]);
    EXPECT_EQ(copy.FTG_EQL, 0.5f * static_cast<float>(from[i]));
    EXPECT_EQ(copy.FTG_FLAG, 0); /* not copied */
  }
  EXPECT_EQ(model.pdt[2].FTG_COUNT, 3);
}

TEST_F(Copy, missing_fittings_leave_empty_slots) {
  twoPipes(3);
  addFtg(ftgRecord(7, "only"));
  CopyPdt(1, 2, 1, 20);
  EXPECT_EQ(model.ftgCount, 4);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 20);
  EXPECT_EQ(model.fdt[3].FTG_PIPE_ID + model.fdt[4].FTG_PIPE_ID, 0);
}

TEST_F(Copy, copies_of_fittings_carry_the_new_id_also_when_it_is_0) {
  twoPipes(1);
  addFtg(ftgRecord(7, "tee", 5));
  CopyPdt(1, 2, 1, 0);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 0);
  EXPECT_EQ(model.fdt[2].FTG_NUM, 5);
}

TEST_F(Copy, other_values_leave_count_and_fittings_alone) {
  for (const int16_t fittings : {int16_t{2}, int16_t{-1}}) {
    FreeModel();
    twoPipes(2);
    CopyPdt(1, 2, fittings, 20);
    EXPECT_EQ(model.pdt[2].FTG_COUNT, 2);
    EXPECT_EQ(model.fdt, nullptr);
  }
}

TEST_F(Copy, a_pipe_that_counts_no_fittings_does_not_touch_their_table) {
  twoPipes(0);
  addFtg(ftgRecord(7, "tee"));
  CopyPdt(1, 2, 1, 20);
  EXPECT_EQ(model.ftgCount, 1);
}

}  // namespace
}  // namespace pn10::test
