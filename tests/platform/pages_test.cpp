/** The hint of large pages under tables: a table stays one mapping, so that growing it moves pages and copies none. */
#include "platform/pages.h"

#include <cinttypes>
#include <cstdlib>
#include <fstream>

#include "support/model_builder.h"

namespace pn10::test {
namespace {

/** The mappings of this process that hold a byte of a block; 0 where the system does not tell them. */
int mappingsUnder(const void* block, size_t size) {
  const auto first = reinterpret_cast<uintptr_t>(block), end = first + size;
  std::ifstream maps("/proc/self/maps");
  int count = 0;
  for (std::string line; std::getline(maps, line);) {
    uintptr_t from = 0, to = 0;
    if (std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR, &from, &to) == 2 && from < end && to > first) count++;
  }
  return count;
}

TEST(LargePages, a_block_with_the_hint_is_still_one_mapping) {
  for (const size_t size : {size_t{100}, size_t{3000000}, size_t{20000000}, size_t{20000000} + 4096 - 17}) {
    void* const block = std::calloc(1, size);
    const int before = mappingsUnder(block, size);
    adviseLargePages(block, size);
    EXPECT_EQ(mappingsUnder(block, size), before) << size;
    EXPECT_LE(before, 1) << size;
    std::free(block);
  }
  adviseLargePages(nullptr, 5000000);
}

TEST(LargePages, a_table_that_grew_is_one_mapping) {
  Fresh fresh;
  for (const int32_t n : {100000, 100001, 150000, 400000}) {
    ASSERT_EQ(ReallocNdt(n), 1);
    EXPECT_LE(mappingsUnder(model.ndt, (static_cast<size_t>(n) + 1) * sizeof(Ndt)), 1) << n;
  }
}

}  // namespace
}  // namespace pn10::test
