// The plotted points of the charts, as columns of equal length.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "procedures/common/time_axis.h"

namespace procedures {

// X labels of the `count` observations from observation `first` (from 0) on: their historical labels when there are at
// least first + count of them, else all of them as observation numbers (from 1).
std::vector<std::string> observationLabels(const std::vector<std::string>& historicalLabels, std::size_t first,
                                           std::size_t count);

// 1, 2, ..., count.
std::vector<std::string> numberLabels(std::size_t count);

// X labels of the forecast steps: their date labels; "F+" and the step number (from 1) where there is none.
std::vector<std::string> forecastStepLabels(const std::vector<ForecastLabel>& forecastLabels, std::size_t horizon);

// Points of a chart with several series, series after series.
struct SeriesPoints {
  std::vector<std::string> labels;
  std::vector<double> values;
  std::vector<std::string> seriesNames;

  std::size_t size() const { return values.size(); }
  // `x` and `y` have equal length.
  void append(const std::string& series, std::span<const std::string> x, std::span<const double> y);
};

}  // namespace procedures
