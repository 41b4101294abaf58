/** Opening a file of a save. */
#include "model/saved_file.h"

#include <cstdio>

namespace pn10 {

bool openSaved(File& file, const char* base, const char* extension) {
  char backup[32];
  std::snprintf(backup, sizeof backup, "%s.bak", extension);
  const ModelPath path(base, extension), backupPath(base, backup);
  if (!path.get() || !backupPath.get()) return false;
  return rotateBackup(path.get(), backupPath.get()) && file.open(path.get(), "wb");
}

}  // namespace pn10
