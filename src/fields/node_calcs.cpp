/** Loads, balance, temperature and comparison of a node. */
#include "fields/node_calcs.h"

#include <cmath>

#include "fields/records.h"
#include "model/convert.h"
#include "model/draw_state.h"

namespace {

using namespace pn10;

/** The value that is compared with the measured one; false when nothing is. */
bool compared(const Ndt& n, double* value) {
  *value = wide(n.CMP_MODE == 1 ? n.PRESSURE : n.QB_LOAD);
  return n.CMP_MODE == 1 || n.CMP_MODE == 2;
}

}  // namespace

namespace pn10 {

double touchingPipes(int32_t node) {
  int32_t count = 0;
  for (int32_t p = 1; p <= pipeTop() && count < 6; p++) {
    const Pdt& pipe = model.pdt[p];
    count += pipe.REC_STATUS >= 0 && (pipe.FROM_NODE == node || pipe.TO_NODE == node);
  }
  return count;
}

double basePressure(const Ndt& n) { return std::fabs(wide(n.P_FACTOR) * wide(n.PRESSURE)); }

double baseLoad(const Ndt& n) { return wide(n.Q_FACTOR) * wide(n.QB_LOAD); }

double rankine(const Ndt& n) {
  const double t = wide(n.T);
  double absolute = t;
  switch (settings.tempUnits[0]) {
    case 'C':
      absolute = t * wide(1.8f) + wide(491.67f);
      break;
    case 'F':
      absolute = t + wide(459.67f);
      break;
    case 'K':
      absolute = t * wide(1.8f);
      break;
    default:
      break;
  }
  return wide(toFloat(absolute));
}

double nodeBalance(int32_t node) {
  const Ndt& n = nodeAt(node);
  if (n.QB_STATUS != 0 || n.QX_STATUS != 0) return -1.0;
  int32_t pipes[7];
  double xs[7], ys[7];
  float zs[7];
  PipeConnects(node, pipes, xs, ys, zs);
  if (pipes[0] == 0) return 0.0;
  double sum = 0.0;
  for (int32_t i = 1; i <= pipes[0]; i++) {
    const Pdt& pipe = model.pdt[pipes[i]];
    const double flow = wide(pipe.Q_FACTOR) * wide(pipe.FLOW);
    sum += pipe.FROM_NODE == node ? -flow : flow;
  }
  return std::fabs(CalcNodeQBase(node) + sum / wide(n.Q_FACTOR) + CalcNodeQExt(node));
}

double nodeDifference(const Ndt& n) {
  double value;
  return compared(n, &value) ? value - wide(n.CMP_VALUE) : 0.0;
}

double nodePercentage(const Ndt& n) {
  double value;
  if (!compared(n, &value)) return 0.0;
  const double whole = n.CMP_MODE == 1 ? wide(n.PATM) + value : value;
  return whole == 0.0 ? 0.0 : (value - wide(n.CMP_VALUE)) / whole * 100.0;
}

}  // namespace pn10

double CalcNodeQBase(int32_t node) {
  if (!hasNodeSlot(node)) return 0.0;
  Ndt& n = model.ndt[node];
  if (std::isnan(n.QB_LOAD)) n.QB_LOAD = 0.0f;
  if (n.HYD_STATUS != 0) return 0.0;
  const bool diverse = n.QB_KNOWN == 0 && n.QB_DF != 0;
  return diverse ? wide(n.QB_LOAD) * wide(drawState.LoadFactor) : wide(n.QB_LOAD);
}

double CalcNodeQExt(int32_t node) {
  if (!hasNodeSlot(node)) return 0.0;
  const Ndt& n = model.ndt[node];
  double load = 0.0;
  if (n.QX_STATUS == 0) {
    load = wide(n.QX_LOAD);
    if (n.QX_DF != 0) load *= wide(drawState.LoadFactor);
    load += wide(n.QX_FIXED);
  }
  return load / wide(n.Q_FACTOR);
}
