/** A model on its way to disk and back: what is live keeps its identity, name and geometry under new record numbers. */
#include <map>
#include <random>
#include <set>

#include "support/model_builder.h"

namespace pn10::test {

namespace {

struct Place {
  double x, y;
  float z;
  bool operator==(const Place&) const = default;
};

/** A model told by identities alone, so that record numbers do not matter. */
struct Told {
  struct Node {
    std::string name;
    Place at;
    float pressure;
    bool operator==(const Node&) const = default;
  };
  struct Pipe {
    int32_t from, to;
    std::string size;
    float length;
    int mode;
    std::vector<Place> path;
    std::multiset<std::string> fittings;
    bool operator==(const Pipe&) const = default;
  };
  struct Customer {
    int32_t pipe;
    std::string link;
    Place at;
    std::vector<Place> service;
    bool operator==(const Customer&) const = default;
  };
  std::map<int32_t, Node> nodes;
  std::map<int32_t, Pipe> pipes;
  std::map<int32_t, Customer> customers;
  bool operator==(const Told&) const = default;
};

std::vector<Place> places(int32_t first, int32_t last) {
  std::vector<Place> run;
  for (int32_t v = first; v > 0 && v <= last; v++)
    run.push_back({model.vtx[v].VTX_X, model.vtx[v].VTX_Y, model.vtx[v].VTX_Z});
  return run;
}

/** What a save must keep of the model in memory: live pipes, the nodes they touch, customers of live pipes or of none.
 */
Told tell() {
  Told told;
  std::map<int32_t, std::multiset<std::string>> fittings;
  for (int32_t f = 1; f <= model.ftgCount; f++) fittings[model.fdt[f].FTG_PIPE_ID].insert(model.fdt[f].FTG_NAME);
  for (int32_t p = 1; p <= model.pipeCount; p++) {
    const Pdt& pipe = model.pdt[p];
    if (pipe.REC_STATUS < 0) continue;
    for (const int32_t n : {pipe.FROM_NODE, pipe.TO_NODE}) {
      const Ndt& node = model.ndt[n];
      told.nodes[node.ID] = {node.NODENAME, {node.X_COORD, node.Y_COORD, node.Z_COORD}, node.PRESSURE};
    }
    const bool bent = pipe.VTX_MODE != 0;
    told.pipes[pipe.ID] = {model.ndt[pipe.FROM_NODE].ID,
                           model.ndt[pipe.TO_NODE].ID,
                           pipe.SIZE_TYPE,
                           pipe.LENGTH,
                           pipe.VTX_MODE,
                           bent ? places(model.pxy[p].FIRST_VTX, model.pxy[p].LAST_VTX) : std::vector<Place>{},
                           fittings[pipe.ID]};
  }
  for (int32_t c = 1; c <= model.custCount; c++) {
    const Cdt& cust = model.cdt[c];
    if (cust.REC_STATUS < 0 || (cust.PIPE_REC && model.pdt[cust.PIPE_REC].REC_STATUS < 0)) continue;
    told.customers[cust.ID] = {
        cust.PIPE_REC ? model.pdt[cust.PIPE_REC].ID : 0,
        cust.LINK_ID,
        {cust.X_COORD, cust.Y_COORD, cust.Z_COORD},
        cust.VTX_MODE == 4 ? places(model.cxy[c].FIRST_VTX, model.cxy[c].LAST_VTX) : std::vector<Place>{}};
  }
  return told;
}

void load(const std::string& base) {
  FreeModel();
  FreeFdt();
  ASSERT_GE(ReadVtx(base.c_str(), 0), 0);
  ASSERT_GE(ReadNdt(base.c_str(), 0, 10.1f), 0);
  ASSERT_GE(ReadPdt(base.c_str(), 1, "psig", 0), 0);
  ASSERT_GE(ReadCdt(base.c_str(), 0), 0);
  ASSERT_GE(ReadFtg(base.c_str(), 0, 0, "10.0"), 0);
}

/** A random model: shared nodes, parallel pipes, polylines, arcs, fittings, service lines, deleted records of every
 * kind. */
void makeRandomModel(uint32_t seed) {
  std::mt19937 random(seed);
  const auto upTo = [&](int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n + 1)); };
  const auto coordinate = [&] { return upTo(100000) / 64.0; };
  const int32_t nodes = 2 + upTo(12), pipes = 1 + upTo(15), custs = upTo(10);
  for (int32_t n = 1; n <= nodes; n++) {
    const int32_t r = addNode(
        nodeRecord(n * 3 + 1, "Node " + std::to_string(seed) + "-" + std::to_string(n), coordinate(), coordinate()));
    model.ndt[r].PRESSURE = static_cast<float>(upTo(900)) / 8;
    if (upTo(6) == 0) model.ndt[r].REC_STATUS = -1;
  }
  for (int32_t p = 1; p <= pipes; p++) {
    const int32_t r = addPipe(pipeRecord(p * 5 + 2, 1 + upTo(nodes - 1), 1 + upTo(nodes - 1)));
    std::snprintf(model.pdt[r].SIZE_TYPE, sizeof model.pdt[r].SIZE_TYPE, "size %d", upTo(9));
    model.pdt[r].LENGTH = static_cast<float>(upTo(4000)) / 4;
    switch (upTo(3)) {
      case 1:
        addRun(r, {{coordinate(), coordinate(), 1}, {coordinate(), coordinate(), 2}, {coordinate(), coordinate(), 3}});
        break;
      case 2:
        addArc(r, 100 + upTo(500), 0.5 + upTo(20) / 16.0);
        break;
      default:
        break;
    }
    const int32_t count = upTo(5) == 0 ? 1 + upTo(2) : 0;
    for (int32_t f = 0; f < count; f++) addFtg(ftgRecord(model.pdt[r].ID, "fitting " + std::to_string(upTo(4))));
    model.pdt[r].FTG_COUNT = static_cast<uint8_t>(count);
    if (upTo(5) == 0) model.pdt[r].REC_STATUS = -1;
  }
  for (int32_t c = 1; c <= custs; c++) {
    const int32_t r = addCust(custRecord(c * 7, upTo(pipes), coordinate(), coordinate()));
    std::snprintf(model.cdt[r].LINK_ID, sizeof model.cdt[r].LINK_ID, "meter %d", c);
    if (upTo(1)) addService(r, {{coordinate(), coordinate()}, {coordinate(), coordinate(), 4}});
    if (upTo(5) == 0) model.cdt[r].REC_STATUS = -1;
  }
}

}  // namespace

