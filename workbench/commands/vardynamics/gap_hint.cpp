#include "workbench/commands/vardynamics/gap_hint.h"

#include <array>
#include <optional>
#include <vector>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/labels.h"

namespace workbench::vardynamics {

namespace {

// The bound as --from and --to take it; empty where they take none.
std::string boundOf(const CallInput& input, std::size_t row) {
  const std::optional<CaseCalendar> calendar = caseCalendar(input.dataset, input.trends);
  if (!calendar) return std::to_string(input.casesBefore + row + 1);
  if (calendar->first.unit() > Unit::day) return {};
  return periodLabel(*calendar->period(static_cast<std::int64_t>(row)));
}

struct Bound {
  std::string name;
  std::string value;
};

std::vector<Bound> boundsOf(const CallInput& input, const RowRun& run) {
  std::vector<Bound> bounds;
  if (run.first > 0) bounds.push_back({"from", boundOf(input, run.first)});
  if (run.last + 1 < input.dataset.rowCount) bounds.push_back({"to", boundOf(input, run.last)});
  return bounds;
}

std::string written(const std::vector<Bound>& bounds, bool asOptions) {
  std::string text;
  for (const auto& [name, value] : bounds) {
    if (value.empty()) return {};
    text += asOptions ? " --" + name + " " + value : "\n  " + name + " = \"" + value + "\"";
  }
  return text;
}

}  // namespace

Notice gapHint(const FinishedRun& run, bool excludeUserMissing) {
  const std::array<std::string, 2> lists{"MODEL ENDOGENOUS", "MODEL EXOGENOUS"};
  const std::vector<int> columns = columnsOf(run.input.dataset, run.record, lists);
  const std::optional<RowRun> longest = longestCompleteRun(run.input.dataset, columns, excludeUserMissing);
  const std::string bounds = longest ? written(boundsOf(run.input, *longest), run.input.composed) : "";
  if (bounds.empty()) return {};
  return run.input.composed
             ? Notice("vardynamics.longest-part-options",
                      "To analyse the longest part without a gap, give these options:^1", bounds)
             : Notice("vardynamics.longest-part-keys",
                      "To analyse the longest part without a gap, give [data] in the job file these lines:^1", bounds);
}

}  // namespace workbench::vardynamics
