#include "procedures/vardynamics/output/table_parts.h"

#include <iterator>
#include <utility>

#include "procedures/common/number_text.h"

namespace vardynamics {
namespace {

constexpr int kStatisticDecimals = 3;
constexpr int kProbabilityDecimals = 4;

template <typename Test>
std::vector<double> valuesOf(const std::vector<std::optional<Test>>& tests, double Test::*value) {
  return columnOf(tests, [value](const auto& test) { return test ? (*test).*value : kNoValue; });
}

template <typename Item>
void moveBehind(std::vector<Item>& items, std::vector<Item> more) {
  items.insert(items.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

std::vector<TableColumn> chiSquaredColumns(const Texts& texts,
                                           const std::vector<std::optional<engine::ChiSquaredTest>>& tests) {
  using Test = engine::ChiSquaredTest;
  return {{texts.localize("Statistic"), valuesOf(tests, &Test::statistic), kStatisticDecimals},
          {texts.localize("df"), valuesOf(tests, &Test::degreesOfFreedom), 0},
          probabilityColumn(texts, valuesOf(tests, &Test::pValue))};
}

std::vector<TableColumn> fColumns(const Texts& texts, const std::vector<std::optional<engine::FTest>>& tests) {
  using Test = engine::FTest;
  return {{texts.localize("F"), valuesOf(tests, &Test::statistic), kStatisticDecimals},
          {texts.localize("df1"), valuesOf(tests, &Test::numeratorDegrees), 0},
          {texts.localize("df2"), valuesOf(tests, &Test::denominatorDegrees), 0},
          probabilityColumn(texts, valuesOf(tests, &Test::pValue))};
}

std::vector<TableColumn> limitColumns(const Texts& texts, double level, std::vector<double> lower,
                                      std::vector<double> upper, int decimals) {
  const std::string percent = procedures::confidenceLevelText(level);
  return {{texts.localize("^1 Lower", {percent}), std::move(lower), decimals},
          {texts.localize("^1 Upper", {percent}), std::move(upper), decimals}};
}

std::vector<std::size_t> printedHorizons(std::size_t horizon) {
  std::vector<std::size_t> horizons;
  for (const std::size_t h : {1U, 4U, 8U, 12U, 20U}) {
    if (h < horizon) horizons.push_back(h);
  }
  horizons.push_back(horizon);
  return horizons;
}

TableColumn probabilityColumn(const Texts& texts, std::vector<double> values) {
  for (double& value : values) {
    if (value == 0.0) value = std::numeric_limits<double>::min();
  }
  return {texts.localize("Sig."), std::move(values), kProbabilityDecimals};
}

std::vector<TableColumn> grouped(std::vector<TableColumn> columns, const std::string& group) {
  for (TableColumn& column : columns) column.group = group;
  return columns;
}

void append(std::vector<TableColumn>& columns, std::vector<TableColumn> more) {
  moveBehind(columns, std::move(more));
}

void append(std::vector<std::string>& notes, std::vector<std::string> more) {
  moveBehind(notes, std::move(more));
}

}  // namespace vardynamics
