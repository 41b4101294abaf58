/** The reference table and the .rdx file. */
#include "model/rdx_index.h"
#include "model/record_file.h"
#include "model/tables.h"
#include "support/support.h"

namespace pn10::test {

namespace {

std::string record(std::string_view key, std::string_view longText, std::string_view shortText) {
  return Bytes().text(key, 40).text(longText, 256).text(shortText, 40).str();
}

struct RdxTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string base = dir.base();
  char longText[257] = "-", shortText[41] = "-";

  int32_t read(int32_t count, const std::string& bytes) {
    dir.write("model.rdx", bytes);
    FreeModel();
    return ReadRdx(count, base.c_str());
  }
  int32_t find(int32_t count, const char* key) { return FindRdx(count, key, longText, shortText); }
};

}  // namespace

TEST_F(RdxTest, a_record_lies_at_its_offsets) {
  ASSERT_EQ(read(2, record("N1", "long one", "s1") + record("N2", "long two", "s2")), 0);
  const char* base0 = reinterpret_cast<const char*>(GetRdxAddress());
  EXPECT_STREQ(base0 + 339 * 2, "N2");
  EXPECT_STREQ(base0 + 339 * 2 + 41, "long two");
  EXPECT_STREQ(base0 + 339 * 2 + 41 + 257, "s2");
}

TEST_F(RdxTest, fields_of_full_width_are_kept_whole) {
  const std::string key(40, 'k'), text(256, 'l'), shorter(40, 's');
  read(1, record(key, text, shorter));
  EXPECT_EQ(find(1, key.c_str()), 1);
  EXPECT_EQ(longText, text);
  EXPECT_EQ(shortText, shorter);
}

TEST_F(RdxTest, a_line_feed_shifts_the_rest_of_the_file) {
  read(2, record("N\n", "", "") + record("N2", "", ""));
  const Rdx* rows = reinterpret_cast<const Rdx*>(GetRdxAddress());
  EXPECT_STREQ(rows[1].KEY_TEXT, "N\n");
  EXPECT_EQ(std::memcmp(rows[2].KEY_TEXT + 38, "N2", 2), 0);  // 38 bytes that the first key left stand before it
}

TEST_F(RdxTest, a_missing_file_leaves_the_rows_empty) {
  EXPECT_EQ(ReadRdx(3, dir.path("none").c_str()), 0);
  EXPECT_EQ(find(3, "N1"), 0);
  EXPECT_EQ(find(3, ""), 1);
}

TEST_F(RdxTest, a_short_file_leaves_the_missing_rows_empty) {
  EXPECT_EQ(read(3, record("N1", "a", "b").substr(0, 60)), 0);
  EXPECT_EQ(find(3, "N1"), 1);
  EXPECT_STREQ(longText, "a");
  EXPECT_STREQ(shortText, "");
}

TEST_F(RdxTest, count_0_makes_a_table_without_rows_and_reads_nothing) {
  EXPECT_EQ(read(0, record("N1", "a", "b")), 0);
  EXPECT_NE(GetRdxAddress(), 0);
  EXPECT_EQ(find(1, "N1"), 0);
}

TEST_F(RdxTest, a_negative_count_is_no_memory) {
  EXPECT_EQ(ReadRdx(-5, base.c_str()), -1);
  EXPECT_EQ(GetRdxAddress(), 0);
}

TEST_F(RdxTest, read_replaces_the_table_and_does_not_release_it) {
  PutRdx(1, "old", "", "");
  Rdx* before = reinterpret_cast<Rdx*>(GetRdxAddress());
  dir.write("model.rdx", record("new", "", ""));
  EXPECT_EQ(ReadRdx(1, base.c_str()), 0);
  EXPECT_STREQ(before[1].KEY_TEXT, "old");
  EXPECT_EQ(find(1, "new"), 1);
  releaseTable(before);
}

TEST_F(RdxTest, put_stores_three_texts_cut_at_their_widths) {
  PutRdx(2, std::string(50, 'k').c_str(), std::string(300, 'l').c_str(), std::string(50, 's').c_str());
  EXPECT_EQ(find(2, std::string(40, 'k').c_str()), 2);
  EXPECT_EQ(longText, std::string(256, 'l'));
  EXPECT_EQ(shortText, std::string(40, 's'));
  PutRdx(2, nullptr, nullptr, nullptr);
  EXPECT_EQ(find(2, std::string(40, 'k').c_str()), 0);
}

TEST_F(RdxTest, put_of_row_0_or_below_does_nothing) {
  PutRdx(0, "a", "b", "c");
  PutRdx(-1, "a", "b", "c");
  EXPECT_EQ(GetRdxAddress(), 0);
}

