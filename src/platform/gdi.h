/**
 * GDI32: the operations that the engine paints with.
 *
 * On Windows this is <windows.h>. Elsewhere it declares the types, constants and functions of the
 * subset with the same names, argument order and values; portable/ implements them.
 */
#ifndef PN10_PLATFORM_GDI_H
#define PN10_PLATFORM_GDI_H

#include "exports/pn10gdi.h"

#ifndef _WIN32

#include <cstddef>
#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using UINT = uint32_t;
using LONG = int32_t;
using BOOL = int32_t;
using COLORREF = uint32_t;
using LPARAM = intptr_t;
using WPARAM = uintptr_t;
using HGDIOBJ = void*;
using HANDLE = void*;
using HPEN = struct PnPen*;
using HBRUSH = struct PnBrush*;
using HFONT = struct PnFont*;
using HRGN = struct PnRegion*;

struct POINT {
  LONG x, y;
};
struct SIZE {
  LONG cx, cy;
};
struct RECT {
  LONG left, top, right, bottom;
};

constexpr int LF_FACESIZE = 32;
struct LOGFONTA {
  LONG lfHeight, lfWidth, lfEscapement, lfOrientation, lfWeight;
  BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet, lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
  char lfFaceName[LF_FACESIZE];
};
struct LOGBRUSH {
  UINT lbStyle;
  COLORREF lbColor;
  uintptr_t lbHatch;
};
struct TEXTMETRICA {
  LONG tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading, tmAveCharWidth, tmMaxCharWidth, tmWeight;
  LONG tmOverhang, tmDigitizedAspectX, tmDigitizedAspectY;
  BYTE tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar, tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily,
      tmCharSet;
};
struct ABC {
  int abcA;
  UINT abcB;
  int abcC;
};
struct BITMAP {
  LONG bmType, bmWidth, bmHeight, bmWidthBytes;
  WORD bmPlanes, bmBitsPixel;
  void* bmBits;
};
struct BITMAPINFOHEADER {
  DWORD biSize;
  LONG biWidth, biHeight;
  WORD biPlanes, biBitCount;
  DWORD biCompression, biSizeImage;
  LONG biXPelsPerMeter, biYPelsPerMeter;
  DWORD biClrUsed, biClrImportant;
};
struct RGBQUAD {
  BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};
struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
};
struct DIBSECTION {
  BITMAP dsBm;
  BITMAPINFOHEADER dsBmih;
  DWORD dsBitfields[3];
  HANDLE dshSection;
  DWORD dsOffset;
};
/** Part of the printer arguments of a print dialog; not looked at outside Windows. */
struct DEVMODEA;

/* Pens and brushes. */
constexpr DWORD PS_SOLID = 0, PS_DASH = 1, PS_DOT = 2, PS_DASHDOT = 3, PS_DASHDOTDOT = 4, PS_NULL = 5,
                PS_INSIDEFRAME = 6, PS_USERSTYLE = 7;
constexpr DWORD PS_ENDCAP_ROUND = 0, PS_ENDCAP_SQUARE = 0x100, PS_ENDCAP_FLAT = 0x200, PS_GEOMETRIC = 0x10000,
                PS_COSMETIC = 0;
constexpr UINT BS_SOLID = 0, BS_NULL = 1, BS_HOLLOW = 1, BS_HATCHED = 2;
constexpr int HS_HORIZONTAL = 0, HS_VERTICAL = 1, HS_FDIAGONAL = 2, HS_BDIAGONAL = 3, HS_CROSS = 4, HS_DIAGCROSS = 5;
/* Text. */
constexpr LONG FW_NORMAL = 400, FW_BOLD = 700;
constexpr BYTE NONANTIALIASED_QUALITY = 3;
constexpr UINT TA_LEFT = 0, TA_TOP = 0, TA_UPDATECP = 1, TA_RIGHT = 2, TA_CENTER = 6, TA_BOTTOM = 8, TA_BASELINE = 24;
/* Modes. */
constexpr int TRANSPARENT = 1, OPAQUE = 2;
constexpr int AD_COUNTERCLOCKWISE = 1, AD_CLOCKWISE = 2;
constexpr int ALTERNATE = 1, WINDING = 2;
constexpr int R2_BLACK = 1, R2_NOTMERGEPEN = 2, R2_MASKNOTPEN = 3, R2_NOTCOPYPEN = 4, R2_MASKPENNOT = 5, R2_NOT = 6,
              R2_XORPEN = 7, R2_NOTMASKPEN = 8;
