/**
 * Pens, brushes and fonts of a pass: the object cache and the guards that put the context back.
 *
 * The rule of all drawing stands here once. An object is made only when an attribute changes. It is replaced by
 * selecting the kept old object, deleting the own one that comes back, creating the new one and selecting it. At
 * the end of the scope, on every way out, the old object is selected back and the own one deleted.
 */
#ifndef PN10_DRAW_GDI_OBJECTS_H
#define PN10_DRAW_GDI_OBJECTS_H

#include <cstring>

#include "draw/lines.h"
#include "platform/gdi.h"

namespace pn10 {

/** What a pen is made of: CreatePen's style, or with `lineStyle` set a line style number for MakeStylePen. */
struct PenLook {
  int32_t style, width, color;
  bool lineStyle;
  bool operator==(const PenLook&) const = default;
};

/** What a brush is made of, and by which call. */
struct BrushLook {
  enum Maker : uint8_t { Solid, Indirect, Hatch };
  Maker maker;
  int32_t style; /* BS_... of Indirect, HS_... of Hatch */
  int32_t color;
  bool operator==(const BrushLook&) const = default;
};

struct FontLook {
  LOGFONTA font;
  bool operator==(const FontLook& o) const { return std::memcmp(&font, &o.font, sizeof font) == 0; }
};

inline HGDIOBJ makeObject(const PenLook& p) {
  if (p.lineStyle) return MakeStylePen(static_cast<int16_t>(p.style), p.width, p.color);
  return CreatePen(p.style, p.width, static_cast<COLORREF>(p.color));
}

inline HGDIOBJ makeObject(const BrushLook& b) {
  const COLORREF color = static_cast<COLORREF>(b.color);
  if (b.maker == BrushLook::Solid) return CreateSolidBrush(color);
  if (b.maker == BrushLook::Hatch) return CreateHatchBrush(b.style, color);
  const LOGBRUSH brush{static_cast<UINT>(b.style), color, 0};
  return CreateBrushIndirect(&brush);
}

inline HGDIOBJ makeObject(const FontLook& f) { return CreateFontIndirectA(&f.font); }

/** The pen, brush or font that a pass has selected into a context. Nothing happens before the first `use`. */
template <class Look>
class Selected {
 public:
  explicit Selected(HDC dc) : dc_(dc) {}
  ~Selected() { restore(); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

  /**
   * Selects an object of this look; free of cost while the look stays the same. False when the object could not
   * be made or selected: the context then has the object it had before the pass.
   */
  bool use(const Look& look) {
    if (known_ && look == look_) return own_ != nullptr;
    restore();
    look_ = look;
    known_ = true;
    own_ = makeObject(look);
    if (!own_) return false;
    old_ = SelectObject(dc_, own_);
    if (old_) return true;
    DeleteObject(own_);
    own_ = nullptr;
    return false;
  }

  /** Selects the old object back and deletes the own one; the next `use` makes a new one. */
  void restore() {
    if (own_) DeleteObject(SelectObject(dc_, old_));
    own_ = old_ = nullptr;
    known_ = false;
  }

  /** The own object, null while there is none. */
  HGDIOBJ object() const { return own_; }

 private:
  HDC dc_;
  HGDIOBJ own_ = nullptr;
  HGDIOBJ old_ = nullptr;
  Look look_{};
  bool known_ = false;
};

class SelectedPen : public Selected<PenLook> {
 public:
  using Selected::Selected;
  /** CreatePen. */
  bool plain(int32_t style, int32_t width, int32_t color) { return use({style, width, color, false}); }
  /** The geometric pen of a line style number. */
  bool lineStyle(int16_t style, int32_t width, int32_t color) { return use({style, width, color, true}); }
};

class SelectedBrush : public Selected<BrushLook> {
 public:
  using Selected::Selected;
  /** CreateBrushIndirect; BS_SOLID or BS_HOLLOW. */
  bool indirect(UINT style, int32_t color) { return use({BrushLook::Indirect, static_cast<int32_t>(style), color}); }
  /** CreateSolidBrush. */
  bool solid(int32_t color) { return use({BrushLook::Solid, 0, color}); }
  /** CreateHatchBrush. */
  bool hatch(int32_t hatch, int32_t color) { return use({BrushLook::Hatch, hatch, color}); }
};

class SelectedFont : public Selected<FontLook> {
 public:
  using Selected::Selected;
  /** CreateFontIndirectA. */
  bool font(const LOGFONTA& font) { return use({font}); }
};

/** Selects an object that someone else owns for a while: the plain pen of a picture, for one. */
class BorrowedObject {
 public:
  BorrowedObject(HDC dc, HGDIOBJ object) : dc_(dc), old_(SelectObject(dc, object)) {}
  ~BorrowedObject() {
    if (old_) SelectObject(dc_, old_);
  }
  BorrowedObject(const BorrowedObject&) = delete;
  BorrowedObject& operator=(const BorrowedObject&) = delete;

 private:
  HDC dc_;
  HGDIOBJ old_;
};

/** The background mode of text and dashes, put back at the end of the scope. */
class BackgroundMode {
 public:
  BackgroundMode(HDC dc, int mode) : dc_(dc), old_(SetBkMode(dc, mode)) {}
  ~BackgroundMode() {
    if (old_) SetBkMode(dc_, old_);
  }
  BackgroundMode(const BackgroundMode&) = delete;
  BackgroundMode& operator=(const BackgroundMode&) = delete;

 private:
  HDC dc_;
  int old_;
};

}  // namespace pn10

#endif