TEST_F(RdxTest, put_beyond_the_table_makes_it_grow_and_keeps_the_rows) {
  read(1, record("N1", "a", "b"));
  for (int32_t row = 2; row <= 100; row++) PutRdx(row, ("N" + std::to_string(row)).c_str(), "x", "y");
  EXPECT_EQ(find(100, "N1"), 1);
  EXPECT_STREQ(longText, "a");
  EXPECT_EQ(find(100, "N77"), 77);
  PutRdx(200, reinterpret_cast<const Rdx*>(GetRdxAddress())[77].KEY_TEXT, "", "");
  EXPECT_STREQ(reinterpret_cast<const Rdx*>(GetRdxAddress())[200].KEY_TEXT, "N77");
  EXPECT_EQ(find(200, "N77"), 77);
  EXPECT_EQ(find(200, ""), 101);
}

TEST_F(RdxTest, find_ignores_white_space_at_the_end_and_trims_the_key_of_the_table) {
  read(2, record("N1  ", "a", "b") + record("N2 ", "c", "d"));
  const Rdx* rows = reinterpret_cast<const Rdx*>(GetRdxAddress());
  EXPECT_EQ(find(2, "N1 \t"), 1);
  EXPECT_STREQ(rows[1].KEY_TEXT, "N1");
  EXPECT_STREQ(rows[2].KEY_TEXT, "N2 ");  // not looked at
  EXPECT_EQ(find(2, "N3"), 0);
  EXPECT_STREQ(rows[2].KEY_TEXT, "N2");
}

TEST_F(RdxTest, find_takes_the_first_of_equal_keys_and_copies_nothing_without_one) {
  read(2, record("N1", "first", "1") + record("N1", "second", "2"));
  EXPECT_EQ(find(2, "N1"), 1);
  EXPECT_STREQ(longText, "first");
  EXPECT_EQ(find(2, "n1"), 0);
  EXPECT_STREQ(longText, "first");
}

TEST_F(RdxTest, find_with_count_0_or_less_gives_0) {
  read(1, record("N1", "a", "b"));
  EXPECT_EQ(find(0, "N1"), 0);
  EXPECT_EQ(find(-1, "N1"), 0);
  EXPECT_STREQ(longText, "-");
}

TEST_F(RdxTest, find_beyond_the_table_stops_at_its_end) {
  read(1, record("N1", "a", "b"));
  EXPECT_EQ(find(1000000, "N9"), 0);
  EXPECT_EQ(find(1, nullptr), 0);
  EXPECT_EQ(FindRdx(1, "N1", nullptr, nullptr), 1);
}

TEST_F(RdxTest, a_long_key_does_not_match_by_its_first_part) {
  read(1, record("N1", "a", "b"));
  EXPECT_EQ(find(1, ("N1" + std::string(60, ' ') + "x").c_str()), 0);
}

TEST_F(RdxTest, write_appends_the_row_and_gives_its_number) {
  read(2, record("N1", "a", "b") + record("N2", "c", "d"));
  {
    File file(dir.path("out").c_str(), "wb");
    EXPECT_EQ(WriteRdxRecord(file.get(), 2), 2);
    EXPECT_EQ(WriteRdxRecord(file.get(), 0), 0);
    EXPECT_EQ(WriteRdxRecord(file.get(), 3), 0);
    EXPECT_EQ(WriteRdxRecord(file.get(), 1), 1);
  }
  EXPECT_EQ(dir.read("out"), record("N2", "c", "d") + record("N1", "a", "b"));
}

TEST_F(RdxTest, the_index_of_a_save_finds_and_trims_as_one_search_after_the_other) {
  std::string file;
  for (const char* key : {"A ", "B", "A", " C", "", "B ", "D  ", "E "}) file += record(key, "l", "s");
  const char* wanted[] = {"B ", "A", "D", "none", "E"};
  const size_t tableSize = 9 * sizeof(Rdx);
  for (size_t searches = 1; searches <= std::size(wanted); searches++) {
    std::vector<int32_t> one, other;
    read(8, file);
    for (size_t i = 0; i < searches; i++) one.push_back(FindRdx(7, wanted[i], longText, shortText));
    const std::string after(reinterpret_cast<const char*>(model.rdx), tableSize);
    read(8, file);
    RdxIndex index(7);
    for (size_t i = 0; i < searches; i++) other.push_back(index.find(wanted[i]));
    EXPECT_EQ(one, other);
    EXPECT_TRUE(after == std::string(reinterpret_cast<const char*>(model.rdx), tableSize)) << searches;
  }
}

}  // namespace pn10::test
