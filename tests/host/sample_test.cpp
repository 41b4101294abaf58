/** The sample town: the same for a seed, complete, and sound as a network. */
#include <cmath>
#include <map>
#include <set>

#include "host/run.h"

namespace {

using namespace pn10::test;

double node(int32_t n, int16_t field) { return GetNdtVal(n, nullptr, field); }
double pipe(int32_t p, int16_t field) {
  char text[64] = "";
  return GetPdtVal(p, text, field);
}
double cust(int32_t c, int16_t field) {
  char text[64] = "";
  return GetCdtVal(c, text, field);
}

/** The default town, loaded by the library into this process. */
class Town : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(run({"sample", dir.path("t")}).code, 0);
    const std::string base = dir.path("t/town");
    ASSERT_EQ(ReadPLut((base + ".plut").c_str()), 14);
    ASSERT_EQ(ReadFac((base + ".fac").c_str()), 8); /* four of the town, four of the library */
    ASSERT_GE(ReadVtx(base.c_str(), 0), 0);
    ASSERT_GE(ReadNdt(base.c_str(), 0, 10.1f), 0);
    ASSERT_GE(ReadPdt(base.c_str(), 1, "psig", 0), 0);
    ASSERT_GE(ReadCdt(base.c_str(), 0), 0);
    nodes = static_cast<int32_t>(node(0, NDT_COUNT));
    pipes = static_cast<int32_t>(pipe(0, PDT_COUNT));
    customers = static_cast<int32_t>(cust(0, CDT_TABLE_COUNT));
  }
  bool live(int32_t p) const { return pipe(p, PDT_REC_STATUS) >= 0; }

  Fresh fresh;
  TempDir dir;
  int32_t nodes = 0, pipes = 0, customers = 0;
};

TEST(Sample, has_the_same_bytes_for_a_seed_and_others_for_another) {
  const TempDir dir;
  for (const std::string words : {"a --seed 5", "b --seed 5", "c --seed 6"}) {
    EXPECT_EQ(shell("pn10 sample " + words + " --pipes 400", dir.path("")).code, 0);
  }
  const std::vector<std::string> files = filesIn(dir.path("a"));
  EXPECT_EQ(files.size(), 13u);
  EXPECT_EQ(files, filesIn(dir.path("b")));
  for (const std::string& file : files) EXPECT_EQ(dir.read("a/" + file), dir.read("b/" + file)) << file;
  EXPECT_NE(dir.read("a/town.ndt"), dir.read("c/town.ndt"));
  EXPECT_NE(dir.read("a/town.pdt"), dir.read("c/town.pdt"));
}

TEST(Sample, has_exactly_the_pipes_that_are_asked_for) {
  const TempDir dir;
  for (const int wanted : {200, 201, 333, 1000, 2718, 20000}) {
    EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", std::to_string(wanted), "--seed", "3", "--replace"}).code, 0);
    EXPECT_EQ((dir.read("t/town.pdt").size() + 279) / 280, static_cast<size_t>(wanted));
  }
}

TEST(Sample, refuses_numbers_that_make_no_town) {
  const TempDir dir;
  for (const char* bad : {"5", "-3", "1e9", "300.5", "many", "nan", "inf"}) {
    EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", bad}).code, 2) << bad;
  }
  EXPECT_EQ(run({"sample", dir.path("t"), "--seed", "-1"}).code, 2);
  EXPECT_TRUE(filesIn(dir.path("")).empty());
}

TEST(Sample, fails_where_no_folder_can_be_made_and_names_it) {
  const TempDir dir;
  dir.write("file", "x");
  const Result r = run({"sample", dir.path("file/t"), "--pipes", "200"});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(contains(r.err, dir.path("file/t"))) << r.err;
  EXPECT_EQ(filesIn(dir.path("")), std::vector<std::string>{"file"});
}

TEST(Sample, replaces_a_town_only_when_it_is_told_to_and_keeps_it_as_a_backup) {
  const TempDir dir;
  run({"sample", dir.path("t"), "--pipes", "200"});
  const std::string before = dir.read("t/town.pdt");
  const std::vector<std::string> files = filesIn(dir.path("t"));
  const Result refused = run({"sample", dir.path("t"), "--pipes", "250"});
  EXPECT_EQ(refused.code, 1);
  EXPECT_TRUE(contains(refused.err, "t/town.ndt: there is a model already; --replace")) << refused.err;
  EXPECT_EQ(filesIn(dir.path("t")), files);
  EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", "250", "--replace"}).code, 0);
  EXPECT_EQ(dir.read("t/town.pdt.bak"), before);
  EXPECT_NE(dir.read("t/town.pdt"), before);
}

