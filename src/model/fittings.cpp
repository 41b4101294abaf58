/** Fittings: numbered access, and the equivalent length of a fitting at a diameter. */
#include <cmath>
#include <cstring>

#include "lookup/lookup.h"
#include "model/convert.h"
#include "model/record_file.h"
#include "model/tables.h"

using namespace pn10;

namespace {

const Fdt kNoFitting = {};

/** The record to read; slot 0 without a table is all zeros. Null when the number has no record. */
const Fdt* readableFitting(int32_t ftg) {
  if (ftg < 0 || ftg > model.ftgCount) return nullptr;
  if (hasFtgSlot(ftg)) return &model.fdt[ftg];
  return ftg == 0 ? &kNoFitting : nullptr;
}

/** The exponent of the diameter in a flow equation. */
struct Exponent {
  int16_t equation;
  float value;
};
constexpr Exponent kExponents[] = {
    {1, 4.796763f},   {6, 4.8557124f},  {7, 4.9607844f},  {15, 4.7391305f}, {18, 4.7391305f}, {32, 4.8484287f},
    {33, 4.8484287f}, {37, 4.8521256f}, {38, 4.8521256f}, {39, 4.0f},       {50, 4.8542628f}, {51, 4.8542628f},
};
constexpr float kOtherExponent = 5.0f;

double exponentOf(int16_t equation) {
  for (const Exponent& e : kExponents) {
    if (e.equation == equation) return static_cast<double>(e.value);
  }
  return static_cast<double>(kOtherExponent);
}

}  // namespace

double GetFdtVal(int32_t ftg, char* text, int16_t field) {
  const Fdt* f = readableFitting(ftg);
  if (!f) return -1.0;
  switch (field) {
    case FDT_NAME:
      if (text) std::memcpy(text, f->FTG_NAME, strnlen(f->FTG_NAME, sizeof f->FTG_NAME - 1) + 1);
      return 1.0;
    case FDT_NUM:
      return f->FTG_NUM;
    case FDT_PIPE_ID:
      return f->FTG_PIPE_ID;
    case FDT_FLAG:
      return f->FTG_FLAG;
    case FDT_EQL:
      return static_cast<double>(f->FTG_EQL);
    case FDT_STRIDE:
      return kFdtFormat.stride;
    case FDT_COUNT:
      return model.ftgCount;
    default:
      return unknownField("getfdt %i", field);
  }
}

void SetFdtVal(int32_t ftg, int16_t field, const char* text, double value) {
  if (ftg < 0) return;
  Fdt nowhere; /* a number without a record: the field is looked at, nothing is stored */
  Fdt& f = hasFtgSlot(ftg) ? model.fdt[ftg] : nowhere;
  switch (field) {
    case FDT_NAME:
      return copyText(f.FTG_NAME, text);
    case FDT_NUM:
      f.FTG_NUM = toInt16(value);
      return;
    case FDT_PIPE_ID:
      f.FTG_PIPE_ID = toInt32(value);
      return;
    case FDT_FLAG:
      f.FTG_FLAG = toInt16(value);
      return;
    case FDT_EQL:
      f.FTG_EQL = toFloat(value);
      return;
    case FDT_COUNT:
      model.ftgCount = toInt32(value);
      return;
    default:
      unknownField("setfdt %i", field);
  }
}

float CalcEqLFtgNo(float diameter, int16_t equation, int16_t flutRow) {
  const FLut* row = lutRow(lookups.flut, flutRow);
  if (!row) return flutRow < 1 ? -4.0f : -3.0f;
  const double length = static_cast<double>(row->EQ_LENGTH);
  const double reference = static_cast<double>(row->REF_D);
  if (reference == 0.0) return -1.0f;
  if (length == 0.0) return -2.0f;
  return toFloat(length * std::pow(static_cast<double>(diameter) / reference, exponentOf(equation)));
}
