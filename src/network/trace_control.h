/** The control file of a system trace: what the host wants traced, from where, and which files it wants. */
#ifndef PN10_NETWORK_TRACE_CONTROL_H
#define PN10_NETWORK_TRACE_CONTROL_H

#include <cstdint>

namespace pn10 {

/** Kinds of start that name a pipe; any other kind is a node. */
constexpr int32_t kStartPipe = 9, kStartElement = 10;

/** The output files a control file may select. */
enum TraceFile { kTracePip, kTraceCst, kTraceVlv, kTraceSum, kTraceReg, kTraceFiles };

/** The path of a file of the trace: the data path stands directly before the name. */
class DataPath {
 public:
  explicit DataPath(const char* name);
  const char* get() const { return path_; }

 private:
  char path_[300];
};

struct TraceControl {
  int16_t type = 0;
  int32_t color = 0; /* negative: no colour */
  int32_t startKind = 0;
  bool customers = false;
  bool selected[kTraceFiles] = {};
};

/**
 * Reads "%spntrace.ini" (mode 0) or "%straceup.ini" under the data path.
 *
 * @return 0; -1 no such file; -2, -3, -4 when the file ends at its first, second or a later line that must be there
 */
int32_t readTraceControl(int16_t mode, TraceControl* control);

}  // namespace pn10

#endif
