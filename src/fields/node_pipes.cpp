/** The pipes at a node, and the names of nodes: plain scans of the tables, under the wait cursor where stated. */
#include <cstring>

#include "fields/records.h"
#include "model/wait_cursor.h"

namespace {

using namespace pn10;

constexpr int32_t kMostEnds = 6;

struct Point {
  double x, y;
  float z;
};

Point pointOf(const Ndt& n) { return {n.X_COORD, n.Y_COORD, n.Z_COORD}; }

Point vertexPoint(int32_t v) {
  if (!hasVtxSlot(v)) return {};
  return {model.vtx[v].VTX_X, model.vtx[v].VTX_Y, model.vtx[v].VTX_Z};
}

/** Where a pipe goes from one of its ends: to the vertex beside it, or straight to the other node. */
Point direction(int32_t p, bool fromEnd) {
  const Pdt& pipe = model.pdt[p];
  if (pipe.VTX_MODE != 4) return pointOf(nodeAt(fromEnd ? pipe.TO_NODE : pipe.FROM_NODE));
  if (!hasPxySlot(p)) return {};
  return vertexPoint(fromEnd ? model.pxy[p].FIRST_VTX : model.pxy[p].LAST_VTX);
}

}  // namespace

int32_t GetPipeCount(int32_t node) {
  const WaitCursor wait;
  int32_t count = 0;
  for (int32_t p = 1; p <= pipeTop(); p++) {
    const Pdt& pipe = model.pdt[p];
    if (pipe.REC_STATUS >= 0) count += (pipe.FROM_NODE == node) + (pipe.TO_NODE == node);
  }
  return count;
}

void PipeConnects(int32_t node, int32_t* pipes, double* xs, double* ys, float* zs) {
  const WaitCursor wait;
  int32_t count = 0;
  for (int32_t p = 1; p <= pipeTop() && count < kMostEnds; p++) {
    const Pdt& pipe = model.pdt[p];
    if (pipe.REC_STATUS < 0) continue;
    for (const bool fromEnd : {true, false}) {
      if ((fromEnd ? pipe.FROM_NODE : pipe.TO_NODE) != node || count == kMostEnds) continue;
      const Point to = direction(p, fromEnd);
      count++;
      if (pipes) pipes[count] = p;
      if (xs) xs[count] = to.x;
      if (ys) ys[count] = to.y;
      if (zs) zs[count] = to.z;
    }
  }
  if (pipes) pipes[0] = count;
}

int32_t CkNodeName(int32_t node, const char* name) {
  if (!name) return 0;
  // kept: the length counts as 16 bits
  const size_t length = static_cast<uint16_t>(std::strlen(name));
  if (length >= sizeof(Ndt::NODENAME)) return 0;
  for (int32_t n = 1; n <= nodeTop(); n++) {
    const char* other = model.ndt[n].NODENAME;
    if (n != node && other[length] == 0 && std::strncmp(other, name, length) == 0) return n;
  }
  return 0;
}