TEST(Sample, puts_aside_what_belongs_to_the_model_before) {
  const TempDir dir;
  run({"sample", dir.path("t"), "--pipes", "200"});
  for (const char* file : {"t/town.gtx", "t/town.ugd", "t/town.rdx"}) dir.write(file, "of the town before");
  dir.write("t/town.part", "mine");
  EXPECT_EQ(run({"sample", dir.path("t"), "--pipes", "200", "--replace"}).code, 0);
  for (const char* file : {"t/town.gtx", "t/town.ugd", "t/town.rdx"}) {
    EXPECT_FALSE(dir.exists(file)) << file;
    EXPECT_EQ(dir.read(std::string(file) + ".bak"), "of the town before") << file;
  }
  EXPECT_EQ(dir.read("t/town.part"), "mine") << "a name that is taken is not used";
}

TEST_F(Town, balances_at_every_node) {
  double supply = 0, drawn = 0;
  for (int32_t n = 1; n <= nodes; n++) {
    if (node(n, NDT_REC_STATUS) < 0) continue;
    ASSERT_EQ(node(n, NDT_BALANCE), 0) << n;
    const double load = node(n, NDT_BASE_LOAD);
    (load > 0 ? supply : drawn) += load;
  }
  EXPECT_GT(supply, 10000);
  EXPECT_EQ(supply, -drawn);
  double used = 0;
  for (int32_t c = 1; c <= customers; c++) used += cust(c, CDT_BASE_LOAD) * cust(c, CDT_COUNT);
  EXPECT_EQ(used, -drawn);
}

TEST_F(Town, has_every_kind_of_element_off_flagged_and_deleted_records) {
  std::map<int, int> types, modes, facilities;
  int off = 0, flagged = 0, deleted = 0, fittings = 0;
  for (int32_t p = 1; p <= pipes; p++) {
    if (!live(p)) {
      deleted++;
      continue;
    }
    types[static_cast<int>(pipe(p, PDT_HYD_TYPE))]++;
    modes[static_cast<int>(pipe(p, PDT_VTX_MODE))]++;
    facilities[static_cast<int>(pipe(p, PDT_FACILITY))]++;
    off += pipe(p, PDT_STATUS) != 0;
    flagged += pipe(p, PDT_FLAG_BYTE) != 0;
    fittings += pipe(p, PDT_FTG_COUNT) != 0;
  }
  EXPECT_EQ(types.size(), 6u);
  for (const int mode : {0, 1, 2, 4}) EXPECT_GT(modes[mode], 0) << mode;
  for (const int facility : {1, 2, 3, 4}) EXPECT_GT(facilities[facility], 0) << facility;
  EXPECT_GT(off, 0);
  EXPECT_GT(flagged, 0);
  EXPECT_GT(deleted, 0);
  EXPECT_GT(fittings, 0);
  int flaggedNodes = 0, offNodes = 0;
  for (int32_t n = 1; n <= nodes; n++)
    flaggedNodes += node(n, NDT_FLAG_TYPE) != 0, offNodes += node(n, NDT_HYD_STATUS) != 0;
  EXPECT_GT(flaggedNodes, 0);
  EXPECT_GT(offNodes, 0);
}

TEST_F(Town, pipes_have_sizes_of_the_library_and_the_length_of_the_map) {
  std::set<std::string> sizes;
  for (int32_t p = 1; p <= pipes; p++) {
    if (!live(p) || pipe(p, PDT_HYD_TYPE) != 0) continue;
    char size[64] = "";
    GetPdtVal(p, size, PDT_SIZE_TYPE);
    sizes.insert(size);
    EXPECT_GT(pipe(p, PDT_LOOKUP_ROW), 0) << size;
    EXPECT_NEAR(pipe(p, PDT_LENGTH), static_cast<double>(CalcPipeLength(p, 1)), 0.01) << p;
  }
  EXPECT_GE(sizes.size(), 6u);
  for (int16_t row = 1; row <= 14; row++) {
    // Inside and two walls make the outside.
    char text[64] = "";
    EXPECT_NEAR(GetPLutVal(row, text, PLUT_INSIDE_D) + 2 * GetPLutVal(row, text, PLUT_WALL),
                GetPLutVal(row, text, PLUT_OUTSIDE_D), 0.002)
        << row;
  }
}

