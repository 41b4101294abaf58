/** The wait cursor of long table scans: shown while a guard lives, the old cursor back on every way out. */
#ifndef PN10_MODEL_WAIT_CURSOR_H
#define PN10_MODEL_WAIT_CURSOR_H

namespace pn10 {

/** An inner guard under an outer one does nothing: there is one slot for the old cursor, not a stack. */
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace pn10

#endif
