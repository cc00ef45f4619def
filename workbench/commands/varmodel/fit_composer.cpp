#include "workbench/commands/varmodel/fit_composer.h"

#include <fmt/core.h>

#include "workbench/commands/varmodel/small_units.h"
#include "workbench/language/quoting.h"

namespace workbench::varmodel {

namespace {

std::string names(const std::vector<std::string>& variables) {
  std::string text;
  for (const std::string& variable : variables) text += (text.empty() ? "" : " ") + quoteName(variable);
  return text;
}

std::string keywords(const std::vector<std::string>& list) {
  std::string text;
  for (const std::string& keyword : list) text += (text.empty() ? "" : " ") + keyword;
  return "[" + text + "]";
}

std::string modelSubcommand(const FitOptions& options) {
  std::string text = "  /MODEL ENDOGENOUS=" + names(options.endogenous);
  if (!options.exogenous.empty()) text += " EXOGENOUS=" + names(options.exogenous);
  text += " LAG=" + (options.criteria.empty() ? std::string("[BIC]") : keywords(options.criteria));
  if (options.minLag) text += fmt::format(" MINLAG={}", *options.minLag);
  if (options.maxLag) text += fmt::format(" MAXLAG={}", *options.maxLag);
  return text + "\n";
}

}  // namespace

void FitComposer::addOptions(CLI::App& app) {
  app.add_option("--endogenous", options_.endogenous, "Two or more endogenous variables")->required()->type_name("VAR");
  app.add_option("--exogenous", options_.exogenous, "Exogenous variables")->type_name("VAR");
  app.add_option("--lag", options_.criteria, "Criteria that choose the lag (default: bic)")
      ->type_name("aic|bic|hqic")
      ->transform(CLI::IsMember({"AIC", "BIC", "HQIC"}, CLI::ignore_case));
  app.add_option("--minlag", options_.minLag, "Smallest lag order tried (default: 1)")->type_name("N");
  app.add_option("--maxlag", options_.maxLag, "Largest lag order tried, 1 to 25 (default: 10)")->type_name("N");
  app.add_option("--cilevel", options_.ciLevel, "Confidence level in percent (default: 95)")->type_name("PERCENT");
  app.add_option("--save", options_.saveFile, "Save predicted values and residuals (.csv, .parquet, .duckdb)")
      ->type_name("FILE");
  app.add_flag("--include-missing", options_.includeUserMissing, "Treat user-missing values as valid");
}

std::string FitComposer::compose(const ComposerRequest& request) const {
  const bool predict = request.predictPeriods.has_value();
  std::string text = predict ? "VARMODEL PREDICT\n" : "VARMODEL\n";
  text += modelSubcommand(options_);
  text += "  /METHOD TYPE=[OLS]\n";
  text += "  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE MAPE\n";
  text += "    RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO";
  text += predict ? " FORECASTS]\n" : "]\n";
  text += "  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT";
  text += predict ? " FORECAST]\n" : "]\n";
  if (!options_.saveFile.empty()) {
    text += "  /SAVE FILE=" + quoteText(options_.saveFile) + " PREDICTED NRESIDUAL\n";
  }
  if (options_.ciLevel) text += fmt::format("  /AUXILIARY CILEVEL={}\n", *options_.ciLevel);
  if (options_.includeUserMissing) text += "  /MISSING USERMISSING=INCLUDE\n";
  return text;
}

std::optional<NextRun> FitComposer::next(const FinishedRun& last, CommandRunner& runner) {
  if (last.scale != 1.0 || !stoppedAtSingularCovariance(last)) return std::nullopt;
  const std::optional<double> scale = fittingScale(last, runner);
  if (!scale) return std::nullopt;
  RunnerSettings settings = runner.settings();
  settings.scale = *scale;
  return NextRun{last.text, settings, true};
}

}  // namespace workbench::varmodel
