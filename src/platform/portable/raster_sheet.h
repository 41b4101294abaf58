/** Where the overlapping parts of a wide stroke meet. */
#ifndef PN10_PLATFORM_PORTABLE_RASTER_SHEET_H
#define PN10_PLATFORM_PORTABLE_RASTER_SHEET_H

#include "platform/memory.h"
#include "platform/portable/raster.h"

namespace pn10::portable {

/** Takes the parts of one stroke; where painting a pixel twice would show, collects them first. */
class Sheet {
 public:
  Sheet(const Canvas& canvas, const Ink& ink) : canvas_(canvas), ink_(ink), collects_(!ink.repeatable()) {
    const RECT& c = canvas.clip;
    across_ = static_cast<size_t>(c.right - c.left);
    low_ = c.bottom;
    high_ = c.top;
    if (collects_) ok_ = covered_.allocate(across_ * static_cast<size_t>(c.bottom - c.top));
  }
  ~Sheet() {
    if (!collects_ || !ok_) return;
    const RECT& c = canvas_.clip;
    for (int64_t y = low_; y <= high_; y++) {
      const uint8_t* row = covered_.data() + static_cast<size_t>(y - c.top) * across_;
      uint32_t* const pixels = canvas_.at(c.left, y);
      for (size_t i = 0; i < across_; i++) {
        if (row[i]) ink_.apply(pixels[i]);
      }
    }
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  const RECT& clip() const { return canvas_.clip; }
  void span(int64_t y, int64_t left, int64_t right) {
    if (!collects_) return paintSpan(canvas_, ink_, y, left, right);
    const RECT& c = canvas_.clip;
    if (!ok_ || y < c.top || y >= c.bottom) return;
    left = std::max<int64_t>(left, c.left);
    right = std::min<int64_t>(right, c.right);
    if (left >= right) return;
    low_ = std::min(low_, y);
    high_ = std::max(high_, y);
    uint8_t* const row = covered_.data() + static_cast<size_t>(y - c.top) * across_;
    std::fill(row + (left - c.left), row + (right - c.left), uint8_t{1});
  }

 private:
  const Canvas& canvas_;
  const Ink& ink_;
  const bool collects_;
  bool ok_ = true;
  size_t across_;
  int64_t low_, high_; /* rows that have something */
  Buffer<uint8_t> covered_;
};

}  // namespace pn10::portable

#endif
