/** Fittings: the .fdt file, the numbered fields, the equivalent length. */
#include <cmath>
#include <cstddef>
#include <filesystem>

#include "lookup/lookup.h"
#include "model/file_handles.h"
#include "model/record_file.h"
#include "model/tables.h"
#include "support/model_builder.h"

namespace pn10::test {

namespace {

struct FdtTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();
  char text[41] = "";

  int32_t read(const std::string& bytes, const char* version = "10.0", int16_t append = 0, int32_t offset = 0) {
    dir.write("model.fdt", bytes);
    if (!append) FreeFdt();
    return ReadFtg(base.c_str(), append, offset, version);
  }
  /** A fitting lookup of rows {k, d0}, the count one above the last. */
  void lookupOf(std::initializer_list<std::pair<float, float>> rows) {
    lookups.flut.count = static_cast<int32_t>(rows.size()) + 1;
    lookups.flut.rows = newTable<FLut>(lookups.flut.count);
    int32_t row = 0;
    for (const auto& [k, d0] : rows) {
      lookups.flut.rows[++row].EQ_LENGTH = k;
      lookups.flut.rows[row].REF_D = d0;
    }
  }
  ~FdtTest() override {
    releaseTable(lookups.flut.rows);
    lookups.flut.count = 0;
  }
};

const std::vector<Fdt> kTwo = {ftgRecord(11, "ELBOW 90", 3, 1.5f, -4), ftgRecord(12, "TEE", 5, 2.5f, 6)};

/** Offset in a record, bytes there, and the member that must hold the same bytes. */
struct Place {
  size_t offset;
  std::string bytes;
  size_t member;
};
const Place kPlaces[] = {
    {0, Bytes().i32(-70000).str(), offsetof(Fdt, FTG_PIPE_ID)}, {4, std::string(20, 'n'), offsetof(Fdt, FTG_NAME)},
    {24, Bytes().i16(-300).str(), offsetof(Fdt, FTG_NUM)},      {26, Bytes().f32(0.5f).str(), offsetof(Fdt, FTG_EQL)},
    {30, Bytes().i16(400).str(), offsetof(Fdt, FTG_FLAG)},
};

}  // namespace

TEST_F(FdtTest, every_column_lies_at_its_offset_behind_a_header_of_four_bytes) {
  for (const Place& place : kPlaces) {
    std::string bytes(36, '\0');
    bytes.replace(4 + place.offset, place.bytes.size(), place.bytes);
    std::string expected(sizeof(Fdt), '\0');
    expected.replace(place.member, place.bytes.size(), place.bytes);
    EXPECT_EQ(read(bytes), 1);
    EXPECT_EQ(std::memcmp(&model.fdt[1], expected.data(), sizeof(Fdt)), 0) << place.offset;
  }
}

TEST_F(FdtTest, the_count_is_the_ceiling_behind_the_header) {
  struct {
    size_t size;
    int32_t count;
  } rows[] = {{0, 0}, {3, 0}, {4, 0}, {5, 1}, {36, 1}, {37, 2}, {68, 2}};
  for (const auto& row : rows) EXPECT_EQ(read(std::string(row.size, '\0')), row.count) << row.size;
}

TEST_F(FdtTest, records_follow_each_other_at_32_bytes) {
  EXPECT_EQ(read(fileOf(kTwo)), 2);
  EXPECT_EQ(std::memcmp(&model.fdt[1], &kTwo[0], sizeof(Fdt)), 0);
  EXPECT_EQ(std::memcmp(&model.fdt[2], &kTwo[1], sizeof(Fdt)), 0);
}

TEST_F(FdtTest, append_keeps_the_old_records_and_raises_the_new_pipe_ids) {
  read(fileOf(kTwo));
  EXPECT_EQ(read(fileOf({ftgRecord(7, "CAP")}), "10.0", 1, 1000), 3);
  EXPECT_EQ(std::memcmp(&model.fdt[2], &kTwo[1], sizeof(Fdt)), 0);
  EXPECT_EQ(model.fdt[3].FTG_PIPE_ID, 1007);
  EXPECT_STREQ(model.fdt[3].FTG_NAME, "CAP");
}

TEST_F(FdtTest, append_to_nothing_reads_the_file) {
  EXPECT_EQ(read(fileOf(kTwo), "10.0", 1, 0), 2);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 12);
}

TEST_F(FdtTest, an_offset_is_added_without_append_and_to_unused_records_too) {
  read(fileOf({ftgRecord(0, ""), ftgRecord(INT32_MAX, "")}), "10.0", 0, 5);
  EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 5);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, INT32_MIN + 4);
}

