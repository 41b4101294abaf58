/** Binding compared with a plain transcription of the two-pass rule, on vertex files in any order. */
#include <algorithm>
#include <random>

#include "model/bind_vertices.h"
#include "support/model_builder.h"

namespace pn10::test {
namespace {

/** The rule as it is told, one record after the other; table and pipes are vectors with a slot 0. */
struct PlainBinder {
  std::vector<Vtx> vtx;
  int32_t start, end, count;

  explicit PlainBinder(std::vector<Vtx> table) : vtx(std::move(table)) {
    count = static_cast<int32_t>(vtx.size()) - 1;
    start = 1;
    end = count;
  }

  void bindRun(Pdt& pipe, PXY& screen) {
    for (int pass = 1; pass <= 2; pass++) {
      bool found = false;
      for (int32_t i = start; i <= end; i++) {
        const Vtx& v = vtx[static_cast<size_t>(i)];
        if (v.VTX_OWNER == 0 || (v.VTX_KIND != 0 && v.VTX_KIND != 2)) continue;
        if (v.VTX_OWNER == pipe.ID) {
          if (!found) screen.FIRST_VTX = i;
          screen.LAST_VTX = i;
          found = true;
        } else if (found) {
          start = i;
          end = count;
          return;
        }
      }
      if (found) return;
      if (pass == 1 && !otherPart()) break;
    }
    pipe.VTX_MODE = 0;
  }

  void bindVertex(Pdt& pipe, PXY& screen) {
    for (int pass = 1; pass <= 2; pass++) {
      for (int32_t i = start; i <= end; i++) {
        Vtx& v = vtx[static_cast<size_t>(i)];
        if (v.VTX_OWNER == 0 || (v.VTX_KIND != 0 && v.VTX_KIND != 2 && v.VTX_KIND != 8)) continue;
        if (v.VTX_OWNER != pipe.ID) continue;
        if (v.VTX_X != 0 || v.VTX_Y != 0) {
          screen.FIRST_VTX = 0;
          screen.LAST_VTX = i;
          v.VTX_KIND = 8;
        }
        start = i;
        end = count;
        return;
      }
      if (pass == 1 && !otherPart()) break;
    }
    pipe.VTX_MODE = 0;
  }

