/**
 * The system trace: breadth first over the pipes at each node.
 *
 * A trace type is a row of rules; four walks share the crossing of a pipe, its colour and its record in the files.
 */
#include <cmath>

#include "network/trace_control.h"
#include "network/trace_graph.h"
#include "network/trace_output.h"

namespace pn10 {
namespace {

enum class Walk { None, Flow, Connected, Isolation, Regulator };

/** How a trace type walks: the sign of the flow that it follows, and what stops it. */
struct TraceRule {
  int16_t type;
  Walk walk;
  bool withFlow;
  bool largestOnly;
  bool endsAtDevice; /* the whole trace ends at the first regulator or compressor crossed */
};
constexpr TraceRule kRules[] = {
    {0, Walk::Flow, false, false, false},       {1, Walk::Flow, true, false, false},
    {2, Walk::Connected, false, false, false},  {3, Walk::Isolation, false, false, false},
    {4, Walk::Flow, false, false, false},       {5, Walk::Isolation, false, false, false},
    {6, Walk::Flow, true, true, false},         {7, Walk::Flow, false, true, false},
    {8, Walk::Flow, false, true, true},         {20, Walk::Regulator, false, false, false},
    {21, Walk::Regulator, false, false, false},
};

TraceRule ruleOf(int16_t type) {
  for (const TraceRule& rule : kRules) {
    if (rule.type == type) return rule;
  }
  return {type, Walk::None, false, false, false};
}

enum class Next { Node, Stop };

class SystemTrace {
 public:
  SystemTrace(const TraceControl& control, int32_t* list, bool keepColor)
      : control_(control), rule_(ruleOf(control.type)), list_(list), keepColor_(keepColor) {}

  int32_t run(int32_t startNode, int32_t stopNode, int32_t startPipe);

 private:
  bool allocate();
  int32_t begin(int32_t startNode, int32_t startPipe);
  int32_t isolationStart(int32_t startNode, int32_t startPipe);
  void walk();
  void prefetchQueued(int32_t i);
  void routeBack(int32_t stopNode);

  Next expandFlow(int32_t node);
  Next expandConnected(int32_t node);
  Next expandIsolation(int32_t node);
  Next expandRegulator(int32_t node);

  void queue(int32_t node);
  void enlist(int32_t pipe);
  void trace(int32_t pipe, bool anyColor);
  void cross(const TraceEdge& edge, bool anyColor);
  void record(int32_t pipe, bool regulatorsOnly);
  void recordCustomers(int32_t pipe);
  bool isValveNode(int32_t node) const;
  bool isVisited(const TraceEdge& edge) const { return pipeVisited_[static_cast<size_t>(edge.pipe)] != 0; }
  void visit(const TraceEdge& edge) { pipeVisited_[static_cast<size_t>(edge.pipe)] = 1; }

  const TraceControl& control_;
  const TraceRule rule_;
  int32_t* const list_; /* null in the mode with files */
  const bool keepColor_;

