/** The console of the process. */
#include <windows.h>

#include <cstdlib>

#include "exports/pn10platform.h"

namespace {

UINT formerCodePage = 0;

void giveBackCodePage() { SetConsoleOutputCP(formerCodePage); }

}  // namespace

int32_t PnIsTerminal(int32_t stream) {
  if (stream != 1 && stream != 2) return 0;
  DWORD mode;
  return GetConsoleMode(GetStdHandle(stream == 1 ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE), &mode) ? 1 : 0;
}

void PnUseUtf8Terminal(void) {
  if (formerCodePage) return;
  formerCodePage = GetConsoleOutputCP();  // 0 without a console
  if (formerCodePage && SetConsoleOutputCP(CP_UTF8)) std::atexit(giveBackCodePage);
}
