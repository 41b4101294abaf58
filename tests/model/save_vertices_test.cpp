/** SavePipe: the runs, arcs and service lines of the vertex file. */
#include "model/saved.h"
#include "model/tables.h"

namespace pn10::test {
namespace {

TEST_F(SaveTest, the_vertex_file_needs_a_screen_table_of_pipes_or_customers) {
  addNodes(1);
  save();
  EXPECT_FALSE(dir.exists("model.vtx"));
  ReallocCXY(0);
  save();
  EXPECT_TRUE(dir.exists("model.vtx"));
}

TEST_F(SaveTest, runs_and_arcs_follow_each_other_in_the_vertex_file) {
  addNodes(2);
  for (int i = 0; i < 4; i++) addPipe(1, 2);
  addRun(3, {{5, 6, 7}, {8, 9}});
  addArc(2, 100, 0.5);
  addRun(1, {{1, 2}, {3, 4}, {4, 4}});
  model.pdt[2].VTX_MODE = 2;
  model.pdt[2].VTX_LAST = 77;
  model.pdt[4].VTX_FIRST = 88;
  model.pdt[4].VTX_LAST = 99;
  save();
  EXPECT_EQ(file(".vtx"), fileOf({vtxRecord(1, 0, 1, 2), vtxRecord(1, 0, 3, 4), vtxRecord(1, 0, 4, 4),
                                  vtxRecord(2, 8, 100, 0.5), vtxRecord(3, 0, 5, 6, 7), vtxRecord(3, 0, 8, 9)}));
  std::vector<Pdt> expected;
  const struct {
    int mode;
    int32_t first, last;
  } rows[] = {{4, 1, 3}, {2, 4, 77}, {4, 5, 6}, {0, 88, 99}};
  for (const auto& row : rows) {
    Pdt pipe = pipeRecord(static_cast<int32_t>(expected.size()) + 1, 1, 2, row.mode);
    pipe.VTX_FIRST = row.first;
    pipe.VTX_LAST = row.last;
    expected.push_back(pipe);
  }
  EXPECT_EQ(file(".pdt"), fileOf(expected));
  EXPECT_EQ(model.pdt[1].VTX_FIRST, 0);  // memory keeps what it had
}

TEST_F(SaveTest, an_empty_run_names_the_next_vertex_and_an_arc_without_a_vertex_writes_slot_0) {
  addNodes(2);
  addPipe(1, 2);
  addPipe(1, 2);
  model.pdt[1].VTX_MODE = 4;
  model.pdt[2].VTX_MODE = 1;
  save();
  EXPECT_EQ(file(".vtx"), fileOf({Vtx{}}));
  Pdt run = model.pdt[1], arc = model.pdt[2];
  run.FROM_NODE = arc.FROM_NODE = 1;
  run.VTX_FIRST = arc.VTX_FIRST = 1;
  run.VTX_LAST = 0;
  EXPECT_EQ(file(".pdt"), fileOf({run, arc}));
}

TEST_F(SaveTest, vertex_numbers_outside_the_table_write_nothing_of_it) {
  addNodes(2);
  addPipe(1, 2);
  addRun(1, {{1, 2}});
  model.pxy[1].LAST_VTX = INT32_MAX;
  addPipe(1, 2);
  model.pdt[2].VTX_MODE = 1;
  model.pxy[2].LAST_VTX = -5;
  EXPECT_EQ(save(), 2);
  EXPECT_EQ(file(".vtx"), fileOf({vtxRecord(1, 0, 1, 2), Vtx{}}));
}

TEST_F(SaveTest, service_lines_follow_the_vertices_of_the_pipes) {
  addNodes(2);
  addPipe(1, 2);
  addCust(1, 1, 1);
  addCust(1, 2, 2);
  addService(2, {{7, 7}, {8, 8}});
  addService(1, {{9, 9}});
  addRun(1, {{1, 2}});
  save();
  EXPECT_EQ(file(".vtx"),
            fileOf({vtxRecord(1, 0, 1, 2), vtxRecord(1, 1, 9, 9), vtxRecord(2, 1, 7, 7), vtxRecord(2, 1, 8, 8)}));
}

}  // namespace
}  // namespace pn10::test
