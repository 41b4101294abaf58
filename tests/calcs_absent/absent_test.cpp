// A process in which the calculation library is nowhere to be found.
#include <gtest/gtest.h>

#include "lookup/calc_library.h"
#include "support/support.h"

namespace pn10::test {
namespace {

TEST(SetHQDll, without_the_library_nothing_is_bound_and_nobody_is_told) {
  Fresh fresh;
  SetHQDll();
  EXPECT_EQ(calcLibrary.handle, nullptr);
  EXPECT_EQ(calcLibrary.calcReg, nullptr);
  EXPECT_EQ(calcLibrary.calcComp, nullptr);
  EXPECT_EQ(calcLibrary.calcPave, nullptr);
  EXPECT_EQ(CalcPave(10, 20), 0.0f);
  EXPECT_EQ(messages(), "");
  FreeHQDll();
}

}  // namespace
}  // namespace pn10::test
