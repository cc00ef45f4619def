#include "workbench/cli/fit_command.h"

#include <fmt/core.h>

#include "workbench/language/quoting.h"

namespace workbench {

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

std::string composeCommand(const FitOptions& options) {
  const bool predict = options.predictPeriods.has_value();
  std::string text = predict ? "VARMODEL PREDICT\n" : "VARMODEL\n";
  text += modelSubcommand(options);
  text += "  /METHOD TYPE=[OLS]\n";
  text += "  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE MAPE\n";
  text += "    RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO";
  text += predict ? " FORECASTS]\n" : "]\n";
  text += "  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT";
  text += predict ? " FORECAST]\n" : "]\n";
  if (!options.saveFile.empty()) {
    text += "  /SAVE FILE=" + quoteText(options.saveFile) + " PREDICTED NRESIDUAL\n";
  }
  if (options.ciLevel) text += fmt::format("  /AUXILIARY CILEVEL={}\n", *options.ciLevel);
  if (options.includeUserMissing) text += "  /MISSING USERMISSING=INCLUDE\n";
  return text;
}

}  // namespace workbench
