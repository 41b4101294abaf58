/** Logical fonts made real, their widths, and their glyphs as they are first asked for. */
#include "platform/portable/glyphs.h"

#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <numbers>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include "platform/portable/faces.h"

namespace pn10::portable {

namespace {

constexpr int32_t kLargestEm = 20000;
constexpr int32_t kDefaultHeight = 16;
constexpr LONG kBoldFrom = 551; /* weights up to 550 are painted regular */
constexpr size_t kBuckets = 256;
constexpr int32_t kKeptFonts = 1024;

FontData* fonts[kBuckets];
int32_t fontCount = 0;

/** round(em * units / unitsPerEm), halves up. */
int32_t scaled(int64_t em, int64_t units, int64_t perEm) {
  return static_cast<int32_t>(std::floor((2.0 * static_cast<double>(em * units) + static_cast<double>(perEm)) /
                                         (2.0 * static_cast<double>(perEm))));
}

/** The heights that a font states for its cell, in its own units. */
struct CellUnits {
  int64_t perEm, ascent, descent, lineGap, average;
};

CellUnits unitsOf(const Face& face) {
  const FT_Face ft = face.ft;
  CellUnits units{ft->units_per_EM, ft->ascender, -ft->descender, 0, ft->max_advance_width / 2};
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(ft, FT_SFNT_OS2));
  if (os2 && os2->usWinAscent + os2->usWinDescent > 0) {
    units.ascent = os2->usWinAscent;
    units.descent = os2->usWinDescent;
    units.average = os2->xAvgCharWidth;
  }
  if (units.ascent + units.descent <= 0) units.ascent = units.perEm;
  const auto* hhea = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(ft, FT_SFNT_HHEA));
  if (hhea) {
    const int64_t own = int64_t{hhea->Ascender} - hhea->Descender;
    units.lineGap = std::max<int64_t>(0, hhea->Line_Gap - (units.ascent + units.descent - own));
  }
  return units;
}

/** Below 0 the height is that of the em, above 0 that of the cell. */
int32_t emOf(const CellUnits& units, LONG height) {
  if (height < 0) return static_cast<int32_t>(std::min<int64_t>(-int64_t{height}, kLargestEm));
  const int64_t cell = std::min<int64_t>(height ? height : kDefaultHeight, kLargestEm);
  const int64_t sum = units.ascent + units.descent;
  int32_t em = scaled(cell, units.perEm, sum);
  if (scaled(em, sum, units.perEm) > cell) em--;
  return std::clamp(em, 1, kLargestEm);
}

FaceMetrics metricsAt(const Face& face, const CellUnits& units, int32_t em) {
  const auto at = [&](int64_t value) { return scaled(em, value, units.perEm); };
  FaceMetrics m{};
  m.ascent = at(units.ascent);
  m.descent = at(units.descent);
  m.internalLeading = std::max(0, at(units.ascent + units.descent - units.perEm));
  m.externalLeading = at(units.lineGap);
  m.average = at(units.average);
  m.maximum = at(face.ft->bbox.xMax - face.ft->bbox.xMin);
  m.underlineThickness = std::max(1, at(face.ft->underline_thickness));
  const double middle = -static_cast<double>(em) * face.ft->underline_position / static_cast<double>(units.perEm);
  m.underlineTop = std::max(0, static_cast<int32_t>(std::floor(middle - m.underlineThickness / 2.0)));
  return m;
}

void dropGlyphs(FontData& font) {
  for (Glyph& glyph : font.glyphs) {
    std::free(glyph.runs);
    std::free(glyph.pixels);
  }
}

/** Forgets every font that no object holds. */
void dropUnused() {
  for (FontData*& bucket : fonts) {
    for (FontData** at = &bucket; *at;) {
      FontData* font = *at;
      if (font->uses) {
        at = &font->next;
        continue;
      }
      *at = font->next;
      dropGlyphs(*font);
      std::free(font);
      fontCount--;
    }
  }
}

struct FontKey {
  Face* face;
  int32_t em, escapement;
  bool mono, underline;
  size_t bucket() const {
    const size_t hash = reinterpret_cast<uintptr_t>(face) / 16 + static_cast<size_t>(em) * 31 +
                        static_cast<size_t>(escapement) * 7 + (mono ? 3 : 0) + (underline ? 5 : 0);
    return hash % kBuckets;
  }
  bool matches(const FontData& f) const {
    return f.face == face && f.em == em && f.escapement == escapement && f.mono == mono && f.underline == underline;
  }
};

