#include "engine/diagnostics/portmanteau.h"

#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

// The sum over the elements of C_j squared, where the residuals have C_0 = I.
double squaredAutocovariances(ResidualList standardised, std::size_t j) {
  const std::size_t n = standardised.front().size();
  double sum = 0.0;
  for (const std::vector<double>& now : standardised) {
    for (const std::vector<double>& before : standardised) {
      const double product =
          dotProduct(std::span(now).subspan(j), std::span(before).first(n - j)) / static_cast<double>(n);
      sum += product * product;
    }
  }
  return sum;
}

// The sum over j = 1..h of the squared autocovariances of lag j over n - j.
double weightedSum(ResidualList standardised, std::size_t h) {
  const std::size_t n = standardised.front().size();
  double sum = 0.0;
  for (std::size_t j = 1; j <= h; ++j) sum += squaredAutocovariances(standardised, j) / static_cast<double>(n - j);
  return sum;
}

}  // namespace

std::optional<ChiSquaredTest> portmanteau(ResidualList residuals, std::size_t lag, std::size_t h) {
  const auto standardised = choleskyStandardised(residuals);
  if (!standardised || h <= lag || h >= residuals.front().size()) return std::nullopt;
  const auto n = static_cast<double>(residuals.front().size());
  const auto squares = static_cast<double>(residuals.size() * residuals.size());
  return chiSquaredTest(n * n * weightedSum(*standardised, h), squares * static_cast<double>(h - lag));
}

std::optional<ChiSquaredTest> ljungBoxTest(const std::vector<double>& residuals, std::size_t lag, std::size_t h) {
  const auto standardised = choleskyStandardised(centredResiduals(std::span(&residuals, 1)));
  if (!standardised || h <= lag || h >= residuals.size()) return std::nullopt;
  const auto n = static_cast<double>(residuals.size());
  return chiSquaredTest(n * (n + 2.0) * weightedSum(*standardised, h), static_cast<double>(h - lag));
}

}  // namespace engine
