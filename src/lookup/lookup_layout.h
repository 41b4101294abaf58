/**
 * The layouts of the six lookup files, column by column. The loaders and docs/formats.md follow these rows.
 *
 * The first record of a file is a header of one stride that nothing reads; rows follow it. The columns that no
 * row keeps belong to the host's library screens, which read the files themselves.
 */
#ifndef PN10_LOOKUP_LOOKUP_LAYOUT_H
#define PN10_LOOKUP_LOOKUP_LAYOUT_H

#include "model/record_layout.h"

namespace pn10 {

#define SKIP_TEXT(offset, width, name) \
  Column { offset, width, Codec::SkipText, 0, 0, name }
#define SKIP(offset, width, name) \
  Column { offset, width, Codec::Zeros, 0, 0, name }

/* --- pipe sizes ------------------------------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(PLut, offset, width, codec, field)
inline constexpr Column kPLutColumns[] = {
    AT(0, 40, Text, KEY_TEXT),    AT(40, 4, F32, WALL),        /* times the unit factor */
    AT(44, 4, F32, OUTSIDE_D),                                 /* likewise */
    AT(48, 4, F32, INSIDE_D),                                  /* likewise */
    AT(52, 4, F32, ROUGHNESS),                                 /* likewise */
    AT(56, 4, F32, EFFICIENCY),                                /* percent on file */
    AT(60, 4, F32, FIELD_5),      AT(64, 4, F32, YIELD),       /* in the strength units */
    AT(68, 2, I16, FIELD_1),      AT(70, 4, F32, UNIT_FACTOR), /* to inches */
    AT(74, 10, Text, D_UNITS),    AT(84, 2, I16, FIELD_10),    AT(86, 2, I16, FIELD_4),
    AT(88, 10, Text, S_UNITS),    AT(98, 4, I32, COLOR),       AT(102, 2, I16, LINE_TYPE),
    AT(104, 2, I16, LINE_WIDTH),  AT(106, 20, Text, TEXT_106), AT(126, 80, Text, DESCRIPTION),
    AT(206, 80, Text, REFERENCE), AT(286, 20, Text, TEXT_286), AT(306, 20, Text, TEXT_306),
    AT(326, 40, Text, TEXT_326),  AT(366, 40, Text, TEXT_366), AT(406, 2, I16, FIELD_3),
    AT(408, 4, F32, FIELD_16),
};
#undef AT

/* --- fittings --------------------------------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(FLut, offset, width, codec, field)
inline constexpr Column kFLutColumns[] = {
    AT(0, 40, Text, KEY_TEXT),       AT(40, 4, F32, EQ_LENGTH), /* in the length units */
    AT(44, 4, F32, REF_D),                                      /* in the diameter units; type 55: pressure drop */
    AT(48, 4, F32, ROUGHNESS),                                  /* in the diameter units */
    AT(52, 4, F32, EFFICIENCY),                                 /* percent on file */
    AT(56, 10, Text, D_UNITS),       AT(66, 10, Text, L_UNITS),   SKIP_TEXT(76, 20, "text"),
    SKIP_TEXT(96, 20, "text"),       SKIP_TEXT(116, 20, "text"),  AT(136, 20, Text, TEXT_136),
    AT(156, 2, I16, FIELD_6),        AT(158, 4, F32, FIELD_7),    AT(162, 4, F32, FIELD_8),
    AT(166, 2, I16, FIELD_10),       AT(168, 20, Text, TEXT_168), AT(188, 80, Text, DESCRIPTION),
    SKIP_TEXT(268, 80, "reference"), SKIP_TEXT(348, 40, "text"),  SKIP_TEXT(388, 40, "text"),
    AT(428, 2, I16, FTG_TYPE),       AT(430, 2, I16, FIELD_20),   AT(432, 4, F32, FIELD_21),
};
#undef AT

