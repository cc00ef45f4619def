// Log-likelihood and information criteria of a fitted model, and the lag order that they choose.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace engine {

// What the criteria are made of: a model of K equations with m regressors each on n rows. `parameters` is the count of
// coefficients that the penalty is for; which of them it counts is the caller's.
struct ModelSize {
  std::int64_t equations = 0;
  std::int64_t rows = 0;
  std::int64_t regressors = 0;
  double parameters = 0.0;
};

// Gaussian: -n/2 (ln det + K (ln 2 pi + 1)), from the logarithm of the determinant of the residual covariance (divisor
// n); 0 when K or n is 0.
double logLikelihood(double logDeterminant, const ModelSize& size);

enum class Criterion { aic, bic, hqic, fpe };
inline constexpr std::size_t kCriterionCount = 4;
using CriterionValues = std::array<double, kCriterionCount>;

// One criterion: smaller is better. The value of FPE is its logarithm, since itself leaves the range of doubles in
// large or small units.
struct CriterionRow {
  Criterion criterion;
  std::string_view name;
  double (*value)(double logLikelihood, double logDeterminant, const ModelSize& size);
  bool logarithmic;
};

// Akaike 1974, Schwarz 1978, Hannan & Quinn 1979 as (-2 logL + c parameters) / n, with c = 2, ln n, 2 ln ln n; Akaike's
// final prediction error ((n + m) / (n - m))^K det V (1971). In the order of the enumeration.
const std::array<CriterionRow, kCriterionCount>& criterionTable();

// All of them; infinite when K or n is 0. HQIC is infinite for n < 3, FPE for n <= m.
CriterionValues criterionValues(double logLikelihood, double logDeterminant, const ModelSize& size);

inline double valueOf(Criterion criterion, const CriterionValues& values) {
  return values[static_cast<std::size_t>(criterion)];
}

// The place of the first smallest value of a list that is not empty: a candidate gives way only to a strictly smaller
// one.
std::size_t placeOfSmallest(std::span<const double> values);

}  // namespace engine
