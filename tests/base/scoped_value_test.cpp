#include "base/scoped_value.h"

#include <gtest/gtest.h>

namespace zentaline {
namespace {

TEST(ScopedValue, LastsAsLongAsItsScopeAndGivesBackWhatWasThere) {
  bool guard = false;
  {
    const ScopedValue outer(guard, true);
    {
      const ScopedValue inner(guard, true);
      EXPECT_TRUE(guard);
    }
    EXPECT_TRUE(guard) << "whoever put up the guard before takes it down";
  }
  EXPECT_FALSE(guard);
}

}  // namespace
}  // namespace zentaline
