/** Codes of stored pipe colours, line types and line widths. */
#ifndef PN10_FACILITY_PIPE_STYLE_H
#define PN10_FACILITY_PIPE_STYLE_H

#include <cstdint>

namespace pn10 {

/** Negative colours are requests. */
enum ColorRequest : int32_t { kColorDefault = -1, kColorBySize = -2, kColorByFacility = -3 };

/** Line types and widths: 0 asks for the display default, which may itself be one of the other two. */
enum LineCode : int16_t { kLineDefault = 0, kLineByFacility = 98, kLineBySize = 99 };

/** Pipes and fittings; regulators, compressors, valves and wells have colours of their own. */
constexpr bool drawsAsPipe(int32_t hydType) { return hydType == 0 || hydType == 5; }

}  // namespace pn10

#endif
