/** Pictures with each allocation failing in turn: nothing stays behind, and a label without a font ends alone. */
#include "faults.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {
namespace {

struct EveryPicture : testing::Test {
  Fresh fresh;
  SceneView picture;
  ~EveryPicture() override { failAllocation(0); }
};

TEST_F(EveryPicture, leaves_no_object_behind_whichever_allocation_fails) {
  makeStreetScene();
  showEverything(picture);
  picture.paintQuietly();
  const int32_t objects = PnGetObjectCount();
  for (int n = 1, waits = 0; !waits; n++) {
    failAllocation(n);
    picture.paintQuietly();
    waits = failureWaits();
    failAllocation(0);
    EXPECT_EQ(PnGetObjectCount(), objects) << "allocation " << n;
    ASSERT_LT(n, 10000);
  }
}

TEST_F(EveryPicture, without_memory_for_a_turned_font_a_label_ends_and_restores_the_background_mode) {
  const int32_t first = addNode(20, 20), second = addNode(60.03, 60.03);
  picture.view.NodeLabelMask = picture.view.NodeTransparent = 1;
  picture.view.NodeLabel[0] = 347;
  int ended = 0;
  for (int n = 1, waits = 0; !waits; n++) {
    for (const int32_t node : {first, second}) {
      model.ndt[node].LABEL_ON = 1;
      model.ndt[node].TEXT_ANGLE = node == second ? 0.0f : 1.0f;
      model.nxy[node].Drawn = -1;
    }
    failAllocation(n);
    const std::string log = only(picture.paint(), {"Ellipse", "SetBkMode", "TextOutA"});
    waits = failureWaits();
    failAllocation(0);
    // The symbols stand at (200, 800) and (600, 399); the first label fails, the second one has its font again.
    ended += log ==
             "Ellipse 195 795 205 805\nSetBkMode 1\nSetBkMode 2\n"
             "Ellipse 595 394 605 404\nSetBkMode 1\nTextOutA 590 393 \"2\"\nSetBkMode 2\n";
    ASSERT_LT(n, 1000);
  }
  EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace pn10::test
