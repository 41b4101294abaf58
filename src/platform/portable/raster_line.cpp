/**
 * One-pixel lines, solid and dashed.
 *
 * A line steps along its longer axis; the other coordinate is the nearest pixel, and a tie goes to the smaller
 * coordinate whatever the direction. The clip hides pixels and never changes the stepping: the first visible step
 * is found by arithmetic, so a line over the whole range of coordinates costs no more than what is seen of it.
 */
#include "platform/portable/raster.h"

namespace pn10::portable {

namespace {

/** `a` where the mask has all bits set, `b` where it has none: a choice that a processor need not guess. */
int64_t choose(int64_t mask, int64_t a, int64_t b) { return b ^ ((a ^ b) & mask); }

/**
 * The steps of a line: step i lies i along the longer axis and minor(i) along the other.
 *
 * Lines of a map go all ways, so the making of it has no branches on the direction.
 */
struct Steps {
  uint64_t length, rise; /* rise <= length <= 2^32 - 1 */
  int64_t xWay, yWay;    /* 1 or -1 */
  int64_t xMajor;        /* a mask: all bits set when x is the longer axis */
  int64_t tie;           /* 1 when a tie stays behind, as the other coordinate grows */

  Steps(POINT from, POINT to) {
    const int64_t dx = int64_t{to.x} - from.x, dy = int64_t{to.y} - from.y;
    const int64_t xDown = dx >> 63, yDown = dy >> 63;
    const int64_t ax = (dx ^ xDown) - xDown, ay = (dy ^ yDown) - yDown;
    xWay = xDown | 1;
    yWay = yDown | 1;
    xMajor = ~((ax - ay) >> 63);
    length = static_cast<uint64_t>(choose(xMajor, ax, ay));
    rise = static_cast<uint64_t>(choose(xMajor, ay, ax));
    tie = 1 + choose(xMajor, yDown, xDown);
  }
  uint64_t minor(uint64_t i) const {
    const uint64_t product = i * rise, rest = product % length;
    return product / length + (2 * static_cast<int64_t>(rest) - static_cast<int64_t>(length) - tie >= 0);
  }
  /** The first step whose minor() is at least `value`, or `count`. */
  uint64_t firstAt(uint64_t value, uint64_t count) const {
    uint64_t low = 0, high = count;
    while (low < high) {
      const uint64_t middle = low + (high - low) / 2;
      if (minor(middle) >= value) {
        high = middle;
      } else {
        low = middle + 1;
      }
    }
    return low;
  }
};

/** A place on a line: the pixel, and the error term that decides the step from here. */
struct Cursor {
  uint32_t* pixel;
  int64_t error;                  /* below 0: straight on */
  int64_t diagonal, straightLess; /* pixels of a diagonal step; what a straight one goes beyond that */
  int64_t turned, straightError;  /* the same for the error */

