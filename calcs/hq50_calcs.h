/**
 * hq50_calcs: gas calculations behind three plain entries, loaded at run time by the model engine.
 *
 * Units everywhere: pressures psi absolute, temperatures degrees Rankine, flows cubic feet per hour at the base
 * conditions, powers horsepower. Where an argument "acts as" another value when 0, it does so below 0 as well.
 * All results are finite; a state in which nothing can be computed gives 0.
 * The sources of the equations stand in README.md.
 */
#ifndef HQ50_CALCS_H
#define HQ50_CALCS_H

#include <stdint.h>

/* The build names the calling convention where entries of a library have one of their own. */
#ifndef HQ50_CALL
#define HQ50_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** What CalcReg_ says in `status`. */
enum HqRegStatus {
  HQ_REG_SUBCRITICAL = 0, /* the outlet pressure counts */
  HQ_REG_CRITICAL = 1,    /* sonic flow: the outlet pressure no longer counts */
  HQ_REG_NO_FLOW = -1     /* no pressure drop, not enough to open, or no usable state */
};

/**
 * Capacity of a regulator by the universal gas sizing equation.
 *
 * @param one        always 1; not used
 * @param equationA  flow equation of the row; this library takes every equation's c0 to c4 as below
 * @param equationB  the same once more; not used
 * @param c0         Cg, gas sizing coefficient, standard cubic feet per hour per psi of inlet pressure
 * @param c1         C1 = Cg / Cv, valve recovery coefficient; 0 acts as 35
 * @param c2         C2, correction for the ratio of specific heats; 0 is computed from shRatio
 * @param c3         usable part of the wide-open capacity, a fraction; 0 acts as 1
 * @param c4         smallest pressure drop at which the regulator opens, psi; 0 = none
 * @param setValue   set pressure of the outlet, psi gauge; counts when p2Abs is not above 0
 * @param flow       present flow; not used, the capacity does not depend on it
 * @param p1Abs      inlet pressure, psi absolute
 * @param p2Abs      outlet pressure, psi absolute
 * @param pAtm       atmospheric pressure, psi
 * @param tRankine   inlet temperature, degrees Rankine
 * @param baseP      base pressure, psi absolute; 0 acts as 14.7
 * @param baseT      base temperature, degrees Rankine; 0 acts as 520
 * @param sg         specific gravity of the gas, air = 1
 * @param viscosity  not used
 * @param shRatio    ratio of specific heats; not above 1 counts as that of air, 1.4
 * @param zFactor    compressibility at the inlet; 0 acts as 1
 * @param status     receives an HqRegStatus; may be null
 * @param text       not written
 * @return capacity in cubic feet per hour at the base conditions, 0 when nothing flows
 */
float HQ50_CALL CalcReg_(int32_t one, int32_t equationA, int32_t equationB, float c0, float c1, float c2, float c3,
                         float c4, float setValue, double flow, double p1Abs, double p2Abs, float pAtm, float tRankine,
                         float baseP, float baseT, float sg, float viscosity, float shRatio, float zFactor,
                         int32_t* status, char* text);

/**
 * Power of a compressor by the adiabatic head equation.
 *
 * @param zero        always 0; not used
 * @param equation    0 adiabatic head; 1 the row's own curve, coefA x ratio + coefB horsepower for each million
 *                    cubic feet per day; others as 0
 * @param flow        flow at the base conditions, cubic feet per hour; not above 0 needs no power
 * @param p1Abs       suction pressure, psi absolute
 * @param p2Abs       discharge pressure, psi absolute; not above the suction pressure needs no power
 * @param tFrom       suction temperature, degrees Rankine
 * @param efficiency  adiabatic efficiency, a fraction; 0 acts as 1
 * @param zeroA       always 0; not used
 * @param zFactor     mean compressibility; 0 acts as 1
 * @param baseP       base pressure, psi absolute; 0 acts as 14.7
 * @param baseT       base temperature, degrees Rankine; 0 acts as 520
 * @param shRatio     ratio of specific heats; not above 1 counts as isothermal
 * @param coefA       slope of the row's own curve
 * @param zeroB       always 0; not used
 * @param coefB       constant of the row's own curve
 * @return horsepower
 */
float HQ50_CALL CalcComp_(int32_t zero, int32_t equation, double flow, float p1Abs, float p2Abs, float tFrom,
                          float efficiency, float zeroA, float zFactor, float baseP, float baseT, float shRatio,
                          float coefA, float zeroB, float coefB);

/** Average pressure along a pipe between two absolute pressures a and b: 2/3 (a + b - ab / (a + b)). */
float HQ50_CALL CalcPave(float a, float b);

#ifdef __cplusplus
}
#endif

#endif
