/** What device symbols and fitting symbols share. */
#ifndef PN10_DRAW_PIPE_DEVICES_H
#define PN10_DRAW_PIPE_DEVICES_H

#include "draw/shape_span.h"

namespace pn10 {

/** Of certain valves, and of fittings with code 1005. Kept: the outline stays open. */
inline constexpr Stroke kWiredBowTie{false, 4, {{0, -0.33}, {0, 0.33}, {1, -0.33}, {1, 0.33}}};

/**
 * The device size of the view in world units: percent of the view height when negative, else tenths of `unit`;
 * 0 stands for the length between the pipe's ends.
 */
double deviceSize(double unit);

/** The span of a device between two ends: of `size` about their middle, or from end to end with 0. */
Span deviceSpan(double x1, double y1, double x2, double y2, double size);

}  // namespace pn10

#endif
