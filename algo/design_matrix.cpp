#include "algo/design_matrix.h"

#include <algorithm>
#include <cassert>

namespace varmodel {
namespace {

using SeriesList = std::vector<std::vector<double>>;

// Writes every series' value at observation t and returns where the next value goes.
double* writeObservation(const SeriesList& series, std::size_t t, double* target) {
  for (const std::vector<double>& one : series) *target++ = one[t];
  return target;
}

}  // namespace

std::int64_t regressorCount(std::size_t endogenousCount, std::size_t exogenousCount, std::int32_t lag) {
  return static_cast<std::int64_t>(exogenousCount) + 1 + lag * static_cast<std::int64_t>(endogenousCount);
}

bool seriesAreAligned(const SeriesList& endogenous, const SeriesList& exogenous, std::size_t length) {
  const auto aligned = [length](const std::vector<double>& series) { return series.size() == length; };
  return std::ranges::all_of(endogenous, aligned) && std::ranges::all_of(exogenous, aligned);
}

Matrix designMatrix(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t maxLag, std::int32_t lag) {
  assert(1 <= lag && lag <= maxLag && static_cast<std::size_t>(maxLag) < endogenous.front().size());
  const auto firstRow = static_cast<std::size_t>(maxLag);
  const auto lagCount = static_cast<std::size_t>(lag);
  const std::size_t observations = endogenous.front().size();
  Matrix x(observations - firstRow, 1 + lagCount * endogenous.size() + exogenous.size());
  double* next = x.values.data();
  for (std::size_t t = firstRow; t < observations; ++t) {
    *next++ = 1.0;
    for (std::size_t l = 1; l <= lagCount; ++l) next = writeObservation(endogenous, t - l, next);
    next = writeObservation(exogenous, t, next);
  }
  return x;
}

Matrix targetMatrix(const SeriesList& endogenous, std::int32_t maxLag) {
  const auto firstRow = static_cast<std::size_t>(maxLag);
  const std::size_t observations = endogenous.front().size();
  Matrix y(observations - firstRow, endogenous.size());
  double* next = y.values.data();
  for (std::size_t t = firstRow; t < observations; ++t) next = writeObservation(endogenous, t, next);
  return y;
}

}  // namespace varmodel