  bool otherPart() {
    if (start < 2 && end >= count) return false;
    if (start < 2) {
      start = end + 1;
      end = count;
    } else {
      end = start - 1;
      start = 1;
    }
    return true;
  }
};

/** Loads the files and compares every pipe and every vertex with the plain rule. */
void expectPlainBinding(const std::vector<Vtx>& vtxs, const std::vector<Pdt>& pipes, const std::string& what) {
  TempDir dir;
  dir.write("model.ndt", "");
  dir.write("model.vtx", fileOf(vtxs));
  dir.write("model.pdt", fileOf(pipes));
  ReadVtx(dir.base().c_str(), 0);
  ReadNdt(dir.base().c_str(), 0, 10.1f);
  ASSERT_GE(ReadPdt(dir.base().c_str(), 0, "", 0), 0);

  std::vector<Vtx> table = vtxs;
  table.insert(table.begin(), Vtx{});
  PlainBinder plain(table);
  for (size_t p = 1; p <= pipes.size(); p++) {
    Pdt pipe = pipes[p - 1];
    PXY screen{};
    if (pipe.VTX_MODE == 4) plain.bindRun(pipe, screen);
    if (pipe.VTX_MODE == 1 || pipe.VTX_MODE == 2) plain.bindVertex(pipe, screen);
    ASSERT_EQ(model.pxy[p].FIRST_VTX, screen.FIRST_VTX) << what << ", pipe " << p;
    ASSERT_EQ(model.pxy[p].LAST_VTX, screen.LAST_VTX) << what << ", pipe " << p;
    ASSERT_EQ(model.pdt[p].VTX_MODE, pipe.VTX_MODE) << what << ", pipe " << p;
  }
  for (size_t v = 1; v < plain.vtx.size(); v++) {
    ASSERT_EQ(model.vtx[v].VTX_KIND, plain.vtx[v].VTX_KIND) << what << ", vertex " << v;
  }
  FreeModel();
}

struct Bind : testing::Test {
  Fresh fresh;
};

TEST_F(Bind, random_tables_bind_by_the_plain_rule) {
  for (unsigned seed = 1; seed <= 400; seed++) {
    std::mt19937 random(seed);
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const int owners = 1 + below(40);
    std::vector<Vtx> vtxs;
    const int count = below(500);
    while (static_cast<int>(vtxs.size()) < count) { /* runs of one owner, with strangers between */
      const int owner = below(owners + 1);
      const int kind = below(4) == 0 ? below(9) : below(2) * 2;
      for (int i = below(6); i >= 0; i--) vtxs.push_back(vtxRecord(owner, kind, below(3), below(2)));
    }
    if (seed % 3 == 0) std::shuffle(vtxs.begin(), vtxs.end(), random);
    std::vector<Pdt> pipes;
    const int modes[] = {0, 1, 2, 4, 4, 4, 4, 3};
    for (int p = below(90); p >= 0; p--) pipes.push_back(pipeRecord(below(owners + 3), 0, 0, modes[below(8)]));
    expectPlainBinding(vtxs, pipes, "seed " + std::to_string(seed));
    if (HasFatalFailure()) return;
  }
}

/** Pipes of four vertices each, the runs in an order made by `shuffle`. */
struct Runs {
  std::vector<Vtx> vtxs;
  std::vector<Pdt> pipes;
  Runs(int count, bool shuffled) {
    std::vector<int> order(static_cast<size_t>(count));
    for (int i = 0; i < count; i++) order[static_cast<size_t>(i)] = i + 1;
    std::mt19937 random(7);
    if (shuffled) std::shuffle(order.begin(), order.end(), random);
    for (const int owner : order) {
      for (int i = 0; i < 4; i++) vtxs.push_back(vtxRecord(owner, 0, i, owner));
    }
    for (int p = 1; p <= count; p++) pipes.push_back(pipeRecord(p, 0, 0, 4));
  }
};

TEST_F(Bind, runs_in_order_in_reverse_and_shuffled_bind_by_the_plain_rule) {
  Runs runs(500, true);
  expectPlainBinding(runs.vtxs, runs.pipes, "shuffled");
  std::reverse(runs.pipes.begin(), runs.pipes.end());
  expectPlainBinding(runs.vtxs, runs.pipes, "pipes reversed");
  Runs ordered(500, false);
  expectPlainBinding(ordered.vtxs, ordered.pipes, "in order");
  std::reverse(ordered.pipes.begin(), ordered.pipes.end());
  expectPlainBinding(ordered.vtxs, ordered.pipes, "in reverse");
}

TEST_F(Bind, a_hundred_thousand_shuffled_runs_are_all_bound) {
  const Runs runs(100000, true);
  TempDir dir;
  dir.write("model.ndt", "");
  dir.write("model.vtx", fileOf(runs.vtxs));
  dir.write("model.pdt", fileOf(runs.pipes));
  ReadVtx(dir.base().c_str(), 0);
  ReadNdt(dir.base().c_str(), 0, 10.1f);
  EXPECT_EQ(ReadPdt(dir.base().c_str(), 0, "", 0), 100000);
  for (int p = 1; p <= 100000; p++) {
    ASSERT_EQ(model.pdt[p].VTX_MODE, 4);
    ASSERT_EQ(model.pxy[p].LAST_VTX - model.pxy[p].FIRST_VTX, 3);
    ASSERT_EQ(model.vtx[model.pxy[p].FIRST_VTX].VTX_OWNER, p);
  }
}

/**
 * A table that is spoilt behind the back of its index shows who was asked: a scan of the table finds what stands there
 * now, the index what stood there before. Bound by the index, a record costs a few looks, whatever the table's size.
 */
struct AskedIndex : Bind {
  VtxIndex index{kSingleKinds};
  BindRange range{};
  void SetUp() override {
    for (int32_t owner = 1; owner <= 200; owner++) addVtx(vtxRecord(owner, 0, 1, 1));
    range = wholeRange(&index);
    ASSERT_TRUE(index.pays(INT32_MAX)); /* searches that far make it */
    for (int32_t v = 1; v <= 200; v++) model.vtx[v].VTX_OWNER = 1000;
  }
};

TEST_F(AskedIndex, a_run_far_away_is_found_without_a_walk_to_it) {
  addPipe(pipeRecord(150, 0, 0, 4));
  BindPipeRun(1, &range);
  EXPECT_EQ(model.pdt[1].VTX_MODE, 4);
  EXPECT_EQ(model.pxy[1].FIRST_VTX, 150);
}

TEST_F(AskedIndex, an_owner_without_vertices_costs_no_walk_through_the_table) {
  for (int32_t v = 100; v <= 200; v++) model.vtx[v].VTX_OWNER = 2000;
  addPipe(pipeRecord(2000, 0, 0, 4));
  BindPipeRun(1, &range);
  EXPECT_EQ(model.pdt[1].VTX_MODE, 0);
}

TEST_F(AskedIndex, the_rest_of_the_table_is_asked_for_in_the_same_way) {
  range.START = 160;
  addPipe(pipeRecord(150, 0, 0, 4));
  BindPipeRun(1, &range);
  EXPECT_EQ(model.pxy[1].FIRST_VTX, 150);
}

TEST_F(Bind, without_an_index_the_result_is_the_same) {
  const Runs runs(60, true);
  for (const Vtx& v : runs.vtxs) addVtx(v);
  for (const Pdt& p : runs.pipes) addPipe(p);
  BindRange range = wholeRange(nullptr);
  for (int p = 1; p <= 60; p++) {
    BindPipeRun(p, &range);
    EXPECT_EQ(model.vtx[model.pxy[p].FIRST_VTX].VTX_OWNER, p);
    EXPECT_EQ(model.pxy[p].LAST_VTX - model.pxy[p].FIRST_VTX, 3);
  }
}

TEST_F(Bind, service_lines_take_their_four_kinds_only) {
  for (int kind = 0; kind <= 8; kind++) addVtx(vtxRecord(5, kind, 1, 1));
  addCust(custRecord(5, 0));
  model.cdt[1].VTX_MODE = 4;
  BindRange range = wholeRange(nullptr);
  BindCustRun(1, &range);
  EXPECT_EQ(model.cxy[1].FIRST_VTX, 2); /* kind 1 */
  EXPECT_EQ(model.cxy[1].LAST_VTX, 8);  /* kind 7 */
  model.cdt[1].ID = 6;
  BindCustRun(1, &range);
  EXPECT_EQ(model.cdt[1].VTX_MODE, 0);
}

TEST_F(Bind, a_vertex_count_beyond_the_table_is_no_way_out_of_it) {
  addVtx(vtxRecord(5, 0, 1, 1));
  addPipe(pipeRecord(5, 0, 0, 4));
  addPipe(pipeRecord(6, 0, 0, 4));
  model.vtxCount = 1000000;
  BindRange range = wholeRange(nullptr);
  BindPipeRun(1, &range);
  BindPipeRun(2, &range);
  EXPECT_EQ(model.pxy[1].LAST_VTX, 1);
  EXPECT_EQ(model.pdt[2].VTX_MODE, 0);
}

}  // namespace
}  // namespace pn10::test
