/** Elliptic arcs as GDI lays them out: which part of an ellipse two radials cut, and its Bezier curves. */
#ifndef PN10_PLATFORM_PORTABLE_ARCS_H
#define PN10_PLATFORM_PORTABLE_ARCS_H

#include "platform/portable/painter.h"

namespace pn10::portable {

/** An arc of an ellipse; angles are parameters of the ellipse in radians, growing clockwise on the screen. */
struct Arc {
  double centerX, centerY, radiusX, radiusY;
  double start, sweep; /* sweep below 0 runs counter-clockwise; never 0 */
  double x(double angle) const;
  double y(double angle) const;
};

/** The arc that is painted for a box (corners in order, right and bottom exclusive) and two radial points. */
Arc arcOf(const RECT& box, POINT from, POINT to, bool clockwise);

/** The place where the second radial leaves the box itself: the position after ArcTo. */
POINT arcEnd(const RECT& box, POINT to);

/** Appends the arc's curves, their points rounded to whole pixels when `rounded`. The figure stands at the start. */
void appendCurves(PathFigure& figure, const Arc& arc, bool rounded);

/** The box that a shape's outline follows: a wide pen inside the frame draws it in by its reach. */
RECT strokedBox(const PenData& pen, const RECT& box);

/** A whole ellipse as a closed figure of four curves. */
PathFigure ellipseFigure(const RECT& box, bool rounded);

/** The piece of an ellipse: centre, arc, back. */
PathFigure pieFigure(const PieShape& pie, bool rounded);

/** Rounded half up and held inside int32; not a number gives 0. */
int32_t roundToInt(double value);

}  // namespace pn10::portable

#endif
