/**
 * Faces, sizes and glyphs: what FreeType and fontconfig give, kept for the next text.
 *
 * A FontData is one logical font made real: a face at an em height, turned by an escapement, with or without
 * grey edges. Fonts that are asked for alike share one, also after the first of them was deleted.
 */
#ifndef PN10_PLATFORM_PORTABLE_GLYPHS_H
#define PN10_PLATFORM_PORTABLE_GLYPHS_H

#include <cstdint>

#include "platform/portable/objects.h"

struct FT_FaceRec_;

namespace pn10::portable {

/** A font file that stands for a face name, and what it lacks and has to be imitated. */
struct Face {
  FT_FaceRec_* ft = nullptr;
  char name[LF_FACESIZE] = {};
  char family[64] = {}; /* of the file that was found */
  bool bold = false, italic = false;
  bool imitateBold = false, imitateItalic = false;
  int32_t em = 0; /* the size that the face is set to at the moment */
  Face* next = nullptr;
};

/** Heights in pixels, from the font's own tables. */
struct FaceMetrics {
  int32_t ascent, descent, internalLeading, externalLeading, average, maximum;
  int32_t underlineTop, underlineThickness; /* rows from the baseline downward */
};

/** A stretch of ink in one row of a glyph without grey. */
struct InkRun {
  int16_t y, x, count;
};

/** A pixel of a glyph with grey: how much of it is ink, in 256ths. */
struct GreyPixel {
  int16_t y, x;
  uint16_t ink;
};

/** A glyph ready to paint, relative to the pen position on the baseline; y grows downward. */
struct Glyph {
  bool loaded = false;
  int32_t left = 0, top = 0, width = 0, height = 0;
  size_t count = 0;            /* of the runs or the pixels */
  InkRun* runs = nullptr;      /* without grey */
  GreyPixel* pixels = nullptr; /* with grey */
};

struct FontData {
  FaceMetrics metrics;
  Face* face;
  int32_t em;
  int32_t escapement;  /* 0 ... 3599 */
  double cosine, sine; /* of it; exact for quarter turns */
  bool mono;           /* ink only, no grey */
  bool underline;
  int32_t uses;
  FontData* next;
  int16_t advances[256]; /* -1: not asked for yet */
  Glyph glyphs[256];
};

/** Above this em height glyphs are not kept but painted straight from their outline. */
constexpr int32_t kLargestKeptEm = 256;

/** The font made real, null when the system has no usable face at all. The object holds it until it goes. */
FontData* realize(Font& font);
void unrealize(Font& font);

int32_t loadAdvance(FontData& font, unsigned char character);
inline int32_t advanceOf(FontData& font, unsigned char character) {
  const int16_t kept = font.advances[character];
  return kept >= 0 ? kept : loadAdvance(font, character);
}
ABC abcOf(FontData& font, unsigned char character);

/** The glyph of a character, rendered at first use; empty when there is no memory or nothing to ink. */
const Glyph& loadGlyph(FontData& font, unsigned char character);
inline const Glyph& glyphOf(FontData& font, unsigned char character) {
  const Glyph& glyph = font.glyphs[character];
  return glyph.loaded ? glyph : loadGlyph(font, character);
}

/** Loads a glyph's outline, imitations and turn applied, into the face's slot; false when there is none. */
bool loadOutline(FontData& font, unsigned char character);

/** The number of a character's glyph in the face. */
uint32_t glyphIndex(const FontData& font, unsigned char character);

/** The corners of a run's underline. */
void underlineCorners(const TextRun& run, double (&x)[4], double (&y)[4]);

/** Code page 1252 to Unicode. */
uint16_t unicodeOf(unsigned char character);

}  // namespace pn10::portable

#endif
