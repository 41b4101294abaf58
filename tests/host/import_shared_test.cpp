/** The networks of the shared data set, from both kinds of source, against counts that other programs found. */
#include "host/run.h"

namespace {

using namespace pn10::test;

/** Transcribed from the table of reference facts; links without service lines, interior vertices, feet. */
struct Fact {
  const char *folder, *inp;
  int nodes, links, vertices, customers, pipes;
  double feet; /* of all pipes; 0 where the table's total counts other links too */
};
constexpr Fact kFacts[] = {{"gas_schutterwald", "", 1053, 1053, 0, 1506, 1053, 0},
                           {"gas_gaslib40", "", 40, 45, 0, 0, 39, 0},
                           {"gas_gaslib135", "", 135, 170, 0, 0, 141, 0},
                           {"gas_gaslib582", "", 582, 609, 0, 0, 547, 0},
                           {"gas_eia_georgia", "", 427, 381, 479, 0, 381, 6845439 * 3.28084},
                           {"town_hertingshausen", "", 507, 423, 142, 513, 423, 0},
                           {"water_net1", "Net1.inp", 11, 13, 0, 0, 12, 63530},
                           {"water_net2", "Net2.inp", 36, 40, 0, 0, 40, 36000},
                           {"water_net3", "Net3.inp", 97, 119, 0, 0, 117, 215712},
                           {"water_net6", "Net6.inp", 3356, 3892, 0, 0, 3829, 2095697},
                           {"water_ky4", "ky4.inp", 964, 1158, 2812, 0, 1156, 853809},
                           {"water_ky10", "ky10.inp", 935, 1061, 7796, 0, 1043, 1410846},
                           {"water_anytown", "Anytown.inp", 25, 46, 0, 0, 43, 267302}};

class SharedNetworks : public testing::TestWithParam<Fact> {
 protected:
  void SetUp() override {
    if (sharedFile(std::string("data/networks/") + GetParam().folder + "/nodes.csv").empty())
      GTEST_SKIP() << "the shared data set is not here";
  }
  void expectFacts(const std::string& source, const std::string& units) const {
    const Fact& fact = GetParam();
    const TempDir dir;
    const Result r = run({"import", source, dir.path("n"), "--units", units});
    ASSERT_EQ(r.code, 0) << r.err;
    const std::string info = run({"info", dir.path("n"), "--json"}).out;
    EXPECT_EQ(numberBehind(info, "\"nodes\":{\"live\":"), fact.nodes);
    EXPECT_EQ(numberBehind(info, "\"pipes\":{\"live\":"), fact.links);
    EXPECT_EQ(numberBehind(info, "\"customers\":{\"live\":"), fact.customers);
    EXPECT_EQ(numberBehind(info, "\"elements\":{\"pipes\":"), fact.pipes);
    EXPECT_EQ(numberBehind(info, "\"vertices\":"), fact.vertices);
    if (fact.feet > 0) {
      EXPECT_NEAR(numberBehind(info, "\"length_ft\":"), fact.feet, 2 + fact.feet * 1e-6);
    }
  }
};

TEST_P(SharedNetworks, hold_what_the_facts_say_from_every_source) {
  const std::string nodes = sharedFile(std::string("data/networks/") + GetParam().folder + "/nodes.csv");
  const std::string folder = nodes.substr(0, nodes.rfind('/'));
  expectFacts(folder, *GetParam().inp ? "us" : "metric");
  if (*GetParam().inp) expectFacts(folder + "/" + GetParam().inp, "us");
}

INSTANTIATE_TEST_SUITE_P(All, SharedNetworks, testing::ValuesIn(kFacts),
                         [](const auto& info) { return std::string(info.param.folder); });

}  // namespace
