#include "procedures/common/chart_points.h"

#include <cassert>

namespace procedures {

namespace {

// first + 1, ..., first + count
std::vector<std::string> numbersAfter(std::size_t first, std::size_t count) {
  std::vector<std::string> labels;
  labels.reserve(count);
  for (std::size_t i = 1; i <= count; ++i) labels.push_back(std::to_string(first + i));
  return labels;
}

}  // namespace

std::vector<std::string> observationLabels(const std::vector<std::string>& historicalLabels, std::size_t first,
                                           std::size_t count) {
  if (historicalLabels.size() < first + count) return numbersAfter(first, count);
  const auto begin = historicalLabels.begin() + static_cast<std::ptrdiff_t>(first);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

std::vector<std::string> numberLabels(std::size_t count) {
  return numbersAfter(0, count);
}

std::vector<std::string> forecastStepLabels(const std::vector<ForecastLabel>& forecastLabels, std::size_t horizon) {
  std::vector<std::string> labels;
  labels.reserve(horizon);
  for (std::size_t step = 0; step < horizon; ++step) {
    labels.push_back(step < forecastLabels.size() ? forecastLabels[step].text : "F+" + std::to_string(step + 1));
  }
  return labels;
}

void SeriesPoints::append(const std::string& series, std::span<const std::string> x, std::span<const double> y) {
  assert(x.size() == y.size());
  labels.insert(labels.end(), x.begin(), x.end());
  values.insert(values.end(), y.begin(), y.end());
  seriesNames.insert(seriesNames.end(), y.size(), series);
}

}  // namespace procedures
