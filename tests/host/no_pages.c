/* Preloaded, this makes the system one without PDF and SVG contexts, as Windows is. */
#include "pn10platform.h"

int32_t PnHasPageDC(void) { return 0; }
