#include "workbench/commands/vardynamics/analyze_composer.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <array>

#include "workbench/language/quoting.h"

namespace workbench::vardynamics {

namespace {

std::string names(const std::vector<std::string>& variables) {
  std::string text;
  for (const std::string& variable : variables) text += (text.empty() ? "" : " ") + quoteName(variable);
  return text;
}

void addModelOptions(CLI::App& app, AnalyzeOptions& options) {
  app.add_option("--endogenous", options.endogenous, "Two or more endogenous variables")->required()->type_name("VAR");
  auto* exogenous = app.add_option("--exogenous", options.exogenous, "Exogenous variables")->type_name("VAR");
  app.add_option("--xlags", options.exogenousLags, "Lags of the exogenous variables (default: 0)")
      ->type_name("N")
      ->needs(exogenous);
  auto* lag = app.add_option("--lag", options.lag, "Lag order (default: chosen by AIC)")->type_name("N");
  const auto addSelection = [&](CLI::Option* option) { option->excludes(lag); };
  addSelection(app.add_option("--select", options.criterion, "Criterion that chooses the lag (default: aic)")
                   ->type_name("aic|bic|hqic|fpe")
                   ->transform(CLI::IsMember({"AIC", "BIC", "HQIC", "FPE"}, CLI::ignore_case)));
  addSelection(app.add_option("--minlag", options.minLag, "Smallest lag order chosen (default: 1)")->type_name("N"));
  addSelection(
      app.add_option("--maxlag", options.maxLag, "Largest lag order tried (default: by the sample, at most 12)")
          ->type_name("N"));
  app.add_option("--trend", options.deterministic, "Deterministic terms (default: constant)")
      ->type_name("none|constant|trend")
      ->transform(CLI::IsMember({"NONE", "CONSTANT", "TREND"}, CLI::ignore_case));
  app.add_flag("--seasonal", options.seasonal, "Seasonal dummies of the dates' cycle");
}

constexpr std::array optionNames = {
    OptionWord{"ENDOGENOUS", "--endogenous"},
    OptionWord{"EXOGENOUS", "--exogenous"},
    OptionWord{"XLAGS", "--xlags"},
    OptionWord{"LAG", "--lag"},
    OptionWord{"SELECT", "--select"},
    OptionWord{"MINLAG", "--minlag"},
    OptionWord{"MAXLAG", "--maxlag"},
    OptionWord{"SEASONAL=YES", "--seasonal"},
    OptionWord{"SEASONAL", "--seasonal"},
    OptionWord{"HORIZON", "--predict"},
    OptionWord{"FORECAST", "--predict"},
    OptionWord{"CONDITIONAL=YES", "--conditional"},
    OptionWord{"CONDITIONAL", "--conditional"},
    OptionWord{"SAVE FILE", "--save"},
    OptionWord{"SAVE", "--save"},
    OptionWord{"FILE", "--save"},
    OptionWord{"CILEVEL", "--cilevel"},
};

}  // namespace

std::vector<OptionWord> AnalyzeComposer::optionWords() const {
  return {optionNames.begin(), optionNames.end()};
}

void AnalyzeComposer::addOptions(CLI::App& app) {
  addModelOptions(app, options_);
  app.add_flag("--conditional", options_.conditional,
               "Hold the values of endogenous variables in the rows after the last complete one");
  app.add_option("--cilevel", options_.levels, "Confidence level in percent, or several (default: 95)")
      ->type_name("PERCENT");
  app.add_option("--save", options_.saveFile, "Save residuals and forecasts (.csv, .parquet, .duckdb)")
      ->type_name("FILE");
  app.add_flag("--include-missing", options_.includeUserMissing, "Treat user-missing values as valid");
}

std::string AnalyzeComposer::modelSubcommand() const {
  std::string text = "  /MODEL ENDOGENOUS=" + names(options_.endogenous);
  if (!options_.exogenous.empty()) text += " EXOGENOUS=" + names(options_.exogenous);
  if (options_.exogenousLags) text += fmt::format(" XLAGS={}", *options_.exogenousLags);
  if (options_.lag) text += fmt::format(" LAG={}", *options_.lag);
  if (!options_.criterion.empty()) text += " SELECT=" + options_.criterion;
  if (options_.minLag) text += fmt::format(" MINLAG={}", *options_.minLag);
  if (options_.maxLag) text += fmt::format(" MAXLAG={}", *options_.maxLag);
  if (!options_.deterministic.empty()) text += " DETERMINISTIC=" + options_.deterministic;
  if (options_.seasonal) text += " SEASONAL=YES";
  return text + "\n";
}

std::string AnalyzeComposer::compose(const ComposerRequest& request) {
  std::string text = "VARDYNAMICS\n" + modelSubcommand() + "  /STABILITY\n  /TESTS\n  /CAUSALITY\n";
  if (request.predictPeriods) {
    text += fmt::format("  /FORECAST HORIZON={}{}\n", *request.predictPeriods,
                        options_.conditional ? " CONDITIONAL=YES" : "");
  }
  text += "  /PLOT\n";
  if (!options_.saveFile.empty()) {
    text += "  /SAVE FILE=" + quoteText(options_.saveFile) + " RESIDUALS" +
            (request.predictPeriods ? " FORECASTS\n" : "\n");
  }
  if (!options_.levels.empty()) text += fmt::format("  /AUXILIARY CILEVEL={}\n", fmt::join(options_.levels, " "));
  if (options_.includeUserMissing) text += "  /MISSING USERMISSING=INCLUDE\n";
  return text;
}

}  // namespace workbench::vardynamics
