/** What is computed from a pipe, its two nodes and its lookup row; the numbered fields name these in their rows. */
#ifndef PN10_FIELDS_PIPE_CALCS_H
#define PN10_FIELDS_PIPE_CALCS_H

#include <cstdint>

#include "exports/pn10gdi.h"

namespace pn10 {

/** Row of the pipe sizes that SIZE_TYPE names, 0 for none: the result of FindPLutRno. */
int32_t sizeRow(const Pdt& p);

/** Average pressure of a pipe in the base unit, absolute, or gauge when `gauge` is not 0. */
double CalcPipePave(int32_t pipe, int16_t gauge);

/** Hoop stress in the base unit; with `plutRow` 0 the row of SIZE_TYPE is looked up. 0 without a row or a wall. */
double CalcHoopStress(int32_t pipe, int32_t plutRow);

/** Factor from cubic feet to the volume unit that belongs to Q_UNITS; its name goes to `text`, 5 bytes. */
double GetVolUnits(int32_t pipe, char* text);

/** Computed fields, in the order of their numbers: see PdtField. */
double insideDiameter(const Pdt& p);            // 35
double roughness(int32_t pipe);                 // 38
double volume(int32_t pipe);                    // 39
double absolutePave(int32_t pipe);              // 40
double inletPressure(const Pdt& p);             // 50
double outletPressure(const Pdt& p);            // 51
double totalEfficiency(const Pdt& p);           // 63
double hoopStress(int32_t pipe);                // 68
double yieldStrength(const Pdt& p);             // 69
double stressRatio(int32_t pipe);               // 70
double baseDiameter(const Pdt& p);              // 93
double meanRankine(const Pdt& p);               // 103
double lookupRow(const Pdt& p);                 // 104
double straightDistance(const Pdt& p);          // 120
double gaugePave(int32_t pipe);                 // 130
double inletInPipeUnits(const Pdt& p);          // 131
double outletInPipeUnits(const Pdt& p);         // 132
double equationName(int32_t pipe, char* text);  // 133
double pipeDifference(const Pdt& p);            // 158
double pipePercentage(const Pdt& p);            // 159

}  // namespace pn10

#endif
