#include "engine/diagnostics/stationarity.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/arithmetic/moments.h"

namespace engine {
namespace {

std::optional<UnitRootPair> bothTests(std::span<const double> x, UnitRootTerms terms) {
  const auto dickeyFuller = augmentedDickeyFuller(x, terms);
  const auto stationary = kpss(x, terms);
  if (!dickeyFuller || !stationary) return std::nullopt;
  return UnitRootPair{*dickeyFuller, *stationary};
}

Stationarity verdictOf(const StationarityFinding& finding, double significance) {
  const auto rejectsRoot = [&](const UnitRootPair& pair) { return pair.dickeyFuller.pValue < significance; };
  const auto rejectsStationarity = [&](const UnitRootPair& pair) { return pair.kpss.pValue < significance; };
  const bool root = !rejectsRoot(finding.aroundLevel);
  const bool moves = rejectsStationarity(finding.aroundLevel);
  if (!root && !moves) return Stationarity::aroundLevel;
  if (rejectsRoot(finding.aroundTrend) && !rejectsStationarity(finding.aroundTrend)) return Stationarity::aroundTrend;
  if (root && moves) return Stationarity::unitRoot;
  return root ? Stationarity::undecided : Stationarity::disagreement;
}

double standardDeviationOfChanges(std::span<const double> x) {
  std::vector<double> changes;
  for (std::size_t t = 1; t < x.size(); ++t) changes.push_back(x[t] - x[t - 1]);
  return std::sqrt(sumOfSquaredDeviations(changes, mean(changes)) / static_cast<double>(changes.size()));
}

}  // namespace

std::optional<StationarityFinding> judgeStationarity(std::span<const double> x, double significance) {
  const auto level = bothTests(x, UnitRootTerms::constant);
  const auto trend = bothTests(x, UnitRootTerms::constantAndTrend);
  if (!level || !trend) return std::nullopt;
  StationarityFinding finding{Stationarity::undecided, *level, *trend};
  finding.verdict = verdictOf(finding, significance);
  return finding;
}

bool changesInProportion(std::span<const double> x) {
  if (x.size() < 3 || std::ranges::any_of(x, [](double value) { return !(value > 0.0); })) return false;
  std::vector<double> logarithms;
  for (const double value : x) logarithms.push_back(std::log(value));
  return mean(std::span(logarithms).subspan(1)) + std::log(standardDeviationOfChanges(logarithms)) <
         std::log(standardDeviationOfChanges(x));
}

}  // namespace engine
