/** The hint for large pages, on systems that take one. */
#include "platform/pages.h"

#ifdef __linux__
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#endif

namespace pn10 {

#if defined(__linux__) && defined(MADV_HUGEPAGE)

/**
 * The hint goes to all pages of the block, the first and last in part included: one that stopped short of them would
 * split the mapping under the block, and realloc, which moves one mapping but not three, would copy the table each
 * time it grows by a page.
 */
void adviseLargePages(void* block, size_t size) {
  constexpr uintptr_t kLargePage = uintptr_t{1} << 21;
  if (!block || size < kLargePage) return;
  const int hostsErrno = errno;
  const uintptr_t page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
  const uintptr_t at = reinterpret_cast<uintptr_t>(block);
  const uintptr_t first = at & ~(page - 1);
  const uintptr_t end = (at + malloc_usable_size(block) + page - 1) & ~(page - 1);
  madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
  errno = hostsErrno;
}

#else

void adviseLargePages(void*, size_t) {}

#endif

}  // namespace pn10
