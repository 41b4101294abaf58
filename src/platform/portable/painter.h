/**
 * The seam between a device context and what paints for it.
 *
 * A context keeps the state (objects, modes, position, clip) and the operation log; a painter turns one
 * operation into pixels (raster), into Cairo calls (PDF, smooth images), into SVG text or into nothing
 * (record contexts). Painters know nothing of handles, selection or the log.
 */
#ifndef PN10_PLATFORM_PORTABLE_PAINTER_H
#define PN10_PLATFORM_PORTABLE_PAINTER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/gdi.h"

namespace pn10::portable {

/** A pen as made; `style` is the low nibble (PS_SOLID ... PS_USERSTYLE), `cap` 0 round, 0x100 square, 0x200 flat. */
struct PenData {
  DWORD style = PS_SOLID;
  DWORD cap = PS_ENDCAP_ROUND;
  bool geometric = false;
  bool fromExtCreatePen = false;
  int32_t width = 0;  /* absolute value; 0 paints like 1 */
  COLORREF color = 0; /* as given by the caller */
  int32_t count = 0;  /* entries of a user style */
  DWORD lengths[16] = {};
};

struct BrushData {
  UINT style = BS_SOLID; /* 0 solid, 1 hollow, 2 hatched */
  int32_t hatch = 0;
  COLORREF color = 0xFFFFFF;
};

/** The state of a context that painting looks at. The clip is already cut to the device, half-open. */
struct PaintState {
  const PenData* pen;
  const BrushData* brush;
  int rop2;
  int bkMode;
  COLORREF bkColor, textColor;
  int fillMode;
  int stretchMode;
  RECT clip;
};

/** A 32-bit raster, 0x00RRGGBB per pixel, top row first. */
struct Raster {
  uint32_t* pixels = nullptr;
  int32_t width = 0, height = 0;
  ptrdiff_t stride = 0; /* pixels from row to row */
};

/** A pie: the piece between two radials; `clockwise` as seen on the screen. The box corners are in order. */
struct PieShape {
  RECT box;
  POINT from, to;
  bool clockwise;
};

/** A path: figures of points joined by lines or by cubic Bezier curves (three points each after the first). */
struct PathFigure {
  struct Piece {
    bool curve; /* false: line to p3 */
    double x1, y1, x2, y2, x3, y3;
  };
  double startX, startY;
  std::vector<Piece> pieces;
  bool closed;
};
using Path = std::vector<PathFigure>;

struct FontData; /* glyphs.h */

/** One run of text, placed: pen origin of the first glyph on the baseline, and the turned cell. */
struct TextRun {
  FontData* font;
  const unsigned char* text; /* code page 1252 */
  int32_t count;
  int32_t x, y; /* the point given to TextOutA */
  UINT align;
  int32_t escapement; /* tenths of a degree, normalised to 0 ... 3599 */
  double originX, originY;
  double cellX[4], cellY[4]; /* corners of the cell in order; the box that OPAQUE fills */
  int32_t width, ascent, descent;
};

/** A block transfer from a 32-bit raster; a negative destination size mirrors. */
struct Blit {
  Raster source;
  int32_t x, y, width, height;
  int32_t sourceX, sourceY, sourceWidth, sourceHeight;
  DWORD rop;
};

class Painter {
 public:
  virtual ~Painter() = default;
  /** One LineTo: from the current point, end point as GDI leaves it out. */
  virtual void line(const PaintState& state, POINT from, POINT to) = 0;
  virtual void polyline(const PaintState& state, const POINT* points, int32_t count) = 0;
  virtual void polygon(const PaintState& state, const POINT* points, int32_t count) = 0;
  /** The box has ordered corners, right and bottom exclusive. */
  virtual void ellipse(const PaintState& state, const RECT& box) = 0;
  virtual void pie(const PaintState& state, const PieShape& pie) = 0;
  virtual void path(const PaintState& state, const Path& path, bool stroke, bool fill) = 0;
  virtual void text(const PaintState& state, const TextRun& run) = 0;
  virtual void blit(const PaintState& state, const Blit& blit) = 0;
};

/** The 0x00RRGGBB that a COLORREF paints: palette bits in the high byte as GDI treats them. */
uint32_t paintedColor(COLORREF color);

/** Makes the integer painter of a raster; the raster must outlive it. */
Painter* newRasterPainter(const Raster& raster);

/** Paints a run of glyphs and its OPAQUE cell into a raster: the text half of the raster painter. */
void paintRasterText(const Raster& raster, const PaintState& state, const TextRun& run);

/** True when a pen paints nothing. */
inline bool isNullPen(const PenData& pen) { return pen.style == PS_NULL; }

}  // namespace pn10::portable

#endif
