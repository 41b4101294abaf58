/**
 * The short way of a picture that shows nothing but the lines of its pipes.
 *
 * Of a large network, nearly every pipe is neither a device nor selected nor flagged, and at its scale there are no
 * labels, arrows or marks. Such a pipe needs its ends, its vertices and its pen; everything else that PipeBody asks
 * is known for the whole picture. The operations are those of PipeBody, one by one.
 */
#ifndef PN10_DRAW_PLAIN_PIPES_H
#define PN10_DRAW_PLAIN_PIPES_H

#include "draw/frame.h"
#include "draw/pipe_body.h"

namespace pn10 {

class PlainPipes {
 public:
  /** For a picture on screen without labels, arrows, marks, clearing or new colours; `showFlags`: flags are painted. */
  PlainPipes(const PipeStyle& style, bool showFlags);

  /**
   * Paints from record `pipe` up to `top`; answers the first record that is left: one that is not plain, the one
   * after a cancel poll (the host may have changed the model in it), or the one behind `top`.
   */
  int32_t paint(int32_t pipe, int32_t top, CancelPolls& polls, bool* cancelled) const;

 private:
  const PipeStyle& style_;
  bool showFlags_;
  bool usable_; /* points of the window have places on the device */
};

}  // namespace pn10

#endif
