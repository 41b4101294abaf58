/** The short way of plain pipes against the long way of all others: the same operations, the same marks. */
#include <cmath>

#include "draw/pipe_pass.h"

namespace pn10::test {
namespace {

class PlainPipes : public PipePass {
 protected:
  /** Plain pipes of all shapes, and one of each kind that is not plain or not to be seen. */
  void addAllKinds() {
    for (int i = 0; i < 200; i++) {
      const double x = (i * 37) % 140 - 20, y = (i * 53) % 140 - 20;
      const int32_t pipe = add(x, y, x + 9, y + i % 7).ID;
      if (i % 3) addRun(pipe, {{x + 2, y + 3}, {x + 5, y - 30}});
      model.pdt[pipe].VTX_MODE = static_cast<uint8_t>(i % 5);
      model.pxy[pipe].LineWidth = static_cast<int16_t>(1 + i % 4);
    }
    model.pdt[20].HYD_TYPE = 2;
    model.pdt[30].FLAG_BYTE = 1;
    model.pxy[40].HILITE = 1;
    model.pdt[50].REC_STATUS = -1;
    model.pxy[60].Display = 0;
    model.pxy[70].LENGTH = 0;
    model.pdt[80].FROM_NODE = 0;
    model.pdt[81].TO_NODE = model.nodeCount + 1;
    model.pdt[82].TO_NODE = -5;
    model.pxy[90].LineType = 6;
    model.pxy[91].LineType = 16;
    model.pxy[92].FIRST_VTX = -3;
    model.vtx[model.pxy[65].FIRST_VTX].VTX_HILITE = 1;
    model.pxy[95].LAST_VTX = INT32_MAX;
    model.ndt[model.pdt[100].FROM_NODE].X_COORD = std::nan("");
    model.ndt[model.pdt[101].TO_NODE].Y_COORD = -1e300;
    model.ndt[model.pdt[102].TO_NODE].X_COORD = HUGE_VAL;
  }
  /** What is painted, and which pipes are marked as drawn; every second one was before. */
  std::string painted(bool shortWay) {
    picture.view.PipeLabelMask = !shortWay;  // with labels on, though no pipe has one, all go the long way
    for (int32_t p = 1; p <= model.pipeCount; p++) model.pxy[p].DRAWN = static_cast<uint8_t>(p % 2);
    std::string log = picture.paint() + "drawn ";
    for (int32_t p = 1; p <= model.pipeCount; p++) log += model.pxy[p].DRAWN ? '1' : '0';
    return log;
  }
};

TEST_F(PlainPipes, take_the_same_operations_and_marks_by_the_short_way) {
  addAllKinds();
  picture.minPixels = 3;  // a pipe of no length is too short to draw
  picture.view.DevicesOn = picture.view.NodeOn = 1;
  for (const int32_t clip : {1, 0}) {
    for (const double window : {100.0, 30.0, 1e-9}) {
      for (const int32_t percent : {0, 7, 100}) {
        picture.plot.ClipOn = clip;
        picture.plot.PollPercent = percent;
        picture.plot.GripsOn = picture.plot.GripsShown = percent == 7;
        picture.x1 = picture.y0 = window;
        const std::string log = painted(true);
        EXPECT_EQ(log, painted(false)) << clip << ' ' << window << ' ' << percent;
        if (window == 100) {
          EXPECT_GT(timesIn(log, "LineTo"), 100);
        }
      }
    }
  }
}

}  // namespace
}  // namespace pn10::test