TEST_F(FdtTest, only_a_leading_part_of_the_version_text_skips_the_header) {
  for (const char* version : {"10.0", "10", "1", ""}) {
    read(fileOf(kTwo), version);
    EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 11) << version;
  }
  for (const char* version : {"10.1", "9", "10.00", "10.0 "}) {
    EXPECT_EQ(read(fileOf(kTwo).substr(4), version), 2);
    EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 11) << version;
    EXPECT_STREQ(model.fdt[2].FTG_NAME, "TEE");
  }
}

TEST_F(FdtTest, told_another_version_the_records_of_a_file_with_a_header_are_shifted) {
  EXPECT_EQ(read(fileOf(kTwo), "10.1"), 2);
  EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 0);  // the header of SavePipe
  EXPECT_EQ(std::memcmp(model.fdt[1].FTG_NAME, "\x0B\0\0\0ELBOW 90", 12), 0);
}

TEST_F(FdtTest, a_missing_file_gives_minus_2) {
  read(fileOf(kTwo));
  EXPECT_EQ(ReadFtg(dir.path("none").c_str(), 1, 0, "10.0"), -2);
  EXPECT_EQ(model.ftgCount, 2);
  Fdt* forgotten = model.fdt;
  EXPECT_EQ(ReadFtg(dir.path("none").c_str(), 0, 0, "10.0"), -2);
  EXPECT_EQ(model.ftgCount, 0);
  EXPECT_EQ(model.fdt, nullptr);
  releaseTable(forgotten);
  EXPECT_EQ(ReadFtg(nullptr, 0, 0, nullptr), -2);
}

TEST_F(FdtTest, a_truncated_record_reads_as_zeros_behind_its_end) {
  EXPECT_EQ(read(fileOf(kTwo).substr(0, 4 + 32 + 4 + 2)), 2);
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 12);
  EXPECT_STREQ(model.fdt[2].FTG_NAME, "TE");
  EXPECT_EQ(model.fdt[2].FTG_NUM, 0);
}

TEST_F(FdtTest, a_line_feed_in_a_name_shifts_the_rest_of_its_record_only) {
  std::string file = fileOf(kTwo);
  file[4 + 4 + 1] = '\n';  // the name ends after two bytes, FTG_NUM is the next two: "BO" of "ELBOW"
  read(file);
  EXPECT_STREQ(model.fdt[1].FTG_NAME, "E\n");
  EXPECT_EQ(model.fdt[1].FTG_NUM, 'B' + 256 * 'O');
  EXPECT_EQ(model.fdt[2].FTG_PIPE_ID, 12);
}

TEST_F(FdtTest, save_writes_the_version_and_every_record) {
  for (const Fdt& f : kTwo) addFtg(f);
  EXPECT_EQ(SaveFtg(base.c_str(), "10.0"), 0);
  std::string expected = fileOf(kTwo);
  expected.replace(0, 4, "10.0");
  EXPECT_EQ(dir.read("model.fdt"), expected);
}

TEST_F(FdtTest, save_keeps_record_numbers_with_holes_of_zeros_and_none_at_the_end) {
  for (int32_t id : {0, 11, 0, 0, 12, 0}) addFtg(ftgRecord(id, id ? "X" : "old"));
  SaveFtg(base.c_str(), "10.0");
  std::string expected =
      "10.0" + std::string(32, '\0') + packed(ftgRecord(11, "X")) + std::string(64, '\0') + packed(ftgRecord(12, "X"));
  EXPECT_EQ(dir.read("model.fdt"), expected);
}

TEST_F(FdtTest, save_of_unused_records_alone_leaves_the_header) {
  addFtg(ftgRecord(0, ""));
  EXPECT_EQ(SaveFtg(base.c_str(), "10.1 and more"), 0);
  EXPECT_EQ(dir.read("model.fdt"), "10.1");
}

TEST_F(FdtTest, a_short_version_is_filled_up_with_zeros) {
  addFtg(ftgRecord(0, ""));
  SaveFtg(base.c_str(), "7");
  EXPECT_EQ(dir.read("model.fdt"), std::string("7\0\0\0", 4));
  SaveFtg(base.c_str(), nullptr);
  EXPECT_EQ(dir.read("model.fdt"), std::string(4, '\0'));
}

TEST_F(FdtTest, save_of_an_empty_table_leaves_the_old_file_alone) {
  dir.write("model.fdt", "old");
  EXPECT_EQ(SaveFtg(base.c_str(), "10.0"), 0);
  EXPECT_EQ(dir.read("model.fdt"), "old");
  EXPECT_FALSE(dir.exists("model.fdt.bak"));
}

