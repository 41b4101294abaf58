/** Random networks from a seed. */
#include "support/random_network.h"

#include <cstdio>

#include "model/tables.h"

namespace pn10::test {

void makeRandomNetwork(uint32_t seed, NetworkSize size) {
  std::mt19937 random(seed);
  const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<uint32_t>(n + 1)); };
  const auto chance = [&](int percent) { return upTo(99) < percent; };
  const int32_t vertices = size.pipes * 2;
  makeEmptyTables(size.nodes, size.pipes, size.customers, vertices);

  for (int32_t n = 1; n <= size.nodes; n++) {
    Ndt& node = model.ndt[n];
    node.ID = n * 10;
    // A coarse grid, so that nodes coincide and distances tie.
    node.X_COORD = upTo(40) * 2.5;
    node.Y_COORD = upTo(40) * 2.5;
    node.Z_COORD = static_cast<float>(upTo(3));
    node.SYM_SIZE = chance(20) ? static_cast<float>(upTo(6)) : chance(10) ? -static_cast<float>(upTo(5)) : 0.0f;
    node.REC_STATUS = static_cast<int16_t>(chance(8) ? -1 : 0);
    node.HYD_STATUS = static_cast<uint8_t>(chance(5));
    node.HYD_TYPE = static_cast<uint8_t>(chance(15) ? 1 + upTo(1) : 0);
    std::snprintf(node.NODENAME, sizeof node.NODENAME, "%s%d%s", chance(50) ? "Node " : "nd", n / 2,
                  chance(30) ? "  " : "");
    model.nxy[n].Drawn = static_cast<int16_t>(chance(8) ? -2 : upTo(1) - 1);
  }
  int32_t nextVtx = 1;
  for (int32_t p = 1; p <= size.pipes; p++) {
    Pdt& pipe = model.pdt[p];
    PXY& screen = model.pxy[p];
    pipe.ID = p * 7;
    // Few hubs with many pipes; pipes from a node to itself happen too.
    pipe.FROM_NODE = chance(25) ? 1 + upTo(2) : 1 + upTo(size.nodes - 1);
    pipe.TO_NODE = 1 + upTo(size.nodes - 1);
    if (chance(2)) pipe.TO_NODE = upTo(1) ? 0 : size.nodes + 5;
    pipe.HYD_TYPE = static_cast<uint8_t>(chance(60) ? 0 : upTo(5));
    pipe.STATUS = static_cast<uint8_t>(chance(8));
    pipe.REC_STATUS = static_cast<int16_t>(chance(6) ? -1 : 0);
    pipe.FLOW = static_cast<float>(chance(12) ? 0 : upTo(20) - 10);
    pipe.Q_FACTOR = static_cast<float>(1 + upTo(2));
    pipe.FACILITY = static_cast<int16_t>(1 + upTo(2));
    pipe.LENGTH = static_cast<float>(upTo(90)) + 0.25f;
    std::snprintf(pipe.L_UNITS, sizeof pipe.L_UNITS, chance(50) ? "Feet  " : "m");
    std::snprintf(pipe.LINK_ID, sizeof pipe.LINK_ID, "lnk%d%s", p / 3, chance(30) ? " " : "");
    screen.Report = static_cast<int16_t>(!chance(8));
    screen.Active = static_cast<int16_t>(!chance(8));
    screen.DRAWN = static_cast<uint8_t>(!chance(10));
    screen.TraceColor = chance(10) ? 1 + upTo(3) * 0x101010 : 0;
    screen.Color = upTo(255);
    if (chance(30)) {
      pipe.TEXT_X = upTo(100);
      pipe.TEXT_Y = upTo(100);
    }
    const int shape = upTo(9);
    if (shape >= 6) {
      const int count = shape == 6 ? 0 : upTo(2) > 0 ? 2 : 1;
      pipe.VTX_MODE = 4;
      if (count) screen.FIRST_VTX = nextVtx;
      for (int i = 0; i < count; i++, nextVtx++) {
        Vtx& vertex = model.vtx[nextVtx];
        vertex.VTX_OWNER = pipe.ID;
        vertex.VTX_X = upTo(100);
        vertex.VTX_Y = upTo(100);
        vertex.VTX_Z = static_cast<float>(upTo(2));
      }
      if (count) screen.LAST_VTX = nextVtx - 1;
    } else if (shape == 5) {
      pipe.VTX_MODE = static_cast<uint8_t>(1 + upTo(1));
      Vtx& vertex = model.vtx[nextVtx];
      vertex.VTX_OWNER = pipe.ID;
      vertex.VTX_X = 10 + upTo(60);
      vertex.VTX_Y = 0.3 + upTo(25) * 0.1;
      screen.FIRST_VTX = screen.LAST_VTX = nextVtx++;
    } else if (shape == 4) {
      pipe.VTX_MODE = 3;
    }
  }
  for (int32_t c = 1; c <= size.customers; c++) {
    Cdt& cust = model.cdt[c];
    cust.ID = c;
    cust.PIPE_REC = upTo(size.pipes);
    cust.REC_STATUS = static_cast<int16_t>(chance(8) ? -1 : 0);
    if (cust.PIPE_REC > 0 && cust.REC_STATUS == 0 && !chance(10)) model.pdt[cust.PIPE_REC].CUST_COUNT++;
    model.cxy[c].TraceColor = chance(10) ? -1 : 0;
  }
}

}  // namespace pn10::test
