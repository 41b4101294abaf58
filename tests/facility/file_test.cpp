// The facility file, line by line.
#include <gtest/gtest.h>

#include "facility/network.h"

namespace pn10::test {
namespace {

class FacilityFile : public testing::Test {
 protected:
  Fresh fresh;
  TempDir dir;
  char text[300] = "?";
  int32_t read(const std::string& lines) {
    dir.write("fac", lines);
    return ReadFac(dir.path("fac").c_str());
  }
  std::string name(int32_t row) { return GetFacVal(row, 0, text, 1), text; }
  std::string units(int32_t row) { return GetFacVal(row, 0, text, 11), text; }
  std::vector<int32_t> numbers(int32_t count) {
    std::vector<int32_t> all;
    for (int32_t row = 1; row <= count; row++) all.push_back(static_cast<int32_t>(GetFacVal(row, 0, text, 2)));
    return all;
  }
};

std::string row(const std::string& name, int number) {
  return name + "\n" + std::to_string(number) + "\n1\n1\n1\n1\n-1\n0\n0\n-1\nPsi\n";
}

TEST_F(FacilityFile, every_line_has_its_field) {
  ASSERT_EQ(read("a title\n1\nMain\n7\n2\n3\n4\n5\n65280\n6\n8\n9\nDefault\n"), 5);
  EXPECT_EQ(name(1), "Main");
  const double values[] = {7, 2, 3, 4, 5, 65280, 6, 8, 9};
  for (int16_t field = 2; field <= 10; field++) EXPECT_EQ(GetFacVal(1, 0, text, field), values[field - 2]) << field;
  EXPECT_EQ(units(1), "Default");
}

TEST_F(FacilityFile, an_empty_table_gets_the_four_reserved_rows_in_their_order) {
  ASSERT_EQ(read("title\n0\n"), 4);
  EXPECT_EQ(numbers(4), (std::vector<int32_t>{30003, 30002, 30005, 30006}));
  const char* names[] = {"Bill Of Materials Text", "Color Legend", "Marked Views", "Marked Pipe Crossings"};
  for (int32_t r = 1; r <= 4; r++) {
    EXPECT_EQ(name(r), names[r - 1]);
    EXPECT_EQ(units(r), "-1");
    const double values[] = {1, 0, 0, 1, r == 4 ? 255.0 : -1.0, -1, -1, -1};
    for (int16_t field = 3; field <= 10; field++) EXPECT_EQ(GetFacVal(r, 0, text, field), values[field - 3]) << field;
  }
  EXPECT_EQ(GetFacVal(0, 1, text, 12), 0.0);
}

TEST_F(FacilityFile, reserved_rows_that_are_there_stay_where_they_are) {
  ASSERT_EQ(read("t\n3\n" + row("Legend", 30002) + row("Bill-Of-Material Text", 30003) + row("Views", 30005)), 4);
  EXPECT_EQ(numbers(4), (std::vector<int32_t>{30002, 30003, 30005, 30006}));
  EXPECT_EQ(name(1), "Color Legend") << "this name is put right";
  EXPECT_EQ(name(2), "Bill-Of-Material Text");
  EXPECT_EQ(name(3), "Views");
  EXPECT_EQ(GetFacVal(1, 0, text, 4), 1.0) << "the settings stay those of the file";
}

TEST_F(FacilityFile, reserved_numbers_never_raise_the_last_number) {
  ASSERT_EQ(read("t\n3\n" + row("a", 7) + row("b", 30002) + row("c", 12)), 6);
  EXPECT_EQ(GetNextFacId(), 13);
  ASSERT_EQ(read("t\n2\n" + row("a", 29999) + row("b", 30000)), 6);
  EXPECT_EQ(GetNextFacId(), 30000);
}

TEST_F(FacilityFile, numbers_are_cut_to_their_width) {
  // 70000 - 65536 = 4464; 40000 - 65536 = -25536; the colour keeps 32 bits
  ASSERT_EQ(read("t\n65537\nN\n70000\n65536\n65537\n40000\n1\n16777215\n70000\n1\n1\nPsi\n"), 5);
  const double values[] = {4464, 0, 1, -25536, 1, 16777215, 4464, 1, 1};
  for (int16_t field = 2; field <= 10; field++) EXPECT_EQ(GetFacVal(1, 0, text, field), values[field - 2]) << field;
}

TEST_F(FacilityFile, malformed_numbers_are_zero_and_what_follows_a_number_is_ignored) {
  ASSERT_EQ(read("t\n1 row\nN\nseven\n 1 = shown\n\n-1x\n+1\n0x10\n1.9\n--1\n-\nPsi\n"), 5);
  const double values[] = {0, 1, 0, -1, 1, 0, 1, 0, 0};
  for (int16_t field = 2; field <= 10; field++) EXPECT_EQ(GetFacVal(1, 0, text, field), values[field - 2]) << field;
}

TEST_F(FacilityFile, trailing_blanks_and_both_line_ends_are_trimmed_and_leading_blanks_kept) {
  ASSERT_EQ(read("t\r\n1\r\n  Main \t\r\n7\r\n1\r\n1\r\n1\r\n1\r\n5\r\n1\r\n1\r\n1\r\nPsi  \r\n"), 5);
  EXPECT_EQ(name(1), "  Main");
  EXPECT_EQ(units(1), "Psi");
  EXPECT_EQ(GetFacVal(1, 0, text, 7), 5.0);
}

TEST_F(FacilityFile, sixty_blanks_are_an_empty_name_and_an_empty_line) {
  ASSERT_EQ(read("t\n1\n" + row(std::string(60, ' '), 7)), 5);
  EXPECT_EQ(name(1), "");
  SaveFac(dir.path("out").c_str(), "t");
  EXPECT_EQ(dir.read("out").substr(0, 7), "t\n5\n\n7\n");
}

TEST_F(FacilityFile, a_file_that_ends_early_repeats_its_last_line) {
  ASSERT_EQ(read("t\n2\nMain\n7\n3"), 6);
  for (int16_t field = 3; field <= 10; field++) EXPECT_EQ(GetFacVal(1, 0, text, field), 3.0) << field;
  EXPECT_EQ(units(1), "3");
  EXPECT_EQ(name(2), "3");
  EXPECT_EQ(GetFacVal(2, 0, text, 2), 3.0);
}

TEST_F(FacilityFile, every_prefix_of_a_file_reads_without_harm) {
  const std::string whole = "title\n2\n" + row("Main", 7) + row("Color Legend", 30002);
  for (size_t length = 0; length <= whole.size(); length++) {
    const int32_t count = read(whole.substr(0, length));
    EXPECT_GE(count, 4) << length;
    EXPECT_EQ(GetFacVal(0, 1, text, 13), count);
  }
}

TEST_F(FacilityFile, long_lines_come_in_pieces_of_255) {
  ASSERT_EQ(read("t\n1\n" + std::string(300, 'n') + "\n7\n"), 5);
  EXPECT_EQ(name(1), std::string(255, 'n'));
  EXPECT_EQ(GetFacVal(1, 0, text, 2), 0.0) << "the rest of the name stands where the number is expected";
  EXPECT_EQ(GetFacVal(1, 0, text, 3), 7.0);
}

TEST_F(FacilityFile, failures_leave_an_empty_table) {
  makeFacilities({9, 30002});
  EXPECT_EQ(FindFacRnoIdx(30002), 2);
  EXPECT_EQ(ReadFac(dir.path("missing").c_str()), -2);
  EXPECT_EQ(GetFacVal(1, 0, text, 1), -1.0) << "no row is left";
  EXPECT_EQ(GetFacVal(0, 1, text, 12), 0.0) << "nor the last number";
  EXPECT_EQ(GetFacVal(0, 30002, text, 0), 0.0);
  EXPECT_EQ(GetFacVal(0, 1, text, 13), 0.0);
  EXPECT_EQ(ReadFac(nullptr), -2);
  for (const char* count : {"-1", "-32768", "32768", "65535"}) {
    DefaultFac();
    EXPECT_EQ(read(std::string("t\n") + count + "\n"), -1) << count;
    EXPECT_EQ(GetFacVal(0, 1, text, 13), 0.0);
    EXPECT_EQ(FindFacRnoIdx(30002), 0);
  }
}

TEST_F(FacilityFile, reserved_rows_must_fit_into_16_bits) {
  EXPECT_EQ(read("t\n32763\n"), 32767);
  EXPECT_EQ(read("t\n32764\n"), -1);
  EXPECT_EQ(GetFacVal(0, 1, text, 13), 0.0);
}

TEST_F(FacilityFile, saving_writes_every_line_and_trims_the_table) {
  ReallocFac(1);
  const double values[] = {7, 1, -2, 3, 4, -1, 5, -6, 8};
  for (int16_t field = 2; field <= 10; field++) SetFacVal(1, field, nullptr, values[field - 2]);
  SetFacVal(1, 1, "Main \t", 0);
  SetFacVal(1, 11, "Psi  ", 0);
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "the title"), 1);
  EXPECT_EQ(dir.read("out"), "the title\n1\nMain\n7\n1\n-2\n3\n4\n-1\n5\n-6\n8\nPsi\n");
  EXPECT_EQ(name(1), "Main");
  EXPECT_EQ(units(1), "Psi");
}