/* --- regulators ------------------------------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(RLut, offset, width, codec, field)
inline constexpr Column kRLutColumns[] = {
    AT(0, 40, Text, KEY_TEXT), /* trimmed */
    AT(40, 2, I16, EQUATION),   SKIP_TEXT(42, 20, "text"),  SKIP_TEXT(62, 20, "text"),
    SKIP_TEXT(82, 10, "text"),  SKIP_TEXT(92, 10, "text"),  SKIP(102, 4, "number"),
    SKIP_TEXT(106, 10, "text"), AT(116, 20, F32, C), /* c0 to c4; c1 is 35 when it and the equation are 0 */
    AT(136, 4, F32, SET_VALUE),                      /* in the pressure units */
    AT(140, 10, Text, P_UNITS), AT(150, 2, I16, FIELD_9),   SKIP_TEXT(152, 20, "text"),
    SKIP_TEXT(172, 80, "text"), SKIP_TEXT(252, 80, "text"), SKIP_TEXT(332, 40, "text"),
    SKIP_TEXT(372, 40, "text"), SKIP(412, 4, "number"),     AT(416, 4, F32, FIELD_14), /* a hundredth is kept */
    AT(420, 10, Text, UNITS),
};
#undef AT

/* --- valves ----------------------------------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(VLut, offset, width, codec, field)
inline constexpr Column kVLutColumns[] = {
    AT(0, 40, Text, KEY_TEXT),                                                    /* trimmed */
    AT(40, 2, I16, FIELD_7),   AT(42, 4, F32, DIAMETER),                          /* in the diameter units */
    AT(46, 10, Text, D_UNITS), AT(56, 4, F32, COEF_A),    AT(60, 4, F32, COEF_B), /* 35 when it and field 7 are 0 */
    SKIP(64, 4, "number"),     SKIP_TEXT(68, 10, "text"), AT(78, 2, I16, FIELD_2), SKIP_TEXT(80, 20, "text"),
};
#undef AT

/* --- wells ------------------------------------------------------------------------------------ */

#define AT(offset, width, codec, field) PN10_COLUMN(WLut, offset, width, codec, field)
inline constexpr Column kWLutColumns[] = {
    AT(0, 40, CutText, KEY_TEXT), /* 20 bytes are kept */
    SKIP(40, 2, "number"),        AT(42, 4, F32, FIELD_2), AT(46, 4, F32, FIELD_3),   SKIP(50, 4, "number"),
    SKIP(54, 4, "number"),        AT(58, 2, I16, FIELD_4), SKIP_TEXT(60, 20, "text"),
};
#undef AT

/* --- compressors ------------------------------------------------------------------------------ */

#define AT(offset, width, codec, field) PN10_COLUMN(CLut, offset, width, codec, field)
inline constexpr Column kCLutColumns[] = {
    AT(0, 40, Text, KEY_TEXT),
    SKIP(40, 2, "power equation"), /* kept: the row's equation stays 0 */
    AT(42, 4, F32, A),
    AT(46, 4, F32, B),
    AT(50, 4, F32, C),
    AT(54, 4, F32, FUEL_RATE), /* in the fuel units */
    AT(58, 4, F32, FIELD_6),
    AT(62, 10, Text, FUEL_UNITS),
    AT(72, 10, Text, POWER_UNITS),
    AT(82, 2, I16, FIELD_11),
    SKIP_TEXT(84, 20, "text"),
    SKIP_TEXT(104, 80, "text"),
    SKIP_TEXT(184, 80, "text"),
    SKIP_TEXT(264, 40, "text"),
    SKIP_TEXT(304, 40, "text"),
    SKIP_TEXT(344, 40, "text"),
    SKIP(384, 4, "number"),
};
#undef AT
#undef SKIP
#undef SKIP_TEXT

/** The header is one stride; what a column list leaves of the stride is unused. */
inline constexpr RecordFormat kPLutFormat = {"", kPLutColumns, std::size(kPLutColumns), 432, 412, 432};
inline constexpr RecordFormat kFLutFormat = {"", kFLutColumns, std::size(kFLutColumns), 436, 436, 436};
inline constexpr RecordFormat kRLutFormat = {"", kRLutColumns, std::size(kRLutColumns), 430, 430, 430};
inline constexpr RecordFormat kVLutFormat = {"", kVLutColumns, std::size(kVLutColumns), 344, 100, 344};
inline constexpr RecordFormat kWLutFormat = {"", kWLutColumns, std::size(kWLutColumns), 324, 80, 324};
inline constexpr RecordFormat kCLutFormat = {"", kCLutColumns, std::size(kCLutColumns), 388, 388, 388};

static_assert(contiguous(kPLutFormat) && contiguous(kFLutFormat) && contiguous(kRLutFormat));
static_assert(contiguous(kVLutFormat) && contiguous(kWLutFormat) && contiguous(kCLutFormat));

}  // namespace pn10

#endif
