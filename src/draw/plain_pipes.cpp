/** The pass over pipes of which a picture shows the line alone. */
#include "draw/plain_pipes.h"

#include <algorithm>

#include "draw/pass_common.h"
#include "model/prefetch.h"
#include "model/tables.h"

namespace pn10 {

namespace {

/** x and y side by side, so that one instruction works on both. */
using Pair [[gnu::vector_size(16)]] = double;
using Test [[gnu::vector_size(16)]] = int64_t; /* -1 in a lane that passes, else 0 */

bool both(Test t) { return t[0] + t[1] == -2; }
bool either(Test t) { return t[0] + t[1] != 0; }

Pair placeOf(const Ndt& n) { return Pair{n.X_COORD, n.Y_COORD}; }
Pair placeOf(const Vtx& v) { return Pair{v.VTX_X, v.VTX_Y}; }

/**
 * The window and the way to the device, by value: the pass writes bytes into records, and a compiler must take every
 * one of them for a change of the state of drawing.
 */
struct Sight {
  Pair low{drawState.ClipX0, drawState.ClipY1}, high{drawState.ClipX1, drawState.ClipY0};
  Pair origin{drawState.X0, drawState.Y0}, scale{drawState.ScaleX, drawState.ScaleY};
  HDC dc = drawState.DC;

  bool shows(Pair a, Pair b) const { return both((low <= a) & (a <= high) & (low <= b) & (b <= high)); }
  /** True when the corners have places that their type can hold; what lies between them then has, too. */
  bool mappable() const {
    const Pair limit{INT32_MAX, INT32_MAX}, a = (low - origin) * scale, b = (high - origin) * scale;
    return both((-limit < a) & (a < limit) & (-limit < b) & (b < limit));
  }
  /** DrawClipLine, in short for two points that it shows. */
  bool line(bool clip, Pair from, Pair to) const {
    if (!shows(from, to)) return DrawClipLine(clip, from[0], from[1], to[0], to[1]) != 0;
    const Pair a = (from - origin) * scale, b = (to - origin) * scale;
    MoveToEx(dc, static_cast<int32_t>(a[0]), static_cast<int32_t>(a[1]), nullptr);
    LineTo(dc, static_cast<int32_t>(b[0]), static_cast<int32_t>(b[1]));
    return true;
  }
  /** The lines from `a` over vertices `first` to `last` to `b`; true when something of them was painted. */
  bool run(bool clip, Pair a, const Vtx* vtx, int32_t first, int32_t last, Pair b) const {
    bool painted = false;
    for (int32_t v = first; v <= last; v++) {
      const Pair next = placeOf(vtx[v]);
      painted |= line(clip, a, next);
      a = next;
    }
    return line(clip, a, b) || painted;
  }
};

/** The sides of the window beyond which all points so far lie; what is not a number lies beyond none. */
class Beyond {
 public:
  Beyond(Pair low, Pair high, Pair a, Pair b)
      : low_(low), high_(high), below_((a < low) & (b < low)), above_((a > high) & (b > high)) {}
  void add(Pair p) {
    below_ &= p < low_;
    above_ &= p > high_;
  }
  bool any() const { return either(below_ | above_); }

 private:
  Pair low_, high_;
  Test below_, above_;
};

}  // namespace

PlainPipes::PlainPipes(const PipeStyle& style, bool showFlags)
    : style_(style),
      showFlags_(showFlags),
      usable_(nodeTop() > 0 && model.nxySlots > nodeTop() && Sight().mappable()) {}

int32_t PlainPipes::paint(int32_t pipe, int32_t top, CancelPolls& polls, bool* cancelled) const {
  if (!usable_ || pipe > top) return pipe;
  const Sight sight;
  const Pair low{style_.left, style_.bottom}, high{style_.right, style_.top};
  const bool clip = style_.clip;
  const float minLength = drawState.MinPipeLength;
  const Pdt* const pipes = model.pdt;
  PXY* const screens = model.pxy;
  const Ndt* const nodes = model.ndt;
  NXY* const marks = model.nxy;
  const Vtx* const vtx = model.vtx;
  const auto ends = static_cast<uint32_t>(nodeTop());
  const int32_t lastVtx = vtxTop();
  const bool grips = gripsApply(), showFlags = showFlags_;
  const PipesAhead ahead(top);
  for (bool painted = true; pipe <= top; pipe++) {
    ahead.ask(pipe, painted);
    painted = false;
    const Pdt& p = pipes[pipe];
    PXY& screen = screens[pipe];
    const auto from = static_cast<uint32_t>(p.FROM_NODE), to = static_cast<uint32_t>(p.TO_NODE);
    if (p.HYD_TYPE != 0 || screen.HILITE || (showFlags && p.FLAG_BYTE) || (grips && screen.LAST_VTX != 0) ||
        from - 1 >= ends || to - 1 >= ends)
      return pipe;
    if (p.REC_STATUS < 0 || !screen.Display || screen.LENGTH < minLength) {
      screen.DRAWN = 0;
      continue;
    }
    screen.DRAWN = 1;
    marks[from].Drawn = marks[to].Drawn = -1;
    if (screen.LineType == 6) continue;

    const Pair a = placeOf(nodes[from]), b = placeOf(nodes[to]);
    const bool inView = sight.shows(a, b);
    Beyond beyond(low, high, a, b);
    if (!inView && screen.LAST_VTX == 0 && beyond.any()) continue;
    const bool run = p.VTX_MODE == 4 && screen.FIRST_VTX >= 1;
    const int32_t first = run ? screen.FIRST_VTX : 1, last = run ? std::min(screen.LAST_VTX, lastVtx) : 0;
    if (!inView) {
      for (int32_t v = first; v <= last && beyond.any(); v++) beyond.add(placeOf(vtx[v]));
      if (beyond.any()) continue;
    }
    if (p.VTX_MODE == 1 || p.VTX_MODE == 2) {
      PipeBody body(pipe, style_);
      body.look(screen.LineWidth, screen.Color);
      painted = body.paint(false);
    } else {
      style_.pen->lineStyle(screen.LineType, screen.LineWidth, screen.Color);
      painted = sight.run(clip, a, vtx, first, last, b);
    }
    if (painted && polls.due()) {
      *cancelled = CancelPolls::cancelled();
      return pipe + 1;
    }
  }
  return pipe;
}

}  // namespace pn10
