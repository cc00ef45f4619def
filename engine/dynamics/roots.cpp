#include "engine/dynamics/roots.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "engine/linear_algebra/complex_eigenvalues.h"

namespace engine {

std::optional<std::vector<Root>> rootsOf(std::span<const Matrix> lags) {
  const auto values = complexEigenvalues(companionMatrix(lags));
  if (!values) return std::nullopt;
  std::vector<Root> roots;
  for (const std::complex<double>& value : *values) {
    const double angle = std::abs(std::arg(value));
    const double period = angle > 0.0 ? 2.0 * std::numbers::pi / angle : std::numeric_limits<double>::infinity();
    roots.push_back({std::abs(value), value.real(), value.imag(), period});
  }
  return roots;
}

double largestModulus(std::span<const Matrix> lags) {
  const auto roots = rootsOf(lags);
  if (!roots) return std::numeric_limits<double>::infinity();
  return roots->empty() ? 0.0 : roots->front().modulus;
}

}  // namespace engine
