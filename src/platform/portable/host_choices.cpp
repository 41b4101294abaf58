/** What a host settled: contexts and message boxes of this platform know it themselves. And the terminal. */
#include "platform/host_choices.h"

#include <unistd.h>

#include "exports/pn10platform.h"
#include "platform/user.h"

namespace pn10 {

int dotsPerInch(HDC dc) { return deviceDotsPerInch(dc); }

void showMessage(const char* text) { MessageBoxA(nullptr, text, "", 0); }

}  // namespace pn10

int32_t PnIsTerminal(int32_t stream) {
  return (stream == STDOUT_FILENO || stream == STDERR_FILENO) && isatty(stream) ? 1 : 0;
}

void PnUseUtf8Terminal(void) {}
