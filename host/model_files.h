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
  int32_t references = 0; /* rows of the reference table */
  std::string cutFile;    /* a file that ends within a record; the engine reads what there is of it */
  NetUnits units;
  /**
   * Decimals of labels, the Digits of UnitOpts: 0 diameters, 2 lengths, 3 velocities and efficiencies, 4 flows,
   * 5 pressure drops, 7 pressures, 8 node loads, 9 elevations, 10 temperatures, 15 coordinates, 25 customer loads,
   * 26 heating values, 27 viscosities, 28 heat ratios, 29 gravities.
   */
  float digits[32] = {3, 0, 0, 1, 0, 2, 0, 1, 0, 1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 2, 2, 0, 0};
};

/**
 * Loads libraries, facilities, header and tables of `base`. Throws Failure with the file and the cause.
 * @param tables  where the tables are when it is not `base`
 */
ModelInfo openModel(const std::string& base, const std::string& tables = "");

/**
 * The base path that a word on the command line means: itself, or what stands before the ending when it is the name of
 * a file of a model.
 */
std::string modelBase(const std::string& word);

/** "--replace", of the commands that make a model. */
Option replaceOption();
/** Throws Failure when a model stands under `base` and the command was not told to replace it. */
void refuseToReplace(const std::string& base, const Args& args);

/** Writes the tables of the open model to `base`; they are no model without the other files. */
void writeTables(const std::string& base, int32_t references);

/** Releases everything. */
void closeModel();

/** The meaning of a result code of a load or save call: "-2" is "can't be opened". */
const char* resultText(const char* call, int32_t code);

}  // namespace host

#endif
