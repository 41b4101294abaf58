/** The outline of an ellipse, row pair by row pair from the middle outward. */
#ifndef PN10_PLATFORM_PORTABLE_RASTER_ELLIPSE_H
#define PN10_PLATFORM_PORTABLE_RASTER_ELLIPSE_H

#include "platform/portable/raster.h"

namespace pn10::portable {

/**
 * Walks the outline of the ellipse that just fits `width` x `height` pixels.
 *
 * Each step gives two rows (one, in the middle of an odd height) and the run of outline columns at their left end;
 * the right end is the mirror image. Small boxes step an error term (the curve's implicit equation, in whole
 * numbers); beyond kExact the columns come from the equation itself, so that only visible rows are walked.
 */
class EllipseWalk {
 public:
  EllipseWalk(int64_t width, int64_t height);
  /** Leaves out rows that can't lie in low ... high - 1, as far as that is simple. */
  void onlyRows(int64_t low, int64_t high);
  bool next();

  int64_t upper = 0, lower = 0; /* rows 0 ... height - 1 */
  int64_t outer = 0, inner = 0; /* columns of the left run, both ends included */

 private:
  static constexpr int64_t kExact = int64_t{1} << 18; /* up to here the error term fits 64 bits */
  int64_t farColumn(int64_t row) const;

  int64_t width_, height_, last_, end_;
  bool byEquation_;
  int64_t left_, right_, row_, dx_, dy_, error_, stepX_, stepY_;
};

/** Paints the full rows of the ellipse in a box: span(y, left, right) for each, right exclusive. */
template <class Span>
void ellipseSpans(int64_t left, int64_t top, int64_t width, int64_t height, const RECT& clip, Span&& span) {
  EllipseWalk walk(width, height);
  walk.onlyRows(clip.top - top, clip.bottom - top);
  while (walk.next()) {
    span(top + walk.upper, left + walk.outer, left + width - walk.outer);
    if (walk.lower != walk.upper) span(top + walk.lower, left + walk.outer, left + width - walk.outer);
  }
}

}  // namespace pn10::portable

#endif
