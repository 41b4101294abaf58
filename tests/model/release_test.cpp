/** Release of the model, and the settings that a host makes once. */
#include "support/model_builder.h"

namespace pn10::test {
namespace {

struct Release : testing::Test {
  Fresh fresh;
};

TEST_F(Release, a_full_model_leaves_no_table_and_no_count) {
  TempDir dir;
  dir.write("model.ndt", fileOf(std::vector<Ndt>{nodeRecord(5, "12")}));
  EXPECT_EQ(ReadNdt(dir.base().c_str(), 0, 10.1f), 12);
  addPipe(1, 1), addCust(1, 0, 0), addVtx(vtxRecord(1, 0)), addText("t"), addUgd(1, 0, 0, 1, 1);
  model.hdr = newTable<Hdr>(200);
  FreeModel();
  for (const void* table :
       std::initializer_list<const void*>{model.hdr, model.cdt, model.cxy, model.ndt, model.nxy, model.rdx, model.pdt,
                                          model.pxy, model.vtx, model.gtx, model.ugd}) {
    EXPECT_EQ(table, nullptr);
  }
  EXPECT_EQ(model.custCount + model.nodeCount + model.pipeCount + model.vtxCount, 0);
  EXPECT_EQ(model.textCount + model.textCapacity + model.ugdCount + model.ugdCapacity, 0);
  EXPECT_EQ(model.ndtSlots + model.nxySlots + model.pdtSlots + model.pxySlots + model.cdtSlots + model.cxySlots, 0);
  EXPECT_EQ(model.vtxSlots + model.rdxRows, 0);
}

TEST_F(Release, ids_and_names_go_on_from_where_they_were) {
  model.lastNodeId = 5, model.lastPipeId = 6, model.lastCustId = 7, model.lastNodeName = 8, model.lastGroupId = 9;
  FreeModel();
  EXPECT_EQ(GetNextNid(), 6);
  EXPECT_EQ(GetNextPid(), 7);
  EXPECT_EQ(GetNextCid(), 8);
  EXPECT_EQ(GetNextNode(1), 9);
  EXPECT_EQ(model.lastGroupId, 9);
}

TEST_F(Release, twice_in_a_row_does_nothing_the_second_time) {
  addNodes(3);
  FreeModel();
  FreeModel();
  EXPECT_EQ(model.nodeCount, 0);
}

TEST_F(Release, four_counts_go_to_0_also_without_their_tables) {
  model.custCount = model.nodeCount = model.pipeCount = model.vtxCount = 9;
  FreeModel();
  EXPECT_EQ(model.custCount + model.nodeCount + model.pipeCount + model.vtxCount, 0);
}

TEST_F(Release, fittings_have_a_call_of_their_own) {
  addFtg(ftgRecord(1, "tee"));
  FreeModel();
  EXPECT_EQ(model.ftgCount, 1);
  EXPECT_EQ(FreeFdt(), 1);
  EXPECT_EQ(model.ftgCount, 0);
  EXPECT_EQ(model.fdt, nullptr);
  EXPECT_EQ(FreeFdt(), 0);
}

TEST_F(Release, cnull_answers_0) { EXPECT_EQ(cnull(), 0); }

TEST_F(Release, paths_are_kept_and_the_default_pipe_colour_becomes_red) {
  EXPECT_EQ(settings.offColor, 0);
  EXPECT_EQ(SetGlobalGDI("/data/", "/second/"), 0);
  EXPECT_STREQ(settings.dataPath, "/data/");
  EXPECT_STREQ(settings.secondPath, "/second/");
  EXPECT_EQ(settings.offColor, 255);
  EXPECT_EQ(SetGlobalGDI(nullptr, std::string(1000, 'p').c_str()), 0);
  EXPECT_STREQ(settings.dataPath, "");
  EXPECT_EQ(std::strlen(settings.secondPath), sizeof settings.secondPath - 1);
}

TEST_F(Release, units_and_factors_are_kept) {
  SetGlobalUnits("ft/s", "ft", "mi", 1.5f, 2.5f, -3.5f, 0.125f);
  EXPECT_STREQ(settings.velUnits, "ft/s");
  EXPECT_STREQ(settings.elevUnits, "ft");
  EXPECT_STREQ(settings.coordUnits, "mi");
  EXPECT_EQ(settings.velFactor, 1.5f);
  EXPECT_EQ(settings.effFactor, 2.5f);
  EXPECT_EQ(settings.lengthFactor, -3.5f);
  EXPECT_EQ(settings.tolerance, 0.125f);
  SetGlobalUnits(nullptr, std::string(100, 'u').c_str(), "m", 0, 0, 0, 0);
  EXPECT_STREQ(settings.velUnits, "");
  EXPECT_EQ(std::strlen(settings.elevUnits), 40u);
}

TEST_F(Release, the_cancel_flag_is_kept) {
  SetAppCancel(-3);
  EXPECT_EQ(settings.appCancel, -3);
}

}  // namespace
}  // namespace pn10::test
