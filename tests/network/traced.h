/** Small networks, the control files of a trace, and what the trace wrote. */
#ifndef PN10_TESTS_NETWORK_TRACED_H
#define PN10_TESTS_NETWORK_TRACED_H

#include "model/tables.h"
#include "support/random_network.h"

namespace pn10::test {

inline constexpr const char* kTraceFiles[] = {"trace.pip", "trace.cst", "trace.vlv", "trace.sum", "trace.reg"};

struct Control {
  int type = 0, color = 0xFF, writeFiles = 1, startKind = 0, customers = 0;
  std::vector<int> selectors = {1, 2, 3, 4, 5};

  std::string text() const {
    std::string t = std::to_string(type) + "\n" + std::to_string(color) + "\n" + std::to_string(writeFiles) + "\n0\n" +
                    std::to_string(startKind) + "\n" + std::to_string(customers) + "\n0\n" +
                    std::to_string(selectors.size()) + "\n";
    for (int s : selectors) t += std::to_string(s) + "\n";
    return t;
  }
  std::string listText() const {
    return std::to_string(type) + "\n" + std::to_string(color) + "\n" + std::to_string(startKind) + "\n" +
           std::to_string(customers) + "\n0\n0\n0\n";
  }
};

class SystemTrace : public testing::Test {
 protected:
  SystemTrace() { SetGlobalGDI((dir_.path("")).c_str(), ""); }
  ~SystemTrace() override {
    FreeModel();
    FreeFdt();
  }

  /** Nodes 1 to n in a row, pipe p from p to p + 1, all on, reported, facility 1, flow from left to right. */
  void makeRow(int32_t nodes) {
    makeEmptyTables(nodes, nodes - 1, 4, 0);
    for (int32_t n = 1; n <= nodes; n++) std::snprintf(model.ndt[n].NODENAME, 41, "N%d ", n);
    for (int32_t p = 1; p < nodes; p++) put(p, p, p + 1);
  }
  static void put(int32_t p, int32_t from, int32_t to) {
    Pdt& pipe = model.pdt[p];
    pipe.ID = 100 + p;
    pipe.FROM_NODE = from;
    pipe.TO_NODE = to;
    pipe.FLOW = 10;
    pipe.Q_FACTOR = 1;
    pipe.FACILITY = 1;
    model.pxy[p].Report = 1;
  }
  int32_t trace(const Control& control, int32_t startNode, int32_t startPipe = 0, int32_t stopNode = 0) {
    dir_.write("pntrace.ini", control.text());
    return CalcSystemTrace(startNode, stopNode, startPipe, 0, nullptr, 0);
  }
  int32_t list(const Control& control, int32_t startNode, std::vector<int32_t>* pipes, int32_t startPipe = 0,
               int32_t stopNode = 0) {
    dir_.write("traceup.ini", control.listText());
    pipes->assign(static_cast<size_t>(model.pipeCount) + 2, -7);
    const int32_t result = CalcSystemTrace(startNode, stopNode, startPipe, 1, pipes->data(), 0);
    pipes->resize(static_cast<size_t>((*pipes)[0]) + 1);
    return result;
  }
  std::string file(const char* name) { return dir_.read(name); }

  Fresh fresh_;
  TempDir dir_;
};

}  // namespace pn10::test

#endif
