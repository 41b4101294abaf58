/** Screen records: fresh, updated after an edit, read and flagged by the host. Numbers without a slot do nothing. */
#include "model/draw_state.h"
#include "model/tables.h"

using namespace pn10;

namespace {

/** Stores through an out argument that the host may leave null. */
template <class T>
void give(T* out, T value) {
  if (out) *out = value;
}

int32_t nodeColor(const Ndt& node) {
  if (node.COLOR >= 0) return node.COLOR;
  return node.HYD_TYPE != 0 ? drawState.View->NodeSpecialColor : drawState.View->NodeColor;
}

int32_t custColor(const Cdt& cust) { return cust.COLOR >= 0 ? cust.COLOR : drawState.View->CustColor; }

/** A run that ends before it begins means that the customer has no service line any more. */
void setServiceRun(Cdt& cust, CXY& screen, int32_t first, int32_t last) {
  const bool empty = first > last;
  screen.FIRST_VTX = empty ? 0 : first;
  screen.LAST_VTX = empty ? 0 : last;
  if (empty) cust.VTX_MODE = 0;
}

}  // namespace

void InitNXY(int32_t node) {
  if (!hasNxySlot(node)) return;
  model.nxy[node] = NXY{};
  model.nxy[node].Color = -1;
}

void InitPXY(int32_t pipe) {
  if (!hasPxySlot(pipe)) return;
  model.pxy[pipe] = PXY{};
  model.pxy[pipe].Color = -1;
  model.pxy[pipe].TraceColor = -1;
}

void InitCXY(int32_t cust) {
  if (!hasCxySlot(cust)) return;
  model.cxy[cust] = CXY{};
  model.cxy[cust].Color = -1;
  model.cxy[cust].TraceColor = -1;
}

int32_t UpdateNXY(int32_t node, int32_t recolour) {
  if (!hasNodeSlot(node) || !hasNxySlot(node)) return 1;
  NXY& screen = model.nxy[node];
  if (recolour) screen.Color = nodeColor(model.ndt[node]);
  screen.Drawn = -1;
  screen.HILITE = 0;
  return 1;
}

int32_t UpdatePXY(int32_t pipe, int32_t firstVtx, int32_t lastVtx, int16_t recolour) {
  if (!hasPipeSlot(pipe) || !hasPxySlot(pipe)) return 1;
  PXY& screen = model.pxy[pipe];
  if (model.pdt[pipe].VTX_MODE == 0) {
    screen.FIRST_VTX = screen.LAST_VTX = 0;
  } else if (firstVtx >= 0 && lastVtx >= 0) {
    screen.FIRST_VTX = firstVtx;
    screen.LAST_VTX = lastVtx;
  }
  if (recolour) SetPipeColor(pipe);
  screen.HILITE = 0;
  return 1;
}

int32_t UpdateCXY(int32_t cust, int32_t firstVtx, int32_t lastVtx, int16_t recolour, int16_t redraw) {
  if (!hasCustSlot(cust) || !hasCxySlot(cust)) return 1;
  CXY& screen = model.cxy[cust];
  if (recolour) screen.Color = custColor(model.cdt[cust]);
  if (firstVtx >= 0 || lastVtx >= 0) setServiceRun(model.cdt[cust], screen, firstVtx, lastVtx);
  if (redraw) screen.DRAW = 1;
  return 1;
}

int32_t FlagPipe(int32_t pipe, int16_t value) {
  if (hasPipeSlot(pipe)) model.pdt[pipe].FLAG_BYTE = static_cast<uint8_t>(value);
  return -1;
}

int32_t FlagCust(int32_t cust, int16_t value) {
  if (hasCustSlot(cust)) model.cdt[cust].FLAG_BYTE = static_cast<uint8_t>(value);
  return -1;
}

int32_t GetPXY(int32_t pipe, int32_t* firstVtx, int32_t* lastVtx) {
  const PXY screen = hasPxySlot(pipe) ? model.pxy[pipe] : PXY{};
  give(firstVtx, screen.FIRST_VTX);
  give(lastVtx, screen.LAST_VTX);
  return -1;
}

int32_t GetCXY(int32_t cust, double* x, double* y, double* tapX, double* tapY, int32_t* firstVtx, int32_t* lastVtx) {
  const Cdt record = hasCustSlot(cust) ? model.cdt[cust] : Cdt{};
  const CXY screen = hasCxySlot(cust) ? model.cxy[cust] : CXY{};
  give(x, record.X_COORD);
  give(y, record.Y_COORD);
  give(tapX, record.SX_COORD);
  give(tapY, record.SY_COORD);
  give(firstVtx, screen.FIRST_VTX);
  give(lastVtx, screen.LAST_VTX);
  return -1;
}

int32_t SetCXYChange(int32_t cust, int32_t vertexA, float fractionA, int32_t vertexB, float fractionB) {
  if (!hasCxySlot(cust)) return 0;
  CXY& screen = model.cxy[cust];
  screen.CHANGE_VTX_A = vertexA;
  screen.CHANGE_FRAC_A = fractionA;
  screen.CHANGE_VTX_B = vertexB;
  screen.CHANGE_FRAC_B = fractionB;
  return 0;
}
