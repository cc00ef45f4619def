#include "procedures/vardynamics/save/save_results.h"

#include <cmath>
#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "host/case_file.h"
#include "procedures/common/number_text.h"
#include "procedures/common/saved_file.h"
#include "procedures/common/trace.h"
#include "procedures/vardynamics/save/backtest_columns.h"

namespace vardynamics {
namespace {

class ResultColumns {
 public:
  ResultColumns(const Settings& settings, const Observations& observations, const Analysis& analysis)
      : settings_(settings), observations_(observations), analysis_(analysis) {}

  std::vector<SavedColumn> make() {
    addPeriods();
    const auto& names = settings_.model.endogenous.names;
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (settings_.save->residuals)
        addSample(names[i] + "_residual", "Residual: " + names[i], analysis_.model.fit.residuals[i]);
      if (settings_.save->shocks)
        addSample(names[i] + "_shock", "Orthogonal shock: " + names[i], engine::columnOf(*analysis_.shocks, i));
      if (!settings_.save->forecasts) continue;
      addForecasts(names[i], i);
      const Levels& levels = analysis_.forecast->levels;
      if (i < levels.size() && levels[i]) addLevels(names[i], *levels[i]);
    }
    return std::move(columns_);
  }

 private:
  std::size_t rows() const { return observations_.sample.rows(); }
  // With forecasts alone the file begins with the first of them.
  std::size_t firstPeriod() const { return settings_.save->residuals || settings_.save->shocks ? 0 : rows(); }
  std::size_t periods() const { return rows() + (settings_.save->forecasts ? observations_.horizon : 0); }

  // Keeps the periods that are saved of a column over all of them.
  void add(std::string name, std::string label, std::vector<double> values) {
    values.resize(periods(), std::nan(""));
    values.erase(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(firstPeriod()));
    columns_.push_back({std::move(name), std::move(label), std::move(values)});
  }

  void addPeriods() {
    std::vector<double> numbers;
    for (std::size_t t = 0; t < periods(); ++t) {
      numbers.push_back(static_cast<double>(observations_.sample.cases.first + t + 1));
    }
    add("row", "Row of the data", numbers);
    for (std::size_t i = 0; i < observations_.dateVariables.size(); ++i) {
      add(observations_.dateVariables[i], "Date", observations_.dateComponents[i]);
    }
  }

  // A column on the rows of the regression.
  void addSample(std::string name, std::string label, const std::vector<double>& values) {
    std::vector<double> column(analysis_.model.fit.firstRow, std::nan(""));
    column.insert(column.end(), values.begin(), values.end());
    add(std::move(name), std::move(label), std::move(column));
  }

  void addForecasts(const std::string& name, std::size_t series) {
    const Forecast& forecast = *analysis_.forecast;
    addFuture(name + "_forecast", "Forecast: " + name, forecast.values, series);
    if (!forecast.hasLimits()) return;
    if (forecast.standardErrors) {
      addFuture(name + "_se", "Standard error of the forecast: " + name, *forecast.standardErrors, series);
    }
    for (const double level : settings_.levels) {
      const engine::ForecastLimits limits = forecast.limits(level);
      const std::string percent = procedures::shortestNumber(level);
      addFuture(name + "_lower" + percent, "Lower " + percent + "% limit: " + name, limits.lower, series);
      addFuture(name + "_upper" + percent, "Upper " + percent + "% limit: " + name, limits.upper, series);
    }
  }

  // Of a transformed series, in the unit of the data.
  void addLevels(const std::string& name, const SeriesLevels& levels) {
    addFuture(name + "_level", "Forecast in levels: " + name, levels.values);
    for (const double level : settings_.levels) {
      if (levels.limits.empty()) break;
      const std::string percent = procedures::shortestNumber(level);
      addFuture(name + "_level_lower" + percent, "Lower " + percent + "% limit in levels: " + name,
                levels.at(level).lower);
      addFuture(name + "_level_upper" + percent, "Upper " + percent + "% limit in levels: " + name,
                levels.at(level).upper);
    }
  }

  void addFuture(std::string name, std::string label, const engine::Matrix& values, std::size_t series) {
    addFuture(std::move(name), std::move(label), engine::columnOf(values, series));
  }

  void addFuture(std::string name, std::string label, const std::vector<double>& values) {
    std::vector<double> column(rows(), std::nan(""));
    column.insert(column.end(), values.begin(), values.end());
    add(std::move(name), std::move(label), std::move(column));
  }

  const Settings& settings_;
  const Observations& observations_;
  const Analysis& analysis_;
  std::vector<SavedColumn> columns_;
};

bool refused(const std::string& what) {
  procedures::traceError("VARDynamics", "saveResults", "Refused: " + what);
  return false;
}

}  // namespace

bool saveResults(const Settings& settings, const Observations& observations, const Analysis& analysis) {
  const std::vector<SavedColumn> columns = settings.save->backtest
                                               ? backtestColumns(settings, observations, *analysis.backtest)
                                               : ResultColumns(settings, observations, analysis).make();
  UserOutputCaseFile file(*settings.save->file);
  file.DataSource().SetLabel(settings.save->backtest ? "VAR Dynamics Back-Test"
                                                     : "VAR Dynamics Residuals and Forecasts");
  std::vector<const std::vector<double>*> values;
  for (const SavedColumn& column : columns) {
    if (!procedures::defineVariable(file, column.name, column.label)) return refused("variable " + column.name);
    values.push_back(&column.values);
  }
  const std::size_t cases = columns.front().values.size();
  const std::size_t written = procedures::writeCases(file, values, cases);
  if (written < cases) return refused("case " + std::to_string(written + 1));
  return file.Close() || refused("the file");
}

}  // namespace vardynamics
