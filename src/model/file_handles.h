/** The files that the host keeps open by number: handle 1 and up, slot 0 unused, a closed or failed one null. */
#ifndef PN10_MODEL_FILE_HANDLES_H
#define PN10_MODEL_FILE_HANDLES_H

#include <cstdint>
#include <cstdio>

namespace pn10 {

struct FileHandles {
  FILE** files;
  int16_t last; /* highest handle given out */
};
extern FileHandles fileHandles;

/** The open file of a handle; null for a handle that has none. */
inline FILE* fileOfHandle(int16_t handle) {
  return fileHandles.files && handle > 0 && handle <= fileHandles.last ? fileHandles.files[handle] : nullptr;
}

}  // namespace pn10

#endif
