// The extent of the model, from nodes, bends and customers.
#include "extent.h"

#include <pn10gdi.h>

#include <algorithm>

#include "records.h"

namespace host {

void Extent::add(double x, double y) {
  minX = empty ? x : std::min(minX, x);
  maxX = empty ? x : std::max(maxX, x);
  minY = empty ? y : std::min(minY, y);
  maxY = empty ? y : std::max(maxY, y);
  empty = false;
}

Extent modelExtent(bool customers) {
  Extent extent;
  for (int32_t n = 1; n <= recordCount(Kind::Node); n++) {
    if (!isDeleted(Kind::Node, n)) extent.add(number(Kind::Node, n, NDT_X_COORD), number(Kind::Node, n, NDT_Y_COORD));
  }
  for (int32_t p = 1; p <= recordCount(Kind::Pipe); p++) {
    if (isDeleted(Kind::Pipe, p) || number(Kind::Pipe, p, PDT_VTX_MODE) != 4) continue;
    int32_t first = 0, last = 0;
    GetPXY(p, &first, &last);
    for (int32_t v = first; v > 0 && v <= last; v++) {
      double x = 0, y = 0;
      float z = 0;
      GetVTXY(v, &x, &y, &z);
      extent.add(x, y);
    }
  }
  for (int32_t c = 1; customers && c <= recordCount(Kind::Customer); c++) {
    if (!isDeleted(Kind::Customer, c))
      extent.add(number(Kind::Customer, c, CDT_X_COORD), number(Kind::Customer, c, CDT_Y_COORD));
  }
  return extent;
}

}  // namespace host