constexpr int R2_MASKPEN = 9, R2_NOTXORPEN = 10, R2_NOP = 11, R2_MERGENOTPEN = 12, R2_COPYPEN = 13, R2_MERGEPENNOT = 14,
              R2_MERGEPEN = 15, R2_WHITE = 16;
constexpr DWORD SRCCOPY = 0x00CC0020, SRCAND = 0x008800C6, SRCPAINT = 0x00EE0086, SRCINVERT = 0x00660046,
                NOTSRCCOPY = 0x00330008, NOTSRCERASE = 0x001100A6;
constexpr int BLACKONWHITE = 1, WHITEONBLACK = 2, COLORONCOLOR = 3, HALFTONE = 4;
/* Devices. */
constexpr int HORZSIZE = 4, VERTSIZE = 6, HORZRES = 8, VERTRES = 10, BITSPIXEL = 12, PLANES = 14, LOGPIXELSX = 88,
              LOGPIXELSY = 90;
constexpr int TECHNOLOGY = 2, PHYSICALWIDTH = 110, PHYSICALHEIGHT = 111, PHYSICALOFFSETX = 112, PHYSICALOFFSETY = 113;
constexpr int GETPHYSPAGESIZE = 12, GETPRINTINGOFFSET = 13;
constexpr UINT DIB_RGB_COLORS = 0;
constexpr DWORD BI_RGB = 0, BI_RLE8 = 1, BI_RLE4 = 2, BI_BITFIELDS = 3;
constexpr int ERROR_REGION = 0, NULLREGION = 1, SIMPLEREGION = 2;

/* Lines and shapes. */
BOOL MoveToEx(HDC dc, int x, int y, POINT* old);
BOOL LineTo(HDC dc, int x, int y);
BOOL Polyline(HDC dc, const POINT* points, int count);
BOOL Polygon(HDC dc, const POINT* points, int count);
BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
BOOL Pie(HDC dc, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2);
BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2);
BOOL BeginPath(HDC dc);
BOOL EndPath(HDC dc);
BOOL StrokePath(HDC dc);
BOOL FillPath(HDC dc);
BOOL StrokeAndFillPath(HDC dc);
int GetArcDirection(HDC dc);
int SetArcDirection(HDC dc, int direction);
int GetPolyFillMode(HDC dc);
int SetPolyFillMode(HDC dc, int mode);

/* Objects. */
HPEN CreatePen(int style, int width, COLORREF color);
HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count, const DWORD* lengths);
HBRUSH CreateSolidBrush(COLORREF color);
HBRUSH CreateBrushIndirect(const LOGBRUSH* brush);
HBRUSH CreateHatchBrush(int hatch, COLORREF color);
HFONT CreateFontIndirectA(const LOGFONTA* font);
HRGN CreateRectRgn(int left, int top, int right, int bottom);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ object);
int GetObjectA(HANDLE object, int size, void* data);

/* Text. */
UINT SetTextAlign(HDC dc, UINT align);
UINT GetTextAlign(HDC dc);
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF GetTextColor(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF color);
COLORREF GetBkColor(HDC dc);
int SetBkMode(HDC dc, int mode);
int GetBkMode(HDC dc);
BOOL TextOutA(HDC dc, int x, int y, const char* text, int count);
BOOL GetTextExtentPoint32A(HDC dc, const char* text, int count, SIZE* size);
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
BOOL GetCharABCWidthsA(HDC dc, UINT first, UINT last, ABC* widths);

/* Device, state, clip. */
int GetDeviceCaps(HDC dc, int index);
int Escape(HDC dc, int escape, int inSize, const char* in, void* out);
int SaveDC(HDC dc);
BOOL RestoreDC(HDC dc, int saved);
HDC CreateDCA(const char* driver, const char* device, const char* port, const DEVMODEA* mode);
int SelectClipRgn(HDC dc, HRGN region);
int SetROP2(HDC dc, int mode);
int GetROP2(HDC dc);

/* Bitmaps. */
HDC CreateCompatibleDC(HDC dc);
BOOL DeleteDC(HDC dc);
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset);
int SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage);
int GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage);
BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop);
BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD rop);
int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop);
int SetStretchBltMode(HDC dc, int mode);
int GetStretchBltMode(HDC dc);

#endif
#endif
