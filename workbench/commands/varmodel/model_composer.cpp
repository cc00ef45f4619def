#include "workbench/commands/varmodel/model_composer.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "workbench/base/errors.h"
#include "workbench/base/whole_number.h"
#include "workbench/commands/common/command_text.h"
#include "workbench/commands/common/option_checks.h"
#include "workbench/commands/varmodel/selected_lag.h"
#include "workbench/commands/varmodel/small_units.h"
#include "workbench/dataset/dataset.h"
#include "workbench/edge/texts.h"
#include "workbench/language/quoting.h"

namespace workbench::varmodel {

namespace {

std::string keywords(const std::vector<std::string>& list) {
  std::string text;
  for (const std::string& keyword : list) text += (text.empty() ? "" : " ") + keyword;
  return "[" + text + "]";
}

std::string modelSubcommand(const ModelOptions& options, const std::string& lags) {
  std::string text = "  /MODEL ENDOGENOUS=" + nameList(options.endogenous);
  if (!options.exogenous.empty()) text += " EXOGENOUS=" + nameList(options.exogenous);
  text += " LAG=" + (options.criteria.empty() ? std::string("[BIC]") : keywords(options.criteria));
  return text + lags + "\n";
}

std::string missingSubcommand(const ModelOptions& options) {
  return options.includeUserMissing ? "  /MISSING USERMISSING=INCLUDE\n" : "";
}

constexpr std::array optionNames = {
    OptionWord{"ENDOGENOUS", "--endogenous"},
    OptionWord{"EXOGENOUS", "--exogenous"},
    OptionWord{"LAG", "--select"},
    OptionWord{"MINLAG", "--minlag"},
    OptionWord{"MAXLAG", "--maxlag"},
    OptionWord{"PREDICT", "--predict"},
    OptionWord{"CILEVEL", "--cilevel"},
    OptionWord{"SAVE FILE", "--save"},
    OptionWord{"SAVE", "--save"},
};
const std::vector<std::string> criteriaNames = {"AIC", "BIC", "HQIC"};

constexpr std::int64_t kLargestLag = 1'000'000;  // the command's own bound, which it tells itself, is lower

}  // namespace

// A number is the lag order; the names of criteria are another way to write --select.
void ModelComposer::readLag() {
  if (options_.lag.empty()) return;
  const auto order = options_.lag.size() == 1 ? wholeNumber(options_.lag.front(), "--lag", kLargestLag) : std::nullopt;
  if (order) {
    const char* other = !options_.criteria.empty() ? "--select" : options_.minLag ? "--minlag" : "--maxlag";
    if (!options_.criteria.empty() || options_.minLag || options_.maxLag) {
      throw UsageError("option.lag-and-choice",
                       "--lag ^1 gives the lag order, ^2 belongs to its choice. Leave out one of the two.", *order,
                       other);
    }
    options_.minLag = options_.maxLag = static_cast<int>(*order);
    fixedLag_ = true;
    return;
  }
  for (const std::string& word : options_.lag) {
    const auto known =
        std::ranges::find_if(criteriaNames, [&](const std::string& name) { return sameName(name, word); });
    if (known == criteriaNames.end()) {
      throw UsageError(
          "option.no-lag",
          "--lag: \"^1\" is neither one lag order, as in --lag 2, nor a criterion that chooses it, as in --select bic.",
          word);
    }
    options_.criteria.push_back(*known);
  }
}

std::vector<OptionWord> ModelComposer::optionWords(const FinishedRun& /*run*/) const {
  std::vector<OptionWord> words(optionNames.begin(), optionNames.end());
  if (fixedLag_) words.insert(words.begin(), {{"MINLAG", "--lag"}, {"MAXLAG", "--lag"}});
  return words;
}

void ModelComposer::addModelOptions(CLI::App& app) {
  app.add_option("--endogenous", options_.endogenous, "Two or more endogenous variables")->required()->type_name("VAR");
  app.add_option("--exogenous", options_.exogenous, "Exogenous variables")->type_name("VAR");
  app.add_option("--lag", options_.lag, "Lag order; without it criteria choose (their names are taken here too)")
      ->type_name("N");
  app.add_option("--select", options_.criteria, "Criteria that choose the lag (default: bic)")
      ->type_name("aic|bic|hqic")
      ->transform(keywordOf({"AIC", "BIC", "HQIC"}));
  app.add_option("--minlag", options_.minLag, "Smallest lag order tried (default: 1)")->type_name("N");
  app.add_option("--maxlag", options_.maxLag, "Largest lag order tried, 1 to 25 (default: 10)")->type_name("N");
  app.add_option("--cilevel", options_.ciLevel, "Confidence level in percent (default: 95)")
      ->type_name("PERCENT")
      ->check(percentage());
  app.add_flag("--include-missing", options_.includeUserMissing, "Treat user-missing values as valid");
}

std::vector<std::string> ModelComposer::shortForm() const {
  return {"lag-selection", "parameters", "residual-tests", "forecasts"};
}

std::string ModelComposer::compose(const ComposerRequest& request) {
  readLag();
  predicts_ = request.predictPeriods.has_value();
  choosing_ = choosesLag();
  return choosing_ ? lagChoice() : everything(options_.minLag.value_or(1), options_.maxLag.value_or(kDefaultMaxLag));
}

std::string ModelComposer::lagChoice() const {
  std::string lags;
  if (options_.minLag) lags += fmt::format(" MINLAG={}", *options_.minLag);
  if (options_.maxLag) lags += fmt::format(" MAXLAG={}", *options_.maxLag);
  return "VARMODEL\n" + modelSubcommand(options_, lags) +
         "  /METHOD TYPE=[OLS]\n  /MODELSTATISTICS MODELFIT=[GOODFIT PARAMETERS]\n" + missingSubcommand(options_);
}

std::string ModelComposer::everything(int minLag, int maxLag) const {
  std::string text = predicts_ ? "VARMODEL PREDICT\n" : "VARMODEL\n";
  text += modelSubcommand(options_, fmt::format(" MINLAG={} MAXLAG={}", minLag, maxLag));
  text += "  /METHOD TYPE=[OLS]\n";
  text += choosing_ ? "  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES" : "  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT";
  text += " PARAMETERS RES RESIDACF MSE RMSE MAE MAPE\n    RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO";
  text += predicts_ ? " FORECASTS]\n" : "]\n";
  text += "  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT";
  text += predicts_ ? " FORECAST]\n" : "]\n";
  if (!options_.saveFile.empty()) {
    text += "  /SAVE FILE=" + quoteText(options_.saveFile) + " PREDICTED NRESIDUAL\n";
  }
  if (options_.ciLevel) text += fmt::format("  /AUXILIARY CILEVEL={}\n", *options_.ciLevel);
  return text + missingSubcommand(options_);
}

RunnerSettings ModelComposer::firstSettings(RunnerSettings settings) const {
  if (choosing_) settings.predicts = settings.summary = false;
  return settings;
}

std::optional<NextRun> ModelComposer::next(const FinishedRun& last, CommandRunner& runner) {
  RunnerSettings settings = runner.settings();
  settings.scale = last.scale;
  if (last.outcome.succeeded && choosing_) {
    const std::string text = everything(selectedLag(last), selectedLag(last));
    choosing_ = false;
    return NextRun{.text = text, .settings = settings, .showsChoice = true};
  }
  if (last.scale != 1.0 || !stoppedAtSingularCovariance(last)) return std::nullopt;
  const std::optional<double> scale = fittingScale(last, runner);
  if (!scale) return std::nullopt;
  settings = firstSettings(settings);
  settings.scale = *scale;
  return NextRun{.text = last.text, .settings = settings, .replaces = true};
}

}  // namespace workbench::varmodel
