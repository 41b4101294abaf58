/** One pipe pass on the scene view. A world unit is ten dots; (50, 50) is the dot (500, 500). */
#ifndef PN10_TESTS_DRAW_PIPE_PASS_H
#define PN10_TESTS_DRAW_PIPE_PASS_H

#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {

constexpr double kDegree = 3.14159265358979323846 / 180;

class PipePass : public testing::Test {
 protected:
  PipePass() { picture.view.NodeOn = picture.view.CustOn = 0; }
  ~PipePass() override { lookups.flut = {nullptr, 0}, lookups.vlut = {nullptr, 0}; }

  /** A blue solid pipe of width 1 between two new nodes. */
  Pdt& add(double x1 = 10, double y1 = 10, double x2 = 30, double y2 = 10) {
    const PXY last = model.pipeCount ? model.pxy[model.pipeCount] : PXY{};
    const int32_t from = addNode(x1, y1), to = addNode(x2, y2), pipe = addPipe(from, to);
    if (pipe > 1) model.pxy[pipe - 1] = last;  // growing resets the last screen record
    PXY& screen = model.pxy[pipe];
    screen.Color = 0xFF0000;
    screen.LineType = screen.LineWidth = 1;
    screen.Display = 1;
    screen.LENGTH = 20;
    model.pdt[pipe].TEXT_ANGLE = -1;
    model.pdt[pipe].COLOR = -1;
    for (const int32_t node : {from, to}) model.nxy[node].Drawn = 0;
    return model.pdt[pipe];
  }
  std::string lines() { return ops({"MoveToEx", "LineTo"}); }
  std::string ops(std::initializer_list<std::string_view> names) { return only(picture.paint(), names); }

  Fresh fresh;
  SceneView picture;
};

}  // namespace pn10::test

#endif
