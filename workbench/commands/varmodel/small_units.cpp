#include "workbench/commands/varmodel/small_units.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "workbench/commands/varmodel/document_items.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"
#include "workbench/language/quoting.h"

namespace workbench::varmodel {

namespace {

constexpr std::string_view singularCovariance = "Covariance matrix is singular";
constexpr double smallestVariance = 1e-2;
constexpr int mostPowers = 60;    // of ten, tried for a first fit that passes
constexpr int furtherPowers = 6;  // tried beyond the one that the variances ask for
constexpr int powersPerAttempt = 6;

std::string variables(const CallRecord& record, const std::string& list) {
  const auto found = record.requestedLists.find("MODEL " + list);
  if (found == record.requestedLists.end()) return "";
  std::string text = " " + list + "=";
  for (const std::string& name : found->second) text += quoteName(name) + " ";
  return text;
}

// The same model, its residual covariance alone.
std::string plainFit(const FinishedRun& run) {
  const LagRange lags = lagRange(run.record);
  return "VARMODEL /MODEL" + variables(run.record, "ENDOGENOUS") + variables(run.record, "EXOGENOUS") +
         fmt::format(" MINLAG={} MAXLAG={}", lags.least, lags.most) +
         " /METHOD TYPE=[OLS] /MODELSTATISTICS MODELFIT=[PARAMETERS CORRMATRIX]" +
         (run.command.includesUserMissing(run.record) ? " /MISSING USERMISSING=INCLUDE" : "");
}

class PlainFit {
 public:
  PlainFit(const FinishedRun& run, CommandRunner& runner) : run_(run), runner_(runner), text_(plainFit(run)) {}

  // With the endogenous series multiplied by this power of ten; whether it passed the bound.
  bool passes(int power) {
    RunnerSettings settings = runner_.settings();
    settings.scale = std::pow(10.0, power);
    settings.summary = false;
    settings.complete = run_.complete;
    const FinishedRun fit = runner_.run(run_.command, text_, settings);
    const rapidjson::Value* table = findItem(fit.record, "table", "Covariance Matrix of Residuals");
    if (!fit.outcome.succeeded || table == nullptr) return false;
    variance_ = std::numeric_limits<double>::infinity();
    const rapidjson::Value& rows = (*table)["cells"];
    for (rapidjson::SizeType i = 0; i < rows.Size(); ++i) {
      if (rows[i][i].IsNumber()) variance_ = std::min(variance_, rows[i][i].GetDouble() / std::pow(10.0, 2 * power));
    }
    return true;
  }

  // The smallest residual variance in the unit of the data, after a fit that passed.
  double smallestVariance() const { return variance_; }

 private:
  const FinishedRun& run_;
  CommandRunner& runner_;
  std::string text_;
  double variance_ = 0.0;
};

}  // namespace

bool stoppedAtSingularCovariance(const FinishedRun& run) {
  return std::ranges::any_of(run.record.messages, [](const Message& one) { return one.text == singularCovariance; });
}

std::optional<double> fittingScale(const FinishedRun& stopped, CommandRunner& runner) {
  if (exceedsUsableLag(stopped)) return std::nullopt;
  PlainFit fit(stopped, runner);
  int power = powersPerAttempt;
  while (power <= mostPowers && !fit.passes(power)) power += powersPerAttempt;
  if (power > mostPowers || !(fit.smallestVariance() > 0.0)) return std::nullopt;
  const double needed = std::log10(smallestVariance / fit.smallestVariance()) / 2.0;
  const int least = std::max(1, static_cast<int>(std::ceil(needed)));
  for (int tried = least; tried <= least + furtherPowers; ++tried) {
    if (fit.passes(tried)) return std::pow(10.0, tried);
  }
  return std::nullopt;
}

std::string scaleText(double scale) {
  return fmt::format("{}", scale);
}

Notice scaleNote(const FinishedRun& run) {
  Notice text = Notice(
      "varmodel.scaled",
      "All endogenous series are multiplied by ^1. In this unit are the descriptive statistics, constants, "
      "coefficients "
      "of exogenous variables (with standard errors and limits), residual sums of squares, MSE, RMSE, MAE, "
      "covariances, "
      "forecasts and the charts of series. Lag coefficients, t, Sig., R Square, MAPE, correlations and tests do not "
      "depend on it; log-likelihood and criteria move by the same amount for every lag.",
      scaleText(run.scale));
  if (!run.record.savedFiles.empty()) text += phrase("The saved file is in the unit of the data.");
  return text;
}

}  // namespace workbench::varmodel
