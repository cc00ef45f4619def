#include "workbench/dataset/suspicious_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "workbench/dataset/case_value.h"

namespace workbench {

namespace {

// A value and its row.
struct Observed {
  std::size_t row;
  double value;
};

std::vector<Observed> observedIn(const Column& column, std::size_t rows) {
  std::vector<Observed> observed;
  for (std::size_t row = 0; row < rows; ++row) {
    const double value = caseValue(column, row, true);
    if (value != kSystemMissing) observed.push_back({row, value});
  }
  return observed;
}

bool isFillCode(double value) {
  constexpr std::array kCodes{-9.0,   -99.0,   -999.0,   -9999.0, -99999.0, -999999.0, 999.0,
                              9999.0, 99999.0, 999999.0, 1e20,    1e30,     1e35,      1e36};
  constexpr std::array kFractions{-99.99, -999.9, -999.99, -9999.99};
  return std::ranges::find(kCodes, value) != kCodes.end() || std::ranges::find(kFractions, value) != kFractions.end() ||
         std::abs(value) == 1e20;
}

// The code is alone on its side of zero, or far beyond the largest of the others.
bool isApart(double code, const std::vector<Observed>& observed) {
  constexpr double kFar = 5.0;
  double largest = 0.0;
  bool sameSign = false;
  bool others = false;
  for (const Observed& one : observed) {
    if (one.value == code || !std::isfinite(one.value)) continue;
    others = true;
    largest = std::max(largest, std::abs(one.value));
    sameSign = sameSign || (one.value < 0.0) == (code < 0.0);
  }
  return others && (!sameSign || std::abs(code) > kFar * largest);
}

// Judges each code of a column once, however many rows hold it.
class FillCodes {
 public:
  explicit FillCodes(const std::vector<Observed>& observed) : observed_(observed) {}

  bool holds(double value) {
    if (!isFillCode(value)) return false;
    const auto [place, isNew] = apart_.try_emplace(value, false);
    if (isNew) place->second = isApart(value, observed_);
    return place->second;
  }

 private:
  const std::vector<Observed>& observed_;
  std::map<double, bool> apart_;
};

class Findings {
 public:
  explicit Findings(const Column& column) : column_(column) {}

  void add(Suspicion suspicion, const Observed& one) {
    const auto known = std::ranges::find_if(found, [&](const SuspiciousValues& other) {
      return other.suspicion == suspicion && (suspicion != Suspicion::fillCode || other.value == one.value);
    });
    if (known != found.end()) {
      known->rows.push_back(one.row);
    } else {
      found.push_back({suspicion, column_.name, one.value, {one.row}});
    }
  }

  std::vector<SuspiciousValues> found;

 private:
  const Column& column_;
};

double medianSize(const std::vector<Observed>& observed) {
  std::vector<double> sizes;
  for (const Observed& one : observed) sizes.push_back(std::abs(one.value));
  const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
  std::ranges::nth_element(sizes, middle);
  return *middle;
}

bool isOutlier(const std::vector<Observed>& observed, std::size_t i, double median) {
  constexpr double kTimesNeighbours = 1000.0;
  constexpr double kTimesMedian = 100.0;
  const double before = i > 0 ? std::abs(observed[i - 1].value) : 0.0;
  const double after = i + 1 < observed.size() ? std::abs(observed[i + 1].value) : 0.0;
  const double size = std::abs(observed[i].value);
  const double neighbours = std::max(before, after);
  return neighbours > 0.0 && size >= kTimesNeighbours * neighbours && size >= kTimesMedian * median;
}

bool endsWithTotal(const std::vector<Observed>& observed) {
  constexpr std::size_t kFewest = 4;
  constexpr double kRounding = 1e-9;
  if (observed.size() < kFewest) return false;
  double sum = 0.0;
  double size = 0.0;
  for (const Observed& one : observed) {
    sum += one.value;
    size += std::abs(one.value);
  }
  const double last = observed.back().value;
  return last != 0.0 && std::abs(sum - last - last) <= kRounding * size;
}

void examine(const std::vector<Observed>& observed, Findings& findings) {
  if (observed.size() < 3) return;
  const double median = medianSize(observed);
  FillCodes codes(observed);
  for (std::size_t i = 0; i < observed.size(); ++i) {
    const Observed& one = observed[i];
    if (std::isinf(one.value)) {
      findings.add(Suspicion::infinite, one);
    } else if (codes.holds(one.value)) {
      findings.add(Suspicion::fillCode, one);
    } else if (isOutlier(observed, i, median)) {
      findings.add(Suspicion::outlier, one);
    }
  }
  if (endsWithTotal(observed)) findings.add(Suspicion::total, observed.back());
}

}  // namespace

std::vector<SuspiciousValues> suspiciousValues(const Dataset& dataset, std::span<const int> columns) {
  std::vector<SuspiciousValues> all;
  for (const int index : columns) {
    const Column& column = dataset.columns[static_cast<std::size_t>(index)];
    if (column.kind != ColumnKind::number) continue;
    Findings findings(column);
    examine(observedIn(column, dataset.rowCount), findings);
    std::ranges::move(findings.found, std::back_inserter(all));
  }
  return all;
}

}  // namespace workbench
