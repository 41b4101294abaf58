// The cells that a turned strip covers, free or taken.
#include "label_room.h"

#include <cmath>

namespace host {

LabelRoom::LabelRoom(int32_t width, int32_t height, int32_t cell)
    : columns_(width / cell + 1),
      rows_(height / cell + 1),
      cell_(cell),
      taken_(static_cast<size_t>(columns_) * static_cast<size_t>(rows_)) {}

/** Visits the cells under a strip; stops with false when one lies outside or `visit` says so. */
template <class Visit>
bool LabelRoom::walk(double x, double y, double dx, double dy, double length, double thickness, Visit visit) const {
  const double step = cell_ * 0.5;
  for (double along = 0; along <= length; along += step) {
    for (double across = -thickness / 2; across <= thickness / 2; across += step) {
      const double px = x + dx * along - dy * across, py = y + dy * along + dx * across;
      const double column = std::floor(px / cell_), row = std::floor(py / cell_);
      if (!(column >= 0 && row >= 0 && column < columns_ && row < rows_)) return false;
      if (!visit(static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(column))) return false;
    }
  }
  return true;
}

bool LabelRoom::fits(double x, double y, double dx, double dy, double length, double thickness) const {
  return walk(x, y, dx, dy, length, thickness, [&](size_t cell) { return !taken_[cell]; });
}

void LabelRoom::take(double x, double y, double dx, double dy, double length, double thickness) {
  walk(x, y, dx, dy, length, thickness, [&](size_t cell) {
    taken_[cell] = 1;
    return true;
  });
}

}  // namespace host
