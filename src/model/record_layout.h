/**
 * The layouts of the model's binary files, column by column. Readers, writers and docs/formats.md all follow
 * these rows; no other place spells an offset.
 *
 * Numbers are little-endian. Record n (from 1) of a file begins at header + (n - 1) * stride; its columns fill
 * the first `bytes` of the stride, nothing is kept behind them.
 */
#ifndef PN10_MODEL_RECORD_LAYOUT_H
#define PN10_MODEL_RECORD_LAYOUT_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "exports/pn10gdi.h"

namespace pn10 {

static_assert(std::endian::native == std::endian::little, "columns are copied as they stand");

/** How a column travels between the file and its member. */
enum class Codec : uint8_t {
  I32,       /* as it stands; a column may hold several of the same type */
  I16,       /* as it stands */
  U8,        /* as it stands */
  F32,       /* as it stands */
  F64,       /* as it stands */
  Text,      /* width bytes, read like fgets: a line feed ends the read; written whole, NUL bytes included */
  CutText,   /* read like Text, the member keeps the first bytes only */
  SkipText,  /* read like Text into no member: a line feed shifts the columns behind it all the same */
  LowByte,   /* int16 on file, byte in memory: read keeps the low byte, written widened */
  LowByte16, /* int16 on both sides: read keeps the low byte only, written whole */
  Flag,      /* int16 on file, byte in memory: read turns any nonzero value into 1, written widened */
  Zeros      /* no member: skipped by the reader, written as zeros */
};

struct Column {
  uint16_t offset; /* on file, from the start of the record */
  uint16_t width;  /* on file, bytes */
  Codec codec;
  uint16_t member; /* offset in the record in memory */
  uint16_t memberSize;
  const char* name;
};

/** One binary file of the model. */
struct RecordFormat {
  const char* extension; /* with its dot */
  const Column* columns;
  size_t columnCount;
  uint32_t stride;
  uint32_t bytes;  /* what the columns of one record fill */
  uint32_t header; /* bytes before record 1 */
};

/** Bytes of one value on file; 0 for codecs that take any width. */
constexpr size_t unitWidth(Codec codec) {
  switch (codec) {
    case Codec::I32:
    case Codec::F32:
      return 4;
    case Codec::F64:
      return 8;
    case Codec::U8:
      return 1;
    case Codec::Text:
    case Codec::CutText:
    case Codec::SkipText:
    case Codec::Zeros:
      return 0;
    default:
      return 2;
  }
}

constexpr bool isText(Codec codec) {
  return codec == Codec::Text || codec == Codec::CutText || codec == Codec::SkipText;
}

/** True when width on file and size in memory belong together. */
constexpr bool fits(const Column& c) {
  switch (c.codec) {
    case Codec::Text:
      return c.memberSize == c.width + 1;
    case Codec::CutText:
      return c.memberSize > 0 && c.memberSize <= c.width;
    case Codec::SkipText:
    case Codec::Zeros:
      return c.memberSize == 0;
    case Codec::LowByte:
    case Codec::Flag:
      return c.width == 2 && c.memberSize == 1;
    default:
      return c.width == c.memberSize && c.width % unitWidth(c.codec) == 0;
  }
}

/** True when the columns follow each other without a gap, fill `bytes`, and each fits its member. */
constexpr bool contiguous(const RecordFormat& format) {
  size_t at = 0;
  for (size_t i = 0; i < format.columnCount; i++) {
    if (format.columns[i].offset != at || !fits(format.columns[i])) return false;
    at += format.columns[i].width;
  }
  return at == format.bytes && format.bytes <= format.stride;
}

#define PN10_COLUMN(Record, offset, width, codec, field) \
  Column { offset, width, Codec::codec, offsetof(Record, field), sizeof(Record::field), #field }

/* --- <base>.ndt: nodes ------------------------------------------------------------------------ */

#define AT(offset, width, codec, field) PN10_COLUMN(Ndt, offset, width, codec, field)
inline constexpr Column kNdtColumns[] = {
    AT(0, 4, I32, ID),
    AT(4, 40, Text, NODENAME),
    AT(44, 4, F32, PRESSURE),
    AT(48, 2, LowByte, P_KNOWN),
    AT(50, 10, Text, P_UNITS),
    AT(60, 4, F32, P_FACTOR),
    AT(64, 4, F32, QB_LOAD),
    AT(68, 2, LowByte16, QB_KNOWN),
    AT(70, 2, LowByte16, QB_DF), /* kept: 256 becomes 0 here and 1 in QX_DF */
    AT(72, 2, LowByte16, QB_STATUS),
    AT(74, 10, Text, Q_UNITS),
    AT(84, 4, F32, Q_FACTOR),
    AT(88, 4, F32, QX_LOAD),
    AT(92, 2, Flag, QX_DF),
    AT(94, 2, LowByte, QX_STATUS),
    AT(96, 4, F32, QX_FIXED),
    AT(100, 4, F32, ELEV),
    AT(104, 4, F32, PATM),
    AT(108, 4, F32, T),
    AT(112, 2, LowByte, T_KNOWN),
    AT(114, 4, F32, VISCOSITY),
    AT(118, 4, F32, SG),
    AT(122, 4, F32, SH_RATIO),
    AT(126, 4, F32, HV),
    AT(130, 8, F64, X_COORD),
    AT(138, 8, F64, Y_COORD),
    AT(146, 4, F32, Z_COORD),
    AT(150, 8, F64, TEXT_X),
    AT(158, 8, F64, TEXT_Y),
    AT(166, 4, F32, TEXT_ANGLE),
    AT(170, 2, I16, LABEL_ON),
    AT(172, 8, F64, RESERVED_D),
    AT(180, 4, I32, COLOR),
    AT(184, 4, F32, SYM_SIZE),
    AT(188, 2, I16, SYMBOL),
    AT(190, 2, LowByte, HAS_RDX),
    AT(192, 2, LowByte, HOST_BYTE_348),
    AT(194, 2, LowByte, HOST_BYTE_346),
    AT(196, 2, I16, FLAG_TYPE),
    AT(198, 2, I16, REC_STATUS),
    AT(200, 8, Text, REC_DATE),
    AT(208, 2, LowByte, HYD_STATUS),
    AT(210, 1, U8, HYD_TYPE),
    AT(211, 1, U8, HOST_BYTE_385),
    AT(212, 4, F32, CMP_VALUE),
    AT(216, 2, LowByte, CMP_MODE),
};
#undef AT

/* --- <base>.pdt: pipes ------------------------------------------------------------------------ */

#define AT(offset, width, codec, field) PN10_COLUMN(Pdt, offset, width, codec, field)
inline constexpr Column kPdtColumns[] = {
    AT(0, 4, I32, ID),
    AT(4, 4, I32, FROM_NODE), /* record number in the .ndt file */
    AT(8, 4, I32, TO_NODE),   /* likewise */
    AT(12, 2, LowByte, HYD_TYPE),
    AT(14, 2, I16, EQUATION),
    AT(16, 2, LowByte, STATUS),
    AT(18, 20, Text, SIZE_TYPE),
    AT(38, 10, Text, DR_UNITS),
    AT(48, 4, F32, D_FACTOR),
    AT(52, 2, LowByte, SIZE_FLAG),
    AT(54, 2, I16, HOST_SHORT_34),
    AT(56, 4, F32, LENGTH),
    AT(60, 10, Text, L_UNITS),
    AT(70, 4, F32, L_FACTOR),
    AT(74, 4, F32, EFFICIENCY),
    AT(78, 4, F32, FLOW),
    AT(82, 10, Text, Q_UNITS),
    AT(92, 4, F32, Q_FACTOR),
    AT(96, 4, F32, DP),
    AT(100, 10, Text, DP_UNITS),
    AT(110, 4, F32, DP_FACTOR),
    AT(114, 4, F32, Z_FACTOR),
    AT(118, 2, I16, FACILITY),
    AT(120, 1, U8, FTG_COUNT),
    AT(121, 1, U8, CMP_MODE),
    AT(122, 4, F32, FTG_EQ_LENGTH),
    AT(126, 8, F64, CMP_VALUE),
    AT(134, 2, I16, CUST_COUNT),
    AT(136, 8, F64, TEXT_X),
    AT(144, 8, F64, TEXT_Y),
    AT(152, 4, F32, TEXT_ANGLE),
    AT(156, 2, I16, LABEL_ON),
    AT(158, 8, F64, CALC_RESERVED_D),
    AT(166, 4, I32, COLOR),
    AT(170, 2, LowByte, VTX_MODE),
    AT(172, 2, I16, LINE_WIDTH),
    AT(174, 2, I16, LINE_TYPE),
    AT(176, 2, LowByte, HOST_BYTE_58),
    AT(178, 20, Text, LINK_ID),
    AT(198, 2, LowByte, CALC_RESERVED_B),
    AT(200, 28, F32, CALC_RESERVED_F), /* seven values */
    AT(228, 4, I32, VTX_FIRST),        /* record number in the .vtx file */
    AT(232, 4, I32, VTX_LAST),         /* likewise */
    AT(236, 4, F32, ROUGHNESS),
    AT(240, 4, F32, VELOCITY),
    AT(244, 4, F32, REYNOLDSNO),
    AT(248, 4, F32, MAOP),
    AT(252, 1, U8, FLAG_BYTE),
    AT(253, 1, U8, HOST_BYTE_154),
    AT(254, 2, I16, REC_STATUS),
    AT(256, 4, I32, GROUP_ID),
    AT(260, 2, I16, GROUP_TYPE),
    AT(262, 8, Text, REC_DATE),
};
#undef AT

/* --- <base>.vtx: vertices of pipes and of service lines --------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(Vtx, offset, width, codec, field)
inline constexpr Column kVtxColumns[] = {
    AT(0, 4, I32, VTX_OWNER), AT(4, 2, I16, VTX_KIND), AT(6, 8, F64, VTX_X),
    AT(14, 8, F64, VTX_Y),    AT(22, 4, F32, VTX_Z),
};
#undef AT

/* --- <base>.cdt: customers -------------------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(Cdt, offset, width, codec, field)
inline constexpr Column kCdtColumns[] = {
    AT(0, 4, I32, ID),
    Column{4, 20, Codec::Zeros, 0, 0, "reserved"},
    AT(24, 4, I32, PIPE_REC), /* record number in the .pdt file */
    AT(28, 2, I16, NODE_ASGN),
    AT(30, 4, F32, UNIT_LOAD),
    AT(34, 10, Text, LOAD_UNITS),
    AT(44, 4, F32, LOAD_FACTOR),
    AT(48, 8, F64, X_COORD),
    AT(56, 8, F64, Y_COORD),
    AT(64, 4, F32, Z_COORD),
    AT(68, 4, I32, COLOR),
    AT(72, 2, I16, HOST_SHORT_409),
    AT(74, 2, I16, HOST_SHORT_410),
    AT(76, 2, I16, HOST_SHORT_437),
    AT(78, 2, I16, HOST_SHORT_411),
    AT(80, 8, F64, TEXT_X),
    AT(88, 8, F64, TEXT_Y),
    AT(96, 4, F32, TEXT_ANGLE),
    AT(100, 8, F64, CALC_RESERVED_D),
    AT(108, 8, F64, SX_COORD),
    AT(116, 8, F64, SY_COORD),
    AT(124, 2, I16, VTX_MODE),
    AT(126, 2, I16, LINK_FLAG),
    AT(128, 4, I32, LINK_CUST),
    AT(132, 40, Text, LINK_ID),
    AT(172, 2, I16, HOST_SHORT_425),
    AT(174, 2, I16, HOST_SHORT_436),
    AT(176, 2, I16, COUNT),
    AT(178, 4, F32, LOAD_MULT),
    AT(182, 2, I16, LOAD_DF),
    AT(184, 2, I16, HOST_SHORT_431),
    AT(186, 1, U8, FLAG_BYTE),
    AT(187, 1, U8, HOST_BYTE_464),
    AT(188, 2, I16, REC_STATUS),
    AT(190, 8, Text, REC_DATE),
};
#undef AT

/* --- <base>.fdt: fittings, behind four bytes of version text ---------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(Fdt, offset, width, codec, field)
inline constexpr Column kFdtColumns[] = {
    AT(0, 4, I32, FTG_PIPE_ID), AT(4, 20, Text, FTG_NAME), AT(24, 2, I16, FTG_NUM),
    AT(26, 4, F32, FTG_EQL),    AT(30, 2, I16, FTG_FLAG),
};
#undef AT

/* --- <base>.rdx: references of nodes ---------------------------------------------------------- */

#define AT(offset, width, codec, field) PN10_COLUMN(Rdx, offset, width, codec, field)
inline constexpr Column kRdxColumns[] = {
    AT(0, 40, Text, KEY_TEXT),
    AT(40, 256, Text, LONG_TEXT),
    AT(296, 40, Text, SHORT_TEXT),
};
#undef AT

inline constexpr RecordFormat kNdtFormat = {".ndt", kNdtColumns, std::size(kNdtColumns), 220, 218, 0};
inline constexpr RecordFormat kPdtFormat = {".pdt", kPdtColumns, std::size(kPdtColumns), 280, 270, 0};
inline constexpr RecordFormat kVtxFormat = {".vtx", kVtxColumns, std::size(kVtxColumns), 26, 26, 0};
inline constexpr RecordFormat kCdtFormat = {".cdt", kCdtColumns, std::size(kCdtColumns), 214, 198, 0};
inline constexpr RecordFormat kFdtFormat = {".fdt", kFdtColumns, std::size(kFdtColumns), 32, 32, 4};
inline constexpr RecordFormat kRdxFormat = {".rdx", kRdxColumns, std::size(kRdxColumns), 336, 336, 0};

static_assert(contiguous(kNdtFormat) && contiguous(kPdtFormat) && contiguous(kVtxFormat));
static_assert(contiguous(kCdtFormat) && contiguous(kFdtFormat) && contiguous(kRdxFormat));

}  // namespace pn10

#endif
