/** Widths and heights of the font that a context has selected. */
#ifndef PN10_PLATFORM_PORTABLE_TEXT_METRICS_H
#define PN10_PLATFORM_PORTABLE_TEXT_METRICS_H

#include "platform/portable/context.h"

namespace pn10::portable {

/** A context's font in numbers: those of its face, or the fixed rule of record contexts. */
class TextMetrics {
 public:
  explicit TextMetrics(const Context& context);
  int32_t ascent() const { return ascent_; }
  int32_t height() const { return height_; }
  int32_t advance(unsigned char character) const;
  /** The sum of the advances; no kerning. */
  int64_t width(const char* text, int32_t count) const;
  ABC abc(unsigned char character) const;
  void fill(TEXTMETRICA* metrics) const;
  FontData* font() const { return font_; }

 private:
  const LOGFONTA& asked_;
  FontData* font_ = nullptr; /* null: the fixed rule */
  int32_t height_, ascent_;
};

/** The length that a text call means: `count` bytes, or for -1 up to the terminator. Negative: none. */
int32_t textLength(const char* text, int32_t count);

/** Paints one run at a point by the context's alignment, without logging it. */
void paintText(Context& context, const TextMetrics& metrics, int32_t x, int32_t y, const char* text, int32_t count);

}  // namespace pn10::portable

#endif
