/** The shared label state: the pass's font, turned only when the escapement changes, and the stack of lines. */
#ifndef PN10_DRAW_LABEL_STACK_H
#define PN10_DRAW_LABEL_STACK_H

#include "draw/label_text.h"
#include "model/draw_state.h"

namespace pn10 {

/** Makes and selects the font of a pass and lends it to its labels; the old font is back at the end of the scope. */
class LabelFont {
 public:
  explicit LabelFont(const LOGFONTA& font);
  ~LabelFont();
  LabelFont(const LabelFont&) = delete;
  LabelFont& operator=(const LabelFont&) = delete;
  /** False when the font could not be made or selected: the pass then paints nothing. */
  bool selected() const { return drawState.LabelFont != nullptr; }

 private:
  LOGFONTA font_;
};

/** Turns the font of the running pass to this escapement; false when it could not be made. */
bool turnLabelFont(int16_t escapement);

/** An angle as an escapement, in single precision: half a turn is exactly 1800. */
int16_t tenthsOfDegree(float angle);

/** Half a turn less when the escapement lies between the two bounds, so that no text stands on its head. */
int16_t uprightTenths(int16_t tenths, int16_t above, int16_t below);

/**
 * The middle of a pipe on the world plane, where its label and its flag stand: of the arc, of the run that ends at
 * the mid vertex of a polyline, otherwise of its ends.
 */
void pipeMiddle(int32_t pipe, int32_t midVertex, double* x, double* y);

/** True when a record's label has a place of its own. */
template <class Record>
bool hasStoredAnchor(const Record& r) {
  return r.TEXT_X != 0 || r.TEXT_Y != 0;
}

/** The texts of one label, made before the first is painted, since the leader ends at half the stack. */
struct LabelStack {
  char lines[20][kLabelSize];
  int32_t count = 0;
};

/** Paints a line of text with the reference point at a world point. */
void paintLabelLine(const char* text, double x, double y);

/** A line in the plain pen of the picture from an item to the middle of its stack; text after it is opaque. */
void paintLeader(double fromX, double fromY, double gap, double x, double y, double stepX, double stepY, int32_t count);

}  // namespace pn10

#endif
