/** EPANET text networks: what they become, and what is said about wrong lines. */
#include "host/run.h"

namespace {

using namespace pn10::test;

const char kGood[] =
    "[TITLE]\nA small net ; not a town\n\n"
    "[JUNCTIONS]\n;ID Elev Demand\n J1  10  100 ; first\n\tJ2\t20\n\n"
    "[RESERVOIRS]\n R1 200\n[TANKS]\n T1 50 1 2 3 4 5\n"
    "[PIPES]\n P1 R1 J1 1000 12 100 0 Open\n P2 J1 J2 500 8 100 0 Closed\n P3 J2 T1 .5e3 8 100\n"
    "[PUMPS]\n U1 J1 J2 HEAD 1\n[VALVES]\n V1 J1 J2 6 PRV 40 0\n V2 J1 J2 6 GPV C1 0\n"
    "[STATUS]\n P3 Closed\n U1 1.2\n"
    "[OPTIONS]\n UNITS GPM\n HEADLOSS H-W\n"
    "[COORDINATES]\n J1 100 0\n J2 200 0\n R1 0 0\n T1 300 50\n"
    "[VERTICES]\n P1 25 5\n P1 50 -5\n[END]\nanything may follow\n";

std::string fieldsOf(const std::string& base, const char* kind, int record) {
  const Result r = run({"fields", base, kind, std::to_string(record), "--json"});
  EXPECT_EQ(r.code, 0) << r.err;
  return r.out;
}

TEST(ImportInp, kinds_become_element_types_and_units_are_told) {
  const TempDir dir;
  dir.write("net.inp", kGood);
  const Result r = run({"import", dir.path("net.inp"), dir.path("m/net")});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "4 nodes, 6 pipes and devices, 0 customers")) << r.out;
  EXPECT_TRUE(contains(r.out, "units: length Feet, diameter Inches, flow cfh, pressure psig")) << r.out;
  const std::string info = run({"info", dir.path("m/net"), "--json"}).out;
  EXPECT_TRUE(contains(
      info, "\"elements\":{\"pipes\":3,\"regulators\":1,\"compressors\":1,\"valves\":1,\"wells\":0,\"fittings\":0}"))
      << info;
  EXPECT_TRUE(contains(info, "\"title\":\"A small net\"")) << info;
  EXPECT_EQ(numberBehind(info, "\"vertices\":"), 2);
  EXPECT_EQ(numberBehind(info, "\"length_ft\":"), 2000);
}

TEST(ImportInp, values_arrive_in_their_records) {
  const TempDir dir;
  dir.write("net.inp", kGood);
  const std::string base = dir.path("net");
  ASSERT_EQ(run({"import", dir.path("net.inp"), base}).code, 0);
  const std::string p1 = fieldsOf(base, "pipe", 1), p3 = fieldsOf(base, "pipe", 3);
  EXPECT_TRUE(contains(p1, "\"LINK_ID\",\"text\":\"P1\"") && contains(p1, "\"SIZE_TYPE\",\"text\":\"12\\\"\"")) << p1;
  EXPECT_EQ(numberBehind(p1, "\"LENGTH\",\"value\":"), 1000);
  EXPECT_EQ(numberBehind(p1, "\"INSIDE_D\",\"value\":"), 12);
  EXPECT_EQ(numberBehind(p1, "\"STATUS\",\"value\":"), 0);
  EXPECT_NE(numberBehind(fieldsOf(base, "pipe", 2), "\"STATUS\",\"value\":"), 0);
  EXPECT_NE(numberBehind(p3, "\"STATUS\",\"value\":"), 0);                         /* closed by [STATUS] */
  EXPECT_EQ(numberBehind(fieldsOf(base, "pipe", 5), "\"LENGTH\",\"value\":"), 40); /* the set pressure */
  // Nodes count as the pipes name them: R1, J1, J2, T1. 100 gallons a minute of 231 cubic inches, drawn.
  const std::string reservoir = fieldsOf(base, "node", 1), j1 = fieldsOf(base, "node", 2);
  EXPECT_EQ(numberBehind(reservoir, "\"P_KNOWN\",\"value\":"), 0);
  EXPECT_NEAR(numberBehind(j1, "\"QB_LOAD\",\"value\":"), -100 * 60 * 231 / 1728.0, 0.001);
  EXPECT_EQ(numberBehind(j1, "\"Z_COORD\",\"value\":"), 10);
  EXPECT_EQ(numberBehind(j1, "\"X_COORD\",\"value\":"), 100);
}

TEST(ImportInp, flow_units_decide_about_feet_and_metres) {
  const struct {
    const char *units, *length;
    double perHour; /* of 24 units: cubic feet, or cubic metres */
  } rows[] = {{"CFS", "Feet", 86400},       {"gpm", "Feet", 192.5},  {"MGD", "Feet", 133680.5556},
              {"IMGD", "Feet", 160543.653}, {"AFD", "Feet", 43560},  {"LPS", "Meters", 86.4},
              {"LPM", "Meters", 1.44},      {"MLD", "Meters", 1000}, {"CMH", "Meters", 24},
              {"CMD", "Meters", 1}};
  for (const auto& row : rows) {
    const TempDir dir;
    dir.write("n.inp", "[JUNCTIONS]\nA 0 24\nB 0 0\n[PIPES]\nP A B 10 5\n[OPTIONS]\nUnits " + std::string(row.units) +
                           "\n[COORDINATES]\nA 0 0\nB 1 1\n");
    const Result r = run({"import", dir.path("n.inp"), dir.path("n")});
    EXPECT_TRUE(contains(r.out, std::string("length ") + row.length)) << row.units << r.out << r.err;
    EXPECT_NEAR(numberBehind(fieldsOf(dir.path("n"), "node", 1), "\"QB_LOAD\",\"value\":") / -row.perHour, 1, 1e-6)
        << row.units;
  }
}

