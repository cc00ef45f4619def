#include <array>
#include <string_view>

#include "workbench/commands/varmodel/notes.h"
#include "workbench/commands/varmodel/small_units.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"

namespace workbench::varmodel {

namespace {

// More lags than rows can carry make the covariance singular in every unit.
std::string singularCovarianceHint(const FinishedRun& run, CommandRunner& runner) {
  if (exceedsUsableLag(run)) return usableLagText(*usableLag(run));
  if (const std::optional<double> scale = fittingScale(run, runner)) {
    return tr(
        "The model is good, but the bound on the determinant, 1e-12, is absolute and the series are in a small unit. "
        "To "
        "multiply the endogenous series by ^1, give [data] in the job file this line:\n  scale = ^1",
        scaleText(*scale));
  }
  return tr("The residuals of the series depend on each other in every unit. Use fewer variables or lower MAXLAG.");
}

std::string missingCasesHint(const FinishedRun& run) {
  return run.input.composed
             ? tr("To drop the rows that lack a variable of either list, give --complete.")
             : tr("To drop the rows that lack a variable of either list, give [data] in the job file this "
                  "line:\n  complete = true");
}

// A forecast that nobody asked for is missed by TAUTO all the same.
Advice unaskedForecast(const FinishedRun& run) {
  return {tr("This warning comes with TAUTO whenever no forecast was requested; it does not concern the test. For "
             "forecasts give ^1.",
             run.input.composed ? "--predict N" : tr("a [predict] target in the job file")),
          true};
}

std::string hintFor(const std::string& message, const FinishedRun& run, CommandRunner& runner) {
  if (stoppedAtSingularCovariance(run)) return singularCovarianceHint(run, runner);
  if (message.starts_with("Endogenous and exogenous variables are missing")) return missingCasesHint(run);
  if (message.starts_with("Insufficient observations")) {
    const std::optional<UsableLag> usable = usableLag(run);
    return usable ? usableLagText(*usable) : std::string();
  }
  if (message.starts_with("Regressor matrix is singular")) {
    return tr(
        "Some series is constant, or one is a linear combination of others (a total beside its parts). Drop one of "
        "them, or use differences.");
  }
  if (message == "CORRMATRIX is required when EIGEN is specified in MODELFIT.") {
    return tr("The run stops here. Add CORRMATRIX to MODELFIT, or remove EIGEN.");
  }
  if (message == "Turn off split file") return tr("Remove 'split' from the job file.");
  if (message == "Remove Weight Variable") return tr("Remove 'weight' from the job file.");
  return {};
}

}  // namespace

Advice adviceFor(const std::string& message, const FinishedRun& run, CommandRunner& runner) {
  if (message.starts_with("The forecast table is not created") && !(run.input.trends.predictSet && run.predicts)) {
    return unaskedForecast(run);
  }
  return {hintFor(message, run, runner)};
}

std::string silentCause(const CapturedStreams& streams) {
  struct SilentFailure {
    std::string_view handler;
    std::string cause;
  };
  const std::array silent = {
      SilentFailure{"get_SubCommand_Method", tr("the METHOD subcommand is missing: add /METHOD TYPE=[OLS]")},
      SilentFailure{"get_SubCommand_ModelStatistics", tr("MODELSTATISTICS has no MODELFIT list")},
      SilentFailure{"get_SubCommand_Auxiliary", tr("AUXILIARY has no CILEVEL")},
  };
  for (const SilentFailure& failure : silent) {
    const auto at = streams.out.rfind("VARSubCommands::" + std::string(failure.handler) + " - Completed with status");
    if (at == std::string::npos) continue;
    if (streams.out.substr(at, streams.out.find('\n', at) - at).find("FAILURE") != std::string::npos) {
      return failure.cause;
    }
  }
  return {};
}

}  // namespace workbench::varmodel
