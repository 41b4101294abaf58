/** What a host settled, where GDI and USER know nothing of it: dots per inch of images, and who shows messages. */
#include "platform/host_choices.h"

#include "exports/pn10platform.h"
#include "platform/windows/image_context.h"

namespace {
void(PN10_CALL* showBox)(const char* text, const char* caption) = nullptr;
}  // namespace

namespace pn10 {

int dotsPerInch(HDC dc) {
  const windows::ImageContext* image = windows::imageContextOf(dc);
  return image ? image->dpi : deviceDotsPerInch(dc);
}

void showMessage(const char* text) {
  if (showBox) {
    showBox(text, "");
  } else {
    MessageBoxA(nullptr, text, "", 0);
  }
}

}  // namespace pn10

void PnSetMessageBox(void(PN10_CALL* show)(const char* text, const char* caption)) { showBox = show; }
