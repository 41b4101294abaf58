/** Records of graphic text and user graphics. Not exposed by address, so a member may be added at the end. */
#ifndef PN10_MODEL_ANNOTATION_RECORDS_H
#define PN10_MODEL_ANNOTATION_RECORDS_H

#include <cstdint>

namespace pn10 {

/** Graphic text. */
struct Gtx {
  char* Text;
  double X;
  double Y;
  float Z;
  int16_t Angle;
  float Height;
  int32_t Color;
  int16_t Font;
  int16_t Style;
  int16_t Opaque;
  int16_t Align;
  float Width;
  float Spacing;
  int16_t Facility;
  int32_t Id;
  int16_t Group;
  int16_t LinkField;
  int16_t LinkKind;
  int16_t LinkType;
  int32_t LinkId;
  int32_t LinkRec;
  int16_t Display;
  int16_t Active;
  int16_t Deleted;
  uint8_t Hilite;
  uint8_t Mark;
  uint8_t HiliteDrawn; /* in memory only */
};

/** User graphics item. */
struct Ugd {
  int32_t Id;
  int16_t Kind;
  double X1;
  double Y1;
  float Z1;
  double X2;
  double Y2;
  float Z2;
  float Angle;
  int16_t Width;
  int32_t Color;
  float Size;
  int16_t Facility;
  int32_t ItemId;
  int16_t Group;
  int16_t Style;
  int16_t Deleted;
  int16_t Display;
  int16_t Active;
  uint8_t Hilite;
  uint8_t HiliteDrawn;
  int32_t ImgRec;
};

}  // namespace pn10

#endif
