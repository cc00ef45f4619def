#include "procedures/vardynamics/save/backtest_columns.h"

#include <cstddef>
#include <utility>

#include "engine/regression/inference.h"
#include "procedures/common/number_text.h"

namespace vardynamics {
namespace {

using engine::OriginForecast;

class BacktestColumns {
 public:
  BacktestColumns(const Settings& settings, const Observations& observations, const Backtest& backtest)
      : settings_(settings), observations_(observations), backtest_(backtest) {}

  std::vector<SavedColumn> make() {
    const std::size_t before = observations_.sample.cases.first;
    const auto number = [](std::size_t count) { return static_cast<double>(count); };
    add("origin", "Row of the last value known",
        [&](const auto& one, std::size_t) { return number(before + one.origin); });
    add("horizon", "Horizon", [&](const auto&, std::size_t h) { return number(h + 1); });
    add("row", "Row of the data", [&](const auto& one, std::size_t h) { return number(before + one.origin + h + 1); });
    for (std::size_t i = 0; i < observations_.dateVariables.size(); ++i) {
      const std::vector<double>& components = observations_.dateComponents[i];
      add(observations_.dateVariables[i], "Date",
          [&](const auto& one, std::size_t h) { return components[one.origin + h]; });
    }
    for (std::size_t i = 0; i < settings_.model.endogenous.names.size(); ++i) addSeries(i);
    return std::move(columns_);
  }

 private:
  template <typename ValueOf>
  void add(const std::string& name, const std::string& label, ValueOf valueOf) {
    SavedColumn& column = columns_.emplace_back(SavedColumn{name, label});
    for (const OriginForecast& one : backtest_.forecasts) {
      for (std::size_t h = 0; h < backtest_.horizon(); ++h) column.values.push_back(valueOf(one, h));
    }
  }

  void addSeries(std::size_t series) {
    const std::string& name = settings_.model.endogenous.names[series];
    const std::vector<double>& observed = observations_.sample.endogenous[series];
    const auto value = [series](const OriginForecast& one, std::size_t h) { return one.values(h, series); };
    const auto error = [series](const OriginForecast& one, std::size_t h) { return one.standardErrors(h, series); };
    add(name + "_actual", "Actual: " + name, [&](const auto& one, std::size_t h) { return observed[one.origin + h]; });
    add(name + "_forecast", "Forecast: " + name, value);
    add(name + "_se", "Standard error of the forecast: " + name, error);
    for (const double level : settings_.levels) {
      const auto width = [&](const OriginForecast& one, std::size_t h) {
        return engine::studentLimit(level, one.degreesOfFreedom) * error(one, h);
      };
      const std::string percent = procedures::shortestNumber(level);
      add(name + "_lower" + percent, "Lower " + percent + "% limit: " + name,
          [&](const auto& one, std::size_t h) { return value(one, h) - width(one, h); });
      add(name + "_upper" + percent, "Upper " + percent + "% limit: " + name,
          [&](const auto& one, std::size_t h) { return value(one, h) + width(one, h); });
    }
  }

  const Settings& settings_;
  const Observations& observations_;
  const Backtest& backtest_;
  std::vector<SavedColumn> columns_;
};

}  // namespace

std::vector<SavedColumn> backtestColumns(const Settings& settings, const Observations& observations,
                                         const Backtest& backtest) {
  return BacktestColumns(settings, observations, backtest).make();
}

}  // namespace vardynamics
