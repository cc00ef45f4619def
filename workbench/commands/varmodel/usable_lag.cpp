#include "workbench/commands/varmodel/usable_lag.h"

#include <algorithm>
#include <iterator>

#include "workbench/commands/common/analysed_rows.h"

namespace workbench::varmodel {

namespace {

std::int64_t largestUsableLag(std::int64_t rows, std::int64_t endogenous, std::int64_t exogenous) {
  // K residual series need K spare rows for a regular covariance: rows - p - (exogenous + 1 + p K) >= K.
  const std::int64_t spare = rows - exogenous - 1 - endogenous;
  return spare < 0 ? 0 : std::min<std::int64_t>(25, spare / (endogenous + 1));
}

}  // namespace

LagRange lagRange(const CallRecord& parsed) {
  LagRange range;
  const auto read = [&](const char* name, int& lag) {
    const auto found = parsed.requestedNumbers.find(name);
    if (found != parsed.requestedNumbers.end()) lag = static_cast<int>(found->second);
  };
  read("MODEL MINLAG", range.least);
  read("MODEL MAXLAG", range.most);
  return range;
}

std::optional<UsableLag> usableLag(const FinishedRun& run) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  const auto endogenous = run.record.requestedLists.find("MODEL ENDOGENOUS");
  if (!rows || endogenous == run.record.requestedLists.end()) return std::nullopt;
  UsableLag usable{.rows = rows->account.used, .endogenous = std::ssize(endogenous->second)};
  usable.exogenous = std::ssize(rows->columns) - usable.endogenous;
  usable.lag = largestUsableLag(usable.rows, usable.endogenous, usable.exogenous);
  return usable;
}

bool exceedsUsableLag(const FinishedRun& run) {
  const std::optional<UsableLag> usable = usableLag(run);
  return usable && lagRange(run.record).most > usable->lag;
}

Notice usableLagText(const UsableLag& usable) {
  if (usable.lag < 1) {
    return Notice(
        "varmodel.no-usable-lag",
        "With ^1 rows, ^2 endogenous and ^3 exogenous variables no lag can be estimated: use fewer variables or more "
        "data.",
        usable.rows, usable.endogenous, usable.exogenous);
  }
  return Notice(
      "varmodel.usable-lag",
      "With ^1 rows, ^2 endogenous and ^3 exogenous variables the largest usable MAXLAG is ^4. Give MAXLAG=^4.",
      usable.rows, usable.endogenous, usable.exogenous, usable.lag);
}

}  // namespace workbench::varmodel
