/** The symbols of regulators, compressors, valves and wells over their pipes. */
#include "draw/pipe_devices.h"

#include "draw/passes.h"
#include "geometry/angles.h"
#include "lookup/lookup.h"
#include "model/tables.h"

namespace pn10 {

namespace {

constexpr Stroke kBowTie{true, 4, {{0, 0.33}, {1, -0.33}, {1, 0.33}, {0, -0.33}}};
constexpr Stroke kStem{false, 2, {{0.5, 0}, {0.5, 0.495}}};
constexpr Stroke kArrowBar{false, 3, {{0, -0.5}, {1, -0.5}, {0.619, -0.376}}};
constexpr Stroke kCompressor{true, 4, {{0, 0.5}, {1, 0.25}, {1, -0.25}, {0, -0.5}}};
constexpr Stroke kDerrick[] = {
    {false, 7, {{0, 0}, {0.333, 1.5}, {0.667, 1.5}, {1, 0}, {0.167, 0.75}, {0.722, 1.25}, {0.333, 1.5}}},
    {false, 4, {{0, 0}, {0.833, 0.75}, {0.278, 1.25}, {0.667, 1.5}}},
};

/** The half disc of a regulator; too small a one is only a cost. */
void paintPie(const Span& span, double length) {
  const ShapePoint centre = span.world({0.5, 0.495});
  const double radius = 0.467 * length;
  const DevPoint topLeft = WorldToDevPair(centre.x - radius, centre.y + radius);
  const DevPoint bottomRight = WorldToDevPair(centre.x + radius, centre.y - radius);
  if (!BoxExceeds(topLeft, bottomRight, kSmallestPie)) return;
  const DevPoint first = span.device({0.829, 0.495}), second = span.device({0.169, 0.495});
  Pie(drawState.DC, topLeft.x, topLeft.y, bottomRight.x, bottomRight.y, first.x, first.y, second.x, second.y);
}

/** Kept: only a type that is exactly 9 in the valve's row shows the wired form. */
bool isWired(const Pdt& pipe) {
  const VLut* row = lutRow(lookups.vlut, FindVLutRno(pipe.SIZE_TYPE, 0));
  return row && row->FIELD_7 == 9;
}

}  // namespace

double deviceSize(double unit) {
  const double size = drawState.View->DeviceSize;
  return size < 0 ? -size * drawState.ViewHeight * 0.001 : size * 0.1 * unit;
}

Span deviceSpan(double x1, double y1, double x2, double y2, double size) {
  const double bearing = GetBrg(x1, y1, x2, y2);
  if (size == 0) return Span(x1, y1, bearing, std::hypot(x2 - x1, y2 - y1));
  GetXY((x1 + x2) * 0.5, (y1 + y2) * 0.5, bearing + PI, size * 0.5, &x1, &y1);
  return Span(x1, y1, bearing, size);
}

void DrawDeviceSymbol(int32_t pipe, double x1, double y1, double x2, double y2) {
  const Pdt& p = model.pdt[pipe];
  const double size = deviceSize(1.0);
  const Span span = deviceSpan(x1, y1, x2, y2, size);
  // Kept: the bow tie alone takes its size in display units.
  const Span bowTie = deviceSpan(x1, y1, x2, y2, deviceSize(drawState.UnitsPerDisplay));
  switch (p.HYD_TYPE) {
    case 1:
      bowTie.paint(kBowTie);
      span.paint(kStem);
      paintPie(span, size != 0 ? size : std::hypot(x2 - x1, y2 - y1));
      span.paint(kArrowBar);
      break;
    case 2:
      span.paint(kCompressor);
      break;
    case 3:
      isWired(p) ? span.paint(kWiredBowTie) : bowTie.paint(kBowTie);
      break;
    case 4: {
      // The derrick stands on the left of the line: of one that runs up and to the left, the ends swap.
      const double bearing = GetBrg(x1, y1, x2, y2);
      const bool swap = bearing > HALF_PI && bearing <= PI;
      const Span foot = swap ? deviceSpan(x2, y2, x1, y1, size) : span;
      for (const Stroke& stroke : kDerrick) foot.paint(stroke);
      break;
    }
    default:
      break;
  }
}

}  // namespace pn10