void setTurn(FontData& font) {
  const double angle = font.escapement * std::numbers::pi / 1800;
  const bool quarter = font.escapement % 900 == 0;
  font.cosine = quarter ? std::round(std::cos(angle)) : std::cos(angle);
  font.sine = quarter ? std::round(std::sin(angle)) : std::sin(angle);
}

FontData* makeFont(const FontKey& key, const CellUnits& units) {
  if (!setEm(*key.face, key.em)) return nullptr;
  if (fontCount >= kKeptFonts) dropUnused();
  auto* font = static_cast<FontData*>(std::calloc(1, sizeof(FontData)));
  if (!font) return nullptr;
  font->face = key.face;
  font->em = key.em;
  font->escapement = key.escapement;
  setTurn(*font);
  font->mono = key.mono;
  font->underline = key.underline;
  font->metrics = metricsAt(*key.face, units, key.em);
  std::fill(std::begin(font->advances), std::end(font->advances), int16_t{-1});
  FontData*& bucket = fonts[key.bucket()];
  font->next = bucket;
  bucket = font;
  fontCount++;
  return font;
}

FT_Int32 loadFlags(const FontData& font) {
  return FT_LOAD_NO_BITMAP | (font.mono ? FT_LOAD_TARGET_MONO : FT_LOAD_DEFAULT);
}

/** Calls `use` with each stretch of ink of a one-bit bitmap: its row, its first column and its length. */
template <class Use>
void forEachRun(const FT_Bitmap& bitmap, Use use) {
  const auto width = static_cast<int>(bitmap.width), height = static_cast<int>(bitmap.rows);
  for (int y = 0; y < height; y++) {
    const uint8_t* row = bitmap.buffer + ptrdiff_t{y} * bitmap.pitch;
    const auto inked = [&](int x) { return (row[x >> 3] >> (7 - (x & 7)) & 1) != 0; };
    for (int x = 0; x < width; x++) {
      if (!inked(x)) continue;
      const int from = x;
      while (x < width && inked(x)) x++;
      use(y, from, x - from);
    }
  }
}

/** Keeps the ink of a bitmap; the glyph stays empty when there is no memory. */
void keepRuns(Glyph& glyph, const FT_Bitmap& bitmap) {
  size_t count = 0;
  forEachRun(bitmap, [&](int, int, int) { count++; });
  if (count) glyph.runs = static_cast<InkRun*>(std::malloc(count * sizeof(InkRun)));
  if (!glyph.runs) return;
  forEachRun(bitmap, [&](int y, int x, int length) {
    glyph.runs[glyph.count++] = {static_cast<int16_t>(y), static_cast<int16_t>(x), static_cast<int16_t>(length)};
  });
}

void keepGrey(Glyph& glyph, const FT_Bitmap& bitmap) {
  const size_t most = static_cast<size_t>(bitmap.width) * bitmap.rows;
  if (most) glyph.pixels = static_cast<GreyPixel*>(std::malloc(most * sizeof(GreyPixel)));
  if (!glyph.pixels) return;
  for (int y = 0; y < static_cast<int>(bitmap.rows); y++) {
    for (int x = 0; x < static_cast<int>(bitmap.width); x++) {
      const uint8_t coverage = bitmap.buffer[ptrdiff_t{y} * bitmap.pitch + x];
      if (!coverage) continue;
      const auto ink = static_cast<uint16_t>(coverage + (coverage >> 7));
      glyph.pixels[glyph.count++] = {static_cast<int16_t>(y), static_cast<int16_t>(x), ink};
    }
  }
}

void renderGlyph(FontData& font, unsigned char character, Glyph& glyph) {
  if (!loadOutline(font, character)) return;
  const FT_GlyphSlot slot = font.face->ft->glyph;
  if (FT_Render_Glyph(slot, font.mono ? FT_RENDER_MODE_MONO : FT_RENDER_MODE_NORMAL)) return;
  const FT_Bitmap& bitmap = slot->bitmap;
  glyph.left = slot->bitmap_left;
  glyph.top = -slot->bitmap_top;
  glyph.width = static_cast<int32_t>(bitmap.width);
  glyph.height = static_cast<int32_t>(bitmap.rows);
  if (font.mono) {
    keepRuns(glyph, bitmap);
  } else {
    keepGrey(glyph, bitmap);
  }
}

}  // namespace

