// The cells that a turned strip covers, free or taken.
#include "label_room.h"

#include <algorithm>
#include <cmath>

namespace host {

LabelRoom::LabelRoom(int32_t width, int32_t height, int32_t cell)
    : columns_(width / cell + 1),
      rows_(height / cell + 1),
      cell_(cell),
      taken_(static_cast<size_t>(columns_) * static_cast<size_t>(rows_)) {}

/** Visits the cells under a strip, kOutside for each that lies beyond the picture, until `visit` says false. */
template <class Visit>
void LabelRoom::walk(double x, double y, double dx, double dy, double length, double thickness, Visit visit) const {
  const double step = cell_ * 0.5;
  // A strip may begin far outside: only what can lie in the picture is walked.
  const double reach = std::hypot(columns_, rows_) * cell_ + thickness;
  const double middle = (columns_ * cell_ / 2.0 - x) * dx + (rows_ * cell_ / 2.0 - y) * dy;
  const double from = std::clamp(middle - reach, 0.0, length), to = std::clamp(middle + reach, 0.0, length);
  if (!(from + step > from)) return;  // so far away that a step is lost in rounding
  for (double along = from; along <= to; along += step) {
    for (double across = -thickness / 2; across <= thickness / 2; across += step) {
      const double column = std::floor((x + dx * along - dy * across) / cell_),
                   row = std::floor((y + dy * along + dx * across) / cell_);
      const bool inside = column >= 0 && row >= 0 && column < columns_ && row < rows_;
      if (!visit(inside ? static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(column)
                        : kOutside))
        return;
    }
  }
}

bool LabelRoom::fits(double x, double y, double dx, double dy, double length, double thickness) const {
  bool free = true;
  walk(x, y, dx, dy, length, thickness, [&](size_t cell) { return free = cell != kOutside && !taken_[cell]; });
  return free;
}

void LabelRoom::take(double x, double y, double dx, double dy, double length, double thickness) {
  walk(x, y, dx, dy, length, thickness, [&](size_t cell) {
    if (cell != kOutside) taken_[cell] = 1;
    return true;
  });
}

}  // namespace host
