/** Pens made ready: which kind of line they paint, and the lengths of their dashes. */
#include "platform/portable/raster.h"

namespace pn10::portable {

namespace {

/** Predefined dash styles in units of the width; dots and dashes include their round caps. */
struct DashStyle {
  int32_t count;
  int8_t geometric[6]; /* flat caps: as painted, in widths */
  int8_t straight[6];  /* caps that reach out: the cap is taken out of each dash and added to each gap */
  int8_t cosmetic[6];  /* in pixels */
};
constexpr DashStyle kDashStyles[] = {
    {2, {3, 1}, {2, 2}, {18, 6}},                                     /* PS_DASH */
    {2, {1, 1}, {0, 2}, {3, 3}},                                      /* PS_DOT */
    {4, {3, 1, 1, 1}, {2, 2, 0, 2}, {9, 6, 3, 6}},                    /* PS_DASHDOT */
    {6, {3, 1, 1, 1, 1, 1}, {2, 2, 0, 2, 0, 2}, {9, 3, 3, 3, 3, 3}}}; /* PS_DASHDOTDOT */
constexpr int64_t kCosmeticUnit = 3; /* entries of a cosmetic user style count three pixels each */

/** Gaps that caps many times as long close again make a line without gaps: nothing of them would show. */
bool gapsShow(const Stroke& stroke) {
  const DashPattern& d = stroke.dashes;
  if (stroke.kind != Stroke::kWide || stroke.cap == PS_ENDCAP_FLAT) return true;
  for (int32_t i = 1; i < d.count; i += 2) {
    if (d.lengths[i] > stroke.width / 8) return true;
  }
  return false;
}

/** The lengths of a user style; an odd list exchanges on and off in every second round. */
void takeUserStyle(DashPattern& d, const PenData& pen) {
  const int32_t entries = std::clamp(pen.count, 0, 16);
  d.count = entries % 2 ? 2 * entries : entries;
  for (int32_t i = 0; i < d.count; i++) {
    d.lengths[i] = int64_t{pen.lengths[i % entries]} * (pen.geometric ? 1 : kCosmeticUnit);
  }
}

}  // namespace

void setDashes(Stroke& stroke, const PenData& pen) {
  DashPattern& d = stroke.dashes;
  if (pen.style == PS_USERSTYLE) {
    takeUserStyle(d, pen);
  } else {
    const DashStyle& style = kDashStyles[pen.style - PS_DASH];
    const bool capped = stroke.kind == Stroke::kWide && stroke.cap != PS_ENDCAP_FLAT;
    const int8_t* lengths = !pen.geometric ? style.cosmetic : capped ? style.straight : style.geometric;
    d.count = style.count;
    for (int32_t i = 0; i < d.count; i++) d.lengths[i] = lengths[i] * (pen.geometric ? stroke.width : 1);
  }
  for (int32_t i = 0; i < d.count; i++) d.total += d.lengths[i];
  if (!gapsShow(stroke)) d.count = 0;
}

Stroke strokeOf(const PaintState& state) {
  Stroke stroke;
  const PenData& pen = *state.pen;
  if (isNullPen(pen)) return stroke;
  stroke.ink = inkOf(state.rop2, paintedColor(pen.color));
  stroke.width = std::max<int64_t>(pen.width, 1);
  stroke.kind = stroke.width > 1 ? Stroke::kWide : Stroke::kThin;
  stroke.cap = pen.cap;
  stroke.endPixel = pen.geometric;
  const bool dashed = (pen.style >= PS_DASH && pen.style <= PS_DASHDOTDOT) || pen.style == PS_USERSTYLE;
  if (dashed && (pen.fromExtCreatePen || stroke.width == 1)) { /* a wide pen by CreatePen is always solid */
    setDashes(stroke, pen);
    if (stroke.dashes.total == 0) stroke.kind = Stroke::kNone;
    if (!pen.geometric && state.bkMode == OPAQUE) {
      stroke.paintsGaps = true;
      stroke.gapInk = inkOf(state.rop2, paintedColor(state.bkColor));
    }
  }
  if (stroke.ink.nothing() && !stroke.paintsGaps) stroke.kind = Stroke::kNone;
  return stroke;
}

}  // namespace pn10::portable