FontData* realize(Font& object) {
  if (object.real) return object.real;
  const LOGFONTA& asked = object.data;
  FontKey key{};
  key.face = findFace(asked.lfFaceName, asked.lfWeight >= kBoldFrom, asked.lfItalic != 0);
  if (!key.face) return nullptr;
  const CellUnits units = unitsOf(*key.face);
  key.em = emOf(units, asked.lfHeight);
  key.escapement = (asked.lfEscapement % 3600 + 3600) % 3600;
  key.mono = asked.lfQuality == NONANTIALIASED_QUALITY;
  key.underline = asked.lfUnderline != 0;
  FontData* font = fonts[key.bucket()];
  while (font && !key.matches(*font)) font = font->next;
  if (!font) font = makeFont(key, units);
  if (!font) return nullptr;
  font->uses++;
  return object.real = font;
}

void unrealize(Font& object) {
  if (object.real) object.real->uses--;
  object.real = nullptr;
}

uint16_t unicodeOf(unsigned char character) {
  static constexpr uint16_t kUpper[32] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                          0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                          0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};
  return character >= 0x80 && character < 0xA0 ? kUpper[character - 0x80] : character;
}

uint32_t glyphIndex(const FontData& font, unsigned char character) {
  return FT_Get_Char_Index(font.face->ft, unicodeOf(character));
}

int32_t loadAdvance(FontData& font, unsigned char character) {
  int16_t& kept = font.advances[character];
  if (!setEm(*font.face, font.em)) return 0;
  const FT_Face ft = font.face->ft;
  if (FT_Load_Glyph(ft, glyphIndex(font, character), FT_LOAD_DEFAULT | FT_LOAD_NO_BITMAP)) return kept = 0;
  return kept = static_cast<int16_t>(std::clamp<FT_Pos>((ft->glyph->metrics.horiAdvance + 32) >> 6, 0, INT16_MAX));
}

ABC abcOf(FontData& font, unsigned char character) {
  const int32_t advance = advanceOf(font, character);
  const FT_Face ft = font.face->ft;
  const bool loaded = setEm(*font.face, font.em) &&
                      !FT_Load_Glyph(ft, glyphIndex(font, character), FT_LOAD_DEFAULT | FT_LOAD_NO_BITMAP);
  if (!loaded || ft->glyph->metrics.width == 0) return {0, 1, advance - 1};
  const FT_Glyph_Metrics& m = ft->glyph->metrics;
  const auto left = static_cast<int>(m.horiBearingX >> 6);
  const auto right = static_cast<int>((m.horiBearingX + m.width + 63) >> 6);
  return {left, static_cast<UINT>(right - left), advance - right};
}

bool loadOutline(FontData& font, unsigned char character) {
  const FT_Face ft = font.face->ft;
  if (!setEm(*font.face, font.em) || FT_Load_Glyph(ft, glyphIndex(font, character), loadFlags(font))) return false;
  if (ft->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
  FT_Outline* outline = &ft->glyph->outline;
  if (font.face->imitateBold) FT_Outline_Embolden(outline, FT_Pos{font.em} * 64 / 24);
  if (font.face->imitateItalic) {
    FT_Matrix slant{0x10000, 0x366A, 0, 0x10000}; /* 12 degrees */
    FT_Outline_Transform(outline, &slant);
  }
  if (font.escapement) {
    const auto cosine = static_cast<FT_Fixed>(std::lround(font.cosine * 0x10000));
    const auto sine = static_cast<FT_Fixed>(std::lround(font.sine * 0x10000));
    FT_Matrix turn{cosine, -sine, sine, cosine};
    FT_Outline_Transform(outline, &turn);
  }
  return true;
}

const Glyph& loadGlyph(FontData& font, unsigned char character) {
  Glyph& glyph = font.glyphs[character];
  glyph.loaded = true;
  renderGlyph(font, character, glyph);
  return glyph;
}

}  // namespace pn10::portable
