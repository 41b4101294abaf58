/** Flags beside nodes, pipes and customers: fixed shapes of the same size on the screen at every zoom. */
#include <algorithm>

#include "draw/gdi_objects.h"
#include "draw/passes.h"
#include "draw/shape_span.h"
#include "draw/symbols.h"

namespace pn10 {

namespace {

constexpr double kMastAngle = 1.4137166738510132; /* 81 degrees */

constexpr ShapePoint kHoist{0.104, 0.662}, kTop{0.156, 0.988}, kFly{0.656, 0.988}, kTail{0.604, 0.662};
constexpr Stroke kMast{false, 2, {{0, 0}, kHoist}};
constexpr Stroke kPennant{true, 4, {kHoist, kTop, kFly, kTail}};
constexpr Stroke kOutline{false, 7, {{0, 0}, kHoist, kTop, kFly, kTail, kHoist, kFly}};
constexpr Stroke kDiagonal{false, 2, {kTop, kTail}};

/** A size of 0 stands for a tenth of the larger side of the view. */
double flagSize(float size) {
  return size != 0 ? static_cast<double>(size) : 0.1 * std::max(drawState.ViewHeight, drawState.ViewWidth);
}

/** A pen and a solid brush of their own for one flag; colour -1 leaves what is selected. */
class FlagColors {
 public:
  FlagColors(int32_t penStyle, int32_t penWidth, int32_t color) : pen_(drawState.DC), brush_(drawState.DC) {
    if (color == -1) return;
    pen_.plain(penStyle, penWidth, color);
    brush_.solid(color);
  }

 private:
  SelectedPen pen_;
  SelectedBrush brush_;
};

}  // namespace

void DrawFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color) {
  const FlagColors colors(penStyle, penWidth, color);
  const Span flag(x, y, 0, flagSize(size));
  flag.paint(kMast);
  flag.paint(kPennant);
}

void DrawLoadFlag(double x, double y, float size, int32_t penStyle, int32_t penWidth, int32_t color, int16_t symbol) {
  const FlagColors colors(penStyle, penWidth, color);
  const double flag = flagSize(size);
  const double symbolSize = 0.33 * flag * 0.5;
  double centreX, centreY;
  GetXY(x, y, kMastAngle, flag - symbolSize, &centreX, &centreY);
  DrawSymbol(symbol, static_cast<float>(symbolSize), 0, centreX + 0.25 * flag, centreY);
}

void DrawFlagPost(float size, double x, double y) {
  const Span flag(x, y, 0, flagSize(size));
  flag.paint(kOutline);
  flag.paint(kDiagonal);
}

}  // namespace pn10
