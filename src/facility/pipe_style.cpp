/** Colour, line type and line width of a pipe, from its record, its size, its facility and the display options. */
#include "facility/pipe_style.h"

#include "exports/pn10gdi.h"
#include "facility/fac_flags.h"
#include "facility/facility.h"
#include "lookup/lookup.h"
#include "model/draw_state.h"
#include "model/tables.h"

namespace pn10 {
namespace {

/** A pipe with its lookup row and its facility row, each searched at most once. */
class StyledPipe {
 public:
  explicit StyledPipe(const Pdt& pipe) : record(pipe) {}

  const PLut* size() {
    if (!sizeSearched_) size_ = lutRow(lookups.plut, FindPLutRno(record.SIZE_TYPE, 0));
    sizeSearched_ = true;
    return size_;
  }
  const Fac* facility() {
    if (!facilitySearched_) facility_ = findFac(record.FACILITY);
    facilitySearched_ = true;
    return facility_;
  }

  const Pdt& record;

 private:
  const PLut* size_ = nullptr;
  const Fac* facility_ = nullptr;
  bool sizeSearched_ = false, facilitySearched_ = false;
};

int32_t elementColor(StyledPipe& pipe, const ViewOpts& view) {
  if (pipe.record.STATUS != 0) return settings.offColor;
  if (pipe.record.COLOR != kColorByFacility) return view.ElemColor;
  const Fac* row = pipe.facility();
  return row && row->Color != -1 ? row->Color : view.PipeColor;
}

/** Kept: only the plain request turns to the off colour, not a pipe with a colour of its size or facility. */
int32_t pipeColor(StyledPipe& pipe, const ViewOpts& view) {
  const int32_t plain = pipe.record.STATUS != 0 ? settings.offColor : view.PipeColor;
  const int32_t mode = static_cast<int16_t>(view.PipeColorMode);
  int32_t request = pipe.record.COLOR;
  if (request == kColorDefault && mode != 0) request = mode;
  if (request == kColorDefault) return plain;
  if (request == kColorBySize) {
    const PLut* row = pipe.size();
    if (!row) return plain;
    return row->COLOR >= 0 ? row->COLOR : view.PipeColor;
  }
  if (request == kColorByFacility) {
    const Fac* row = pipe.facility();
    if (!row) return view.PipeColor;
    return row->Color != -1 ? row->Color : plain;
  }
  return view.PipeColor;
}

int32_t colorOf(StyledPipe& pipe, const ViewOpts& view) {
  if (pipe.record.COLOR >= 0) return pipe.record.COLOR;
  return drawsAsPipe(pipe.record.HYD_TYPE) ? pipeColor(pipe, view) : elementColor(pipe, view);
}

int16_t atLeastFirstType(int16_t type) { return type == 0 ? int16_t{1} : type; }

int16_t lineTypeOf(StyledPipe& pipe, int16_t displayType) {
  const int16_t stored = pipe.record.LINE_TYPE;
  const int16_t code = stored != kLineDefault ? stored : displayType;
  if (code == kLineByFacility) {
    const Fac* row = pipe.facility();
    return row ? atLeastFirstType(row->LineType) : displayType;
  }
  if (code == kLineBySize) {
    const PLut* row = pipe.size();
    return row ? atLeastFirstType(row->LINE_TYPE) : displayType;
  }
  return code;
}

int16_t lineWidthOf(StyledPipe& pipe, int16_t displayWidth) {
  const int16_t stored = pipe.record.LINE_WIDTH;
  const int16_t code = stored != kLineDefault ? stored : displayWidth;
  if (code == kLineByFacility) {
    const Fac* row = pipe.facility();
    // kept: a facility's width counts one less than any other
    return row && row->LineWidth >= 1 ? static_cast<int16_t>(row->LineWidth + 1) : displayWidth;
  }
  if (code == kLineBySize) {
    const PLut* row = pipe.size();
    return row && row->LINE_WIDTH >= 1 ? row->LINE_WIDTH : displayWidth;
  }
  return code;
}

}  // namespace
}  // namespace pn10

using namespace pn10;

void SetPipeColor(int32_t pipe) {
  if (!hasPipe(pipe)) return;
  const ViewOpts& view = *drawState.View;
  StyledPipe styled(model.pdt[pipe]);
  PXY& screen = model.pxy[pipe];
  screen.Color = colorOf(styled, view);
  screen.LineType = lineTypeOf(styled, static_cast<int16_t>(view.PipeLineType));
  screen.LineWidth = lineWidthOf(styled, static_cast<int16_t>(view.PipeWidth));
}

void ResetPipeColors(void) {
  for (int32_t pipe = 1; pipe <= pipeTop() && hasPxySlot(pipe); pipe++) {
    const Pdt& record = model.pdt[pipe];
    if (model.pxy[pipe].Active != 0 && record.SIZE_FLAG != 0 && record.COLOR < 0) SetPipeColor(pipe);
  }
}
