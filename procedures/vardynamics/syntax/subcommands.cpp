#include "procedures/vardynamics/syntax/subcommands.h"

#include <algorithm>
#include <string>

#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/syntax/keywords.h"
#include "procedures/vardynamics/syntax/parameter_reader.h"

namespace vardynamics {
namespace {

// The lag order is given or chosen, never both.
void refuseLagBesideSelection(const ParameterReader& reader) {
  if (!reader.has("LAG")) return;
  for (const char* other : {"SELECT", "MINLAG", "MAXLAG"}) {
    if (!reader.has(other)) continue;
    fail("MODEL has LAG and ^1: LAG gives the lag order, ^1 belongs to its choice. Leave out one of the two.", {other});
  }
}

void refuseEmptyLagRange(const ModelSettings& model) {
  if (!model.maxLag || model.minLag <= *model.maxLag) return;
  fail("MINLAG=^1 is greater than MAXLAG=^2. Give MINLAG=^2 or less.",
       {std::to_string(model.minLag), std::to_string(*model.maxLag)});
}

void refuseUndefinedLimits(const ForecastSettings& forecast) {
  if (forecast.conditional && forecast.interval == Interval::bootstrap) {
    fail("The limits of a forecast with CONDITIONAL=YES come from no draws. Give INTERVAL=ANALYTIC.");
  }
  if (!forecast.simultaneous || forecast.interval == Interval::bootstrap) return;
  if (forecast.conditional) fail("SIMULTANEOUS=YES is not defined beside CONDITIONAL=YES. Leave out one of the two.");
  fail("FORECAST with SIMULTANEOUS=YES takes its limits from draws. Give INTERVAL=BOOTSTRAP.");
}

std::shared_ptr<const UserCaseFileSpec> openedFile(const ParamObj* parameter) {
  std::string path;
  bool isLiteral = false;
  auto file = std::make_shared<UserCaseFileSpec>();
  const bool given = parameter != nullptr && parameter->getStringOrLiteral(path, isLiteral) && !path.empty();
  if (!given || !file->Init(path, isLiteral, true))
    fail("SAVE has no file that can be written. Give FILE='results.csv'.");
  return file;
}

}  // namespace

ModelSettings readModelOptions(const SubComObj& model) {
  const ParameterReader reader(model);
  refuseLagBesideSelection(reader);
  if (reader.has("XLAGS") && !reader.has("EXOGENOUS")) {
    fail("XLAGS counts lags of exogenous series, and MODEL has none. Leave out XLAGS, or give EXOGENOUS.");
  }
  ModelSettings settings;
  settings.exogenousLags = reader.wholeNumber("XLAGS").value_or(0);
  settings.lag = reader.wholeNumber("LAG");
  settings.criterion = valueOf(criteria(), reader.keyword("SELECT", "AIC"));
  settings.minLag = reader.wholeNumber("MINLAG").value_or(1);
  settings.maxLag = reader.wholeNumber("MAXLAG");
  settings.deterministic = valueOf(kDeterministics, reader.keyword("DETERMINISTIC", "CONSTANT"));
  settings.seasonal = reader.yes("SEASONAL");
  refuseEmptyLagRange(settings);
  return settings;
}

TestSettings readTests(const SubComObj& tests) {
  const ParameterReader reader(tests);
  TestSettings settings;
  reader.flags("TYPE", kTests, settings);
  settings.lags = reader.wholeNumber("LAGS");
  return settings;
}

CausalitySettings readCausality(const SubComObj& causality) {
  const ParameterReader reader(causality);
  CausalitySettings settings;
  reader.flags("TYPE", kCausalities, settings);
  settings.augment = reader.wholeNumber("AUGMENT").value_or(0);
  return settings;
}

ForecastSettings readForecast(const SubComObj& forecast) {
  const ParameterReader reader(forecast);
  const ForecastSettings settings{.horizon = reader.wholeNumber("HORIZON"),
                                  .interval = valueOf(kIntervals, reader.keyword("INTERVAL", "ANALYTIC")),
                                  .conditional = reader.yes("CONDITIONAL"),
                                  .simultaneous = reader.yes("SIMULTANEOUS")};
  refuseUndefinedLimits(settings);
  return settings;
}

PlotSettings readPlot(const SubComObj& plot) {
  PlotSettings settings;
  ParameterReader(plot).flags("TYPE", kPlots, settings);
  return settings;
}

SaveSettings readSave(const SubComObj& save) {
  const ParameterReader reader(save);
  SaveSettings settings{.file = openedFile(reader.find("FILE"))};
  settings.forecasts = reader.has("FORECASTS");
  settings.residuals = reader.has("RESIDUALS");
  settings.shocks = reader.has("SHOCKS");
  settings.backtest = reader.has("BACKTEST");
  if (!settings.forecasts && !settings.residuals && !settings.shocks && !settings.backtest) {
    fail("SAVE has nothing to save. Give FORECASTS, RESIDUALS, SHOCKS or several of them, or BACKTEST.");
  }
  if (settings.backtest && (settings.forecasts || settings.residuals || settings.shocks)) {
    fail("SAVE writes BACKTEST to a file of its own, with one row for every origin and horizon. Leave out the others.");
  }
  return settings;
}

std::vector<double> readLevels(const SubComObj& auxiliary) {
  const ParamObj* parameter = auxiliary.getParamObj("CILEVEL");
  std::vector<double> levels;
  if (parameter == nullptr || !parameter->getNumberList(levels)) fail("AUXILIARY has no level. Give CILEVEL=95.");
  std::ranges::sort(levels);
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  if (levels.front() <= 0.0 || levels.back() >= 100.0) {
    fail("CILEVEL is a percentage above 0 and below 100. Give CILEVEL=95.");
  }
  return levels;
}

bool readUserMissing(const SubComObj& missing) {
  return ParameterReader(missing).keyword("USERMISSING", "EXCLUDE") == "INCLUDE";
}

}  // namespace vardynamics
