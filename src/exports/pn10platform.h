/**
 * The portable platform as a host sees it: device contexts, windows, keys and the operation log.
 *
 * Not on Windows, where the system gives all this. A host makes a context here, hands it to the calls of
 * pn10gdi.h, and deletes it here.
 */
#ifndef PN10PLATFORM_H
#define PN10PLATFORM_H

#include "pn10gdi.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Device contexts. NULL on failure. dpi is what GetDeviceCaps(LOGPIXELSX and LOGPIXELSY) answers. */
/** 32-bit raster, filled with the colour 0x00BBGGRR */
PN10_EXPORT HDC PnCreateImageDC(int32_t width, int32_t height, int32_t dpi, int32_t background);
/** Page size in inches; device unit = 1/dpi inch */
PN10_EXPORT HDC PnCreatePdfDC(const char* path, double width_in, double height_in, int32_t dpi);
PN10_EXPORT HDC PnCreateSvgDC(const char* path, double width_in, double height_in, int32_t dpi);
/** Paints nothing; text metrics are the fixed ones below */
PN10_EXPORT HDC PnCreateRecordDC(int32_t width, int32_t height, int32_t dpi);
/** Finishes a PDF or SVG file; 1, or 0 when the file could not be written */
PN10_EXPORT int32_t PnDeleteDC(HDC dc);
/** Image contexts: 0 (default) pixels as GDI sets them, 1 smooth; returns 1 */
PN10_EXPORT int32_t PnSetAntialias(HDC dc, int16_t on);
/** Image contexts; 1 or 0 */
PN10_EXPORT int32_t PnSavePng(HDC dc, const char* path);
/** 0x00BBGGRR, -1 outside */
PN10_EXPORT int32_t PnGetPixel(HDC dc, int32_t x, int32_t y);
/** Answers of Escape 12, 13 and GetDeviceCaps 110 to 113; returns 1 */
PN10_EXPORT int32_t PnSetPage(HDC dc, int32_t phys_width, int32_t phys_height, int32_t offset_x, int32_t offset_y);
/** CreateDCA("WINSPOOL", name, ...) then opens a PDF or, by the ending, an SVG at path; returns 1 */
PN10_EXPORT int32_t PnAddPrinter(const char* name, const char* path, double width_in, double height_in, int32_t dpi,
                                 int32_t offset_x, int32_t offset_y);

/* Windows, keys, cursor, message boxes, date. */
PN10_EXPORT HWND PnCreateWindow(void);
PN10_EXPORT void PnDestroyWindow(HWND window);
/** PeekMessageA takes it */
PN10_EXPORT void PnPostMessage(HWND window, uint32_t message, uint32_t wparam, uint32_t lparam);
/** UpdateWindow calls so far */
PN10_EXPORT int32_t PnGetWindowUpdates(HWND window);
/** Id of the cursor now shown: 32512 arrow (start), 32514 wait */
PN10_EXPORT int32_t PnGetCursor(void);
/** NULL: the default, one line on standard error */
PN10_EXPORT void PnSetMessageBox(void (*show)(const char* text, const char* caption));
/** The date that GetLocalTime answers; 0: the clock */
PN10_EXPORT void PnSetDate(int32_t yyyymmdd);
/** Pens, brushes, fonts, bitmaps, regions and memory contexts alive: the leak test */
PN10_EXPORT int32_t PnGetObjectCount(void);

/* The operation log: process-wide, off at start. */
/** Start (and clear) or stop */
PN10_EXPORT void PnRecord(int16_t on);
/** Copies at most size-1 bytes and a terminator; returns the length of the whole log */
PN10_EXPORT int32_t PnGetRecord(char* text, int32_t size);

#ifdef __cplusplus
}
#endif

#endif /* PN10PLATFORM_H */
