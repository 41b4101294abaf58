/** The passes of graphic text and user graphics: called in their place; there is nothing to paint yet. */
#include "draw/passes.h"

namespace pn10 {

int32_t DrawTexts(int32_t, int32_t, int16_t, int32_t, int16_t) { return 0; }

int32_t DrawUserGraphics(int32_t, int32_t, int16_t, int16_t, int32_t, float, float, int32_t) { return 0; }

}  // namespace pn10
