/** The literal trace, walk by walk. */
#include "network/trace_literal.h"

#include <cmath>

#include "model/tables.h"

namespace pn10::test {

void LiteralTrace::copyTables() {
  ndt.assign(model.ndt, model.ndt + model.nodeCount + 1);
  pdt.assign(model.pdt, model.pdt + model.pipeCount + 1);
  pxy.assign(model.pxy, model.pxy + model.pipeCount + 1);
  cdt.assign(model.cdt, model.cdt + model.custCount + 1);
  cxy.assign(model.cxy, model.cxy + model.custCount + 1);
}

void LiteralTrace::color1(int32_t& recordColor, int32_t& traceColor) {
  if (traceColor != 0 && traceColor != m) {
    const int32_t other = traceColor - 1;
    const int red = ((color & 0xFF) + (other & 0xFF)) / 2;
    const int green = ((color >> 8 & 0xFF) + (other >> 8 & 0xFF)) / 2;
    const int blue = ((color >> 16 & 0xFF) + (other >> 16 & 0xFF)) / 2;
    recordColor = red + green * 256 + blue * 65536;
  } else {
    recordColor = color;
    traceColor = color + 1;
  }
}

void LiteralTrace::colorPipe(int32_t p) {
  const auto i = static_cast<size_t>(p);
  if (pdt[i].STATUS == 0) color1(pxy[i].Color, pxy[i].TraceColor);
}

void LiteralTrace::countAndMark(int32_t p) {
  count++;
  const int32_t earlier = pxy[static_cast<size_t>(p)].TraceColor;
  if (count == 1 && earlier != 0) m = keep ? color : earlier;
}

void LiteralTrace::enqueue(int32_t n) {
  if (n < 1 || n > nodes) return;
  const auto i = static_cast<size_t>(n);
  if (nodeVisited[i] || nodeQueued[i]) return;
  nodeQueued[i] = 1;
  queue.push_back(n);
}

std::string LiteralTrace::name(int32_t n) {
  if (n < 0 || n > nodes) return "";
  std::string text = ndt[static_cast<size_t>(n)].NODENAME;
  while (!text.empty() && text.back() == ' ') text.pop_back();
  std::strcpy(ndt[static_cast<size_t>(n)].NODENAME, text.c_str());
  return text;
}

std::string LiteralTrace::elementLine(int32_t p) {
  const Pdt& pipe = pdt[static_cast<size_t>(p)];
  const char* what = nullptr;
  if (pipe.STATUS) {
    what = "Turned Off Element";
  } else if (pipe.HYD_TYPE == 1) {
    what = "Regulator";
  } else if (pipe.HYD_TYPE == 2) {
    what = "Compressor";
  } else if (pipe.HYD_TYPE == 3) {
    what = "Valve";
  }
  if (!what) return "";
  return std::string(what) + " - ID: " + std::to_string(pipe.ID) + "   From: " + name(pipe.FROM_NODE) +
         "   To: " + name(pipe.TO_NODE) + "\n";
}

void LiteralTrace::found(int32_t p, bool onlyRegulators) {
  const Pdt& pipe = pdt[static_cast<size_t>(p)];
  sumPipes++;
  sumCust += pipe.CUST_COUNT;
  if (pipe.HYD_TYPE == 1 || (!onlyRegulators && (pipe.HYD_TYPE == 2 || pipe.HYD_TYPE == 3))) sumDevices++;
  if (pipe.STATUS) sumOff++;
  if (pip) files["trace.pip"] += std::to_string(p) + "\n";
  if (cst || (customers && color >= 0)) {
    int32_t n = 0;
    for (size_t c = 1; c < cdt.size(); c++) {
      if (cdt[c].REC_STATUS == -1 || cdt[c].PIPE_REC != p) continue;
      if (customers && color >= 0) color1(cxy[c].Color, cxy[c].TraceColor);
      if (cst) files["trace.cst"] += std::to_string(c) + "\n";
      n++;
      if (n == pipe.CUST_COUNT) break;
    }
    if (cst && pipe.CUST_COUNT != 0) files["trace.cst"] += "0\n";
  }
  if (vlv) files["trace.vlv"] += elementLine(p);
}

int32_t LiteralTrace::run(int32_t startNode, int32_t stopNode, int32_t startPipe) {
  nodes = static_cast<int32_t>(ndt.size()) - 1;
  pipes = static_cast<int32_t>(pdt.size()) - 1;
  bool withFlow = false, largestOnly = false;
  int t = type;
  if (t == 6) withFlow = true, largestOnly = true, t = 1;
  if (t == 1) withFlow = true;
  if (t == 7 || t == 8) largestOnly = true;

  const auto table = static_cast<size_t>(7 * (nodes + 1));
  adjPipe.assign(table, 0);
  adjFar.assign(table, 0);
  adjCount.assign(static_cast<size_t>(nodes + 1), 0);
  const auto enter = [&](int32_t n, int32_t p, int32_t far) {
    if (n < 1 || n > nodes || adjCount[static_cast<size_t>(n)] == 6) return;
    const int32_t i = ++adjCount[static_cast<size_t>(n)];
    adjPipe[static_cast<size_t>(slot(i, n))] = p;
    adjFar[static_cast<size_t>(slot(i, n))] = far;
  };
  for (int32_t p = 1; p <= pipes; p++) {
    const Pdt& pipe = pdt[static_cast<size_t>(p)];
    enter(pipe.FROM_NODE, p, pipe.TO_NODE);
    enter(pipe.TO_NODE, p, pipe.FROM_NODE);
  }
  if (!fileMode || !writeFiles) pip = cst = vlv = sum = reg = false;
  if (pip) files["trace.pip"] = "";
  if (cst) files["trace.cst"] = "";
  if (vlv) files["trace.vlv"] = "";
  if (reg) files["trace.reg"] = "";
  nodeVisited.assign(static_cast<size_t>(nodes + 1), 0);
  nodeQueued = nodeVisited;
  pipeVisited.assign(static_cast<size_t>(pipes + 1), 0);
  pipeMarked = pipeVisited;
  queue.clear();
  count = 0;
  bool pass = false;
  const bool pipeGiven = startPipe >= 1 && startPipe <= pipes;
  const Pdt start = pipeGiven ? pdt[static_cast<size_t>(startPipe)] : Pdt{};
  const auto hydType = [&](int32_t n) { return n >= 0 && n <= nodes ? ndt[static_cast<size_t>(n)].HYD_TYPE : 0; };

  if (pipeGiven && startKind == 10) {
    count = 1;
    if (t == 3 || t == 5 || t == 20 || t == 21) {
      startNode = start.FROM_NODE;
    } else if (vlv) {
      files["trace.vlv"] += elementLine(startPipe);
    }
  }
  if (pipeGiven && (startKind == 9 || startKind == 10)) {
    countAndMark(startPipe);
    if (color >= 0) colorPipe(startPipe);
    if (!fileMode) list.push_back(startPipe);
  }
  if (pipeGiven && (t == 3 || t == 20)) {
    const bool from = hydType(start.FROM_NODE) == 1 || hydType(start.FROM_NODE) == 2;
    const bool to = hydType(start.TO_NODE) == 1 || hydType(start.TO_NODE) == 2;
    if (from && to) pass = true;
    if (from && !to) startNode = start.TO_NODE;
    if (!from && to) startNode = start.FROM_NODE;
  }
  if (pipeGiven && t == 5) {
    const bool from = hydType(start.FROM_NODE) == 2, to = hydType(start.TO_NODE) == 2;
    if (from && to) {
      pass = true;
      if (startNode >= 1 && startNode <= nodes) {
        adjCount[static_cast<size_t>(startNode)] = 1;
        adjPipe[static_cast<size_t>(slot(1, startNode))] = startPipe;
        adjFar[static_cast<size_t>(slot(1, startNode))] =
            start.FROM_NODE == startNode ? start.TO_NODE : start.FROM_NODE;
      }
    }
    if (from && !to) startNode = start.TO_NODE;
    if (!from && to) startNode = start.FROM_NODE;
  }
  enqueue(startNode);
  if (stopNode >= 1 && stopNode <= nodes) nodeVisited[static_cast<size_t>(stopNode)] = 1;

  const bool flowWalk = t == 0 || t == 1 || t == 4 || t == 7 || t == 8;
  const bool known = flowWalk || t == 2 || t == 3 || t == 5 || t == 20 || t == 21;
  bool ended = !known;
  for (size_t q = 0; q < queue.size() && !ended; q++) {
    const int32_t n = queue[q];
    if (nodeVisited[static_cast<size_t>(n)]) continue;
    nodeVisited[static_cast<size_t>(n)] = 1;
    if (ndt[static_cast<size_t>(n)].HYD_STATUS) continue;
    if (t == 3 || t == 5) {
      const int h = hydType(n);
      if (t == 3 ? h == 1 || h == 2 : h == 2) {
        sumDevices++;
        if (vlv)
          files["trace.vlv"] += "Valve Node - Node Number: " + std::to_string(n) +
                                "   Valve Number: " + ndt[static_cast<size_t>(n)].NODENAME + "\n";
        if (!pass) continue;
        pass = false;
      }
    }
    std::vector<int32_t> candidates;  // places in the adjacency
    double bestSize = 0;
    for (int32_t i = 1; i <= adjCount[static_cast<size_t>(n)]; i++) {
      const int32_t p = adjPipe[static_cast<size_t>(slot(i, n))], far = adjFar[static_cast<size_t>(slot(i, n))];
      const Pdt& pipe = pdt[static_cast<size_t>(p)];
      int& visited = pipeVisited[static_cast<size_t>(p)];
      if (visited) continue;
      const bool deleted = pipe.REC_STATUS < 0, off = pipe.STATUS != 0,
                 report = pxy[static_cast<size_t>(p)].Report != 0;
      if (flowWalk) {
        if (deleted || off) {
          visited = 1;
          continue;
        }
        const double v = pipe.FROM_NODE == n ? pipe.FLOW : -pipe.FLOW;
        if (withFlow ? v <= 0 : v >= 0) continue;
        if (largestOnly) {
          const double size = std::fabs(static_cast<double>(pipe.Q_FACTOR) * static_cast<double>(pipe.FLOW));
          if (size > bestSize) bestSize = size, candidates = {i};
        } else {
          candidates.push_back(i);
        }
      } else if (t == 2) {
        if (!deleted && !off && report) {
          countAndMark(p);
          if (color >= 0) colorPipe(p);
          if (!fileMode) list.push_back(p);
          enqueue(far);
          found(p, false);
        }
        visited = 1;
      } else {
        if (deleted || !report) {
          visited = 1;
          continue;
        }
        if (t == 21 && !off && pipe.FACILITY != start.FACILITY) break;
        const bool crosses = t == 21   ? !off
                             : t == 20 ? !off && pipe.HYD_TYPE != 1
                                       : !off && pipe.HYD_TYPE != 1 && pipe.HYD_TYPE != 2 && pipe.HYD_TYPE != 3;
        if (crosses) {
          countAndMark(p);
          if (color >= 0) colorPipe(p);
          if (!fileMode) list.push_back(p);
          enqueue(far);
        }
        if (reg && (t == 20 || t == 21) && pipe.HYD_TYPE == 1) {
          if (off) {
            files["trace.reg"] += elementLine(p);
          } else if (n == pipe.TO_NODE) {
            std::string line = elementLine(p);
            line.pop_back();
            std::string units = pipe.L_UNITS;
            while (!units.empty() && units.back() == ' ') units.pop_back();
            char set[64];
            std::snprintf(set, sizeof set, "%f", static_cast<double>(pipe.LENGTH));
            files["trace.reg"] += line + "   Set P = " + set + " " + units + "\n";
          }
        }
        found(p, t == 20 || t == 21);
        visited = 1;
      }
    }
    for (int32_t i : candidates) {
      const int32_t p = adjPipe[static_cast<size_t>(slot(i, n))], far = adjFar[static_cast<size_t>(slot(i, n))];
      countAndMark(p);
      pipeMarked[static_cast<size_t>(p)] = 1;
      colorPipe(p);
      if (!fileMode) list.push_back(p);
      enqueue(far);
      if (!pipeVisited[static_cast<size_t>(p)]) found(p, false);
      pipeVisited[static_cast<size_t>(p)] = 1;
      const int h = pdt[static_cast<size_t>(p)].HYD_TYPE;
      if (t == 8 && (h == 1 || h == 2)) ended = true;
    }
  }

  if (flowWalk && stopNode != 0) {
    nodeVisited.assign(nodeVisited.size(), 0);
    nodeQueued = nodeVisited;
    pipeVisited.assign(pipeVisited.size(), 0);
    queue.clear();
    enqueue(stopNode);
    for (size_t q = 0; q < queue.size(); q++) {
      const int32_t n = queue[q];
      int32_t best = 0;
      double most = 0;
      for (int32_t i = 1; i <= adjCount[static_cast<size_t>(n)]; i++) {
        const int32_t p = adjPipe[static_cast<size_t>(slot(i, n))];
        const Pdt& pipe = pdt[static_cast<size_t>(p)];
        const double v = pipe.FROM_NODE == n ? pipe.FLOW : -pipe.FLOW;
        if (!pipeMarked[static_cast<size_t>(p)] || pipeVisited[static_cast<size_t>(p)]) continue;
        if (withFlow ? v > 0 : v < 0) continue;
        pipeVisited[static_cast<size_t>(p)] = 1;
        if (std::fabs(static_cast<double>(pipe.FLOW)) > most)
          most = std::fabs(static_cast<double>(pipe.FLOW)), best = i;
      }
      if (!best) continue;
      const int32_t p = adjPipe[static_cast<size_t>(slot(best, n))];
      pipeMarked[static_cast<size_t>(p)] = 2;
      if (!fileMode) list.push_back(p);
      enqueue(adjFar[static_cast<size_t>(slot(best, n))]);
    }
  }
  if (sum) {
    files["trace.sum"] = "Pipes Found: " + std::to_string(sumPipes) + "\nCustomers Found: " + std::to_string(sumCust) +
                         "\nControl Devices Found: " + std::to_string(sumDevices) +
                         "\nTurned 'Off' Elements: " + std::to_string(sumOff) + "\n";
  }
  if (!fileMode) list[0] = static_cast<int32_t>(list.size()) - 1;
  return count;
}

}  // namespace pn10::test
