/** A network becomes the library's tables. */
#ifndef PN10_HOST_NETWORK_MODEL_H
#define PN10_HOST_NETWORK_MODEL_H

#include "args.h"
#include "network.h"

namespace host {

/** Fills the library's empty model with the records of a network. Throws Failure when there is no memory. */
void makeModel(const Network& network);

/** Tells the library the units of a model: settings that live with the process, not with the files. */
void applyUnits(const NetUnits& units);

}  // namespace host

#endif
