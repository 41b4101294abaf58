/** Rows of pipes per node and of customers per pipe, made by counting and filling. */
#include "network/trace_graph.h"

namespace pn10 {

bool TraceGraph::allocateStarts(int32_t nodeCount) { return starts_.allocate(static_cast<size_t>(nodeCount) + 2); }

bool TraceGraph::build() {
  const int32_t pipes = pipeTop();
  // starts_[n + 1] holds the count of node n while counting, its row start while filling.
  const auto slot = [&](int32_t node) -> int32_t& { return starts_[static_cast<size_t>(node) + 1]; };
  const auto count = [&](int32_t node) {
    if (isNode(node) && slot(node) < kMostPipes) slot(node)++;
  };
  for (int32_t p = 1; p <= pipes; p++) {
    count(model.pdt[p].FROM_NODE);
    count(model.pdt[p].TO_NODE);
  }
  int32_t total = 0;
  for (size_t i = 0; i < starts_.size(); i++) {
    const int32_t here = starts_[i];
    starts_[i] = total;
    total += here;
  }
  if (!edges_.allocate(static_cast<size_t>(total))) return false;
  // A row is full where the next one starts; the last slot of starts_ is free for the end of the last row.
  Buffer<uint8_t> entered;
  if (!entered.allocate(starts_.size())) return false;
  const auto enter = [&](int32_t node, int32_t pipe, int32_t farNode) {
    if (!isNode(node)) return;
    uint8_t& used = entered[static_cast<size_t>(node)];
    if (used < kMostPipes) edges_[static_cast<size_t>(slot(node) + used++)] = {pipe, farNode};
  };
  for (int32_t p = 1; p <= pipes; p++) {
    const Pdt& pipe = model.pdt[p];
    enter(pipe.FROM_NODE, p, pipe.TO_NODE);
    enter(pipe.TO_NODE, p, pipe.FROM_NODE);
  }
  for (size_t i = 0; i + 1 < starts_.size(); i++) starts_[i] = starts_[i + 1];
  starts_[starts_.size() - 1] = total;
  return true;
}

TraceEdges TraceGraph::at(int32_t node) const {
  if (node == replacedNode_) return {&replacement_, &replacement_ + 1};
  const auto row = static_cast<size_t>(node);
  return {edges_.data() + starts_[row], edges_.data() + starts_[row + 1]};
}

void TraceGraph::replace(int32_t node, TraceEdge edge) {
  replacedNode_ = node;
  replacement_ = edge;
}

bool PipeCustomers::build() {
  const int32_t pipes = pipeTop(), customers = custTop();
  if (!starts_.allocate(static_cast<size_t>(pipes < 0 ? 0 : pipes) + 2)) return false;
  const auto isListed = [](const Cdt& cust) { return cust.REC_STATUS != -1 && isPipe(cust.PIPE_REC); };
  int32_t listed = 0;
  for (int32_t c = 1; c <= customers; c++) {
    if (!isListed(model.cdt[c])) continue;
    starts_[static_cast<size_t>(model.cdt[c].PIPE_REC) + 1]++;
    listed++;
  }
  for (size_t i = 1; i < starts_.size(); i++) starts_[i] += starts_[i - 1];
  if (!customers_.allocate(static_cast<size_t>(listed))) return false;
  // Filled from the back, so that each row ends in record order and its start stands where it must.
  for (int32_t c = customers; c >= 1; c--) {
    if (!isListed(model.cdt[c])) continue;
    int32_t& end = starts_[static_cast<size_t>(model.cdt[c].PIPE_REC) + 1];
    customers_[static_cast<size_t>(--end)] = c;
  }
  // Every slot p + 1 now holds the start of row p: shift them down by one.
  for (size_t i = 0; i + 1 < starts_.size(); i++) starts_[i] = starts_[i + 1];
  starts_[starts_.size() - 1] = listed;
  return true;
}

}  // namespace pn10
