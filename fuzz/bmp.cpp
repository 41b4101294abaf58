// LoadImageA on any bytes; a picture that loads can be asked for, selected and moved.
#include "exports/pn10platform.h"
#include "one_file.h"
#include "platform/gdi.h"
#include "platform/user.h"

using namespace pn10;

namespace {

void paint(HBITMAP bitmap, const BITMAP& about) {
  const HDC screen = PnCreateImageDC(8, 8, 96, 0xFFFFFF);
  const HDC memory = CreateCompatibleDC(screen);
  if (SelectObject(memory, bitmap)) {
    BitBlt(screen, 0, 0, 8, 8, memory, about.bmWidth - 4, about.bmHeight - 4, SRCCOPY);
    StretchBlt(screen, 1, 1, 5, 5, memory, 0, 0, about.bmWidth, about.bmHeight, SRCCOPY);
  }
  DeleteDC(memory);
  PnDeleteDC(screen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::write(".bmp", data, size);
  const int32_t objects = PnGetObjectCount();
  const std::string path = fuzz::base() + ".bmp";
  for (const UINT flags : {UINT{LR_LOADFROMFILE}, UINT{LR_LOADFROMFILE | LR_CREATEDIBSECTION}}) {
    const HBITMAP bitmap = static_cast<HBITMAP>(LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, flags));
    if (!bitmap) break;
    BITMAP about = {};
    fuzz::require(GetObjectA(bitmap, sizeof about, &about) != 0);
    fuzz::require(about.bmWidth > 0 && about.bmHeight > 0);
    /* Plain rows lie in the file; a pair of bytes may stand for a run of 255 pixels. */
    fuzz::require(int64_t{about.bmWidth} * about.bmHeight * about.bmBitsPixel <= 8 * 255 * static_cast<int64_t>(size));
    paint(bitmap, about);
    DeleteObject(bitmap);
  }
  fuzz::require(PnGetObjectCount() == objects);
  return 0;
}
