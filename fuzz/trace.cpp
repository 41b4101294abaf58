// The control files of a trace with any content, on a small network of every kind of element.
#include <vector>

#include "model/tables.h"
#include "one_file.h"

using namespace pn10;

namespace {

constexpr int32_t kNodes = 6, kPipes = 8, kCusts = 3;
constexpr int32_t kEnds[kPipes][2] = {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {2, 4}, {4, 5}, {5, 5}, {6, 2}};

void makeNetwork(uint8_t seed) {
  ReallocNdt(kNodes), ReallocNXY(kNodes), ReallocPdt(kPipes), ReallocPXY(kPipes), ReallocCdt(kCusts),
      ReallocCXY(kCusts);
  model.nodeCount = kNodes, model.pipeCount = kPipes, model.custCount = kCusts;
  for (int32_t n = 1; n <= kNodes; n++) model.ndt[n] = {}, model.nxy[n] = {};
  for (int32_t p = 1; p <= kPipes; p++) {
    Pdt& pipe = model.pdt[p] = {};
    model.pxy[p] = {};
    pipe.ID = p;
    pipe.FROM_NODE = kEnds[p - 1][0];
    pipe.TO_NODE = kEnds[p - 1][1];
    pipe.FLOW = (seed >> p % 8 & 1) ? -5.0f : 5.0f;
    pipe.Q_FACTOR = 1;
    pipe.HYD_TYPE = static_cast<uint8_t>((seed + p) % 4);
    pipe.STATUS = (seed + 3 * p) % 7 == 0;
    model.pxy[p].Report = 1;
  }
  for (int32_t c = 1; c <= kCusts; c++) {
    model.cdt[c] = {};
    model.cxy[c] = {};
    model.cdt[c].PIPE_REC = c;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 4) return 0;
  const std::string folder = fuzz::base().substr(0, fuzz::base().size() - 5);
  SetGlobalGDI(folder.c_str(), "");
  const int16_t mode = data[0] & 1;
  const std::string path = folder + (mode == 0 ? "pntrace.ini" : "traceup.ini");
  if (FILE* const file = std::fopen(path.c_str(), "wb")) {
    std::fwrite(data + 4, 1, size - 4, file);
    std::fclose(file);
  }
  makeNetwork(data[1]);
  std::vector<int32_t> pipes(kPipes + 3, -1); /* all pipes, two more, and one that is none of the call's business */
  const int32_t startNode = data[2] % (kNodes + 3) - 1, startPipe = data[3] % (kPipes + 3) - 1;
  const int32_t stopNode = data[2] / 16 % (kNodes + 2);
  const int32_t found =
      CalcSystemTrace(startNode, stopNode, startPipe, mode, mode ? pipes.data() : nullptr, data[0] >> 1 & 1);
  fuzz::require(found <= 2 * kPipes + 1 && found >= -6); /* a flow trace may count a pipe from both its ends */
  fuzz::require(pipes[kPipes + 2] == -1);
  for (const char* name : {"trace.pip", "trace.cst", "trace.vlv", "trace.reg", "trace.sum"}) {
    std::remove((folder + name).c_str());
  }
  FreeModel();
  return 0;
}
