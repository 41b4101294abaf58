/** The header file: 201 lines below a magic line. */

#include "model/tables.h"
#include "support/file_limit.h"
#include "support/support.h"

namespace pn10::test {

namespace {

constexpr char kMagic[] = "PN.10.2";

/** A header file whose line i is "line <i>", lines 120 to 125 "0". */
std::string headerFile(int lines = 201) {
  std::string all = std::string(kMagic) + "   0\n";
  for (int i = 0; i < lines; i++) all += (i >= 120 && i <= 125 ? "0" : "line " + std::to_string(i)) + "\n";
  return all;
}

std::string line(int16_t number) {
  char text[257];
  std::memset(text, '#', sizeof text);
  GetHdrVal(number, text);
  return text;
}

struct HdrIoTest : testing::Test {
  Fresh fresh;
  TempDir dir;
  std::string path = dir.path("any name");
  int32_t read(const std::string& bytes, const char* magic = kMagic) {
    dir.write("any name", bytes);
    return HdrIo(path.c_str(), magic, 1);
  }
};

}  // namespace

TEST_F(HdrIoTest, reads_201_lines_and_puts_six_switches_back_to_1) {
  EXPECT_EQ(read(headerFile()), 200);
  EXPECT_EQ(line(0), "line 0");
  EXPECT_EQ(line(119), "line 119");
  for (int16_t i = 120; i <= 125; i++) EXPECT_EQ(line(i), "1") << i;
  EXPECT_EQ(line(126), "line 126");
  EXPECT_EQ(line(200), "line 200");
}

TEST_F(HdrIoTest, writes_the_magic_line_and_201_lines) {
  read(headerFile());
  SetHdrVal(200, "last");
  EXPECT_EQ(HdrIo(dir.path("out").c_str(), "MAGIC", 0), 200);
  std::string expected = "MAGIC\n";
  for (int i = 0; i < 200; i++) expected += (i >= 120 && i <= 125 ? "1" : "line " + std::to_string(i)) + "\n";
  EXPECT_EQ(dir.read("out"), expected + "last\n");
}

TEST_F(HdrIoTest, without_a_table_a_write_gives_201_empty_lines) {
  EXPECT_EQ(HdrIo(path.c_str(), "M", 0), 200);
  EXPECT_EQ(dir.read("any name"), "M\n" + std::string(201, '\n'));
}

TEST_F(HdrIoTest, missing_file_and_missing_folder_give_minus_2) {
  EXPECT_EQ(HdrIo(dir.path("none").c_str(), kMagic, 1), -2);
  EXPECT_EQ(HdrIo(dir.path("none/none").c_str(), kMagic, 0), -2);
  EXPECT_EQ(HdrIo(nullptr, kMagic, 1), -2);
}

TEST_F(HdrIoTest, a_full_disk_gives_minus_2) {
  const FileLimit full(4);
  EXPECT_EQ(HdrIo(dir.path("full").c_str(), kMagic, 0), -2);
}

TEST_F(HdrIoTest, another_magic_line_gives_minus_1_and_the_table_stays) {
  read(headerFile());
  EXPECT_EQ(read("PN.10.1\nnew\n"), -1);
  EXPECT_EQ(line(0), "line 0");
}

TEST_F(HdrIoTest, the_empty_magic_matches_any_file) { EXPECT_EQ(read("whatever\nfirst\n", ""), 200); }

TEST_F(HdrIoTest, other_modes_do_nothing) {
  EXPECT_EQ(HdrIo(dir.path("none").c_str(), kMagic, 2), 200);
  EXPECT_FALSE(dir.exists("none"));
  EXPECT_EQ(GetHdrAddress(), 0);
}

TEST_F(HdrIoTest, a_short_file_repeats_its_last_line) {
  EXPECT_EQ(read(headerFile(3)), 200);
  EXPECT_EQ(line(2), "line 2");
  EXPECT_EQ(line(3), "line 2");
  EXPECT_EQ(line(200), "line 2");
  EXPECT_EQ(line(120), "1");
}

TEST_F(HdrIoTest, a_file_of_the_magic_line_alone_repeats_it) {
  EXPECT_EQ(read("PN.10.2 x\n"), 200);
  EXPECT_EQ(line(0), "PN.10.2 x");
}

TEST_F(HdrIoTest, an_empty_file_has_empty_lines) {
  EXPECT_EQ(read(""), -1);
  EXPECT_EQ(read("", ""), 200);
  EXPECT_EQ(line(0), "");
}

TEST_F(HdrIoTest, lines_lose_the_white_space_at_their_end) {
  read(std::string(kMagic) + "\n  a b \t\r\n \t \nc\n");
  EXPECT_EQ(line(0), "  a b");
  EXPECT_EQ(line(1), "");
  EXPECT_EQ(line(2), "c");
}

TEST_F(HdrIoTest, a_line_longer_than_255_characters_goes_on_in_the_next) {
  read(std::string(kMagic) + "\n" + std::string(255, 'x') + "yz\nnext\n");
  EXPECT_EQ(line(0), std::string(255, 'x'));
  EXPECT_EQ(line(1), "yz");
  EXPECT_EQ(line(2), "next");
}

TEST_F(HdrIoTest, the_table_is_lines_of_257_bytes) {
  read(headerFile());
  const char* base = reinterpret_cast<const char*>(GetHdrAddress());
  EXPECT_STREQ(base + 257 * 7, "line 7");
}

TEST_F(HdrIoTest, get_before_any_read_gives_an_empty_text) {
  EXPECT_EQ(line(0), "");
  SetHdrVal(0, "x");
  EXPECT_EQ(line(0), "");
}

TEST_F(HdrIoTest, lines_outside_0_to_200_read_empty_and_store_nothing) {
  read(headerFile());
  SetHdrVal(-1, "x");
  SetHdrVal(201, "x");
  EXPECT_EQ(line(-1), "");
  EXPECT_EQ(line(201), "");
  EXPECT_EQ(line(-32768), "");
  EXPECT_EQ(line(0), "line 0");
  EXPECT_EQ(line(200), "line 200");
  GetHdrVal(0, nullptr);
}

TEST_F(HdrIoTest, set_cuts_at_256_characters) {
  read(headerFile());
  SetHdrVal(5, std::string(400, 'a').c_str());
  EXPECT_EQ(line(5), std::string(256, 'a'));
  EXPECT_EQ(line(6), "line 6");
  SetHdrVal(5, nullptr);
  EXPECT_EQ(line(5), "");
}

TEST_F(HdrIoTest, one_value_comes_out_of_a_file_without_a_terminator_and_through_the_table) {
  read(headerFile());
  SetHdrVal(4, "mine");
  dir.write("other", "PN.10.2\nA \nB\nC\nD\n");
  char text[8] = "-------";
  EXPECT_EQ(GetValFromHdrFile(dir.path("other").c_str(), kMagic, text, 2), 0);
  EXPECT_STREQ(text, "C------");
  EXPECT_EQ(line(0) + line(1) + line(2) + line(3), "ABCline 3");
  EXPECT_EQ(line(4), "mine");
}

TEST_F(HdrIoTest, one_value_leaves_the_switches_as_the_file_has_them) {
  read(headerFile());
  char text[8] = "";
  EXPECT_EQ(GetValFromHdrFile(path.c_str(), kMagic, text, 121), 0);
  EXPECT_STREQ(text, "0");
  EXPECT_EQ(line(120), "0");
  EXPECT_EQ(line(122), "1");
}

TEST_F(HdrIoTest, one_value_of_a_bad_file_or_line_copies_nothing) {
  dir.write("other", "PN.10.2\nA\n");
  const std::string other = dir.path("other");
  char text[8] = "-------";
  EXPECT_EQ(GetValFromHdrFile(dir.path("none").c_str(), kMagic, text, 0), -2);
  EXPECT_EQ(GetValFromHdrFile(other.c_str(), "PN.10.3", text, 0), -1);
  EXPECT_EQ(GetValFromHdrFile(other.c_str(), kMagic, text, -1), 0);
  EXPECT_EQ(GetValFromHdrFile(other.c_str(), kMagic, text, 201), 0);
  EXPECT_STREQ(text, "-------");
  EXPECT_EQ(GetValFromHdrFile(other.c_str(), kMagic, nullptr, 0), 0);
}

TEST_F(HdrIoTest, one_value_is_read_without_a_table_too) {
  dir.write("other", "PN.10.2\nA\nB\n");
  char text[8] = "";
  EXPECT_EQ(GetValFromHdrFile(dir.path("other").c_str(), kMagic, text, 1), 0);
  EXPECT_STREQ(text, "B");
  EXPECT_EQ(GetHdrAddress(), 0);
}

}  // namespace pn10::test
