/** The cancel polls of a paint: the picture shows piece by piece, and Escape ends it. */
#include <algorithm>

#include "draw/frame.h"
#include "platform/user.h"

namespace pn10 {

int32_t PollCancel(HWND window) {
  UpdateWindow(window);
  InvalidateRect(window, nullptr, 1);
  constexpr LPARAM kEscape = 1; /* scan code, without the flag of extended keys */
  MSG message{};
  while (PeekMessageA(&message, drawState.KeyWindow, WM_KEYDOWN, WM_KEYLAST, PM_REMOVE)) {
    if (message.message == WM_KEYDOWN && (message.lParam >> 16 & 0xFFFF) == kEscape) return -1;
  }
  return 0;
}

CancelPolls::CancelPolls(int32_t first, int32_t last)
    : batch_(std::max<int64_t>((int64_t{last} - first) * drawState.Plot->PollPercent / 100, 1)) {}

}  // namespace pn10
