#include "engine/dynamics/forecast_recursion.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace engine {
namespace {

// The last values in the order of the coefficients: lag 1 of every series, then lag 2, ...
std::vector<double> startingHistory(const std::vector<std::vector<double>>& series, std::size_t lag) {
  std::vector<double> history;
  history.reserve(lag * series.size());
  for (std::size_t l = 1; l <= lag; ++l) {
    for (const std::vector<double>& one : series) {
      assert(one.size() >= lag);
      history.push_back(one[one.size() - l]);
    }
  }
  return history;
}

void traceMissing(std::size_t index, std::size_t seriesCount, std::size_t size, std::ostream& trace) {
  trace << "      WARNING: Missing coefficient for lag " << (index - 1) / seriesCount + 1 << " variable "
        << (index - 1) % seriesCount << " (coeffIdx=" << index << ", coeffs.size()=" << size << ")\n";
}

double forecastOne(std::span<const double> coefficients, std::span<const double> history, std::size_t seriesCount,
                   std::ostream& trace) {
  double value = coefficients.front();
  for (std::size_t index = 1; index <= history.size(); ++index) {
    if (index < coefficients.size()) {
      value += coefficients[index] * history[index - 1];
    } else {
      traceMissing(index, seriesCount, coefficients.size(), trace);
    }
  }
  return value;
}

// Moves every lag one place back and puts the newest values at lag 1.
void advanceHistory(std::vector<double>& history, std::span<const double> newest) {
  if (history.empty()) return;
  std::shift_right(history.begin(), history.end(), std::ssize(newest));
  std::ranges::copy(newest, history.begin());
}

}  // namespace

std::optional<std::vector<std::vector<double>>> recursiveForecasts(const std::vector<std::vector<double>>& coefficients,
                                                                   const std::vector<std::vector<double>>& series,
                                                                   std::size_t lag, std::size_t horizon,
                                                                   std::ostream& trace) {
  const std::size_t count = series.size();
  if (coefficients.size() < count) return std::nullopt;
  std::vector<double> history = startingHistory(series, lag);
  std::vector<std::vector<double>> forecasts(count, std::vector<double>(horizon));
  std::vector<double> newest(count);
  for (std::size_t h = 0; h < horizon; ++h) {
    for (std::size_t i = 0; i < count; ++i) {
      newest[i] = forecasts[i][h] = forecastOne(coefficients[i], history, count, trace);
    }
    advanceHistory(history, newest);
  }
  return forecasts;
}

}  // namespace engine
