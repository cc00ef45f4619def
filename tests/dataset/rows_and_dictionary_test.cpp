#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/dataset/dictionary.h"
#include "workbench/dataset/row_account.h"
#include "workbench/session/errors.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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
      {"complete", {1, 2, 3}, {4, 5, 6}, 3, {0, 0}, {}, false},
      {"ragged start and end", {kMissing, 2, 3, 4}, {1, 2, 3, kMissing}, 2, {1, 1}, {0, 3}, false},
      {"inside", {1, kMissing, 3}, {1, kMissing, 3}, 2, {1, 1}, {1}, true},
      {"nothing left", {kMissing, 1}, {1, kMissing}, 0, {1, 1}, {0, 1}, false},
      {"only three named", {kMissing, kMissing, 1, kMissing, kMissing}, {1, 1, 1, 1, 1}, 1, {4, 0}, {0, 1, 3}, false},
  };
  for (const auto& c : cases) {
    const Dataset dataset = makeDataset({c.first, c.second});
    const RowAccount account = accountRows(dataset, std::vector<int>{0, 1}, true);
    EXPECT_EQ(account.read, static_cast<std::int64_t>(c.first.size())) << c.what;
    EXPECT_EQ(account.used, c.used) << c.what;
    EXPECT_EQ(account.dropped, account.read - c.used) << c.what;
    EXPECT_EQ(account.missing, c.missing) << c.what;
    EXPECT_EQ(account.firstDropped, c.firstDropped) << c.what;
    EXPECT_EQ(account.gapInside, c.gapInside) << c.what;
  }
}

TEST(RowAccount, UserMissingValuesCountOnlyWhenExcluded) {
  Dataset dataset = makeDataset({{1, -9, 3}, {1, 2, kMissing}});
  dataset.columns[0].userMissing = {-9};
  EXPECT_EQ(accountRows(dataset, std::vector<int>{0}, true).used, 2);
  EXPECT_EQ(accountRows(dataset, std::vector<int>{0}, false).used, 3);
  EXPECT_EQ(accountRows(dataset, std::vector<int>{1}, true).used, 2);
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
  EXPECT_THAT(dataset.columns[1].userMissing, IsEmpty());
}

TEST(Dictionary, MistakesNameTheEntry) {
  Dataset dataset = makeDataset({{1}});
  dataset.columns[0].name = "inflation";
  dataset.columns.emplace_back().name = "region";
  dataset.columns[1].kind = ColumnKind::text;
  const auto failure = [&](const DictionaryEntry& entry) -> std::string {
    try {
      applyDictionary(dataset, {&entry, 1});
    } catch (const UsageError& error) {
      return error.what();
    }
    return "no error";
  };
  EXPECT_THAT(failure({"inflaton", {}, {}, {}}), AllOf(HasSubstr("[variables.inflaton]"), HasSubstr("\"inflation\"")));
  EXPECT_THAT(failure({"region", {}, {}, {1}}), AllOf(HasSubstr("region"), HasSubstr("not numeric")));
}

TEST(Dataset, NamesAreFoundInEitherCase) {
  const Dataset dataset = makeDataset({{1}, {2}});
  EXPECT_EQ(dataset.find("vAR2"), 1);
  EXPECT_EQ(dataset.find("Var"), -1);
  EXPECT_EQ(dataset.find(""), -1);
}

}  // namespace
}  // namespace workbench
