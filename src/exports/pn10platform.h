/**
 * What a host needs beside the engine, on every system: pictures in memory, message boxes, the terminal. Outside
 * Windows also what GDI gives there: pages, printers, windows, keys, and the operation log.
 *
 * A host makes a context here, hands it to the calls of pn10gdi.h, and deletes it here.
 */
#ifndef PN10PLATFORM_H
#define PN10PLATFORM_H

#include "pn10gdi.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Device contexts. A context lives until PnDeleteDC; a handle that is NULL or deleted is harmless everywhere. Text is
   code page 1252; "Arial" takes the metric-compatible face that the system offers. One thread paints at a time.
   Paths are those of fopen: on Windows in the code page of the process. */

/**
 * A picture in memory, 32 bits a pixel, painted pixel by pixel as GDI sets them; on Windows a memory context of GDI.
 * @param width, height  in pixels, at least 1
 * @param dpi            dots per inch that the engine takes its sizes from, at least 1
 * @param background     the colour of all pixels, 0x00BBGGRR
 * @return NULL for sizes that make no picture or more than 2 GB, and without memory
 */
PN10_EXPORT HDC PN10_CALL PnCreateImageDC(int32_t width, int32_t height, int32_t dpi, int32_t background);
/** 1 where PnCreatePdfDC and PnCreateSvgDC make pages; 0 on Windows, where GDI has none: a host prints there. */
PN10_EXPORT int32_t PN10_CALL PnHasPageDC(void);
/**
 * One page in a PDF file, written when the context is deleted. Raster operations become blend modes: AND is the darker
 * of both, exact on white paper.
 * @param path                 the file, made at once and replaced when it exists
 * @param width_in, height_in  the page in inches, above 0 and up to 1000
 * @param dpi                  device units per inch; unit (0,0) is the upper left corner
 * @return NULL when the file can't be made or the page is none, and on Windows
 */
PN10_EXPORT HDC PN10_CALL PnCreatePdfDC(const char* path, double width_in, double height_in, int32_t dpi);
/** The same as an SVG file, one element per mark: texts stay texts, and can be edited. */
PN10_EXPORT HDC PN10_CALL PnCreateSvgDC(const char* path, double width_in, double height_in, int32_t dpi);
/** Ends a context of any kind and finishes its file; 1, or 0 when the file could not be written or `dc` is none. */
PN10_EXPORT int32_t PN10_CALL PnDeleteDC(HDC dc);
/**
 * How an image context paints lines and shapes from now on: 0 (at start) pixels as GDI sets them, 1 smooth.
 * @return 1; 0 when `dc` is no image context or there is no memory, and on Windows, where GDI paints
 */
PN10_EXPORT int32_t PN10_CALL PnSetAntialias(HDC dc, int16_t on);
/** Writes an image context as a PNG file; 1, or 0 when it could not be written or `dc` is no image context. */
PN10_EXPORT int32_t PN10_CALL PnSavePng(HDC dc, const char* path);
/** A pixel of an image or memory context, 0x00BBGGRR; -1 outside, and for contexts without pixels. */
PN10_EXPORT int32_t PN10_CALL PnGetPixel(HDC dc, int32_t x, int32_t y);

/* Message boxes and the terminal. */

/**
 * Who shows message boxes. NULL, at start: the system's box on Windows, one line on standard error each elsewhere. The
 * texts, of code page 1252, live during the call only.
 */
PN10_EXPORT void PN10_CALL PnSetMessageBox(void(PN10_CALL* show)(const char* text, const char* caption));
/** 1 when standard output (`stream` 1) or standard error (2) goes to a terminal, otherwise 0. */
PN10_EXPORT int32_t PN10_CALL PnIsTerminal(int32_t stream);
/** Makes a Windows console show UTF-8, until the process ends; terminals elsewhere do so already. */
PN10_EXPORT void PN10_CALL PnUseUtf8Terminal(void);

#ifndef _WIN32

/* More contexts, and what they say of themselves. Not on Windows, from here on: GDI and USER give it there. */

/**
 * A context that paints nothing and serves the operation log. Its text metrics follow a fixed rule, the same on every
 * machine: with h the magnitude of the font's height (16 when it is 0), each character is (h + 1) / 2 wide, the line h
 * high and the ascent h - h / 5, in whole numbers.
 */
PN10_EXPORT HDC PnCreateRecordDC(int32_t width, int32_t height, int32_t dpi);
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

/* Windows, keys, cursor, date. */

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

#endif

#ifdef __cplusplus
}
#endif

#endif /* PN10PLATFORM_H */
