/** SavePipe: the backups, the result codes, and what stays when a file fails. */
#include <filesystem>

#include "model/record_file.h"
#include "model/saved.h"
#include "model/tables.h"
#include "support/file_limit.h"

namespace pn10::test {
namespace {

/** Makes a name unopenable and its backup unremovable, whoever runs the test. */
void block(const TempDir& dir, const std::string& name) {
  for (const std::string& folder : {name, name + ".bak"}) {
    std::filesystem::create_directory(dir.path(folder));
    dir.write(folder + "/in the way", "");
  }
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
    size_t limit;
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
      FileLimit disk(row.limit);
      EXPECT_EQ(SavePipe(row.nodes, other.base().c_str()), row.code) << row.what;
    }
    EXPECT_TRUE(other.read(std::string("model") + row.what + ".bak") == old) << row.what;
  }
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

}  // namespace
}  // namespace pn10::test
