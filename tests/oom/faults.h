/** Allocations and openings that fail on demand, and a book of what is allocated. */
#ifndef PN10_TESTS_FAULTS_H
#define PN10_TESTS_FAULTS_H

#include <cstddef>

namespace pn10::test {

/** Lets the n-th allocation from now on fail, once; 0 lets none fail. */
void failAllocation(int n);
/** Whether the failure asked for is still to come. */
bool failureWaits();
/** Lets the n-th opening of a file from now on fail, once; 0 lets none fail. */
void failOpening(int n);
/** Blocks in use, bytes in use, and the most bytes in use since the last call of resetPeak. */
size_t liveBlocks();
size_t liveBytes();
size_t peakBytes();
void resetPeak();

}  // namespace pn10::test

#endif
