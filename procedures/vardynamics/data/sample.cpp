#include "procedures/vardynamics/data/sample.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace vardynamics {
namespace {

bool anyKnown(const SeriesList& columns, std::size_t row) {
  return std::ranges::any_of(columns, [row](const auto& column) { return !std::isnan(column[row]); });
}

using Columns = std::vector<const std::vector<double>*>;

Columns allColumns(const CaseRows& rows) {
  Columns columns;
  for (const auto& column : rows.endogenous) columns.push_back(&column);
  for (const auto& column : rows.exogenous) columns.push_back(&column);
  return columns;
}

std::optional<std::size_t> firstMissing(const Columns& columns, std::size_t row) {
  const auto found = std::ranges::find_if(columns, [row](const auto* column) { return std::isnan((*column)[row]); });
  if (found == columns.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns.begin());
}

std::optional<InfiniteValue> findInfinite(const CaseRows& rows) {
  const auto columns = allColumns(rows);
  for (std::size_t series = 0; series < columns.size(); ++series) {
    const auto found = std::ranges::find_if(*columns[series], [](double value) { return std::isinf(value); });
    if (found != columns[series]->end()) {
      return InfiniteValue{static_cast<std::size_t>(found - columns[series]->begin()), series};
    }
  }
  return std::nullopt;
}

// The runs of complete rows, ascending.
std::vector<CaseRange> completeRuns(const CaseRows& rows) {
  const Columns columns = allColumns(rows);
  std::vector<CaseRange> runs;
  for (std::size_t row = 0; row < rows.count(); ++row) {
    if (firstMissing(columns, row)) continue;
    if (runs.empty() || runs.back().last + 1 != row) {
      runs.push_back({row, row});
    } else {
      runs.back().last = row;
    }
  }
  return runs;
}

SampleGap gapBetween(const CaseRows& rows, const std::vector<CaseRange>& runs) {
  SampleGap gap;
  for (std::size_t i = 1; i < runs.size(); ++i) gap.gaps.push_back({runs[i - 1].last + 1, runs[i].first - 1});
  gap.series = *firstMissing(allColumns(rows), gap.gaps.front().first);
  gap.longestRun = runs.front();
  for (const CaseRange& run : runs) {
    if (run.last - run.first >= gap.longestRun.last - gap.longestRun.first) gap.longestRun = run;
  }
  return gap;
}

SeriesList slice(const SeriesList& columns, std::size_t first, std::size_t count) {
  SeriesList part;
  for (const auto& column : columns) {
    const auto values = std::span(column).subspan(first, count);
    part.emplace_back(values.begin(), values.end());
  }
  return part;
}

// How many rows from `first` on reach to the last one that holds something a forecast uses.
std::size_t usefulRows(const CaseRows& rows, std::size_t first, FutureUse future) {
  std::size_t useful = 0;
  for (std::size_t row = first; future.forecasts && row < rows.count(); ++row) {
    const bool held = future.holdsEndogenous && anyKnown(rows.endogenous, row);
    if (held || anyKnown(rows.exogenous, row)) useful = row - first + 1;
  }
  return useful;
}

void forgetEndogenous(SeriesList& columns) {
  for (auto& column : columns) std::ranges::fill(column, std::nan(""));
}

Sample sampleOf(const CaseRows& rows, CaseRange cases, FutureUse future) {
  Sample sample{.cases = cases, .leftOutBefore = cases.first};
  sample.endogenous = slice(rows.endogenous, cases.first, sample.rows());
  sample.exogenous = slice(rows.exogenous, cases.first, sample.rows());
  const std::size_t next = cases.last + 1;
  const std::size_t futureRows = usefulRows(rows, next, future);
  sample.leftOutAfter = rows.count() - next - futureRows;
  sample.futureEndogenous = slice(rows.endogenous, next, futureRows);
  sample.futureExogenous = slice(rows.exogenous, next, futureRows);
  if (future.holdsEndogenous) return sample;
  for (std::size_t row = next; row < rows.count(); ++row) {
    sample.ignoresEndogenous = sample.ignoresEndogenous || anyKnown(rows.endogenous, row);
  }
  forgetEndogenous(sample.futureEndogenous);
  return sample;
}

}  // namespace

std::variant<Sample, SampleFault> cutSample(const CaseRows& rows, FutureUse future) {
  if (const auto infinite = findInfinite(rows)) return *infinite;
  const std::vector<CaseRange> runs = completeRuns(rows);
  if (runs.empty()) return NoCompleteRow{};
  if (runs.size() > 1) return gapBetween(rows, runs);
  return sampleOf(rows, runs.front(), future);
}

}  // namespace vardynamics
