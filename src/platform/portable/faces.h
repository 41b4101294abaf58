/** Finding the font file for a face name. */
#ifndef PN10_PLATFORM_PORTABLE_FACES_H
#define PN10_PLATFORM_PORTABLE_FACES_H

#include "platform/portable/glyphs.h"

struct FT_LibraryRec_;

namespace pn10::portable {

/** The face for a name, kept from the first question on; null when no scalable font is installed. */
Face* findFace(const char* name, bool bold, bool italic);

/** The font library, made at first use; null when it can't be. */
FT_LibraryRec_* fontLibrary();

/** Sets the face to an em height in pixels; false when the face refuses it. */
bool setEm(Face& face, int32_t em);

}  // namespace pn10::portable

#endif
