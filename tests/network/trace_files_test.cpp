/** The files of a trace: control files that end early, outputs that are off or blocked, wild numbers. */
#include <filesystem>

#include "network/traced.h"

namespace pn10::test {
namespace {

TEST_F(SystemTrace, the_write_files_switch_rules_all_selectors) {
  makeRow(2);
  EXPECT_EQ(trace({.type = 2, .writeFiles = 0}, 1), 1);
  for (const char* name : kTraceFiles) EXPECT_FALSE(dir_.exists(name)) << name;
}

TEST_F(SystemTrace, an_unknown_type_traces_nothing_and_creates_the_files) {
  makeRow(3);
  EXPECT_EQ(trace({.type = 99}, 1), 0);
  EXPECT_EQ(trace({.type = 99, .startKind = 9}, 1, 1), 1);
  for (const char* name : kTraceFiles) EXPECT_TRUE(dir_.exists(name)) << name;
  EXPECT_EQ(file("trace.sum"),
            "Pipes Found: 0\nCustomers Found: 0\nControl Devices Found: 0\nTurned 'Off' Elements: 0\n");
}

TEST_F(SystemTrace, control_files_that_end_early) {
  makeRow(2);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), -1);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 1, nullptr, 0), -1);
  const std::string whole = Control{.type = 2, .selectors = {}}.text();
  std::vector<size_t> ends;
  for (size_t at = 0; (at = whole.find('\n', at)) != std::string::npos; at++) ends.push_back(at);
  ASSERT_EQ(ends.size(), 8u);
  for (size_t line = 0; line < 8; line++) {
    dir_.write("pntrace.ini", whole.substr(0, ends[line]));  // the line is there, its end is not
    EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), line == 0 ? -2 : line == 1 ? -3 : -4) << line;
  }
  dir_.write("pntrace.ini", "");
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), -2);
  dir_.write("pntrace.ini", whole);
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), 1);
  dir_.write("pntrace.ini", "2\n255\n1\n0\n0\n0\n0\n2000000000\n4");  // selectors missing
  EXPECT_EQ(CalcSystemTrace(1, 0, 0, 0, nullptr, 0), 1);
  EXPECT_TRUE(dir_.exists("trace.sum"));
}

TEST_F(SystemTrace, list_control_files_that_end_early) {
  makeRow(2);
  const std::string whole = Control{.type = 2}.listText();
  for (size_t lines = 0, at = 0; lines < 7; lines++, at = whole.find('\n', at) + 1) {
    dir_.write("traceup.ini", whole.substr(0, at));
    EXPECT_EQ(CalcSystemTrace(1, 0, 0, 1, nullptr, 0), lines == 0 ? -2 : lines == 1 ? -3 : -4) << lines;
  }
}

TEST_F(SystemTrace, an_output_file_that_cannot_be_created) {
  makeRow(2);
  for (const char* name : kTraceFiles) {
    for (const char* left : kTraceFiles) std::filesystem::remove(dir_.path(left));
    std::filesystem::create_directory(dir_.path(name));
    EXPECT_EQ(trace({.type = 2}, 1), -2) << name;
    std::filesystem::remove(dir_.path(name));
  }
}

TEST_F(SystemTrace, records_out_of_range_are_harmless) {
  makeRow(3);
  for (int32_t bad : {-1, 0, 4, 2000000000}) {
    EXPECT_EQ(trace({.type = 2}, bad), 0);
    EXPECT_EQ(trace({.type = 2, .startKind = 10}, bad, bad), 0);
    EXPECT_EQ(trace({.type = 1}, 1, 0, bad), 2) << bad;
  }
  FreeModel();
  EXPECT_EQ(trace({.type = 2, .startKind = 9}, 1, 1), 0) << "no model at all";
}

}  // namespace
}  // namespace pn10::test