TEST_F(FdtTest, save_keeps_one_generation) {
  addFtg(kTwo[0]);
  dir.write("model.fdt", "first");
  SaveFtg(base.c_str(), "10.0");
  EXPECT_EQ(dir.read("model.fdt.bak"), "first");
  const std::string second = dir.read("model.fdt");
  SaveFtg(base.c_str(), "10.1");
  EXPECT_EQ(dir.read("model.fdt.bak"), second);
}

TEST_F(FdtTest, save_that_can_not_open_or_put_the_old_file_aside_gives_minus_2) {
  addFtg(kTwo[0]);
  EXPECT_EQ(SaveFtg(dir.path("none/none").c_str(), "10.0"), -2);
  EXPECT_EQ(SaveFtg(nullptr, "10.0"), -2);
  dir.write("model.fdt", "only copy");
  std::filesystem::create_directory(dir.path("model.fdt.bak"));
  dir.write("model.fdt.bak/in the way", "");
  EXPECT_EQ(SaveFtg(base.c_str(), "10.0"), -2);
  EXPECT_EQ(dir.read("model.fdt"), "only copy");
}

TEST_F(FdtTest, what_was_saved_reads_back) {
  for (const Fdt& f : kTwo) addFtg(f);
  SaveFtg(base.c_str(), "10.0");
  FreeFdt();
  EXPECT_EQ(ReadFtg(base.c_str(), 0, 0, "10.0"), 2);
  EXPECT_EQ(std::memcmp(&model.fdt[2], &kTwo[1], sizeof(Fdt)), 0);
}

TEST_F(FdtTest, every_field_reads_and_stores) {
  addFtg(kTwo[0]);
  EXPECT_EQ(GetFdtVal(1, text, 901), 1.0);
  EXPECT_STREQ(text, "ELBOW 90");
  EXPECT_EQ(GetFdtVal(1, text, 902), 3);
  EXPECT_EQ(GetFdtVal(1, text, 903), 11);
  EXPECT_EQ(GetFdtVal(1, text, 904), -4);
  EXPECT_EQ(GetFdtVal(1, text, 905), 1.5);
  EXPECT_EQ(GetFdtVal(1, text, 906), 32.0);
  EXPECT_EQ(GetFdtVal(1, text, 907), 1);
  SetFdtVal(1, 901, "CAP", 0);
  SetFdtVal(1, 902, nullptr, -7.9);
  SetFdtVal(1, 903, nullptr, 70000.9);
  SetFdtVal(1, 904, nullptr, 65537);
  SetFdtVal(1, 905, nullptr, 0.1);
  EXPECT_STREQ(model.fdt[1].FTG_NAME, "CAP");
  EXPECT_EQ(model.fdt[1].FTG_NUM, -7);
  EXPECT_EQ(model.fdt[1].FTG_PIPE_ID, 70000);
  EXPECT_EQ(model.fdt[1].FTG_FLAG, 1);
  EXPECT_EQ(model.fdt[1].FTG_EQL, 0.1f);
  SetFdtVal(0, 907, nullptr, 0);
  EXPECT_EQ(model.ftgCount, 0);
  EXPECT_EQ(messages(), "");
}

TEST_F(FdtTest, a_text_is_cut_at_20_characters_and_null_texts_do_no_harm) {
  addFtg(kTwo[0]);
  SetFdtVal(1, 901, std::string(30, 'x').c_str(), 0);
  EXPECT_EQ(model.fdt[1].FTG_NAME, std::string(20, 'x'));
  EXPECT_EQ(model.fdt[1].FTG_NUM, 3);
  SetFdtVal(1, 901, nullptr, 0);
  EXPECT_STREQ(model.fdt[1].FTG_NAME, "");
  EXPECT_EQ(GetFdtVal(1, nullptr, 901), 1.0);
}

TEST_F(FdtTest, a_number_out_of_range_is_silent) {
  addFtg(kTwo[0]);
  EXPECT_EQ(GetFdtVal(-1, text, 902), -1.0);
  EXPECT_EQ(GetFdtVal(2, text, 902), -1.0);
  EXPECT_EQ(GetFdtVal(2, text, 999), -1.0);
  SetFdtVal(-1, 999, nullptr, 0);
  SetFdtVal(-1, 907, nullptr, 9);
  SetFdtVal(2, 902, nullptr, 9);
  SetFdtVal(INT32_MAX, 901, "x", 9);
  EXPECT_EQ(model.ftgCount, 1);
  EXPECT_EQ(messages(), "");
}

