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
