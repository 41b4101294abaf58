/**
 * The system trace written out literally: tables of seven slots per node, one walk per group of types, customers by a
 * scan of the whole table per pipe, files as texts. Slow and plain; it works on copies of the tables.
 */
#ifndef PN10_TESTS_TRACE_LITERAL_H
#define PN10_TESTS_TRACE_LITERAL_H

#include <map>

#include "support/support.h"

namespace pn10::test {

struct LiteralTrace {
  /* control */
  int16_t type = 0;
  int32_t color = 0, startKind = 0;
  bool writeFiles = false, customers = false, fileMode = true, keep = false;
  bool pip = false, cst = false, vlv = false, sum = false, reg = false;
  /* copies of the tables */
  std::vector<Ndt> ndt;
  std::vector<Pdt> pdt;
  std::vector<PXY> pxy;
  std::vector<Cdt> cdt;
  std::vector<CXY> cxy;
  /* results */
  std::map<std::string, std::string> files;
  std::vector<int32_t> list{0};

  void copyTables();
  int32_t run(int32_t startNode, int32_t stopNode, int32_t startPipe);

 private:
  int32_t nodes, pipes, count, m = 0;
  std::vector<int32_t> adjCount, adjPipe, adjFar, queue;
  std::vector<int> nodeVisited, nodeQueued, pipeVisited, pipeMarked;
  int32_t sumPipes = 0, sumCust = 0, sumDevices = 0, sumOff = 0;

  int32_t slot(int32_t i, int32_t n) const { return i * (nodes + 1) + n; }
  void color1(int32_t& recordColor, int32_t& traceColor);
  void colorPipe(int32_t p);
  void countAndMark(int32_t p);
  void enqueue(int32_t n);
  void found(int32_t p, bool onlyRegulators);
  std::string name(int32_t n);
  std::string elementLine(int32_t p);
};

}  // namespace pn10::test

#endif
