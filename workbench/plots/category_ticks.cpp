#include "workbench/plots/category_ticks.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr std::size_t kLongestCycle = 53;  // weeks of a year

// The label without its year, the first run of four digits: "1959Q1" is "Q1".
std::string withoutYear(std::string label) {
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  const auto year = std::search_n(label.begin(), label.end(), 4, true, [&](char c, bool) { return digit(c); });
  if (year != label.end()) label.erase(year, year + 4);
  return label;
}

// Categories from one to its like in the next year; 1 where there is no such thing.
std::size_t cycleOf(const std::vector<std::string>& labels) {
  const std::string first = withoutYear(labels.front());
  if (first == labels.front()) return 1;
  for (std::size_t i = 1; i < std::min(labels.size(), kLongestCycle + 1); ++i) {
    if (withoutYear(labels[i]) == first) return i;
  }
  return 1;
}

// The smallest of the cycle's divisors and 1, 2, 5, 10, ... cycles that is at least `wanted`.
std::size_t roundStep(std::size_t wanted, std::size_t cycle) {
  for (std::size_t step = wanted; step < cycle; ++step) {
    if (cycle % step == 0) return step;
  }
  for (std::size_t power = cycle;; power *= 10) {
    for (const std::size_t factor : {1U, 2U, 5U}) {
      if (factor * power >= wanted) return factor * power;
    }
  }
}

}  // namespace

std::vector<std::size_t> categoryTicks(const std::vector<std::string>& labels, std::size_t most) {
  std::vector<std::size_t> ticks;
  if (labels.empty()) return ticks;
  const std::size_t step = roundStep((labels.size() + most - 1) / most, cycleOf(labels));
  for (std::size_t place = 0; place < labels.size(); place += step) ticks.push_back(place);
  return ticks;
}

}  // namespace workbench
