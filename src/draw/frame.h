/** The frame of a picture: mapping, visibility, clipping, fonts, hilite colours, grips and the cancel poll. */
#ifndef PN10_DRAW_FRAME_H
#define PN10_DRAW_FRAME_H

#include "geometry/isometric.h"
#include "model/convert.h"
#include "model/draw_state.h"

namespace pn10 {

/** A point in device units. */
using DevPoint = POINT;

/**
 * Maps a model point to the world plane, the one way of drawing, hit tests and extents. Z lifts a point in the
 * isometric view only; a latitude without a picture Y falls out of every view.
 */
inline void MapModelXY(double x, double y, float z, double* worldX, double* worldY) {
  if (drawState.MapMode == 1) {
    *worldX = isoX(x, y);
    *worldY = isoY(x, y, z);
    return;
  }
  *worldX = x;
  *worldY = drawState.MapMode == 2 ? CalcGeoY_(y) : y;
}

/** World to device units, truncated toward zero. */
inline DevPoint WorldToDevPair(double x, double y) {
  return {toInt32((x - drawState.X0) * drawState.ScaleX), toInt32((y - drawState.Y0) * drawState.ScaleY)};
}
inline void WorldToDev(double x, double y, int32_t* devX, int32_t* devY) {
  const DevPoint p = WorldToDevPair(x, y);
  *devX = p.x;
  *devY = p.y;
}

/** 0 when a world point lies in the clip window, its border included, else 1. */
inline int32_t OutOfView(double x, double y) {
  const DrawState& s = drawState;
  return s.ClipX0 <= x && x <= s.ClipX1 && s.ClipY1 <= y && y <= s.ClipY0 ? 0 : 1;
}

/** Device boxes of ellipses and pies must exceed these both ways to be worth painting. */
constexpr int32_t kSmallestEllipse = 2, kSmallestPie = 4;
inline bool BoxExceeds(const DevPoint& a, const DevPoint& b, int32_t limit) {
  const auto wider = [limit](int64_t from, int64_t to) { return to - from > limit || from - to > limit; };
  return wider(a.x, b.x) && wider(a.y, b.y);
}

/** Cuts a segment to the clip window in place; non-zero when nothing of it is visible (the points then stay). */
int32_t ClipSegment(double* x1, double* y1, double* x2, double* y2);

/** MoveToEx and LineTo of a world segment; with `clip` cut to the clip window first, 0 when nothing is left. */
int32_t DrawClipLine(int16_t clip, double x1, double y1, double x2, double y2);

/** Segments in a row, each drawn as DrawClipLine draws it; every point is tested and mapped once. */
class ClipPath {
 public:
  ClipPath(bool clip, double x, double y) : clip_(clip) { place(x, y); }
  /** Draws on to the next point; false when nothing of the segment is visible. */
  bool lineTo(double x, double y) {
    const double fromX = x_, fromY = y_;
    const DevPoint from = dev_;
    const bool fromInView = inView_;
    place(x, y);
    if (!fromInView || !inView_) return DrawClipLine(1, fromX, fromY, x, y) != 0;
    MoveToEx(drawState.DC, from.x, from.y, nullptr);
    LineTo(drawState.DC, dev_.x, dev_.y);
    return true;
  }

 private:
  void place(double x, double y) {
    x_ = x;
    y_ = y;
    inView_ = !clip_ || !OutOfView(x, y);
    dev_ = WorldToDevPair(x, y);
  }
  bool clip_, inView_;
  double x_, y_;
  DevPoint dev_;
};

/** Face, weight and height of a label font; `sizeMode` 1 scales with the map, else points. The rest is kept. */
void MakeLogFont(LOGFONTA* font, float screenSize, float printSize, int16_t screenBold, int16_t printBold,
                 int16_t sizeMode);

/** The colour of a selected item, and a colour that stands out from a background. */
int32_t HiliteColor(int32_t color);
int32_t ContrastColor(int32_t color, int32_t background);

/** The mark of a selected item at a world point, on screen only; `paint` 0 erases it. */
void DrawGrip(int16_t paint, double x, double y);

/** Shows what stands so far and takes all waiting keys; -1 when Escape was among them, else 0. */
int32_t PollCancel(HWND window);

/** The polls of one pass: every batch of drawn items, on screen only. */
class CancelPolls {
 public:
  CancelPolls(int32_t first, int32_t last);
  /** Counts one drawn item; true when the user cancelled. */
  bool drawn() { return due() && cancelled(); }
  /** The halves of it: counts one drawn item, true when a poll is due; the poll, in which the host may do anything. */
  bool due() {
    if (++count_ < batch_ || drawState.DevMode != 0) return false;
    count_ = 0;
    return true;
  }
  static bool cancelled() { return PollCancel(drawState.DrawWindow) != 0; }
  /** After the loop: one more poll when items were drawn since the last, so that what stands is shown. */
  bool finish() { return count_ > 1 && drawState.DevMode == 0 && cancelled(); }

 private:
  int64_t count_ = 0;
  int64_t batch_;
};

}  // namespace pn10

#endif
