/** The hint for large pages, on systems that take one. */
#include "platform/pages.h"

#ifdef __linux__
#include <sys/mman.h>

#include <cerrno>
#include <cstdint>
#endif

namespace pn10 {

#if defined(__linux__) && defined(MADV_HUGEPAGE)

void adviseLargePages(void* block, size_t size) {
  constexpr uintptr_t kLargePage = uintptr_t{1} << 21;
  if (!block || size < 2 * kLargePage) return;
  const uintptr_t first = (reinterpret_cast<uintptr_t>(block) + kLargePage - 1) & ~(kLargePage - 1);
  const uintptr_t end = (reinterpret_cast<uintptr_t>(block) + size) & ~(kLargePage - 1);
  const int hostsErrno = errno;
  if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
  errno = hostsErrno;
}

#else

void adviseLargePages(void*, size_t) {}

#endif

}  // namespace pn10
