/** Making pens, brushes, fonts and regions: which arguments make an object and which answer null. */
#include <algorithm>
#include <cstdlib>
#include <new>

#include "platform/portable/objects.h"

using namespace pn10::portable;

namespace {

constexpr DWORD kStyleMask = 0xF, kCapMask = 0xF00, kTypeMask = 0xF0000;
constexpr DWORD kMaxLengths = 16;

int32_t magnitude(int32_t width) {
  const int64_t wide = width;
  return static_cast<int32_t>(std::min<int64_t>(std::llabs(wide), INT32_MAX));
}

/** A user style needs 1 to 16 entries that are lengths and not all 0; no other style may have any. */
bool lengthsFit(DWORD style, DWORD count, const DWORD* lengths) {
  if (style != PS_USERSTYLE) return count == 0;
  if (count == 0 || count > kMaxLengths || !lengths) return false;
  if (std::any_of(lengths, lengths + count, [](DWORD n) { return n > INT32_MAX; })) return false;
  return std::any_of(lengths, lengths + count, [](DWORD n) { return n != 0; });
}

template <class T>
T* make() {
  T* object = new (std::nothrow) T{};
  if (object) object->kind = T::kKind;
  return object;
}

HBRUSH makeBrush(UINT style, COLORREF color, int32_t hatch, bool byHatch, const char* madeBy) {
  Brush* brush = make<Brush>();
  if (!brush) return nullptr;
  const bool solidHatch = style == BS_HATCHED && hatch > HS_DIAGCROSS;
  brush->data = {solidHatch ? BS_SOLID : style, hatch, color};
  brush->byHatch = byHatch;
  brush->style = style;
  brush->hatch = hatch;
  return static_cast<HBRUSH>(enter(brush, madeBy));
}

/** Hatches 6 and 7 are taken and paint solid. */
bool isHatch(uintptr_t hatch) { return hatch <= 7; }

}  // namespace

HPEN CreatePen(int style, int width, COLORREF color) {
  if (style < 0 || style > static_cast<int>(PS_INSIDEFRAME)) return nullptr;
  Pen* pen = make<Pen>();
  if (!pen) return nullptr;
  pen->style = static_cast<DWORD>(style);
  pen->width = width;
  pen->data.width = magnitude(width);
  pen->data.color = color;
  const bool dashed = pen->style >= PS_DASH && pen->style <= PS_DASHDOTDOT;
  pen->data.style = dashed && pen->data.width > 1 ? PS_SOLID : pen->style;
  return static_cast<HPEN>(enter(pen, "CreatePen"));
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count, const DWORD* lengths) {
  const DWORD line = style & kStyleMask, type = style & kTypeMask;
  if (!brush || line > PS_USERSTYLE || (type != PS_GEOMETRIC && type != PS_COSMETIC)) return nullptr;
  if (type == PS_COSMETIC && (width != 1 || line == PS_INSIDEFRAME)) return nullptr;
  if (!lengthsFit(line, count, lengths)) return nullptr;
  Pen* pen = make<Pen>();
  if (!pen) return nullptr;
  pen->style = style;
  pen->width = static_cast<int32_t>(width);
  PenData& data = pen->data;
  data.style = brush->lbStyle == BS_HOLLOW ? PS_NULL : line;
  const DWORD cap = style & kCapMask;
  data.cap = cap == PS_ENDCAP_SQUARE || cap == PS_ENDCAP_FLAT ? cap : PS_ENDCAP_ROUND;
  data.geometric = type == PS_GEOMETRIC;
  data.fromExtCreatePen = true;
  data.width = magnitude(pen->width);
  data.color = brush->lbColor;
  data.count = static_cast<int32_t>(count);
  if (count) std::copy_n(lengths, count, data.lengths);
  return static_cast<HPEN>(enter(pen, "ExtCreatePen"));
}

HBRUSH CreateSolidBrush(COLORREF color) { return makeBrush(BS_SOLID, color, 0, false, "CreateSolidBrush"); }

HBRUSH CreateBrushIndirect(const LOGBRUSH* brush) {
  if (!brush || brush->lbStyle > BS_HATCHED) return nullptr;
  if (brush->lbStyle == BS_HATCHED && !isHatch(brush->lbHatch)) return nullptr;
  const int32_t hatch = brush->lbStyle == BS_HATCHED ? static_cast<int32_t>(brush->lbHatch) : 0;
  return makeBrush(brush->lbStyle, brush->lbColor, hatch, false, "CreateBrushIndirect");
}

HBRUSH CreateHatchBrush(int hatch, COLORREF color) {
  if (hatch < 0 || !isHatch(static_cast<uintptr_t>(hatch))) return nullptr;
  return makeBrush(BS_HATCHED, color, hatch, true, "CreateHatchBrush");
}

HFONT CreateFontIndirectA(const LOGFONTA* font) {
  if (!font) return nullptr;
  Font* made = make<Font>();
  if (!made) return nullptr;
  made->data = *font;
  made->data.lfFaceName[LF_FACESIZE - 1] = 0;
  return static_cast<HFONT>(enter(made, "CreateFontIndirectA"));
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
  Region* region = make<Region>();
  if (!region) return nullptr;
  region->box = ordered(left, top, right, bottom);
  return static_cast<HRGN>(enter(region, "CreateRectRgn"));
}