  TraceGraph graph_;
  PipeCustomers customers_;
  TraceOutput output_;
  Buffer<uint8_t> nodeVisited_, nodeQueued_, pipeVisited_, pipeMarked_;
  Buffer<int32_t> queue_;
  int32_t queued_ = 0;
  int32_t count_ = 0, listed_ = 0;
  int32_t mark_ = 0;
  int16_t startFacility_ = 0;
  bool passValve_ = false;
};

/** The flow out of a node through a pipe at it. */
float flowFrom(const Pdt& pipe, int32_t node) { return pipe.FROM_NODE == node ? pipe.FLOW : -pipe.FLOW; }

bool isDeleted(const Pdt& pipe) { return pipe.REC_STATUS < 0; }
bool isOff(const Pdt& pipe) { return pipe.STATUS != 0; }
bool isReported(int32_t pipe) { return hasPxySlot(pipe) && model.pxy[pipe].Report != 0; }

bool SystemTrace::allocate() {
  const auto nodes = static_cast<size_t>(std::max(nodeTop(), 0)) + 2,
             pipes = static_cast<size_t>(std::max(pipeTop(), 0)) + 2;
  const bool listsCustomers = control_.selected[kTraceCst] || (control_.customers && control_.color >= 0);
  return graph_.build() && nodeVisited_.allocate(nodes) && nodeQueued_.allocate(nodes) && queue_.allocate(nodes) &&
         pipeVisited_.allocate(pipes) && pipeMarked_.allocate(pipes) && (!listsCustomers || customers_.build());
}

void SystemTrace::queue(int32_t node) {
  if (!isNode(node)) return;
  const auto n = static_cast<size_t>(node);
  if (nodeVisited_[n] || nodeQueued_[n]) return;
  nodeQueued_[n] = 1;
  queue_[static_cast<size_t>(queued_++)] = node;
}

/** Into the caller's list, from slot 1; it has room for all pipes and one more. */
void SystemTrace::enlist(int32_t pipe) {
  if (list_ && listed_ <= pipeTop()) list_[++listed_] = pipe;
}

/** Counts, colours and lists a pipe. A first pipe that carries an earlier trace's mark hands that mark to this one. */
void SystemTrace::trace(int32_t pipe, bool anyColor) {
  count_++;
  const int32_t earlier = hasPxySlot(pipe) ? model.pxy[pipe].TraceColor : 0;
  if (count_ == 1 && earlier != 0) mark_ = keepColor_ ? control_.color : earlier;
  if (anyColor || control_.color >= 0) SetTraceColor(pipe, kColorPipe, control_.color, mark_);
  enlist(pipe);
}

void SystemTrace::cross(const TraceEdge& edge, bool anyColor) {
  trace(edge.pipe, anyColor);
  queue(edge.farNode);
}

void SystemTrace::recordCustomers(int32_t pipe) {
  FILE* file = output_.file(kTraceCst);
  const bool colored = control_.customers && control_.color >= 0;
  if (!file && !colored) return;
  const int32_t wanted = model.pdt[pipe].CUST_COUNT;
  int32_t found = 0;
  for (const int32_t* c = customers_.begin(pipe); c != customers_.end(pipe); c++) {
    if (colored) SetTraceColor(*c, kColorCust, control_.color, mark_);
    if (file) std::fprintf(file, "%i\n", *c);
    if (++found == wanted) break;
  }
  if (file && wanted != 0) std::fputs("0\n", file);
}

/** Counts of hostile files may exceed 32 bits. */
int32_t wrappingSum(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

/** One element found: the summary and the files. */
void SystemTrace::record(int32_t pipe, bool regulatorsOnly) {
  const Pdt& element = model.pdt[pipe];
  auto& summary = output_.summary;
  summary.pipes++;
  summary.customers = wrappingSum(summary.customers, element.CUST_COUNT);
  if (element.HYD_TYPE == 1 || (!regulatorsOnly && (element.HYD_TYPE == 2 || element.HYD_TYPE == 3))) summary.devices++;
  if (isOff(element)) summary.off++;
  if (FILE* file = output_.file(kTracePip)) std::fprintf(file, "%i\n", pipe);
  recordCustomers(pipe);
  if (FILE* file = output_.file(kTraceVlv)) WriteTraceElem(file, pipe);
}

bool SystemTrace::isValveNode(int32_t node) const {
  if (!hasNodeSlot(node)) return false;
  const uint8_t kind = model.ndt[node].HYD_TYPE;
  return kind == 2 || (kind == 1 && rule_.type != 5);
}

Next SystemTrace::expandFlow(int32_t node) {
  const auto follow = [&](const TraceEdge& edge) {
    pipeMarked_[static_cast<size_t>(edge.pipe)] = 1;
    cross(edge, true);
    if (!isVisited(edge)) record(edge.pipe, false);
    visit(edge);
  };
  // Kept: the candidates of a node are known before the first is crossed; a pipe from it to itself is two of them.
  const TraceEdge* candidates[TraceGraph::kMostPipes];
  int32_t candidateCount = 0;
  const TraceEdge* largest = nullptr;
  double most = 0;
  for (const TraceEdge& edge : graph_.at(node)) {
    if (isVisited(edge)) continue;
    const Pdt& pipe = model.pdt[edge.pipe];
    if (isDeleted(pipe) || isOff(pipe)) {
      visit(edge);
      continue;
    }
    const float flow = flowFrom(pipe, node);
    if (!(rule_.withFlow ? flow > 0 : flow < 0)) continue;
    if (!rule_.largestOnly) {
      candidates[candidateCount++] = &edge;
    } else if (const double size = std::fabs(static_cast<double>(pipe.Q_FACTOR) * pipe.FLOW); size > most) {
      most = size;
      largest = &edge;
    }
  }
  for (int32_t i = 0; i < candidateCount; i++) follow(*candidates[i]);
  if (!largest) return Next::Node;
  follow(*largest);
  const uint8_t type = model.pdt[largest->pipe].HYD_TYPE;
  return rule_.endsAtDevice && (type == 1 || type == 2) ? Next::Stop : Next::Node;
}

Next SystemTrace::expandConnected(int32_t node) {
  for (const TraceEdge& edge : graph_.at(node)) {
    if (isVisited(edge)) continue;
    const Pdt& pipe = model.pdt[edge.pipe];
    if (!isDeleted(pipe) && !isOff(pipe) && isReported(edge.pipe)) {
      cross(edge, false);
      record(edge.pipe, false);
    }
    visit(edge);
  }
  return Next::Node;
}

Next SystemTrace::expandIsolation(int32_t node) {
  if (isValveNode(node)) {
    output_.summary.devices++;
    /* kept: the name as it stands, while the lines of elements trim the names of their nodes */
    if (FILE* file = output_.file(kTraceVlv)) {
      std::fprintf(file, "Valve Node - Node Number: %i   Valve Number: %s\n", node, model.ndt[node].NODENAME);
    }
    if (!passValve_) return Next::Node;
    passValve_ = false;
  }
  for (const TraceEdge& edge : graph_.at(node)) {
    if (isVisited(edge)) continue;
    const Pdt& pipe = model.pdt[edge.pipe];
    if (!isDeleted(pipe) && isReported(edge.pipe)) {
      const bool closes = pipe.HYD_TYPE >= 1 && pipe.HYD_TYPE <= 3;
      if (!isOff(pipe) && !closes) cross(edge, false);
      record(edge.pipe, false);
    }
    visit(edge);
  }
  return Next::Node;
}

Next SystemTrace::expandRegulator(int32_t node) {
  for (const TraceEdge& edge : graph_.at(node)) {
    if (isVisited(edge)) continue;
    const Pdt& pipe = model.pdt[edge.pipe];
    if (!isDeleted(pipe) && isReported(edge.pipe)) {
      const bool byFacility = rule_.type == 21;
      // An element of another facility ends the work at this node at once. Kept.
      if (byFacility && !isOff(pipe) && pipe.FACILITY != startFacility_) return Next::Node;
      if (!isOff(pipe) && (byFacility || pipe.HYD_TYPE != 1)) cross(edge, false);
      if (FILE* file = output_.file(kTraceReg)) WriteTraceReg(file, edge.pipe, node);
      record(edge.pipe, true);
    }
    visit(edge);
  }
  return Next::Node;
}

/** The queue tells what comes next: the records of nodes and pipes a few places ahead are called for. */
inline void SystemTrace::prefetchQueued(int32_t i) {
  constexpr int32_t kPipesAhead = 4, kNodesAhead = 12;
  if (i + kNodesAhead < queued_) {
    const int32_t later = queue_[static_cast<size_t>(i + kNodesAhead)];
    __builtin_prefetch(&model.ndt[later].HYD_STATUS);
    __builtin_prefetch(graph_.at(later).first);
  }
  if (i + kPipesAhead >= queued_) return;
  for (const TraceEdge& edge : graph_.at(queue_[static_cast<size_t>(i + kPipesAhead)])) {
    const Pdt& pipe = model.pdt[edge.pipe];
    __builtin_prefetch(&pipe.FROM_NODE);
    __builtin_prefetch(&pipe.CUST_COUNT);
    __builtin_prefetch(&pipe.REC_STATUS);
    if (hasPxySlot(edge.pipe)) __builtin_prefetch(&model.pxy[edge.pipe].Report);
  }
}

void SystemTrace::walk() {
  for (int32_t i = 0; i < queued_; i++) {
    const int32_t node = queue_[static_cast<size_t>(i)];
    prefetchQueued(i);
    uint8_t& visited = nodeVisited_[static_cast<size_t>(node)];
    if (visited) continue;
    visited = 1;
    if (model.ndt[node].HYD_STATUS != 0) continue;
    Next next = Next::Node;
    switch (rule_.walk) {
      case Walk::Flow:
        next = expandFlow(node);
        break;
      case Walk::Connected:
        next = expandConnected(node);
        break;
      case Walk::Isolation:
        next = expandIsolation(node);
        break;
      case Walk::Regulator:
        next = expandRegulator(node);
        break;
      case Walk::None:
        return;
    }
    if (next == Next::Stop) return;
  }
}

/** The main route back from the stop node through the pipes that the flow walk crossed. */
void SystemTrace::routeBack(int32_t stopNode) {
  std::fill_n(nodeQueued_.data(), nodeQueued_.size(), uint8_t{0});
  std::fill_n(nodeVisited_.data(), nodeVisited_.size(), uint8_t{0});
  std::fill_n(pipeVisited_.data(), pipeVisited_.size(), uint8_t{0});
  queued_ = 0;
  queue(stopNode);
  for (int32_t i = 0; i < queued_; i++) {
    const int32_t node = queue_[static_cast<size_t>(i)];
    const TraceEdge* main = nullptr;
    float most = 0;
    for (const TraceEdge& edge : graph_.at(node)) {
      if (isVisited(edge) || !pipeMarked_[static_cast<size_t>(edge.pipe)]) continue;
      const Pdt& pipe = model.pdt[edge.pipe];
      const float flow = flowFrom(pipe, node);
      if (!(rule_.withFlow ? flow <= 0 : flow >= 0)) continue;
      visit(edge);
      if (std::fabs(pipe.FLOW) > most) {
        most = std::fabs(pipe.FLOW);
        main = &edge;
      }
    }
    if (!main) continue;
    pipeMarked_[static_cast<size_t>(main->pipe)] = 2;
    enlist(main->pipe);
    queue(main->farNode);
  }
}

/** The node where an isolation trace begins, by the valve nodes at the ends of the start pipe. */
int32_t SystemTrace::isolationStart(int32_t startNode, int32_t startPipe) {
  const Pdt& pipe = model.pdt[startPipe];
  const bool fromValve = isValveNode(pipe.FROM_NODE), toValve = isValveNode(pipe.TO_NODE);
  if (fromValve && toValve) {
    passValve_ = true;
    if (rule_.type == 5) {
      graph_.replace(startNode, {startPipe, pipe.FROM_NODE == startNode ? pipe.TO_NODE : pipe.FROM_NODE});
    }
    return startNode;
  }
  if (fromValve) return pipe.TO_NODE;
  if (toValve) return pipe.FROM_NODE;
  return startNode;
}

/** The start pipe, and the node that the queue begins with. */
int32_t SystemTrace::begin(int32_t startNode, int32_t startPipe) {
  if (!isPipe(startPipe)) return startNode;
  startFacility_ = model.pdt[startPipe].FACILITY;
  if (control_.startKind == kStartElement) {
    count_ = 1;
    if (rule_.walk == Walk::Isolation || rule_.walk == Walk::Regulator) {
      startNode = model.pdt[startPipe].FROM_NODE;
    } else if (FILE* file = output_.file(kTraceVlv)) {
      WriteTraceElem(file, startPipe);
    }
  }
  if (control_.startKind == kStartPipe || control_.startKind == kStartElement) trace(startPipe, false);
  const bool byValves = rule_.type == 3 || rule_.type == 5 || rule_.type == 20;
  return byValves ? isolationStart(startNode, startPipe) : startNode;
}

int32_t SystemTrace::run(int32_t startNode, int32_t stopNode, int32_t startPipe) {
  if (!graph_.allocateStarts(std::max(nodeTop(), 0))) return -1;
  if (!output_.open(control_)) return -2;
  if (!allocate()) return -6;
  queue(begin(startNode, startPipe));
  if (isNode(stopNode)) nodeVisited_[static_cast<size_t>(stopNode)] = 1;
  walk();
  if (rule_.walk == Walk::Flow && stopNode != 0) routeBack(stopNode);
  if (!output_.finish(control_)) return -2;
  if (list_) list_[0] = listed_;
  return count_;
}

}  // namespace
}  // namespace pn10

using namespace pn10;

int32_t CalcSystemTrace(int32_t startNode, int32_t stopNode, int32_t startPipe, int16_t mode, int32_t* pipes,
                        int16_t keepColor) {
  TraceControl control;
  if (const int32_t failure = readTraceControl(mode, &control)) return failure;
  SystemTrace trace(control, mode == 0 ? nullptr : pipes, keepColor != 0);
  return trace.run(startNode, stopNode, startPipe);
}
