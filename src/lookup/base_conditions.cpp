/** Base pressure and temperature, and the units texts that the calculations and reports share. */
#include "exports/pn10gdi.h"
#include "model/tables.h"

using namespace pn10;

namespace {

int16_t temperatureCode(char first) { return first == 'C' ? 1 : first == 'K' ? 2 : first == 'R' ? 3 : 0; }

}  // namespace

void SetBaseCond(float baseP, float baseT, const char* patmUnits, const char* tempUnits, const char* visUnits,
                 const char* hvUnits) {
  settings.baseP = baseP;
  settings.baseT = baseT;
  copyText(settings.patmUnits, patmUnits);
  copyText(settings.tempUnits, tempUnits);
  copyText(settings.visUnits, visUnits);
  copyText(settings.hvUnits, hvUnits);
  settings.patmFactor = GetUnitFactor(settings.patmUnits, 0, "PUS");
  settings.visFactor = GetUnitFactor(settings.visUnits, 0, "MUS");
  settings.tempCode = temperatureCode(settings.tempUnits[0]);
}
