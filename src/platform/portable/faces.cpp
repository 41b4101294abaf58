/** Face names to font files by fontconfig, opened by FreeType. Opened faces stay open for the process. */
#include "platform/portable/faces.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>

#include <cstring>
#include <new>
#include FT_FREETYPE_H

namespace pn10::portable {

namespace {

Face* faces = nullptr;

/** The best scalable match for a name; the caller destroys it. */
FcPattern* match(const char* name, bool bold, bool italic) {
  FcPattern* wanted = FcPatternCreate();
  if (!wanted) return nullptr;
  FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(*name ? name : "Arial"));
  FcPatternAddInteger(wanted, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(wanted, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(wanted, FC_SCALABLE, FcTrue);
  FcPatternAddBool(wanted, FC_OUTLINE, FcTrue);
  FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
  FcDefaultSubstitute(wanted);
  FcResult result = FcResultNoMatch;
  FcPattern* found = FcFontMatch(nullptr, wanted, &result);
  FcPatternDestroy(wanted);
  return found;
}

bool openFace(Face* face, const FcPattern* found) {
  FcChar8* file = nullptr;
  int index = 0;
  if (FcPatternGetString(found, FC_FILE, 0, &file) != FcResultMatch) return false;
  FcPatternGetInteger(found, FC_INDEX, 0, &index);
  FT_Face ft = nullptr;
  if (FT_New_Face(fontLibrary(), reinterpret_cast<const char*>(file), index, &ft)) return false;
  if (!FT_IS_SCALABLE(ft) || ft->units_per_EM == 0) {
    FT_Done_Face(ft);
    return false;
  }
  FT_Select_Charmap(ft, FT_ENCODING_UNICODE);
  face->ft = ft;
  face->imitateBold = face->bold && !(ft->style_flags & FT_STYLE_FLAG_BOLD);
  face->imitateItalic = face->italic && !(ft->style_flags & FT_STYLE_FLAG_ITALIC);
  std::strncpy(face->family, ft->family_name ? ft->family_name : "", sizeof face->family - 1);
  return true;
}

}  // namespace

FT_LibraryRec_* fontLibrary() {
  static FT_Library library = nullptr;
  if (!library && FT_Init_FreeType(&library)) library = nullptr;
  return library;
}

Face* findFace(const char* name, bool bold, bool italic) {
  for (Face* face = faces; face; face = face->next) {
    if (face->bold == bold && face->italic == italic && std::strcmp(face->name, name) == 0) {
      return face->ft ? face : nullptr;
    }
  }
  if (!fontLibrary()) return nullptr;
  Face* face = new (std::nothrow) Face{};
  if (!face) return nullptr;
  std::strncpy(face->name, name, sizeof face->name - 1);
  face->bold = bold;
  face->italic = italic;
  if (FcPattern* found = match(name, bold, italic)) {
    openFace(face, found);
    FcPatternDestroy(found);
  }
  face->next = faces;
  faces = face;
  return face->ft ? face : nullptr;
}

bool setEm(Face& face, int32_t em) {
  if (face.em == em) return true;
  if (FT_Set_Pixel_Sizes(face.ft, static_cast<FT_UInt>(em), static_cast<FT_UInt>(em))) return false;
  face.em = em;
  return true;
}

}  // namespace pn10::portable
