/** Colours, marks, files and summary of a trace. */
#include "network/trace_output.h"

#include "fields/number_text.h"

namespace pn10 {
namespace {

constexpr const char* kFileNames[kTraceFiles] = {"trace.pip", "trace.cst", "trace.vlv", "trace.sum", "trace.reg"};

/** "trace.sum" is made at the very end. */
constexpr TraceFile kOpenedFirst[] = {kTracePip, kTraceCst, kTraceVlv, kTraceReg};

bool create(File& file, TraceFile which) { return file.open(DataPath(kFileNames[which]).get(), "w"); }

void mark(int32_t& color, int32_t& traceColor, int32_t newColor, int32_t ownMark) {
  const auto plusOne = [](int32_t c) { return static_cast<int32_t>(static_cast<uint32_t>(c) + 1u); };
  const auto lessOne = [](int32_t c) { return static_cast<int32_t>(static_cast<uint32_t>(c) - 1u); };
  if (traceColor != 0 && traceColor != ownMark) {
    color = BlendColor(newColor, lessOne(traceColor));
  } else {
    color = newColor;
    traceColor = plusOne(newColor);
  }
}

/** The trimmed name of a node. The trim is done in the table itself. */
const char* trimmedName(int32_t node) {
  if (!hasNodeSlot(node)) return "";
  TrimRight(model.ndt[node].NODENAME);
  return model.ndt[node].NODENAME;
}

void writeLine(FILE* file, const char* what, const Pdt& pipe, const char* more = "") {
  const char* from = trimmedName(pipe.FROM_NODE);
  const char* to = trimmedName(pipe.TO_NODE);
  std::fprintf(file, "%s - ID: %i   From: %s   To: %s%s\n", what, pipe.ID, from, to, more);
}

constexpr const char* kOff = "Turned Off Element";
constexpr const char* kDeviceNames[] = {nullptr, "Regulator", "Compressor", "Valve"};

}  // namespace

void SetTraceColor(int32_t record, int16_t kind, int32_t color, int32_t mark_) {
  if (kind == kColorPipe) {
    if (!hasPxySlot(record) || !hasPipeSlot(record) || model.pdt[record].STATUS != 0) return;
    mark(model.pxy[record].Color, model.pxy[record].TraceColor, color, mark_);
  } else if (kind == kColorCust && hasCxySlot(record)) {
    mark(model.cxy[record].Color, model.cxy[record].TraceColor, color, mark_);
  }
}

int32_t BlendColor(int32_t colorA, int32_t colorB) {
  uint32_t blend = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const uint32_t a = static_cast<uint32_t>(colorA) >> shift & 0xFF, b = static_cast<uint32_t>(colorB) >> shift & 0xFF;
    blend |= (a + b) / 2 << shift;
  }
  return static_cast<int32_t>(blend);
}

void WriteTraceElem(FILE* vlvFile, int32_t pipe) {
  const Pdt& element = model.pdt[pipe];
  if (element.STATUS != 0) {
    writeLine(vlvFile, kOff, element);
  } else if (element.HYD_TYPE >= 1 && element.HYD_TYPE <= 3) {
    writeLine(vlvFile, kDeviceNames[element.HYD_TYPE], element);
  }
}

void WriteTraceReg(FILE* regFile, int32_t pipe, int32_t expandedNode) {
  const Pdt& element = model.pdt[pipe];
  if (element.HYD_TYPE != 1) return;
  if (element.STATUS != 0) {
    writeLine(regFile, kOff, element);
  } else if (expandedNode == element.TO_NODE) {
    char set[kNumberSize], units[sizeof element.L_UNITS], more[sizeof set + sizeof units + 16];
    printFixed(set, sizeof set, element.LENGTH);
    copyText(units, element.L_UNITS);
    TrimRight(units);
    std::snprintf(more, sizeof more, "   Set P = %s %s", set, units);
    writeLine(regFile, kDeviceNames[1], element, more);
  }
}

bool TraceOutput::open(const TraceControl& control) {
  for (TraceFile which : kOpenedFirst) {
    if (control.selected[which] && !create(files_[which], which)) return false;
  }
  return true;
}

bool TraceOutput::finish(const TraceControl& control) {
  bool written = true;
  for (File& file : files_) {
    if (file && !file.close()) written = false;
  }
  if (!control.selected[kTraceSum]) return written;
  File& sum = files_[kTraceSum];
  if (!create(sum, kTraceSum)) return false;
  std::fprintf(sum.get(),
               "Pipes Found: %i\nCustomers Found: %i\nControl Devices Found: %i\nTurned 'Off' Elements: %i\n",
               summary.pipes, summary.customers, summary.devices, summary.off);
  return sum.close() && written;
}

}  // namespace pn10