TEST_F(FacilityFile, a_saved_table_reads_back) {
  DefaultFac();
  SetFacVal(1, 1, std::string(254, 'x').c_str(), 0);
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), nullptr), 4);
  EXPECT_EQ(ReadFac(dir.path("out").c_str()), 5) << "the crossings row is added";
  EXPECT_EQ(numbers(5), (std::vector<int32_t>{0, 30002, 30003, 30005, 30006}));
  EXPECT_EQ(name(3), "Bill-Of-Material Text");
}

TEST_F(FacilityFile, an_empty_table_touches_no_file) {
  dir.write("out", "old");
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "t"), 0);
  SetFacVal(1, 13, nullptr, 3);
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "t"), 0) << "a count without a table";
  ReallocFac(0);
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "t"), 0) << "a table without rows";
  ReallocFac(2);
  SetFacVal(1, 13, nullptr, -5);
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "t"), 0);
  EXPECT_EQ(dir.read("out"), "old");
}

TEST_F(FacilityFile, a_file_that_can_not_be_written_gives_minus_two) {
  DefaultFac();
  EXPECT_EQ(SaveFac(dir.path("no/such/folder").c_str(), "t"), -2);
  EXPECT_EQ(SaveFac(nullptr, "t"), -2);
  if (FILE* full = std::fopen("/dev/full", "w")) {
    std::fclose(full);
    EXPECT_EQ(SaveFac("/dev/full", "t"), -2);
  }
}

TEST_F(FacilityFile, a_count_beyond_the_block_saves_empty_rows) {
  DefaultFac();
  GetNextFacCnt();
  EXPECT_EQ(SaveFac(dir.path("out").c_str(), "t"), 5);
  EXPECT_EQ(ReadFac(dir.path("out").c_str()), 6);
}

}  // namespace
}  // namespace pn10::test
