#include "workbench/dataset/suspicious_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace workbench {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<SuspiciousValues> suspicionsOf(const std::vector<double>& values,
                                           const std::vector<double>& declared = {}) {
  Dataset dataset;
  dataset.rowCount = values.size();
  Column column;
  column.name = "x";
  column.numbers = values;
  column.userMissing = declared;
  dataset.columns.push_back(column);
  const int only = 0;
  return suspiciousValues(dataset, {&only, 1});
}

TEST(SuspiciousValues, AreFoundWithTheirRows) {
  struct Case {
    std::vector<double> values;
    Suspicion suspicion;
    double value;
    std::vector<std::size_t> rows;
  };
  for (const Case& one : std::vector<Case>{{{2, 3, -9999, 4, -9999}, Suspicion::fillCode, -9999, {2, 4}},
                                           {{200000, 300000, -99, 400000}, Suspicion::fillCode, -99, {2}},
                                           {{-2, 3, 4, 999, 2}, Suspicion::fillCode, 999, {3}},
                                           {{1e6, 2e6, 1e20}, Suspicion::fillCode, 1e20, {2}},
                                           {{1, kInfinity, 2, -kInfinity}, Suspicion::infinite, kInfinity, {1, 3}},
                                           {{1.2, 1.3, 1400, 1.1, kSystemMissing}, Suspicion::outlier, 1400, {2}},
                                           {{1.2, 1.3, 1.1, 1.5, kSystemMissing, 5.1}, Suspicion::total, 5.1, {5}}}) {
    const auto found = suspicionsOf(one.values);
    ASSERT_EQ(found.size(), 1u) << one.value;
    EXPECT_EQ(found[0].suspicion, one.suspicion) << one.value;
    EXPECT_EQ(found[0].value, one.value);
    EXPECT_EQ(found[0].rows, one.rows) << one.value;
  }
}

TEST(SuspiciousValues, LeavesOrdinarySeriesAlone) {
  for (const std::vector<double>& values :
       std::vector<std::vector<double>>{{-150, -99, 120, 80},  // a code's number within the range of the others
                                        {0.0004, 1.2, 0.0003, -0.9, 1},  // a rate near zero now and then
                                        {990, 995, 999, 1004},
                                        {0, 0, 0, 0},
                                        {1, 2, 4, 8, 16},
                                        {1, 2}}) {
    EXPECT_TRUE(suspicionsOf(values).empty()) << values[0];
  }
  EXPECT_TRUE(suspicionsOf({2, 3, -9999, 4}, {-9999}).empty());
}

}  // namespace
}  // namespace workbench
