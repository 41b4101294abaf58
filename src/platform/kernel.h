/** KERNEL32: dynamic libraries, the local date, MulDiv and global memory. <windows.h> on Windows. */
#ifndef PN10_PLATFORM_KERNEL_H
#define PN10_PLATFORM_KERNEL_H

#include "platform/gdi.h"

#ifndef _WIN32

using HMODULE = void*;
using HGLOBAL = void*;
using FARPROC = void (*)();

struct SYSTEMTIME {
  WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};

constexpr UINT GMEM_FIXED = 0, GMEM_ZEROINIT = 0x40;

/** Also tries the platform's usual file name ("libNAME.so" for "NAME.dll"), beside this library and on the loader's
 * path. */
HMODULE LoadLibraryA(const char* name);
FARPROC GetProcAddress(HMODULE library, const char* name);
BOOL FreeLibrary(HMODULE library);
void GetLocalTime(SYSTEMTIME* time);
/** a * b / c in 64 bits, rounded to nearest with halves away from zero; -1 when c is 0 or the result does not fit. */
int MulDiv(int a, int b, int c);
HGLOBAL GlobalAlloc(UINT flags, size_t size);
HGLOBAL GlobalFree(HGLOBAL memory);

#endif
#endif