  Cursor(const Canvas& canvas, const Steps& s, POINT from, uint64_t first) {
    const int64_t x = s.xWay, y = s.yWay * canvas.stride, length = static_cast<int64_t>(s.length);
    diagonal = x + y;
    straightLess = choose(s.xMajor, x, y) - diagonal;
    turned = 2 * static_cast<int64_t>(s.rise) - 2 * length;
    straightError = 2 * length;
    error = turned + length - s.tie;
    int64_t along = 0, across = 0;
    if (first) {
      const uint64_t product = first * s.rise;
      along = static_cast<int64_t>(first);
      across = static_cast<int64_t>(product / s.length);
      error += 2 * static_cast<int64_t>(product % s.length);
      if (error >= 2 * static_cast<int64_t>(s.rise)) across++, error -= 2 * length;
    }
    pixel =
        canvas.at(from.x + s.xWay * choose(s.xMajor, along, across), from.y + s.yWay * choose(s.xMajor, across, along));
  }
  /** One step, by masks: which way a line turns next is nothing that a processor could guess. */
  void step() {
    const int64_t straight = error >> 63;
    pixel += static_cast<ptrdiff_t>(diagonal + (straightLess & straight));
    error = error + turned + (straightError & straight);
  }
  void paint(Ink ink, uint64_t count) {
    if (ink.stores()) {
      for (; count; count--, step()) *pixel = ink.flip;
    } else {
      for (; count; count--, step()) ink.apply(*pixel);
    }
  }
  void skip(uint64_t count) {
    for (; count; count--) step();
  }
};

struct Range {
  uint64_t first, end;
};

/** The steps first <= i < end of 0 <= i < count at which origin +- i lies in low ... high - 1. */
Range stepsInside(int64_t origin, int64_t way, int64_t low, int64_t high, uint64_t count) {
  const bool down = way < 0;
  const int64_t from = down ? origin - (high - 1) : low - origin, to = down ? origin - low : high - 1 - origin;
  if (to < 0 || from > to) return {0, 0};
  return {static_cast<uint64_t>(std::max<int64_t>(from, 0)), std::min(static_cast<uint64_t>(to) + 1, count)};
}

/** The visible steps of a line: they are one run, since both coordinates only ever go one way. */
Range visibleSteps(const Canvas& canvas, const Steps& s, POINT from, uint64_t count) {
  const RECT& c = canvas.clip;
  const Range x = stepsInside(from.x, s.xWay, c.left, c.right, s.xMajor ? count : s.rise + 1);
  const Range y = stepsInside(from.y, s.yWay, c.top, c.bottom, s.xMajor ? s.rise + 1 : count);
  const Range& along = s.xMajor ? x : y;
  const Range& across = s.xMajor ? y : x;
  if (along.first >= along.end || across.first >= across.end) return {0, 0};
  const uint64_t first = across.first ? s.firstAt(across.first, count) : 0;
  const uint64_t end = across.end > s.rise ? count : s.firstAt(across.end, count);
  return {std::max(along.first, first), std::min(along.end, end)};
}

/** Paints steps first ... end - 1 of a line whose pattern stands `phase` units after its start at step 0. */
void dashedSteps(const Stroke& stroke, Cursor& cursor, Range range, uint64_t phase) {
  const DashPattern& d = stroke.dashes;
  uint64_t left = range.end - range.first;
  int64_t place = static_cast<int64_t>((phase + range.first) % static_cast<uint64_t>(d.total));
  int32_t entry = 0;
  while (place >= d.lengths[entry]) place -= d.lengths[entry++];
  while (left) {
    const uint64_t run = std::min(left, static_cast<uint64_t>(d.lengths[entry] - place));
    if (entry % 2 == 0) {
      cursor.paint(stroke.ink, run);
    } else if (stroke.paintsGaps) {
      cursor.paint(stroke.gapInk, run);
    } else {
      cursor.skip(run);
    }
    left -= run;
    place = 0;
    entry = entry + 1 == d.count ? 0 : entry + 1;
  }
}

void dashedLine(const Canvas& canvas, const Stroke& stroke, POINT from, POINT to, uint64_t& phase) {
  const Steps s(from, to);
  if (!s.length) return;
  const Range range = visibleSteps(canvas, s, from, s.length);
  if (range.first < range.end) {
    Cursor cursor(canvas, s, from, range.first);
    dashedSteps(stroke, cursor, range, phase);
  }
  phase = (phase + s.length) % static_cast<uint64_t>(stroke.dashes.total);
}

}  // namespace

/** A line that is level or leaves the visible rectangle; apart, so that the common line keeps to registers. */
[[gnu::noinline]] static void rareLine(const Canvas& canvas, Ink ink, const Steps& s, POINT from, POINT to,
                                       uint64_t count) {
  if (from.y == to.y) {
    const int64_t left = s.xWay > 0 ? from.x : int64_t{to.x} + 1;
    return paintSpan(canvas, ink, from.y, left, left + static_cast<int64_t>(count));
  }
  const Range range = visibleSteps(canvas, s, from, count);
  if (range.first < range.end) Cursor(canvas, s, from, range.first).paint(ink, range.end - range.first);
}

void thinLine(const Canvas& canvas, const Ink& ink, POINT from, POINT to, bool endPixel) {
  const Steps s(from, to);
  const uint64_t count = s.length + (endPixel && s.rise ? 1 : 0);
  if (!s.length) return;
  if (!canvas.contains(from) || !canvas.contains(to) || from.y == to.y) {
    return rareLine(canvas, ink, s, from, to, count);
  }
  Cursor(canvas, s, from, 0).paint(ink, count);
}

void thinChain(const Canvas& canvas, const Stroke& stroke, const POINT* points, size_t count, bool closed) {
  const auto same = [](POINT a, POINT b) { return a.x == b.x && a.y == b.y; };
  while (count > 1 && !closed && same(points[count - 1], points[count - 2])) count--; /* the last real side ends it */
  uint64_t phase = 0;
  for (size_t i = 0; i + 1 < count + closed; i++) {
    const bool last = i + 2 == count + closed;
    const POINT from = points[i], to = points[i + 1 == count ? 0 : i + 1];
    if (stroke.dashes.count) {
      dashedLine(canvas, stroke, from, to, phase);
    } else {
      thinLine(canvas, stroke.ink, from, to, stroke.endPixel && last && !closed);
    }
  }
}

}  // namespace pn10::portable
