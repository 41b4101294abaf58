/** Screen colours of nodes, customers and text, and the colour that a stored pipe colour stands for. */
#include "exports/pn10gdi.h"
#include "facility/facility.h"
#include "facility/pipe_style.h"
#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "model/record_at.h"
#include "model/wait_cursor.h"

using namespace pn10;

/** Kept: other rules than SetPipeColor's: elements always get their default, the colour mode is not asked. */
int32_t GetPipeColor(int32_t storedColor, int16_t hydType, int32_t facNo, const char* sizeType) {
  const ViewOpts& view = *drawState.View;
  if (storedColor >= 0) return storedColor;
  if (!drawsAsPipe(hydType)) return view.ElemColor;
  if (storedColor == kColorBySize) {
    const PLut* size = lutRow(lookups.plut, FindPLutRno(sizeType, 0));
    return size && size->COLOR >= 0 ? size->COLOR : view.PipeColor;
  }
  if (storedColor == kColorByFacility) {
    const Fac* row = findFac(facNo);
    const int32_t color = row ? row->Color : 0;
    return color == -1 ? view.PipeColor : color;
  }
  return view.PipeColor;
}

int32_t GetNodeColor(int32_t storedColor) { return storedColor >= 0 ? storedColor : drawState.View->NodeColor; }
int32_t GetCustColor(int32_t storedColor) { return storedColor >= 0 ? storedColor : drawState.View->CustColor; }

int32_t GetColorPXY(int32_t pipe) { return pipeScreenAt(pipe).Color; }
int32_t GetColorNXY(int32_t node) { return hasNxySlot(node) ? model.nxy[node].Color : 0; }
int32_t GetColorCXY(int32_t cust) { return hasCxySlot(cust) ? model.cxy[cust].Color : 0; }

int32_t SetColorPXY(int32_t pipe, int32_t pipeColor, int32_t elemColor, int16_t resolve) {
  if (pipe < 1 || !hasPipeSlot(pipe) || !hasPxySlot(pipe)) return 1;
  if (resolve) {
    SetPipeColor(pipe);
  } else {
    model.pxy[pipe].Color = drawsAsPipe(model.pdt[pipe].HYD_TYPE) ? pipeColor : elemColor;
  }
  model.pxy[pipe].TraceColor = 0;
  return 1;
}

int32_t SetColorNXY(int32_t node, int32_t color) {
  if (node > 0 && hasNxySlot(node)) model.nxy[node].Color = GetNodeColor(color);
  return 1;
}

int32_t SetColorCXY(int32_t cust, int32_t color) {
  if (cust < 1 || !hasCxySlot(cust)) return 1;
  model.cxy[cust].Color = GetCustColor(color);
  model.cxy[cust].TraceColor = 0;
  return 1;
}

int32_t SetAllTextColor(int32_t color) {
  const WaitCursor wait;
  for (int32_t row = 1; row <= textTop(); row++) model.gtx[row].Color = color;
  return 1;
}
