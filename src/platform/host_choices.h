/** What a host settled through pn10platform.h, as the engine asks for it. */
#ifndef PN10_PLATFORM_HOST_CHOICES_H
#define PN10_PLATFORM_HOST_CHOICES_H

#include "platform/gdi.h"

namespace pn10 {

/** Dots per inch of a context, the mean of both directions; an image context has those that it was made with. */
int dotsPerInch(HDC dc);

/** Shows a text in a message box, or to whom the host named with PnSetMessageBox. */
void showMessage(const char* text);

/** The mean that a device answers itself. */
inline int deviceDotsPerInch(HDC dc) { return (GetDeviceCaps(dc, LOGPIXELSX) + GetDeviceCaps(dc, LOGPIXELSY)) / 2; }

}  // namespace pn10

#endif
