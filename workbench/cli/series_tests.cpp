#include "workbench/cli/series_tests.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "engine/diagnostics/stationarity.h"
#include "workbench/base/shell_word.h"
#include "workbench/cli/screen.h"
#include "workbench/dataset/case_value.h"
#include "workbench/dataset/transformation.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

using engine::Stationarity;

constexpr double kSignificance = 0.05;
constexpr std::size_t kFewestValues = 20;  // below, the tests hardly ever find anything

struct SeriesTests {
  std::string name;
  engine::StationarityFinding finding;
  std::string transformation;  // that makes it stationary; empty when it is, or none does
  bool partial = false;        // values are missing inside: tested is the longest run of them
};

// The longest run of values that are not missing, the later of two.
std::vector<double> longestRun(const Column& column, std::size_t rows) {
  std::vector<double> longest;
  std::vector<double> run;
  for (std::size_t row = 0; row <= rows; ++row) {
    const double value = row < rows ? caseValue(column, row, true) : kSystemMissing;
    if (value != kSystemMissing && std::isfinite(value)) {
      run.push_back(value);
      continue;
    }
    if (run.size() >= longest.size()) longest = run;
    run.clear();
  }
  return longest;
}

bool isStationary(std::span<const double> values) {
  const auto finding = engine::judgeStationarity(values, kSignificance);
  return finding && finding->verdict == Stationarity::aroundLevel;
}

std::vector<double> changesOf(const std::vector<double>& values, bool logarithms) {
  std::vector<double> changes;
  for (std::size_t t = 1; t < values.size(); ++t) {
    changes.push_back(logarithms ? std::log(values[t]) - std::log(values[t - 1]) : values[t] - values[t - 1]);
  }
  return changes;
}

// The difference that suits the series, where it is stationary.
std::string transformationFor(const std::vector<double>& values, Stationarity verdict) {
  if (verdict == Stationarity::aroundLevel || verdict == Stationarity::aroundTrend) return {};
  const bool logarithms = engine::changesInProportion(values);
  if (!isStationary(changesOf(values, logarithms))) return {};
  return logarithms ? "dlog*100" : "diff";
}

std::optional<SeriesTests> testSeries(const Column& column, std::size_t rows) {
  if (column.kind != ColumnKind::number) return std::nullopt;
  const std::vector<double> values = longestRun(column, rows);
  if (values.size() < kFewestValues) return std::nullopt;
  const auto finding = engine::judgeStationarity(values, kSignificance);
  if (!finding) return std::nullopt;
  const auto missing = [&](std::size_t row) { return caseValue(column, row, true) == kSystemMissing; };
  std::size_t known = 0;
  for (std::size_t row = 0; row < rows; ++row) known += missing(row) ? std::size_t{0} : std::size_t{1};
  return SeriesTests{column.name, *finding, transformationFor(values, finding->verdict), known > values.size()};
}

std::string verdictText(Stationarity verdict) {
  switch (verdict) {
    case Stationarity::aroundLevel:
      return tr("stationary");
    case Stationarity::aroundTrend:
      return tr("stationary around a trend");
    case Stationarity::unitRoot:
      return tr("unit root");
    case Stationarity::disagreement:
      return tr("the tests disagree");
    case Stationarity::undecided:
      break;
  }
  return tr("undecided");
}

class TestsTable {
 public:
  explicit TestsTable(const Language& language) : language_(language) {
    table_.title = tr("Unit-Root Tests");
    table_.rowDimension.label = tr("Variable");
    const std::vector<std::string> tests{tr("ADF Sig."), tr("KPSS Sig.")};
    table_.columns = {{tr("Constant"), tests}, {tr("Trend"), tests}, {tr("Verdict"), {}}, {tr("Stationary with"), {}}};
  }

  void add(const SeriesTests& one) {
    table_.rows.push_back(one.name);
    std::vector<Cell> cells;
    for (const engine::UnitRootPair& pair : {one.finding.aroundLevel, one.finding.aroundTrend}) {
      cells.push_back(probability(pair.dickeyFuller.pValue, fmt::format("{:.3f}", pair.dickeyFuller.pValue)));
      cells.push_back(probability(pair.kpss.pValue, kpssText(pair.kpss.pValue)));
    }
    cells.push_back(textCell(verdictText(one.finding.verdict)));
    cells.push_back(textCell(one.transformation));
    table_.cells.push_back(std::move(cells));
  }

  const PivotTable& table() const { return table_; }

 private:
  static std::string kpssText(double p) {
    if (p == engine::Kpss::kSmallestP) return "\u2264 0.01";
    return p == engine::Kpss::kLargestP ? "\u2265 0.1" : fmt::format("{:.3f}", p);
  }

  Cell probability(double p, std::string text) const {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, language_.decimalSeparator());
    Cell cell = textCell(text);
    cell.value = p;
    return cell;
  }

  static Cell textCell(const std::string& text) {
    Cell cell;
    cell.missing = text.empty();
    cell.shown = {text, text.size()};
    return cell;
  }

  const Language& language_;
  PivotTable table_;
};

void showRemedy(const std::vector<SeriesTests>& tested) {
  std::vector<std::string> options{"--transform"};
  for (const SeriesTests& one : tested) {
    if (!one.transformation.empty()) options.push_back(one.name + "=" + one.transformation);
  }
  if (options.size() > 1) showLine(tr("Stationary series: ^1", shellWords(options)));
}

}  // namespace

void showSeriesTests(const Dataset& dataset, const std::set<std::string>& leftOut, const Language& language) {
  std::vector<SeriesTests> tested;
  for (const Column& column : dataset.columns) {
    if (leftOut.contains(column.name)) continue;
    if (auto one = testSeries(column, dataset.rowCount)) tested.push_back(std::move(*one));
  }
  if (tested.empty()) return;
  TestsTable table(language);
  for (const SeriesTests& one : tested) table.add(one);
  showLine("");
  showTable(table.table());
  showRemedy(tested);
  showNote(
      tr("ADF: a small Sig. speaks against a unit root. KPSS: a small Sig. speaks against stationarity. Verdicts are "
         "taken at 5 %, of the rows as they stand."));
  std::string partial;
  for (const SeriesTests& one : tested) {
    if (one.partial) partial += (partial.empty() ? "" : ", ") + one.name;
  }
  if (!partial.empty()) {
    showNote(
        Notice("describe.gap", "Values are missing inside of ^1: tested is the longest part without a gap.", partial));
  }
}

}  // namespace workbench
