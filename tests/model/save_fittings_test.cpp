/** SavePipe: the fittings of the pipes, and pipes whose fittings are missing. */
#include "lookup/lookup.h"
#include "model/saved.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

TEST_F(SaveTest, fittings_follow_their_pipes_behind_four_zero_bytes) {
  addNodes(2);
  for (int i = 0; i < 3; i++) addPipe(1, 2);
  for (int32_t id : {3, 1, 3, 0, 2, 3, 1}) addFtg(ftgRecord(id, "F" + std::to_string(model.ftgCount + 1)));
  model.pdt[1].FTG_COUNT = 2;
  model.pdt[3].FTG_COUNT = 2;  // the third one of this pipe is left out, those of pipe 2 too
  save();
  EXPECT_EQ(file(".fdt"), fileOf({ftgRecord(1, "F2"), ftgRecord(1, "F7"), ftgRecord(3, "F1"), ftgRecord(3, "F3")}));
}

TEST_F(SaveTest, a_pipe_with_missing_fittings_is_put_right_in_memory_and_on_file) {
  addNodes(2);
  for (int i = 0; i < 3; i++) addPipe(1, 2);
  for (int32_t id : {9, 2, 1, 2}) addFtg(ftgRecord(id, "F"));
  for (int32_t p = 1; p <= 3; p++) {
    model.pdt[p].FTG_COUNT = 2;
    model.pdt[p].FTG_EQ_LENGTH = 5;
  }
  save();
  EXPECT_EQ(model.pdt[1].FTG_COUNT, 1);
  EXPECT_EQ(model.pdt[1].FTG_EQ_LENGTH, -3.0f);  // record 3 is no row of the empty lookup
  EXPECT_EQ(model.pdt[2].FTG_COUNT, 2);
  EXPECT_EQ(model.pdt[2].FTG_EQ_LENGTH, 5.0f);  // complete: left alone
  EXPECT_EQ(model.pdt[3].FTG_COUNT, 0);
  EXPECT_EQ(model.pdt[3].FTG_EQ_LENGTH, 0.0f);
  std::vector<Pdt> expected(model.pdt + 1, model.pdt + 4);
  EXPECT_EQ(file(".pdt"), fileOf(expected));
}

TEST_F(SaveTest, fittings_without_a_table_are_forgotten) {
  addNodes(2);
  addPipe(1, 2);
  model.pdt[1].FTG_COUNT = 2;
  model.pdt[1].FTG_EQ_LENGTH = 5;
  save();
  EXPECT_EQ(model.pdt[1].FTG_COUNT, 0);
  EXPECT_EQ(model.pdt[1].FTG_EQ_LENGTH, 0.0f);
  EXPECT_EQ(file(".pdt"), fileOf({pipeRecord(1, 1, 2)}));
  EXPECT_EQ(file(".fdt"), "");
}

TEST_F(SaveTest, the_record_number_of_a_fitting_stands_for_the_lookup_row) {
  lookups.flut.rows = newTable<FLut>(3);
  lookups.flut.count = 3;
  lookups.flut.rows[2] = FLut{};
  lookups.flut.rows[2].REF_D = 4;
  lookups.flut.rows[2].EQ_LENGTH = 0;
  addNodes(2);
  addPipe(1, 2);
  for (int32_t id : {0, 1, 0, 1}) addFtg(ftgRecord(id, "F"));
  model.pdt[1].FTG_COUNT = 3;
  save();
  EXPECT_EQ(model.pdt[1].FTG_EQ_LENGTH, -5.0f);  // row 2 has no length: -2; row 4 is above the lookup: -3
  releaseTable(lookups.flut.rows);
  lookups.flut.count = 0;
}

TEST_F(SaveTest, the_sum_of_lengths_goes_by_the_magnitude_of_the_equation) {
  lookups.flut.rows = newTable<FLut>(2);
  lookups.flut.count = 2;
  std::strcpy(lookups.flut.rows[2].KEY_TEXT, "TEE");
  lookups.flut.rows[2].REF_D = 8;
  lookups.flut.rows[1].REF_D = 4;
  lookups.flut.rows[1].EQ_LENGTH = 3;
  addNodes(2);
  addPipe(1, 2);
  model.pdt[1].HYD_TYPE = 5;
  std::strcpy(model.pdt[1].SIZE_TYPE, "TEE");
  model.pdt[1].EQUATION = -39;
  addFtg(ftgRecord(1, "F"));
  model.pdt[1].FTG_COUNT = 2;
  save();
  EXPECT_EQ(model.pdt[1].FTG_EQ_LENGTH, 48.0f);  // 3 x (8 / 4) to the 4th
  EXPECT_EQ(model.pdt[1].FTG_COUNT, 1);
  releaseTable(lookups.flut.rows);
  lookups.flut.count = 0;
}

}  // namespace
}  // namespace pn10::test
