#include "procedures/vardynamics/syntax/data_faults.h"

#include <string>
#include <variant>
#include <vector>

#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

constexpr std::size_t kShownGaps = 3;

// The number of a case with its date: 85 (1980Q1).
std::string rowText(std::size_t offset, const Calendar& calendar) {
  const std::string number = std::to_string(offset + 1);
  return calendar.hasDates() ? number + " (" + calendar.label(offset) + ")" : number;
}

std::string rangeText(const CaseRange& range, const Calendar& calendar) {
  if (range.first == range.last) return rowText(range.first, calendar);
  const std::string numbers = std::to_string(range.first + 1) + "-" + std::to_string(range.last + 1);
  if (!calendar.hasDates()) return numbers;
  return numbers + " (" + calendar.label(range.first) + "-" + calendar.label(range.last) + ")";
}

std::string rangesText(const std::vector<CaseRange>& ranges, const Calendar& calendar) {
  std::string text;
  for (std::size_t i = 0; i < ranges.size() && i < kShownGaps; ++i) {
    text += (text.empty() ? "" : ", ") + rangeText(ranges[i], calendar);
  }
  return ranges.size() > kShownGaps ? text + ", ..." : text;
}

const std::string& seriesName(std::size_t series, const ModelSettings& model) {
  const std::size_t endogenous = model.endogenous.names.size();
  return series < endogenous ? model.endogenous.names[series] : model.exogenous.names[series - endogenous];
}

struct FaultTeller {
  const ModelSettings& model;
  const Calendar& calendar;

  void operator()(const NoCompleteRow&) const {
    fail("No row holds values of all variables of the model. Choose variables that are observed in the same periods.");
  }
  void operator()(const InfiniteValue& value) const {
    fail("The variable ^1 is infinite in row ^2. Correct the value.",
         {seriesName(value.series, model), rowText(value.caseOffset, calendar)});
  }
  void operator()(const SampleGap& gap) const {
    fail(
        "No lag can cross a gap, and the sample has one. Incomplete rows: ^1; the first lacks ^2. Fill them, or "
        "analyse "
        "the rows ^3 alone, the longest part without a gap.",
        {rangesText(gap.gaps, calendar), seriesName(gap.series, model), rangeText(gap.longestRun, calendar)});
  }
};

}  // namespace

void refuse(const SampleFault& fault, const ModelSettings& model, const Calendar& calendar) {
  std::visit(FaultTeller{model, calendar}, fault);
  fail("The sample cannot be analysed.");
}

void refuse(const MissingFutureValue& missing, std::size_t horizon, const Sample& sample, const ModelSettings& model,
            const Calendar& calendar) {
  const std::string& name = model.exogenous.names[missing.series];
  const std::string row = rowText(sample.cases.last + 1 + missing.step, calendar);
  const std::string periods = std::to_string(horizon);
  if (missing.step == 0) {
    fail(
        "The forecast of ^1 periods needs values of ^2 from row ^3 on. Add rows with the values of the exogenous "
        "series "
        "after the sample, or leave out FORECAST.",
        {periods, name, row});
  }
  fail("The forecast of ^1 periods needs a value of ^2 in row ^3. Add it, or give HORIZON=^4.",
       {periods, name, row, std::to_string(missing.step)});
}

void refuseNoCondition(const Sample& sample, std::size_t horizon, const Calendar& calendar) {
  if (holdsCondition(sample, sample.futureRows())) {
    fail("CONDITIONAL=YES holds values that lie beyond the horizon of ^1. Give HORIZON=^2.",
         {std::to_string(horizon), std::to_string(sample.futureRows())});
  }
  fail(
      "CONDITIONAL=YES needs values to hold: rows after row ^1 with values of some endogenous series. Add them, or "
      "leave "
      "out CONDITIONAL.",
      {rowText(sample.cases.last, calendar)});
}

}  // namespace vardynamics
