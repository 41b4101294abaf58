/** The catalogue of symbols: shapes as lists of steps, and what each of the two drawers makes of them. */
#ifndef PN10_DRAW_SYMBOL_CATALOGUE_H
#define PN10_DRAW_SYMBOL_CATALOGUE_H

#include <cstdint>

namespace pn10 {

/** What a step does with its point. Points are in units of the size, +x along the bearing, +y to its left. */
enum class Verb : uint8_t {
  Corner,   /* a corner of the polygon that the next Fill paints */
  Fill,     /* Polygon of the corners so far; no point */
  Move,     /* MoveToEx */
  Line,     /* LineTo */
  Box,      /* the top left of the box of the next Disc, Ring, Ellipse or Pie */
  Disc,     /* bottom right: an Ellipse, which has no place on the isometric plane */
  OnlyDisc, /* the same; without it the symbol ends here */
  Ellipse,  /* bottom right: an Ellipse in every view */
  Ring,     /* bottom right: an Ellipse of DrawSymbol, an arc of chords of DrawMark */
  Pie,      /* bottom right: the box of a pie, whose two radials follow */
  Radial,   /* the first radial of the pie */
  EndPie,   /* the second radial: paints it */
  Device,   /* a valve or regulator part begins: it is laid on the model plane by DrawMark */
  Plain,    /* that part ends */
};

struct Step {
  Verb verb;
  double x, y;
};

struct Shape {
  const Step* steps;
  int32_t count;
};

struct Symbol {
  int16_t number;
  Shape shape;     /* of DrawSymbol */
  Shape mark;      /* of DrawMark */
  bool turnedMark; /* DrawMark turns the shape a quarter clockwise */
  bool upright;    /* never turned with the bearing */
  bool hollowMark; /* DrawMark takes the negative number too */
};

/** The row of a positive number, null for a number without a symbol. */
const Symbol* symbolOf(int32_t number);

}  // namespace pn10

#endif
