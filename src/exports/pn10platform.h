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

/* Device contexts. A context lives until PnDeleteDC; a handle that is NULL or deleted is harmless everywhere. Text is
   code page 1252; "Arial" takes the metric-compatible face that the system offers. One thread paints at a time. */

/**
 * A picture in memory, 32 bits a pixel, painted pixel by pixel as GDI sets them.
 * @param width, height  in pixels, at least 1
 * @param dpi            what GetDeviceCaps answers for LOGPIXELSX and LOGPIXELSY, at least 1
 * @param background     the colour of all pixels, 0x00BBGGRR
 * @return NULL for sizes that make no picture or more than 2 GB, and without memory
 */
PN10_EXPORT HDC PnCreateImageDC(int32_t width, int32_t height, int32_t dpi, int32_t background);
/**
 * One page in a PDF file, written when the context is deleted. Raster operations become blend modes: AND is the darker
 * of both, exact on white paper.
 * @param path                 the file, made at once and replaced when it exists
 * @param width_in, height_in  the page in inches, above 0 and up to 1000
 * @param dpi                  device units per inch; unit (0,0) is the upper left corner
 * @return NULL when the file can't be made or the page is none
 */
PN10_EXPORT HDC PnCreatePdfDC(const char* path, double width_in, double height_in, int32_t dpi);
/** The same as an SVG file, one element per mark: texts stay texts, and can be edited. */
PN10_EXPORT HDC PnCreateSvgDC(const char* path, double width_in, double height_in, int32_t dpi);
/**
 * A context that paints nothing and serves the operation log. Its text metrics follow a fixed rule, the same on every
 * machine: with h the magnitude of the font's height (16 when it is 0), each character is (h + 1) / 2 wide, the line h
 * high and the ascent h - h / 5, in whole numbers.
 */
PN10_EXPORT HDC PnCreateRecordDC(int32_t width, int32_t height, int32_t dpi);
/** Ends a context of any kind and finishes its file; 1, or 0 when the file could not be written or `dc` is none. */
PN10_EXPORT int32_t PnDeleteDC(HDC dc);
/**
 * How an image context paints lines and shapes from now on: 0 (at start) pixels as GDI sets them, 1 smooth.
 * @return 1; 0 when `dc` is no image context or there is no memory
 */
PN10_EXPORT int32_t PnSetAntialias(HDC dc, int16_t on);
/** Writes an image context as a PNG file; 1, or 0 when it could not be written or `dc` is no image context. */
PN10_EXPORT int32_t PnSavePng(HDC dc, const char* path);
/** A pixel of an image or memory context, 0x00BBGGRR; -1 outside, and for contexts without pixels. */
PN10_EXPORT int32_t PnGetPixel(HDC dc, int32_t x, int32_t y);
/**
 * What a context answers about its paper, in device units: Escape 12 and GetDeviceCaps 110, 111 the size, Escape 13 and
 * GetDeviceCaps 112, 113 the offset of the printable area. Paints nothing otherwise. Returns 1, 0 when `dc` is none.
 */
PN10_EXPORT int32_t PnSetPage(HDC dc, int32_t phys_width, int32_t phys_height, int32_t offset_x, int32_t offset_y);
/**
 * Makes a printer known: CreateDCA("WINSPOOL", name, NULL, NULL), and so GetPlotHDC, then opens a PDF at `path`, or an
 * SVG when it ends in ".svg". Device unit (0,0) is the corner of the printable area, `offset_x`, `offset_y` units
 * inside the page. A name that is known already gets the new page.
 * @return 1; 0 without a name or a path, or for a page that is none
 */
PN10_EXPORT int32_t PnAddPrinter(const char* name, const char* path, double width_in, double height_in, int32_t dpi,
                                 int32_t offset_x, int32_t offset_y);

/* Windows, keys, cursor, message boxes, date. */

/** A window that keeps messages and counts repaints; shows nothing. NULL without memory. */
PN10_EXPORT HWND PnCreateWindow(void);
/** Ends a window; its handle is worth nothing from then on, and harmless. */
PN10_EXPORT void PnDestroyWindow(HWND window);
/** Puts a message into a window's queue, for the polls of a running picture or trace to take (PeekMessageA). */
PN10_EXPORT void PnPostMessage(HWND window, uint32_t message, uint32_t wparam, uint32_t lparam);
/** How often the window was asked to repaint at once (UpdateWindow). */
PN10_EXPORT int32_t PnGetWindowUpdates(HWND window);
/** Id of the cursor now shown: 32512 the arrow, at start; 32514 the wait cursor. */
PN10_EXPORT int32_t PnGetCursor(void);
/** Who shows message boxes. NULL, at start: one line on standard error each. The texts live during the call only. */
PN10_EXPORT void PnSetMessageBox(void (*show)(const char* text, const char* caption));
/** The date that records get, as a number yyyymmdd; 0, at start: the clock's. */
PN10_EXPORT void PnSetDate(int32_t yyyymmdd);
/** Pens, brushes, fonts, bitmaps, regions and memory contexts alive: the same before and after whatever frees all. */
PN10_EXPORT int32_t PnGetObjectCount(void);

/* The operation log: process-wide, off at start. One line per operation on a context or window and per object made or
   deleted, in call order: its name and arguments, objects by their properties ("SelectObject pen(0,1,0x0000FF)"). */

/** Nonzero: clears the log and starts it. 0: stops it and keeps what it holds. */
PN10_EXPORT void PnRecord(int16_t on);
/**
 * Copies the log, cut at `size` - 1 bytes, and a terminator.
 * @param text  may be NULL, to ask for the length alone
 * @return the length of the whole log in bytes
 */
PN10_EXPORT int32_t PnGetRecord(char* text, int32_t size);

#ifdef __cplusplus
}
#endif

#endif /* PN10PLATFORM_H */