TEST_F(Town, regulators_part_the_tiers_of_pressure) {
  int regulators = 0;
  for (int32_t p = 1; p <= pipes; p++) {
    if (!live(p) || pipe(p, PDT_HYD_TYPE) != 1) continue;
    regulators++;
    const double in = node(static_cast<int32_t>(pipe(p, PDT_FROM_NODE)), NDT_PRESSURE),
                 out = node(static_cast<int32_t>(pipe(p, PDT_TO_NODE)), NDT_PRESSURE);
    EXPECT_LE(out, pipe(p, PDT_LENGTH) + 1e-4) << p; /* the set pressure */
    EXPECT_GT(in, out + 30) << p;
    EXPECT_GE(pipe(p, PDT_FLOW), 0) << p;
  }
  EXPECT_GT(regulators, 5);
}

TEST_F(Town, closed_valves_carry_nothing_and_what_is_fed_has_a_pressure) {
  for (int32_t p = 1; p <= pipes; p++) {
    if (!live(p)) continue;
    if (pipe(p, PDT_STATUS) != 0) {
      EXPECT_EQ(pipe(p, PDT_FLOW), 0) << p;
    }
    if (pipe(p, PDT_FLOW) == 0) continue;
    for (const int16_t end : {PDT_FROM_NODE, PDT_TO_NODE})
      EXPECT_GT(node(static_cast<int32_t>(pipe(p, end)), NDT_PRESSURE), 5) << p;
  }
}

TEST_F(Town, customers_stand_on_both_sides_and_tap_their_pipe) {
  int left = 0, right = 0, bent = 0;
  for (int32_t c = 1; c <= customers; c++) {
    const auto p = static_cast<int32_t>(cust(c, CDT_PIPE_REC));
    ASSERT_TRUE(p >= 1 && p <= pipes && live(p)) << c;
    bent += cust(c, CDT_VTX_MODE) == 4;
    if (pipe(p, PDT_VTX_MODE) != 0) continue;
    // A straight pipe, so by hand: the tap lies on it, the meter to one side.
    const double ax = pipe(p, PDT_FROM_X), ay = pipe(p, PDT_FROM_Y), dx = pipe(p, PDT_TO_X) - ax,
                 dy = pipe(p, PDT_TO_Y) - ay;
    const double length = std::hypot(dx, dy);
    const double tx = cust(c, CDT_SX_COORD) - ax, ty = cust(c, CDT_SY_COORD) - ay;
    EXPECT_NEAR((dx * ty - dy * tx) / length, 0, 0.01) << c;
    EXPECT_GT(dx * tx + dy * ty, 0) << c;
    EXPECT_LT(dx * tx + dy * ty, length * length) << c;
    (dx * (cust(c, CDT_Y_COORD) - ay) - dy * (cust(c, CDT_X_COORD) - ax) > 0 ? left : right)++;
  }
  EXPECT_GT(left, customers / 4);
  EXPECT_GT(right, customers / 4);
  EXPECT_GT(bent, customers / 10);
}

TEST_F(Town, names_are_given_once) {
  std::set<std::string> names, links;
  for (int32_t n = 1; n <= nodes; n++) {
    char text[64] = "";
    GetNdtVal(n, text, NDT_NODENAME);
    EXPECT_TRUE(names.insert(text).second) << text;
  }
  for (int32_t p = 1; p <= pipes; p++) {
    char text[64] = "";
    GetPdtVal(p, text, PDT_LINK_ID);
    EXPECT_TRUE(links.insert(text).second) << text;
  }
}

TEST(Sample, the_header_holds_units_and_the_digit_table) {
  const TempDir dir;
  run({"sample", dir.path("t"), "--pipes", "200", "--seed", "9"});
  const std::string header = dir.read("t/town.hdr");
  EXPECT_TRUE(contains(header, "Sample town of 200 pipes, seed 9\n10.1\nFeet\npsig\ncfh\nInches\n0\n3 0 0 1 0 2 0 1"))
      << header.substr(0, 200);
}

}  // namespace
