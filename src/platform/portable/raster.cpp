/** The painter of a raster: hands each operation to the part that paints its kind of mark. */
#include <new>

#include "platform/portable/raster.h"

namespace pn10::portable {

namespace {

class RasterPainter final : public Painter {
 public:
  explicit RasterPainter(const Raster& raster) : raster_(raster) {}

  void line(const PaintState& state, POINT from, POINT to) override {
    const Canvas canvas(raster_, state.clip);
    if (canvas.empty()) return;
    const PenData& pen = *state.pen;
    if (pen.width <= 1 && (pen.style == PS_SOLID || pen.style == PS_INSIDEFRAME)) { /* most lines of a map */
      return thinLine(canvas, inkOf(state.rop2, paintedColor(pen.color)), from, to, pen.geometric);
    }
    const POINT points[2] = {from, to};
    strokePoints(canvas, strokeOf(state), points, 2, false);
  }
  void polyline(const PaintState& state, const POINT* points, int32_t count) override {
    const Canvas canvas(raster_, state.clip);
    if (!canvas.empty() && count > 1) strokePoints(canvas, strokeOf(state), points, static_cast<size_t>(count), false);
  }
  void polygon(const PaintState& state, const POINT* points, int32_t count) override {
    const Canvas canvas(raster_, state.clip);
    if (canvas.empty() || count < 2) return;
    const size_t end = static_cast<size_t>(count);
    fillPolygons(canvas, fillOf(state), state.fillMode, points, &end, 1);
    strokePoints(canvas, strokeOf(state), points, end, true);
  }
  void ellipse(const PaintState& state, const RECT& box) override {
    paintEllipse(Canvas(raster_, state.clip), state, box);
  }
  void pie(const PaintState& state, const PieShape& pie) override { paintPie(Canvas(raster_, state.clip), state, pie); }
  void path(const PaintState& state, const Path& path, bool stroke, bool fill) override {
    paintPath(Canvas(raster_, state.clip), state, path, stroke, fill);
  }
  void text(const PaintState& state, const TextRun& run) override { paintRasterText(raster_, state, run); }
  void blit(const PaintState& state, const Blit& blit) override { paintBlit(Canvas(raster_, state.clip), state, blit); }

 private:
  const Raster raster_;
};

}  // namespace

Painter* newRasterPainter(const Raster& raster) { return new (std::nothrow) RasterPainter(raster); }

}  // namespace pn10::portable