TEST_F(FdtTest, a_count_above_the_table_reads_nothing_outside) {
  SetFdtVal(0, 907, nullptr, 1000000);
  EXPECT_EQ(GetFdtVal(0, text, 907), 1000000);
  EXPECT_EQ(GetFdtVal(5, text, 902), -1.0);
  SetFdtVal(5, 902, nullptr, 9);
  EXPECT_EQ(SaveFtg(base.c_str(), "10.0"), 0);
  EXPECT_FALSE(dir.exists("model.fdt"));
}

TEST_F(FdtTest, record_0_reads_as_zeros_without_a_table) {
  EXPECT_EQ(GetFdtVal(0, text, 903), 0.0);
  EXPECT_EQ(GetFdtVal(0, text, 907), 0.0);
}

TEST_F(FdtTest, an_unknown_field_shows_a_message) {
  addFtg(kTwo[0]);
  for (int16_t field : {int16_t{900}, int16_t{908}, int16_t{-1}}) EXPECT_EQ(GetFdtVal(1, text, field), -1.0);
  EXPECT_EQ(messages(), "getfdt 900\ngetfdt 908\ngetfdt -1\n");
  SetFdtVal(1, 906, nullptr, 1);
  SetFdtVal(9, 908, nullptr, 1);
  EXPECT_EQ(messages(), "setfdt 906\nsetfdt 908\n");
  EXPECT_EQ(std::memcmp(&model.fdt[1], &kTwo[0], sizeof(Fdt)), 0);
}

TEST_F(FdtTest, put_writes_one_record_through_an_open_handle) {
  addFtg(kTwo[0]);
  FILE* files[] = {nullptr, std::fopen(dir.path("out").c_str(), "wb"), nullptr};
  fileHandles = {files, 2};
  FilePutFdt(1, 1, 2);
  for (int16_t handle : {int16_t{0}, int16_t{2}, int16_t{3}, int16_t{-1}}) FilePutFdt(handle, 1, 1);
  FilePutFdt(1, 2, 1);   // no such fitting
  FilePutFdt(1, -1, 1);  // likewise
  FilePutFdt(1, 1, 0);   // no such place
  std::fclose(files[1]);
  fileHandles = {};
  EXPECT_EQ(dir.read("out"), std::string(36, '\0') + packed(kTwo[0]));  // 2 * 32 - 28
}

TEST_F(FdtTest, the_length_follows_the_exponent_of_the_equation) {
  lookupOf({{2.0f, 4.0f}});
  const struct {
    int16_t equation;
    float exponent;
  } rows[] = {{1, 4.796763f},   {6, 4.8557124f},  {7, 4.9607844f},  {15, 4.7391305f}, {18, 4.7391305f},
              {32, 4.8484287f}, {33, 4.8484287f}, {37, 4.8521256f}, {38, 4.8521256f}, {39, 4.0f},
              {50, 4.8542628f}, {51, 4.8542628f}, {-1, 5.0f},       {0, 5.0f},        {2, 5.0f},
              {-6, 5.0f},       {52, 5.0f},       {32767, 5.0f}};
  for (const auto& row : rows) {
    const double expected = 2.0 * std::exp2(static_cast<double>(row.exponent));  // (8 / 4)^e
    EXPECT_FLOAT_EQ(CalcEqLFtgNo(8.0f, row.equation, 1), static_cast<float>(expected)) << row.equation;
  }
}

TEST_F(FdtTest, the_length_at_its_own_diameter_is_k) {
  lookupOf({{2.5f, 4.0f}});
  EXPECT_EQ(CalcEqLFtgNo(4.0f, 6, 1), 2.5f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 39, 1), 40.0f);  // 2.5 * 2^4, by hand
  EXPECT_EQ(CalcEqLFtgNo(8.0f, -1, 1), 80.0f);  // 2.5 * 2^5
  EXPECT_EQ(CalcEqLFtgNo(0.0f, 39, 1), 0.0f);
}

TEST_F(FdtTest, rows_that_give_no_length_have_codes) {
  lookupOf({{0.0f, 4.0f}, {2.0f, 0.0f}});  // count 3, row 3 empty
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 1), -2.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 2), -1.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 3), -1.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 4), -3.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 32767), -3.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 0), -4.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, -32768), -4.0f);
}

TEST_F(FdtTest, without_a_lookup_no_row_exists) {
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 1), -3.0f);
  EXPECT_EQ(CalcEqLFtgNo(8.0f, 1, 0), -4.0f);
}

}  // namespace pn10::test
