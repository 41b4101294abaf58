/** SavePipe: what is written, under which numbers, and what stays when it fails. */
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "lookup/lookup.h"
#include "model/record_file.h"
#include "model/tables.h"
#include "support/model_builder.h"

namespace pn10::test {

namespace {

struct SaveTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();
  int32_t save(int32_t rdxCount = 0) { return SavePipe(rdxCount, base.c_str()); }
  std::string file(const char* extension) { return dir.read(std::string("model") + extension); }
};

std::string reference(std::string_view key, std::string_view longText = "", std::string_view shortText = "") {
  return Bytes().text(key, 40).text(longText, 256).text(shortText, 40).str();
}

/** Makes a name unopenable and its backup unremovable, whoever runs the test. */
void block(const TempDir& dir, const std::string& name) {
  for (const std::string& folder : {name, name + ".bak"}) {
    std::filesystem::create_directory(dir.path(folder));
    dir.write(folder + "/in the way", "");
  }
}

/** While it lives no file may grow beyond a size: a disk that is full, for any user. */
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &old_);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit old_;
  void (*handler_)(int);
};

const char* const kExtensions[] = {".cdt", ".ndt", ".fdt", ".pdt", ".vtx"};

}  // namespace

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

TEST_F(SaveTest, the_vertex_file_needs_a_screen_table_of_pipes_or_customers) {
  addNodes(1);
  save();
  EXPECT_FALSE(dir.exists("model.vtx"));
  ReallocCXY(0);
  save();
  EXPECT_TRUE(dir.exists("model.vtx"));
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

TEST_F(SaveTest, references_of_marked_nodes_are_written_in_the_order_of_the_nodes) {
  addNodes(3);
  model.ndt[1].HAS_RDX = model.ndt[3].HAS_RDX = 1;
  PutRdx(1, "N1 ", "long 1", "s1");
  PutRdx(2, "N2", "long 2", "s2");
  PutRdx(3, "N3", "long 3", "s3");
  addPipe(3, 2);
  addPipe(2, 1);
  save(3);
  EXPECT_EQ(file(".rdx"),
            reference("N3", "long 3", "s3") + std::string("N1\0", 3) + reference("N1 ", "long 1", "s1").substr(3));
}

TEST_F(SaveTest, a_row_follows_again_while_its_node_was_the_last_one_written) {
  addNodes(2);
  model.ndt[2].HAS_RDX = 1;
  PutRdx(1, "N2", "l", "s");
  addPipe(1, 2);
  addPipe(2, 1);  // both ends are on file: node 2 is still the one staged
  save(1);
  EXPECT_EQ(file(".rdx"), reference("N2", "l", "s") + reference("N2", "l", "s") + reference("N2", "l", "s"));
}

TEST_F(SaveTest, a_marked_node_without_a_row_in_the_count_writes_no_row) {
  addNodes(2);
  model.ndt[1].HAS_RDX = model.ndt[2].HAS_RDX = 1;
  PutRdx(1, "N2", "l", "s");
  PutRdx(2, "N1", "l", "s");
  addPipe(1, 2);
  save(1);
  EXPECT_EQ(file(".rdx"), reference("N2", "l", "s"));
  save(0);
  EXPECT_EQ(file(".rdx"), "");
  EXPECT_EQ(save(1000000), 1);
}

TEST_F(SaveTest, without_a_marked_node_the_reference_file_is_left_alone) {
  addNodes(2);
  addPipe(1, 2);
  dir.write("model.rdx", "old");
  save(10);
  EXPECT_EQ(file(".rdx"), "old");
  EXPECT_FALSE(dir.exists("model.rdx.bak"));
}

TEST_F(SaveTest, one_generation_of_every_file_is_kept) {
  addNodes(2);
  model.ndt[1].HAS_RDX = 1;
  PutRdx(1, "N1", "l", "s");
  addPipe(1, 2);
  addCust(1, 5, 5);
  addRun(1, {{3, 3}});
  addFtg(ftgRecord(1, "F"));
  model.pdt[1].FTG_COUNT = 1;
  std::vector<std::string> names = {".rdx"};
  for (const char* extension : kExtensions) names.push_back(extension);
  for (const std::string& extension : names) dir.write("model" + extension, "first generation");
  save(1);
  std::vector<std::string> second;
  for (const std::string& extension : names) {
    EXPECT_EQ(dir.read("model" + extension + ".bak"), "first generation") << extension;
    second.push_back(dir.read("model" + extension));
    EXPECT_NE(second.back(), "");
  }
  model.ndt[1].ELEV = 9;
  save(1);
  for (size_t i = 0; i < names.size(); i++) EXPECT_EQ(dir.read("model" + names[i] + ".bak"), second[i]) << names[i];
}

TEST_F(SaveTest, a_file_that_can_not_be_opened_has_its_code) {
  const struct {
    const char* extension;
    int32_t code;
  } rows[] = {{".cdt", -6}, {".ndt", -4}, {".fdt", -7}, {".pdt", -1}, {".vtx", -2}, {".rdx", -1}};
  addNodes(2);
  model.ndt[1].HAS_RDX = 1;
  addPipe(1, 2);
  for (const auto& row : rows) {
    TempDir other;
    block(other, std::string("model") + row.extension);
    bool before = true;
    for (const char* extension : kExtensions)
      other.write(std::string("model") + (std::string(extension) == row.extension ? ".no" : extension), "old");
    EXPECT_EQ(SavePipe(1, other.base().c_str()), row.code) << row.extension;
    for (const char* extension : kExtensions) {
      if (std::string(extension) == row.extension) {
        before = false;
      } else if (before) {
        EXPECT_EQ(other.read(std::string("model") + extension + ".bak"), "old") << row.extension << extension;
      } else {
        EXPECT_EQ(other.read(std::string("model") + extension), "old") << row.extension << extension;
      }
    }
  }
}

TEST_F(SaveTest, a_folder_that_is_not_there_stops_the_first_file) {
  addNodes(1);
  EXPECT_EQ(SavePipe(0, dir.path("none/none").c_str()), -6);
  EXPECT_EQ(SavePipe(0, nullptr), -6);
  EXPECT_EQ(SavePipe(0, std::string(100000, 'x').c_str()), -6);
}

TEST_F(SaveTest, an_old_file_that_can_not_be_put_aside_is_not_overwritten) {
  addNodes(2);
  addPipe(1, 2);
  dir.write("model.pdt", "only copy");
  std::filesystem::create_directory(dir.path("model.pdt.bak"));
  dir.write("model.pdt.bak/in the way", "");
  EXPECT_EQ(save(), -1);
  EXPECT_EQ(dir.read("model.pdt"), "only copy");
}

TEST_F(SaveTest, a_full_disk_gives_the_code_of_the_file_and_the_backups_are_the_old_files) {
  const struct {
    const char* what;
    int32_t code;
    rlim_t limit;
    int32_t pipes, nodes, custs, ftgs, vtxs;
    bool marked;
  } rows[] = {
      {".cdt", -6, 100000, 1, 2, 1000, 0, 0, false}, {".ndt", -4, 300000, 1000, 2000, 0, 0, 0, false},
      {".fdt", -7, 50000, 10, 2, 0, 255, 0, false},  {".pdt", -1, 100000, 1000, 2, 0, 0, 0, false},
      {".vtx", -2, 100000, 1, 2, 0, 0, 5000, false}, {".rdx", -1, 300000, 1000, 1001, 0, 0, 0, true},
  };
  for (const auto& row : rows) {
    FreeModel();
    FreeFdt();
    model = ModelTables{};
    TempDir other;
    addNodes(row.nodes);
    for (int32_t i = 1; row.marked && i <= row.nodes; i++) {
      model.ndt[i].HAS_RDX = 1;
      PutRdx(i, model.ndt[i].NODENAME, "l", "s");
    }
    for (int32_t i = 0; i < row.pipes; i++) {
      const int32_t p = addPipe(i % row.nodes + 1, (row.nodes == 2000 ? i + 1000 : i + 1) % row.nodes + 1);
      for (int32_t f = 0; f < row.ftgs; f++) addFtg(ftgRecord(model.pdt[p].ID, "F"));
      model.pdt[p].FTG_COUNT = static_cast<uint8_t>(row.ftgs);
    }
    for (int32_t i = 0; i < row.custs; i++) addCust(0, 1, 1);
    for (int32_t i = 0; i < row.vtxs; i++) addVtx(vtxRecord(1, 0, 1, 1));
    if (row.vtxs) model.pdt[1].VTX_MODE = 4;
    model.pxy[1].FIRST_VTX = row.vtxs ? 1 : 0;
    model.pxy[1].LAST_VTX = row.vtxs;
    EXPECT_EQ(SavePipe(row.nodes, other.base().c_str()), row.pipes) << row.what;
    const std::string old = other.read(std::string("model") + row.what);
    EXPECT_GT(old.size(), row.limit) << row.what;
    {
      SmallDisk disk(row.limit);
      EXPECT_EQ(SavePipe(row.nodes, other.base().c_str()), row.code) << row.what;
    }
    EXPECT_TRUE(other.read(std::string("model") + row.what + ".bak") == old) << row.what;
  }
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

TEST_F(SaveTest, records_beyond_4_GiB_have_their_place) {
  const int32_t far = 20100000; /* 4.3 GB in; the file is sparse */
  const Cdt cust = custRecord(5, 0, 1, 2);
  File file(dir.path("far").c_str(), "wb+");
  ASSERT_TRUE(writeRecordAt<kCdtFormat>(file.get(), far, &cust));
  Cdt back{};
  readRecordAt(kCdtFormat, file.get(), far, &back);
  EXPECT_EQ(std::memcmp(&back, &cust, sizeof cust), 0);
  file.close();
  EXPECT_EQ(std::filesystem::file_size(dir.path("far")), 214u * uint64_t{20099999} + 198);
  EXPECT_EQ(countRecords(kCdtFormat, dir.path("far").c_str()), far);
}

}  // namespace pn10::test
