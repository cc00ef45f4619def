#include "procedures/vardynamics/analysis/estimation_faults.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "engine/linear_algebra/column_dependence.h"
#include "procedures/vardynamics/analysis/regressors.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

using engine::ColumnDependence;

// The regressors of a lag but the constant, over its rows.
SeriesList columnsOf(const ModelData& data, std::size_t lag) {
  const std::size_t first = std::max(lag, static_cast<std::size_t>(data.settings.exogenousLags));
  const auto window = [&](const std::vector<double>& values, std::size_t j) {
    return std::vector<double>(values.begin() + static_cast<std::ptrdiff_t>(first - j),
                               values.begin() + static_cast<std::ptrdiff_t>(data.sample.rows() - j));
  };
  SeriesList columns;
  for (std::size_t j = 1; j <= lag; ++j) {
    for (const auto& series : data.sample.endogenous) columns.push_back(window(series, j));
  }
  for (const auto& column : data.known) columns.push_back(window(column, 0));
  return columns;
}

// Each name once.
std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (auto name = names.begin(); name != names.end(); ++name) {
    if (std::find(names.begin(), name, *name) == name) text += (text.empty() ? "" : ", ") + *name;
  }
  return text;
}

[[noreturn]] void refuseCollinear(const ModelData& data, std::size_t lag) {
  const bool constant = hasConstant(data.settings);
  const auto dependence = engine::findDependence(columnsOf(data, lag), constant);
  if (!dependence) {
    fail("The regressors of lag ^1 are collinear to rounding. Leave out a series, or use a smaller lag.",
         {std::to_string(lag)});
  }
  std::vector<Regressor> regressors = regressorsOf(data.settings, lag, data.cycle);
  if (constant) regressors.erase(regressors.begin());
  const std::string name = plainName(regressors[dependence->column], data.settings);
  if (dependence->on.empty()) {
    fail("The regressor ^1 does not vary over the sample. Leave out its series.", {name});
  }
  std::vector<std::string> others;
  for (const std::size_t i : dependence->on) others.push_back(plainName(regressors[i], data.settings));
  fail("The regressor ^1 is a linear combination of ^2. Leave out one of these series, or use a smaller lag.",
       {name, joined(others)});
}

[[noreturn]] void refuseExactPrediction(const ModelData& data, std::int32_t lag) {
  const engine::VarOptions options{.minLag = lag,
                                   .maxLag = lag,
                                   .constant = hasConstant(data.settings),
                                   .firstRow = data.settings.exogenousLags,
                                   .allowSingularCovariance = true};
  const auto estimation = engine::estimateVar({data.sample.endogenous, data.known}, options);
  const auto& names = data.settings.endogenous.names;
  const auto dependence =
      estimation.lags.empty() ? std::nullopt : engine::findDependence(estimation.lags.front().residuals, false);
  if (!dependence || dependence->on.empty()) {
    const std::string name = dependence ? names[dependence->column] : joined(names);
    fail("The model predicts ^1 without error. Leave it out: it is known from the other series.", {name});
  }
  std::vector<std::string> others;
  for (const std::size_t i : dependence->on) others.push_back(names[i]);
  fail("The residuals of ^1 are a linear combination of those of ^2. Leave out one of these series.",
       {names[dependence->column], joined(others)});
}

}  // namespace

ModelShape shapeOf(const ModelData& data) {
  return {.rows = static_cast<std::int64_t>(data.sample.rows()),
          .series = std::ssize(data.sample.endogenous),
          .fixedRegressors = std::ssize(data.known) + (hasConstant(data.settings) ? 1 : 0),
          .exogenousLags = data.settings.exogenousLags};
}

void requireUsableLag(const ModelShape& shape, std::int32_t lag, const char* setting) {
  const std::int32_t usable = largestUsableLag(shape);
  if (lag <= usable) return;
  const std::string rows = std::to_string(shape.rows);
  const std::string series = std::to_string(shape.series);
  const std::string others = std::to_string(shape.fixedRegressors);
  if (usable < 1) {
    fail(
        "No lag can be fitted to ^1 rows with ^2 series and ^3 regressors beside their lags. Use fewer series or more "
        "rows.",
        {rows, series, others});
  }
  fail(
      "The sample is too short for ^1=^2: with ^3 rows, ^4 series and ^5 regressors beside their lags the largest "
      "usable lag is ^6. Give ^1=^6.",
      {setting, std::to_string(lag), rows, series, others, std::to_string(usable)});
}

void refuse(const ModelData& data, const engine::FitError& error) {
  using enum engine::FitError::Reason;
  switch (error.reason) {
    case singularRegressors:
      refuseCollinear(data, static_cast<std::size_t>(error.lag));
    case singularCovariance:
      refuseExactPrediction(data, error.lag);
    case outOfRange:
      fail("The numbers of the model leave the range of double precision. Give the series in units near one.");
    case insufficientObservations:
    case unevenSeries:
      break;
  }
  fail("The sample has too few rows for lag ^1. Use a smaller lag.", {std::to_string(error.lag)});
}

void refuseDependentShocks() {
  fail("The shocks cannot be told apart: the residuals are linearly dependent to rounding. Leave out a series.");
}

}  // namespace vardynamics
