// Lines of text files: pieces of 255, both line ends, both rules for a line that is missing.
#include <gtest/gtest.h>

#include <clocale>

#include "fields/text_file.h"
#include "support/support.h"

namespace pn10::test {
namespace {

struct LineReaderTest : testing::Test {
  TempDir dir;
  std::string file(const std::string& bytes) {
    dir.write("lines", bytes);
    return dir.path("lines");
  }
};

TEST_F(LineReaderTest, lines_keep_their_end_and_the_last_needs_none) {
  LineReader lines;
  ASSERT_TRUE(lines.open(file("one\r\n\ntwo").c_str()));
  EXPECT_TRUE(lines.next());
  EXPECT_STREQ(lines.text(), "one\r\n");
  EXPECT_TRUE(lines.next());
  EXPECT_STREQ(lines.text(), "\n");
  EXPECT_TRUE(lines.next());
  EXPECT_STREQ(lines.text(), "two");
  EXPECT_FALSE(lines.next());
  EXPECT_STREQ(lines.text(), "");
}

TEST_F(LineReaderTest, a_missing_line_is_empty_or_the_last_one_again) {
  LineReader empty, repeat(LineReader::kRepeat);
  const std::string path = file("7\n");
  ASSERT_TRUE(empty.open(path.c_str()));
  ASSERT_TRUE(repeat.open(path.c_str()));
  EXPECT_EQ(empty.nextInt(), 7);
  EXPECT_EQ(repeat.nextInt(), 7);
  EXPECT_EQ(empty.nextInt(), 0);
  EXPECT_EQ(repeat.nextInt(), 7);
  EXPECT_EQ(empty.nextDouble(), 0.0);
  EXPECT_EQ(repeat.nextDouble(), 7.0);
}

TEST_F(LineReaderTest, a_long_line_comes_in_pieces_of_255) {
  LineReader lines;
  ASSERT_TRUE(lines.open(file(std::string(255, 'a') + "b\n").c_str()));
  lines.next();
  EXPECT_EQ(std::string(lines.text()), std::string(255, 'a'));
  lines.next();
  EXPECT_STREQ(lines.text(), "b\n");
}

TEST_F(LineReaderTest, numbers_do_not_follow_the_locale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"}) {
    if (std::setlocale(LC_ALL, name)) break;
  }
  LineReader lines;
  ASSERT_TRUE(lines.open(file("1.5\n1,5\n").c_str()));
  EXPECT_EQ(lines.nextDouble(), 1.5);
  EXPECT_EQ(lines.nextDouble(), 1.0);
  std::setlocale(LC_ALL, before.c_str());
}

TEST_F(LineReaderTest, without_a_file_every_line_is_missing) {
  LineReader lines;
  EXPECT_FALSE(lines.open(dir.path("missing").c_str()));
  EXPECT_FALSE(lines.open(nullptr));
  EXPECT_FALSE(lines.next());
  EXPECT_EQ(lines.nextInt(), 0);
}

}  // namespace
}  // namespace pn10::test
