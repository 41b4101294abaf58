/** USER32 of the portable platform, the part without text: windows, keyboard queue, cursor, message box. */
#include <cstdio>
#include <deque>
#include <new>

#include "exports/pn10platform.h"
#include "platform/portable/log.h"
#include "platform/portable/objects.h"
#include "platform/user.h"

using namespace pn10::portable;

namespace {

struct Window : Object {
  static constexpr Kind kKind = Kind::Window;
  std::deque<MSG> queue;
  int32_t updates = 0;
};

int32_t shownCursor = 32512;
void (*showBox)(const char* text, const char* caption) = nullptr;

/** A cursor is its resource number: nothing is loaded, nothing needs to be freed. */
HCURSOR cursorOf(int32_t id) { return reinterpret_cast<HCURSOR>(static_cast<uintptr_t>(id)); }
int32_t idOf(HCURSOR cursor) { return static_cast<int32_t>(reinterpret_cast<uintptr_t>(cursor)); }

}  // namespace

void pn10::portable::freeWindow(Object* window) { delete static_cast<Window*>(window); }

HWND PnCreateWindow(void) {
  Window* window = new (std::nothrow) Window{};
  if (window) window->kind = Kind::Window;
  return static_cast<HWND>(enter(window, nullptr));
}

void PnDestroyWindow(HWND handle) {
  if (Window* window = find<Window>(handle)) destroy(window);
}

void PnPostMessage(HWND handle, uint32_t message, uint32_t wparam, uint32_t lparam) {
  Window* window = find<Window>(handle);
  if (!window) return;
  MSG msg{};
  msg.hwnd = handle;
  msg.message = message;
  msg.wParam = wparam;
  msg.lParam = static_cast<LPARAM>(static_cast<int32_t>(lparam));
  window->queue.push_back(msg);
}

int32_t PnGetWindowUpdates(HWND handle) {
  const Window* window = find<Window>(handle);
  return window ? window->updates : 0;
}
int32_t PnGetCursor(void) { return shownCursor; }
void PnSetMessageBox(void (*show)(const char* text, const char* caption)) { showBox = show; }

HCURSOR LoadCursorA(HINSTANCE, const char* name) {
  return reinterpret_cast<HCURSOR>(reinterpret_cast<uintptr_t>(name));
}

HCURSOR SetCursor(HCURSOR cursor) {
  const int32_t old = shownCursor;
  shownCursor = idOf(cursor);
  logOp("SetCursor", shownCursor);
  return cursorOf(old);
}

int MessageBoxA(HWND, const char* text, const char* caption, UINT) {
  const char* shown = text ? text : "";
  if (recording()) logLine("MessageBoxA " + quoted(shown, std::char_traits<char>::length(shown)));
  if (showBox) {
    showBox(shown, caption ? caption : "");
  } else {
    std::fprintf(stderr, "%s\n", shown);
  }
  return 1;
}

BOOL PeekMessageA(MSG* message, HWND handle, UINT first, UINT last, UINT remove) {
  Window* window = find<Window>(handle);
  if (message && window) {
    auto& queue = window->queue;
    for (auto it = queue.begin(); it != queue.end(); ++it) {
      if ((first || last) && (it->message < first || it->message > last)) continue;
      *message = *it;
      if (remove & PM_REMOVE) queue.erase(it);
      logOp("PeekMessageA found");
      return 1;
    }
  }
  logOp("PeekMessageA none");
  return 0;
}

BOOL InvalidateRect(HWND window, const RECT*, BOOL erase) {
  logOp("InvalidateRect", erase);
  return !window || find<Window>(window); /* none means all windows */
}

BOOL UpdateWindow(HWND handle) {
  logOp("UpdateWindow");
  Window* window = find<Window>(handle);
  if (!window) return 0;
  window->updates++;
  return 1;
}
