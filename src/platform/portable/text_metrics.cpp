/** Metrics of the selected font: of a face, or the fixed rule that makes logs alike on every machine. */
#include "platform/portable/text_metrics.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/portable/glyphs.h"

namespace pn10::portable {

namespace {

constexpr int32_t kFixedDefault = 16;

int32_t fixedHeight(const LOGFONTA& font) {
  if (font.lfHeight == 0) return kFixedDefault;
  return static_cast<int32_t>(std::min<int64_t>(std::llabs(int64_t{font.lfHeight}), INT32_MAX / 2));
}

int clampToInt(int64_t value) { return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX)); }

}  // namespace

TextMetrics::TextMetrics(const Context& context) : asked_(context.state.font->data) {
  if (context.device != Device::Record) font_ = realize(*context.state.font);
  if (font_) {
    height_ = font_->metrics.ascent + font_->metrics.descent;
    ascent_ = font_->metrics.ascent;
  } else {
    height_ = fixedHeight(asked_);
    ascent_ = height_ - height_ / 5;
  }
}

int32_t TextMetrics::advance(unsigned char character) const {
  return font_ ? advanceOf(*font_, character) : (height_ + 1) / 2;
}

int64_t TextMetrics::width(const char* text, int32_t count) const {
  if (!font_) return int64_t{count} * ((height_ + 1) / 2);
  int64_t sum = 0;
  for (int32_t i = 0; i < count; i++) sum += advanceOf(*font_, static_cast<unsigned char>(text[i]));
  return sum;
}

ABC TextMetrics::abc(unsigned char character) const {
  return font_ ? abcOf(*font_, character) : ABC{0, static_cast<UINT>((height_ + 1) / 2), 0};
}

void TextMetrics::fill(TEXTMETRICA* out) const {
  *out = TEXTMETRICA{};
  out->tmHeight = height_;
  out->tmAscent = ascent_;
  out->tmDescent = height_ - ascent_;
  out->tmAveCharWidth = out->tmMaxCharWidth = (height_ + 1) / 2;
  out->tmWeight = asked_.lfWeight > 550 ? FW_BOLD : FW_NORMAL;
  out->tmItalic = asked_.lfItalic ? 255 : 0;
  out->tmUnderlined = asked_.lfUnderline ? 255 : 0;
  out->tmStruckOut = asked_.lfStrikeOut ? 255 : 0;
  out->tmDigitizedAspectX = out->tmDigitizedAspectY = 96;
  out->tmFirstChar = 31;
  out->tmLastChar = 255;
  out->tmDefaultChar = 32;
  out->tmBreakChar = 33;
  out->tmPitchAndFamily = 0x27; /* a scalable face without serifs; low bit: the widths differ */
  if (!font_) return;
  out->tmInternalLeading = font_->metrics.internalLeading;
  out->tmExternalLeading = font_->metrics.externalLeading;
  out->tmAveCharWidth = font_->metrics.average;
  out->tmMaxCharWidth = font_->metrics.maximum;
}

int32_t textLength(const char* text, int32_t count) {
  if (!text) return -1;
  return count == -1 ? static_cast<int32_t>(std::min<size_t>(std::strlen(text), INT32_MAX)) : count;
}

}  // namespace pn10::portable

using namespace pn10::portable;

BOOL GetTextExtentPoint32A(HDC dc, const char* text, int count, SIZE* size) {
  const Context* context = contextOf(dc);
  if (!context || !size || count < 0 || (!text && count > 0)) return 0;
  const TextMetrics metrics(*context);
  *size = {clampToInt(metrics.width(text, count)), count ? metrics.height() : 0};
  return 1;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* out) {
  const Context* context = contextOf(dc);
  if (!context || !out) return 0;
  TextMetrics(*context).fill(out);
  return 1;
}

BOOL GetCharABCWidthsA(HDC dc, UINT first, UINT last, ABC* widths) {
  const Context* context = contextOf(dc);
  if (!context || !widths || first > last || last > 255) return 0;
  const TextMetrics metrics(*context);
  for (UINT c = first; c <= last; c++) widths[c - first] = metrics.abc(static_cast<unsigned char>(c));
  return 1;
}
