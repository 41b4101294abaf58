/** TextOutA: where a run of text stands by alignment and escapement, and its cell. */
#include "platform/portable/arcs.h"
#include "platform/portable/glyphs.h"
#include "platform/portable/text_metrics.h"

namespace pn10::portable {

namespace {

constexpr UINT kHorizontal = TA_CENTER, kVertical = TA_BASELINE;

}  // namespace

void paintText(Context& context, const TextMetrics& metrics, int32_t x, int32_t y, const char* text, int32_t count) {
  State& state = context.state;
  const int64_t exact = metrics.width(text, count);
  const auto width = static_cast<int32_t>(exact > INT32_MAX ? INT32_MAX : exact);
  const bool follows = state.textAlign & TA_UPDATECP;
  if (follows) {
    x = state.position.x;
    y = state.position.y;
  }
  TextRun run{};
  const FontData* font = metrics.font();
  run.escapement = font ? font->escapement : 0;
  const double cosine = font ? font->cosine : 1, sine = font ? font->sine : 0;
  const UINT horizontal = state.textAlign & kHorizontal, vertical = state.textAlign & kVertical;
  const double left = horizontal == TA_CENTER ? -(width / 2) : horizontal == TA_RIGHT ? -width : 0;
  const double top = vertical == TA_BASELINE ? -metrics.ascent() : vertical == TA_BOTTOM ? -metrics.height() : 0;
  const auto placeX = [&](double u, double v) { return x + u * cosine + v * sine; };
  const auto placeY = [&](double u, double v) { return y - u * sine + v * cosine; };
  if (font && !context.pathOpen && (count > 0)) {
    run.font = metrics.font();
    run.text = reinterpret_cast<const unsigned char*>(text);
    run.count = count;
    run.x = x;
    run.y = y;
    run.align = state.textAlign;
    run.width = width;
    run.ascent = metrics.ascent();
    run.descent = metrics.height() - metrics.ascent();
    run.originX = placeX(left, top + run.ascent);
    run.originY = placeY(left, top + run.ascent);
    const double right = left + width, bottom = top + metrics.height();
    const double cell[4][2] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    for (int i = 0; i < 4; i++) {
      run.cellX[i] = placeX(cell[i][0], cell[i][1]);
      run.cellY[i] = placeY(cell[i][0], cell[i][1]);
    }
    withPainter(context, [&](Painter& p) { p.text(state.paint, run); });
  }
  if (follows && horizontal != TA_CENTER) {
    const double along = horizontal == TA_RIGHT ? -width : width;
    state.position = {roundToInt(placeX(along, 0)), roundToInt(placeY(along, 0))};
  }
}

}  // namespace pn10::portable

using namespace pn10::portable;

BOOL TextOutA(HDC dc, int x, int y, const char* text, int count) {
  Context* context = contextOf(dc);
  if (!context || count < 0 || (!text && count > 0)) return 0;
  if (recording()) logOp("TextOutA", x, y, quoted(text, static_cast<size_t>(count)));
  paintText(*context, TextMetrics(*context), x, y, text, count);
  return 1;
}
