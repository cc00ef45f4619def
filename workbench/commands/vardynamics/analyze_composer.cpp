#include "workbench/commands/vardynamics/analyze_composer.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <array>

#include "workbench/commands/common/command_text.h"
#include "workbench/commands/common/option_checks.h"
#include "workbench/language/quoting.h"

namespace workbench::vardynamics {

namespace {

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
                   ->transform(keywordOf({"AIC", "BIC", "HQIC", "FPE"})));
  addSelection(app.add_option("--minlag", options.minLag, "Smallest lag order chosen (default: 1)")->type_name("N"));
  addSelection(
      app.add_option("--maxlag", options.maxLag, "Largest lag order tried (default: by the sample, at most 12)")
          ->type_name("N"));
  app.add_option("--trend", options.deterministic, "Deterministic terms (default: constant)")
      ->type_name("none|constant|trend")
      ->transform(keywordOf({"NONE", "CONSTANT", "TREND"}));
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
    OptionWord{"CUMULATIVE", "--cumulative"},
    OptionWord{"ORDER", "--order"},
    OptionWord{"BANDS=NONE", "--bands none"},
    OptionWord{"BANDS", "--bands"},
    OptionWord{"REPLICATIONS", "--replications"},
    OptionWord{"SEED", "--seed"},
    OptionWord{"BACKTEST", "--backtest"},
    OptionWord{"IMPULSE HORIZON", "--impulse-horizon"},
};

}  // namespace

std::vector<OptionWord> AnalyzeComposer::optionWords(const FinishedRun& /*run*/) const {
  return {optionNames.begin(), optionNames.end()};
}

std::vector<std::string> AnalyzeComposer::shortForm() const {
  return {"forecast", "forecast-in-levels", "condition", "lag-selection"};
}

void AnalyzeComposer::addShockOptions(CLI::App& app) {
  app.add_option("--impulse-horizon", options_.shockHorizon,
                 "Periods after a shock that are shown, 1 to 1000 (default: 20)")
      ->type_name("N")
      ->check(CLI::Range(1, 1000));
  app.add_option("--order", options_.order,
                 "All endogenous variables; each reacts at once to shocks of itself and of those before it")
      ->type_name("VAR");
  app.add_option("--cumulative", options_.cumulative,
                 "Variables whose responses are summed up (growth to levels), or all")
      ->type_name("VAR");
  app.add_option("--bands", options_.bands, "Limits of responses and shares (default: bootstrap)")
      ->type_name("bootstrap|analytic|none")
      ->transform(keywordOf({"BOOTSTRAP", "ANALYTIC", "NONE"}));
  app.add_option("--replications", options_.replications, "Bootstrap draws (default: 2000)")->type_name("N");
  app.add_option("--seed", options_.seed, "Seed of the draws (default: 1)")->type_name("N");
  app.add_flag("--backtest", options_.backtest, "Test forecasts from earlier origins against simple rivals");
}

void AnalyzeComposer::addOptions(CLI::App& app) {
  addModelOptions(app, options_);
  addShockOptions(app);
  app.add_flag("--conditional", options_.conditional,
               "Hold the values of endogenous variables in the rows after the last complete one");
  app.add_option("--cilevel", options_.levels, "Confidence level in percent, or several (default: 95)")
      ->type_name("PERCENT")
      ->check(percentage());
  app.add_option("--save", options_.saveFile, "Save residuals and forecasts (.csv, .parquet, .duckdb)")
      ->type_name("FILE");
  app.add_flag("--include-missing", options_.includeUserMissing, "Treat user-missing values as valid");
}

std::string AnalyzeComposer::modelSubcommand() const {
  std::string text = "  /MODEL ENDOGENOUS=" + nameList(options_.endogenous);
  if (!options_.exogenous.empty()) text += " EXOGENOUS=" + nameList(options_.exogenous);
  if (options_.exogenousLags) text += fmt::format(" XLAGS={}", *options_.exogenousLags);
  if (options_.lag) text += fmt::format(" LAG={}", *options_.lag);
  if (!options_.criterion.empty()) text += " SELECT=" + options_.criterion;
  if (options_.minLag) text += fmt::format(" MINLAG={}", *options_.minLag);
  if (options_.maxLag) text += fmt::format(" MAXLAG={}", *options_.maxLag);
  if (!options_.deterministic.empty()) text += " DETERMINISTIC=" + options_.deterministic;
  if (options_.seasonal) text += " SEASONAL=YES";
  return text + "\n";
}

// The shares know no analytic limits.
std::string AnalyzeComposer::shockSubcommands() const {
  std::string common;
  if (options_.shockHorizon) common += fmt::format(" HORIZON={}", *options_.shockHorizon);
  if (!options_.order.empty()) common += " ORDER=" + nameList(options_.order);
  const char* exogenous = options_.exogenous.empty() ? "" : " EXOGENOUS";
  std::string text = fmt::format("  /IMPULSE TYPE=[ORTHOGONAL{}]{}", exogenous, common);
  if (!options_.cumulative.empty()) text += " CUMULATIVE=" + nameList(options_.cumulative);
  if (!options_.bands.empty()) text += " BANDS=" + options_.bands;
  text += "\n  /DECOMPOSITION" + common;
  if (!options_.bands.empty() && options_.bands != "BOOTSTRAP") text += " BANDS=NONE";
  text += options_.backtest ? "\n  /BACKTEST\n" : "\n";
  if (!options_.replications && !options_.seed) return text;
  text += "  /BOOTSTRAP";
  if (options_.replications) text += fmt::format(" REPLICATIONS={}", *options_.replications);
  if (options_.seed) text += fmt::format(" SEED={}", *options_.seed);
  return text + "\n";
}

std::string AnalyzeComposer::compose(const ComposerRequest& request) {
  std::string text = "VARDYNAMICS\n" + modelSubcommand() + "  /STABILITY\n  /TESTS\n  /CAUSALITY\n";
  if (request.predictPeriods) {
    text += fmt::format("  /FORECAST HORIZON={}{}\n", *request.predictPeriods,
                        options_.conditional ? " CONDITIONAL=YES" : "");
  }
  text += shockSubcommands() + "  /PLOT\n";
  if (!options_.saveFile.empty()) {
    text += "  /SAVE FILE=" + quoteText(options_.saveFile) + " RESIDUALS" +
            (request.predictPeriods ? " FORECASTS\n" : "\n");
  }
  if (!options_.levels.empty()) text += fmt::format("  /AUXILIARY CILEVEL={}\n", fmt::join(options_.levels, " "));
  if (options_.includeUserMissing) text += "  /MISSING USERMISSING=INCLUDE\n";
  return text;
}

}  // namespace workbench::vardynamics
