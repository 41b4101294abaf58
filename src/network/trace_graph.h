/** What a trace walks on, made for one call: the pipes at each node, and the customers of each pipe. */
#ifndef PN10_NETWORK_TRACE_GRAPH_H
#define PN10_NETWORK_TRACE_GRAPH_H

#include "model/tables.h"
#include "platform/memory.h"

namespace pn10 {

/** One pipe at a node, and the node at its far end. */
struct TraceEdge {
  int32_t pipe, farNode;
};

struct TraceEdges {
  const TraceEdge *first, *last;
  const TraceEdge* begin() const { return first; }
  const TraceEdge* end() const { return last; }
};

/**
 * The pipes at each node in compressed rows, in record order, deleted and off pipes among them.
 *
 * A node keeps at most six: a further pipe is not entered at that end, so that a trace can't leave the node through
 * it. An end that is no node is left out.
 */
class TraceGraph {
 public:
  static constexpr int32_t kMostPipes = 6;

  /** False when there is no memory: for the row starts (`startsOnly`), or for the rows. */
  bool allocateStarts(int32_t nodeCount);
  bool build();
  TraceEdges at(int32_t node) const;
  /** From now on `node` has this one pipe alone. */
  void replace(int32_t node, TraceEdge edge);

 private:
  Buffer<int32_t> starts_;
  Buffer<TraceEdge> edges_;
  int32_t replacedNode_ = 0;
  TraceEdge replacement_ = {};
};

/** The live customers of each pipe, in record order. */
class PipeCustomers {
 public:
  bool build();
  /** Customers of `pipe`: the records from begin to end. */
  const int32_t* begin(int32_t pipe) const { return customers_.data() + starts_[static_cast<size_t>(pipe)]; }
  const int32_t* end(int32_t pipe) const { return customers_.data() + starts_[static_cast<size_t>(pipe) + 1]; }

 private:
  Buffer<int32_t> starts_;
  Buffer<int32_t> customers_;
};

}  // namespace pn10

#endif
