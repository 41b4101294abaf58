/**
 * What the painters of paper and of smooth images share: GDI marks turned into paths with a stroke or a fill.
 *
 * Coordinates are device units with pixel (x,y) covering x ... x+1, so that an odd pen runs through the middles of
 * pixels and an even one along their edges, as the integer painter has it.
 */
#ifndef PN10_PLATFORM_PORTABLE_VECTOR_PAINTER_H
#define PN10_PLATFORM_PORTABLE_VECTOR_PAINTER_H

#include "platform/portable/context.h"

namespace pn10::portable {

/** How a colour joins what is below it. Paper has no bitwise operations; these come nearest. */
enum class Blend : uint8_t { None, Normal, Darken, Lighten, Difference };

struct Mixed {
  Blend blend;
  uint32_t color;         /* 0x00RRGGBB */
  bool onInverse = false; /* what is below is inverted first */
};

/** A binary raster operation of a colour. */
Mixed mixedColor(int rop2, COLORREF color);

/** A pen laid out for a path. */
struct VectorStroke {
  Mixed ink;
  double width;
  double shift; /* from lattice points to the pen's middle, both axes */
  DWORD cap;
  int32_t dashCount; /* 0: solid */
  double dashes[32];
  bool gapsPainted; /* gaps in the background colour */
};
VectorStroke vectorStroke(const PaintState& state);

/** A hatch brush: lines every 8 units, and the colour between them when the background is opaque. */
struct VectorHatch {
  int32_t hatch;
  Mixed ink;
  bool gapsPainted;
  Mixed gaps;
};

/** The lines of a hatch in its 8 x 8 cell: bit 0 across, 1 down, 2 falling, 3 rising. */
uint32_t hatchLines(int32_t hatch);

class VectorPainter : public FilePainter {
 public:
  void line(const PaintState& state, POINT from, POINT to) final;
  void polyline(const PaintState& state, const POINT* points, int32_t count) final;
  void polygon(const PaintState& state, const POINT* points, int32_t count) final;
  void ellipse(const PaintState& state, const RECT& box) final;
  void pie(const PaintState& state, const PieShape& pie) final;
  void path(const PaintState& state, const Path& path, bool stroke, bool fill) final;
  void text(const PaintState& state, const TextRun& run) override;
  void blit(const PaintState& state, const Blit& blit) override;

 protected:
  /** From here on only this rectangle is painted. */
  virtual void setClip(const RECT& clip) = 0;
  virtual void strokePath(const Path& path, const VectorStroke& stroke) = 0;
  virtual void fillPath(const Path& path, bool winding, Mixed ink) = 0;
  virtual void hatchPath(const Path& path, bool winding, const VectorHatch& hatch) = 0;
  virtual void glyphs(const TextRun& run, uint32_t color) = 0;
  /** The pixels of `image`, each stretched over its part of the box; mirrored for negative extents. */
  virtual void image(const Raster& image, const RECT& box, bool mirrorX, bool mirrorY, Blend blend) = 0;

 private:
  void layFill(const Path& path, bool winding, Mixed ink);
  void layStroke(const Path& path, const VectorStroke& stroke);
  void paint(const PaintState& state, const Path& fillShape, const Path& strokeShape, bool stroke, bool fill);

  Path scratch_; /* kept from mark to mark, so that a line allocates nothing */
};

}  // namespace pn10::portable

#endif