TEST(ImportInp, demands_of_their_own_section_replace_and_add_up) {
  const TempDir dir;
  dir.write("n.inp",
            "[JUNCTIONS]\nA 0 24\nB 0 7\n[DEMANDS]\nA 1\nA 2\n[PIPES]\nP A B 10 5\n[OPTIONS]\nUnits "
            "CMH\n[COORDINATES]\nA 0 0\nB 1 1\n");
  ASSERT_EQ(run({"import", dir.path("n.inp"), dir.path("n")}).code, 0);
  EXPECT_EQ(numberBehind(fieldsOf(dir.path("n"), "node", 1), "\"QB_LOAD\",\"value\":"), -3);
  EXPECT_EQ(numberBehind(fieldsOf(dir.path("n"), "node", 2), "\"QB_LOAD\",\"value\":"), -7);
}

TEST(ImportInp, wrong_lines_are_named_and_nothing_is_written) {
  const std::string head = "[JUNCTIONS]\nA 0\nB 0\n[PIPES]\n", tail = "\n[COORDINATES]\nA 0 0\nB 1 1\n";
  const struct {
    std::string text;
    const char* complaint;
  } rows[] = {{"", "n.inp: is no EPANET network"},
              {"hello\n", "n.inp: is no EPANET network"},
              {"[JUNCTIONS\nA 0\n", "n.inp:1: a section name does not end"},
              {head + "P A B 10" + tail, "n.inp:5: [pipes] wants 5 values, here are 4"},
              {head + "P A C 10 5" + tail, "n.inp:5: link 'P': there is no node 'C'"},
              {head + "P A B ten 5" + tail, "n.inp:5: length is no number: 'ten'"},
              {head + "P A B -10 5" + tail, "n.inp:5: length is below 0"},
              {head + "P A B 10 nan" + tail, "n.inp:5: diameter is no number: 'nan'"},
              {head + "P A B 10 1e39" + tail, "n.inp:5: diameter is out of range: '1e39'"},
              {head + "P A B 10 5 100 0 Ajar" + tail, "n.inp:5: status is 'Open' or 'Closed', not 'Ajar'"},
              {head + "P A B 10 5\nP A B 10 5" + tail, "n.inp:6: link 'P' is there twice"},
              {head + "P A B 10 5" + tail + "C 1 1\n", "n.inp:9: there is no node 'C'"},
              {head + "P A B 10 5" + tail + "[VERTICES]\nQ 1 1\n", "n.inp:10: there is no link 'Q'"},
              {head + "P A B 10 5" + tail + "[OPTIONS]\nUNITS buckets\n", "n.inp:10: 'buckets' are no flow units"},
              {"[JUNCTIONS]\nA 0\nA 1\n", "n.inp:3: node 'A' is there twice"},
              {"[JUNCTIONS]\nA 0\n\n\nB 0\n[COORDINATES]\nA 0 0\n", "n.inp:5: node 'B' has no place in [COORDINATES]"},
              {"[JUNCTIONS]\nA 0\n[COORDINATES]\nA 0 0\n", "there is no pipe to import"}};
  for (const auto& row : rows) {
    const TempDir dir;
    dir.write("n.inp", row.text);
    const Result r = run({"import", dir.path("n.inp"), dir.path("m/n")});
    EXPECT_EQ(r.code, 1) << row.complaint;
    EXPECT_TRUE(contains(r.err, row.complaint)) << r.err;
    EXPECT_EQ(filesIn(dir.path("")), std::vector<std::string>{"n.inp"}) << row.complaint;
  }
}

TEST(ImportInp, units_that_the_file_contradicts_are_refused) {
  const TempDir dir;
  dir.write("net.inp", kGood);
  const Result r = run({"import", dir.path("net.inp"), dir.path("m"), "--units", "metric"});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(contains(r.err, "make it us")) << r.err;
  EXPECT_EQ(run({"import", dir.path("net.inp"), dir.path("m"), "--units", "furlongs"}).code, 2);
  EXPECT_EQ(filesIn(dir.path("")), std::vector<std::string>{"net.inp"});
}

TEST(ImportInp, every_part_of_a_file_is_taken_or_refused_whole) {
  const std::string text = kGood;
  const TempDir dir;
  for (size_t size = 0; size < text.size(); size += 7) {
    dir.write("net.inp", text.substr(0, size));
    const Result r = run({"import", dir.path("net.inp"), dir.path("m/n"), "--replace"});
    EXPECT_TRUE(r.code == 0 || (r.code == 1 && contains(r.err, "net.inp"))) << size << r.err;
    EXPECT_FALSE(dir.exists("m/n.part")) << size;
  }
}

}  // namespace
