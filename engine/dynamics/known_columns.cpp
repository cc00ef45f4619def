#include "engine/dynamics/known_columns.h"

#include <algorithm>
#include <numeric>

namespace engine {

std::vector<double> trendColumn(std::size_t length) {
  std::vector<double> column(length);
  std::iota(column.begin(), column.end(), 0.0);
  return column;
}

std::vector<std::vector<double>> centredSeasonColumns(std::size_t firstSeason, std::size_t seasons,
                                                      std::size_t length) {
  const double share = 1.0 / static_cast<double>(seasons);
  std::vector<std::vector<double>> columns;
  for (std::size_t j = 0; j + 1 < seasons; ++j) {
    std::vector<double>& column = columns.emplace_back(length, -share);
    for (std::size_t t = 0; t < length; ++t) {
      if ((firstSeason + t) % seasons == j) column[t] = 1.0 - share;
    }
  }
  return columns;
}

std::vector<std::vector<double>> laggedColumns(std::span<const std::vector<double>> series, std::size_t lags) {
  std::vector<std::vector<double>> columns;
  for (const std::vector<double>& one : series) {
    for (std::size_t lag = 0; lag <= lags; ++lag) {
      std::vector<double>& column = columns.emplace_back(one.size(), one.front());
      std::copy(one.begin(), one.end() - static_cast<std::ptrdiff_t>(std::min(lag, one.size())),
                column.begin() + static_cast<std::ptrdiff_t>(std::min(lag, one.size())));
    }
  }
  return columns;
}

}  // namespace engine
