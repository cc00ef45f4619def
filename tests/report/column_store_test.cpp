#include "workbench/report/column_store.h"

#include <gtest/gtest.h>

#include <limits>

namespace workbench {
namespace {

TEST(ColumnStore, HoldsEqualColumnsOnceAndDoublesInFull) {
  ColumnStore store;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(store.add(std::vector<double>{0.1, nan, 1e300}), 0U);
  EXPECT_EQ(store.add(std::vector<std::string>{"</script>"}), 1U);
  EXPECT_EQ(store.add(std::vector<double>{0.1, nan, 1e300}), 0U);
  EXPECT_EQ(store.json(), "[[0.1,null,1e+300],\n[\"\\u003c/script\\u003e\"]]");
}

}  // namespace
}  // namespace workbench
