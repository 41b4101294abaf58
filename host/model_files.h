/** The files of a model beside each other under one base path, and how they are opened and saved. */
#ifndef PN10_HOST_MODEL_FILES_H
#define PN10_HOST_MODEL_FILES_H

#include <cstdint>
#include <string>

#include "args.h"
#include "network.h"

namespace host {

/** What the header file of a model says beyond its tables. */
struct ModelInfo {
  std::string title;
  NetUnits units;
  /**
   * Decimals of labels, the Digits of UnitOpts: 0 diameters, 2 lengths, 3 velocities and efficiencies, 4 flows,
   * 5 pressure drops, 7 pressures, 8 node loads, 9 elevations, 10 temperatures, 15 coordinates, 25 customer loads,
   * 26 heating values, 27 viscosities, 28 heat ratios, 29 gravities.
   */
  float digits[32] = {3, 0, 0, 1, 0, 2, 0, 1, 0, 1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 2, 2, 0, 0};
};

/** Loads libraries, facilities, header and tables of `base`. Throws Failure with the file and the cause. */
ModelInfo openModel(const std::string& base);

/** Saves the tables of the open model under `base`, one generation kept as .bak. */
void saveModel(const std::string& base);

/** Releases everything. */
void closeModel();

/** The meaning of a result code of a load or save call: "-2" is "can't be opened". */
const char* resultText(const char* call, int32_t code);

}  // namespace host

#endif
