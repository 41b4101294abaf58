/** The three entries of the calculation library and the bindings to them. */
#ifndef PN10_LOOKUP_CALC_LIBRARY_H
#define PN10_LOOKUP_CALC_LIBRARY_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

extern "C" {
/** "CalcReg_": capacity of a regulator. */
typedef float(PN10_CALL* CalcRegEntry)(int32_t one, int32_t equationA, int32_t equationB, float c0, float c1, float c2,
                                       float c3, float c4, float setValue, double flow, double p1Abs, double p2Abs,
                                       float pAtm, float tRankine, float baseP, float baseT, float sg, float viscosity,
                                       float shRatio, float zFactor, int32_t* status, char* text);
/** "CalcComp_": power of a compressor. */
typedef float(PN10_CALL* CalcCompEntry)(int32_t zero, int32_t equation, double flow, float p1Abs, float p2Abs,
                                        float tFrom, float efficiency, float zeroA, float zFactor, float baseP,
                                        float baseT, float shRatio, float coefA, float zeroB, float coefB);
/** "CalcPave": average pressure of two absolute pressures. */
typedef float(PN10_CALL* CalcPaveEntry)(float absPressureA, float absPressureB);
}

/** Entries are null where the library is not there or lacks the name. */
struct CalcLibrary {
  void* handle;
  CalcRegEntry calcReg;
  CalcCompEntry calcComp;
  CalcPaveEntry calcPave;
};
extern CalcLibrary calcLibrary;

}  // namespace pn10

#endif
