/** Large pages under large tables. */
#ifndef PN10_PLATFORM_PAGES_H
#define PN10_PLATFORM_PAGES_H

#include <cstddef>

namespace pn10 {

/**
 * Asks for large pages under a fresh block, where the system gives them on demand. Walks over a model touch a new
 * page every few records, and finding it costs more than reading it. A hint: nothing depends on it.
 */
void adviseLargePages(void* block, size_t size);

}  // namespace pn10

#endif
