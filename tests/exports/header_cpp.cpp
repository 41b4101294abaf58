// The chief header alone, in C++: nothing else is included before it.
#include "pn10gdi.h"

#include <cstddef>

#define AT(record, member, offset) static_assert(offsetof(record, member) == (offset))

static_assert(sizeof(Ndt) == 240);
AT(Ndt, PRESSURE, 48);
AT(Ndt, X_COORD, 144);
AT(Ndt, TEXT_X, 168);
AT(Ndt, RESERVED_D, 192);
AT(Ndt, COLOR, 200);
AT(Ndt, REC_STATUS, 216);
AT(Ndt, REC_DATE, 218);
AT(Ndt, CMP_MODE, 236);
static_assert(sizeof(Pdt) == 296);
AT(Pdt, EQUATION, 14);
AT(Pdt, SIZE_TYPE, 17);
AT(Pdt, LENGTH, 60);
AT(Pdt, FLOW, 84);
AT(Pdt, CMP_VALUE, 136);
AT(Pdt, TEXT_X, 152);
AT(Pdt, COLOR, 184);
AT(Pdt, VTX_FIRST, 248);
AT(Pdt, REC_STATUS, 274);
AT(Pdt, REC_DATE, 282);
static_assert(sizeof(Cdt) == 192);
AT(Cdt, X_COORD, 32);
AT(Cdt, TEXT_X, 64);
AT(Cdt, SX_COORD, 96);
AT(Cdt, LINK_ID, 120);
AT(Cdt, COUNT, 166);
AT(Cdt, REC_STATUS, 178);
AT(Cdt, REC_DATE, 180);
static_assert(sizeof(Vtx) == 32);
AT(Vtx, VTX_X, 8);
AT(Vtx, VTX_HILITE, 28);
static_assert(sizeof(Fdt) == 36);
static_assert(sizeof(NXY) == 16);
static_assert(sizeof(PXY) == 36);
AT(PXY, Report, 18);
AT(PXY, DRAWN, 24);
AT(PXY, LENGTH, 28);
AT(PXY, TraceColor, 32);
static_assert(sizeof(CXY) == 36);
AT(CXY, DRAW, 12);
AT(CXY, CHANGE_VTX_A, 16);
static_assert(sizeof(Hdr) == 257);
static_assert(sizeof(Rdx) == 339);
static_assert(sizeof(Fac) == 540);
static_assert(sizeof(PLut) == 432);
static_assert(sizeof(PLutIdx) == 44);
static_assert(sizeof(FLut) == 228);
static_assert(sizeof(RLut) == 104);
static_assert(sizeof(VLut) == 76);
static_assert(sizeof(WLut) == 40);
static_assert(sizeof(CLut) == 92);
static_assert(sizeof(ViewOpts) == 512 && alignof(ViewOpts) == 4);
static_assert(sizeof(PlotOpts) == 128 && alignof(PlotOpts) == 4);
static_assert(sizeof(UnitOpts) == 132 && alignof(UnitOpts) == 4);
