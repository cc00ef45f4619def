#include <array>
#include <string_view>

#include "workbench/commands/varmodel/notes.h"
#include "workbench/commands/varmodel/small_units.h"
#include "workbench/commands/varmodel/usable_lag.h"

namespace workbench::varmodel {

namespace {

// More lags than rows can carry make the covariance singular in every unit.
Notice singularCovarianceHint(const FinishedRun& run, CommandRunner& runner) {
  if (exceedsUsableLag(run)) return usableLagText(*usableLag(run));
  if (const std::optional<double> scale = fittingScale(run, runner)) {
    return Notice(
        "varmodel.small-unit",
        "The model is good, but the bound on the determinant, 1e-12, is absolute and the series are in a small unit. "
        "To "
        "multiply the endogenous series by ^1, give [data] in the job file this line:\n  scale = ^1",
        scaleText(*scale));
  }
  return Notice("varmodel.dependent-residuals",
                "The residuals of the series depend on each other in every unit. Use fewer variables or lower MAXLAG.");
}

Notice missingCasesHint(const FinishedRun& run) {
  return run.input.composed
             ? Notice("varmodel.complete-option",
                      "To drop the rows that lack a variable of either list, give --complete.")
             : Notice("varmodel.complete-key",
                      "To drop the rows that lack a variable of either list, give [data] in the job file this "
                      "line:\n  complete = true");
}

// A forecast that nobody asked for is missed by TAUTO all the same.
Advice unaskedForecast(const FinishedRun& run) {
  return {Notice("varmodel.unasked-forecast",
                 "This warning comes with TAUTO whenever no forecast was requested; it does not concern the test. For "
                 "forecasts give ^1.",
                 run.input.composed ? Notice("--predict N") : phrase("a [predict] target in the job file")),
          true};
}

Notice hintFor(const std::string& message, const FinishedRun& run, CommandRunner& runner) {
  if (stoppedAtSingularCovariance(run)) return singularCovarianceHint(run, runner);
  if (message.starts_with("Endogenous and exogenous variables are missing")) return missingCasesHint(run);
  if (message.starts_with("Insufficient observations")) {
    const std::optional<UsableLag> usable = usableLag(run);
    return usable ? usableLagText(*usable) : Notice();
  }
  const KnownMessage* known = knownMessage(message);
  if (known == nullptr || known->remedy.empty()) return {};
  return Notice(std::string(known->id) + "-remedy", known->remedy);
}

}  // namespace

Advice adviceFor(const std::string& message, const FinishedRun& run, CommandRunner& runner) {
  if (message.starts_with("The forecast table is not created") && !(run.input.trends.predictSet && run.predicts)) {
    return unaskedForecast(run);
  }
  return {hintFor(message, run, runner)};
}

Notice silentCause(const CapturedStreams& streams) {
  struct SilentFailure {
    std::string_view handler;
    Notice cause;
  };
  const std::array silent = {
      SilentFailure{"get_SubCommand_Method", phrase("the METHOD subcommand is missing: add /METHOD TYPE=[OLS]")},
      SilentFailure{"get_SubCommand_ModelStatistics",
                    phrase("MODELSTATISTICS has no MODELFIT list: add MODELFIT=[PARAMETERS], or leave it out")},
      SilentFailure{"get_SubCommand_Auxiliary", phrase("AUXILIARY has no CILEVEL: add CILEVEL=95, or leave it out")},
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
