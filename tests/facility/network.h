/** Small networks made in the tables, and facility rows made by number. */
#ifndef PN10_TESTS_FACILITY_NETWORK_H
#define PN10_TESTS_FACILITY_NETWORK_H

#include <utility>
#include <vector>

#include "facility/facility.h"
#include "model/draw_state.h"
#include "model/tables.h"
#include "support/model_builder.h"

namespace pn10::test {

/** Pipes between these nodes. */
inline void makeNetwork(int32_t nodes, const std::vector<std::pair<int32_t, int32_t>>& pipes) {
  makeEmptyTables(nodes, static_cast<int32_t>(pipes.size()));
  for (size_t i = 0; i < pipes.size(); i++) {
    model.pdt[i + 1].FROM_NODE = pipes[i].first;
    model.pdt[i + 1].TO_NODE = pipes[i].second;
  }
}

/** A facility table with rows of these numbers; the row itself for what is to be set. */
inline Fac* makeFacilities(const std::vector<int32_t>& numbers) {
  ReallocFac(static_cast<int32_t>(numbers.size()));
  for (size_t i = 0; i < numbers.size(); i++) {
    SetFacVal(static_cast<int32_t>(i) + 1, 2, nullptr, numbers[i]);
  }
  return facilities.rows;
}

inline void setFlags(PXY& pipe, int16_t display, int16_t report, int16_t aux, int16_t active) {
  pipe.Display = static_cast<uint8_t>(display);
  pipe.Report = report;
  pipe.Aux = aux;
  pipe.Active = active;
}

/** Display, Report, Aux, Active. */
inline std::vector<int> flagsOf(const NXY& node) { return {node.Display, node.Report, node.Aux, node.Active}; }
inline std::vector<int> flagsOf(const PXY& pipe) { return {pipe.Display, pipe.Report, pipe.Aux, pipe.Active}; }

}  // namespace pn10::test

#endif
