/** USER32: text boxes, pictures, cursors, message boxes, keyboard messages and repaints. <windows.h> on Windows. */
#ifndef PN10_PLATFORM_USER_H
#define PN10_PLATFORM_USER_H

#include "platform/gdi.h"

#ifndef _WIN32

using HCURSOR = struct PnCursor*;
using HINSTANCE = void*;

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};

/** Names of resources by number, as LoadCursorA takes them. */
inline const char* IDC_ARROW = reinterpret_cast<const char*>(uintptr_t{32512});
inline const char* IDC_WAIT = reinterpret_cast<const char*>(uintptr_t{32514});
constexpr UINT WM_KEYDOWN = 0x100, WM_KEYLAST = 0x109, PM_REMOVE = 1;
constexpr UINT DT_WORDBREAK = 0x10, DT_CALCRECT = 0x400, DT_NOPREFIX = 0x800;
constexpr UINT IMAGE_BITMAP = 0, LR_LOADFROMFILE = 0x10, LR_DEFAULTSIZE = 0x40, LR_CREATEDIBSECTION = 0x2000;

int DrawTextA(HDC dc, const char* text, int count, RECT* rect, UINT format);
HANDLE LoadImageA(HINSTANCE instance, const char* name, UINT type, int width, int height, UINT flags);
HCURSOR LoadCursorA(HINSTANCE instance, const char* name);
HCURSOR SetCursor(HCURSOR cursor);
int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type);
BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND window);

#endif
#endif
