/** One node pass on the scene view. A world unit is ten dots; (50, 50) is the dot (500, 500). */
#ifndef PN10_TESTS_DRAW_NODE_PASS_H
#define PN10_TESTS_DRAW_NODE_PASS_H

#include "draw/passes.h"
#include "model/draw_state.h"
#include "support/model_builder.h"
#include "support/scene.h"

namespace pn10::test {

class NodePass : public testing::Test {
 protected:
  /** A node marked for the next paint, in the default red. */
  Ndt& add(double x = 50, double y = 50) {
    const NXY last = model.nodeCount ? model.nxy[model.nodeCount] : NXY{};
    const int32_t n = addNode(x, y);
    if (n > 1) model.nxy[n - 1] = last;  // growing resets the last screen record
    model.ndt[n].COLOR = -1;
    model.ndt[n].TEXT_ANGLE = -1;
    mark(n, 0x0000FF);
    return model.ndt[n];
  }
  static void mark(int32_t node, int32_t color) {
    model.nxy[node].Color = color;
    model.nxy[node].Drawn = -1;
  }
  static void markAll() {
    for (int32_t n = 1; n <= model.nodeCount; n++) model.nxy[n].Drawn = -1;
  }
  std::string shapes() {
    markAll();
    return only(picture.paint(), {"Ellipse", "Polygon", "MoveToEx", "LineTo", "Pie"});
  }
  std::string ops(std::initializer_list<std::string_view> names) {
    markAll();
    return only(picture.paint(), names);
  }
  /** The radius in dots of the disc that is painted, 0 for none. */
  int radius() {
    int left = 0, top = 0, right = 0;
    return std::sscanf(shapes().c_str(), "Ellipse %d %d %d", &left, &top, &right) == 3 ? (right - left) / 2 : 0;
  }

  Fresh fresh;
  SceneView picture;
};

}  // namespace pn10::test

#endif