TEST(RoundTrip, a_thousand_random_models_keep_what_is_live) {
  Fresh fresh;
  TempDir dir;
  int32_t pipes = 0, customers = 0, bent = 0;
  for (uint32_t seed = 1; seed <= 1000; seed++) {
    makeRandomModel(seed);
    const Told before = tell();
    const int32_t saved = SavePipe(0, dir.base().c_str());
    ASSERT_EQ(saved, static_cast<int32_t>(before.pipes.size())) << seed;
    load(dir.base());
    const Told after = tell();
    ASSERT_EQ(after.nodes, before.nodes) << seed;
    ASSERT_TRUE(after.pipes == before.pipes) << seed;
    ASSERT_TRUE(after.customers == before.customers) << seed;
    ASSERT_EQ(model.nodeCount, static_cast<int32_t>(before.nodes.size()))
        << "one record for each node in use, seed " << seed;
    pipes += saved;
    customers += static_cast<int32_t>(after.customers.size());
    for (const auto& [id, pipe] : after.pipes) bent += !pipe.path.empty();
    FreeModel();
    FreeFdt();
  }
  EXPECT_GT(pipes, 4000);
  EXPECT_GT(customers, 2000);
  EXPECT_GT(bent, 1500);
}

TEST(RoundTrip, a_model_is_loaded_edited_by_fields_saved_and_loaded_again) {
  Fresh fresh;
  TempDir dir;
  PnSetDate(20240229);
  addNode(nodeRecord(11, "Station", 0, 0));
  addNode(nodeRecord(12, "Corner", 100, 0));
  addNode(nodeRecord(13, "Gone", 50, 50));
  addNode(nodeRecord(14, "End", 100, 200));
  model.ndt[1].HAS_RDX = 1;
  addPipe(pipeRecord(21, 1, 2));
  addPipe(pipeRecord(22, 2, 3));
  addPipe(pipeRecord(23, 2, 4));
  addRun(3, {{110, 50, 1}, {120, 150, 2}});
  addPipe(pipeRecord(24, 1, 4));
  addArc(4, 150, 1.5);
  addFtg(ftgRecord(21, "Elbow", 3, 2.5f, 1));
  addFtg(ftgRecord(23, "Tee"));
  model.pdt[1].FTG_COUNT = model.pdt[3].FTG_COUNT = 1;
  addCust(custRecord(31, 3, 130, 100));
  addService(1, {{125, 100}});
  addCust(custRecord(32, 2, 60, 60));
  DelPipe(2);
  PutRdx(1, "Station", "the only supply", "supply");
  ASSERT_EQ(SavePipe(1, dir.base().c_str()), 3);
  const std::string firstNdt = dir.read("model.ndt"), firstPdt = dir.read("model.pdt"),
                    firstRdx = dir.read("model.rdx");

  load(dir.base());
  // Node 13 was used by the deleted pipe alone; the rest moved up, in the order in which live pipes meet them.
  ASSERT_EQ(model.nodeCount, 3);
  EXPECT_STREQ(model.ndt[3].NODENAME, "End");
  EXPECT_EQ(model.pdt[2].ID, 23);
  EXPECT_EQ(model.pdt[2].TO_NODE, 3);
  ASSERT_EQ(model.custCount, 1) << "the customer of the deleted pipe is gone";
  EXPECT_EQ(model.cdt[1].PIPE_REC, 2);
  releaseTable(model.rdx);  // the read replaces the table of the node load without a release
  ASSERT_EQ(ReadRdx(1, dir.base().c_str()), 0);
  char longText[257], shortText[41];
  EXPECT_EQ(FindRdx(1, "Station", longText, shortText), 1);
  EXPECT_STREQ(longText, "the only supply");

  SetNdtVal(2, NDT_NODENAME, "Corner House", 0);
  SetNdtVal(2, NDT_PRESSURE, "", 58.25);
  SetPdtVal(1, PDT_LENGTH, "", 101.5);
  SetCdtVal(1, CDT_LOAD_MULT, "", 2);
  SetVtxVal(static_cast<int32_t>(GetPdtVal(2, longText, PDT_FIRST_VTX)), VTX_X_COORD, 111);
  SetPdtVal(3, PDT_REC_STATUS, "", 1);  // in use: the next store stamps the date
  SetPdtVal(3, PDT_FLOW, "", 12);
  const Told edited = tell();
  ASSERT_EQ(SavePipe(1, dir.base().c_str()), 3);
  EXPECT_EQ(dir.read("model.ndt.bak"), firstNdt);
  EXPECT_EQ(dir.read("model.pdt.bak"), firstPdt);
  EXPECT_EQ(dir.read("model.rdx.bak"), firstRdx);

  load(dir.base());
  EXPECT_TRUE(tell() == edited);
  EXPECT_STREQ(model.ndt[2].NODENAME, "Corner House");
  EXPECT_EQ(model.ndt[2].PRESSURE, 58.25f);
  EXPECT_EQ(model.vtx[model.pxy[2].FIRST_VTX].VTX_X, 111);
  EXPECT_STREQ(model.pdt[3].REC_DATE, "20240229");
  EXPECT_EQ(model.fdt[1].FTG_NUM, 3);
  EXPECT_EQ(model.fdt[1].FTG_EQL, 2.5f);
}

}  // namespace pn10::test
