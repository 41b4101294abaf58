/** What a trace writes: its colours and marks in the screen tables, its files and its summary. */
#ifndef PN10_NETWORK_TRACE_OUTPUT_H
#define PN10_NETWORK_TRACE_OUTPUT_H

#include "network/trace_control.h"
#include "network/trace_graph.h"
#include "platform/files.h"

namespace pn10 {

/** Kinds of record that SetTraceColor colours. */
constexpr int16_t kColorPipe = 3, kColorCust = 4;

/**
 * Colours a record and leaves the trace's mark on it (the colour plus one).
 *
 * A record marked by another trace, that is with a mark which is neither 0 nor `mark`, gets the mixture of both colours
 * and keeps its mark. A pipe that is off is left alone.
 */
void SetTraceColor(int32_t record, int16_t kind, int32_t color, int32_t mark);

/** Red, green and blue averaged each by itself, the fourth byte 0. */
int32_t BlendColor(int32_t colorA, int32_t colorB);

/** The line of an element that is off or a control device; nothing for any other. */
void WriteTraceElem(FILE* vlvFile, int32_t pipe);

/** The line of a regulator; one that is on gets it only when its To node is being expanded. */
void WriteTraceReg(FILE* regFile, int32_t pipe, int32_t expandedNode);

/** Files and counts of one trace. */
class TraceOutput {
 public:
  /** Creates the selected files but the summary; false when one can't be created. */
  bool open(const TraceControl& control);
  FILE* file(TraceFile which) const { return files_[which].get(); }
  /** Closes the files and writes the summary; false when that fails. */
  bool finish(const TraceControl& control);

  struct {
    int32_t pipes = 0, customers = 0, devices = 0, off = 0;
  } summary;

 private:
  File files_[kTraceFiles];
};

}  // namespace pn10

#endif
