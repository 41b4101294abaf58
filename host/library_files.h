/** The lookup library files that go with a model: packed here record by record, since the engine only reads them. */
#ifndef PN10_HOST_LIBRARY_FILES_H
#define PN10_HOST_LIBRARY_FILES_H

#include <string>
#include <vector>

#include "network.h"

namespace host {

/** Writes base.plut, .flut, .rlut, .vlut, .wlut and .clut. Throws Failure with the file and the cause. */
void writeLibraries(const std::string& base, const std::vector<NetSize>& sizes);

/** Steel and polyethylene pipe in nominal sizes. */
const std::vector<NetSize>& nominalSizes();

}  // namespace host

#endif
