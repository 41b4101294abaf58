/** The numbered files. */
#include "model/file_handles.h"

namespace pn10 {

FileHandles fileHandles;

}  // namespace pn10
