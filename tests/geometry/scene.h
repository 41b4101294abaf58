/** Pipes made in the tables directly, for tests of measures. */
#ifndef PN10_TESTS_GEOMETRY_SCENE_H
#define PN10_TESTS_GEOMETRY_SCENE_H

#include <vector>

#include "model/draw_state.h"
#include "model/tables.h"
#include "support/support.h"

namespace pn10::test {

struct At {
  double x, y;
  float z = 0;
};

/** One pipe (record 1) from node 1 to node 2 with its vertices (records 1 up). */
class OnePipe : Fresh {
 public:
  OnePipe(At from, At to, int mode = 0, const std::vector<At>& vertices = {}) {
    const auto count = static_cast<int32_t>(vertices.size());
    model.ndt = newTable<Ndt>(2);
    model.pdt = newTable<Pdt>(1);
    model.pxy = newTable<PXY>(1);
    model.vtx = newTable<Vtx>(count);
    model.ndtSlots = 3;
    model.pdtSlots = model.pxySlots = 2;
    model.vtxSlots = count + 1;
    model.nodeCount = 2;
    model.pipeCount = 1;
    model.vtxCount = count;
    place(1, from);
    place(2, to);
    model.pdt[1].FROM_NODE = 1;
    model.pdt[1].TO_NODE = 2;
    model.pdt[1].VTX_MODE = static_cast<uint8_t>(mode);
    for (int32_t i = 0; i < count; i++) {
      const At& p = vertices[static_cast<size_t>(i)];
      model.vtx[i + 1].VTX_X = p.x;
      model.vtx[i + 1].VTX_Y = p.y;
      model.vtx[i + 1].VTX_Z = p.z;
    }
    model.pxy[1].FIRST_VTX = count ? 1 : 0;
    model.pxy[1].LAST_VTX = count;
  }

 private:
  static void place(int32_t node, At p) {
    model.ndt[node].X_COORD = p.x;
    model.ndt[node].Y_COORD = p.y;
    model.ndt[node].Z_COORD = p.z;
  }
};

}  // namespace pn10::test

#endif
