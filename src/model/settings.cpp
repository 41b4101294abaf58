/** What the host says once at its start: paths, unit texts and factors. Null texts count as empty. */
#include "model/tables.h"

using namespace pn10;

/** Stored only: the passes watch the keyboard. */
void SetAppCancel(int16_t cancelFlag) { settings.appCancel = cancelFlag; }

int32_t SetGlobalGDI(const char* dataPath, const char* secondPath) {
  copyText(settings.dataPath, dataPath);
  copyText(settings.secondPath, secondPath);
  settings.offColor = 255; /* red */
  return 0;
}

void SetGlobalUnits(const char* velUnits, const char* elevUnits, const char* coordUnits, float velFactor,
                    float effFactor, float lengthFactor, float tolerance) {
  copyText(settings.velUnits, velUnits);
  copyText(settings.elevUnits, elevUnits);
  copyText(settings.coordUnits, coordUnits);
  settings.velFactor = velFactor;
  settings.effFactor = effFactor;
  settings.lengthFactor = lengthFactor;
  settings.tolerance = tolerance;
}
