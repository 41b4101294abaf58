/** The process-wide state itself, and the few helpers that every area shares. */
#include "model/tables.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "model/draw_state.h"
#include "model/staging.h"
#include "model/wait_cursor.h"
#include "platform/host_choices.h"
#include "platform/kernel.h"
#include "platform/pages.h"
#include "platform/user.h"

namespace pn10 {

ModelTables model;
Settings settings;
Staging staging;
char messageBuffer[256];

namespace {

const ViewOpts kNoView = {};
const PlotOpts kNoPlot = {};
const UnitOpts kNoUnit = {};

constexpr DrawState initialDrawState() {
  DrawState state{};
  state.Plot = &kNoPlot;
  state.View = &kNoView;
  state.Unit = &kNoUnit;
  state.ReducedScale = 1.0f;
  state.LabelEscapement = -1;
  return state;
}

/** The one slot for the cursor under the wait cursor, and how many guards stand on it. */
HCURSOR oldCursor;
int32_t waitDepth;

/** Slots are counted in int32 as well, so the highest count has none. */
bool fits(int32_t count, size_t recordSize) {
  return count >= 0 && count < INT32_MAX &&
         static_cast<uint64_t>(count) + 1 <= static_cast<uint64_t>(PTRDIFF_MAX) / recordSize;
}

}  // namespace

constinit DrawState drawState = initialDrawState();

void* allocateRecords(int32_t count, size_t recordSize) {
  if (!fits(count, recordSize)) return nullptr;
  const size_t slots = static_cast<size_t>(count) + 1;
  void* block = std::calloc(slots, recordSize);
  adviseLargePages(block, slots * recordSize);
  return block;
}

void* reallocateRecords(void* block, int32_t count, size_t recordSize) {
  if (!fits(count, recordSize)) return nullptr;
  const size_t size = (static_cast<size_t>(count) + 1) * recordSize;
  void* grown = std::realloc(block, size);
  if (grown != block) adviseLargePages(grown, size); /* a block that stays keeps its hint */
  return grown;
}

void freeRecords(void* block) { std::free(block); }

double unknownField(const char* format, int32_t number) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(messageBuffer, sizeof messageBuffer, format, number);
#pragma GCC diagnostic pop
  showMessage(messageBuffer);
  return -1.0;
}

void stampDate(char (&date)[9]) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  char text[32];
  std::snprintf(text, sizeof text, "%04u%02u%02u", now.wYear % 10000u, now.wMonth % 100u, now.wDay % 100u);
  std::memcpy(date, text, 8);
  date[8] = 0;
}

void copyText(char* to, size_t size, const char* text) {
  const size_t length = text ? strnlen(text, size - 1) : 0;
  if (length) std::memmove(to, text, length);
  to[length] = 0;
}

WaitCursor::WaitCursor() {
  if (waitDepth++ == 0) oldCursor = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

WaitCursor::~WaitCursor() {
  if (--waitDepth == 0) SetCursor(oldCursor);
}

}  // namespace pn10
