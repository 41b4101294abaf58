/** What a pipe takes from its lookup row: diameter, roughness, efficiency, wall and strength. */
#include <algorithm>
#include <cmath>
#include <iterator>

#include "fields/number_text.h"
#include "fields/pipe_calcs.h"
#include "fields/records.h"
#include "lookup/lookup.h"

namespace pn10 {

namespace {

/** The values that GetPLutVal reads by number; row 0 and rows that are not there read zeros. */
const PLut& sizeAt(int32_t row) {
  const PLut* size = lookups.plut.rows;
  return size && row >= 0 && row <= lookups.plut.count ? size[row] : kZeroRecord<PLut>;
}

double dFactor(const Pdt& p) { return std::fabs(wide(p.D_FACTOR)); }

}  // namespace

int32_t sizeRow(const Pdt& p) { return FindPLutRno(p.SIZE_TYPE, 0); }

double insideDiameter(const Pdt& p) {
  const double d = wide(sizeAt(sizeRow(p)).INSIDE_D) / dFactor(p);
  return d < 0.0 ? parseDouble(p.SIZE_TYPE) : d;
}

/** kept: without a row the size text stands as it is, with a row that has no diameter it is in diameter units. */
double baseDiameter(const Pdt& p) {
  const int32_t row = sizeRow(p);
  if (row == 0) return parseDouble(p.SIZE_TYPE);
  const double d = wide(sizeAt(row).INSIDE_D);
  return d < 0.0 ? parseDouble(p.SIZE_TYPE) * dFactor(p) : d;
}

double roughness(int32_t pipe) {
  const Pdt& p = pipeAt(pipe);
  const int32_t row = sizeRow(p);
  return row != 0 ? wide(sizeAt(row).ROUGHNESS) / dFactor(p) : wide(p.ROUGHNESS);
}

double totalEfficiency(const Pdt& p) {
  const int32_t row = sizeRow(p);
  return wide(p.EFFICIENCY) * (row != 0 ? wide(sizeAt(row).EFFICIENCY) : 1.0);
}

double CalcHoopStress(int32_t pipe, int32_t plutRow) {
  const Pdt& p = pipeAt(pipe);
  const Ndt &from = nodeAt(p.FROM_NODE), &to = nodeAt(p.TO_NODE);
  const double highest = std::max(wide(from.P_FACTOR) * wide(from.PRESSURE), wide(to.P_FACTOR) * wide(to.PRESSURE));
  if (highest == 0.0) return 0.0;
  if (plutRow == 0) plutRow = sizeRow(p);
  if (plutRow == 0) return 0.0;
  const double wall = wide(sizeAt(plutRow).WALL);
  return wall == 0.0 ? 0.0 : wide(sizeAt(plutRow).OUTSIDE_D) * highest / (wall + wall);
}

double hoopStress(int32_t pipe) { return CalcHoopStress(pipe, 0); }

double yieldStrength(const Pdt& p) {
  const int32_t row = sizeRow(p);
  return row != 0 ? wide(sizeAt(row).YIELD) / wide(p.DP_FACTOR) : 0.0;
}

double stressRatio(int32_t pipe) {
  const int32_t row = sizeRow(pipeAt(pipe));
  const double yield = row != 0 ? wide(sizeAt(row).YIELD) : 0.0;
  return yield != 0.0 ? CalcHoopStress(pipe, row) / yield : 0.0;
}

double lookupRow(const Pdt& p) {
  using Find = int32_t(PN10_CALL*)(const char*, int16_t);
  constexpr Find kFinders[] = {FindPLutRno, FindRLutRno, FindCLutRno, FindVLutRno, FindWLutRno, FindFLutRno};
  if (p.HYD_TYPE >= std::size(kFinders)) return -1.0;
  const int32_t row = kFinders[p.HYD_TYPE](p.SIZE_TYPE, 0);
  return row != 0 ? row : -1.0;
}

}  // namespace pn10
