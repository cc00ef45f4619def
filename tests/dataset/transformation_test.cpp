#include "workbench/dataset/transformation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/dataset/fault.h"
#include "workbench/base/errors.h"

namespace workbench {
namespace {

using testing::HasSubstr;

constexpr double kNone = kSystemMissing;
constexpr double kRounding = 1e-11;  // of values up to 100

Dataset seriesOf(const std::vector<double>& values) {
  Dataset dataset;
  dataset.rowCount = values.size();
  Column column;
  column.name = "gdp";
  column.numbers = values;
  column.userMissing = {-9};
  dataset.columns.push_back(column);
  return dataset;
}

std::vector<double> transformedBy(const std::string& how, const std::vector<double>& values, int season = 4) {
  Dataset dataset = seriesOf(values);
  const std::vector<Transformation> list{transformationOf("GDP", how)};
  transformVariables(dataset, list, season);
  EXPECT_EQ(dataset.rowCount, values.size());
  return dataset.columns[0].numbers;
}

TEST(Transformation, IsWhatItsNameSays) {
  const std::vector<double> x{1, 2, 4, kNone, 8, -9, 10};
  const double ln2 = std::log(2.0);
  const std::vector<std::pair<std::string, std::vector<double>>> table{
      {"log", {0, ln2, 2 * ln2, kNone, 3 * ln2, kNone, std::log(10.0)}},
      {"diff", {kNone, 1, 2, kNone, kNone, kNone, kNone}},
      {"dlog*100", {kNone, 100 * ln2, 100 * ln2, kNone, kNone, kNone, kNone}},
      {"sdiff*-1", {kNone, kNone, kNone, kNone, -7, kNone, -6}},
      {" pct ", {kNone, 100, 100, kNone, kNone, kNone, kNone}},
      {"pct*0.01", {kNone, 1, 1, kNone, kNone, kNone, kNone}}};
  for (const auto& [how, expected] : table) {
    const std::vector<double> found = transformedBy(how, x);
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_EQ(found[i] == kNone, expected[i] == kNone) << how << " " << i;
      if (expected[i] == kNone) continue;
      EXPECT_NEAR(found[i], expected[i], kRounding) << how << " " << i;
    }
  }
  EXPECT_EQ(transformationOf("x", "dlog*100").text(), "dlog*100");
  EXPECT_EQ(transformationOf("x", "log").text(), "log");
}

TEST(Transformation, WhatCannotBeMeantIsRefused) {
  for (const char* how : {"dloog", "log*", "log*0", "log*x", "", "log*inf"}) {
    EXPECT_THAT(faultOf<UsageError>([&] { transformationOf("x", how); }), HasSubstr("log, diff, dlog, sdiff and pct"));
  }
  EXPECT_THAT(faultOf<DataError>([] { transformedBy("log", {1, -2, 3}); }), HasSubstr("gdp is -2 in row 2"));
  EXPECT_THAT(faultOf<DataError>([] { transformedBy("pct", {1, 0, 3}); }), HasSubstr("growth from zero"));
  EXPECT_THAT(faultOf<UsageError>([] { transformedBy("sdiff", {1, 2}, 0); }), HasSubstr("have seasons"));
  Dataset dataset = seriesOf({1, 2});
  const std::vector<Transformation> twice{transformationOf("gdp", "log"), transformationOf("Gdp", "diff")};
  const std::vector<Transformation> unknown{transformationOf("gdb", "log")};
  EXPECT_THAT(faultOf<UsageError>([&] { transformVariables(dataset, twice, 0); }), HasSubstr("twice"));
  EXPECT_THAT(faultOf<UsageError>([&] { transformVariables(dataset, unknown, 0); }),
              HasSubstr("Did you mean \"gdp\"?"));
  EXPECT_THAT(dataset.columns[0].numbers, testing::ElementsAre(1, 2));
}

}  // namespace
}  // namespace workbench
