/** The wrapped allocator and fopen: counts down to the failure asked for, and keeps the book. */
#include "faults.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <new>

namespace {
int allocationsLeft, openingsLeft;
size_t inUse, peak;

/** The book's own nodes come from operator new, which is not wrapped. It outlives all that allocates at exit. */
std::map<void*, size_t>& book() {
  static auto* const blocks = new std::map<void*, size_t>;
  return *blocks;
}

bool failsNow(int& left) { return left > 0 && --left == 0; }

void* entered(void* block, size_t size) {
  if (!block) return nullptr;
  book()[block] = size;
  inUse += size;
  peak = std::max(peak, inUse);
  return block;
}

void struck(void* block) {
  const auto found = book().find(block);
  if (found == book().end()) return;
  inUse -= found->second;
  book().erase(found);
}
}  // namespace

extern "C" {
void* __real_malloc(size_t size);
void* __real_calloc(size_t count, size_t size);
void* __real_realloc(void* block, size_t size);
void __real_free(void* block);
FILE* __real_fopen(const char* path, const char* mode);
void* __real__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t& none);

void* __wrap_malloc(size_t size) { return failsNow(allocationsLeft) ? nullptr : entered(__real_malloc(size), size); }
void* __wrap_calloc(size_t count, size_t size) {
  return failsNow(allocationsLeft) ? nullptr : entered(__real_calloc(count, size), count * size);
}
void* __wrap_realloc(void* block, size_t size) {
  if (failsNow(allocationsLeft)) return nullptr;
  struck(block);
  return entered(__real_realloc(block, size), size);
}
void __wrap_free(void* block) {
  struck(block);
  __real_free(block);
}
/** Objects of the painting context; PnGetObjectCount keeps their book. */
void* __wrap__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t& none) {
  return failsNow(allocationsLeft) ? nullptr : __real__ZnwmRKSt9nothrow_t(size, none);
}
FILE* __wrap_fopen(const char* path, const char* mode) {
  return failsNow(openingsLeft) ? nullptr : __real_fopen(path, mode);
}
}

namespace pn10::test {
void failAllocation(int n) { allocationsLeft = n; }
bool failureWaits() { return allocationsLeft > 0; }
void failOpening(int n) { openingsLeft = n; }
size_t liveBlocks() { return book().size(); }
size_t liveBytes() { return inUse; }
size_t peakBytes() { return peak; }
void resetPeak() { peak = inUse; }
}  // namespace pn10::test
