#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/dataset/fault.h"
#include "workbench/base/errors.h"
#include "workbench/dataset/dictionary.h"
#include "workbench/dataset/row_account.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kMissing = kSystemMissing;

Dataset makeDataset(const std::vector<std::vector<double>>& columns) {
  Dataset dataset;
  for (const std::vector<double>& numbers : columns) {
    Column& column = dataset.columns.emplace_back();
    column.name = "Var" + std::to_string(dataset.columns.size());
    column.numbers = numbers;
  }
  dataset.rowCount = columns.front().size();
  return dataset;
}

TEST(RowAccount, CountsDroppedCasesAndFindsGaps) {
  const struct {
    const char* what;
    std::vector<double> first, second;
    std::int64_t used;
    std::vector<std::int64_t> missing, firstDropped;
    bool gapInside;
  } cases[] = {
      {"ragged start and end", {kMissing, 2, 3, 4}, {1, 2, 3, kMissing}, 2, {1, 1}, {0, 3}, false},
      {"inside", {1, kMissing, 3}, {1, kMissing, 3}, 2, {1, 1}, {1}, true},
      {"nothing left", {kMissing, 1}, {1, kMissing}, 0, {1, 1}, {0, 1}, false},
      {"only three named", {kMissing, kMissing, 1, kMissing, kMissing}, {1, 1, 1, 1, 1}, 1, {4, 0}, {0, 1, 3}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const RowAccount account = accountRows(makeDataset({c.first, c.second}), std::vector<int>{0, 1}, true);
    EXPECT_EQ(account.read, std::ssize(c.first));
    EXPECT_EQ(account.used, c.used);
    EXPECT_EQ(account.dropped, account.read - c.used);
    EXPECT_EQ(account.missing, c.missing);
    EXPECT_EQ(account.firstDropped, c.firstDropped);
    EXPECT_EQ(account.gapInside, c.gapInside);
  }
}

TEST(RowAccount, UserMissingValuesCountOnlyWhenExcluded) {
  Dataset dataset = makeDataset({{1, -9, 3}, {1, 2, kMissing}});
  dataset.columns[0].userMissing = {-9};
  EXPECT_EQ(accountRows(dataset, std::vector<int>{0}, true).used, 2);
  EXPECT_EQ(accountRows(dataset, std::vector<int>{0}, false).used, 3);
}

TEST(Dictionary, EntriesAreAppliedByNameInEitherCase) {
  Dataset dataset = makeDataset({{1}, {2}});
  const DictionaryEntry entries[] = {
      {"VAR1", "Inflation", MeasurementLevel::ordinal, {-9, -8}},
      {"var2", std::nullopt, std::nullopt, {}},
  };
  applyDictionary(dataset, entries);
  EXPECT_EQ(dataset.columns[0].label, "Inflation");
  EXPECT_EQ(dataset.columns[0].level, MeasurementLevel::ordinal);
  EXPECT_THAT(dataset.columns[0].userMissing, ElementsAre(-9, -8));
  EXPECT_EQ(dataset.columns[1].level, MeasurementLevel::scale);
}

TEST(Dictionary, MistakesNameTheEntry) {
  Dataset dataset = makeDataset({{1}, {}});
  dataset.columns[1].kind = ColumnKind::text;
  const auto failure = [&](const DictionaryEntry& entry) {
    return faultOf<UsageError>([&] { applyDictionary(dataset, {&entry, 1}); });
  };
  EXPECT_THAT(failure({"vra1", {}, {}, {}}), AllOf(HasSubstr("[variables.vra1]"), HasSubstr("\"Var1\"")));
  EXPECT_THAT(failure({"var2", {}, {}, {1}}), AllOf(HasSubstr("Var2"), HasSubstr("not numeric")));
}

}  // namespace
}  // namespace workbench
